#include "app/MainWindowForm.h"

#include "app/VelmoControls.h"
#include "app/VelmoNoProjectPage.h"
#include "scene/GameUIEditor.h"
#include "widgets/BRResizerRenderer.h"
#include "widgets/MyTabSystem.h"
#include "widgets/MyTabSystemHeader.h"
#include "widgets/UltimateTreeWidget.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

void MainWindowForm::setupUi(QMainWindow* window)
{
    QWidget* centralwidget = new QWidget(window);
    centralwidget->setObjectName(QStringLiteral("centralwidget"));
    QVBoxLayout* centralLayout = new QVBoxLayout(centralwidget);
    centralLayout->setContentsMargins(0, 0, 0, 0);
    centralLayout->setSpacing(0);

    QWidget* widget = new QWidget(centralwidget);
    widget->setObjectName(QStringLiteral("widget"));
    pages = new QStackedLayout(widget);

    // The page shown while no project is open.
    noProjectPage = new VelmoNoProjectPage(widget);
    QVBoxLayout* noProjectLayout = new QVBoxLayout(noProjectPage);
    QFrame* insertFrame = new QFrame(noProjectPage);
    insertFrame->setObjectName(QStringLiteral("insertFrame"));
    insertFrame->setFrameShape(QFrame::StyledPanel);
    insertFrame->setMinimumSize(360, 160);
    QVBoxLayout* frameLayout = new QVBoxLayout(insertFrame);
    QLabel* hint = new QLabel(QObject::tr("Open a project, or drop its \".rmmzproject\" file here."), insertFrame);
    hint->setAlignment(Qt::AlignCenter);
    openRMProject = new QPushButton(insertFrame);
    openRMProject->setObjectName(QStringLiteral("openRMProject"));
    openRMProject->setText(QObject::tr("Open RPG Maker MZ Project"));
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
    QGroupBox* groupBox = new QGroupBox(QObject::tr("HUD Editor"), hudEditor);
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
    QWidget* hudHeader = listHeader(hudContainer, "listHeader_3", "hudListHeader", QObject::tr("HUD List"));
    addHudButton = headerButton(hudHeader, "addHudButton", "Add", QObject::tr("Add New HUD"));
    removeHudButton = headerButton(hudHeader, "removeHudButton", "Remove", QObject::tr("Delete HUD"));
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
        listHeader(componentContainer, "listHeader_2", "componentListHeader", QObject::tr("Component List"));
    addComponentButton = headerButton(componentHeader, "addComponentButton", "Add", QObject::tr("Add New Component"));
    removeComponentButton = headerButton(componentHeader, "removeComponentButton", "Remove", QObject::tr("Delete Component"));
    removeComponentButton->setEnabled(false);
    hintComponentButton = headerButton(componentHeader, "hintComponentButton", "Hint", QObject::tr("Component List Help"));
    componentLayout->addWidget(componentHeader);
    componentList = new UltimateTreeWidget(componentContainer);
    componentList->setObjectName(QStringLiteral("componentList"));
    componentLayout->addWidget(componentList, 1);
    holderLayout->addWidget(componentContainer, 2);

    tabs->addTab(QObject::tr("Components"), ComponentListTab);
    tabs->addTab(QObject::tr("Controls"), new VelmoControls());
    tabs->setCurrentIndex(0, true, true);
    // The panel keeps one width whichever tab is open: what its widest page
    // and its row of tabs need, within its bounds.
    int widest = tabs->header()->naturalWidth();
    for (int index = 0; index < tabs->count(); ++index)
        widest = qMax(widest, tabs->page(index)->sizeHint().width());
    const int pageMargins = tabs->sizeHint().width() - tabs->currentPage()->sizeHint().width();
    tabs->setFixedWidth(qBound(tabs->minimumWidth(), widest + pageMargins, tabs->maximumWidth()));
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
    window->setCentralWidget(centralwidget);
}
