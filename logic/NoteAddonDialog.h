#pragma once

#include "widgets/PickerDialog.h"

class MyPlainTextEdit;
class QJsonObject;

// "Notebox Input": a note for the developer, kept with the component and
// gathered into its "Note".
class NoteAddonDialog : public PickerDialog
{
    Q_OBJECT
public:
    NoteAddonDialog(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities,
                    QWidget* parent);

    MyPlainTextEdit* note() const { return Note; }

private slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    QJsonObject* object;
    MyPlainTextEdit* Note;
};
