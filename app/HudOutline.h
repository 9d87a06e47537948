#pragma once

struct HudEntry;
class QJsonObject;
class QTextStream;

// The outline of a HUD as text: the parameters a custom HUD object declares,
// its components as an indented tree, each
// with its kind, name, position and size, and under it its display
// conditions, every value of its data that the game computes at run time
// (dynamic texts and numbers, lists, actors, dynamic inputs of fields) and
// its add-ons as the editor shows them, its property animations and its
// custom properties; a use of a custom HUD names that HUD (through
// HudCatalog) and every value it gives the HUD's parameters. It
// reads the JSON only, so a damaged or unknown value is shown as such and
// never stops it.
namespace HudOutline {

// projectData names switches, variables and database records and holds the
// order of custom properties ("PropertyOrders.json"); it may be null.
void write(const HudEntry& entry, const QJsonObject* projectData, QTextStream& out);

}
