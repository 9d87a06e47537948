#pragma once

#include "widgets/TrovDialog.h"

#include <QVector>

class MyButton;
class QJsonObject;
class QPushButton;

// "RPG Maker Condition": the fourteen kinds of conditions as buttons. A
// click opens that kind's dialog on a copy of the object with its "Type";
// once that is confirmed the object takes it and the chooser closes,
// otherwise the chooser stays for another choice.
class RMCondition : public TrovDialog
{
    Q_OBJECT
public:
    RMCondition(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent);

    // The button of a kind, by "Type".
    QPushButton* kindButton(int type) const { return kindButtons.value(type); }

private slots:
    void whenCreateButtonClicked();
    void on_cancelButton_clicked();

private:
    QJsonObject* object;
    bool* accepted;
    QJsonObject* projectData;
    QVector<QPushButton*> kindButtons;
    MyButton* cancelButton;
};
