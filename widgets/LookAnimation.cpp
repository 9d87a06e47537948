#include "widgets/LookAnimation.h"

#include <QPropertyAnimation>
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

void run(QPropertyAnimation* animation, const QVariant& current, const QVariant& target, double range, int fullMs,
         QEasingCurve::Type curve)
{
    const double distance = qAbs(target.toDouble() - current.toDouble());
    const double share = range > 0 ? qMin(1.0, distance / range) : 0.0;
    runFor(animation, current, target, qRound(share * fullMs), curve);
}

}
