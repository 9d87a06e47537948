#pragma once

#include "widgets/TrovDialog.h"

#include <QJsonObject>
#include <QPoint>

class MyDialogOpener;
class MyEitherBox;
class MyLineEdit;
class QMenu;
class QPushButton;
class UltimateTreeItem;
class UltimateTreeWidget;

// The settings of one HUD object: its name, whether it is a HUD or a custom
// component, a component's own size and parameters, and the placeholder
// picture the editor shows behind it. It edits a copy and, on confirming,
// replaces the given object with a new one; of the keys it doesn't show only
// "HUD" and "ID" are carried over.
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
    MyDialogOpener* Background;
    QPushButton* Clear;
    UltimateTreeWidget* Params;
    QPushButton* confirmButton;
    QPushButton* cancelButton;

    QMenu* paramMenu() const { return menu; }
    QString backgroundPath() const { return background; }

public slots:
    void on_Type_whenChoiceChanges();
    void on_Clear_clicked();
    void on_Background_clicked();
    void on_Params_itemDoubleClicked(UltimateTreeItem* item, int column);
    void on_Params_customContextMenuRequested(const QPoint& pos);
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();
    void on_Name_textChanged(const QString& text);
    void createOrEditParam(UltimateTreeItem* item);
    void createNewParam();
    void editParam();
    void deleteParam();

private:
    void updateConfirm();
    void showBackground();
    bool isHud() const;
    void buildParamList(QWidget* owner);

    QJsonObject* object;
    bool* confirmed;
    int type;
    QString background;
    QMenu* menu = nullptr;
};
