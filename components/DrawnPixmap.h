#pragma once

#include <QPainter>
#include <QPixmap>
#include <QRectF>

// A kind's cached picture as the canvas draws it. A copy at the drawn size
// is kept and made again only when the size, the zoom side (below 1.0 or
// not) or the picture itself changes, so that a paint is a plain copy of
// pixels rather than a scaling of the picture at every repaint of a drag.
// A picture stretched far beyond any canvas (a scale of thousands) is drawn
// straight from the source, which the painter scales only where it lands,
// rather than made into a copy of gigabytes.
class DrawnPixmap
{
public:
    // Draws source into rect. Below zoom 1.0 the given hints apply: with
    // SmoothPixmapTransform among them the copy is smoothed, so that a
    // shrunk picture stays readable; otherwise it keeps its pixels.
    void draw(QPainter* painter, const QRectF& rect, const QPixmap& source, double zoomFactor,
              QPainter::RenderHints belowOne);
    // Drops the copy (the component's picture went).
    void forget();

private:
    QPixmap copy;
    qint64 sourceKey = 0;
    bool smoothed = false;
};
