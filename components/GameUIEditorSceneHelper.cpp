#include "components/GameUIEditorSceneHelper.h"

#include "components/ComponentKinds.h"
#include "components/UIComponentPendingKind.h"
#include "scene/UIComponentBase.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>

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

// Layer until the component selector exists: a menu of the fourteen kinds at
// the pointer. The new object gets the next "ID" and the chosen "Type".
template <class Selector>
void GameUIEditorSceneHelper<Selector>::chooseNewComponent(QJsonObject& json, bool* accepted, int id, bool,
                                                           QJsonObject*, TrovDialog*)
{
    QApplication::restoreOverrideCursor();
    QMenu menu;
    for (const ComponentKinds::Kind& kind : ComponentKinds::all())
        menu.addAction(ComponentKinds::label(kind.type))->setData(kind.type);
    const QAction* chosen = menu.exec(QCursor::pos());
    if (!chosen)
        return;
    json.insert(QStringLiteral("ID"), id + 1);
    json.insert(QStringLiteral("Type"), chosen->data().toInt());
    if (accepted)
        *accepted = true;
}

// Layer until the property dialogs exist: there is nothing to edit yet, so
// the edit ends as a cancel and the object stays as it was.
template <class Selector>
void GameUIEditorSceneHelper<Selector>::editComponent(QJsonObject&, bool* accepted, TrovDialog*, QWidget*, bool,
                                                      QJsonObject*)
{
    QApplication::restoreOverrideCursor();
    if (accepted)
        *accepted = false;
}

template class GameUIEditorSceneHelper<VelmoUISelector>;
