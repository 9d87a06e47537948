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
    if (selected) {
        int g = 0;
        if (tree->clickValue() > 0 && tree->pressedMouseButton() == 1)
            g = int(tree->clickValue() / 1000 * 25);
        const int b = qMin(g, 8);
        auto tinted = [g, b](const QColor& color) {
            if (color.green() + g > 255 || color.blue() + b > 255)
                return QColor();
            return QColor(color.red(), color.green() + g, color.blue() + b);
        };
        QLinearGradient gradient(0, 2, 0, r - 4);
        gradient.setColorAt(1.0, tinted(CachedColor::ListItemBottom));
        gradient.setColorAt(0.0, tinted(CachedColor::ListItemTop));
        painter->setPen(QPen(CachedColor::ListItemOutline1, 1));
        painter->drawRect(QRectF(0.5, 0.5, w - 1, r - 1));
        painter->setPen(QPen(CachedColor::ListItemOutline2, 1));
        painter->drawRect(QRectF(1.5, 1.5, w - 3, r - 3));
        painter->fillRect(QRectF(2, 2, w - 4, r - 4), gradient);
    }
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
