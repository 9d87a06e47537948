#include "components/UIComponentShape.h"

#include "components/ComponentKinds.h"

#include <QPainter>

namespace {

enum ShapeType { Rectangle = 0, Circle = 1 };

constexpr int largestSide = 5000;

}

UIComponentShape::UIComponentShape(GameUIEditorScene* scene, QGraphicsItem* parent) : UIComponentBase(scene, parent)
{
}

void UIComponentShape::drawContents(QPainter* painter)
{
    const QRectF outer = drawnRect();
    const double thickness = outlineSize * zoomFactor();
    painter->save();
    if (thickness > 0) {
        // The outline is a second, larger shape under the fill.
        painter->save();
        painter->setOpacity(painter->opacity() * outlineOpacity / 100.0);
        if (shapeType == Rectangle) {
            painter->fillRect(outer, outlineColor);
        } else if (shapeType == Circle) {
            painter->setBrush(outlineColor);
            painter->setPen(Qt::NoPen);
            painter->drawEllipse(outer);
        }
        painter->restore();
        const QRectF inner = outer.adjusted(thickness, thickness, -thickness, -thickness);
        // An outline thicker than half the shape leaves no room for the fill.
        if (inner.width() >= 0 && inner.height() >= 0) {
            if (shapeType == Rectangle) {
                painter->fillRect(inner, color);
            } else if (shapeType == Circle) {
                painter->setBrush(color);
                painter->setPen(Qt::NoPen);
                painter->drawEllipse(inner);
            }
        }
    } else if (shapeType == Rectangle) {
        painter->fillRect(outer, color);
    } else if (shapeType == Circle) {
        // Without an outline the pen in the fill's colour takes the ellipse
        // out to the rectangle's edge.
        painter->setBrush(color);
        painter->setPen(color);
        painter->drawEllipse(outer);
    }
    painter->restore();
}

int UIComponentShape::minimumWidth() const { return 25; }
int UIComponentShape::maximumWidth() const { return largestSide; }
int UIComponentShape::minimumHeight() const { return 25; }
int UIComponentShape::maximumHeight() const { return largestSide; }

void UIComponentShape::setData(const QJsonObject& json)
{
    const QJsonObject shape = json.value(QStringLiteral("ShapeData")).toObject();
    const QSize size = ComponentKinds::storedSize(json, "ShapeData");
    setWidth(size.width());
    setHeight(size.height());
    shapeType = readInteger(shape.value(QStringLiteral("Shape")), Rectangle);
    // An outline size given by the game at run time previews as none.
    outlineSize = readInteger(shape.value(QStringLiteral("OutlineSize")), 0);
    color = QColor(shape.value(QStringLiteral("Color")).toString(QStringLiteral("#ffffff")));
    outlineColor = QColor(shape.value(QStringLiteral("OutlineColor")).toString(QStringLiteral("#000000")));
    outlineOpacity = shape.value(QStringLiteral("OutlineOpacity")).toDouble(100.0);
    UIComponentBase::setData(json);
}

QJsonObject& UIComponentShape::data()
{
    QJsonObject& json = UIComponentBase::data();
    ComponentKinds::writeStoredSize(json, "ShapeData", QSize(width, height));
    return json;
}
