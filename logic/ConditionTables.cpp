#include "logic/ConditionTables.h"

#include <QCoreApplication>

namespace ConditionTables {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("", text);
}

}

const Kind* kind(int type)
{
    // In "Type" order; the chooser places its buttons by its own layout.
    static const Kind kinds[TypeCount] = {
        {Switch, QT_TR_NOOP("Check Switch"), "switchCheck", QT_TR_NOOP("Switch Condition")},
        {Variable, QT_TR_NOOP("Check Variable"), "variable", QT_TR_NOOP("Variable Condition")},
        {Actor, QT_TR_NOOP("Check Actor"), "actor", QT_TR_NOOP("Actor Condition")},
        {Enemy, QT_TR_NOOP("Check Enemy"), "enemy", QT_TR_NOOP("Enemy Condition")},
        {Player, QT_TR_NOOP("Check Player State"), "player", QT_TR_NOOP("Player Character Condition")},
        {Gold, QT_TR_NOOP("Check Gold"), "gold", QT_TR_NOOP("Gold Condition")},
        {Button, QT_TR_NOOP("Check Button State"), "buttonCheck", QT_TR_NOOP("Button Condition")},
        {Inventory, QT_TR_NOOP("Check Inventory"), "inventory", QT_TR_NOOP("Inventory Condition")},
        {Other, QT_TR_NOOP("Other Conditions"), "other", QT_TR_NOOP("Other Conditions")},
        {Code, QT_TR_NOOP("Custom Code"), "code", QT_TR_NOOP("Code Condition")},
        {CustomParamExists, QT_TR_NOOP("Custom Param Exists"), "customExists",
         QT_TR_NOOP("Custom Parameter Exists Condition")},
        {CustomParam, QT_TR_NOOP("Custom Param"), "custom", QT_TR_NOOP("Custom Parameter Condition")},
        {NumberCompare, QT_TR_NOOP("Compare Numbers"), "numberCompare", QT_TR_NOOP("Number Comparison")},
        {TextCompare, QT_TR_NOOP("Compare Texts"), "textCompare", QT_TR_NOOP("Text Comparison")},
    };
    return type >= 0 && type < TypeCount ? &kinds[type] : nullptr;
}

QString operatorText(int op)
{
    static const char* const operators[OperatorCount] = {"=", "\u2260", "\u2264", "\u2265", "<", ">"};
    return op >= 0 && op < OperatorCount ? QString::fromUtf8(operators[op]) : QString();
}

const QVector<RecordCheck>& actorChecks()
{
    static const QVector<RecordCheck> rows = {
        {QT_TR_NOOP("Exists/In Party"), nullptr, nullptr, nullptr, nullptr},
        {QT_TR_NOOP("Is Named:"), nullptr, nullptr, "Name", QT_TR_NOOP("The name to check for.")},
        {QT_TR_NOOP("Has Class:"), "Classes.json", QT_TR_NOOP("Class"), "Class", QT_TR_NOOP("The class to check for.")},
        {QT_TR_NOOP("Has Skill:"), "Skills.json", QT_TR_NOOP("Skill"), "Skill", QT_TR_NOOP("The skill to check for.")},
        {QT_TR_NOOP("Has Weapon:"), "Weapons.json", QT_TR_NOOP("Weapon"), "Weapon",
         QT_TR_NOOP("The weapon to check for.")},
        {QT_TR_NOOP("Has Armor:"), "Armors.json", QT_TR_NOOP("Armor"), "Armor", QT_TR_NOOP("The armor to check for.")},
        {QT_TR_NOOP("Has State:"), "States.json", QT_TR_NOOP("State"), "State", QT_TR_NOOP("The state to check for.")},
    };
    return rows;
}

const QVector<RecordCheck>& inventoryChecks()
{
    static const QVector<RecordCheck> rows = {
        {QT_TR_NOOP("Has Item:"), "Items.json", QT_TR_NOOP("Item"), "Item", QT_TR_NOOP("The item to check for.")},
        {QT_TR_NOOP("Has Weapon:"), "Weapons.json", QT_TR_NOOP("Weapon"), "Weapon",
         QT_TR_NOOP("The weapon to check for.")},
        {QT_TR_NOOP("Has Armor:"), "Armors.json", QT_TR_NOOP("Armor"), "Armor", QT_TR_NOOP("The armor to check for.")},
    };
    return rows;
}

const QVector<const char*>& enemyChecks()
{
    static const QVector<const char*> rows = {QT_TR_NOOP("Exists/In Troop"), QT_TR_NOOP("Has State:")};
    return rows;
}

const QVector<const char*>& buttons()
{
    static const QVector<const char*> rows = {QT_TR_NOOP("OK"),   QT_TR_NOOP("Cancel"), QT_TR_NOOP("Shift"),
                                              QT_TR_NOOP("Down"), QT_TR_NOOP("Left"),   QT_TR_NOOP("Right"),
                                              QT_TR_NOOP("Up")};
    return rows;
}

const QVector<const char*>& buttonStates()
{
    static const QVector<const char*> rows = {QT_TR_NOOP("Is Pressed"), QT_TR_NOOP("Isn't Pressed"),
                                              QT_TR_NOOP("Was Just Pressed"), QT_TR_NOOP("Is Repeated")};
    return rows;
}

const QVector<const char*>& otherChecks()
{
    static const QVector<const char*> rows = {QT_TR_NOOP("Is Playtest?"), QT_TR_NOOP("Player in Battle?"),
                                              QT_TR_NOOP("Player on Map?"),
                                              QT_TR_NOOP("Party Overlaps Component?")};
    return rows;
}

const QVector<Direction>& directions()
{
    static const QVector<Direction> rows = {
        {2, QT_TR_NOOP("Down")}, {4, QT_TR_NOOP("Left")}, {6, QT_TR_NOOP("Right")}, {8, QT_TR_NOOP("Up")}};
    return rows;
}

QString directionLabel(int value)
{
    for (const Direction& direction : directions()) {
        if (direction.value == value)
            return translated(direction.label);
    }
    return QString();
}

QString label(const QVector<const char*>& rows, int index)
{
    return index >= 0 && index < rows.size() ? translated(rows.at(index)) : QString();
}

QString label(const QVector<RecordCheck>& rows, int index)
{
    return index >= 0 && index < rows.size() ? translated(rows.at(index).label) : QString();
}

}
