#pragma once

#include "logic/TypeTabDialog.h"

#include <QJsonObject>

class MyDialogOpener;
class MyLineEdit;

// Names an actor: one of the database ("Type" 0, "ID"), the member at a
// position of the party (1, "Index", a number or a dynamic value), the actor
// whose id a variable holds (2, "ID"), or the actor a piece of code gives
// (3, "Code").
class RMActorSelector : public TypeTabDialog
{
    Q_OBJECT
public:
    enum Type { Database = 0, PartyActor = 1, Variable = 2, Code = 3 };

    // object is read and, on confirmation, replaced.
    RMActorSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent);

    // The one-line text of an actor object: "[0001] Harold" (empty without
    // project data), "Party Member #1", "[0003] Leader" for a variable, or
    // the code.
    static QString display(const QJsonObject& object, const QJsonObject* projectData);

    MyDialogOpener* databaseActors() const { return DatabaseActorsField; }
    MyLineEdit* partyIndex() const { return PartyIndex; }
    MyDialogOpener* variable() const { return VariableField; }
    MyDialogOpener* code() const { return CodeField; }

private slots:
    void on_Variable_clicked();
    void on_DatabaseActors_clicked();
    void on_Code_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    QJsonObject* object;
    QJsonObject* projectData;
    int actorId = 1;
    int variableId = 1;
    QString codeText;
    MyDialogOpener* DatabaseActorsField;
    MyLineEdit* PartyIndex;
    MyDialogOpener* VariableField;
    MyDialogOpener* CodeField;
};
