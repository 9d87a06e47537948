#pragma once

#include "scene/UIComponentBase.h"

// An anchor for child components with no look of its own in the game. On
// the canvas it is a grey marker of fixed size that can be moved, but
// neither turned nor resized.
class UIComponentGroup : public UIComponentBase
{
    Q_OBJECT
public:
    explicit UIComponentGroup(GameUIEditorScene* scene, QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    bool canHaveChildren() const override;
    bool canResize() const override;
    bool canRotate() const override;

    static constexpr int side = 50;
};
