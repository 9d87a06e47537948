#pragma once

#include "components/ComponentScale.h"
#include "scene/UIComponentBase.h"

// Layer until each kind has its own class: a component of a known kind
// shows as the base rectangle and keeps its whole JSON object, but already
// answers the capabilities and size limits of its kind, so that groups and
// windows hold children and the handles match what the kind will allow.
class UIComponentPendingKind : public UIComponentBase
{
    Q_OBJECT
public:
    UIComponentPendingKind(int type, GameUIEditorScene* scene, QGraphicsItem* parent = nullptr);

    void setData(const QJsonObject& json) override;
    // The size back into the object: "Width"/"Height" of the data object, or
    // "ScaleX"/"ScaleY" against the natural size.
    QJsonObject& data() override;
    void resized() override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    bool canHaveChildren() const override;
    bool canResize() const override;
    bool canRotate() const override;

    const int type;

    // The base rectangle stands in for the picture of the scale kinds.
    static constexpr int naturalSide = 100;

private:
    ComponentScale scale;
    int dataInteger(const char* key, int fallback) const;
};
