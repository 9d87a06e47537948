#pragma once

#include <QFont>
#include <QString>

#include <functional>

class QJsonObject;

// The game fonts of the open project as the text component draws them and
// its dialog offers them. The program installs where the project's "fonts"
// folder is; the fonts themselves load through the font picker's loader, so
// that both show a file in the same face.
namespace ProjectFonts {

using FolderHook = std::function<QString()>;
// The hook answers the absolute path of the project's "fonts" folder, or
// an empty string without a project.
void setFolderHook(const FolderHook& hook);
QString folder();

// "mainFontFilename" of "advanced" in the project's System.json; empty
// without project data or without that object.
QString mainFontName(const QJsonObject* projectData);

// The font of a font file of the project: a default QFont for an empty
// name, without a project or for a file that can't be loaded.
QFont font(const QString& fileName);

}
