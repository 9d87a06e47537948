#pragma once

#include <QString>
#include <QStringList>

// Where the program finds its own files.
namespace PathManager {

// The folder of the running executable; shipped files ("Default/", the
// shipped themes) are read from here.
QString executableFolder();
// Stands another folder in for the executable's, as for a portable copy
// elsewhere; an empty path goes back to the real one.
void setExecutableFolder(const QString& folder);

// A path relative to the executable's folder.
QString besideExecutable(const QString& relativePath);

// The user's own folder for files the program writes, used when the
// executable's folder can't be written.
QString userDataFolder();

// A path relative to the user's folder.
QString inUserFolder(const QString& relativePath);

// Where a file the program writes goes: where the user's own copy already is,
// else beside the executable when that folder is writable (a build tree, a
// portable copy), else the user's folder.
QString writablePath(const QString& relativePath);
// Where such a file is read: the user's folder first, then beside the
// executable. The first existing one wins; the executable's when neither exists.
QString readablePath(const QString& relativePath);
// The existing folders of that name, the user's first.
QStringList readableFolders(const QString& relativePath);

}
