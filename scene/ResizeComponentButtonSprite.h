#pragma once

#include <QGraphicsItem>
#include <QPoint>
#include <QRectF>
#include <QSizeF>

class UIComponentBase;

// One of the nine handles of a selected component: eight resize handles
// clockwise from the top-left, and the rotation handle above the top edge. A
// child item of its component, so it turns with it but keeps its size at
// every zoom. A press on a handle belongs to it alone: the scene's own press
// logic keeps the selection as it was.
class ResizeComponentButtonSprite : public QGraphicsItem
{
public:
    static constexpr int rotationIndex = 8;

    ResizeComponentButtonSprite(UIComponentBase* owner, int handleIndex);
    ~ResizeComponentButtonSprite() override;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    // The resize cursor that points along this handle's direction at the
    // component's rotation, or the rotation cursor.
    void updateCursor();
    // The cursor shape of a resize handle at a rotation in degrees.
    static Qt::CursorShape resizeCursorShape(int handleIndex, double rotation);
    // The index of the handle across the box: i + 4 below 4, else i - 4.
    static int oppositeIndex(int handleIndex);
    // The edges of the upright box that a resize from this handle may snap,
    // at a rotation in degrees (bits 1 top, 2 bottom, 4 left, 8 right).
    static int snapMask(int handleIndex, double rotation);

    // One step of the interaction at the last cursor position seen; shift
    // is the aspect rule. A replay from a key (fromMouse false) leaves the
    // rotation alone, which follows the mouse only.
    void applyHandle(bool shift, bool fromMouse);
    // Ends the interaction as a release does; also when the component leaves
    // the canvas while the handle is held.
    void release();

    QPoint pressCursor;
    QRectF startRect;
    QPointF oppositeStart;
    QSizeF size;
    UIComponentBase* component;
    int index;
    int rotationOctant = 0;
    bool pressed = false;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    // Moves the component so that the opposite handle is where it was at the press.
    void keepOppositeStill();
    void restoreCursor();

    // The cursor seen last, in global and scene positions.
    QPoint lastCursor;
    QPointF lastScenePos;
    bool cursorOverridden = false;
};
