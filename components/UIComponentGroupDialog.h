#pragma once

#include "components/ComponentDialogForm.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

// The property dialog of a group: only the shared form, its size fixed at
// 50 and without rotation or opacity, since a group has nothing of its own
// but add-ons.
class UIComponentGroupDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentGroupDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }

public slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
};
