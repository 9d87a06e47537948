#include "theme/ThemeManager_Velmo.h"

#include <QCoreApplication>

QList<ThemeColorGroup> ThemeManager_Velmo::colorGroups() const
{
    QList<ThemeColorGroup> groups;
    const char* currentGroup = nullptr;
    for (const ThemeTableRow& row : Theme::builtInRows()) {
        if (!row.group)
            continue;
        if (!currentGroup || qstrcmp(currentGroup, row.group) != 0) {
            currentGroup = row.group;
            groups.append(ThemeColorGroup{QCoreApplication::translate("", row.group), {}});
        }
        groups.last().entries.append(ThemeColorEntry{row.key, QCoreApplication::translate("", row.name)});
    }
    return groups;
}
