#include "scene/GameUIEditorSceneHelperBase.h"

GameUIEditorSceneHelperBase::~GameUIEditorSceneHelperBase() = default;

UIComponentBase* GameUIEditorSceneHelperBase::createComponent(const QJsonObject&, GameUIEditorScene*, QJsonObject*,
                                                               bool)
{
    return nullptr;
}

void GameUIEditorSceneHelperBase::chooseNewComponent(QJsonObject&, bool*, int, bool, QJsonObject*, TrovDialog*) {}

void GameUIEditorSceneHelperBase::editComponent(QJsonObject&, bool*, TrovDialog*, QWidget*, bool, QJsonObject*) {}
