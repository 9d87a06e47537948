// Times the custom kinds on a HUD of 20 Custom components and 5 Custom
// Collections of 4 by 4 cells, every copy a custom HUD of 25 components:
// 2,500 components drawn from 25 saved ones. Three figures, each the best of
// several runs, in milliseconds:
// - the change to that HUD from an empty one, as a click in the HUD list
//   does it (the empty HUD stored back, the canvas cleared, the HUD loaded
//   and every custom HUD expanded), with the first repaint of the view;
// - one mouse move of a dragged collection with a repaint of the view;
// - velmora-cli render of that HUD, the whole program run.
// Usage: velmora-bench-custom PROJECT CLI [runs]; the project's HUD
// document is replaced by the benchmark's.
#include "BenchHud.h"
#include "app/HudDocument.h"
#include "logic/HudCatalog.h"
#include "scene/UIComponentBase.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMouseEvent>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

constexpr int moves = 100;
const QString PartId = QStringLiteral("12345");

double best(const std::vector<double>& values)
{
    return *std::min_element(values.begin(), values.end());
}

// The custom HUD of 25 components, 160 by 60: a background, outlined
// texts, gauges and small shapes, as a party member's status row has them.
QJsonObject part()
{
    QJsonArray components;
    int id = 0;
    components.append(QJsonObject{{"ID", ++id},
                                  {"Type", 1},
                                  {"Name", "Background"},
                                  {"X", 80},
                                  {"Y", 30},
                                  {"ShapeData", QJsonObject{{"Width", 160}, {"Height", 60}, {"Color", "#202040"},
                                                            {"OutlineSize", 1}, {"OutlineColor", "#c0c0ff"}}}});
    for (int i = 0; i < 8; ++i) {
        components.append(QJsonObject{{"ID", ++id},
                                      {"Type", 0},
                                      {"Name", QStringLiteral("Label %1").arg(i)},
                                      {"X", 20 + (i % 4) * 40},
                                      {"Y", 10 + (i / 4) * 20},
                                      {"TextData", QJsonObject{{"Text", QJsonObject{{"Type", 0}, {"Text", "HP 12"}}},
                                                               {"FontSize", 12},
                                                               {"OutlineSize", 2},
                                                               {"MaxWidth", 36},
                                                               {"Color", "#ffffff"},
                                                               {"OutlineColor", "#000000"}}}});
    }
    for (int i = 0; i < 4; ++i) {
        components.append(QJsonObject{{"ID", ++id},
                                      {"Type", 4},
                                      {"Name", QStringLiteral("Gauge %1").arg(i)},
                                      {"X", 40 + (i % 2) * 80},
                                      {"Y", 44 + (i / 2) * 8},
                                      {"GaugeData", QJsonObject{{"Width", 70}, {"Height", 6}}}});
    }
    while (id < 25) {
        components.append(QJsonObject{{"ID", ++id},
                                      {"Type", 1},
                                      {"Name", QStringLiteral("Pip %1").arg(id)},
                                      {"X", 6 + (id % 12) * 13},
                                      {"Y", 56},
                                      {"ShapeData", QJsonObject{{"Width", 8}, {"Height", 4}, {"Shape", id % 2},
                                                                {"Color", "#e0c040"}}}});
    }
    return QJsonObject{{"ID", PartId},   {"Name", "Status Row"}, {"IsHUD", false},
                       {"Width", 160},   {"Height", 60},         {"Params", QJsonArray()},
                       {"HUD", components}};
}

// 20 Custom components in a 5 by 4 grid on the left, 5 collections of 4 by
// 4 cells with 4 pixels between them, overlapping to the right.
QJsonArray heavyHud()
{
    QJsonArray components;
    int id = 0;
    for (int i = 0; i < 20; ++i) {
        components.append(QJsonObject{{"ID", ++id},
                                      {"Type", 10},
                                      {"Name", QStringLiteral("Row %1").arg(i)},
                                      {"X", 90 + (i % 2) * 170},
                                      {"Y", 35 + (i / 2) * 62},
                                      {"CustomData", QJsonObject{{"Width", 160}, {"Height", 60}, {"Params", QJsonObject()},
                                                                 {"ID", PartId}}}});
    }
    for (int i = 0; i < 5; ++i) {
        components.append(QJsonObject{
            {"ID", ++id},
            {"Type", 11},
            {"Name", QStringLiteral("Party %1").arg(i)},
            {"X", 500 + i * 20},
            {"Y", 140 + i * 60},
            {"CustomCollectionData",
             QJsonObject{{"Width", 160}, {"Height", 60}, {"Params", QJsonObject()}, {"ID", PartId},
                         {"ListData", QJsonObject{{"Type", 2}, {"MembersType", 0}, {"Data", 0}}}, {"MaxRows", 4},
                         {"MaxColumns", 4}, {"HorizontalSpacing", 4}, {"VerticalSpacing", 4}, {"AlignLeft", true},
                         {"AlignUp", true}}}});
    }
    return components;
}

int drawnCount(const QList<QGraphicsItem*>& items)
{
    int count = 0;
    for (QGraphicsItem* item : items)
        count += qobject_cast<UIComponentBase*>(item->toGraphicsObject()) ? 1 : 0;
    return count;
}

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 3) {
        QTextStream(stderr) << "usage: velmora-bench-custom PROJECT CLI [runs]\n";
        return 2;
    }
    const QString project = QString::fromLocal8Bit(argv[1]);
    const QString cli = QString::fromLocal8Bit(argv[2]);
    const int runs = argc > 3 ? qMax(1, QString::fromLocal8Bit(argv[3]).toInt()) : 5;

    QVector<HudEntry> entries{HudEntry{HudEntry::Map, QJsonObject{{"HUD", heavyHud()}}},
                              HudEntry{HudEntry::Battle, QJsonObject{{"HUD", QJsonArray()}}},
                              HudEntry{HudEntry::Custom, part()}};
    HudCatalog::setSource([&entries]() {
        QVector<HudCatalog::Row> rows;
        for (const HudEntry& entry : entries)
            rows.append(HudCatalog::Row{entry.type, entry.object, false});
        return rows;
    });

    BenchHud::Editor bench;
    GameUIEditor& editor = bench.view;
    GameUIEditorScene* scene = bench.scene();
    scene->setZoom(10);
    QImage image(editor.size(), QImage::Format_ARGB32_Premultiplied);
    const QSize screen(816, 624);

    // The HUD change: from the empty Battle HUD to the heavy Map HUD.
    std::vector<double> change;
    int drawn = 0;
    for (int run = 0; run < runs; ++run) {
        HudDocument::switchScene(scene, nullptr, HudEntry::Battle, &entries[1].object, screen);
        QApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        HudDocument::switchScene(scene, &entries[1].object, HudEntry::Map, &entries[0].object, screen);
        editor.QWidget::render(&image);
        change.push_back(timer.nsecsElapsed() / 1e6);
        drawn = drawnCount(scene->items());
    }

    // A drag of the last collection, per mouse move with a repaint.
    std::vector<double> drag;
    std::vector<double> dragWorst;
    auto mouse = [&](QEvent::Type type, const QPointF& scenePoint, Qt::MouseButtons buttons) {
        const QPoint at = editor.mapFromScene(scenePoint);
        QMouseEvent event(type, at, editor.viewport()->mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(editor.viewport(), &event);
    };
    QString moved;
    for (int run = 0; run < runs; ++run) {
        HudDocument::switchScene(scene, nullptr, HudEntry::Map, &entries[0].object, screen);
        QApplication::processEvents();
        UIComponentBase* collection = scene->components().last();
        const QPointF from = collection->scenePos() + QPointF(1, 1);
        mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
        std::vector<double> times;
        QElapsedTimer timer;
        for (int i = 1; i <= moves; ++i) {
            timer.start();
            mouse(QEvent::MouseMove, from - QPointF(i * 2.5, i * 1.5), Qt::LeftButton);
            editor.QWidget::render(&image);
            times.push_back(timer.nsecsElapsed() / 1e6);
        }
        mouse(QEvent::MouseButtonRelease, from - QPointF(moves * 2.5, moves * 1.5), Qt::NoButton);
        QApplication::processEvents();
        double total = 0;
        for (double t : times)
            total += t;
        drag.push_back(total / moves);
        dragWorst.push_back(*std::max_element(times.begin(), times.end()));
        moved = QStringLiteral("collection dragged to (%1, %2)")
                    .arg(collection->data().value("X").toInt())
                    .arg(collection->data().value("Y").toInt());
    }

    // velmora-cli render of the heavy HUD in a project holding the document.
    QFile file(QDir(project).absoluteFilePath(QStringLiteral("data/plugin/") + HudDocument::FileName));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        QTextStream(stderr) << "can't write " << file.fileName() << "\n";
        return 1;
    }
    file.write(QJsonDocument(HudDocument::assemble(QJsonObject(), entries)).toJson(QJsonDocument::Compact));
    file.close();
    QTemporaryDir out;
    std::vector<double> render;
    for (int run = 0; run < runs; ++run) {
        QProcess process;
        QElapsedTimer timer;
        timer.start();
        process.start(cli, {QStringLiteral("render"), project, QStringLiteral("--out"), out.path(),
                            QStringLiteral("--hud"), QStringLiteral("Map HUD")});
        process.waitForFinished(-1);
        render.push_back(timer.nsecsElapsed() / 1e6);
        if (process.exitCode() != 0) {
            QTextStream(stderr) << process.readAllStandardError();
            return 1;
        }
    }

    QTextStream result(stdout);
    result << drawn << " components drawn from " << scene->components().size()
           << " on the canvas; best of " << runs << " runs (ms)\n";
    result << "HUD change " << best(change) << "  drag per move " << best(drag) << " (slowest "
           << best(dragWorst) << ")  velmora-cli render " << best(render) << "\n"
           << moved << "\n";
    HudCatalog::setSource(nullptr);
    return 0;
}
