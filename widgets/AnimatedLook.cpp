#include "widgets/AnimatedLook.h"

#include "widgets/LookAnimation.h"

#include <QEvent>
#include <QPropertyAnimation>
#include <QWidget>

AnimatedLook::AnimatedLook(QWidget* widget, const char* name, double full, int onMs, int offMs,
                           QEasingCurve::Type curve)
    : QObject(widget),
      widget(widget),
      animation(new QPropertyAnimation(this, "value", this)),
      full(full),
      onMs(onMs),
      offMs(offMs),
      curve(curve)
{
    setObjectName(QString::fromLatin1(name));
}

void AnimatedLook::setValue(double value)
{
    current = value;
    widget->update();
}

void AnimatedLook::jumpTo(double value)
{
    animation->stop();
    setValue(value);
}

void AnimatedLook::run(bool on)
{
    LookAnimation::run(animation, current, on ? full : 0.0, full, on ? onMs : offMs, curve);
}

void AnimatedLook::runFor(double from, double to, int durationMs)
{
    LookAnimation::runFor(animation, from, to, durationMs, curve);
}

bool AnimatedLook::isRunning() const
{
    return animation->state() == QAbstractAnimation::Running;
}

void AnimatedLook::followPointer(std::function<bool()> holdsOnLeave)
{
    holds = std::move(holdsOnLeave);
    widget->installEventFilter(this);
}

bool AnimatedLook::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget) {
        if (event->type() == QEvent::EnabledChange && !widget->isEnabled()) {
            jumpTo(0);
        } else if (const int change = LookAnimation::hoverChange(widget, event)) {
            if (change > 0 || !(holds && holds()))
                run(change > 0);
        }
    }
    return QObject::eventFilter(watched, event);
}
