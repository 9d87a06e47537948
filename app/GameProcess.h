#pragma once

#include <QDir>
#include <QProcess>
#include <QString>

// The running game. The runtime starts helpers of its own (and wine starts
// many), so the game runs in a process group of its own and ending the game
// ends the whole group: nothing of it outlives Stop or the editor.
class GameProcess : public QProcess
{
    Q_OBJECT
public:
    explicit GameProcess(QObject* parent = nullptr);
    // Ends the game first, waiting briefly for it to be gone.
    ~GameProcess() override;

    // Starts the game of a project with the runtime of an RPG Maker location.
    void startGame(const QString& location, const QDir& project);
    // Ends the game and everything it started, at once and without asking.
    void stopGame();

protected:
    void setupChildProcess() override;
};
