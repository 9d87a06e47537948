#pragma once

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPair>
#include <QString>
#include <QVector>

// Reading and writing the JSON files of a project: the RPG Maker database
// files and the HUD document in "data/plugin".
namespace JsonFile {

// Nothing larger is read: a project's JSON is a few megabytes, and a larger
// "file" is a mistake (or a device) that would only eat the machine's memory.
constexpr qint64 MaxFileSize = 256 * 1024 * 1024;

// The parsed file, or a null document when it is missing, unreadable,
// not a regular file, larger than MaxFileSize or malformed. When reason is
// given it receives why, in words for the user ("permission denied", "not
// valid JSON: ... at byte 12"); it is left empty when the file parsed.
QJsonDocument read(const QString& path, QString* reason = nullptr);
// The two halves of read(): the file's bytes, with readable false (and the
// reason) when read() would fail before parsing; and the parse of bytes.
QByteArray readBytes(const QString& path, QString* reason, bool* readable);
QJsonDocument parse(const QByteArray& bytes, QString* reason = nullptr);

// Where to cut a JSON text that is one top-level array into about `parts`
// pieces of whole elements, as (offset, length) ranges of the elements'
// text without the separating commas, so that big tables parse side by
// side. Empty when the text is not an array, parts is below 2, the
// brackets don't balance or the array is too short to cut. Each piece,
// wrapped in brackets, parses to its elements exactly when the whole
// text parses; a malformed text still has to be parsed whole for its error.
QVector<QPair<int, int>> arrayParts(const QByteArray& bytes, int parts);

// read() of "data/plugin/<name>" below the project folder.
QJsonDocument readPlugin(const QDir& projectDirectory, const QString& name, QString* reason = nullptr);

// Writes the object in the compact form. The new content replaces the old file
// only when it is complete, so a failure leaves the previous file as it was.
// On failure reason, when given, receives the system's cause.
bool write(const QString& path, const QJsonObject& object, QString* reason = nullptr);

// write() to "data/plugin/<name>", creating the folder and its parents first.
bool writePlugin(const QDir& projectDirectory, const QString& name, const QJsonObject& object,
                 QString* reason = nullptr);

QString pluginPath(const QDir& projectDirectory, const QString& name);

// The system's message for a failed file operation, as a lower-case phrase
// that can follow a colon ("permission denied", "no space left on device").
QString systemReason(const QString& errorString);

}
