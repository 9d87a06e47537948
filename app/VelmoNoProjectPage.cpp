#include "app/VelmoNoProjectPage.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QPainter>
#include <QRadialGradient>

VelmoNoProjectPage::VelmoNoProjectPage(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("NoProjectPage"));
}

void VelmoNoProjectPage::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor ground = themeColor(ThemeKey::WindowBackground);
    painter.fillRect(rect(), ground);
    // The glow leans from the window colour towards the top of the title
    // bar, so it follows any theme without a colour of its own.
    QRadialGradient glow(rect().center(), qMax(width(), height()) * 0.6);
    QColor centre = themeColor(ThemeKey::WindowTop);
    centre.setAlpha(140);
    glow.setColorAt(0, centre);
    glow.setColorAt(1, ground);
    painter.fillRect(rect(), glow);
}
