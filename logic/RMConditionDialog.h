#pragma once

#include "widgets/PickerDialog.h"

#include <QJsonObject>
#include <QVector>

#include <initializer_list>

class MyComboBox;
class MyDialogOpener;
class MyEitherBox;
class MyLineEdit;
class QStackedWidget;

// The frame of the dialog of one kind of condition: the kind's fields in a
// column over the confirm and cancel buttons. A kind loads its fields from
// the object in its constructor and gives its keys in result(); confirming
// replaces the caller's object with them and the kind's "Type", so keys
// the kind doesn't write are gone, and cancelling leaves the object alone.
class RMConditionDialog : public PickerDialog
{
    Q_OBJECT
public:
    const QJsonObject& original() const { return *object; }

protected slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

protected:
    RMConditionDialog(int type, QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);

    // The kind's keys, without "Type".
    virtual QJsonObject result() const = 0;

    // Fields of the form, made with their object name, caption and tool
    // tip, and added to the column with addField or addRow.
    MyLineEdit* lineEdit(const char* name, const QString& caption, const QString& hint);
    // An integer field whose validity gates the confirm button.
    MyLineEdit* integerEdit(const char* name, const QString& caption, const QString& hint, int minimum, int maximum,
                            int digits, int validatorMinimum, int validatorMaximum);
    MyComboBox* comboBox(const char* name, const QString& caption, const QString& hint,
                         const QVector<const char*>& labels);
    MyEitherBox* eitherBox(const char* name, const QString& caption, const QString& hint, const QString& first,
                           const QString& second);
    MyDialogOpener* opener(const char* name, const QString& caption, const QString& hint);
    // The six comparison operators, or the two of texts, on op (the first
    // for one it doesn't offer).
    MyComboBox* operatorBox(const char* name, const QString& hint, int count, int op);
    // "Comparison": the integer a value is compared to.
    MyLineEdit* comparisonValue(const QString& hint, int digits);
    // An opener of a database record that keeps its id in *id and runs the
    // record picker when clicked.
    MyDialogOpener* recordOpener(const char* name, const QString& caption, const QString& hint,
                                 const char* fileName, const char* titleWord, int* id);
    // An empty field's place, for a choice that needs no field.
    QWidget* blankSpace();
    // Fields that take turns in one place of the column; the first is shown.
    QStackedWidget* alternatives(std::initializer_list<QWidget*> fields);
    // The place shows the field of the choice: by index for a combo, the
    // first for the first choice of an either-box.
    void followChoice(MyComboBox* choice, QStackedWidget* place);
    void followChoice(MyEitherBox* choice, QStackedWidget* place);

    void addField(QWidget* field);
    // Fields side by side, each with its stretch.
    void addRow(std::initializer_list<std::pair<QWidget*, int>> fields);

    // Adds the buttons, connects the slots by name and settles the size,
    // 320 pixels wide unless a width is given.
    void finishForm(int width = 0);

    // The confirm button is enabled while every shown integer field is valid.
    void updateConfirm();

    QJsonObject* projectData;

private:

    int type;
    QJsonObject* object;
    QVector<MyLineEdit*> gatedFields;
};
