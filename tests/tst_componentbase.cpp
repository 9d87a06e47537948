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

namespace {

// Distinct frame colours, so that every pixel tells which part painted it.
const QColor ant1(255, 0, 0);
const QColor ant2(0, 255, 0);
const QColor hoverFill(0, 0, 255);
const QColor hoverOutline(255, 0, 255);
const QColor handleBase(255, 255, 0);
const QColor handleOutline(0, 255, 255);
const QColor background(0, 0, 0);

QImage render(QGraphicsScene& scene, const QRectF& area)
{
    QImage image(area.size().toSize(), QImage::Format_RGB32);
    image.fill(background);
    QPainter painter(&image);
    scene.render(&painter, QRectF(QPointF(0, 0), area.size()), area);
    return image;
}

template <typename Kind = UIComponentBase>
Kind* component(GameUIEditorScene* scene, int x, int y, int w, int h, UIComponentBase* parent = nullptr)
{
    auto* item = new Kind(scene);
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

    void dataKeepsTheObjectAndRewritesTheCommonKeys()
    {
        GameUIEditorScene scene;
        UIComponentBase item(&scene);
        const QJsonObject json{{"Type", 1}, {"ID", 4}, {"X", 10}, {"Y", -20}, {"Rotation", 30},
                               {"Opacity", 0.5}, {"Name", "Bar"}, {"ShapeData", QJsonObject{{"Width", 7}}},
                               {"Unknown", QJsonArray{1, "two"}}};
        item.setData(json);
        QCOMPARE(item.pos(), QPointF(10, -20));
        QCOMPARE(item.rotation(), 30.0);
        QCOMPARE(item.data(), json);

        // X and Y come from the live fields after a move; the rotation is
        // saved truncated, modulo 360, keeping its sign.
        item.moveX(5);
        item.moveY(-3);
        item.setRotation(-370);
        QCOMPARE(item.data().value("Rotation").toInt(), -10);
        item.setRotation(-45.9);
        QCOMPARE(item.data().value("Rotation").toDouble(), -45.0);
        item.setRotation(359.99);
        QJsonObject expected = json;
        expected.insert("X", 15);
        expected.insert("Y", -23);
        expected.insert("Rotation", 359);
        QCOMPARE(item.data(), expected);
    }

    void missingOrWrongKeysFallBack()
    {
        UIComponentBase item(nullptr);
        item.setData(QJsonObject{{"Type", 3}});
        QCOMPARE(item.data(), (QJsonObject{{"Type", 3}, {"X", 0}, {"Y", 0}, {"Rotation", 0}, {"Opacity", 100.0}}));

        // An opacity that is there stays as it is, 0 included.
        item.setData(QJsonObject{{"Opacity", 0}});
        QCOMPARE(item.opacity, 0.0);
        QCOMPARE(item.data().value("Opacity"), QJsonValue(0));

        item.setData(QJsonObject{{"X", "12"}, {"Y", QJsonValue::Null}, {"Rotation", QJsonArray{}}, {"Opacity", "half"}});
        QCOMPARE(item.pos(), QPointF(0, 0));
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
        QCOMPARE(inner->absoluteXY(), QPoint(325, 195));
        inner->setAbsoluteXY(400, 100);
        QCOMPARE(QPoint(inner->x, inner->y), QPoint(80, -90));

        // At zoom 2.0 the item stands at twice its numbers; a scene position
        // is rounded to whole screen pixels.
        scene.setZoom(20);
        QCOMPARE(inner->scenePos(), QPointF(800, 200));
        top->setScenePosition(101, 99);
        QCOMPARE(QPoint(top->x, top->y), QPoint(51, 50));
        QCOMPARE(top->pos(), QPointF(102, 100));
        middle->setAbsoluteScenePosition(102 + 41, 100 - 44);
        QCOMPARE(QPoint(middle->x, middle->y), QPoint(21, -22));

        // Without a parent it goes back to the top level, where it stands.
        middle->setParentComponent(nullptr);
        QCOMPARE(middle->parentItem(), nullptr);
        QCOMPARE(middle->scene(), &scene);
        QCOMPARE(middle->absoluteXY(), QPoint(21, -22));
    }

    void selectionBuildsAndDropsTheHandles()
    {
        GameUIEditorScene scene;
        UIComponentBase* free = component(&scene, 100, 100, 80, 40);
        free->setSelected(true);
        QCOMPARE(free->handles.size(), 9);
        QVERIFY(free->timeAnimation); // the marching ants run
        free->setSelected(false);
        QVERIFY(free->handles.isEmpty());
        QCOMPARE(free->childItems().size(), 0);
        QVERIFY(!free->timeAnimation);

        // Without a scene, selection is switched off.
        UIComponentBase loose(nullptr);
        loose.setSelected(true);
        QVERIFY(!loose.selected);
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
        Fixed* fixed = component<Fixed>(&scene, 60, 50, 60, 40);
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
            QVERIFY(near(px(l + 10, t + 10), blend(Qt::white, hoverFill, 0.3)));
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
            QVERIFY(near(px(ccx, ccy), blend(Qt::white, hoverFill, 0.3)));
            QCOMPARE(px(ccx + half + 3, ccy), QColor(Qt::white));
        }
    }

    void smallOrHiddenFramesStayOff()
    {
        GameUIEditorScene scene;
        // Too narrow for a frame: fill only, white on its edges, nothing outside.
        UIComponentBase* small = component(&scene, 50, 50, 8, 30);
        small->setSelected(true);
        small->hovered = true;
        UIComponentBase* hidden = component(&scene, 150, 50, 40, 40);
        hidden->frameVisible = false;
        hidden->hovered = true;
        const QImage image = render(scene, QRectF(0, 0, 200, 100));
        QCOMPARE(QColor(image.pixel(46, 42)), QColor(Qt::white));
        QCOMPARE(QColor(image.pixel(53, 42)), QColor(Qt::white));
        QCOMPARE(QColor(image.pixel(54, 42)), background);
        QCOMPARE(QColor(image.pixel(45, 42)), background);
        QCOMPARE(QColor(image.pixel(170, 50)), background);
        QCOMPARE(QColor(image.pixel(150, 50)), QColor(Qt::white));
    }
};

VELMORA_TEST_MAIN(TestComponentBase, QApplication)
#include "tst_componentbase.moc"
