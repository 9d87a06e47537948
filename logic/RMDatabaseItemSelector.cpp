#include "logic/RMDatabaseItemSelector.h"

#include "logic/GameDataLabel.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/OwnerDimming.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QPushButton>
#include <QVBoxLayout>

RMDatabaseItemSelector::RMDatabaseItemSelector(int* id, bool* accepted, QJsonObject* projectData,
                                               const QString& fileName, const QString& titleWord, QWidget* parent)
    : PickerDialog(accepted, parent), id(id)
{
    setObjectName(QStringLiteral("RMDatabaseItemSelector"));
    mainBox = new MyGroupBox(tr("%1 List").arg(titleWord), content);
    mainBox->setObjectName(QStringLiteral("mainBox"));
    QVBoxLayout* boxLayout = new QVBoxLayout(mainBox);
    boxLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 10, 10);
    boxLayout->setSpacing(8);
    filter = GameDataList::makeFilterField(mainBox);
    boxLayout->addWidget(filter);
    dataList = new UltimateTreeWidget(mainBox);
    dataList->setObjectName(QStringLiteral("dataList"));
    rows = new GameDataList(dataList, titleWord, this);
    boxLayout->addWidget(dataList, 1);
    contentLayout->addWidget(mainBox, 1);
    addButtons(contentLayout);

    // This list shows the id without brackets.
    const QJsonArray records = GameDataLabel::databaseArray(projectData, fileName);
    entries.reserve(qMax(0, records.size() - 1));
    for (int entryId = 1; entryId < records.size(); ++entryId) {
        entries.append({entryId, QStringLiteral("%1 %2").arg(GameDataLabel::paddedId(entryId),
                                                             GameDataLabel::recordName(records, entryId))});
    }
    rows->show(entries, QString(), *id, false);

    // Cancel has a slot of its own.
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    connect(filter, &QLineEdit::textChanged, this, &RMDatabaseItemSelector::whenFilterChanged);
    finish(tr("%1 Selector").arg(titleWord), QSize(400, 520));
}

bool RMDatabaseItemSelector::pick(MyDialogOpener* opener, int* id, QJsonObject* projectData,
                                  const QString& fileName, const QString& titleWord, QWidget* parent)
{
    bool accepted = false;
    OwnerDimming::dim(parent);
    RMDatabaseItemSelector(id, &accepted, projectData, fileName, titleWord, parent).exec();
    OwnerDimming::undim(parent);
    if (accepted && opener) {
        opener->setValue(GameDataLabel::databaseEntry(projectData, fileName, *id));
        opener->confirm();
    }
    return accepted;
}

void RMDatabaseItemSelector::whenFilterChanged(const QString& text)
{
    rows->show(entries, text, rows->currentId(*id));
}

void RMDatabaseItemSelector::on_dataList_itemDoubleClicked(UltimateTreeItem* item, int)
{
    if (item)
        on_confirmButton_clicked();
}

void RMDatabaseItemSelector::on_confirmButton_clicked()
{
    *id = rows->currentId(1);
    acceptChoice();
}

void RMDatabaseItemSelector::on_cancelButton_clicked()
{
    reject();
}

void RMDatabaseItemSelector::firstShown()
{
    // The list has its size only now; the current row comes into view.
    dataList->ensureRowVisible(dataList->tree()->currentRow());
}
