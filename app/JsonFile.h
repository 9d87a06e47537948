#pragma once

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

// Reading and writing the JSON files of a project: the RPG Maker database
// files and the HUD document in "data/plugin".
namespace JsonFile {

// The parsed file, or a null document when it is missing, unreadable or
// malformed. Nothing is reported from here; callers fall back silently.
QJsonDocument read(const QString& path);

// read() of "data/plugin/<name>" below the project folder.
QJsonDocument readPlugin(const QDir& projectDirectory, const QString& name);

// Writes the object in the compact form. The new content replaces the old file
// only when it is complete, so a failure leaves the previous file as it was.
bool write(const QString& path, const QJsonObject& object);

// write() to "data/plugin/<name>", creating the folder and its parents first.
bool writePlugin(const QDir& projectDirectory, const QString& name, const QJsonObject& object);

QString pluginPath(const QDir& projectDirectory, const QString& name);

}
