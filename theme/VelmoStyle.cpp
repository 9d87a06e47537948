#include "theme/VelmoStyle.h"

#include "theme/Contrast.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QStyleFactory>
#include <QVector>

namespace {

QString rgbText(int key)
{
    const QColor color = themeColor(key);
    // An invalid colour (a key missing from the table) gives "0, 0, 0".
    return QStringLiteral("%1, %2, %3").arg(color.red()).arg(color.green()).arg(color.blue());
}

}

// Each style owns its own Fusion base, which goes with it when the
// application replaces the style.
VelmoStyle::VelmoStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
}

const QVector<QPair<const char*, int>>& VelmoStyle::placeholders()
{
    static const QVector<QPair<const char*, int>> names = {
        {"StatusBarTop", ThemeKey::StatusBarTop},
        {"StatusBarBottom", ThemeKey::StatusBarBottom},
        {"MenuBarItemSelectedBorder", ThemeKey::MenuBarItemSelectedBorder},
        {"MenuBarItemSelectedTop", ThemeKey::MenuBarItemSelectedTop},
        {"MenuBarItemSelectedBottom", ThemeKey::MenuBarItemSelectedBottom},
        {"MenuBarItemPressedBorder", ThemeKey::MenuBarItemPressedBorder},
        {"MenuBarItemPressedTop", ThemeKey::MenuBarItemPressedTop},
        {"MenuBarItemPressedBottom", ThemeKey::MenuBarItemPressedBottom},
        {"MenuBackgroundColor", ThemeKey::MenuBackgroundColor},
        {"MenuItemSelectedBorder", ThemeKey::MenuItemSelectedBorder},
        {"MenuItemSelectedTop", ThemeKey::MenuItemSelectedTop},
        {"MenuItemSelectedBottom", ThemeKey::MenuItemSelectedBottom},
        {"MenuIconCheckedTop", ThemeKey::MenuIconCheckedTop},
        {"MenuIconCheckedBottom", ThemeKey::MenuIconCheckedBottom},
        {"ToolBarBorderTop", ThemeKey::ToolBarBorderTop},
        {"ToolBarBorderBottom", ThemeKey::ToolBarBorderBottom},
        {"ToolButtonChecked", ThemeKey::ToolButtonChecked},
        {"ActionBackgroundColor", ThemeKey::ActionBackgroundColor},
        {"DockBackgroundTop", ThemeKey::DockBackgroundTop},
        {"DockBackgroundBottom", ThemeKey::DockBackgroundBottom},
        {"DockBorder", ThemeKey::DockBorder},
        {"GroupBoxBackgroundTop", ThemeKey::GroupBoxBackgroundTop},
        {"GroupBoxBackgroundBottom", ThemeKey::GroupBoxBackgroundBottom},
        {"GroupBoxTitleBackgroundTop", ThemeKey::GroupBoxTitleBackgroundTop},
        {"GroupBoxTitleBackgroundBottom", ThemeKey::GroupBoxTitleBackgroundBottom},
        {"GroupBoxTitleBorder", ThemeKey::GroupBoxTitleBorder},
        {"GroupBoxTitleBorderBottom", ThemeKey::GroupBoxTitleBorderBottom},
        {"MainFrameBackgroundColor", ThemeKey::MainFrameBackgroundColor},
        {"MainFrameBorder", ThemeKey::MainFrameBorder},
        {"MainFrameScrollContentBackground", ThemeKey::MainFrameScrollContentBackground},
        {"InsertFrameBackgroundTop", ThemeKey::InsertFrameBackgroundTop},
        {"InsertFrameBackgroundBottom", ThemeKey::InsertFrameBackgroundBottom},
        {"InsertFrameBorder", ThemeKey::InsertFrameBorder},
        {"GeneralFrameBackgroundColor", ThemeKey::GeneralFrameBackgroundColor},
        {"GeneralFrameBorder", ThemeKey::GeneralFrameBorder},
        {"ConfirmationFrameBackground", ThemeKey::ConfirmationFrameBackground},
        {"AlternativeListHeaderBackgroundTop", ThemeKey::AlternativeListHeaderBackgroundTop},
        {"AlternativeListHeaderBackgroundBottom", ThemeKey::AlternativeListHeaderBackgroundBottom},
        {"AlternativeListHeaderBorder", ThemeKey::AlternativeListHeaderBorder},
        {"BorderedFrameBorder", ThemeKey::BorderedFrameBorder},
        {"TextBoxBorder", ThemeKey::TextBoxBorder},
    };
    return names;
}

QString VelmoStyle::styleSheet()
{
    QFile file(QStringLiteral(":/style/darkstyle.qss"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QString();
    QString text = QString::fromUtf8(file.readAll());
    text.replace(QLatin1String("[windowTop]"), themeColor(ThemeKey::WindowTop).name());
    text.replace(QLatin1String("[windowBottom]"), themeColor(ThemeKey::WindowBottom).name());
    text.replace(QLatin1String("[scrollBarHandle]"),
                 Contrast::readable(themeColor(ThemeKey::Highlight), themeColor(ThemeKey::Base), Contrast::Symbol).name());
    for (const auto& placeholder : placeholders())
        text.replace(QLatin1Char('%') + QLatin1String(placeholder.first) + QLatin1Char('%'),
                     rgbText(placeholder.second));
    // What is left are the alphas: %1 opaque, %2 the translucent end of
    // some gradients.
    return text.arg(QStringLiteral("255")).arg(QStringLiteral("180"));
}

void VelmoStyle::polish(QApplication* application)
{
    if (!application)
        return;
    // Two points over the system's size, reckoned once so that polishing
    // again for every theme change doesn't make the font grow.
    static int pointSize = -1;
    QFont font = QApplication::font();
    if (pointSize < 0)
        pointSize = font.pointSize() + 2;
    font.setPointSize(pointSize);
    QApplication::setFont(font);

    const QString sheet = styleSheet();
    if (!sheet.isEmpty())
        application->setStyleSheet(sheet);
}

void VelmoStyle::polish(QPalette& palette)
{
    struct Role {
        int key;
        QPalette::ColorGroup group;
        QPalette::ColorRole role;
    };
    static const Role roles[] = {
        {ThemeKey::WindowBackground, QPalette::All, QPalette::Window},
        {ThemeKey::WindowText, QPalette::All, QPalette::WindowText},
        {ThemeKey::DisabledWindowText, QPalette::Disabled, QPalette::WindowText},
        {ThemeKey::Base, QPalette::All, QPalette::Base},
        {ThemeKey::AlternativeBase, QPalette::All, QPalette::AlternateBase},
        {ThemeKey::ToolTipBase, QPalette::All, QPalette::ToolTipBase},
        {ThemeKey::ToolTipText, QPalette::All, QPalette::ToolTipText},
        {ThemeKey::Text, QPalette::All, QPalette::Text},
        {ThemeKey::DisabledText, QPalette::Disabled, QPalette::Text},
        {ThemeKey::Dark, QPalette::All, QPalette::Dark},
        {ThemeKey::Shadow, QPalette::All, QPalette::Shadow},
        {ThemeKey::Button, QPalette::All, QPalette::Button},
        {ThemeKey::ButtonText, QPalette::All, QPalette::ButtonText},
        {ThemeKey::DisabledButtonText, QPalette::Disabled, QPalette::ButtonText},
        {ThemeKey::BrightText, QPalette::All, QPalette::BrightText},
        {ThemeKey::Link, QPalette::All, QPalette::Link},
        {ThemeKey::Highlight, QPalette::All, QPalette::Highlight},
        {ThemeKey::DisabledHighlight, QPalette::Disabled, QPalette::Highlight},
        {ThemeKey::HighlightedText, QPalette::All, QPalette::HighlightedText},
        {ThemeKey::DisabledHighlightedText, QPalette::Disabled, QPalette::HighlightedText},
    };
    for (const Role& role : roles)
        palette.setBrush(role.group, role.role, QBrush(themeColor(role.key)));
}
