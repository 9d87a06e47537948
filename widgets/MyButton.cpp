#include "widgets/MyButton.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/LookAnimation.h"

#include <QEvent>
#include <QGraphicsDropShadowEffect>
#include <QPainter>
#include <QPropertyAnimation>

MyButton::MyButton(QWidget* parent) : QPushButton(parent), animation(new QPropertyAnimation(this, "fade", this))
{
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    setMinimumHeight(28);
    QGraphicsDropShadowEffect* shadow = new QGraphicsDropShadowEffect(this);
    shadow->setBlurRadius(1.2);
    shadow->setColor(Qt::black);
    shadow->setOffset(0, 2);
    setGraphicsEffect(shadow);
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("myButton"));
    setButtonColor(themeColor(ThemeKey::ButtonBase));
}

MyButton::MyButton(const QString& text, QWidget* parent) : MyButton(parent)
{
    setText(text);
}

void MyButton::setButtonColor(const QColor& newColor)
{
    color = newColor;
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("myButton"));
    setStyleSheet(QStringLiteral("#%1 { background-color: %2; }").arg(objectName(), color.name()));
}

void MyButton::setFade(int value)
{
    hover = value;
    update();
}

bool MyButton::event(QEvent* event)
{
    if (const int change = LookAnimation::hoverChange(this, event))
        LookAnimation::run(animation, hover, change > 0 ? 100 : 0, 100, 150, QEasingCurve::Linear);
    return QPushButton::event(event);
}

void MyButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    if (hover <= 0 || !isEnabled())
        return;
    // The hover brightens the button's own colour.
    QPainter painter(this);
    painter.setOpacity(hover / 100.0 * 0.12);
    painter.fillRect(rect(), Qt::white);
}
