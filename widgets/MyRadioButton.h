#pragma once

#include <QRadioButton>

class QPropertyAnimation;

// The program's radio button, drawn like the check box with a round mark.
class MyRadioButton : public QRadioButton
{
    Q_OBJECT
    Q_PROPERTY(int currState READ currState WRITE setCurrState)
    Q_PROPERTY(int currState2 READ currState2 WRITE setCurrState2)
public:
    explicit MyRadioButton(QWidget* parent = nullptr);
    explicit MyRadioButton(const QString& text, QWidget* parent = nullptr);

    int currState() const { return state; }
    void setCurrState(int value);
    int currState2() const { return state2; }
    void setCurrState2(int value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& pos) const override;

private:
    int state = 0;
    int state2 = 0;
    QPropertyAnimation* checkAnimation;
    QPropertyAnimation* hoverAnimation;
};
