#pragma once

#include "widgets/PickerDialog.h"

#include <QSize>

class HaxeCodeEdit;
class MyDialogOpener;
class MyGroupBox;
class QPushButton;
struct QMetaObject;

// Takes a piece of JavaScript in the code input. The dialog comes in four
// sizes that the size button runs through; each kind of dialog that opens it
// keeps its own last size for the rest of the run.
class RMCodeInput : public PickerDialog
{
    Q_OBJECT
public:
    static const int SizeCount = 4;
    // A code dialog that fits its screen leaves out the sizes taller than
    // this on a lower screen.
    static const int TallSizeScreenHeight = 800;

    // code is read and, on confirmation, written (a null code starts empty
    // and leaves the result to keepCode); sizeIndex is the caller's
    // remembered size (0 to 3), read at opening and written on every change.
    // The title is "Text Input Code" unless the caller sets another.
    RMCodeInput(QString* code, bool* accepted, int* sizeIndex, QWidget* parent);

    // Runs the dialog for an opener of a dialog: on confirmation the code is
    // stored, the opener shows it on one line and plays its confirmation.
    // The parent dims meanwhile; the size is the one remembered for the
    // parent's class.
    static bool pick(MyDialogOpener* opener, QString* code, QWidget* parent);

    // The remembered size index of a kind of dialog, starting at 0 ("Small").
    static int* sizeIndexOf(const QMetaObject* dialogClass);
    // "Small", "Medium", "Large", "Massive" and their sizes.
    static QString sizeName(int index);
    static QSize sizeAt(int index);
    // The size after index: wraps after the last, and after "Large" when
    // fitting a screen lower than TallSizeScreenHeight.
    static int nextSizeIndex(int index, bool fitScreen, int screenHeight);
    // Code on one line, each line feed shown as " ⏎ ".
    static QString singleLine(const QString& code);

    // The code dialog of a condition fits its screen. A screenHeight of 0
    // reads the screen under the dialog whenever the size changes.
    void setScreenFit(bool on, int screenHeight = 0);
    int currentSizeIndex() const { return *sizeIndex; }

    HaxeCodeEdit* editor() const { return code; }
    QPushButton* sizeToggle() const { return sizeButton; }

private slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();
    void on_sizeButton_clicked();

protected:
    void firstShown() override;
    // Where confirmed code goes: the caller's string unless a dialog that
    // holds its code elsewhere takes it.
    virtual void keepCode(const QString& text);

private:
    int screenHeight() const;
    void applySize();

    QString* target;
    int* sizeIndex;
    int ownSizeIndex = 0;
    bool fitScreen = false;
    int givenScreenHeight = 0;
    MyGroupBox* groupBox;
    HaxeCodeEdit* code;
    QPushButton* sizeButton;
};
