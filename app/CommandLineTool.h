#pragma once

#include <QStringList>

class QTextStream;

// velmora-cli: checks a project, rewrites its HUD document and draws its
// HUDs into pictures, with the editor's own code and without a display.
namespace CommandLineTool {

enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

// Runs one command; arguments include the program name. Output and errors go
// to the two streams.
int execute(const QStringList& arguments, QTextStream& out, QTextStream& err);

// The program's entry: builds the application object and calls execute().
int run(int argc, char** argv);

}
