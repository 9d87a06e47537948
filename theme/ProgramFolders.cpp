#include "theme/ProgramFolders.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace PathManager {

namespace {

// Process-wide state, GUI thread only.
struct Folders {
    QString executableOverride;
    QString resourceOverride;
};

Folders& folders()
{
    static Folders theFolders;
    return theFolders;
}

const QString& programSubfolder()
{
    // Named like the settings store, so that the editor, velmora-cli and the
    // tests agree whatever the application object says.
    static const QString folder = QLatin1Char('/') + organizationName() + QLatin1Char('/') + applicationName();
    return folder;
}

}

QString organizationName()
{
    return QStringLiteral("Ostrel Vane");
}

QString applicationName()
{
    return QStringLiteral("Velmora 2");
}

QDir applicationFolder()
{
    return QDir(executableFolder());
}

QString resourcePath(const char* relativePath)
{
    const QString path = QString::fromUtf8(relativePath);
    const QString& overrideFolder = folders().resourceOverride;
    if (!overrideFolder.isEmpty()) {
        const QString overridden = besideExecutable(QStringLiteral("%1/%2").arg(overrideFolder, path));
        if (QFileInfo(overridden).isFile())
            return overridden;
    }
    return QStringLiteral(":/") + path;
}

void setResourceOverrideFolder(const QString& relativeFolder)
{
    folders().resourceOverride = relativeFolder;
}

QString executableFolder()
{
    const QString& override = folders().executableOverride;
    return override.isEmpty() ? QCoreApplication::applicationDirPath() : override;
}

void setExecutableFolder(const QString& folder)
{
    folders().executableOverride = folder;
}

QString besideExecutable(const QString& relativePath)
{
    return QDir(executableFolder()).absoluteFilePath(relativePath);
}

QString shippedFolder()
{
    // The templates mark the folder: every copy of the program ships them.
    static const QString marker = QStringLiteral("Default");
    const QDir beside(executableFolder());
    if (beside.exists(marker))
        return beside.absolutePath();
    const QDir installed(QDir::cleanPath(beside.absoluteFilePath(QStringLiteral("../share/velmora"))));
    if (installed.exists(marker))
        return installed.absolutePath();
    return beside.absolutePath();
}

QString shippedPath(const QString& relativePath)
{
    return QDir(shippedFolder()).absoluteFilePath(relativePath);
}

bool runsFromInstall()
{
    return shippedFolder() != QDir(executableFolder()).absolutePath();
}

bool writesBesideExecutable(const QString& relativeFolder)
{
    // An installed program never writes below its prefix, whatever the
    // permissions say: run as root, /usr/bin is writable, and a theme or a
    // font cache there would outlive the package and land in the next
    // user's program. Writability alone decides only for a build tree or a
    // portable copy, where the files belong beside the program.
    if (runsFromInstall())
        return false;
    const QFileInfo folder(besideExecutable(relativeFolder));
    if (folder.exists())
        return folder.isDir() && folder.isWritable();
    return QFileInfo(executableFolder()).isWritable();
}

QString userDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + programSubfolder();
}

QString userCacheFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + programSubfolder();
}

QString inUserFolder(const QString& relativePath)
{
    return QDir(userDataFolder()).absoluteFilePath(relativePath);
}

QString writablePath(const QString& relativePath)
{
    // A file the user already has in their own folder is updated there, where
    // it is read from.
    const QString user = inUserFolder(relativePath);
    if (QFileInfo::exists(user))
        return user;
    if (writesBesideExecutable(QString()))
        return besideExecutable(relativePath);
    return inUserFolder(relativePath);
}

QString readablePath(const QString& relativePath)
{
    const QString user = inUserFolder(relativePath);
    if (QFileInfo::exists(user))
        return user;
    return shippedPath(relativePath);
}

QStringList readableFolders(const QString& relativePath)
{
    QStringList found;
    for (const QString& folder : {inUserFolder(relativePath), shippedPath(relativePath)}) {
        if (QFileInfo(folder).isDir() && !found.contains(folder))
            found.append(folder);
    }
    return found;
}

}
