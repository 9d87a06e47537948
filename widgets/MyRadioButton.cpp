#include "widgets/MyRadioButton.h"

#include "widgets/AnimatedLook.h"
#include "widgets/MyCheckBox.h"

#include <QPainter>

MyRadioButton::MyRadioButton(QWidget* parent)
    : QRadioButton(parent), check(MyCheckBox::makeCheckLook(this)), hover(MyCheckBox::makeHoverLook(this))
{
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::toggled, check, &AnimatedLook::run);
}

MyRadioButton::MyRadioButton(const QString& text, QWidget* parent) : MyRadioButton(parent)
{
    setText(text);
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
    MyCheckBox::paintToggle(painter, this, check->value(), hover->value(), true);
}
