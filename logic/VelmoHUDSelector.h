#pragma once

#include "widgets/PickerDialog.h"

#include <QStringList>

class MyDialogOpener;
class UltimateTreeItem;
class UltimateTreeWidget;

// "HUD Selector": picks a HUD, or in the mode for custom components one of
// the reusable custom HUD objects, by the reference the document stores
// ("M", "B" or an "ID"; empty for "None"). The rows come from the main
// window's HUD list (HudCatalog).
class VelmoHUDSelector : public PickerDialog
{
    Q_OBJECT
public:
    enum Mode { Huds = 0, CustomComponents = 1 };

    // identifier is read and, on confirmation, written.
    VelmoHUDSelector(QString* identifier, bool* confirmed, int mode, QWidget* parent);

    // Runs the selector for the opener of a dialog, with the parent dimmed:
    // on confirmation the identifier is stored and the opener shows the
    // HUD's name and plays its confirmation.
    static bool pick(MyDialogOpener* opener, QString* identifier, int mode, QWidget* parent);

    UltimateTreeWidget* list() const { return myList; }

public slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();
    void on_myList_itemDoubleClicked(UltimateTreeItem* item, int column);
    void on_myList_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem* previous);

private:
    QString* identifier;
    // The identifier of each row but "None", by the row's id.
    QStringList identifiers;
    UltimateTreeWidget* myList;
};
