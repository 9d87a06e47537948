#pragma once

#include <QImage>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <functional>

// The game's images as the image-backed kinds draw them. The program
// installs how a graphics kind and a file name (without folder and
// extension) become an absolute path; every file is read once and shared
// by all components that show it, and read again only when the file on
// disk changed (size or modification time), so a game maker who repaints
// a picture sees it at the next rebuild without a restart.
namespace ProjectImages {

// The graphics kinds the components use, numbered as the path manager's.
enum Kind { Faces = 3, Pictures = 12, System = 18 };

using PathHook = std::function<QString(int kind, const QString& name)>;
// The hook answers the absolute path of "<name>.png" in the kind's folder
// of the open project, or an empty string without a project.
void setPathHook(const PathHook& hook);
QString path(int kind, const QString& name);
// The absolute folder of a kind's images in the open project, for the
// image pickers; empty without a project.
QString folder(int kind);

// The image; a null image for an empty name, without a project, or for a
// file that is missing, empty, truncated or not an image. A failed name is
// remembered in missing() until clearMissing().
QImage image(int kind, const QString& name);
// The same as a pixmap, converted once per file and shared.
QPixmap pixmap(int kind, const QString& name);

// The "<folder>/<name>" of every failed lookup since clearMissing(), each once,
// relative to the project, in the order they were first asked for.
QStringList missing();
void clearMissing();

// Forgets every cached image (the project closed).
void clear();

}
