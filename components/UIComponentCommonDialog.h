#pragma once

#include "components/ComponentDialogForm.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

// Layer until each kind has a property dialog of its own: the dialog of
// every kind with the fields that all kinds share (name, display
// conditions, position, scale or size, rotation, opacity, animations,
// custom properties). The kind's own data object and every key the dialog
// doesn't show are kept as they are, so that any component can be renamed,
// moved and made transparent before its kind's dialog exists.
class UIComponentCommonDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentCommonDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

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
