#include "components/UIComponentCommonDialog.h"

#include "components/ComponentKinds.h"
#include "widgets/MyButton.h"

UIComponentCommonDialog::UIComponentCommonDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                                 QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(json->value(QStringLiteral("Type")).toInt(-1)), owner,
                            projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentCommonDialog"));
    shared.setNote(tr("The %1 properties of this component are kept as they are.")
                       .arg(ComponentKinds::label(json->value(QStringLiteral("Type")).toInt(-1))));
    shared.finish();
}

ComponentDialogForm UIComponentCommonDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json,
                               json->value(QStringLiteral("Type")).toInt(-1), projectData);
}

void UIComponentCommonDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    // The kind's own keys stay as they came; only a stored size is the form's.
    shared.writeDataObject(shared.dataObject());
    accept();
}

void UIComponentCommonDialog::on_cancelButton_clicked()
{
    reject();
}
