#pragma once

#include "components/DrawnPixmap.h"
#include "components/ComponentScale.h"
#include "scene/UIComponentBase.h"

#include <QPixmap>

// One image of the project's pictures. In the game it may come from a piece
// of code instead; the canvas always shows the image stored in "Picture".
// Its size is a scale of the image's own.
class UIComponentPicture : public UIComponentBase
{
    Q_OBJECT
public:
    explicit UIComponentPicture(GameUIEditorScene* scene, QGraphicsItem* parent = nullptr);

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
