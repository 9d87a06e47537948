#pragma once

#include "components/DrawnPixmap.h"
#include "components/ComponentScale.h"
#include "scene/UIComponentBase.h"

#include <QPixmap>

// One icon of an icon set in the project's system images: the cell that
// "IconIndex" names on a sheet of sixteen cells a row, each "IconSize"
// pixels square. An index the game works out at run time previews as icon
// 1. Its size is a scale of the cell.
class UIComponentIcon : public UIComponentBase
{
    Q_OBJECT
public:
    explicit UIComponentIcon(GameUIEditorScene* scene, QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    void resized() override;
    QJsonObject& data() override;

    QPixmap pixmap;
    DrawnPixmap drawn;
    int naturalWidth = 0;
    int naturalHeight = 0;

private:
    ComponentScale scale;
};
