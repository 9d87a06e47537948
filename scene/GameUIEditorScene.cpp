#include "scene/GameUIEditorScene.h"

#include "app/PathManager.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorSceneHelperBase.h"
#include "scene/ResizeComponentButtonSprite.h"
#include "scene/UIComponentBase.h"
#include "widgets/AlertDialog.h"
#include "widgets/ClipboardIdentifiers.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QGraphicsView>
#include <QIcon>
#include <QJsonDocument>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTimer>

namespace {

const QString KeyChildren = QStringLiteral("Children");
const QString KeyExpanded = QStringLiteral("Expanded");
const QString KeyOrder = QStringLiteral("Order");
const QString KeyPosX = QStringLiteral("PosX");
const QString KeyPosY = QStringLiteral("PosY");

// The component ids of the order array, counted down the tree.
QJsonValue orderEntry(UltimateTreeItem* row)
{
    if (row->childCount() == 0)
        return row->id();
    QJsonArray entry;
    entry.append(QJsonObject{{QStringLiteral("Type"), row->id()}, {KeyExpanded, row->isExpanded()}});
    for (int i = 0; i < row->childCount(); ++i)
        entry.append(orderEntry(row->child(i)));
    return entry;
}

// Sets the open state of the row with this id inside an order array; false
// when the array holds no such row with children.
bool setExpandedIn(QJsonArray& array, int id, bool expanded)
{
    for (int i = 0; i < array.size(); ++i) {
        if (!array.at(i).isArray())
            continue;
        QJsonArray entry = array.at(i).toArray();
        QJsonObject head = entry.first().toObject();
        if (head.value(QStringLiteral("Type")).toInt() == id) {
            if (head.value(KeyExpanded).toBool(true) != expanded) {
                head.insert(KeyExpanded, expanded);
                entry[0] = head;
                array[i] = entry;
            }
            return true;
        }
        if (setExpandedIn(entry, id, expanded)) {
            array[i] = entry;
            return true;
        }
    }
    return false;
}

int countObjects(const QJsonArray& array)
{
    int count = 0;
    for (const QJsonValue& value : array) {
        if (!value.isObject())
            continue;
        count += 1 + countObjects(value.toObject().value(KeyChildren).toArray());
    }
    return count;
}

}

// Marks the scene's own reshaping of the list for as long as it lives.
struct StructureWork {
    explicit StructureWork(GameUIEditorScene* owner) : scene(owner) { ++scene->structureDepth; }
    ~StructureWork() { --scene->structureDepth; }
    GameUIEditorScene* scene;
};

GameUIEditorScene::GameUIEditorScene(GameUIEditor* owner, QObject* parent) : QGraphicsScene(parent), view(owner)
{
    // Every zoom step moves and resizes every item, which would rebuild a
    // spatial index each time; a HUD's few hundred items are found faster by
    // looking at each.
    setItemIndexMethod(QGraphicsScene::NoIndex);
}

GameUIEditorScene::~GameUIEditorScene()
{
    // Deleted components belong to the scene; live ones go with their items.
    for (UIComponentBase* component : qAsConst(removedComponents)) {
        if (component->removedChildren)
            component->removedChildren->clear();
        component->setParentItem(nullptr);
    }
    qDeleteAll(removedComponents);
    delete helper;
}

void GameUIEditorScene::setHelper(GameUIEditorSceneHelperBase* value)
{
    if (value == helper)
        return;
    delete helper;
    helper = value;
}

QString GameUIEditorScene::rowText(const QJsonObject& json)
{
    const QString name = json.value(QStringLiteral("Name")).toString();
    return name.isEmpty() ? tr("Component") : name;
}

QList<UltimateTreeItem*> GameUIEditorScene::rowsUnder(UltimateTreeItem* parentRow) const
{
    QList<UltimateTreeItem*> rows;
    if (parentRow) {
        for (int i = 0; i < parentRow->childCount(); ++i)
            rows.append(parentRow->child(i));
    } else if (list) {
        const UltimateTree* tree = list->tree();
        for (int i = 0; i < tree->rowCount(); ++i)
            rows.append(tree->row(i));
    }
    return rows;
}

// ---------------------------------------------------------------- serialising

QJsonArray GameUIEditorScene::serialise(UltimateTreeItem* parentRow) const
{
    QJsonArray array;
    for (UltimateTreeItem* row : rowsUnder(parentRow)) {
        // A row without a component is skipped.
        UIComponentBase* component = itemToComponent.value(row);
        if (!component)
            continue;
        QJsonObject object = component->data();
        if (row->childCount() > 0)
            object.insert(KeyChildren, serialise(row));
        else if (object.contains(KeyChildren))
            object.insert(KeyChildren, QJsonArray());
        if (component->canHaveChildren()) {
            // A row without children has no open or closed state of its own;
            // it keeps what the document said until it gets one.
            const bool expanded = row->childCount() > 0 ? row->isExpanded()
                                                        : component->jsonData.value(KeyExpanded).toBool(true);
            object.insert(KeyExpanded, expanded);
        }
        array.append(object);
    }
    return array;
}

QJsonArray GameUIEditorScene::toJson() const
{
    return serialise(nullptr);
}

QJsonArray GameUIEditorScene::orderFromList() const
{
    QJsonArray array;
    for (UltimateTreeItem* row : rowsUnder(nullptr))
        array.append(orderEntry(row));
    return array;
}

void GameUIEditorScene::refreshOrder()
{
    order = orderFromList();
}

// ---------------------------------------------------------------- building

UIComponentBase* GameUIEditorScene::makeComponent(const QJsonObject& json, UIComponentBase* parent)
{
    UIComponentBase* component = helper->createComponent(json, this, projectData, true);
    if (!component)
        return nullptr;
    if (parent)
        component->setParentComponent(parent);
    else
        addItem(component);
    components.append(component);
    return component;
}

UltimateTreeItem* GameUIEditorScene::makeRow(const QJsonObject& json, UIComponentBase* component)
{
    UltimateTreeItem* row = new UltimateTreeItem();
    row->setId(json.value(QStringLiteral("ID")).toInt(-1));
    row->setCanHaveChildren(component->canHaveChildren());
    row->setText(0, rowText(json));
    itemToComponent.insert(row, component);
    componentToItem.insert(component, row);
    return row;
}

UIComponentBase* GameUIEditorScene::createFromJson(const QJsonObject& json, UIComponentBase* parent)
{
    if (!helper || !list)
        return nullptr;
    const QJsonArray before = order;
    const StructureWork work(this);
    UIComponentBase* component = makeComponent(json, parent);
    if (!component)
        return nullptr;
    UltimateTreeItem* row = makeRow(json, component);
    UltimateTree* tree = list->tree();
    UltimateTreeItem* current = tree->currentRow();
    if (parent) {
        UltimateTreeItem* parentRow = componentToItem.value(parent);
        if (current && current->parentItem() == parentRow)
            parentRow->insertChildAfter(row, current);
        else
            parentRow->addChild(row);
        parentRow->expand();
    } else if (current) {
        while (current->parentItem())
            current = current->parentItem();
        tree->insertRowAfter(row, current);
    } else {
        tree->addRow(row);
    }

    pushStructure(UndoRecord::Created, component, before);
    select(component);
    component->setData(json);
    return component;
}

void GameUIEditorScene::pushStructure(int kind, UIComponentBase* component, const QJsonArray& before,
                                      const QJsonObject& extra)
{
    setRedoEnabled(false);
    UndoRecord record;
    record.kind = kind;
    record.json = extra;
    record.json.insert(KeyOrder, before);
    record.component = component;
    undoStack.push_back(record);
    setUndoEnabled(true);
}

void GameUIEditorScene::loadArray(const QJsonArray& array, UIComponentBase* parent, UltimateTreeItem* parentRow)
{
    for (const QJsonValue& value : array) {
        if (!value.isObject())
            continue;
        QJsonObject json = value.toObject();
        const QJsonArray children = json.value(KeyChildren).toArray();
        // The children live in their own components; the parent's object only
        // remembers that it had the key.
        if (json.contains(KeyChildren))
            json.insert(KeyChildren, QJsonArray());
        UIComponentBase* component = makeComponent(json, parent);
        if (!component)
            continue;
        UltimateTreeItem* row = makeRow(json, component);
        if (parentRow)
            parentRow->addChild(row);
        component->setData(json);
        idCounter = qMax(idCounter, json.value(QStringLiteral("ID")).toInt(0));
        if (!children.isEmpty()) {
            loadArray(children, component, row);
            if (json.value(KeyExpanded).toBool(true))
                row->expand();
            else
                row->collapse(false);
        }
        if (!parentRow)
            list->tree()->addRow(row);
    }
}

void GameUIEditorScene::loadFromJson(const QJsonArray& array)
{
    if (helper && list) {
        const QSignalBlocker blockTree(list->tree());
        const QSignalBlocker blockList(list);
        loadArray(array, nullptr, nullptr);
    }
    // A loaded HUD has no steps to undo.
    undoStack.clear();
    setUndoEnabled(false);
    setRedoEnabled(false);
    select(nullptr);
    if (list)
        list->tree()->setCurrentRow(nullptr);
    refreshOrder();
}

void GameUIEditorScene::detachComponent(UIComponentBase* component)
{
    endInteraction(component);
    if (component == hoveredComponent)
        hoveredComponent = nullptr;
    pressedComponents.removeAll(component);
    component->setSelected(false);
    component->setParentComponent(nullptr);
    if (component->scene() == this)
        removeItem(component);
}

void GameUIEditorScene::clear()
{
    if (list) {
        const QSignalBlocker blockTree(list->tree());
        const QSignalBlocker blockList(list);
        list->tree()->setCurrentRow(nullptr);
        list->tree()->clear();
    }
    for (UIComponentBase* moving : {draggedComponent, selectedComponent}) {
        if (moving)
            endInteraction(moving);
    }
    // Removing the top-level items takes their children along; deleting them
    // frees the whole tree of items.
    QList<UIComponentBase*> top;
    for (UIComponentBase* component : qAsConst(components)) {
        if (!component->parentComponent)
            top.append(component);
    }
    for (UIComponentBase* component : qAsConst(top)) {
        if (component->scene() == this)
            removeItem(component);
    }
    qDeleteAll(top);
    for (UIComponentBase* component : qAsConst(removedComponents)) {
        if (component->removedChildren)
            component->removedChildren->clear();
        component->setParentItem(nullptr);
    }
    qDeleteAll(removedComponents);
    removedComponents.clear();
    itemToComponent.clear();
    componentToItem.clear();
    components.clear();
    pressedComponents.clear();
    undoStack.clear();
    redoStack.clear();
    order = QJsonArray();
    hoveredComponent = nullptr;
    selectedComponent = nullptr;
    draggedComponent = nullptr;
    previouslySelected = nullptr;
    idCounter = 0;
    setUndoEnabled(false);
    setRedoEnabled(false);
}

// ---------------------------------------------------------------- stacking and selection

void GameUIEditorScene::restackRows(UltimateTreeItem* parentRow, UIComponentBase* parent)
{
    const QList<UltimateTreeItem*> rows = rowsUnder(parentRow);
    const int count = rows.size();
    for (int i = 0; i < count; ++i) {
        UltimateTreeItem* row = rows.at(i);
        UIComponentBase* component = itemToComponent.value(row);
        if (!component)
            continue;
        component->setParentComponent(parent);
        if (!parent && component->scene() != this)
            addItem(component);
        // Siblings stack by list order; the selected one lies above them all.
        component->setZValue(component == selectedComponent ? count : i);
        restackRows(row, component);
    }
}

void GameUIEditorScene::restack()
{
    restackRows(nullptr, nullptr);
}

void GameUIEditorScene::select(UIComponentBase* component)
{
    if (selectedComponent) {
        selectedComponent->setSelected(false);
        selectedComponent->update();
    }
    selectedComponent = component;
    if (!component) {
        if (hoveredComponent)
            hoveredComponent->clearHover();
        restack();
        return;
    }
    component->setSelected(true);
    component->update();
    UltimateTreeItem* row = componentToItem.value(component);
    if (list && row && list->tree()->currentRow() != row)
        list->tree()->setCurrentRow(row);
    if (hoveredComponent && hoveredComponent != component)
        hoveredComponent->clearHover();
    restack();
}

void GameUIEditorScene::listCurrentItemChanged(UltimateTreeItem* current)
{
    UIComponentBase* component = current ? itemToComponent.value(current) : nullptr;
    if (component != selectedComponent || !component)
        select(component);
}

// ---------------------------------------------------------------- canvas

namespace {

// Zoom steps grow with the zoom, and the two directions change step at
// different points: in from 9 goes to 10, out from 11 goes to 9.
int zoomInStep(int zoom)
{
    if (zoom >= 50)
        return 0;
    if (zoom >= 40)
        return 10;
    if (zoom >= 30)
        return 8;
    if (zoom >= 20)
        return 4;
    if (zoom >= 10)
        return 2;
    return 1;
}

int zoomOutStep(int zoom)
{
    if (zoom < 2)
        return 0;
    if (zoom > 40)
        return 10;
    if (zoom > 30)
        return 8;
    if (zoom > 20)
        return 4;
    if (zoom > 10)
        return 2;
    return 1;
}

// The canvas fits when the viewport exceeds it by more than 25 pixels each way.
bool fitsViewport(const QWidget* viewport, double width, double height)
{
    return viewport && viewport->width() > width + 25 && viewport->height() > height + 25;
}

}

void GameUIEditorScene::setZoom(int value, bool keepCentre)
{
    QPointF centre;
    if (keepCentre && view) {
        const QPointF middle = view->mapToScene(view->viewport()->rect().center());
        const QRectF area = sceneRect();
        if (area.width() > 0 && area.height() > 0)
            centre = QPointF((middle.x() + 1) / area.width(), (middle.y() + 1) / area.height());
        else
            keepCentre = false;
    }
    zoom = value;
    updateSceneRect();
    // Drops the cached background, drawn at the old size.
    if (view)
        view->setCacheMode(QGraphicsView::CacheNone);
    update();
    if (view)
        view->setCacheMode(QGraphicsView::CacheBackground);
    for (QGraphicsItem* item : items()) {
        if (UIComponentBase* component = qobject_cast<UIComponentBase*>(item->toGraphicsObject()))
            component->zoomChanged();
    }
    // Deleted components come back from undo at the zoom of that moment.
    for (UIComponentBase* component : qAsConst(removedComponents))
        component->zoomChanged();
    if (keepCentre && view) {
        const QRectF area = sceneRect();
        view->centerOn(centre.x() * area.width(), centre.y() * area.height());
    }
}

void GameUIEditorScene::reportZoomState()
{
    if (!zoomStateChanged)
        return;
    if (zoom < 2)
        zoomStateChanged(1, 2);
    else if (zoom < 50)
        zoomStateChanged(1, 1);
    else
        zoomStateChanged(2, 1);
}

void GameUIEditorScene::zoomIn()
{
    const int step = zoomInStep(zoom);
    if (step == 0)
        return;
    setZoom(zoom + step, true);
    reportZoomState();
}

void GameUIEditorScene::zoomOut()
{
    const int step = zoomOutStep(zoom);
    if (step == 0)
        return;
    setZoom(zoom - step, true);
    reportZoomState();
}

void GameUIEditorScene::fitZoom()
{
    const QWidget* viewport = view ? view->viewport() : nullptr;
    // A fit never enlarges beyond 2.0 and never shrinks below 0.2.
    int fitting = 2;
    for (int z = 20; z >= 3; --z) {
        const double factor = z / 10.0;
        if (fitsViewport(viewport, screenWidth * factor, screenHeight * factor)) {
            fitting = z;
            break;
        }
    }
    setZoom(fitting, true);
    reportZoomState();
}

void GameUIEditorScene::refreshZoom(bool centre)
{
    const int present = zoom;
    setZoom(present - 1, false);
    setZoom(present, false);
    if (centre)
        centerOnScene();
}

void GameUIEditorScene::centerOnScene()
{
    if (view)
        view->centerOn(sceneRect().center());
}

void GameUIEditorScene::updateSceneRect()
{
    const double factor = zoomFactor();
    const int width = qMax(screenWidth, 0);
    const int height = qMax(screenHeight, 0);
    canvasRect = QRectF(0, 0, width * factor, height * factor);
    // A margin to scroll into only while the canvas doesn't fit.
    if (fitsViewport(view ? view->viewport() : nullptr, canvasRect.width(), canvasRect.height()))
        setSceneRect(canvasRect);
    else
        setSceneRect(canvasRect.adjusted(-50, -50, 50, 50));
}

void GameUIEditorScene::setScreenSize(int width, int height)
{
    if (width == screenWidth && height == screenHeight)
        return;
    userZoomed = false;
    const int oldWidth = screenWidth;
    const int oldHeight = screenHeight;
    screenWidth = width;
    screenHeight = height;
    updateSceneRect();
    if (oldWidth == -1 || oldHeight == -1)
        return;
    // Top-level components keep their place against the canvas centre.
    const int shiftX = (oldWidth - width) / 2;
    const int shiftY = (oldHeight - height) / 2;
    for (UIComponentBase* component : qAsConst(components)) {
        if (!component->parentComponent) {
            const QPoint position = component->absoluteXY();
            component->setAbsoluteXY(position.x() - shiftX, position.y() - shiftY);
        }
    }
}

void GameUIEditorScene::setScreenSize(int width, int height, bool fit)
{
    setScreenSize(width, height);
    if (fit)
        fitZoom();
}

void GameUIEditorScene::setFontNames(const QString& main, const QString& number, const QString& fallback)
{
    if (main == mainFontName && number == numberFontName && fallback == fallbackFontName)
        return;
    mainFontName = main;
    numberFontName = number;
    fallbackFontName = fallback;
    for (UIComponentBase* component : qAsConst(components)) {
        if (component->jsonData.contains(QStringLiteral("TextData")))
            component->setData(component->data());
    }
}

void GameUIEditorScene::setBackgroundImage(const QPixmap& pixmap)
{
    backgroundImage = pixmap;
    repaintCanvas();
}

void GameUIEditorScene::setDarkness(double value)
{
    if (qFuzzyCompare(1.0 + value, 1.0 + darkness))
        return;
    darkness = value;
    repaintCanvas();
}

void GameUIEditorScene::loadTile()
{
    tile = QImage(PathManager::resourcePath("resources/Editor/Tile.png"));
    repaintCanvas();
}

void GameUIEditorScene::repaintCanvas()
{
    // The view keeps the background in a cache that a plain update leaves be.
    invalidate(sceneRect().united(visibleSceneRect()), BackgroundLayer);
}

void GameUIEditorScene::drawBackground(QPainter* painter, const QRectF& rect)
{
    if (canvasHidden)
        return;
    // Without a game screen there is no canvas to draw.
    if (screenWidth < 0 || screenHeight < 0) {
        QGraphicsScene::drawBackground(painter, rect);
        return;
    }
    const QBrush tileBrush = tile.isNull() ? QBrush(QColor(96, 96, 104)) : QBrush(tile);
    // Beyond the canvas: the tile, half faded into black.
    painter->fillRect(rect, Qt::black);
    painter->save();
    painter->setOpacity(0.5);
    painter->fillRect(rect, tileBrush);
    painter->restore();

    const QRectF canvas(0, 0, int(canvasRect.width()), int(canvasRect.height()));
    const QRectF visible = rect.intersected(canvas);
    const QColor shadow(0, 0, 0, 125);
    const QRectF bottomShadow = rect.intersected(QRectF(4, canvas.height(), canvas.width(), 4));
    const QRectF rightShadow = rect.intersected(QRectF(canvas.width(), 4, 4, canvas.height() - 4));
    if (!bottomShadow.isEmpty())
        painter->fillRect(bottomShadow, shadow);
    if (!rightShadow.isEmpty())
        painter->fillRect(rightShadow, shadow);

    // The frame hugs the exposed part of the canvas; the view repaints all of
    // its viewport at once, so that part is always the whole visible canvas.
    const double vx = visible.x(), vy = visible.y(), vw = visible.width(), vh = visible.height();
    painter->fillRect(QRectF(vx - 1, vy - 1, vw + 2, 1), Qt::black);
    painter->fillRect(QRectF(vx - 1, vy - 1, 1, vh + 2), Qt::black);
    painter->fillRect(QRectF(vx - 1, vy + vh, vw + 2, 1), Qt::black);
    painter->fillRect(QRectF(vx + vw, vy - 1, 1, vh + 2), Qt::black);

    if (!backgroundImage.isNull()) {
        painter->drawPixmap(canvas, backgroundImage, QRectF(backgroundImage.rect()));
        if (darkness > 0) {
            painter->save();
            painter->setOpacity(darkness);
            painter->fillRect(canvas.adjusted(0, 0, -1, -1), Qt::black);
            painter->restore();
        }
    } else if (!visible.isEmpty()) {
        painter->fillRect(visible, tileBrush);
    }
}

QImage GameUIEditorScene::canvasImage(bool withBackground)
{
    const QSize size(int(canvasRect.width()), int(canvasRect.height()));
    if (size.isEmpty())
        return QImage();
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);

    // The picture shows the HUD, not the editing state around it.
    QVector<bool> frames;
    frames.reserve(components.size());
    for (UIComponentBase* component : qAsConst(components)) {
        frames.append(component->frameVisible);
        component->frameVisible = false;
        for (QGraphicsItem* handle : qAsConst(component->handles))
            handle->setVisible(false);
    }
    const QVector<QLine> guides = guideLines;
    guideLines.clear();
    canvasHidden = !withBackground;
    {
        QPainter painter(&image);
        render(&painter, QRectF(image.rect()), QRectF(QPointF(0, 0), QSizeF(size)), Qt::IgnoreAspectRatio);
    }
    canvasHidden = false;
    guideLines = guides;
    for (int i = 0; i < components.size(); ++i) {
        components.at(i)->frameVisible = frames.at(i);
        for (QGraphicsItem* handle : qAsConst(components.at(i)->handles))
            handle->setVisible(true);
    }
    return image;
}

QRectF GameUIEditorScene::visibleSceneRect() const
{
    if (!view)
        return sceneRect();
    return view->mapToScene(view->viewport()->rect()).boundingRect();
}

void GameUIEditorScene::wheelEvent(QGraphicsSceneWheelEvent* event)
{
    // The wheel never reaches the scroll area's own handling, not even while
    // it is switched off during a resize or rotation.
    event->accept();
    if (!wheelAllowed || !view)
        return;
    if ((event->modifiers() & Qt::ControlModifier) && wheelZoomAllowed) {
        userZoomed = true;
        if (event->delta() < 1)
            zoomOut();
        else
            zoomIn();
        return;
    }
    const QRectF before = visibleSceneRect();
    // A sideways wheel (a touchpad) scrolls sideways too.
    const bool horizontal = (event->modifiers() & Qt::ShiftModifier) || event->orientation() == Qt::Horizontal;
    QScrollBar* bar = horizontal ? view->horizontalScrollBar() : view->verticalScrollBar();
    bar->setValue(bar->value() - event->delta());
    if (draggedComponent) {
        // The dragged component follows the scroll so that it stays under the
        // unchanged cursor.
        const QPoint cursor = view->viewport()->mapFromGlobal(QCursor::pos());
        dragStep(view->mapToScene(cursor));
    }
    update(before);
    update(visibleSceneRect());
}

// ---------------------------------------------------------------- keyboard

void GameUIEditorScene::keyPressEvent(QKeyEvent* event)
{
    if (manipulationKey(event, true) || handleUndoKeys(event))
        return;
    if (editorKeyPress(event)) {
        event->accept();
        return;
    }
    QGraphicsScene::keyPressEvent(event);
}

void GameUIEditorScene::keyReleaseEvent(QKeyEvent* event)
{
    if (manipulationKey(event, false))
        return;
    QGraphicsScene::keyReleaseEvent(event);
}

bool GameUIEditorScene::editorKeyPress(QKeyEvent* event)
{
    const bool control = event->modifiers() & Qt::ControlModifier;
    const bool dragging = draggedComponent != nullptr;
    UIComponentBase* selected = selectedComponent;
    const bool idle = selected && selected->interactionState == 0;
    const bool visible = selected && selected->isVisible();
    const int key = event->key();

    if (key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down) {
        // With a component selected the arrows are the component's: they never
        // scroll the view, whether or not the component can move just now.
        if (!selected)
            return false;
        if (dragging || !idle || !visible)
            return true;
        const int step = control ? 10 : 1;
        if (key == Qt::Key_Left)
            selected->moveX(-step);
        else if (key == Qt::Key_Right)
            selected->moveX(step);
        else if (key == Qt::Key_Up)
            selected->moveY(-step);
        else
            selected->moveY(step);
        emit changedWithoutUndo();
        return true;
    }
    if (dragging)
        return false;

    enum Command { None, Delete, Hide, Cut, Copy, Paste } command = None;
    if (key == Qt::Key_Delete)
        command = Delete;
    else if (control && key == Qt::Key_Q)
        command = Hide;
    else if (control && key == Qt::Key_X)
        command = Cut;
    else if (control && key == Qt::Key_C)
        command = Copy;
    else if (control && key == Qt::Key_V)
        command = Paste;
    if (command == None)
        return false;
    if (event->isAutoRepeat())
        return true;
    switch (command) {
    case Delete:
        if (visible && idle)
            deleteAComponent();
        break;
    case Hide:
        if (idle)
            hideAComponent();
        break;
    case Cut:
        if (visible && idle)
            cutAComponent();
        break;
    case Copy:
        if (visible && idle)
            copyAComponent();
        break;
    case Paste:
        if (view)
            pastePosition = view->mapToScene(view->viewport()->mapFromGlobal(QCursor::pos()));
        paste(nullptr);
        break;
    case None:
        break;
    }
    return true;
}

// ---------------------------------------------------------------- mouse

void GameUIEditorScene::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    const Qt::MouseButtons buttons = event->buttons();
    const bool leftOnly = buttons == Qt::LeftButton;
    const bool rightOnly = buttons == Qt::RightButton;
    if (event->button() == Qt::LeftButton)
        leftButtonDown = true;
    if (leftOnly || rightOnly) {
        previouslySelected = selectedComponent;
        selectedComponent = nullptr;
    }
    pressedComponents.clear();
    QGraphicsScene::mousePressEvent(event);

    if (leftOnly || rightOnly) {
        wheelZoomAllowed = false;
        if (!selectionPending) {
            // A handle took the press.
            selectionPending = true;
            selectedComponent = previouslySelected;
            previouslySelected = nullptr;
            if (!rightOnly)
                return;
        } else {
            // Prefer what was selected, then go down into children, never up.
            UIComponentBase* target = nullptr;
            for (UIComponentBase* candidate : qAsConst(pressedComponents)) {
                if (candidate->selected) {
                    target = candidate;
                    break;
                }
            }
            if (!target && !pressedComponents.isEmpty())
                target = pressedComponents.first();
            for (bool changed = target != nullptr; changed;) {
                changed = false;
                for (UIComponentBase* candidate : qAsConst(pressedComponents)) {
                    if (candidate == target)
                        continue;
                    bool below = false;
                    for (UIComponentBase* up = candidate->parentComponent; up && !below; up = up->parentComponent)
                        below = up == target;
                    if (below) {
                        target = candidate;
                        changed = true;
                        break;
                    }
                }
            }
            UltimateTree* tree = list ? list->tree() : nullptr;
            if (!target && !previouslySelected) {
                if (tree)
                    tree->setCurrentRow(nullptr);
            } else {
                if (leftOnly && target && !dragCursorSet) {
                    QApplication::setOverrideCursor(Qt::BlankCursor);
                    dragCursorSet = true;
                }
                if (previouslySelected && previouslySelected != target) {
                    previouslySelected->setSelected(false);
                    previouslySelected->update();
                }
                if (target) {
                    target->setSelected(true);
                    if (tree)
                        tree->setCurrentRow(componentToItem.value(target));
                    // A press on the component already current changes no
                    // row, so the list tells nobody: it stays the selection.
                    selectedComponent = target;
                } else if (tree) {
                    tree->setCurrentRow(nullptr);
                }
            }
            if (leftOnly && target) {
                draggedComponent = target;
                selectedComponent = target;
                beginChange(target);
                restack();
                pressedComponents.removeAll(target);
                pressedComponents.append(target);
                target->startDrag(event->scenePos(), event->modifiers() & Qt::ControlModifier);
            }
            previouslySelected = nullptr;
        }
    }
    if (!rightOnly)
        return;
    pastePosition = event->scenePos();
    if (view && view->contextMenu) {
        prepareMenu(view->contextMenu);
        showPopup(view->contextMenu, event->screenPos());
    }
}

void GameUIEditorScene::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    // A held handle gets its release first, through the base class.
    QGraphicsScene::mouseReleaseEvent(event);
    if (event->buttons() & Qt::LeftButton)
        return;
    if (leftButtonDown) {
        leftButtonDown = false;
        UIComponentBase* dragged = draggedComponent;
        draggedComponent = nullptr;
        if (dragged && selectedComponent)
            finishDrag(dragged);
        else if (selectedComponent && pendingChange)
            finishChange(selectedComponent);
        if (dragCursorSet) {
            dragCursorSet = false;
            QApplication::restoreOverrideCursor();
        }
        nudgeCursor();
    }
    wheelZoomAllowed = true;
}

void GameUIEditorScene::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    if (!selectedComponent) {
        pastePosition = event->scenePos();
        createAComponent(nullptr);
    } else {
        editAComponent();
    }
}

void GameUIEditorScene::hoverEnter(UIComponentBase* component)
{
    ++hoverCount;
    if (hoveredComponent && hoveredComponent != component)
        hoveredComponent->clearHover();
    hoveredComponent = component;
}

void GameUIEditorScene::hoverLeave()
{
    --hoverCount;
    hoveredComponent = nullptr;
}

// ---------------------------------------------------------------- commands

void GameUIEditorScene::reportLimit()
{
    QApplication::restoreOverrideCursor();
    AlertDialog::alert(tr("This HUD already holds %1 components, the most a HUD can hold. "
                          "Delete a component before adding another.")
                           .arg(componentLimit),
                       tr("Component Limit"), view ? view->window() : nullptr);
}

void GameUIEditorScene::createAComponent(UIComponentBase* parent)
{
    if (!helper)
        return;
    if (components.size() >= componentLimit) {
        reportLimit();
        return;
    }
    const int x = int(pastePosition.x() / zoomFactor());
    const int y = int(pastePosition.y() / zoomFactor());
    QJsonObject json{{QStringLiteral("X"), x}, {QStringLiteral("Y"), y}, {QStringLiteral("ID"), idCounter}};
    QApplication::restoreOverrideCursor();
    bool accepted = false;
    helper->chooseNewComponent(json, &accepted, idCounter, true, projectData, nullptr);
    if (accepted) {
        ++idCounter;
        if (UIComponentBase* component = createFromJson(json, parent))
            component->setAbsoluteXY(x, y);
    }
    refreshOrder();
    restack();
}

void GameUIEditorScene::createACenteredComponent()
{
    pastePosition = sceneRect().center();
    createAComponent(nullptr);
}

void GameUIEditorScene::editAComponent()
{
    if (!selectedComponent || !helper)
        return;
    QJsonObject copy = selectedComponent->data();
    bool accepted = false;
    helper->editComponent(copy, &accepted, nullptr, view, true, projectData);
    if (!accepted)
        return;
    beginChange(selectedComponent);
    selectedComponent->setData(copy);
    finishChange(selectedComponent);
    if (UltimateTreeItem* row = componentToItem.value(selectedComponent))
        row->setText(0, rowText(copy));
}

void GameUIEditorScene::deleteAComponent()
{
    if (!selectedComponent)
        return;
    setRedoEnabled(false);
    setUndoEnabled(true);
    removeComponent(selectedComponent);
    refreshOrder();
}

void GameUIEditorScene::removeComponent(UIComponentBase* component, bool record)
{
    const QJsonArray before = order;
    const StructureWork work(this);
    UltimateTreeItem* row = componentToItem.value(component);
    // Every component below leaves the maps before its row is deleted.
    std::function<void(UIComponentBase*)> take = [&](UIComponentBase* gone) {
        UltimateTreeItem* goneRow = componentToItem.value(gone);
        QList<UIComponentBase*> children;
        if (goneRow) {
            for (int i = 0; i < goneRow->childCount(); ++i) {
                if (UIComponentBase* child = itemToComponent.value(goneRow->child(i)))
                    children.append(child);
            }
        }
        for (UIComponentBase* child : qAsConst(children))
            take(child);
        if (gone == selectedComponent)
            selectedComponent = nullptr;
        detachComponent(gone);
        components.removeAll(gone);
        removedComponents.append(gone);
        itemToComponent.remove(goneRow);
        componentToItem.remove(gone);
        delete gone->removedChildren;
        gone->removedChildren = new QList<UIComponentBase*>(children);
        // Children wait under their parent item, as they were.
        for (UIComponentBase* child : qAsConst(children))
            child->setParentItem(gone);
    };
    take(component);
    if (row && list)
        list->tree()->deleteRow(row);
    if (record)
        pushStructure(UndoRecord::Deleted, component, before);
    if (list && !list->tree()->currentRow())
        selectedComponent = nullptr;
    update();
}

void GameUIEditorScene::hideAComponent()
{
    UltimateTreeItem* row = list ? list->tree()->currentRow() : nullptr;
    UIComponentBase* component = itemToComponent.value(row);
    if (!component)
        return;
    const bool hide = component->isVisible();
    component->setVisible(!hide);
    row->setHalfOpacityAll(hide);
    row->setItalicAll(hide);
}

void GameUIEditorScene::copyAComponent()
{
    if (!selectedComponent)
        return;
    QJsonObject object = selectedComponent->data();
    UltimateTreeItem* row = componentToItem.value(selectedComponent);
    if (row && row->childCount() > 0)
        object.insert(KeyChildren, serialise(row));
    QApplication::clipboard()->setText(
        ClipboardIdentifiers::compose(ClipboardIdentifiers::Component, object, QJsonDocument::Indented));
}

void GameUIEditorScene::cutAComponent()
{
    if (!selectedComponent)
        return;
    copyAComponent();
    deleteAComponent();
}

QStringList GameUIEditorScene::componentNames() const
{
    QStringList names;
    for (UIComponentBase* component : components)
        names.append(component->jsonData.value(QStringLiteral("Name")).toString());
    return names;
}

void GameUIEditorScene::paste(UIComponentBase* parent)
{
    if (components.size() >= componentLimit) {
        reportLimit();
        return;
    }
    QJsonObject object;
    if (!ClipboardIdentifiers::readObject(QApplication::clipboard()->text(), ClipboardIdentifiers::Component,
                                          &object))
        return;
    // A pasted tree that would pass the limit is refused whole, never cut short.
    if (components.size() + 1 + countObjects(object.value(KeyChildren).toArray()) > componentLimit) {
        reportLimit();
        return;
    }
    const QJsonArray before = order;
    const std::size_t mark = undoStack.size();
    UIComponentBase* component = pasteObject(object, parent);
    if (component) {
        // The copy comes back and goes again with everything below it as one
        // step: taking the top component out takes its children along.
        undoStack.erase(undoStack.begin() + std::ptrdiff_t(mark), undoStack.end());
        pushStructure(UndoRecord::Created, component, before);
    }
    refreshOrder();
    if (component)
        select(component);
}

UIComponentBase* GameUIEditorScene::pasteObject(QJsonObject object, UIComponentBase* parent)
{
    if (object.isEmpty())
        return nullptr;
    ++idCounter;
    object.insert(QStringLiteral("ID"), idCounter);
    const QStringList names = componentNames();
    const QString name = object.value(QStringLiteral("Name")).toString();
    // A component without a name shows its kind's word and needs no copy's name.
    if (!name.isEmpty() && names.contains(name)) {
        static const QRegularExpression suffix(QStringLiteral(" - Copy \\d+$"));
        const QRegularExpressionMatch match = suffix.match(name);
        const QString base = match.hasMatch() && match.capturedStart() > 0 ? name.left(match.capturedStart()) : name;
        QString candidate;
        for (int n = 1;; ++n) {
            candidate = tr("%1 - Copy %2").arg(base).arg(n);
            if (!names.contains(candidate))
                break;
        }
        object.insert(QStringLiteral("Name"), candidate);
    }
    const QJsonArray children = object.value(KeyChildren).toArray();
    if (object.contains(KeyChildren))
        object.insert(KeyChildren, QJsonArray());
    UIComponentBase* component = createFromJson(object, parent);
    if (!component)
        return nullptr;
    if (!parent) {
        const QRectF area = sceneRect();
        if (area.contains(pastePosition)) {
            component->setAbsoluteScenePosition(pastePosition.x(), pastePosition.y());
        } else {
            const QPointF at(component->x * zoomFactor(), component->y * zoomFactor());
            if (at.x() < 0 || at.y() < 0 || at.x() > area.width() || at.y() > area.height())
                component->setAbsoluteScenePosition(area.center().x(), area.center().y());
        }
    }
    for (const QJsonValue& child : children)
        pasteObject(child.toObject(), component);
    return component;
}

void GameUIEditorScene::listItemRelocated(UltimateTreeItem* row)
{
    UIComponentBase* component = itemToComponent.value(row);
    if (!component)
        return;
    UIComponentBase* oldParent = component->parentComponent;
    const QPoint position = component->absoluteXY();
    const QJsonArray newOrder = orderFromList();
    if (newOrder != order) {
        pushStructure(UndoRecord::Moved, component, order, QJsonObject{{KeyPosX, position.x()}, {KeyPosY, position.y()}});
        order = newOrder;
    }
    restack();
    // A move in the list never moves the component on the canvas.
    if (component->parentComponent != oldParent)
        component->setAbsoluteXY(position.x(), position.y());
}

// ---------------------------------------------------------------- menu

void GameUIEditorScene::prepareMenu(QMenu* menu)
{
    const QList<QAction*> actions = menu->actions();
    // Add, Add Child, Edit, Delete, separator, Copy, Cut, Paste, separator, Hide.
    if (actions.size() < 10)
        return;
    QAction* addChild = actions.at(1);
    QAction* edit = actions.at(2);
    QAction* remove = actions.at(3);
    QAction* copy = actions.at(5);
    QAction* cut = actions.at(6);
    QAction* pasteAction = actions.at(7);
    QAction* hide = actions.at(9);
    UltimateTreeItem* row = list ? list->tree()->currentRow() : nullptr;
    UIComponentBase* component = itemToComponent.value(row);
    if (!row || !component) {
        edit->setText(tr("Edit ..."));
        remove->setText(tr("Delete ..."));
        for (QAction* action : {addChild, edit, remove, copy, cut, hide})
            action->setVisible(false);
    } else {
        const QString name = row->text(0);
        edit->setText(tr("Edit \"%1\"").arg(name));
        remove->setText(tr("Delete \"%1\"").arg(name));
        addChild->setText(tr("Add Child to \"%1\"").arg(name));
        addChild->setVisible(component->canHaveChildren());
        for (QAction* action : {edit, remove, copy, cut, hide})
            action->setVisible(true);
        if (!name.isEmpty()) {
            copy->setText(tr("Copy \"%1\"").arg(name));
            cut->setText(tr("Cut \"%1\"").arg(name));
            if (!component->isVisible()) {
                hide->setText(tr("Show \"%1\"").arg(name));
                hide->setIcon(QIcon(QStringLiteral(":/resources/ContextIcons/Show.png")));
            } else {
                hide->setText(tr("Hide \"%1\"").arg(name));
                hide->setIcon(QIcon(QStringLiteral(":/resources/ContextIcons/Hide.png")));
            }
        }
    }
    QJsonObject pasted;
    const bool offered = ClipboardIdentifiers::readObject(QApplication::clipboard()->text(),
                                                          ClipboardIdentifiers::Component, &pasted);
    pasteAction->setVisible(offered);
    if (offered) {
        const QString name = pasted.value(QStringLiteral("Name")).toString();
        if (!name.isEmpty())
            pasteAction->setText(tr("Paste \"%1\"").arg(name));
    }
}

void GameUIEditorScene::showPopup(QMenu* menu, const QPoint& screenPosition)
{
    if (list)
        list->tree()->setPopupOpen(true);
    menu->popup(screenPosition);
}

// ---------------------------------------------------------------- undo bracket

void GameUIEditorScene::setUndoEnabled(bool on)
{
    if (!on)
        undoStack.clear();
    if (undoStateChanged)
        undoStateChanged(on ? 1 : 2, 0);
}

void GameUIEditorScene::setRedoEnabled(bool on)
{
    if (!on)
        redoStack.clear();
    if (undoStateChanged)
        undoStateChanged(0, on ? 1 : 2);
}

void GameUIEditorScene::pushSnapshot(UIComponentBase* component, bool toRedo, bool pending)
{
    pendingChange = pending;
    const QJsonObject snapshot = component->data();
    std::vector<UndoRecord>& stack = toRedo ? redoStack : undoStack;
    if (!stack.empty() && stack.back().component == component && stack.back().json == snapshot)
        return;
    stack.push_back(UndoRecord{UndoRecord::Snapshot, snapshot, component});
}

void GameUIEditorScene::beginChange(UIComponentBase* component)
{
    if (component)
        pushSnapshot(component, false, true);
}

void GameUIEditorScene::finishChange(UIComponentBase* component)
{
    if (!component)
        return;
    const QJsonObject present = component->data();
    // A change that ended where it began leaves no step behind.
    const bool equal = !undoStack.empty() && undoStack.back().component == component
                       && !undoStack.back().json.isEmpty() && undoStack.back().json == present;
    if (equal) {
        undoStack.pop_back();
        if (undoStack.empty())
            setUndoEnabled(false);
    }
    if (pendingChange) {
        pendingChange = false;
        if (!equal) {
            setRedoEnabled(false);
            if (!undoStack.empty())
                setUndoEnabled(true);
        }
    }
}

// ---------------------------------------------------------------- direct manipulation

void GameUIEditorScene::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    // A drag moves the item itself; hover waits until the release wakes it.
    if (draggedComponent && (event->buttons() & Qt::LeftButton) && !mouseGrabberItem()) {
        dragStep(event->scenePos());
        event->accept();
        return;
    }
    QGraphicsScene::mouseMoveEvent(event);
}

void GameUIEditorScene::dragStep(const QPointF& mouseScenePos)
{
    if (draggedComponent)
        draggedComponent->dragTo(mouseScenePos);
}

void GameUIEditorScene::finishDrag(UIComponentBase* component)
{
    // The drag ends as a hover leave: the next hover over the component
    // enters it afresh and makes it idle again.
    --hoverCount;
    if (hoveredComponent == component)
        hoveredComponent = nullptr;
    component->clearHover();
    // At least the box's centre stays within half its size around the canvas.
    const QPointF at = component->absoluteItemPosition();
    const double halfWidth = component->bounds.width() / 2;
    const double halfHeight = component->bounds.height() / 2;
    const double x = qBound(-halfWidth, at.x(), canvasRect.width() + halfWidth);
    const double y = qBound(-halfHeight, at.y(), canvasRect.height() + halfHeight);
    if (x != at.x() || y != at.y())
        component->setAbsoluteScenePosition(x, y);
    finishChange(component);
    // The item stays in its moving state until the next hover, so that keys
    // that want an idle component wait for the cursor to settle.
    component->endDrag();
}

void GameUIEditorScene::nudgeCursor()
{
    const QPoint at = QCursor::pos();
    const QPoint up = at - QPoint(0, 1);
    QCursor::setPos(up);
    QTimer::singleShot(100, this, [at, up]() {
        if (QCursor::pos() == up)
            QCursor::setPos(at);
    });
}

void GameUIEditorScene::endInteraction(UIComponentBase* component)
{
    if (component == draggedComponent) {
        draggedComponent = nullptr;
        component->endDrag();
        component->interactionState = 0;
        if (pendingChange)
            finishChange(component);
        wheelZoomAllowed = true;
        if (dragCursorSet) {
            dragCursorSet = false;
            QApplication::restoreOverrideCursor();
        }
    }
    if (component->activeHandle)
        component->activeHandle->release();
}

void GameUIEditorScene::drawForeground(QPainter* painter, const QRectF&)
{
    if (guideLines.isEmpty())
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(QColor(190, 120, 40), 1));
    painter->drawLines(guideLines);
    painter->restore();
}

bool GameUIEditorScene::manipulationKey(QKeyEvent* event, bool press)
{
    if (event->isAutoRepeat())
        return false;
    UIComponentBase* held = selectedComponent && selectedComponent->activeHandle ? selectedComponent : nullptr;
    if (event->key() == Qt::Key_Control) {
        // Ctrl frees a drag from snapping, and lets a resized edge snap.
        UIComponentBase* moving = draggedComponent ? draggedComponent : held;
        if (!moving)
            return false;
        moving->snapFlag = !press;
        if (press && !guideLines.isEmpty()) {
            guideLines.clear();
            update();
        }
        return true;
    }
    if (event->key() == Qt::Key_Shift) {
        // Shift keeps the kind's ratio in a corner resize, at once.
        if (!held || held->activeHandle->index == ResizeComponentButtonSprite::rotationIndex)
            return false;
        held->activeHandle->applyHandle(press, false);
        update();
        return true;
    }
    return false;
}

void GameUIEditorScene::undo()
{
    replay(false);
}

void GameUIEditorScene::redo()
{
    replay(true);
}

void GameUIEditorScene::clearSelection()
{
    UltimateTree* tree = list ? list->tree() : nullptr;
    if (tree && tree->currentRow()) {
        // The list tells the view, which deselects and updates its buttons.
        tree->setCurrentRow(nullptr);
        return;
    }
    if (view)
        view->list_currentItemChanged(nullptr, nullptr);
    else
        listCurrentItemChanged(nullptr);
}

void GameUIEditorScene::replay(bool forward)
{
    // Never in the middle of a drag or a handle's use.
    if (leftButtonDown)
        return;
    std::vector<UndoRecord>& source = forward ? redoStack : undoStack;
    std::vector<UndoRecord>& inverse = forward ? undoStack : redoStack;
    if (source.empty()) {
        if (!forward && !selectedComponent)
            clearSelection();
        return;
    }
    const UndoRecord record = source.back();
    UIComponentBase* component = record.component;
    const QJsonArray recordedOrder = record.json.value(KeyOrder).toArray();
    switch (record.kind) {
    case UndoRecord::Snapshot: {
        pushSnapshot(component, !forward, false);
        component->setData(record.json);
        if (UltimateTreeItem* row = componentToItem.value(component))
            row->setText(0, rowText(record.json));
        // Selecting again rebuilds the handles for the restored shape.
        if (componentToItem.contains(component))
            select(component);
        break;
    }
    case UndoRecord::Deleted: {
        inverse.push_back(UndoRecord{UndoRecord::Created, QJsonObject{{KeyOrder, order}}, component});
        component->clearHover();
        RowHash restored;
        restoreRows(component, restored);
        restoreOrder(recordedOrder, [&restored](RowHash& rows) { rows.unite(restored); });
        select(component);
        break;
    }
    case UndoRecord::Created: {
        inverse.push_back(UndoRecord{UndoRecord::Deleted, QJsonObject{{KeyOrder, order}}, component});
        bool wasSelected = false;
        for (UIComponentBase* up = selectedComponent; up && !wasSelected; up = up->parentComponent)
            wasSelected = up == component;
        component->setSelected(false);
        removeComponent(component, false);
        restoreOrder(recordedOrder);
        if (wasSelected) {
            selectedComponent = nullptr;
            clearSelection();
        }
        break;
    }
    case UndoRecord::Moved: {
        const int posX = record.json.value(KeyPosX).toInt();
        const int posY = record.json.value(KeyPosY).toInt();
        // The position stays the one from before the move, in both directions:
        // a move in the list keeps the canvas place.
        inverse.push_back(UndoRecord{UndoRecord::Moved,
                                     QJsonObject{{KeyOrder, order}, {KeyPosX, posX}, {KeyPosY, posY}}, component});
        restoreOrder(recordedOrder);
        clearSelection();
        component->setAbsoluteXY(posX, posY);
        break;
    }
    default:
        break;
    }
    source.pop_back();
    if (source.empty()) {
        if (forward)
            setRedoEnabled(false);
        else
            setUndoEnabled(false);
    }
    update();
    if (forward)
        setUndoEnabled(true);
    else
        setRedoEnabled(true);
}

void GameUIEditorScene::restoreRows(UIComponentBase* component, RowHash& rows)
{
    removedComponents.removeOne(component);
    components.append(component);
    UltimateTreeItem* row = makeRow(component->data(), component);
    if (!component->isVisible()) {
        row->setHalfOpacityAll(true);
        row->setItalicAll(true);
    }
    rows.insert(row->id(), row);
    if (QList<UIComponentBase*>* children = component->removedChildren) {
        component->removedChildren = nullptr;
        for (UIComponentBase* child : qAsConst(*children))
            restoreRows(child, rows);
        delete children;
    }
}

void GameUIEditorScene::restoreOrder(const QJsonArray& target, const std::function<void(RowHash&)>& fill)
{
    if (!list)
        return;
    const StructureWork work(this);
    UltimateTree* tree = list->tree();

    // Every row by id: those in the list, depth first, and those fill brings.
    QVector<UltimateTreeItem*> walked;
    walked.reserve(components.size());
    std::function<void(UltimateTreeItem*)> walk = [&](UltimateTreeItem* row) {
        walked.append(row);
        for (int i = 0; i < row->childCount(); ++i)
            walk(row->child(i));
    };
    for (int i = 0; i < tree->rowCount(); ++i)
        walk(tree->row(i));
    RowHash rows;
    rows.reserve(walked.size());
    // Inserted last to first, so that of two rows with one id the earlier
    // comes out first.
    for (int i = walked.size() - 1; i >= 0; --i)
        rows.insert(walked.at(i)->id(), walked.at(i));
    if (fill)
        fill(rows);

    // Level by level, in the array's order, only the rows that stand
    // elsewhere move: a step changes a few rows, and the list stays laid out
    // around them. An entry is a row's id, or an array of {"Type": id,
    // "Expanded"} and the entries of its children; first is where a level's
    // entries begin.
    std::function<void(const QJsonArray&, int, UltimateTreeItem*)> place = [&](const QJsonArray& entries, int first,
                                                                              UltimateTreeItem* parentRow) {
        int index = 0;
        for (int e = first; e < entries.size(); ++e) {
            const QJsonValue entry = entries.at(e);
            const bool nested = entry.isArray();
            if (!nested && !entry.isDouble())
                continue;
            const QJsonArray nestedEntries = entry.toArray();
            const QJsonObject head = nested ? nestedEntries.first().toObject() : QJsonObject();
            const int id = nested ? head.value(QStringLiteral("Type")).toInt(-1) : entry.toInt(-1);
            UltimateTreeItem* row = rows.take(id);
            if (!row)
                continue;
            UltimateTreeItem* present = parentRow ? parentRow->child(index) : tree->row(index);
            if (present != row) {
                if (row->parentItem())
                    row->parentItem()->takeChild(row);
                else if (tree->indexOfRow(row) >= 0)
                    tree->takeRow(row);
                if (!parentRow)
                    tree->insertRow(row, index);
                else if (index == 0)
                    parentRow->prependChild(row);
                else
                    parentRow->insertChildAfter(row, parentRow->child(index - 1));
            }
            ++index;
            if (nested) {
                const bool open = head.value(KeyExpanded).toBool(true);
                auto applyOpen = [row, open]() {
                    if (row->childCount() > 0 && row->isExpanded() != open) {
                        if (open)
                            row->expand();
                        else
                            row->collapse(false);
                    }
                };
                // Closing a row closes everything below it, so a row's own
                // state comes before its children's; a row that gets its
                // first children here opens after them.
                applyOpen();
                place(nestedEntries, 1, row);
                applyOpen();
            }
        }
    };
    place(target, 0, nullptr);
    // A row the array doesn't name keeps a place in the list, after the rows
    // it names, rather than leaving its component without one.
    for (auto it = rows.cbegin(); it != rows.cend(); ++it) {
        UltimateTreeItem* row = it.value();
        if (!row->parentItem() && tree->indexOfRow(row) < 0)
            tree->addRow(row);
    }

    restack();
    refreshOrder();
    // A current row that moved left the list without a current row.
    if (selectedComponent) {
        if (UltimateTreeItem* row = componentToItem.value(selectedComponent))
            tree->setCurrentRow(row);
    }
}

void GameUIEditorScene::expansionChanged(UltimateTreeItem* row)
{
    // Rows the scene or a relocation opens and closes on the way don't count;
    // a row without children has no state of its own to keep.
    if (!row || structureDepth > 0 || !list || row->childCount() == 0)
        return;
    const UltimateTree* tree = list->tree();
    if (tree->isDragging() || tree->pressedMouseButton() == 2)
        return;
    setExpandedIn(order, row->id(), row->isExpanded());
}

// ---------------------------------------------------------------- keys

bool GameUIEditorScene::handleUndoKeys(QKeyEvent* event)
{
    if (event->modifiers() != Qt::ControlModifier || (event->key() != Qt::Key_Z && event->key() != Qt::Key_Y))
        return false;
    // While a drag runs the keys belong to it.
    if (draggedComponent)
        return false;
    // A held key undoes one step, not a run of them.
    if (event->isAutoRepeat())
        return true;
    if (event->key() == Qt::Key_Z)
        undo();
    else
        redo();
    event->accept();
    return true;
}
