#pragma once

#include <QObject>
#include <QString>
#include <QVector>

class MyLineEdit;
class QWidget;
class UltimateTreeItem;
class UltimateTreeWidget;

// A list of the game-data pickers: one row per entry, each carrying the
// entry's id, which a filter field above narrows as the user types, by the
// id or the name in the row's label.
//
// A database may hold ten thousand entries, and a row costs the list far
// more to add or remove than to relabel. So a change of what is shown
// relabels the rows the list already has and adds or removes only the
// difference, all at once: the list is whole when a key has been handled.
class GameDataList : public QObject
{
    Q_OBJECT
public:
    struct Entry {
        int id;
        QString label;
    };

    // Sets the list up as one column under the header, rows of 20 pixels,
    // the selection kept when the focus goes to the filter.
    GameDataList(UltimateTreeWidget* list, const QString& header, QObject* parent);

    // The filter field "Filter" above a list.
    static MyLineEdit* makeFilterField(QWidget* parent);
    // Whether an entry's label holds the filter text, ignoring case; every
    // entry matches an empty filter.
    static bool matches(const Entry& entry, const QString& filter);

    // Shows the entries that match, in their order, and makes the row of
    // currentId current and scrolls to it (nothing is current without it).
    void show(const QVector<Entry>& entries, const QString& filter, int currentId);

    // The id of the current row, or fallback with none.
    int currentId(int fallback) const;
    UltimateTreeWidget* widget() const { return list; }

private:
    UltimateTreeItem* rowOf(int id) const;

    UltimateTreeWidget* list;
};
