#include "logic/RMCondition_Button.h"

#include "logic/ConditionTables.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"

RMCondition_Button::RMCondition_Button(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::Button, object, accepted, parent, projectData)
{
    Button = comboBox("Button", tr("Button"), tr("The button to check."), ConditionTables::buttons());
    Button->setCurrentIndex(qBound(0, object->value(QStringLiteral("Key")).toInt(0), Button->count() - 1), false);
    ButtonState =
        comboBox("ButtonState", tr("Button State"), tr("The state of the button."), ConditionTables::buttonStates());
    ButtonState->setCurrentIndex(
        qBound(0, object->value(QStringLiteral("State")).toInt(0), ButtonState->count() - 1), false);
    addField(Button);
    addField(ButtonState);
    finishForm();
}

QJsonObject RMCondition_Button::result() const
{
    return {{QStringLiteral("Key"), Button->currentData()}, {QStringLiteral("State"), ButtonState->currentData()}};
}
