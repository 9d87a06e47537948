#pragma once

#include "logic/RMConditionDialog.h"

class MyComboBox;
class MyLineEdit;

// The party's gold compared to a number: "Op", "Value" (an integer or a dynamic input).
class RMCondition_Gold : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_Gold(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

protected:
    QJsonObject result() const override;

private:
    MyComboBox* Operator;
    MyLineEdit* Value;
};
