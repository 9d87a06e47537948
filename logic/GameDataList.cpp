#include "logic/GameDataList.h"

#include "widgets/MyLineEdit.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QCoreApplication>

namespace GameDataList {

void setUp(UltimateTreeWidget* list, const QString& header)
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

MyLineEdit* makeFilterField(QWidget* parent)
{
    MyLineEdit* field = new MyLineEdit(parent);
    field->setObjectName(QStringLiteral("filter"));
    field->setInputType(MyLineEdit::Text);
    const QString title = QCoreApplication::translate("", "Filter");
    field->setCaption(title);
    field->setProperty("mtt_title", title);
    field->setProperty("mtt_desc",
                       QCoreApplication::translate("", "Shows only the entries whose number or name holds this text."));
    field->setClearButtonEnabled(false);
    return field;
}

bool matches(const Entry& entry, const QString& filter)
{
    return filter.isEmpty() || entry.label.contains(filter, Qt::CaseInsensitive);
}

UltimateTreeItem* fill(UltimateTreeWidget* list, const QVector<Entry>& entries, const QString& filter,
                       int currentId)
{
    UltimateTree* tree = list->tree();
    tree->clear();
    UltimateTreeItem* current = nullptr;
    for (const Entry& entry : entries) {
        if (!matches(entry, filter))
            continue;
        UltimateTreeItem* row = new UltimateTreeItem();
        row->setId(entry.id);
        row->setText(0, entry.label);
        tree->addRow(row);
        if (entry.id == currentId)
            current = row;
    }
    tree->setCurrentRow(current);
    list->ensureRowVisible(current);
    return current;
}

int currentId(const UltimateTreeWidget* list, int fallback)
{
    const UltimateTreeItem* row = list->tree()->currentRow();
    return row ? row->id() : fallback;
}

}
