#include "logic/EntryList.h"

#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QIcon>
#include <QJsonObject>
#include <QMenu>
#include <QRectF>

namespace {

// The menu: add, edit, delete, separator, copy, cut, paste.
enum MenuEntry { EditEntry = 1, DeleteEntry = 2, CopyEntry = 4, CutEntry = 5, PasteEntry = 6 };

const QString ForeignKey = QStringLiteral("Entry");

}

namespace EntryList {

UltimateTreeItem* newRow(const QJsonValue& entry)
{
    UltimateTreeItem* row = new UltimateTreeItem();
    if (entry.isObject()) {
        row->setId(0);
        row->setUserData(new QJsonObject(entry.toObject()));
    } else {
        row->setId(ForeignRow);
        row->setUserData(new QJsonObject{{ForeignKey, entry}});
    }
    return row;
}

QJsonValue entry(const UltimateTreeItem* row)
{
    const QJsonObject* record = row->userData();
    return row->id() == ForeignRow ? record->value(ForeignKey) : QJsonValue(*record);
}

bool holdsObject(const UltimateTreeItem* row)
{
    return row->id() != ForeignRow;
}

QMenu* makeMenu(QWidget* owner, UltimateTreeWidget* list, const QString& objectName, const MenuTexts& texts,
                const std::function<void()>& add, const std::function<void()>& edit,
                const std::function<void()>& remove)
{
    QMenu* menu = new QMenu(owner);
    menu->setObjectName(objectName);
    QObject::connect(menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Add.png")), texts.add),
                     &QAction::triggered, owner, add);
    QObject::connect(menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Edit.png")), texts.edit),
                     &QAction::triggered, owner, edit);
    QObject::connect(menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Remove.png")), texts.remove),
                     &QAction::triggered, owner, remove);
    list->setupContextActions(menu, texts.copy, texts.cut, texts.paste);
    QObject::connect(list, &UltimateTreeWidget::onDeleteKeyPress, owner, remove);
    QObject::connect(list, &UltimateTreeWidget::doubleClickedBlank, owner, add);
    return menu;
}

void popUpMenu(UltimateTreeWidget* list, QMenu* menu, const QPoint& pos, bool editable)
{
    UltimateTreeItem* row = list->tree()->currentRow();
    const QList<QAction*> actions = menu->actions();
    actions.at(EditEntry)->setVisible(editable);
    actions.at(DeleteEntry)->setVisible(row != nullptr);
    list->updateContextActions(actions, editable ? row : nullptr, QString(), CopyEntry, CutEntry, PasteEntry);
    list->tree()->setPopupOpen(true);
    menu->popup(pos);
}

void selectLast(UltimateTreeWidget* list)
{
    UltimateTree* tree = list->tree();
    UltimateTreeItem* last = tree->row(tree->rowCount() - 1);
    tree->setCurrentRow(last);
    // The scene runs a few blank rows past the "+" row, so its bottom would
    // hide a short list entirely: show the new row with the "+" row under it.
    if (last && last->scene())
        tree->ensureVisible(QRectF(0, last->scenePos().y(), 1, 2 * last->rowHeight()), 0, 0);
}

}
