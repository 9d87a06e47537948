#include "widgets/UltimateTreeItemButton.h"

#include "theme/CachedColors.h"

#include <QPainter>

UltimateTreeItemButton::UltimateTreeItemButton(QGraphicsItem* row) : QObject(), QGraphicsItem(row)
{
}

void UltimateTreeItemButton::setOpen(bool on)
{
    if (open == on)
        return;
    open = on;
    update();
}

void UltimateTreeItemButton::setHovered(bool on)
{
    if (hovered == on)
        return;
    hovered = on;
    update();
}

void UltimateTreeItemButton::setSize(int size)
{
    if (size == side)
        return;
    prepareGeometryChange();
    side = size;
}

void UltimateTreeItemButton::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform | QPainter::TextAntialiasing);
    painter->translate((side - 6) / 2.0, (side - 6) / 2.0);
    painter->setPen(QPen(hovered ? CachedColor::ListChildArrowHover : CachedColor::ListChildArrow, 1.5));
    if (open) {
        const QPointF points[] = {{0, 2}, {3, 5}, {6, 2}};
        painter->drawPolyline(points, 3);
    } else {
        const QPointF points[] = {{1, 0}, {4, 3}, {1, 6}};
        painter->drawPolyline(points, 3);
    }
    painter->restore();
}
