#pragma once

#include "logic/TypeTabDialog.h"

#include <QJsonArray>
#include <QJsonObject>

class MyComboBox;
class MyDialogOpener;

// "Animation Run Type": when an animation runs. By a basic rule ("Type" 0,
// "RunType"), while a switch is on (1, "ID"), while a piece of code says so
// (2, "Code"), or while a list of conditions holds (3, "Conditions").
class VelmoAnimationStyle : public TypeTabDialog
{
    Q_OBJECT
public:
    enum Type { Basic = 0, Switch = 1, Code = 2, Other = 3 };
    enum RunType { Manual = 0, OnCreate = 1, OnShowHide = 2, OnHoverUnhover = 3, OnClickRelease = 4 };
    static const int RunTypeCount = 5;

    // object is read and, on confirmation, replaced.
    VelmoAnimationStyle(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent);

    // Makes the property animation dialog open and show its run type here,
    // reading switch names from projectData; null takes the hooks away.
    static void install(QJsonObject* projectData);

    // The one-line text of a run-type object: the run type's name,
    // "Switch: [0004]", "Code: ..." or "3 Other Conditions".
    static QString display(const QJsonObject& object);
    // "Manual", "On Create", "On Show/Hide", "On Hover/Unhover", "On Click/Release".
    static QString runTypeName(int runType);

    MyComboBox* basic() const { return BasicField; }
    MyDialogOpener* switchOpener() const { return SwitchField; }
    MyDialogOpener* code() const { return CodeField; }
    MyDialogOpener* other() const { return OtherField; }
    const QJsonArray& conditions() const { return otherConditions; }

private slots:
    void on_Switch_clicked();
    void on_Code_clicked();
    void on_Other_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    void showOtherConditions();

    QJsonObject* object;
    QJsonObject* projectData;
    int switchId = 1;
    QString codeText;
    QJsonArray otherConditions;
    MyComboBox* BasicField;
    MyDialogOpener* SwitchField;
    MyDialogOpener* CodeField;
    MyDialogOpener* OtherField;
};
