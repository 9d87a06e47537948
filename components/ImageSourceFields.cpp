#include "components/ImageSourceFields.h"

#include "components/ProjectImages.h"
#include "logic/RMCodeInput.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyImageSelector.h"

#include <QGridLayout>

namespace {

void describe(QGridLayout* grid, QWidget* field, const char* objectName, ComponentDialogForm::Label label, int row,
              int column, int columnSpan)
{
    field->setObjectName(QLatin1String(objectName));
    field->setProperty("mtt_title", label.title ? UIComponentBaseDialog::tr(label.title) : QString());
    field->setProperty("mtt_desc", UIComponentBaseDialog::tr(label.description));
    field->setMinimumWidth(150);
    grid->addWidget(field, row, column, 1, columnSpan);
}

}

void ImageSourceFields::build(ComponentDialogForm& form, UIComponentBaseDialog* dialog, int graphicsKind, Names names,
                              const Texts& texts, const QJsonObject& data, const char* key,
                              const QString& defaultImage, const QString& defaultCode, int imageRow)
{
    imageKey = key;
    QGridLayout* grid = form.propertyGrid();
    QWidget* box = grid->parentWidget();

    image = new MyImageSelector(box);
    describe(grid, image, names.image, texts.image, imageRow, 0, 2);
    if (texts.image.title)
        image->setCaption(UIComponentBaseDialog::tr(texts.image.title));
    image->setParentDialog(dialog);
    image->setFolder(ProjectImages::folder(graphicsKind));
    image->setImage(data.value(QLatin1String(key)).toString(defaultImage));

    const bool fixed = !data.contains(QStringLiteral("Code"));
    type = new MyEitherBox(box);
    describe(grid, type, names.type, texts.type, imageRow + 1, 0, 1);
    type->setPlaceholder(UIComponentBaseDialog::tr(texts.type.title));
    type->setChoices(UIComponentBaseDialog::tr(texts.fixedChoice), UIComponentBaseDialog::tr("Custom Code"));
    type->setChoice(fixed, true);

    codeText = data.value(QStringLiteral("Code")).toString(defaultCode);
    code = new MyDialogOpener(box);
    describe(grid, code, names.code, texts.code, imageRow + 1, 1, 1);
    code->setTitle(UIComponentBaseDialog::tr(texts.code.title));
    code->setValue(RMCodeInput::singleLine(codeText));
    followChoice();
}

void ImageSourceFields::followChoice()
{
    code->setEnabled(!type->choice());
}

bool ImageSourceFields::pickCode(QWidget* dialog)
{
    return RMCodeInput::pick(code, &codeText, dialog);
}

void ImageSourceFields::write(QJsonObject& data) const
{
    data.insert(QLatin1String(imageKey), image->image());
    if (!type->choice())
        data.insert(QStringLiteral("Code"), codeText);
}
