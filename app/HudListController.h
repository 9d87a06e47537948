#pragma once

#include "app/HudDocument.h"

#include <QObject>
#include <QSize>
#include <QStringList>
#include <QVector>

class GameUIEditor;
class QAction;
class QMenu;
class QPushButton;
class QWidget;
class UltimateTreeItem;
class UltimateTreeWidget;

// The HUD list of the main window: its rows (one heap HUD object each), the
// context menu, creating, editing, pasting and deleting HUDs, and the way a
// HUD travels between its row and the canvas.
class HudListController : public QObject
{
    Q_OBJECT
public:
    HudListController(UltimateTreeWidget* list, QPushButton* removeButton, GameUIEditor* editor,
                      QWidget* dialogParent);
    // The dialogs below the main window find the HUDs through HudCatalog
    // while the controller lives.
    ~HudListController() override;

    // Columns, clipboard, the protection of the Map and Battle HUDs and the
    // context menu; once, after the list is built.
    void setup();
    void showContextMenu(const QPoint& position);

    // Creating (item null) and editing a HUD in the HUD dialog; true when the
    // dialog was confirmed.
    bool createOrEdit(UltimateTreeItem* item);
    // The context menu's Add and Edit: by design they count as a change
    // whatever the dialog's outcome.
    void createFromMenu();
    void editFromMenu();
    // Asks before the current custom HUD goes.
    void deleteCurrent();

    // Fills the list with a document's entries and loads the current one.
    void show(const HudDocument& document);
    // The list as document entries, in list order.
    QVector<HudEntry> entries() const;
    UltimateTreeItem* current() const;
    // Stores the canvas's components into the current HUD's object.
    void storeSceneIntoCurrent();
    // The change of the current row: the previous HUD takes the canvas's
    // components back, the current one is loaded.
    void switchHud(UltimateTreeItem* current, UltimateTreeItem* previous);
    // The canvas shows the current HUD's background image.
    void refreshBackground();

    // The project's screen size: the canvas of every HUD without a size of
    // its own.
    void setScreenSize(const QSize& size);
    QSize screenSize() const { return screen; }
    UltimateTreeWidget* widget() const { return list; }

signals:
    // An edit of the list itself: a paste, a deletion, a new order.
    void changed();

private:
    // The names of the other HUDs that use the custom HUD of item.
    QStringList usersOf(const UltimateTreeItem* item) const;
    // True when no other HUD uses the custom HUD of item, or when the user
    // goes on although they do.
    bool confirmUnused(const UltimateTreeItem* item);
    // The canvas takes the size the current HUD asks for.
    void applySize(const UltimateTreeItem* item);
    // A pasted HUD object becomes a new custom HUD: a fresh "ID" always, a name
    // and "IsHUD" when it has none.
    void preparePasted(QJsonObject* object);
    static void fillRow(UltimateTreeItem* row);

    UltimateTreeWidget* list;
    QPushButton* removeButton;
    GameUIEditor* editor;
    QWidget* dialogParent;
    QMenu* menu = nullptr;
    QAction* actionEdit = nullptr;
    QAction* actionDelete = nullptr;
    QSize screen;
    // The current HUD has its own size, so the screen size leaves the canvas alone.
    bool sizedHud = false;
};
