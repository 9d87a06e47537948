#pragma once

#include "components/ComponentDialogForm.h"
#include "components/ImageSourceFields.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class MyEitherBox;
class MyGroupBox;
class MyImageSelector;

// The property dialog of an icon: the shared form with the scale fields,
// and the box of the icon's index, the cell size, the icon set and the code
// that may give the set in the game.
class UIComponentIconDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentIconDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }

    MyGroupBox* pictureProperties;
    MyDialogOpener* IconIndex;
    MyLineEdit* IconSize;
    MyImageSelector* iconSet;
    MyEitherBox* IconSetType;
    MyDialogOpener* IconSetCode;

    // The dynamic number of the icon's index the dialog will write.
    QJsonObject iconIndex;

public slots:
    void on_IconIndex_clicked();
    void on_IconSetType_whenChoiceChanges();
    void on_IconSetCode_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
    ImageSourceFields source;
};
