#pragma once

#include <QObject>
#include <QString>

class QShortcut;
class VelmoMainTitleBar;
class VelmoMainWindow;

// The main window's commands: every menu action and tool button of the title
// bar wired to the window's slot, and which of them can run in the present
// state. A tool button follows its action, so each command is set once.
class MainWindowCommands : public QObject
{
    Q_OBJECT
public:
    // What decides which commands can run.
    struct State {
        bool projectOpen = false;
        bool canUndo = false;
        bool canRedo = false;
        bool canZoomIn = true;
        bool canZoomOut = true;
        bool gameRunning = false;
        // Why the game can't be run; empty when it can.
        QString runBlocker;
    };

    MainWindowCommands(VelmoMainWindow* window, VelmoMainTitleBar* bar);

    void apply(const State& state);
    // The undo and zoom hooks set their own two commands directly.
    void applyUndo(const State& state);
    void applyZoom(const State& state);

signals:
    // The shortcut of a command that can't run now was pressed; why it can't.
    void unavailableCommand(const QString& reason);

private:
    // Why Run can't run now; empty when it can.
    static QString whyNoRun(const State& state);

    VelmoMainTitleBar* bar;
    QShortcut* runShortcut;
    QString runDescription;
    QString runReason;
};
