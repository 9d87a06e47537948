#include "scene/ComponentListSync.h"

#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/SceneUndoRecorder.h"
#include "scene/UIComponentBase.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QSignalBlocker>
#include <QVector>

namespace {

const QString KeyChildren = QStringLiteral("Children");
const QString KeyExpanded = QStringLiteral("Expanded");
const QString KeyPosX = QStringLiteral("PosX");
const QString KeyPosY = QStringLiteral("PosY");
const QString KeyType = QStringLiteral("Type");

// The component ids of the order array, counted down the tree.
QJsonValue orderEntry(UltimateTreeItem* row)
{
    if (row->childCount() == 0)
        return row->id();
    QJsonArray entry;
    entry.append(QJsonObject{{KeyType, row->id()}, {KeyExpanded, row->isExpanded()}});
    for (int i = 0; i < row->childCount(); ++i)
        entry.append(orderEntry(row->child(i)));
    return entry;
}

// Sets the open state of the row with this id inside an order array; false
// when the array holds no such row with children.
bool setExpandedIn(QJsonArray& array, int id, bool expanded)
{
    for (int i = 0; i < array.size(); ++i) {
        if (!array.at(i).isArray())
            continue;
        QJsonArray entry = array.at(i).toArray();
        QJsonObject head = entry.first().toObject();
        if (head.value(KeyType).toInt() == id) {
            if (head.value(KeyExpanded).toBool(true) != expanded) {
                head.insert(KeyExpanded, expanded);
                entry[0] = head;
                array[i] = entry;
            }
            return true;
        }
        if (setExpandedIn(entry, id, expanded)) {
            array[i] = entry;
            return true;
        }
    }
    return false;
}

}

ComponentListSync::ComponentListSync(GameUIEditorScene& owner) : scene(owner) {}

UltimateTree* ComponentListSync::tree() const
{
    return widget ? widget->tree() : nullptr;
}

UltimateTreeItem* ComponentListSync::currentRow() const
{
    return widget ? widget->tree()->currentRow() : nullptr;
}

QList<UltimateTreeItem*> ComponentListSync::rowsUnder(UltimateTreeItem* parentRow) const
{
    QList<UltimateTreeItem*> rows;
    if (parentRow) {
        for (int i = 0; i < parentRow->childCount(); ++i)
            rows.append(parentRow->child(i));
    } else if (widget) {
        const UltimateTree* list = widget->tree();
        for (int i = 0; i < list->rowCount(); ++i)
            rows.append(list->row(i));
    }
    return rows;
}

// ---------------------------------------------------------------- rows

UltimateTreeItem* ComponentListSync::makeRow(const QJsonObject& json, UIComponentBase* component)
{
    UltimateTreeItem* row = new UltimateTreeItem();
    row->setId(json.value(QStringLiteral("ID")).toInt(-1));
    row->setCanHaveChildren(component->canHaveChildren());
    row->setText(0, GameUIEditorScene::rowText(json));
    itemToComponent.insert(row, component);
    componentToItem.insert(component, row);
    return row;
}

void ComponentListSync::placeNewRow(UltimateTreeItem* row, UIComponentBase* parent)
{
    UltimateTree* list = widget->tree();
    UltimateTreeItem* current = list->currentRow();
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
        list->insertRowAfter(row, current);
    } else {
        list->addRow(row);
    }
}

void ComponentListSync::forget(UIComponentBase* component)
{
    itemToComponent.remove(componentToItem.value(component));
    componentToItem.remove(component);
}

void ComponentListSync::deleteRow(UltimateTreeItem* row)
{
    if (row && widget)
        widget->tree()->deleteRow(row);
}

void ComponentListSync::clear()
{
    if (widget) {
        const QSignalBlocker blockTree(widget->tree());
        const QSignalBlocker blockList(widget);
        widget->tree()->setCurrentRow(nullptr);
        widget->tree()->clear();
    }
    itemToComponent.clear();
    componentToItem.clear();
    lastOrder = QJsonArray();
}

// ---------------------------------------------------------------- serialising

QJsonArray ComponentListSync::serialise(UltimateTreeItem* parentRow) const
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

QJsonArray ComponentListSync::orderFromList() const
{
    QJsonArray array;
    for (UltimateTreeItem* row : rowsUnder(nullptr))
        array.append(orderEntry(row));
    return array;
}

// ---------------------------------------------------------------- stacking and the current row

void ComponentListSync::restackRows(UltimateTreeItem* parentRow, UIComponentBase* parent)
{
    const QList<UltimateTreeItem*> rows = rowsUnder(parentRow);
    const int count = rows.size();
    UIComponentBase* selected = scene.selectedComponent();
    for (int i = 0; i < count; ++i) {
        UltimateTreeItem* row = rows.at(i);
        UIComponentBase* component = itemToComponent.value(row);
        if (!component)
            continue;
        component->setParentComponent(parent);
        if (!parent && component->scene() != &scene)
            scene.addItem(component);
        // Siblings stack by list order; the selected one lies above them all.
        component->setZValue(component == selected ? count : i);
        restackRows(row, component);
    }
}

void ComponentListSync::restack()
{
    restackRows(nullptr, nullptr);
}

void ComponentListSync::currentRowChanged(UltimateTreeItem* current)
{
    UIComponentBase* component = current ? itemToComponent.value(current) : nullptr;
    if (component != scene.selectedComponent() || !component)
        scene.select(component);
}

void ComponentListSync::clearSelection()
{
    UltimateTree* list = tree();
    if (list && list->currentRow()) {
        // The list tells the view, which deselects and updates its buttons.
        list->setCurrentRow(nullptr);
        return;
    }
    if (GameUIEditor* view = scene.editorView())
        view->list_currentItemChanged(nullptr, nullptr);
    else
        currentRowChanged(nullptr);
}

void ComponentListSync::rowRelocated(UltimateTreeItem* row)
{
    UIComponentBase* component = itemToComponent.value(row);
    if (!component)
        return;
    UIComponentBase* oldParent = component->parentComponent;
    const QPoint position = component->absoluteXY();
    const QJsonArray newOrder = orderFromList();
    if (newOrder != lastOrder) {
        scene.recorder->pushStructure(UndoRecord::Moved, component, lastOrder,
                                      QJsonObject{{KeyPosX, position.x()}, {KeyPosY, position.y()}});
        lastOrder = newOrder;
    }
    restack();
    // A move in the list never moves the component on the canvas.
    if (component->parentComponent != oldParent)
        component->setAbsoluteXY(position.x(), position.y());
}

void ComponentListSync::expansionChanged(UltimateTreeItem* row)
{
    // Rows the scene or a relocation opens and closes on the way don't count;
    // a row without children has no state of its own to keep.
    if (!row || structureDepth > 0 || !widget || row->childCount() == 0)
        return;
    const UltimateTree* list = widget->tree();
    if (list->isDragging() || list->pressedMouseButton() == 2)
        return;
    setExpandedIn(lastOrder, row->id(), row->isExpanded());
}

// ---------------------------------------------------------------- undo of structure

void ComponentListSync::restoreRows(UIComponentBase* component, RowHash& rows)
{
    scene.revive(component);
    UltimateTreeItem* row = makeRow(component->data(), component);
    if (!component->isVisible()) {
        row->setHalfOpacityAll(true);
        row->setItalicAll(true);
    }
    rows.insert(row->id(), row);
    if (QList<UIComponentBase*>* children = component->removedChildren) {
        component->removedChildren = nullptr;
        for (UIComponentBase* child : qAsConst(*children))
            restoreRows(child, rows);
        delete children;
    }
}

void ComponentListSync::restoreOrder(const QJsonArray& target, const std::function<void(RowHash&)>& fill)
{
    if (!widget)
        return;
    const StructureWork work(*this);
    UltimateTree* list = widget->tree();

    // Every row by id: those in the list, depth first, and those fill brings.
    QVector<UltimateTreeItem*> walked;
    walked.reserve(scene.components().size());
    std::function<void(UltimateTreeItem*)> walk = [&](UltimateTreeItem* row) {
        walked.append(row);
        for (int i = 0; i < row->childCount(); ++i)
            walk(row->child(i));
    };
    for (int i = 0; i < list->rowCount(); ++i)
        walk(list->row(i));
    RowHash rows;
    rows.reserve(walked.size());
    // Inserted last to first, so that of two rows with one id the earlier
    // comes out first.
    for (int i = walked.size() - 1; i >= 0; --i)
        rows.insert(walked.at(i)->id(), walked.at(i));
    if (fill)
        fill(rows);

    placeLevel(target, 0, nullptr, rows);
    // A row the array doesn't name keeps a place in the list, after the rows
    // it names, rather than leaving its component without one.
    for (auto it = rows.cbegin(); it != rows.cend(); ++it) {
        UltimateTreeItem* row = it.value();
        if (!row->parentItem() && list->indexOfRow(row) < 0)
            list->addRow(row);
    }

    restack();
    refreshOrder();
    // A current row that moved left the list without a current row.
    if (UIComponentBase* selected = scene.selectedComponent()) {
        if (UltimateTreeItem* row = componentToItem.value(selected))
            list->setCurrentRow(row);
    }
}

void ComponentListSync::placeLevel(const QJsonArray& entries, int first, UltimateTreeItem* parentRow, RowHash& rows)
{
    // Level by level, in the array's order, only the rows that stand
    // elsewhere move: a step changes a few rows, and the list stays laid out
    // around them. An entry is a row's id, or an array of {"Type": id,
    // "Expanded"} and the entries of its children.
    UltimateTree* list = widget->tree();
    int index = 0;
    for (int e = first; e < entries.size(); ++e) {
        const QJsonValue entry = entries.at(e);
        const bool nested = entry.isArray();
        if (!nested && !entry.isDouble())
            continue;
        const QJsonArray nestedEntries = entry.toArray();
        const QJsonObject head = nested ? nestedEntries.first().toObject() : QJsonObject();
        const int id = nested ? head.value(KeyType).toInt(-1) : entry.toInt(-1);
        UltimateTreeItem* row = rows.take(id);
        if (!row)
            continue;
        UltimateTreeItem* present = parentRow ? parentRow->child(index) : list->row(index);
        if (present != row) {
            if (row->parentItem())
                row->parentItem()->takeChild(row);
            else if (list->indexOfRow(row) >= 0)
                list->takeRow(row);
            if (!parentRow)
                list->insertRow(row, index);
            else if (index == 0)
                parentRow->prependChild(row);
            else
                parentRow->insertChildAfter(row, parentRow->child(index - 1));
        }
        ++index;
        if (nested) {
            const bool open = head.value(KeyExpanded).toBool(true);
            auto applyOpen = [row, open]() {
                if (row->childCount() > 0 && row->isExpanded() != open) {
                    if (open)
                        row->expand();
                    else
                        row->collapse(false);
                }
            };
            // Closing a row closes everything below it, so a row's own
            // state comes before its children's; a row that gets its
            // first children here opens after them.
            applyOpen();
            placeLevel(nestedEntries, 1, row, rows);
            applyOpen();
        }
    }
}
