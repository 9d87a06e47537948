#include "logic/RMCondition_CustomParam.h"

#include "logic/ConditionTables.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyLineEdit.h"

#include <QHBoxLayout>
#include <QStackedWidget>

RMCondition_CustomParam::RMCondition_CustomParam(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::CustomParam, object, accepted, parent, projectData)
{
    const bool isString = object->value(QStringLiteral("IsString")).toBool(false);
    const int op = object->value(QStringLiteral("Op")).toInt(0);
    const QJsonValue value = object->value(QStringLiteral("Value"));

    ParamName = lineEdit("ParamName", tr("Parameter"), tr("The name of the parameter to check."));
    ParamName->setValue(object->value(QStringLiteral("Param")).toString());
    NumOrString = eitherBox("NumOrString", tr("Type"), tr("Whether the param is number or text."), tr("Num."),
                            tr("Text"));
    NumOrString->setChoice(!isString, true);

    QWidget* numberRow = new QWidget(content);
    Operator = operatorBox("Operator", tr("The comparative operation."), ConditionTables::OperatorCount,
                           isString ? 0 : op);
    Value = comparisonValue(tr("The number value for the comparison."), 7);
    Value->setValue(QString::number(isString ? 0 : value.toInt(0)));
    QWidget* textRow = new QWidget(content);
    // A number's operator beyond the two of texts falls back to "=".
    StrOperator = operatorBox("StrOperator", tr("The comparative operation."), ConditionTables::TextOperatorCount,
                              isString ? op : 0);
    StringValue = lineEdit("StringValue", tr("Comparison"), tr("The string value for the comparison."));
    StringValue->setValue(isString ? value.toString() : QString());
    for (QWidget* row : {numberRow, textRow}) {
        QHBoxLayout* layout = new QHBoxLayout(row);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(8);
    }
    static_cast<QHBoxLayout*>(numberRow->layout())->addWidget(Operator, 2);
    static_cast<QHBoxLayout*>(numberRow->layout())->addWidget(Value, 3);
    static_cast<QHBoxLayout*>(textRow->layout())->addWidget(StrOperator, 2);
    static_cast<QHBoxLayout*>(textRow->layout())->addWidget(StringValue, 3);
    comparisonPlace = alternatives({numberRow, textRow});
    comparisonPlace->setCurrentIndex(isString ? 1 : 0);

    addField(ParamName);
    addField(NumOrString);
    addField(comparisonPlace);
    finishForm();
}

QJsonObject RMCondition_CustomParam::result() const
{
    const bool isString = !NumOrString->choice();
    QJsonObject built{{QStringLiteral("Param"), ParamName->text()}, {QStringLiteral("IsString"), isString}};
    if (isString) {
        built.insert(QStringLiteral("Op"), StrOperator->currentData());
        built.insert(QStringLiteral("Value"), StringValue->text());
    } else {
        built.insert(QStringLiteral("Op"), Operator->currentData());
        built.insert(QStringLiteral("Value"), Value->toJson());
    }
    return built;
}

void RMCondition_CustomParam::on_NumOrString_whenChoiceChanges()
{
    comparisonPlace->setCurrentIndex(NumOrString->choice() ? 0 : 1);
    updateConfirm();
}
