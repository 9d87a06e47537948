#include "logic/RMCondition_NumberCompare.h"

#include "logic/ConditionTables.h"
#include "logic/DynamicValueDisplay.h"
#include "logic/RMNumberSelector.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"
#include "widgets/MyDialogOpener.h"

RMCondition_NumberCompare::RMCondition_NumberCompare(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::NumberCompare, object, accepted, parent, projectData)
{
    const QJsonValue first = object->value(QStringLiteral("Number1"));
    const QJsonValue second = object->value(QStringLiteral("Number2"));
    number1 = first.isObject() ? first.toObject() : defaultFirst();
    number2 = second.isObject() ? second.toObject() : defaultSecond();
    Number1 = opener("Number1", tr("First Number"), tr("The first number in the comparison."));
    showDynamicNumber(Number1, number1, projectData);
    Operator = operatorBox("Operator", tr("The comparative operation."), ConditionTables::OperatorCount,
                           object->value(QStringLiteral("Op")).toInt(2));
    Number2 = opener("Number2", tr("Second Number"), tr("The second number in the comparison."));
    showDynamicNumber(Number2, number2, projectData);
    addField(Number1);
    addField(Operator);
    addField(Number2);
    finishForm(340);
}

QJsonObject RMCondition_NumberCompare::result() const
{
    return {{QStringLiteral("Number1"), number1},
            {QStringLiteral("Op"), Operator->currentData()},
            {QStringLiteral("Number2"), number2}};
}

QJsonObject RMCondition_NumberCompare::defaultFirst()
{
    return {{QStringLiteral("ActorType"), false}, {QStringLiteral("Index"), 1}, {QStringLiteral("Info"), 3},
            {QStringLiteral("Type"), 4}};
}

QJsonObject RMCondition_NumberCompare::defaultSecond()
{
    return {{QStringLiteral("Number"), 100}, {QStringLiteral("Type"), 0}};
}

void RMCondition_NumberCompare::on_Number1_clicked()
{
    RMNumberSelector::pick(Number1, &number1, projectData, this);
}

void RMCondition_NumberCompare::on_Number2_clicked()
{
    RMNumberSelector::pick(Number2, &number2, projectData, this);
}
