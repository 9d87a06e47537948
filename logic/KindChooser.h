#pragma once

#include "widgets/TrovDialog.h"

#include <QVector>

class MyButton;
class QJsonObject;
class QPushButton;

// A chooser of kinds: a group of buttons, one per kind, laid out column by
// column, over a Close button. A click runs that kind's dialog; once that is
// confirmed the object takes what it made and the chooser closes, otherwise
// the chooser stays for another choice.
class KindChooser : public TrovDialog
{
    Q_OBJECT
public:
    // The button of a kind, by "Type".
    QPushButton* kindButton(int type) const { return kindButtons.value(type); }

protected:
    struct KindButton {
        int type;
        const char* text;
        const char* objectName;
    };

    KindChooser(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent);

    // Builds the form; the texts come translated from the kind's own class.
    void layOutKinds(const QString& groupTitle, const QVector<QVector<KindButton>>& columns, int typeCount,
                     const QString& closeText, const QString& dialogTitle);
    // Runs the dialog of the kind on created; true when it was confirmed.
    virtual bool runKindDialog(int type, QJsonObject* created) = 0;

    QJsonObject* object;
    QJsonObject* projectData;

private slots:
    void whenCreateButtonClicked();
    void on_cancelButton_clicked();

private:
    bool* accepted;
    QVector<QPushButton*> kindButtons;
    MyButton* cancelButton = nullptr;
};
