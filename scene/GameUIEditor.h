#pragma once

#include <QGraphicsView>
#include <QJsonObject>

class GameUIEditorScene;
class GameUIEditorSceneHelperBase;
class QMenu;
class QPushButton;
class UltimateTreeItem;
class UltimateTreeWidget;

// The view that shows the editor scene. It owns the scene and the canvas's
// context menu, and receives the component list's signals.
//
// First form: the scene's host, its context menu and the list binding; zoom
// commands, fitting and keyboard handling come with the rest of the view.
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

    QMenu* contextMenu = nullptr;

public slots:
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

    // Zoom commands of the main window; their behaviour is filled in with the
    // rest of the view.
    void zoomIn();
    void zoomOut();
    void fitZoom();

protected:
    void showEvent(QShowEvent* event) override;

private:
    GameUIEditorScene* scene;
    QPushButton* addButton = nullptr;
    QPushButton* removeButton = nullptr;
};
