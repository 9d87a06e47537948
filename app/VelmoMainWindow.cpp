#include "app/VelmoMainWindow.h"

#include "app/FolderOpener.h"
#include "app/GameProcess.h"
#include "app/HudListController.h"
#include "app/PathManager.h"
#include "components/ProjectFonts.h"
#include "components/ProjectImages.h"
#include "app/ProjectData.h"
#include "app/SettingsStore.h"
#include "app/VelmoAbout.h"
#include "app/VelmoComponentListHelp.h"
#include "app/VelmoEasterEggGame.h"
#include "app/VelmoSettings.h"
#include "app/VelmoMainTitleBar.h"
#include "app/WindowPlacement.h"
#include "components/GameUIEditorSceneHelper.h"
#include "logic/DynamicValueSelector.h"
#include "logic/RMConditionList.h"
#include "logic/VelmoAnimationStyle.h"
#include "logic/VelmoTextInputExtend.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "widgets/AlertDialog.h"
#include "widgets/BasicFontSelector.h"
#include "widgets/BRResizerRenderer.h"
#include "widgets/ClipboardIdentifiers.h"
#include "widgets/MyPopup.h"
#include "widgets/MyTabSystem.h"
#include "widgets/OwnerDimming.h"
#include "widgets/TitleBarButtons.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"
#include "widgets/UltimateToolTip.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QStackedLayout>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QUrl>

namespace {

VelmoMainWindow* theMainWindow = nullptr;

// One side of a scene hook's report: 0 leaves it as it is, 1 makes it
// available, anything else not.
void mirrorState(int state, bool& available)
{
    if (state != 0)
        available = state == 1;
}

// A drop-down must not float where its field no longer is.
void closeDropDown()
{
    if (MyPopup* popup = MyPopup::openPopup())
        popup->close();
}

}

VelmoMainWindow* VelmoMainWindow::instance()
{
    return theMainWindow;
}

VelmoMainWindow::VelmoMainWindow(int windowStyle, bool nativeMenuBar, const QString& theme,
                                 const QString& language, QWidget* parent)
    : CFramelessWindow(windowStyle, parent), windowStyle(windowStyle), nativeMenuBar(nativeMenuBar), theme(theme),
      language(language)
{
    form.setupUi(this);
    setWindowTitle(tr("Velmora"));
    setWindowIcon(QIcon(QStringLiteral(":/Icon.png")));
    setAcceptDrops(true);

    huds = new HudListController(form.hudList, form.removeHudButton, form.editor, this);
    lifecycle = new ProjectLifecycle(this, huds, form.editor);
    theMainWindow = this;
    PathManager::setProjectDirectory(&lifecycle->directory());
    PathManager::setGraphicsFolderHook(ProjectData::graphicsFolder);
    // Every extendable field takes a dynamic value through its kind 0.
    VelmoTextInputExtend::install(lifecycle->data());
    // The component dialogs open and show dynamic texts and numbers through these.
    DynamicValueSelector::install(lifecycle->data());
    // Every opener of conditions runs the condition list and shows its text.
    RMConditionList::install(lifecycle->data());
    // The property animations choose and show their run type through these.
    VelmoAnimationStyle::install(lifecycle->data());
    // The font picker shows the game's fonts as the text component draws them.
    BasicFontSelector::setFontLoader(PathManager::fontFamilyOf);
    ProjectFonts::setFolderHook([this]() {
        return lifecycle->isOpen() ? lifecycle->directory().absoluteFilePath(QStringLiteral("fonts")) : QString();
    });
    // Pictures, faces and the system images come from the open project.
    ProjectImages::setPathHook([this](int kind, const QString& name) {
        return lifecycle->isOpen() ? PathManager::graphicsFile(PathManager::GraphicsType(kind),
                                                               name + QStringLiteral(".png"), lifecycle->directory())
                                   : QString();
    });

    huds->setup();
    connect(huds, &HudListController::changed, lifecycle, &ProjectLifecycle::markChanged);
    setupComponentList();
    form.statusLabel->installEventFilter(this);
    huds->setScreenSize(QSize(ProjectData::DefaultScreenWidth, ProjectData::DefaultScreenHeight));
    form.editor->editorScene()->setTile(QImage(PathManager::resourcePath("resources/Editor/Tile.png")));

    titleBar = new VelmoMainTitleBar(windowStyle, nativeMenuBar, this);
    setMenuWidget(titleBar);
    setTitleBar(titleBar);
    for (QWidget* caption : titleBar->captionWidgets())
        addCaptionWidget(caption);
    if (windowStyle != Native) {
        connect(titleBar->minimizeButton(), &QPushButton::clicked, this, &VelmoMainWindow::minimizeWindow);
        connect(titleBar->maximizeButton(), &QPushButton::clicked, this, &VelmoMainWindow::maximizeWindow);
        connect(titleBar->closeButton(), &QPushButton::clicked, this, &VelmoMainWindow::closeWindow);
        connect(titleBar->systemMenuButton(), &QPushButton::clicked, this, &VelmoMainWindow::showSystemMenu);
    }
    commands = new MainWindowCommands(this, titleBar);
    connect(commands, &MainWindowCommands::unavailableCommand, lifecycle, &ProjectLifecycle::setNotice);

    form.editor->editorScene()->setUndoCallback([this](int undo, int redo) { whenUndoStateChanged(undo, redo); });
    form.editor->setZoomCallback([this](int in, int out) { whenZoomStateChanged(in, out); });
    connect(lifecycle, &ProjectLifecycle::stateChanged, this, &VelmoMainWindow::updateCommandStates);
    QMetaObject::connectSlotsByName(this);

    WindowPlacement::restore(this);
    lifecycle->openStartProject();
    addSystemMenuEntry(9, QStringLiteral("OSV was here ;)"), VelmoMainTitleBar::systemMenuMark());
    connect(this, &CFramelessWindow::systemActionCalled, this, &VelmoMainWindow::SystemCall);
}

VelmoMainWindow::~VelmoMainWindow()
{
    // The canvas outlives this body (the widgets go with the base class) and
    // reports its undo and zoom state as it empties: nothing of that may
    // reach a window that is no longer whole.
    form.editor->editorScene()->setUndoCallback(nullptr);
    form.editor->setZoomCallback(nullptr);
    lifecycle->disconnect(this);
    huds->disconnect();
    // Rows own their HUD objects; free them before the widgets go.
    form.hudList->blockSignals(true);
    form.hudList->tree()->clear();
    // The game ends with the editor; its end must not reach a window half gone.
    if (gameProcess)
        gameProcess->disconnect(this);
    if (theMainWindow == this)
        theMainWindow = nullptr;
    if (PathManager::projectDirectory() == &lifecycle->directory()) {
        PathManager::setProjectDirectory(nullptr);
        PathManager::setGraphicsFolderHook(nullptr);
        ProjectFonts::setFolderHook(nullptr);
        ProjectImages::setPathHook(nullptr);
        // The dynamic input reads this window's project data, which goes with it.
        VelmoTextInputExtend::install(nullptr);
        DynamicValueSelector::install(nullptr);
        RMConditionList::install(nullptr);
        VelmoAnimationStyle::install(nullptr);
    }
}

void VelmoMainWindow::setupComponentList()
{
    UltimateTree* tree = form.componentList->tree();
    form.componentList->setClipboardId(ClipboardIdentifiers::Component);
    tree->setColumnCount(1);
    tree->setRowHeight(20);
    tree->setTextOffset(4);
    tree->setRelocationEnabled(true);
    tree->setKeepSelectionLook(true);
    tree->startView();

    GameUIEditor* editor = form.editor;
    editor->setup(new GameUIEditorSceneHelper<VelmoUISelector>(), lifecycle->data());
    editor->bindList(form.componentList, form.addComponentButton, form.removeComponentButton);
    connect(form.addComponentButton, &QPushButton::clicked, editor, &GameUIEditor::createACenteredComponent);
    connect(form.removeComponentButton, &QPushButton::clicked, editor, &GameUIEditor::deleteAComponent);
    // Arrow-key moves leave no undo step, yet they are unsaved work.
    connect(editor->editorScene(), &GameUIEditorScene::changedWithoutUndo, lifecycle, &ProjectLifecycle::markChanged);
    connect(form.hintComponentButton, &QPushButton::clicked, this, &VelmoMainWindow::ShowHintForComponentList);
}

void VelmoMainWindow::whenUndoStateChanged(int undo, int redo)
{
    mirrorState(undo, canUndo);
    mirrorState(redo, canRedo);
    commands->applyUndo(commandState());
    // A step done, undone or redone: unsaved unless back where it was saved.
    if (undo == 1 || redo == 1 || undo == 2 || redo == 2)
        lifecycle->undoPositionChanged();
}

void VelmoMainWindow::whenZoomStateChanged(int in, int out)
{
    mirrorState(in, canZoomIn);
    mirrorState(out, canZoomOut);
    commands->applyZoom(commandState());
}

void VelmoMainWindow::createHUD()
{
    huds->createFromMenu();
}

void VelmoMainWindow::editHUD()
{
    huds->editFromMenu();
}

void VelmoMainWindow::deleteHUD()
{
    huds->deleteCurrent();
}

void VelmoMainWindow::on_hudList_customContextMenuRequested(const QPoint& pos)
{
    huds->showContextMenu(pos);
}

void VelmoMainWindow::on_addHudButton_clicked()
{
    if (huds->createOrEdit(nullptr))
        lifecycle->markChanged();
}

void VelmoMainWindow::on_hudList_itemDoubleClicked(UltimateTreeItem* item, int)
{
    if (!item)
        return;
    if (huds->createOrEdit(item))
        lifecycle->markChanged();
    huds->refreshBackground();
}

void VelmoMainWindow::on_removeHudButton_clicked()
{
    huds->deleteCurrent();
}

void VelmoMainWindow::on_hudList_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem* previous)
{
    // Loading another HUD into the canvas is no edit.
    const bool wasChanged = lifecycle->isChanged();
    huds->switchHud(current, previous);
    lifecycle->keepChangedState(wasChanged);
}

void VelmoMainWindow::on_openRMProject_clicked()
{
    OpenProject();
}

void VelmoMainWindow::OpenProject()
{
    lifecycle->chooseAndOpen();
}

void VelmoMainWindow::ReloadProject()
{
    lifecycle->reload();
}

void VelmoMainWindow::SaveProject()
{
    lifecycle->save();
}

void VelmoMainWindow::CloseProject()
{
    lifecycle->close();
}

void VelmoMainWindow::closeEvent(QCloseEvent* event)
{
    if (lifecycle->closeApplication())
        event->accept();
    else
        event->ignore();
}

void VelmoMainWindow::closeWindow()
{
    close();
}

void VelmoMainWindow::maximizeWindow()
{
    WindowFrameGrip::toggleMaximized(this);
    QTimer::singleShot(1, this, &VelmoMainWindow::refreshScene);
}

void VelmoMainWindow::minimizeWindow()
{
    showMinimized();
}

void VelmoMainWindow::showSystemMenu()
{
    CFramelessWindow::showSystemMenu();
}

MainWindowCommands::State VelmoMainWindow::commandState() const
{
    MainWindowCommands::State state;
    state.projectOpen = lifecycle->isOpen();
    state.canUndo = canUndo;
    state.canRedo = canRedo;
    state.canZoomIn = canZoomIn;
    state.canZoomOut = canZoomOut;
    state.gameRunning = gameProcess != nullptr;
    state.runBlocker = lifecycle->locationProblem();
    return state;
}

void VelmoMainWindow::updateCommandStates()
{
    const bool open = lifecycle->isOpen();
    const bool changed = lifecycle->isChanged();
    form.pages->setCurrentWidget(open ? form.mainWidget : form.noProjectPage);
    commands->apply(commandState());

    QString status;
    if (open) {
        const QSize screen = lifecycle->screenSize();
        status = QStringLiteral("%1  \u2014  %2 \u00d7 %3")
                     .arg(QDir::toNativeSeparators(lifecycle->directory().absolutePath()))
                     .arg(screen.width())
                     .arg(screen.height());
        if (changed)
            status += QStringLiteral("  \u2014  ") + tr("Unsaved changes");
    }
    // What went wrong comes first, where it is read before the label runs out.
    const QString notice = lifecycle->notice();
    if (!notice.isEmpty())
        status = status.isEmpty() ? notice : notice + QStringLiteral("  \u2014  ") + status;
    form.statusLabel->setText(status);
    // The strip holds one line: a long notice is read whole on hover (the
    // program's own tool-tip) and on a click.
    form.statusLabel->setProperty("mtt_title", notice.isEmpty() ? QVariant() : QVariant(tr("Status")));
    form.statusLabel->setProperty("mtt_desc", notice);
    form.statusLabel->setCursor(notice.isEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);

    // RPG Maker names a project by its game's title.
    QString name = lifecycle->data()->value(QStringLiteral("System.json")).toObject()
                       .value(QStringLiteral("gameTitle")).toString().trimmed();
    if (name.isEmpty())
        name = lifecycle->directory().dirName();
    setWindowTitle(open ? QStringLiteral("%1[*] \u2014 %2").arg(name, tr("Velmora")) : tr("Velmora"));
    setWindowModified(open && changed);
    titleBar->update();
}

bool VelmoMainWindow::acceptsProjectDrop(const QMimeData* mime)
{
    if (!mime || !mime->hasUrls() || mime->urls().isEmpty())
        return false;
    // The suffix must be exactly this word: the comparison is case-sensitive.
    return QFileInfo(mime->urls().first().toLocalFile()).suffix() == QLatin1String("rmmzproject");
}

void VelmoMainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (acceptsProjectDrop(event->mimeData()))
        event->acceptProposedAction();
}

void VelmoMainWindow::dropEvent(QDropEvent* event)
{
    if (!acceptsProjectDrop(event->mimeData()))
        return;
    event->acceptProposedAction();
    lifecycle->openDropped(event->mimeData()->urls().first().toLocalFile());
}

bool VelmoMainWindow::eventFilter(QObject* watched, QEvent* event)
{
    // The program's own tooltip and drop-down rules hold in every window.
    if (UltimateToolTip::filterEvent(watched, event))
        return true;
    MyPopup::closeOnOutsidePress(event);
    // A blank cursor of a canvas drag that never saw its release (a dialog
    // came up in between) must not hide the pointer for good.
    if (event->type() == QEvent::CursorChange && QApplication::overrideCursor()
        && QApplication::overrideCursor()->shape() == Qt::BlankCursor
        && !(QApplication::mouseButtons() & Qt::LeftButton))
        QApplication::restoreOverrideCursor();
    if (watched == form.statusLabel && event->type() == QEvent::MouseButtonRelease) {
        showWholeNotice();
        return true;
    }
    QWidget* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget == this || widget->window() != this)
        return QMainWindow::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        QDragMoveEvent* drag = static_cast<QDragMoveEvent*>(event);
        if (acceptsProjectDrop(drag->mimeData())) {
            drag->acceptProposedAction();
            return true;
        }
        break;
    }
    case QEvent::Drop:
        if (acceptsProjectDrop(static_cast<QDropEvent*>(event)->mimeData())) {
            dropEvent(static_cast<QDropEvent*>(event));
            return true;
        }
        break;
    default:
        break;
    }
    return QMainWindow::eventFilter(watched, event);
}

void VelmoMainWindow::showWholeNotice()
{
    const QString notice = lifecycle->notice();
    if (notice.isEmpty())
        return;
    AlertDialog dialog(notice.toHtmlEscaped(), tr("Status"), this);
    dialog.label()->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    dialog.exec();
}

void VelmoMainWindow::InstallInMZ()
{
    // Putting the plugin into a game project is the user's own step.
}

void VelmoMainWindow::Undo()
{
    form.editor->editorScene()->undo();
}

void VelmoMainWindow::Redo()
{
    form.editor->editorScene()->redo();
}

void VelmoMainWindow::ZoomIn()
{
    form.editor->zoomIn();
}

void VelmoMainWindow::ZoomOut()
{
    form.editor->zoomOut();
}

void VelmoMainWindow::FitToView()
{
    form.editor->fitZoom();
}

void VelmoMainWindow::OpenSettings()
{
    if (!lifecycle->isOpen())
        return;
    double percent = form.editor->editorScene()->darkness() * 100.0;
    bool confirmed = false;
    runDimmed([&]() {
        VelmoSettings dialog(&percent, &confirmed, this);
        dialog.exec();
    });
    if (!confirmed)
        return;
    form.editor->editorScene()->setDarkness(percent / 100.0);
    refreshScene();
    lifecycle->markChanged();
}

void VelmoMainWindow::About()
{
    runDimmed([this]() {
        VelmoAbout dialog(this);
        dialog.exec();
    });
}

void VelmoMainWindow::ShowHintForComponentList()
{
    runDimmed([this]() {
        VelmoComponentListHelp dialog(this);
        dialog.exec();
    });
}

void VelmoMainWindow::runDimmed(const std::function<void()>& run)
{
    // The window dims under the dialogs its commands open, as it does under
    // the canvas's, when the user has dialog darkening on.
    OwnerDimming::dim(this);
    run();
    OwnerDimming::undim(this);
}

void VelmoMainWindow::OpenTutorials()
{
    QDesktopServices::openUrl(QUrl(QStringLiteral("https://github.com/ostrel-vane/velmora/wiki")));
}

void VelmoMainWindow::OpenDownloads()
{
    QDesktopServices::openUrl(QUrl(QStringLiteral("https://github.com/ostrel-vane/velmora/releases")));
}

void VelmoMainWindow::SystemCall(int id)
{
    if (id == 9)
        VelmoEasterEggGame::reach(this, QApplication::keyboardModifiers() & Qt::ControlModifier);
}

void VelmoMainWindow::refreshScene()
{
    form.editor->editorScene()->update();
    form.editor->viewport()->update();
}

void VelmoMainWindow::followWindowState()
{
    if (titleBar)
        titleBar->setMaximizedState(isMaximized());
    form.bottomRightResizer->setVisible(!isMaximized() && windowStyle != Native);
    closeDropDown();
}

void VelmoMainWindow::resizeEvent(QResizeEvent* event)
{
    CFramelessWindow::resizeEvent(event);
    closeDropDown();
    refreshScene();
}

void VelmoMainWindow::moveEvent(QMoveEvent* event)
{
    CFramelessWindow::moveEvent(event);
    followWindowState();
}

void VelmoMainWindow::changeEvent(QEvent* event)
{
    CFramelessWindow::changeEvent(event);
    switch (event->type()) {
    case QEvent::WindowStateChange:
        followWindowState();
        QTimer::singleShot(1, this, &VelmoMainWindow::refreshScene);
        break;
    case QEvent::ActivationChange:
        if (!isActiveWindow())
            lastDeactivation = QDateTime::currentSecsSinceEpoch();
        // The frame's colour follows the activation.
        update();
        break;
    default:
        QTimer::singleShot(1, this, &VelmoMainWindow::refreshScene);
        break;
    }
}

const QProcess* VelmoMainWindow::runningGame() const
{
    return gameProcess;
}

void VelmoMainWindow::RunGame()
{
    const int outcome = lifecycle->askToSave(tr("Would you like to save before playing the game?"));
    if (outcome == 2)
        return;
    // The command is off in these cases; this only guards a race with the hooks.
    if (gameProcess || !lifecycle->isOpen() || lifecycle->editorLocation().isEmpty())
        return;
    // A save that failed would run the game on what the file held before.
    if (!lifecycle->saveIfAsked(outcome))
        return;
    gameProcess = new GameProcess(this);
    connect(gameProcess, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &VelmoMainWindow::GameProcessEnd);
    connect(gameProcess, &QProcess::errorOccurred, this, &VelmoMainWindow::whenGameFailed);
    gameProcess->startGame(lifecycle->editorLocation(), lifecycle->directory());
    updateCommandStates();
}

void VelmoMainWindow::StopGame()
{
    if (!gameProcess)
        return;
    // No polite ending: the game goes at once, and its end is no news.
    gameProcess->disconnect(this);
    gameProcess->stopGame();
    gameProcess->deleteLater();
    gameProcess = nullptr;
    updateCommandStates();
}

void VelmoMainWindow::GameProcessEnd(int, QProcess::ExitStatus)
{
    if (!gameProcess || sender() != gameProcess)
        return;
    gameProcess->deleteLater();
    gameProcess = nullptr;
    updateCommandStates();
}

void VelmoMainWindow::whenGameFailed(QProcess::ProcessError error)
{
    // A game that crashes still ends through finished(); one that never
    // started would otherwise keep Run off for good.
    if (!gameProcess || sender() != gameProcess || error != QProcess::FailedToStart)
        return;
    const QString notice = tr("The game couldn't be started: %1")
                               .arg(QStringLiteral("%1 (%2)").arg(QDir::toNativeSeparators(gameProcess->program()),
                                                                  gameProcess->errorString()));
    gameProcess->disconnect(this);
    gameProcess->deleteLater();
    gameProcess = nullptr;
    lifecycle->setNotice(notice);
}

void VelmoMainWindow::OpenProjectDirectory()
{
    if (!lifecycle->isOpen())
        return;
    const QString folder = lifecycle->directory().absolutePath();
    FolderOpener::open(folder, this, [this, folder]() {
        AlertDialog dialog(tr("No file manager could be started to show the project folder. "
                              "Its path, to copy:")
                               + QStringLiteral("<br><br>") + QDir::toNativeSeparators(folder).toHtmlEscaped(),
                           tr("Show Project in Explorer"), this);
        dialog.label()->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        dialog.exec();
    });
}
