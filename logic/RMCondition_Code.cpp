#include "logic/RMCondition_Code.h"

#include "logic/ConditionTables.h"
#include "widgets/HaxeCodeEdit.h"

RMCondition_Code::RMCondition_Code(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject*)
    : RMCodeInput(nullptr, accepted, sizeIndexOf(&staticMetaObject), parent), object(object)
{
    setObjectName(QStringLiteral("RMCondition_Code"));
    editor()->setPlainText(object->value(QStringLiteral("Code")).toString(QStringLiteral("return true;")));
    setDialogTitle(tr("Code Condition"));
    setScreenFit(true);
}

void RMCondition_Code::keepCode(const QString& text)
{
    *object = QJsonObject{{QStringLiteral("Type"), ConditionTables::Code}, {QStringLiteral("Code"), text}};
}
