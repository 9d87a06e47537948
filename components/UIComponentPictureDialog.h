#pragma once

#include "components/ComponentDialogForm.h"
#include "components/ImageSourceFields.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class MyEitherBox;
class MyGroupBox;
class MyImageSelector;

// The property dialog of a picture: the shared form with the scale fields,
// and the box of the picture and the code that may give it in the game.
class UIComponentPictureDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentPictureDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }
    // What the code field holds until code is written, for both picture kinds.
    static QString defaultCode();

    MyGroupBox* pictureProperties;
    MyImageSelector* picture;
    MyEitherBox* PictureType;
    MyDialogOpener* PictureCode;

public slots:
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
};
