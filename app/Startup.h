#pragma once

#include <QString>
#include <QStringList>

// Registers the compiled-in resources, which live in a static library and
// so must be registered by each program that uses them.
void initVelmoraResources();

class VelmoMainWindow;

// The program's start-up and exit order.
namespace Startup {

struct Settings {
    int windowStyle = 2;
    bool nativeMenuBar = false;
    QString theme;
    QString language;
};

// Loads the settings and brings up the theme, the translator and the style;
// a theme or language that can't be found is dropped from what is returned.
// What went wrong with the theme's file is kept for the status bar.
Settings applySettings();

// What start-up found wrong before the main window stood, for its status
// bar; taking them empties the list.
void addNotice(const QString& text);
QStringList takeNotices();

// The exit's settings step: writes what the main window holds, then removes
// the translator.
void saveOnExit(const VelmoMainWindow& mainWindow);

// The project named on the command line.
struct CommandLineProject {
    // The absolute path of the project folder; empty when no argument named one.
    QString folder;
    // One sentence for each argument that couldn't be used, for the status bar.
    QStringList problems;
};

// The first argument behind the program name that is an existing regular file
// decides, and its folder is the project; the suffix isn't looked at. A folder
// holding exactly one ".rmmzproject" file counts as that project too. Other
// arguments are skipped and named in problems.
CommandLineProject projectFromArguments(const QStringList& arguments);

// The answer to "--help" or "--version" among the arguments, printed instead of
// starting the editor; empty when neither is there.
QString commandLineAnswer(const QStringList& arguments);

// Runs the editor and returns the event loop's exit value.
int run(int argc, char** argv);

}
