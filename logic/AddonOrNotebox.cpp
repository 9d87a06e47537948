#include "logic/AddonOrNotebox.h"

#include "logic/AddonDisplay.h"
#include "logic/AddonSelector.h"
#include "logic/AddonTables.h"
#include "logic/EntryList.h"
#include "logic/OpenAddonDialog.h"
#include "widgets/ClipboardIdentifiers.h"
#include "widgets/MyGroupBox.h"
#include "widgets/TrovDialog.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QIcon>
#include <QJsonArray>
#include <QMenu>
#include <QPlainTextEdit>
#include <QStringList>
#include <QVBoxLayout>

AddonOrNotebox::AddonOrNotebox(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("addonOrNote"));
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    QWidget* addonBox = new QWidget(this);
    addonBox->setObjectName(QStringLiteral("addonBox"));
    QVBoxLayout* boxLayout = new QVBoxLayout(addonBox);
    boxLayout->setContentsMargins(0, 0, 0, 0);
    addons = new UltimateTreeWidget(addonBox);
    addons->setObjectName(QStringLiteral("addons"));
    boxLayout->addWidget(addons);
    layout->addWidget(addonBox, 1);

    // What the game reads as the component's note: the note add-ons'
    // texts, shown as they will be written, never typed here.
    noteBox = new MyGroupBox(tr("Note"), this);
    noteBox->setObjectName(QStringLiteral("noteBox"));
    QVBoxLayout* noteLayout = new QVBoxLayout(noteBox);
    noteLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 6, 10, 10);
    note = new QPlainTextEdit(noteBox);
    note->setObjectName(QStringLiteral("note"));
    note->setReadOnly(true);
    note->setPlaceholderText(tr("The note add-ons' texts, as the game reads them."));
    note->setFixedHeight(note->fontMetrics().lineSpacing() * 3 + 12);
    noteLayout->addWidget(note);
    layout->addWidget(noteBox, 0);

    addons->addHeader();
    addons->setClipboardId(ClipboardIdentifiers::Addon);
    UltimateTree* tree = addons->tree();
    tree->setColumnCount(2);
    tree->setColumnTitle(0, tr("Type"));
    tree->setColumnTitle(1, tr("Data"));
    tree->setColumnWidth(0, 140);
    tree->setFiller(true, QString());
    tree->setRowHeight(20);
    tree->setTextOffset(4);
    tree->setRelocationEnabled(true);
    tree->setKeepSelectionLook(true);
    tree->setRowDeleter([](UltimateTreeItem* row) { delete row->userData(); });
    addons->connectClipboardKeys();
    connect(addons, &UltimateTreeWidget::rowsEdited, this, &AddonOrNotebox::showNote);
    connect(addons, &UltimateTreeWidget::itemRelocated, this, &AddonOrNotebox::showNote);
    addons->setListFunctions([](QJsonObject* record) { return addonTypeText(*record); },
                             [this](UltimateTreeItem* row, QJsonObject* record) {
                                 addonDisplay(row, *record, projectData);
                             });
    // Only add-ons their dialog can show travel.
    addons->setCopyCheck([](UltimateTreeItem* row) {
        return EntryList::holdsObject(row) && AddonTables::editable(*row->userData());
    });
    addons->setPasteCheck([this](const QJsonObject& record) { return AddonTables::accepts(capabilities, record); });
    tree->startView();

    menu = EntryList::makeMenu(
        this, addons, QStringLiteral("addonMenu"),
        {tr("Add New Addon"), tr("Edit Addon"), tr("Delete Addon"), QT_TR_NOOP("Copy Addon"),
         QT_TR_NOOP("Cut Addon"), QT_TR_NOOP("Paste")},
        [this]() { CreateAddon(); }, [this]() { EditAddon(); }, [this]() { DeleteAddon(); });
    QMetaObject::connectSlotsByName(this);
}

void AddonOrNotebox::loadData(const QJsonObject& data, QJsonObject* gameData, int kindCapabilities,
                              TrovDialog* parent)
{
    projectData = gameData;
    capabilities = kindCapabilities;
    parentDialog = parent;
    const QJsonArray entries = data.value(QStringLiteral("Addons")).toArray();
    const QString note = data.value(QStringLiteral("Note")).toString();
    if (entries.isEmpty() && !note.isEmpty()) {
        // A component from before the add-ons had one note box.
        addEntry(QJsonObject{{QStringLiteral("Type"), AddonTables::Note}, {QStringLiteral("Note"), note}});
        return;
    }
    for (const QJsonValue& entry : entries)
        addEntry(entry);
}

QString AddonOrNotebox::derivedNote() const
{
    QStringList notes;
    const UltimateTree* tree = addons->tree();
    for (int index = 0; index < tree->rowCount(); ++index) {
        const UltimateTreeItem* row = tree->row(index);
        const QJsonObject* record = row->userData();
        if (record && EntryList::holdsObject(row)
            && record->value(QStringLiteral("Type")).toInt(-1) == AddonTables::Note)
            notes.append(record->value(QStringLiteral("Note")).toString());
    }
    return notes.join(QStringLiteral("\n\n"));
}

void AddonOrNotebox::showNote()
{
    note->setPlainText(derivedNote());
}

void AddonOrNotebox::addEntry(const QJsonValue& entry)
{
    UltimateTreeItem* row = EntryList::newRow(entry);
    if (entry.isObject())
        addonDisplay(row, entry.toObject(), projectData);
    addons->tree()->addRow(row);
    showNote();
}

void AddonOrNotebox::saveData(QJsonObject* data) const
{
    QJsonArray entries;
    const UltimateTree* tree = addons->tree();
    for (int index = 0; index < tree->rowCount(); ++index) {
        const UltimateTreeItem* row = tree->row(index);
        const QJsonObject* record = row->userData();
        if (!record)
            continue;
        if (!EntryList::holdsObject(row)) {
            entries.append(EntryList::entry(row));
            continue;
        }
        entries.append(*record);
    }
    data->insert(QStringLiteral("Note"), derivedNote());
    data->insert(QStringLiteral("Addons"), entries);
}

void AddonOrNotebox::CreateAddon()
{
    QJsonObject created;
    bool accepted = false;
    if (parentDialog)
        parentDialog->darken();
    AddonSelector(&created, &accepted, projectData, capabilities, parentDialog ? parentDialog : window()).exec();
    if (parentDialog)
        parentDialog->undarken();
    if (!accepted)
        return;
    addEntry(created);
    EntryList::selectLast(addons);
}

void AddonOrNotebox::EditAddon()
{
    UltimateTreeItem* row = addons->tree()->currentRow();
    if (!row || !row->userData() || !EntryList::holdsObject(row) || !AddonTables::editable(*row->userData()))
        return;
    QJsonObject edited = *row->userData();
    bool accepted = false;
    openAddonDialog(&edited, &accepted, projectData, capabilities, parentDialog ? parentDialog : window());
    if (!accepted)
        return;
    *row->userData() = edited;
    addonDisplay(row, edited, projectData);
    showNote();
}

void AddonOrNotebox::DeleteAddon()
{
    if (UltimateTreeItem* row = addons->tree()->currentRow())
        addons->deleteRowSelectNext(row);
}

void AddonOrNotebox::on_addons_itemDoubleClicked(UltimateTreeItem* item, int)
{
    if (item)
        EditAddon();
    else
        CreateAddon();
}

void AddonOrNotebox::on_addons_customContextMenuRequested(const QPoint& pos)
{
    const UltimateTreeItem* row = addons->tree()->currentRow();
    EntryList::popUpMenu(addons, menu, pos,
                         row && EntryList::holdsObject(row) && AddonTables::editable(*row->userData()));
}
