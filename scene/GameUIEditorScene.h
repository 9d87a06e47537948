#pragma once

#include "scene/UndoRecord.h"

#include <QGraphicsScene>
#include <QHash>
#include <QMultiHash>
#include <QImage>
#include <QJsonArray>
#include <QLine>
#include <QList>
#include <QMap>
#include <QPixmap>
#include <QRectF>

#include <functional>
#include <vector>

class GameUIEditor;
class GameUIEditorSceneHelperBase;
class QGraphicsSceneWheelEvent;
class QKeyEvent;
class QMenu;
class UIComponentBase;
class UltimateTreeItem;
class UltimateTreeWidget;

// The canvas of the HUD being edited. It holds the components and keeps three
// views of them in step: the graphics items, the rows of the component list
// and the JSON of the document. The list's row order is the truth for order
// and parenthood; stacking on the canvas follows from it.
class GameUIEditorScene : public QGraphicsScene
{
    Q_OBJECT
public:
    // A HUD holds at most this many components; creation and paste stop there.
    static constexpr int componentLimit = 501;
    // Rows by component id. Ids are unique in a HUD the editor made; a
    // hand-made document may repeat one, and then every row still has its place.
    using RowHash = QMultiHash<int, UltimateTreeItem*>;

    explicit GameUIEditorScene(GameUIEditor* view = nullptr, QObject* parent = nullptr);
    ~GameUIEditorScene() override;

    // Takes ownership of the helper.
    void setHelper(GameUIEditorSceneHelperBase* value);
    void setUndoCallback(const std::function<void(int, int)>& callback) { undoStateChanged = callback; }

    // The document array of the HUD, in list order and nesting.
    QJsonArray toJson() const;
    void loadFromJson(const QJsonArray& array);
    void clear();
    // Builds one component with its row; records the creation and selects it.
    UIComponentBase* createFromJson(const QJsonObject& json, UIComponentBase* parent);
    // Stacking follows list order: later rows above earlier ones, children
    // above parents, the selected component above its siblings.
    void restack();
    void select(UIComponentBase* component);
    void refreshOrder();
    // The list's structure as an order array of component ids.
    QJsonArray orderFromList() const;
    void setScreenSize(int width, int height);
    // The same, then the zoom that fits the new canvas into the view.
    void setScreenSize(int width, int height, bool fit);
    void setFontNames(const QString& main, const QString& number, const QString& fallback);

    double zoomFactor() const { return zoom / 10.0; }
    // Stores the zoom in tenths, rebuilds the canvas at that size and tells
    // every component; with keepCentre the view stays on the same spot.
    void setZoom(int value, bool keepCentre = false);
    void updateSceneRect();
    void setBackgroundImage(const QPixmap& pixmap);
    void setDarkness(double value);
    void setZoomCallback(const std::function<void(int, int)>& callback) { zoomStateChanged = callback; }
    // Tells the zoom-state callback which zoom commands can run: (in, out),
    // 1 for available and 2 for not.
    void reportZoomState();
    // Loads the canvas tile from the program's resources.
    void loadTile();
    // The canvas as the view shows it, at the present zoom, without frames,
    // handles or guides; withBackground false leaves it transparent behind
    // the components. Null when the canvas has no area or is too large.
    QImage canvasImage(bool withBackground);

    // What the list and the context menu act on.
    void createAComponent(UIComponentBase* parent);
    void createACenteredComponent();
    void editAComponent();
    void deleteAComponent();
    // Takes the component and everything below it out of list and canvas; they
    // wait in removedComponents. With record, the deletion becomes an undo step.
    void removeComponent(UIComponentBase* component, bool record = true);
    void hideAComponent();
    void copyAComponent();
    void cutAComponent();
    void paste(UIComponentBase* parent);
    UIComponentBase* pasteObject(QJsonObject object, UIComponentBase* parent);
    void listCurrentItemChanged(UltimateTreeItem* current);
    void listItemRelocated(UltimateTreeItem* row);
    // A row was opened or closed: order keeps the row's state, never the
    // list's structure, so a relocation still finds the structure before it.
    void expansionChanged(UltimateTreeItem* row);
    // Sets the menu's texts and visibility from the current row and the clipboard.
    void prepareMenu(QMenu* menu);

    UIComponentBase* componentOfRow(UltimateTreeItem* row) const { return itemToComponent.value(row); }
    UltimateTreeItem* rowOfComponent(UIComponentBase* component) const { return componentToItem.value(component); }
    // The row text of a component: its "Name", or the translated "Component".
    static QString rowText(const QJsonObject& json);

public slots:
    void zoomIn();
    void zoomOut();
    void fitZoom();
    // Applies the present zoom once more, as after a change of the items.
    void refreshZoom(bool centre);
    void centerOnScene();

signals:
    // The HUD changed in a way that leaves no undo step (a move by the arrow
    // keys); the document still needs saving.
    void changedWithoutUndo();

public:
    // Hover bookkeeping and the undo bracket, called by the components.
    void hoverEnter(UIComponentBase* component);
    void hoverLeave();
    void setUndoEnabled(bool on);
    void setRedoEnabled(bool on);
    void pushSnapshot(UIComponentBase* component, bool toRedo, bool pending);
    void beginChange(UIComponentBase* component);
    void finishChange(UIComponentBase* component);
    void undo();
    void redo();
    // Gives a deleted component and those below it back their place in
    // components and a new row each, entered into rows by id.
    void restoreRows(UIComponentBase* component, RowHash& rows);
    // Puts the list into the shape of an order array; fill may add rows that
    // are not in the list yet. A row the array doesn't name stays in the list.
    void restoreOrder(const QJsonArray& target, const std::function<void(RowHash&)>& fill = nullptr);

    // Direct manipulation: the drag step for a mouse position (also after a
    // scroll, so that the dragged item stays under the cursor), and what
    // Control and Shift do while a component is dragged or resized; true
    // when the key was taken.
    void dragStep(const QPointF& mouseScenePos);
    bool manipulationKey(QKeyEvent* event, bool press);

    GameUIEditorSceneHelperBase* helper = nullptr;
    QImage tile;
    std::function<void(int, int)> undoStateChanged;
    std::function<void(int, int)> zoomStateChanged;
    QPixmap backgroundImage;
    QVector<QLine> guideLines;
    QRectF canvasRect;
    QPointF pastePosition;
    QMap<UltimateTreeItem*, UIComponentBase*> itemToComponent;
    QMap<UIComponentBase*, UltimateTreeItem*> componentToItem;
    QList<UIComponentBase*> components;
    QList<UIComponentBase*> pressedComponents;
    std::vector<UndoRecord> undoStack;
    std::vector<UndoRecord> redoStack;
    QList<UIComponentBase*> removedComponents;
    QJsonArray order;
    QString mainFontName;
    QString numberFontName;
    QString fallbackFontName;
    GameUIEditor* view;
    QJsonObject* projectData = nullptr;
    UIComponentBase* hoveredComponent = nullptr;
    UIComponentBase* selectedComponent = nullptr;
    UIComponentBase* draggedComponent = nullptr;
    UIComponentBase* previouslySelected = nullptr;
    UltimateTreeWidget* list = nullptr;
    double darkness = 0.0;
    int zoom = 10;
    int screenWidth = -1;
    int screenHeight = -1;
    int idCounter = 0;
    int hoverCount = 0;
    bool selectionPending = true;
    bool wheelZoomAllowed = true;
    bool wheelAllowed = true;
    bool userZoomed = false;
    bool pendingChange = false;
    bool leftButtonDown = false;
    // The blank cursor of a drag is on.
    bool dragCursorSet = false;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    // Ctrl+Z and Ctrl+Y; true when the key was one of them.
    bool handleUndoKeys(QKeyEvent* event);
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    // Direct manipulation: the drag, the snap guides and the keys that change a running drag or resize.
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;
    void wheelEvent(QGraphicsSceneWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    // The editor's own keys: arrow moves, Delete, Ctrl+Q, Ctrl+X, Ctrl+C and
    // Ctrl+V. True when the key was taken.
    bool editorKeyPress(QKeyEvent* event);
    // Draws the canvas anew, past the view's cache of it.
    void repaintCanvas();
    // The part of the scene the view shows now.
    QRectF visibleSceneRect() const;
    // While an image of the canvas is drawn, the area behind the components
    // stays as it is.
    bool canvasHidden = false;

    // The kind's component from the helper, under its parent or in the scene.
    UIComponentBase* makeComponent(const QJsonObject& json, UIComponentBase* parent);
    UltimateTreeItem* makeRow(const QJsonObject& json, UIComponentBase* component);
    // Loading builds rows detached from the list and adds each top-level row
    // once its subtree stands, so a large HUD lays the list out once.
    void loadArray(const QJsonArray& array, UIComponentBase* parent, UltimateTreeItem* parentRow);
    void detachComponent(UIComponentBase* component);
    // A component that leaves the canvas while it is dragged or held by a
    // handle ends that interaction first.
    void endInteraction(UIComponentBase* component);
    // The drag's end: back within reach of the canvas, the undo bracket closed.
    void finishDrag(UIComponentBase* component);
    // Wakes hover handling under a cursor that stands still after a drag.
    void nudgeCursor();
    void restackRows(UltimateTreeItem* parentRow, UIComponentBase* parent);
    // Pushes a structure step; before is the order array before the act.
    void pushStructure(int kind, UIComponentBase* component, const QJsonArray& before,
                       const QJsonObject& extra = QJsonObject());
    // undo() and redo(): one step from one stack, its inverse onto the other.
    void replay(bool forward);
    // No selection, with the list and the view's buttons told.
    void clearSelection();
    QJsonArray serialise(UltimateTreeItem* parentRow) const;
    QStringList componentNames() const;
    void showPopup(QMenu* menu, const QPoint& screenPosition);
    // Tells the user that the HUD is full; the action that hit the limit stops.
    void reportLimit();

    // The rows directly below a row, or the top-level rows for null.
    QList<UltimateTreeItem*> rowsUnder(UltimateTreeItem* parentRow) const;

    // Above zero while the scene itself reshapes the list: the rows it opens
    // and closes on the way say nothing about what the user wants open.
    int structureDepth = 0;
    friend struct StructureWork;
};
