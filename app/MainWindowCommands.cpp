#include "app/MainWindowCommands.h"

#include "app/VelmoMainTitleBar.h"
#include "app/VelmoMainWindow.h"

#include "widgets/InflateButton.h"

#include <QAction>
#include <QMenu>
#include <QShortcut>

MainWindowCommands::MainWindowCommands(VelmoMainWindow* window, VelmoMainTitleBar* bar)
    : QObject(window), bar(bar)
{
    using Slot = void (VelmoMainWindow::*)();
    const QList<QPair<QAction*, Slot>> table{
        {bar->Action_OpenProject, &VelmoMainWindow::OpenProject},
        {bar->Action_ReloadProject, &VelmoMainWindow::ReloadProject},
        {bar->Action_SaveProject, &VelmoMainWindow::SaveProject},
        {bar->Action_CloseProject, &VelmoMainWindow::CloseProject},
        {bar->Action_Quit, &VelmoMainWindow::closeWindow},
        {bar->Action_Undo, &VelmoMainWindow::Undo},
        {bar->Action_Redo, &VelmoMainWindow::Redo},
        {bar->Action_Run, &VelmoMainWindow::RunGame},
        {bar->Action_Stop, &VelmoMainWindow::StopGame},
        {bar->Action_ProjectExplorer, &VelmoMainWindow::OpenProjectDirectory},
        {bar->Action_Settings, &VelmoMainWindow::OpenSettings},
        {bar->Action_ZoomIn, &VelmoMainWindow::ZoomIn},
        {bar->Action_ZoomOut, &VelmoMainWindow::ZoomOut},
        {bar->Action_FitZoom, &VelmoMainWindow::FitToView},
        {bar->Action_About, &VelmoMainWindow::About},
        {bar->Action_Tutorial, &VelmoMainWindow::OpenTutorials},
        {bar->Action_Update, &VelmoMainWindow::OpenDownloads}};
    for (const auto& entry : table)
        connect(entry.first, &QAction::triggered, window, entry.second);
    bar->Action_Undo->setEnabled(false);
    bar->Action_Redo->setEnabled(false);

    // A disabled action takes no shortcut; this one stands in for Run's
    // while Run is off and says why in the status line.
    runShortcut = new QShortcut(bar->Action_Run->shortcut(), window);
    runShortcut->setEnabled(false);
    connect(runShortcut, &QShortcut::activated, this, [this]() { emit unavailableCommand(runReason); });
    runDescription = bar->run->property("mtt_desc").toString();
    bar->Menu_Project->setToolTipsVisible(true);
}

QString MainWindowCommands::whyNoRun(const State& state)
{
    if (!state.projectOpen)
        return tr("Open a project to run its game.");
    if (!state.runBlocker.isEmpty())
        return state.runBlocker;
    if (state.gameRunning)
        return tr("The game is running already; Stop ends it.");
    return QString();
}

void MainWindowCommands::apply(const State& state)
{
    const bool open = state.projectOpen;
    bar->Action_OpenProject->setEnabled(true);
    bar->Action_ReloadProject->setEnabled(open);
    bar->Action_SaveProject->setEnabled(open);
    bar->Action_CloseProject->setEnabled(open);
    const bool canRun = open && state.runBlocker.isEmpty();
    bar->Action_Run->setEnabled(canRun && !state.gameRunning);
    // A Run that is off says what is missing, in its tool-tip and on its key.
    runReason = whyNoRun(state);
    bar->Action_Run->setToolTip(runReason.isEmpty() ? bar->Action_Run->text() : runReason);
    bar->run->setProperty("mtt_desc", runReason.isEmpty() ? runDescription : runReason);
    runShortcut->setEnabled(!runReason.isEmpty());
    bar->Action_Stop->setEnabled(canRun && state.gameRunning);
    bar->Action_ProjectExplorer->setEnabled(open);
    bar->Action_Settings->setEnabled(open);
    bar->Action_FitZoom->setEnabled(open);
    applyUndo(state);
    applyZoom(state);
}

void MainWindowCommands::applyUndo(const State& state)
{
    bar->Action_Undo->setEnabled(state.projectOpen && state.canUndo);
    bar->Action_Redo->setEnabled(state.projectOpen && state.canRedo);
}

void MainWindowCommands::applyZoom(const State& state)
{
    bar->Action_ZoomIn->setEnabled(state.projectOpen && state.canZoomIn);
    bar->Action_ZoomOut->setEnabled(state.projectOpen && state.canZoomOut);
}
