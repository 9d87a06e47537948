#include "logic/RMCondition_CustomParamExists.h"

#include "logic/ConditionTables.h"
#include "widgets/MyLineEdit.h"

RMCondition_CustomParamExists::RMCondition_CustomParamExists(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::CustomParamExists, object, accepted, parent, projectData)
{
    ParamName = lineEdit("ParamName", tr("Parameter"), tr("The name of the parameter to check."));
    ParamName->setValue(object->value(QStringLiteral("Param")).toString());
    addField(ParamName);
    finishForm();
}

QJsonObject RMCondition_CustomParamExists::result() const
{
    return {{QStringLiteral("Param"), ParamName->text()}};
}
