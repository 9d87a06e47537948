#include "TestEnvironment.h"

#include "scene/GameUIEditorScene.h"
#include "scene/ResizeComponentButtonSprite.h"
#include "scene/UIComponentBase.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QApplication>
#include <QGraphicsView>
#include <QImage>
#include <QJsonArray>
#include <QPainter>
#include <QPropertyAnimation>

namespace {

// Distinct frame colours, so that every pixel tells which part painted it.
const QColor ant1(255, 0, 0);
const QColor ant2(0, 255, 0);
const QColor hoverFill(0, 0, 255);
const QColor hoverOutline(255, 0, 255);
const QColor handleBase(255, 255, 0);
const QColor handleOutline(0, 255, 255);
const QColor background(0, 0, 0);

QImage render(QGraphicsScene& scene, const QRectF& area, const QColor& fill = background)
{
    QImage image(area.size().toSize(), QImage::Format_RGB32);
    image.fill(fill);
    QPainter painter(&image);
    scene.render(&painter, QRectF(QPointF(0, 0), area.size()), area);
    return image;
}

UIComponentBase* component(GameUIEditorScene* scene, int x, int y, int w, int h,
                           UIComponentBase* parent = nullptr)
{
    auto* item = new UIComponentBase(scene);
    item->setWidth(w);
    item->setHeight(h);
    if (parent)
        item->setParentComponent(parent);
    else if (scene)
        scene->addItem(item);
    item->setXY(x, y);
    item->zoomChanged();
    return item;
}

// A kind that turns but doesn't resize: only the rotation handle.
class RotateOnly : public UIComponentBase
{
public:
    using UIComponentBase::UIComponentBase;
    bool canResize() const override { return false; }
};

// A kind with neither handle, as groups and custom components are.
class Fixed : public UIComponentBase
{
public:
    using UIComponentBase::UIComponentBase;
    bool canResize() const override { return false; }
    bool canRotate() const override { return false; }
};

// The colour the marching ants must show at pixel i of a run with the
// given offset: four of the first colour, four of the second, moving forward.
QColor antAt(int i, int offset)
{
    const int p = offset % 8;
    return ((i - p) % 8 + 8) % 8 < 4 ? ant1 : ant2;
}

QColor blend(const QColor& under, const QColor& over, double alpha)
{
    return QColor(qRound(under.red() * (1 - alpha) + over.red() * alpha),
                  qRound(under.green() * (1 - alpha) + over.green() * alpha),
                  qRound(under.blue() * (1 - alpha) + over.blue() * alpha));
}

QColor blendOverWhite(const QColor& colour, double alpha)
{
    return blend(Qt::white, colour, alpha);
}

bool near(const QColor& a, const QColor& b, int tolerance = 2)
{
    return qAbs(a.red() - b.red()) <= tolerance && qAbs(a.green() - b.green()) <= tolerance
        && qAbs(a.blue() - b.blue()) <= tolerance;
}

}

class TestComponentBase : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Theme::installDefault();
        Theme::setColor(ThemeKey::ComponentSelectColor1, ant1);
        Theme::setColor(ThemeKey::ComponentSelectColor2, ant2);
        Theme::setColor(ThemeKey::ComponentHoverColor, hoverFill);
        Theme::setColor(ThemeKey::ComponentHoverColorOutline, hoverOutline);
        Theme::setColor(ThemeKey::ComponentSelectButtonBase, handleBase);
        Theme::setColor(ThemeKey::ComponentSelectButtonOutline, handleOutline);
    }
    void cleanupTestCase() { Theme::installDefault(); }

    void freshComponentStartsAsDesigned()
    {
        GameUIEditorScene scene;
        UIComponentBase item(&scene);
        QCOMPARE(item.width, 100);
        QCOMPARE(item.height, 100);
        QCOMPARE(item.opacity, 1.0);
        QCOMPARE(item.rotation(), 0.0);
        QVERIFY(item.acceptHoverEvents());
        QCOMPARE(item.cursor().shape(), Qt::SizeAllCursor);
        QVERIFY(!item.selected && !item.hovered && !item.passive);
        QVERIFY(item.frameVisible && item.snapFlag && item.hudLevel);
        QVERIFY(item.handles.isEmpty());
        // Drawn rectangle plus 30 on every side; hit testing is exact.
        QCOMPARE(item.boundingRect(), QRectF(-80, -80, 160, 160));
        QCOMPARE(item.shape().boundingRect(), QRectF(-50, -50, 100, 100));
        QCOMPARE(item.minimumWidth(), 25);
        QCOMPARE(item.maximumWidth(), 400);
        QCOMPARE(item.minimumHeight(), 25);
        QCOMPARE(item.maximumHeight(), 400);
        QVERIFY(!item.canHaveChildren());
        QVERIFY(item.canResize() && item.canRotate());
    }

    void dataRewritesTheCommonKeys()
    {
        GameUIEditorScene scene;
        UIComponentBase item(&scene);
        const QJsonObject json{{"Type", 1}, {"ID", 4}, {"X", 10}, {"Y", -20}, {"Rotation", 30},
                               {"Opacity", 0.5}, {"Name", "Bar"}, {"ShapeData", QJsonObject{{"Width", 7}}},
                               {"Unknown", QJsonArray{1, "two"}}};
        item.setData(json);
        QCOMPARE(item.x, 10);
        QCOMPARE(item.y, -20);
        QCOMPARE(item.pos(), QPointF(10, -20));
        QCOMPARE(item.rotation(), 30.0);
        QCOMPARE(item.opacity, 0.5);
        QCOMPARE(item.data(), json);

        // X and Y come from the live fields after a move.
        item.moveX(5);
        item.moveY(-3);
        QCOMPARE(item.data().value("X").toInt(), 15);
        QCOMPARE(item.data().value("Y").toInt(), -23);

        // The rotation is saved truncated, modulo 360, keeping its sign.
        item.setRotation(370);
        QCOMPARE(item.data().value("Rotation").toInt(), 10);
        item.setRotation(-370);
        QCOMPARE(item.data().value("Rotation").toInt(), -10);
        item.setRotation(-45.9);
        QCOMPARE(item.data().value("Rotation").toDouble(), -45.0);
        item.setRotation(359.99);
        QCOMPARE(item.data().value("Rotation").toDouble(), 359.0);

        QJsonObject expected = json;
        expected.insert("X", 15);
        expected.insert("Y", -23);
        expected.insert("Rotation", 359);
        QCOMPARE(item.data(), expected);
    }

    void missingOpacityIsWrittenAsOneHundred()
    {
        UIComponentBase item(nullptr);
        item.setData(QJsonObject{{"Type", 3}});
        QCOMPARE(item.opacity, 1.0);
        QCOMPARE(item.data().value("Opacity"), QJsonValue(100.0));
        QCOMPARE(item.data().value("X"), QJsonValue(0));
        QCOMPARE(item.data().value("Y"), QJsonValue(0));
        QCOMPARE(item.data().value("Rotation"), QJsonValue(0));

        // An opacity that is there stays as it is, 0 included.
        item.setData(QJsonObject{{"Opacity", 0}});
        QCOMPARE(item.opacity, 0.0);
        QCOMPARE(item.data().value("Opacity"), QJsonValue(0));
    }

    void wrongTypesFallBackToDefaults()
    {
        UIComponentBase item(nullptr);
        const QJsonObject json{{"X", "12"}, {"Y", QJsonValue::Null}, {"Rotation", QJsonArray{}},
                               {"Opacity", "half"}};
        item.setData(json);
        QCOMPARE(item.x, 0);
        QCOMPARE(item.y, 0);
        QCOMPARE(item.rotation(), 0.0);
        QCOMPARE(item.opacity, 1.0);
        // The unreadable values are replaced only where the live fields rule.
        QCOMPARE(item.data().value("Opacity"), QJsonValue("half"));
    }

    void positionsAreCentresRelativeToTheParent()
    {
        GameUIEditorScene scene;
        UIComponentBase* top = component(&scene, 300, 200, 100, 100);
        UIComponentBase* middle = component(&scene, 20, -10, 50, 50, top);
        UIComponentBase* inner = component(&scene, 5, 5, 30, 30, middle);
        QCOMPARE(inner->parentItem(), middle);
        QCOMPARE(inner->absoluteXY(), QPoint(325, 195));

        inner->setAbsoluteXY(400, 100);
        QCOMPARE(inner->x, 80);
        QCOMPARE(inner->y, -90);
        QCOMPARE(inner->absoluteXY(), QPoint(400, 100));
        QCOMPARE(inner->scenePos(), QPointF(400, 100));

        // At zoom 2.0 the item stands at twice its numbers.
        scene.setZoom(20);
        QCOMPARE(top->pos(), QPointF(600, 400));
        QCOMPARE(inner->scenePos(), QPointF(800, 200));
        QCOMPARE(inner->boundingRect(), QRectF(-60, -60, 120, 120));

        // A scene position is rounded to whole screen pixels.
        top->setScenePosition(101, 99);
        QCOMPARE(top->x, 51);
        QCOMPARE(top->y, 50);
        QCOMPARE(top->pos(), QPointF(102, 100));
        middle->setAbsoluteScenePosition(102 + 41, 100 - 44);
        QCOMPARE(middle->x, 21);
        QCOMPARE(middle->y, -22);

        // Unchanged parent: nothing happens; none: back to the top level.
        middle->setParentComponent(top);
        QCOMPARE(middle->parentItem(), top);
        middle->setParentComponent(nullptr);
        QCOMPARE(middle->parentItem(), nullptr);
        QCOMPARE(middle->scene(), &scene);
        QCOMPARE(middle->absoluteXY(), QPoint(21, -22));
    }

    void arrowMovesWaitForAnIdleComponent()
    {
        UIComponentBase item(nullptr);
        item.setXY(10, 10);
        item.interactionState = 1;
        item.moveX(5);
        item.moveY(5);
        QCOMPARE(QPoint(item.x, item.y), QPoint(10, 10));
        item.interactionState = 0;
        item.moveX(5);
        item.moveY(-5);
        QCOMPARE(QPoint(item.x, item.y), QPoint(15, 5));
        QCOMPARE(item.pos(), QPointF(15, 5));
    }

    void boundsFollowSizeRotationAndZoom()
    {
        GameUIEditorScene scene;
        UIComponentBase* item = component(&scene, 0, 0, 100, 50);
        QCOMPARE(item->bounds, QRectF(QPointF(-50, -25), QPointF(49, 24)));
        item->setRotationDegrees(90);
        QCOMPARE(qRound(item->bounds.width()), 49);
        QCOMPARE(qRound(item->bounds.height()), 99);
        // The dirty area keeps the widest box of the rotation.
        QVERIFY(item->dirtyBounds.contains(QRectF(QPointF(-50, -25), QPointF(49, 24))));
        QVERIFY(item->dirtyBounds.contains(item->bounds));
        scene.setZoom(20);
        QCOMPARE(qRound(item->bounds.width()), 99);
        QCOMPARE(qRound(item->bounds.height()), 199);
        QCOMPARE(item->dirtyBounds, item->bounds);

        item->setWidth(300);
        QCOMPARE(item->lastWidth, 300);
        QCOMPARE(item->boundingRect(), QRectF(-330, -80, 660, 160));
        item->setWidth(40);
        QCOMPARE(item->lastWidth, 300);
    }

    void selectionBuildsTheHandlesItsKindAllows()
    {
        GameUIEditorScene scene;
        UIComponentBase* free = component(&scene, 100, 100, 80, 40);
        free->setSelected(true);
        QVERIFY(free->selected);
        QCOMPARE(free->handles.size(), 9);
        for (int i = 0; i < 9; ++i) {
            QCOMPARE(free->handles[i]->index, i);
            QCOMPARE(free->handles[i]->parentItem(), free);
            QCOMPARE(free->handles[i]->zValue(), 3.0);
        }
        // Places: corners and middles of the drawn box less 3, the rotation
        // handle 35 above the top edge.
        const QVector<QPointF> places = {{-43, -23}, {-3, -23}, {37, -23}, {37, -3},
                                         {37, 17},   {-3, 17},  {-43, 17}, {-43, -3}, {-3, -55}};
        for (int i = 0; i < 9; ++i)
            QCOMPARE(free->handles[i]->pos(), places[i]);
        const QVector<Qt::CursorShape> cursors = {Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor,
                                                  Qt::SizeHorCursor,   Qt::SizeFDiagCursor, Qt::SizeVerCursor,
                                                  Qt::SizeBDiagCursor, Qt::SizeHorCursor};
        for (int i = 0; i < 8; ++i)
            QCOMPARE(free->handles[i]->cursor().shape(), cursors[i]);
        QCOMPARE(free->handles[8]->cursor().shape(), Qt::BitmapCursor);
        QCOMPARE(free->handles[8]->cursor().hotSpot(), QPoint(12, 12));

        // A quarter turn shifts the cursor cycle by two; 21 degrees not yet,
        // 22 by one.
        free->setRotationDegrees(90);
        QCOMPARE(free->handles[1]->cursor().shape(), Qt::SizeHorCursor);
        QCOMPARE(free->handles[0]->cursor().shape(), Qt::SizeBDiagCursor);
        free->setRotationDegrees(21);
        QCOMPARE(free->handles[1]->cursor().shape(), Qt::SizeVerCursor);
        free->setRotationDegrees(22);
        QCOMPARE(free->handles[1]->cursor().shape(), Qt::SizeBDiagCursor);
        free->setRotationDegrees(-337);
        QCOMPARE(free->handles[1]->cursor().shape(), Qt::SizeBDiagCursor);
        QCOMPARE(free->handles[1]->rotationOctant, 0);

        // Handles keep their size at any zoom but follow the box.
        scene.setZoom(20);
        QCOMPARE(free->handles[4]->pos(), QPointF(77, 37));
        QCOMPARE(free->handles[8]->pos(), QPointF(-3, -75));

        free->setSelected(false);
        QVERIFY(free->handles.isEmpty());
        QVERIFY(!free->hovered);
        QCOMPARE(free->childItems().size(), 0);

        RotateOnly rotateOnly(&scene);
        rotateOnly.setSelected(true);
        QCOMPARE(rotateOnly.handles.size(), 1);
        QCOMPARE(rotateOnly.handles[0]->index, 8);

        Fixed fixed(&scene);
        fixed.setSelected(true);
        QVERIFY(fixed.selected);
        QVERIFY(fixed.handles.isEmpty());

        // Without a scene, selection is switched off.
        UIComponentBase loose(nullptr);
        loose.setSelected(true);
        QVERIFY(!loose.selected);
        QVERIFY(loose.handles.isEmpty());
    }

    void clockRunsWhileSelected()
    {
        GameUIEditorScene scene;
        UIComponentBase* item = component(&scene, 50, 50, 50, 50);
        item->setSelected(true);
        QVERIFY(item->timeAnimation);
        QCOMPARE(item->timeAnimation->propertyName(), QByteArray("aniTime"));
        QCOMPARE(item->timeAnimation->startValue().toInt(), 0);
        QCOMPARE(item->timeAnimation->endValue().toInt(), 120);
        QCOMPARE(item->timeAnimation->duration(), 2000);
        QCOMPARE(item->timeAnimation->loopCount(), -1);
        QCOMPARE(item->timeAnimation->state(), QAbstractAnimation::Running);

        // Each completed loop adds its 120 ticks.
        item->timeAnimation->setCurrentTime(2000 + 500);
        QCOMPARE(item->totalTime, 120);
        item->timeAnimation->setCurrentTime(2000 * 2 + 500);
        QCOMPARE(item->totalTime, 240);
        QCOMPARE(item->aniTime(), 30);

        QPropertyAnimation* running = item->timeAnimation;
        item->startClock();
        QCOMPARE(item->timeAnimation, running);

        item->setSelected(false);
        QVERIFY(!item->timeAnimation);
        QCOMPARE(item->aniTime(), 0);
        QCOMPARE(item->totalTime, 0);
    }

    void hoverAndPressFollowTheMouse()
    {
        GameUIEditorScene scene;
        scene.setSceneRect(0, 0, 400, 300);
        UIComponentBase* low = component(&scene, 100, 100, 100, 100);
        UIComponentBase* high = component(&scene, 140, 100, 100, 100);
        UIComponentBase* passive = component(&scene, 320, 220, 60, 60);
        passive->passive = true;
        QGraphicsView view(&scene);
        view.setFrameShape(QFrame::NoFrame);
        view.resize(400, 300);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QWidget* viewport = view.viewport();
        auto at = [&](int x, int y) { return view.mapFromScene(QPointF(x, y)); };

        QTest::mouseMove(viewport, at(70, 100));
        QTRY_VERIFY(low->hovered);
        QCOMPARE(scene.hoveredComponent, low);
        QTest::mouseMove(viewport, at(160, 100));
        QTRY_VERIFY(high->hovered);
        QCOMPARE(scene.hoveredComponent, high);
        QVERIFY(!low->hovered);

        // A press lists every component under it; the scene takes the topmost
        // and moves it, being dragged now, to the end.
        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, at(130, 100));
        QCOMPARE(scene.pressedComponents, (QList<UIComponentBase*>{low, high}));
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, at(130, 100));

        // A passive component is never hovered nor pressed.
        QTest::mouseMove(viewport, at(320, 220));
        QTRY_VERIFY(!high->hovered);
        QVERIFY(!passive->hovered);
        QCOMPARE(scene.hoveredComponent, nullptr);
        scene.pressedComponents.clear();
        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, at(320, 220));
        QVERIFY(scene.pressedComponents.isEmpty());
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, at(320, 220));

        // Leaving an unselected component stops its clock.
        high->startClock();
        QTest::mouseMove(viewport, at(160, 100));
        QTRY_VERIFY(high->hovered);
        QVERIFY(high->timeAnimation);
        QTest::mouseMove(viewport, at(390, 20));
        QTRY_VERIFY(!high->hovered);
        QVERIFY(!high->timeAnimation);
    }

    void framesSitOnTheirPixels_data()
    {
        QTest::addColumn<int>("zoom");
        QTest::newRow("zoom 1.0") << 10;
        QTest::newRow("zoom 2.0") << 20;
    }

    void framesSitOnTheirPixels()
    {
        QFETCH(int, zoom);
        const double f = zoom / 10.0;
        GameUIEditorScene scene;
        scene.setZoom(zoom);
        // A component without handles shows the ants on four whole edges.
        Fixed* fixed = new Fixed(&scene);
        scene.addItem(fixed);
        fixed->setWidth(60);
        fixed->setHeight(40);
        fixed->setXY(60, 50);
        fixed->zoomChanged();
        fixed->setSelected(true);
        fixed->setAniTime(7); // offset 2
        UIComponentBase* handled = component(&scene, 200, 100, 80, 60);
        handled->setSelected(true);
        UIComponentBase* hovered = component(&scene, 60, 150, 60, 40);
        hovered->hovered = true;
        UIComponentBase* passive = component(&scene, 200, 150, 60, 40);
        passive->passive = true;
        passive->hovered = true;
        passive->selected = true;
        // A rotated parent with a hovered child: the child's frame turns too.
        UIComponentBase* parent = component(&scene, 320, 150, 100, 60);
        parent->setRotationDegrees(90);
        UIComponentBase* child = component(&scene, 40, 0, 20, 20, parent);
        child->hovered = true;

        const QImage image = render(scene, QRectF(0, 0, 400 * f, 220 * f));
        auto px = [&](double sx, double sy) { return QColor(image.pixel(int(sx), int(sy))); };

        // Ants of the fixed one, pattern moving forward from each edge start.
        {
            const int l = int(30 * f), t = int(30 * f), r = int(90 * f), b = int(70 * f);
            // The vertical edges are drawn last and own the corners.
            for (int i = 1; i < r - l - 1; ++i) {
                QCOMPARE(px(l + i, t), antAt(i, 2));
                QCOMPARE(px(l + i, b - 1), antAt(i, 2));
            }
            for (int i = 0; i < b - t; ++i) {
                QCOMPARE(px(l, t + i), antAt(i, 2));
                QCOMPARE(px(r - 1, t + i), antAt(i, 2));
            }
            QCOMPARE(px(l + 10, t + 10), QColor(Qt::white));
            QCOMPARE(px(l - 1, t + 10), background);
            QCOMPARE(px(r, t + 10), background);
        }
        // The selected one with handles: runs start 3 past each handle's place.
        {
            const int l = int(160 * f), t = int(70 * f), r = int(240 * f), b = int(130 * f);
            const int halfW = int(40 * f), halfH = int(30 * f);
            // Pixels clear of the handles' dots, which lie over the runs' ends.
            for (int i = 5; i < halfW - 7 - 5; ++i) {
                QCOMPARE(px(l + 3 + i, t), antAt(i, 0));
                QCOMPARE(px(l + halfW + 3 + i, b - 1), antAt(i, 0));
            }
            for (int i = 5; i < halfH - 7 - 5; ++i) {
                QCOMPARE(px(r - 1, t + 3 + i), antAt(i, 0));
                QCOMPARE(px(l, t + halfH + 3 + i), antAt(i, 0));
            }
            // Each handle is a filled dot centred on its place.
            QCOMPARE(px(l, t), handleBase);
            QCOMPARE(px(l + halfW, t), handleBase);
            QCOMPARE(px(r, b), handleBase);
            // The rotation handle's top-left stands 35 above the top edge.
            QCOMPARE(px(l + halfW, t - 35 + 3), handleBase);
            QCOMPARE(px(l + halfW, t - 20), background);
            QCOMPARE(px(l + halfW, b - 10), QColor(Qt::white));
        }
        // The hovered one: left and top inside, right and bottom just outside,
        // and a 30 % veil over the whole box.
        {
            const int l = int(30 * f), t = int(130 * f), r = int(90 * f), b = int(170 * f);
            for (int i = 0; i < b - t; i += 3)
                QCOMPARE(px(r, t + i), hoverOutline);
            for (int i = 0; i <= r - l; i += 3)
                QCOMPARE(px(l + i, b), hoverOutline);
            QCOMPARE(px(r, b), hoverOutline);
            QVERIFY(near(px(l + 10, t + 10), blendOverWhite(hoverFill, 0.3)));
            QVERIFY(near(px(l, t + 10), blend(hoverOutline, hoverFill, 0.3)));
            QVERIFY(near(px(l + 10, t), blend(hoverOutline, hoverFill, 0.3)));
            QCOMPARE(px(r + 1, t + 10), background);
            QCOMPARE(px(l + 10, b + 1), background);
        }
        // The passive one shows no frame, selected and hovered as it may be.
        {
            const int l = int(170 * f), t = int(130 * f), r = int(230 * f), b = int(170 * f);
            QCOMPARE(px(l, t + 10), QColor(Qt::white));
            QCOMPARE(px(l + 10, t), QColor(Qt::white));
            QCOMPARE(px(r, t + 10), background);
            QCOMPARE(px(l + 10, b), background);
        }
        // The rotated parent lies across; its child sits below its centre,
        // with the child's right edge now its bottom row.
        {
            const double cx = 320 * f, cy = 150 * f;
            QCOMPARE(px(cx, cy - 45 * f), QColor(Qt::white));
            QCOMPARE(px(cx - 40 * f, cy), background);
            const double ccx = cx, ccy = cy + 40 * f;
            const double half = 10 * f;
            for (int i = -int(half) + 1; i < half - 1; ++i)
                QCOMPARE(px(ccx + i, ccy + half), hoverOutline);
            QCOMPARE(px(ccx - half - 1, ccy), hoverOutline);
            QVERIFY(near(px(ccx, ccy), blendOverWhite(hoverFill, 0.3)));
            QCOMPARE(px(ccx + half + 3, ccy), QColor(Qt::white));
        }
    }

    void smallComponentsShowNoFrame()
    {
        GameUIEditorScene scene;
        UIComponentBase* small = component(&scene, 50, 50, 8, 30);
        small->setSelected(true);
        small->hovered = true;
        QCOMPARE(small->handles.size(), 9);
        const QImage image = render(scene, QRectF(0, 0, 100, 100));
        // Fill only: white inside, nothing painted around it.
        // Clear of the handles: white fill on the edges, nothing outside.
        QCOMPARE(QColor(image.pixel(46, 42)), QColor(Qt::white));
        QCOMPARE(QColor(image.pixel(53, 42)), QColor(Qt::white));
        QCOMPARE(QColor(image.pixel(54, 42)), background);
        QCOMPARE(QColor(image.pixel(45, 42)), background);
        QCOMPARE(QColor(image.pixel(46, 58)), QColor(Qt::white));
    }

    void invisibleFramesStayOff()
    {
        GameUIEditorScene scene;
        UIComponentBase* item = component(&scene, 50, 50, 40, 40);
        item->frameVisible = false;
        item->hovered = true;
        const QImage image = render(scene, QRectF(0, 0, 100, 100));
        QCOMPARE(QColor(image.pixel(70, 50)), background);
        QCOMPARE(QColor(image.pixel(50, 50)), QColor(Qt::white));
    }

    // A dozen components at zoom 1.0 and 2.0, for a look by eye: one
    // selected with handles and ants, one hovered, one turned with a child.
    void testSceneForTheEye()
    {
        Theme::installDefault();
        GameUIEditorScene scene;
        QList<UIComponentBase*> items;
        for (int i = 0; i < 10; ++i)
            items << component(&scene, 60 + (i % 5) * 110, 90 + (i / 5) * 110, 50 + (i % 3) * 20,
                               40 + (i % 4) * 10);
        items[3]->setSelected(true);
        items[3]->setAniTime(12);
        items[6]->hovered = true;
        items[8]->setRotationDegrees(30);
        // The child reaches out of its parent and is hovered, so both show.
        UIComponentBase* child = component(&scene, 30, 25, 30, 30, items[8]);
        child->hovered = true;
        UIComponentBase* free = component(&scene, 330, 300, 120, 40);
        free->setOpacity(0.5);
        QCOMPARE(scene.items().size(), 12 + 9);
        for (int zoom : {10, 20}) {
            scene.setZoom(zoom);
            const double f = zoom / 10.0;
            const QImage image = render(scene, QRectF(0, 0, 600 * f, 360 * f), QColor(60, 60, 75));
            QVERIFY(near(image.pixel(child->scenePos().toPoint()),
                         blendOverWhite(themeColor(ThemeKey::ComponentHoverColor), 0.3)));
            const QString folder = qEnvironmentVariable("VELMORA_SCREENSHOT_DIR");
            if (!folder.isEmpty())
                QVERIFY(image.save(QStringLiteral("%1/component-scene-zoom%2.png").arg(folder).arg(zoom)));
        }
    }
};

VELMORA_TEST_MAIN(TestComponentBase, QApplication)
#include "tst_componentbase.moc"
