#pragma once

#include "scene/UsesCustomProperties.h"
#include "widgets/TrovDialog.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QPoint>
#include <QVector>

#include <functional>

class MyButton;
class MyDialogOpener;
class MyLineEdit;
class QAbstractButton;
class QDoubleValidator;
class QIntValidator;
class QMenu;
class UltimateTreeItem;
class UltimateTreeWidget;

// The base of every component kind's property dialog: the fields all kinds
// share (name, display conditions, position, scale, rotation, opacity), the
// list of property animations and the list of custom properties, read from
// a copy of the component's JSON and written back into it on confirming.
// The scene applies the result; nothing here touches the canvas.
class UIComponentBaseDialog : public TrovDialog, public UsesCustomProperties
{
    Q_OBJECT
public:
    // Run the condition dialog on the working array of a dialog, and write
    // an opener's text for an array. The conditions install them at
    // start-up; a null hook is skipped.
    using ConditionsOpener =
        std::function<void(UIComponentBaseDialog* dialog, MyDialogOpener* opener, QJsonArray* conditions,
                           QWidget* parentDialog)>;
    using ConditionsText = std::function<void(MyDialogOpener* opener, const QJsonArray& conditions)>;
    static ConditionsOpener openConditions;
    static ConditionsText showConditions;
    // Run the dynamic text or number input on a field's value (true when
    // confirmed; the opener then shows the new value), and write an opener's
    // text for a value. The dynamic inputs install them at start-up; a null
    // hook is skipped.
    using DynamicValueOpener =
        std::function<bool(MyDialogOpener* opener, QJsonObject* value, bool numeric, QWidget* parentDialog)>;
    using DynamicValueText = std::function<void(MyDialogOpener* opener, const QJsonObject& value, bool numeric)>;
    static DynamicValueOpener openDynamicValue;
    static DynamicValueText showDynamicValue;

    // location and componentId make the key of the custom properties' order;
    // animationFlags are the kind's capabilities (which properties it can
    // animate). The project data holds that order.
    UIComponentBaseDialog(int location, int componentId, int animationFlags, QWidget* parent,
                          QJsonObject* projectData);
    ~UIComponentBaseDialog() override;

    // "UILoc<location>ID<componentId>".
    QString customPropertiesKey() const override;

    // Fills the shared widgets from json; each widget but json and confirm
    // may be null and is then left out. defaultName is the untranslated
    // name pattern of the kind, "Text (ID %1)" and the like, for a
    // component without a name.
    void setupAllWidgets(MyLineEdit* name, MyDialogOpener* conditionsOpener, MyLineEdit* x, MyLineEdit* y,
                         MyLineEdit* scaleX, MyLineEdit* scaleY, MyLineEdit* rotation, MyLineEdit* opacity,
                         UltimateTreeWidget* animations, UltimateTreeWidget* customProperties, MyButton* confirm,
                         QJsonObject* json, const char* defaultName);
    // Writes the shared fields back into json, for the kind's confirm
    // handler before it adds its own data object.
    void applyCommonFields(MyLineEdit* name, MyDialogOpener* conditionsOpener, MyLineEdit* x, MyLineEdit* y,
                           MyLineEdit* scaleX, MyLineEdit* scaleY, MyLineEdit* rotation, MyLineEdit* opacity,
                           UltimateTreeWidget* animations, QJsonObject* json);

    // A percentage as the fields show a fraction: 6 significant digits.
    static QString percentText(double fraction);
    // A field's percentage as a fraction, divided in decimal so that what
    // was shown comes back as the number it was shown for.
    static double fractionOf(const QString& percent);

public slots:
    void whenAnimations_customContextMenuRequested(QPoint pos);
    void whenAnimations_itemDoubleClicked(UltimateTreeItem* item, int column);
    void newAnimationProperty();
    void editAnimationProperty();
    void deleteAnimationProperty();
    void whenCustomProperties_customContextMenuRequested(QPoint pos);
    void whenCustomProperties_itemDoubleClicked(UltimateTreeItem* item, int column);
    void newCustomProperty();
    void editCustomProperty();
    void deleteCustomProperty();
    void copyCustomProperty();
    void cutCustomProperty();
    void pasteCustomProperty();

    // A number field whose validity gates the confirm button: the button is
    // enabled only while every such field holds a valid value.
    void followConfirm(MyLineEdit* field, QAbstractButton* confirm);
    // The validator of the fields that take a size.
    QIntValidator* sizeValidator() const { return integerValidator; }

protected:
    QJsonArray conditions;
    QIntValidator* integerValidator;
    QIntValidator* coordinateValidator;
    QDoubleValidator* doubleValidator;
    QMenu* animationMenu = nullptr;
    UltimateTreeWidget* animationList = nullptr;
    UltimateTreeWidget* customPropertyList = nullptr;
    int location;
    int componentId;
    int animationFlags;
    QJsonObject* projectData;

private:
    // A list's menu with its first three entries: add, edit, delete.
    QMenu* recordMenu(const char* objectName, const QString& addText, void (UIComponentBaseDialog::*add)(),
                      void (UIComponentBaseDialog::*edit)(), void (UIComponentBaseDialog::*remove)());
    static void fillAnimationRow(UltimateTreeItem* row, const QJsonObject& record);
    // A row of the animation list owning its record.
    static UltimateTreeItem* animationRow(QJsonObject* record);
    void setUpAnimationList(UltimateTreeWidget* animations, const QJsonArray& records);
    void setUpCustomPropertyList(UltimateTreeWidget* customProperties, const QJsonObject& values);
    void updateConfirm(QAbstractButton* confirm);

    QVector<MyLineEdit*> gatedFields;
};
