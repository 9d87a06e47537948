#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

// How an entry of a component's "Animations" reads in a list: the animated
// property's name and its start and end values in the units the dialog
// shows (percent for fractions, degrees for angles).
namespace PropertyAnimationText {

// The list name of a "Property" ("X-Pos", "Opacity", ...); empty for a
// number that names no property.
QString propertyName(int property);
// The three column texts of an entry: property, start, end.
QStringList rowTexts(const QJsonObject& animation);

}
