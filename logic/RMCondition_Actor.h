#pragma once

#include "logic/RMConditionDialog.h"

class MyComboBox;
class MyDialogOpener;
class MyEitherBox;
class MyLineEdit;
class QStackedWidget;

// An actor of the database or a party member, and what it has: "ActorType",
// "Actor", "Check" and by the check "Name" or "ID".
class RMCondition_Actor : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_Actor(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

protected:
    QJsonObject result() const override;

private:
    int actorId;
    // The record of each check, by "Check"; 0 and 1 have none.
    int recordIds[7] = {1, 1, 1, 1, 1, 1, 1};
    MyEitherBox* ActorType;
    MyLineEdit* PartyIndex;
    MyDialogOpener* DatabaseActors;
    MyComboBox* DataToCheck;
    MyLineEdit* Name;
};
