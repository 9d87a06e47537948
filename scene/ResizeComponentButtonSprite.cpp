#include "scene/ResizeComponentButtonSprite.h"

#include "scene/GameUIEditorScene.h"
#include "scene/SnapTargets.h"
#include "scene/UIComponentBase.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QApplication>
#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QTransform>

#include <cmath>

namespace {

QCursor makeRotationCursor(bool pressed)
{
    const QPixmap source(pressed ? QStringLiteral(":/resources/Editor/Cursor_Rotate.png")
                                 : QStringLiteral(":/resources/Editor/Cursor_Rotate_Open.png"));
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRect(0, 0, 24, 24), source);
    painter.end();
    return QCursor(pixmap, 12, 12);
}

// Built once: the cursor is set again at every step of a rotation.
const QCursor& rotationCursor(bool pressed)
{
    static const QCursor open = makeRotationCursor(false);
    static const QCursor held = makeRotationCursor(true);
    return pressed ? held : open;
}

int normalisedDegrees(double rotation)
{
    int degrees = int(rotation) % 360;
    if (degrees < 0)
        degrees += 360;
    return degrees;
}

}

ResizeComponentButtonSprite::ResizeComponentButtonSprite(UIComponentBase* owner, int handleIndex)
    : QGraphicsItem(owner),
      size(UIComponentBase::handleSize, UIComponentBase::handleSize),
      component(owner),
      index(handleIndex)
{
    setZValue(3.0);
}

ResizeComponentButtonSprite::~ResizeComponentButtonSprite()
{
    restoreCursor();
}

QRectF ResizeComponentButtonSprite::boundingRect() const
{
    // The pen of width 2 reaches one unit beyond the ellipse.
    return QRectF(QPointF(0, 0), size).adjusted(-1, -1, 1, 1);
}

void ResizeComponentButtonSprite::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(themeColor(ThemeKey::ComponentSelectButtonOutline), 2));
    painter->setBrush(themeColor(ThemeKey::ComponentSelectButtonBase));
    painter->drawEllipse(QRectF(QPointF(0, 0), size));
    painter->restore();
}

Qt::CursorShape ResizeComponentButtonSprite::resizeCursorShape(int handleIndex, double rotation)
{
    static const Qt::CursorShape cycle[4] = {Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor,
                                             Qt::SizeHorCursor};
    return cycle[((normalisedDegrees(rotation) + 23) / 45 + handleIndex) % 8 % 4];
}

int ResizeComponentButtonSprite::oppositeIndex(int handleIndex)
{
    return handleIndex < 4 ? handleIndex + 4 : handleIndex - 4;
}

int ResizeComponentButtonSprite::snapMask(int handleIndex, double rotation)
{
    // Quarter turns move each corner and side to the next place clockwise.
    const int quarter = int(std::floor(rotation / 90.0));
    if (handleIndex % 2 == 0) {
        static const int corners[4] = {5, 9, 10, 6};
        return corners[(handleIndex / 2 + quarter) & 3];
    }
    static const int sides[4] = {9, 10, 6, 5};
    return sides[(((handleIndex + 2 * quarter) & 7) - 1) / 2];
}

void ResizeComponentButtonSprite::updateCursor()
{
    if (index == rotationIndex) {
        setCursor(rotationCursor(pressed));
        return;
    }
    rotationOctant = (normalisedDegrees(component->rotation()) / 45) % 8;
    setCursor(resizeCursorShape(index, component->rotation()));
}

void ResizeComponentButtonSprite::restoreCursor()
{
    if (!cursorOverridden)
        return;
    cursorOverridden = false;
    QApplication::restoreOverrideCursor();
}

void ResizeComponentButtonSprite::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    GameUIEditorScene* scene = component->editorScene;
    if (!scene) {
        event->ignore();
        return;
    }
    // The press is the handle's: the scene keeps its selection.
    scene->handlePressed(component);
    event->accept();
    if (event->buttons() != Qt::LeftButton || pressed)
        return;

    pressed = true;
    component->interactionState = 2;
    component->activeHandle = this;
    component->resizeStartWidth = component->width;
    component->resizeStartHeight = component->height;
    component->refreshResizeStartRect();
    // Ctrl held from the start of a resize already turns edge snapping on.
    component->snapFlag = !(event->modifiers() & Qt::ControlModifier);
    SnapTargets::collectSnapTargets(component);
    pressCursor = lastCursor = event->screenPos();
    lastScenePos = event->scenePos();
    if (index < rotationIndex) {
        const QRectF drawn = component->drawnRect();
        startRect = QRectF(component->pos() - QPointF(drawn.width() / 2, drawn.height() / 2), drawn.size());
        if (ResizeComponentButtonSprite* opposite = component->handleAt(oppositeIndex(index)))
            oppositeStart = opposite->scenePos();
    } else {
        component->dragMouseStart = event->scenePos();
        updateCursor();
    }
    // The handle's cursor stays while the mouse wanders off the handle.
    QApplication::setOverrideCursor(cursor());
    cursorOverridden = true;
    scene->setWheelAllowed(false);
    component->beginChange();
}

void ResizeComponentButtonSprite::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->buttons() != Qt::LeftButton || !pressed)
        return;
    lastCursor = event->screenPos();
    lastScenePos = event->scenePos();
    applyHandle(event->modifiers() & Qt::ShiftModifier, true);
}

void ResizeComponentButtonSprite::applyHandle(bool shift, bool fromMouse)
{
    if (!pressed)
        return;
    if (index == rotationIndex) {
        if (fromMouse) {
            component->rotateTo(shift, lastScenePos);
            // The rotation cursor follows the turn; the held look stays.
            if (cursorOverridden)
                QApplication::changeOverrideCursor(cursor());
        }
        return;
    }
    // The cursor's way since the press, in the component's own axes; only
    // whole degrees of the rotation count.
    QTransform back;
    back.rotate(-int(component->rotation()));
    const QPointF delta = back.map(QPointF(lastCursor - pressCursor));
    const double dx = delta.x();
    const double dy = delta.y();
    const int mask = snapMask(index, component->rotation());
    const double w = startRect.width();
    const double h = startRect.height();
    switch (index) {
    case 0:
        component->resizeTo(w - dx, h - dy, shift, mask);
        break;
    case 1:
        component->resizeTo(w, h - dy, false, mask | SnapTargets::WidthFixed);
        break;
    case 2:
        component->resizeTo(w + dx, h - dy, shift, mask);
        break;
    case 3:
        component->resizeTo(w + dx, h, false, mask | SnapTargets::HeightFixed);
        break;
    case 4:
        component->resizeTo(w + dx, h + dy, shift, mask);
        break;
    case 5:
        component->resizeTo(w, h + dy, false, mask | SnapTargets::WidthFixed);
        break;
    case 6:
        component->resizeTo(w - dx, h + dy, shift, mask);
        break;
    case 7:
        component->resizeTo(w - dx, h, false, mask | SnapTargets::HeightFixed);
        break;
    default:
        return;
    }
    keepOppositeStill();
}

void ResizeComponentButtonSprite::keepOppositeStill()
{
    const ResizeComponentButtonSprite* opposite = component->handleAt(oppositeIndex(index));
    if (!opposite)
        return;
    const QPointF delta = oppositeStart - opposite->scenePos();
    if (delta.isNull())
        return;
    const QPointF target = component->scenePos() + delta;
    const QGraphicsItem* parent = component->parentItem();
    component->setPos(parent ? parent->mapFromScene(target) : target);
}

void ResizeComponentButtonSprite::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        return;
    release();
}

void ResizeComponentButtonSprite::release()
{
    if (!pressed)
        return;
    pressed = false;
    component->interactionState = 0;
    component->activeHandle = nullptr;
    component->refreshResizeStartRect();
    if (index < rotationIndex) {
        // Onto the integer grid, then back to where the opposite handle
        // stands, which the rounding may have moved by a pixel.
        const QPointF at = component->absoluteItemPosition();
        component->setAbsoluteScenePosition(at.x(), at.y());
    }
    SnapTargets::clear();
    if (index < rotationIndex)
        keepOppositeStill();
    restoreCursor();
    if (index == rotationIndex)
        component->updateHandleCursors();
    if (GameUIEditorScene* scene = component->editorScene) {
        scene->setWheelAllowed(true);
        if (!scene->guideLines().isEmpty()) {
            scene->clearGuideLines();
            scene->update();
        }
    }
    component->endChange();
}
