#pragma once

#include <QRadioButton>

class AnimatedLook;

// The program's radio button, drawn like the check box with a round mark.
class MyRadioButton : public QRadioButton
{
    Q_OBJECT
public:
    explicit MyRadioButton(QWidget* parent = nullptr);
    explicit MyRadioButton(const QString& text, QWidget* parent = nullptr);

    // The check (currState) and the hover (currState2), both 0 to 100.
    AnimatedLook* checkLook() const { return check; }
    AnimatedLook* hoverLook() const { return hover; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& pos) const override;

private:
    AnimatedLook* check;
    AnimatedLook* hover;
};
