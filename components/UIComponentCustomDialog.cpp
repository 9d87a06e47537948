#include "components/UIComponentCustomDialog.h"

#include "components/ComponentKinds.h"
#include "widgets/MyButton.h"

UIComponentCustomDialog::UIComponentCustomDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                                 QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::Custom), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json)),
      hud(shared, this, false)
{
    setObjectName(QStringLiteral("UIComponentCustomDialog"));
    projectileCreation = shared.addPropertyBox(tr("Custom Properties"), "projectileCreation");
    hud.addOpener(0, 0, 2);
    groupBox_5 = hud.addTable();
    hud.load(shared.dataObject());
    shared.finish();
}

ComponentDialogForm UIComponentCustomDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json, ComponentKinds::Custom,
                               projectData);
}

void UIComponentCustomDialog::on_CustomComponent_clicked()
{
    hud.pickHud();
}

void UIComponentCustomDialog::on_customParams_itemDoubleClicked(UltimateTreeItem* item, int)
{
    hud.editParam(item);
}

void UIComponentCustomDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    QJsonObject data;
    hud.write(data);
    shared.writeDataObject(data);
    accept();
}

void UIComponentCustomDialog::on_cancelButton_clicked()
{
    reject();
}
