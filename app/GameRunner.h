#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

// How the game runtime of an RPG Maker MZ installation is found and started.
// RPG Maker ships "nwjs-win/nw.exe"; a Linux runtime in "nwjs-lin/nw" is taken
// first, and the Windows one runs through wine where that is installed.
namespace GameRunner {

// Whether a folder holds a game runtime ("nwjs-win" or "nwjs-lin").
bool isValidLocation(const QString& location);

struct Command {
    QString program;
    QStringList arguments;
};

// The command that runs the game of the working folder with the runtime of a
// location: the runtime gets the single argument ".".
Command command(const QString& location);

}
