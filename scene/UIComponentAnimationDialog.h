#pragma once

#include "widgets/PickerDialog.h"

#include <QJsonObject>

#include <functional>

class MyComboBox;
class MyDialogOpener;
class MyEitherBox;
class MyGroupBox;
class MyLineEdit;
class QToolButton;

// "UI Component Animation": one entry of a component's "Animations", the
// property it animates from a start to an end value, how long, with which
// easing, how it loops and when it starts. Confirming rebuilds the entry from
// nothing, so only the keys of the chosen property remain.
class UIComponentAnimationDialog : public PickerDialog
{
    Q_OBJECT
public:
    // The flags a kind passes: which properties it can animate.
    enum Flag { NoScaleOrSize = 1, NoRotation = 2, NoOpacity = 4, HasOpenness = 8, HasRepeatOffset = 16 };

    // Runs the run type dialog on an "ActivateType" object (true when it was
    // confirmed and the object replaced), and gives an object's one-line
    // text. The animation style installs them at start-up; without them the
    // button shows nothing and opens nothing.
    using RunTypeOpener = std::function<bool(QJsonObject* activateType, QWidget* parent)>;
    using RunTypeText = std::function<QString(const QJsonObject& activateType)>;
    static RunTypeOpener openRunType;
    static RunTypeText runTypeText;

    // json is read and, on confirmation, replaced.
    UIComponentAnimationDialog(QJsonObject* json, bool* accepted, int animationFlags, QWidget* parent);

    // Runs the dialog on json under the owner's dimming; true when confirmed.
    static bool edit(QJsonObject* json, int animationFlags, QWidget* owner);

    // Whether a kind with these flags can animate a property.
    static bool offers(int property, int animationFlags);
    // The easing curve that plays a curve backwards: in and out swap, in-out
    // and linear stay.
    static int invertedCurve(int curve);

public slots:
    void on_Property_whenChoiceChanges();
    void on_EasingCurve_clicked();
    void on_RunType_clicked();
    void UpdateRunTypeText();
    void on_ReturnEasingType_whenChoiceChanges();
    void on_CustomReturnEasing_clicked();
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

protected:
    void firstShown() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct ValuePair {
        MyLineEdit* start;
        MyLineEdit* end;
    };
    // The pair of fields that shows a property's values.
    ValuePair pairOf(int property) const;
    bool isFractionPair(const ValuePair& pair) const;
    MyLineEdit* makeValueField(const char* objectName, int inputType, double minimum, double maximum, int digits,
                               const QString& suffix);
    void readValues(int property);
    void showEasing(MyDialogOpener* opener, int curve);
    // The button confirms only a chosen property with valid values.
    void updateConfirm();
    void setAdvancedShown(bool shown);

    QJsonObject* json;
    int easingCurve = 0;
    int backwardsCurve = 0;
    QJsonObject activateType;

    MyComboBox* Property;
    MyComboBox* Loop_Type;
    MyLineEdit* Duration;
    MyDialogOpener* EasingCurve;
    MyLineEdit* Start_Int;
    MyLineEdit* End_Int;
    MyLineEdit* Start_Scale;
    MyLineEdit* End_Scale;
    MyLineEdit* Start_Opacity;
    MyLineEdit* End_Opacity;
    MyLineEdit* Start_Rotation;
    MyLineEdit* End_Rotation;
    MyGroupBox* advancedProperties;
    QWidget* advancedBody;
    QToolButton* advancedToggle;
    MyDialogOpener* RunType;
    MyEitherBox* ResetToStart;
    MyComboBox* ReturnEasingType;
    MyDialogOpener* CustomReturnEasing;
};
