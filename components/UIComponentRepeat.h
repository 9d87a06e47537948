#pragma once

#include "components/DrawnPixmap.h"
#include "scene/UIComponentBase.h"

#include <QPixmap>

// One picture of the project tiled over a box of its own size, the pattern
// shifted by "OffsetX" and "OffsetY". The pattern is made again on every
// change of the data or the size, so a drag shows it at once.
class UIComponentRepeat : public UIComponentBase
{
    Q_OBJECT
public:
    explicit UIComponentRepeat(GameUIEditorScene* scene, QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    void resized() override;
    QJsonObject& data() override;

    // Where the first column (row) of tiles starts for an offset: in [-side, 0],
    // a positive offset moving the pattern left (up), a negative one right (down).
    static int patternStart(int offset, int side);

    QPixmap tile;
    QPixmap pixmap;
    DrawnPixmap drawn;

private:
    void retile();
};
