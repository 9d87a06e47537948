#include "scene/GameUIEditorScene.h"

#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorSceneHelperBase.h"
#include "scene/UIComponentBase.h"
#include "widgets/AlertDialog.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QIcon>
#include <QJsonDocument>
#include <QMenu>
#include <QPainter>
#include <QRegularExpression>
#include <QSignalBlocker>

namespace {

const QString ClipboardId = QStringLiteral("VELMOCOMP");
const QString KeyChildren = QStringLiteral("Children");
const QString KeyExpanded = QStringLiteral("Expanded");
const QString KeyOrder = QStringLiteral("Order");

// The component ids of the order array, counted down the tree.
QJsonValue orderEntry(UltimateTreeItem* row)
{
    if (row->childCount() == 0)
        return row->id();
    QJsonArray entry;
    entry.append(QJsonObject{{QStringLiteral("Type"), row->id()}, {KeyExpanded, row->isExpanded()}});
    for (int i = 0; i < row->childCount(); ++i)
        entry.append(orderEntry(row->child(i)));
    return entry;
}

int countObjects(const QJsonArray& array)
{
    int count = 0;
    for (const QJsonValue& value : array) {
        if (!value.isObject())
            continue;
        count += 1 + countObjects(value.toObject().value(KeyChildren).toArray());
    }
    return count;
}

}

GameUIEditorScene::GameUIEditorScene(GameUIEditor* owner, QObject* parent) : QGraphicsScene(parent), view(owner) {}

GameUIEditorScene::~GameUIEditorScene()
{
    // Deleted components belong to the scene; live ones go with their items.
    for (UIComponentBase* component : qAsConst(removedComponents)) {
        if (component->removedChildren)
            component->removedChildren->clear();
        component->setParentItem(nullptr);
    }
    qDeleteAll(removedComponents);
    delete helper;
}

void GameUIEditorScene::setHelper(GameUIEditorSceneHelperBase* value)
{
    if (value == helper)
        return;
    delete helper;
    helper = value;
}

QString GameUIEditorScene::rowText(const QJsonObject& json)
{
    const QString name = json.value(QStringLiteral("Name")).toString();
    return name.isEmpty() ? tr("Component") : name;
}

QList<UltimateTreeItem*> GameUIEditorScene::rowsUnder(UltimateTreeItem* parentRow) const
{
    QList<UltimateTreeItem*> rows;
    if (parentRow) {
        for (int i = 0; i < parentRow->childCount(); ++i)
            rows.append(parentRow->child(i));
    } else if (list) {
        const UltimateTree* tree = list->tree();
        for (int i = 0; i < tree->rowCount(); ++i)
            rows.append(tree->row(i));
    }
    return rows;
}

// ---------------------------------------------------------------- serialising

QJsonArray GameUIEditorScene::serialise(UltimateTreeItem* parentRow) const
{
    QJsonArray array;
    for (UltimateTreeItem* row : rowsUnder(parentRow)) {
        // A row without a component is skipped.
        UIComponentBase* component = itemToComponent.value(row);
        if (!component)
            continue;
        QJsonObject object = component->data();
        if (row->childCount() > 0)
            object.insert(KeyChildren, serialise(row));
        else if (object.contains(KeyChildren))
            object.insert(KeyChildren, QJsonArray());
        if (component->canHaveChildren()) {
            // A row without children has no open or closed state of its own;
            // it keeps what the document said until it gets one.
            const bool expanded = row->childCount() > 0 ? row->isExpanded()
                                                        : component->jsonData.value(KeyExpanded).toBool(true);
            object.insert(KeyExpanded, expanded);
        }
        array.append(object);
    }
    return array;
}

QJsonArray GameUIEditorScene::toJson() const
{
    return serialise(nullptr);
}

QJsonArray GameUIEditorScene::orderFromList() const
{
    QJsonArray array;
    for (UltimateTreeItem* row : rowsUnder(nullptr))
        array.append(orderEntry(row));
    return array;
}

void GameUIEditorScene::refreshOrder()
{
    order = orderFromList();
}

// ---------------------------------------------------------------- building

UIComponentBase* GameUIEditorScene::makeComponent(const QJsonObject& json, UIComponentBase* parent)
{
    UIComponentBase* component = helper->createComponent(json, this, projectData, true);
    if (!component)
        return nullptr;
    if (parent)
        component->setParentComponent(parent);
    else
        addItem(component);
    components.append(component);
    return component;
}

UltimateTreeItem* GameUIEditorScene::makeRow(const QJsonObject& json, UIComponentBase* component)
{
    UltimateTreeItem* row = new UltimateTreeItem();
    row->setId(json.value(QStringLiteral("ID")).toInt(-1));
    row->setCanHaveChildren(component->canHaveChildren());
    row->setText(0, rowText(json));
    itemToComponent.insert(row, component);
    componentToItem.insert(component, row);
    return row;
}

UIComponentBase* GameUIEditorScene::createFromJson(const QJsonObject& json, UIComponentBase* parent)
{
    if (!helper || !list)
        return nullptr;
    UIComponentBase* component = makeComponent(json, parent);
    if (!component)
        return nullptr;
    UltimateTreeItem* row = makeRow(json, component);
    UltimateTree* tree = list->tree();
    UltimateTreeItem* current = tree->currentRow();
    if (parent) {
        UltimateTreeItem* parentRow = componentToItem.value(parent);
        if (current && current->parentItem() == parentRow)
            parentRow->insertChildAfter(row, current);
        else
            parentRow->addChild(row);
        parentRow->expand();
    } else if (current) {
        while (current->parentItem())
            current = current->parentItem();
        tree->insertRowAfter(row, current);
    } else {
        tree->addRow(row);
    }

    pushStructure(UndoRecord::Created, component);
    select(component);
    component->setData(json);
    return component;
}

void GameUIEditorScene::pushStructure(int kind, UIComponentBase* component, const QJsonObject& extra)
{
    setRedoEnabled(false);
    setUndoEnabled(true);
    UndoRecord record;
    record.kind = kind;
    record.json = extra;
    record.json.insert(KeyOrder, order);
    record.component = component;
    undoStack.push_back(record);
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
        UltimateTreeItem* row = makeRow(json, component);
        if (parentRow)
            parentRow->addChild(row);
        component->setData(json);
        idCounter = qMax(idCounter, json.value(QStringLiteral("ID")).toInt(0));
        if (!children.isEmpty()) {
            loadArray(children, component, row);
            if (json.value(KeyExpanded).toBool(true))
                row->expand();
            else
                row->collapse(false);
        }
        if (!parentRow)
            list->tree()->addRow(row);
    }
}

void GameUIEditorScene::loadFromJson(const QJsonArray& array)
{
    if (helper && list) {
        const QSignalBlocker blockTree(list->tree());
        const QSignalBlocker blockList(list);
        loadArray(array, nullptr, nullptr);
    }
    // A loaded HUD has no steps to undo.
    undoStack.clear();
    setUndoEnabled(false);
    setRedoEnabled(false);
    select(nullptr);
    if (list)
        list->tree()->setCurrentRow(nullptr);
    refreshOrder();
}

void GameUIEditorScene::detachComponent(UIComponentBase* component)
{
    if (component == hoveredComponent)
        hoveredComponent = nullptr;
    pressedComponents.removeAll(component);
    component->setSelected(false);
    component->setParentComponent(nullptr);
    if (component->scene() == this)
        removeItem(component);
}

void GameUIEditorScene::clear()
{
    if (list) {
        const QSignalBlocker blockTree(list->tree());
        const QSignalBlocker blockList(list);
        list->tree()->setCurrentRow(nullptr);
        list->tree()->clear();
    }
    // Removing the top-level items takes their children along; deleting them
    // frees the whole tree of items.
    QList<UIComponentBase*> top;
    for (UIComponentBase* component : qAsConst(components)) {
        if (!component->parentComponent)
            top.append(component);
    }
    for (UIComponentBase* component : qAsConst(top)) {
        if (component->scene() == this)
            removeItem(component);
    }
    qDeleteAll(top);
    for (UIComponentBase* component : qAsConst(removedComponents)) {
        if (component->removedChildren)
            component->removedChildren->clear();
        component->setParentItem(nullptr);
    }
    qDeleteAll(removedComponents);
    removedComponents.clear();
    itemToComponent.clear();
    componentToItem.clear();
    components.clear();
    pressedComponents.clear();
    undoStack.clear();
    redoStack.clear();
    order = QJsonArray();
    hoveredComponent = nullptr;
    selectedComponent = nullptr;
    draggedComponent = nullptr;
    previouslySelected = nullptr;
    idCounter = 0;
    setUndoEnabled(false);
    setRedoEnabled(false);
}

// ---------------------------------------------------------------- stacking and selection

void GameUIEditorScene::restackRows(UltimateTreeItem* parentRow, UIComponentBase* parent)
{
    const QList<UltimateTreeItem*> rows = rowsUnder(parentRow);
    const int count = rows.size();
    for (int i = 0; i < count; ++i) {
        UltimateTreeItem* row = rows.at(i);
        UIComponentBase* component = itemToComponent.value(row);
        if (!component)
            continue;
        component->setParentComponent(parent);
        if (!parent && component->scene() != this)
            addItem(component);
        // Siblings stack by list order; the selected one lies above them all.
        component->setZValue(component == selectedComponent ? count : i);
        restackRows(row, component);
    }
}

void GameUIEditorScene::restack()
{
    restackRows(nullptr, nullptr);
}

void GameUIEditorScene::select(UIComponentBase* component)
{
    if (selectedComponent) {
        selectedComponent->setSelected(false);
        selectedComponent->update();
    }
    selectedComponent = component;
    if (!component) {
        if (hoveredComponent)
            hoveredComponent->clearHover();
        restack();
        return;
    }
    component->setSelected(true);
    component->update();
    UltimateTreeItem* row = componentToItem.value(component);
    if (list && row && list->tree()->currentRow() != row)
        list->tree()->setCurrentRow(row);
    if (hoveredComponent && hoveredComponent != component)
        hoveredComponent->clearHover();
    restack();
}

void GameUIEditorScene::listCurrentItemChanged(UltimateTreeItem* current)
{
    UIComponentBase* component = current ? itemToComponent.value(current) : nullptr;
    if (component != selectedComponent || !component)
        select(component);
}

// ---------------------------------------------------------------- canvas

void GameUIEditorScene::setZoom(int value)
{
    zoom = value;
    updateSceneRect();
    for (QGraphicsItem* item : items()) {
        if (auto* component = dynamic_cast<UIComponentBase*>(item))
            component->zoomChanged();
    }
    update();
}

void GameUIEditorScene::updateSceneRect()
{
    const double factor = zoomFactor();
    const int width = qMax(screenWidth, 0);
    const int height = qMax(screenHeight, 0);
    canvasRect = QRectF(0, 0, width * factor, height * factor);
    const QGraphicsView* host = view;
    const bool fits = host && host->viewport()->width() > canvasRect.width() + 25
                      && host->viewport()->height() > canvasRect.height() + 25;
    if (fits)
        setSceneRect(canvasRect);
    else
        setSceneRect(canvasRect.adjusted(-50, -50, 50, 50));
}

void GameUIEditorScene::setScreenSize(int width, int height)
{
    if (width == screenWidth && height == screenHeight)
        return;
    userZoomed = false;
    const int oldWidth = screenWidth;
    const int oldHeight = screenHeight;
    screenWidth = width;
    screenHeight = height;
    updateSceneRect();
    if (oldWidth == -1 || oldHeight == -1)
        return;
    // Top-level components keep their place against the canvas centre.
    const int shiftX = (oldWidth - width) / 2;
    const int shiftY = (oldHeight - height) / 2;
    for (UIComponentBase* component : qAsConst(components)) {
        if (!component->parentComponent) {
            const QPoint position = component->absoluteXY();
            component->setAbsoluteXY(position.x() - shiftX, position.y() - shiftY);
        }
    }
}

void GameUIEditorScene::setFontNames(const QString& main, const QString& number, const QString& fallback)
{
    if (main == mainFontName && number == numberFontName && fallback == fallbackFontName)
        return;
    mainFontName = main;
    numberFontName = number;
    fallbackFontName = fallback;
    for (UIComponentBase* component : qAsConst(components)) {
        if (component->jsonData.contains(QStringLiteral("TextData")))
            component->setData(component->data());
    }
}

void GameUIEditorScene::setBackgroundImage(const QPixmap& pixmap)
{
    backgroundImage = pixmap;
    update();
}

void GameUIEditorScene::setDarkness(double value)
{
    if (qFuzzyCompare(1.0 + value, 1.0 + darkness))
        return;
    darkness = value;
    update();
}

void GameUIEditorScene::drawBackground(QPainter* painter, const QRectF& rect)
{
    // Without a game screen there is no canvas to draw.
    if (screenWidth < 0 || screenHeight < 0) {
        QGraphicsScene::drawBackground(painter, rect);
        return;
    }
    QBrush tileBrush = tile.isNull() ? QBrush(QColor(70, 70, 70), Qt::Dense4Pattern) : QBrush(tile);
    painter->fillRect(rect, Qt::black);
    painter->save();
    painter->setOpacity(0.5);
    painter->fillRect(rect, tileBrush);
    painter->restore();
    const QRectF canvas(0, 0, int(canvasRect.width()), int(canvasRect.height()));
    const QRectF visible = rect.intersected(canvas);
    const QColor shadow(0, 0, 0, 125);
    const QRectF bottomShadow = rect.intersected(QRectF(4, canvas.height(), canvas.width(), 4));
    const QRectF rightShadow = rect.intersected(QRectF(canvas.width(), 4, 4, canvas.height() - 4));
    if (!bottomShadow.isEmpty())
        painter->fillRect(bottomShadow, shadow);
    if (!rightShadow.isEmpty())
        painter->fillRect(rightShadow, shadow);
    if (!backgroundImage.isNull()) {
        painter->drawPixmap(canvas, backgroundImage, QRectF(backgroundImage.rect()));
        if (darkness > 0) {
            painter->save();
            painter->setOpacity(darkness);
            painter->fillRect(canvas.adjusted(0, 0, -1, -1), Qt::black);
            painter->restore();
        }
    } else if (!visible.isEmpty()) {
        painter->fillRect(visible, tile.isNull() ? QBrush(QColor(96, 96, 104)) : tileBrush);
    }
}

// ---------------------------------------------------------------- mouse

void GameUIEditorScene::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    const Qt::MouseButtons buttons = event->buttons();
    const bool leftOnly = buttons == Qt::LeftButton;
    const bool rightOnly = buttons == Qt::RightButton;
    if (event->button() == Qt::LeftButton)
        leftButtonDown = true;
    if (leftOnly || rightOnly) {
        previouslySelected = selectedComponent;
        selectedComponent = nullptr;
    }
    pressedComponents.clear();
    QGraphicsScene::mousePressEvent(event);

    if (leftOnly || rightOnly) {
        wheelZoomAllowed = false;
        if (!selectionPending) {
            // A handle took the press.
            selectionPending = true;
            selectedComponent = previouslySelected;
            previouslySelected = nullptr;
            if (!rightOnly)
                return;
        } else {
            // Prefer what was selected, then go down into children, never up.
            UIComponentBase* target = nullptr;
            for (UIComponentBase* candidate : qAsConst(pressedComponents)) {
                if (candidate->selected) {
                    target = candidate;
                    break;
                }
            }
            if (!target && !pressedComponents.isEmpty())
                target = pressedComponents.first();
            for (bool changed = target != nullptr; changed;) {
                changed = false;
                for (UIComponentBase* candidate : qAsConst(pressedComponents)) {
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
            UltimateTree* tree = list ? list->tree() : nullptr;
            if (!target && !previouslySelected) {
                if (tree)
                    tree->setCurrentRow(nullptr);
            } else {
                if (leftOnly && target)
                    QApplication::setOverrideCursor(Qt::BlankCursor);
                if (previouslySelected && previouslySelected != target) {
                    previouslySelected->setSelected(false);
                    previouslySelected->update();
                }
                if (target) {
                    target->setSelected(true);
                    if (tree)
                        tree->setCurrentRow(componentToItem.value(target));
                } else if (tree) {
                    tree->setCurrentRow(nullptr);
                }
            }
            if (leftOnly && target) {
                draggedComponent = target;
                selectedComponent = target;
                beginChange(target);
                restack();
                pressedComponents.removeAll(target);
                pressedComponents.append(target);
            }
            previouslySelected = nullptr;
        }
    }
    if (!rightOnly)
        return;
    pastePosition = event->scenePos();
    if (view && view->contextMenu) {
        prepareMenu(view->contextMenu);
        showPopup(view->contextMenu, event->screenPos());
    }
}

void GameUIEditorScene::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsScene::mouseReleaseEvent(event);
    if (event->buttons() & Qt::LeftButton)
        return;
    if (leftButtonDown) {
        leftButtonDown = false;
        draggedComponent = nullptr;
        if (selectedComponent && pendingChange)
            finishChange(selectedComponent);
        QApplication::restoreOverrideCursor();
    }
    wheelZoomAllowed = true;
}

void GameUIEditorScene::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    if (!selectedComponent) {
        pastePosition = event->scenePos();
        createAComponent(nullptr);
    } else {
        editAComponent();
    }
}

void GameUIEditorScene::hoverEnter(UIComponentBase* component)
{
    ++hoverCount;
    if (hoveredComponent && hoveredComponent != component)
        hoveredComponent->clearHover();
    hoveredComponent = component;
}

void GameUIEditorScene::hoverLeave()
{
    --hoverCount;
    hoveredComponent = nullptr;
}

// ---------------------------------------------------------------- commands

void GameUIEditorScene::reportLimit()
{
    QApplication::restoreOverrideCursor();
    AlertDialog::alert(tr("This HUD already holds %1 components, the most a HUD can hold. "
                          "Delete a component before adding another.")
                           .arg(componentLimit),
                       tr("Component Limit"), view ? view->window() : nullptr);
}

void GameUIEditorScene::createAComponent(UIComponentBase* parent)
{
    if (!helper)
        return;
    if (components.size() >= componentLimit) {
        reportLimit();
        return;
    }
    const int x = int(pastePosition.x() / zoomFactor());
    const int y = int(pastePosition.y() / zoomFactor());
    QJsonObject json{{QStringLiteral("X"), x}, {QStringLiteral("Y"), y}, {QStringLiteral("ID"), idCounter}};
    QApplication::restoreOverrideCursor();
    bool accepted = false;
    helper->chooseNewComponent(json, &accepted, idCounter, true, projectData, nullptr);
    if (accepted) {
        ++idCounter;
        if (UIComponentBase* component = createFromJson(json, parent))
            component->setAbsoluteXY(x, y);
    }
    refreshOrder();
    restack();
}

void GameUIEditorScene::createACenteredComponent()
{
    pastePosition = sceneRect().center();
    createAComponent(nullptr);
}

void GameUIEditorScene::editAComponent()
{
    if (!selectedComponent || !helper)
        return;
    QJsonObject copy = selectedComponent->data();
    bool accepted = false;
    helper->editComponent(copy, &accepted, nullptr, view, true, projectData);
    if (!accepted)
        return;
    beginChange(selectedComponent);
    selectedComponent->setData(copy);
    finishChange(selectedComponent);
    if (UltimateTreeItem* row = componentToItem.value(selectedComponent))
        row->setText(0, rowText(copy));
}

void GameUIEditorScene::deleteAComponent()
{
    if (!selectedComponent)
        return;
    setRedoEnabled(false);
    setUndoEnabled(true);
    removeComponent(selectedComponent);
    refreshOrder();
}

void GameUIEditorScene::removeComponent(UIComponentBase* component)
{
    UltimateTreeItem* row = componentToItem.value(component);
    // Every component below leaves the maps before its row is deleted.
    std::function<void(UIComponentBase*)> take = [&](UIComponentBase* gone) {
        UltimateTreeItem* goneRow = componentToItem.value(gone);
        QList<UIComponentBase*> children;
        if (goneRow) {
            for (int i = 0; i < goneRow->childCount(); ++i) {
                if (UIComponentBase* child = itemToComponent.value(goneRow->child(i)))
                    children.append(child);
            }
        }
        for (UIComponentBase* child : qAsConst(children))
            take(child);
        if (gone == selectedComponent)
            selectedComponent = nullptr;
        detachComponent(gone);
        components.removeAll(gone);
        removedComponents.append(gone);
        itemToComponent.remove(goneRow);
        componentToItem.remove(gone);
        delete gone->removedChildren;
        gone->removedChildren = new QList<UIComponentBase*>(children);
        // Children wait under their parent item, as they were.
        for (UIComponentBase* child : qAsConst(children))
            child->setParentItem(gone);
    };
    take(component);
    if (row && list)
        list->tree()->deleteRow(row);
    pushStructure(UndoRecord::Deleted, component);
    if (list && !list->tree()->currentRow())
        selectedComponent = nullptr;
    update();
}

void GameUIEditorScene::hideAComponent()
{
    UltimateTreeItem* row = list ? list->tree()->currentRow() : nullptr;
    UIComponentBase* component = itemToComponent.value(row);
    if (!component)
        return;
    const bool hide = component->isVisible();
    component->setVisible(!hide);
    row->setHalfOpacityAll(hide);
    row->setItalicAll(hide);
}

void GameUIEditorScene::copyAComponent()
{
    if (!selectedComponent)
        return;
    QJsonObject object = selectedComponent->data();
    UltimateTreeItem* row = componentToItem.value(selectedComponent);
    if (row && row->childCount() > 0)
        object.insert(KeyChildren, serialise(row));
    QApplication::clipboard()->setText(ClipboardId + QString::fromUtf8(QJsonDocument(object).toJson()));
}

void GameUIEditorScene::cutAComponent()
{
    if (!selectedComponent)
        return;
    copyAComponent();
    deleteAComponent();
}

QStringList GameUIEditorScene::componentNames() const
{
    QStringList names;
    for (UIComponentBase* component : components)
        names.append(component->jsonData.value(QStringLiteral("Name")).toString());
    return names;
}

void GameUIEditorScene::paste(UIComponentBase* parent)
{
    if (components.size() >= componentLimit) {
        reportLimit();
        return;
    }
    const QString text = QApplication::clipboard()->text();
    if (!text.startsWith(ClipboardId))
        return;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text.mid(ClipboardId.size()).toUtf8(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return;
    const QJsonObject object = document.object();
    // A pasted tree that would pass the limit is refused whole, never cut short.
    if (components.size() + 1 + countObjects(object.value(KeyChildren).toArray()) > componentLimit) {
        reportLimit();
        return;
    }
    UIComponentBase* component = pasteObject(object, parent);
    refreshOrder();
    if (component)
        select(component);
}

UIComponentBase* GameUIEditorScene::pasteObject(QJsonObject object, UIComponentBase* parent)
{
    if (object.isEmpty())
        return nullptr;
    ++idCounter;
    object.insert(QStringLiteral("ID"), idCounter);
    const QStringList names = componentNames();
    const QString name = object.value(QStringLiteral("Name")).toString();
    if (names.contains(name)) {
        static const QRegularExpression suffix(QStringLiteral(" - Copy \\d+$"));
        const QRegularExpressionMatch match = suffix.match(name);
        const QString base = match.hasMatch() && match.capturedStart() > 0 ? name.left(match.capturedStart()) : name;
        QString candidate;
        for (int n = 1;; ++n) {
            candidate = tr("%1 - Copy %2").arg(base).arg(n);
            if (!names.contains(candidate))
                break;
        }
        object.insert(QStringLiteral("Name"), candidate);
    }
    const QJsonArray children = object.value(KeyChildren).toArray();
    if (object.contains(KeyChildren))
        object.insert(KeyChildren, QJsonArray());
    UIComponentBase* component = createFromJson(object, parent);
    if (!component)
        return nullptr;
    if (!parent) {
        const QRectF area = sceneRect();
        if (area.contains(pastePosition)) {
            component->setAbsoluteScenePosition(pastePosition.x(), pastePosition.y());
        } else {
            const QPointF at(component->x * zoomFactor(), component->y * zoomFactor());
            if (at.x() < 0 || at.y() < 0 || at.x() > area.width() || at.y() > area.height())
                component->setAbsoluteScenePosition(area.center().x(), area.center().y());
        }
    }
    for (const QJsonValue& child : children)
        pasteObject(child.toObject(), component);
    return component;
}

void GameUIEditorScene::listItemRelocated(UltimateTreeItem* row)
{
    UIComponentBase* component = itemToComponent.value(row);
    if (!component)
        return;
    UIComponentBase* oldParent = component->parentComponent;
    const QPoint position = component->absoluteXY();
    const QJsonArray newOrder = orderFromList();
    if (newOrder != order) {
        pushStructure(UndoRecord::Moved, component,
                      QJsonObject{{QStringLiteral("PosX"), position.x()}, {QStringLiteral("PosY"), position.y()}});
        order = newOrder;
    }
    restack();
    // A move in the list never moves the component on the canvas.
    if (component->parentComponent != oldParent)
        component->setAbsoluteXY(position.x(), position.y());
}

// ---------------------------------------------------------------- menu

void GameUIEditorScene::prepareMenu(QMenu* menu)
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
    UltimateTreeItem* row = list ? list->tree()->currentRow() : nullptr;
    UIComponentBase* component = itemToComponent.value(row);
    if (!row || !component) {
        edit->setText(tr("Edit ..."));
        remove->setText(tr("Delete ..."));
        for (QAction* action : {addChild, edit, remove, copy, cut, hide})
            action->setVisible(false);
    } else {
        const QString name = row->text(0);
        edit->setText(tr("Edit \"%1\"").arg(name));
        remove->setText(tr("Delete \"%1\"").arg(name));
        addChild->setText(tr("Add Child to \"%1\"").arg(name));
        addChild->setVisible(component->canHaveChildren());
        for (QAction* action : {edit, remove, copy, cut, hide})
            action->setVisible(true);
        if (!name.isEmpty()) {
            copy->setText(tr("Copy \"%1\"").arg(name));
            cut->setText(tr("Cut \"%1\"").arg(name));
            if (!component->isVisible()) {
                hide->setText(tr("Show \"%1\"").arg(name));
                hide->setIcon(QIcon(QStringLiteral(":/resources/ContextIcons/Show.png")));
            } else {
                hide->setText(tr("Hide \"%1\"").arg(name));
                hide->setIcon(QIcon(QStringLiteral(":/resources/ContextIcons/Hide.png")));
            }
        }
    }
    const QString text = QApplication::clipboard()->text();
    QJsonParseError error;
    const QJsonDocument document = text.startsWith(ClipboardId)
                                       ? QJsonDocument::fromJson(text.mid(ClipboardId.size()).toUtf8(), &error)
                                       : QJsonDocument();
    const bool offered = text.startsWith(ClipboardId) && error.error == QJsonParseError::NoError
                         && document.isObject();
    pasteAction->setVisible(offered);
    if (offered) {
        const QString name = document.object().value(QStringLiteral("Name")).toString();
        if (!name.isEmpty())
            pasteAction->setText(tr("Paste \"%1\"").arg(name));
    }
}

void GameUIEditorScene::showPopup(QMenu* menu, const QPoint& screenPosition)
{
    if (list)
        list->tree()->setPopupOpen(true);
    menu->popup(screenPosition);
}

// ---------------------------------------------------------------- undo bracket

void GameUIEditorScene::setUndoEnabled(bool on)
{
    if (!on)
        undoStack.clear();
    if (undoStateChanged)
        undoStateChanged(on ? 1 : 2, 0);
}

void GameUIEditorScene::setRedoEnabled(bool on)
{
    if (!on)
        redoStack.clear();
    if (undoStateChanged)
        undoStateChanged(0, on ? 1 : 2);
}

void GameUIEditorScene::pushSnapshot(UIComponentBase* component, bool toRedo, bool pending)
{
    pendingChange = pending;
    const QJsonObject snapshot = component->data();
    std::vector<UndoRecord>& stack = toRedo ? redoStack : undoStack;
    if (!stack.empty() && stack.back().json == snapshot)
        return;
    stack.push_back(UndoRecord{UndoRecord::Snapshot, snapshot, component});
}

void GameUIEditorScene::beginChange(UIComponentBase* component)
{
    if (component)
        pushSnapshot(component, false, true);
}

void GameUIEditorScene::finishChange(UIComponentBase* component)
{
    if (!component)
        return;
    const QJsonObject present = component->data();
    const bool equal = !undoStack.empty() && !undoStack.back().json.isEmpty() && undoStack.back().json == present;
    if (equal) {
        undoStack.pop_back();
        if (undoStack.empty())
            setUndoEnabled(false);
    }
    if (pendingChange) {
        pendingChange = false;
        if (!equal) {
            setRedoEnabled(false);
            if (!undoStack.empty())
                setUndoEnabled(true);
        }
    }
}

// Placeholders until undo and redo land with the undo work.
void GameUIEditorScene::undo() {}
void GameUIEditorScene::redo() {}
