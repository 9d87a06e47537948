#pragma once

class GameUIEditorScene;
class QGraphicsSceneMouseEvent;
class UIComponentBase;

// The mouse on the canvas: which of several overlapping components a press
// means, the start and end of a drag, and the undo bracket around it. A
// press on a handle belongs to the handle; the scene then keeps its
// selection.
class SceneMouseHandler
{
public:
    explicit SceneMouseHandler(GameUIEditorScene& owner);

    // Before the press reaches the items, and after each item under the
    // cursor has listed itself in the scene's pressed components.
    void beforePress(QGraphicsSceneMouseEvent* event);
    void afterPress(QGraphicsSceneMouseEvent* event);
    // After the items had the release.
    void afterRelease(QGraphicsSceneMouseEvent* event);
    // A handle took the press that is under way.
    void handlePressed() { selectionPending = false; }
    // From a left press to its release; undo and redo wait for it.
    bool isLeftButtonDown() const { return leftButtonDown; }
    // A component that leaves the canvas while it is dragged or held by a
    // handle ends that interaction first.
    void endInteraction(UIComponentBase* component);

private:
    // The component a press means among those under it: the one already
    // selected, else the topmost; then down into its children, never up.
    UIComponentBase* pressTarget() const;
    // The drag's end: back within reach of the canvas, the undo bracket closed.
    void finishDrag(UIComponentBase* component);
    void restoreDragCursor();
    // Wakes hover handling under a cursor that stands still after a drag.
    void nudgeCursor();

    GameUIEditorScene& scene;
    UIComponentBase* previouslySelected = nullptr;
    bool selectionPending = true;
    bool leftButtonDown = false;
    // The blank cursor of a drag is on.
    bool dragCursorSet = false;
};
