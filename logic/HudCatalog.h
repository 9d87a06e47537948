#pragma once

#include <QJsonObject>
#include <QString>
#include <QVector>

#include <functional>

class MyDialogOpener;

// The HUDs of the open project as the dialogs below the main window see
// them: the rows of the main window's HUD list, in order, each with its
// type (0 a custom HUD object, 1 the Map HUD, 2 the Battle HUD), its object
// and whether it is the one being edited. The main window installs the
// source; without one the project has no HUDs.
namespace HudCatalog {

enum Type { Custom = 0, Map = 1, Battle = 2 };

struct Row {
    int type = Custom;
    QJsonObject object;
    bool current = false;
};

using Source = std::function<QVector<Row>()>;

void setSource(const Source& source);
QVector<Row> rows();

// The reference a row is known by elsewhere in the document: "M" for the
// Map HUD, "B" for the Battle HUD, the "ID" of a custom HUD object.
QString identifierOf(const Row& row);
// The first row known by identifier, or null.
const Row* find(const QVector<Row>& rows, const QString& identifier);
// What the list shows for a row: "Map HUD", "Battle HUD" or the "Name".
QString nameOf(const Row& row);

// The text of a stored reference: "None" for the empty one and for one
// that no row has, "Map HUD", "Battle HUD", or the HUD's "Name".
QString displayName(const QString& identifier);
// Puts that text into an opener; a reference that leads nowhere is drawn
// like an empty value.
void showIdentifier(MyDialogOpener* opener, const QString& identifier);

}
