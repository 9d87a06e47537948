#pragma once

#include <QColor>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QRgb>
#include <QString>
#include <QStringList>
#include <QVector>

// The theme colour table: one process-wide map from colour key to colour,
// the files that store themes, and the application of a theme to the running
// program.
using ThemeTable = QMap<int, QColor>;

struct ThemeColorEntry {
    int key;
    QString name;
};

struct ThemeColorGroup {
    QString name;
    QList<ThemeColorEntry> entries;
};

// Lists the colour groups for the theme builder, in display order and with
// translated names.
class ThemeManager
{
public:
    virtual ~ThemeManager() = default;
    virtual QList<ThemeColorGroup> colorGroups() const = 0;
};

// One row of the built-in table. group and name are null for the keys that no
// builder shows.
struct ThemeTableRow {
    const char* group;
    const char* name;
    int key;
    QRgb color;
};

// The colour of a key; an invalid colour for a key the table doesn't hold.
QColor themeColor(int key);

namespace Theme {

// The shipped rows, in the builder's order.
const QVector<ThemeTableRow>& builtInRows();
// The built-in table as it stands in the program.
ThemeTable builtInTable();
const ThemeTable& table();

void setColor(int key, const QColor& color);
void resetToBuiltIn();
// The built-in table with "Window Top" set to #3c3c4b: the default theme.
void installDefault();

// Merges the named theme's file over the table; an empty name installs the
// default theme. False when the file is missing, isn't a file, can't be
// opened or is far too large to be a theme. A file that opens but is
// damaged (not JSON, cut short, entries that aren't key and colour) gives
// what can be read of it and counts as loaded. problem, if given, tells
// which file and what was wrong, in words for the user; empty when all was
// well.
bool load(const QString& name, QString* problem = nullptr);
// Merges a theme object over the table without resetting first. Keys are
// read with QString::toInt (so a malformed key is 0) and colours as named
// colours (so a malformed one is invalid).
void readObject(const QJsonObject& object);
// The file form of a table: decimal keys, "#rrggbb" colours.
QJsonObject toObject(const ThemeTable& table);

void refreshCachedColors();
// Refreshes the cached colours, re-polishes the style and the palette, and
// tells every widget that the palette changed.
void apply();
// Swaps a table in and applies it.
void replace(ThemeTable table);
// Writes "Themes/<name>/Theme.json" where the user can write; the file is
// replaced only once the new one is complete. error, if given, takes the
// system's reason on failure.
bool save(const ThemeTable& table, const QString& name, QString* error = nullptr);
// Renames a theme the user can write. False when the name is taken or the
// folder can't be renamed.
bool rename(const QString& from, const QString& to, QString* error = nullptr);
// Removes a theme's folder where the user can write; the shipped themes of
// an installed program stay. False when nothing could be removed.
bool remove(const QString& name, QString* error = nullptr);
// The largest theme file read; a full theme is a few kilobytes.
constexpr qint64 MaximumFileSize = 1 << 20;

// The path a named theme is read from: the user's folder first, then the
// folder of the executable.
QString filePath(const QString& name);
// The names of the theme folders, the user's and the shipped ones.
QStringList names();

}
