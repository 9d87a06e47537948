#include "app/RecoveryWriter.h"

#include "app/RecoveryFile.h"

RecoveryWriter::RecoveryWriter(const Source& source, QObject* parent) : QObject(parent), source(source)
{
    quiet.setSingleShot(true);
    quiet.setInterval(QuietDelay);
    longest.setSingleShot(true);
    longest.setInterval(LongestDelay);
    connect(&quiet, &QTimer::timeout, this, &RecoveryWriter::writeNow);
    connect(&longest, &QTimer::timeout, this, &RecoveryWriter::writeNow);
    // One writer, so the writes land in the order they were taken.
    worker.setMaxThreadCount(1);
    worker.setExpiryTimeout(-1);
}

RecoveryWriter::~RecoveryWriter()
{
    worker.waitForDone();
}

void RecoveryWriter::schedule()
{
    quiet.start();
    if (!longest.isActive())
        longest.start();
}

void RecoveryWriter::writeNow()
{
    cancel();
    QDir project;
    RecoveryFile::Content content;
    if (!source || !source(project, content))
        return;
    worker.start([project, content]() { RecoveryFile::write(project, content); });
}

void RecoveryWriter::cancel()
{
    quiet.stop();
    longest.stop();
}

void RecoveryWriter::remove(const QDir& project)
{
    cancel();
    waitForWrites();
    RecoveryFile::remove(project);
}

void RecoveryWriter::waitForWrites()
{
    worker.waitForDone();
}
