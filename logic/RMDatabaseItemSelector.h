#pragma once

#include "logic/GameDataList.h"
#include "widgets/PickerDialog.h"

class MyDialogOpener;
class MyGroupBox;
class MyLineEdit;
class QJsonObject;
class UltimateTreeItem;
class UltimateTreeWidget;

// Picks a record of a database file ("Actors.json", "Items.json" and so on):
// one row per record from id 1 on, narrowed by a filter as the user types.
class RMDatabaseItemSelector : public PickerDialog
{
    Q_OBJECT
public:
    // id is read and, on confirmation, written; titleWord names the records
    // ("Actor") in the title and the box.
    RMDatabaseItemSelector(int* id, bool* accepted, QJsonObject* projectData, const QString& fileName,
                           const QString& titleWord, QWidget* parent);

    // Runs the selector for an opener of a dialog: on confirmation the id is
    // stored, the opener shows "[0001] name" and plays its confirmation.
    // The parent dims meanwhile.
    static bool pick(MyDialogOpener* opener, int* id, QJsonObject* projectData, const QString& fileName,
                     const QString& titleWord, QWidget* parent);

    UltimateTreeWidget* list() const { return dataList; }
    GameDataList* rowsOfList() const { return rows; }
    MyLineEdit* filterField() const { return filter; }

private slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();
    void on_dataList_itemDoubleClicked(UltimateTreeItem* item, int column);
    void whenFilterChanged(const QString& text);

protected:
    void firstShown() override;

private:
    int* id;
    QVector<GameDataList::Entry> entries;
    MyGroupBox* mainBox;
    MyLineEdit* filter;
    UltimateTreeWidget* dataList;
    GameDataList* rows;
};
