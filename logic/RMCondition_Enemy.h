#pragma once

#include "logic/RMConditionDialog.h"

class MyComboBox;
class MyDialogOpener;
class MyEitherBox;
class MyLineEdit;

// An enemy of the database or of the troop in battle, and whether it exists or
// has a state: "EnemyType", "Enemy", "Check" and for a state "ID".
class RMCondition_Enemy : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_Enemy(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

protected:
    QJsonObject result() const override;

private:
    int enemyId;
    int stateId;
    MyEitherBox* EnemyType;
    MyLineEdit* TroopIndex;
    MyDialogOpener* DatabaseEnemies;
    MyComboBox* DataToCheck;
    MyDialogOpener* State;
};
