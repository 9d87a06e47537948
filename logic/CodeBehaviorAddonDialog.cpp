#include "logic/CodeBehaviorAddonDialog.h"

#include "logic/AddonTables.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"

#include <QCoreApplication>
#include <QJsonObject>

CodeBehaviorAddonDialog::CodeBehaviorAddonDialog(QJsonObject* object, bool* accepted, QJsonObject*, int,
                                                 QWidget* parent)
    : CodeAddonDialog(object, accepted, parent)
{
    setObjectName(QStringLiteral("CodeBehaviorAddonDialog"));
    addFields("BehaviorType", tr("Behavior"), tr("Behavior Type"), tr("When the behavior is called."));
    const QVector<const char*>& behaviors = AddonTables::behaviors();
    for (int value = 0; value < behaviors.size(); ++value)
        choice()->addItem(QCoreApplication::translate("", behaviors.at(value)), value);
    // A behaviour this program doesn't know stays as it came until changed.
    const int behavior = object->value(QStringLiteral("Behavior")).toInt(0);
    if (behavior < 0 || behavior >= behaviors.size())
        choice()->addItem(QString::number(behavior), behavior);
    choice()->selectByData(behavior);
    setCode(object->value(QStringLiteral("Code")).toString(AddonTables::behaviorDefaultCode()));
    finishForm(tr("Code Behavior Setup"));
}

void CodeBehaviorAddonDialog::on_confirmButton_clicked()
{
    confirmAs(AddonTables::CodeBehavior, "Behavior", choice()->currentData());
}
