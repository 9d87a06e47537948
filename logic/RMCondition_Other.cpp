#include "logic/RMCondition_Other.h"

#include "logic/ConditionTables.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"

RMCondition_Other::RMCondition_Other(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::Other, object, accepted, parent, projectData)
{
    OtherConditions = comboBox("OtherConditions", tr("Condition"), tr("Simple condition to check."),
                               ConditionTables::otherChecks());
    OtherConditions->setCurrentIndex(
        qBound(0, object->value(QStringLiteral("Check")).toInt(0), OtherConditions->count() - 1), false);
    addField(OtherConditions);
    finishForm();
}

QJsonObject RMCondition_Other::result() const
{
    return {{QStringLiteral("Check"), OtherConditions->currentData()}};
}
