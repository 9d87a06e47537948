#pragma once

#include <QEasingCurve>
#include <QObject>

#include <functional>

class QPropertyAnimation;
class QWidget;

// One eased look of a form widget, such as its hover, its press or its
// check: a number between 0 and its full value that runs on an animation of
// its own and repaints the widget at every step. A run always starts where
// the look stands and takes the share of its full time that is left of the
// way, so an interrupted look turns back smoothly. The widget names each look
// after the property it stands for (currState, currState2, ...).
class AnimatedLook : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double value READ value WRITE setValue)
public:
    // onMs and offMs are the times of the whole way up to full and down to 0.
    AnimatedLook(QWidget* widget, const char* name, double full, int onMs, int offMs,
                 QEasingCurve::Type curve = QEasingCurve::Linear);

    double value() const { return current; }
    double fullValue() const { return full; }
    // Puts the look at a value at once, ending a run.
    void jumpTo(double value);
    // Runs up to the full value or down to 0.
    void run(bool on);
    // Runs between two values in a fixed time, whatever the distance.
    void runFor(double from, double to, int durationMs);
    bool isRunning() const;

    // Makes the look follow the pointer: it runs up when the pointer enters
    // the enabled widget and down when it leaves, and drops to 0 when the
    // widget is disabled. While holds answers true a leave keeps the look.
    void followPointer(std::function<bool()> holds = {});

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setValue(double value);

    QWidget* widget;
    QPropertyAnimation* animation;
    std::function<bool()> holds;
    double current = 0;
    double full;
    int onMs;
    int offMs;
    QEasingCurve::Type curve;
};
