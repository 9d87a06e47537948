#pragma once

#include "components/ComponentDialogForm.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>
#include <QString>

class MyColorPickerButton;
class MyComboBox;
class MyGroupBox;

// The property dialog of a text: the shared form with the scale fields, and
// the box of the text's value, font, outline, alignment, width and colours.
class UIComponentTextDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentTextDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }

    MyGroupBox* projectileCreation;
    MyDialogOpener* Text;
    MyDialogOpener* FontFamily;
    MyLineEdit* FontSize;
    MyLineEdit* OutlineSize;
    MyLineEdit* OutlineOpacity;
    MyComboBox* Alignment;
    MyLineEdit* Maximum_Width;
    MyColorPickerButton* Text_Color;
    MyColorPickerButton* Outline_Color;

    // The dynamic text and the font file the dialog will write.
    QJsonObject text;
    QString fontFamily;

public slots:
    void on_Text_clicked();
    void on_FontFamily_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
};
