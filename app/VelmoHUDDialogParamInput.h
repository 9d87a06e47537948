#pragma once

#include "widgets/PickerDialog.h"

#include <QJsonObject>
#include <QStringList>

class MyEitherBox;
class MyLineEdit;

// "Custom Parameter Dialog": one parameter of a custom HUD object, its name
// and whether it takes a text or a number. A name that another parameter of
// the same HUD has is refused.
class VelmoHUDDialogParamInput : public PickerDialog
{
    Q_OBJECT
public:
    // object is read and, on confirmation, replaced by { "Name", "IsString" };
    // usedNames are the names of the HUD's parameters, its own among them.
    VelmoHUDDialogParamInput(QJsonObject* object, bool* confirmed, QStringList* usedNames, QWidget* parent);

    // Whether name is taken by another parameter: not empty, not the edited
    // parameter's own name, and among the used names.
    bool isInUse(const QString& name) const;
    // The name a field is left with: itself when free, otherwise "name (2)",
    // "name (3)" and on until one is free (an empty name too).
    QString repairedName(const QString& name) const;

    MyLineEdit* nameField() const { return ParamName; }
    MyEitherBox* typeBox() const { return NumOrString; }

public slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();
    void on_ParamName_textChanged(const QString& text);

private:
    QJsonObject* object;
    QStringList* usedNames;
    QString ownName;
    MyLineEdit* ParamName;
    MyEitherBox* NumOrString;
};
