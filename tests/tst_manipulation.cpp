#include "TestEnvironment.h"

#include "components/GameUIEditorSceneHelper.h"
#include "scene/GameUIEditor.h"
#include "scene/ComponentListSync.h"
#include "scene/GameUIEditorScene.h"
#include "scene/SceneUndoRecorder.h"
#include "scene/ResizeComponentButtonSprite.h"
#include "scene/SnapTargets.h"
#include "scene/UIComponentBase.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QWindow>

namespace {

// The canvas and its component list side by side, as the main window has
// them, driven by mouse events that pass through the window system as a
// user's do (buttons and modifiers held across moves).
struct Editor : TestEnvironment::Canvas {
    Editor() : Canvas(new GameUIEditorSceneHelper<VelmoUISelector>())
    {
        window.show();
        if (!QTest::qWaitForWindowExposed(&window))
            qFatal("the editor window never showed");
    }

    void load(const QJsonArray& hud, int zoom)
    {
        scene->clear();
        scene->setZoom(zoom);
        scene->loadFromJson(hud);
        // The view takes a new scene rectangle, and its scroll bars, on its
        // next pass through the event loop: positions are mapped after that.
        QApplication::processEvents();
    }
    UIComponentBase* component(int id) const
    {
        for (UIComponentBase* c : scene->components()) {
            if (c->jsonData.value("ID").toInt() == id)
                return c;
        }
        return nullptr;
    }

    // A scene point as a position in the top-level window.
    QPoint at(const QPointF& scenePoint) const
    {
        return view->viewport()->mapTo(&window, view->mapFromScene(scenePoint));
    }
    void send(QEvent::Type type, const QPointF& scenePoint, Qt::MouseButton button, Qt::KeyboardModifiers mods)
    {
        QWindow* handle = window.windowHandle();
        const QPoint local = at(scenePoint);
        if (type == QEvent::MouseButtonPress)
            held |= button;
        else if (type == QEvent::MouseButtonRelease)
            held &= ~button;
        qt_handleMouseEvent(handle, local, handle->mapToGlobal(local), held, button, type, mods,
                            ++QTest::lastMouseTimestamp);
        // Two presses never make a double-click.
        if (type == QEvent::MouseButtonRelease)
            QTest::lastMouseTimestamp += 1000;
        QApplication::processEvents();
    }
    void press(const QPointF& p, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        view->centerOn(p);
        send(QEvent::MouseButtonPress, p, Qt::LeftButton, mods);
    }
    void move(const QPointF& p, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        send(QEvent::MouseMove, p, Qt::NoButton, mods);
    }
    void release(const QPointF& p, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        send(QEvent::MouseButtonRelease, p, Qt::LeftButton, mods);
    }
    // Presses the component's centre and drags it so that, without snapping,
    // its centre would end at the scene point.
    void drag(UIComponentBase* c, const QPointF& to, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        const QPointF from = c->absoluteItemPosition();
        press(from, mods);
        move((from + to) / 2, mods);
        move(to, mods);
        release(to, mods);
    }
    // The middle of a handle's dot.
    static QPointF handlePoint(const ResizeComponentButtonSprite* handle) { return handle->mapToScene(3, 3); }
    // Presses a handle, moves it by the scene delta, and releases.
    void pull(UIComponentBase* c, int index, const QPointF& delta, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        const QPointF from = handlePoint(c->handleAt(index));
        press(from, mods);
        move(from + delta / 2, mods);
        move(from + delta, mods);
        release(from + delta, mods);
    }

    Qt::MouseButtons held;
};

QJsonObject shape(int id, int x, int y, int w, int h, int rotation = 0)
{
    QJsonObject json = TestEnvironment::shape(id, x, y, w, h);
    json.insert("Rotation", rotation);
    return json;
}

QPoint stored(UIComponentBase* c)
{
    const QJsonObject json = c->data();
    return QPoint(json.value("X").toInt(), json.value("Y").toInt());
}

QSize storedSize(UIComponentBase* c)
{
    const QJsonObject size = c->data().value("ShapeData").toObject();
    return QSize(size.value("Width").toInt(), size.value("Height").toInt());
}

// Rows and components agree, every component is on the canvas under the
// parent its row names, and deleted ones are off it.
void checkConsistent(GameUIEditorScene* scene)
{
    QCOMPARE(scene->componentListSync().mappedRows(), scene->components().size());
    for (UIComponentBase* c : scene->components()) {
        UltimateTreeItem* row = scene->rowOfComponent(c);
        QVERIFY(row && c->scene() == scene);
        QCOMPARE(c->parentComponent, row->parentItem() ? scene->componentOfRow(row->parentItem()) : nullptr);
    }
    for (UIComponentBase* gone : scene->removedComponents())
        QVERIFY(!gone->scene());
}

// The scene is idle again: nothing dragged or held, the wheel free, guides
// and snap targets gone, the mouse's cursor the normal one.
void checkIdle(GameUIEditorScene* scene)
{
    QVERIFY(!scene->draggedComponent());
    QVERIFY(scene->wheelAllowed());
    QVERIFY(scene->guideLines().isEmpty());
    QVERIFY(SnapTargets::snapX.isEmpty());
    QVERIFY(SnapTargets::edgeX.isEmpty());
    QVERIFY(!QApplication::overrideCursor());
    for (UIComponentBase* c : scene->components())
        QVERIFY(!c->activeHandle);
}

}

class TestManipulation : public QObject
{
    Q_OBJECT

private slots:
    // A drag ends on the first target within 9 screen units of the wanted
    // centre. Shape 1 is 100 by 100 at (300, 200), shape 2 a sibling 200 by
    // 100 at (600, 450); the screen is 816 by 624. Shape 1's half size is 50
    // (round of 99 / 2); shape 2 spans 500.5 to 699.5 (its box is 199 wide).
    void dragsSnapToTheFirstTargetInReach_data()
    {
        QTest::addColumn<int>("zoom");
        QTest::addColumn<QPoint>("wanted");
        QTest::addColumn<QPoint>("expected");
        QTest::addColumn<bool>("ctrl");
        QTest::newRow("canvas centre within 9") << 10 << QPoint(417, 303) << QPoint(408, 312) << false;
        QTest::newRow("canvas centre at 10 stays free") << 10 << QPoint(418, 302) << QPoint(418, 302) << false;
        // Right edge against the sibling's left: 500.5 - 50.
        QTest::newRow("touching the sibling's left") << 10 << QPoint(455, 200) << QPoint(450, 200) << false;
        QTest::newRow("ctrl drags free") << 10 << QPoint(417, 303) << QPoint(417, 303) << true;
        // The canvas's right edge at 816 - 49.5, its bottom at 624 - 49.5.
        QTest::newRow("right and bottom canvas edges at zoom 25") << 25 << QPoint(770, 580) << QPoint(766, 574) << false;
    }

    void dragsSnapToTheFirstTargetInReach()
    {
        QFETCH(int, zoom);
        QFETCH(QPoint, wanted);
        QFETCH(QPoint, expected);
        QFETCH(bool, ctrl);
        Editor editor;
        editor.load(QJsonArray{shape(1, 300, 200, 100, 100), shape(2, 600, 450, 200, 100)}, zoom);
        UIComponentBase* moving = editor.component(1);
        const double factor = zoom / 10.0;
        // The wanted centre in scene units, the smallest whole one whose
        // screen value truncates to the wanted number.
        const QPointF to(std::ceil(wanted.x() * factor), std::ceil(wanted.y() * factor));
        const Qt::KeyboardModifiers mods = ctrl ? Qt::ControlModifier : Qt::NoModifier;
        const QPointF from = moving->absoluteItemPosition();
        editor.press(from, mods);
        editor.move(to, mods);
        // Mid-drag: a guide for each axis that snapped, at the target's line.
        const int snappedAxes = (expected.x() != wanted.x()) + (expected.y() != wanted.y());
        QCOMPARE(editor.scene->guideLines().size(), snappedAxes);
        editor.release(to, mods);
        QCOMPARE(stored(moving), expected);
        checkIdle(editor.scene);
    }

    // A drag far off the canvas ends with the box's centre half its size
    // outside the canvas: the box is 99 wide (249 at zoom 2.5), so the
    // centre comes back to 816 + 49.5 and 624 + 49.5, or to -49.5, rounded
    // to the nearest unit (a tie upwards).
    void dragsFarOffTheCanvasComeBack_data()
    {
        QTest::addColumn<int>("zoom");
        QTest::addColumn<QPointF>("away");
        QTest::addColumn<QPoint>("expected");
        QTest::newRow("right and down at zoom 10") << 10 << QPointF(3000, 2500) << QPoint(866, 674);
        QTest::newRow("left and up at zoom 25") << 25 << QPointF(-3000, -2500) << QPoint(-50, -50);
    }

    void dragsFarOffTheCanvasComeBack()
    {
        QFETCH(int, zoom);
        QFETCH(QPointF, away);
        QFETCH(QPoint, expected);
        Editor editor;
        editor.load(QJsonArray{shape(1, 300, 200, 100, 100)}, zoom);
        UIComponentBase* moving = editor.component(1);
        editor.drag(moving, moving->absoluteItemPosition() + away);
        QCOMPARE(stored(moving), expected);
        checkIdle(editor.scene);
        // The drag is one step to undo, holding the place before it.
        QVERIFY(!editor.scene->undoRecorder().undoStack().empty());
        QCOMPARE(editor.scene->undoRecorder().undoStack().back().json.value("X").toInt(), 300);
    }

    // The component leaves the list while the mouse still drags or resizes
    // it: the interaction ends there, later moves touch nothing, and scene
    // and list agree.
    void deletingDuringAnInteractionEndsIt_data()
    {
        QTest::addColumn<int>("handle");
        QTest::newRow("drag") << -1;
        QTest::newRow("resize") << 4;
    }

    void deletingDuringAnInteractionEndsIt()
    {
        QFETCH(int, handle);
        Editor editor;
        editor.load(QJsonArray{shape(1, 300, 200, 100, 100), shape(2, 600, 400, 100, 100)}, 10);
        UIComponentBase* moving = editor.component(1);
        editor.scene->select(moving);
        const QPointF from = handle < 0 ? moving->absoluteItemPosition()
                                        : Editor::handlePoint(moving->handleAt(handle));
        editor.press(from);
        editor.move(from + QPointF(40, 30));
        emit editor.list->onDeleteKeyPress();
        const QJsonObject atDeletion = moving->data();
        editor.move(from + QPointF(120, 90));
        editor.release(from + QPointF(120, 90));
        QCOMPARE(moving->data(), atDeletion);
        checkIdle(editor.scene);
        checkConsistent(editor.scene);
        QCOMPARE(editor.scene->components().size(), 1);
    }

    // The handles of a 120 by 80 shape at (400, 300), pulled
    // by (30, 20) screen units. The pull turns into the component's own
    // axes: at 45 degrees it is (35.36, -7.07). Sizes are
    // rounded to even numbers; the opposite handle stays where it was.
    void handlesResizeWithTheOppositeHandleStill_data()
    {
        QTest::addColumn<int>("zoom");
        QTest::addColumn<int>("rotation");
        QTest::addColumn<int>("handle");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("0 degrees, top left") << 10 << 0 << 0 << QSize(90, 60);
        QTest::newRow("45 degrees, bottom right") << 25 << 45 << 4 << QSize(156, 72);
    }

    void handlesResizeWithTheOppositeHandleStill()
    {
        QFETCH(int, zoom);
        QFETCH(int, rotation);
        QFETCH(int, handle);
        QFETCH(QSize, expected);
        const double factor = zoom / 10.0;
        Editor editor;
        editor.load(QJsonArray{shape(1, 400, 300, 120, 80, rotation), shape(2, 440, 320, 100, 100)}, zoom);
        UIComponentBase* c = editor.component(1);
        editor.scene->select(c);
        const QPointF oppositeBefore = c->handleAt(ResizeComponentButtonSprite::oppositeIndex(handle))->scenePos();

        const QPointF from = Editor::handlePoint(c->handleAt(handle));
        editor.press(from);
        // The press belongs to the handle: nothing is dragged.
        QVERIFY(!editor.scene->draggedComponent());
        editor.move(from + QPointF(30, 20) * factor);
        editor.release(from + QPointF(30, 20) * factor);

        QCOMPARE(storedSize(c), expected);
        const QPointF oppositeAfter = c->handleAt(ResizeComponentButtonSprite::oppositeIndex(handle))->scenePos();
        QVERIFY(QLineF(oppositeAfter, oppositeBefore).length() <= 1.0);
        QCOMPARE(c->data().value("Rotation").toInt(), rotation);
        checkIdle(editor.scene);
    }

    // Sizes stop at the kind's limits and are even afterwards: a shape's
    // least side is 25, so 26; a picture (a scale kind) reaches five times
    // its natural size, the 64 of the block shown without an image, and
    // stores the scale.
    void resizingStopsAtTheLimits()
    {
        Editor editor;
        const QJsonObject picture{{"ID", 2}, {"Type", 2}, {"X", 200}, {"Y", 200}};
        editor.load(QJsonArray{shape(1, 500, 400, 120, 80), picture}, 10);
        UIComponentBase* s = editor.component(1);
        editor.scene->select(s);
        editor.pull(s, 4, QPointF(-400, -300));
        QCOMPARE(storedSize(s), QSize(26, 26));

        UIComponentBase* p = editor.component(2);
        editor.scene->select(p);
        editor.pull(p, 4, QPointF(900, 40));
        QCOMPARE(QSize(p->width, p->height), QSize(320, 104));
        QCOMPARE(p->data().value("ScaleX").toDouble(), 5.0);
        QCOMPARE(p->data().value("ScaleY").toDouble(), 1.625);
        checkIdle(editor.scene);
    }

    // The rotation handle turns the component to the mouse's direction from
    // its centre, clockwise from straight up; the saved "Rotation" is a whole
    // number from 0 to 359 however often the mouse goes round, and with
    // Shift the nearest multiple of 10 (a tie at 5 going down, 357 to 360,
    // which is saved as 0).
    void rotationFollowsTheMouseRound()
    {
        Editor editor;
        editor.load(QJsonArray{shape(1, 400, 300, 100, 100, -370)}, 10);
        UIComponentBase* c = editor.component(1);
        QCOMPARE(c->data().value("Rotation").toInt(), -10);
        editor.scene->select(c);
        const QPointF centre(400, 300);
        const QPointF from = Editor::handlePoint(c->handleAt(ResizeComponentButtonSprite::rotationIndex));
        editor.press(from);
        auto turnTo = [&](const QPointF& offset, int expected, Qt::KeyboardModifiers mods = Qt::NoModifier) {
            editor.move(centre + offset, mods);
            QCOMPARE(c->data().value("Rotation").toInt(), expected);
        };
        turnTo(QPointF(-100, 0), 270);
        turnTo(QPointF(-5, -100), 357);
        // Shift alone sends no mouse move: the next move applies it.
        turnTo(QPointF(-5, -101), 0, Qt::ShiftModifier);
        turnTo(QPointF(100, -100), 40, Qt::ShiftModifier);
        turnTo(QPointF(100, 90), 130, Qt::ShiftModifier);
        editor.release(centre + QPointF(100, 90), Qt::ShiftModifier);
        QCOMPARE(c->data().value("Rotation").toInt(), 130);
        QCOMPARE(stored(c), QPoint(400, 300));
        checkIdle(editor.scene);
    }

};

VELMORA_TEST_MAIN(TestManipulation, QApplication)
#include "tst_manipulation.moc"
