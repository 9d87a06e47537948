#pragma once

#include <QGraphicsView>
#include <QJsonObject>

#include <functional>

class GameUIEditorScene;
class GameUIEditorSceneHelperBase;
class QMenu;
class QPushButton;
class UltimateTreeItem;
class UltimateTreeWidget;

// The view that shows the editor scene. It owns the scene and the canvas's
// context menu, and receives the component list's signals. The scene draws
// the canvas and handles zoom, wheel and keys; the view's own transform stays
// the identity, since zoom is applied to the components' coordinates.
class GameUIEditor : public QGraphicsView
{
    Q_OBJECT
public:
    explicit GameUIEditor(QWidget* parent = nullptr);
    ~GameUIEditor() override;

    GameUIEditorScene* editorScene() const { return scene; }
    // Takes ownership of the helper.
    void setup(GameUIEditorSceneHelperBase* helper, QJsonObject* projectData);
    // Connects the component list to the slots below; removeButton is enabled
    // only while a row is current.
    void bindList(UltimateTreeWidget* list, QPushButton* addButton, QPushButton* removeButton);
    // Receives (zoom in, zoom out) after every zoom: 1 available, 2 not.
    void setZoomCallback(const std::function<void(int, int)>& callback);

    QMenu* contextMenu = nullptr;

    // Zoom of a view just built; the first shows fit the canvas.
    int initialZoom = 10;

public slots:
    void zoomIn();
    void zoomOut();
    void fitZoom();
    void createACenteredComponent();
    void createAComponent();
    void createAComponentChild();
    void editAComponent();
    void deleteAComponent();
    void copyAComponent();
    void cutAComponent();
    void pasteAComponent();
    void pasteAComponentFromList();
    void hideAComponent();
    void onItemExpanded(UltimateTreeItem* item);
    void onItemCollapsed(UltimateTreeItem* item);
    void list_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem* previous);
    void list_itemDoubleClicked(UltimateTreeItem* item, int column);
    void list_itemRelocated(UltimateTreeItem* item);
    void list_customContextMenuRequested(const QPoint& position);

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    // The canvas, and during a drag the components in the still layer.
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    // While a component is dragged or held by a handle, the others are drawn
    // once (see StillLayer).
    void beginStillLayer();

    GameUIEditorScene* scene;
    int showCount = 0;
    QPushButton* addButton = nullptr;
    QPushButton* removeButton = nullptr;
};
