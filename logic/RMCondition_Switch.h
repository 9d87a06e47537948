#pragma once

#include "logic/RMConditionDialog.h"

class MyDialogOpener;
class MyEitherBox;

// A switch is ON or OFF: "ID", "Value".
class RMCondition_Switch : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_Switch(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

private slots:
    void on_Switches_clicked();

protected:
    QJsonObject result() const override;

private:
    int switchId;
    MyDialogOpener* Switches;
    MyEitherBox* SwitchValue;
};
