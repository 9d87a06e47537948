#pragma once

#include "app/MainWindowCommands.h"
#include "app/MainWindowForm.h"
#include "app/ProjectLifecycle.h"
#include "widgets/CFramelessWindow.h"

#include <QDir>
#include <QJsonObject>
#include <QProcess>

#include <functional>

class GameProcess;
class GameUIEditor;
class HudListController;
class MainWindowCommands;
class QLabel;
class QMimeData;
class UltimateTreeItem;
class UltimateTreeWidget;
class VelmoMainTitleBar;

// The program's one top-level window and the owner of the open project: its
// folder, the cached RPG Maker data, the HUD list and the canvas.
//
// The window holds the no-project page and the editor page: the canvas
// beside a tab system with the HUD list and the component list, and the
// controls help. Its title bar carries the menus and tool rows of every
// command.
class VelmoMainWindow : public CFramelessWindow
{
    Q_OBJECT
public:
    VelmoMainWindow(int windowStyle, bool nativeMenuBar, const QString& theme, const QString& language,
                    QWidget* parent = nullptr);
    ~VelmoMainWindow() override;

    // The one main window of the process, or null before it is built.
    static VelmoMainWindow* instance();

    int getWindowStyle() const { return windowStyle; }
    bool getNativeMenuBar() const { return nativeMenuBar; }
    QString getTheme() const { return theme; }
    QString getLanguage() const { return language; }
    // Kept until exit, when they are stored; style, menu bar and language
    // take effect at the next start, the theme is applied by its chooser.
    void setWindowStyle(int style) { windowStyle = style; }
    void setNativeMenuBar(bool on) { nativeMenuBar = on; }
    void setTheme(const QString& name) { theme = name; }
    void setLanguage(const QString& path) { language = path; }
    void setEditorLocation(const QString& folder) { lifecycle->setEditorLocation(folder); }

    bool projectIsOpen() const { return lifecycle->isOpen(); }
    bool projectIsChanged() const { return lifecycle->isChanged(); }
    QDir getProjectDirectory() const { return lifecycle->directory(); }
    const QJsonObject* getProjectData() const { return lifecycle->data(); }
    QSize screenSize() const { return lifecycle->screenSize(); }
    QString getEditorLocation() const { return lifecycle->editorLocation(); }
    // The running game, or null.
    const QProcess* runningGame() const;

    // The one entry for every opening; an empty or missing path closes.
    void openProjectAt(const QString& path) { lifecycle->openAt(path); }
    // Marks unsaved changes, as every edit does.
    void markChanged() { lifecycle->markChanged(); }

    VelmoMainTitleBar* mainTitleBar() const { return titleBar; }
    UltimateTreeWidget* hudListWidget() const { return form.hudList; }
    GameUIEditor* editorView() const { return form.editor; }
    UltimateTreeWidget* componentListWidget() const { return form.componentList; }

    // Whether a drag carries a project file this window accepts.
    static bool acceptsProjectDrop(const QMimeData* mime);

    using OpenReport = ProjectLifecycle::OpenReport;
    const OpenReport& lastOpenReport() const { return lifecycle->lastOpenReport(); }

public slots:
    void closeWindow();
    void maximizeWindow();
    void minimizeWindow();
    void showSystemMenu();
    void createHUD();
    void editHUD();
    void deleteHUD();
    void on_hudList_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem* previous);
    void on_hudList_itemDoubleClicked(UltimateTreeItem* item, int column);
    void on_addHudButton_clicked();
    void on_removeHudButton_clicked();
    void on_hudList_customContextMenuRequested(const QPoint& pos);
    void on_openRMProject_clicked();
    void OpenProject();
    void ReloadProject();
    void SaveProject();
    void CloseProject();
    void InstallInMZ();
    void Undo();
    void Redo();
    void RunGame();
    void StopGame();
    void OpenProjectDirectory();
    void OpenSettings();
    void ZoomIn();
    void ZoomOut();
    void FitToView();
    void About();
    void OpenTutorials();
    void OpenDownloads();
    void SystemCall(int id);
    void GameProcessEnd(int code, QProcess::ExitStatus status);
    void ShowHintForComponentList();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // The maximise button and the corner grip follow the window's state;
    // an open drop-down closes.
    void followWindowState();
    void refreshScene();
    // Mirrors the scene's undo and zoom availability into the commands.
    void whenUndoStateChanged(int undo, int redo);
    void whenZoomStateChanged(int in, int out);
    void setupComponentList();
    // The whole notice of the status line, which may run past its end.
    void showWholeNotice();
    // Runs a dialog of the window's commands with the window dimmed under it.
    void runDimmed(const std::function<void()>& run);
    // The game couldn't be started: the editor says why and forgets it.
    void whenGameFailed(QProcess::ProcessError error);
    // The page, the commands, the status line and the title follow the project.
    void updateCommandStates();
    MainWindowCommands::State commandState() const;

    int windowStyle;
    bool nativeMenuBar;
    QString theme;
    QString language;

    MainWindowForm form;
    VelmoMainTitleBar* titleBar = nullptr;
    MainWindowCommands* commands = nullptr;
    HudListController* huds = nullptr;
    ProjectLifecycle* lifecycle = nullptr;
    GameProcess* gameProcess = nullptr;
    bool canUndo = false;
    bool canRedo = false;
    bool canZoomIn = true;
    bool canZoomOut = true;

    // When the window last lost the activation, in seconds since the epoch.
    qint64 lastDeactivation = 0;
};
