#include "widgets/myViewStyle.h"

#include "theme/CachedColors.h"

#include <QPainter>
#include <QStyleOption>

void myViewStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    if (element != PE_IndicatorItemViewItemDrop) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const QRect rect = option->rect;
    if (rect.width() == 0 && rect.height() == 0)
        return;
    QColor base = CachedColor::ListDropBase;
    base.setAlpha(125);
    if (rect.height() <= 1) {
        // Between rows: a band around the line.
        painter->fillRect(QRect(rect.left(), rect.top() - 8, rect.width(), 16), base);
        return;
    }
    QColor outline = CachedColor::ListDropOutline;
    outline.setAlpha(200);
    painter->fillRect(rect, base);
    painter->setPen(outline);
    painter->drawRect(rect.adjusted(0, 0, -1, -1));
    painter->drawLine(rect.left() + 1, rect.bottom() - 1, rect.right() - 1, rect.bottom() - 1);
    painter->drawLine(rect.right() - 1, rect.top() + 1, rect.right() - 1, rect.bottom() - 1);
}
