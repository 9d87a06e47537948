#pragma once

#include <QColor>
#include <QString>

// The colours of a push button in a theme colour (confirm, cancel and the
// like) in each of its states: flat in the colour, with a darker edge,
// lighter under the pointer, darker while pressed and faded into the window
// while disabled. The text of every state keeps its contrast on what it
// stands on: 4.5:1, 3:1 while disabled.
namespace ButtonColors {

// The style sheet for the button of that object name. hover is the
// background under the pointer; the sheet paints it unless sheetPaintsHover
// is false, for a button that brightens itself.
QString styleSheet(const QString& objectName, const QColor& color, const QColor& hover, bool sheetPaintsHover = true);

// The background of a disabled button of that colour.
QColor disabledBackground(const QColor& color);

}
