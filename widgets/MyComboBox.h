#pragma once

#include "widgets/FieldButton.h"

#include <QPointer>
#include <QVariant>
#include <QVector>

class MyPopup;

// The program's drop-down choice: a 45-pixel field with a caption, the chosen
// row's text and an arrow that turns down while its list is open.
class MyComboBox : public FieldButton
{
    Q_OBJECT
public:
    // The data that marks a row shown in italics.
    static const int ItalicData = -100;

    explicit MyComboBox(QWidget* parent = nullptr);

    void setCaption(const QString& text);
    QString caption() const { return captionText; }

    void addItem(const QString& text, const QVariant& data = QVariant());
    void removeItem(int index);
    void setCurrentIndex(int index, bool emitSignal = true);
    // Selects the first row whose data is the value; no signal.
    void selectByData(int value);
    void selectByText(const QString& text, bool emitSignal = true);
    int currentIndex() const { return selected; }
    // The selected row's data as an integer; -1 when nothing is selected.
    int currentData() const;
    QString currentText() const;
    // The data of a row; a bad index is a programming error and throws.
    QVariant getData(int index) const;
    QString itemText(int index) const;
    int count() const { return items.size(); }
    void clearItems();
    // The list shows at most this many rows and scrolls beyond.
    void setMaxVisibleRows(int rows);
    MyPopup* popup() const { return openList; }
    void showPopup();

signals:
    void whenChoiceChanges();

public slots:
    void popupClosed(int index);

protected:
    bool holdsHover() const override { return !openList.isNull(); }
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Item {
        QVariant data;
        QString text;
    };

    QVector<Item> items;
    int selected = -1;
    int heightLimit = 0;
    QString captionText;
    QPointer<MyPopup> openList;
};
