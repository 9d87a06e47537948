// Times the editor on the biggest HUDs of a project made by tools/gen-project,
// where every component kind is mixed with the project's real pictures, faces,
// icon set, window and gauge skins and fonts: a change of HUD between the two
// biggest (store, clear, load), the canvas drawn into a picture at zoom 1 as
// velmora-cli render draws it, and the last top-level component dragged over
// the rest, and a child that most of the HUD covers, with a repaint of the
// view per mouse move. Prints medians in ms.
//   velmora-bench-kinds PROJECT [runs]
#include "BenchHud.h"
#include "app/HudDocument.h"
#include "app/PathManager.h"
#include "app/ProjectData.h"
#include "components/ProjectFonts.h"
#include "components/ProjectImages.h"
#include "scene/UIComponentBase.h"
#include "widgets/BasicFontSelector.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTextStream>

#include <algorithm>
#include <vector>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QTextStream out(stdout);
    if (argc < 2) {
        out << "usage: velmora-bench-kinds PROJECT [runs]\n";
        return 1;
    }
    const QDir project(QString::fromLocal8Bit(argv[1]));
    const int runs = argc > 2 ? qMax(1, QString::fromLocal8Bit(argv[2]).toInt()) : 5;

    QJsonObject projectData;
    ProjectData::ScreenSize screen;
    if (!ProjectData::load(project, projectData, screen)) {
        out << "not a project: " << project.absolutePath() << "\n";
        return 1;
    }
    PathManager::setProjectDirectory(&project);
    PathManager::setGraphicsFolderHook(ProjectData::graphicsFolder);
    const QString fonts = project.absoluteFilePath(QStringLiteral("fonts"));
    ProjectFonts::setFolderHook([fonts]() { return fonts; });
    BasicFontSelector::setFontLoader(PathManager::fontFamilyOf);
    ProjectImages::setPathHook([project](int kind, const QString& name) {
        return PathManager::graphicsFile(PathManager::GraphicsType(kind), name + QStringLiteral(".png"), project);
    });

    // The two HUDs with the most components.
    const HudDocument document = HudDocument::load(project);
    std::vector<std::pair<int, int>> sizes;
    for (int i = 0; i < document.entries.size(); ++i)
        sizes.emplace_back(HudDocument::componentCount(document.entries.at(i).object.value(HudDocument::KeyHud).toArray()), i);
    if (sizes.size() < 2) {
        out << "the project needs two HUDs\n";
        return 1;
    }
    std::sort(sizes.rbegin(), sizes.rend());
    QJsonArray first = document.entries.at(sizes[0].second).object.value(HudDocument::KeyHud).toArray();
    QJsonArray second = document.entries.at(sizes[1].second).object.value(HudDocument::KeyHud).toArray();

    BenchHud::Editor bench;
    GameUIEditorScene* scene = bench.scene();
    scene->setProjectData(&projectData);
    scene->setScreenSize(screen.width, screen.height);
    bench.view.resize(1000, 720);
    QApplication::processEvents();

    std::vector<double> change, picture;
    QElapsedTimer timer;
    for (int run = 0; run < runs; ++run) {
        scene->loadFromJson(first);
        QApplication::processEvents();
        timer.start();
        const QJsonArray saved = scene->toJson();
        scene->clear();
        scene->loadFromJson(second);
        change.push_back(timer.nsecsElapsed() / 1e6);
        second = first;
        first = saved;
        timer.start();
        const QImage image = scene->canvasImage(false);
        picture.push_back(timer.nsecsElapsed() / 1e6);
        scene->clear();
        QApplication::processEvents();
    }

    // The last top-level component dragged across the canvas, 200 moves.
    QImage view(bench.view.size(), QImage::Format_ARGB32_Premultiplied);
    const auto mouse = [&](QEvent::Type type, const QPointF& at, Qt::MouseButtons buttons) {
        const QPoint point = bench.view.mapFromScene(at);
        QMouseEvent event(type, point, bench.view.viewport()->mapToGlobal(point),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(bench.view.viewport(), &event);
    };
    // Run for the last top-level component, which its selection lifts above
    // everything else, and for the first child of the first top-level
    // component with children, which most of the HUD lies above.
    struct Drag {
        std::vector<double> perMove, slowest;
        QString moved;
    };
    const auto dragRuns = [&](bool top) {
        Drag result;
        for (int run = 0; run < runs; ++run) {
            scene->clear();
            scene->loadFromJson(first);
            UIComponentBase* moving = nullptr;
            for (UIComponentBase* component : scene->components()) {
                if (top && !component->parentItem())
                    moving = component;
                if (!top && !moving && !component->parentItem() && !component->childItems().isEmpty()) {
                    for (QGraphicsItem* child : component->childItems()) {
                        auto* candidate = qobject_cast<UIComponentBase*>(child->toGraphicsObject());
                        if (candidate && !moving)
                            moving = candidate;
                    }
                }
            }
            if (!moving)
                return result;
            scene->select(moving);
            QApplication::processEvents();
            const QPointF from = moving->scenePos();
            mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
            // The editor shows the press (the selection) before any move.
            bench.view.QWidget::render(&view);
            std::vector<double> times;
            for (int i = 1; i <= 200; ++i) {
                timer.start();
                mouse(QEvent::MouseMove, from + QPointF(i * 1.7, i * 1.1), Qt::LeftButton);
                bench.view.QWidget::render(&view);
                times.push_back(timer.nsecsElapsed() / 1e6);
            }
            mouse(QEvent::MouseButtonRelease, from + QPointF(340, 220), Qt::NoButton);
            double total = 0;
            for (double t : times)
                total += t;
            result.perMove.push_back(total / times.size());
            result.slowest.push_back(*std::max_element(times.begin(), times.end()));
            const QJsonObject data = moving->data();
            result.moved = QStringLiteral("type %1 moved to (%2, %3)")
                               .arg(data.value("Type").toInt())
                               .arg(data.value("X").toInt())
                               .arg(data.value("Y").toInt());
        }
        return result;
    };
    const Drag above = dragRuns(true);
    const Drag below = dragRuns(false);

    out << "HUDs of " << sizes[0].first << " and " << sizes[1].first << " components, median of " << runs
        << " runs (ms)\n";
    out << "change " << BenchHud::median(change) << "  canvas picture at zoom 1 " << BenchHud::median(picture) << "\n";
    for (const auto& [name, drag] : {std::make_pair("on top", &above), std::make_pair("below the rest", &below)}) {
        if (drag->perMove.empty())
            continue;
        out << "drag per move, " << name << ": " << BenchHud::median(drag->perMove) << " (slowest "
            << BenchHud::median(drag->slowest) << "), " << drag->moved << "\n";
    }
    return 0;
}
