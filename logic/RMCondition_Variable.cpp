#include "logic/RMCondition_Variable.h"

#include "logic/ConditionTables.h"
#include "logic/GameDataLabel.h"
#include "logic/SwitchSelector.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyLineEdit.h"

RMCondition_Variable::RMCondition_Variable(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::Variable, object, accepted, parent, projectData)
{
    variableId = object->value(QStringLiteral("ID")).toInt(1);
    Variables = opener("Variables", tr("Variable"), tr("The variable to check."));
    Variables->setValue(GameDataLabel::variableEntry(projectData, variableId));
    Operator = operatorBox("Operator", tr("The comparative operation."), ConditionTables::OperatorCount,
                           object->value(QStringLiteral("Op")).toInt(0));
    Value = comparisonValue(tr("The value the variable is compared to."), 10);
    Value->setExtendable(QStringLiteral("0"), 0, this);
    Value->fromJson(object->value(QStringLiteral("Value")), 0);
    addField(Variables);
    addRow({{Operator, 2}, {Value, 3}});
    finishForm();
}

QJsonObject RMCondition_Variable::result() const
{
    return {{QStringLiteral("ID"), variableId},
            {QStringLiteral("Op"), Operator->currentData()},
            {QStringLiteral("Value"), Value->toJson()}};
}

void RMCondition_Variable::on_Variables_clicked()
{
    SwitchSelector::pick(Variables, &variableId, projectData, false, this);
}
