// Times what opening and saving a project costs, for projects made by
// tools/gen-project: reading the eleven data files, reading the HUD document
// into the HUD list's entries, loading the first HUD onto the canvas, a change
// of HUD between the two largest HUDs, putting the document together again and
// writing it, and, for comparison, a bare parse and compact write of the same
// file. Prints one line per project: the medians in milliseconds.
#include "app/HudDocument.h"
#include "app/JsonFile.h"
#include "app/ProjectData.h"
#include "components/GameUIEditorSceneHelper.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
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
    QApplication application(argc, argv);
    QTextStream out(stdout);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        out << "usage: velmora-bench-project RUNS PROJECT...\n";
        return 2;
    }
    const int runs = qMax(1, arguments.at(1).toInt());
    QTemporaryDir scratch;

    out << "project\tdata ms\tdocument ms\tfirst HUD ms\topen ms\tHUD change ms\tsave ms\tbare JSON ms\n";
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

        // The canvas and its list, as in the editor; the first HUD goes onto
        // it, then the change between the two HUDs with most components.
        QJsonObject projectData;
        ProjectData::ScreenSize screen;
        ProjectData::load(project, projectData, screen);
        const QSize size(screen.width, screen.height);
        UltimateTreeWidget list;
        list.resize(300, 600);
        list.tree()->startView();
        GameUIEditor editor;
        editor.resize(1000, 700);
        editor.setup(new GameUIEditorSceneHelper<VelmoUISelector>(), &projectData);
        editor.bindList(&list, nullptr, nullptr);
        GameUIEditorScene* scene = editor.editorScene();
        QVector<HudEntry>& entries = document.entries;
        const double first = medianOf(runs, [&]() {
            HudDocument::switchScene(scene, nullptr, entries[0].type, &entries[0].object, size);
            QApplication::processEvents();
            scene->clear();
        });
        std::vector<int> largest;
        for (int i = 0; i < entries.size(); ++i)
            largest.push_back(i);
        std::sort(largest.begin(), largest.end(), [&](int a, int b) {
            return HudDocument::componentCount(entries[a].object.value(HudDocument::KeyHud).toArray())
                   > HudDocument::componentCount(entries[b].object.value(HudDocument::KeyHud).toArray());
        });
        const int a = largest[0], b = largest.size() > 1 ? largest[1] : largest[0];
        HudDocument::switchScene(scene, nullptr, entries[a].type, &entries[a].object, size);
        QJsonObject* current = &entries[a].object;
        const double change = medianOf(runs, [&]() {
            const int next = current == &entries[a].object ? b : a;
            HudDocument::switchScene(scene, current, entries[next].type, &entries[next].object, size);
            current = &entries[next].object;
            QApplication::processEvents();
        });
        HudDocument::switchScene(scene, current, 0, nullptr, size);

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
            << '\t' << QString::number(first, 'f', 1) << '\t' << QString::number(data + load + first, 'f', 1) << '\t'
            << QString::number(change, 'f', 1) << '\t' << QString::number(save, 'f', 1) << '\t'
            << QString::number(bare, 'f', 1) << '\n';
        out.flush();
    }
    return 0;
}
