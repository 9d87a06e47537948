#include "TestEnvironment.h"

#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"
#include "theme/ThemeManager.h"

#include <QApplication>
#include <QGraphicsView>
#include <QJsonArray>

namespace {

UIComponentBase* component(GameUIEditorScene* scene, int x, int y, int w, int h, UIComponentBase* parent = nullptr)
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

}

class TestComponentBase : public QObject
{
    Q_OBJECT

private slots:
    void init() { Theme::installDefault(); }

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
        QCOMPARE(scene.hoveredComponent(), high);
        QVERIFY(!low->hovered);

        // A press lists every component under it; the scene takes the topmost
        // and moves it, being dragged now, to the end.
        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, at(130, 100));
        QCOMPARE(scene.pressedComponents(), (QList<UIComponentBase*>{low, high}));
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, at(130, 100));

        // A passive component is never hovered nor pressed.
        QTest::mouseMove(viewport, at(320, 220));
        QTRY_VERIFY(!high->hovered);
        QVERIFY(!passive->hovered);
        QCOMPARE(scene.hoveredComponent(), nullptr);
        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, at(320, 220));
        QVERIFY(scene.pressedComponents().isEmpty());
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, at(320, 220));
    }

};

VELMORA_TEST_MAIN(TestComponentBase, QApplication)
#include "tst_componentbase.moc"
