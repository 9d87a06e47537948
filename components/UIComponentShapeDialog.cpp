#include "components/UIComponentShapeDialog.h"

#include "components/ComponentKinds.h"
#include "widgets/MyButton.h"
#include "widgets/MyColorPickerButton.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"

UIComponentShapeDialog::UIComponentShapeDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                               QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::Shape), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentShapeDialog"));
    const QJsonObject data = shared.dataObject();
    projectileCreation = shared.addPropertyBox(tr("Shape Properties"), "projectileCreation");
    Shape_Type = shared.addChoice("Shape_Type", {QT_TR_NOOP("Shape"), QT_TR_NOOP("The type of shape used.")},
                                  {tr("Rectangle"), tr("Circle")}, data.value(QStringLiteral("Shape")), 0, 0, 0);
    // The wording names a text component: it is shared with the text's dialog.
    OutlineSize = shared.addNumber("OutlineSize",
                                   {QT_TR_NOOP("Outline Size"), QT_TR_NOOP("The outline size for the text component.")},
                                   0, 30, 4, false, QStringLiteral("0"), data.value(QStringLiteral("OutlineSize")), 0, 1);
    OutlineOpacity = shared.addNumber("OutlineOpacity",
                                      {QT_TR_NOOP("Outline Opacity"), QT_TR_NOOP("The transparency of the outline.")},
                                      0, 100, 4, true, QStringLiteral("100"),
                                      data.value(QStringLiteral("OutlineOpacity")), 1, 0);
    Shape_Color = shared.addColor("Shape_Color", {QT_TR_NOOP("Shape Color"), QT_TR_NOOP("The color of the shape.")},
                                  data.value(QStringLiteral("Color")).toString(QStringLiteral("#ffffff")), 2, 0);
    Outline_Color =
        shared.addColor("Outline_Color", {QT_TR_NOOP("Outline Color"), QT_TR_NOOP("The color of the outline.")},
                        data.value(QStringLiteral("OutlineColor")).toString(QStringLiteral("#000000")), 2, 1);
    shared.finish();
}

ComponentDialogForm UIComponentShapeDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json, ComponentKinds::Shape,
                               projectData);
}

void UIComponentShapeDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    QJsonObject data;
    data.insert(QStringLiteral("Shape"), shared.choiceOf(Shape_Type));
    data.insert(QStringLiteral("OutlineSize"), shared.numberOf(OutlineSize));
    data.insert(QStringLiteral("Color"), Shape_Color->color().name());
    data.insert(QStringLiteral("OutlineColor"), Outline_Color->color().name());
    data.insert(QStringLiteral("OutlineOpacity"), shared.numberOf(OutlineOpacity));
    shared.writeDataObject(data);
    accept();
}

void UIComponentShapeDialog::on_cancelButton_clicked()
{
    reject();
}
