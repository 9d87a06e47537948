#pragma once

#include "widgets/PickerDialog.h"

#include <QString>

class MyComboBox;
class MyDialogOpener;
class QJsonObject;

// The frame of the two code add-ons: a choice of what the code is for over
// the opener of the code, the confirm and the cancel button.
class CodeAddonDialog : public PickerDialog
{
    Q_OBJECT
public:
    MyComboBox* choice() const { return combo; }
    MyDialogOpener* code() const { return Code; }
    QString codeText() const { return text; }

protected:
    CodeAddonDialog(QJsonObject* object, bool* accepted, QWidget* parent);

    // The choice with its name, caption and hint, and the code opener.
    void addFields(const char* choiceName, const QString& caption, const QString& title, const QString& hint);
    void setCode(const QString& code);
    // Connects the slots by name and settles the dialog.
    void finishForm(const QString& title);
    // The result: the add-on's kind, the choice under its key, the code.
    void confirmAs(int type, const char* choiceKey, int value);

    QJsonObject* object;

private slots:
    void on_Code_clicked();
    void on_cancelButton_clicked();

private:
    QString text;
    MyComboBox* combo = nullptr;
    MyDialogOpener* Code = nullptr;
};
