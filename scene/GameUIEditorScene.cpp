#include "scene/GameUIEditorScene.h"

#include "scene/UIComponentBase.h"

GameUIEditorScene::GameUIEditorScene(QObject* parent) : QGraphicsScene(parent) {}

void GameUIEditorScene::setZoom(int value)
{
    zoom = value;
    for (QGraphicsItem* item : items()) {
        if (auto* component = dynamic_cast<UIComponentBase*>(item))
            component->zoomChanged();
    }
    update();
}

void GameUIEditorScene::hoverEnter(UIComponentBase* component)
{
    ++hoverCount;
    if (hoveredComponent && hoveredComponent != component)
        hoveredComponent->clearHover();
    hoveredComponent = component;
}

void GameUIEditorScene::hoverLeave()
{
    --hoverCount;
    hoveredComponent = nullptr;
}

void GameUIEditorScene::beginChange(UIComponentBase* component)
{
    if (component)
        pendingChange = true;
}

void GameUIEditorScene::finishChange(UIComponentBase* component)
{
    if (component)
        pendingChange = false;
}
