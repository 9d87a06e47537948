#include "theme/VelmoStyle.h"

#include "theme/ThemeColors.h"

#include <QApplication>
#include <QStyleFactory>

VelmoStyle::VelmoStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
}

QPalette VelmoStyle::standardPalette() const
{
    return QApplication::palette();
}

void VelmoStyle::polish(QPalette& palette)
{
    palette = QApplication::palette();
}
