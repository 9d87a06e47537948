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
Settings applySettings();

// The exit's settings step: writes what the main window holds, then removes
// the translator.
void saveOnExit(const VelmoMainWindow& mainWindow);

// The project named on the command line: the first argument behind the
// program name that is an existing regular file decides, and its folder's
// absolute path is returned. Folders and missing files are skipped; the suffix
// isn't looked at. Empty when no argument qualifies.
QString projectFromArguments(const QStringList& arguments);

// Runs the editor and returns the event loop's exit value.
int run(int argc, char** argv);

}
