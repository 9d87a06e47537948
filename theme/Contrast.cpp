#include "theme/Contrast.h"

#include <QtMath>

namespace Contrast {

namespace {

double luminance(const QColor& color)
{
    auto linear = [](double c) { return c <= 0.03928 ? c / 12.92 : qPow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

}

double ratio(const QColor& a, const QColor& b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (qMax(la, lb) + 0.05) / (qMin(la, lb) + 0.05);
}

QColor over(const QColor& top, const QColor& bottom, double opacity)
{
    // Whole 8-bit channels, as the screen shows them, so that a ratio
    // reckoned here is the one painted.
    const double t = qBound(0.0, opacity, 1.0);
    auto channel = [t](int from, int to) { return qRound(from + (to - from) * t); };
    return QColor(channel(bottom.red(), top.red()), channel(bottom.green(), top.green()),
                  channel(bottom.blue(), top.blue()));
}

QColor readable(const QColor& ink, const QColor& ground, double minimum)
{
    if (ratio(ink, ground) >= minimum)
        return ink;
    // Towards the end that stands further from the ground; black or white
    // reach 4.5:1 on any ground.
    const QColor end = ratio(Qt::black, ground) >= ratio(Qt::white, ground) ? QColor(Qt::black) : QColor(Qt::white);
    // The contrast rises along the way once the ink has passed the ground's
    // lightness; the first step that reaches the minimum is the nearest.
    for (int step = 1; step <= 50; ++step) {
        const QColor candidate = over(end, ink, step / 50.0);
        if (ratio(candidate, ground) >= minimum)
            return candidate;
    }
    return end;
}

}
