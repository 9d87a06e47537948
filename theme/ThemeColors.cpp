#include "theme/ThemeColors.h"

#include "app/JsonFile.h"
#include "app/PathManager.h"

#include <QApplication>
#include <QJsonObject>
#include <QPalette>

namespace ThemeColors {

namespace {

QMap<int, QColor>& colors()
{
    static QMap<int, QColor> map;
    return map;
}

QMap<int, QColor> builtInTable()
{
    return {
        {WindowBackground, QColor(0x18, 0x18, 0x22)}, {WindowTop, QColor(0x3c, 0x3c, 0x3c)},
        {WindowBottom, QColor(0x23, 0x23, 0x23)}, {WindowText, QColor(0xff, 0xff, 0xff)},
        {DisabledWindowText, QColor(0x7f, 0x7f, 0x7f)}, {Base, QColor(0x2a, 0x2a, 0x2a)},
        {AlternativeBase, QColor(0x42, 0x42, 0x42)}, {ToolTipBase, QColor(0xff, 0xff, 0xff)},
        {ToolTipText, QColor(0xff, 0xff, 0xff)}, {Text, QColor(0xff, 0xff, 0xff)},
        {DisabledText, QColor(0x7f, 0x7f, 0x7f)}, {Dark, QColor(0x23, 0x23, 0x23)},
        {Shadow, QColor(0x14, 0x14, 0x14)}, {Button, QColor(0x35, 0x35, 0x35)},
        {ButtonText, QColor(0xff, 0xff, 0xff)}, {DisabledButtonText, QColor(0x7f, 0x7f, 0x7f)},
        {BrightText, QColor(0xff, 0x00, 0x00)}, {Link, QColor(0x2a, 0x82, 0xda)},
        {Highlight, QColor(0x20, 0x78, 0xd0)}, {DisabledHighlight, QColor(0x50, 0x50, 0x50)},
        {HighlightedText, QColor(0xff, 0xff, 0xff)}, {MainFrameBackground, QColor(0x17, 0x17, 0x17)},
        {InsertFrameTop, QColor(0x30, 0x30, 0x30)}, {InsertFrameBottom, QColor(0x42, 0x42, 0x42)},
        {InsertFrameBorder, QColor(0x64, 0x64, 0x64)},
    };
}

}

const QMap<int, QColor>& table()
{
    return colors();
}

void installDefaultTheme()
{
    colors() = builtInTable();
    colors()[WindowTop] = QColor(0x3c, 0x3c, 0x4b);
}

bool loadTheme(const QString& name)
{
    if (name.isEmpty())
        return false;
    const QJsonDocument file =
        JsonFile::read(PathManager::besideExecutable(QStringLiteral("Themes/%1/Theme.json").arg(name)));
    if (!file.isObject())
        return false;
    const QJsonObject object = file.object();
    for (auto it = object.begin(); it != object.end(); ++it) {
        bool ok = false;
        const int key = it.key().toInt(&ok);
        const QColor color(it.value().toString());
        if (ok && color.isValid())
            colors()[key] = color;
    }
    return true;
}

void applyTheme()
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return;
    QPalette palette;
    palette.setColor(QPalette::Window, themeColor(WindowBackground));
    palette.setColor(QPalette::WindowText, themeColor(WindowText));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, themeColor(DisabledWindowText));
    palette.setColor(QPalette::Base, themeColor(Base));
    palette.setColor(QPalette::AlternateBase, themeColor(AlternativeBase));
    palette.setColor(QPalette::ToolTipBase, themeColor(ToolTipBase));
    palette.setColor(QPalette::ToolTipText, themeColor(ToolTipText));
    palette.setColor(QPalette::Text, themeColor(Text));
    palette.setColor(QPalette::Disabled, QPalette::Text, themeColor(DisabledText));
    palette.setColor(QPalette::Dark, themeColor(Dark));
    palette.setColor(QPalette::Shadow, themeColor(Shadow));
    palette.setColor(QPalette::Button, themeColor(Button));
    palette.setColor(QPalette::ButtonText, themeColor(ButtonText));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, themeColor(DisabledButtonText));
    palette.setColor(QPalette::BrightText, themeColor(BrightText));
    palette.setColor(QPalette::Link, themeColor(Link));
    palette.setColor(QPalette::Highlight, themeColor(Highlight));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, themeColor(DisabledHighlight));
    palette.setColor(QPalette::HighlightedText, themeColor(HighlightedText));
    QApplication::setPalette(palette);
}

}

QColor themeColor(int key)
{
    return ThemeColors::table().value(key, QColor(Qt::black));
}
