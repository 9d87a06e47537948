// Times the editor scene on a HUD of 500 components nested three deep:
// loading it with its list, serialising it, clearing it, a whole change of
// HUD (store, clear, load) between two such HUDs, and each zoom step through
// the whole range with the repaint of the view that follows it. Prints the
// median of several runs of each phase in milliseconds.
#include "BenchHud.h"
#include "components/GameUIEditorSceneHelper.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QJsonArray>
#include <QTextStream>

#include <algorithm>
#include <map>
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
        components = scene->components().size();
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

    // Every zoom step from 0.1 up, and from the largest zoom back down, each
    // followed by the view's repaint, with a component selected as in use.
    // Each step's time is its median over the runs, so that a run disturbed
    // by another process doesn't decide the slowest step.
    scene->loadFromJson(first);
    scene->select(scene->components().at(components / 2));
    std::map<std::pair<int, int>, std::vector<double>> steps;
    auto walk = [&](int direction) {
        for (int previous = 0; previous != scene->zoom();) {
            previous = scene->zoom();
            timer.start();
            if (direction > 0)
                scene->zoomIn();
            else
                scene->zoomOut();
            bench.view.viewport()->repaint();
            if (scene->zoom() != previous)
                steps[{direction, scene->zoom()}].push_back(timer.nsecsElapsed() / 1e6);
        }
    };
    for (int run = 0; run < runs; ++run) {
        scene->setZoom(1);
        bench.view.viewport()->repaint();
        walk(1);
        // Up the steps end at 5.0; down they start from the largest zoom.
        scene->setZoom(59);
        bench.view.viewport()->repaint();
        walk(-1);
    }
    scene->clear();
    std::vector<double> stepIn, stepOut;
    double slowest = 0;
    int slowestZoom = 0;
    for (const auto& step : steps) {
        const double time = BenchHud::median(step.second);
        (step.first.first > 0 ? stepIn : stepOut).push_back(time);
        if (time > slowest) {
            slowest = time;
            slowestZoom = step.first.second * step.first.first;
        }
    }

    // The same change of HUD between two HUDs of outlined texts and shapes,
    // and the canvas drawn into a picture as velmora-cli render draws it.
    std::vector<double> textChange, textRender;
    QJsonArray texts = BenchHud::textHud();
    QJsonArray otherTexts = BenchHud::textHud();
    scene->setZoom(10);
    for (int run = 0; run < runs; ++run) {
        scene->loadFromJson(texts);
        QApplication::processEvents();
        timer.start();
        const QJsonArray saved = scene->toJson();
        scene->clear();
        scene->loadFromJson(otherTexts);
        textChange.push_back(timer.nsecsElapsed() / 1e6);
        otherTexts = saved;
        timer.start();
        const QImage picture = scene->canvasImage(false);
        textRender.push_back(timer.nsecsElapsed() / 1e6);
        scene->clear();
        QApplication::processEvents();
    }

    QTextStream out(stdout);
    out << "scene: " << components << " components, median of " << runs << " runs (ms)\n";
    out << "text HUD (400 outlined texts, 100 shapes): change " << BenchHud::median(textChange)
        << "  canvas picture at zoom 1 " << BenchHud::median(textRender) << "\n";
    out << "load " << BenchHud::median(load) << "  toJson " << BenchHud::median(toJson) << "  clear " << BenchHud::median(clear)
        << "  change " << BenchHud::median(change) << "\n";
    out << "zoom: " << stepIn.size() << " steps in and " << stepOut.size()
        << " out, each with the repaint, median over the runs (ms)\n";
    out << "step in " << BenchHud::median(stepIn) << "  step out " << BenchHud::median(stepOut) << "  slowest " << slowest
        << (slowestZoom > 0 ? " (in to " : " (out to ") << qAbs(slowestZoom) / 10.0 << ")\n";
    return 0;
}
