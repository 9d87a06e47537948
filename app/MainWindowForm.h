#pragma once

class BRResizerRenderer;
class GameUIEditor;
class MyTabSystem;
class QLabel;
class QMainWindow;
class QPushButton;
class QStackedLayout;
class QWidget;
class UltimateTreeWidget;

// The widgets of the main window under their object names: the no-project
// page, the editor page with the canvas and the lists, and the bottom strip.
// It only builds; the window and its parts connect and drive the widgets.
struct MainWindowForm {
    void setupUi(QMainWindow* window);

    QStackedLayout* pages = nullptr;
    QWidget* noProjectPage = nullptr;
    QWidget* mainWidget = nullptr;
    QPushButton* openRMProject = nullptr;
    MyTabSystem* tabs = nullptr;
    GameUIEditor* editor = nullptr;
    UltimateTreeWidget* hudList = nullptr;
    QPushButton* addHudButton = nullptr;
    QPushButton* removeHudButton = nullptr;
    UltimateTreeWidget* componentList = nullptr;
    QPushButton* addComponentButton = nullptr;
    QPushButton* removeComponentButton = nullptr;
    QPushButton* hintComponentButton = nullptr;
    QLabel* statusLabel = nullptr;
    BRResizerRenderer* bottomRightResizer = nullptr;
};
