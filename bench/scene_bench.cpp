// Times the editor scene on a HUD of 500 components nested three deep:
// loading it with its list, serialising it, clearing it, a whole change of
// HUD (store, clear, load) between two such HUDs, and each zoom step through
// the whole range with the repaint of the view that follows it. Prints the
// median of several runs of each phase in milliseconds.
#include "components/GameUIEditorSceneHelper.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QTextStream>

#include <algorithm>
#include <map>
#include <vector>

namespace {

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

QJsonObject leaf(int& id, int kind)
{
    ++id;
    return QJsonObject{{"ID", id},
                       {"Type", kind},
                       {"Name", QStringLiteral("Component %1").arg(id)},
                       {"X", id % 700},
                       {"Y", id % 500},
                       {"ShapeData", QJsonObject{{"Width", 40}, {"Height", 20}, {"Color", "#ffffff"}}}};
}

// 20 windows, each with 4 groups of 5 components, and 4 more components of
// its own: 20 * (1 + 4 * 6 + 0) = 500.
QJsonArray hud()
{
    int id = 0;
    QJsonArray top;
    for (int w = 0; w < 20; ++w) {
        QJsonObject window{{"ID", ++id}, {"Type", 7}, {"X", 40 * w}, {"Y", 30}, {"Expanded", w % 3 != 0}};
        QJsonArray groups;
        for (int g = 0; g < 4; ++g) {
            QJsonObject group{{"ID", ++id}, {"Type", 6}, {"X", 10 * g}, {"Y", 10}};
            QJsonArray leaves;
            for (int c = 0; c < 5; ++c)
                leaves.append(leaf(id, c % 6));
            group.insert("Children", leaves);
            groups.append(group);
        }
        window.insert("Children", groups);
        top.append(window);
    }
    return top;
}

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int runs = argc > 1 ? qMax(1, QString::fromLocal8Bit(argv[1]).toInt()) : 7;

    UltimateTreeWidget list;
    list.resize(300, 600);
    list.tree()->setRowHeight(20);
    list.tree()->setRelocationEnabled(true);
    list.tree()->startView();
    GameUIEditor editor;
    editor.resize(1000, 700);
    editor.setup(new GameUIEditorSceneHelper<VelmoUISelector>(), nullptr);
    editor.bindList(&list, nullptr, nullptr);
    list.show();
    editor.show();
    QApplication::processEvents();
    GameUIEditorScene* scene = editor.editorScene();
    scene->setScreenSize(816, 624);

    const QJsonArray first = hud();
    QJsonArray second = hud();
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

    // Every zoom step from 0.1 up, and from the largest zoom back down, each
    // followed by the view's repaint, with a component selected as in use.
    // Each step's time is its median over the runs, so that a run disturbed
    // by another process doesn't decide the slowest step.
    scene->loadFromJson(first);
    scene->select(scene->components.at(components / 2));
    std::map<std::pair<int, int>, std::vector<double>> steps;
    auto walk = [&](int direction) {
        for (int previous = 0; previous != scene->zoom;) {
            previous = scene->zoom;
            timer.start();
            if (direction > 0)
                scene->zoomIn();
            else
                scene->zoomOut();
            editor.viewport()->repaint();
            if (scene->zoom != previous)
                steps[{direction, scene->zoom}].push_back(timer.nsecsElapsed() / 1e6);
        }
    };
    for (int run = 0; run < runs; ++run) {
        scene->setZoom(1);
        editor.viewport()->repaint();
        walk(1);
        // Up the steps end at 5.0; down they start from the largest zoom.
        scene->setZoom(59);
        editor.viewport()->repaint();
        walk(-1);
    }
    scene->clear();
    std::vector<double> stepIn, stepOut;
    double slowest = 0;
    int slowestZoom = 0;
    for (const auto& step : steps) {
        const double time = median(step.second);
        (step.first.first > 0 ? stepIn : stepOut).push_back(time);
        if (time > slowest) {
            slowest = time;
            slowestZoom = step.first.second * step.first.first;
        }
    }

    QTextStream out(stdout);
    out << "scene: " << components << " components, median of " << runs << " runs (ms)\n";
    out << "load " << median(load) << "  toJson " << median(toJson) << "  clear " << median(clear)
        << "  change " << median(change) << "\n";
    out << "zoom: " << stepIn.size() << " steps in and " << stepOut.size()
        << " out, each with the repaint, median over the runs (ms)\n";
    out << "step in " << median(stepIn) << "  step out " << median(stepOut) << "  slowest " << slowest
        << (slowestZoom > 0 ? " (in to " : " (out to ") << qAbs(slowestZoom) / 10.0 << ")\n";
    return 0;
}
