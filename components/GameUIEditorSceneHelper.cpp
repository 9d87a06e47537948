#include "components/GameUIEditorSceneHelper.h"

#include "components/ComponentKinds.h"
#include "components/UIComponentCommonDialog.h"
#include "components/UIComponentPendingKind.h"
#include "components/VelmoUISelector.h"
#include "scene/UIComponentBase.h"
#include "widgets/OwnerDimming.h"

#include <QApplication>

template <class Selector>
UIComponentBase* GameUIEditorSceneHelper<Selector>::createComponent(const QJsonObject& json, GameUIEditorScene* scene,
                                                                    QJsonObject*, bool flag)
{
    const int type = json.value(QStringLiteral("Type")).toInt(-1);
    UIComponentBase* component;
    if (ComponentKinds::find(type))
        component = new UIComponentPendingKind(type, scene);
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
    const int type = json.value(QStringLiteral("Type")).toInt(-1);
    QWidget* owner = parentDialog ? static_cast<QWidget*>(parentDialog) : dialogOwner;
    OwnerDimming::dim(owner);
    if (type >= 0 && type <= ComponentKinds::Animation) {
        // Every kind opens the dialog of the shared fields until it has its own.
        UIComponentCommonDialog dialog(&json, accepted, flag, owner, projectData);
        dialog.exec();
    }
    OwnerDimming::undim(owner);
}

template class GameUIEditorSceneHelper<VelmoUISelector>;
