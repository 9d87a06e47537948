#pragma once

#include "scene/UIComponentBaseDialog.h"

#include <QJsonObject>

class CustomTitleBar;
class MyButton;
class MyDialogOpener;
class MyLineEdit;
class QLabel;
class UltimateTreeWidget;

// Layer until each kind has a property dialog of its own: the dialog of
// every kind with the fields that all kinds share (name, display
// conditions, position, scale or size, rotation, opacity, animations,
// custom properties). The kind's own data object and every key the dialog
// doesn't show are kept as they are, so that any component can be renamed,
// moved and made transparent before its kind's dialog exists.
class UIComponentCommonDialog : public UIComponentBaseDialog
{
    Q_OBJECT
public:
    UIComponentCommonDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner, QJsonObject* projectData);

    // The form's widgets, by the names every kind's form uses. A scale kind
    // has Width_Scale and Height_Scale, a kind that stores its size Width and
    // Height; the others have neither.
    CustomTitleBar* titleBar;
    MyLineEdit* Name;
    MyDialogOpener* Conditions;
    MyLineEdit* X_Position;
    MyLineEdit* Y_Position;
    MyLineEdit* Width_Scale = nullptr;
    MyLineEdit* Height_Scale = nullptr;
    MyLineEdit* Width = nullptr;
    MyLineEdit* Height = nullptr;
    MyLineEdit* Rotation;
    MyLineEdit* Opacity;
    UltimateTreeWidget* animations;
    UltimateTreeWidget* customProperties;
    QLabel* keptNote;
    MyButton* confirmButton;
    MyButton* cancelButton;

public slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    void setUpSize(MyLineEdit* width, MyLineEdit* height);

    QJsonObject* json;
    bool* accepted;
    int type;
};
