#pragma once

#include <QString>

class QJsonObject;
class UltimateTreeItem;

// The one-line texts of an add-on, as its row in the add-on list and the
// outline show them: the kind ("Note", "Hover", ...) and its data ("Hue: 30",
// "On Click [0002] Open Menu", "Opacity: return 1.0;"). An add-on of a kind
// the program doesn't know has two empty texts.
QString addonTypeText(const QJsonObject& addon);
QString addonDataText(const QJsonObject& addon, const QJsonObject* projectData);
// Sets both columns of the add-on's row.
void addonDisplay(UltimateTreeItem* item, const QJsonObject& addon, const QJsonObject* projectData);
