#pragma once

class GameUIEditorScene;
class QKeyEvent;
class QMenu;
class QPoint;

// The keys of the canvas and its context menu. Keys: Control and Shift
// while a component is dragged or resized, Ctrl+Z and Ctrl+Y, and the
// editor's own keys (arrow moves, Delete, Ctrl+Q, Ctrl+X, Ctrl+C, Ctrl+V).
// The menu: its texts and visibility from the current row and the
// clipboard, and its popup.
class SceneKeyHandler
{
public:
    explicit SceneKeyHandler(GameUIEditorScene& owner);

    // True when the key was taken.
    bool keyPress(QKeyEvent* event);
    bool keyRelease(QKeyEvent* event);

    void prepareMenu(QMenu* menu);
    // Shows the menu with the list told that a popup is open, so that the
    // list keeps its current row while the focus is away.
    void showPopup(QMenu* menu, const QPoint& screenPosition);

private:
    // What Control and Shift do to a running drag or resize.
    bool manipulationKey(QKeyEvent* event, bool press);
    bool undoKey(QKeyEvent* event);
    bool editorKey(QKeyEvent* event);

    GameUIEditorScene& scene;
};
