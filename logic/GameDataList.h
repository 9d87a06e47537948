#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
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
// relabels the rows the list already has at once and adds or removes only
// the difference, and a large difference goes in slices on the event loop:
// every key stays quick, and the list is whole a moment later.
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
    // With sliced, rows beyond those the list has come in slices.
    void show(const QVector<Entry>& entries, const QString& filter, int currentId, bool sliced = true);
    // Completes the rows still to come at once.
    void finish();
    bool isFilling() const;

    // The id of the current row, or fallback with none.
    int currentId(int fallback) const;
    UltimateTreeWidget* widget() const { return list; }

private:
    void step();
    UltimateTreeItem* rowOf(int id) const;
    void selectWanted();

    UltimateTreeWidget* list;
    // What the list is to show; rows below shownCount still have to come,
    // rows beyond it still have to go.
    QVector<Entry> wanted;
    int wantedId = 0;
    bool selecting = false;
    QTimer slices;
};
