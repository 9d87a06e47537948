#include "widgets/MyButton.h"

#include "theme/ThemeKey.h"
#include "theme/Contrast.h"
#include "theme/ThemeManager.h"
#include "widgets/ButtonColors.h"
#include "widgets/LookAnimation.h"

#include <QEvent>
#include <QGraphicsDropShadowEffect>
#include <QPainterPath>
#include <QPropertyAnimation>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

// How far the hover brightens the button's colour.
const double HoverLight = 0.12;

}

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
    // The button brightens itself under the pointer; its text is chosen for
    // the brightest the hover gets.
    setStyleSheet(ButtonColors::styleSheet(objectName(), color, Contrast::over(Qt::white, color, HoverLight), false));
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

void MyButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    if (hover > 0 && isEnabled() && !isDown()) {
        // The hover brightens the button's own colour, under its text.
        QPainterPath face;
        face.addRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 2, 2);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(hover / 100.0 * HoverLight);
        painter.fillPath(face, Qt::white);
        painter.restore();
    }
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
}
