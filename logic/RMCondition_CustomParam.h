#pragma once

#include "logic/RMConditionDialog.h"

class MyComboBox;
class MyEitherBox;
class MyLineEdit;
class QStackedWidget;

// A custom parameter compared to a number or a text: "Param", "IsString", "Op",
// "Value" (an integer, or a string for a text).
class RMCondition_CustomParam : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_CustomParam(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

private slots:
    void on_NumOrString_whenChoiceChanges();

protected:
    QJsonObject result() const override;

private:
    MyLineEdit* ParamName;
    MyEitherBox* NumOrString;
    MyComboBox* Operator;
    MyLineEdit* Value;
    MyComboBox* StrOperator;
    MyLineEdit* StringValue;
    QStackedWidget* comparisonPlace;
};
