#include "scene/StillLayer.h"

#include "scene/UIComponentBase.h"

#include <QGraphicsScene>
#include <QGraphicsView>

namespace {

// The item and its children in the order the view paints them: children
// stack among themselves, those behind their parent come before it.
void appendInPaintOrder(QList<QGraphicsItem*>& order, QGraphicsItem* item)
{
    const QList<QGraphicsItem*> children = item->childItems();
    const auto behind = [](const QGraphicsItem* child) {
        return (child->flags() & QGraphicsItem::ItemStacksBehindParent) || child->zValue() < 0;
    };
    for (QGraphicsItem* child : children) {
        if (behind(child))
            appendInPaintOrder(order, child);
    }
    order.append(item);
    for (QGraphicsItem* child : children) {
        if (!behind(child))
            appendInPaintOrder(order, child);
    }
}

}

StillLayer::StillLayer(QGraphicsScene& owner) : scene(owner) {}

void StillLayer::begin(QGraphicsView* target, UIComponentBase* moving)
{
    end();
    if (!target || !moving)
        return;
    QGraphicsItem* top = moving;
    while (top->parentItem())
        top = top->parentItem();
    // A component qualifies unless it animates or belongs to the moving
    // tree; any other kind of item (a handle) stays live as well. The layer
    // below is the run of qualifying components from the bottom of the
    // stack, the layer above the run from the top, so that everything live
    // between them is painted in the view's own order.
    QList<QGraphicsItem*> items;
    for (QGraphicsItem* item : scene.items(Qt::AscendingOrder)) {
        if (!item->parentItem())
            appendInPaintOrder(items, item);
    }
    const auto still = [top](QGraphicsItem* item) -> UIComponentBase* {
        UIComponentBase* component = qobject_cast<UIComponentBase*>(item->toGraphicsObject());
        if (!component || component->isAnimating() || top == item || top->isAncestorOf(item))
            return nullptr;
        return component;
    };
    int first = 0;
    for (; first < items.size(); ++first) {
        UIComponentBase* component = still(items.at(first));
        if (!component)
            break;
        below.append(component);
    }
    for (int last = items.size() - 1; last > first; --last) {
        UIComponentBase* component = still(items.at(last));
        if (!component)
            break;
        above.prepend(component);
    }
    if (!isActive())
        return;
    for (const auto* layer : {&below, &above}) {
        for (const QPointer<UIComponentBase>& component : *layer)
            component->inStillLayer = true;
    }
    view = target;
    view->resetCachedContent();
}

void StillLayer::end()
{
    if (!isActive())
        return;
    for (const auto* layer : {&below, &above}) {
        for (const QPointer<UIComponentBase>& component : *layer) {
            if (component)
                component->inStillLayer = false;
        }
    }
    below.clear();
    above.clear();
    aboveImage = QImage();
    if (view) {
        view->resetCachedContent();
        view->viewport()->update();
    }
    view = nullptr;
}

void StillLayer::paint(QPainter* painter, const QList<QPointer<UIComponentBase>>& components,
                       const QRectF& rect) const
{
    painter->save();
    if (view)
        painter->setRenderHints(view->renderHints());
    const QTransform world = painter->worldTransform();
    for (const QPointer<UIComponentBase>& component : components) {
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

void StillLayer::drawBelow(QPainter* painter, const QRectF& rect) const
{
    if (!below.isEmpty())
        paint(painter, below, rect);
}

void StillLayer::drawAbove(QPainter* painter)
{
    if (above.isEmpty() || !view)
        return;
    // Drawn again only when the view scrolled, zoomed or changed its size.
    const QSize size = view->viewport()->size();
    const QTransform transform = view->viewportTransform();
    if (aboveImage.size() != size || aboveTransform != transform) {
        aboveImage = QImage(size, QImage::Format_ARGB32_Premultiplied);
        if (aboveImage.isNull())
            return;
        aboveImage.fill(Qt::transparent);
        aboveTransform = transform;
        QPainter layer(&aboveImage);
        layer.setWorldTransform(transform);
        paint(&layer, above, view->mapToScene(view->viewport()->rect()).boundingRect());
    }
    painter->save();
    painter->resetTransform();
    painter->setOpacity(1.0);
    painter->drawImage(0, 0, aboveImage);
    painter->restore();
}
