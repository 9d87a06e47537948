// Times direct manipulation on a canvas of 500 components: one component
// dragged across the canvas with snapping on, resized from its bottom-right
// handle and turned by its rotation handle, each in 200 mouse moves. Every
// move is followed by a repaint of the whole view into an image, so a figure
// is what one step costs the user. Prints the median time per move of
// several runs, and the slowest move, in milliseconds.
#include "BenchHud.h"
#include "scene/ResizeComponentButtonSprite.h"
#include "scene/UIComponentBase.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QJsonArray>
#include <QMouseEvent>
#include <QTextStream>
#include <QtMath>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

constexpr int moves = 200;

using BenchHud::median;

// 500 small shapes in a grid over the 816 by 624 canvas, and the one that
// moves, 100 by 60, last.
QJsonArray hud()
{
    QJsonArray array;
    for (int i = 0; i < 500; ++i) {
        array.append(QJsonObject{{"ID", i + 1},
                                 {"Type", 1},
                                 {"Name", QStringLiteral("Shape %1").arg(i + 1)},
                                 {"X", 20 + (i % 25) * 32},
                                 {"Y", 15 + (i / 25) * 30},
                                 {"ShapeData", QJsonObject{{"Width", 24}, {"Height", 18}}}});
    }
    array.append(QJsonObject{{"ID", 501},
                             {"Type", 1},
                             {"Name", "Moving"},
                             {"X", 100},
                             {"Y", 100},
                             {"ShapeData", QJsonObject{{"Width", 100}, {"Height", 60}}}});
    return array;
}

struct Result {
    double perMove;
    double slowest;
};

class Bench
{
public:
    Bench()
    {
        editor.resize(1000, 720);
        QApplication::processEvents();
        image = QImage(editor.size(), QImage::Format_ARGB32_Premultiplied);
    }

    void load(const QJsonArray& components = hud())
    {
        scene->clear();
        scene->loadFromJson(components);
        moving = scene->components().last();
        scene->select(moving);
        QApplication::processEvents();
    }

    void mouse(QEvent::Type type, const QPointF& scenePoint, Qt::MouseButtons buttons)
    {
        const QPoint at = editor.mapFromScene(scenePoint);
        QMouseEvent event(type, at, editor.viewport()->mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(editor.viewport(), &event);
    }

    // Presses at start, then moves to path(i) for i in 1..moves, repainting
    // the view after each; the release is not timed.
    Result run(const QPointF& start, const std::function<QPointF(int)>& path)
    {
        mouse(QEvent::MouseButtonPress, start, Qt::LeftButton);
        std::vector<double> times;
        QElapsedTimer timer;
        for (int i = 1; i <= moves; ++i) {
            timer.start();
            mouse(QEvent::MouseMove, path(i), Qt::LeftButton);
            // The whole widget, as the screen gets it.
            editor.QWidget::render(&image);
            times.push_back(timer.nsecsElapsed() / 1e6);
        }
        mouse(QEvent::MouseButtonRelease, path(moves), Qt::NoButton);
        QApplication::processEvents();
        double total = 0;
        for (double t : times)
            total += t;
        return Result{total / moves, *std::max_element(times.begin(), times.end())};
    }

    BenchHud::Editor bench;
    GameUIEditor& editor = bench.view;
    GameUIEditorScene* scene = bench.scene();
    UIComponentBase* moving = nullptr;
    QImage image;
};

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int runs = argc > 1 ? qMax(1, QString::fromLocal8Bit(argv[1]).toInt()) : 5;
    Bench bench;
    std::vector<double> drag, dragWorst, resize, resizeWorst, rotate, rotateWorst;
    // What the last run did, so that a figure never stands for a move that didn't happen.
    QString done;
    for (int run = 0; run < runs; ++run) {
        bench.load();
        // Across the canvas, from the top-left to the bottom-right, passing
        // the centre and many edges.
        const QPointF from = bench.moving->scenePos();
        Result r = bench.run(from, [&](int i) { return from + QPointF(i * 3.3, i * 2.4); });
        drag.push_back(r.perMove);
        dragWorst.push_back(r.slowest);
        const QJsonObject moved = bench.moving->data();
        done = QStringLiteral("dragged to (%1, %2)").arg(moved.value("X").toInt()).arg(moved.value("Y").toInt());

        bench.load();
        const QPointF corner = bench.moving->handleAt(4)->mapToScene(3, 3);
        r = bench.run(corner, [&](int i) { return corner + QPointF(i * 1.5, i); });
        resize.push_back(r.perMove);
        resizeWorst.push_back(r.slowest);
        done += QStringLiteral(", resized to %1 x %2").arg(bench.moving->width).arg(bench.moving->height);

        bench.load();
        const QPointF top = bench.moving->handleAt(ResizeComponentButtonSprite::rotationIndex)->mapToScene(3, 3);
        const QPointF centre = bench.moving->scenePos();
        r = bench.run(top, [&](int i) {
            const double angle = i * 2 * M_PI / moves;
            return centre + QPointF(80 * std::sin(angle), -80 * std::cos(angle));
        });
        rotate.push_back(r.perMove);
        rotateWorst.push_back(r.slowest);
        done += QStringLiteral(", turned to %1 degrees").arg(bench.moving->data().value("Rotation").toInt());
    }

    // A text dragged over a HUD of 400 outlined texts and 100 shapes.
    std::vector<double> textDrag, textDragWorst;
    for (int run = 0; run < runs; ++run) {
        bench.load(BenchHud::textHud());
        const QPointF from = bench.moving->scenePos();
        const Result r = bench.run(from, [&](int i) { return from - QPointF(i * 1.5, i * 1.2); });
        textDrag.push_back(r.perMove);
        textDragWorst.push_back(r.slowest);
    }

    QTextStream out(stdout);
    out << "text HUD: drag " << median(textDrag) << " (slowest " << median(textDragWorst) << ")\n";
    out << "manipulation: " << bench.scene->components().size() << " components, " << moves
        << " moves each with a repaint of the view, median of " << runs << " runs (ms per move)\n";
    out << "drag " << median(drag) << " (slowest " << median(dragWorst) << ")  resize " << median(resize)
        << " (slowest " << median(resizeWorst) << ")  rotate " << median(rotate) << " (slowest "
        << median(rotateWorst) << ")\n"
        << done << "\n";
    return 0;
}
