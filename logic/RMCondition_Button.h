#pragma once

#include "logic/RMConditionDialog.h"

class MyComboBox;

// A button of the game and its state: "Key", "State".
class RMCondition_Button : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_Button(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

protected:
    QJsonObject result() const override;

private:
    MyComboBox* Button;
    MyComboBox* ButtonState;
};
