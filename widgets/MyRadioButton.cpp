#include "widgets/MyRadioButton.h"

#include "widgets/LookAnimation.h"
#include "widgets/MyCheckBox.h"

#include <QEvent>
#include <QPainter>
#include <QPropertyAnimation>

MyRadioButton::MyRadioButton(QWidget* parent)
    : QRadioButton(parent),
      checkAnimation(new QPropertyAnimation(this, "currState", this)),
      hoverAnimation(new QPropertyAnimation(this, "currState2", this))
{
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::toggled, this, [this](bool checked) {
        LookAnimation::run(checkAnimation, state, checked ? 100 : 0, 100, 150, QEasingCurve::Linear);
    });
}

MyRadioButton::MyRadioButton(const QString& text, QWidget* parent) : MyRadioButton(parent)
{
    setText(text);
}

void MyRadioButton::setCurrState(int value)
{
    state = value;
    update();
}

void MyRadioButton::setCurrState2(int value)
{
    state2 = value;
    update();
}

bool MyRadioButton::event(QEvent* event)
{
    if (const int change = LookAnimation::hoverChange(this, event))
        MyCheckBox::runHover(hoverAnimation, state2, change > 0);
    return QRadioButton::event(event);
}

bool MyRadioButton::hitButton(const QPoint& pos) const
{
    return rect().contains(pos);
}

QSize MyRadioButton::sizeHint() const
{
    return MyCheckBox::toggleSizeHint(this);
}

QSize MyRadioButton::minimumSizeHint() const
{
    return QSize(18, 18);
}

void MyRadioButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    MyCheckBox::paintToggle(painter, this, state, state2, true);
}
