#include "logic/GameDataList.h"

#include "widgets/MyLineEdit.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QCoreApplication>

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

void GameDataList::show(const QVector<Entry>& entries, const QString& filter, int currentId)
{
    QVector<const Entry*> wanted;
    wanted.reserve(entries.size());
    for (const Entry& entry : entries) {
        if (matches(entry, filter))
            wanted.append(&entry);
    }
    UltimateTree* tree = list->tree();
    const int surplus = tree->rowCount() - wanted.size();
    if (surplus > 0 && wanted.isEmpty()) {
        tree->clear();
    } else if (surplus > 0) {
        // Every row is relabelled below, so any may go: the top ones, because
        // the graphics scene searches its item lists from the front for an
        // item that leaves, which makes rows from the bottom slow to remove.
        qDeleteAll(tree->takeRows(0, surplus));
    }
    // A row that shows its entry already is left alone, unpainted.
    const int kept = tree->rowCount();
    for (int i = 0; i < kept; ++i) {
        UltimateTreeItem* row = tree->row(i);
        const Entry& entry = *wanted.at(i);
        if (row->id() != entry.id || row->text(0) != entry.label) {
            row->setId(entry.id);
            row->setText(0, entry.label);
        }
    }
    if (kept < wanted.size()) {
        QList<UltimateTreeItem*> added;
        added.reserve(wanted.size() - kept);
        for (int i = kept; i < wanted.size(); ++i) {
            UltimateTreeItem* row = new UltimateTreeItem();
            row->setId(wanted.at(i)->id);
            row->setText(0, wanted.at(i)->label);
            added.append(row);
        }
        tree->addRows(added);
    }
    // A relabelled row no longer stands for the entry it showed before; a
    // row that still does stays where the user scrolled it.
    const UltimateTreeItem* current = tree->currentRow();
    if (current && current->id() == currentId)
        return;
    UltimateTreeItem* row = rowOf(currentId);
    tree->setCurrentRow(row);
    list->ensureRowVisible(row);
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

int GameDataList::currentId(int fallback) const
{
    const UltimateTreeItem* row = list->tree()->currentRow();
    return row && row->id() >= 0 ? row->id() : fallback;
}
