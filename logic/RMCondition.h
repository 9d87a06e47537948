#pragma once

#include "logic/KindChooser.h"

// "RPG Maker Condition": the fourteen kinds of conditions as buttons. A
// click opens that kind's dialog on a copy of the object with its "Type";
// once that is confirmed the object takes it and the chooser closes,
// otherwise the chooser stays for another choice.
class RMCondition : public KindChooser
{
    Q_OBJECT
public:
    RMCondition(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent);

protected:
    bool runKindDialog(int type, QJsonObject* created) override;
};
