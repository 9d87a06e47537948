#pragma once

#include "components/DrawnPixmap.h"
#include "scene/UIComponentBase.h"

#include <QPixmap>

// A game window drawn from a window skin of the project, the image layout
// RPG Maker's own windows use: a stretched background and a tiled pattern
// under a frame of 24-pixel corners and stretched edges. It holds child
// components, stores its size and never turns.
class UIComponentWindow : public UIComponentBase
{
    Q_OBJECT
public:
    explicit UIComponentWindow(GameUIEditorScene* scene, QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    void resized() override;
    bool canHaveChildren() const override;
    bool canRotate() const override;
    QJsonObject& data() override;

    // The window at its size, drawn from the skin.
    void renderWindow();

    QPixmap pixmap;
    DrawnPixmap drawn;
    QPixmap skin;
    // Twice the larger of "Padding" and "Margin": the smallest side.
    int minimumSide = 24;
    int minimumSideHeight = 24;
};
