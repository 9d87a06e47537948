#include "scene/SnapTargets.h"

#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"

#include <QPointF>
#include <QRectF>

#include <cmath>

QVector<SnapTargets::Target> SnapTargets::snapX;
QVector<SnapTargets::Target> SnapTargets::snapY;
QVector<int> SnapTargets::edgeX;
QVector<int> SnapTargets::edgeY;

namespace {

// How near, in screen units, a dragged centre must come to a target to snap.
constexpr int dragSnapDistance = 9;
// How near a resized edge must come to an edge; left and top take the
// distance itself, right and bottom stop one short of it.
constexpr int edgeSnapDistance = 10;

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

}

void SnapTargets::clear()
{
    snapX.clear();
    snapY.clear();
    edgeX.clear();
    edgeY.clear();
}

const SnapTargets::Target* SnapTargets::find(const QVector<Target>& targets, int value)
{
    for (const Target& target : targets) {
        if (qAbs(target.value - value) <= dragSnapDistance)
            return &target;
    }
    return nullptr;
}

void SnapTargets::collectSnapTargets(const UIComponentBase* moving)
{
    clear();
    const GameUIEditorScene* scene = moving->editorScene;
    if (!scene)
        return;
    const int screenWidth = qMax(scene->screenWidth(), 0);
    const int screenHeight = qMax(scene->screenHeight(), 0);
    const QRectF area = scene->sceneRect();
    const QRectF own = moving->screenBox();
    const double rw = own.width();
    const double rh = own.height();
    UIComponentBase* parent = moving->parentComponent;

    // Siblings and the parent; hidden components are out of sight and out of reach.
    QVector<UIComponentBase*> others;
    for (UIComponentBase* component : scene->components()) {
        if (component != moving && component->parentComponent == parent && component->isVisible())
            others.append(component);
    }
    if (parent)
        others.append(parent);

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
    if (parent) {
        const QPointF at = parent->absoluteItemPosition();
        snapX.append({parent->x, int(at.x())});
        snapY.append({parent->y, int(at.y())});
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

void SnapTargets::snapResize(const UIComponentBase* component, int mask, double& w, double& h,
                             QVector<QLine>& guides)
{
    const double factor = component->zoomFactor();
    const double turn = component->rotation();
    // The new box where the opposite handle will hold it: the edges that
    // don't move stay where they were at the press. Left and top are the
    // first pixel, right and bottom the last.
    const QRectF box = component->rotatedScreenBox(w, h);
    const QRectF& start = component->resizeStartRect;
    double left = (mask & LeftEdge) ? start.right() - box.width() : start.left();
    double top = (mask & TopEdge) ? start.bottom() - box.height() : start.top();
    const double right = left + box.width();
    const double bottom = top + box.height();
    // Snapped edges lie between pixels: a left edge on its first pixel,
    // a right edge just after its last.
    double rightEnd = right + 1;
    double bottomEnd = bottom + 1;
    const QRectF area = component->editorScene->sceneRect();
    bool hit = false;
    if (const int* edge = snapEdges(edgeX, mask & LeftEdge, mask & RightEdge, left, right, rightEnd, start.left(),
                                    start.right())) {
        const int line = int(*edge * factor);
        guides.append(QLine(line, 0, line, int(area.height())));
        hit = true;
    }
    if (const int* edge = snapEdges(edgeY, mask & TopEdge, mask & BottomEdge, top, bottom, bottomEnd, start.top(),
                                    start.bottom())) {
        const int line = int(*edge * factor);
        guides.append(QLine(0, line, int(area.width()), line));
        hit = true;
    }
    if (hit) {
        // The turn back to the component's own axes swaps the sides at
        // 90 and 270 degrees.
        const double across = qAbs(rightEnd - left);
        const double down = qAbs(bottomEnd - top);
        const bool sideways = qAbs(std::fmod(turn, 180.0)) == 90.0;
        if (!(mask & WidthFixed))
            w = sideways ? down : across;
        if (!(mask & HeightFixed))
            h = sideways ? across : down;
    }
}
