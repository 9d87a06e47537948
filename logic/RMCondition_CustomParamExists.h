#pragma once

#include "logic/RMConditionDialog.h"

class MyLineEdit;

// Whether a custom parameter exists: "Param".
class RMCondition_CustomParamExists : public RMConditionDialog
{
    Q_OBJECT
public:
    RMCondition_CustomParamExists(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

protected:
    QJsonObject result() const override;

private:
    MyLineEdit* ParamName;
};
