#include "scene/SceneCanvas.h"

#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/ResizeComponentButtonSprite.h"
#include "scene/UIComponentBase.h"

#include <QCursor>
#include <QGraphicsSceneWheelEvent>
#include <QPainter>
#include <QScrollBar>
#include <QVector>

namespace {

// Zoom steps grow with the zoom, and the two directions change step at
// different points: in from 9 goes to 10, out from 11 goes to 9.
int zoomInStep(int zoom)
{
    if (zoom >= 50)
        return 0;
    if (zoom >= 40)
        return 10;
    if (zoom >= 30)
        return 8;
    if (zoom >= 20)
        return 4;
    if (zoom >= 10)
        return 2;
    return 1;
}

int zoomOutStep(int zoom)
{
    if (zoom < 2)
        return 0;
    if (zoom > 40)
        return 10;
    if (zoom > 30)
        return 8;
    if (zoom > 20)
        return 4;
    if (zoom > 10)
        return 2;
    return 1;
}

// The canvas fits when the viewport exceeds it by more than 25 pixels each way.
bool fitsViewport(const QWidget* viewport, double width, double height)
{
    return viewport && viewport->width() > width + 25 && viewport->height() > height + 25;
}

}

SceneCanvas::SceneCanvas(GameUIEditorScene& owner, GameUIEditor* editor) : scene(owner), view(editor) {}

// ---------------------------------------------------------------- zoom

void SceneCanvas::setZoom(int value, bool keepCentre)
{
    QPointF centre;
    if (keepCentre && view) {
        const QPointF middle = view->mapToScene(view->viewport()->rect().center());
        const QRectF area = scene.sceneRect();
        if (area.width() > 0 && area.height() > 0)
            centre = QPointF((middle.x() + 1) / area.width(), (middle.y() + 1) / area.height());
        else
            keepCentre = false;
    }
    zoomTenths = value;
    updateSceneRect();
    // Drops the cached background, drawn at the old size.
    if (view)
        view->setCacheMode(QGraphicsView::CacheNone);
    scene.update();
    if (view)
        view->setCacheMode(QGraphicsView::CacheBackground);
    for (QGraphicsItem* item : scene.items()) {
        // A component that only shows inside another one is placed by it.
        UIComponentBase* component = qobject_cast<UIComponentBase*>(item->toGraphicsObject());
        if (component && !component->passive)
            component->zoomChanged();
    }
    // Deleted components come back from undo at the zoom of that moment.
    for (UIComponentBase* component : scene.removedComponents())
        component->zoomChanged();
    if (keepCentre && view) {
        const QRectF area = scene.sceneRect();
        view->centerOn(centre.x() * area.width(), centre.y() * area.height());
    }
}

void SceneCanvas::reportZoomState()
{
    if (!zoomStateChanged)
        return;
    if (zoomTenths < 2)
        zoomStateChanged(1, 2);
    else if (zoomTenths < 50)
        zoomStateChanged(1, 1);
    else
        zoomStateChanged(2, 1);
}

void SceneCanvas::zoomIn()
{
    const int step = zoomInStep(zoomTenths);
    if (step == 0)
        return;
    setZoom(zoomTenths + step, true);
    reportZoomState();
}

void SceneCanvas::zoomOut()
{
    const int step = zoomOutStep(zoomTenths);
    if (step == 0)
        return;
    setZoom(zoomTenths - step, true);
    reportZoomState();
}

void SceneCanvas::fitZoom()
{
    const QWidget* viewport = view ? view->viewport() : nullptr;
    // A fit never enlarges beyond 2.0 and never shrinks below 0.2.
    int fitting = 2;
    for (int z = 20; z >= 3; --z) {
        const double factor = z / 10.0;
        if (fitsViewport(viewport, screen.width() * factor, screen.height() * factor)) {
            fitting = z;
            break;
        }
    }
    setZoom(fitting, true);
    reportZoomState();
}

void SceneCanvas::refreshZoom(bool centre)
{
    const int present = zoomTenths;
    setZoom(present - 1, false);
    setZoom(present, false);
    if (centre)
        centerOnScene();
}

void SceneCanvas::centerOnScene()
{
    if (view)
        view->centerOn(scene.sceneRect().center());
}

void SceneCanvas::updateSceneRect()
{
    const double factor = zoomFactor();
    const int width = qMax(screen.width(), 0);
    const int height = qMax(screen.height(), 0);
    canvas = QRectF(0, 0, width * factor, height * factor);
    // A margin to scroll into only while the canvas doesn't fit.
    if (fitsViewport(view ? view->viewport() : nullptr, canvas.width(), canvas.height()))
        scene.setSceneRect(canvas);
    else
        scene.setSceneRect(canvas.adjusted(-50, -50, 50, 50));
}

bool SceneCanvas::setScreenSize(const QSize& size)
{
    if (size == screen)
        return false;
    userZoomed = false;
    screen = size;
    updateSceneRect();
    return true;
}

void SceneCanvas::wheel(QGraphicsSceneWheelEvent* event)
{
    // The wheel never reaches the scroll area's own handling, not even while
    // it is switched off during a resize or rotation.
    event->accept();
    if (!scene.wheelAllowed() || !view)
        return;
    if ((event->modifiers() & Qt::ControlModifier) && scene.wheelZoomAllowed()) {
        userZoomed = true;
        if (event->delta() < 1)
            zoomOut();
        else
            zoomIn();
        return;
    }
    const QRectF before = visibleSceneRect();
    // A sideways wheel (a touchpad) scrolls sideways too.
    const bool horizontal = (event->modifiers() & Qt::ShiftModifier) || event->orientation() == Qt::Horizontal;
    QScrollBar* bar = horizontal ? view->horizontalScrollBar() : view->verticalScrollBar();
    bar->setValue(bar->value() - event->delta());
    if (scene.draggedComponent()) {
        // The dragged component follows the scroll so that it stays under the
        // unchanged cursor.
        const QPoint cursor = view->viewport()->mapFromGlobal(QCursor::pos());
        scene.dragStep(view->mapToScene(cursor));
    }
    scene.update(before);
    scene.update(visibleSceneRect());
}

// ---------------------------------------------------------------- drawing

void SceneCanvas::setBackgroundImage(const QPixmap& pixmap)
{
    backgroundImage = pixmap;
    repaint();
}

void SceneCanvas::setDarkness(double value)
{
    if (qFuzzyCompare(1.0 + value, 1.0 + darkRatio))
        return;
    darkRatio = value;
    repaint();
}

void SceneCanvas::setTile(const QImage& image)
{
    tile = image;
    repaint();
}

void SceneCanvas::repaint()
{
    // The view keeps the background in a cache that a plain update leaves be.
    scene.invalidate(scene.sceneRect().united(visibleSceneRect()), QGraphicsScene::BackgroundLayer);
}

void SceneCanvas::forceRepaint()
{
    // A scene rectangle that changes and changes back makes every view drop
    // what it has painted. The views keep their scroll positions, which the
    // narrower rectangle may clamp.
    QVector<QPoint> scrolled;
    const QList<QGraphicsView*> views = scene.views();
    for (const QGraphicsView* each : views)
        scrolled.append(QPoint(each->horizontalScrollBar()->value(), each->verticalScrollBar()->value()));
    const QRectF area = scene.sceneRect();
    scene.setSceneRect(area.adjusted(0, 0, -1, 0));
    scene.setSceneRect(area);
    for (int i = 0; i < views.size(); ++i) {
        views[i]->horizontalScrollBar()->setValue(scrolled[i].x());
        views[i]->verticalScrollBar()->setValue(scrolled[i].y());
    }
}

QRectF SceneCanvas::visibleSceneRect() const
{
    if (!view)
        return scene.sceneRect();
    return view->mapToScene(view->viewport()->rect()).boundingRect();
}

void SceneCanvas::drawBackground(QPainter* painter, const QRectF& rect)
{
    if (hidden)
        return;
    const QBrush tileBrush = tile.isNull() ? QBrush(QColor(96, 96, 104)) : QBrush(tile);
    // Beyond the canvas: the tile, half faded into black.
    painter->fillRect(rect, Qt::black);
    painter->save();
    painter->setOpacity(0.5);
    painter->fillRect(rect, tileBrush);
    painter->restore();

    const QRectF whole(0, 0, int(canvas.width()), int(canvas.height()));
    const QRectF visible = rect.intersected(whole);
    const QColor shadow(0, 0, 0, 125);
    const QRectF bottomShadow = rect.intersected(QRectF(4, whole.height(), whole.width(), 4));
    const QRectF rightShadow = rect.intersected(QRectF(whole.width(), 4, 4, whole.height() - 4));
    if (!bottomShadow.isEmpty())
        painter->fillRect(bottomShadow, shadow);
    if (!rightShadow.isEmpty())
        painter->fillRect(rightShadow, shadow);

    // The frame hugs the exposed part of the canvas; the view repaints all of
    // its viewport at once, so that part is always the whole visible canvas.
    const double vx = visible.x(), vy = visible.y(), vw = visible.width(), vh = visible.height();
    painter->fillRect(QRectF(vx - 1, vy - 1, vw + 2, 1), Qt::black);
    painter->fillRect(QRectF(vx - 1, vy - 1, 1, vh + 2), Qt::black);
    painter->fillRect(QRectF(vx - 1, vy + vh, vw + 2, 1), Qt::black);
    painter->fillRect(QRectF(vx + vw, vy - 1, 1, vh + 2), Qt::black);

    if (!backgroundImage.isNull()) {
        painter->drawPixmap(whole, backgroundImage, QRectF(backgroundImage.rect()));
        if (darkRatio > 0) {
            painter->save();
            painter->setOpacity(darkRatio);
            painter->fillRect(whole.adjusted(0, 0, -1, -1), Qt::black);
            painter->restore();
        }
    } else if (!visible.isEmpty()) {
        painter->fillRect(visible, tileBrush);
    }
}

QImage SceneCanvas::render(bool withBackground)
{
    const QSize size(int(canvas.width()), int(canvas.height()));
    if (size.isEmpty())
        return QImage();
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);

    // The picture shows the HUD, not the editing state around it.
    const QList<UIComponentBase*>& components = scene.components();
    QVector<bool> frames;
    frames.reserve(components.size());
    for (UIComponentBase* component : components) {
        frames.append(component->frameVisible);
        component->frameVisible = false;
        for (QGraphicsItem* handle : qAsConst(component->handles))
            handle->setVisible(false);
    }
    const QVector<QLine> guides = scene.guideLines();
    scene.clearGuideLines();
    hidden = !withBackground;
    {
        QPainter painter(&image);
        scene.render(&painter, QRectF(image.rect()), QRectF(QPointF(0, 0), QSizeF(size)), Qt::IgnoreAspectRatio);
    }
    hidden = false;
    scene.setGuideLines(guides);
    for (int i = 0; i < components.size(); ++i) {
        components.at(i)->frameVisible = frames.at(i);
        for (QGraphicsItem* handle : qAsConst(components.at(i)->handles))
            handle->setVisible(true);
    }
    return image;
}
