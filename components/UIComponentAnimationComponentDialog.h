#pragma once

#include "components/ComponentDialogForm.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class MyComboBox;
class MyGroupBox;

// The property dialog of an animation component: the shared form with the
// scale fields, and the box of the database animation and how it plays.
class UIComponentAnimationComponentDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentAnimationComponentDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                        QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }

    MyGroupBox* animationProperties;
    MyDialogOpener* AnimationID;
    MyComboBox* AnimationType;

    // The animation's index in the database that the dialog will write.
    int animationId = 1;

public slots:
    void on_AnimationID_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
};
