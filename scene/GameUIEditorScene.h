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
    void setFontNames(const QString& main, const QString& number, const QString& fallback);

    double zoomFactor() const { return zoom / 10.0; }
    // Stores the zoom in tenths and tells every component.
    void setZoom(int value);
    void updateSceneRect();
    void setBackgroundImage(const QPixmap& pixmap);
    void setDarkness(double value);

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

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // Ctrl+Z and Ctrl+Y; true when the key was one of them.
    bool handleUndoKeys(QKeyEvent* event);
    void drawBackground(QPainter* painter, const QRectF& rect) override;

private:
    // The kind's component from the helper, under its parent or in the scene.
    UIComponentBase* makeComponent(const QJsonObject& json, UIComponentBase* parent);
    UltimateTreeItem* makeRow(const QJsonObject& json, UIComponentBase* component);
    // Loading builds rows detached from the list and adds each top-level row
    // once its subtree stands, so a large HUD lays the list out once.
    void loadArray(const QJsonArray& array, UIComponentBase* parent, UltimateTreeItem* parentRow);
    void detachComponent(UIComponentBase* component);
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
