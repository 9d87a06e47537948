#pragma once

#include "app/RecoveryFile.h"

#include <QDir>
#include <QJsonObject>
#include <QObject>
#include <QStringList>
#include <QThreadPool>
#include <QTimer>

#include <functional>

// Keeps unsaved work in the project's recovery file within seconds: a few
// seconds after the last change, and at the latest every half minute while
// changes go on. The document is taken on the GUI thread (its JSON is shared,
// so that is cheap) and serialised and written on a worker of its own, so a
// large HUD never stalls the canvas.
class RecoveryWriter : public QObject
{
    Q_OBJECT
public:
    // What would be saved: the document, its editor-only background paths
    // and the custom property orders; false when there is nothing to keep.
    using Source = std::function<bool(QDir& project, RecoveryFile::Content& content)>;

    static constexpr int QuietDelay = 5000;
    static constexpr int LongestDelay = 30000;

    explicit RecoveryWriter(const Source& source, QObject* parent = nullptr);
    ~RecoveryWriter() override;

    // Something changed: the file follows within the delays.
    void schedule();
    // Takes the document now and writes it.
    void writeNow();
    // Nothing waits to be written any more (the work was saved or dropped).
    void cancel();
    // Cancels, waits for a write under way, and removes the project's file.
    void remove(const QDir& project);
    // Waits until every write handed to the worker is on disk.
    void waitForWrites();

private:
    Source source;
    QTimer quiet;
    QTimer longest;
    QThreadPool worker;
};
