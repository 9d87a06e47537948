#include "widgets/MyHorizontalLine.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QPainter>

MyHorizontalLine::MyHorizontalLine(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(2);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize MyHorizontalLine::sizeHint() const
{
    return QSize(100, 2);
}

void MyHorizontalLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, width(), 1), themeColor(ThemeKey::HorizontalLineTop));
    painter.fillRect(QRect(0, 1, width(), 1), themeColor(ThemeKey::HorizontalLineBottom));
}
