#include "logic/RMConditionList.h"

#include "logic/ConditionDisplay.h"
#include "logic/EntryList.h"
#include "logic/OpenConditionDialog.h"
#include "logic/RMCondition.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/ClipboardIdentifiers.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/OwnerDimming.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QIcon>
#include <QJsonObject>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

RMConditionList::RMConditionList(QJsonArray* array, bool* accepted, QJsonObject* projectData, QWidget* parent)
    : PickerDialog(accepted, parent), array(array), projectData(projectData)
{
    setObjectName(QStringLiteral("RMConditionList"));
    conditions = new UltimateTreeWidget(content);
    conditions->setObjectName(QStringLiteral("conditions"));
    conditions->setMinimumSize(380, 260);
    contentLayout->addWidget(conditions, 1);

    conditions->addHeader();
    conditions->setClipboardId(ClipboardIdentifiers::Condition);
    UltimateTree* tree = conditions->tree();
    tree->setColumnCount(1);
    tree->setColumnTitle(0, tr("Conditions"));
    tree->setFiller(true, QString());
    tree->setRowHeight(20);
    tree->setTextOffset(4);
    tree->setRelocationEnabled(true);
    tree->setKeepSelectionLook(true);
    tree->setRowDeleter([](UltimateTreeItem* row) { delete row->userData(); });
    conditions->connectClipboardKeys();
    QJsonObject* names = projectData;
    conditions->setListFunctions([names](QJsonObject* record) { return conditionEntryText(*record, names); },
                                 [names](UltimateTreeItem* row, QJsonObject* record) {
                                     row->setText(0, conditionEntryText(*record, names));
                                 });
    // What isn't a condition stays in its place but doesn't travel.
    conditions->setCopyCheck([](UltimateTreeItem* row) { return EntryList::holdsObject(row); });
    conditions->setDeleteCheck([](UltimateTreeItem* row) { return EntryList::holdsObject(row); });
    tree->startView();
    for (const QJsonValue& entry : *array)
        addEntry(entry);

    menu = EntryList::makeMenu(
        this, conditions, QStringLiteral("conditionMenu"),
        {tr("Add New Condition"), tr("Edit Condition"), tr("Delete Condition"), QT_TR_NOOP("Copy Condition"),
         QT_TR_NOOP("Cut Condition"), QT_TR_NOOP("Paste Condition")},
        [this]() { createNewCondition(); }, [this]() { editCondition(); }, [this]() { deleteCondition(); });

    addButtons(contentLayout);
    // Cancel has a slot of its own.
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    finish(tr("RPG Maker Condition List"));
}

void RMConditionList::addEntry(const QJsonValue& entry)
{
    UltimateTreeItem* row = EntryList::newRow(entry);
    row->setText(0, conditionEntryText(entry, projectData));
    conditions->tree()->addRow(row);
}

QJsonArray RMConditionList::entries() const
{
    QJsonArray result;
    const UltimateTree* tree = conditions->tree();
    for (int index = 0; index < tree->rowCount(); ++index) {
        const UltimateTreeItem* row = tree->row(index);
        if (row->userData())
            result.append(EntryList::entry(row));
    }
    return result;
}

bool RMConditionList::open(MyDialogOpener* opener, QJsonArray* array, QWidget* parent, QJsonObject* projectData)
{
    bool accepted = false;
    QJsonArray working = *array;
    OwnerDimming::dim(parent);
    RMConditionList(&working, &accepted, projectData, parent).exec();
    OwnerDimming::undim(parent);
    if (!accepted)
        return false;
    *array = working;
    if (opener) {
        showConditionList(opener, *array, projectData);
        opener->confirm();
    }
    return true;
}

void RMConditionList::install(QJsonObject* projectData)
{
    if (!projectData) {
        UIComponentBaseDialog::openConditions = nullptr;
        UIComponentBaseDialog::showConditions = nullptr;
        return;
    }
    UIComponentBaseDialog::openConditions = [projectData](UIComponentBaseDialog*, MyDialogOpener* opener,
                                                          QJsonArray* conditions, QWidget* parentDialog) {
        open(opener, conditions, parentDialog, projectData);
    };
    UIComponentBaseDialog::showConditions = [projectData](MyDialogOpener* opener, const QJsonArray& conditions) {
        showConditionList(opener, conditions, projectData);
    };
}

void RMConditionList::createNewCondition()
{
    QJsonObject created;
    bool accepted = false;
    darken();
    RMCondition(&created, &accepted, projectData, this).exec();
    undarken();
    if (!accepted)
        return;
    addEntry(created);
    EntryList::selectLast(conditions);
}

void RMConditionList::editCondition()
{
    UltimateTreeItem* row = conditions->tree()->currentRow();
    if (!row || !row->userData() || !EntryList::holdsObject(row))
        return;
    QJsonObject edited = *row->userData();
    bool accepted = false;
    openConditionDialog(&edited, &accepted, this, projectData);
    if (!accepted)
        return;
    *row->userData() = edited;
    conditionDisplay(row, edited, projectData);
}

void RMConditionList::deleteCondition()
{
    if (UltimateTreeItem* row = conditions->tree()->currentRow())
        conditions->deleteRowSelectNext(row);
}

void RMConditionList::on_conditions_itemDoubleClicked(UltimateTreeItem* item, int)
{
    if (item)
        editCondition();
    else
        createNewCondition();
}

void RMConditionList::on_conditions_customContextMenuRequested(const QPoint& pos)
{
    const UltimateTreeItem* row = conditions->tree()->currentRow();
    EntryList::popUpMenu(conditions, menu, pos, row && EntryList::holdsObject(row));
}

void RMConditionList::on_confirmButton_clicked()
{
    *array = entries();
    acceptChoice();
}

void RMConditionList::on_cancelButton_clicked()
{
    reject();
}
