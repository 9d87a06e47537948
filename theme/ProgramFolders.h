#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

// Where the program finds its own files: the folder of the executable, the
// user's data and cache folders, and the compiled-in resources. The theme
// files are read and written through these, and so is everything else the
// program ships or writes beside itself.
namespace PathManager {

// The names the program files its things under: the settings store and the
// user's data and cache folders are named after them.
QString organizationName();
QString applicationName();

// The folder that holds the executable.
QDir applicationFolder();

// The path to open for a compiled-in file, e.g. "resources/ContextIcons/Add.png"
// gives ":/resources/ContextIcons/Add.png". A file of the same relative path in
// the override folder (relative to the executable's folder) wins over it.
QString resourcePath(const char* relativePath);
// The override folder; empty (the default) turns overrides off.
void setResourceOverrideFolder(const QString& relativeFolder);

// The folder of the running executable.
QString executableFolder();
// Stands another folder in for the executable's, as for a portable copy
// elsewhere; an empty path goes back to the real one.
void setExecutableFolder(const QString& folder);

// A path relative to the executable's folder.
QString besideExecutable(const QString& relativePath);

// The folder the shipped files ("Default/", the shipped themes, translations,
// sounds) are read from: the executable's own when it holds them (a build
// tree, a portable copy), else "../share/velmora" relative to it when that
// holds them (an installed program), else the executable's.
QString shippedFolder();
// A path relative to the shipped folder.
QString shippedPath(const QString& relativePath);
// Whether the program runs from an install: its shipped files lie in
// "../share/velmora" rather than beside the executable.
bool runsFromInstall();
// Whether files the program writes may go to relativeFolder beside the
// executable: never for an installed program, else when that folder (or,
// while it doesn't exist, the executable's) can be written.
bool writesBesideExecutable(const QString& relativeFolder);

// The user's own folder for files the program writes, used when the
// executable's folder can't be written.
QString userDataFolder();
// The user's own folder for files the program can always make again.
QString userCacheFolder();

// A path relative to the user's folder.
QString inUserFolder(const QString& relativePath);

// Where a file the program writes goes: where the user's own copy already is,
// else beside the executable when the program may write there (a build tree,
// a portable copy), else the user's folder.
QString writablePath(const QString& relativePath);
// Where such a file is read: the user's folder first, then the shipped
// folder. The first existing one wins; the shipped one when neither exists.
QString readablePath(const QString& relativePath);
// The existing folders of that name, the user's first.
QStringList readableFolders(const QString& relativePath);

}
