#include "logic/RMCondition_Enemy.h"

#include "logic/ConditionTables.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyLineEdit.h"

#include <QStackedWidget>

RMCondition_Enemy::RMCondition_Enemy(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::Enemy, object, accepted, parent, projectData)
{
    const bool anyEnemy = object->value(QStringLiteral("EnemyType")).toBool(true);
    // A position is read as a plain number: an extended one comes back as 1.
    const int enemy = object->value(QStringLiteral("Enemy")).toInt(1);
    enemyId = anyEnemy ? enemy : 1;
    const int check = object->value(QStringLiteral("Check")).toInt(0) == 1 ? 1 : 0;
    stateId = check == 1 ? object->value(QStringLiteral("ID")).toInt(1) : 1;

    EnemyType = eitherBox("EnemyType", tr("Enemy Type"), tr("The type of enemy to check."), tr("Any Enemy"),
                          tr("In-Battle Enemy"));
    EnemyType->setChoice(anyEnemy, true);
    TroopIndex = integerEdit("TroopIndex", tr("Troop Position"), tr("The position of the enemy in the troop."), 1,
                             500, 4, 0, 9999);
    TroopIndex->setExtendable(QStringLiteral("1"), 0, this);
    TroopIndex->setValue(QString::number(anyEnemy ? 1 : enemy));
    DatabaseEnemies = recordOpener("DatabaseEnemies", tr("Enemy"), tr("The enemy ID to check."), "Enemies.json",
                                   QT_TR_NOOP("Enemy"), &enemyId);
    QStackedWidget* enemyPlace = alternatives({DatabaseEnemies, TroopIndex});
    followChoice(EnemyType, enemyPlace);

    DataToCheck = comboBox("DataToCheck", tr("Condition"), tr("What to check the enemy with."),
                           ConditionTables::enemyChecks());
    DataToCheck->setCurrentIndex(check, false);
    State = recordOpener("State", tr("State"), tr("The state to check for."), "States.json", QT_TR_NOOP("State"),
                         &stateId);
    QStackedWidget* checkPlace = alternatives({blankSpace(), State});
    followChoice(DataToCheck, checkPlace);

    addField(EnemyType);
    addField(enemyPlace);
    addField(DataToCheck);
    addField(checkPlace);
    finishForm(418);
}

QJsonObject RMCondition_Enemy::result() const
{
    const bool anyEnemy = EnemyType->choice();
    QJsonObject built{{QStringLiteral("EnemyType"), anyEnemy},
                      {QStringLiteral("Enemy"), anyEnemy ? QJsonValue(enemyId) : TroopIndex->toJson()},
                      {QStringLiteral("Check"), DataToCheck->currentData()}};
    if (DataToCheck->currentData() == 1)
        built.insert(QStringLiteral("ID"), stateId);
    return built;
}
