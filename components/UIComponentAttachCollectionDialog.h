#pragma once

#include "components/ComponentDialogForm.h"
#include "components/CustomHudFields.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>
#include <QString>

class MyComboBox;
class MyDialogOpener;
class MyGroupBox;
class UltimateTreeItem;

// The property dialog of an attach collection: the custom HUD the game
// draws once per object of a list, which list, where on the object the copy
// sits, what of the object the copy gets (with the notetag's name or the
// code that picks it), and the HUD's parameters.
class UIComponentAttachCollectionDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    // "Data" values with a field of their own.
    enum DataKind { Notetags = 3, CustomCode = 4 };

    UIComponentAttachCollectionDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                      QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }
    CustomHudFields* custom() { return &hud; }
    QString code() const { return codeText; }

    MyGroupBox* attachCollectionBox;
    MyGroupBox* groupBox_5;
    MyComboBox* CollectionType;
    MyComboBox* PositionType;
    MyComboBox* ListData;
    MyLineEdit* NotetagInput;
    MyDialogOpener* CodeInput;

public slots:
    void on_CustomComponent_clicked();
    void on_ListData_whenChoiceChanges();
    void on_CodeInput_clicked();
    void on_customParams_itemDoubleClicked(UltimateTreeItem* item, int column);
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
    CustomHudFields hud;
    QString codeText;
};
