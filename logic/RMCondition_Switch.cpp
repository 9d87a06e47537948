#include "logic/RMCondition_Switch.h"

#include "logic/ConditionTables.h"
#include "logic/GameDataLabel.h"
#include "logic/SwitchSelector.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"

RMCondition_Switch::RMCondition_Switch(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::Switch, object, accepted, parent, projectData)
{
    switchId = object->value(QStringLiteral("ID")).toInt(1);
    Switches = opener("Switches", tr("Switch"), tr("The switch to check."));
    Switches->setValue(GameDataLabel::switchEntry(projectData, switchId));
    SwitchValue = eitherBox("SwitchValue", tr("If Switch is..."), tr("The value of the switch to check for."), tr("ON"),
                            tr("OFF"));
    SwitchValue->setProperty("mtt_title", tr("Switch Value"));
    SwitchValue->setChoice(object->value(QStringLiteral("Value")).toBool(false), true);
    addField(Switches);
    addField(SwitchValue);
    finishForm();
}

QJsonObject RMCondition_Switch::result() const
{
    return {{QStringLiteral("ID"), switchId}, {QStringLiteral("Value"), SwitchValue->choice()}};
}

void RMCondition_Switch::on_Switches_clicked()
{
    SwitchSelector::pick(Switches, &switchId, projectData, true, this);
}
