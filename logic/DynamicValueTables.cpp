#include "logic/DynamicValueTables.h"

#include <QCoreApplication>

namespace DynamicValueTables {

const QVector<InfoRow>& generalInfo()
{
    // "Map Name" (8) stands second on purpose: it came later than the rest.
    static const QVector<InfoRow> rows = {
        {0, QT_TR_NOOP("Map ID"), false},
        {8, QT_TR_NOOP("Map Name"), true},
        {1, QT_TR_NOOP("Map Display Name"), true},
        {2, QT_TR_NOOP("Map Width"), false},
        {3, QT_TR_NOOP("Map Height"), false},
        {4, QT_TR_NOOP("Screen Width"), false},
        {5, QT_TR_NOOP("Screen Height"), false},
        {6, QT_TR_NOOP("Window Width"), false},
        {7, QT_TR_NOOP("Window Height"), false},
        {100, QT_TR_NOOP("Party Members"), false},
        {101, QT_TR_NOOP("Gold"), false},
        {102, QT_TR_NOOP("Map X"), false},
        {103, QT_TR_NOOP("Map Y"), false},
        {104, QT_TR_NOOP("Direction"), false},
        {105, QT_TR_NOOP("Screen X"), false},
        {106, QT_TR_NOOP("Screen Y"), false},
        {200, QT_TR_NOOP("Steps"), false},
        {201, QT_TR_NOOP("Play-Time"), false},
        {202, QT_TR_NOOP("Timer"), false},
        {203, QT_TR_NOOP("Save Count"), false},
        {204, QT_TR_NOOP("Battle Count"), false},
        {205, QT_TR_NOOP("Win Count"), false},
        {206, QT_TR_NOOP("Escape Count"), false},
    };
    return rows;
}

int generalSection(int info)
{
    return info < 100 ? 0 : info < 200 ? 1 : 2;
}

namespace {

// The battler values an actor and an enemy share, from "HP" on; an actor
// has "Level" and "Experience" before them.
const char* const BattlerLabels[] = {
    QT_TR_NOOP("HP"),         QT_TR_NOOP("MP"),           QT_TR_NOOP("TP"),          QT_TR_NOOP("TPB Progress"),
    QT_TR_NOOP("TPB Maximum"), QT_TR_NOOP("Maximum HP"), QT_TR_NOOP("Maximum MP"),  QT_TR_NOOP("Maximum TP"),
    QT_TR_NOOP("Attack"),     QT_TR_NOOP("Defense"),      QT_TR_NOOP("Magic Attack"), QT_TR_NOOP("Magic Defense"),
    QT_TR_NOOP("Speed"),      QT_TR_NOOP("Luck"),
};

QVector<InfoRow> battlerRows(bool actor)
{
    QVector<InfoRow> rows = {{0, QT_TR_NOOP("Name"), true}};
    if (actor)
        rows += {{1, QT_TR_NOOP("Level"), false}, {2, QT_TR_NOOP("Experience"), false}};
    for (const char* label : BattlerLabels)
        rows.append({rows.size(), label, false});
    return rows;
}

}

const QVector<InfoRow>& actorInfo()
{
    static const QVector<InfoRow> rows = battlerRows(true);
    return rows;
}

const QVector<InfoRow>& enemyInfo()
{
    static const QVector<InfoRow> rows = battlerRows(false);
    return rows;
}

QString infoLabel(const QVector<InfoRow>& rows, int value, bool text)
{
    for (const InfoRow& row : rows) {
        if (row.value == value)
            return row.textOnly && !text ? QString() : QCoreApplication::translate("", row.label);
    }
    return QString();
}

const QVector<const char*>& mathOperators()
{
    // Symbols and abbreviations read the same in every language.
    static const QVector<const char*> labels = {"+",    "-",    "*",    "/",      "Mod.",  "Pow.",
                                                "Min.", "Max.", "Random", "Sqrt.", "Abs.", "Round"};
    return labels;
}

QString mathOperator(int op)
{
    const QVector<const char*>& labels = mathOperators();
    return op >= 0 && op < labels.size() ? QLatin1String(labels.at(op)) : QString();
}

const QVector<const char*>& listOperators()
{
    static const QVector<const char*> labels = {"Sum", "Cycle", "Random"};
    return labels;
}

QString listOperator(int op)
{
    const QVector<const char*>& labels = listOperators();
    return op >= 0 && op < labels.size() ? QLatin1String(labels.at(op)) : QString();
}

const QVector<const char*>& listMembers()
{
    static const QVector<const char*> labels = {QT_TR_NOOP("Party Members"), QT_TR_NOOP("Troop Enemies"),
                                                QT_TR_NOOP("Map Events")};
    return labels;
}

const QVector<const char*>& listItemTypes()
{
    static const QVector<const char*> labels = {QT_TR_NOOP("All Items"), QT_TR_NOOP("Normal Items"),
                                                QT_TR_NOOP("Weapons"), QT_TR_NOOP("Armors"), QT_TR_NOOP("Key Items")};
    return labels;
}

QString translatedLabel(const QVector<const char*>& labels, int index)
{
    return index >= 0 && index < labels.size() ? QCoreApplication::translate("", labels.at(index)) : QString();
}

}
