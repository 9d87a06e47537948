#pragma once

#include "app/HudDocument.h"
#include "widgets/CFramelessWindow.h"

#include <QDir>
#include <QJsonObject>
#include <QProcess>

class DocumentWatcher;
class GameUIEditor;
class QAction;
class QLabel;
class QMimeData;
class QPushButton;
class QStackedLayout;
class QMenu;
class QTimer;
class MyTabSystem;
class BRResizerRenderer;
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

    bool projectIsOpen() const { return isProjectOpen; }
    bool projectIsChanged() const { return isChanged; }
    QDir getProjectDirectory() const { return projectDirectory; }
    const QJsonObject* getProjectData() const { return &projectData; }
    QSize screenSize() const { return QSize(screenWidth, screenHeight); }
    QString getEditorLocation() const { return editorLocation; }
    // The running game, or null.
    const QProcess* runningGame() const { return gameProcess; }

    // The one entry for every opening; an empty or missing path closes.
    void openProjectAt(const QString& path);
    // Marks unsaved changes, as every edit does.
    void markChanged();

    VelmoMainTitleBar* mainTitleBar() const { return titleBar; }
    UltimateTreeWidget* hudListWidget() const { return hudList; }
    GameUIEditor* editorView() const { return editor; }
    UltimateTreeWidget* componentListWidget() const { return componentList; }

    // Whether a drag carries a project file this window accepts.
    static bool acceptsProjectDrop(const QMimeData* mime);

    // A stored window rectangle moved whole onto the nearest screen when too
    // little of its top strip lies on any of the screens (a monitor that is gone).
    static QRect reachableGeometry(const QRect& stored, const QVector<QRect>& screens);

    // What the last opening has to tell the user, in plain text; empty when
    // all went well.
    struct OpenReport {
        QString title;
        QString message;
        QStringList details;
    };
    const OpenReport& lastOpenReport() const { return openReport; }

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

private slots:
    // The document was changed by another program.
    void whenDocumentChangedOnDisk(bool removed);
    // Keeps the unsaved document in the recovery file.
    void writeRecovery();
    // Offers the recovery file of the open project when it is newer than the document.
    void offerRecovery();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void buildForm();
    void connectCommands();
    void buildHudMenu();
    // Creating (item null) and editing a HUD in the HUD dialog; true when
    // the dialog was confirmed.
    bool createOrEditHUD(UltimateTreeItem* item);
    // The scene takes the size the current HUD asks for.
    void applyHudSize(const UltimateTreeItem* item);
    // The maximise button and the corner grip follow the window's state;
    // an open drop-down closes.
    void followWindowState();
    void refreshScene();
    // Mirrors the scene's undo and zoom availability into the commands.
    void whenUndoStateChanged(int undo, int redo);
    void whenZoomStateChanged(int in, int out);
    void openStartProject();
    bool loadProjectData(QStringList* problems = nullptr);
    // Shows what the last opening has to tell, after the user asked for it.
    void reportOpening();
    HudDocument readDocument() const;
    bool loadHUDs();
    // Fills the HUD list with a document's entries and loads the current one.
    void showHUDs(const HudDocument& document);
    // The game couldn't be started: the editor says why and forgets it.
    void whenGameFailed(QProcess::ProcessError error);
    // The unsaved-changes prompt: 0 save, 1 don't save, 2 cancel; 1 without
    // asking when nothing is unsaved.
    int askToSave(const QString& question);
    // Saves on outcome 0; false when that save failed.
    bool saveIfAsked(int outcome);
    // Asks before the open project is replaced; false when cancelled.
    bool settleUnsavedChanges();
    void saveWindowState();
    void updateCommandStates();
    void refreshBackground();
    void setupHudList();
    // The HUD list as document entries, in list order.
    QVector<HudEntry> hudEntries() const;
    UltimateTreeItem* currentHud() const;
    void setupComponentList();
    // Stores the canvas's components into the current HUD's object.
    void storeSceneIntoCurrentHud();
    // A pasted HUD object becomes a new custom HUD: a fresh "ID" always, a name
    // and "IsHUD" when it has none.
    void preparePastedHud(QJsonObject* object);
    static void fillHudRow(UltimateTreeItem* row);

    int windowStyle;
    bool nativeMenuBar;
    QString theme;
    QString language;

    QDir projectDirectory;
    QJsonObject projectData;
    QString editorLocation;
    QProcess* gameProcess = nullptr;
    int screenWidth;
    int screenHeight;
    bool isProjectOpen = false;
    bool canUndo = false;
    bool canRedo = false;
    bool canZoomIn = true;
    bool canZoomOut = true;
    bool isChanged = false;
    bool isSizedHUD = false;

    // Root keys of the document other than "Data", written back on saving.
    QJsonObject documentRoot;
    // The project's document couldn't be taken as it stood; keep a copy on saving.
    bool damagedHudFile = false;
    OpenReport openReport;
    // What the status bar says beside the project, until the next opening.
    QString statusNotice;

    // When the window last lost the activation, in seconds since the epoch.
    qint64 lastDeactivation = 0;

    VelmoMainTitleBar* titleBar = nullptr;
    QStackedLayout* pages = nullptr;
    MyTabSystem* tabs = nullptr;
    BRResizerRenderer* bottomRightResizer = nullptr;
    QWidget* noProjectPage = nullptr;
    QWidget* mainWidget = nullptr;
    QPushButton* openRMProject = nullptr;
    UltimateTreeWidget* hudList = nullptr;
    QMenu* hudMenu = nullptr;
    QAction* actionEditHud = nullptr;
    QAction* actionDeleteHud = nullptr;
    QPushButton* addHudButton = nullptr;
    QPushButton* removeHudButton = nullptr;
    GameUIEditor* editor = nullptr;
    UltimateTreeWidget* componentList = nullptr;
    QPushButton* addComponentButton = nullptr;
    QPushButton* removeComponentButton = nullptr;
    QPushButton* hintComponentButton = nullptr;
    QLabel* statusLabel = nullptr;

    DocumentWatcher* documentWatcher = nullptr;
    QTimer* autosaveTimer = nullptr;
    // A question about the document on disk is up; another change waits for it.
    bool askingAboutDisk = false;
};
