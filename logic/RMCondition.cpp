#include "logic/RMCondition.h"

#include "logic/ConditionTables.h"
#include "logic/OpenConditionDialog.h"

#include <QJsonObject>

RMCondition::RMCondition(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent)
    : KindChooser(object, accepted, projectData, parent)
{
    setObjectName(QStringLiteral("RMCondition"));
    // The comparisons came last but stand above the code and the parameters.
    using namespace ConditionTables;
    const int columns[2][7] = {{Switch, Actor, Player, Button, NumberCompare, Other, CustomParamExists},
                               {Variable, Enemy, Gold, Inventory, TextCompare, Code, CustomParam}};
    QVector<QVector<KindButton>> buttons(2);
    for (int column = 0; column < 2; ++column) {
        for (int type : columns[column]) {
            const Kind* kind = ConditionTables::kind(type);
            buttons[column].append({kind->type, kind->button, kind->objectName});
        }
    }
    layOutKinds(tr("RPG Maker Conditions"), buttons, TypeCount, tr("Close"), tr("RPG Maker Condition"));
}

bool RMCondition::runKindDialog(int type, QJsonObject* created)
{
    *created = *object;
    created->insert(QStringLiteral("Type"), type);
    bool confirmed = false;
    openConditionDialog(created, &confirmed, this, projectData);
    return confirmed;
}
