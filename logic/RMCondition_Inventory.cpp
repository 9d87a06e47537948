#include "logic/RMCondition_Inventory.h"

#include "logic/ConditionTables.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyPopup.h"

#include <QStackedWidget>

RMCondition_Inventory::RMCondition_Inventory(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::Inventory, object, accepted, parent, projectData)
{
    const QVector<ConditionTables::RecordCheck>& checks = ConditionTables::inventoryChecks();
    int check = object->value(QStringLiteral("Check")).toInt(0);
    if (check < 0 || check >= checks.size())
        check = 0;
    recordIds[check] = object->value(QStringLiteral("ID")).toInt(1);

    QVector<const char*> labels;
    for (const ConditionTables::RecordCheck& row : checks)
        labels.append(row.label);
    // The hint speaks of an actor, as it always has.
    DataToCheck = comboBox("DataToCheck", tr("Condition"), tr("What to check the actor with."), labels);
    DataToCheck->setCurrentIndex(check, false);
    QStackedWidget* recordPlace = alternatives({});
    for (int index = 0; index < checks.size(); ++index) {
        const ConditionTables::RecordCheck& row = checks.at(index);
        recordPlace->addWidget(recordOpener(row.objectName, tr(row.titleWord), tr(row.hint), row.fileName,
                                            row.titleWord, &recordIds[index]));
    }
    followChoice(DataToCheck, recordPlace);
    addField(DataToCheck);
    addField(recordPlace);
    finishForm(418);
}

QJsonObject RMCondition_Inventory::result() const
{
    const int check = DataToCheck->currentData();
    return {{QStringLiteral("Check"), check}, {QStringLiteral("ID"), recordIds[check]}};
}
