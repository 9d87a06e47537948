#include "components/UIComponentRepeat.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr int largestSide = 5000;
// A box from a document may be far larger than the canvas allows: its
// pattern is then made at a smaller scale and stretched like any other, so
// the cache never grows past the pixels of the largest box.
constexpr double largestPatternArea = double(largestSide) * largestSide;

}

UIComponentRepeat::UIComponentRepeat(GameUIEditorScene* scene, QGraphicsItem* parent) : UIComponentBase(scene, parent)
{
}

void UIComponentRepeat::setData(const QJsonObject& json)
{
    const QSize size = ComponentKinds::storedSize(json, "RepeatData");
    setWidth(size.width());
    setHeight(size.height());
    const QJsonObject repeat = json.value(QStringLiteral("RepeatData")).toObject();
    tile = ProjectImages::pixmap(ProjectImages::Pictures, repeat.value(QStringLiteral("Picture")).toString());
    UIComponentBase::setData(json);
    retile();
}

int UIComponentRepeat::patternStart(int offset, int side)
{
    if (side <= 0)
        return 0;
    // The remainder keeps the dividend's sign.
    const int rest = offset % side;
    return offset >= 0 ? -rest : -(side + rest);
}

void UIComponentRepeat::retile()
{
    const int w = width;
    const int h = height;
    if (w <= 0 || h <= 0) {
        pixmap = QPixmap();
        return;
    }
    const double shrink = std::min({1.0, std::sqrt(largestPatternArea / (double(w) * h)), double(largestSide) / w,
                                    double(largestSide) / h});
    const QSize made(qMax(1, int(std::ceil(w * shrink))), qMax(1, int(std::ceil(h * shrink))));
    if (tile.width() < 1) {
        pixmap = ComponentKinds::unavailableGraphics(made);
        return;
    }
    pixmap = QPixmap(made);
    pixmap.fill(Qt::transparent);
    const QJsonObject repeat = jsonData.value(QStringLiteral("RepeatData")).toObject();
    // An offset the game works out at run time previews as none.
    const int x0 = patternStart(readInteger(repeat.value(QStringLiteral("OffsetX")), 0), tile.width());
    const int y0 = patternStart(readInteger(repeat.value(QStringLiteral("OffsetY")), 0), tile.height());
    QPainter painter(&pixmap);
    painter.scale(shrink, shrink);
    // Unscaled tiles from (x0, y0) on, one beside the other: the tiled
    // drawing starts that far into the tile at the box's corner.
    painter.drawTiledPixmap(QRectF(0, 0, w, h), tile, QPointF(-x0, -y0));
    painter.end();
    update();
}

void UIComponentRepeat::drawContents(QPainter* painter)
{
    drawn.draw(painter, drawnRect(), pixmap, zoomFactor(), {});
}

int UIComponentRepeat::minimumWidth() const { return 25; }
int UIComponentRepeat::maximumWidth() const { return largestSide; }
int UIComponentRepeat::minimumHeight() const { return 25; }
int UIComponentRepeat::maximumHeight() const { return largestSide; }

void UIComponentRepeat::resized()
{
    retile();
}

QJsonObject& UIComponentRepeat::data()
{
    QJsonObject& json = UIComponentBase::data();
    ComponentKinds::writeStoredSize(json, "RepeatData", QSize(width, height));
    return json;
}
