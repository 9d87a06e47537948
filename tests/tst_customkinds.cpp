#include "MainWindowFixture.h"
#include "TestEnvironment.h"

#include "components/ComponentKinds.h"
#include "components/GameUIEditorSceneHelper.h"
#include "components/UIComponentAttachCollection.h"
#include "components/UIComponentCustom.h"
#include "components/UIComponentCustomCollection.h"
#include "components/VelmoUISelector.h"
#include "logic/HudCatalog.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QSet>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPointer>

namespace {

const QColor Red(255, 0, 0);
const QColor Clear(0, 0, 0, 0);
const QColor Block(0, 0, 0, 125);
const QColor FrameBlue(125, 125, 255, 125);

QJsonObject redShape(int id, int x, int y, int w, int h)
{
    QJsonObject made = TestEnvironment::shape(id, x, y, w, h);
    made.insert("ShapeData", QJsonObject{{"Width", w}, {"Height", h}, {"Color", "#ff0000"}});
    return made;
}

// A reusable custom HUD object of the HUD list.
QJsonObject customHud(const QString& id, const QString& name, int w, int h, const QJsonArray& components)
{
    return QJsonObject{{"ID", id},       {"Name", name}, {"IsHUD", false},       {"Width", w},
                       {"Height", h},    {"HUD", components}, {"Params", QJsonArray()}};
}

QJsonObject custom(int id, int x, int y, const QString& reference, int w = 100, int h = 100)
{
    return QJsonObject{{"ID", id},
                       {"Type", 10},
                       {"Name", QStringLiteral("Custom %1").arg(id)},
                       {"X", x},
                       {"Y", y},
                       {"CustomData", QJsonObject{{"ID", reference}, {"Width", w}, {"Height", h}, {"Params", QJsonObject()}}}};
}

QJsonObject collection(int id, int x, int y, const QString& reference, const QJsonValue& rows,
                       const QJsonValue& columns, const QJsonValue& horizontal = 0, const QJsonValue& vertical = 0)
{
    return QJsonObject{{"ID", id},
                       {"Type", 11},
                       {"Name", QStringLiteral("Collection %1").arg(id)},
                       {"X", x},
                       {"Y", y},
                       {"CustomCollectionData", QJsonObject{{"ID", reference},
                                                            {"MaxRows", rows},
                                                            {"MaxColumns", columns},
                                                            {"HorizontalSpacing", horizontal},
                                                            {"VerticalSpacing", vertical},
                                                            {"Width", 100},
                                                            {"Height", 100}}}};
}

QJsonObject attach(int id, int x, int y, const QString& reference)
{
    return QJsonObject{{"ID", id},
                       {"Type", 12},
                       {"Name", QStringLiteral("Attach %1").arg(id)},
                       {"X", x},
                       {"Y", y},
                       {"AttachCollectionData", QJsonObject{{"ID", reference}, {"List", 0}, {"Position", 1}, {"Data", 0}}}};
}

// The canvas with the real factory and a HUD list the test fills.
struct Fixture : TestEnvironment::Canvas {
    Fixture() : Canvas(new GameUIEditorSceneHelper<VelmoUISelector>())
    {
        rows.append(HudCatalog::Row{HudCatalog::Map, QJsonObject{{"HUD", QJsonArray()}}, true});
        rows.append(HudCatalog::Row{HudCatalog::Battle, QJsonObject{{"HUD", QJsonArray()}}, false});
        HudCatalog::setSource([this]() { return rows; });
        scene->setZoom(10);
    }
    ~Fixture() { HudCatalog::setSource(nullptr); }
    void addHud(const QJsonObject& object) { rows.append(HudCatalog::Row{HudCatalog::Custom, object, false}); }
    // The HUD on the canvas, as a switch of HUDs loads it.
    void load(const QJsonArray& components)
    {
        scene->clear();
        scene->loadFromJson(components);
    }
    UIComponentBase* top(int index) const { return scene->components().at(index); }
    // Unpremultiplied, so that translucent colours compare as they were painted.
    QImage image() { return scene->canvasImage(false).convertToFormat(QImage::Format_ARGB32); }

    QVector<HudCatalog::Row> rows;
};

template <class Kind>
Kind* as(UIComponentBase* component)
{
    Kind* kind = qobject_cast<Kind*>(component);
    if (!kind)
        qFatal("not the expected kind");
    return kind;
}

QList<UIComponentBase*> subsOf(UIComponentBase* component)
{
    if (auto* single = qobject_cast<UIComponentCustom*>(component))
        return single->subComponents();
    if (auto* grid = qobject_cast<UIComponentCustomCollection*>(component))
        return grid->subComponents();
    if (auto* copy = qobject_cast<UIComponentAttachCollection*>(component))
        return copy->subComponents();
    return {};
}

// Every component of the expansion below component, all levels, nested
// expansions included.
int expandedCount(UIComponentBase* component)
{
    int count = 0;
    for (UIComponentBase* sub : subsOf(component))
        count += 1 + expandedCount(sub);
    return count;
}

}

class TestCustomKinds : public QObject, public MainWindowFixture
{
    Q_OBJECT

    void clickRow(int row)
    {
        UltimateTreeItem* item = list()->row(row);
        const QPoint at = list()->mapFromScene(QPointF(60, item->y() + item->rowHeight() / 2.0));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    }

private slots:
    void cleanup()
    {
        window.reset();
        // Nothing is left behind by an expansion, whatever it met.
        QVERIFY(customExpansionStack.isEmpty());
    }

    // ---------------------------------------------------------------- placing and drawing

    // A custom HUD's coordinates count from its top-left corner, the
    // component's from its centre: a 100 by 50 HUD placed at (200, 100)
    // starts at (150, 75), and a 20 by 10 shape centred at (10, 5) of it
    // covers (150..169, 75..84); at zoom 2 all of it doubles, whether the
    // zoom came before or after loading.
    void expansionIsDrawnWhereTheHudPutsIt()
    {
        Fixture f;
        f.addHud(customHud("11111", "Part", 100, 50, {redShape(1, 10, 5, 20, 10)}));
        f.load({custom(1, 200, 100, "11111", 7, 7)});
        UIComponentBase* owner = f.top(0);
        QCOMPARE(QSize(owner->width, owner->height), QSize(100, 50));
        QImage image = f.image();
        COMPARE_COLOR(image, 150, 75, Red);
        COMPARE_COLOR(image, 169, 84, Red);
        COMPARE_COLOR(image, 170, 80, Clear);
        COMPARE_COLOR(image, 160, 85, Clear);
        COMPARE_COLOR(image, 149, 80, Clear);
        // Nothing of the owner shows: it was found.
        COMPARE_COLOR(image, 200, 100, Clear);

        f.scene->setZoom(20);
        image = f.image();
        COMPARE_COLOR(image, 300, 150, Red);
        COMPARE_COLOR(image, 339, 169, Red);
        COMPARE_COLOR(image, 340, 160, Clear);
        COMPARE_COLOR(image, 320, 170, Clear);

        f.load({custom(1, 200, 100, "11111")});
        image = f.image();
        COMPARE_COLOR(image, 300, 150, Red);
        COMPARE_COLOR(image, 339, 169, Red);
        COMPARE_COLOR(image, 340, 160, Clear);
        f.scene->setZoom(10);
        image = f.image();
        COMPARE_COLOR(image, 150, 75, Red);
        COMPARE_COLOR(image, 170, 80, Clear);
    }

    // A child inside the custom HUD stays relative to its parent.
    void nestedChildrenFollowTheirParent()
    {
        Fixture f;
        const QJsonObject holder{{"ID", 1}, {"Type", 6}, {"X", 50}, {"Y", 50}, {"Children", QJsonArray{redShape(2, 10, 0, 4, 4)}}};
        f.addHud(customHud("11111", "Part", 100, 100, {holder}));
        f.load({custom(1, 300, 300, "11111")});
        // The group's centre is at the HUD's centre (300, 300), the shape 10 to its right.
        const QImage image = f.image();
        COMPARE_COLOR(image, 309, 299, Red);
        COMPARE_COLOR(image, 311, 300, Red);
        COMPARE_COLOR(image, 313, 300, Clear);
        // A group inside an expansion is only structure: no grey marker.
        COMPARE_COLOR(image, 290, 300, Clear);
    }

    // A Custom always takes the HUD's size: a stale stored size is replaced
    // and written back; a Custom Collection and an Attach Collection keep
    // their stored object as it was.
    void theHudsSizeWins()
    {
        Fixture f;
        f.addHud(customHud("11111", "Part", 120, 40, {}));
        f.load({custom(1, 100, 100, "11111", 10, 10), attach(2, 300, 300, "11111")});
        QCOMPARE(QSize(f.top(0)->width, f.top(0)->height), QSize(120, 40));
        const QJsonArray saved = f.scene->toJson();
        const QJsonObject data = saved.at(0).toObject().value("CustomData").toObject();
        QCOMPARE(QSize(data.value("Width").toInt(), data.value("Height").toInt()), QSize(120, 40));
        QCOMPARE(QSize(f.top(1)->width, f.top(1)->height), QSize(120, 40));
        QVERIFY(!saved.at(1).toObject().value("AttachCollectionData").toObject().contains("Width"));

        // The size limits are the size: no handle can change it, nor turn it.
        for (UIComponentBase* component : f.scene->components()) {
            QCOMPARE(component->minimumWidth(), component->width);
            QCOMPARE(component->maximumWidth(), component->width);
            QCOMPARE(component->minimumHeight(), component->height);
            QCOMPARE(component->maximumHeight(), component->height);
            QVERIFY(!component->canResize());
            QVERIFY(!component->canRotate());
            QVERIFY(!component->canHaveChildren());
        }
    }

    // ---------------------------------------------------------------- passive

    // What an expansion builds is seen but never touched: a click on it
    // selects the component that owns it, it has no row, isn't among the
    // scene's components and never reaches the saved document.
    void expandedComponentsArePassive()
    {
        Fixture f;
        f.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f.window));
        f.scene->setZoom(10);
        QApplication::processEvents();
        f.addHud(customHud("11111", "Part", 100, 100, {redShape(1, 50, 50, 40, 40), redShape(2, 90, 90, 10, 10)}));
        const QJsonObject placed = custom(1, 200, 200, "11111");
        f.load({placed});
        QCOMPARE(f.scene->components().size(), 1);
        QCOMPARE(f.list->tree()->rowCount(), 1);
        QCOMPARE(f.list->tree()->row(0)->childCount(), 0);
        UIComponentBase* owner = f.top(0);
        const QList<UIComponentBase*> subs = subsOf(owner);
        QCOMPARE(subs.size(), 2);
        for (UIComponentBase* sub : subs)
            QVERIFY(sub->passive);

        // Over the shape in the middle of the custom HUD.
        const QPoint middle = f.view->mapFromScene(QPointF(200, 200));
        QTest::mouseMove(f.view->viewport(), middle);
        QTest::mouseClick(f.view->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        QCOMPARE(f.scene->selectedComponent(), owner);
        QVERIFY(f.scene->hoveredComponent() == owner || f.scene->hoveredComponent() == nullptr);
        for (UIComponentBase* sub : subs) {
            QVERIFY(!sub->selected);
            QVERIFY(!sub->hovered);
            QVERIFY(sub->handles.isEmpty());
        }
        QCOMPARE(f.list->tree()->currentRow(), f.list->tree()->row(0));

        // A drag takes the whole expansion along: 30 to the right.
        const QPoint from = f.view->mapFromScene(QPointF(200, 200));
        const QPoint to = f.view->mapFromScene(QPointF(230, 200));
        QTest::mousePress(f.view->viewport(), Qt::LeftButton, Qt::NoModifier, from);
        TestEnvironment::moveWithButtons(f.view->viewport(), to, Qt::LeftButton);
        QTest::mouseRelease(f.view->viewport(), Qt::LeftButton, Qt::NoModifier, to);
        QCOMPARE(owner->x, 230);
        const QImage image = f.image();
        COMPARE_COLOR(image, 230, 200, Red);
        COMPARE_COLOR(image, 185, 200, Clear);

        // Saved: the component and nothing of what it shows.
        QJsonObject expected = placed;
        expected.insert("X", 230);
        expected.insert("Rotation", 0);
        expected.insert("Opacity", 100.0);
        QCOMPARE(f.scene->toJson(), QJsonArray{expected});
    }

    // The selection's marching ants stay in sight above a custom HUD that
    // covers the whole component, as does the hover frame.
    void selectionFrameShowsAboveTheExpansion()
    {
        Fixture f;
        f.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f.window));
        f.scene->setZoom(10);
        f.addHud(customHud("11111", "Part", 100, 100, {redShape(1, 50, 50, 100, 100)}));
        f.load({custom(1, 200, 200, "11111"), collection(2, 500, 200, "11111", 1, 1)});
        QApplication::processEvents();
        auto edgeOf = [&](UIComponentBase* component) {
            const QPoint at = f.view->mapFromScene(component->scenePos() + QPointF(-50, -50));
            return f.view->viewport()->grab().toImage().pixelColor(at);
        };
        for (UIComponentBase* component : f.scene->components()) {
            QCOMPARE(edgeOf(component), Red);
            f.scene->select(component);
            QApplication::processEvents();
            QVERIFY2(edgeOf(component) != Red, qPrintable(edgeOf(component).name()));
        }
    }

    // Deleting the owner takes the expansion off the canvas; undo brings it
    // back whole, and a paste builds a second expansion of its own.
    void expansionGoesAndComesWithItsOwner()
    {
        Fixture f;
        f.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f.window));
        f.addHud(customHud("11111", "Part", 100, 100, {redShape(1, 50, 50, 40, 40)}));
        f.load({custom(1, 200, 200, "11111")});
        UIComponentBase* owner = f.top(0);
        f.scene->select(owner);
        f.scene->deleteAComponent();
        QCOMPARE(f.scene->components().size(), 0);
        COMPARE_COLOR(f.image(), 200, 200, Clear);
        f.scene->undo();
        QCOMPARE(f.scene->components().size(), 1);
        COMPARE_COLOR(f.image(), 200, 200, Red);

        f.scene->select(f.top(0));
        f.scene->copyAComponent();
        f.scene->setPastePosition(QPointF(500, 400));
        f.scene->paste(nullptr);
        QCOMPARE(f.scene->components().size(), 2);
        QCOMPARE(subsOf(f.top(1)).size(), 1);
        QVERIFY(subsOf(f.top(1)).first() != subsOf(f.top(0)).first());
        const QJsonObject pasted = f.scene->toJson().at(1).toObject();
        QVERIFY(!pasted.contains("Children"));
        QCOMPARE(pasted.value("CustomData").toObject().value("ID").toString(), QStringLiteral("11111"));
    }

    // A new object for the owner frees what it built before: the old
    // components are gone, not merely hidden.
    void oldExpansionIsFreed()
    {
        Fixture f;
        f.addHud(customHud("11111", "Part", 100, 100, {redShape(1, 50, 50, 40, 40)}));
        f.addHud(customHud("22222", "Other", 60, 60, {redShape(1, 30, 30, 10, 10), redShape(2, 5, 5, 10, 10)}));
        f.load({custom(1, 200, 200, "11111")});
        UIComponentBase* owner = f.top(0);
        const QPointer<UIComponentBase> old = subsOf(owner).first();
        const int itemsBefore = f.scene->items().size();
        owner->setData(custom(1, 200, 200, "22222"));
        QVERIFY(old.isNull());
        QCOMPARE(subsOf(owner).size(), 2);
        QCOMPARE(f.scene->items().size(), itemsBefore + 1);
        for (UIComponentBase* sub : subsOf(owner))
            QCOMPARE(sub->scene(), f.scene);
    }

    // ---------------------------------------------------------------- recursion

    // A custom HUD that holds itself expands one level and stops there: the
    // inner component is an empty box of its stored size.
    void selfReferenceStopsAfterOneLevel()
    {
        Fixture f;
        f.addHud(customHud("11111", "Loop", 100, 100, {redShape(1, 10, 10, 20, 20), custom(2, 70, 70, "11111", 40, 30)}));
        f.load({custom(1, 200, 200, "11111")});
        UIComponentBase* owner = f.top(0);
        QCOMPARE(subsOf(owner).size(), 2);
        auto* inner = as<UIComponentCustom>(subsOf(owner).at(1));
        QVERIFY(inner->expanded);
        QVERIFY(inner->subComponents().isEmpty());
        QCOMPARE(QSize(inner->width, inner->height), QSize(40, 30));
        // The box shows nothing, not even the black block.
        COMPARE_COLOR(f.image(), 220, 220, Clear);
        COMPARE_COLOR(f.image(), 155, 155, Red);
    }

    void cyclesStopWhereTheyCloseUp_data()
    {
        QTest::addColumn<QVector<QJsonObject>>("huds");
        QTest::addColumn<int>("built");
        // A uses B uses A: A's expansion holds B's custom, which holds A's,
        // which stops.
        QTest::newRow("two HUDs") << QVector<QJsonObject>{customHud("A0000", "A", 100, 100, {custom(1, 50, 50, "B0000")}),
                                                         customHud("B0000", "B", 100, 100, {custom(1, 50, 50, "A0000")})}
                                  << 2;
        QTest::newRow("three HUDs")
            << QVector<QJsonObject>{customHud("A0000", "A", 100, 100, {custom(1, 50, 50, "B0000")}),
                                    customHud("B0000", "B", 100, 100, {custom(1, 50, 50, "C0000")}),
                                    customHud("C0000", "C", 100, 100, {custom(1, 50, 50, "A0000")})}
            << 3;
        // Through a collection of two cells: each cell's custom of A stops.
        QTest::newRow("through a collection")
            << QVector<QJsonObject>{customHud("A0000", "A", 100, 100, {collection(1, 50, 50, "B0000", 1, 2)}),
                                    customHud("B0000", "B", 40, 40, {custom(1, 20, 20, "A0000")})}
            << 3;
        // And through an attach collection.
        QTest::newRow("through an attach collection")
            << QVector<QJsonObject>{customHud("A0000", "A", 100, 100, {attach(1, 50, 50, "B0000")}),
                                    customHud("B0000", "B", 40, 40, {custom(1, 20, 20, "A0000")})}
            << 2;
    }

    void cyclesStopWhereTheyCloseUp()
    {
        QFETCH(QVector<QJsonObject>, huds);
        QFETCH(int, built);
        Fixture f;
        for (const QJsonObject& hud : huds)
            f.addHud(hud);
        f.load({custom(1, 200, 200, "A0000"), collection(2, 500, 300, "A0000", 2, 2)});
        QCOMPARE(expandedCount(f.top(0)), built);
        // The grid holds four copies of the same.
        QCOMPARE(expandedCount(f.top(1)), 4 * built);
        QVERIFY(customExpansionStack.isEmpty());
        // The components at the end of the loop are expanded empty boxes.
        std::function<void(UIComponentBase*)> leaves = [&](UIComponentBase* component) {
            const QList<UIComponentBase*> subs = subsOf(component);
            for (UIComponentBase* sub : subs)
                leaves(sub);
            if (subs.isEmpty() && qobject_cast<UIComponentCustom*>(component))
                QVERIFY(as<UIComponentCustom>(component)->expanded);
        };
        leaves(f.top(0));
        f.image();
        // A zoom walks the same tree without a loop.
        f.scene->setZoom(20);
    }

    // Two customs of the same HUD side by side both expand: the guard lets
    // go of the HUD after each.
    void siblingsOfTheSameHudBothExpand()
    {
        Fixture f;
        f.addHud(customHud("B0000", "Leaf", 20, 20, {redShape(1, 10, 10, 20, 20)}));
        f.addHud(customHud("A0000", "Pair", 100, 40, {custom(1, 20, 20, "B0000"), custom(2, 80, 20, "B0000")}));
        f.load({custom(1, 200, 200, "A0000"), custom(2, 400, 200, "B0000"), custom(3, 500, 200, "B0000")});
        const QList<UIComponentBase*> pair = subsOf(f.top(0));
        QCOMPARE(pair.size(), 2);
        for (UIComponentBase* inner : pair)
            QCOMPARE(subsOf(inner).size(), 1);
        QCOMPARE(subsOf(f.top(1)).size(), 1);
        QCOMPARE(subsOf(f.top(2)).size(), 1);
        const QImage image = f.image();
        COMPARE_COLOR(image, 170, 200, Red);
        COMPARE_COLOR(image, 230, 200, Red);
        COMPARE_COLOR(image, 200, 200, Clear);
    }

    // A long chain of custom HUDs, each inside the next, stops at a depth
    // the stack bears, as a cycle does; so does a tree of HUDs that each
    // hold several of the next, before it multiplies into millions.
    void deepChainsStop()
    {
        Fixture f;
        const int length = 2000;
        for (int i = 0; i < length; ++i)
            f.addHud(customHud(QString::number(i), QString::number(i), 10, 10,
                               {custom(1, 5, 5, QString::number(i + 1))}));
        f.load({custom(1, 200, 200, "0")});
        QCOMPARE(expandedCount(f.top(0)), CustomExpansion::maximumDepth);

        Fixture g;
        for (int i = 0; i < 20; ++i) {
            QJsonArray four;
            for (int k = 0; k < 4; ++k)
                four.append(custom(k, 5, 5, QStringLiteral("T%1").arg(i + 1)));
            g.addHud(customHud(QStringLiteral("T%1").arg(i), QStringLiteral("T%1").arg(i), 10, 10, four));
        }
        QElapsedTimer clock;
        clock.start();
        g.load({custom(1, 200, 200, "T0")});
        QVERIFY(expandedCount(g.top(0)) <= CustomExpansion::componentBudget + 4 * CustomExpansion::maximumDepth);
        QVERIFY2(clock.elapsed() < 20000, qPrintable(QString::number(clock.elapsed())));
    }

    // ---------------------------------------------------------------- missing

    // A reference that leads nowhere shows the 100 by 100 translucent black
    // square, whatever the grid's size says; an attach collection shows no
    // frame then.
    void missingReferenceShowsTheBlackSquare_data()
    {
        QTest::addColumn<QJsonObject>("component");
        QTest::newRow("custom") << custom(1, 200, 200, "gone!", 300, 300);
        QTest::newRow("collection 3 x 4") << collection(1, 200, 200, "gone!", 3, 4, 10, 10);
        QTest::newRow("attach collection") << attach(1, 200, 200, "gone!");
        QTest::newRow("no reference") << custom(1, 200, 200, QString());
    }

    void missingReferenceShowsTheBlackSquare()
    {
        QFETCH(QJsonObject, component);
        Fixture f;
        f.addHud(customHud("11111", "Part", 300, 300, {redShape(1, 50, 50, 40, 40)}));
        f.load({component});
        QCOMPARE(QSize(f.top(0)->width, f.top(0)->height), QSize(100, 100));
        QVERIFY(subsOf(f.top(0)).isEmpty());
        const QImage image = f.image();
        COMPARE_COLOR(image, 150, 150, Block);
        COMPARE_COLOR(image, 249, 249, Block);
        COMPARE_COLOR(image, 200, 200, Block);
        COMPARE_COLOR(image, 250, 200, Clear);
        COMPARE_COLOR(image, 149, 200, Clear);
    }

    // The Map and Battle HUDs are found by "M" and "B"; of two rows with one
    // ID the first is taken.
    void referencesFindTheFirstRow()
    {
        Fixture f;
        f.rows[0].object.insert("HUD", QJsonArray{redShape(1, 5, 5, 10, 10)});
        f.addHud(customHud("11111", "First", 40, 40, {redShape(1, 20, 20, 40, 40)}));
        f.addHud(customHud("11111", "Second", 80, 80, {}));
        f.load({custom(1, 200, 200, "M"), custom(2, 400, 400, "11111")});
        // The Map HUD has no size of its own: 100 by 100.
        QCOMPARE(QSize(f.top(0)->width, f.top(0)->height), QSize(100, 100));
        QCOMPARE(subsOf(f.top(0)).size(), 1);
        QCOMPARE(QSize(f.top(1)->width, f.top(1)->height), QSize(40, 40));
        COMPARE_COLOR(f.image(), 400, 400, Red);
    }

    // ---------------------------------------------------------------- collections

    void gridSizeAndCells_data()
    {
        QTest::addColumn<QJsonValue>("rows");
        QTest::addColumn<QJsonValue>("columns");
        QTest::addColumn<QJsonValue>("horizontal");
        QTest::addColumn<QJsonValue>("vertical");
        QTest::addColumn<QSize>("cell");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("cells");
        QTest::newRow("3 rows, 2 columns, spacing 10 and 5") << QJsonValue(3) << QJsonValue(2) << QJsonValue(10)
                                                             << QJsonValue(5) << QSize(100, 50) << QSize(210, 160) << 6;
        QTest::newRow("1 row, 4 columns") << QJsonValue(1) << QJsonValue(4) << QJsonValue(0) << QJsonValue(0)
                                          << QSize(30, 20) << QSize(120, 20) << 4;
        QTest::newRow("2 by 2, spacing 7 and 0") << QJsonValue(2) << QJsonValue(2) << QJsonValue(7) << QJsonValue(0)
                                                 << QSize(25, 40) << QSize(57, 80) << 4;
        // A value the game works out counts as 1 row or column, no spacing.
        const QJsonValue extended = QJsonObject{{"Type", 0}, {"Param", "Count"}};
        QTest::newRow("extended") << extended << QJsonValue(3) << extended << extended << QSize(30, 20)
                                  << QSize(90, 20) << 3;
    }

    void gridSizeAndCells()
    {
        QFETCH(QJsonValue, rows);
        QFETCH(QJsonValue, columns);
        QFETCH(QJsonValue, horizontal);
        QFETCH(QJsonValue, vertical);
        QFETCH(QSize, cell);
        QFETCH(QSize, size);
        QFETCH(int, cells);
        Fixture f;
        // One shape in each cell, centred 3 right and 2 down of the cell's corner.
        f.addHud(customHud("11111", "Cell", cell.width(), cell.height(), {redShape(1, 3, 2, 2, 2)}));
        f.load({collection(1, 400, 300, "11111", rows, columns, horizontal, vertical)});
        auto* grid = as<UIComponentCustomCollection>(f.top(0));
        QCOMPARE(QSize(grid->width, grid->height), size);
        QCOMPARE(grid->subComponents().size(), cells);
        const int stepX = cell.width() + (horizontal.isDouble() ? horizontal.toInt() : 0);
        const int stepY = cell.height() + (vertical.isDouble() ? vertical.toInt() : 0);
        const QPointF corner(400 - size.width() / 2.0, 300 - size.height() / 2.0);
        QSet<QPair<int, int>> seen;
        for (UIComponentBase* sub : grid->subComponents()) {
            const QPoint at = grid->cellOf(sub);
            seen.insert({at.x(), at.y()});
            QCOMPARE(sub->scenePos(), corner + QPointF(at.x() * stepX + 3, at.y() * stepY + 2));
        }
        QCOMPARE(seen.size(), cells);
        // The same at zoom 2, in scene units.
        f.scene->setZoom(20);
        for (UIComponentBase* sub : grid->subComponents()) {
            const QPoint at = grid->cellOf(sub);
            QCOMPARE(sub->scenePos(), 2 * (corner + QPointF(at.x() * stepX + 3, at.y() * stepY + 2)));
        }
        // The grid's size is never written back.
        QCOMPARE(f.scene->toJson().at(0).toObject().value("CustomCollectionData").toObject().value("Width").toInt(), 100);
    }

    // ---------------------------------------------------------------- attach collection

    // The frame follows the zoom: at 0.5 its bars are 4 pixels of the scene.
    // A 200 by 100 HUD at (200, 200) is 100 by 50 there, from (75, 75).
    void attachFrameFollowsTheZoom()
    {
        Fixture f;
        f.addHud(customHud("11111", "Part", 200, 100, {}));
        f.load({attach(1, 200, 200, "11111")});
        f.scene->setZoom(5);
        const QImage image = f.image();
        COMPARE_COLOR(image, 100, 75, FrameBlue);
        COMPARE_COLOR(image, 100, 78, FrameBlue);
        COMPARE_COLOR(image, 100, 79, Clear);
        COMPARE_COLOR(image, 100, 124, FrameBlue);
        COMPARE_COLOR(image, 100, 121, FrameBlue);
        COMPARE_COLOR(image, 100, 120, Clear);
        COMPARE_COLOR(image, 50, 100, FrameBlue);
        COMPARE_COLOR(image, 53, 100, FrameBlue);
        COMPARE_COLOR(image, 54, 100, Clear);
        COMPARE_COLOR(image, 149, 100, FrameBlue);
        COMPARE_COLOR(image, 146, 100, FrameBlue);
        COMPARE_COLOR(image, 145, 100, Clear);
        COMPARE_COLOR(image, 49, 100, Clear);
        // At zoom 1 the bars are 8 wide.
        f.scene->setZoom(10);
        const QImage whole = f.image();
        COMPARE_COLOR(whole, 200, 157, FrameBlue);
        COMPARE_COLOR(whole, 200, 158, Clear);
    }

    // ---------------------------------------------------------------- editing the custom HUD

    // The HUD that uses a custom HUD shows it as it is now when the user
    // comes back to it: components added to the custom HUD, unsaved, and a
    // new size given in the HUD dialog.
    void comingBackShowsTheEditedCustomHud()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("edited"));
        const QJsonObject document{
            {"Map", 0},
            {"Battle", 1},
            {"Data", QJsonArray{QJsonObject{{"HUD", QJsonArray{custom(1, 300, 200, "11111")}}},
                                QJsonObject{{"HUD", QJsonArray()}},
                                customHud("11111", "Part", 100, 50, {redShape(1, 10, 10, 20, 20)})}}};
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), QJsonDocument(document).toJson());
        openWindow(project);
        GameUIEditorScene* scene = window->editorView()->editorScene();
        QCOMPARE(scene->components().size(), 1);
        QCOMPARE(subsOf(scene->components().first()).size(), 1);

        clickRow(2);
        QCOMPARE(scene->components().size(), 1);
        scene->setPastePosition(QPointF(80, 40));
        scene->createFromJson(redShape(5, 80, 40, 10, 10), nullptr);
        clickRow(0);
        UIComponentBase* owner = scene->components().first();
        QCOMPARE(subsOf(owner).size(), 2);

        // A new size of the custom HUD from its dialog's outcome, as the list row holds it.
        UltimateTreeItem* part = list()->row(2);
        part->userData()->insert("Width", 140);
        part->userData()->insert("Height", 60);
        clickRow(2);
        clickRow(0);
        owner = scene->components().first();
        QCOMPARE(QSize(owner->width, owner->height), QSize(140, 60));
        QCOMPARE(subsOf(owner).size(), 2);
    }

    // ---------------------------------------------------------------- check

    // The check names every reference to a custom HUD that is gone and every
    // component whose custom HUD leads back to the HUD holding it, with the
    // way round; neither makes the document invalid.
    void checkReportsMissingHudsAndCycles()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("cycles"));
        QJsonObject broken = custom(4, 10, 10, "99999");
        broken.insert("Name", "Broken");
        QJsonObject toB = custom(1, 10, 10, "22222");
        toB.insert("Name", "To B");
        QJsonObject toA = collection(1, 10, 10, "11111", 1, 2);
        toA.insert("Name", "To A");
        const QJsonObject holder{{"ID", 2}, {"Type", 6}, {"Name", "Holder"}, {"Children", QJsonArray{toA}}};
        QJsonObject self = attach(3, 0, 0, "33333");
        self.insert("Name", "Me");
        const QJsonObject document{
            {"Map", 0},
            {"Battle", 1},
            {"Data", QJsonArray{QJsonObject{{"HUD", QJsonArray{broken, custom(5, 0, 0, "11111")}}},
                                QJsonObject{{"HUD", QJsonArray()}}, customHud("11111", "A", 10, 10, {toB}),
                                customHud("22222", "B", 10, 10, {holder}), customHud("33333", "C", 10, 10, {self})}}};
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), QJsonDocument(document).toJson());
        const TestEnvironment::CliResult result = TestEnvironment::runCli({"check", project});
        QCOMPARE(result.code, 0);
        const QString expected = QStringLiteral("Missing images: 0\n"
                                                "Missing custom HUDs: 1\n"
                                                "  \"99999\": HUD \"Map HUD\", component \"Broken\" (ID 4)\n"
                                                "Custom HUD cycles: 3\n"
                                                "  \"A\" -> \"B\" -> \"A\": HUD \"A\", component \"To B\" (ID 1)\n"
                                                "  \"B\" -> \"A\" -> \"B\": HUD \"B\", component \"To A\" (ID 1)\n"
                                                "  \"C\" -> \"C\": HUD \"C\", component \"Me\" (ID 3)\n");
        QVERIFY2(result.out.endsWith(expected), qPrintable(result.out));
    }

    // A document with a component of every kind has no placeholder left,
    // and renders with its custom HUDs expanded.
    void everyKindDrawsItself()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("kinds"));
        QJsonArray map;
        for (int type = 0; type <= 13; ++type) {
            if (type >= 10 && type <= 12)
                continue;
            map.append(QJsonObject{{"ID", type + 1}, {"Type", type}, {"X", 40}, {"Y", 450}});
        }
        map.append(custom(11, 100, 100, "11111"));
        map.append(collection(12, 300, 100, "11111", 1, 2, 10, 0));
        map.append(attach(13, 500, 100, "11111"));
        const QJsonObject document{
            {"Map", 0},
            {"Battle", 1},
            {"Data", QJsonArray{QJsonObject{{"HUD", map}}, QJsonObject{{"HUD", QJsonArray()}},
                                customHud("11111", "Part", 60, 60, {redShape(1, 30, 30, 20, 20)})}}};
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), QJsonDocument(document).toJson());
        const TestEnvironment::CliResult checked = TestEnvironment::runCli({"check", project});
        QVERIFY2(checked.out.contains("Kind 13 Animation: 1\nPlaceholders: 0\n"), qPrintable(checked.out));
        QVERIFY2(checked.out.endsWith("Missing custom HUDs: 0\nCustom HUD cycles: 0\n"), qPrintable(checked.out));

        const QString out = TestEnvironment::newFolder(QStringLiteral("pictures"));
        const TestEnvironment::CliResult rendered = TestEnvironment::runCli({"render", project, "--out", out, "--hud", "Map HUD"});
        QCOMPARE(rendered.code, 0);
        const QImage image(out + "/Map HUD.png");
        QVERIFY(!image.isNull());
        // The custom's shape in its middle; the collection's two cells, 70
        // apart, centred around x 300.
        COMPARE_COLOR(image, 100, 100, Red);
        COMPARE_COLOR(image, 265, 100, Red);
        COMPARE_COLOR(image, 335, 100, Red);
        COMPARE_COLOR(image, 300, 100, Clear);
        COMPARE_COLOR(image, 500, 100, Red);
        // Outside the shapes but inside the attach frame.
        COMPARE_COLOR(image, 500, 72, FrameBlue);
    }
};

VELMORA_TEST_MAIN(TestCustomKinds, QApplication)
#include "tst_customkinds.moc"
