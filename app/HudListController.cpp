#include "app/HudListController.h"

#include "app/VelmoHUDDialog.h"
#include "widgets/OwnerDimming.h"
#include "logic/HudCatalog.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "widgets/ClipboardIdentifiers.h"
#include "widgets/ConfirmationDialog.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QMenu>
#include <QPixmap>
#include <QPushButton>

HudListController::HudListController(UltimateTreeWidget* list, QPushButton* removeButton, GameUIEditor* editor,
                                     QWidget* dialogParent)
    : QObject(dialogParent), list(list), removeButton(removeButton), editor(editor), dialogParent(dialogParent)
{
}

HudListController::~HudListController()
{
    HudCatalog::setSource(nullptr);
}

void HudListController::setup()
{
    UltimateTree* tree = list->tree();
    list->setClipboardId(ClipboardIdentifiers::Hud);
    tree->setColumnCount(2);
    tree->setColumnWidth(0, 18);
    tree->setColumnAlignment(0, Qt::AlignHCenter);
    tree->setRowHeight(20);
    tree->setTextOffset(4);
    tree->setRelocationEnabled(true);
    // The HUD being edited stays marked while the user works on the canvas.
    tree->setKeepSelectionLook(true);
    tree->setRowDeleter([](UltimateTreeItem* row) { delete row->userData(); });
    list->connectClipboardKeys();
    list->setListFunctions(
        [](QJsonObject* object) {
            const QString name = object->value(HudDocument::KeyName).toString();
            return name.isEmpty() ? tr("New HUD") : name;
        },
        [this](UltimateTreeItem* row, QJsonObject* object) {
            preparePasted(object);
            row->setId(HudEntry::Custom);
            fillRow(row);
            emit changed();
        });
    // A copy takes the components as the canvas shows them now.
    list->setCopyHook([this](UltimateTreeItem*) { storeSceneIntoCurrent(); });
    // The Map and Battle HUDs can't be copied, cut or deleted.
    list->setCopyCheck([](UltimateTreeItem* row) { return row->id() == HudEntry::Custom; });
    list->setDeleteCheck([this](UltimateTreeItem* row) {
        if (row->id() != HudEntry::Custom)
            return false;
        // A cut HUD comes back from the clipboard under a new identifier.
        if (!confirmUnused(row))
            return false;
        emit changed();
        return true;
    });
    tree->startView();
    HudCatalog::setSource([this]() {
        QVector<HudCatalog::Row> rows;
        const UltimateTree* view = list->tree();
        const UltimateTreeItem* currentRow = current();
        for (int i = 0; i < view->rowCount(); ++i) {
            const UltimateTreeItem* row = view->row(i);
            rows.append(HudCatalog::Row{row->id(), *row->userData(), row == currentRow});
        }
        return rows;
    });

    connect(list, &UltimateTreeWidget::onDeleteKeyPress, this, [this]() {
        if (current() && current()->id() == HudEntry::Custom)
            deleteCurrent();
    });
    // A new order of HUDs is saved work like any other.
    connect(list, &UltimateTreeWidget::itemRelocated, this, &HudListController::changed);

    menu = new QMenu(dialogParent);
    menu->setObjectName(QStringLiteral("hudMenu"));
    QAction* add = menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Add.png")), tr("Add New HUD"));
    connect(add, &QAction::triggered, this, &HudListController::createFromMenu);
    actionEdit = menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Edit.png")), tr("Edit HUD"));
    connect(actionEdit, &QAction::triggered, this, &HudListController::editFromMenu);
    actionDelete = menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Remove.png")), tr("Delete HUD"));
    connect(actionDelete, &QAction::triggered, this, &HudListController::deleteCurrent);
    list->setupContextActions(menu, QT_TR_NOOP("Copy HUD"), QT_TR_NOOP("Cut HUD"), QT_TR_NOOP("Paste"));
}

void HudListController::fillRow(UltimateTreeItem* row)
{
    const QJsonObject& object = *row->userData();
    row->setText(0, HudDocument::marker(object));
    row->setText(1, HudDocument::displayName(row->id(), object));
    row->setItalic(1, row->id() != HudEntry::Custom);
}

QVector<HudEntry> HudListController::entries() const
{
    QVector<HudEntry> result;
    const UltimateTree* tree = list->tree();
    result.reserve(tree->rowCount());
    for (int i = 0; i < tree->rowCount(); ++i)
        result.append(HudEntry{tree->row(i)->id(), *tree->row(i)->userData()});
    return result;
}

void HudListController::preparePasted(QJsonObject* object)
{
    object->insert(HudDocument::KeyId, HudDocument::newIdentifier(HudDocument::identifiers(entries())));
    if (!object->contains(HudDocument::KeyName))
        object->insert(HudDocument::KeyName, tr("New HUD"));
    if (!object->contains(HudDocument::KeyIsHud))
        object->insert(HudDocument::KeyIsHud, true);
}

void HudListController::showContextMenu(const QPoint& position)
{
    UltimateTreeItem* row = current();
    const bool custom = row && row->id() == HudEntry::Custom;
    actionEdit->setVisible(row != nullptr);
    actionDelete->setVisible(custom);
    // Add, edit, delete, separator, copy, cut, paste: the Map and Battle HUDs
    // can't be copied or cut.
    const QList<QAction*> actions = menu->actions();
    const QString name = row ? HudDocument::displayName(row->id(), *row->userData()) : QString();
    list->updateContextActions(actions, row, name, 4, 5, 6);
    actions.at(4)->setVisible(custom);
    actions.at(5)->setVisible(custom);
    list->tree()->setPopupOpen(true);
    menu->popup(position);
}

bool HudListController::createOrEdit(UltimateTreeItem* item)
{
    QJsonObject object;
    if (item)
        object = *item->userData();
    else
        object.insert(HudDocument::KeyId, HudDocument::newIdentifier(HudDocument::identifiers(entries())));
    if (item == current())
        storeSceneIntoCurrent();
    if (item)
        object.insert(HudDocument::KeyHud, item->userData()->value(HudDocument::KeyHud));
    bool confirmed = false;
    {
        // The main window dims under the HUD's dialog as under a component's.
        OwnerDimming::dim(dialogParent);
        VelmoHUDDialog dialog(&object, &confirmed, item ? item->id() : HudEntry::Custom, dialogParent);
        dialog.exec();
        OwnerDimming::undim(dialogParent);
    }
    if (!confirmed)
        return false;

    if (item) {
        *item->userData() = object;
        if (item == current())
            applySize(item);
    } else {
        item = new UltimateTreeItem();
        item->setId(HudEntry::Custom);
        item->setUserData(new QJsonObject(object));
        UltimateTree* tree = list->tree();
        UltimateTreeItem* row = current();
        if (row)
            tree->insertRowAfter(item, row);
        else
            tree->addRow(item);
        tree->setCurrentRow(item);
        list->ensureRowVisible(item);
    }
    fillRow(item);
    return true;
}

void HudListController::createFromMenu()
{
    createOrEdit(nullptr);
    emit changed();
}

void HudListController::editFromMenu()
{
    createOrEdit(current());
    emit changed();
    refreshBackground();
}

void HudListController::deleteCurrent()
{
    UltimateTreeItem* item = current();
    if (item && item->id() == HudEntry::Custom) {
        bool sure;
        // A HUD that others still use asks with their names instead.
        if (!usersOf(item).isEmpty()) {
            sure = confirmUnused(item);
        } else {
            int answer = 2;
            ConfirmationDialog dialog(tr("Are you sure you wish to delete \"%1\"?")
                                          .arg(item->userData()->value(HudDocument::KeyName).toString()),
                                      tr("HUD Delete Confirmation"), &answer, dialogParent, ConfirmationDialog::YesNo);
            OwnerDimming::dim(dialogParent);
            dialog.exec();
            OwnerDimming::undim(dialogParent);
            sure = answer == 0;
        }
        // The row leaves without its canvas being stored back; the next row
        // becomes current and loads.
        if (sure)
            list->deleteRowSelectNext(item);
    }
    // By design a deletion counts as a change even when it was refused.
    emit changed();
}

QStringList HudListController::usersOf(const UltimateTreeItem* item) const
{
    return HudDocument::usersOf(entries(), item->userData()->value(HudDocument::KeyId).toString());
}

bool HudListController::confirmUnused(const UltimateTreeItem* item)
{
    const QStringList users = usersOf(item);
    if (users.isEmpty())
        return true;
    QStringList lines{
        tr("\"%1\" is still used by these HUDs:")
            .arg(item->userData()->value(HudDocument::KeyName).toString().toHtmlEscaped())};
    // The lines are shown as rich text.
    for (const QString& user : users)
        lines.append(QStringLiteral("\u2022 ") + user.toHtmlEscaped());
    lines.append(tr("Their components will show an empty box in its place. Delete it anyway?"));
    int answer = 2;
    ConfirmationDialog dialog(lines, tr("Custom HUD In Use"), &answer, dialogParent, ConfirmationDialog::YesNo);
    OwnerDimming::dim(dialogParent);
    dialog.exec();
    OwnerDimming::undim(dialogParent);
    return answer == 0;
}

void HudListController::applySize(const UltimateTreeItem* item)
{
    const QJsonObject& object = *item->userData();
    GameUIEditorScene* scene = editor->editorScene();
    sizedHud = HudDocument::hasOwnSize(item->id(), object);
    if (sizedHud)
        scene->setScreenSize(HudDocument::ownWidth(object), HudDocument::ownHeight(object));
    else
        scene->setScreenSize(screen.width(), screen.height());
}

void HudListController::setScreenSize(const QSize& size)
{
    screen = size;
    if (!sizedHud)
        editor->editorScene()->setScreenSize(size.width(), size.height());
}

void HudListController::storeSceneIntoCurrent()
{
    if (UltimateTreeItem* item = current())
        item->userData()->insert(HudDocument::KeyHud, editor->editorScene()->toJson());
}

void HudListController::show(const HudDocument& document)
{
    UltimateTree* tree = list->tree();
    list->blockSignals(true);
    tree->clear();
    list->blockSignals(false);
    editor->editorScene()->clear();
    removeButton->setEnabled(false);
    for (const HudEntry& entry : document.entries) {
        UltimateTreeItem* row = new UltimateTreeItem();
        row->setId(entry.type);
        row->setUserData(new QJsonObject(entry.object));
        fillRow(row);
        tree->addRow(row);
    }
    if (document.currentIndex >= 0)
        tree->setCurrentRow(tree->row(document.currentIndex));
}

UltimateTreeItem* HudListController::current() const
{
    return list->tree()->currentRow();
}

void HudListController::switchHud(UltimateTreeItem* current, UltimateTreeItem* previous)
{
    removeButton->setEnabled(current && current->id() == HudEntry::Custom);
    const bool sized =
        HudDocument::switchScene(editor->editorScene(), previous ? previous->userData() : nullptr,
                                 current ? current->id() : 0, current ? current->userData() : nullptr, screen);
    if (current)
        sizedHud = sized;
    refreshBackground();
}

void HudListController::refreshBackground()
{
    const UltimateTreeItem* item = current();
    const QString path = item ? item->userData()->value(HudDocument::KeyBackground).toString() : QString();
    editor->editorScene()->setBackgroundImage(HudDocument::backgroundImage(path));
}
