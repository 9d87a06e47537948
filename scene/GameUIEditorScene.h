#pragma once

#include "scene/SceneCanvas.h"

#include <QGraphicsScene>
#include <QJsonArray>
#include <QLine>
#include <QList>
#include <QVector>

#include <functional>
#include <memory>

class ComponentClipboard;
class ComponentListSync;
class GameUIEditor;
class GameUIEditorSceneHelperBase;
class QGraphicsSceneWheelEvent;
class QKeyEvent;
class QMenu;
class SceneKeyHandler;
class SceneMouseHandler;
class SceneUndoRecorder;
class StillLayer;
class UIComponentBase;
class UltimateTreeItem;
class UltimateTreeWidget;

// The canvas of the HUD being edited. It holds the components and keeps three
// views of them in step: the graphics items, the rows of the component list
// and the JSON of the document. The list's row order is the truth for order
// and parenthood; stacking on the canvas follows from it. What the rest of
// the program calls is here; the list, undo, clipboard, keys and mouse each
// have a unit of their own behind it.
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
    GameUIEditorSceneHelperBase* helper() const { return componentHelper; }
    // The project's data object, handed on to the helper.
    void setProjectData(QJsonObject* data) { projectData = data; }
    // The project's database by file name, for the kinds that show game
    // data; null without a project.
    QJsonObject* projectDataObject() const { return projectData; }
    GameUIEditor* editorView() const { return view; }
    // The component list; null until bound, and again once it is gone.
    void setList(UltimateTreeWidget* list);
    UltimateTreeWidget* list() const;
    // Receives (undo, redo) availability: 0 as it is, 1 enable, 2 disable.
    void setUndoCallback(const std::function<void(int, int)>& callback);

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
    // The list's structure as an order array of component ids, and the one
    // last recorded.
    QJsonArray orderFromList() const;
    const QJsonArray& order() const;
    void setScreenSize(int width, int height);
    // The same, then the zoom that fits the new canvas into the view.
    void setScreenSize(int width, int height, bool fit);
    // The game screen's size; -1 each until first set.
    int screenWidth() const { return sceneCanvas->screenSize().width(); }
    int screenHeight() const { return sceneCanvas->screenSize().height(); }
    void setFontNames(const QString& main, const QString& number, const QString& fallback);

    int zoom() const { return sceneCanvas->zoom(); }
    double zoomFactor() const { return sceneCanvas->zoomFactor(); }
    // Stores the zoom in tenths, rebuilds the canvas at that size and tells
    // every component; with keepCentre the view stays on the same spot.
    void setZoom(int value, bool keepCentre = false) { sceneCanvas->setZoom(value, keepCentre); }
    void updateSceneRect() { sceneCanvas->updateSceneRect(); }
    // (0, 0, screen width * zoom, screen height * zoom).
    QRectF canvasRect() const { return sceneCanvas->rect(); }
    void setBackgroundImage(const QPixmap& pixmap) { sceneCanvas->setBackgroundImage(pixmap); }
    void setDarkness(double value) { sceneCanvas->setDarkness(value); }
    double darkness() const { return sceneCanvas->darkness(); }
    // The image tiled behind a canvas without a background picture; whoever
    // builds the scene hands it over from the program's resources.
    void setTile(const QImage& image) { sceneCanvas->setTile(image); }
    void setZoomCallback(const std::function<void(int, int)>& callback) { sceneCanvas->setZoomCallback(callback); }
    // The canvas as the view shows it, at the present zoom, without frames,
    // handles or guides; withBackground false leaves it transparent behind
    // the components. Null when the canvas has no area or is too large.
    QImage canvasImage(bool withBackground);
    // The components the view draws into its background during a drag.
    StillLayer& stillLayer() { return *still; }
    // Every view drops what it has painted, past its caches.
    void forceRepaint() { sceneCanvas->forceRepaint(); }

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
    void listCurrentItemChanged(UltimateTreeItem* current);
    void listItemRelocated(UltimateTreeItem* row);
    // A row was opened or closed: order keeps the row's state, never the
    // list's structure, so a relocation still finds the structure before it.
    void expansionChanged(UltimateTreeItem* row);
    // Sets the menu's texts and visibility from the current row and the clipboard.
    void prepareMenu(QMenu* menu);

    UIComponentBase* componentOfRow(UltimateTreeItem* row) const;
    UltimateTreeItem* rowOfComponent(UIComponentBase* component) const;
    // The row text of a component: its "Name", or the translated "Component".
    static QString rowText(const QJsonObject& json);

    // What the scene holds. Every component in the scene in creation order,
    // and the deleted ones that wait for undo, owned by the scene.
    const QList<UIComponentBase*>& components() const { return allComponents; }
    const QList<UIComponentBase*>& removedComponents() const { return removed; }
    // At most one; the editor has no multiple selection.
    UIComponentBase* selectedComponent() const { return selection; }
    UIComponentBase* draggedComponent() const { return dragged; }
    UIComponentBase* hoveredComponent() const { return hovered; }
    // The components hit by the present press, topmost first.
    const QList<UIComponentBase*>& pressedComponents() const { return pressed; }
    const QVector<QLine>& guideLines() const { return guides; }
    // Where new or pasted components go.
    QPointF pastePosition() const { return pastePoint; }
    void setPastePosition(const QPointF& position) { pastePoint = position; }
    // The highest component id in use.
    int idCounter() const { return highestId; }
    // False during a resize or rotation.
    bool wheelAllowed() const { return wheelOn; }
    // False during a drag.
    bool wheelZoomAllowed() const { return wheelZoomOn; }
    const SceneUndoRecorder& undoRecorder() const { return *recorder; }
    // The state the HUD is in along its undo history (see SceneUndoRecorder::position).
    quint64 undoPosition() const;
    const ComponentListSync& componentListSync() const { return *listSync; }

public slots:
    void zoomIn() { sceneCanvas->zoomIn(); }
    void zoomOut() { sceneCanvas->zoomOut(); }
    void fitZoom() { sceneCanvas->fitZoom(); }
    // Applies the present zoom once more, as after a change of the items.
    void refreshZoom(bool centre) { sceneCanvas->refreshZoom(centre); }
    void centerOnScene() { sceneCanvas->centerOnScene(); }

signals:
    // The HUD changed in a way that leaves no undo step (a move by the arrow
    // keys); the document still needs saving.
    void changedWithoutUndo();

public:
    // What the components and their handles tell the scene: hover, a press
    // that lists every component under the cursor, a press that a handle
    // took, the snap guides of a drag or resize, and the undo bracket.
    void hoverEnter(UIComponentBase* component);
    void hoverLeave();
    void componentPressed(UIComponentBase* component) { pressed.append(component); }
    void handlePressed(UIComponentBase* component);
    // The wheel as a whole, off while a handle is held.
    void setWheelAllowed(bool on);
    void setGuideLines(const QVector<QLine>& lines) { guides = lines; }
    void clearGuideLines() { guides.clear(); }
    void beginChange(UIComponentBase* component);
    void finishChange(UIComponentBase* component);
    void setUndoEnabled(bool on);
    void setRedoEnabled(bool on);
    void undo();
    void redo();

    // The drag step for a mouse position (also after a scroll, so that the
    // dragged item stays under the cursor).
    void dragStep(const QPointF& mouseScenePos);

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;
    void wheelEvent(QGraphicsSceneWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    // The units behind the facade work on its state; the canvas needs none of it.
    friend class ComponentClipboard;
    friend class ComponentListSync;
    friend class SceneKeyHandler;
    friend class SceneMouseHandler;
    friend class SceneUndoRecorder;

    // The kind's component from the helper, under its parent or in the scene.
    UIComponentBase* makeComponent(const QJsonObject& json, UIComponentBase* parent);
    // Loading builds rows detached from the list and adds each top-level row
    // once its subtree stands, so a large HUD lays the list out once.
    void loadArray(const QJsonArray& array, UIComponentBase* parent, UltimateTreeItem* parentRow);
    void detachComponent(UIComponentBase* component);
    // A deleted component back among the living, as undo brings it.
    void revive(UIComponentBase* component);
    // The next free component id, taken.
    int takeNextId() { return ++highestId; }
    // Frees the deleted components that wait for undo.
    void deleteRemoved();

    std::unique_ptr<ComponentListSync> listSync;
    std::unique_ptr<SceneUndoRecorder> recorder;
    std::unique_ptr<ComponentClipboard> clipboard;
    std::unique_ptr<SceneKeyHandler> keys;
    std::unique_ptr<SceneMouseHandler> mouse;
    std::unique_ptr<SceneCanvas> sceneCanvas;
    std::unique_ptr<StillLayer> still;

    GameUIEditorSceneHelperBase* componentHelper = nullptr;
    QVector<QLine> guides;
    QPointF pastePoint;
    QList<UIComponentBase*> allComponents;
    QList<UIComponentBase*> pressed;
    QList<UIComponentBase*> removed;
    QString mainFontName;
    QString numberFontName;
    QString fallbackFontName;
    GameUIEditor* view;
    QJsonObject* projectData = nullptr;
    UIComponentBase* hovered = nullptr;
    UIComponentBase* selection = nullptr;
    UIComponentBase* dragged = nullptr;
    int highestId = 0;
    int hoverCount = 0;
    bool wheelZoomOn = true;
    bool wheelOn = true;
};
