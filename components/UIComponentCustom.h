#pragma once

#include "components/CustomExpansion.h"
#include "scene/UIComponentBase.h"

// A custom HUD placed inside another HUD. The component keeps only the
// reference and the parameter values; the canvas shows the referenced HUD
// in place, at the HUD's own size, as passive components.
class UIComponentCustom : public UIComponentBase
{
    Q_OBJECT
public:
    // hudLevel is false for a component that an expansion builds; the guard
    // reads it in the first setData().
    UIComponentCustom(GameUIEditorScene* scene, QJsonObject* projectData, bool hudLevel,
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
    // The size the HUD gave is written back, so the document follows the
    // custom HUD's size.
    QJsonObject& data() override;

    const QList<UIComponentBase*>& subComponents() const { return expansion.subComponents(); }

    QJsonObject* projectData;
    // True once the reference was found or the guard stopped the expansion.
    bool expanded = false;

private:
    CustomExpansion expansion;
};
