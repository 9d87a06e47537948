#include "widgets/ButtonColors.h"

#include "theme/Contrast.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <initializer_list>

namespace ButtonColors {

namespace {

double weakest(const QColor& text, std::initializer_list<QColor> backgrounds)
{
    double lowest = 21;
    for (const QColor& background : backgrounds)
        lowest = qMin(lowest, Contrast::ratio(text, background));
    return lowest;
}

// The theme's button text where it holds on every background given, else
// black or white, whichever holds best: a clean colour rather than a tone
// in between.
QColor textOn(std::initializer_list<QColor> backgrounds)
{
    const QColor themed = themeColor(ThemeKey::ButtonText);
    if (weakest(themed, backgrounds) >= Contrast::Text)
        return themed;
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return weakest(black, backgrounds) >= weakest(white, backgrounds) ? black : white;
}

}

QColor disabledBackground(const QColor& color)
{
    return Contrast::over(color, themeColor(ThemeKey::WindowBackground), 0.5);
}

QString styleSheet(const QString& objectName, const QColor& color, const QColor& hover, bool sheetPaintsHover)
{
    QString hoverRule;
    QColor text;
    QColor hoverText;
    if (sheetPaintsHover) {
        text = textOn({color});
        // The text doesn't change under the pointer: a hover it wouldn't
        // stand out on is toned back towards the button's colour.
        QColor lit = hover;
        for (int step = 1; step <= 10 && Contrast::ratio(text, lit) < Contrast::Text; ++step)
            lit = Contrast::over(color, hover, step / 10.0);
        hoverText = text;
        hoverRule = QStringLiteral(" background-color: %1;").arg(lit.name());
    } else {
        // A button that brightens itself fades between the two backgrounds
        // with one text colour.
        text = hoverText = textOn({color, hover});
    }
    const QColor pressed = color.darker(150);
    const QColor disabled = disabledBackground(color);
    const QColor disabledText =
        Contrast::readable(themeColor(ThemeKey::DisabledButtonText), disabled, Contrast::DisabledText);
    return QStringLiteral("#%1 { background-color: %2; color: %3; border: 1px solid %4; border-radius: 3px;"
                          " padding: 5px 18px; }"
                          " #%1:hover {%5 color: %6; }"
                          " #%1:pressed { background-color: %4; color: %7; }"
                          " #%1:disabled { background-color: %8; color: %9; border-color: %8; }")
        .arg(objectName, color.name(), text.name(), pressed.name(), hoverRule, hoverText.name(),
             textOn({pressed}).name(), disabled.name(), disabledText.name());
}

}
