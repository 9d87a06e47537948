#pragma once

#include "widgets/PickerDialog.h"

class MyComboBox;
class QLabel;
class UltimateTreeItem;
class UltimateTreeWidget;

// Chooses an easing curve, stored as one integer: 0 is linear, and from 1 on
// the curves come in threes, ease-in, ease-out and ease-in/out of one kind
// each (1 to 3 quadratic, 4 to 6 cubic, ... 28 to 30 bounce).
class EasingCurveSelector : public PickerDialog
{
    Q_OBJECT
public:
    // value is changed only when the dialog is confirmed.
    EasingCurveSelector(int* value, bool* accepted, QWidget* parent = nullptr);

    // The name of a value, "Linear" or "<kind> <direction>" such as
    // "Quadratic Ease-In"; empty for a value past the last kind.
    static QString display(int value);

    UltimateTreeWidget* list() const { return myList; }
    MyComboBox* easingType() const { return Easing; }

private slots:
    void on_myList_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem* previous);
    void on_myList_itemDoubleClicked(UltimateTreeItem* item, int column);
    void on_Easing_whenChoiceChanges();
    void on_confirmButton_clicked();

private:
    // The value the form stands on; -1 when no kind is chosen.
    int chosenValue() const;
    void showCurve();

    int* value;
    UltimateTreeWidget* myList;
    QWidget* listHeader;
    QLabel* titleLabel;
    MyComboBox* Easing;
    QWidget* curve;
};
