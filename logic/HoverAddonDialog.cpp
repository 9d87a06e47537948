#include "logic/HoverAddonDialog.h"

#include "logic/AddonTables.h"
#include "logic/GameDataLabel.h"
#include "logic/RMCodeInput.h"
#include "logic/RMDatabaseItemSelector.h"
#include "logic/SwitchSelector.h"
#include "widgets/MyDialogOpener.h"

#include <QJsonObject>

namespace {

const QString CommonEvents = QStringLiteral("CommonEvents.json");

}

HoverAddonDialog::HoverAddonDialog(QJsonObject* object, bool* accepted, QJsonObject* projectData, int,
                                   QWidget* parent)
    : TypeTabDialog(accepted, parent), object(object), projectData(projectData)
{
    setObjectName(QStringLiteral("HoverAddonDialog"));
    const int type = object->value(QStringLiteral("HoverType")).toInt(0);
    const int id = object->value(QStringLiteral("ID")).toInt(1);
    (type == 1 ? leaveEvent : type == 2 ? switchId : hoverEvent) = type == 3 ? 1 : id;
    codeText = type == 3 ? object->value(QStringLiteral("Code")).toString() : AddonTables::hoverDefaultCode();

    CommonEvent = makeOpener("CommonEvent", tr("Hover Common Event"), tr("The common event to call on hover."));
    CommonEventLeave =
        makeOpener("CommonEventLeave", tr("Leave Common Event"), tr("The common event to call on hover leave."));
    Switch = makeOpener("Switch", tr("Switch"), tr("The switch to bind to hover."));
    Code = makeOpener("Code", tr("Code"), tr("Code for running the animation."));
    CommonEvent->setValue(GameDataLabel::databaseEntry(projectData, CommonEvents, hoverEvent));
    CommonEventLeave->setValue(GameDataLabel::databaseEntry(projectData, CommonEvents, leaveEvent));
    Switch->setValue(GameDataLabel::switchEntry(projectData, switchId));
    Code->setValue(RMCodeInput::singleLine(codeText));
    addTypePage(tr("On Hover"), CommonEvent);
    addTypePage(tr("On Leave"), CommonEventLeave);
    addTypePage(tr("Bind Switch"), Switch);
    addTypePage(tr("Code"), Code);
    finishTabs(tr("Hover Addon Setup"), type, 420);
}

void HoverAddonDialog::on_CommonEvent_clicked()
{
    RMDatabaseItemSelector::pick(CommonEvent, &hoverEvent, projectData, CommonEvents, tr("Common Events"), this);
}

void HoverAddonDialog::on_CommonEventLeave_clicked()
{
    RMDatabaseItemSelector::pick(CommonEventLeave, &leaveEvent, projectData, CommonEvents, tr("Common Events"), this);
}

void HoverAddonDialog::on_Switch_clicked()
{
    SwitchSelector::pick(Switch, &switchId, projectData, true, this);
}

void HoverAddonDialog::on_Code_clicked()
{
    RMCodeInput::pick(Code, &codeText, this);
}

void HoverAddonDialog::on_confirmButton_clicked()
{
    const int type = currentType();
    QJsonObject result{{QStringLiteral("Type"), AddonTables::Hover}, {QStringLiteral("HoverType"), type}};
    if (type == 3)
        result.insert(QStringLiteral("Code"), codeText);
    else
        result.insert(QStringLiteral("ID"), type == 1 ? leaveEvent : type == 2 ? switchId : hoverEvent);
    *object = result;
    acceptChoice();
}

void HoverAddonDialog::on_cancelButton_clicked()
{
    reject();
}
