#include "widgets/LookAnimation.h"

#include <QEvent>
#include <QPropertyAnimation>
#include <QWidget>
#include <QtMath>

namespace LookAnimation {

void runFor(QPropertyAnimation* animation, const QVariant& current, const QVariant& target, int durationMs,
            QEasingCurve::Type curve)
{
    animation->stop();
    animation->setEasingCurve(curve);
    animation->setStartValue(current);
    animation->setEndValue(target);
    animation->setDuration(qMax(0, durationMs));
    animation->start();
}

int hoverChange(const QWidget* widget, const QEvent* event)
{
    if (!widget->isEnabled())
        return 0;
    if (event->type() == QEvent::Enter)
        return 1;
    return event->type() == QEvent::Leave ? -1 : 0;
}

void run(QPropertyAnimation* animation, const QVariant& current, const QVariant& target, double range, int fullMs,
         QEasingCurve::Type curve)
{
    const double distance = qAbs(target.toDouble() - current.toDouble());
    const double share = range > 0 ? qMin(1.0, distance / range) : 0.0;
    runFor(animation, current, target, qRound(share * fullMs), curve);
}

}
