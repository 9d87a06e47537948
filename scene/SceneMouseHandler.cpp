#include "scene/SceneMouseHandler.h"

#include "scene/ComponentListSync.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/ResizeComponentButtonSprite.h"
#include "scene/SceneKeyHandler.h"
#include "scene/SceneUndoRecorder.h"
#include "scene/UIComponentBase.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"

#include <QApplication>
#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QTimer>

SceneMouseHandler::SceneMouseHandler(GameUIEditorScene& owner) : scene(owner) {}

void SceneMouseHandler::beforePress(QGraphicsSceneMouseEvent* event)
{
    const Qt::MouseButtons buttons = event->buttons();
    if (event->button() == Qt::LeftButton)
        leftButtonDown = true;
    if (buttons == Qt::LeftButton || buttons == Qt::RightButton) {
        previouslySelected = scene.selection;
        scene.selection = nullptr;
    }
    scene.pressed.clear();
}

UIComponentBase* SceneMouseHandler::pressTarget() const
{
    const QList<UIComponentBase*>& pressed = scene.pressed;
    UIComponentBase* target = nullptr;
    for (UIComponentBase* candidate : pressed) {
        if (candidate->selected) {
            target = candidate;
            break;
        }
    }
    if (!target && !pressed.isEmpty())
        target = pressed.first();
    for (bool changed = target != nullptr; changed;) {
        changed = false;
        for (UIComponentBase* candidate : pressed) {
            if (candidate == target)
                continue;
            bool below = false;
            for (UIComponentBase* up = candidate->parentComponent; up && !below; up = up->parentComponent)
                below = up == target;
            if (below) {
                target = candidate;
                changed = true;
                break;
            }
        }
    }
    return target;
}

void SceneMouseHandler::afterPress(QGraphicsSceneMouseEvent* event)
{
    const Qt::MouseButtons buttons = event->buttons();
    const bool leftOnly = buttons == Qt::LeftButton;
    const bool rightOnly = buttons == Qt::RightButton;
    if (leftOnly || rightOnly) {
        scene.wheelZoomOn = false;
        if (!selectionPending) {
            // A handle took the press.
            selectionPending = true;
            scene.selection = previouslySelected;
            previouslySelected = nullptr;
            if (!rightOnly)
                return;
        } else {
            UIComponentBase* target = pressTarget();
            UltimateTree* tree = scene.listSync->tree();
            if (!target && !previouslySelected) {
                if (tree)
                    tree->setCurrentRow(nullptr);
            } else {
                if (leftOnly && target && !dragCursorSet) {
                    QApplication::setOverrideCursor(Qt::BlankCursor);
                    dragCursorSet = true;
                }
                if (previouslySelected && previouslySelected != target) {
                    previouslySelected->setSelected(false);
                    previouslySelected->update();
                }
                if (target) {
                    target->setSelected(true);
                    if (tree)
                        tree->setCurrentRow(scene.rowOfComponent(target));
                    // A press on the component already current changes no
                    // row, so the list tells nobody: it stays the selection.
                    scene.selection = target;
                } else if (tree) {
                    tree->setCurrentRow(nullptr);
                }
            }
            if (leftOnly && target) {
                scene.dragged = target;
                scene.selection = target;
                scene.beginChange(target);
                scene.restack();
                scene.pressed.removeAll(target);
                scene.pressed.append(target);
                target->startDrag(event->scenePos(), event->modifiers() & Qt::ControlModifier);
            }
            previouslySelected = nullptr;
        }
    }
    if (!rightOnly)
        return;
    scene.setPastePosition(event->scenePos());
    GameUIEditor* view = scene.editorView();
    if (view && view->contextMenu) {
        scene.prepareMenu(view->contextMenu);
        scene.keys->showPopup(view->contextMenu, event->screenPos());
    }
}

void SceneMouseHandler::afterRelease(QGraphicsSceneMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        return;
    if (leftButtonDown) {
        leftButtonDown = false;
        UIComponentBase* dragged = scene.dragged;
        scene.dragged = nullptr;
        if (dragged && scene.selection)
            finishDrag(dragged);
        else if (scene.selection && scene.recorder->isChangePending())
            scene.finishChange(scene.selection);
        restoreDragCursor();
        nudgeCursor();
    }
    scene.wheelZoomOn = true;
}

void SceneMouseHandler::finishDrag(UIComponentBase* component)
{
    // The drag ends as a hover leave: the next hover over the component
    // enters it afresh and makes it idle again.
    --scene.hoverCount;
    if (scene.hovered == component)
        scene.hovered = nullptr;
    component->clearHover();
    // At least the box's centre stays within half its size around the canvas.
    const QPointF at = component->absoluteItemPosition();
    const double halfWidth = component->bounds.width() / 2;
    const double halfHeight = component->bounds.height() / 2;
    const QRectF canvas = scene.canvasRect();
    const double x = qBound(-halfWidth, at.x(), canvas.width() + halfWidth);
    const double y = qBound(-halfHeight, at.y(), canvas.height() + halfHeight);
    if (x != at.x() || y != at.y())
        component->setAbsoluteScenePosition(x, y);
    scene.finishChange(component);
    // The item stays in its moving state until the next hover, so that keys
    // that want an idle component wait for the cursor to settle.
    component->endDrag();
}

void SceneMouseHandler::restoreDragCursor()
{
    if (!dragCursorSet)
        return;
    dragCursorSet = false;
    QApplication::restoreOverrideCursor();
}

void SceneMouseHandler::nudgeCursor()
{
    const QPoint at = QCursor::pos();
    const QPoint up = at - QPoint(0, 1);
    QCursor::setPos(up);
    QTimer::singleShot(100, &scene, [at, up]() {
        if (QCursor::pos() == up)
            QCursor::setPos(at);
    });
}

void SceneMouseHandler::endInteraction(UIComponentBase* component)
{
    if (component == scene.dragged) {
        scene.dragged = nullptr;
        component->endDrag();
        component->interactionState = 0;
        if (scene.recorder->isChangePending())
            scene.finishChange(component);
        scene.wheelZoomOn = true;
        restoreDragCursor();
    }
    if (component->activeHandle)
        component->activeHandle->release();
}
