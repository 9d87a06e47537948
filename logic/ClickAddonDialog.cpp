#include "logic/ClickAddonDialog.h"

#include "logic/AddonTables.h"
#include "logic/GameDataLabel.h"
#include "logic/RMCodeInput.h"
#include "logic/RMDatabaseItemSelector.h"
#include "widgets/MyDialogOpener.h"

#include <QJsonObject>

namespace {

const QString CommonEvents = QStringLiteral("CommonEvents.json");

}

ClickAddonDialog::ClickAddonDialog(QJsonObject* object, bool* accepted, QJsonObject* projectData, int,
                                   QWidget* parent)
    : TypeTabDialog(accepted, parent), object(object), projectData(projectData)
{
    setObjectName(QStringLiteral("ClickAddonDialog"));
    const int type = object->value(QStringLiteral("ClickType")).toInt(0);
    if (type != 1)
        eventId = object->value(QStringLiteral("ID")).toInt(1);
    codeText = type == 1 ? object->value(QStringLiteral("Code")).toString() : AddonTables::clickDefaultCode();
    CommonEvent = makeOpener("CommonEvent", tr("Click Common Event"), tr("Common event called on click."));
    Code = makeOpener("Code", tr("Code"), tr("Code for running the animation."));
    CommonEvent->setValue(GameDataLabel::databaseEntry(projectData, CommonEvents, eventId));
    Code->setValue(RMCodeInput::singleLine(codeText));
    addTypePage(tr("On Click"), CommonEvent);
    addTypePage(tr("Code"), Code);
    finishTabs(tr("Click Addon Setup"), type, 380);
}

void ClickAddonDialog::on_CommonEvent_clicked()
{
    RMDatabaseItemSelector::pick(CommonEvent, &eventId, projectData, CommonEvents, tr("Common Events"), this);
}

void ClickAddonDialog::on_Code_clicked()
{
    RMCodeInput::pick(Code, &codeText, this);
}

void ClickAddonDialog::on_confirmButton_clicked()
{
    const int type = currentType();
    QJsonObject result{{QStringLiteral("Type"), AddonTables::Click}, {QStringLiteral("ClickType"), type}};
    if (type == 1)
        result.insert(QStringLiteral("Code"), codeText);
    else
        result.insert(QStringLiteral("ID"), eventId);
    *object = result;
    acceptChoice();
}

void ClickAddonDialog::on_cancelButton_clicked()
{
    reject();
}
