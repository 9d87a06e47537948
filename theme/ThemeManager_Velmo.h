#pragma once

#include "theme/ThemeManager.h"

// Velmora's colour groups: every named key of the built-in table, grouped as
// the theme builder lists them.
class ThemeManager_Velmo : public ThemeManager
{
public:
    QList<ThemeColorGroup> colorGroups() const override;
};
