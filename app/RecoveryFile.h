#pragma once

#include <QDateTime>
#include <QDir>
#include <QJsonObject>
#include <QString>
#include <QStringList>

// The copy of a project's unsaved HUD document that the editor keeps in the
// user's cache folder while there are unsaved changes, so that work survives
// a killed editor or a machine that lost power. One file per project, named
// after the project's absolute path; never the project's own document.
namespace RecoveryFile {

// What a recovery file holds: the whole document as it would be saved, the
// editor-only background paths, one per HUD, and the user's order of custom
// properties ("PropertyOrders.json").
struct Content {
    QJsonObject document;
    QStringList backgrounds;
    QJsonObject propertyOrders;
    QDateTime written;
};

// The recovery file of a project.
QString path(const QDir& project);

// Writes the document atomically; false when it couldn't be written.
bool write(const QDir& project, const Content& content);

// Removes the project's recovery file, if any.
void remove(const QDir& project);

// Whether a recovery file of the project exists that was written after the
// project's "VelmoraHUD.json" (or while there is none).
bool isNewerThanDocument(const QDir& project);

// The recovery file's content; false when it is missing, damaged or belongs
// to another project.
bool read(const QDir& project, Content* content);

}
