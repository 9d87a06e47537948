// Times what opening and saving a project costs, for projects made by
// tools/gen-project: reading the eleven data files, reading the HUD document
// into the HUD list's entries, putting the document together again and writing
// it, and, for comparison, a bare parse and compact write of the same file.
// Prints one line per project: the medians in milliseconds.
#include "app/HudDocument.h"
#include "app/JsonFile.h"
#include "app/ProjectData.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double medianOf(int runs, const std::function<void()>& work)
{
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(timer.nsecsElapsed() / 1e6);
    }
    return median(times);
}

}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        out << "usage: velmora-bench-project RUNS PROJECT...\n";
        return 2;
    }
    const int runs = qMax(1, arguments.at(1).toInt());
    QTemporaryDir scratch;

    out << "project\tdata ms\tdocument ms\topen ms\tsave ms\tbare JSON ms\n";
    for (const QString& path : arguments.mid(2)) {
        const QDir project(path);
        const QString documentPath = JsonFile::pluginPath(project, HudDocument::FileName);
        const QString target = scratch.filePath(QStringLiteral("VelmoraHUD.json"));

        const double data = medianOf(runs, [&]() {
            QJsonObject projectData;
            ProjectData::ScreenSize screen;
            if (!ProjectData::load(project, projectData, screen))
                qFatal("not a project: %s", qPrintable(path));
        });
        HudDocument document;
        const double load = medianOf(runs, [&]() { document = HudDocument::load(project); });
        const double save = medianOf(runs, [&]() {
            if (!HudDocument::save(project, HudDocument::assemble(document.root, document.entries), false, target))
                qFatal("could not save");
        });
        // What any program must pay at least: parse the file and write it back compact.
        const double bare = medianOf(runs, [&]() {
            QFile file(documentPath);
            if (!file.open(QIODevice::ReadOnly))
                qFatal("unreadable document");
            const QByteArray bytes = QJsonDocument::fromJson(file.readAll()).toJson(QJsonDocument::Compact);
            QSaveFile written(target);
            if (!written.open(QIODevice::WriteOnly) || written.write(bytes) != bytes.size() || !written.commit())
                qFatal("could not write");
        });
        out << project.dirName() << '\t' << QString::number(data, 'f', 1) << '\t' << QString::number(load, 'f', 1)
            << '\t' << QString::number(data + load, 'f', 1) << '\t' << QString::number(save, 'f', 1) << '\t'
            << QString::number(bare, 'f', 1) << '\n';
        out.flush();
    }
    return 0;
}
