#include "widgets/FieldButton.h"

#include "widgets/LookAnimation.h"

#include <QEvent>
#include <QPainter>
#include <QPropertyAnimation>

FieldButton::FieldButton(QWidget* parent)
    : QPushButton(parent),
      pressAnimation(new QPropertyAnimation(this, "currState", this)),
      hoverAnimation(new QPropertyAnimation(this, "currState2", this))
{
    setCursor(Qt::PointingHandCursor);
    setMinimumHeight(46);
}

void FieldButton::setCurrState(int value)
{
    state = value;
    update();
}

void FieldButton::setCurrState2(int value)
{
    state2 = value;
    update();
}

void FieldButton::hoverTo(bool inside)
{
    LookAnimation::run(hoverAnimation, state2, inside ? 300 : 0, 300, 150, QEasingCurve::Linear);
}

QSize FieldButton::sizeHint() const
{
    return QSize(160, 46);
}

QSize FieldButton::minimumSizeHint() const
{
    return QSize(60, 46);
}

bool FieldButton::event(QEvent* event)
{
    const int change = LookAnimation::hoverChange(this, event);
    if (change > 0 || (change < 0 && !holdsHover()))
        hoverTo(change > 0);
    return QPushButton::event(event);
}

void FieldButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        hoverAnimation->stop();
        state2 = 0;
    }
    QPushButton::changeEvent(event);
}

int FieldButton::paintField(QPainter& painter, const FormFieldPainter::Colors& colors, const QColor& primary,
                            const QString& caption, int backgroundHeight)
{
    const int w = FormFieldPainter::begin(painter, this);
    const bool enabled = isEnabled();
    const int hover = enabled ? state2 : 0;
    const int press = enabled ? state : 0;
    FormFieldPainter::frame(painter, w, colors, press > 300 ? 0.0 : hover / 300.0, backgroundHeight);
    FormFieldPainter::underline(painter, w, press, primary);
    FormFieldPainter::caption(painter, w, caption, press >= 300 ? 1.0 : (hover + 400) / 700.0);
    return w;
}
