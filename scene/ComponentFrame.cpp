#include "scene/ComponentFrame.h"

#include "scene/UIComponentBase.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QPainter>

namespace {

// The drawn rectangle as far as a frame goes: cut to a square that no canvas
// outgrows. A document can make it pass the range of int ("Width":
// 2147483647 at zoom 2.0), where rounding is undefined, and the marching ants
// walk every pixel of an edge.
QRectF frameArea(const UIComponentBase& component)
{
    constexpr double reach = 1 << 16;
    return component.drawnRect().intersected(QRectF(-reach, -reach, 2 * reach, 2 * reach));
}

// One horizontal or vertical run of the marching ants: four pixels of the
// first colour and four of the second, shifted forward by the offset.
void paintAntRun(QPainter* painter, int originX, int originY, int length, bool vertical, int offset,
                 const QColor& first, const QColor& second)
{
    if (length <= 0)
        return;
    const int phase = offset % 8;
    int i = 0;
    while (i < length) {
        const int position = ((i - phase) % 8 + 8) % 8;
        const bool firstColour = position < 4;
        const int span = qMin(length - i, (firstColour ? 4 : 8) - position);
        const QColor& colour = firstColour ? first : second;
        if (vertical)
            painter->fillRect(QRect(originX, originY + i, 1, span), colour);
        else
            painter->fillRect(QRect(originX + i, originY, span, 1), colour);
        i += span;
    }
}

}

void ComponentFrame::paint(QPainter* painter, const UIComponentBase& component)
{
    if (!component.frameVisible || component.passive)
        return;
    const QRectF drawn = frameArea(component);
    // Frames sit on whole pixels: the drawn rectangle's edges rounded as
    // the bounds round them.
    const int left = qRound(drawn.left());
    const int top = qRound(drawn.top());
    const QRect frame(left, top, qRound(drawn.right()) - left, qRound(drawn.bottom()) - top);
    if (component.selected) {
        if (drawn.width() > 8.0 && drawn.height() > 8.0)
            paintSelection(painter, component, frame);
    } else if (component.hovered) {
        paintHover(painter, frame);
    }
}

void ComponentFrame::paintSelection(QPainter* painter, const UIComponentBase& component, const QRect& frame)
{
    const QColor first = themeColor(ThemeKey::ComponentSelectColor1);
    const QColor second = themeColor(ThemeKey::ComponentSelectColor2);
    const int offset = component.aniTimeValue / 3;
    const int left = frame.x();
    const int top = frame.y();
    const int right = frame.x() + frame.width();
    const int bottom = frame.y() + frame.height();
    if (!component.canResize()) {
        paintAntRun(painter, left, top, frame.width(), false, offset, first, second);
        paintAntRun(painter, left, bottom - 1, frame.width(), false, offset, first, second);
        paintAntRun(painter, left, top, frame.height(), true, offset, first, second);
        paintAntRun(painter, right - 1, top, frame.height(), true, offset, first, second);
        return;
    }
    // Each edge in two runs that leave the corner and middle handles free.
    const int handleSize = UIComponentBase::handleSize;
    const int gap = handleSize / 2;
    const int halfW = int(frameArea(component).width() / 2);
    const int halfH = int(frameArea(component).height() / 2);
    const int runW = halfW - handleSize;
    const int runH = halfH - handleSize;
    for (int row : {top, bottom - 1}) {
        paintAntRun(painter, left + gap, row, runW, false, offset, first, second);
        paintAntRun(painter, left + halfW + gap, row, runW, false, offset, first, second);
    }
    for (int column : {left, right - 1}) {
        paintAntRun(painter, column, top + gap, runH, true, offset, first, second);
        paintAntRun(painter, column, top + halfH + gap, runH, true, offset, first, second);
    }
}

void ComponentFrame::paintHover(QPainter* painter, const QRect& frame)
{
    const QColor outline = themeColor(ThemeKey::ComponentHoverColorOutline);
    const int left = frame.x();
    const int top = frame.y();
    const int right = frame.x() + frame.width();
    const int bottom = frame.y() + frame.height();
    painter->save();
    painter->fillRect(QRect(left, top, frame.width(), 1), outline);
    painter->fillRect(QRect(left, bottom, frame.width() + 1, 1), outline);
    painter->fillRect(QRect(left, top, 1, frame.height()), outline);
    painter->fillRect(QRect(right, top, 1, frame.height()), outline);
    painter->setOpacity(0.3);
    painter->fillRect(frame, themeColor(ThemeKey::ComponentHoverColor));
    painter->restore();
}
