#include "app/VelmoMainWindow.h"

#include "app/DocumentWatcher.h"
#include "app/GameRunner.h"
#include "app/HudDocument.h"
#include "app/JsonFile.h"
#include "app/PathManager.h"
#include "app/ProjectData.h"
#include "app/RecoveryFile.h"
#include "app/SettingsStore.h"
#include "app/Startup.h"
#include "app/VelmoControls.h"
#include "app/VelmoHUDDialog.h"
#include "app/VelmoMainTitleBar.h"
#include "components/GameUIEditorSceneHelper.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "widgets/AlertDialog.h"
#include "widgets/BRResizerRenderer.h"
#include "widgets/ClipboardIdentifiers.h"
#include "widgets/MyPopup.h"
#include "widgets/MyTabSystem.h"
#include "widgets/ConfirmationDialog.h"
#include "widgets/TitleBarButtons.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"
#include "widgets/UltimateToolTip.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QStackedLayout>
#include <QScreen>
#include <QStandardPaths>
#include <QStyle>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

namespace {

VelmoMainWindow* theMainWindow = nullptr;

// How often unsaved work goes to the recovery file.
constexpr int AutosaveInterval = 2 * 60 * 1000;

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

// The small round mark of the program's own entry in the window menu.
QIcon systemMenuMark()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient gradient(0, 6, 0, 10);
    gradient.setColorAt(0, QColor(0x7d, 0x7d, 0x7d));
    gradient.setColorAt(1, Qt::black);
    painter.setBrush(gradient);
    painter.setPen(QPen(QBrush(gradient), 1));
    painter.drawEllipse(QRectF(6, 6, 4, 4));
    return QIcon(pixmap);
}

}

VelmoMainWindow* VelmoMainWindow::instance()
{
    return theMainWindow;
}

VelmoMainWindow::VelmoMainWindow(int windowStyle, bool nativeMenuBar, const QString& theme,
                                 const QString& language, QWidget* parent)
    : CFramelessWindow(windowStyle, parent), windowStyle(windowStyle), nativeMenuBar(nativeMenuBar), theme(theme),
      language(language), screenWidth(ProjectData::DefaultScreenWidth),
      screenHeight(ProjectData::DefaultScreenHeight)
{
    buildForm();
    setWindowTitle(tr("Velmora"));
    setWindowIcon(QIcon(QStringLiteral(":/Icon.png")));
    setAcceptDrops(true);

    theMainWindow = this;
    PathManager::setProjectDirectory(&projectDirectory);
    PathManager::setGraphicsFolderHook(ProjectData::graphicsFolder);

    setupHudList();
    setupComponentList();
    editor->editorScene()->setScreenSize(screenWidth, screenHeight);
    editor->editorScene()->setTile(QImage(PathManager::resourcePath("resources/Editor/Tile.png")));

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
    connectCommands();
    titleBar->Action_Undo->setEnabled(false);
    titleBar->Action_Redo->setEnabled(false);

    editor->editorScene()->setUndoCallback([this](int undo, int redo) { whenUndoStateChanged(undo, redo); });
    editor->setZoomCallback([this](int in, int out) { whenZoomStateChanged(in, out); });

    documentWatcher = new DocumentWatcher(this);
    connect(documentWatcher, &DocumentWatcher::changedOnDisk, this, &VelmoMainWindow::whenDocumentChangedOnDisk);
    autosaveTimer = new QTimer(this);
    autosaveTimer->setInterval(AutosaveInterval);
    connect(autosaveTimer, &QTimer::timeout, this, &VelmoMainWindow::writeRecovery);
    autosaveTimer->start();
    QMetaObject::connectSlotsByName(this);

    openStartProject();
    buildHudMenu();
    addSystemMenuEntry(9, QStringLiteral("OSV was here ;)"), systemMenuMark());
    connect(this, &CFramelessWindow::systemActionCalled, this, &VelmoMainWindow::SystemCall);
}

VelmoMainWindow::~VelmoMainWindow()
{
    // Rows own their HUD objects; free them before the widgets go.
    hudList->blockSignals(true);
    hudList->tree()->clear();
    // The game ends with the editor; its end must not reach a window half gone.
    if (gameProcess)
        gameProcess->disconnect(this);
    if (theMainWindow == this)
        theMainWindow = nullptr;
    if (PathManager::projectDirectory() == &projectDirectory) {
        PathManager::setProjectDirectory(nullptr);
        PathManager::setGraphicsFolderHook(nullptr);
    }
}

void VelmoMainWindow::buildForm()
{
    QWidget* centralwidget = new QWidget(this);
    centralwidget->setObjectName(QStringLiteral("centralwidget"));
    QVBoxLayout* centralLayout = new QVBoxLayout(centralwidget);
    centralLayout->setContentsMargins(0, 0, 0, 0);
    centralLayout->setSpacing(0);

    QWidget* widget = new QWidget(centralwidget);
    widget->setObjectName(QStringLiteral("widget"));
    pages = new QStackedLayout(widget);

    // The page shown while no project is open.
    noProjectPage = new QWidget(widget);
    noProjectPage->setObjectName(QStringLiteral("NoProjectPage"));
    QVBoxLayout* noProjectLayout = new QVBoxLayout(noProjectPage);
    QFrame* insertFrame = new QFrame(noProjectPage);
    insertFrame->setObjectName(QStringLiteral("insertFrame"));
    insertFrame->setFrameShape(QFrame::StyledPanel);
    insertFrame->setMinimumSize(360, 160);
    QVBoxLayout* frameLayout = new QVBoxLayout(insertFrame);
    QLabel* hint = new QLabel(tr("Open a project, or drop its \".rmmzproject\" file here."), insertFrame);
    hint->setAlignment(Qt::AlignCenter);
    openRMProject = new QPushButton(insertFrame);
    openRMProject->setObjectName(QStringLiteral("openRMProject"));
    openRMProject->setText(tr("Open RPG Maker MZ Project"));
    openRMProject->setMinimumHeight(36);
    frameLayout->addStretch();
    frameLayout->addWidget(openRMProject);
    frameLayout->addWidget(hint);
    frameLayout->addStretch();
    noProjectLayout->addStretch();
    QHBoxLayout* centreRow = new QHBoxLayout();
    centreRow->addStretch();
    centreRow->addWidget(insertFrame);
    centreRow->addStretch();
    noProjectLayout->addLayout(centreRow);
    noProjectLayout->addStretch();
    pages->addWidget(noProjectPage);

    // The editor page: the canvas on the left, the lists in tabs on the right.
    mainWidget = new QWidget(widget);
    mainWidget->setObjectName(QStringLiteral("mainWidget"));
    QHBoxLayout* mainLayout = new QHBoxLayout(mainWidget);
    mainLayout->setContentsMargins(6, 6, 6, 0);
    mainLayout->setSpacing(6);

    QWidget* hudEditor = new QWidget(mainWidget);
    hudEditor->setObjectName(QStringLiteral("hudEditor"));
    QVBoxLayout* hudEditorLayout = new QVBoxLayout(hudEditor);
    hudEditorLayout->setContentsMargins(0, 0, 0, 0);
    QGroupBox* groupBox = new QGroupBox(tr("HUD Editor"), hudEditor);
    groupBox->setObjectName(QStringLiteral("groupBox"));
    QVBoxLayout* groupLayout = new QVBoxLayout(groupBox);
    editor = new GameUIEditor(groupBox);
    editor->setObjectName(QStringLiteral("editor"));
    groupLayout->addWidget(editor);
    hudEditorLayout->addWidget(groupBox);
    mainLayout->addWidget(hudEditor, 1);

    tabs = new MyTabSystem(mainWidget);
    tabs->setObjectName(QStringLiteral("tabs"));
    tabs->setMaximumWidth(300);
    tabs->setMinimumWidth(230);
    mainLayout->addWidget(tabs);

    QWidget* ComponentListTab = new QWidget();
    ComponentListTab->setObjectName(QStringLiteral("ComponentListTab"));
    QVBoxLayout* tabLayout = new QVBoxLayout(ComponentListTab);
    tabLayout->setContentsMargins(0, 4, 0, 0);
    QWidget* listHolder = new QWidget(ComponentListTab);
    listHolder->setObjectName(QStringLiteral("listHolder"));
    QVBoxLayout* holderLayout = new QVBoxLayout(listHolder);
    holderLayout->setContentsMargins(0, 0, 0, 0);
    tabLayout->addWidget(listHolder);

    // One header of a list: its title and its small buttons.
    auto listHeader = [](QWidget* container, const char* name, const char* labelName, const QString& title) {
        QWidget* header = new QWidget(container);
        header->setObjectName(QLatin1String(name));
        QHBoxLayout* layout = new QHBoxLayout(header);
        layout->setContentsMargins(4, 2, 2, 2);
        layout->setSpacing(2);
        QLabel* label = new QLabel(QStringLiteral("<b>%1</b>").arg(title), header);
        label->setObjectName(QLatin1String(labelName));
        layout->addWidget(label, 1);
        return header;
    };
    auto headerButton = [](QWidget* header, const char* name, const char* icon, const QString& tip) {
        QPushButton* button = new QPushButton(header);
        button->setObjectName(QLatin1String(name));
        button->setIcon(QIcon(QStringLiteral(":/resources/ButtonIcons/%1.png").arg(QLatin1String(icon))));
        button->setIconSize(QSize(12, 12));
        button->setFlat(true);
        button->setFixedSize(18, 18);
        button->setFocusPolicy(Qt::NoFocus);
        button->setToolTip(tip);
        header->layout()->addWidget(button);
        return button;
    };

    QWidget* hudContainer = new QWidget(listHolder);
    hudContainer->setObjectName(QStringLiteral("hudContainer"));
    QVBoxLayout* hudLayout = new QVBoxLayout(hudContainer);
    hudLayout->setContentsMargins(0, 0, 0, 0);
    hudLayout->setSpacing(2);
    QWidget* hudHeader = listHeader(hudContainer, "listHeader_3", "hudListHeader", tr("HUD List"));
    addHudButton = headerButton(hudHeader, "addHudButton", "Add", tr("Add New HUD"));
    removeHudButton = headerButton(hudHeader, "removeHudButton", "Remove", tr("Delete HUD"));
    removeHudButton->setEnabled(false);
    hudLayout->addWidget(hudHeader);
    hudList = new UltimateTreeWidget(hudContainer);
    hudList->setObjectName(QStringLiteral("hudList"));
    hudLayout->addWidget(hudList, 1);
    holderLayout->addWidget(hudContainer, 1);

    QWidget* componentContainer = new QWidget(listHolder);
    componentContainer->setObjectName(QStringLiteral("componentContainer"));
    QVBoxLayout* componentLayout = new QVBoxLayout(componentContainer);
    componentLayout->setContentsMargins(0, 0, 0, 0);
    componentLayout->setSpacing(2);
    QWidget* componentHeader =
        listHeader(componentContainer, "listHeader_2", "componentListHeader", tr("Component List"));
    addComponentButton = headerButton(componentHeader, "addComponentButton", "Add", tr("Add New Component"));
    removeComponentButton = headerButton(componentHeader, "removeComponentButton", "Remove", tr("Delete Component"));
    removeComponentButton->setEnabled(false);
    hintComponentButton = headerButton(componentHeader, "hintComponentButton", "Hint", tr("Component List Help"));
    componentLayout->addWidget(componentHeader);
    componentList = new UltimateTreeWidget(componentContainer);
    componentList->setObjectName(QStringLiteral("componentList"));
    componentLayout->addWidget(componentList, 1);
    holderLayout->addWidget(componentContainer, 2);

    tabs->addTab(tr("Components"), ComponentListTab);
    tabs->addTab(tr("Controls"), new VelmoControls());
    tabs->setCurrentIndex(0, true, true);
    pages->addWidget(mainWidget);

    // The bottom strip.
    QWidget* widget_2 = new QWidget(centralwidget);
    widget_2->setObjectName(QStringLiteral("widget_2"));
    widget_2->setMaximumHeight(23);
    widget_2->setMinimumHeight(23);
    QHBoxLayout* stripLayout = new QHBoxLayout(widget_2);
    stripLayout->setContentsMargins(8, 0, 0, 0);
    statusLabel = new QLabel(widget_2);
    statusLabel->setObjectName(QStringLiteral("statusText"));
    // A long notice must never widen the window; the whole text is in its tool-tip.
    statusLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    stripLayout->addWidget(statusLabel, 1);
    bottomRightResizer = new BRResizerRenderer(widget_2);
    bottomRightResizer->setObjectName(QStringLiteral("bottomRightResizer"));
    bottomRightResizer->setFixedSize(21, 21);
    stripLayout->addWidget(bottomRightResizer, 0, Qt::AlignRight | Qt::AlignBottom);

    centralLayout->addWidget(widget, 1);
    centralLayout->addWidget(widget_2);
    setCentralWidget(centralwidget);
}

void VelmoMainWindow::setupHudList()
{
    UltimateTree* tree = hudList->tree();
    hudList->setClipboardId(ClipboardIdentifiers::Hud);
    tree->setColumnCount(2);
    tree->setColumnWidth(0, 18);
    tree->setColumnAlignment(0, Qt::AlignHCenter);
    tree->setRowHeight(20);
    tree->setTextOffset(4);
    tree->setRelocationEnabled(true);
    // The HUD being edited stays marked while the user works on the canvas.
    tree->setKeepSelectionLook(true);
    tree->setRowDeleter([](UltimateTreeItem* row) { delete row->userData(); });
    hudList->connectClipboardKeys();
    hudList->setListFunctions(
        [](QJsonObject* object) {
            const QString name = object->value(HudDocument::KeyName).toString();
            return name.isEmpty() ? tr("New HUD") : name;
        },
        [this](UltimateTreeItem* row, QJsonObject* object) {
            preparePastedHud(object);
            row->setId(HudEntry::Custom);
            fillHudRow(row);
            markChanged();
        });
    // A copy takes the components as the canvas shows them now.
    hudList->setCopyHook([this](UltimateTreeItem*) { storeSceneIntoCurrentHud(); });
    // The Map and Battle HUDs can't be copied, cut or deleted.
    hudList->setCopyCheck([](UltimateTreeItem* row) { return row->id() == HudEntry::Custom; });
    hudList->setDeleteCheck([this](UltimateTreeItem* row) {
        if (row->id() != HudEntry::Custom)
            return false;
        markChanged();
        return true;
    });
    tree->startView();

    // currentItemChanged and customContextMenuRequested reach their
    // on_hudList_ slots by name.
    connect(hudList, &UltimateTreeWidget::onDeleteKeyPress, this, [this]() {
        if (currentHud() && currentHud()->id() == HudEntry::Custom)
            deleteHUD();
    });
    // A new order of HUDs is saved work like any other.
    connect(hudList, &UltimateTreeWidget::itemRelocated, this, &VelmoMainWindow::markChanged);
}

void VelmoMainWindow::setupComponentList()
{
    UltimateTree* tree = componentList->tree();
    componentList->setClipboardId(ClipboardIdentifiers::Component);
    tree->setColumnCount(1);
    tree->setRowHeight(20);
    tree->setTextOffset(4);
    tree->setRelocationEnabled(true);
    tree->setKeepSelectionLook(true);
    tree->startView();

    editor->setup(new GameUIEditorSceneHelper<VelmoUISelector>(), &projectData);
    editor->bindList(componentList, addComponentButton, removeComponentButton);
    connect(addComponentButton, &QPushButton::clicked, editor, &GameUIEditor::createACenteredComponent);
    connect(removeComponentButton, &QPushButton::clicked, editor, &GameUIEditor::deleteAComponent);
    // Arrow-key moves leave no undo step, yet they are unsaved work.
    connect(editor->editorScene(), &GameUIEditorScene::changedWithoutUndo, this, &VelmoMainWindow::markChanged);
    connect(hintComponentButton, &QPushButton::clicked, this, &VelmoMainWindow::ShowHintForComponentList);
}

void VelmoMainWindow::buildHudMenu()
{
    hudMenu = new QMenu(this);
    hudMenu->setObjectName(QStringLiteral("hudMenu"));
    QAction* add = hudMenu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Add.png")), tr("Add New HUD"));
    connect(add, &QAction::triggered, this, &VelmoMainWindow::createHUD);
    actionEditHud = hudMenu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Edit.png")), tr("Edit HUD"));
    connect(actionEditHud, &QAction::triggered, this, &VelmoMainWindow::editHUD);
    actionDeleteHud = hudMenu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Remove.png")), tr("Delete HUD"));
    connect(actionDeleteHud, &QAction::triggered, this, &VelmoMainWindow::deleteHUD);
    hudList->setupContextActions(hudMenu, QT_TR_NOOP("Copy HUD"), QT_TR_NOOP("Cut HUD"), QT_TR_NOOP("Paste"));
}

void VelmoMainWindow::whenUndoStateChanged(int undo, int redo)
{
    mirrorState(undo, canUndo);
    mirrorState(redo, canRedo);
    titleBar->Action_Undo->setEnabled(isProjectOpen && canUndo);
    titleBar->Action_Redo->setEnabled(isProjectOpen && canRedo);
    // Every step that can be undone or redone is an unsaved change.
    if (undo == 1 || redo == 1)
        markChanged();
}

void VelmoMainWindow::whenZoomStateChanged(int in, int out)
{
    mirrorState(in, canZoomIn);
    mirrorState(out, canZoomOut);
    titleBar->Action_ZoomIn->setEnabled(isProjectOpen && canZoomIn);
    titleBar->Action_ZoomOut->setEnabled(isProjectOpen && canZoomOut);
}

void VelmoMainWindow::fillHudRow(UltimateTreeItem* row)
{
    const QJsonObject& object = *row->userData();
    row->setText(0, HudDocument::marker(object));
    row->setText(1, HudDocument::displayName(row->id(), object));
    row->setItalic(1, row->id() != HudEntry::Custom);
}

QVector<HudEntry> VelmoMainWindow::hudEntries() const
{
    QVector<HudEntry> entries;
    const UltimateTree* tree = hudList->tree();
    entries.reserve(tree->rowCount());
    for (int i = 0; i < tree->rowCount(); ++i)
        entries.append(HudEntry{tree->row(i)->id(), *tree->row(i)->userData()});
    return entries;
}

void VelmoMainWindow::preparePastedHud(QJsonObject* object)
{
    object->insert(HudDocument::KeyId, HudDocument::newIdentifier(HudDocument::identifiers(hudEntries())));
    if (!object->contains(HudDocument::KeyName))
        object->insert(HudDocument::KeyName, tr("New HUD"));
    if (!object->contains(HudDocument::KeyIsHud))
        object->insert(HudDocument::KeyIsHud, true);
}

void VelmoMainWindow::on_hudList_customContextMenuRequested(const QPoint& pos)
{
    UltimateTreeItem* current = hudList->tree()->currentRow();
    const bool custom = current && current->id() == HudEntry::Custom;
    actionEditHud->setVisible(current != nullptr);
    actionDeleteHud->setVisible(custom);
    // Add, edit, delete, separator, copy, cut, paste: the Map and Battle HUDs
    // can't be copied or cut.
    const QList<QAction*> actions = hudMenu->actions();
    const QString name = current ? HudDocument::displayName(current->id(), *current->userData()) : QString();
    hudList->updateContextActions(actions, current, name, 4, 5, 6);
    actions.at(4)->setVisible(custom);
    actions.at(5)->setVisible(custom);
    hudList->tree()->setPopupOpen(true);
    hudMenu->popup(pos);
}

void VelmoMainWindow::createHUD()
{
    createOrEditHUD(nullptr);
    // By design the context menu's commands count as a change whatever the
    // dialog's outcome.
    markChanged();
}

void VelmoMainWindow::editHUD()
{
    createOrEditHUD(currentHud());
    markChanged();
    refreshBackground();
}

void VelmoMainWindow::on_addHudButton_clicked()
{
    if (createOrEditHUD(nullptr))
        markChanged();
}

void VelmoMainWindow::on_hudList_itemDoubleClicked(UltimateTreeItem* item, int)
{
    if (!item)
        return;
    if (createOrEditHUD(item))
        markChanged();
    refreshBackground();
}

bool VelmoMainWindow::createOrEditHUD(UltimateTreeItem* item)
{
    QJsonObject object;
    if (item)
        object = *item->userData();
    else
        object.insert(HudDocument::KeyId, HudDocument::newIdentifier(HudDocument::identifiers(hudEntries())));
    if (item == currentHud())
        storeSceneIntoCurrentHud();
    if (item)
        object.insert(HudDocument::KeyHud, item->userData()->value(HudDocument::KeyHud));
    bool confirmed = false;
    VelmoHUDDialog dialog(&object, &confirmed, item ? item->id() : HudEntry::Custom, this);
    dialog.exec();
    if (!confirmed)
        return false;

    if (item) {
        *item->userData() = object;
        if (item == currentHud())
            applyHudSize(item);
    } else {
        item = new UltimateTreeItem();
        item->setId(HudEntry::Custom);
        item->setUserData(new QJsonObject(object));
        UltimateTree* tree = hudList->tree();
        UltimateTreeItem* current = currentHud();
        if (current)
            tree->insertRowAfter(item, current);
        else
            tree->addRow(item);
        tree->setCurrentRow(item);
        hudList->ensureRowVisible(item);
    }
    fillHudRow(item);
    return true;
}

void VelmoMainWindow::applyHudSize(const UltimateTreeItem* item)
{
    const QJsonObject& object = *item->userData();
    GameUIEditorScene* scene = editor->editorScene();
    isSizedHUD = HudDocument::hasOwnSize(item->id(), object);
    if (isSizedHUD)
        scene->setScreenSize(HudDocument::ownWidth(object), HudDocument::ownHeight(object));
    else
        scene->setScreenSize(screenWidth, screenHeight);
}

void VelmoMainWindow::storeSceneIntoCurrentHud()
{
    if (UltimateTreeItem* item = currentHud())
        item->userData()->insert(HudDocument::KeyHud, editor->editorScene()->toJson());
}

void VelmoMainWindow::connectCommands()
{
    const VelmoMainTitleBar* bar = titleBar;
    connect(bar->Action_OpenProject, &QAction::triggered, this, &VelmoMainWindow::OpenProject);
    connect(bar->Action_ReloadProject, &QAction::triggered, this, &VelmoMainWindow::ReloadProject);
    connect(bar->Action_SaveProject, &QAction::triggered, this, &VelmoMainWindow::SaveProject);
    connect(bar->Action_CloseProject, &QAction::triggered, this, &VelmoMainWindow::CloseProject);
    connect(bar->Action_Undo, &QAction::triggered, this, &VelmoMainWindow::Undo);
    connect(bar->Action_Redo, &QAction::triggered, this, &VelmoMainWindow::Redo);
    connect(bar->Action_Run, &QAction::triggered, this, &VelmoMainWindow::RunGame);
    connect(bar->Action_Stop, &QAction::triggered, this, &VelmoMainWindow::StopGame);
    connect(bar->Action_ProjectExplorer, &QAction::triggered, this, &VelmoMainWindow::OpenProjectDirectory);
    connect(bar->Action_Settings, &QAction::triggered, this, &VelmoMainWindow::OpenSettings);
    connect(bar->Action_ZoomIn, &QAction::triggered, this, &VelmoMainWindow::ZoomIn);
    connect(bar->Action_ZoomOut, &QAction::triggered, this, &VelmoMainWindow::ZoomOut);
    connect(bar->Action_FitZoom, &QAction::triggered, this, &VelmoMainWindow::FitToView);
    connect(bar->Action_About, &QAction::triggered, this, &VelmoMainWindow::About);
    connect(bar->Action_Tutorial, &QAction::triggered, this, &VelmoMainWindow::OpenTutorials);
    connect(bar->Action_Update, &QAction::triggered, this, &VelmoMainWindow::OpenDownloads);
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

void VelmoMainWindow::openStartProject()
{
    SettingsStore store;
    const QList<QScreen*> screens = QGuiApplication::screens();
    QVector<QRect> available;
    for (const QScreen* screen : screens)
        available.append(screen->availableGeometry());
    if (store.contains(QStringLiteral("Geometry"))) {
        // A monitor that is gone must not take the window with it.
        setGeometry(reachableGeometry(store.value(QStringLiteral("Geometry")).toRect(), available));
    } else if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        // First start: a comfortable size in the middle of the screen.
        const QRect area = screen->availableGeometry();
        const QSize size(qMin(1280, area.width() * 9 / 10), qMin(820, area.height() * 9 / 10));
        setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, area));
    }
    if (store.value(QStringLiteral("IsMaximized")).toBool())
        setWindowState(windowState() | Qt::WindowMaximized);
    editorLocation = store.value(QStringLiteral("EditorLocation")).toString();
    if (!GameRunner::isValidLocation(editorLocation))
        editorLocation.clear();
    if (store.contains(QStringLiteral("BackgroundDarken")))
        editor->editorScene()->setDarkness(store.value(QStringLiteral("BackgroundDarken")).toDouble());

    const Startup::CommandLineProject fromArguments = Startup::projectFromArguments(QCoreApplication::arguments());
    QString project = fromArguments.folder;
    QStringList notices = fromArguments.problems;
    if (project.isEmpty()) {
        project = store.value(QStringLiteral("Project")).toString();
        if (!project.isEmpty() && !QFileInfo::exists(project))
            notices.append(tr("The last project, \"%1\", is no longer there.").arg(QDir::toNativeSeparators(project)));
    }
    openProjectAt(project);
    // At start-up nobody asked for anything yet: the status bar tells.
    if (!openReport.message.isEmpty())
        notices.append(QStringList(openReport.message) + openReport.details);
    statusNotice = notices.join(QLatin1Char(' '));
    updateCommandStates();
}

QRect VelmoMainWindow::reachableGeometry(const QRect& stored, const QVector<QRect>& screens)
{
    if (screens.isEmpty() || !stored.isValid())
        return stored;
    // The window is reachable when a good part of its top strip, where it is
    // grabbed and where its buttons are, lies on a screen.
    const QRect strip(stored.topLeft(), QSize(stored.width(), qMin(stored.height(), 32)));
    const int needed = qMin(stored.width(), 160) * strip.height();
    for (const QRect& screen : screens) {
        const QRect seen = strip.intersected(screen);
        if (seen.width() * seen.height() >= needed)
            return stored;
    }
    // Otherwise it goes whole onto the nearest screen, shrunk if it must.
    const QRect* nearest = &screens.first();
    qint64 best = -1;
    for (const QRect& screen : screens) {
        const QPoint gap = screen.center() - stored.center();
        const qint64 distance = qint64(gap.x()) * gap.x() + qint64(gap.y()) * gap.y();
        if (best < 0 || distance < best) {
            best = distance;
            nearest = &screen;
        }
    }
    QRect placed(stored.topLeft(), stored.size().boundedTo(nearest->size()));
    placed.moveLeft(qBound(nearest->left(), placed.left(), nearest->right() - placed.width() + 1));
    placed.moveTop(qBound(nearest->top(), placed.top(), nearest->bottom() - placed.height() + 1));
    return placed;
}

void VelmoMainWindow::openProjectAt(const QString& path)
{
    openReport = OpenReport();
    statusNotice.clear();
    // The open project is left on purpose: its unsaved work was settled.
    if (isProjectOpen)
        RecoveryFile::remove(projectDirectory);
    documentWatcher->stop();
    if (path.isEmpty() || !QFileInfo::exists(path)) {
        projectData = QJsonObject();
        projectDirectory = QDir();
        isProjectOpen = false;
        if (!path.isEmpty()) {
            openReport.title = tr("Open Error");
            openReport.message = tr("\"%1\" doesn't exist.").arg(QDir::toNativeSeparators(path));
        }
    } else {
        const QFileInfo info(path);
        projectDirectory = QDir(info.isDir() ? info.absoluteFilePath() : info.absolutePath());
        projectData = QJsonObject();
        QStringList problems;
        if (!loadProjectData(&problems)) {
            openReport.title = tr("Open Error");
            openReport.message = tr("\"%1\" is not an RPG Maker MZ project that can be opened:")
                                     .arg(QDir::toNativeSeparators(projectDirectory.absolutePath()));
            // A folder that isn't a project at all misses every file; the
            // first few say enough.
            const int shown = 3;
            openReport.details = problems.mid(0, shown);
            if (problems.size() > shown)
                openReport.details.append(tr("... and %1 more.").arg(problems.size() - shown));
        }
        // Nothing of the project left behind is unsaved work of this one.
        isChanged = false;
        if (!loadHUDs())
            return openProjectAt(QString());
        isChanged = false;
        if (isProjectOpen) {
            // A project opens with its screen fitted into the view.
            editor->fitZoom();
            documentWatcher->watch(JsonFile::pluginPath(projectDirectory, HudDocument::FileName));
            // Asked once the window is up and the opening has told its own news.
            if (RecoveryFile::isNewerThanDocument(projectDirectory))
                QTimer::singleShot(0, this, &VelmoMainWindow::offerRecovery);
        }
    }
    pages->setCurrentWidget(isProjectOpen ? mainWidget : noProjectPage);
    updateCommandStates();
}

void VelmoMainWindow::reportOpening()
{
    if (!openReport.message.isEmpty())
        AlertDialog::alert(openReport.message.toHtmlEscaped(), openReport.details, openReport.title, this);
}

bool VelmoMainWindow::loadProjectData(QStringList* problems)
{
    ProjectData::ScreenSize screen;
    isProjectOpen = ProjectData::load(projectDirectory, projectData, screen, problems);
    if (!isProjectOpen)
        return false;
    screenWidth = screen.width;
    screenHeight = screen.height;
    if (!isSizedHUD)
        editor->editorScene()->setScreenSize(screenWidth, screenHeight);
    return true;
}

HudDocument VelmoMainWindow::readDocument() const
{
    return HudDocument::load(projectDirectory, HudDocument::storedBackgrounds(projectDirectory));
}

bool VelmoMainWindow::loadHUDs()
{
    const HudDocument document = readDocument();
    documentRoot = document.root;
    damagedHudFile = document.damagedFile;
    if (isProjectOpen && document.damagedFile) {
        openReport.title = tr("HUD Document Damaged");
        openReport.message = document.damageNotice();
    }
    showHUDs(document);
    return true;
}

void VelmoMainWindow::showHUDs(const HudDocument& document)
{
    UltimateTree* tree = hudList->tree();
    hudList->blockSignals(true);
    tree->clear();
    hudList->blockSignals(false);
    editor->editorScene()->clear();
    removeHudButton->setEnabled(false);
    for (const HudEntry& entry : document.entries) {
        UltimateTreeItem* row = new UltimateTreeItem();
        row->setId(entry.type);
        row->setUserData(new QJsonObject(entry.object));
        fillHudRow(row);
        tree->addRow(row);
    }
    if (document.currentIndex >= 0)
        tree->setCurrentRow(tree->row(document.currentIndex));
}

UltimateTreeItem* VelmoMainWindow::currentHud() const
{
    return hudList->tree()->currentRow();
}

void VelmoMainWindow::on_hudList_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem* previous)
{
    removeHudButton->setEnabled(current && current->id() == HudEntry::Custom);
    // Loading another HUD into the canvas is no edit.
    const bool wasChanged = isChanged;
    const bool sized = HudDocument::switchScene(editor->editorScene(), previous ? previous->userData() : nullptr,
                                                current ? current->id() : 0,
                                                current ? current->userData() : nullptr, screenSize());
    if (current)
        isSizedHUD = sized;
    isChanged = wasChanged;
    refreshBackground();
    updateCommandStates();
    writeRecovery();
}

void VelmoMainWindow::refreshBackground()
{
    const UltimateTreeItem* item = currentHud();
    const QString path = item ? item->userData()->value(HudDocument::KeyBackground).toString() : QString();
    editor->editorScene()->setBackgroundImage(path.isEmpty() ? QPixmap() : QPixmap(path));
}

void VelmoMainWindow::deleteHUD()
{
    UltimateTreeItem* item = currentHud();
    if (item && item->id() == HudEntry::Custom) {
        const QString question = tr("Are you sure you wish to delete \"%1\"?")
                                     .arg(item->userData()->value(HudDocument::KeyName).toString());
        int answer = 2;
        ConfirmationDialog dialog(question, tr("HUD Delete Confirmation"), &answer, this, ConfirmationDialog::YesNo);
        dialog.exec();
        // The row leaves without its canvas being stored back; the next row
        // becomes current and loads.
        if (answer == 0)
            hudList->deleteRowSelectNext(item);
    }
    markChanged();
}

void VelmoMainWindow::on_removeHudButton_clicked()
{
    deleteHUD();
}

void VelmoMainWindow::markChanged()
{
    isChanged = true;
    updateCommandStates();
}

void VelmoMainWindow::on_openRMProject_clicked()
{
    OpenProject();
}

void VelmoMainWindow::OpenProject()
{
    const QString start = QStandardPaths::displayName(QStandardPaths::DesktopLocation);
    const QString chosen = QFileDialog::getOpenFileName(this, tr("RPG Maker MZ Project"), start,
                                                        QStringLiteral("RPG Maker Project (*.rmmzproject)"));
    if (chosen.isEmpty())
        return;
    if (!settleUnsavedChanges())
        return;
    openProjectAt(chosen);
    reportOpening();
}

void VelmoMainWindow::ReloadProject()
{
    if (!isProjectOpen)
        return;
    QStringList problems;
    if (!loadProjectData(&problems)) {
        AlertDialog::alert(tr("Could not reload data!"), problems, tr("Reload Error"), this);
        isProjectOpen = true;
    }
    updateCommandStates();
}

void VelmoMainWindow::SaveProject()
{
    if (!isProjectOpen) {
        isChanged = false;
        return;
    }
    storeSceneIntoCurrentHud();

    QStringList backgrounds;
    const QJsonObject document = HudDocument::assemble(documentRoot, hudEntries(), &backgrounds);

    // A damaged file is copied aside once, before anything is written over it.
    QString reason;
    if (damagedHudFile && HudDocument::keepDamagedCopy(projectDirectory, &reason))
        damagedHudFile = false;
    const bool saved = !damagedHudFile && HudDocument::save(projectDirectory, document, false, QString(), &reason);

    SettingsStore store;
    QVariantMap allBackgrounds = store.value(QStringLiteral("Backgrounds")).toMap();
    allBackgrounds.insert(projectDirectory.absolutePath(), backgrounds);
    store.setValue(QStringLiteral("Backgrounds"), allBackgrounds);

    if (!saved) {
        // The project keeps its unsaved state, so closing still asks; the
        // recovery file keeps the work meanwhile.
        AlertDialog::alert(tr("Could not save to \"VelmoraHUD.json\"!"),
                           {QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(
                                JsonFile::pluginPath(projectDirectory, HudDocument::FileName)), reason)},
                           tr("Save Error"), this);
        isChanged = true;
        writeRecovery();
    } else {
        documentRoot = document;
        documentRoot.remove(HudDocument::KeyData);
        isChanged = false;
        RecoveryFile::remove(projectDirectory);
        documentWatcher->acknowledge();
    }
    updateCommandStates();
}

int VelmoMainWindow::askToSave(const QString& question)
{
    // 0 save, 1 don't save, 2 cancel; without changes nothing is asked.
    int outcome = 1;
    if (isProjectOpen && isChanged) {
        ConfirmationDialog dialog(question, tr("Save Confirmation"), &outcome, this);
        dialog.exec();
    }
    return outcome;
}

bool VelmoMainWindow::saveIfAsked(int outcome)
{
    if (outcome != 0)
        return true;
    SaveProject();
    // A save that failed leaves the work unsaved: don't throw it away.
    return !isChanged;
}

bool VelmoMainWindow::settleUnsavedChanges()
{
    const int outcome = askToSave(tr("Would you like to save before closing?"));
    return outcome != 2 && saveIfAsked(outcome);
}

void VelmoMainWindow::CloseProject()
{
    if (!isProjectOpen)
        return;
    const int outcome = askToSave(tr("Would you like to save before closing?"));
    if (outcome == 2)
        return;
    saveWindowState();
    if (!saveIfAsked(outcome))
        return;
    openProjectAt(QString());
}

void VelmoMainWindow::closeEvent(QCloseEvent* event)
{
    const int outcome = askToSave(tr("Would you like to save before closing?"));
    if (outcome == 2) {
        event->ignore();
        return;
    }
    saveWindowState();
    if (!saveIfAsked(outcome)) {
        event->ignore();
        return;
    }
    if (isProjectOpen)
        RecoveryFile::remove(projectDirectory);
    event->accept();
}

void VelmoMainWindow::saveWindowState()
{
    SettingsStore store;
    store.setValue(QStringLiteral("Project"), isProjectOpen ? projectDirectory.absolutePath() : QString());
    store.setValue(QStringLiteral("Geometry"), normalGeometry());
    store.setValue(QStringLiteral("IsMaximized"), isMaximized());
    store.setValue(QStringLiteral("EditorLocation"), editorLocation);
    store.setValue(QStringLiteral("BackgroundDarken"), editor->editorScene()->darkness());
}

void VelmoMainWindow::updateCommandStates()
{
    // Each tool button follows its action.
    VelmoMainTitleBar* bar = titleBar;
    bar->Action_OpenProject->setEnabled(true);
    bar->Action_ReloadProject->setEnabled(isProjectOpen);
    bar->Action_SaveProject->setEnabled(isProjectOpen);
    bar->Action_CloseProject->setEnabled(isProjectOpen);
    bar->Action_Undo->setEnabled(isProjectOpen && canUndo);
    bar->Action_Redo->setEnabled(isProjectOpen && canRedo);
    const bool canRun = isProjectOpen && !editorLocation.isEmpty();
    bar->Action_Run->setEnabled(canRun && !gameProcess);
    bar->Action_Stop->setEnabled(canRun && gameProcess);
    bar->Action_ProjectExplorer->setEnabled(isProjectOpen);
    bar->Action_Settings->setEnabled(isProjectOpen);
    bar->Action_ZoomIn->setEnabled(isProjectOpen && canZoomIn);
    bar->Action_ZoomOut->setEnabled(isProjectOpen && canZoomOut);
    bar->Action_FitZoom->setEnabled(isProjectOpen);

    QString status;
    if (isProjectOpen) {
        status = QStringLiteral("%1  \u2014  %2 \u00d7 %3")
                     .arg(QDir::toNativeSeparators(projectDirectory.absolutePath()))
                     .arg(screenWidth)
                     .arg(screenHeight);
        if (isChanged)
            status += QStringLiteral("  \u2014  ") + tr("Unsaved changes");
    }
    // What went wrong comes first, where it is read before the label runs out.
    if (!statusNotice.isEmpty())
        status = status.isEmpty() ? statusNotice : statusNotice + QStringLiteral("  \u2014  ") + status;
    statusLabel->setText(status);
    statusLabel->setToolTip(statusNotice);

    setWindowTitle(isProjectOpen ? QStringLiteral("%1[*] \u2014 %2").arg(projectDirectory.dirName(), tr("Velmora"))
                                 : tr("Velmora"));
    setWindowModified(isProjectOpen && isChanged);
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
    const QString path = event->mimeData()->urls().first().toLocalFile();
    if (settleUnsavedChanges()) {
        openProjectAt(path);
        reportOpening();
    }
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

void VelmoMainWindow::InstallInMZ()
{
    // Putting the plugin into a game project is the user's own step.
}

void VelmoMainWindow::Undo()
{
    editor->editorScene()->undo();
}

void VelmoMainWindow::Redo()
{
    editor->editorScene()->redo();
}

void VelmoMainWindow::ZoomIn()
{
    editor->zoomIn();
}

void VelmoMainWindow::ZoomOut()
{
    editor->zoomOut();
}

void VelmoMainWindow::FitToView()
{
    editor->fitZoom();
}

void VelmoMainWindow::OpenSettings()
{
    if (!isProjectOpen)
        return;
    AlertDialog::alert(tr("The settings of this version are kept in the settings file and "
                          "take effect at the next start."),
                       {QDir::toNativeSeparators(SettingsStore().fileName())}, tr("Change Settings"), this);
}

void VelmoMainWindow::About()
{
    const QString logo = QStringLiteral(":/Icon.png");
    AlertDialog::alert(QStringLiteral("<img src=\"%1\" width=\"96\" height=\"96\"><br>"
                                      "<span style=\"font-size:20pt;\"><b>%2</b></span><br><i>%3</i><br><br><i>%4</i>")
                           .arg(logo, tr("Velmora"), tr("by Ostrel"), tr("Version %1").arg(QStringLiteral("1.1.0"))),
                       tr("About Velmora"), this);
}

void VelmoMainWindow::ShowHintForComponentList()
{
    const QList<QPair<const char*, const char*>> lines{
        {QT_TR_NOOP("Move Items in List"), "RIGHT-CLICK + DRAG"}, {QT_TR_NOOP("Refresh List"), "SHIFT + R"},
        {QT_TR_NOOP("Show/Hide Component"), "CTRL + Q"},         {nullptr, nullptr},
        {QT_TR_NOOP("Copy Component"), "CTRL + C"},              {QT_TR_NOOP("Cut Component"), "CTRL + X"},
        {QT_TR_NOOP("Paste Component"), "CTRL + V"},             {QT_TR_NOOP("Delete Component"), "DEL"}};
    // Names padded with blanks so the keys stand in one column of the fixed font.
    int width = 0;
    for (const auto& line : lines)
        width = qMax(width, line.first ? tr(line.first).size() : 0);
    QStringList rows;
    for (const auto& line : lines) {
        const QString name = line.first ? tr(line.first) : QString();
        rows.append(line.first ? QStringLiteral("\u2022 %1%2<b>%3</b>")
                                     .arg(name.toHtmlEscaped(), QString(width - name.size() + 2, QLatin1Char(' ')),
                                          QLatin1String(line.second))
                               : QString());
    }
    AlertDialog dialog(QStringLiteral("<pre style=\"font-family: monospace; font-weight: 600;\">%1</pre>")
                           .arg(rows.join(QLatin1Char('\n'))),
                       tr("Component List Help"), this);
    dialog.label()->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    dialog.exec();
}

void VelmoMainWindow::OpenTutorials()
{
    QDesktopServices::openUrl(QUrl(QStringLiteral("https://github.com/ostrel-vane/velmora/wiki")));
}

void VelmoMainWindow::OpenDownloads()
{
    QDesktopServices::openUrl(QUrl(QStringLiteral("https://github.com/ostrel-vane/velmora/releases")));
}

void VelmoMainWindow::SystemCall(int)
{
    // The window menu's own entry; what it opens is a little game of its own.
}

void VelmoMainWindow::refreshScene()
{
    editor->editorScene()->update();
    editor->viewport()->update();
}

void VelmoMainWindow::followWindowState()
{
    if (titleBar)
        titleBar->setMaximizedState(isMaximized());
    bottomRightResizer->setVisible(!isMaximized() && windowStyle != Native);
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

void VelmoMainWindow::RunGame()
{
    const int outcome = askToSave(tr("Would you like to save before playing the game?"));
    if (outcome == 2)
        return;
    // The command is off in these cases; this only guards a race with the hooks.
    if (gameProcess || !isProjectOpen || editorLocation.isEmpty())
        return;
    // A save that failed would run the game on what the file held before.
    if (!saveIfAsked(outcome))
        return;
    gameProcess = new QProcess(this);
    connect(gameProcess, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &VelmoMainWindow::GameProcessEnd);
    connect(gameProcess, &QProcess::errorOccurred, this, &VelmoMainWindow::whenGameFailed);
    GameRunner::start(gameProcess, editorLocation, projectDirectory);
    updateCommandStates();
}

void VelmoMainWindow::StopGame()
{
    if (!gameProcess)
        return;
    // No polite ending: the game goes at once, and its end is no news.
    gameProcess->disconnect(this);
    gameProcess->kill();
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
    statusNotice = tr("The game couldn't be started: %1")
                       .arg(QStringLiteral("%1 (%2)").arg(QDir::toNativeSeparators(gameProcess->program()),
                                                          gameProcess->errorString()));
    gameProcess->disconnect(this);
    gameProcess->deleteLater();
    gameProcess = nullptr;
    updateCommandStates();
}

void VelmoMainWindow::OpenProjectDirectory()
{
    if (isProjectOpen)
        QDesktopServices::openUrl(QUrl::fromLocalFile(projectDirectory.absolutePath()));
}

void VelmoMainWindow::writeRecovery()
{
    if (!isProjectOpen || !isChanged)
        return;
    storeSceneIntoCurrentHud();
    QStringList backgrounds;
    const QJsonObject document = HudDocument::assemble(documentRoot, hudEntries(), &backgrounds);
    RecoveryFile::write(projectDirectory, document, backgrounds);
}

void VelmoMainWindow::offerRecovery()
{
    RecoveryFile::Content recovery;
    if (!isProjectOpen || isChanged || !RecoveryFile::isNewerThanDocument(projectDirectory)
        || !RecoveryFile::read(projectDirectory, &recovery))
        return;
    int answer = 1;
    ConfirmationDialog dialog(
        QStringList{tr("Velmora was closed with unsaved changes to this project."),
                    tr("They were kept on %1.").arg(QLocale().toString(recovery.written, QLocale::ShortFormat)),
                    tr("Restore them?")},
        tr("Recover Unsaved Changes"), &answer, this, ConfirmationDialog::YesNo);
    dialog.exec();
    if (answer != 0) {
        // Kept for the moment; the next save removes it.
        statusNotice = tr("The unsaved changes were not restored.");
        updateCommandStates();
        return;
    }
    HudDocument document;
    document.setDocument(recovery.document, recovery.backgrounds);
    documentRoot = document.root;
    showHUDs(document);
    // Restored work is unsaved work until the user saves it.
    isChanged = true;
    statusNotice = tr("The unsaved changes were restored; save to keep them.");
    updateCommandStates();
}

void VelmoMainWindow::whenDocumentChangedOnDisk(bool removed)
{
    if (!isProjectOpen || askingAboutDisk)
        return;
    if (QApplication::activeModalWidget()) {
        // Not in the middle of another question: ask when it is answered.
        QTimer::singleShot(300, this, [this, removed]() { whenDocumentChangedOnDisk(removed); });
        return;
    }
    if (removed) {
        // The list still holds the whole document; saving writes it again.
        statusNotice = tr("\"VelmoraHUD.json\" was removed by another program; saving writes it again.");
        markChanged();
        return;
    }
    const HudDocument document = readDocument();
    if (document.damagedFile) {
        statusNotice = tr("\"VelmoraHUD.json\" was changed by another program but can't be read (%1); "
                          "the HUDs stay as they were.").arg(document.damage);
        markChanged();
        return;
    }
    if (isChanged) {
        int answer = 1;
        askingAboutDisk = true;
        ConfirmationDialog dialog(QStringList{tr("\"VelmoraHUD.json\" was changed by another program."),
                                              tr("Reload it and lose your unsaved changes?")},
                                  tr("Document Changed on Disk"), &answer, this, ConfirmationDialog::YesNo);
        dialog.exec();
        askingAboutDisk = false;
        if (answer != 0) {
            statusNotice = tr("Your unsaved changes were kept; saving writes them over the other program's version.");
            updateCommandStates();
            return;
        }
    }
    const UltimateTree* tree = hudList->tree();
    const int currentIndex = tree->currentRow() ? tree->indexOfRow(tree->currentRow()) : -1;
    documentRoot = document.root;
    damagedHudFile = false;
    isChanged = false;
    showHUDs(document);
    // The same place in the list, when the list still has it.
    if (currentIndex >= 0 && currentIndex < tree->rowCount())
        hudList->tree()->setCurrentRow(tree->row(currentIndex));
    RecoveryFile::remove(projectDirectory);
    statusNotice = tr("\"VelmoraHUD.json\" was changed by another program and has been reloaded.");
    updateCommandStates();
}
