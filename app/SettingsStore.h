#pragma once

#include "theme/ProgramFolders.h"

#include <QSettings>

// The one settings store of the program. It is opened on the spot wherever a
// value is needed and closed again at the end of the scope, never kept open.
class SettingsStore : public QSettings
{
public:
    // The store's names; the user's data and cache folders are named after them too.
    static QString organization() { return PathManager::organizationName(); }
    static QString application() { return PathManager::applicationName(); }

    SettingsStore() : QSettings(organization(), application()) {}
};
