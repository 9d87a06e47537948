#pragma once

#include <QGraphicsItem>
#include <QObject>

// The expand arrow of a row with children: a square of the row's height at the
// row's indent, pointing right when closed and down when open.
class UltimateTreeItemButton : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    explicit UltimateTreeItemButton(QGraphicsItem* row);

    void setOpen(bool on);
    bool isOpen() const { return open; }
    void setHovered(bool on);
    bool isHovered() const { return hovered; }
    void setSize(int size);
    // Called by the tree when the pointer presses the button.
    void press() { emit pressed(); }

    QRectF boundingRect() const override { return QRectF(0, 0, side, side); }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

signals:
    void pressed();

private:
    int side = 20;
    bool open = false;
    bool hovered = false;
};
