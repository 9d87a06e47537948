#pragma once

#include "logic/HudCatalog.h"

#include <QString>
#include <QStringList>
#include <QVector>

// What stands in the way of expanding the custom kinds of a document: a
// reference that no HUD answers to, and a HUD that, through its custom
// components and collections at any depth, ends up inside itself.
namespace CustomReferences {

struct Problem {
    // The HUD holding the component, as the HUD list names it.
    QString hud;
    QString componentName;
    QString componentId;
    // The reference the component holds.
    QString reference;
    // For a cycle: the names of the HUDs passed, from the holding HUD back
    // to it; empty for a missing reference.
    QStringList cycle;
};

// Components of the custom kinds (Custom, Custom Collection, Attach
// Collection), children included, whose reference names no row.
QVector<Problem> missing(const QVector<HudCatalog::Row>& rows);
// Components of the custom kinds whose reference leads back to the HUD
// that holds them, with the shortest way round.
QVector<Problem> cycles(const QVector<HudCatalog::Row>& rows);

// One line: "<what>: HUD "<hud>", component "<name>" (ID <id>)".
QString describe(const Problem& problem);

}
