#pragma once

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
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    bool canHaveChildren() const override;
    bool canResize() const override;
    bool canRotate() const override;

    const int type;

private:
    int dataInteger(const char* key, int fallback) const;
};
