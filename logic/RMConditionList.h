#pragma once

#include "widgets/PickerDialog.h"

#include <QJsonArray>
#include <QPoint>

class MyDialogOpener;
class QJsonObject;
class QMenu;
class UltimateTreeItem;
class UltimateTreeWidget;

// "RPG Maker Condition List": the conditions of a component, an add-on or
// an animation, one row each with its one-line text. Rows are added through
// the chooser, edited in their kind's dialog, moved by dragging, and copied,
// cut and pasted between lists under "RMCONDITION". The caller's array
// changes only when the list is confirmed. An entry the program can't edit
// (an unknown kind, something that isn't an object) keeps its row and comes
// back as it was.
class RMConditionList : public PickerDialog
{
    Q_OBJECT
public:
    RMConditionList(QJsonArray* array, bool* accepted, QJsonObject* projectData, QWidget* parent);

    // Runs the list for the opener of a dialog: on confirmation the array is
    // replaced, the opener shows it and plays its confirmation. The parent
    // dims meanwhile.
    static bool open(MyDialogOpener* opener, QJsonArray* array, QWidget* parent, QJsonObject* projectData);
    // Makes every opener of conditions run this list and show its text, with
    // the names of projectData; null takes the hooks away.
    static void install(QJsonObject* projectData);

    UltimateTreeWidget* list() const { return conditions; }
    QMenu* contextMenu() const { return menu; }
    // The list's entries as they stand, in row order.
    QJsonArray entries() const;

public slots:
    void createNewCondition();
    void editCondition();
    void deleteCondition();
    void on_conditions_itemDoubleClicked(UltimateTreeItem* item, int column);
    void on_conditions_customContextMenuRequested(const QPoint& pos);
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    void addEntry(const QJsonValue& entry);

    QJsonArray* array;
    QJsonObject* projectData;
    UltimateTreeWidget* conditions;
    QMenu* menu;
};
