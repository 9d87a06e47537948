#pragma once

#include "components/ComponentDialogForm.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class MyGroupBox;
class MyImageSelector;

// The property dialog of a window: the shared form with the window's size,
// and the box of its skin, padding, margin and background opacity. The size
// it writes is never below what the padding and the margin need.
class UIComponentWindowDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentWindowDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }

    MyGroupBox* windowProperties;
    MyImageSelector* windowSkin;
    MyLineEdit* Padding;
    MyLineEdit* Margin;
    MyLineEdit* BackgroundOpacity;

public slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
};
