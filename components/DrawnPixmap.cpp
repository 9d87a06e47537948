#include "components/DrawnPixmap.h"

#include <cmath>

namespace {

// The largest copy kept: a side of 16384 pixels, and 128 MB of pixels.
constexpr double largestSide = 16384;
constexpr double largestArea = 8192.0 * 4096.0;

}

void DrawnPixmap::draw(QPainter* painter, const QRectF& rect, const QPixmap& source, double zoomFactor,
                       QPainter::RenderHints belowOne)
{
    if (source.isNull())
        return;
    painter->save();
    if (zoomFactor < 1.0)
        painter->setRenderHints(belowOne);
    const double width = std::abs(rect.width());
    const double height = std::abs(rect.height());
    // Rounded only once known to fit: a side of billions doesn't fit an int.
    const bool fits = width <= largestSide && height <= largestSide && width * height <= largestArea;
    const QSize size = fits ? QSize(qRound(rect.width()), qRound(rect.height())) : QSize();
    if (!fits || size.isEmpty()) {
        painter->drawPixmap(rect, source, QRectF(source.rect()));
    } else if (size == source.size()) {
        painter->drawPixmap(rect.topLeft(), source);
    } else {
        const bool smooth = zoomFactor < 1.0 && belowOne.testFlag(QPainter::SmoothPixmapTransform);
        if (copy.size() != size || sourceKey != source.cacheKey() || smoothed != smooth) {
            copy = source.scaled(size, Qt::IgnoreAspectRatio, smooth ? Qt::SmoothTransformation : Qt::FastTransformation);
            sourceKey = source.cacheKey();
            smoothed = smooth;
        }
        painter->drawPixmap(rect.topLeft(), copy);
    }
    painter->restore();
}

void DrawnPixmap::forget()
{
    copy = QPixmap();
    sourceKey = 0;
}
