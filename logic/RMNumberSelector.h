#pragma once

#include "logic/DynamicValueSelector.h"

// "Dynamic Number Input": edits a dynamic number, the value the game plugin
// computes at run time for a field of a component.
class RMNumberSelector : public DynamicValueSelector
{
    Q_OBJECT
public:
    static const bool Numeric = true;

    // object is read and, on confirmation, replaced by a new value.
    RMNumberSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent);

    // Runs the dialog for the opener of a field: on confirmation value is
    // replaced, the opener shows it and plays its confirmation. The parent
    // dims meanwhile.
    static bool pick(MyDialogOpener* opener, QJsonObject* value, QJsonObject* projectData, QWidget* parent);
};
