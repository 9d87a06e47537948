#pragma once

#include "widgets/TrovDialog.h"

#include <QVector>

class MyButton;
class QJsonObject;
class QPushButton;

// "Component Add-on Selector": the six kinds of add-ons as buttons. A click
// opens that kind's dialog on the object with its "Type"; once that is
// confirmed the object takes it and the chooser closes, otherwise it stays
// for another choice.
class AddonSelector : public TrovDialog
{
    Q_OBJECT
public:
    AddonSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities, QWidget* parent);

    QPushButton* kindButton(int type) const { return kindButtons.value(type); }

private slots:
    void whenCreateButtonClicked();
    void on_cancelButton_clicked();

private:
    QJsonObject* object;
    bool* accepted;
    QJsonObject* projectData;
    int capabilities;
    QVector<QPushButton*> kindButtons;
    MyButton* cancelButton;
};
