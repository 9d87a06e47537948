#include "widgets/ButtonColors.h"

#include "theme/Contrast.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

namespace ButtonColors {

namespace {

QColor textOn(const QColor& background)
{
    return Contrast::readable(themeColor(ThemeKey::ButtonText), background, Contrast::Text);
}

}

QColor disabledBackground(const QColor& color)
{
    return Contrast::over(color, themeColor(ThemeKey::WindowBackground), 0.5);
}

QString styleSheet(const QString& objectName, const QColor& color, const QColor& hover, bool sheetPaintsHover)
{
    const QColor pressed = color.darker(150);
    const QColor disabled = disabledBackground(color);
    const QColor disabledText =
        Contrast::readable(themeColor(ThemeKey::DisabledButtonText), disabled, Contrast::DisabledText);
    const QString hoverBackground =
        sheetPaintsHover ? QStringLiteral(" background-color: %1;").arg(hover.name()) : QString();
    // A button that brightens itself fades between the two backgrounds with
    // one text colour, which must hold on both.
    const QColor text = sheetPaintsHover ? textOn(color)
                                         : Contrast::readable(textOn(hover), color, Contrast::Text);
    const QColor hoverText = sheetPaintsHover ? textOn(hover) : text;
    return QStringLiteral("#%1 { background-color: %2; color: %3; border: 1px solid %4; border-radius: 3px;"
                          " padding: 5px 18px; }"
                          " #%1:hover {%5 color: %6; }"
                          " #%1:pressed { background-color: %4; color: %7; }"
                          " #%1:disabled { background-color: %8; color: %9; border-color: %8; }")
        .arg(objectName, color.name(), text.name(), pressed.name(), hoverBackground, hoverText.name(),
             textOn(pressed).name(), disabled.name(), disabledText.name());
}

}
