#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

class ComponentDialogForm;
class MyDialogOpener;
class MyGroupBox;
class QWidget;
class UltimateTreeItem;
class UltimateTreeWidget;

// What the dialogs of the three custom kinds share: the reference to a
// custom HUD object (`CustomComponent`), the values of that HUD's parameters
// in the table `customParams`, and the disabled size fields, which show the
// HUD's size. A collection lets a parameter take the cell's entry of the
// list data; a plain custom component doesn't.
class CustomHudFields
{
public:
    CustomHudFields(ComponentDialogForm& form, QWidget* dialog, bool listAllowed);

    // The opener of the reference, in the form's current property box.
    MyDialogOpener* addOpener(int row, int column, int columnSpan = 1);
    // The box of the parameter table, below the property box.
    MyGroupBox* addTable();
    // Takes "ID" and "Params" of the data object as the dialog opened it and
    // shows them, the size fields with the HUD's size.
    void load(const QJsonObject& data);

    // The user picks the HUD. Another HUD than before empties the values,
    // since they belong to its parameters; the same one keeps them.
    void pickHud();
    // The user gives the parameter of a row its value.
    void editParam(UltimateTreeItem* item);

    // "Width", "Height", "Params" and "ID".
    void write(QJsonObject& data) const;

    QString identifier() const { return id; }
    QJsonObject values() const { return params; }
    UltimateTreeWidget* table() const { return customParams; }

    // What the table shows for a value, and whether it is set in italics
    // (what isn't a plain number or text, in a collection).
    static QString display(const QJsonValue& value, bool listAllowed, bool* italic = nullptr);

private:
    void rebuildParams();
    void updateSizeFields();
    void showValue(UltimateTreeItem* row);

    ComponentDialogForm& form;
    QWidget* dialog;
    bool listAllowed;
    QString id;
    QJsonObject params;
    MyDialogOpener* customComponent = nullptr;
    UltimateTreeWidget* customParams = nullptr;
};
