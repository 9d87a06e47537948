#pragma once

#include <QHash>
#include <QJsonObject>
#include <QJsonValue>
#include <QSize>
#include <QStringList>
#include <QString>

class CustomTitleBar;
class AddonOrNotebox;
class MyButton;
class MyColorPickerButton;
class MyComboBox;
class MyDialogOpener;
class MyEitherBox;
class MyGroupBox;
class MyImageSelector;
class MyLineEdit;
class QGridLayout;
class QVBoxLayout;
class QWidget;
class UIComponentBaseDialog;
class UltimateTreeWidget;

// The form every component's property dialog is built on: the box of the
// fields all kinds share (name, display conditions, position, scale or size,
// rotation, opacity), under it the kind's own property box, beside them the
// tabs of the animations and custom properties, and the confirm and cancel
// buttons. The dialog lays out its frame, builds this form into it, sets up
// its own fields in the property box and calls finish().
class ComponentDialogForm
{
public:
    // Builds the form into the dialog's content for the component json of
    // the kind type, and fills the shared fields from json.
    ComponentDialogForm(UIComponentBaseDialog* dialog, CustomTitleBar* titleBar, QWidget* content,
                        QVBoxLayout* contentLayout, QJsonObject* json, int type, QJsonObject* projectData);

    // The kind's own box below the shared one (above it for the custom
    // kinds), titled and named as given; its grid has two columns of fields.
    MyGroupBox* addPropertyBox(const QString& title, const char* objectName);
    QGridLayout* propertyGrid() const { return grid; }
    // Fields of the property box, each with its tooltip title (also its
    // caption) and description, placed in the grid at row and column.
    struct Label {
        const char* title;
        const char* description;
    };
    // A number field taking value, or defaultText when value isn't a number.
    // An extendable one can stand for a value the game gives at run time.
    MyLineEdit* addNumber(const char* objectName, Label label, double minimum, double maximum, int digits,
                          bool decimal, const QString& defaultText, const QJsonValue& value, int row, int column,
                          int columnSpan = 1);
    // A text field taking value, or defaultText when value isn't a string;
    // extendable as a number field is.
    MyLineEdit* addText(const char* objectName, Label label, const QString& defaultText, const QJsonValue& value,
                        int row, int column, int columnSpan = 1);
    MyColorPickerButton* addColor(const char* objectName, Label label, const QString& value, int row, int column);
    // A choice of items by index; a missing value shows defaultIndex.
    MyComboBox* addChoice(const char* objectName, Label label, const QStringList& items, const QJsonValue& value,
                          int defaultIndex, int row, int column, int columnSpan = 1);
    // A choice between two captions; true is the first.
    MyEitherBox* addEither(const char* objectName, Label label, const char* first, const char* second, bool value,
                           int row, int column);
    MyDialogOpener* addOpener(const char* objectName, Label label, int row, int column, int columnSpan = 1);
    // A project image of a graphics kind (ProjectImages::Kind), showing name.
    MyImageSelector* addImage(const char* objectName, Label label, int kind, const QString& name, int row,
                              int column, int columnSpan = 1);
    // What a number or text field writes: its value, or the object it
    // stands for.
    QJsonValue numberOf(MyLineEdit* field) const;
    // What a choice writes: its index, or, while the user left it as it
    // opened, a value outside the items as it came.
    QJsonValue choiceOf(MyComboBox* field) const;

    // Connects the dialog's slots by name and settles its size.
    void finish();

    // The component's data object as the dialog opened it; empty when missing.
    QJsonObject dataObject() const;
    // Confirm: the shared fields into the component's object, then the
    // kind's new data object under its key (with the size of a kind that
    // stores one, and the add-ons with the note derived from them). A kind
    // whose size follows a rule of its own hands that size in place of the
    // size fields'.
    void applyCommonFields();
    void writeDataObject(QJsonObject data, const QSize& size = QSize()) const;

    // The form's widgets, by the names every kind's form uses. A scale kind
    // has Width_Scale and Height_Scale, the others Width and Height (fixed
    // for a group, the custom HUD's for the custom kinds).
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
    AddonOrNotebox* addonOrNote;
    MyButton* confirmButton;
    MyButton* cancelButton;

private:
    void setUpSize();
    void describe(QWidget* field, Label label, int row, int column, int columnSpan = 1);
    // Shows value in an extendable field, or keeps it as it came when no
    // handler can show it.
    void showExtendable(MyLineEdit* field, const QJsonValue& value, const QString& defaultText);

    UIComponentBaseDialog* dialog;
    QWidget* content;
    QVBoxLayout* leftColumn;
    QGridLayout* grid = nullptr;
    bool propertyBoxesFirst = false;
    int leadingBoxes = 0;
    QJsonObject* json;
    int type;
    // Values of extendable fields that the field can't show as an extension
    // (no handler for it is installed): written back as they came.
    QHash<MyLineEdit*, QJsonValue> keptValues;
    struct KeptChoice {
        int shownIndex;
        QJsonValue value;
    };
    QHash<MyComboBox*, KeptChoice> keptChoices;
};
