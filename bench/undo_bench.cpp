// Times undo and redo on the 500-component HUD of the scene benchmark: a
// seeded run of 1,000 edits (drags through the undo bracket, moves in the
// list, deletions, pastes into groups), then each of the 1,000 steps undone
// and redone one by one. Prints the processor time per step by kind of step
// in milliseconds (and the wall clock's view of it), and the resident memory
// of the process around the stacks.
#include "BenchHud.h"
#include "scene/GameUIEditorScene.h"
#include "scene/SceneUndoRecorder.h"
#include "scene/UIComponentBase.h"
#include "tests/ListMove.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QTextStream>

#include <malloc.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

const char* const kindNames[] = {"snapshot", "deleted", "created", "moved"};

// Resident memory after the allocator gave back what it could.
double residentMiB()
{
    malloc_trim(0);
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.value(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

// The JSON the records hold, written compact: what the stacks keep apart
// from the components they point at.
double recordsKiB(const std::vector<UndoRecord>& stack)
{
    double bytes = 0;
    for (const UndoRecord& record : stack)
        bytes += QJsonDocument(record.json).toJson(QJsonDocument::Compact).size();
    return bytes / 1024.0;
}

// The thread's own processor time: on a machine shared with other work the
// wall clock also counts the time the scheduler gave to someone else.
double cpuMs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

struct Timing {
    std::vector<double> byKind[4];
    std::vector<double> all;
    std::vector<double> wall;
};

void report(QTextStream& out, const char* what, const Timing& timing)
{
    const double total = std::accumulate(timing.all.begin(), timing.all.end(), 0.0);
    std::vector<double> sorted = timing.all;
    std::sort(sorted.begin(), sorted.end());
    const long over = std::count_if(sorted.begin(), sorted.end(), [](double ms) { return ms >= 5.0; });
    out << what << ": " << sorted.size() << " steps, mean " << total / double(sorted.size()) << ", median "
        << sorted[sorted.size() / 2] << ", 99th percentile " << sorted[sorted.size() * 99 / 100] << ", max "
        << sorted.back() << ", at or over 5 ms: " << over << "\n";
    std::vector<double> wall = timing.wall;
    std::sort(wall.begin(), wall.end());
    out << "  wall clock: median " << wall[wall.size() / 2] << ", 99th percentile " << wall[wall.size() * 99 / 100]
        << ", max " << wall.back() << "\n";
    for (int kind = 0; kind < 4; ++kind) {
        const std::vector<double>& times = timing.byKind[kind];
        if (times.empty())
            continue;
        out << "  " << kindNames[kind] << " x" << times.size() << ": median " << BenchHud::median(times) << ", max "
            << *std::max_element(times.begin(), times.end()) << "\n";
    }
}

// One step from the chosen stack, timed; the event loop then runs as it
// would between two key presses.
void timeStep(GameUIEditorScene* scene, bool forward, Timing& timing)
{
    const std::vector<UndoRecord>& stack = forward ? scene->undoRecorder().redoStack() : scene->undoRecorder().undoStack();
    const int kind = stack.back().kind;
    QElapsedTimer timer;
    timer.start();
    const double cpuStart = cpuMs();
    if (forward)
        scene->redo();
    else
        scene->undo();
    const double ms = cpuMs() - cpuStart;
    timing.wall.push_back(timer.nsecsElapsed() / 1e6);
    timing.all.push_back(ms);
    timing.byKind[kind].push_back(ms);
    QApplication::processEvents();
}

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const quint32 seed = argc > 1 ? QString::fromLocal8Bit(argv[1]).toUInt() : 14;
    const int steps = argc > 2 ? qMax(1, QString::fromLocal8Bit(argv[2]).toInt()) : 1000;

    BenchHud::Editor bench;
    GameUIEditorScene* scene = bench.scene();
    scene->loadFromJson(BenchHud::hud());
    QApplication::processEvents();
    const double baseline = residentMiB();
    const int loaded = scene->components().size();

    UltimateTree* tree = bench.list.tree();
    QRandomGenerator random(seed);
    auto any = [&]() { return scene->components().at(random.bounded(scene->components().size())); };
    while (scene->undoRecorder().undoStack().size() < std::size_t(steps)) {
        const int action = random.bounded(10);
        UIComponentBase* picked = any();
        if (action < 4) {
            picked->beginChange();
            picked->setAbsoluteXY(random.bounded(816), random.bounded(624));
            picked->endChange();
        } else if (action < 6) {
            // A move in the list: next to another row, or into a container.
            UIComponentBase* target = any();
            moveRowInList(tree, scene->rowOfComponent(picked), scene->rowOfComponent(target),
                          target->canHaveChildren() && random.bounded(2));
        } else if (action < 8 && scene->components().size() > 450) {
            if (picked->canHaveChildren())
                continue;
            scene->select(picked);
            scene->deleteAComponent();
        } else if (scene->components().size() < 500 && !picked->canHaveChildren()) {
            UIComponentBase* container = any();
            if (!container->canHaveChildren())
                continue;
            scene->select(picked);
            scene->copyAComponent();
            scene->paste(container);
        }
        QApplication::processEvents();
    }
    const double afterEdits = residentMiB();
    const double undoKiB = recordsKiB(scene->undoRecorder().undoStack());
    const int removedAfterEdits = scene->removedComponents().size();
    const QJsonArray top = scene->toJson();

    Timing undoTiming;
    while (!scene->undoRecorder().undoStack().empty())
        timeStep(scene, false, undoTiming);
    const double afterUndo = residentMiB();
    const double redoKiB = recordsKiB(scene->undoRecorder().redoStack());
    Timing redoTiming;
    while (!scene->undoRecorder().redoStack().empty())
        timeStep(scene, true, redoTiming);
    const double afterRedo = residentMiB();
    const bool sameTop = scene->toJson() == top;
    // What the records and the components waiting for them hold: emptied,
    // as a change of HUD empties them.
    const QJsonArray kept = scene->toJson();
    scene->clear();
    QApplication::processEvents();
    scene->loadFromJson(kept);
    QApplication::processEvents();
    const double emptied = residentMiB();

    QTextStream out(stdout);
    out.setRealNumberPrecision(3);
    out << "undo: " << loaded << " components, " << steps << " steps (seed " << seed << "), ms per step\n";
    report(out, "undo", undoTiming);
    report(out, "redo", redoTiming);
    out << "back at the top exactly: " << (sameTop ? "yes" : "NO") << "\n";
    out << "resident MiB: loaded " << baseline << ", after the edits " << afterEdits << " (+" << afterEdits - baseline
        << "), after undoing all " << afterUndo << ", after redoing all " << afterRedo
        << ", the same HUD reloaded without history " << emptied << "\n";
    out << "records' JSON KiB: undo stack " << undoKiB << ", redo stack " << redoKiB << "; components waiting "
        << removedAfterEdits << "\n";
    return sameTop ? 0 : 1;
}
