#pragma once

#include "components/ComponentDialogForm.h"
#include "components/ImageSourceFields.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class MyEitherBox;
class MyGroupBox;
class MyImageSelector;

// The property dialog of a repeating picture: the shared form with the
// box's size, and the box of the tiled picture, the code that may give it
// in the game and the pattern's offsets. A new repeating picture takes the
// size of the first picture chosen for it.
class UIComponentRepeatDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentRepeatDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }

    MyGroupBox* pictureProperties;
    MyImageSelector* picture;
    MyEitherBox* PictureType;
    MyDialogOpener* PictureCode;
    MyLineEdit* X_Offset;
    MyLineEdit* Y_Offset;

public slots:
    void on_picture_imageChanged(const QString& path);
    void on_PictureType_whenChoiceChanges();
    void on_PictureCode_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
    ImageSourceFields source;
    // No size yet: the first picture chosen gives it.
    bool sizeFromPicture;
};
