#pragma once

#include "components/DrawnPixmap.h"
#include "components/ComponentScale.h"
#include "scene/UIComponentBase.h"

#include <QPixmap>
#include <QString>

// One of the game's database animations played as part of the HUD. The
// editor can't play it: the canvas shows a card of the animation's usual
// 144-pixel cell with its id, its name and a dot where it is centred. Its
// size is a scale of that card.
class UIComponentAnimation : public UIComponentBase
{
    Q_OBJECT
public:
    UIComponentAnimation(GameUIEditorScene* scene, QJsonObject* projectData, QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    void resized() override;
    QJsonObject& data() override;

    // The card of an animation's id and name, 144 pixels square.
    static QPixmap card(int id, const QString& name);

    static constexpr int cell = 144;

    QPixmap pixmap;
    DrawnPixmap drawn;
    QJsonObject* projectData;
    int naturalWidth = cell;
    int naturalHeight = cell;

private:
    ComponentScale scale;
};
