#include "app/GameProcess.h"

#include "app/GameRunner.h"

#ifdef Q_OS_UNIX
#include <signal.h>
#include <unistd.h>
#endif

GameProcess::GameProcess(QObject* parent) : QProcess(parent)
{
}

GameProcess::~GameProcess()
{
    if (state() != NotRunning) {
        stopGame();
        waitForFinished(2000);
    }
}

void GameProcess::startGame(const QString& location, const QDir& project)
{
    const GameRunner::Command run = GameRunner::command(location);
    setProgram(run.program);
    setArguments(run.arguments);
    setWorkingDirectory(project.absolutePath());
    // Nothing is read from the game; its output goes nowhere.
    setStandardOutputFile(QProcess::nullDevice());
    setStandardErrorFile(QProcess::nullDevice());
    start(QIODevice::ReadWrite);
}

void GameProcess::stopGame()
{
#ifdef Q_OS_UNIX
    // The runtime leads its own group (see setupChildProcess), so the group's
    // id is its process id.
    const qint64 id = processId();
    if (id > 0)
        ::kill(-pid_t(id), SIGKILL);
#endif
    kill();
}

void GameProcess::setupChildProcess()
{
#ifdef Q_OS_UNIX
    // Runs in the child between fork and exec.
    ::setpgid(0, 0);
#endif
}
