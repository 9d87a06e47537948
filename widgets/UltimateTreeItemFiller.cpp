#include "widgets/UltimateTreeItemFiller.h"

#include "theme/CachedColors.h"
#include "widgets/UltimateTree.h"

#include <QLinearGradient>
#include <QPainter>

UltimateTreeItemFiller::UltimateTreeItemFiller(UltimateTree* owner)
{
    tree = owner;
}

void UltimateTreeItemFiller::setHeight(double value)
{
    if (value == height)
        return;
    prepareGeometryChange();
    height = value;
}

void UltimateTreeItemFiller::setFillerVisible(bool on)
{
    visibleFlag = on;
    update();
}

void UltimateTreeItemFiller::setHovered(bool on, bool immediate)
{
    animateHover(on, immediate, 150, 200);
}

void UltimateTreeItemFiller::setSelected(bool on)
{
    if (selected == on)
        return;
    selected = on;
    update();
}

void UltimateTreeItemFiller::refresh()
{
    prepareGeometryChange();
    update();
}

QRectF UltimateTreeItemFiller::rowRect() const
{
    return QRectF(0, 0, tree ? tree->getViewWidth() : 100, height);
}

void UltimateTreeItemFiller::paintRow(QPainter* painter)
{
    if (!visibleFlag || !tree)
        return;
    const int w = tree->getViewWidth();
    const int r = tree->getRowHeight();
    painter->save();
    if (selected)
        paintSelection(painter, QRectF(0, 0, w, r), false);
    if (hoverValue > 0) {
        painter->setOpacity(hoverValue / 1000.0);
        const double d = (hoverValue / 1000.0 + 0.5) * r;
        QColor faded = CachedColor::ListItemHover;
        faded.setAlpha(0);
        QLinearGradient gradient(0, 0, 0, d);
        gradient.setColorAt(0, CachedColor::ListItemHover);
        gradient.setColorAt(1, faded);
        painter->fillRect(QRectF(0, 0, w, 1), CachedColor::ListItemHover);
        painter->fillRect(QRectF(0, 1, 1, d - 2), gradient);
        painter->fillRect(QRectF(w - 1, 1, 1, d - 2), gradient);
        painter->setOpacity(1);
    }
    painter->setPen(tree->palette().color(QPalette::Text));
    painter->drawText(QRectF(tree->plainTextOffset(), 0, qMax(0, w - tree->plainTextOffset()), r),
                      Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("+"));
    painter->restore();
}
