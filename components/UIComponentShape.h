#pragma once

#include "scene/UIComponentBase.h"

#include <QColor>

// A filled rectangle or ellipse with an optional outline inside its edge.
// It draws straight at the current zoom, with no cached picture, and keeps
// its size as "Width" and "Height" of "ShapeData".
class UIComponentShape : public UIComponentBase
{
    Q_OBJECT
public:
    explicit UIComponentShape(GameUIEditorScene* scene, QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    QJsonObject& data() override;

    QColor color;
    QColor outlineColor;
    double outlineOpacity = 100.0;
    int outlineSize = 0;
    int shapeType = 0;
};
