#pragma once

#include <QObject>
#include <QString>

#include <functional>

// Shows a folder in the desktop's file manager. On Linux the desktop's own
// launcher, xdg-open, is run and its answer awaited, since it is the only
// one that knows whether a file manager came up; elsewhere, or without it,
// Qt's desktop services are asked.
namespace FolderOpener {

// failed runs (perhaps later, but never after context is gone) when the
// folder could not be shown.
void open(const QString& folder, QObject* context, const std::function<void()>& failed);

}
