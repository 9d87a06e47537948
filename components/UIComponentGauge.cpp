#include "components/UIComponentGauge.h"

#include "components/ComponentKinds.h"

#include <QLinearGradient>
#include <QPainter>

namespace {

constexpr int smallestSide = 10;
constexpr int largestSide = 5000;

}

UIComponentGauge::UIComponentGauge(GameUIEditorScene* scene, QGraphicsItem* parent) : UIComponentBase(scene, parent)
{
}

void UIComponentGauge::drawContents(QPainter* painter)
{
    const QRectF bar = drawnRect();
    // A rounded bar in the game keeps half its outline.
    const double thickness = (shapeValue != 0 ? outlineSize / 2.0 : double(outlineSize)) * zoomFactor();
    painter->save();
    // The outline colour lies under the whole bar, also without an outline:
    // it shows wherever the fill is translucent.
    painter->save();
    painter->setOpacity(painter->opacity() * outlineOpacity / 100.0);
    painter->fillRect(bar, outlineColor);
    painter->restore();
    if (bar.width() - 2 * thickness >= 0 && bar.height() - 2 * thickness >= 0) {
        const QRectF inner = bar.adjusted(thickness, thickness, -thickness, -thickness);
        painter->fillRect(inner, backgroundColor);
        // The preview shows the bar full, so the gradient spans the inside.
        QLinearGradient fill(inner.left(), 0, inner.left() + inner.width(), 0);
        fill.setColorAt(0.0, color1);
        fill.setColorAt(1.0, color2);
        painter->fillRect(inner, fill);
    }
    painter->restore();
}

int UIComponentGauge::minimumWidth() const { return smallestSide; }
int UIComponentGauge::maximumWidth() const { return largestSide; }
int UIComponentGauge::minimumHeight() const { return smallestSide; }
int UIComponentGauge::maximumHeight() const { return largestSide; }

void UIComponentGauge::setData(const QJsonObject& json)
{
    const QJsonObject gauge = json.value(QStringLiteral("GaugeData")).toObject();
    const QSize size = ComponentKinds::storedSize(json, "GaugeData");
    setWidth(size.width());
    setHeight(size.height());
    // Sizes and opacities the game gives at run time preview with these
    // defaults.
    outlineSize = readInteger(gauge.value(QStringLiteral("OutlineSize")), 0);
    outlineOpacity = gauge.value(QStringLiteral("OutlineOpacity")).toDouble(100.0);
    shapeValue = readInteger(gauge.value(QStringLiteral("Shape")), 0);
    color1 = QColor(gauge.value(QStringLiteral("Color1")).toString(QStringLiteral("#a87532")));
    color2 = QColor(gauge.value(QStringLiteral("Color2")).toString(QStringLiteral("#a83232")));
    // White, not the dialog's grey: a gauge saved before the background
    // colour existed shows as it did until its dialog is confirmed.
    backgroundColor = QColor(gauge.value(QStringLiteral("BackgroundColor")).toString(QStringLiteral("#ffffff")));
    outlineColor = QColor(gauge.value(QStringLiteral("OutlineColor")).toString(QStringLiteral("#000000")));
    UIComponentBase::setData(json);
}

QJsonObject& UIComponentGauge::data()
{
    QJsonObject& json = UIComponentBase::data();
    ComponentKinds::writeStoredSize(json, "GaugeData", QSize(width, height));
    return json;
}
