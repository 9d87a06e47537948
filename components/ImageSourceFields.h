#pragma once

#include "components/ComponentDialogForm.h"

#include <QJsonObject>
#include <QString>

class MyDialogOpener;
class MyEitherBox;
class MyImageSelector;
class QWidget;
class UIComponentBaseDialog;

// The fields of a dialog whose component shows one project image that the
// game may take from a piece of code instead: the image, the choice between
// the fixed image and the code, and the code, which only the code choice
// enables. The code is written only while that choice stands, so switching
// back to the fixed image drops it.
class ImageSourceFields
{
public:
    struct Names {
        const char* image;
        const char* type;
        const char* code;
    };
    struct Texts {
        // Without a title the image field has no caption.
        ComponentDialogForm::Label image;
        ComponentDialogForm::Label type;
        const char* fixedChoice;
        ComponentDialogForm::Label code;
    };

    // Builds the fields into the form's property box: the image across both
    // columns at imageRow, the choice and the code side by side on the row
    // below. data is the data object as the dialog opened it; a missing
    // imageKey shows defaultImage, a missing "Code" the fixed choice and
    // defaultCode.
    void build(ComponentDialogForm& form, UIComponentBaseDialog* dialog, int graphicsKind, Names names,
               const Texts& texts, const QJsonObject& data, const char* imageKey, const QString& defaultImage,
               const QString& defaultCode, int imageRow);

    // The code field follows the choice.
    void followChoice();
    // Runs the code input on the code; true when confirmed.
    bool pickCode(QWidget* dialog);
    // The image key always, "Code" only in the code choice.
    void write(QJsonObject& data) const;

    MyImageSelector* image = nullptr;
    MyEitherBox* type = nullptr;
    MyDialogOpener* code = nullptr;
    QString codeText;

private:
    const char* imageKey = "";
};
