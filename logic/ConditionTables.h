#pragma once

#include <QString>
#include <QVector>

// The fixed vocabulary of conditions: the fourteen kinds by "Type", the
// comparison operators and the choices of each kind. The dialogs fill their
// fields from these tables and the one-line texts read their labels from
// them, so both always agree. Labels are the untranslated texts.
namespace ConditionTables {

enum Type {
    Switch = 0,
    Variable = 1,
    Actor = 2,
    Enemy = 3,
    Player = 4,
    Gold = 5,
    Button = 6,
    Inventory = 7,
    Other = 8,
    Code = 9,
    CustomParamExists = 10,
    CustomParam = 11,
    NumberCompare = 12,
    TextCompare = 13,
    TypeCount = 14
};

struct Kind {
    int type;
    // The chooser's button: its text and object name.
    const char* button;
    const char* objectName;
    // The title of the kind's dialog.
    const char* title;
};
// By "Type"; null for a type the program doesn't know.
const Kind* kind(int type);

// "=", "≠", "≤", "≥", "<", ">": written as they stand, never translated.
// Comparisons of texts offer the first two only.
const int OperatorCount = 6;
const int TextOperatorCount = 2;
QString operatorText(int op);

// A choice that reads a database record: its label, the file, the title
// word of the picker, the picker's object name and its hint.
struct RecordCheck {
    const char* label;
    const char* fileName;
    const char* titleWord;
    const char* objectName;
    const char* hint;
};
// "Check" of an actor condition, 0 to 6; the first two read no record.
const QVector<RecordCheck>& actorChecks();
// "Check" of an inventory condition: item, weapon, armor.
const QVector<RecordCheck>& inventoryChecks();
// "Check" of an enemy condition: "Exists/In Troop", "Has State:".
const QVector<const char*>& enemyChecks();
// "Key" and "State" of a button condition.
const QVector<const char*>& buttons();
const QVector<const char*>& buttonStates();
// "Check" of the other conditions.
const QVector<const char*>& otherChecks();
// The player's directions: the game's values 2, 4, 6, 8 and their labels.
struct Direction {
    int value;
    const char* label;
};
const QVector<Direction>& directions();
QString directionLabel(int value);

// The translated label of a table row; empty past either end.
QString label(const QVector<const char*>& rows, int index);
QString label(const QVector<RecordCheck>& rows, int index);

}
