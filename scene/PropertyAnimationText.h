#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

// How an entry of a component's "Animations" reads in a list: the animated
// property's name and its start and end values in the units the dialog
// shows (percent for fractions, degrees for angles).
namespace PropertyAnimationText {

enum class Unit { Integer, Fraction, Degrees };

// What an entry of one "Property" stores: its start and end keys, the unit
// of the values and the value a missing key stands for.
struct Property {
    const char* name;
    const char* startKey;
    const char* endKey;
    Unit unit;
    double fallback;
};

// How many properties there are; "Property" runs from 0 to count - 1.
int propertyCount();
// The property of a number; null for a number that names none.
const Property* property(int number);

// The list name of a "Property" ("X-Pos", "Opacity", ...); empty for a
// number that names no property.
QString propertyName(int number);
// The three column texts of an entry: property, start, end.
QStringList rowTexts(const QJsonObject& animation);

}
