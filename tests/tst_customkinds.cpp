#include "MainWindowFixture.h"
#include "TestEnvironment.h"

#include "components/ComponentKinds.h"
#include "components/UIComponentAttachCollection.h"
#include "components/UIComponentCustom.h"
#include "components/UIComponentCustomCollection.h"
#include "logic/HudCatalog.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"
#include "widgets/UltimateTreeItem.h"

#include <QApplication>

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

QJsonObject placed(int id, int type, int x, int y, const char* key, const QJsonObject& data)
{
    return QJsonObject{{"ID", id}, {"Type", type}, {"Name", QStringLiteral("Use %1").arg(id)},
                       {"X", x},   {"Y", y},       {QLatin1String(key), data}};
}

QJsonObject custom(int id, int x, int y, const QString& reference, int w = 100, int h = 100)
{
    return placed(id, 10, x, y, "CustomData",
                  {{"ID", reference}, {"Width", w}, {"Height", h}, {"Params", QJsonObject()}});
}

QJsonObject collection(int id, int x, int y, const QString& reference, const QJsonValue& rows,
                       const QJsonValue& columns, const QJsonValue& horizontal = 0, const QJsonValue& vertical = 0)
{
    return placed(id, 11, x, y, "CustomCollectionData",
                  {{"ID", reference}, {"MaxRows", rows}, {"MaxColumns", columns}, {"HorizontalSpacing", horizontal},
                   {"VerticalSpacing", vertical}, {"Width", 100}, {"Height", 100}});
}

QJsonObject attach(int id, int x, int y, const QString& reference)
{
    return placed(id, 12, x, y, "AttachCollectionData", {{"ID", reference}, {"List", 0}, {"Position", 1}, {"Data", 0}});
}

// The shared canvas with a HUD list the test fills.
struct Fixture : TestEnvironment::Workbench {
    Fixture()
    {
        rows.append(HudCatalog::Row{HudCatalog::Map, QJsonObject{{"HUD", QJsonArray()}}, true});
        rows.append(HudCatalog::Row{HudCatalog::Battle, QJsonObject{{"HUD", QJsonArray()}}, false});
        HudCatalog::setSource([this]() { return rows; });
    }
    ~Fixture() { HudCatalog::setSource(nullptr); }
    void addHud(const QJsonObject& object) { rows.append(HudCatalog::Row{HudCatalog::Custom, object, false}); }
    UIComponentBase* top(int index) const { return scene->components().at(index); }
    // Unpremultiplied, so that translucent colours compare as they were painted.
    QImage image() { return scene->canvasImage(false).convertToFormat(QImage::Format_ARGB32); }

    QVector<HudCatalog::Row> rows;
};

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

QSize sizeOf(const UIComponentBase* component)
{
    return QSize(component->width, component->height);
}

// A project whose document holds the Map HUD, an empty Battle HUD and the
// custom HUDs.
QString projectWith(const char* name, const QJsonArray& map, const QJsonArray& customHuds)
{
    QJsonArray data{QJsonObject{{"HUD", map}}, QJsonObject{{"HUD", QJsonArray()}}};
    for (const QJsonValue& hud : customHuds)
        data.append(hud);
    return TestEnvironment::makeProjectWithHuds(QLatin1String(name), data);
}

}

class TestCustomKinds : public QObject, public MainWindowFixture
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        window.reset();
        // Nothing is left behind by an expansion, whatever it met.
        QVERIFY(customExpansionStack.isEmpty());
    }

    // A HUD counts from its top-left corner, the component from its centre:
    // a 100 by 50 HUD at (200, 100) starts at (150, 75), and a 20 by 10 shape
    // at (10, 5) of it covers (150..169, 75..84). A group's child stays
    // relative to the group, which draws no marker there.
    void expansionIsDrawnWhereTheHudPutsIt()
    {
        Fixture f;
        const QJsonObject group{{"ID", 2}, {"Type", 6}, {"X", 50}, {"Y", 25}, {"Children", QJsonArray{redShape(3, 10, 0, 4, 4)}}};
        f.addHud(customHud("11111", "Part", 100, 50, {redShape(1, 10, 5, 20, 10), group}));
        f.load({custom(1, 200, 100, "11111")});
        const QImage image = f.image();
        COMPARE_COLOR(image, 150, 75, Red);
        COMPARE_COLOR(image, 170, 80, Clear);
        COMPARE_COLOR(image, 211, 100, Red);
        // Neither the owner nor the group draws anything of its own.
        COMPARE_COLOR(image, 200, 100, Clear);
    }

    // A Custom takes the size of its HUD (the first of two with one ID; the
    // Map HUD, "M", is 100 by 100) and writes it back; an Attach Collection
    // keeps its stored object. No handle changes the size, nor turns it.
    void theHudsSizeWins()
    {
        Fixture f;
        f.rows[0].object.insert("HUD", QJsonArray{redShape(1, 5, 5, 10, 10)});
        f.addHud(customHud("11111", "First", 120, 40, {}));
        f.addHud(customHud("11111", "Second", 80, 80, {}));
        f.load({custom(1, 100, 100, "11111", 10, 10), attach(2, 300, 300, "11111"), custom(3, 200, 200, "M")});
        QCOMPARE(sizeOf(f.top(0)), QSize(120, 40));
        QCOMPARE(sizeOf(f.top(1)), QSize(120, 40));
        QCOMPARE(sizeOf(f.top(2)), QSize(100, 100));
        QCOMPARE(subsOf(f.top(2)).size(), 1);
        const QJsonArray saved = f.scene->toJson();
        const QJsonObject data = saved.at(0).toObject().value("CustomData").toObject();
        QCOMPARE(QSize(data.value("Width").toInt(), data.value("Height").toInt()), QSize(120, 40));
        QVERIFY(!saved.at(1).toObject().value("AttachCollectionData").toObject().contains("Width"));
        for (UIComponentBase* component : f.scene->components())
            QVERIFY(!component->canResize() && !component->canRotate() && !component->canHaveChildren());
    }

    // What an expansion builds is seen but never touched: a click on it
    // selects its owner, a drag takes it along; it has no row and never
    // reaches the saved document.
    void expandedComponentsArePassive()
    {
        Fixture f;
        f.addHud(customHud("11111", "Part", 100, 100, {redShape(1, 50, 50, 40, 40), redShape(2, 5, 5, 10, 10)}));
        const QJsonObject placed = custom(1, 200, 200, "11111");
        f.load({placed});
        QCOMPARE(f.list->tree()->row(0)->childCount(), 0);
        UIComponentBase* owner = f.top(0);
        // Over the shape in the middle of the custom HUD.
        const QPoint middle = f.view->mapFromScene(QPointF(200, 200));
        QTest::mouseMove(f.view->viewport(), middle);
        QTest::mouseClick(f.view->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        QCOMPARE(f.scene->selectedComponent(), owner);
        for (UIComponentBase* sub : subsOf(owner))
            QVERIFY(!sub->selected && !sub->hovered && sub->handles.isEmpty());

        const QPoint to = f.view->mapFromScene(QPointF(230, 200));
        QTest::mousePress(f.view->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        TestEnvironment::moveWithButtons(f.view->viewport(), to, Qt::LeftButton);
        QTest::mouseRelease(f.view->viewport(), Qt::LeftButton, Qt::NoModifier, to);
        COMPARE_COLOR(f.image(), 185, 200, Clear);

        QJsonObject expected = placed;
        expected.insert("X", 230);
        expected.insert("Rotation", 0);
        expected.insert("Opacity", 100.0);
        QCOMPARE(f.scene->toJson(), QJsonArray{expected});
    }

    // Delete and undo take and bring the expansion; a paste builds its own; a
    // new object for the owner frees what it built before.
    void expansionGoesAndComesWithItsOwner()
    {
        Fixture f;
        f.addHud(customHud("11111", "Part", 100, 100, {redShape(1, 50, 50, 40, 40)}));
        f.addHud(customHud("22222", "Other", 60, 60, {redShape(1, 30, 30, 10, 10), redShape(2, 5, 5, 10, 10)}));
        f.load({custom(1, 200, 200, "11111")});
        f.scene->select(f.top(0));
        f.scene->deleteAComponent();
        COMPARE_COLOR(f.image(), 200, 200, Clear);
        f.scene->undo();
        COMPARE_COLOR(f.image(), 200, 200, Red);

        f.scene->select(f.top(0));
        f.scene->copyAComponent();
        f.scene->setPastePosition(QPointF(500, 400));
        f.scene->paste(nullptr);
        QCOMPARE(f.scene->components().size(), 2);
        QVERIFY(subsOf(f.top(1)).value(0) != subsOf(f.top(0)).value(0));
        QVERIFY(!f.scene->toJson().at(1).toObject().contains("Children"));

        const QPointer<UIComponentBase> old = subsOf(f.top(0)).first();
        const int itemsBefore = f.scene->items().size();
        f.top(0)->setData(custom(1, 200, 200, "22222"));
        QVERIFY(old.isNull());
        QCOMPARE(f.scene->items().size(), itemsBefore + 1);
    }

    void cyclesStopWhereTheyCloseUp_data()
    {
        QTest::addColumn<QVector<QJsonObject>>("huds");
        QTest::addColumn<int>("built");
        // A HUD that holds itself expands one level and stops there.
        QTest::newRow("itself") << QVector<QJsonObject>{customHud("A0000", "A", 100, 100, {custom(1, 50, 50, "A0000")})}
                                << 1;
        // Through a collection of two cells: each cell's custom of A stops.
        QTest::newRow("through a collection")
            << QVector<QJsonObject>{customHud("A0000", "A", 100, 100, {collection(1, 50, 50, "B0000", 1, 2)}),
                                    customHud("B0000", "B", 40, 40, {custom(1, 20, 20, "A0000")})}
            << 3;
        // No cycle: two uses of one HUD side by side both expand, the guard
        // lets go of the HUD after each.
        QTest::newRow("same HUD twice")
            << QVector<QJsonObject>{customHud("A0000", "A", 100, 40, {custom(1, 20, 20, "B0000"), custom(2, 80, 20, "B0000")}),
                                    customHud("B0000", "B", 20, 20, {redShape(1, 10, 10, 20, 20)})}
            << 4;
    }

    // Drawn, the built tree holds no loop.
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
        f.image();
    }

    // A long chain of custom HUDs stops at a depth the stack bears; a tree of
    // them stops before it multiplies into millions.
    void deepChainsStop()
    {
        Fixture f;
        for (int i = 0; i < 2000; ++i)
            f.addHud(customHud(QString::number(i), QString::number(i), 10, 10, {custom(1, 5, 5, QString::number(i + 1))}));
        f.load({custom(1, 200, 200, "0")});
        QCOMPARE(expandedCount(f.top(0)), CustomExpansion::maximumDepth);

        f.rows.resize(2);
        for (int i = 0; i < 20; ++i) {
            const QJsonObject next = custom(1, 5, 5, QStringLiteral("T%1").arg(i + 1));
            f.addHud(customHud(QStringLiteral("T%1").arg(i), QString(), 10, 10, {next, next, next, next}));
        }
        QElapsedTimer clock;
        clock.start();
        f.load({custom(1, 200, 200, "T0")});
        QVERIFY(expandedCount(f.top(0)) <= CustomExpansion::componentBudget + 4 * CustomExpansion::maximumDepth);
        QVERIFY2(clock.elapsed() < 20000, qPrintable(QString::number(clock.elapsed())));
        f.image();
    }

    // A reference that leads nowhere shows the 100 by 100 black square.
    void missingReferenceShowsTheBlackSquare_data()
    {
        QTest::addColumn<QJsonObject>("component");
        QTest::newRow("no reference") << custom(1, 200, 200, QString(), 300, 300);
        QTest::newRow("collection 3 x 4") << collection(1, 200, 200, "gone!", 3, 4, 10, 10);
        QTest::newRow("attach collection") << attach(1, 200, 200, "gone!");
    }

    void missingReferenceShowsTheBlackSquare()
    {
        QFETCH(QJsonObject, component);
        Fixture f;
        f.addHud(customHud("11111", "Part", 300, 300, {redShape(1, 50, 50, 40, 40)}));
        f.load({component});
        QCOMPARE(sizeOf(f.top(0)), QSize(100, 100));
        const QImage image = f.image();
        COMPARE_COLOR(image, 249, 249, Block);
        COMPARE_COLOR(image, 250, 200, Clear);
    }

    // Each cell holds its own copy at its place; the grid's size is never
    // written back. A value the game works out counts as 1 row or column and
    // no spacing.
    void gridSizeAndCells()
    {
        auto check = [](const QJsonValue& rows, const QJsonValue& columns, const QJsonValue& spacing, QSize cell,
                        QSize size, int cells) {
            Fixture f;
            // One shape in each cell, centred 3 right and 2 down of the cell's corner.
            f.addHud(customHud("11111", "Cell", cell.width(), cell.height(), {redShape(1, 3, 2, 2, 2)}));
            f.load({collection(1, 400, 300, "11111", rows, columns, spacing, spacing)});
            auto* grid = qobject_cast<UIComponentCustomCollection*>(f.top(0));
            QCOMPARE(sizeOf(grid), size);
            QCOMPARE(grid->subComponents().size(), cells);
            const QSize step = cell + (spacing.isDouble() ? QSize(spacing.toInt(), spacing.toInt()) : QSize(0, 0));
            const QPointF corner(400 - size.width() / 2.0, 300 - size.height() / 2.0);
            QSet<QPair<int, int>> seen;
            for (UIComponentBase* sub : grid->subComponents()) {
                const QPoint at = grid->cellOf(sub);
                seen.insert({at.x(), at.y()});
                QCOMPARE(sub->scenePos(), corner + QPointF(at.x() * step.width() + 3, at.y() * step.height() + 2));
            }
            QCOMPARE(seen.size(), cells);
            QCOMPARE(f.scene->toJson().at(0).toObject().value("CustomCollectionData").toObject().value("Width"),
                     QJsonValue(100));
        };
        check(3, 2, 10, QSize(100, 50), QSize(210, 170), 6);
        const QJsonValue extended = QJsonObject{{"Type", 0}, {"Param", "Count"}};
        check(extended, 3, extended, QSize(30, 20), QSize(90, 20), 3);
    }

    // The frame follows the zoom: at 0.5 its bars are 4 pixels of the scene.
    // A 200 by 100 HUD at (200, 200) is 100 by 50 there, from (75, 75).
    void attachFrameFollowsTheZoom()
    {
        Fixture f;
        f.addHud(customHud("11111", "Part", 200, 100, {}));
        f.load({attach(1, 200, 200, "11111")});
        f.scene->setZoom(5);
        const QImage image = f.image();
        COMPARE_COLOR(image, 100, 78, FrameBlue);
        COMPARE_COLOR(image, 100, 79, Clear);
    }

    // Back on the HUD that uses a custom HUD, it shows the custom HUD's
    // unsaved components and new size.
    void comingBackShowsTheEditedCustomHud()
    {
        openWindow(projectWith("edited", {custom(1, 300, 200, "11111")},
                               {customHud("11111", "Part", 100, 50, {redShape(1, 10, 10, 20, 20)})}));
        GameUIEditorScene* scene = window->editorView()->editorScene();
        auto show = [this](int row) { TestEnvironment::clickRow(window->hudListWidget(), row); };
        show(2);
        scene->setPastePosition(QPointF(80, 40));
        scene->createFromJson(redShape(5, 80, 40, 10, 10), nullptr);
        // A new size of the custom HUD from its dialog's outcome, as the list row holds it.
        list()->row(2)->userData()->insert("Width", 140);
        list()->row(2)->userData()->insert("Height", 60);
        show(0);
        UIComponentBase* owner = scene->components().first();
        QCOMPARE(sizeOf(owner), QSize(140, 60));
        QCOMPARE(subsOf(owner).size(), 2);
    }

    // The check names every reference to a gone custom HUD and every cycle,
    // with the way round; neither makes the document invalid.
    void checkReportsMissingHudsAndCycles()
    {
        auto named = [](QJsonObject component, const char* name) {
            component.insert("Name", name);
            return component;
        };
        const QJsonObject holder{{"ID", 2}, {"Type", 6}, {"Name", "Holder"},
                                 {"Children", QJsonArray{named(collection(1, 10, 10, "11111", 1, 2), "To A")}}};
        const QString project = projectWith(
            "cycles", {named(custom(4, 10, 10, "99999"), "Broken"), custom(5, 0, 0, "11111")},
            {customHud("11111", "A", 10, 10, {named(custom(1, 10, 10, "22222"), "To B")}),
             customHud("22222", "B", 10, 10, {holder}), customHud("33333", "C", 10, 10, {named(attach(3, 0, 0, "33333"), "Me")})});
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

};

VELMORA_TEST_MAIN(TestCustomKinds, QApplication)
#include "tst_customkinds.moc"
