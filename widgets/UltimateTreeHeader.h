#pragma once

#include <QWidget>

class UltimateTree;

// The column titles over an UltimateTree, with grips on the column borders
// that resize the columns.
class UltimateTreeHeader : public QWidget
{
    Q_OBJECT

public:
    explicit UltimateTreeHeader(UltimateTree* tree, QWidget* parent = nullptr);
    ~UltimateTreeHeader() override;

    // The column whose right border lies within 4 pixels of x, or -1.
    int gripAt(int x) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void setGripCursor(bool on);

    UltimateTree* tree;
    int resizingColumn = -1;
    int pressX = 0;
    int startWidth = 0;
    bool cursorSet = false;
    bool pressed = false;
};
