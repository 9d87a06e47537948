#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QMultiHash>

#include <functional>

class GameUIEditorScene;
class UIComponentBase;
class UltimateTree;
class UltimateTreeItem;
class UltimateTreeWidget;

// Keeps the component list and the canvas in step: a row for every
// component and the way back, the order array that records the list's shape
// in component ids, and the stacking on the canvas that follows from the
// list. The list's row order is the truth for order and parenthood.
class ComponentListSync
{
public:
    // Rows by component id. Ids are unique in a HUD the editor made; a
    // hand-made document may repeat one, and then every row still has its place.
    using RowHash = QMultiHash<int, UltimateTreeItem*>;

    // Marks the scene's own reshaping of the list for as long as it lives:
    // the rows opened and closed on the way say nothing about what the user
    // wants open.
    class StructureWork
    {
    public:
        explicit StructureWork(ComponentListSync& owner) : sync(owner) { ++sync.structureDepth; }
        ~StructureWork() { --sync.structureDepth; }
        StructureWork(const StructureWork&) = delete;
        StructureWork& operator=(const StructureWork&) = delete;

    private:
        ComponentListSync& sync;
    };

    explicit ComponentListSync(GameUIEditorScene& owner);

    void setList(UltimateTreeWidget* value) { widget = value; }
    UltimateTreeWidget* list() const { return widget; }
    // The list's tree, or null without a list.
    UltimateTree* tree() const;
    UltimateTreeItem* currentRow() const;

    UIComponentBase* componentOf(UltimateTreeItem* row) const { return itemToComponent.value(row); }
    UltimateTreeItem* rowOf(UIComponentBase* component) const { return componentToItem.value(component); }
    int mappedRows() const { return itemToComponent.size(); }

    // A new row for a component, entered into both maps; not yet in the list.
    UltimateTreeItem* makeRow(const QJsonObject& json, UIComponentBase* component);
    // Where a created component's row goes: after the current row among the
    // parent's children, else last below the parent; at top level behind the
    // current row's top-level ancestor, else at the end.
    void placeNewRow(UltimateTreeItem* row, UIComponentBase* parent);
    // Takes a component out of both maps.
    void forget(UIComponentBase* component);
    // Deletes a row and every row below it.
    void deleteRow(UltimateTreeItem* row);
    // Empties the list and both maps, without a word to the list's listeners.
    void clear();
    // The rows directly below a row, or the top-level rows for null.
    QList<UltimateTreeItem*> rowsUnder(UltimateTreeItem* parentRow) const;

    // The document array of the rows below a row, in list order and nesting.
    QJsonArray serialise(UltimateTreeItem* parentRow) const;
    // The list's structure as an order array of component ids.
    QJsonArray orderFromList() const;
    const QJsonArray& order() const { return lastOrder; }
    void refreshOrder() { lastOrder = orderFromList(); }

    // Later rows above earlier ones, children above parents, the selected
    // component above its siblings.
    void restack();
    void currentRowChanged(UltimateTreeItem* current);
    // A row moved in the list: one undo step with the shape before, and the
    // component stays on its spot of the canvas.
    void rowRelocated(UltimateTreeItem* row);
    // A row was opened or closed: order keeps the row's state, never the
    // list's structure, so a relocation still finds the structure before it.
    void expansionChanged(UltimateTreeItem* row);
    // No selection, with the list and the view's buttons told.
    void clearSelection();

    // Gives a deleted component and those below it back their place among
    // the scene's components and a new row each, entered into rows by id.
    void restoreRows(UIComponentBase* component, RowHash& rows);
    // Puts the list into the shape of an order array; fill may add rows that
    // are not in the list yet. A row the array doesn't name stays in the list.
    void restoreOrder(const QJsonArray& target, const std::function<void(RowHash&)>& fill = nullptr);

private:
    void restackRows(UltimateTreeItem* parentRow, UIComponentBase* parent);
    // One level of restoreOrder: the entries of an array from first on, as
    // the rows below parentRow.
    void placeLevel(const QJsonArray& entries, int first, UltimateTreeItem* parentRow, RowHash& rows);

    GameUIEditorScene& scene;
    UltimateTreeWidget* widget = nullptr;
    QMap<UltimateTreeItem*, UIComponentBase*> itemToComponent;
    QMap<UIComponentBase*, UltimateTreeItem*> componentToItem;
    // The last known shape of the list.
    QJsonArray lastOrder;
    // Above zero while the scene itself reshapes the list.
    int structureDepth = 0;
};
