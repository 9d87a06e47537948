#pragma once

#include <QJsonObject>
#include <QString>
#include <QVector>

// The six kinds of add-ons a component carries, and what their dialogs and
// the add-on list need to know of each: the "Type" numbers, the properties a
// code property can compute with their default code, the behaviours, and
// which add-ons a kind of component takes by its capability mask.
namespace AddonTables {

enum Type : int { Note = 0, ColorFilter = 1, Hover = 2, Click = 3, CodeProperty = 4, CodeBehavior = 5, TypeCount = 6 };

// Capability bits of a kind (the same mask that limits its animations).
enum Capability : int { NoSize = 1, NoRotation = 2, NoOpacity = 4, Openness = 8, RepeatOffset = 16 };

struct Kind {
    int type;
    // The chooser's button and its object name, and the text of the list's
    // first column.
    const char* button;
    const char* objectName;
    const char* listText;
};
const Kind* kind(int type);
// Whether the add-on's dialog can show it as it is: a known kind and, for
// the kinds with tabs, a tab number the dialog has. Any other add-on is kept
// as it stands, since opening and confirming would rewrite it as a first tab.
bool editable(const QJsonObject& addon);

struct Property {
    int value;
    const char* label;
    const char* defaultCode;
};
// Every property in the order of the popup (not the order of the values).
const QVector<Property>& properties();
const Property* property(int value);
// The properties a kind of component offers, in the popup's order.
QVector<Property> offeredProperties(int capabilities);

// "On Create", "On Child Create", "On Update", "On Destroy" by value.
const QVector<const char*>& behaviors();

// Whether a component of these capabilities takes the add-on: one of the six
// kinds, and for a code property one of the properties it offers.
bool accepts(int capabilities, const QJsonObject& addon);

QString hoverDefaultCode();
QString clickDefaultCode();
QString behaviorDefaultCode();

}
