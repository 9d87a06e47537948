#pragma once

#include <QColor>

// Contrast between the colours of a pair that carries meaning: text on its
// background, a symbol on its button. Ratios are those of WCAG 2, from 1:1
// to 21:1.
namespace Contrast {

// What a pair must reach: text, disabled text, and symbols and controls.
constexpr double Text = 4.5;
constexpr double DisabledText = 3.0;
constexpr double Symbol = 3.0;

double ratio(const QColor& a, const QColor& b);

// top painted at opacity (0 to 1) over bottom.
QColor over(const QColor& top, const QColor& bottom, double opacity);

// ink, or the nearest colour on its way to black or white that reaches
// minimum on ground; the faded looks of a theme stay readable that way.
QColor readable(const QColor& ink, const QColor& ground, double minimum);

}
