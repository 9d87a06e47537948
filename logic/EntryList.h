#pragma once

#include <QJsonValue>
#include <QPoint>
#include <QString>

#include <functional>

class QMenu;
class QWidget;
class UltimateTreeItem;
class UltimateTreeWidget;

// What the lists of JSON entries on the game-data dialogs (add-ons,
// conditions) have in common: rows that hold an entry each, where one that
// isn't an object keeps its row and comes back as it was, and the context
// menu of add, edit, delete, copy, cut and paste.
namespace EntryList {

// Row id of an entry that isn't an object: its record holds it under "Entry".
const int ForeignRow = 1;

// A row holding the entry; the caller sets its texts and adds it.
UltimateTreeItem* newRow(const QJsonValue& entry);
// The entry a row holds, as it came for one that isn't an object.
QJsonValue entry(const UltimateTreeItem* row);
// Whether the row holds an object.
bool holdsObject(const UltimateTreeItem* row);

struct MenuTexts {
    QString add;
    QString edit;
    QString remove;
    // Untranslated: the list translates them.
    const char* copy;
    const char* cut;
    const char* paste;
};
// The list's menu, owned by owner; Delete and a double click on the blank
// run remove and add too.
QMenu* makeMenu(QWidget* owner, UltimateTreeWidget* list, const QString& objectName, const MenuTexts& texts,
                const std::function<void()>& add, const std::function<void()>& edit,
                const std::function<void()>& remove);
// Shows the menu at pos for the current row; edit and copy only where the row
// is editable.
void popUpMenu(UltimateTreeWidget* list, QMenu* menu, const QPoint& pos, bool editable);
// Makes the last row current and shows it with the "+" row under it.
void selectLast(UltimateTreeWidget* list);

}
