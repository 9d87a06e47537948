#include "widgets/UltimateTreeItemBase.h"

#include "widgets/UltimateTree.h"

#include "theme/CachedColors.h"

#include <QLinearGradient>
#include <QPainter>
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

// The selection body: a framed vertical gradient, tinted while a button holds
// the row (green for the left button, red for the right one).
void UltimateTreeItemBase::paintSelection(QPainter* painter, const QRectF& area, bool rightTint) const
{
    const int height = int(area.height());
    int r = 0;
    int g = 0;
    if (tree && tree->clickValue() > 0) {
        if (tree->pressedMouseButton() == 1) {
            g = int(tree->clickValue() / 1000 * 25);
        } else if (rightTint && tree->pressedMouseButton() == 2) {
            r = int(tree->clickValue() / 1000 * 50);
            g = -r;
        }
    }
    const int b = qMin(g, 8);
    auto tinted = [r, g, b](const QColor& color) {
        const int red = color.red() + r;
        const int green = color.green() + g;
        const int blue = color.blue() + b;
        if (red < 0 || red > 255 || green < 0 || green > 255 || blue < 0 || blue > 255)
            return QColor();
        return QColor(red, green, blue);
    };
    QLinearGradient gradient(0, 2, 0, height - 4);
    gradient.setColorAt(1.0, tinted(CachedColor::ListItemBottom));
    gradient.setColorAt(0.0, tinted(CachedColor::ListItemTop));
    const qreal x = area.x();
    const qreal w = area.width();
    painter->setPen(Qt::NoPen);
    painter->fillRect(QRectF(x, 0, w, 1), CachedColor::ListItemOutline1);
    painter->fillRect(QRectF(x, height - 1, w, 1), CachedColor::ListItemOutline1);
    painter->fillRect(QRectF(x, 0, 1, height), CachedColor::ListItemOutline1);
    painter->fillRect(QRectF(x + w - 1, 0, 1, height), CachedColor::ListItemOutline1);
    painter->fillRect(QRectF(x + 1, 1, w - 2, 1), CachedColor::ListItemOutline2);
    painter->fillRect(QRectF(x + 1, height - 2, w - 2, 1), CachedColor::ListItemOutline2);
    painter->fillRect(QRectF(x + 1, 1, 1, height - 2), CachedColor::ListItemOutline2);
    painter->fillRect(QRectF(x + w - 2, 1, 1, height - 2), CachedColor::ListItemOutline2);
    painter->fillRect(QRectF(x + 2, 2, w - 4, height - 4), gradient);
}
