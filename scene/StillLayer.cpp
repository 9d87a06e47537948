#include "scene/StillLayer.h"

#include "scene/UIComponentBase.h"

#include <QGraphicsScene>
#include <QGraphicsView>

StillLayer::StillLayer(QGraphicsScene& owner) : scene(owner) {}

void StillLayer::begin(QGraphicsView* target, UIComponentBase* moving)
{
    end();
    if (!target || !moving)
        return;
    QGraphicsItem* top = moving;
    while (top->parentItem())
        top = top->parentItem();
    // The layer is the run of components at the bottom of the stack that
    // stops at the moving tree, at any other kind of item (the handles) and
    // at a component that animates: everything after that is painted live,
    // so the order of painting stays the view's.
    QList<QPointer<UIComponentBase>> taken;
    const QList<QGraphicsItem*> items = scene.items(Qt::AscendingOrder);
    for (QGraphicsItem* item : items) {
        UIComponentBase* component = qobject_cast<UIComponentBase*>(item->toGraphicsObject());
        if (!component || component->isAnimating() || top == item || top->isAncestorOf(item))
            break;
        taken.append(component);
    }
    if (taken.isEmpty())
        return;
    for (const QPointer<UIComponentBase>& component : qAsConst(taken))
        component->inStillLayer = true;
    still = taken;
    view = target;
    view->resetCachedContent();
}

void StillLayer::end()
{
    if (still.isEmpty())
        return;
    for (const QPointer<UIComponentBase>& component : qAsConst(still)) {
        if (component)
            component->inStillLayer = false;
    }
    still.clear();
    if (view) {
        view->resetCachedContent();
        view->viewport()->update();
    }
    view = nullptr;
}

void StillLayer::draw(QPainter* painter, const QRectF& rect) const
{
    if (still.isEmpty())
        return;
    painter->save();
    if (view)
        painter->setRenderHints(view->renderHints());
    const QTransform world = painter->worldTransform();
    for (const QPointer<UIComponentBase>& component : still) {
        if (!component || !component->isVisible() || component->scene() != &scene)
            continue;
        if (!component->sceneBoundingRect().intersects(rect))
            continue;
        painter->setWorldTransform(component->sceneTransform() * world);
        painter->setOpacity(component->effectiveOpacity());
        component->paintNow(painter);
    }
    painter->restore();
}
