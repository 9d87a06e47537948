#include "widgets/MyTabSystemHelper.h"

#include "widgets/LookAnimation.h"

#include <QPropertyAnimation>
#include <QWidget>

MyTabSystemHelper::MyTabSystemHelper(const QString& label, QWidget* headerWidget)
    : QObject(headerWidget),
      header(headerWidget),
      text(label),
      hoverAnimation(new QPropertyAnimation(this, "hoverState", this)),
      selectAnimation(new QPropertyAnimation(this, "selectState", this))
{
}

void MyTabSystemHelper::setLabel(const QString& label)
{
    text = label;
    header->update();
}

void MyTabSystemHelper::setHovered(bool hovered)
{
    LookAnimation::run(hoverAnimation, hover, hovered ? 50 : 0, 50, 150, QEasingCurve::Linear);
}

void MyTabSystemHelper::setSelected(bool value, bool skipAnimation)
{
    selected = value;
    if (skipAnimation) {
        selectAnimation->stop();
        setSelectState(selected ? 100 : 0);
        return;
    }
    LookAnimation::run(selectAnimation, select, selected ? 100 : 0, 100, 200, QEasingCurve::OutCubic);
}

void MyTabSystemHelper::setHoverState(int value)
{
    hover = value;
    header->update();
}

void MyTabSystemHelper::setSelectState(int value)
{
    select = value;
    header->update();
}
