#pragma once

#include <QString>

class QWidget;

// The program's two kinds of message: an alert with one button, and the
// three-way save question.
//
// Layer on QMessageBox until the program's own alert and confirmation dialogs
// land; callers already use the outcomes those dialogs report.
namespace MessagePrompts {

enum SaveOutcome { Save = 0, DontSave = 1, Cancel = 2 };

void alert(QWidget* parent, const QString& title, const QString& text);

// Returns a SaveOutcome; closing the box by its frame or Escape is Cancel.
int askToSave(QWidget* parent, const QString& title, const QString& text);

// Yes/no question; true on yes.
bool confirm(QWidget* parent, const QString& title, const QString& text);

}
