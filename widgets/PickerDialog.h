#pragma once

#include "widgets/TrovDialog.h"

class QBoxLayout;
class QPushButton;
class QVBoxLayout;

// The frame the picker dialogs share: the title bar over a content area, a
// confirm and a cancel button in the theme's colours, and the caller's bool
// that tells whether the choice was confirmed. Nothing the caller handed in
// changes unless the dialog is confirmed.
class PickerDialog : public TrovDialog
{
    Q_OBJECT
public:
    QPushButton* confirmButton() const { return confirm; }
    QPushButton* cancelButton() const { return cancel; }

protected:
    PickerDialog(bool* accepted, QWidget* parent);

    // Adds the row of the two buttons to a layout of the content area.
    void addButtons(QBoxLayout* layout);
    // Centres, names and sizes the dialog once its form stands; an empty
    // size takes what the form asks for.
    void finish(const QString& title, const QSize& size = QSize());
    // Marks the choice confirmed and closes.
    void acceptChoice();

    QWidget* content;
    QVBoxLayout* contentLayout;

private:
    CustomTitleBar* bar;
    QPushButton* confirm = nullptr;
    QPushButton* cancel = nullptr;
    bool* accepted;
};
