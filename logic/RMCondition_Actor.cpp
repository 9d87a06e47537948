#include "logic/RMCondition_Actor.h"

#include "logic/ConditionTables.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyLineEdit.h"

#include <QStackedWidget>

RMCondition_Actor::RMCondition_Actor(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::Actor, object, accepted, parent, projectData)
{
    const bool anyActor = object->value(QStringLiteral("ActorType")).toBool(true);
    // A position is read as a plain number: an extended one comes back as 1.
    const int actor = object->value(QStringLiteral("Actor")).toInt(1);
    actorId = anyActor ? actor : 1;
    const int check = object->value(QStringLiteral("Check")).toInt(0);
    const QVector<ConditionTables::RecordCheck>& checks = ConditionTables::actorChecks();
    if (check >= 2 && check < checks.size())
        recordIds[check] = object->value(QStringLiteral("ID")).toInt(1);

    ActorType = eitherBox("ActorType", tr("Actor Type"), tr("The type of actor to check."), tr("Any Actor"),
                          tr("Party Member"));
    ActorType->setChoice(anyActor, true);
    PartyIndex = integerEdit("PartyIndex", tr("Party Position"),
                             tr("The position of the actor in the party (#1 - #4)."), 1, 500, 4, 0, 9999);
    PartyIndex->setExtendable(QStringLiteral("1"), 0, this);
    PartyIndex->setValue(QString::number(anyActor ? 1 : actor));
    DatabaseActors = recordOpener("DatabaseActors", tr("Actor"), tr("The actor ID to check."), "Actors.json",
                                  QT_TR_NOOP("Actor"), &actorId);
    QStackedWidget* actorPlace = alternatives({DatabaseActors, PartyIndex});
    followChoice(ActorType, actorPlace);

    QVector<const char*> labels;
    for (const ConditionTables::RecordCheck& row : checks)
        labels.append(row.label);
    DataToCheck = comboBox("DataToCheck", tr("Condition"), tr("What to check the actor with."), labels);
    DataToCheck->setCurrentIndex(check >= 0 && check < checks.size() ? check : 0, false);
    Name = lineEdit("Name", tr("Name"), tr("The name to check for."));
    Name->setValue(object->value(QStringLiteral("Name")).toString());
    QStackedWidget* checkPlace = alternatives({blankSpace(), Name});
    for (int index = 2; index < checks.size(); ++index) {
        const ConditionTables::RecordCheck& row = checks.at(index);
        checkPlace->addWidget(recordOpener(row.objectName, tr(row.titleWord), tr(row.hint), row.fileName,
                                           row.titleWord, &recordIds[index]));
    }
    followChoice(DataToCheck, checkPlace);

    addField(ActorType);
    addField(actorPlace);
    addField(DataToCheck);
    addField(checkPlace);
    finishForm(418);
}

QJsonObject RMCondition_Actor::result() const
{
    const bool anyActor = ActorType->choice();
    QJsonObject built{{QStringLiteral("ActorType"), anyActor},
                      {QStringLiteral("Actor"), anyActor ? QJsonValue(actorId) : PartyIndex->toJson()}};
    const int check = DataToCheck->currentData();
    built.insert(QStringLiteral("Check"), check);
    if (check == 1)
        built.insert(QStringLiteral("Name"), Name->text());
    else if (check >= 2)
        built.insert(QStringLiteral("ID"), recordIds[check]);
    return built;
}
