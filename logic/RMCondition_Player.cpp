#include "logic/RMCondition_Player.h"

#include "logic/ConditionTables.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"

RMCondition_Player::RMCondition_Player(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
    : RMConditionDialog(ConditionTables::Player, object, accepted, parent, projectData)
{
    PlayerState = comboBox("PlayerState", tr("Player is looking..."), tr("The player's direction to check for."), {});
    PlayerState->setProperty("mtt_title", tr("Player Direction"));
    for (const ConditionTables::Direction& direction : ConditionTables::directions())
        PlayerState->addItem(tr(direction.label), direction.value);
    PlayerState->selectByData(object->value(QStringLiteral("State")).toInt(2));
    if (PlayerState->currentIndex() < 0)
        PlayerState->setCurrentIndex(0, false);
    addField(PlayerState);
    finishForm();
}

QJsonObject RMCondition_Player::result() const
{
    return {{QStringLiteral("State"), PlayerState->currentData()}};
}
