#pragma once

#include "logic/RMConditionDialog.h"

class MyComboBox;

// One of the simple states of the game: "Check".
class RMCondition_Other : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_Other(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

protected:
    QJsonObject result() const override;

private:
    MyComboBox* OtherConditions;
};
