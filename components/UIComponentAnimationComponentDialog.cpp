#include "components/UIComponentAnimationComponentDialog.h"

#include "components/ComponentKinds.h"
#include "logic/GameDataLabel.h"
#include "logic/RMDatabaseItemSelector.h"
#include "scene/UIComponentBase.h"
#include "widgets/MyButton.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyPopup.h"

namespace {

const QString AnimationsFile = QStringLiteral("Animations.json");

}

UIComponentAnimationComponentDialog::UIComponentAnimationComponentDialog(QJsonObject* json, bool* accepted, bool flag,
                                                                         QWidget* owner, QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::Animation), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentAnimationComponentDialog"));
    const QJsonObject data = shared.dataObject();
    animationProperties = shared.addPropertyBox(tr("Animation Properties"), "animationProperties");
    animationId = UIComponentBase::readInteger(data.value(QStringLiteral("AnimationID")), 1);
    AnimationID = shared.addOpener("AnimationID",
                                   {QT_TR_NOOP("Animation ID"), QT_TR_NOOP("The ID of the animation used.")}, 0, 0, 2);
    AnimationID->setValue(GameDataLabel::databaseEntry(projectData, AnimationsFile, animationId));
    AnimationType = shared.addChoice(
        "AnimationType", {QT_TR_NOOP("Animation Behavior"), QT_TR_NOOP("The behavior of the animation.")},
        {tr("Play Once"), tr("Play On Show"), tr("Loop Continuously")}, data.value(QStringLiteral("Behavior")), 0, 1, 0,
        2);
    shared.finish();
}

ComponentDialogForm UIComponentAnimationComponentDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json,
                               ComponentKinds::Animation, projectData);
}

void UIComponentAnimationComponentDialog::on_AnimationID_clicked()
{
    RMDatabaseItemSelector::pick(AnimationID, &animationId, projectData, AnimationsFile, tr("Animation"), this);
}

void UIComponentAnimationComponentDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    QJsonObject data;
    data.insert(QStringLiteral("AnimationID"), animationId);
    data.insert(QStringLiteral("Behavior"), shared.choiceOf(AnimationType));
    shared.writeDataObject(data);
    accept();
}

void UIComponentAnimationComponentDialog::on_cancelButton_clicked()
{
    reject();
}
