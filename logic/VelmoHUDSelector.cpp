#include "logic/VelmoHUDSelector.h"

#include "logic/HudCatalog.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/OwnerDimming.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeHeader.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The row id of "None".
const int NoneRow = -1;

}

VelmoHUDSelector::VelmoHUDSelector(QString* identifier, bool* confirmed, int mode, QWidget* parent)
    : PickerDialog(confirmed, parent), identifier(identifier)
{
    setObjectName(QStringLiteral("VelmoHUDSelector"));
    myList = new UltimateTreeWidget(content);
    myList->setObjectName(QStringLiteral("myList"));
    myList->setMinimumSize(300, 320);
    myList->addHeader();
    myList->headerWidget()->setObjectName(QStringLiteral("titleLabel"));
    contentLayout->addWidget(myList, 1);
    UltimateTree* tree = myList->tree();
    tree->setColumnCount(1);
    tree->setColumnTitle(0, mode == CustomComponents ? tr("Custom Components List") : tr("HUD List"));
    tree->setRowHeight(20);
    tree->setTextOffset(4);
    tree->setKeepSelectionLook(true);
    tree->startView();

    UltimateTreeItem* none = new UltimateTreeItem();
    none->setId(NoneRow);
    none->setText(0, tr("None"));
    tree->addRow(none);
    UltimateTreeItem* chosen = none;
    for (const HudCatalog::Row& hud : HudCatalog::rows()) {
        // A component can't contain itself, nor a HUD.
        if (mode == CustomComponents &&
            (hud.current || hud.type != HudCatalog::Custom || hud.object.value(QStringLiteral("IsHUD")).toBool(false)))
            continue;
        UltimateTreeItem* row = new UltimateTreeItem();
        row->setId(identifiers.size());
        identifiers.append(HudCatalog::identifierOf(hud));
        row->setText(0, HudCatalog::nameOf(hud));
        tree->addRow(row);
        if (chosen == none && !identifier->isEmpty() && identifiers.last() == *identifier)
            chosen = row;
    }

    addButtons(contentLayout);
    // Cancel has a slot of its own.
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    tree->setCurrentRow(chosen);
    on_myList_currentItemChanged(tree->currentRow(), nullptr);
    finish(tr("HUD Selector"), QSize(340, 440));
}

bool VelmoHUDSelector::pick(MyDialogOpener* opener, QString* identifier, int mode, QWidget* parent)
{
    bool confirmed = false;
    QString chosen = *identifier;
    OwnerDimming::dim(parent);
    VelmoHUDSelector(&chosen, &confirmed, mode, parent).exec();
    OwnerDimming::undim(parent);
    if (!confirmed)
        return false;
    *identifier = chosen;
    if (opener) {
        HudCatalog::showIdentifier(opener, chosen);
        opener->confirm();
    }
    return true;
}

void VelmoHUDSelector::on_myList_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem*)
{
    confirmButton()->setEnabled(current != nullptr);
}

void VelmoHUDSelector::on_myList_itemDoubleClicked(UltimateTreeItem* item, int)
{
    if (item)
        on_confirmButton_clicked();
}

void VelmoHUDSelector::on_confirmButton_clicked()
{
    const UltimateTreeItem* row = myList->tree()->currentRow();
    if (!row)
        return;
    *identifier = row->id() >= 0 && row->id() < identifiers.size() ? identifiers.at(row->id()) : QString();
    acceptChoice();
}

void VelmoHUDSelector::on_cancelButton_clicked()
{
    reject();
}
