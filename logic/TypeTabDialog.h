#pragma once

#include "widgets/PickerDialog.h"

class MyDialogOpener;
class MyLineEdit;
class MyTabSystem;

// The frame of the small dialogs whose value is one of several kinds: one
// tab per kind, in the order of the kinds' "Type", each page holding the
// field of that kind, over the confirm and cancel buttons. The kind is the
// current tab.
class TypeTabDialog : public PickerDialog
{
    Q_OBJECT
public:
    MyTabSystem* tabs() const { return tabSystem; }
    // The "Type" the current tab stands for.
    int currentType() const;

protected:
    TypeTabDialog(bool* accepted, QWidget* parent);

    // The next kind's tab, with its field on the page.
    void addTypePage(const QString& label, QWidget* field);
    // An opener of a page, with its caption and its tool tip.
    MyDialogOpener* makeOpener(const char* objectName, const QString& caption, const QString& hint);
    // Adds the buttons (a leading one on the left of the row), connects the
    // slots by name, opens on the tab of a kind (the first for an unknown
    // one) and settles the width, and the height when given.
    void finishTabs(const QString& title, int type, int width, int height = 0, QWidget* leadingButton = nullptr);

private:
    MyTabSystem* tabSystem;
};
