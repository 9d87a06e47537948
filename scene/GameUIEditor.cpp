#include "scene/GameUIEditor.h"

#include "scene/GameUIEditorScene.h"
#include "scene/StillLayer.h"
#include "scene/UIComponentBase.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>

GameUIEditor::GameUIEditor(QWidget* parent) : QGraphicsView(parent), scene(new GameUIEditorScene(this, this))
{
    setScene(scene);
    // The canvas frame is drawn around the exposed part of the canvas, so
    // every repaint covers the whole viewport.
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    setCacheMode(QGraphicsView::CacheBackground);
    // A resize keeps the spot the user looks at in the middle.
    setResizeAnchor(QGraphicsView::AnchorViewCenter);
    setMouseTracking(true);
    horizontalScrollBar()->installEventFilter(this);
    verticalScrollBar()->installEventFilter(this);
    scene->setZoom(initialZoom);

    contextMenu = new QMenu(this);
    auto add = [this](const char* icon, const char* text, void (GameUIEditor::*slot)()) {
        QAction* action = contextMenu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/%1.png")
                                                           .arg(QLatin1String(icon))),
                                                 tr(text));
        connect(action, &QAction::triggered, this, slot);
    };
    add("Add", QT_TR_NOOP("Add New Component"), &GameUIEditor::createAComponent);
    add("Add", QT_TR_NOOP("Add Child to ..."), &GameUIEditor::createAComponentChild);
    add("Edit", QT_TR_NOOP("Edit ..."), &GameUIEditor::editAComponent);
    add("Remove", QT_TR_NOOP("Delete ..."), &GameUIEditor::deleteAComponent);
    contextMenu->addSeparator();
    add("Copy", QT_TR_NOOP("Copy ..."), &GameUIEditor::copyAComponent);
    add("Cut", QT_TR_NOOP("Cut ..."), &GameUIEditor::cutAComponent);
    add("Paste", QT_TR_NOOP("Paste ..."), &GameUIEditor::pasteAComponent);
    contextMenu->addSeparator();
    add("Hide", QT_TR_NOOP("Hide ..."), &GameUIEditor::hideAComponent);
    // The list keeps its current row only while the menu is up.
    connect(contextMenu, &QMenu::aboutToHide, this, [this]() {
        if (scene->list())
            scene->list()->tree()->setPopupOpen(false);
    });
}

GameUIEditor::~GameUIEditor()
{
    // The components go before the view's children they may point at.
    scene->clear();
}

void GameUIEditor::showEvent(QShowEvent* event)
{
    QGraphicsView::showEvent(event);
    // The first shows settle the window's layout: the scroll margin and the
    // fitting zoom are known only once the viewport has its size.
    if (showCount < 4) {
        ++showCount;
        scene->updateSceneRect();
        scene->centerOnScene();
        scene->fitZoom();
    }
}

void GameUIEditor::resizeEvent(QResizeEvent* event)
{
    // Resizing the window neither fits the zoom nor re-centres the canvas;
    // the base class only lays out the scroll bars and the background cache.
    QGraphicsView::resizeEvent(event);
}

bool GameUIEditor::eventFilter(QObject* watched, QEvent* event)
{
    // The arrow keys belong to the selected component, never to a scroll bar.
    if ((watched == horizontalScrollBar() || watched == verticalScrollBar()) && event->type() == QEvent::KeyPress
        && scene->selectedComponent())
        return true;
    return QGraphicsView::eventFilter(watched, event);
}

void GameUIEditor::drawBackground(QPainter* painter, const QRectF& rect)
{
    QGraphicsView::drawBackground(painter, rect);
    scene->stillLayer().drawBelow(painter, rect);
}

void GameUIEditor::drawForeground(QPainter* painter, const QRectF& rect)
{
    scene->stillLayer().drawAbove(painter);
    QGraphicsView::drawForeground(painter, rect);
}

void GameUIEditor::mousePressEvent(QMouseEvent* event)
{
    // A layer left from a drag whose release went elsewhere.
    scene->stillLayer().end();
    QGraphicsView::mousePressEvent(event);
    // The repaint that shows the press draws the layer, so that the first
    // move of a drag is as quick as the others.
    if (event->button() == Qt::LeftButton)
        beginStillLayer();
}

void GameUIEditor::mouseMoveEvent(QMouseEvent* event)
{
    QGraphicsView::mouseMoveEvent(event);
    if ((event->buttons() & Qt::LeftButton) && !scene->stillLayer().isActive())
        beginStillLayer();
}

void GameUIEditor::beginStillLayer()
{
    // A component dragged, or held by one of its handles.
    UIComponentBase* moving = scene->draggedComponent();
    if (!moving && scene->mouseGrabberItem())
        moving = scene->selectedComponent();
    if (moving)
        scene->stillLayer().begin(this, moving);
}

void GameUIEditor::mouseReleaseEvent(QMouseEvent* event)
{
    QGraphicsView::mouseReleaseEvent(event);
    scene->stillLayer().end();
}

void GameUIEditor::setZoomCallback(const std::function<void(int, int)>& callback)
{
    scene->setZoomCallback(callback);
}

void GameUIEditor::zoomIn()
{
    scene->zoomIn();
}

void GameUIEditor::zoomOut()
{
    scene->zoomOut();
}

void GameUIEditor::fitZoom()
{
    scene->fitZoom();
}

void GameUIEditor::setup(GameUIEditorSceneHelperBase* helper, QJsonObject* projectData)
{
    scene->setHelper(helper);
    scene->setProjectData(projectData);
}

void GameUIEditor::bindList(UltimateTreeWidget* list, QPushButton* add, QPushButton* remove)
{
    scene->setList(list);
    // A list that goes first leaves the scene without one, not with a dangling one.
    connect(list, &QObject::destroyed, this, [this]() { scene->setList(nullptr); });
    addButton = add;
    removeButton = remove;
    connect(list, &UltimateTreeWidget::currentItemChanged, this, &GameUIEditor::list_currentItemChanged);
    connect(list, &UltimateTreeWidget::itemDoubleClicked, this, &GameUIEditor::list_itemDoubleClicked);
    connect(list, &UltimateTreeWidget::itemRelocated, this, &GameUIEditor::list_itemRelocated);
    connect(list, &UltimateTreeWidget::onDeleteKeyPress, this, &GameUIEditor::deleteAComponent);
    connect(list, &UltimateTreeWidget::customContextMenuRequested, this,
            &GameUIEditor::list_customContextMenuRequested);
    connect(list, &UltimateTreeWidget::itemExpanded, this, &GameUIEditor::onItemExpanded);
    connect(list, &UltimateTreeWidget::itemCollapsed, this, &GameUIEditor::onItemCollapsed);
    connect(list, &UltimateTreeWidget::onCopyKeyPress, this, &GameUIEditor::copyAComponent);
    connect(list, &UltimateTreeWidget::onCutKeyPress, this, &GameUIEditor::cutAComponent);
    connect(list, &UltimateTreeWidget::onPasteKeyPress, this, &GameUIEditor::pasteAComponentFromList);
    if (removeButton)
        removeButton->setEnabled(list->tree()->currentRow() != nullptr);
}

void GameUIEditor::createACenteredComponent()
{
    scene->createACenteredComponent();
}

void GameUIEditor::createAComponent()
{
    scene->createAComponent(nullptr);
}

void GameUIEditor::createAComponentChild()
{
    if (UIComponentBase* selected = scene->selectedComponent())
        scene->createAComponent(selected);
}

void GameUIEditor::editAComponent()
{
    scene->editAComponent();
}

void GameUIEditor::deleteAComponent()
{
    scene->deleteAComponent();
}

void GameUIEditor::copyAComponent()
{
    scene->copyAComponent();
}

void GameUIEditor::cutAComponent()
{
    scene->cutAComponent();
}

void GameUIEditor::pasteAComponent()
{
    scene->paste(nullptr);
}

void GameUIEditor::pasteAComponentFromList()
{
    UltimateTreeItem* current = scene->list() ? scene->list()->tree()->currentRow() : nullptr;
    UltimateTreeItem* parentRow = current ? current->parentItem() : nullptr;
    scene->paste(parentRow ? scene->componentOfRow(parentRow) : nullptr);
}

void GameUIEditor::hideAComponent()
{
    scene->hideAComponent();
}

void GameUIEditor::onItemExpanded(UltimateTreeItem* item)
{
    scene->expansionChanged(item);
}

void GameUIEditor::onItemCollapsed(UltimateTreeItem* item)
{
    scene->expansionChanged(item);
}

void GameUIEditor::list_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem*)
{
    scene->listCurrentItemChanged(current);
    if (removeButton)
        removeButton->setEnabled(current != nullptr);
    setFocus();
}

void GameUIEditor::list_itemDoubleClicked(UltimateTreeItem* item, int)
{
    // A row with children keeps its double-click for opening and closing.
    if (item && item->childCount() == 0)
        scene->editAComponent();
}

void GameUIEditor::list_itemRelocated(UltimateTreeItem* item)
{
    scene->listItemRelocated(item);
}

void GameUIEditor::list_customContextMenuRequested(const QPoint& position)
{
    scene->setPastePosition(scene->sceneRect().center());
    scene->prepareMenu(contextMenu);
    if (scene->list())
        scene->list()->tree()->setPopupOpen(true);
    contextMenu->popup(position);
}
