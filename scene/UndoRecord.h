#pragma once

#include <QJsonObject>
#include <QtGlobal>

class UIComponentBase;

// One step on the scene's undo or redo stack: a snapshot of one component's
// object, or the tree's shape before a structural change.
struct UndoRecord {
    enum Kind : int { Snapshot = 0, Deleted = 1, Created = 2, Moved = 3 };

    int kind = Snapshot;
    // Snapshot: the component's whole object. Deleted, Created: {"Order"}.
    // Moved: {"Order", "PosX", "PosY"} with the absolute position before.
    QJsonObject json;
    // Not owned: a deleted component waits in the scene's removedComponents.
    UIComponentBase* component = nullptr;
    // The edit this record belongs to: a new edit takes a new number, and a
    // replayed step's inverse keeps it. The top of the undo stack so names
    // the state the HUD is in.
    quint64 step = 0;
};
