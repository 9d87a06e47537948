#include "logic/RMCondition_Gold.h"

#include "logic/ConditionTables.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"
#include "widgets/MyLineEdit.h"

RMCondition_Gold::RMCondition_Gold(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::Gold, object, accepted, parent, projectData)
{
    Operator = operatorBox("Operator", tr("The comparative operation."), ConditionTables::OperatorCount,
                           object->value(QStringLiteral("Op")).toInt(0));
    Value = comparisonValue(tr("The value the gold is compared to."), 10);
    Value->setExtendable(QStringLiteral("0"), 0, this);
    Value->fromJson(object->value(QStringLiteral("Value")), 0);
    addRow({{Operator, 2}, {Value, 3}});
    finishForm();
}

QJsonObject RMCondition_Gold::result() const
{
    return {{QStringLiteral("Op"), Operator->currentData()}, {QStringLiteral("Value"), Value->toJson()}};
}
