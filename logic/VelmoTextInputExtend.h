#pragma once

#include "logic/TypeTabDialog.h"

#include <QJsonObject>

class MyButton;
class MyDialogOpener;
class MyLineEdit;

// "Dynamic Input": makes an extendable field take its value from the game
// instead of a literal: a custom parameter ("Type" 0, "Param"), a variable
// (1, "ID") or a piece of code (2, "Code"). "Normalize" returns the field to
// a plain value.
class VelmoTextInputExtend : public TypeTabDialog
{
    Q_OBJECT
public:
    enum Type { Param = 0, Variable = 1, Code = 2 };

    // object is read and, on confirmation, replaced; removed is set when the
    // user chose "Normalize". numeric picks the default code.
    VelmoTextInputExtend(QJsonObject* object, bool* accepted, bool* removed, QJsonObject* projectData,
                         bool numeric, QWidget* parent);

    // The text a field shows for an extension object: "Param: Speed",
    // "Variable: [0005]", "Code: ...".
    static QString display(const QJsonObject& object);
    // Installs this dialog as extension kind 0 of every extendable field,
    // reading the game data from projectData (which may be null).
    static void install(QJsonObject* projectData);
    // The code a new "Code" value starts with.
    static QString defaultCode(bool numeric);

    MyLineEdit* paramName() const { return ParamName; }
    MyDialogOpener* variable() const { return VariableField; }
    MyDialogOpener* code() const { return CodeField; }
    MyButton* normalize() const { return normalizeButton; }

private slots:
    void on_Variable_clicked();
    void on_Code_clicked();
    void on_normalizeButton_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    QJsonObject* object;
    bool* removed;
    QJsonObject* projectData;
    int variableId = 1;
    QString codeText;
    MyLineEdit* ParamName;
    MyDialogOpener* VariableField;
    MyDialogOpener* CodeField;
    MyButton* normalizeButton;
};
