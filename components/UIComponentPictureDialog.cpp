#include "components/UIComponentPictureDialog.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"
#include "widgets/MyButton.h"
#include "widgets/MyGroupBox.h"

UIComponentPictureDialog::UIComponentPictureDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                                   QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::Picture), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json))
{
    setObjectName(QStringLiteral("UIComponentPictureDialog"));
    pictureProperties = shared.addPropertyBox(tr("Picture Properties"), "pictureProperties");
    source.build(shared, this, ProjectImages::Pictures, {"picture", "PictureType", "PictureCode"},
                 {{nullptr, QT_TR_NOOP("The picture displayed for the component.")},
                  {QT_TR_NOOP("Picture Type"), QT_TR_NOOP("The type of input for the picture.")},
                  QT_TR_NOOP("Fixed Picture"),
                  {QT_TR_NOOP("Picture Code"), QT_TR_NOOP("The code that generates the image path.")}},
                 shared.dataObject(), "Picture", QString(), UIComponentPictureDialog::defaultCode(), 0);
    picture = source.image;
    PictureType = source.type;
    PictureCode = source.code;
    shared.finish();
}

ComponentDialogForm UIComponentPictureDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json, ComponentKinds::Picture,
                               projectData);
}

QString UIComponentPictureDialog::defaultCode()
{
    return QStringLiteral("return \"img/pictures/MyPicture.png\";");
}

void UIComponentPictureDialog::on_PictureType_whenChoiceChanges()
{
    source.followChoice();
}

void UIComponentPictureDialog::on_PictureCode_clicked()
{
    source.pickCode(this);
}

void UIComponentPictureDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    QJsonObject data;
    source.write(data);
    shared.writeDataObject(data);
    accept();
}

void UIComponentPictureDialog::on_cancelButton_clicked()
{
    reject();
}
