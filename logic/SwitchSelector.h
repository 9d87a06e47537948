#pragma once

#include "logic/GameDataList.h"
#include "widgets/PickerDialog.h"

class MyDialogOpener;
class MyGroupBox;
class MyLineEdit;
class QJsonObject;
class UltimateTreeItem;
class UltimateTreeWidget;

// Picks a switch or a variable of the game. The ids stand in groups of
// twenty on the left and the entries of the chosen group on the right; a
// filter above narrows the entries of all groups at once.
class SwitchSelector : public PickerDialog
{
    Q_OBJECT
public:
    // id is read and, on confirmation, written.
    SwitchSelector(int* id, bool* accepted, QJsonObject* projectData, bool isSwitch, QWidget* parent);

    // Runs the selector for an opener of a dialog: on confirmation the id is
    // stored, the opener shows "[0001] name" and plays its confirmation.
    // The parent dims meanwhile.
    static bool pick(MyDialogOpener* opener, int* id, QJsonObject* projectData, bool isSwitch, QWidget* parent);

    // How many groups the list of this many entries (index 0 included) shows.
    static int groupCount(int arraySize);

    UltimateTreeWidget* groupList() const { return containerList; }
    UltimateTreeWidget* entryList() const { return varList; }
    MyLineEdit* filterField() const { return filter; }
    GameDataList* rowsOfEntries() const { return entryRows; }

private slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();
    void on_containerList_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem* previous);
    void on_varList_itemDoubleClicked(UltimateTreeItem* item, int column);
    void whenFilterChanged(const QString& text);

protected:
    void firstShown() override;

private:
    // The group list shows again, on the group of the id.
    void showGroups(int selectedId);

    int* id;
    // Every id of the shown groups, in order; group g holds 20 g to 20 g + 19.
    QVector<GameDataList::Entry> entries;
    QVector<GameDataList::Entry> groupEntries;
    MyGroupBox* varSelectBox;
    MyLineEdit* filter;
    UltimateTreeWidget* containerList;
    UltimateTreeWidget* varList;
    GameDataList* groupRows;
    GameDataList* entryRows;
    // The entry to select when a group is chosen: the one the dialog opened
    // on, or the one chosen while filtering.
    int keptId = 0;
    bool filtering = false;
};
