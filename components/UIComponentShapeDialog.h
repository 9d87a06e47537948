#pragma once

#include "components/ComponentDialogForm.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class MyColorPickerButton;
class MyComboBox;
class MyGroupBox;

// The property dialog of a shape: the shared form, its size among the
// shared fields, and the box of the shape's kind, outline and colours.
class UIComponentShapeDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentShapeDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }

    MyGroupBox* projectileCreation;
    MyComboBox* Shape_Type;
    MyLineEdit* OutlineSize;
    MyLineEdit* OutlineOpacity;
    MyColorPickerButton* Shape_Color;
    MyColorPickerButton* Outline_Color;

public slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
};
