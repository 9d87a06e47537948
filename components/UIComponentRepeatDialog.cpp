#include "components/UIComponentRepeatDialog.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"
#include "components/UIComponentPictureDialog.h"
#include "widgets/MyButton.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"

#include <QImage>

UIComponentRepeatDialog::UIComponentRepeatDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                                 QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::RepeatingPicture), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentRepeatDialog"));
    const QJsonObject data = shared.dataObject();
    sizeFromPicture = !data.contains(QStringLiteral("Width")) && !data.contains(QStringLiteral("Height"));
    pictureProperties = shared.addPropertyBox(tr("Repeat Picture Properties"), "pictureProperties");
    source.build(shared, this, ProjectImages::Pictures, {"picture", "PictureType", "PictureCode"},
                 {{nullptr, QT_TR_NOOP("The image used for the repeating picture.")},
                  {QT_TR_NOOP("Picture Type"), QT_TR_NOOP("The type of input for the picture.")},
                  QT_TR_NOOP("Fixed Picture"),
                  {QT_TR_NOOP("Picture Code"), QT_TR_NOOP("The code that generates the image path.")}},
                 data, "Picture", QString(), UIComponentPictureDialog::defaultCode(), 0);
    picture = source.image;
    PictureType = source.type;
    PictureCode = source.code;
    X_Offset = shared.addNumber("X_Offset",
                                {QT_TR_NOOP("X Offset"),
                                 QT_TR_NOOP("The horizontal offset of the repeating picture component.")},
                                0, 5000, 6, false, QStringLiteral("0"), data.value(QStringLiteral("OffsetX")), 2, 0);
    Y_Offset = shared.addNumber("Y_Offset",
                                {QT_TR_NOOP("Y Offset"),
                                 QT_TR_NOOP("The vertical offset of the repeating picture component.")},
                                0, 5000, 6, false, QStringLiteral("0"), data.value(QStringLiteral("OffsetY")), 2, 1);
    shared.finish();
}

ComponentDialogForm UIComponentRepeatDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json,
                               ComponentKinds::RepeatingPicture, projectData);
}

void UIComponentRepeatDialog::on_picture_imageChanged(const QString& path)
{
    if (!sizeFromPicture)
        return;
    const QImage chosen = ProjectImages::image(ProjectImages::Pictures, path);
    if (chosen.isNull())
        return;
    sizeFromPicture = false;
    shared.Width->setValue(QString::number(chosen.width()));
    shared.Height->setValue(QString::number(chosen.height()));
}

void UIComponentRepeatDialog::on_PictureType_whenChoiceChanges()
{
    source.followChoice();
}

void UIComponentRepeatDialog::on_PictureCode_clicked()
{
    source.pickCode(this);
}

void UIComponentRepeatDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    QJsonObject data;
    source.write(data);
    data.insert(QStringLiteral("OffsetX"), shared.numberOf(X_Offset));
    data.insert(QStringLiteral("OffsetY"), shared.numberOf(Y_Offset));
    // The size follows from the form's fields.
    shared.writeDataObject(data);
    accept();
}

void UIComponentRepeatDialog::on_cancelButton_clicked()
{
    reject();
}
