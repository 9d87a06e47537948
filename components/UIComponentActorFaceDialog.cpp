#include "components/UIComponentActorFaceDialog.h"

#include "components/ComponentKinds.h"
#include "logic/RMActorSelector.h"
#include "widgets/MyButton.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/OwnerDimming.h"

UIComponentActorFaceDialog::UIComponentActorFaceDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                                       QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::ActorFace), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentActorFaceDialog"));
    const QJsonValue value = shared.dataObject().value(QStringLiteral("ActorID"));
    actor = value.isObject() ? value.toObject() : QJsonObject{{QStringLiteral("Type"), 0}, {QStringLiteral("ID"), 1}};
    pictureProperties = shared.addPropertyBox(tr("Actor Face Properties"), "pictureProperties");
    ActorID = shared.addOpener("ActorID", {QT_TR_NOOP("Actor ID"), QT_TR_NOOP("The ID of the face's actor.")}, 0, 0, 2);
    ActorID->setValue(RMActorSelector::display(actor, projectData));
    shared.finish();
}

ComponentDialogForm UIComponentActorFaceDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json,
                               ComponentKinds::ActorFace, projectData);
}

void UIComponentActorFaceDialog::on_ActorID_clicked()
{
    QJsonObject copy = actor;
    bool confirmed = false;
    OwnerDimming::dim(this);
    RMActorSelector(&copy, &confirmed, projectData, this).exec();
    OwnerDimming::undim(this);
    if (!confirmed)
        return;
    actor = copy;
    ActorID->setValue(RMActorSelector::display(actor, projectData));
    ActorID->confirm();
}

void UIComponentActorFaceDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    QJsonObject data;
    data.insert(QStringLiteral("ActorID"), actor);
    shared.writeDataObject(data);
    accept();
}

void UIComponentActorFaceDialog::on_cancelButton_clicked()
{
    reject();
}
