#pragma once

#include <QPushButton>

class QPropertyAnimation;

// A small icon button beside a field or in a list header: a soft plate
// fades in under the icon on hover.
class MicroButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(int animator READ animator WRITE setAnimator)
public:
    explicit MicroButton(QWidget* parent = nullptr);
    explicit MicroButton(const QIcon& icon, QWidget* parent = nullptr);

    int animator() const { return hover; }
    void setAnimator(int value);

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void hoverTo(bool inside);

    int hover = 0;
    QPropertyAnimation* animation;
};
