#pragma once

#include <QSettings>

// The one settings store of the program. It is opened on the spot wherever a
// value is needed and closed again at the end of the scope, never kept open.
class SettingsStore : public QSettings
{
public:
    SettingsStore() : QSettings(QStringLiteral("Ostrel Vane"), QStringLiteral("Velmora 2")) {}
};
