#include "scene/SceneUndoRecorder.h"

#include "scene/ComponentListSync.h"
#include "scene/GameUIEditorScene.h"
#include "scene/SceneMouseHandler.h"
#include "scene/UIComponentBase.h"
#include "widgets/UltimateTreeItem.h"

namespace {

const QString KeyOrder = QStringLiteral("Order");
const QString KeyPosX = QStringLiteral("PosX");
const QString KeyPosY = QStringLiteral("PosY");

}

SceneUndoRecorder::SceneUndoRecorder(GameUIEditorScene& owner) : scene(owner) {}

void SceneUndoRecorder::setUndoEnabled(bool on)
{
    if (!on)
        undoRecords.clear();
    if (stateChanged)
        stateChanged(on ? 1 : 2, 0);
}

void SceneUndoRecorder::setRedoEnabled(bool on)
{
    if (!on)
        redoRecords.clear();
    if (stateChanged)
        stateChanged(0, on ? 1 : 2);
}

void SceneUndoRecorder::pushSnapshot(UIComponentBase* component, bool toRedo, bool pending, quint64 step)
{
    pendingChange = pending;
    const QJsonObject snapshot = component->data();
    std::vector<UndoRecord>& stack = toRedo ? redoRecords : undoRecords;
    if (!stack.empty() && stack.back().component == component && stack.back().json == snapshot)
        return;
    stack.push_back(UndoRecord{UndoRecord::Snapshot, snapshot, component, step ? step : nextStep++});
}

void SceneUndoRecorder::beginChange(UIComponentBase* component)
{
    if (component)
        pushSnapshot(component, false, true);
}

void SceneUndoRecorder::finishChange(UIComponentBase* component)
{
    if (!component)
        return;
    const QJsonObject present = component->data();
    // A change that ended where it began leaves no step behind.
    const bool equal = !undoRecords.empty() && undoRecords.back().component == component
                       && !undoRecords.back().json.isEmpty() && undoRecords.back().json == present;
    if (equal) {
        undoRecords.pop_back();
        if (undoRecords.empty())
            setUndoEnabled(false);
    }
    if (pendingChange) {
        pendingChange = false;
        if (!equal) {
            setRedoEnabled(false);
            if (!undoRecords.empty())
                setUndoEnabled(true);
        }
    }
}

void SceneUndoRecorder::pushStructure(int kind, UIComponentBase* component, const QJsonArray& before,
                                      const QJsonObject& extra)
{
    setRedoEnabled(false);
    UndoRecord record;
    record.kind = kind;
    record.json = extra;
    record.json.insert(KeyOrder, before);
    record.component = component;
    record.step = nextStep++;
    undoRecords.push_back(record);
    setUndoEnabled(true);
}

void SceneUndoRecorder::truncate(std::size_t depth)
{
    if (depth < undoRecords.size())
        undoRecords.erase(undoRecords.begin() + std::ptrdiff_t(depth), undoRecords.end());
}

void SceneUndoRecorder::replay(bool forward)
{
    // Never in the middle of a drag or a handle's use.
    if (scene.mouse->isLeftButtonDown())
        return;
    std::vector<UndoRecord>& source = forward ? redoRecords : undoRecords;
    std::vector<UndoRecord>& inverse = forward ? undoRecords : redoRecords;
    ComponentListSync& rows = *scene.listSync;
    if (source.empty()) {
        if (!forward && !scene.selectedComponent())
            rows.clearSelection();
        return;
    }
    const UndoRecord record = source.back();
    UIComponentBase* component = record.component;
    const QJsonArray recordedOrder = record.json.value(KeyOrder).toArray();
    switch (record.kind) {
    case UndoRecord::Snapshot: {
        pushSnapshot(component, !forward, false, record.step);
        component->setData(record.json);
        if (UltimateTreeItem* row = rows.rowOf(component)) {
            row->setText(0, GameUIEditorScene::rowText(record.json));
            // Selecting again rebuilds the handles for the restored shape.
            scene.select(component);
        }
        break;
    }
    case UndoRecord::Deleted: {
        inverse.push_back(
            UndoRecord{UndoRecord::Created, QJsonObject{{KeyOrder, rows.order()}}, component, record.step});
        component->clearHover();
        ComponentListSync::RowHash restored;
        rows.restoreRows(component, restored);
        rows.restoreOrder(recordedOrder, [&restored](ComponentListSync::RowHash& all) { all.unite(restored); });
        scene.select(component);
        break;
    }
    case UndoRecord::Created:
        inverse.push_back(
            UndoRecord{UndoRecord::Deleted, QJsonObject{{KeyOrder, rows.order()}}, component, record.step});
        replayCreated(component, recordedOrder);
        break;
    case UndoRecord::Moved: {
        const int posX = record.json.value(KeyPosX).toInt();
        const int posY = record.json.value(KeyPosY).toInt();
        // The position stays the one from before the move, in both directions:
        // a move in the list keeps the canvas place.
        inverse.push_back(UndoRecord{UndoRecord::Moved,
                                     QJsonObject{{KeyOrder, rows.order()}, {KeyPosX, posX}, {KeyPosY, posY}},
                                     component, record.step});
        rows.restoreOrder(recordedOrder);
        rows.clearSelection();
        component->setAbsoluteXY(posX, posY);
        break;
    }
    default:
        break;
    }
    source.pop_back();
    if (source.empty()) {
        if (forward)
            setRedoEnabled(false);
        else
            setUndoEnabled(false);
    }
    scene.update();
    if (forward)
        setUndoEnabled(true);
    else
        setRedoEnabled(true);
}

void SceneUndoRecorder::replayCreated(UIComponentBase* component, const QJsonArray& recordedOrder)
{
    // The component goes again with everything below it; a selection among
    // them goes too.
    bool wasSelected = false;
    for (UIComponentBase* up = scene.selectedComponent(); up && !wasSelected; up = up->parentComponent)
        wasSelected = up == component;
    component->setSelected(false);
    scene.removeComponent(component, false);
    scene.listSync->restoreOrder(recordedOrder);
    if (wasSelected) {
        scene.selection = nullptr;
        scene.listSync->clearSelection();
    }
}
