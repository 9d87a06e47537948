#pragma once

#include <QEasingCurve>
#include <QVariant>

class QEvent;
class QPropertyAnimation;
class QWidget;

// The eased looks of the form widgets: a look always starts from where it
// stands, and a run that was interrupted takes only the share of its full
// time that is left of the way.
namespace LookAnimation {

// Runs animation from current to target. fullMs is the time of the whole
// range; the run takes |target - current| / range of it.
void run(QPropertyAnimation* animation, const QVariant& current, const QVariant& target, double range, int fullMs,
         QEasingCurve::Type curve);

// 1 when the pointer entered the widget, -1 when it left, 0 for any other
// event. A disabled widget doesn't react to the pointer at all.
int hoverChange(const QWidget* widget, const QEvent* event);

// Same, with a fixed duration whatever the distance.
void runFor(QPropertyAnimation* animation, const QVariant& current, const QVariant& target, int durationMs,
            QEasingCurve::Type curve);

}
