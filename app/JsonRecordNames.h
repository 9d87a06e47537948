#pragma once

#include <QByteArray>
#include <QJsonArray>

// A quick reading of a database table for what the display strings need of
// it: each record's "name". The text is checked as strictly as a JSON parser
// does, but only the names are built; everything else in a record (a class's
// curves of 99 levels, a skill's effects) is passed over without being
// stored. Used where only names are shown, such as velmora-cli outline.
namespace JsonRecordNames {

// The table as an array of the same length: a record object becomes an
// object holding only its "name" (when it had one), and every other element
// is kept as it is. False, with records untouched, when the text is not one
// well-formed JSON array, or holds something this reader declines (a number
// too big for a double, a lone surrogate, nesting past 512, a record with
// two "name" keys): the caller then
// parses the text whole, for the table or for the parser's own error.
bool read(const QByteArray& text, QJsonArray* records);

}
