#pragma once

#include <QGraphicsItem>
#include <QPoint>
#include <QRectF>
#include <QSizeF>

class UIComponentBase;

// One of the nine handles of a selected component: eight resize handles
// clockwise from the top-left, and the rotation handle above the top edge. A
// child item of its component, so it turns with it but keeps its size at
// every zoom.
class ResizeComponentButtonSprite : public QGraphicsItem
{
public:
    static constexpr int rotationIndex = 8;

    ResizeComponentButtonSprite(UIComponentBase* owner, int handleIndex);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    // The resize cursor that points along this handle's direction at the
    // component's rotation, or the rotation cursor.
    void updateCursor();
    // The cursor shape of a resize handle at a rotation in degrees.
    static Qt::CursorShape resizeCursorShape(int handleIndex, double rotation);
    // The index of the handle across the box: i + 4 below 4, else i - 4.
    static int oppositeIndex(int handleIndex);

    QPoint pressCursor;
    QRectF startRect;
    QPointF oppositeStart;
    QSizeF size;
    UIComponentBase* component;
    int index;
    int rotationOctant = 0;
    bool pressed = false;
};
