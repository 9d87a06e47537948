#include "theme/VelmoStyle.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QStyleFactory>

VelmoStyle::VelmoStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
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
