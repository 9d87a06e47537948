#pragma once

#include "logic/RMConditionDialog.h"

class MyComboBox;

// An item, weapon or armor the party has: "Check", "ID".
class RMCondition_Inventory : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_Inventory(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

protected:
    QJsonObject result() const override;

private:
    // The record of each check, by "Check".
    int recordIds[3] = {1, 1, 1};
    MyComboBox* DataToCheck;
};
