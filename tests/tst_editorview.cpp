#include "TestEnvironment.h"

#include "app/CommandLineTool.h"
#include "components/GameUIEditorSceneHelper.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/SceneUndoRecorder.h"
#include "scene/UIComponentBase.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QJsonArray>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QMenu>
#include <QWheelEvent>
#include <QtTest>

namespace {

using TestEnvironment::shape;

struct Editor : TestEnvironment::Canvas {
    Editor() : Canvas(new GameUIEditorSceneHelper<VelmoUISelector>())
    {
        view->setZoomCallback([this](int in, int out) { states.append(qMakePair(in, out)); });
    }
    void show()
    {
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }
    UIComponentBase* select(int row)
    {
        list->tree()->setCurrentRow(list->tree()->row(row));
        return scene->selectedComponent();
    }
    void wheel(int delta, Qt::KeyboardModifiers modifiers)
    {
        const QPoint at = view->viewport()->rect().center();
        QWheelEvent event(at, view->viewport()->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view->viewport(), &event);
        wheelAccepted = event.isAccepted();
    }

    QList<QPair<int, int>> states;
    bool wheelAccepted = false;
};

// A view alone whose viewport is exactly the size it is given.
struct BareView {
    explicit BareView(int width, int height)
    {
        view.setFrameShape(QFrame::NoFrame);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.editorScene()->setZoomCallback([this](int in, int out) { states.append(qMakePair(in, out)); });
        view.show();
        resize(width, height);
    }
    void resize(int width, int height)
    {
        view.resize(width, height);
        QCoreApplication::processEvents();
    }
    GameUIEditor view;
    QList<QPair<int, int>> states;
};

bool opaqueWhite(const QImage& image, int x, int y)
{
    return image.pixel(x, y) == qRgba(255, 255, 255, 255);
}

bool transparent(const QImage& image, int x, int y)
{
    return qAlpha(image.pixel(x, y)) == 0;
}

using TestEnvironment::CliResult;
using TestEnvironment::runCli;

// A project whose document holds the given HUD objects after an empty Map
// and Battle HUD.
QString projectWithHuds(const QString& name, const QJsonArray& custom, const QJsonArray& mapHud = QJsonArray(),
                        int width = 400, int height = 300)
{
    const QString project = TestEnvironment::makeProject(name, width, height);
    QJsonArray data{QJsonObject{{"HUD", mapHud}}, QJsonObject{{"HUD", QJsonArray()}}};
    for (const QJsonValue& hud : custom)
        data.append(hud);
    TestEnvironment::writeFile(TestEnvironment::documentPath(project),
                               TestEnvironment::compact(QJsonObject{{"Map", 0}, {"Battle", 1}, {"Data", data}}));
    return project;
}

QJsonObject customHud(const QString& name, const QJsonArray& components = QJsonArray())
{
    return QJsonObject{{"Name", name}, {"IsHUD", true}, {"ID", "01234"}, {"Params", QJsonArray()}, {"HUD", components}};
}

}

class TestEditorView : public QObject
{
    Q_OBJECT

private slots:
    void zoomStepsFollowTheTable()
    {
        BareView bare(900, 700);
        GameUIEditorScene* scene = bare.view.editorScene();
        scene->setScreenSize(816, 624);

        // Upwards from the smallest zoom, and downwards from the largest.
        auto walk = [&](int from, void (GameUIEditorScene::*step)()) {
            scene->setZoom(from);
            QList<int> seen{from};
            for (int i = 0; i < 25; ++i) {
                (scene->*step)();
                if (scene->zoom() != seen.last())
                    seen.append(scene->zoom());
            }
            return seen;
        };
        QCOMPARE(walk(1, &GameUIEditorScene::zoomIn),
                 (QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 14, 16, 18, 20, 24, 28, 32, 40, 50}));
        QCOMPARE(walk(59, &GameUIEditorScene::zoomOut),
                 (QList<int>{59, 49, 39, 31, 23, 19, 17, 15, 13, 11, 9, 8, 7, 6, 5, 4, 3, 2, 1}));


        // The edges: 49 overshoots to 59 and stops there, a step that
        // changes nothing reports nothing; each end reports its state.
        bare.states.clear();
        scene->setZoom(49);
        scene->zoomIn();
        QCOMPARE(scene->zoom(), 59);
        QCOMPARE(bare.states.last(), qMakePair(2, 1));
        const int reports = bare.states.size();
        scene->zoomIn();
        QCOMPARE(scene->zoom(), 59);
        QCOMPARE(bare.states.size(), reports);
        scene->zoomOut();
        QCOMPARE(scene->zoom(), 49);
        QCOMPARE(bare.states.last(), qMakePair(1, 1));
        scene->setZoom(2);
        scene->zoomOut();
        QCOMPARE(bare.states.last(), qMakePair(1, 2));
    }

    void fitPicksTheLargestZoomThatFits_data()
    {
        QTest::addColumn<QSize>("viewport");
        QTest::addColumn<QSize>("screen");
        QTest::addColumn<int>("zoom");
        QTest::newRow("816x624 in 1000x700") << QSize(1000, 700) << QSize(816, 624) << 10;
        QTest::newRow("never above 2.0") << QSize(2400, 1800) << QSize(816, 624) << 20;
        QTest::newRow("never below 0.2") << QSize(100, 100) << QSize(816, 624) << 2;
        QTest::newRow("exactly 25 more is too little") << QSize(125, 400) << QSize(100, 100) << 9;
        QTest::newRow("26 more fits") << QSize(126, 400) << QSize(100, 100) << 10;
        QTest::newRow("height decides") << QSize(3000, 337) << QSize(300, 200) << 15;
    }

    void fitPicksTheLargestZoomThatFits()
    {
        QFETCH(QSize, viewport);
        QFETCH(QSize, screen);
        QFETCH(int, zoom);
        BareView bare(viewport.width(), viewport.height());
        QCOMPARE(bare.view.viewport()->size(), viewport);
        GameUIEditorScene* scene = bare.view.editorScene();
        scene->setScreenSize(screen.width(), screen.height());
        scene->setZoom(33);
        bare.view.fitZoom();
        QCOMPARE(scene->zoom(), zoom);
        QVERIFY(!bare.states.isEmpty());
        QCOMPARE(bare.states.last(), qMakePair(1, 1));
    }

    void componentPixelsFollowTheZoom_data()
    {
        QTest::addColumn<int>("zoom");
        QTest::newRow("0.5") << 5;
        QTest::newRow("2.0") << 20;
    }

    void componentPixelsFollowTheZoom()
    {
        QFETCH(int, zoom);
        const double f = zoom / 10.0;
        Editor editor;
        editor.scene->setScreenSize(400, 300);
        // Components of a kind this program doesn't know draw the plain base
        // rectangle, 100 by 100 around their centre. One at the top level,
        // one inside a group centred at (100, 60), 150 right and 100 below it.
        const QJsonObject plain{{"ID", 2}, {"Type", 99}, {"X", 150}, {"Y", 100}};
        const QJsonObject top{{"ID", 3}, {"Type", 99}, {"X", 90}, {"Y", 220}};
        editor.scene->loadFromJson(
            QJsonArray{QJsonObject{{"ID", 1}, {"Type", 6}, {"X", 100}, {"Y", 60}, {"Children", QJsonArray{plain}}}, top});
        editor.scene->setZoom(zoom);

        const QImage image = editor.scene->canvasImage(false);
        QCOMPARE(image.size(), QSize(int(400 * f), int(300 * f)));
        // The drawn rectangle lies from (centre - size / 2) * zoom to
        // (centre + size / 2) * zoom.
        auto checkBox = [&](double cx, double cy) {
            const int left = int((cx - 50) * f), top = int((cy - 50) * f);
            const int right = int((cx + 50) * f), bottom = int((cy + 50) * f);
            QVERIFY2(opaqueWhite(image, left, top) && opaqueWhite(image, right - 1, bottom - 1),
                     qPrintable(QStringLiteral("box at %1,%2").arg(cx).arg(cy)));
            QVERIFY(opaqueWhite(image, (left + right) / 2, (top + bottom) / 2));
            QVERIFY(transparent(image, left - 1, top + 1) && transparent(image, left + 1, top - 1));
            QVERIFY(transparent(image, right, bottom - 2) && transparent(image, right - 2, bottom));
        };
        checkBox(90, 220);
        checkBox(250, 160);
    }

    void backgroundIsTheCanvasAsDesigned()
    {
        Editor editor;
        GameUIEditorScene* scene = editor.scene;
        scene->setScreenSize(60, 40);
        scene->setTile(QImage(QStringLiteral(":/resources/Editor/Tile.png")));
        scene->setZoom(10);
        // A background picture is stretched over the canvas and darkened but
        // for the last column and row.
        QPixmap red(6, 4);
        red.fill(Qt::red);
        scene->setBackgroundImage(red);
        scene->setDarkness(0.5);
        QImage image(60, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::magenta);
        {
            QPainter painter(&image);
            scene->render(&painter, QRectF(0, 0, 60, 40), QRectF(0, 0, 60, 40));
        }
        const QColor darkened(image.pixel(30, 20));
        QVERIFY2(qAbs(darkened.red() - 128) <= 2 && darkened.green() == 0, qPrintable(darkened.name()));
        QCOMPARE(QColor(image.pixel(59, 20)), QColor(Qt::red));
    }

    void ctrlWheelZoomsAndTheWheelScrolls()
    {
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        scene->setZoom(30);
        editor.view->centerOn(scene->sceneRect().center());
        QScrollBar* vertical = editor.view->verticalScrollBar();
        QScrollBar* horizontal = editor.view->horizontalScrollBar();
        QVERIFY(vertical->maximum() > 500 && horizontal->maximum() > 500);

        editor.states.clear();
        editor.wheel(120, Qt::ControlModifier);
        QVERIFY(editor.wheelAccepted);
        QCOMPARE(scene->zoom(), 38);
        QCOMPARE(editor.states.last(), qMakePair(1, 1));
        editor.wheel(-120, Qt::ControlModifier);
        QCOMPARE(scene->zoom(), 30);

        // The plain wheel scrolls vertically by its delta, with Shift sideways.
        int v = vertical->value(), h = horizontal->value();
        editor.wheel(-120, Qt::NoModifier);
        QCOMPARE(vertical->value(), v + 120);
        QCOMPARE(horizontal->value(), h);
        editor.wheel(120, Qt::ShiftModifier);
        QCOMPARE(horizontal->value(), h - 120);
        QCOMPARE(vertical->value(), v + 120);

        // During a drag Ctrl+wheel scrolls instead of zooming.
        QWidget* viewport = editor.view->viewport();
        const QPointF middle = editor.view->mapToScene(viewport->rect().center()) / scene->zoomFactor();
        scene->loadFromJson(QJsonArray{shape(1, int(middle.x()), int(middle.y()), 40, 40)});
        const QPoint onIt = editor.view->mapFromScene(scene->components().first()->scenePos());
        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, onIt);
        QVERIFY(scene->draggedComponent());
        v = vertical->value();
        editor.wheel(120, Qt::ControlModifier);
        QCOMPARE(scene->zoom(), 30);
        QCOMPARE(vertical->value(), v - 120);
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, onIt);
        QVERIFY(!scene->draggedComponent());
        editor.wheel(120, Qt::ControlModifier);
        QCOMPARE(scene->zoom(), 38);
    }

    void arrowKeysMoveTheSelectedComponent()
    {
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        scene->loadFromJson(QJsonArray{shape(1, 200, 150, 40, 40), shape(2, 500, 400, 40, 40)});
        scene->setZoom(20);
        QSignalSpy changed(scene, &GameUIEditorScene::changedWithoutUndo);
        QScrollBar* vertical = editor.view->verticalScrollBar();
        editor.view->centerOn(400, 300);
        const int v = vertical->value();

        UIComponentBase* component = editor.select(0);
        QVERIFY(component);
        const size_t undoSteps = scene->undoRecorder().undoStack().size();
        QTest::keyClick(editor.view, Qt::Key_Right);
        QTest::keyClick(editor.view, Qt::Key_Down);
        QTest::keyClick(editor.view, Qt::Key_Down);
        QTest::keyClick(editor.view, Qt::Key_Left, Qt::ControlModifier);
        QTest::keyClick(editor.view, Qt::Key_Up, Qt::ControlModifier);
        // Screen units, whatever the zoom: the document gets the new numbers.
        QCOMPARE(component->data().value("X").toInt(), 200 + 1 - 10);
        QCOMPARE(component->data().value("Y").toInt(), 150 + 2 - 10);
        QCOMPARE(component->pos(), QPointF(191 * 2.0, 142 * 2.0));
        // No undo step, but the HUD counts as changed; the view never scrolled.
        QCOMPARE(scene->undoRecorder().undoStack().size(), undoSteps);
        QCOMPARE(changed.count(), 5);
        QCOMPARE(vertical->value(), v);

        // A hidden component stays where it is.
        QTest::keyClick(editor.view, Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!component->isVisible());
        QTest::keyClick(editor.view, Qt::Key_Left);
        QCOMPARE(component->x, 191);
    }

    void editingKeysActOnTheSelectedComponent()
    {
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        scene->loadFromJson(QJsonArray{shape(1, 200, 150, 40, 40), shape(2, 500, 400, 40, 40)});
        QCOMPARE(scene->idCounter(), 2);
        scene->setZoom(10);
        QApplication::clipboard()->clear();

        // Ctrl+C copies the selected component.
        UIComponentBase* first = editor.select(0);
        QTest::keyClick(editor.view, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QApplication::clipboard()->text().startsWith(QStringLiteral("VELMOCOMP")));
        QVERIFY(QApplication::clipboard()->text().contains(QStringLiteral("Shape 1")));

        // Ctrl+V pastes where the cursor stands.
        editor.view->centerOn(408, 312);
        const QPointF target(300, 250);
        QCursor::setPos(editor.view->viewport()->mapToGlobal(editor.view->mapFromScene(target)));
        QTest::keyClick(editor.view, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(scene->components().size(), 3);
        UIComponentBase* pasted = scene->selectedComponent();
        QVERIFY(pasted && pasted != first);
        QCOMPARE(pasted->jsonData.value("Name").toString(), QStringLiteral("Shape 1 - Copy 1"));
        QCOMPARE(QPoint(pasted->x, pasted->y), target.toPoint());

        // Delete removes it; a repeated Delete from a held key doesn't go on.
        QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
        editor.select(0);
        QApplication::sendEvent(editor.view, &repeat);
        QCOMPARE(scene->components().size(), 3);
        QTest::keyClick(editor.view, Qt::Key_Delete);
        QCOMPARE(scene->components().size(), 2);
        QVERIFY(!scene->components().contains(first));
        QVERIFY(!scene->undoRecorder().undoStack().empty());

        // Ctrl+X copies and deletes.
        editor.select(0);
        QTest::keyClick(editor.view, Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(scene->components().size(), 1);

        // During a drag Ctrl+V does nothing.
        QApplication::clipboard()->setText(QStringLiteral("VELMOCOMP") + TestEnvironment::compact(shape(9, 1, 1, 30, 30)));
        UIComponentBase* held = editor.select(0);
        const QPoint onIt = editor.view->mapFromScene(held->scenePos());
        QTest::mousePress(editor.view->viewport(), Qt::LeftButton, Qt::NoModifier, onIt);
        QCOMPARE(scene->draggedComponent(), held);
        QTest::keyClick(editor.view, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(scene->components().size(), 1);
        QTest::mouseRelease(editor.view->viewport(), Qt::LeftButton, Qt::NoModifier, onIt);
        QVERIFY(!scene->draggedComponent());
        QTest::keyClick(editor.view, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(scene->components().size(), 2);
    }

    // A right-click on the component that is already selected keeps it the
    // selection, so the canvas menu's commands act on it.
    void rightClickOnTheSelectionKeepsIt()
    {
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        scene->loadFromJson(QJsonArray{shape(1, 200, 150, 60, 60)});
        scene->setZoom(10);
        QApplication::processEvents();
        const QPoint at = editor.view->mapFromScene(QPointF(200, 150));
        QWidget* viewport = editor.view->viewport();

        QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, at);
        UIComponentBase* shapeOne = scene->selectedComponent();
        QVERIFY(shapeOne);
        QTest::mousePress(viewport, Qt::RightButton, Qt::NoModifier, at);
        QTest::mouseRelease(viewport, Qt::RightButton, Qt::NoModifier, at);
        QCOMPARE(scene->selectedComponent(), shapeOne);
        QMenu* menu = editor.view->contextMenu;
        QTRY_VERIFY(menu->isVisible());
        QAction* remove = nullptr;
        for (QAction* action : menu->actions()) {
            if (action->text() == QStringLiteral("Delete \"Shape 1\""))
                remove = action;
        }
        QVERIFY(remove && remove->isVisible());
        menu->hide();
        remove->trigger();
        QVERIFY(scene->components().isEmpty());
    }

    void renderWritesEveryHudAtTheZoom()
    {
        const QString out = TestEnvironment::newFolder(QStringLiteral("render-sample"));
        CliResult result = render(Sample, out);
        QVERIFY2(result.code == 0, qPrintable(result.err));
        QCOMPARE(QImage(out + "/Map HUD.png").size(), QSize(816, 624));
        QCOMPARE(QImage(out + "/Battle HUD.png").size(), QSize(816, 624));
        QVERIFY(result.out.contains("Map HUD.png"));

        // The zoom scales the picture; only the named HUD is drawn.
        const QString zoomed = TestEnvironment::newFolder(QStringLiteral("render-zoomed"));
        QCOMPARE(render(Sample, zoomed, {"--zoom", "1.5", "--hud", "Battle HUD"}).code, 0);
        QCOMPARE(QImage(zoomed + "/Battle HUD.png").size(), QSize(1224, 936));
        QCOMPARE(QDir(zoomed).entryList(QDir::Files), QStringList{"Battle HUD.png"});
        render(Sample, zoomed, {"--zoom", "0.5", "--hud", "Map HUD"});
        QCOMPARE(QImage(zoomed + "/Map HUD.png").size(), QSize(408, 312));
        // The project itself is never written.
        QVERIFY(!QFile::exists(Sample + "/data/plugin/VelmoraHUD.json"));
    }

    void renderDrawsComponentsWhereTheyStand()
    {
        // A picture that isn't there, a text in a font the project lacks.
        const QJsonArray components{
            QJsonObject{{"ID", 1}, {"Type", 2}, {"X", 100}, {"Y", 80}, {"PictureData", QJsonObject{{"Picture", "Nowhere"}}}},
            QJsonObject{{"ID", 2}, {"Type", 0}, {"X", 300}, {"Y", 200}, {"TextData", QJsonObject{{"Text", "Gold"}}}}};
        const QString project = projectWithHuds(QStringLiteral("render-missing"), QJsonArray(), components);

        const QString out = TestEnvironment::newFolder(QStringLiteral("render-missing-out"));
        CliResult result = render(project, out);
        QVERIFY2(result.code == 0, qPrintable(result.err));
        // Without a font file the text falls back to the default font, and says so.
        QVERIFY2(result.out.contains("\"mplus-1m-regular.woff\" could not be loaded"), qPrintable(result.out));
        QImage map(out + "/Map HUD.png");
        QCOMPARE(map.size(), QSize(400, 300));
        // Both components are drawn where they stand; the rest is transparent.
        QVERIFY(qAlpha(map.pixel(100, 80)) > 0 && qAlpha(map.pixel(300, 200)) > 0);
        QVERIFY(qAlpha(map.pixel(200, 10)) == 0 && qAlpha(map.pixel(399, 299)) == 0);
    }

    void renderNamesFilesSafelyAndGoesOnAfterAFailure()
    {
        QJsonObject broken = customHud(QStringLiteral("Broken"));
        broken.insert("IsHUD", false);
        broken.insert("Width", 0);
        QJsonArray custom;
        for (const char* name : {"A/B", "A:B", "a_b", "con", " .hidden. ", ""})
            custom.append(customHud(QString::fromUtf8(name)));
        custom.append(broken);
        custom.append(customHud(QStringLiteral("Last")));
        const QString out = TestEnvironment::newFolder(QStringLiteral("render-names-out"));
        const CliResult result = render(projectWithHuds(QStringLiteral("render-names"), custom), out);
        // The HUD that can't be drawn is reported, the others are written.
        QCOMPARE(result.code, 1);
        QVERIFY2(result.err.contains("\"Broken\" could not be drawn"), qPrintable(result.err));
        QStringList files = QDir(out).entryList(QDir::Files | QDir::Hidden);
        QStringList expected{"A_B.png", "A_B (2).png", "a_b (3).png", "con_.png",      "_hidden.png",
                             "HUD.png", "Last.png",    "Map HUD.png", "Battle HUD.png"};
        files.sort();
        expected.sort();
        QCOMPARE(files, expected);
    }

    void renderRefusesWhatItCantDo()
    {
        const QString out = TestEnvironment::newFolder(QStringLiteral("render-refused"));
        // A HUD name the project doesn't have: nothing is written, the HUDs are named.
        CliResult result = render(Sample, out, {"--hud", "Shop HUD"});
        QCOMPARE(result.code, 1);
        QVERIFY(result.err.contains("no HUD named \"Shop HUD\"; its HUDs are: \"Map HUD\", \"Battle HUD\""));
        QVERIFY(QDir(out).entryList(QDir::Files).isEmpty());
        // An output folder that can't be made or written, and no project.
        const QString file = out + "/plain-file";
        TestEnvironment::writeFile(file, "x");
        for (const QString& target : {file, file + "/below"})
            QCOMPARE(render(Sample, target).code, 1);
        QCOMPARE(render(out, out).code, 1);

        // Usage errors: one line, exit 2.
        const QList<QStringList> usage{{"render", Sample},
                                       {"render", Sample, "--out", out, "--zoom", "6"},
                                       {"render", Sample, "--out", out, "--zoom", "0.25"},
                                       {"check", Sample, "--background"}};
        for (const QStringList& arguments : usage) {
            result = runCli(arguments);
            QCOMPARE(result.code, 2);
            QCOMPARE(result.err.count(QLatin1Char('\n')), 1);
        }
        QVERIFY(runCli({"--help"}).out.contains("render PROJECT --out DIR"));
    }

private:
    const QString Sample = QStringLiteral(VELMORA_SAMPLE_PROJECT);

    static CliResult render(const QString& project, const QString& out, const QStringList& options = {})
    {
        return runCli(QStringList{"render", project, "--out", out} + options);
    }
};

VELMORA_TEST_MAIN(TestEditorView, QApplication)
#include "tst_editorview.moc"
