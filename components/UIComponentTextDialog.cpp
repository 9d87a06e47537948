#include "components/UIComponentTextDialog.h"

#include "components/ComponentKinds.h"
#include "components/ProjectFonts.h"
#include "logic/DynamicValueDisplay.h"
#include "logic/RMTextSelector.h"
#include "widgets/BasicFontSelector.h"
#include "widgets/MyButton.h"
#include "widgets/MyColorPickerButton.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"

UIComponentTextDialog::UIComponentTextDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                             QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::Text), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentTextDialog"));
    const QJsonObject data = shared.dataObject();
    projectileCreation = shared.addPropertyBox(tr("Text Properties"), "projectileCreation");

    const QJsonValue value = data.value(QStringLiteral("Text"));
    text = value.isObject() ? value.toObject()
                            : QJsonObject{{QStringLiteral("Type"), 0}, {QStringLiteral("Text"), tr("My Text")}};
    Text = shared.addOpener("Text", {QT_TR_NOOP("Text"), QT_TR_NOOP("The text displayed for the component.")}, 0, 0, 2);
    showDynamicText(Text, text, projectData);

    fontFamily = data.value(QStringLiteral("FontFamily")).toString();
    FontFamily =
        shared.addOpener("FontFamily", {QT_TR_NOOP("Font Family"), QT_TR_NOOP("The font for the text component.")}, 1, 0, 2);
    BasicFontSelector::showFont(FontFamily, fontFamily);

    FontSize = shared.addNumber("FontSize", {QT_TR_NOOP("Font Size"), QT_TR_NOOP("The font size for the text component.")},
                                1, 200, 4, false, QStringLiteral("30"), data.value(QStringLiteral("FontSize")), 2, 0);
    OutlineSize = shared.addNumber("OutlineSize",
                                   {QT_TR_NOOP("Outline Size"), QT_TR_NOOP("The outline size for the text component.")},
                                   0, 30, 4, false, QStringLiteral("4"), data.value(QStringLiteral("OutlineSize")), 2, 1);
    OutlineOpacity = shared.addNumber("OutlineOpacity",
                                      {QT_TR_NOOP("Outline Opacity"), QT_TR_NOOP("The transparency of the outline.")},
                                      0, 100, 4, true, QStringLiteral("100"),
                                      data.value(QStringLiteral("OutlineOpacity")), 3, 0);
    Alignment = shared.addChoice("Alignment", {QT_TR_NOOP("Alignment"), QT_TR_NOOP("The alignment of the text.")},
                                 {tr("Left"), tr("Center"), tr("Right")}, data.value(QStringLiteral("Alignment")), 1,
                                 3, 1);
    Maximum_Width = shared.addNumber(
        "Maximum_Width", {QT_TR_NOOP("Maximum Width"), QT_TR_NOOP("The maximum width for the text component.")}, 10,
        5000, 5, false, QStringLiteral("200"), data.value(QStringLiteral("MaxWidth")), 4, 0);
    Text_Color = shared.addColor("Text_Color", {QT_TR_NOOP("Text Color"), QT_TR_NOOP("The color of the text.")},
                                 data.value(QStringLiteral("Color")).toString(QStringLiteral("#ffffff")), 5, 0);
    Outline_Color =
        shared.addColor("Outline_Color", {QT_TR_NOOP("Outline Color"), QT_TR_NOOP("The color of the outline.")},
                        data.value(QStringLiteral("OutlineColor")).toString(QStringLiteral("#000000")), 5, 1);
    shared.finish();
}

ComponentDialogForm UIComponentTextDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json, ComponentKinds::Text,
                               projectData);
}

void UIComponentTextDialog::on_Text_clicked()
{
    RMTextSelector::pick(Text, &text, projectData, this);
}

void UIComponentTextDialog::on_FontFamily_clicked()
{
    QString chosen = fontFamily;
    bool confirmed = false;
    darken();
    {
        BasicFontSelector selector(&chosen, &confirmed, ProjectFonts::folder(), BasicFontSelector::fontSuffixes(),
                                   ProjectFonts::mainFontName(projectData), 780, 480, this);
        selector.exec();
    }
    undarken();
    if (!confirmed)
        return;
    fontFamily = chosen;
    BasicFontSelector::showFont(FontFamily, fontFamily);
    FontFamily->confirm();
}

void UIComponentTextDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    QJsonObject data;
    data.insert(QStringLiteral("Text"), text);
    data.insert(QStringLiteral("FontFamily"), fontFamily);
    data.insert(QStringLiteral("FontSize"), shared.numberOf(FontSize));
    data.insert(QStringLiteral("OutlineSize"), shared.numberOf(OutlineSize));
    data.insert(QStringLiteral("Alignment"), shared.choiceOf(Alignment));
    data.insert(QStringLiteral("MaxWidth"), shared.numberOf(Maximum_Width));
    data.insert(QStringLiteral("Color"), Text_Color->color().name());
    data.insert(QStringLiteral("OutlineColor"), Outline_Color->color().name());
    data.insert(QStringLiteral("OutlineOpacity"), shared.numberOf(OutlineOpacity));
    shared.writeDataObject(data);
    accept();
}

void UIComponentTextDialog::on_cancelButton_clicked()
{
    reject();
}
