#include "logic/SwitchSelector.h"

#include "logic/GameDataLabel.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/OwnerDimming.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QHBoxLayout>
#include <QJsonArray>
#include <QJsonObject>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const int GroupSize = 20;

}

SwitchSelector::SwitchSelector(int* id, bool* accepted, QJsonObject* projectData, bool isSwitch, QWidget* parent)
    : PickerDialog(accepted, parent), id(id), keptId(*id)
{
    setObjectName(QStringLiteral("SwitchSelector"));
    varSelectBox = new MyGroupBox(isSwitch ? tr("Game Switches") : tr("Game Variables"), content);
    varSelectBox->setObjectName(QStringLiteral("varSelectBox"));
    QVBoxLayout* boxLayout = new QVBoxLayout(varSelectBox);
    boxLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 10, 10);
    boxLayout->setSpacing(8);
    filter = GameDataList::makeFilterField(varSelectBox);
    boxLayout->addWidget(filter);
    QHBoxLayout* lists = new QHBoxLayout();
    lists->setSpacing(8);
    containerList = new UltimateTreeWidget(varSelectBox);
    containerList->setObjectName(QStringLiteral("containerList"));
    containerList->setFixedWidth(150);
    groupRows = new GameDataList(containerList, isSwitch ? tr("Switch Groups") : tr("Variable Groups"), this);
    varList = new UltimateTreeWidget(varSelectBox);
    varList->setObjectName(QStringLiteral("varList"));
    varList->setMinimumWidth(260);
    entryRows = new GameDataList(varList, isSwitch ? tr("Switch") : tr("Variable"), this);
    lists->addWidget(containerList);
    lists->addWidget(varList, 1);
    boxLayout->addLayout(lists, 1);
    contentLayout->addWidget(varSelectBox, 1);
    addButtons(contentLayout);

    // A last group that isn't whole has no row, and so its ids can't be chosen.
    const QJsonArray names = GameDataLabel::systemArray(projectData, isSwitch);
    const int groups = groupCount(names.size());
    entries.reserve(groups * GroupSize);
    for (int entryId = 1; entryId <= groups * GroupSize; ++entryId)
        entries.append({entryId, GameDataLabel::entry(entryId, GameDataLabel::nameAt(names, entryId))});
    for (int g = 0; g < groups; ++g)
        groupEntries.append({g, GameDataLabel::range(GroupSize * g + 1, GroupSize * g + GroupSize)});

    // Cancel has a slot of its own.
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    connect(filter, &QLineEdit::textChanged, this, &SwitchSelector::whenFilterChanged);
    showGroups(*id);
    finish(isSwitch ? tr("Switch Selector") : tr("Variable Selector"), QSize(480, 540));
}

int SwitchSelector::groupCount(int arraySize)
{
    return qMax(0, arraySize) / GroupSize;
}

bool SwitchSelector::pick(MyDialogOpener* opener, int* id, QJsonObject* projectData, bool isSwitch,
                          QWidget* parent)
{
    bool accepted = false;
    OwnerDimming::dim(parent);
    SwitchSelector(id, &accepted, projectData, isSwitch, parent).exec();
    OwnerDimming::undim(parent);
    if (accepted && opener) {
        opener->setValue(isSwitch ? GameDataLabel::switchEntry(projectData, *id)
                                  : GameDataLabel::variableEntry(projectData, *id));
        opener->confirm();
    }
    return accepted;
}

void SwitchSelector::showGroups(int selectedId)
{
    filtering = false;
    containerList->setEnabled(true);
    const int group = qBound(0, (selectedId - 1) / GroupSize, qMax(0, groupEntries.size() - 1));
    // The group's entries come with the group's selection; a group already
    // current (after a filter) is chosen again.
    keptId = selectedId;
    containerList->tree()->setCurrentRow(nullptr);
    groupRows->show(groupEntries, QString(), group, false);
    keptId = *id;
    if (groupEntries.isEmpty())
        entryRows->show({}, QString(), selectedId, false);
}

void SwitchSelector::on_containerList_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem*)
{
    if (!current || filtering)
        return;
    entryRows->show(entries.mid(current->id() * GroupSize, GroupSize), QString(), keptId);
}

void SwitchSelector::whenFilterChanged(const QString& text)
{
    const int selected = entryRows->currentId(*id);
    if (text.isEmpty()) {
        showGroups(selected);
        return;
    }
    // The matches of all groups stand in one list; no group is current.
    filtering = true;
    containerList->tree()->setCurrentRow(nullptr);
    containerList->setEnabled(false);
    entryRows->show(entries, text, selected);
}

void SwitchSelector::on_varList_itemDoubleClicked(UltimateTreeItem* item, int)
{
    if (item)
        on_confirmButton_clicked();
}

void SwitchSelector::on_confirmButton_clicked()
{
    const UltimateTreeItem* row = varList->tree()->currentRow();
    if (row)
        *id = row->id();
    acceptChoice();
}

void SwitchSelector::on_cancelButton_clicked()
{
    reject();
}

void SwitchSelector::firstShown()
{
    // The list has its size only now; the current row comes into view.
    varList->ensureRowVisible(varList->tree()->currentRow());
}
