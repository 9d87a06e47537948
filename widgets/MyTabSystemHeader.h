#pragma once

#include <QList>
#include <QWidget>

class MyTabSystemHelper;

// The strip on which the tabs of a tab system stand: a row, or a column in
// the vertical form. It paints its tabs, finds the tab under the pointer and
// reports clicks by the tab's place on this strip.
class MyTabSystemHeader : public QWidget
{
    Q_OBJECT
public:
    // The height of a row of tabs and of a tab in the column.
    static const int RowHeight = 29;
    static const int ColumnWidth = 151;
    static const int ColumnRowHeight = 30;

    explicit MyTabSystemHeader(QWidget* parent = nullptr);

    MyTabSystemHelper* addTab(const QString& label);
    int count() const { return tabs.size(); }
    MyTabSystemHelper* tab(int index) const { return tabs.value(index); }
    void setVertical(bool vertical);
    bool isVertical() const { return vertical; }

    // The tab at a point of the strip, or -1.
    int tabAt(const QPoint& pos) const;
    QRect tabRect(int index) const;
    // The width the row needs to show every label whole.
    int naturalWidth() const;

signals:
    void tabClicked(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void setHovered(int index);
    QVector<int> tabWidths() const;
    QVector<int> naturalWidths() const;

    QList<MyTabSystemHelper*> tabs;
    bool vertical = false;
    int hovered = -1;
};
