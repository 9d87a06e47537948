#pragma once

#include "widgets/PickerDialog.h"

#include <QJsonValue>

class MyLineEdit;
class QPushButton;

// Gives a custom component's parameter its value where the component is
// used: a text or a number, either of which the game may compute (the
// field's extension), or, inside a collection, the cell's entry of the
// list data (the JSON value true).
class VelmoHUDDialogParamSetter : public PickerDialog
{
    Q_OBJECT
public:
    // value is read and, on confirmation, replaced; isString picks the text
    // or the number field; listAllowed offers the list's entry; name is the
    // parameter's, for the title.
    VelmoHUDDialogParamSetter(QJsonValue* value, bool isString, bool listAllowed, bool* confirmed,
                              const QString& name, QWidget* parent);

    // Runs the setter with the parent dimmed; true when confirmed.
    static bool pick(QJsonValue* value, bool isString, bool listAllowed, const QString& name, QWidget* parent);

    MyLineEdit* input() const { return field; }
    QPushButton* listToggle() const { return useListData; }
    bool usesListData() const { return listOn; }

public slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();
    void on_useListData_clicked();

private:
    void showToggle();

    QJsonValue* value;
    MyLineEdit* field;
    QPushButton* useListData;
    bool listOn;
};
