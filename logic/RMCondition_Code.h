#pragma once

#include "logic/RMCodeInput.h"

#include <QJsonObject>

// A piece of JavaScript that returns whether the condition holds: "Code".
// The code input's dialog, fitted to its screen: on a screen lower than 800
// pixels it leaves out "Massive".
class RMCondition_Code : public RMCodeInput
{
    Q_OBJECT
public:
    RMCondition_Code(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

protected:
    void keepCode(const QString& text) override;

private:
    QJsonObject* object;
};
