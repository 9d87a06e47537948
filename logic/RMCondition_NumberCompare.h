#pragma once

#include "logic/RMConditionDialog.h"

class MyComboBox;
class MyDialogOpener;

// Two dynamic numbers compared: "Number1", "Op", "Number2".
class RMCondition_NumberCompare : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_NumberCompare(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);
    // The party's first member's HP, and 100.
    static QJsonObject defaultFirst();
    static QJsonObject defaultSecond();

private slots:
    void on_Number1_clicked();
    void on_Number2_clicked();

protected:
    QJsonObject result() const override;

private:
    QJsonObject number1;
    QJsonObject number2;
    MyDialogOpener* Number1;
    MyComboBox* Operator;
    MyDialogOpener* Number2;
};
