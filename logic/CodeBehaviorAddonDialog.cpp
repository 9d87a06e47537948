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
    for (const char* label : AddonTables::behaviors())
        choice()->addItem(QCoreApplication::translate("", label));
    const int behavior = object->value(QStringLiteral("Behavior")).toInt(0);
    choice()->setCurrentIndex(behavior >= 0 && behavior < choice()->count() ? behavior : 0, false);
    setCode(object->value(QStringLiteral("Code")).toString(AddonTables::behaviorDefaultCode()));
    finishForm(tr("Code Behavior Setup"));
}

void CodeBehaviorAddonDialog::on_confirmButton_clicked()
{
    confirmAs(AddonTables::CodeBehavior, "Behavior", choice()->currentIndex());
}
