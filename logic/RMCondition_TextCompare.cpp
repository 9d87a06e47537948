#include "logic/RMCondition_TextCompare.h"

#include "logic/ConditionTables.h"
#include "logic/DynamicValueDisplay.h"
#include "logic/RMTextSelector.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"
#include "widgets/MyDialogOpener.h"

RMCondition_TextCompare::RMCondition_TextCompare(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::TextCompare, object, accepted, parent, projectData)
{
    const QJsonValue first = object->value(QStringLiteral("Text1"));
    const QJsonValue second = object->value(QStringLiteral("Text2"));
    text1 = first.isObject() ? first.toObject() : defaultFirst();
    text2 = second.isObject() ? second.toObject() : defaultSecond();
    Text1 = opener("Text1", tr("First Text"), tr("The first text to compare."));
    showDynamicText(Text1, text1, projectData);
    Operator = operatorBox("Operator", tr("The comparative operation."), ConditionTables::TextOperatorCount,
                           object->value(QStringLiteral("Op")).toInt(0));
    Text2 = opener("Text2", tr("Second Text"), tr("The second text to compare."));
    showDynamicText(Text2, text2, projectData);
    addField(Text1);
    addField(Operator);
    addField(Text2);
    finishForm(340);
}

QJsonObject RMCondition_TextCompare::result() const
{
    return {{QStringLiteral("Text1"), text1},
            {QStringLiteral("Op"), Operator->currentData()},
            {QStringLiteral("Text2"), text2}};
}

QJsonObject RMCondition_TextCompare::defaultFirst()
{
    return {{QStringLiteral("Info"), 8}, {QStringLiteral("Type"), 1}};
}

QJsonObject RMCondition_TextCompare::defaultSecond()
{
    return {{QStringLiteral("Text"), QStringLiteral("My Map")}, {QStringLiteral("Type"), 0}};
}

void RMCondition_TextCompare::on_Text1_clicked()
{
    RMTextSelector::pick(Text1, &text1, projectData, this);
}

void RMCondition_TextCompare::on_Text2_clicked()
{
    RMTextSelector::pick(Text2, &text2, projectData, this);
}
