#pragma once

#include "logic/DynamicValueSelector.h"

// "Dynamic Text Input": edits a dynamic text, the value the game plugin
// computes at run time for a field of a component.
class RMTextSelector : public DynamicValueSelector
{
    Q_OBJECT
public:
    static const bool Numeric = false;

    // object is read and, on confirmation, replaced by a new value.
    RMTextSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent);

    // Runs the dialog for the opener of a field: on confirmation value is
    // replaced, the opener shows it and plays its confirmation. The parent
    // dims meanwhile.
    static bool pick(MyDialogOpener* opener, QJsonObject* value, QJsonObject* projectData, QWidget* parent);
};
