#pragma once

#include "logic/TypeTabDialog.h"

#include <QString>

class MyDialogOpener;
class QJsonObject;

// "Click Addon Setup": a common event or a piece of code run when the
// component is clicked.
class ClickAddonDialog : public TypeTabDialog
{
    Q_OBJECT
public:
    ClickAddonDialog(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities,
                     QWidget* parent);

    MyDialogOpener* commonEvent() const { return CommonEvent; }
    MyDialogOpener* code() const { return Code; }

private slots:
    void on_CommonEvent_clicked();
    void on_Code_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    QJsonObject* object;
    QJsonObject* projectData;
    int eventId = 1;
    QString codeText;
    MyDialogOpener* CommonEvent;
    MyDialogOpener* Code;
};
