#pragma once

#include "logic/TypeTabDialog.h"

#include <QString>

class MyDialogOpener;
class QJsonObject;

// "Hover Addon Setup": what happens while the pointer is over the component:
// a common event on hover or on leave, a switch bound to the hover, or code.
// Each tab keeps its own choice until confirmation, which writes only the
// selected tab's.
class HoverAddonDialog : public TypeTabDialog
{
    Q_OBJECT
public:
    HoverAddonDialog(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities,
                     QWidget* parent);

    MyDialogOpener* commonEvent() const { return CommonEvent; }
    MyDialogOpener* commonEventLeave() const { return CommonEventLeave; }
    MyDialogOpener* switchField() const { return Switch; }
    MyDialogOpener* code() const { return Code; }

private slots:
    void on_CommonEvent_clicked();
    void on_CommonEventLeave_clicked();
    void on_Switch_clicked();
    void on_Code_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    QJsonObject* object;
    QJsonObject* projectData;
    int hoverEvent = 1;
    int leaveEvent = 1;
    int switchId = 1;
    QString codeText;
    MyDialogOpener* CommonEvent;
    MyDialogOpener* CommonEventLeave;
    MyDialogOpener* Switch;
    MyDialogOpener* Code;
};
