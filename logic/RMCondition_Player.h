#pragma once

#include "logic/RMConditionDialog.h"

class MyComboBox;

// The direction the player looks in: "State", the game's 2, 4, 6 or 8.
class RMCondition_Player : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_Player(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

protected:
    QJsonObject result() const override;

private:
    MyComboBox* PlayerState;
};
