#pragma once

#include "components/ComponentDialogForm.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class MyColorPickerButton;
class MyDialogOpener;
class MyGroupBox;

// The property dialog of a gauge: the shared form with its size, and the
// box of the outline, the change duration, the synchronised text, the
// colours and the dynamic value and maximum.
class UIComponentGaugeDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentGaugeDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }

    // The dynamic value and maximum a gauge's dialog of either kind opens
    // on: those of the data object, or, for none, the first party member's
    // HP against its maximum HP.
    static QJsonObject valueOf(const QJsonObject& data);
    static QJsonObject maximumOf(const QJsonObject& data);

    MyGroupBox* projectileCreation;
    MyLineEdit* OutlineSize;
    MyLineEdit* OutlineOpacity;
    MyLineEdit* ChangeDuration;
    MyLineEdit* SyncTextComponent;
    MyColorPickerButton* Color1;
    MyColorPickerButton* Color2;
    MyColorPickerButton* Background_Color;
    MyColorPickerButton* Outline_Color;
    MyDialogOpener* Gauge_Value;
    MyDialogOpener* Gauge_Maximum;

    // The dynamic numbers the dialog will write.
    QJsonObject value;
    QJsonObject maximum;

public slots:
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
