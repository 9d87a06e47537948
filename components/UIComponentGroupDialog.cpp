#include "components/UIComponentGroupDialog.h"

#include "components/ComponentKinds.h"
#include "widgets/MyButton.h"

UIComponentGroupDialog::UIComponentGroupDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                               QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::Group), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentGroupDialog"));
    shared.finish();
}

ComponentDialogForm UIComponentGroupDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json, ComponentKinds::Group,
                               projectData);
}

void UIComponentGroupDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    // A group's data object holds nothing but what its add-ons add.
    shared.writeDataObject(QJsonObject());
    accept();
}

void UIComponentGroupDialog::on_cancelButton_clicked()
{
    reject();
}
