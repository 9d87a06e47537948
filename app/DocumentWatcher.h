#pragma once

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

// Tells when a file is changed by another program: a text editor, a
// version-control checkout. The file's content is remembered whenever the
// program itself reads or writes it, so its own saves never count as a change.
class DocumentWatcher : public QObject
{
    Q_OBJECT
public:
    explicit DocumentWatcher(QObject* parent = nullptr);

    // Starts watching a file (which needn't exist yet) and takes what it now
    // holds as known.
    void watch(const QString& filePath);
    // Stops watching.
    void stop();
    // What the file now holds is ours: after our own save or reload.
    void acknowledge();
    QString watchedFile() const { return filePath; }

signals:
    // The file holds something other than what we last knew; removed tells
    // that it is gone.
    void changedOnDisk(bool removed);

private:
    void whenSomethingMoved();
    void check();
    void rewatch();
    QByteArray fingerprint() const;

    QFileSystemWatcher watcher;
    // Programs write in steps (truncate, write, rename): wait for the last.
    QTimer settle;
    QString filePath;
    QByteArray known;
};
