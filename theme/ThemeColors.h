#pragma once

#include <QColor>
#include <QMap>
#include <QString>

// The process-wide theme colour table, keyed by integer colour keys.
//
// This is the start-up layer that stands in until the full theme manager with
// its complete table, groups and theme builder lands: it knows the keys the
// shell paints with, merges a theme file over them and applies the result.
namespace ThemeColors {

// Key numbers the shell uses by name.
enum Key {
    WindowBackground = 0,
    WindowTop = 1,
    WindowBottom = 2,
    WindowText = 3,
    DisabledWindowText = 4,
    Base = 1000,
    AlternativeBase = 1001,
    ToolTipBase = 1002,
    ToolTipText = 1003,
    Text = 1004,
    DisabledText = 1005,
    Dark = 1006,
    Shadow = 1007,
    Button = 1008,
    ButtonText = 2000,
    DisabledButtonText = 2001,
    BrightText = 2002,
    Link = 2003,
    Highlight = 2004,
    DisabledHighlight = 2005,
    HighlightedText = 2006,
    InsertFrameTop = 29000,
    InsertFrameBottom = 29001,
    InsertFrameBorder = 29002,
    MainFrameBackground = 28000,
};

// Installs the built-in table with "Window Top" set to #3c3c4b.
void installDefaultTheme();
// Merges "Themes/<name>/Theme.json" beside the executable over the table;
// false (and the table untouched) when the file is missing or malformed.
bool loadTheme(const QString& name);
// Sets the application palette from the table.
void applyTheme();

const QMap<int, QColor>& table();

}

// The colour of a theme key; black for a key the table doesn't hold.
QColor themeColor(int key);
