#include "scene/GameUIEditorScene.h"

#include "scene/ComponentClipboard.h"
#include "scene/ComponentListSync.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorSceneHelperBase.h"
#include "scene/SceneKeyHandler.h"
#include "scene/SceneMouseHandler.h"
#include "scene/SceneUndoRecorder.h"
#include "scene/StillLayer.h"
#include "scene/UIComponentBase.h"
#include "scene/UsesCustomProperties.h"
#include "widgets/OwnerDimming.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QSignalBlocker>

namespace {

const QString KeyChildren = QStringLiteral("Children");
const QString KeyExpanded = QStringLiteral("Expanded");

}

GameUIEditorScene::GameUIEditorScene(GameUIEditor* owner, QObject* parent)
    : QGraphicsScene(parent),
      listSync(new ComponentListSync(*this)),
      recorder(new SceneUndoRecorder(*this)),
      clipboard(new ComponentClipboard(*this)),
      keys(new SceneKeyHandler(*this)),
      mouse(new SceneMouseHandler(*this)),
      sceneCanvas(new SceneCanvas(*this, owner)),
      still(new StillLayer(*this)),
      view(owner)
{
    // Every zoom step moves and resizes every item, which would rebuild a
    // spatial index each time; a HUD's few hundred items are found faster by
    // looking at each.
    setItemIndexMethod(QGraphicsScene::NoIndex);
}

GameUIEditorScene::~GameUIEditorScene()
{
    still->end();
    // Deleted components belong to the scene; live ones go with their items.
    deleteRemoved();
    delete componentHelper;
}

void GameUIEditorScene::deleteRemoved()
{
    for (UIComponentBase* component : qAsConst(removed)) {
        if (component->removedChildren)
            component->removedChildren->clear();
        component->setParentItem(nullptr);
    }
    qDeleteAll(removed);
    removed.clear();
}

void GameUIEditorScene::setHelper(GameUIEditorSceneHelperBase* value)
{
    if (value == componentHelper)
        return;
    delete componentHelper;
    componentHelper = value;
}

void GameUIEditorScene::setList(UltimateTreeWidget* list)
{
    listSync->setList(list);
}

UltimateTreeWidget* GameUIEditorScene::list() const
{
    return listSync->list();
}

void GameUIEditorScene::setUndoCallback(const std::function<void(int, int)>& callback)
{
    recorder->setCallback(callback);
}

QString GameUIEditorScene::rowText(const QJsonObject& json)
{
    // Only a missing name reads "Component"; an empty one stays empty.
    return json.value(QStringLiteral("Name")).toString(tr("Component"));
}

UIComponentBase* GameUIEditorScene::componentOfRow(UltimateTreeItem* row) const
{
    return listSync->componentOf(row);
}

UltimateTreeItem* GameUIEditorScene::rowOfComponent(UIComponentBase* component) const
{
    return listSync->rowOf(component);
}

QJsonArray GameUIEditorScene::toJson() const
{
    return listSync->serialise(nullptr);
}

QJsonArray GameUIEditorScene::orderFromList() const
{
    return listSync->orderFromList();
}

const QJsonArray& GameUIEditorScene::order() const
{
    return listSync->order();
}

void GameUIEditorScene::refreshOrder()
{
    listSync->refreshOrder();
}

void GameUIEditorScene::restack()
{
    listSync->restack();
}

// ---------------------------------------------------------------- building

UIComponentBase* GameUIEditorScene::makeComponent(const QJsonObject& json, UIComponentBase* parent)
{
    // The helper hands the component over with its object applied.
    UIComponentBase* component = componentHelper->createComponent(json, this, projectData, true);
    if (!component)
        return nullptr;
    if (parent)
        component->setParentComponent(parent);
    else
        addItem(component);
    allComponents.append(component);
    return component;
}

UIComponentBase* GameUIEditorScene::createFromJson(const QJsonObject& json, UIComponentBase* parent)
{
    if (!componentHelper || !list())
        return nullptr;
    const QJsonArray before = order();
    const ComponentListSync::StructureWork work(*listSync);
    UIComponentBase* component = makeComponent(json, parent);
    if (!component)
        return nullptr;
    listSync->placeNewRow(listSync->makeRow(json, component), parent);
    recorder->pushStructure(UndoRecord::Created, component, before);
    select(component);
    return component;
}

void GameUIEditorScene::loadArray(const QJsonArray& array, UIComponentBase* parent, UltimateTreeItem* parentRow)
{
    for (const QJsonValue& value : array) {
        if (!value.isObject())
            continue;
        QJsonObject json = value.toObject();
        const QJsonArray children = json.value(KeyChildren).toArray();
        // The children live in their own components; the parent's object only
        // remembers that it had the key.
        if (json.contains(KeyChildren))
            json.insert(KeyChildren, QJsonArray());
        UIComponentBase* component = makeComponent(json, parent);
        if (!component)
            continue;
        UltimateTreeItem* row = listSync->makeRow(json, component);
        if (parentRow)
            parentRow->addChild(row);
        highestId = qMax(highestId, json.value(QStringLiteral("ID")).toInt(0));
        if (!children.isEmpty()) {
            loadArray(children, component, row);
            if (json.value(KeyExpanded).toBool(true))
                row->expand();
            else
                row->collapse(false);
        }
        if (!parentRow)
            listSync->tree()->addRow(row);
    }
}

void GameUIEditorScene::loadFromJson(const QJsonArray& array)
{
    if (componentHelper && list()) {
        const QSignalBlocker blockTree(listSync->tree());
        const QSignalBlocker blockList(list());
        loadArray(array, nullptr, nullptr);
    }
    // A loaded HUD has no steps to undo.
    recorder->setUndoEnabled(false);
    recorder->setRedoEnabled(false);
    select(nullptr);
    if (UltimateTree* tree = listSync->tree())
        tree->setCurrentRow(nullptr);
    refreshOrder();
}

void GameUIEditorScene::detachComponent(UIComponentBase* component)
{
    mouse->endInteraction(component);
    if (component == hovered)
        hovered = nullptr;
    pressed.removeAll(component);
    component->setSelected(false);
    component->setParentComponent(nullptr);
    if (component->scene() == this)
        removeItem(component);
}

void GameUIEditorScene::revive(UIComponentBase* component)
{
    removed.removeOne(component);
    allComponents.append(component);
}

quint64 GameUIEditorScene::undoPosition() const
{
    return recorder->position();
}

void GameUIEditorScene::clear()
{
    still->end();
    listSync->clear();
    for (UIComponentBase* moving : {dragged, selection}) {
        if (moving)
            mouse->endInteraction(moving);
    }
    // Removing the top-level items takes their children along; deleting them
    // frees the whole tree of items.
    QList<UIComponentBase*> top;
    for (UIComponentBase* component : qAsConst(allComponents)) {
        if (!component->parentComponent)
            top.append(component);
    }
    for (UIComponentBase* component : qAsConst(top)) {
        if (component->scene() == this)
            removeItem(component);
    }
    qDeleteAll(top);
    deleteRemoved();
    allComponents.clear();
    pressed.clear();
    hovered = nullptr;
    selection = nullptr;
    dragged = nullptr;
    highestId = 0;
    recorder->setUndoEnabled(false);
    recorder->setRedoEnabled(false);
}

void GameUIEditorScene::select(UIComponentBase* component)
{
    if (selection) {
        selection->setSelected(false);
        selection->update();
    }
    selection = component;
    if (!component) {
        if (hovered)
            hovered->clearHover();
        restack();
        return;
    }
    component->setSelected(true);
    component->update();
    UltimateTreeItem* row = rowOfComponent(component);
    UltimateTree* tree = listSync->tree();
    if (tree && row && tree->currentRow() != row)
        tree->setCurrentRow(row);
    if (hovered && hovered != component)
        hovered->clearHover();
    restack();
}

void GameUIEditorScene::listCurrentItemChanged(UltimateTreeItem* current)
{
    listSync->currentRowChanged(current);
}

void GameUIEditorScene::listItemRelocated(UltimateTreeItem* row)
{
    listSync->rowRelocated(row);
}

void GameUIEditorScene::expansionChanged(UltimateTreeItem* row)
{
    listSync->expansionChanged(row);
}

// ---------------------------------------------------------------- canvas

void GameUIEditorScene::setScreenSize(int width, int height)
{
    const QSize old = sceneCanvas->screenSize();
    if (!sceneCanvas->setScreenSize(QSize(width, height)) || old.width() == -1 || old.height() == -1)
        return;
    // Top-level components keep their place against the canvas centre.
    const int shiftX = (old.width() - width) / 2;
    const int shiftY = (old.height() - height) / 2;
    for (UIComponentBase* component : qAsConst(allComponents)) {
        if (!component->parentComponent) {
            const QPoint position = component->absoluteXY();
            component->setAbsoluteXY(position.x() - shiftX, position.y() - shiftY);
        }
    }
}

void GameUIEditorScene::setScreenSize(int width, int height, bool fit)
{
    setScreenSize(width, height);
    if (fit)
        fitZoom();
}

QImage GameUIEditorScene::canvasImage(bool withBackground)
{
    // The picture is drawn by the components themselves.
    still->end();
    return sceneCanvas->render(withBackground);
}

void GameUIEditorScene::setFontNames(const QString& main, const QString& number, const QString& fallback)
{
    if (main == mainFontName && number == numberFontName && fallback == fallbackFontName)
        return;
    mainFontName = main;
    numberFontName = number;
    fallbackFontName = fallback;
    for (UIComponentBase* component : qAsConst(allComponents)) {
        if (component->jsonData.contains(QStringLiteral("TextData")))
            component->setData(component->data());
    }
}

void GameUIEditorScene::drawBackground(QPainter* painter, const QRectF& rect)
{
    // Without a game screen there is no canvas to draw.
    if (screenWidth() < 0 || screenHeight() < 0)
        QGraphicsScene::drawBackground(painter, rect);
    else
        sceneCanvas->drawBackground(painter, rect);
}

void GameUIEditorScene::wheelEvent(QGraphicsSceneWheelEvent* event)
{
    sceneCanvas->wheel(event);
}

void GameUIEditorScene::drawForeground(QPainter* painter, const QRectF&)
{
    if (guides.isEmpty())
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(QColor(190, 120, 40), 1));
    painter->drawLines(guides);
    painter->restore();
}

// ---------------------------------------------------------------- keys and mouse

void GameUIEditorScene::keyPressEvent(QKeyEvent* event)
{
    if (!keys->keyPress(event))
        QGraphicsScene::keyPressEvent(event);
}

void GameUIEditorScene::keyReleaseEvent(QKeyEvent* event)
{
    if (!keys->keyRelease(event))
        QGraphicsScene::keyReleaseEvent(event);
}

void GameUIEditorScene::prepareMenu(QMenu* menu)
{
    keys->prepareMenu(menu);
}

void GameUIEditorScene::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    mouse->beforePress(event);
    QGraphicsScene::mousePressEvent(event);
    mouse->afterPress(event);
}

void GameUIEditorScene::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    // A held handle gets its release first, through the base class.
    QGraphicsScene::mouseReleaseEvent(event);
    mouse->afterRelease(event);
}

void GameUIEditorScene::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    if (!selection) {
        pastePoint = event->scenePos();
        createAComponent(nullptr);
    } else {
        editAComponent();
    }
}

void GameUIEditorScene::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    // A drag moves the item itself; hover waits until the release wakes it.
    if (dragged && (event->buttons() & Qt::LeftButton) && !mouseGrabberItem()) {
        dragStep(event->scenePos());
        event->accept();
        return;
    }
    QGraphicsScene::mouseMoveEvent(event);
}

void GameUIEditorScene::dragStep(const QPointF& mouseScenePos)
{
    if (dragged)
        dragged->dragTo(mouseScenePos);
}

void GameUIEditorScene::hoverEnter(UIComponentBase* component)
{
    ++hoverCount;
    if (hovered && hovered != component)
        hovered->clearHover();
    hovered = component;
}

void GameUIEditorScene::hoverLeave()
{
    --hoverCount;
    hovered = nullptr;
}

void GameUIEditorScene::handlePressed(UIComponentBase* component)
{
    // The press is the handle's: the scene keeps its selection.
    mouse->handlePressed();
    if (hovered && hovered != component)
        hovered->clearHover();
}

void GameUIEditorScene::setWheelAllowed(bool on)
{
    wheelZoomOn = on;
    wheelOn = on;
}

// ---------------------------------------------------------------- commands

void GameUIEditorScene::createAComponent(UIComponentBase* parent)
{
    if (!componentHelper || !clipboard->admits(1))
        return;
    const int x = int(pastePoint.x() / zoomFactor());
    const int y = int(pastePoint.y() / zoomFactor());
    QJsonObject json{{QStringLiteral("X"), x}, {QStringLiteral("Y"), y}, {QStringLiteral("ID"), highestId}};
    QApplication::restoreOverrideCursor();
    bool accepted = false;
    QWidget* owner = view;
    OwnerDimming::dim(owner);
    componentHelper->chooseNewComponent(json, &accepted, highestId, true, projectData, nullptr);
    OwnerDimming::undim(owner);
    if (accepted) {
        ++highestId;
        if (UIComponentBase* component = createFromJson(json, parent))
            component->setAbsoluteXY(x, y);
    }
    refreshOrder();
    restack();
}

void GameUIEditorScene::createACenteredComponent()
{
    pastePoint = sceneRect().center();
    createAComponent(nullptr);
}

void GameUIEditorScene::editAComponent()
{
    if (!selection || !componentHelper)
        return;
    QJsonObject copy = selection->data();
    bool accepted = false;
    // The order of the custom properties lives in the project, not in the
    // component: a confirmed dialog that only reordered them changes no
    // component, yet leaves something to save.
    const QJsonValue ordersBefore = projectData ? projectData->value(UsesCustomProperties::OrdersFile) : QJsonValue();
    componentHelper->editComponent(copy, &accepted, nullptr, view, true, projectData);
    if (!accepted)
        return;
    beginChange(selection);
    selection->setData(copy);
    finishChange(selection);
    if (UltimateTreeItem* row = rowOfComponent(selection))
        row->setText(0, rowText(copy));
    if (projectData && projectData->value(UsesCustomProperties::OrdersFile) != ordersBefore)
        emit changedWithoutUndo();
}

void GameUIEditorScene::deleteAComponent()
{
    if (!selection)
        return;
    setRedoEnabled(false);
    setUndoEnabled(true);
    removeComponent(selection);
    refreshOrder();
}

void GameUIEditorScene::removeComponent(UIComponentBase* component, bool record)
{
    const QJsonArray before = order();
    const ComponentListSync::StructureWork work(*listSync);
    UltimateTreeItem* row = rowOfComponent(component);
    // Every component below leaves the maps before its row is deleted.
    std::function<void(UIComponentBase*)> take = [&](UIComponentBase* gone) {
        UltimateTreeItem* goneRow = rowOfComponent(gone);
        QList<UIComponentBase*> children;
        if (goneRow) {
            for (int i = 0; i < goneRow->childCount(); ++i) {
                if (UIComponentBase* child = componentOfRow(goneRow->child(i)))
                    children.append(child);
            }
        }
        for (UIComponentBase* child : qAsConst(children))
            take(child);
        if (gone == selection)
            selection = nullptr;
        detachComponent(gone);
        allComponents.removeAll(gone);
        removed.append(gone);
        listSync->forget(gone);
        delete gone->removedChildren;
        gone->removedChildren = new QList<UIComponentBase*>(children);
        // Children wait under their parent item, as they were.
        for (UIComponentBase* child : qAsConst(children))
            child->setParentItem(gone);
    };
    take(component);
    listSync->deleteRow(row);
    if (record)
        recorder->pushStructure(UndoRecord::Deleted, component, before);
    if (UltimateTree* tree = listSync->tree(); tree && !tree->currentRow())
        selection = nullptr;
    update();
}

void GameUIEditorScene::hideAComponent()
{
    UltimateTreeItem* row = listSync->currentRow();
    UIComponentBase* component = componentOfRow(row);
    if (!component)
        return;
    const bool hide = component->isVisible();
    component->setVisible(!hide);
    row->setHalfOpacityAll(hide);
    row->setItalicAll(hide);
}

void GameUIEditorScene::copyAComponent()
{
    clipboard->copy();
}

void GameUIEditorScene::cutAComponent()
{
    clipboard->cut();
}

void GameUIEditorScene::paste(UIComponentBase* parent)
{
    clipboard->paste(parent);
}

// ---------------------------------------------------------------- undo

void GameUIEditorScene::beginChange(UIComponentBase* component)
{
    recorder->beginChange(component);
}

void GameUIEditorScene::finishChange(UIComponentBase* component)
{
    recorder->finishChange(component);
}

void GameUIEditorScene::setUndoEnabled(bool on)
{
    recorder->setUndoEnabled(on);
}

void GameUIEditorScene::setRedoEnabled(bool on)
{
    recorder->setRedoEnabled(on);
}

void GameUIEditorScene::undo()
{
    recorder->undo();
}

void GameUIEditorScene::redo()
{
    recorder->redo();
}
