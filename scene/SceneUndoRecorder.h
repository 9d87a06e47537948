#pragma once

#include "scene/UndoRecord.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cstddef>
#include <functional>
#include <vector>

class GameUIEditorScene;
class UIComponentBase;

// The undo model of the HUD being edited: a step is a snapshot of one
// component's object or the list's shape before a structural change. Holds
// both stacks (the last element is the top), the bracket around a change of
// one component, and the replay of a step in either direction. Records
// belong to the current HUD only.
class SceneUndoRecorder
{
public:
    explicit SceneUndoRecorder(GameUIEditorScene& owner);

    // Receives (undo, redo) after each change of availability: 0 leaves an
    // action as it is, 1 enables it, 2 disables it.
    void setCallback(const std::function<void(int, int)>& callback) { stateChanged = callback; }
    const std::vector<UndoRecord>& undoStack() const { return undoRecords; }
    const std::vector<UndoRecord>& redoStack() const { return redoRecords; }
    // A bracket is open.
    bool isChangePending() const { return pendingChange; }
    // Names the state the HUD is in among those its steps lead through: the
    // same after an undo and its redo, another after any new edit. Zero with
    // nothing to undo.
    quint64 position() const { return undoRecords.empty() ? 0 : undoRecords.back().step; }

    // Disabling also empties the stack.
    void setUndoEnabled(bool on);
    void setRedoEnabled(bool on);
    // Records the component's object unless the chosen stack's top holds it
    // already; step 0 starts a new edit.
    void pushSnapshot(UIComponentBase* component, bool toRedo, bool pending, quint64 step = 0);
    // The bracket around a change of one component; a change that ends
    // where it began leaves no step.
    void beginChange(UIComponentBase* component);
    void finishChange(UIComponentBase* component);
    // A structural step; before is the order array before the act.
    void pushStructure(int kind, UIComponentBase* component, const QJsonArray& before,
                       const QJsonObject& extra = QJsonObject());
    // Drops the steps recorded above a depth of the undo stack.
    void truncate(std::size_t depth);

    void undo() { replay(false); }
    void redo() { replay(true); }

private:
    // One step from one stack, its inverse onto the other.
    void replay(bool forward);
    void replayCreated(UIComponentBase* component, const QJsonArray& recordedOrder);

    GameUIEditorScene& scene;
    std::function<void(int, int)> stateChanged;
    std::vector<UndoRecord> undoRecords;
    std::vector<UndoRecord> redoRecords;
    bool pendingChange = false;
    quint64 nextStep = 1;
};
