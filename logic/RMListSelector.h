#pragma once

#include "logic/TypeTabDialog.h"

#include <QJsonObject>
#include <QVector>

class MyComboBox;
class MyDialogOpener;
class MyLineEdit;

// "List Input": a list value, which tells the game how to build a list at
// run time: a range of numbers or of variables, the party's members, the
// inventory, an actor's or an enemy's skills, states and the like, two
// lists one after the other, or a piece of code. One tab per kind in two
// rows; the tab's index is the value's "Type", and confirming writes a new
// object with that "Type" and only that kind's keys.
class RMListSelector : public TypeTabDialog
{
    Q_OBJECT
public:
    // object is read and, on confirmation, replaced by a new value.
    RMListSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent);

    // Runs the list input for the opener of a field, with the parent dimmed:
    // on confirmation value is replaced, the opener shows its text (never in
    // italics) and plays its confirmation.
    static bool pick(MyDialogOpener* opener, QJsonObject* value, QJsonObject* projectData, QWidget* parent);
    // What an opener of a list value shows.
    static void showList(MyDialogOpener* opener, const QJsonObject& value, const QJsonObject* projectData);

    // "Data" of an actor's or an enemy's list from the first choice and the
    // row of the combo that depends on it.
    static int battlerData(int first, int row);

    // The working copies of the two combined lists.
    QJsonObject firstList() const { return list1; }
    QJsonObject secondList() const { return list2; }

public slots:
    void on_BasicData_whenChoiceChanges();
    void on_StartVariable_clicked();
    void on_EndVariable_clicked();
    void on_ItemData_whenChoiceChanges();
    void on_ActorData1_whenChoiceChanges();
    void on_EnemyData1_whenChoiceChanges();
    void on_StartList_clicked();
    void on_EndList_clicked();
    void on_Code_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    // The fields of an actor's or an enemy's page, which are twins.
    struct Battler {
        MyLineEdit* index;
        MyComboBox* first;
        MyComboBox* kinds;
        MyComboBox* states;
        MyComboBox* params;
        MyLineEdit* note;
    };

    QWidget* page(const QVector<QWidget*>& fields);
    MyLineEdit* lineEdit(const char* name, const QString& caption, const QString& hint, bool integer);
    MyComboBox* comboBox(const char* name, const QString& caption, const QString& hint,
                         const QVector<const char*>& rows);
    Battler battler(bool actor);
    void buildPages();
    void read();
    void readBattler(const Battler& fields, const QJsonObject& value);
    void writeBattler(const Battler& fields, QJsonObject& value) const;
    void showBattler(const Battler& fields);
    void showOpeners();
    void updateConfirm();
    QJsonObject result() const;

    QJsonObject* object;
    QJsonObject* projectData;
    int startVariable = 1;
    int endVariable = 2;
    QJsonObject list1{{QStringLiteral("Type"), 0}, {QStringLiteral("Start"), 0}, {QStringLiteral("End"), 1}};
    QJsonObject list2{{QStringLiteral("Type"), 0}, {QStringLiteral("Start"), 2}, {QStringLiteral("End"), 3}};
    QString code = QStringLiteral("return [];");

    MyLineEdit* minNumber;
    MyLineEdit* maxNumber;
    MyDialogOpener* startVariableField;
    MyDialogOpener* endVariableField;
    MyComboBox* memberType;
    MyComboBox* basicData;
    MyComboBox* positionType;
    MyLineEdit* basicNote;
    MyComboBox* itemType;
    MyComboBox* itemData;
    MyLineEdit* itemNote;
    Battler actor;
    Battler enemy;
    MyDialogOpener* startList;
    MyDialogOpener* endList;
    MyDialogOpener* codeField;
};
