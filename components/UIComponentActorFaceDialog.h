#pragma once

#include "components/ComponentDialogForm.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class MyGroupBox;

// The property dialog of an actor's face: the shared form with the scale
// fields, and the actor whose face is shown.
class UIComponentActorFaceDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentActorFaceDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }

    MyGroupBox* pictureProperties;
    MyDialogOpener* ActorID;

    // The actor the dialog will write.
    QJsonObject actor;

public slots:
    void on_ActorID_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
};
