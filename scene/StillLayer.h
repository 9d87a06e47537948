#pragma once

#include <QImage>
#include <QList>
#include <QPainter>
#include <QPointer>
#include <QTransform>

class QGraphicsScene;
class QGraphicsView;
class QRectF;
class UIComponentBase;

// While a component is dragged, resized or rotated, the other components do
// not change. Those drawn before the moving component's top-level tree are
// then painted once into the view's cached background, those drawn after it
// once into a picture laid over the view, and each move of the mouse paints
// only the moving tree between the two, instead of blending every picture of
// the HUD again. Any change to a component in the layer, a new zoom or
// another selection ends the layer, so the canvas never shows a stale picture.
class StillLayer
{
public:
    explicit StillLayer(QGraphicsScene& scene);

    // Takes the components below and above the top-level tree of moving into
    // the layer. A component that animates, and everything between it and
    // the moving tree, stays live.
    void begin(QGraphicsView* view, UIComponentBase* moving);
    // Gives the components back to the view's own painting.
    void end();
    bool isActive() const { return !below.isEmpty() || !above.isEmpty(); }
    // Paints the components below the moving tree that reach into rect
    // (scene coordinates), as the view would.
    void drawBelow(QPainter* painter, const QRectF& rect) const;
    // Lays the components above the moving tree over the view.
    void drawAbove(QPainter* painter);

private:
    // Paints components in the painter's scene coordinates, skipping those
    // outside rect.
    void paint(QPainter* painter, const QList<QPointer<UIComponentBase>>& components, const QRectF& rect) const;

    QGraphicsScene& scene;
    QPointer<QGraphicsView> view;
    // Bottom first, the order in which the view paints them.
    QList<QPointer<UIComponentBase>> below;
    QList<QPointer<UIComponentBase>> above;
    // The components above, drawn for this viewport size and transform.
    QImage aboveImage;
    QTransform aboveTransform;
};
