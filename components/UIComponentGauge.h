#pragma once

#include "scene/UIComponentBase.h"

#include <QColor>

// A bar filled with a two-colour gradient over a background, inside an
// outline. In the game it follows a value against a maximum; the editor
// never evaluates them and shows the bar full. Its size is "Width" and
// "Height" of "GaugeData".
class UIComponentGauge : public UIComponentBase
{
    Q_OBJECT
public:
    explicit UIComponentGauge(GameUIEditorScene* scene, QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    QJsonObject& data() override;

    QColor color1;
    QColor color2;
    QColor backgroundColor;
    QColor outlineColor;
    double outlineOpacity = 100.0;
    int outlineSize = 0;
    int shapeValue = 0;
};
