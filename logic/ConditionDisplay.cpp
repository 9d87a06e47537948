#include "logic/ConditionDisplay.h"

#include "logic/ConditionTables.h"
#include "logic/DynamicValueDisplay.h"
#include "logic/GameDataLabel.h"
#include "logic/RMCodeInput.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/UltimateTreeItem.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>

using namespace ConditionTables;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("", text);
}

int intOf(const QJsonObject& object, const char* key, int fallback = 0)
{
    return object.value(QLatin1String(key)).toInt(fallback);
}

// Values that may be an extension object read as plain integers, so an
// extended one shows 0.
int plainInt(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toInt();
}

QString comparison(const QString& left, int op, const QString& right)
{
    return QStringLiteral("%1 %2 %3").arg(left, operatorText(op), right);
}

QString actorText(const QJsonObject& object, const QJsonObject* projectData)
{
    const QString actor =
        object.value(QStringLiteral("ActorType")).toBool(false)
            ? GameDataLabel::databaseEntry(projectData, QStringLiteral("Actors.json"), plainInt(object, "Actor"))
            : tr("Party Member #%1").arg(plainInt(object, "Actor"));
    const int check = intOf(object, "Check");
    QString checkText = label(actorChecks(), check);
    // "Is Named:" stands without the name: the list keeps to one short line.
    if (check >= 2 && check < actorChecks().size())
        checkText = QStringLiteral("%1 %2").arg(
            checkText, GameDataLabel::databaseEntry(projectData, QLatin1String(actorChecks().at(check).fileName),
                                                    intOf(object, "ID")));
    return QStringLiteral("%1 %2").arg(actor, checkText);
}

QString enemyText(const QJsonObject& object, const QJsonObject* projectData)
{
    const QString enemy =
        object.value(QStringLiteral("EnemyType")).toBool(false)
            ? GameDataLabel::databaseEntry(projectData, QStringLiteral("Enemies.json"), plainInt(object, "Enemy"))
            : tr("Troop Member #%1").arg(plainInt(object, "Enemy"));
    const QString check =
        intOf(object, "Check") == 0
            ? label(enemyChecks(), 0)
            : QStringLiteral("%1 %2").arg(label(enemyChecks(), 1),
                                          GameDataLabel::databaseEntry(projectData, QStringLiteral("States.json"),
                                                                       intOf(object, "ID")));
    return QStringLiteral("%1 %2").arg(enemy, check);
}

QString inventoryText(const QJsonObject& object, const QJsonObject* projectData)
{
    const int check = intOf(object, "Check");
    const QString fileName = check >= 0 && check < inventoryChecks().size()
                                 ? QLatin1String(inventoryChecks().at(check).fileName)
                                 : QString();
    return tr("Party has %1").arg(GameDataLabel::databaseEntry(projectData, fileName, intOf(object, "ID")));
}

QString customParamText(const QJsonObject& object)
{
    const QJsonValue value = object.value(QStringLiteral("Value"));
    return comparison(object.value(QStringLiteral("Param")).toString(), intOf(object, "Op"),
                      value.isString() ? value.toString() : QString::number(value.toInt()));
}

}

QString conditionText(const QJsonObject& object, const QJsonObject* projectData)
{
    switch (object.value(QStringLiteral("Type")).toInt(-1)) {
    case Switch:
        return tr("%1 is %2").arg(GameDataLabel::switchEntry(projectData, intOf(object, "ID", 1)),
                                  object.value(QStringLiteral("Value")).toBool(false) ? tr("ON") : tr("OFF"));
    case Variable:
        return comparison(GameDataLabel::variableEntry(projectData, intOf(object, "ID", 1)), intOf(object, "Op"),
                          QString::number(plainInt(object, "Value")));
    case Actor:
        return actorText(object, projectData);
    case Enemy:
        return enemyText(object, projectData);
    case Player:
        return tr("Player is looking %1").arg(directionLabel(intOf(object, "State", 2)));
    case Gold:
        return tr("Gold %1 %2").arg(operatorText(intOf(object, "Op")), QString::number(plainInt(object, "Value")));
    case Button:
        return tr("%1 Button %2").arg(label(buttons(), intOf(object, "Key")),
                                      label(buttonStates(), intOf(object, "State")));
    case Inventory:
        return inventoryText(object, projectData);
    case Other:
        // Known but unnamed checks read as an empty text, not as an unknown kind.
        return QStringLiteral("%1").arg(label(otherChecks(), intOf(object, "Check")));
    case Code:
        // Kept on one line, as the code's opener shows it.
        return tr("Eval: %1").arg(RMCodeInput::singleLine(object.value(QStringLiteral("Code")).toString()));
    case CustomParamExists:
        return tr("%1 Exists?").arg(object.value(QStringLiteral("Param")).toString());
    case CustomParam:
        return customParamText(object);
    case NumberCompare:
        return comparison(dynamicNumberDisplay(object.value(QStringLiteral("Number1")).toObject(), projectData),
                          intOf(object, "Op", 2),
                          dynamicNumberDisplay(object.value(QStringLiteral("Number2")).toObject(), projectData));
    case TextCompare: {
        const int op = intOf(object, "Op");
        return comparison(dynamicTextDisplay(object.value(QStringLiteral("Text1")).toObject(), projectData),
                          op < TextOperatorCount ? op : -1,
                          dynamicTextDisplay(object.value(QStringLiteral("Text2")).toObject(), projectData));
    }
    default:
        return QString();
    }
}

QString conditionEntryText(const QJsonValue& entry, const QJsonObject* projectData)
{
    if (!entry.isObject())
        return tr("(not a condition)");
    const QString text = conditionText(entry.toObject(), projectData);
    return text.isNull() ? tr("(unknown condition)") : text;
}

void conditionDisplay(UltimateTreeItem* item, const QJsonObject& object, const QJsonObject* projectData)
{
    const QString text = conditionText(object, projectData);
    if (!text.isNull())
        item->setText(0, text);
}

void showConditionList(MyDialogOpener* opener, const QJsonArray& conditions, const QJsonObject* projectData)
{
    opener->setItalic(conditions.isEmpty());
    if (conditions.isEmpty())
        opener->setValue(tr("None"));
    else if (conditions.size() == 1)
        opener->setValue(conditionEntryText(conditions.first(), projectData));
    else
        opener->setValue(tr("%1 Conditions").arg(conditions.size()));
}
