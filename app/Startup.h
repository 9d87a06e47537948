#pragma once

#include <QString>
#include <QStringList>

// Registers the compiled-in resources, which live in a static library and
// so must be registered by each program that uses them.
void initVelmoraResources();

// The program's start-up and exit order.
namespace Startup {

// The project named on the command line: the first argument behind the
// program name that is an existing regular file decides, and its folder's
// absolute path is returned. Folders and missing files are skipped; the suffix
// isn't looked at. Empty when no argument qualifies.
QString projectFromArguments(const QStringList& arguments);

// Runs the editor and returns the event loop's exit value.
int run(int argc, char** argv);

}
