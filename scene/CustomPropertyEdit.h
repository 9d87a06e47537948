#pragma once

#include "widgets/PickerDialog.h"

#include <QStringList>

class HaxeCodeEdit;
class MyLineEdit;

// "Custom Property": the name and the value of one custom property. A name
// must be given and must not be taken by another property of the list.
class CustomPropertyEdit : public PickerDialog
{
    Q_OBJECT
public:
    // name and value are read and, on confirmation, replaced. takenNames
    // are the names of the list; the one being edited may keep its own.
    CustomPropertyEdit(QString* name, QString* value, const QStringList& takenNames, bool* accepted,
                       QWidget* parent);

    // Runs the dialog under the owner's dimming; true when confirmed.
    static bool edit(QString* name, QString* value, const QStringList& takenNames, QWidget* owner);

public slots:
    void on_Property_Name_textChanged(const QString& arg1);
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    QString* name;
    QString* value;
    QString ownName;
    QString shownValue;
    QStringList takenNames;
    MyLineEdit* Property_Name;
    HaxeCodeEdit* contents;
};
