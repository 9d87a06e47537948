#include "widgets/MainWindowTitleBarShadow.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QLinearGradient>
#include <QPainter>

MainWindowTitleBarShadow::MainWindowTitleBarShadow(QWidget* parent) : QWidget(parent)
{
}

void MainWindowTitleBarShadow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QLinearGradient gradient(0, height(), 0, 0);
    gradient.setColorAt(0, themeColor(ThemeKey::WindowTop));
    gradient.setColorAt(1, themeColor(ThemeKey::WindowBottom));
    painter.fillRect(rect(), gradient);
    painter.setPen(QColor(0x3C, 0x3C, 0x3C));
    if (x() <= 9)
        painter.drawLine(0, 0, width() - 1, 0);
    else
        painter.drawLine(0, 0, 0, height() - 1);
}
