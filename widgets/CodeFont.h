#pragma once

#include <QFont>

class QPlainTextEdit;

// The look of the program's code boxes: a monospace font of weight 57, no
// wrapping, a wide cursor and narrow tabs.
namespace CodeFont {

// The system's fixed font; where the platform names none (the offscreen
// platform, some desktops) the font configuration's monospace family.
QFont font();
void setUp(QPlainTextEdit* edit);

}
