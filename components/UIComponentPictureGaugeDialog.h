#pragma once

#include "components/ComponentDialogForm.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class MyDialogOpener;
class MyGroupBox;
class MyImageSelector;

// The property dialog of a picture gauge: the shared form with its width
// (the height follows the skin), and the box of the skin, the edge margin,
// the change duration, the synchronised text and the dynamic value and
// maximum.
class UIComponentPictureGaugeDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentPictureGaugeDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                  QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }

    MyGroupBox* windowProperties;
    MyImageSelector* gaugeSkin;
    MyLineEdit* Edge_Margin;
    MyLineEdit* ChangeDuration;
    MyLineEdit* SyncTextComponent;
    MyDialogOpener* Gauge_Value;
    MyDialogOpener* Gauge_Maximum;

    // The dynamic numbers the dialog will write.
    QJsonObject value;
    QJsonObject maximum;

public slots:
    void on_gaugeSkin_imageChanged(const QString& name);
    void on_Gauge_Value_clicked();
    void on_Gauge_Maximum_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
};
