#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

// The parameters of a custom HUD object where a component uses it: the
// definitions come from the HUD's "Params", the values stand in the using
// component's "Params" object under each parameter's name.
namespace HudParameters {

// The "Params" of the custom HUD object whose "ID" is identifier; empty when
// no HUD has it.
QJsonArray definitionsOf(const QString& identifier);

// values with a value for every definition: a parameter without one gets ""
// for a text and 0 for a number. Values under names no definition has any
// more (a parameter renamed or deleted since) stay: they are the user's, and
// the game ignores what it isn't asked for.
QJsonObject withDefaults(const QJsonArray& definitions, QJsonObject values);

}
