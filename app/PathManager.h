#pragma once

#include <QString>

// Where the program finds its own files.
namespace PathManager {

// The folder of the running executable; shipped files ("Default/", themes)
// are read from here.
QString executableFolder();

// A path relative to the executable's folder.
QString besideExecutable(const QString& relativePath);

}
