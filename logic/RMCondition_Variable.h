#pragma once

#include "logic/RMConditionDialog.h"

class MyComboBox;
class MyDialogOpener;
class MyLineEdit;

// A variable compared to a number: "ID", "Op", "Value" (an integer or a dynamic input).
class RMCondition_Variable : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_Variable(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

private slots:
    void on_Variables_clicked();

protected:
    QJsonObject result() const override;

private:
    int variableId;
    MyDialogOpener* Variables;
    MyComboBox* Operator;
    MyLineEdit* Value;
};
