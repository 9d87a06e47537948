#include "components/UIComponentPictureGaugeDialog.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"
#include "components/UIComponentGaugeDialog.h"
#include "components/UIComponentPictureGauge.h"
#include "logic/DynamicValueDisplay.h"
#include "logic/RMNumberSelector.h"
#include "widgets/MyButton.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyImageSelector.h"
#include "widgets/MyLineEdit.h"

namespace {

constexpr int defaultMargin = 15;

}

UIComponentPictureGaugeDialog::UIComponentPictureGaugeDialog(QJsonObject* json, bool* accepted, bool flag,
                                                             QWidget* owner, QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::PictureGauge), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentPictureGaugeDialog"));
    const QJsonObject data = shared.dataObject();
    windowProperties = shared.addPropertyBox(tr("Gauge Properties"), "windowProperties");
    // The skin's wording is shared with the window's dialog.
    gaugeSkin = shared.addImage("gaugeSkin",
                                {QT_TR_NOOP("Window Skin"), QT_TR_NOOP("The window skin used for the window.")},
                                ProjectImages::System,
                                data.value(QStringLiteral("GaugeSkin")).toString(QStringLiteral("GaugeSkin")), 0, 0,
                                2);
    Edge_Margin = shared.addNumber(
        "Edge_Margin", {QT_TR_NOOP("Edge Margin"), QT_TR_NOOP("The edge margin of the gauge component.")}, 0, 120, 6,
        false, QString::number(defaultMargin), data.value(QStringLiteral("EdgeMargin")), 1, 0);
    ChangeDuration = shared.addNumber(
        "ChangeDuration",
        {QT_TR_NOOP("Change Duration"), QT_TR_NOOP("The duration of the animation upon value change.")}, 0, 9999, 5,
        false, QStringLiteral("20"), data.value(QStringLiteral("Smoothness")), 1, 1);
    SyncTextComponent = shared.addText(
        "SyncTextComponent",
        {QT_TR_NOOP("Sync Text Component"), QT_TR_NOOP("The name of the text component to sync to the value.")},
        QString(), data.value(QStringLiteral("SyncComponent")), 2, 0, 2);
    value = UIComponentGaugeDialog::valueOf(data);
    Gauge_Value = shared.addOpener("Gauge_Value",
                                   {QT_TR_NOOP("Gauge Value"), QT_TR_NOOP("The value the gauge represents.")}, 3, 0);
    showDynamicNumber(Gauge_Value, value, projectData);
    maximum = UIComponentGaugeDialog::maximumOf(data);
    Gauge_Maximum = shared.addOpener(
        "Gauge_Maximum", {QT_TR_NOOP("Gauge Maximum"), QT_TR_NOOP("The maximum value for the gauge.")}, 3, 1);
    showDynamicNumber(Gauge_Maximum, maximum, projectData);
    // Room for the value texts ("Actor Maximum HP") and the longer captions.
    windowProperties->setMinimumWidth(400);
    shared.finish();
}

ComponentDialogForm UIComponentPictureGaugeDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json,
                               ComponentKinds::PictureGauge, projectData);
}

void UIComponentPictureGaugeDialog::on_gaugeSkin_imageChanged(const QString& name)
{
    // The bar is as high as a band of the chosen skin.
    const QPixmap skin = ProjectImages::pixmap(ProjectImages::System, name);
    shared.Height->setValue(QString::number(UIComponentPictureGauge::barHeight(skin)));
}

void UIComponentPictureGaugeDialog::on_Gauge_Value_clicked()
{
    RMNumberSelector::pick(Gauge_Value, &value, projectData, this);
}

void UIComponentPictureGaugeDialog::on_Gauge_Maximum_clicked()
{
    RMNumberSelector::pick(Gauge_Maximum, &maximum, projectData, this);
}

void UIComponentPictureGaugeDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    const QJsonValue margin = shared.numberOf(Edge_Margin);
    // The caps of both ends always fit: a narrower bar is widened to them.
    const int leastWidth = 2 * UIComponentBase::readInteger(margin, defaultMargin);
    const int width = shared.Width->text().toInt();
    if (width < leastWidth)
        shared.Width->setValue(QString::number(leastWidth));
    QJsonObject data;
    data.insert(QStringLiteral("GaugeSkin"), gaugeSkin->image());
    data.insert(QStringLiteral("EdgeMargin"), margin);
    data.insert(QStringLiteral("Value"), value);
    data.insert(QStringLiteral("Maximum"), maximum);
    data.insert(QStringLiteral("Smoothness"), shared.numberOf(ChangeDuration));
    data.insert(QStringLiteral("SyncComponent"), shared.numberOf(SyncTextComponent));
    shared.writeDataObject(data);
    accept();
}

void UIComponentPictureGaugeDialog::on_cancelButton_clicked()
{
    reject();
}
