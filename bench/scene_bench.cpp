// Times the editor scene on a HUD of 500 components nested three deep:
// loading it with its list, serialising it, clearing it, and a whole change
// of HUD (store, clear, load) between two such HUDs. Prints the median of
// several runs of each phase in milliseconds.
#include "BenchHud.h"
#include "scene/GameUIEditorScene.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QTextStream>

#include <algorithm>
#include <vector>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int runs = argc > 1 ? qMax(1, QString::fromLocal8Bit(argv[1]).toInt()) : 7;

    BenchHud::Editor bench;
    GameUIEditorScene* scene = bench.scene();

    const QJsonArray first = BenchHud::hud();
    QJsonArray second = BenchHud::hud();
    std::vector<double> load, toJson, clear, change;
    QElapsedTimer timer;
    int components = 0;
    for (int run = 0; run < runs; ++run) {
        timer.start();
        scene->loadFromJson(first);
        load.push_back(timer.nsecsElapsed() / 1e6);
        components = scene->components.size();
        timer.start();
        QJsonArray saved = scene->toJson();
        toJson.push_back(timer.nsecsElapsed() / 1e6);
        timer.start();
        scene->clear();
        clear.push_back(timer.nsecsElapsed() / 1e6);
        QApplication::processEvents();

        // A change of HUD: the one on the canvas is stored, the other loaded.
        scene->loadFromJson(first);
        QApplication::processEvents();
        timer.start();
        saved = scene->toJson();
        scene->clear();
        scene->loadFromJson(second);
        change.push_back(timer.nsecsElapsed() / 1e6);
        second = saved;
        scene->clear();
        QApplication::processEvents();
    }

    QTextStream out(stdout);
    out << "scene: " << components << " components, median of " << runs << " runs (ms)\n";
    out << "load " << BenchHud::median(load) << "  toJson " << BenchHud::median(toJson) << "  clear " << BenchHud::median(clear)
        << "  change " << BenchHud::median(change) << "\n";
    return 0;
}
