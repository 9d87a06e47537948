#include "app/PathManager.h"

#include "app/SettingsStore.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace PathManager {

namespace {

QString& executableFolderOverride()
{
    static QString folder;
    return folder;
}

}

QString inUserFolder(const QString& relativePath)
{
    return QDir(userDataFolder()).absoluteFilePath(relativePath);
}

QString executableFolder()
{
    const QString& override = executableFolderOverride();
    return override.isEmpty() ? QCoreApplication::applicationDirPath() : override;
}

void setExecutableFolder(const QString& folder)
{
    executableFolderOverride() = folder;
}

QString besideExecutable(const QString& relativePath)
{
    return QDir(executableFolder()).absoluteFilePath(relativePath);
}

QString userDataFolder()
{
    // The application's data location under the settings store's names, the
    // same for the editor, velmora-cli and the tests.
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QLatin1Char('/') + SettingsStore::organization() + QLatin1Char('/') + SettingsStore::application();
}

QString writablePath(const QString& relativePath)
{
    // A file the user already has in their own folder is updated there, where
    // it is read from.
    const QString user = inUserFolder(relativePath);
    if (QFileInfo::exists(user))
        return user;
    if (QFileInfo(executableFolder()).isWritable())
        return besideExecutable(relativePath);
    return inUserFolder(relativePath);
}

QString readablePath(const QString& relativePath)
{
    const QString user = inUserFolder(relativePath);
    if (QFileInfo::exists(user))
        return user;
    return besideExecutable(relativePath);
}

QStringList readableFolders(const QString& relativePath)
{
    QStringList folders;
    for (const QString& folder : {inUserFolder(relativePath), besideExecutable(relativePath)}) {
        if (QFileInfo(folder).isDir() && !folders.contains(folder))
            folders.append(folder);
    }
    return folders;
}

}
