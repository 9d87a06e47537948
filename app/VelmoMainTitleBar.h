#pragma once

#include "widgets/BaseMainTitleBar.h"

#include <QIcon>
#include <QList>

class InflateButton;
class QAction;
class QLabel;
class QMenu;
class QMenuBar;

// The main window's title bar: the five menus with every command, the tool
// rows of the same commands, the title and the window buttons.
//
// Each tool button triggers the action of its command and follows the
// action's enabled state, so the window sets a command's state in one place.
class VelmoMainTitleBar : public BaseMainTitleBar
{
    Q_OBJECT
public:
    VelmoMainTitleBar(int windowStyle, bool nativeMenuBar, QWidget* parent = nullptr);

    QMenuBar* menuBar() const { return menus; }
    // The strip between the menus and the title; it moves the window.
    QWidget* captionStrip() const { return shadow; }
    // Every command action, in menu order.
    QList<QAction*> commandActions() const { return actions; }
    // The places of the bar that move the window: the strip beside the
    // menus, the tool groups' backgrounds and labels.
    QList<QWidget*> captionWidgets() const { return captions; }
    // The small round mark of the program's own entry in the window menu.
    static QIcon systemMenuMark();
    // Whether the menus are the platform's own menu bar, with icons.
    bool usesNativeMenus() const { return nativeMenus; }

    QMenu* Menu_File;
    QMenu* Menu_Edit;
    QMenu* Menu_Project;
    QMenu* Menu_View;
    QMenu* Menu_Help;

    QAction* Action_OpenProject;
    QAction* Action_ReloadProject;
    QAction* Action_SaveProject;
    QAction* Action_CloseProject;
    QAction* Action_Quit;
    QAction* Action_Undo;
    QAction* Action_Redo;
    QAction* Action_Run;
    QAction* Action_Stop;
    QAction* Action_ProjectExplorer;
    QAction* Action_Settings;
    QAction* Action_ZoomIn;
    QAction* Action_ZoomOut;
    QAction* Action_FitZoom;
    QAction* Action_About;
    QAction* Action_Tutorial;
    QAction* Action_Update;

    InflateButton* openProject;
    InflateButton* reloadProject;
    InflateButton* saveProject;
    InflateButton* closeProject;
    InflateButton* undo;
    InflateButton* redo;
    InflateButton* run;
    InflateButton* stop;
    InflateButton* projectExplorer;
    InflateButton* settings;
    InflateButton* zoomIn;
    InflateButton* zoomOut;
    InflateButton* fitZoom;

    QLabel* projectManagementLabel;
    QLabel* doLabel;
    QLabel* gameRunnerLabel;
    QLabel* viewLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fitMenuBar();
    QAction* makeAction(QMenu* menu, const char* name, const char* text, const char* iconText,
                        const char* shortcut, const char* icon);
    // One tool button: where it goes, its object name, its command, and the
    // name and description its group label shows while it is hovered.
    struct Tool {
        InflateButton** button;
        const char* objectName;
        QAction* command;
        const char* name;
        const char* description;
        const char* icon;
    };
    QWidget* makeGroup(QLabel** label, const char* labelName, const QString& title, const QList<Tool>& tools);

    QMenuBar* menus;
    QWidget* topRow;
    QWidget* shadow;
    QList<QAction*> actions;
    QList<QWidget*> captions;
    bool nativeMenus;
};
