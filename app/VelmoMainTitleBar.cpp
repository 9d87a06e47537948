#include "app/VelmoMainTitleBar.h"

#include "app/PathManager.h"

#include "widgets/InflateButton.h"
#include "widgets/TitleBarButtons.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QEvent>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QIcon menuBarIcon(const char* file)
{
    return QIcon(QStringLiteral(":/resources/MenuBarIcons/%1").arg(QLatin1String(file)));
}

// What a group label says: its group's name, or the hovered tool's name and
// description.
QString groupText(const QString& title)
{
    return QStringLiteral("<span style=\"font-weight:600;\">%1</span>").arg(title.toHtmlEscaped());
}

QString toolText(const QString& name, const QString& description)
{
    return QStringLiteral("<b>%1</b> \u2013 %2").arg(name.toHtmlEscaped(), description.toHtmlEscaped());
}

// The height of the row of window buttons, menus and the title.
constexpr int TopRowHeight = 29;
// A group label holds two lines, so a long description never changes the bar's height.
constexpr int GroupLabelWidth = 176;

}

VelmoMainTitleBar::VelmoMainTitleBar(int windowStyle, bool nativeMenuBar, QWidget* parent)
    : BaseMainTitleBar(windowStyle, nativeMenuBar, parent), nativeMenus(windowStyle == 2 && nativeMenuBar)
{
    setObjectName(QStringLiteral("VelmoMainTitleBar"));
    QVBoxLayout* rows = new QVBoxLayout(this);
    rows->setSpacing(0);
    rows->setContentsMargins(0, 0, 0, 0);

    menus = new QMenuBar(this);
    menus->setObjectName(QStringLiteral("menuBar"));
    menus->setContextMenuPolicy(Qt::PreventContextMenu);
    menus->setFocusPolicy(Qt::NoFocus);
    // The platform's own menu bar where the desktop has one; otherwise it
    // stands as an ordinary row of menus above the tools.
    menus->setNativeMenuBar(nativeMenus);
    if (!nativeMenus) {
        menus->setStyleSheet(QStringLiteral("#menuBar { border: none; background: transparent; }"));
    }

    Menu_File = menus->addMenu(tr("File"));
    Menu_File->setObjectName(QStringLiteral("Menu_File"));
    Menu_Edit = menus->addMenu(tr("Edit"));
    Menu_Edit->setObjectName(QStringLiteral("Menu_Edit"));
    Menu_Project = menus->addMenu(tr("Project"));
    Menu_Project->setObjectName(QStringLiteral("Menu_Project"));
    Menu_View = menus->addMenu(tr("View"));
    Menu_View->setObjectName(QStringLiteral("Menu_View"));
    Menu_Help = menus->addMenu(tr("Help"));
    Menu_Help->setObjectName(QStringLiteral("Menu_Help"));

    Action_OpenProject = makeAction(Menu_File, "Action_OpenProject", QT_TR_NOOP("Open Project"), QT_TR_NOOP("Open"),
                                    "Ctrl+O", "OpenProject.png");
    Action_ReloadProject = makeAction(Menu_File, "Action_ReloadProject", QT_TR_NOOP("Reload Project"),
                                      QT_TR_NOOP("Reload"), nullptr, "ReloadProject.png");
    Action_SaveProject = makeAction(Menu_File, "Action_SaveProject", QT_TR_NOOP("Save Project"), QT_TR_NOOP("Save"),
                                    "Ctrl+S", "SaveProject.png");
    Action_CloseProject = makeAction(Menu_File, "Action_CloseProject", QT_TR_NOOP("Close Project"),
                                     QT_TR_NOOP("Close"), nullptr, "CloseProject.png");
    // Quit ends the program the way the window's close button does, asking
    // first about unsaved work. It has no Ctrl+Q: in this program that key
    // shows and hides the selected component on the canvas and in the list.
    Menu_File->addSeparator();
    Action_Quit = Menu_File->addAction(tr("Quit"));
    Action_Quit->setObjectName(QStringLiteral("Action_Quit"));
    Action_Quit->setMenuRole(QAction::QuitRole);
    actions.append(Action_Quit);
    Action_Undo = makeAction(Menu_Edit, "Action_Undo", QT_TR_NOOP("Undo Action"), QT_TR_NOOP("Undo"), nullptr,
                             "Undo.png");
    Action_Redo = makeAction(Menu_Edit, "Action_Redo", QT_TR_NOOP("Redo Action"), QT_TR_NOOP("Redo"), nullptr,
                             "Redo.png");
    Action_Run = makeAction(Menu_Project, "Action_Run", QT_TR_NOOP("Run Project"), QT_TR_NOOP("Run"), "Ctrl+R",
                            "RunGame.png");
    Action_Stop = makeAction(Menu_Project, "Action_Stop", QT_TR_NOOP("Stop Project"), QT_TR_NOOP("Stop"), "Ctrl+T",
                             "StopGame.png");
    Action_ProjectExplorer = makeAction(Menu_Project, "Action_ProjectExplorer", QT_TR_NOOP("Show Project in Explorer"),
                                        QT_TR_NOOP("Show Project"), nullptr, "OpenExplorer.png");
    Action_Settings = makeAction(Menu_Project, "Action_Settings", QT_TR_NOOP("Change Settings"),
                                 QT_TR_NOOP("Settings"), nullptr, "Settings.png");
    Action_ZoomIn = makeAction(Menu_View, "Action_ZoomIn", QT_TR_NOOP("Zoom In"), QT_TR_NOOP("Zoom In"), nullptr,
                               "ZoomIn.png");
    Action_ZoomOut = makeAction(Menu_View, "Action_ZoomOut", QT_TR_NOOP("Zoom Out"), QT_TR_NOOP("Zoom Out"), nullptr,
                                "ZoomOut.png");
    Action_FitZoom = makeAction(Menu_View, "Action_FitZoom", QT_TR_NOOP("Fit to View"), QT_TR_NOOP("Fit to View"),
                                nullptr, "FitZoom.png");
    Action_About = makeAction(Menu_Help, "Action_About", QT_TR_NOOP("About"), QT_TR_NOOP("About"), "F1", "About.png");
    Menu_Help->addSeparator();
    Action_Tutorial = makeAction(Menu_Help, "Action_Tutorial", QT_TR_NOOP("Watch Tutorials"), QT_TR_NOOP("Tutorial"),
                                 nullptr, "Tutorial.png");
    Action_Update = makeAction(Menu_Help, "Action_Update", QT_TR_NOOP("Open Download Page"), QT_TR_NOOP("Update"),
                               nullptr, "Update.png");
    fitMenuBar();
    // The shortcuts live on the bar itself, which is always shown, so they
    // work while the menu row is hidden or belongs to the desktop.
    addActions(actions);

    // The row of the window's own buttons, the menus and the title.
    topRow = new QWidget(this);
    topRow->setObjectName(QStringLiteral("titleRow"));
    QHBoxLayout* top = new QHBoxLayout(topRow);
    top->setSpacing(0);
    top->setContentsMargins(0, 0, 0, 0);
    // The empty strip after the menus, where the window is grabbed.
    shadow = new QWidget(topRow);
    shadow->setObjectName(QStringLiteral("captionStrip"));
    shadow->setMinimumWidth(8);
    systemMenuButton()->setParent(topRow);
    minimizeButton()->setParent(topRow);
    maximizeButton()->setParent(topRow);
    closeButton()->setParent(topRow);
    top->addWidget(systemMenuButton());
    top->addWidget(menus, 0, Qt::AlignVCenter);
    top->addWidget(shadow, 1);
    top->addWidget(minimizeButton(), 0, Qt::AlignTop);
    top->addWidget(maximizeButton(), 0, Qt::AlignTop);
    top->addWidget(closeButton(), 0, Qt::AlignTop);
    captions << topRow << shadow;
    rows->addWidget(topRow);

    // The tool rows, one group per menu of commands.
    QWidget* tools = new QWidget(this);
    tools->setObjectName(QStringLiteral("toolRow"));
    QHBoxLayout* toolLayout = new QHBoxLayout(tools);
    toolLayout->setContentsMargins(6, 2, 6, 3);
    toolLayout->setSpacing(4);
    captions << tools;
    auto separator = [this, tools, toolLayout]() {
        QFrame* line = new QFrame(tools);
        line->setFrameShape(QFrame::VLine);
        line->setFrameShadow(QFrame::Plain);
        line->setStyleSheet(QStringLiteral("color: rgba(128, 128, 128, 90);"));
        toolLayout->addWidget(line);
        captions << line;
    };
    toolLayout->addWidget(makeGroup(
        &projectManagementLabel, "projectManagementLabel", tr("Project"),
        {{&openProject, "openProject", Action_OpenProject, QT_TR_NOOP("Open Project"),
          QT_TR_NOOP("Opens an existing project."), "OpenProject.png"},
         {&reloadProject, "reloadProject", Action_ReloadProject, QT_TR_NOOP("Reload Project"),
          QT_TR_NOOP("Reloads RPG Maker project data."), "ReloadProject.png"},
         {&saveProject, "saveProject", Action_SaveProject, QT_TR_NOOP("Save Project"),
          QT_TR_NOOP("Saves the current project."), "SaveProject.png"},
         {&closeProject, "closeProject", Action_CloseProject, QT_TR_NOOP("Close Project"),
          QT_TR_NOOP("Closes the current project."), "CloseProject.png"}}));
    separator();
    toolLayout->addWidget(makeGroup(
        &doLabel, "doLabel", tr("Edit"),
        {{&undo, "undo", Action_Undo, QT_TR_NOOP("Undo"), QT_TR_NOOP("Undoes last change."), "Undo.png"},
         {&redo, "redo", Action_Redo, QT_TR_NOOP("Redo"), QT_TR_NOOP("Redoes last change."), "Redo.png"}}));
    separator();
    toolLayout->addWidget(makeGroup(
        &gameRunnerLabel, "gameRunnerLabel", tr("Game"),
        {{&run, "run", Action_Run, QT_TR_NOOP("Run Game"), QT_TR_NOOP("Runs the game."), "RunGame.png"},
         {&stop, "stop", Action_Stop, QT_TR_NOOP("Stop Game"), QT_TR_NOOP("Stops the currently running game."),
          "StopGame.png"},
         {&projectExplorer, "projectExplorer", Action_ProjectExplorer, QT_TR_NOOP("Explore Project"),
          QT_TR_NOOP("Opens the file explorer on the project."), "OpenExplorer.png"},
         {&settings, "settings", Action_Settings, QT_TR_NOOP("Settings"), QT_TR_NOOP("Opens the editor settings."),
          "Settings.png"}}));
    separator();
    toolLayout->addWidget(makeGroup(
        &viewLabel, "viewLabel", tr("View"),
        {{&zoomIn, "zoomIn", Action_ZoomIn, QT_TR_NOOP("Zoom In"), QT_TR_NOOP("Zooms the screen in."), "ZoomIn.png"},
         {&zoomOut, "zoomOut", Action_ZoomOut, QT_TR_NOOP("Zoom Out"), QT_TR_NOOP("Zooms the screen out."),
          "ZoomOut.png"},
         {&fitZoom, "fitZoom", Action_FitZoom, QT_TR_NOOP("Fit in View"), QT_TR_NOOP("Fits the screen to the viewport."),
          "FitZoom.png"}}));
    toolLayout->addStretch(1);
    rows->addWidget(tools);

    if (windowStyle == 2) {
        // The system's frame has its own buttons and caption. The menus stay
        // as a row of their own: on Linux this is the usual style, and the
        // Help commands live nowhere else.
        minimizeButton()->hide();
        maximizeButton()->hide();
        closeButton()->hide();
        systemMenuButton()->hide();
        rows->setContentsMargins(6, 0, 0, 0);
    } else {
        topRow->setFixedHeight(TopRowHeight);
    }
}

QAction* VelmoMainTitleBar::makeAction(QMenu* menu, const char* name, const char* text, const char* iconText,
                                       const char* shortcut, const char* icon)
{
    QAction* action = menu->addAction(tr(text));
    action->setObjectName(QString::fromLatin1(name));
    action->setIconText(tr(iconText));
    if (shortcut)
        action->setShortcut(QKeySequence(QString::fromLatin1(shortcut)));
    action->setIcon(menuBarIcon(icon));
    // Icons belong in the menus only where the desktop draws its own menus.
    action->setIconVisibleInMenu(nativeMenus);
    actions.append(action);
    return action;
}

QWidget* VelmoMainTitleBar::makeGroup(QLabel** label, const char* labelName, const QString& title,
                                      const QList<Tool>& tools)
{
    QWidget* group = new QWidget(this);
    group->setObjectName(QString::fromLatin1(labelName).replace(QStringLiteral("Label"), QStringLiteral("Group")));
    QVBoxLayout* layout = new QVBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    QHBoxLayout* buttons = new QHBoxLayout();
    buttons->setSpacing(2);
    buttons->setContentsMargins(0, 0, 0, 0);

    QLabel* info = new QLabel(groupText(title), group);
    *label = info;
    info->setObjectName(QString::fromLatin1(labelName));
    info->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    info->setWordWrap(true);
    info->setTextFormat(Qt::RichText);
    QFont small = info->font();
    small.setPointSizeF(small.pointSizeF() - 1.5);
    info->setFont(small);
    info->setFixedHeight(QFontMetrics(small).lineSpacing() * 2 + 6);
    info->setFixedWidth(GroupLabelWidth);

    buttons->addStretch(1);
    for (const Tool& tool : tools) {
        const QString name = tr(tool.name);
        const QString description = tr(tool.description);
        InflateButton* button = new InflateButton(menuBarIcon(tool.icon), name, description, group);
        *tool.button = button;
        button->setObjectName(QString::fromLatin1(tool.objectName));
        button->setStyleSheet(QStringLiteral("padding-top: 6px; padding-bottom: 6px;"));
        button->setProperty("mtt_title", name);
        button->setProperty("mtt_desc", description);
        buttons->addWidget(button);
        connect(button, &QPushButton::clicked, tool.command, &QAction::trigger);
        // A command's state is set on its action; the button follows it.
        connect(tool.command, &QAction::changed, button,
                [button, command = tool.command]() { button->setEnabled(command->isEnabled()); });
        button->setEnabled(tool.command->isEnabled());
        connect(button, &InflateButton::hoverEntered, info,
                [info, name, description]() { info->setText(toolText(name, description)); });
        connect(button, &InflateButton::hoverLeft, info, [info, title]() { info->setText(groupText(title)); });
    }
    buttons->addStretch(1);
    layout->addLayout(buttons);
    layout->addWidget(info);
    captions << group << info;
    return group;
}

// The row of menus is held to 224 pixels so the caption strip beside it stays
// wide, but never so narrow that a menu falls into the overflow button: a
// larger font or a longer language widens it to what its menus need.
void VelmoMainTitleBar::fitMenuBar()
{
    if (nativeMenus)
        return;
    menus->ensurePolished();
    menus->setMaximumWidth(qMax(224, menus->sizeHint().width()));
}

void VelmoMainTitleBar::changeEvent(QEvent* event)
{
    BaseMainTitleBar::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange
        || event->type() == QEvent::LanguageChange)
        fitMenuBar();
}

void VelmoMainTitleBar::paintEvent(QPaintEvent* event)
{
    BaseMainTitleBar::paintEvent(event);
    if (windowStyle == 2 || !topRow->isVisible())
        return;
    QPainter painter(this);
    QFont font = painter.font();
    // Without the program's face the title keeps the default font.
    if (!PathManager::programFontFamily().isEmpty())
        font.setFamily(PathManager::programFontFamily());
    font.setWeight(QFont::Bold);
    font.setPointSizeF(font.pointSizeF() + 1);
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::WindowText));
    // The window's own title, with Qt's "[*]" placeholder shown as the mark
    // of unsaved changes.
    QString title = window()->windowTitle();
    title.replace(QStringLiteral("[*]"), window()->isWindowModified() ? QStringLiteral("*") : QString());
    const QRect area = QRect(0, 0, width(), 24).translated(0, (TopRowHeight - 24) / 2);
    // Clear of the menus on the left and the window buttons on the right.
    const int side = qMax(menus->geometry().right() + 24, width() - minimizeButton()->geometry().left() + 8);
    const QRect text = area.adjusted(side, 0, -side, 0);
    painter.drawText(text, Qt::AlignCenter, QFontMetrics(font).elidedText(title, Qt::ElideMiddle, text.width()));
}

QIcon VelmoMainTitleBar::systemMenuMark()
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
