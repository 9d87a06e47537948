#pragma once

#include <QCheckBox>

class AnimatedLook;
class QAbstractButton;
class QPainter;

// The program's check box: the box fills from the left in the theme's
// primary colour when checked, and its edges light up on hover.
class MyCheckBox : public QCheckBox
{
    Q_OBJECT
public:
    explicit MyCheckBox(QWidget* parent = nullptr);
    explicit MyCheckBox(const QString& text, QWidget* parent = nullptr);

    // Without animation the look jumps to the new state.
    void setNoAnimation(bool on) { noAnimation = on; }

    // The check (currState) and the hover (currState2), both 0 to 100.
    AnimatedLook* checkLook() const { return check; }
    AnimatedLook* hoverLook() const { return hover; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // The look shared with the radio button: the box or the round mark, the
    // wipe of the check, the hover edges and the label.
    static void paintToggle(QPainter& painter, QAbstractButton* button, double checkedState, double hoverState, bool round);
    // The looks shared with the radio button.
    static AnimatedLook* makeCheckLook(QAbstractButton* button);
    static AnimatedLook* makeHoverLook(QAbstractButton* button);
    static QSize toggleSizeHint(const QAbstractButton* button);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& pos) const override;

private:
    void stateHasChanged(int checkState);

    bool noAnimation = false;
    AnimatedLook* check;
    AnimatedLook* hover;
};
