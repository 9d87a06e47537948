#include "logic/GameDataList.h"

#include "widgets/MyLineEdit.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QCoreApplication>

namespace {

// Rows added or removed in one turn of the event loop: a few milliseconds'
// work on a list of ten thousand rows.
const int SliceRows = 400;

}

GameDataList::GameDataList(UltimateTreeWidget* list, const QString& header, QObject* parent)
    : QObject(parent), list(list)
{
    list->addHeader();
    UltimateTree* tree = list->tree();
    tree->setColumnCount(1);
    tree->setColumnTitle(0, header);
    tree->setRowHeight(20);
    tree->setTextOffset(4);
    tree->setKeepSelectionLook(true);
    tree->startView();
    slices.setInterval(0);
    connect(&slices, &QTimer::timeout, this, &GameDataList::step);
    // A row the user picks is the one to keep while the rest comes.
    connect(list, &UltimateTreeWidget::currentItemChanged, this, [this](UltimateTreeItem* current) {
        if (!selecting && current && current->id() >= 0)
            wantedId = current->id();
    });
}

MyLineEdit* GameDataList::makeFilterField(QWidget* parent)
{
    MyLineEdit* field = new MyLineEdit(parent);
    field->setObjectName(QStringLiteral("filter"));
    field->setInputType(MyLineEdit::Text);
    const QString title = QCoreApplication::translate("", "Filter");
    field->setCaption(title);
    field->setProperty("mtt_title", title);
    field->setProperty("mtt_desc",
                       QCoreApplication::translate("", "Shows only the entries whose number or name holds this text."));
    return field;
}

bool GameDataList::matches(const Entry& entry, const QString& filter)
{
    return filter.isEmpty() || entry.label.contains(filter, Qt::CaseInsensitive);
}

void GameDataList::show(const QVector<Entry>& entries, const QString& filter, int currentId, bool sliced)
{
    wanted.clear();
    for (const Entry& entry : entries) {
        if (matches(entry, filter))
            wanted.append(entry);
    }
    wantedId = currentId;
    UltimateTree* tree = list->tree();
    // The rows the list has take the first entries; a row with nothing to
    // show is blank until it goes.
    const int rows = tree->rowCount();
    for (int i = 0; i < rows; ++i) {
        UltimateTreeItem* row = tree->row(i);
        const bool used = i < wanted.size();
        row->setId(used ? wanted.at(i).id : -1);
        row->setText(0, used ? wanted.at(i).label : QString());
    }
    if (sliced) {
        step();
        if (isFilling())
            slices.start();
    } else {
        finish();
    }
    selectWanted();
}

void GameDataList::finish()
{
    while (isFilling())
        step();
    slices.stop();
}

bool GameDataList::isFilling() const
{
    return list->tree()->rowCount() != wanted.size();
}

void GameDataList::step()
{
    UltimateTree* tree = list->tree();
    const int rows = tree->rowCount();
    if (rows < wanted.size()) {
        const int end = qMin(wanted.size(), rows + SliceRows);
        for (int i = rows; i < end; ++i) {
            UltimateTreeItem* row = new UltimateTreeItem();
            row->setId(wanted.at(i).id);
            row->setText(0, wanted.at(i).label);
            tree->addRow(row);
        }
        selectWanted();
    } else if (rows > wanted.size() && wanted.isEmpty() && rows > SliceRows) {
        // All go: at once is quickest.
        tree->clear();
    } else {
        // The last rows go first, so that none of the others moves.
        const int end = qMax(wanted.size(), rows - SliceRows);
        for (int i = rows - 1; i >= end; --i) {
            UltimateTreeItem* row = tree->row(i);
            tree->takeRow(row, true);
            delete row;
        }
    }
    if (!isFilling())
        slices.stop();
}

UltimateTreeItem* GameDataList::rowOf(int id) const
{
    const UltimateTree* tree = list->tree();
    for (int i = 0; i < tree->rowCount(); ++i) {
        if (tree->row(i)->id() == id)
            return tree->row(i);
    }
    return nullptr;
}

void GameDataList::selectWanted()
{
    UltimateTree* tree = list->tree();
    UltimateTreeItem* current = tree->currentRow();
    if (current && current->id() == wantedId && current->id() >= 0)
        return;
    // A relabelled row no longer stands for the wanted entry; while rows
    // still come, the wanted one may be among them.
    UltimateTreeItem* row = rowOf(wantedId);
    selecting = true;
    tree->setCurrentRow(row);
    selecting = false;
    list->ensureRowVisible(row);
}

int GameDataList::currentId(int fallback) const
{
    const UltimateTreeItem* row = list->tree()->currentRow();
    return row && row->id() >= 0 ? row->id() : fallback;
}
