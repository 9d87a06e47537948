#pragma once

#include "logic/KindChooser.h"

// "Component Add-on Selector": the six kinds of add-ons as buttons. A click
// opens that kind's dialog on the object with its "Type"; once that is
// confirmed the object takes it and the chooser closes, otherwise it stays
// for another choice.
class AddonSelector : public KindChooser
{
    Q_OBJECT
public:
    AddonSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities, QWidget* parent);

protected:
    bool runKindDialog(int type, QJsonObject* created) override;

private:
    int capabilities;
};
