#include "components/UIComponentWindowDialog.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"
#include "scene/UIComponentBase.h"
#include "widgets/MyButton.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyImageSelector.h"
#include "widgets/MyLineEdit.h"

namespace {

// Twice a number, or twice the default when the game gives the value at
// run time; the fields hold at most 120.
int twice(const QJsonValue& value, int fallback)
{
    return 2 * (value.isDouble() ? qBound(0, UIComponentBase::readInteger(value), 120) : fallback);
}

}

UIComponentWindowDialog::UIComponentWindowDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                                 QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::Window), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentWindowDialog"));
    const QJsonObject data = shared.dataObject();
    windowProperties = shared.addPropertyBox(tr("Window Properties"), "windowProperties");
    windowSkin = shared.addImage("windowSkin",
                                 {QT_TR_NOOP("Window Skin"), QT_TR_NOOP("The window skin used for the window.")},
                                 ProjectImages::System,
                                 data.value(QStringLiteral("WindowSkin")).toString(QStringLiteral("Window")), 0, 0, 2);
    Padding = shared.addNumber("Padding", {QT_TR_NOOP("Padding"), QT_TR_NOOP("The padding of the window.")}, 0, 120,
                               4, false, QStringLiteral("12"), data.value(QStringLiteral("Padding")), 1, 0);
    Margin = shared.addNumber("Margin", {QT_TR_NOOP("Margin"), QT_TR_NOOP("The margin of the window.")}, 0, 120, 4,
                              false, QStringLiteral("4"), data.value(QStringLiteral("Margin")), 1, 1);
    BackgroundOpacity = shared.addNumber(
        "BackgroundOpacity", {QT_TR_NOOP("Background Opacity"), QT_TR_NOOP("The transparency of the background.")}, 0,
        100, 4, true, QStringLiteral("75"), data.value(QStringLiteral("BackgroundOpacity")), 2, 0, 2);
    shared.finish();
}

ComponentDialogForm UIComponentWindowDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json, ComponentKinds::Window,
                               projectData);
}

void UIComponentWindowDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    // The window is never smaller than its padding and margin on both sides.
    const int least = qMax(twice(shared.numberOf(Padding), 12), twice(shared.numberOf(Margin), 4));
    const QSize size(qMax(shared.Width->text().toInt(), least), qMax(shared.Height->text().toInt(), least));
    QJsonObject data;
    data.insert(QStringLiteral("WindowSkin"), windowSkin->image());
    data.insert(QStringLiteral("Padding"), shared.numberOf(Padding));
    data.insert(QStringLiteral("Margin"), shared.numberOf(Margin));
    data.insert(QStringLiteral("BackgroundOpacity"), shared.numberOf(BackgroundOpacity));
    shared.writeDataObject(data, size);
    accept();
}

void UIComponentWindowDialog::on_cancelButton_clicked()
{
    reject();
}
