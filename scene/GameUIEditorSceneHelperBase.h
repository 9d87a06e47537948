#pragma once

#include <QJsonObject>

class GameUIEditorScene;
class QWidget;
class TrovDialog;
class UIComponentBase;

// What the scene asks of the component kinds without naming one: making a
// component from its JSON, choosing the kind of a new one, and editing one in
// its property dialog. The base does nothing.
class GameUIEditorSceneHelperBase
{
public:
    virtual ~GameUIEditorSceneHelperBase();

    // The component of the object's "Type" with the object applied; the scene
    // doesn't apply it again.
    virtual UIComponentBase* createComponent(const QJsonObject& json, GameUIEditorScene* scene,
                                             QJsonObject* projectData, bool flag);
    virtual void chooseNewComponent(QJsonObject& json, bool* accepted, int id, bool flag, QJsonObject* projectData,
                                    TrovDialog* parentDialog);
    virtual void editComponent(QJsonObject& json, bool* accepted, TrovDialog* parentDialog, QWidget* dialogOwner,
                               bool flag, QJsonObject* projectData);
};
