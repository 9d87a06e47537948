#include "scene/UIComponentBase.h"

#include "scene/ComponentFrame.h"
#include "scene/GameUIEditorScene.h"
#include "scene/ResizeComponentButtonSprite.h"
#include "scene/StillLayer.h"
#include "scene/SnapTargets.h"

#include <QCursor>
#include <QPainter>
#include <QPainterPath>
#include <QPropertyAnimation>
#include <QTransform>
#include <QtMath>

#include <cmath>
#include <limits>

namespace {

// The margin that boundingRect() adds around the drawn rectangle, so that
// frames and handles lie inside it.
constexpr qreal boundingMargin = 30.0;
// The rotation handle stands this far above the top edge.
constexpr int rotationHandleDistance = 5 * UIComponentBase::handleSize;
// One loop of the clock: 120 ticks in 2000 ms.
constexpr int clockTicks = 120;
constexpr int clockDuration = 2000;

}

UIComponentBase::UIComponentBase(GameUIEditorScene* scene, QGraphicsItem* parent)
    : QGraphicsObject(parent), editorScene(scene)
{
    setRotation(0);
    setAcceptHoverEvents(true);
    setCursor(Qt::SizeAllCursor);
    recomputeBounds(true);
}

UIComponentBase::~UIComponentBase()
{
    stopClock();
    delete removedChildren;
    qDeleteAll(handles);
}

QRectF UIComponentBase::boundingRect() const
{
    return drawnRect().adjusted(-boundingMargin, -boundingMargin, boundingMargin, boundingMargin);
}

QRectF UIComponentBase::drawnRect() const
{
    const double factor = zoomFactor();
    const double w = width * factor;
    const double h = height * factor;
    return QRectF(-w / 2, -h / 2, w, h);
}

double UIComponentBase::zoomFactor() const
{
    return editorScene ? editorScene->zoomFactor() : 1.0;
}

void UIComponentBase::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (!inStillLayer)
        paintNow(painter);
}

void UIComponentBase::paintNow(QPainter* painter)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setOpacity(opacity);
    drawContents(painter);
    painter->restore();

    ComponentFrame::paint(painter, *this);

    if (width != lastWidth) {
        lastWidth = width;
        recomputeBounds(false);
    }
    if (height != lastHeight) {
        lastHeight = height;
        recomputeBounds(false);
    }
}

int UIComponentBase::readInteger(const QJsonValue& value, int fallback)
{
    const double number = value.toDouble(fallback);
    if (!std::isfinite(number))
        return fallback;
    return int(qBound(double(std::numeric_limits<int>::min()), std::trunc(number),
                      double(std::numeric_limits<int>::max())));
}

void UIComponentBase::drawContents(QPainter* painter)
{
    painter->fillRect(drawnRect(), Qt::white);
}

int UIComponentBase::minimumWidth() const { return 25; }
int UIComponentBase::maximumWidth() const { return 400; }
int UIComponentBase::minimumHeight() const { return 25; }
int UIComponentBase::maximumHeight() const { return 400; }

void UIComponentBase::setData(const QJsonObject& json)
{
    // A kind that has no class of its own yet, or a "Type" this program
    // doesn't know, still keeps every key it came with.
    jsonData = json;
    setXY(readInteger(json.value(QStringLiteral("X"))), readInteger(json.value(QStringLiteral("Y"))));
    // Degrees past a whole turn mean the same within it; taken as they are,
    // a document's 1e308 would overflow the int that data() writes back.
    const double rotation = json.value(QStringLiteral("Rotation")).toDouble(0.0);
    setRotation(std::isfinite(rotation) ? std::fmod(rotation, 360.0) : 0.0);
    opacity = json.value(QStringLiteral("Opacity")).toDouble(1.0);
    refresh();
}

void UIComponentBase::refresh()
{
    leaveStillLayer();
    recomputeBounds(false);
    placeHandles();
    updateHandleCursors();
    update();
}

void UIComponentBase::resized() {}

bool UIComponentBase::canHaveChildren() const { return false; }
bool UIComponentBase::canResize() const { return true; }
bool UIComponentBase::canRotate() const { return true; }

void UIComponentBase::zoomChanged()
{
    leaveStillLayer();
    prepareGeometryChange();
    recomputeBounds(true);
    placeHandles();
    placeItem();
}

QPainterPath UIComponentBase::shape() const
{
    QPainterPath path;
    path.addRect(drawnRect());
    return path;
}

QJsonObject& UIComponentBase::data()
{
    jsonData.insert(QStringLiteral("X"), x);
    jsonData.insert(QStringLiteral("Y"), y);
    jsonData.insert(QStringLiteral("Rotation"), int(rotation()) % 360);
    // Documents have always carried 100.0 here when the key was missing; the
    // game plugin reads it that way.
    if (!jsonData.contains(QStringLiteral("Opacity")))
        jsonData.insert(QStringLiteral("Opacity"), 100.0);
    return jsonData;
}

void UIComponentBase::setAniTime(int value)
{
    leaveStillLayer();
    aniTimeValue = value;
    update();
}

void UIComponentBase::setAniFrame(int value)
{
    leaveStillLayer();
    aniFrameValue = value;
    update();
}

void UIComponentBase::incrementTotalTime()
{
    totalTime += clockTicks;
}

void UIComponentBase::placeItem()
{
    leaveStillLayer();
    const double factor = zoomFactor();
    setPos(x * factor, y * factor);
}

void UIComponentBase::setXY(int newX, int newY)
{
    x = newX;
    y = newY;
    placeItem();
}

void UIComponentBase::moveX(int delta)
{
    if (interactionState != 0)
        return;
    x += delta;
    placeItem();
}

void UIComponentBase::moveY(int delta)
{
    if (interactionState != 0)
        return;
    y += delta;
    placeItem();
}

void UIComponentBase::setAbsoluteXY(int absoluteX, int absoluteY)
{
    for (UIComponentBase* ancestor = parentComponent; ancestor; ancestor = ancestor->parentComponent) {
        absoluteX -= ancestor->x;
        absoluteY -= ancestor->y;
    }
    setXY(absoluteX, absoluteY);
}

QPoint UIComponentBase::absoluteXY() const
{
    QPoint result(x, y);
    for (const UIComponentBase* ancestor = parentComponent; ancestor; ancestor = ancestor->parentComponent)
        result += QPoint(ancestor->x, ancestor->y);
    return result;
}

void UIComponentBase::setScenePosition(qreal sceneX, qreal sceneY)
{
    const double factor = zoomFactor();
    x = qRound(sceneX / factor);
    y = qRound(sceneY / factor);
    placeItem();
    placeHandles();
}

void UIComponentBase::setAbsoluteScenePosition(qreal sceneX, qreal sceneY)
{
    for (UIComponentBase* ancestor = parentComponent; ancestor; ancestor = ancestor->parentComponent) {
        sceneX -= ancestor->pos().x();
        sceneY -= ancestor->pos().y();
    }
    setScenePosition(sceneX, sceneY);
}

void UIComponentBase::setParentComponent(UIComponentBase* component)
{
    if (component == parentComponent)
        return;
    parentComponent = component;
    setParentItem(component);
}

void UIComponentBase::setWidth(int value)
{
    leaveStillLayer();
    prepareGeometryChange();
    lastWidth = qMax(width, value);
    width = value;
    recomputeBounds(false);
}

void UIComponentBase::setHeight(int value)
{
    leaveStillLayer();
    prepareGeometryChange();
    lastHeight = qMax(height, value);
    height = value;
    recomputeBounds(false);
}

void UIComponentBase::setRotationDegrees(int degrees)
{
    setRotation(degrees);
    updateHandleCursors();
    recomputeBounds(false);
    placeHandles();
    update();
}

void UIComponentBase::setOpacity(double value)
{
    leaveStillLayer();
    opacity = value;
    update();
}

void UIComponentBase::setSelected(bool value)
{
    if (!editorScene || value == selected)
        return;
    leaveStillLayer();
    if (!value) {
        // A handle held at this moment lets go first.
        if (activeHandle)
            activeHandle->release();
        selected = false;
        hovered = false;
        qDeleteAll(handles);
        handles.clear();
        stopClock();
        update();
        return;
    }
    selected = true;
    if (canResize()) {
        for (int index = 0; index < 8; ++index)
            handles.append(new ResizeComponentButtonSprite(this, index));
    }
    if (canRotate())
        handles.append(new ResizeComponentButtonSprite(this, ResizeComponentButtonSprite::rotationIndex));
    placeHandles();
    updateHandleCursors();
    startClock();
    update();
}

void UIComponentBase::clearHover()
{
    leaveStillLayer();
    hovered = false;
    update();
}

void UIComponentBase::beginChange()
{
    if (editorScene)
        editorScene->beginChange(this);
}

void UIComponentBase::endChange()
{
    if (editorScene)
        editorScene->finishChange(this);
}

void UIComponentBase::startClock()
{
    if (timeAnimation)
        return;
    leaveStillLayer();
    totalTime = 0;
    timeAnimation = new QPropertyAnimation(this, "aniTime", this);
    timeAnimation->setStartValue(0);
    timeAnimation->setEndValue(clockTicks);
    timeAnimation->setDuration(clockDuration);
    timeAnimation->setLoopCount(-1);
    connect(timeAnimation, &QPropertyAnimation::currentLoopChanged, this, &UIComponentBase::incrementTotalTime);
    timeAnimation->start();
}

void UIComponentBase::stopClock()
{
    delete timeAnimation;
    timeAnimation = nullptr;
    delete frameAnimation;
    frameAnimation = nullptr;
    aniTimeValue = 0;
    totalTime = 0;
}

void UIComponentBase::recomputeBounds(bool reset)
{
    const double factor = zoomFactor();
    const double w = width * factor;
    const double h = height * factor;
    // Rounded as doubles: a component of int-sized width at a zoom above 1
    // is beyond int.
    const QPointF topLeft(std::round(-w / 2), std::round(-h / 2));
    const QPointF bottomRight(std::round(w / 2) - 1, std::round(h / 2) - 1);
    const QPointF centre = (topLeft + bottomRight) / 2;
    QTransform turn;
    turn.translate(centre.x(), centre.y());
    turn.rotateRadians(rotation() * 0.017453292519943295);
    turn.translate(-centre.x(), -centre.y());
    const QPolygonF corners = turn.map(QPolygonF({topLeft, QPointF(bottomRight.x(), topLeft.y()), bottomRight,
                                                   QPointF(topLeft.x(), bottomRight.y())}));
    bounds = corners.boundingRect();
    if (reset) {
        dirtyBounds = bounds;
    } else {
        const QRectF grown = dirtyBounds.united(bounds);
        dirtyBounds = QRectF(QPointF(std::trunc(grown.left()), std::trunc(grown.top())),
                             QPointF(std::trunc(grown.right()), std::trunc(grown.bottom())));
    }
}

void UIComponentBase::placeHandles()
{
    if (handles.isEmpty())
        return;
    const QRectF drawn = drawnRect();
    const double w = drawn.width();
    const double h = drawn.height();
    const int half = handleSize / 2;
    const double l = -w / 2 - half;
    const double t = -h / 2 - half;
    const double cx = -half;
    const double r = w / 2 - half;
    const double b = h / 2 - half;
    const double my = -half;
    const QPointF places[8] = {{l, t}, {cx, t}, {r, t}, {r, my}, {r, b}, {cx, b}, {l, b}, {l, my}};
    for (ResizeComponentButtonSprite* handle : qAsConst(handles)) {
        if (handle->index == ResizeComponentButtonSprite::rotationIndex)
            handle->setPos(cx, -h / 2 - rotationHandleDistance);
        else
            handle->setPos(places[handle->index]);
    }
}

void UIComponentBase::updateHandleCursors()
{
    for (ResizeComponentButtonSprite* handle : qAsConst(handles))
        handle->updateCursor();
}

void UIComponentBase::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    if (passive) {
        QGraphicsObject::hoverEnterEvent(event);
        return;
    }
    if (!editorScene)
        return;
    leaveStillLayer();
    hovered = true;
    interactionState = 0;
    update();
    editorScene->hoverEnter(this);
}

void UIComponentBase::hoverMoveEvent(QGraphicsSceneHoverEvent* event)
{
    if (!passive && !hovered)
        hoverEnterEvent(event);
    QGraphicsObject::hoverMoveEvent(event);
}

void UIComponentBase::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    if (!passive && editorScene) {
        leaveStillLayer();
        hovered = false;
        update();
        editorScene->hoverLeave();
        if (!selected)
            stopClock();
    }
    QGraphicsObject::hoverLeaveEvent(event);
}

QVariant UIComponentBase::itemChange(GraphicsItemChange change, const QVariant& value)
{
    switch (change) {
    case ItemVisibleHasChanged:
    case ItemParentHasChanged:
    case ItemSceneChange:
    case ItemZValueHasChanged:
    case ItemRotationHasChanged:
    case ItemScaleHasChanged:
    case ItemTransformHasChanged:
    case ItemOpacityHasChanged:
        leaveStillLayer();
        break;
    default:
        break;
    }
    return QGraphicsObject::itemChange(change, value);
}

void UIComponentBase::leaveStillLayer()
{
    if (inStillLayer && editorScene)
        editorScene->stillLayer().end();
}

void UIComponentBase::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (!passive && editorScene)
        editorScene->componentPressed(this);
    // The base class ignores the press, so it travels on to the components
    // below; the scene picks among them.
    QGraphicsObject::mousePressEvent(event);
}

// ---------------------------------------------------------------- direct manipulation

ResizeComponentButtonSprite* UIComponentBase::handleAt(int index) const
{
    for (ResizeComponentButtonSprite* handle : handles) {
        if (handle->index == index)
            return handle;
    }
    return nullptr;
}

QPointF UIComponentBase::absoluteItemPosition() const
{
    QPointF position = pos();
    for (const UIComponentBase* ancestor = parentComponent; ancestor; ancestor = ancestor->parentComponent)
        position += ancestor->pos();
    return position;
}

QRectF UIComponentBase::rotatedScreenBox(double w, double h) const
{
    const QRectF pixels(0, 0, w - 1, h - 1);
    const QPointF centre = pixels.center();
    QTransform turn;
    turn.translate(centre.x(), centre.y());
    turn.rotateRadians(rotation() * 0.017453292519943295);
    turn.translate(-centre.x(), -centre.y());
    return turn.mapRect(pixels);
}

void UIComponentBase::refreshResizeStartRect()
{
    const QPoint absolute = absoluteXY();
    const QRectF box = screenBox();
    resizeStartRect = QRectF(absolute.x() + box.x() - width / 2.0, absolute.y() + box.y() - height / 2.0,
                             box.width(), box.height());
}

void UIComponentBase::startDrag(const QPointF& mouseScenePos, bool freeDrag)
{
    dragMouseStart = mouseScenePos;
    dragItemStart = absoluteItemPosition();
    interactionState = 1;
    snapFlag = !freeDrag;
    if (!editorScene)
        return;
    editorScene->clearGuideLines();
    SnapTargets::collectSnapTargets(this);
    // No stale guide survives the start of a snapping drag.
    if (snapFlag)
        editorScene->forceRepaint();
}

void UIComponentBase::dragTo(const QPointF& mouseScenePos)
{
    if (!editorScene)
        return;
    QPointF wanted = mouseScenePos - dragMouseStart + dragItemStart;
    if (!snapFlag) {
        editorScene->update();
        setAbsoluteScenePosition(wanted.x(), wanted.y());
        return;
    }
    const double factor = zoomFactor();
    const SnapTargets::Target* hitX = SnapTargets::find(SnapTargets::snapX, int(wanted.x() / factor));
    const SnapTargets::Target* hitY = SnapTargets::find(SnapTargets::snapY, int(wanted.y() / factor));
    const QRectF area = editorScene->sceneRect();
    QVector<QLine> guides;
    if (hitX) {
        wanted.setX(qRound(hitX->value * factor));
        guides.append(QLine(hitX->line, 0, hitX->line, int(area.height())));
    }
    if (hitY) {
        wanted.setY(qRound(hitY->value * factor));
        guides.append(QLine(0, hitY->line, int(area.width()), hitY->line));
    }
    editorScene->setGuideLines(guides);
    editorScene->update();
    setAbsoluteScenePosition(wanted.x(), wanted.y());
    if (hitX || hitY) {
        // The stored numbers are the snap value exactly, whatever the zoom's
        // rounding made of the scene position.
        QPoint absolute = absoluteXY();
        if (hitX)
            absolute.setX(hitX->value);
        if (hitY)
            absolute.setY(hitY->value);
        setAbsoluteXY(absolute.x(), absolute.y());
    }
}

void UIComponentBase::endDrag()
{
    snapFlag = true;
    if (editorScene) {
        editorScene->clearGuideLines();
        editorScene->update();
    }
    setScenePosition(pos().x(), pos().y());
    SnapTargets::clear();
    recomputeBounds(false);
    placeItem();
}

void UIComponentBase::resizeTo(double sceneWidth, double sceneHeight, bool aspect, int mask)
{
    const double factor = zoomFactor();
    double w = sceneWidth / factor;
    double h = sceneHeight / factor;
    const bool widthFixed = mask & SnapTargets::WidthFixed;
    const bool heightFixed = mask & SnapTargets::HeightFixed;
    w = widthFixed ? resizeStartWidth : qBound(double(minimumWidth()), w, double(maximumWidth()));
    h = heightFixed ? resizeStartHeight : qBound(double(minimumHeight()), h, double(maximumHeight()));
    // The kind's largest size carries its natural ratio.
    if (aspect && !widthFixed && !heightFixed && maximumWidth() > 0)
        h = double(maximumHeight()) / maximumWidth() * w;
    // Even sizes keep the half size, and so the centre, on whole pixels.
    w = 2 * qRound(w / 2);
    h = 2 * qRound(h / 2);

    // Edges snap only with Ctrl held, and only while the box is upright.
    const double turn = rotation();
    if (!snapFlag && editorScene && std::fmod(turn, 90.0) == 0.0) {
        QVector<QLine> guides;
        SnapTargets::snapResize(this, mask, w, h, guides);
        editorScene->setGuideLines(guides);
        editorScene->update();
    }

    const bool widthChanged = int(w) != width;
    const bool heightChanged = int(h) != height;
    if (widthChanged)
        setWidth(int(w));
    if (heightChanged)
        setHeight(int(h));
    if (!widthChanged && !heightChanged)
        return;
    resized();
    refresh();
}

void UIComponentBase::rotateTo(bool snap, const QPointF& mouseScenePos)
{
    const QPointF centre = scenePos();
    double angle = 180 - std::atan2(mouseScenePos.x() - centre.x(), mouseScenePos.y() - centre.y())
                             * 57.29577951308232;
    // Shift: the nearest multiple of 10, a tie at 5 going down.
    if (snap)
        angle = std::ceil((angle - 5) / 10) * 10;
    setRotation(angle);
    recomputeBounds(false);
    placeHandles();
    updateHandleCursors();
    update();
}
