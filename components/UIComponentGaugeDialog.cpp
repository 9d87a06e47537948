#include "components/UIComponentGaugeDialog.h"

#include "components/ComponentKinds.h"
#include "logic/DynamicValueDisplay.h"
#include "logic/RMNumberSelector.h"
#include "widgets/MyButton.h"
#include "widgets/MyColorPickerButton.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"

namespace {

// The object under key, or else Actor Data of the first party member.
QJsonObject dynamicNumberOf(const QJsonObject& data, const char* key, int info)
{
    const QJsonValue value = data.value(QLatin1String(key));
    return value.isObject() ? value.toObject()
                            : QJsonObject{{"Type", 4}, {"ActorType", false}, {"Index", 1}, {"Info", info}};
}

}

UIComponentGaugeDialog::UIComponentGaugeDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                               QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::Gauge), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentGaugeDialog"));
    const QJsonObject data = shared.dataObject();
    projectileCreation = shared.addPropertyBox(tr("Gauge Properties"), "projectileCreation");
    // The wording names a text component: it is shared with the text's dialog.
    OutlineSize = shared.addNumber("OutlineSize",
                                   {QT_TR_NOOP("Outline Size"), QT_TR_NOOP("The outline size for the text component.")},
                                   0, 30, 4, false, QStringLiteral("1"), data.value(QStringLiteral("OutlineSize")), 0, 0);
    OutlineOpacity = shared.addNumber("OutlineOpacity",
                                      {QT_TR_NOOP("Outline Opacity"), QT_TR_NOOP("The transparency of the outline.")},
                                      0, 100, 4, true, QStringLiteral("100"),
                                      data.value(QStringLiteral("OutlineOpacity")), 0, 1);
    ChangeDuration = shared.addNumber(
        "ChangeDuration",
        {QT_TR_NOOP("Change Duration"), QT_TR_NOOP("The duration of the animation upon value change.")}, 0, 9999, 5,
        false, QStringLiteral("20"), data.value(QStringLiteral("Smoothness")), 1, 0);
    SyncTextComponent = shared.addText(
        "SyncTextComponent",
        {QT_TR_NOOP("Sync Text Component"), QT_TR_NOOP("The name of the text component to sync to the value.")},
        QString(), data.value(QStringLiteral("SyncComponent")), 1, 1);
    Color1 = shared.addColor("Color1", {QT_TR_NOOP("Color 1"), QT_TR_NOOP("First color of gauge.")},
                             data.value(QStringLiteral("Color1")).toString(QStringLiteral("#a87532")), 2, 0);
    Color2 = shared.addColor("Color2", {QT_TR_NOOP("Color 2"), QT_TR_NOOP("Second color of gauge.")},
                             data.value(QStringLiteral("Color2")).toString(QStringLiteral("#a83232")), 2, 1);
    Background_Color = shared.addColor(
        "Background_Color", {QT_TR_NOOP("Background Color"), QT_TR_NOOP("The color of the background.")},
        data.value(QStringLiteral("BackgroundColor")).toString(QStringLiteral("#333333")), 3, 0);
    Outline_Color =
        shared.addColor("Outline_Color", {QT_TR_NOOP("Outline Color"), QT_TR_NOOP("The color of the outline.")},
                        data.value(QStringLiteral("OutlineColor")).toString(QStringLiteral("#000000")), 3, 1);
    value = valueOf(data);
    Gauge_Value = shared.addOpener("Gauge_Value",
                                   {QT_TR_NOOP("Gauge Value"), QT_TR_NOOP("The value the gauge represents.")}, 4, 0);
    showDynamicNumber(Gauge_Value, value, projectData);
    maximum = maximumOf(data);
    Gauge_Maximum = shared.addOpener(
        "Gauge_Maximum", {QT_TR_NOOP("Gauge Maximum"), QT_TR_NOOP("The maximum value for the gauge.")}, 4, 1);
    showDynamicNumber(Gauge_Maximum, maximum, projectData);
    // Room for the value texts ("Actor Maximum HP") and the longer captions.
    projectileCreation->setMinimumWidth(400);
    shared.finish();
}

QJsonObject UIComponentGaugeDialog::valueOf(const QJsonObject& data)
{
    // Actor info 3 is the HP, 8 the maximum HP.
    return dynamicNumberOf(data, "Value", 3);
}

QJsonObject UIComponentGaugeDialog::maximumOf(const QJsonObject& data)
{
    return dynamicNumberOf(data, "Maximum", 8);
}

ComponentDialogForm UIComponentGaugeDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json, ComponentKinds::Gauge,
                               projectData);
}

void UIComponentGaugeDialog::on_Gauge_Value_clicked()
{
    RMNumberSelector::pick(Gauge_Value, &value, projectData, this);
}

void UIComponentGaugeDialog::on_Gauge_Maximum_clicked()
{
    RMNumberSelector::pick(Gauge_Maximum, &maximum, projectData, this);
}

void UIComponentGaugeDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    QJsonObject data;
    data.insert(QStringLiteral("OutlineSize"), shared.numberOf(OutlineSize));
    data.insert(QStringLiteral("OutlineOpacity"), shared.numberOf(OutlineOpacity));
    data.insert(QStringLiteral("Smoothness"), shared.numberOf(ChangeDuration));
    data.insert(QStringLiteral("SyncComponent"), shared.numberOf(SyncTextComponent));
    data.insert(QStringLiteral("Color1"), Color1->color().name());
    data.insert(QStringLiteral("Color2"), Color2->color().name());
    data.insert(QStringLiteral("BackgroundColor"), Background_Color->color().name());
    data.insert(QStringLiteral("OutlineColor"), Outline_Color->color().name());
    data.insert(QStringLiteral("Value"), value);
    data.insert(QStringLiteral("Maximum"), maximum);
    shared.writeDataObject(data);
    accept();
}

void UIComponentGaugeDialog::on_cancelButton_clicked()
{
    reject();
}
