#pragma once

#include "components/CustomExpansion.h"
#include "scene/UIComponentBase.h"

#include <QRect>
#include <QVector>

// A custom HUD that the game draws once for each member of a game list and
// attaches to it. The canvas shows one copy inside a blue frame, since the
// game's objects don't exist in the editor.
class UIComponentAttachCollection : public UIComponentBase
{
    Q_OBJECT
public:
    UIComponentAttachCollection(GameUIEditorScene* scene, QJsonObject* projectData, bool hudLevel,
                                QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    bool canHaveChildren() const override;
    bool canResize() const override;
    bool canRotate() const override;
    void zoomChanged() override;

    const QList<UIComponentBase*>& subComponents() const { return expansion.subComponents(); }

    // The frame's four bars, in item coordinates: top, bottom, left, right.
    QVector<QRect> frameBars() const;

    QJsonObject* projectData;
    bool expanded = false;

private:
    CustomExpansion expansion;
};
