#pragma once

#include "widgets/TrovDialog.h"

#include <QJsonObject>
#include <QVector>

class CustomTitleBar;
class GameUIEditorSceneHelperBase;
class MyButton;
class MyGroupBox;
class QPushButton;

// The dialog in which the user picks the kind of a new component. A kind's
// button opens that kind's property dialog on a new object; once that is
// confirmed the object is the caller's and the selector closes. Cancelling
// the property dialog comes back here, so another kind can be picked.
class VelmoUISelector : public TrovDialog
{
    Q_OBJECT
public:
    // json receives the new component, accepted whether there is one. id is
    // the highest id in use; the new component takes the next. helper opens
    // the property dialogs; without one the component registry's own does.
    VelmoUISelector(QJsonObject* json, bool* accepted, int id, bool flag, QJsonObject* projectData,
                    TrovDialog* parentDialog, GameUIEditorSceneHelperBase* helper = nullptr);

    CustomTitleBar* titleBar;
    MyGroupBox* groupBox_2;
    MyGroupBox* proCompsBox;
    QPushButton* text;
    QPushButton* shape;
    QPushButton* picture;
    QPushButton* repeatingPicture;
    QPushButton* gauge;
    QPushButton* pictureGauge;
    QPushButton* container;
    QPushButton* window;
    QPushButton* actorFace;
    QPushButton* icon;
    QPushButton* custom;
    QPushButton* customCollection;
    QPushButton* attachCollection;
    QPushButton* animation;
    MyButton* cancelButton;

public slots:
    void on_cancelButton_clicked();
    void whenCreateButtonClicked();

private:
    QJsonObject* json;
    bool* accepted;
    int id;
    bool flag;
    QJsonObject* projectData;
    GameUIEditorSceneHelperBase* helper;
    // The fourteen buttons by "Type".
    QVector<QPushButton*> kindButtons;
};
