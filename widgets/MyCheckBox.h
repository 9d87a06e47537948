#pragma once

#include <QCheckBox>

class QAbstractButton;
class QPainter;
class QPropertyAnimation;

// The program's check box: the box fills from the left in the theme's
// primary colour when checked, and its edges light up on hover.
class MyCheckBox : public QCheckBox
{
    Q_OBJECT
    Q_PROPERTY(int currState READ currState WRITE setCurrState)
    Q_PROPERTY(int currState2 READ currState2 WRITE setCurrState2)
public:
    explicit MyCheckBox(QWidget* parent = nullptr);
    explicit MyCheckBox(const QString& text, QWidget* parent = nullptr);

    // Without animation the look jumps to the new state.
    void setNoAnimation(bool on) { noAnimation = on; }

    int currState() const { return state; }
    void setCurrState(int value);
    int currState2() const { return state2; }
    void setCurrState2(int value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // The look shared with the radio button: the box or the round mark, the
    // wipe of the check, the hover edges and the label.
    static void paintToggle(QPainter& painter, QAbstractButton* button, int checkedState, int hoverState, bool round);
    // Starts the shared hover look on enter and leave.
    static void runHover(QPropertyAnimation* animation, int current, bool inside);
    static QSize toggleSizeHint(const QAbstractButton* button);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& pos) const override;

private:
    void stateHasChanged(int checkState);

    bool noAnimation = false;
    int state = 0;
    int state2 = 0;
    QPropertyAnimation* checkAnimation;
    QPropertyAnimation* hoverAnimation;
};
