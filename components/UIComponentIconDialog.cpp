#include "components/UIComponentIconDialog.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"
#include "logic/DynamicValueDisplay.h"
#include "logic/RMNumberSelector.h"
#include "widgets/MyButton.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"

UIComponentIconDialog::UIComponentIconDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                             QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::Icon), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentIconDialog"));
    const QJsonObject data = shared.dataObject();
    pictureProperties = shared.addPropertyBox(tr("Icon Set Properties"), "pictureProperties");

    const QJsonValue index = data.value(QStringLiteral("IconIndex"));
    iconIndex = index.isObject() ? index.toObject()
                                 : QJsonObject{{QStringLiteral("Type"), 0}, {QStringLiteral("Number"), 1}};
    IconIndex = shared.addOpener("IconIndex", {QT_TR_NOOP("Icon Index"), QT_TR_NOOP("The index of the icon.")}, 0, 0);
    showDynamicNumber(IconIndex, iconIndex, projectData);
    IconSize = shared.addNumber("IconSize", {QT_TR_NOOP("Icon Size"), QT_TR_NOOP("The size of the icon set's icons.")},
                                4, 99999, 6, false, QStringLiteral("32"), data.value(QStringLiteral("IconSize")), 0, 1);
    source.build(shared, this, ProjectImages::System, {"iconSet", "IconSetType", "IconSetCode"},
                 {{QT_TR_NOOP("Icon Set"), QT_TR_NOOP("The icon set displayed for the component.")},
                  {QT_TR_NOOP("Icon Set Type"), QT_TR_NOOP("The type of input for the icon set.")},
                  QT_TR_NOOP("Fixed Icon Set"),
                  {QT_TR_NOOP("Icon Set Code"), QT_TR_NOOP("The code that generates the icon set path.")}},
                 data, "IconSet",
                 data.contains(QStringLiteral("Code")) ? QString() : QStringLiteral("IconSet"),
                 QStringLiteral("return \"img/system/IconSet.png\";"), 1);
    iconSet = source.image;
    IconSetType = source.type;
    IconSetCode = source.code;
    shared.finish();
}

ComponentDialogForm UIComponentIconDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json, ComponentKinds::Icon,
                               projectData);
}

void UIComponentIconDialog::on_IconIndex_clicked()
{
    RMNumberSelector::pick(IconIndex, &iconIndex, projectData, this);
}

void UIComponentIconDialog::on_IconSetType_whenChoiceChanges()
{
    source.followChoice();
}

void UIComponentIconDialog::on_IconSetCode_clicked()
{
    source.pickCode(this);
}

void UIComponentIconDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    QJsonObject data;
    data.insert(QStringLiteral("IconIndex"), iconIndex);
    data.insert(QStringLiteral("IconSize"), shared.numberOf(IconSize));
    source.write(data);
    shared.writeDataObject(data);
    accept();
}

void UIComponentIconDialog::on_cancelButton_clicked()
{
    reject();
}
