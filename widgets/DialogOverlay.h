#pragma once

#include <QWidget>

class QPropertyAnimation;

// The dimming layer a dialog lays over itself while a child dialog is open.
// currState runs from 0 (clear) to 100 (fully dimmed).
class DialogOverlay : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int currState READ currState WRITE setCurrState)
public:
    // Mode 2 dims the whole area; mode 1 grows a dark rectangle from the centre.
    enum Mode { Growing = 1, Fill = 2 };

    DialogOverlay(QWidget* parent, int mode, const QSize& size);

    int currState() const { return state; }
    void setCurrState(int value);
    int mode() const { return overlayMode; }
    // Runs currState from one value to another, linear; the running
    // animation belongs to the overlay and goes when it stops.
    QPropertyAnimation* fade(int from, int to, int duration);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int state = 0;
    int overlayMode;
};
