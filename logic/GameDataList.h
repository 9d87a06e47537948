#pragma once

#include <QString>
#include <QVector>

class MyLineEdit;
class QWidget;
class UltimateTreeItem;
class UltimateTreeWidget;

// The lists of the game-data pickers: one row per entry, each carrying the
// entry's id, and a filter field above that narrows the rows as the user
// types, by the id or the name in the row's label.
namespace GameDataList {

struct Entry {
    int id;
    QString label;
};

// A one-column list under a header, rows of 20 pixels, the selection kept
// when the focus goes to the filter.
void setUp(UltimateTreeWidget* list, const QString& header);

// The filter field "Filter" above a list.
MyLineEdit* makeFilterField(QWidget* parent);

// Whether an entry's label holds the filter text, ignoring case; every
// entry matches an empty filter.
bool matches(const Entry& entry, const QString& filter);

// Refills the list with the entries that match, in their order, and makes
// the row of currentId current and scrolls to it; without that row nothing
// is current. Returns the current row.
UltimateTreeItem* fill(UltimateTreeWidget* list, const QVector<Entry>& entries, const QString& filter,
                       int currentId);

// The id of the current row, or fallback with none.
int currentId(const UltimateTreeWidget* list, int fallback);

}
