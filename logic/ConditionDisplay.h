#pragma once

#include <QString>

class MyDialogOpener;
class QJsonArray;
class QJsonObject;
class QJsonValue;
class UltimateTreeItem;

// The one-line texts of conditions, as the condition list, the openers of
// condition lists and the outline show them ("[0001] Show HUD is ON",
// "Gold ≥ 100"). They read the JSON only: a missing key reads as its
// default and projectData (which may be null) gives the names of switches,
// variables and records, empty for an id it doesn't have.

// The text of a condition; a null string for a "Type" the program doesn't
// know.
QString conditionText(const QJsonObject& object, const QJsonObject* projectData);
// The text of an entry of a condition list, whatever it holds: a condition's
// text, "(unknown condition)" for an unknown kind, "(not a condition)" for
// what isn't an object.
QString conditionEntryText(const QJsonValue& entry, const QJsonObject* projectData);
// Sets column 0 of a list row to the text of a condition; a condition of an
// unknown kind leaves the row's text as it stands.
void conditionDisplay(UltimateTreeItem* item, const QJsonObject& object, const QJsonObject* projectData);
// An opener of a condition list: "None" in italics for none, the one
// condition's text, or "%1 Conditions".
void showConditionList(MyDialogOpener* opener, const QJsonArray& conditions, const QJsonObject* projectData);
