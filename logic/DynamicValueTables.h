#pragma once

#include <QString>
#include <QVector>

// The fixed choices of a dynamic value: what "Info" means for each kind,
// the math and list operators. The dialogs fill their combos from these
// tables and the display strings look their labels up in them, so that
// both always agree. Labels are the untranslated texts.
namespace DynamicValueTables {

struct InfoRow {
    int value;
    const char* label;
    // Shown only where the value is a text ("Map Name", an actor's "Name").
    bool textOnly;
};

// "Info" of the kind "General", in the order of its popup. The sections are
// value ranges: below 100 map data, below 200 player data, below 300 meta
// data.
const QVector<InfoRow>& generalInfo();
int generalSection(int info);
// "Info" of the kinds "Actor Data" and "Enemy Data".
const QVector<InfoRow>& actorInfo();
const QVector<InfoRow>& enemyInfo();
// The translated label of a value in a table, empty for one it doesn't
// have; the text-only rows count only for a text.
QString infoLabel(const QVector<InfoRow>& rows, int value, bool text);

// The twelve math operators; those from SqrtOperator on take one number.
const QVector<const char*>& mathOperators();
const int SqrtOperator = 9;
QString mathOperator(int op);
// "Sum", "Cycle", "Random".
const QVector<const char*>& listOperators();
QString listOperator(int op);

// The sources of a list of members ("MembersType") and the kinds of items
// of a list of items ("ItemType"), by their value.
const QVector<const char*>& listMembers();
const QVector<const char*>& listItemTypes();
// The translated label of a row of such a table, empty for one it doesn't have.
QString translatedLabel(const QVector<const char*>& labels, int index);

}
