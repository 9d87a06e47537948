#pragma once

#include <QList>
#include <QPainter>
#include <QPointer>

class QGraphicsScene;
class QGraphicsView;
class QRectF;
class UIComponentBase;

// While a component is dragged, resized or rotated, the components drawn
// before it do not change. They are then painted once into the view's cached
// background, and each move of the mouse copies that background and paints
// only the moving component, its tree and whatever lies above it, instead of
// blending every picture of the HUD again. Any change to a component in the
// layer, a new zoom or another selection ends the layer, so the canvas never
// shows a stale picture.
class StillLayer
{
public:
    explicit StillLayer(QGraphicsScene& scene);

    // Takes the components that lie below the top-level tree of moving in
    // the stacking order into the layer. Nothing happens when that tree is
    // at the bottom already.
    void begin(QGraphicsView* view, UIComponentBase* moving);
    // Gives the components back to the view's own painting.
    void end();
    bool isActive() const { return !still.isEmpty(); }
    // Paints the layer's components that reach into rect (scene
    // coordinates) as the view would, with the view's render hints.
    void draw(QPainter* painter, const QRectF& rect) const;

private:
    QGraphicsScene& scene;
    QPointer<QGraphicsView> view;
    // Bottom first, the order in which the view paints them.
    QList<QPointer<UIComponentBase>> still;
};
