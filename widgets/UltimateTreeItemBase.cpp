#include "widgets/UltimateTreeItemBase.h"

#include "widgets/UltimateTree.h"

#include <QPropertyAnimation>

UltimateTreeItemBase::UltimateTreeItemBase(QGraphicsItem* parent) : QObject(), QGraphicsItem(parent)
{
}

UltimateTreeItemBase::~UltimateTreeItemBase() = default;

void UltimateTreeItemBase::setHovered(bool, bool)
{
}

void UltimateTreeItemBase::setSelected(bool)
{
}

void UltimateTreeItemBase::refresh()
{
}

void UltimateTreeItemBase::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    paintRow(painter);
}

void UltimateTreeItemBase::setHover(float value)
{
    hoverValue = value;
    update();
}

void UltimateTreeItemBase::animateHover(bool on, bool immediate, int upMs, int downMs)
{
    if ((tree && !tree->isEnabled()) || hoveredFlag == on)
        return;
    hoveredFlag = on;
    const float target = on ? 1000.0f : 0.0f;
    if (hoverAnimation)
        hoverAnimation->stop();
    if (immediate) {
        setHover(target);
        return;
    }
    if (!hoverAnimation) {
        hoverAnimation = new QPropertyAnimation(this, "hover", this);
        hoverAnimation->setEasingCurve(QEasingCurve::Linear);
    }
    const float remaining = on ? (1000.0f - hoverValue) / 1000.0f : hoverValue / 1000.0f;
    hoverAnimation->setDuration(qMax(1, int((on ? upMs : downMs) * remaining)));
    hoverAnimation->setStartValue(hoverValue);
    hoverAnimation->setEndValue(target);
    hoverAnimation->start();
}
