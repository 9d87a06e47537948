#pragma once

#include "components/ComponentDialogForm.h"
#include "components/CustomHudFields.h"
#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class MyDialogOpener;
class MyEitherBox;
class MyGroupBox;
class UltimateTreeItem;

// The property dialog of a custom collection: the custom HUD it repeats,
// the list that gives each cell its data, the grid's rows, columns, spacing
// and alignment, and the HUD's parameters, which may take the cell's entry
// of the list. A grid that grows very large is confirmed only after a
// warning.
class UIComponentCustomCollectionDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentCustomCollectionDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                      QJsonObject* projectData);

    ComponentDialogForm* form() { return &shared; }
    CustomHudFields* custom() { return &hud; }

    // The warning for a grid of these fields, empty when there is none. The
    // rows go with the cell's width and the columns with its height, which
    // is how the game plugin's authors measure a collection.
    static QString massiveWarning(qint64 maxRows, qint64 maxColumns, qint64 width, qint64 height,
                                  qint64 horizontalSpacing, qint64 verticalSpacing);

    MyGroupBox* projectileCreation;
    MyGroupBox* groupBox_5;
    MyDialogOpener* ListData;
    MyLineEdit* MaxRows;
    MyLineEdit* MaxColumns;
    MyLineEdit* HorizontalSpacing;
    MyLineEdit* VerticalSpacing;
    MyEitherBox* HorizontalAlign;
    MyEitherBox* VerticalAlign;

public slots:
    void on_ListData_clicked();
    void on_CustomComponent_clicked();
    void on_customParams_itemDoubleClicked(UltimateTreeItem* item, int column);
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    ComponentDialogForm layOut(QJsonObject* json);
    // False when the user backed out of the warning.
    bool acceptsSize();

    QJsonObject* json;
    bool* accepted;
    ComponentDialogForm shared;
    CustomHudFields hud;
    QJsonObject listData;
};
