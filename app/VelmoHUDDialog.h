#pragma once

#include "widgets/TrovDialog.h"

#include <QJsonObject>

class MyEitherBox;
class MyLineEdit;
class QPushButton;

// The settings of one HUD object: its name, whether it is a HUD or a custom
// component, and a component's own size. It edits a copy and, on confirming,
// replaces the given object; keys it doesn't show ("ID", "HUD", "Params",
// "Background") are carried over.
//
// First form: the parameter list and the placeholder background come with
// the custom parameters.
class VelmoHUDDialog : public TrovDialog
{
    Q_OBJECT
public:
    // type: the list item type, 0 a custom HUD object, 1 the Map HUD, 2 the
    // Battle HUD, whose names are fixed.
    VelmoHUDDialog(QJsonObject* object, bool* confirmed, int type, QWidget* parent = nullptr);

    MyLineEdit* Name;
    MyEitherBox* Type;
    MyLineEdit* Width;
    MyLineEdit* Height;
    QPushButton* confirmButton;
    QPushButton* cancelButton;

public slots:
    void on_Type_whenChoiceChanges();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();
    void on_Name_textChanged(const QString& text);

private:
    void updateConfirm();
    bool isHud() const;

    QJsonObject* object;
    bool* confirmed;
    int type;
};
