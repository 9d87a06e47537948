#pragma once

#include "logic/TypeTabDialog.h"
#include "widgets/OwnerDimming.h"

#include <QJsonObject>
#include <QVector>

class MyComboBox;
class MyDialogOpener;
class MyEitherBox;
class MyLineEdit;

// The dialog behind "Dynamic Text Input" and "Dynamic Number Input": ten
// kinds of value in two rows of tabs, from a plain value to a switch, an
// actor's data, a piece of code, math on two numbers or an operation on a
// list. Confirming writes a new object with the "Type" of the current tab
// and only that kind's keys. The text and the number dialog differ in the
// plain value, the switch's two values, the rows of the info tables that
// only a text has, and the default code.
class DynamicValueSelector : public TypeTabDialog
{
    Q_OBJECT
public:
    // The "Type" each tab stands for, in the tabs' public order (the top
    // row first), and the tab of a "Type"; an unknown "Type" opens the first.
    static int typeOfTab(int tab);
    static int tabOfType(int type);

    // Installs the hooks through which the component dialogs open and show
    // dynamic values, reading the game data from projectData (which may be
    // null, which removes them).
    static void install(QJsonObject* projectData);

    bool isNumeric() const { return numeric; }
    // The working copies of the nested values.
    QJsonObject firstNumber() const { return firstNum; }
    QJsonObject secondNumber() const { return secondNum; }
    QJsonObject listValue() const { return listData; }

protected:
    DynamicValueSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, bool numeric,
                         QWidget* parent);

    // Runs a dialog of the kind on a copy of a field's value, with the
    // parent dimmed; on confirmation the value is replaced, the opener shows
    // it and plays its confirmation.
    template <class Dialog>
    static bool pickWith(MyDialogOpener* opener, QJsonObject* value, QJsonObject* projectData, QWidget* parent)
    {
        QJsonObject copy = *value;
        bool accepted = false;
        OwnerDimming::dim(parent);
        Dialog(&copy, &accepted, projectData, parent).exec();
        OwnerDimming::undim(parent);
        if (accepted)
            picked(opener, value, copy, projectData, Dialog::Numeric);
        return accepted;
    }

private slots:
    void on_Switch_clicked();
    void on_Variable_clicked();
    void on_Section_whenChoiceChanges();
    void on_Inventory_whenChoiceChanges();
    void on_ActorType_whenChoiceChanges();
    void on_EnemyType_whenChoiceChanges();
    void on_DatabaseActors_clicked();
    void on_DatabaseEnemies_clicked();
    void on_ItemCount_clicked();
    void on_WeaponCount_clicked();
    void on_ArmorCount_clicked();
    void on_Code_clicked();
    void on_List_clicked();
    void on_FirstMath_clicked();
    void on_SecondMath_clicked();
    void on_MathOperator_whenChoiceChanges();
    void on_ListOperator_whenChoiceChanges();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    static void picked(MyDialogOpener* opener, QJsonObject* value, const QJsonObject& result,
                       QJsonObject* projectData, bool numeric);

    // The pages, each a row of fields; narrow, when given, keeps to the
    // width of an operator.
    QWidget* page(const QVector<QWidget*>& fields, QWidget* narrow = nullptr);
    MyLineEdit* lineEdit(const char* name, const QString& caption, const QString& hint, bool integer);
    MyComboBox* comboBox(const char* name, const QString& caption, const QString& hint);
    MyEitherBox* eitherBox(const char* name, const QString& caption, const QString& hint, const QString& first,
                           const QString& second);
    void buildPages();
    void setUpFields();
    void read();
    void showPickers();
    // The confirm button holds while a number field of the current page is
    // out of its range.
    void updateConfirm();
    QJsonObject result() const;

    QJsonObject* object;
    QJsonObject* projectData;
    bool numeric;
    QJsonObject firstNum{{QStringLiteral("Type"), 0}, {QStringLiteral("Number"), 0}};
    QJsonObject secondNum{{QStringLiteral("Type"), 0}, {QStringLiteral("Number"), 0}};
    QJsonObject listData{{QStringLiteral("Type"), 0}, {QStringLiteral("Start"), 0}, {QStringLiteral("End"), 1}};
    int switchId = 1;
    int variableId = 1;
    int actorId = 1;
    int enemyId = 1;
    int itemId = 1;
    int weaponId = 1;
    int armorId = 1;
    QString code;

    MyLineEdit* plain;
    MyComboBox* section;
    MyComboBox* mapData;
    MyComboBox* playerData;
    MyComboBox* metaData;
    MyDialogOpener* switchField;
    MyLineEdit* onValue;
    MyLineEdit* offValue;
    MyDialogOpener* variableField;
    MyEitherBox* actorType;
    MyLineEdit* partyIndex;
    MyDialogOpener* databaseActors;
    MyComboBox* actorInfo;
    MyEitherBox* enemyType;
    MyLineEdit* troopIndex;
    MyDialogOpener* databaseEnemies;
    MyComboBox* enemyInfo;
    MyComboBox* inventory;
    MyDialogOpener* itemCount;
    MyDialogOpener* weaponCount;
    MyDialogOpener* armorCount;
    MyDialogOpener* firstMath;
    MyComboBox* mathOperator;
    MyDialogOpener* secondMath;
    MyDialogOpener* list;
    MyComboBox* listOperator;
    MyLineEdit* listOffset;
    MyDialogOpener* codeField;
    MyLineEdit* display;
};
