#include "scene/UIComponentBase.h"

#include "scene/GameUIEditorScene.h"
#include "scene/ResizeComponentButtonSprite.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QCursor>
#include <QGraphicsView>
#include <QPainter>
#include <QPainterPath>
#include <QPropertyAnimation>
#include <QScrollBar>
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

// One horizontal or vertical run of the marching ants: four pixels of the
// first colour and four of the second, shifted forward by the offset.
void paintAntRun(QPainter* painter, int originX, int originY, int length, bool vertical, int offset,
                 const QColor& first, const QColor& second)
{
    if (length <= 0)
        return;
    const int phase = offset % 8;
    int i = 0;
    while (i < length) {
        const int position = ((i - phase) % 8 + 8) % 8;
        const bool firstColour = position < 4;
        const int span = qMin(length - i, (firstColour ? 4 : 8) - position);
        const QColor& colour = firstColour ? first : second;
        if (vertical)
            painter->fillRect(QRect(originX, originY + i, 1, span), colour);
        else
            painter->fillRect(QRect(originX + i, originY, span, 1), colour);
        i += span;
    }
}

// Whole and fractional numbers alike, so that a hand-edited document with
// "X": 10.5 doesn't jump to the origin; out-of-range values are clamped.
int readInteger(const QJsonValue& value)
{
    const double number = value.toDouble(0.0);
    if (!std::isfinite(number))
        return 0;
    return int(qBound(double(std::numeric_limits<int>::min()), std::trunc(number),
                      double(std::numeric_limits<int>::max())));
}

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
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setOpacity(opacity);
    drawContents(painter);
    painter->restore();

    // Components that only display inside another one never show a frame.
    if (frameVisible && !passive) {
        const QRectF drawn = drawnRect();
        // Frames sit on whole pixels: the drawn rectangle's edges rounded as
        // the bounds round them.
        const int left = qRound(drawn.left());
        const int top = qRound(drawn.top());
        const QRect frame(left, top, qRound(drawn.right()) - left, qRound(drawn.bottom()) - top);
        if (selected) {
            if (drawn.width() > 8.0 && drawn.height() > 8.0)
                paintSelectionFrame(painter, frame);
        } else if (hovered) {
            paintHoverFrame(painter, frame);
        }
    }

    if (width != lastWidth) {
        lastWidth = width;
        recomputeBounds(false);
    }
    if (height != lastHeight) {
        lastHeight = height;
        recomputeBounds(false);
    }
}

void UIComponentBase::paintSelectionFrame(QPainter* painter, const QRect& frame) const
{
    const QColor first = themeColor(ThemeKey::ComponentSelectColor1);
    const QColor second = themeColor(ThemeKey::ComponentSelectColor2);
    const int offset = aniTimeValue / 3;
    const int left = frame.x();
    const int top = frame.y();
    const int right = frame.x() + frame.width();
    const int bottom = frame.y() + frame.height();
    if (!canResize()) {
        paintAntRun(painter, left, top, frame.width(), false, offset, first, second);
        paintAntRun(painter, left, bottom - 1, frame.width(), false, offset, first, second);
        paintAntRun(painter, left, top, frame.height(), true, offset, first, second);
        paintAntRun(painter, right - 1, top, frame.height(), true, offset, first, second);
        return;
    }
    // Each edge in two runs that leave the corner and middle handles free.
    const int gap = handleSize / 2;
    const int halfW = int(drawnRect().width() / 2);
    const int halfH = int(drawnRect().height() / 2);
    const int runW = halfW - handleSize;
    const int runH = halfH - handleSize;
    for (int row : {top, bottom - 1}) {
        paintAntRun(painter, left + gap, row, runW, false, offset, first, second);
        paintAntRun(painter, left + halfW + gap, row, runW, false, offset, first, second);
    }
    for (int column : {left, right - 1}) {
        paintAntRun(painter, column, top + gap, runH, true, offset, first, second);
        paintAntRun(painter, column, top + halfH + gap, runH, true, offset, first, second);
    }
}

void UIComponentBase::paintHoverFrame(QPainter* painter, const QRect& frame) const
{
    const QColor outline = themeColor(ThemeKey::ComponentHoverColorOutline);
    const int left = frame.x();
    const int top = frame.y();
    const int right = frame.x() + frame.width();
    const int bottom = frame.y() + frame.height();
    painter->save();
    painter->fillRect(QRect(left, top, frame.width(), 1), outline);
    painter->fillRect(QRect(left, bottom, frame.width() + 1, 1), outline);
    painter->fillRect(QRect(left, top, 1, frame.height()), outline);
    painter->fillRect(QRect(right, top, 1, frame.height()), outline);
    painter->setOpacity(0.3);
    painter->fillRect(frame, themeColor(ThemeKey::ComponentHoverColor));
    painter->restore();
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
    setRotation(json.value(QStringLiteral("Rotation")).toDouble(0.0));
    opacity = json.value(QStringLiteral("Opacity")).toDouble(1.0);
    refresh();
}

void UIComponentBase::refresh()
{
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
    aniTimeValue = value;
    update();
}

void UIComponentBase::setAniFrame(int value)
{
    aniFrameValue = value;
    update();
}

void UIComponentBase::incrementTotalTime()
{
    totalTime += clockTicks;
}

void UIComponentBase::placeItem()
{
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
    prepareGeometryChange();
    lastWidth = qMax(width, value);
    width = value;
    recomputeBounds(false);
}

void UIComponentBase::setHeight(int value)
{
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
    opacity = value;
    update();
}

void UIComponentBase::setSelected(bool value)
{
    if (!editorScene || value == selected)
        return;
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
    const QPointF topLeft(qRound(-w / 2), qRound(-h / 2));
    const QPointF bottomRight(qRound(w / 2) - 1, qRound(h / 2) - 1);
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
        hovered = false;
        update();
        editorScene->hoverLeave();
        if (!selected)
            stopClock();
    }
    QGraphicsObject::hoverLeaveEvent(event);
}

void UIComponentBase::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (!passive && editorScene)
        editorScene->pressedComponents.append(this);
    // The base class ignores the press, so it travels on to the components
    // below; the scene picks among them.
    QGraphicsObject::mousePressEvent(event);
}

// ---------------------------------------------------------------- direct manipulation

QVector<UIComponentBase::SnapTarget> UIComponentBase::snapX;
QVector<UIComponentBase::SnapTarget> UIComponentBase::snapY;
QVector<int> UIComponentBase::edgeX;
QVector<int> UIComponentBase::edgeY;

namespace {

// How near, in screen units, a dragged centre must come to a target to snap.
constexpr int dragSnapDistance = 9;
// How near a resized edge must come to an edge; left and top take the
// distance itself, right and bottom stop one short of it.
constexpr int edgeSnapDistance = 10;

enum EdgeMask : int {
    TopEdge = 1,
    BottomEdge = 2,
    LeftEdge = 4,
    RightEdge = 8,
    WidthFixed = 0x10,
    HeightFixed = 0x20,
};

// One axis of a resize's edge snap, with near the left or top edge and far
// the right or bottom one (its last pixel; farEnd is just after it). The
// first edge in reach wins; the other side then stays where it was at the
// press. Returns the edge hit, or null.
const int* snapEdges(const QVector<int>& edges, bool nearMoves, bool farMoves, double& nearEdge, double farEdge,
                     double& farEnd, double startNear, double startFar)
{
    for (const int& edge : edges) {
        if (nearMoves && qAbs(edge - nearEdge) <= edgeSnapDistance) {
            nearEdge = edge;
            farEnd = startFar + 1;
            return &edge;
        }
        if (farMoves && qAbs(edge - farEdge) < edgeSnapDistance) {
            farEnd = edge;
            nearEdge = startNear;
            return &edge;
        }
    }
    return nullptr;
}

const UIComponentBase::SnapTarget* findTarget(const QVector<UIComponentBase::SnapTarget>& targets, int value)
{
    for (const UIComponentBase::SnapTarget& target : targets) {
        if (qAbs(target.value - value) <= dragSnapDistance)
            return &target;
    }
    return nullptr;
}

}

ResizeComponentButtonSprite* UIComponentBase::handleAt(int index) const
{
    for (ResizeComponentButtonSprite* handle : handles) {
        if (handle->index == index)
            return handle;
    }
    return nullptr;
}

void UIComponentBase::clearSnapTargets()
{
    snapX.clear();
    snapY.clear();
    edgeX.clear();
    edgeY.clear();
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

void UIComponentBase::collectSnapTargets()
{
    clearSnapTargets();
    if (!editorScene)
        return;
    const int screenWidth = qMax(editorScene->screenWidth, 0);
    const int screenHeight = qMax(editorScene->screenHeight, 0);
    const QRectF area = editorScene->sceneRect();
    const QRectF own = screenBox();
    const double rw = own.width();
    const double rh = own.height();

    // Siblings and the parent; hidden components are out of sight and out of reach.
    QVector<UIComponentBase*> others;
    for (UIComponentBase* component : qAsConst(editorScene->components)) {
        if (component != this && component->parentComponent == parentComponent && component->isVisible())
            others.append(component);
    }
    if (parentComponent)
        others.append(parentComponent);

    edgeX.reserve(2 + 2 * others.size());
    edgeY.reserve(2 + 2 * others.size());
    edgeX << 0 << screenWidth;
    edgeY << 0 << screenHeight;
    for (const UIComponentBase* other : qAsConst(others)) {
        const QPoint absolute = other->absoluteXY();
        edgeX << absolute.x() - other->width / 2 << absolute.x() + other->width / 2;
        edgeY << absolute.y() - other->height / 2 << absolute.y() + other->height / 2;
    }

    snapX.reserve(4 + 4 * others.size());
    snapY.reserve(4 + 4 * others.size());
    // The canvas centre, then its left and right (top and bottom) edges.
    snapX.append({qRound(screenWidth * 0.5), int(area.width() * 0.5 + area.x())});
    snapX.append({qRound(rw * 0.5), 0});
    snapX.append({int(screenWidth - rw * 0.5), int(area.width())});
    snapY.append({qRound(screenHeight * 0.5), int(area.height() * 0.5 + area.y())});
    snapY.append({qRound(rh * 0.5), 0});
    snapY.append({int(screenHeight - rh * 0.5), int(area.height())});
    if (parentComponent) {
        const QPointF at = parentComponent->absoluteItemPosition();
        snapX.append({parentComponent->x, int(at.x())});
        snapY.append({parentComponent->y, int(at.y())});
    }

    // Touching and aligned edges of each other component; never its centre.
    const int hw = int(qRound(rw * 0.5));
    const int hh = int(qRound(rh * 0.5));
    for (const UIComponentBase* other : qAsConst(others)) {
        const QPoint absolute = other->absoluteXY();
        const QPointF at = other->absoluteItemPosition();
        const double ow = other->bounds.width();
        const double oh = other->bounds.height();
        const QRectF box = other->screenBox();
        const double left = absolute.x() - box.width() / 2;
        const double right = absolute.x() + box.width() / 2;
        const double top = absolute.y() - box.height() / 2;
        const double bottom = absolute.y() + box.height() / 2;
        const int lineLeft = int(at.x() - ow / 2);
        const int lineRight = int(at.x() + ow / 2);
        const int lineTop = int(at.y() - oh / 2);
        const int lineBottom = int(at.y() + oh / 2);
        snapX.append({int(left - hw), lineLeft});
        snapX.append({int(hw + right + 1), lineRight});
        snapX.append({int(right - hw + 1), lineRight});
        snapX.append({int(left + hw), lineLeft});
        snapY.append({int(top - hh), lineTop});
        snapY.append({int(hh + bottom + 1), lineBottom});
        snapY.append({int(bottom - hh + 1), lineBottom});
        snapY.append({int(top + hh), lineTop});
    }
}

void UIComponentBase::startDrag(const QPointF& mouseScenePos, bool freeDrag)
{
    dragMouseStart = mouseScenePos;
    dragItemStart = absoluteItemPosition();
    interactionState = 1;
    snapFlag = !freeDrag;
    if (!editorScene)
        return;
    editorScene->guideLines.clear();
    collectSnapTargets();
    if (snapFlag) {
        // A scene rectangle that changes and changes back makes every view
        // drop what it has painted, so no stale guide survives. The views
        // keep their scroll positions, which the narrower rectangle may clamp.
        QVector<QPoint> scrolled;
        const QList<QGraphicsView*> views = editorScene->views();
        for (const QGraphicsView* view : views)
            scrolled.append(QPoint(view->horizontalScrollBar()->value(), view->verticalScrollBar()->value()));
        const QRectF area = editorScene->sceneRect();
        editorScene->setSceneRect(area.adjusted(0, 0, -1, 0));
        editorScene->setSceneRect(area);
        for (int i = 0; i < views.size(); ++i) {
            views[i]->horizontalScrollBar()->setValue(scrolled[i].x());
            views[i]->verticalScrollBar()->setValue(scrolled[i].y());
        }
    }
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
    editorScene->guideLines.clear();
    const double factor = zoomFactor();
    const SnapTarget* hitX = findTarget(snapX, int(wanted.x() / factor));
    const SnapTarget* hitY = findTarget(snapY, int(wanted.y() / factor));
    const QRectF area = editorScene->sceneRect();
    if (hitX) {
        wanted.setX(qRound(hitX->value * factor));
        editorScene->guideLines.append(QLine(hitX->line, 0, hitX->line, int(area.height())));
    }
    if (hitY) {
        wanted.setY(qRound(hitY->value * factor));
        editorScene->guideLines.append(QLine(0, hitY->line, int(area.width()), hitY->line));
    }
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
        editorScene->guideLines.clear();
        editorScene->update();
    }
    setScenePosition(pos().x(), pos().y());
    clearSnapTargets();
    recomputeBounds(false);
    placeItem();
}

void UIComponentBase::resizeTo(double sceneWidth, double sceneHeight, bool aspect, int mask)
{
    const double factor = zoomFactor();
    double w = sceneWidth / factor;
    double h = sceneHeight / factor;
    const bool widthFixed = mask & WidthFixed;
    const bool heightFixed = mask & HeightFixed;
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
        editorScene->guideLines.clear();
        // The new box where the opposite handle will hold it: the edges that
        // don't move stay where they were at the press. Left and top are the
        // first pixel, right and bottom the last.
        const QRectF box = rotatedScreenBox(w, h);
        const QRectF& start = resizeStartRect;
        double left = (mask & LeftEdge) ? start.right() - box.width() : start.left();
        double top = (mask & TopEdge) ? start.bottom() - box.height() : start.top();
        const double right = left + box.width();
        const double bottom = top + box.height();
        // Snapped edges lie between pixels: a left edge on its first pixel,
        // a right edge just after its last.
        double rightEnd = right + 1;
        double bottomEnd = bottom + 1;
        const QRectF area = editorScene->sceneRect();
        bool hit = false;
        if (const int* edge = snapEdges(edgeX, mask & LeftEdge, mask & RightEdge, left, right, rightEnd,
                                        start.left(), start.right())) {
            const int line = int(*edge * factor);
            editorScene->guideLines.append(QLine(line, 0, line, int(area.height())));
            hit = true;
        }
        if (const int* edge = snapEdges(edgeY, mask & TopEdge, mask & BottomEdge, top, bottom, bottomEnd,
                                        start.top(), start.bottom())) {
            const int line = int(*edge * factor);
            editorScene->guideLines.append(QLine(0, line, int(area.width()), line));
            hit = true;
        }
        if (hit) {
            // The turn back to the component's own axes swaps the sides at
            // 90 and 270 degrees.
            const double across = qAbs(rightEnd - left);
            const double down = qAbs(bottomEnd - top);
            const bool sideways = qAbs(std::fmod(turn, 180.0)) == 90.0;
            if (!widthFixed)
                w = sideways ? down : across;
            if (!heightFixed)
                h = sideways ? across : down;
        }
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
