#include "widgets/MicroButton.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/LookAnimation.h"

#include <QEvent>
#include <QPainter>
#include <QPropertyAnimation>

MicroButton::MicroButton(QWidget* parent)
    : QPushButton(parent), animation(new QPropertyAnimation(this, "animator", this))
{
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::NoFocus);
    setFlat(true);
    setIconSize(QSize(14, 14));
}

MicroButton::MicroButton(const QIcon& icon, QWidget* parent) : MicroButton(parent)
{
    setIcon(icon);
}

void MicroButton::setAnimator(int value)
{
    hover = value;
    update();
}

QSize MicroButton::sizeHint() const
{
    return iconSize() + QSize(8, 8);
}

void MicroButton::hoverTo(bool inside)
{
    LookAnimation::run(animation, hover, inside ? 100 : 0, 100, 150, QEasingCurve::Linear);
}

bool MicroButton::event(QEvent* event)
{
    if (const int change = LookAnimation::hoverChange(this, event))
        hoverTo(change > 0);
    return QPushButton::event(event);
}

void MicroButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        animation->stop();
        hover = 0;
    }
    QPushButton::changeEvent(event);
}

void MicroButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRectF plate = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const QColor base = themeColor(ThemeKey::ButtonBase);
    if (hover > 0 || isDown()) {
        painter.setOpacity(isDown() ? 1.0 : hover / 100.0);
        painter.setPen(QPen(themeColor(ThemeKey::InputUIHover), 1));
        painter.setBrush(isDown() ? base.darker(125) : base.lighter(120));
        painter.drawRoundedRect(plate, 3, 3);
        painter.setOpacity(1.0);
    }
    if (!isEnabled())
        painter.setOpacity(0.4);
    const QSize size = iconSize();
    const QRect target(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2 + (isDown() ? 1 : 0)), size);
    painter.drawPixmap(target, icon().pixmap(size * 2, isEnabled() ? QIcon::Normal : QIcon::Disabled));
}
