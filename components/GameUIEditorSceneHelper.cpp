#include "components/GameUIEditorSceneHelper.h"

#include "components/ComponentKinds.h"
#include "components/UIComponentActorFace.h"
#include "components/UIComponentActorFaceDialog.h"
#include "components/UIComponentAttachCollection.h"
#include "components/UIComponentAttachCollectionDialog.h"
#include "components/UIComponentCustom.h"
#include "components/UIComponentCustomCollection.h"
#include "components/UIComponentCustomCollectionDialog.h"
#include "components/UIComponentCustomDialog.h"
#include "components/UIComponentGauge.h"
#include "components/UIComponentGaugeDialog.h"
#include "components/UIComponentIcon.h"
#include "components/UIComponentIconDialog.h"
#include "components/UIComponentAnimation.h"
#include "components/UIComponentAnimationComponentDialog.h"
#include "components/UIComponentGroup.h"
#include "components/UIComponentGroupDialog.h"
#include "components/UIComponentPicture.h"
#include "components/UIComponentPictureDialog.h"
#include "components/UIComponentPictureGauge.h"
#include "components/UIComponentPictureGaugeDialog.h"
#include "components/UIComponentRepeat.h"
#include "components/UIComponentRepeatDialog.h"
#include "components/UIComponentShape.h"
#include "components/UIComponentShapeDialog.h"
#include "components/UIComponentText.h"
#include "components/UIComponentTextDialog.h"
#include "components/UIComponentWindow.h"
#include "components/UIComponentWindowDialog.h"
#include "components/VelmoUISelector.h"
#include "scene/UIComponentBase.h"
#include "widgets/OwnerDimming.h"

#include <QApplication>

template <class Selector>
UIComponentBase* GameUIEditorSceneHelper<Selector>::createComponent(const QJsonObject& json, GameUIEditorScene* scene,
                                                                    QJsonObject* projectData, bool flag)
{
    const int type = json.value(QStringLiteral("Type")).toInt(-1);
    UIComponentBase* component;
    if (type == ComponentKinds::Text)
        component = new UIComponentText(scene);
    else if (type == ComponentKinds::Shape)
        component = new UIComponentShape(scene);
    else if (type == ComponentKinds::Picture)
        component = new UIComponentPicture(scene);
    else if (type == ComponentKinds::RepeatingPicture)
        component = new UIComponentRepeat(scene);
    else if (type == ComponentKinds::ActorFace)
        component = new UIComponentActorFace(scene, projectData);
    else if (type == ComponentKinds::Icon)
        component = new UIComponentIcon(scene);
    else if (type == ComponentKinds::Gauge)
        component = new UIComponentGauge(scene);
    else if (type == ComponentKinds::PictureGauge)
        component = new UIComponentPictureGauge(scene);
    else if (type == ComponentKinds::Group)
        component = new UIComponentGroup(scene);
    else if (type == ComponentKinds::Window)
        component = new UIComponentWindow(scene);
    else if (type == ComponentKinds::Animation)
        component = new UIComponentAnimation(scene, projectData);
    else if (type == ComponentKinds::Custom)
        component = new UIComponentCustom(scene, projectData, flag);
    else if (type == ComponentKinds::CustomCollection)
        component = new UIComponentCustomCollection(scene, projectData, flag);
    else if (type == ComponentKinds::AttachCollection)
        component = new UIComponentAttachCollection(scene, projectData, flag);
    else
        component = new UIComponentBase(scene);
    component->setData(json);
    component->hudLevel = flag;
    return component;
}

template <class Selector>
void GameUIEditorSceneHelper<Selector>::chooseNewComponent(QJsonObject& json, bool* accepted, int id, bool flag,
                                                           QJsonObject* projectData, TrovDialog* parentDialog)
{
    Selector selector(&json, accepted, id, flag, projectData, parentDialog, this);
    selector.exec();
}

template <class Selector>
void GameUIEditorSceneHelper<Selector>::editComponent(QJsonObject& json, bool* accepted, TrovDialog* parentDialog,
                                                      QWidget* dialogOwner, bool flag, QJsonObject* projectData)
{
    QApplication::restoreOverrideCursor();
    QWidget* owner = parentDialog ? static_cast<QWidget*>(parentDialog) : dialogOwner;
    OwnerDimming::dim(owner);
    const std::unique_ptr<UIComponentBaseDialog> dialog = makeDialog(json, accepted, flag, owner, projectData);
    if (dialog)
        dialog->exec();
    OwnerDimming::undim(owner);
}

template <class Selector>
std::unique_ptr<UIComponentBaseDialog> GameUIEditorSceneHelper<Selector>::makeDialog(QJsonObject& json, bool* accepted,
                                                                                     bool flag, QWidget* owner,
                                                                                     QJsonObject* projectData)
{
    switch (json.value(QStringLiteral("Type")).toInt(-1)) {
    case ComponentKinds::Text:
        return std::make_unique<UIComponentTextDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::Shape:
        return std::make_unique<UIComponentShapeDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::Picture:
        return std::make_unique<UIComponentPictureDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::RepeatingPicture:
        return std::make_unique<UIComponentRepeatDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::ActorFace:
        return std::make_unique<UIComponentActorFaceDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::Icon:
        return std::make_unique<UIComponentIconDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::Gauge:
        return std::make_unique<UIComponentGaugeDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::PictureGauge:
        return std::make_unique<UIComponentPictureGaugeDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::Group:
        return std::make_unique<UIComponentGroupDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::Window:
        return std::make_unique<UIComponentWindowDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::Animation:
        return std::make_unique<UIComponentAnimationComponentDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::Custom:
        return std::make_unique<UIComponentCustomDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::CustomCollection:
        return std::make_unique<UIComponentCustomCollectionDialog>(&json, accepted, flag, owner, projectData);
    case ComponentKinds::AttachCollection:
        return std::make_unique<UIComponentAttachCollectionDialog>(&json, accepted, flag, owner, projectData);
    default:
        return nullptr;
    }
}

template class GameUIEditorSceneHelper<VelmoUISelector>;
