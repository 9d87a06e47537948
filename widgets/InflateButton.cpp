#include "widgets/InflateButton.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/LookAnimation.h"

#include <QEvent>
#include <QGraphicsDropShadowEffect>
#include <QPainter>
#include <QPropertyAnimation>

InflateButton::InflateButton(QWidget* parent)
    : QPushButton(parent),
      growAnimation(new QPropertyAnimation(this, "transfer", this)),
      hoverAnimation(new QPropertyAnimation(this, "hover", this))
{
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::NoFocus);
    setFlat(true);
    setIconSize(QSize(24, 24));
    connect(this, &QAbstractButton::toggled, this, &InflateButton::updateShadow);
}

InflateButton::InflateButton(const QIcon& icon, const QString& name, const QString& description, QWidget* parent)
    : InflateButton(parent)
{
    setIcon(icon);
    setInfo(name, description);
}

void InflateButton::setInfo(const QString& name, const QString& description)
{
    buttonName = name;
    buttonDescription = description;
    setAccessibleName(name);
    setAccessibleDescription(description);
}

void InflateButton::setTransfer(int value)
{
    growth = value;
    update();
}

void InflateButton::setHover(int value)
{
    hoverLook = value;
    update();
}

QSize InflateButton::sizeHint() const
{
    return iconSize() + QSize(14, 14);
}

void InflateButton::hoverTo(bool inside)
{
    if (inside == hovered)
        return;
    hovered = inside;
    if (inside) {
        LookAnimation::runFor(growAnimation, growth, 1000, 250, QEasingCurve::OutBack);
        LookAnimation::run(hoverAnimation, hoverLook, 1000, 1000, 100, QEasingCurve::Linear);
        emit hoverEntered();
    } else {
        // The overshoot can leave the growth beyond its end; the way back is
        // timed by how far it stands out.
        LookAnimation::runFor(growAnimation, growth, 0, qAbs(growth) * 300 / scale(), QEasingCurve::OutCubic);
        LookAnimation::run(hoverAnimation, hoverLook, 0, 1000, 100, QEasingCurve::Linear);
        emit hoverLeft();
    }
}

bool InflateButton::event(QEvent* event)
{
    if (const int change = LookAnimation::hoverChange(this, event))
        hoverTo(change > 0);
    return QPushButton::event(event);
}

void InflateButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled() && hovered)
        hoverTo(false);
    QPushButton::changeEvent(event);
}

void InflateButton::updateShadow()
{
    if (isChecked()) {
        QGraphicsDropShadowEffect* shadow = new QGraphicsDropShadowEffect(this);
        shadow->setBlurRadius(4);
        shadow->setOffset(2);
        shadow->setColor(QColor(0, 0, 0, 160));
        setGraphicsEffect(shadow);
    } else {
        setGraphicsEffect(nullptr);
    }
}

void InflateButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
    const QColor base = themeColor(ThemeKey::ButtonBase);
    if (isChecked() || isDown()) {
        painter.setPen(QPen(themeColor(ThemeKey::MenuButtonSelectLine), 1));
        painter.setBrush(isDown() ? base.darker(120) : base);
        painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    }
    if (hoverLook > 0 && isEnabled()) {
        painter.setOpacity(hoverLook / 1000.0);
        painter.setPen(QPen(themeColor(ThemeKey::MenuButtonUnderline), 1));
        painter.setBrush(base.lighter(115));
        painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
        painter.setOpacity(1.0);
    }

    const double grown = 1.0 + 0.2 * growth / 1000.0;
    const QSizeF size = QSizeF(iconSize()) * grown;
    const QRectF target(QPointF((width() - size.width()) / 2.0, (height() - size.height()) / 2.0), size);
    const QPixmap pixmap = icon().pixmap(iconSize() * 2, isEnabled() ? QIcon::Normal : QIcon::Disabled,
                                         isChecked() ? QIcon::On : QIcon::Off);
    painter.setOpacity(scale() / 1000.0);
    painter.drawPixmap(target, pixmap, QRectF(pixmap.rect()));
}
