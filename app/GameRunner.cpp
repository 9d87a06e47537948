#include "app/GameRunner.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace GameRunner {

namespace {

const QString WindowsRuntime = QStringLiteral("nwjs-win");
const QString LinuxRuntime = QStringLiteral("nwjs-lin");

}

bool isValidLocation(const QString& location)
{
    if (location.isEmpty())
        return false;
    const QDir folder(location);
    return QFileInfo(folder.filePath(WindowsRuntime)).isDir() || QFileInfo(folder.filePath(LinuxRuntime)).isDir();
}

Command command(const QString& location)
{
    const QDir folder(location);
    const QStringList gameArguments{QStringLiteral(".")};
    const QString linuxProgram = folder.absoluteFilePath(LinuxRuntime + QStringLiteral("/nw"));
    if (QFileInfo::exists(linuxProgram))
        return Command{linuxProgram, gameArguments};
    const QString windowsProgram = folder.absoluteFilePath(WindowsRuntime + QStringLiteral("/nw.exe"));
#ifndef Q_OS_WIN
    const QString wine = QStandardPaths::findExecutable(QStringLiteral("wine"));
    if (!wine.isEmpty())
        return Command{wine, QStringList(windowsProgram) + gameArguments};
#endif
    return Command{windowsProgram, gameArguments};
}


}
