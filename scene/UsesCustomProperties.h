#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QPoint>
#include <QString>
#include <QStringList>

class QMenu;
class QWidget;
class UltimateTreeWidget;

// What a dialog with a list of custom properties shares: free name and value
// pairs that scripts of the game read. The pairs are a JSON object, which
// knows no order; the order the user gives the rows is kept apart, in
// "PropertyOrders.json" of the project's data, under customPropertiesKey().
class UsesCustomProperties
{
public:
    // The project's file of orders, and its key in the project's data.
    static const QString OrdersFile;

    UsesCustomProperties() = default;
    virtual ~UsesCustomProperties();
    UsesCustomProperties(const UsesCustomProperties&) = delete;
    UsesCustomProperties& operator=(const UsesCustomProperties&) = delete;

    // The key of this list's order; with the empty key of the base no order
    // is kept.
    virtual QString customPropertiesKey() const;

    void attachList(QWidget* owner, UltimateTreeWidget* list, QMenu* menu);
    // Where "PropertyOrders.json" is read and written; null keeps no order.
    void setPropertyOrders(QJsonObject* projectData) { orderData = projectData; }
    void setProperties(const QJsonObject& values) { properties = values; }

    // Fills the list: the names of the stored order first, then the rest by name.
    void loadProperties();
    void newProperty(QWidget* owner);
    void editProperty(QWidget* owner);
    void deleteProperty();
    void copyProperty();
    void cutProperty();
    void pasteProperty();
    // Names and shows the menu's entries for the current row and the
    // clipboard, then pops the menu up at position.
    void updateMenu(const QPoint& position);
    // The pairs, with the list's order stored first.
    QJsonObject collectProperties();

    // The names of values in a stored order: those of order that values
    // hold, then the rest by name.
    static QStringList orderedNames(const QJsonObject& values, const QJsonArray& order);
    // A value as the list shows it: every run of line breaks becomes " ↵ ".
    static QString displayValue(const QString& value);
    // The clipboard text of one pair. It is written by hand, without
    // escaping, so a value with a quote or a line break doesn't paste again.
    static QString clipboardText(const QString& name, const QString& value);

protected:
    QJsonObject properties;
    QWidget* owner = nullptr;
    QMenu* menu = nullptr;
    UltimateTreeWidget* list = nullptr;

private:
    void saveOrder();
    // Puts a new row after the current one, or at the end, and makes it current.
    void insertRow(const QString& name, const QString& value);

    QJsonObject* orderData = nullptr;
};
