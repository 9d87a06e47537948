#pragma once

#include <QJsonArray>
#include <QString>

class QJsonObject;

// How a database entry and a range of entries are shown in pickers and
// summaries: "[0007] Potion" and "[0001 - 0020]", and where their names come
// from. Every lookup reads the project's data as it stands; whatever is
// missing or of the wrong kind (no project, a missing file, an id past the
// end, a null or nameless entry) gives an empty name, never an error.
namespace GameDataLabel {

QString paddedId(int id);
QString entry(int id, const QString& name);
QString range(int first, int last);

// The array of a database file ("Actors.json"); empty when there is none.
QJsonArray databaseArray(const QJsonObject* projectData, const QString& fileName);
// The array "switches" or "variables" of "System.json"; empty when there is none.
QJsonArray systemArray(const QJsonObject* projectData, bool switches);

// The "name" of the record at id of a database file.
QString databaseName(const QJsonObject* projectData, const QString& fileName, int id);
// The name of a switch or a variable.
QString systemName(const QJsonObject* projectData, bool switches, int id);

// The "name" of a record of an array, and the text of an entry of a names
// array, as the two lookups above read them.
QString recordName(const QJsonArray& records, int id);
QString nameAt(const QJsonArray& names, int id);

// "[0007] Potion" for a record of a database file, a switch, a variable.
QString databaseEntry(const QJsonObject* projectData, const QString& fileName, int id);
QString switchEntry(const QJsonObject* projectData, int id);
QString variableEntry(const QJsonObject* projectData, int id);

}
