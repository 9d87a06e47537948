#pragma once

#include "components/ComponentDialogForm.h"
#include "components/CustomHudFields.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class MyGroupBox;
class UltimateTreeItem;

// The property dialog of a custom component: which custom HUD it places and
// the values of that HUD's parameters, above the shared form, whose size
// fields show the HUD's size.
class UIComponentCustomDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentCustomDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }
    CustomHudFields* custom() { return &hud; }

    MyGroupBox* projectileCreation;
    MyGroupBox* groupBox_5;

public slots:
    void on_CustomComponent_clicked();
    void on_customParams_itemDoubleClicked(UltimateTreeItem* item, int column);
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
    CustomHudFields hud;
};
