#pragma once

#include "scene/UndoRecord.h"

#include <QGraphicsScene>
#include <QHash>
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
    void removeComponent(UIComponentBase* component);
    void hideAComponent();
    void copyAComponent();
    void cutAComponent();
    void paste(UIComponentBase* parent);
    UIComponentBase* pasteObject(QJsonObject object, UIComponentBase* parent);
    void listCurrentItemChanged(UltimateTreeItem* current);
    void listItemRelocated(UltimateTreeItem* row);
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
    // Steps back and forth through the undo stacks; filled in with the undo work.
    void undo();
    void redo();

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
    void pushStructure(int kind, UIComponentBase* component, const QJsonObject& extra = QJsonObject());
    QJsonArray serialise(UltimateTreeItem* parentRow) const;
    QStringList componentNames() const;
    void showPopup(QMenu* menu, const QPoint& screenPosition);
    // Tells the user that the HUD is full; the action that hit the limit stops.
    void reportLimit();

    // The rows directly below a row, or the top-level rows for null.
    QList<UltimateTreeItem*> rowsUnder(UltimateTreeItem* parentRow) const;
};
