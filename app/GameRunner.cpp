#include "app/GameRunner.h"

#include <QFileInfo>
#include <QProcess>
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

void start(QProcess* process, const QString& location, const QDir& project)
{
    const Command run = command(location);
    process->setProgram(run.program);
    process->setArguments(run.arguments);
    process->setWorkingDirectory(project.absolutePath());
    // Nothing is read from the game; its output goes nowhere.
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(QIODevice::ReadWrite);
}

}
