#include "scene/SceneKeyHandler.h"

#include "scene/ComponentClipboard.h"
#include "scene/ComponentListSync.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/ResizeComponentButtonSprite.h"
#include "scene/UIComponentBase.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"

#include <QAction>
#include <QCursor>
#include <QIcon>
#include <QKeyEvent>
#include <QMenu>

SceneKeyHandler::SceneKeyHandler(GameUIEditorScene& owner) : scene(owner) {}

bool SceneKeyHandler::keyPress(QKeyEvent* event)
{
    if (manipulationKey(event, true) || undoKey(event))
        return true;
    if (editorKey(event)) {
        event->accept();
        return true;
    }
    return false;
}

bool SceneKeyHandler::keyRelease(QKeyEvent* event)
{
    return manipulationKey(event, false);
}

bool SceneKeyHandler::manipulationKey(QKeyEvent* event, bool press)
{
    if (event->isAutoRepeat())
        return false;
    UIComponentBase* selected = scene.selectedComponent();
    UIComponentBase* held = selected && selected->activeHandle ? selected : nullptr;
    if (event->key() == Qt::Key_Control) {
        // Ctrl frees a drag from snapping, and lets a resized edge snap.
        UIComponentBase* moving = scene.draggedComponent() ? scene.draggedComponent() : held;
        if (!moving)
            return false;
        moving->snapFlag = !press;
        if (press && !scene.guideLines().isEmpty()) {
            scene.clearGuideLines();
            scene.update();
        }
        return true;
    }
    if (event->key() == Qt::Key_Shift) {
        // Shift keeps the kind's ratio in a corner resize, at once.
        if (!held || held->activeHandle->index == ResizeComponentButtonSprite::rotationIndex)
            return false;
        held->activeHandle->applyHandle(press, false);
        scene.update();
        return true;
    }
    return false;
}

bool SceneKeyHandler::undoKey(QKeyEvent* event)
{
    if (event->modifiers() != Qt::ControlModifier || (event->key() != Qt::Key_Z && event->key() != Qt::Key_Y))
        return false;
    // While a drag runs the keys belong to it.
    if (scene.draggedComponent())
        return false;
    // A held key undoes one step, not a run of them.
    if (event->isAutoRepeat())
        return true;
    if (event->key() == Qt::Key_Z)
        scene.undo();
    else
        scene.redo();
    event->accept();
    return true;
}

bool SceneKeyHandler::editorKey(QKeyEvent* event)
{
    const bool control = event->modifiers() & Qt::ControlModifier;
    const bool dragging = scene.draggedComponent() != nullptr;
    UIComponentBase* selected = scene.selectedComponent();
    const bool idle = selected && selected->interactionState == 0;
    const bool visible = selected && selected->isVisible();
    const int key = event->key();

    if (key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down) {
        // With a component selected the arrows are the component's: they never
        // scroll the view, whether or not the component can move just now.
        if (!selected)
            return false;
        if (dragging || !idle || !visible)
            return true;
        const int step = control ? 10 : 1;
        if (key == Qt::Key_Left)
            selected->moveX(-step);
        else if (key == Qt::Key_Right)
            selected->moveX(step);
        else if (key == Qt::Key_Up)
            selected->moveY(-step);
        else
            selected->moveY(step);
        emit scene.changedWithoutUndo();
        return true;
    }
    if (dragging)
        return false;

    enum Command { None, Delete, Hide, Cut, Copy, Paste } command = None;
    if (key == Qt::Key_Delete)
        command = Delete;
    else if (control && key == Qt::Key_Q)
        command = Hide;
    else if (control && key == Qt::Key_X)
        command = Cut;
    else if (control && key == Qt::Key_C)
        command = Copy;
    else if (control && key == Qt::Key_V)
        command = Paste;
    if (command == None)
        return false;
    if (event->isAutoRepeat())
        return true;
    switch (command) {
    case Delete:
        if (visible && idle)
            scene.deleteAComponent();
        break;
    case Hide:
        if (idle)
            scene.hideAComponent();
        break;
    case Cut:
        if (visible && idle)
            scene.cutAComponent();
        break;
    case Copy:
        if (visible && idle)
            scene.copyAComponent();
        break;
    case Paste:
        if (GameUIEditor* view = scene.editorView())
            scene.setPastePosition(view->mapToScene(view->viewport()->mapFromGlobal(QCursor::pos())));
        scene.paste(nullptr);
        break;
    case None:
        break;
    }
    return true;
}

void SceneKeyHandler::prepareMenu(QMenu* menu)
{
    const QList<QAction*> actions = menu->actions();
    // Add, Add Child, Edit, Delete, separator, Copy, Cut, Paste, separator, Hide.
    if (actions.size() < 10)
        return;
    QAction* addChild = actions.at(1);
    QAction* edit = actions.at(2);
    QAction* remove = actions.at(3);
    QAction* copy = actions.at(5);
    QAction* cut = actions.at(6);
    QAction* pasteAction = actions.at(7);
    QAction* hide = actions.at(9);
    UltimateTreeItem* row = scene.listSync->currentRow();
    UIComponentBase* component = scene.componentOfRow(row);
    if (!row || !component) {
        edit->setText(GameUIEditorScene::tr("Edit ..."));
        remove->setText(GameUIEditorScene::tr("Delete ..."));
        for (QAction* action : {addChild, edit, remove, copy, cut, hide})
            action->setVisible(false);
    } else {
        const QString name = row->text(0);
        edit->setText(GameUIEditorScene::tr("Edit \"%1\"").arg(name));
        remove->setText(GameUIEditorScene::tr("Delete \"%1\"").arg(name));
        addChild->setText(GameUIEditorScene::tr("Add Child to \"%1\"").arg(name));
        addChild->setVisible(component->canHaveChildren());
        for (QAction* action : {edit, remove, copy, cut, hide})
            action->setVisible(true);
        if (!name.isEmpty()) {
            copy->setText(GameUIEditorScene::tr("Copy \"%1\"").arg(name));
            cut->setText(GameUIEditorScene::tr("Cut \"%1\"").arg(name));
            if (!component->isVisible()) {
                hide->setText(GameUIEditorScene::tr("Show \"%1\"").arg(name));
                hide->setIcon(QIcon(QStringLiteral(":/resources/ContextIcons/Show.png")));
            } else {
                hide->setText(GameUIEditorScene::tr("Hide \"%1\"").arg(name));
                hide->setIcon(QIcon(QStringLiteral(":/resources/ContextIcons/Hide.png")));
            }
        }
    }
    QJsonObject pasted;
    const bool offered = ComponentClipboard::offered(&pasted);
    pasteAction->setVisible(offered);
    if (offered) {
        const QString name = pasted.value(QStringLiteral("Name")).toString();
        if (!name.isEmpty())
            pasteAction->setText(GameUIEditorScene::tr("Paste \"%1\"").arg(name));
    }
}

void SceneKeyHandler::showPopup(QMenu* menu, const QPoint& screenPosition)
{
    if (UltimateTree* tree = scene.listSync->tree())
        tree->setPopupOpen(true);
    menu->popup(screenPosition);
}
