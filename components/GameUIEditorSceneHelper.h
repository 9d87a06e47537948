#pragma once

#include "scene/GameUIEditorSceneHelperBase.h"

#include <memory>

class QWidget;
class UIComponentBaseDialog;

class VelmoUISelector;

// The component registry as the scene sees it: builds the live component of
// a JSON object's kind and opens the selector and property dialogs. Selector
// is the dialog in which the user picks the kind of a new component.
template <class Selector>
class GameUIEditorSceneHelper : public GameUIEditorSceneHelperBase
{
public:
    // A "Type" outside the kind table, negative ones included, gives the
    // plain base rectangle; the object is kept whole either way.
    UIComponentBase* createComponent(const QJsonObject& json, GameUIEditorScene* scene, QJsonObject* projectData,
                                     bool flag) override;
    void chooseNewComponent(QJsonObject& json, bool* accepted, int id, bool flag, QJsonObject* projectData,
                            TrovDialog* parentDialog) override;
    void editComponent(QJsonObject& json, bool* accepted, TrovDialog* parentDialog, QWidget* dialogOwner, bool flag,
                       QJsonObject* projectData) override;

    // The property dialog of the component json's kind, not yet run; null
    // for a "Type" that names no kind.
    static std::unique_ptr<UIComponentBaseDialog> makeDialog(QJsonObject& json, bool* accepted, bool flag,
                                                             QWidget* owner, QJsonObject* projectData);
};

extern template class GameUIEditorSceneHelper<VelmoUISelector>;
