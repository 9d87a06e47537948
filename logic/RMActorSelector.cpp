#include "logic/RMActorSelector.h"

#include "logic/GameDataLabel.h"
#include "logic/RMCodeInput.h"
#include "logic/RMDatabaseItemSelector.h"
#include "logic/SwitchSelector.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyLineEdit.h"

#include <QIntValidator>
#include <QPushButton>

namespace {

const char* const ActorsFile = "Actors.json";

}

RMActorSelector::RMActorSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent)
    : TypeTabDialog(accepted, parent), object(object), projectData(projectData)
{
    setObjectName(QStringLiteral("RMActorSelector"));
    const int type = object->value(QStringLiteral("Type")).toInt(Database);
    const QString actorsFile = QLatin1String(ActorsFile);

    DatabaseActorsField = makeOpener("DatabaseActors", tr("Actor"), tr("The actor ID to use."));
    PartyIndex = new MyLineEdit();
    PartyIndex->setObjectName(QStringLiteral("PartyIndex"));
    PartyIndex->setCaption(tr("Party Position"));
    PartyIndex->setProperty("mtt_title", tr("Party Position"));
    PartyIndex->setProperty("mtt_desc", tr("The position of the actor in the party (#1 - #4)."));
    VariableField = makeOpener("Variable", tr("Variable"), tr("The variable to use."));
    CodeField = makeOpener("Code", tr("Code"), tr("Code for creating the number."));
    addTypePage(tr("Database"), DatabaseActorsField);
    addTypePage(tr("Party Actor"), PartyIndex);
    addTypePage(tr("Variable"), VariableField);
    addTypePage(tr("Code"), CodeField);

    if (type == Database)
        actorId = object->value(QStringLiteral("ID")).toInt(1);
    else if (type == Variable)
        variableId = object->value(QStringLiteral("ID")).toInt(1);
    codeText = type == Code ? object->value(QStringLiteral("Code")).toString() : QStringLiteral("return 1;");
    DatabaseActorsField->setValue(GameDataLabel::databaseEntry(projectData, actorsFile, actorId));
    VariableField->setValue(GameDataLabel::variableEntry(projectData, variableId));
    CodeField->setValue(RMCodeInput::singleLine(codeText));

    finishTabs(tr("Actor Input"), type, 480);
    PartyIndex->setNumberField(1, 500, 4, confirmButton(), new QIntValidator(0, 9999, PartyIndex));
    PartyIndex->setExtendable(QStringLiteral("1"), 0, this);
    PartyIndex->fromJson(type == PartyActor ? object->value(QStringLiteral("Index")) : QJsonValue(), 1);
}

QString RMActorSelector::display(const QJsonObject& object, const QJsonObject* projectData)
{
    switch (object.value(QStringLiteral("Type")).toInt(Database)) {
    case PartyActor: {
        const QJsonValue index = object.value(QStringLiteral("Index"));
        return tr("Party Member #%1")
            .arg(index.isObject() ? QStringLiteral("[DYNAMIC]") : QString::number(index.toInt(1)));
    }
    case Variable:
        return GameDataLabel::variableEntry(projectData, object.value(QStringLiteral("ID")).toInt(1));
    case Code:
        return RMCodeInput::singleLine(object.value(QStringLiteral("Code")).toString());
    default:
        if (!projectData)
            return QString();
        return GameDataLabel::databaseEntry(projectData, QLatin1String(ActorsFile),
                                            object.value(QStringLiteral("ID")).toInt(1));
    }
}

void RMActorSelector::on_DatabaseActors_clicked()
{
    RMDatabaseItemSelector::pick(DatabaseActorsField, &actorId, projectData, QLatin1String(ActorsFile), tr("Actor"),
                                 this);
}

void RMActorSelector::on_Variable_clicked()
{
    SwitchSelector::pick(VariableField, &variableId, projectData, false, this);
}

void RMActorSelector::on_Code_clicked()
{
    RMCodeInput::pick(CodeField, &codeText, this);
}

void RMActorSelector::on_confirmButton_clicked()
{
    if (!confirmButton()->isEnabled())
        return;
    const int type = currentType();
    QJsonObject result{{QStringLiteral("Type"), type}};
    switch (type) {
    case PartyActor:
        result.insert(QStringLiteral("Index"), PartyIndex->toJson());
        break;
    case Variable:
        result.insert(QStringLiteral("ID"), variableId);
        break;
    case Code:
        result.insert(QStringLiteral("Code"), codeText);
        break;
    default:
        result.insert(QStringLiteral("ID"), actorId);
        break;
    }
    *object = result;
    acceptChoice();
}

void RMActorSelector::on_cancelButton_clicked()
{
    reject();
}
