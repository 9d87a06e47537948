#pragma once

#include "logic/RMConditionDialog.h"

class MyComboBox;
class MyDialogOpener;

// Two dynamic texts compared: "Text1", "Op" ("=" or "≠"), "Text2".
class RMCondition_TextCompare : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_TextCompare(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);
    // The map's name, and "My Map".
    static QJsonObject defaultFirst();
    static QJsonObject defaultSecond();

private slots:
    void on_Text1_clicked();
    void on_Text2_clicked();

protected:
    QJsonObject result() const override;

private:
    QJsonObject text1;
    QJsonObject text2;
    MyDialogOpener* Text1;
    MyComboBox* Operator;
    MyDialogOpener* Text2;
};
