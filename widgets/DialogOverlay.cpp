#include "widgets/DialogOverlay.h"

#include <QPainter>
#include <QPropertyAnimation>

DialogOverlay::DialogOverlay(QWidget* parent, int mode, const QSize& size) : QWidget(parent), overlayMode(mode)
{
    setFocusPolicy(Qt::NoFocus);
    resize(size);
}

void DialogOverlay::setCurrState(int value)
{
    state = qBound(0, value, 100);
    repaint();
}

QPropertyAnimation* DialogOverlay::fade(int from, int to, int duration)
{
    QPropertyAnimation* animation = new QPropertyAnimation(this, "currState", this);
    animation->setStartValue(from);
    animation->setEndValue(to);
    animation->setDuration(duration);
    animation->setEasingCurve(QEasingCurve::Linear);
    animation->start(QAbstractAnimation::DeleteWhenStopped);
    return animation;
}

void DialogOverlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // Full dimming is 120 of 255: the dialog below stays readable.
    if (overlayMode == Fill) {
        painter.fillRect(rect(), QColor(0, 0, 0, state * 120 / 100));
    } else {
        const QSize grown(width() * state / 100, height() * state / 100);
        QRect area(QPoint(0, 0), grown);
        area.moveCenter(rect().center());
        painter.fillRect(area, QColor(0, 0, 0, 120));
    }
}
