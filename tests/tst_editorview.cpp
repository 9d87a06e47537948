#include "TestEnvironment.h"

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
#include <QScrollBar>
#include <QMenu>
#include <QWheelEvent>

namespace {

using TestEnvironment::shape;

struct Editor : TestEnvironment::Canvas {
    Editor() : Canvas(new GameUIEditorSceneHelper<VelmoUISelector>()) {}
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
    }
};

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

    void ctrlWheelZoomsAndTheWheelScrolls()
    {
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        scene->setZoom(30);
        editor.view->centerOn(scene->sceneRect().center());
        QScrollBar* vertical = editor.view->verticalScrollBar();
        QScrollBar* horizontal = editor.view->horizontalScrollBar();
        editor.wheel(120, Qt::ControlModifier);
        QCOMPARE(scene->zoom(), 38);
        editor.wheel(-120, Qt::ControlModifier);
        QCOMPARE(scene->zoom(), 30);

        // The plain wheel scrolls vertically by its delta, with Shift sideways.
        int v = vertical->value(), h = horizontal->value();
        editor.wheel(-120, Qt::NoModifier);
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
    }

    void arrowKeysMoveTheSelectedComponent()
    {
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        scene->loadFromJson(QJsonArray{shape(1, 200, 150, 40, 40), shape(2, 500, 400, 40, 40)});
        scene->setZoom(20);
        QScrollBar* vertical = editor.view->verticalScrollBar();
        editor.view->centerOn(400, 300);
        const int v = vertical->value();

        UIComponentBase* component = editor.select(0);
        const size_t undoSteps = scene->undoRecorder().undoStack().size();
        QTest::keyClick(editor.view, Qt::Key_Right);
        QTest::keyClick(editor.view, Qt::Key_Up, Qt::ControlModifier);
        // Screen units, whatever the zoom: the document gets the new numbers.
        QCOMPARE(component->data().value("X").toInt(), 200 + 1);
        QCOMPARE(component->data().value("Y").toInt(), 150 - 10);
        // No undo step; the view never scrolled.
        QCOMPARE(scene->undoRecorder().undoStack().size(), undoSteps);
        QCOMPARE(vertical->value(), v);

        // A hidden component stays where it is.
        QTest::keyClick(editor.view, Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!component->isVisible());
        QTest::keyClick(editor.view, Qt::Key_Left);
        QCOMPARE(component->x, 201);
    }

    void editingKeysActOnTheSelectedComponent()
    {
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        scene->loadFromJson(QJsonArray{shape(1, 200, 150, 40, 40), shape(2, 500, 400, 40, 40)});
        scene->setZoom(10);
        QApplication::clipboard()->clear();

        // Ctrl+C copies the selected component.
        UIComponentBase* first = editor.select(0);
        QTest::keyClick(editor.view, Qt::Key_C, Qt::ControlModifier);

        // Ctrl+V pastes where the cursor stands.
        editor.view->centerOn(408, 312);
        const QPointF target(300, 250);
        QCursor::setPos(editor.view->viewport()->mapToGlobal(editor.view->mapFromScene(target)));
        QTest::keyClick(editor.view, Qt::Key_V, Qt::ControlModifier);
        UIComponentBase* pasted = scene->selectedComponent();
        QCOMPARE(pasted->jsonData.value("Name").toString(), QStringLiteral("Shape 1 - Copy 1"));
        QCOMPARE(QPoint(pasted->x, pasted->y), target.toPoint());

        // Delete removes it; a repeated Delete from a held key doesn't go on.
        QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
        editor.select(0);
        QApplication::sendEvent(editor.view, &repeat);
        QCOMPARE(scene->components().size(), 3);
        QTest::keyClick(editor.view, Qt::Key_Delete);
        QVERIFY(!scene->components().contains(first));

        // Ctrl+X copies and deletes; during a drag Ctrl+V does nothing.
        UIComponentBase* held = editor.select(0);
        QTest::keyClick(editor.view, Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(scene->components().size(), 1);
        held = editor.select(0);
        const QPoint onIt = editor.view->mapFromScene(held->scenePos());
        QTest::mousePress(editor.view->viewport(), Qt::LeftButton, Qt::NoModifier, onIt);
        QCOMPARE(scene->draggedComponent(), held);
        QTest::keyClick(editor.view, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(scene->components().size(), 1);
        QTest::mouseRelease(editor.view->viewport(), Qt::LeftButton, Qt::NoModifier, onIt);
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
        // The zoom scales the picture; only the named HUD is drawn.
        const QString zoomed = TestEnvironment::newFolder(QStringLiteral("render-zoomed"));
        QCOMPARE(render(Sample, zoomed, {"--zoom", "1.5", "--hud", "Battle HUD"}).code, 0);
        QCOMPARE(QImage(zoomed + "/Battle HUD.png").size(), QSize(1224, 936));
        QCOMPARE(QDir(zoomed).entryList(QDir::Files), QStringList{"Battle HUD.png"});
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
        for (const char* name : {"A/B", "A:B", "con", ""})
            custom.append(customHud(QString::fromUtf8(name)));
        custom.append(broken);
        custom.append(customHud(QStringLiteral("Last")));
        const QString out = TestEnvironment::newFolder(QStringLiteral("render-names-out"));
        const CliResult result = render(projectWithHuds(QStringLiteral("render-names"), custom), out);
        // The HUD that can't be drawn is reported, the others are written.
        QCOMPARE(result.code, 1);
        QVERIFY2(result.err.contains("\"Broken\" could not be drawn"), qPrintable(result.err));
        QStringList files = QDir(out).entryList(QDir::Files | QDir::Hidden);
        QStringList expected{"A_B.png", "A_B (2).png", "con_.png", "HUD.png", "Last.png", "Map HUD.png", "Battle HUD.png"};
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
        QCOMPARE(render(Sample, file + "/below").code, 1);
        QCOMPARE(render(out, out).code, 1);
        // A zoom past the largest is a usage error.
        QCOMPARE(runCli({"render", Sample, "--out", out, "--zoom", "6"}).code, 2);
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
