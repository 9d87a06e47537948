#pragma once

#include "components/DrawnPixmap.h"
#include "scene/UIComponentBase.h"

#include <QPixmap>

// A bar built from a skin of the game's system images: three bands stacked
// in the skin, each made of a left cap, a middle and a right cap. The caps
// keep their width and the middle stretches to the bar's width; the height
// is always a third of the skin's. The editor shows the bar full.
class UIComponentPictureGauge : public UIComponentBase
{
    Q_OBJECT
public:
    explicit UIComponentPictureGauge(GameUIEditorScene* scene, QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    void resized() override;
    QJsonObject& data() override;

    // The height of a bar on a skin: a third of the skin's, or that of a bar
    // without a usable skin.
    static int barHeight(const QPixmap& skin);

    QPixmap pixmap;
    DrawnPixmap drawn;
    QPixmap skin;
    int edgeMargin = 15;
    int fixedHeight = 24;
    int minimumBarWidth = 20;

private:
    void renderBar();
};
