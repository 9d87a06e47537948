#include "scene/UsesCustomProperties.h"

#include "scene/CustomPropertyEdit.h"
#include "widgets/ClipboardIdentifiers.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QJsonArray>
#include <QMenu>
#include <QRegularExpression>
#include <QSet>

namespace {

// The menu: add, edit, delete, separator, copy, cut, paste.
enum MenuEntry { AddEntry = 0, EditEntry = 1, DeleteEntry = 2, CopyEntry = 4, CutEntry = 5, PasteEntry = 6 };

QString tr(const char* text)
{
    return QCoreApplication::translate("", text);
}

}

const QString UsesCustomProperties::OrdersFile = QStringLiteral("PropertyOrders.json");

UsesCustomProperties::~UsesCustomProperties() = default;

QString UsesCustomProperties::customPropertiesKey() const
{
    return QString();
}

void UsesCustomProperties::attachList(QWidget* ownerWidget, UltimateTreeWidget* propertyList, QMenu* propertyMenu)
{
    owner = ownerWidget;
    list = propertyList;
    menu = propertyMenu;
}

QString UsesCustomProperties::displayValue(const QString& value)
{
    static const QRegularExpression breaks(QStringLiteral("[\\r\\n]+"));
    QString shown = value;
    return shown.replace(breaks, QStringLiteral(" \u21B5 "));
}

QString UsesCustomProperties::clipboardText(const QString& name, const QString& value)
{
    return ClipboardIdentifiers::CustomProperty
        + QStringLiteral("{\"Name\":\"%1\",\"Prop\":\"%2\"}").arg(name, value);
}

QStringList UsesCustomProperties::orderedNames(const QJsonObject& values, const QJsonArray& order)
{
    QStringList names;
    QSet<QString> placed;
    for (const QJsonValue& entry : order) {
        const QString name = entry.toString();
        if (values.contains(name) && !placed.contains(name)) {
            names.append(name);
            placed.insert(name);
        }
    }
    for (auto it = values.constBegin(); it != values.constEnd(); ++it) {
        if (!placed.contains(it.key()))
            names.append(it.key());
    }
    return names;
}

void UsesCustomProperties::loadProperties()
{
    if (!list)
        return;
    list->tree()->clear();
    if (properties.isEmpty())
        return;
    const QJsonObject orders = orderData ? orderData->value(OrdersFile).toObject() : QJsonObject();
    QList<UltimateTreeItem*> rows;
    for (const QString& name : orderedNames(properties, orders.value(customPropertiesKey()).toArray())) {
        UltimateTreeItem* row = new UltimateTreeItem();
        row->setText(0, name);
        row->setText(1, displayValue(properties.value(name).toString()));
        rows.append(row);
    }
    list->tree()->addRows(rows);
}

void UsesCustomProperties::saveOrder()
{
    if (properties.isEmpty() || !orderData || !list)
        return;
    const QString key = customPropertiesKey();
    if (key.isEmpty())
        return;
    QJsonArray names;
    const UltimateTree* tree = list->tree();
    for (int i = 0; i < tree->rowCount(); ++i) {
        const QString name = tree->row(i)->text(0);
        if (properties.contains(name))
            names.append(name);
    }
    QJsonObject orders = orderData->value(OrdersFile).toObject();
    orders.insert(key, names);
    orderData->insert(OrdersFile, orders);
}

QJsonObject UsesCustomProperties::collectProperties()
{
    saveOrder();
    return properties;
}

void UsesCustomProperties::insertRow(const QString& name, const QString& value)
{
    UltimateTreeItem* row = new UltimateTreeItem();
    row->setText(0, name);
    row->setText(1, displayValue(value));
    UltimateTree* tree = list->tree();
    if (UltimateTreeItem* current = tree->currentRow())
        tree->insertRowAfter(row, current);
    else
        tree->addRow(row);
    tree->setCurrentRow(row);
    list->ensureRowVisible(row);
}

void UsesCustomProperties::newProperty(QWidget* ownerWidget)
{
    if (!list)
        return;
    QString name;
    QString value;
    if (!CustomPropertyEdit::edit(&name, &value, properties.keys(), ownerWidget))
        return;
    insertRow(name, value);
    properties.insert(name, value);
}

void UsesCustomProperties::editProperty(QWidget* ownerWidget)
{
    UltimateTreeItem* row = list ? list->tree()->currentRow() : nullptr;
    if (!row)
        return;
    const QString oldName = row->text(0);
    QString name = oldName;
    QString value = properties.value(oldName).toString();
    if (!CustomPropertyEdit::edit(&name, &value, properties.keys(), ownerWidget))
        return;
    // A rename moves the value; the row keeps its place in the order.
    properties.remove(oldName);
    row->setText(0, name);
    row->setText(1, displayValue(value));
    properties.insert(name, value);
}

void UsesCustomProperties::deleteProperty()
{
    UltimateTreeItem* row = list ? list->tree()->currentRow() : nullptr;
    if (!row)
        return;
    properties.remove(row->text(0));
    list->deleteRowSelectNext(row);
}

void UsesCustomProperties::copyProperty()
{
    const UltimateTreeItem* row = list ? list->tree()->currentRow() : nullptr;
    if (!row)
        return;
    const QString name = row->text(0);
    QApplication::clipboard()->setText(clipboardText(name, properties.value(name).toString()));
}

void UsesCustomProperties::cutProperty()
{
    if (!list || !list->tree()->currentRow())
        return;
    copyProperty();
    deleteProperty();
}

void UsesCustomProperties::pasteProperty()
{
    QJsonObject pasted;
    if (!list || !ClipboardIdentifiers::readObject(QApplication::clipboard()->text(),
                                                   ClipboardIdentifiers::CustomProperty, &pasted))
        return;
    const QString value = pasted.value(QStringLiteral("Prop")).toString();
    const QString name = UltimateTreeWidget::numberedName(
        pasted.value(QStringLiteral("Name")).toString(),
        [this](const QString& candidate) { return properties.contains(candidate); });
    insertRow(name, value);
    properties.insert(name, value);
}

void UsesCustomProperties::updateMenu(const QPoint& position)
{
    if (!menu || !list)
        return;
    const QList<QAction*> actions = menu->actions();
    if (actions.size() <= PasteEntry)
        return;
    const UltimateTreeItem* row = list->tree()->currentRow();
    struct Named {
        int entry;
        const char* built;
        const char* withName;
    };
    const Named named[] = {{EditEntry, QT_TR_NOOP("Edit ..."), QT_TR_NOOP("Edit \"%1\"")},
                           {DeleteEntry, QT_TR_NOOP("Delete ..."), QT_TR_NOOP("Delete \"%1\"")},
                           {CopyEntry, QT_TR_NOOP("Copy ..."), QT_TR_NOOP("Copy \"%1\"")},
                           {CutEntry, QT_TR_NOOP("Cut ..."), QT_TR_NOOP("Cut \"%1\"")}};
    for (const Named& entry : named) {
        QAction* action = actions.at(entry.entry);
        action->setVisible(row != nullptr);
        action->setText(row ? tr(entry.withName).arg(row->text(0)) : tr(entry.built));
    }
    QJsonObject pasted;
    QAction* paste = actions.at(PasteEntry);
    const bool offered = ClipboardIdentifiers::readObject(QApplication::clipboard()->text(),
                                                          ClipboardIdentifiers::CustomProperty, &pasted);
    paste->setVisible(offered);
    paste->setText(offered ? tr("Paste \"%1\"").arg(pasted.value(QStringLiteral("Name")).toString())
                           : tr("Paste ..."));
    list->tree()->setPopupOpen(true);
    menu->popup(position);
}
