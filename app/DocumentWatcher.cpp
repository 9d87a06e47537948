#include "app/DocumentWatcher.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

DocumentWatcher::DocumentWatcher(QObject* parent) : QObject(parent)
{
    settle.setSingleShot(true);
    settle.setInterval(200);
    connect(&settle, &QTimer::timeout, this, &DocumentWatcher::check);
    connect(&watcher, &QFileSystemWatcher::fileChanged, this, &DocumentWatcher::whenSomethingMoved);
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, &DocumentWatcher::whenSomethingMoved);
}

void DocumentWatcher::watch(const QString& path)
{
    stop();
    filePath = QFileInfo(path).absoluteFilePath();
    rewatch();
    known = fingerprint();
}

void DocumentWatcher::stop()
{
    settle.stop();
    const QStringList watched = watcher.files() + watcher.directories();
    if (!watched.isEmpty())
        watcher.removePaths(watched);
    filePath.clear();
    known.clear();
}

void DocumentWatcher::acknowledge()
{
    if (filePath.isEmpty())
        return;
    rewatch();
    known = fingerprint();
}

void DocumentWatcher::whenSomethingMoved()
{
    if (!filePath.isEmpty())
        settle.start();
}

void DocumentWatcher::rewatch()
{
    // A file replaced by a rename (as every safe save does) loses its watch,
    // and a missing file has none: the folders above it see it come and go.
    const QFileInfo file(filePath);
    QStringList wanted;
    if (file.exists())
        wanted.append(filePath);
    QDir folder = file.absoluteDir();
    for (int level = 0; level < 2; ++level) {
        if (folder.exists())
            wanted.append(folder.absolutePath());
        if (!folder.cdUp())
            break;
    }
    const QStringList watched = watcher.files() + watcher.directories();
    for (const QString& path : wanted) {
        if (!watched.contains(path))
            watcher.addPath(path);
    }
}

void DocumentWatcher::check()
{
    if (filePath.isEmpty())
        return;
    rewatch();
    const QByteArray now = fingerprint();
    if (now == known)
        return;
    known = now;
    emit changedOnDisk(now.isEmpty());
}

QByteArray DocumentWatcher::fingerprint() const
{
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(&file);
    return hash.result();
}
