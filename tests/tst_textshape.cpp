#include "TestEnvironment.h"

#include "components/GameUIEditorSceneHelper.h"
#include "components/UIComponentShape.h"
#include "components/VelmoUISelector.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"
#include "widgets/DialogFlags.h"
#include "widgets/MyButton.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/TrovDialog.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QJsonDocument>

using TestEnvironment::Answer;
using TestEnvironment::answering;
using TestEnvironment::press;

namespace {

// The canvas with the real registry, its selector and dialogs.
struct Editor : TestEnvironment::Canvas {
    Editor() : Canvas(new GameUIEditorSceneHelper<VelmoUISelector>())
    {
        scene->setProjectData(&projectData);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        scene->setZoom(10);
    }
    UIComponentBase* load(const QJsonObject& component)
    {
        scene->clear();
        scene->loadFromJson(QJsonArray{component});
        return scene->components().value(0);
    }
    // The HUD as velmora-cli render draws it, at a zoom in tenths.
    QImage render(const QJsonObject& component, int zoom)
    {
        scene->setZoom(zoom);
        load(component);
        return scene->canvasImage(false).convertToFormat(QImage::Format_ARGB32);
    }
    QJsonObject projectData;
};

QJsonObject shapeOf(const QJsonObject& shapeData, int x = 100, int y = 100)
{
    return QJsonObject{{"ID", 1}, {"Type", 1}, {"Name", "Shape"}, {"X", x}, {"Y", y}, {"ShapeData", shapeData}};
}

// The pixel as an unpremultiplied colour, alpha included.
QColor at(const QImage& image, int x, int y)
{
    return QColor::fromRgba(image.pixel(x, y));
}

bool near(const QColor& actual, const QColor& expected, int tolerance = 3)
{
    return qAbs(actual.red() - expected.red()) <= tolerance && qAbs(actual.green() - expected.green()) <= tolerance
        && qAbs(actual.blue() - expected.blue()) <= tolerance && qAbs(actual.alpha() - expected.alpha()) <= tolerance;
}

#define COMPARE_COLOR(image, x, y, expected)                                                                      \
    QVERIFY2(near(at(image, x, y), expected),                                                                     \
             qPrintable(QStringLiteral("pixel %1,%2 is %3 alpha %4, not %5 alpha %6")                             \
                            .arg(x)                                                                               \
                            .arg(y)                                                                               \
                            .arg(at(image, x, y).name())                                                          \
                            .arg(at(image, x, y).alpha())                                                         \
                            .arg(QColor(expected).name())                                                         \
                            .arg(QColor(expected).alpha())))

// Clicks an item of a choice field's list, as a user picks it.
Answer choosing(const char* field, int index)
{
    return [field, index](TrovDialog* dialog) {
        MyComboBox* combo = dialog->findChild<MyComboBox*>(QLatin1String(field));
        QTest::mouseClick(combo, Qt::LeftButton);
        QTRY_VERIFY(combo->popup());
        for (int i = combo->currentIndex(); i < index; ++i)
            QTest::keyClick(combo->popup(), Qt::Key_Down);
        for (int i = combo->currentIndex(); i > index; --i)
            QTest::keyClick(combo->popup(), Qt::Key_Up);
        QTest::keyClick(combo->popup(), Qt::Key_Return);
        QTRY_COMPARE(combo->currentIndex(), index);
    };
}

Answer typing(const char* field, const QString& text)
{
    return [field, text](TrovDialog* dialog) {
        MyLineEdit* edit = dialog->findChild<MyLineEdit*>(QLatin1String(field));
        QTest::mouseClick(edit, Qt::LeftButton);
        edit->selectAll();
        QTest::keyClicks(edit, text);
    };
}

const QColor Red(255, 0, 0);
const QColor Blue(0, 0, 255);
const QColor Clear(0, 0, 0, 0);

}

class TestTextShape : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        dialogNativeTitleBar = false;
        dialogDarkenLayers = false;
        dialogDarkenAnimated = false;
        dialogOpenAnimated = false;
    }

    // ---------------------------------------------------------------- shape

    // A rectangle fills exactly its box at every zoom, and nothing beside it.
    void rectangleFillsItsBox_data()
    {
        QTest::addColumn<int>("zoom");
        QTest::newRow("zoom 1") << 10;
        QTest::newRow("zoom 2") << 20;
    }

    void rectangleFillsItsBox()
    {
        QFETCH(int, zoom);
        const int f = zoom / 10;
        Editor editor;
        const QImage image =
            editor.render(shapeOf({{"Width", 40}, {"Height", 30}, {"Color", "#ff0000"}}), zoom);
        // Centre (100, 100): the box runs from (80, 85) to (119, 114) at zoom 1.
        COMPARE_COLOR(image, 80 * f, 85 * f, Red);
        COMPARE_COLOR(image, 120 * f - 1, 115 * f - 1, Red);
        COMPARE_COLOR(image, 100 * f, 100 * f, Red);
        COMPARE_COLOR(image, 80 * f - 1, 100 * f, Clear);
        COMPARE_COLOR(image, 120 * f, 100 * f, Clear);
        COMPARE_COLOR(image, 100 * f, 85 * f - 1, Clear);
        COMPARE_COLOR(image, 100 * f, 115 * f, Clear);
    }

    // The outline lies inside the edge, as thick as "OutlineSize" times the
    // zoom, at its opacity; the fill takes the rest.
    void rectangleOutlineLiesInside_data()
    {
        QTest::addColumn<int>("zoom");
        QTest::newRow("zoom 1") << 10;
        QTest::newRow("zoom 2") << 20;
    }

    void rectangleOutlineLiesInside()
    {
        QFETCH(int, zoom);
        const int f = zoom / 10;
        Editor editor;
        QImage image = editor.render(shapeOf({{"Width", 40}, {"Height", 40}, {"Color", "#ff0000"},
                                              {"OutlineColor", "#0000ff"}, {"OutlineSize", 5}}),
                                     zoom);
        // Box (80, 80) to (119, 119): the outline is x 80 to 84, the fill from 85.
        COMPARE_COLOR(image, 80 * f, 100 * f, Blue);
        COMPARE_COLOR(image, 85 * f - 1, 100 * f, Blue);
        COMPARE_COLOR(image, 85 * f, 100 * f, Red);
        COMPARE_COLOR(image, 115 * f - 1, 100 * f, Red);
        COMPARE_COLOR(image, 115 * f, 100 * f, Blue);
        COMPARE_COLOR(image, 100 * f, 80 * f, Blue);
        COMPARE_COLOR(image, 100 * f, 100 * f, Red);
        COMPARE_COLOR(image, 80 * f - 1, 100 * f, Clear);

        // At half opacity the outline is half covering; the fill stays whole.
        image = editor.render(shapeOf({{"Width", 40}, {"Height", 40}, {"Color", "#ff0000"},
                                       {"OutlineColor", "#0000ff"}, {"OutlineSize", 5}, {"OutlineOpacity", 50}}),
                              zoom);
        COMPARE_COLOR(image, 82 * f, 100 * f, QColor(0, 0, 255, 128));
        COMPARE_COLOR(image, 100 * f, 100 * f, Red);
    }

    // A circle without outline has a pen of its own colour, so it reaches
    // the box's edge; with an outline it has none. Corners stay empty.
    void circleReachesItsEdgeOnlyWithoutOutline()
    {
        Editor editor;
        QImage image = editor.render(shapeOf({{"Width", 40}, {"Height", 40}, {"Color", "#ff0000"}, {"Shape", 1}}), 10);
        COMPARE_COLOR(image, 100, 100, Red);
        COMPARE_COLOR(image, 81, 81, Clear);
        COMPARE_COLOR(image, 118, 118, Clear);
        // The pen's half pixel beyond the ellipse's left and top edge.
        QVERIFY(at(image, 79, 100).alpha() > 60);
        QVERIFY(at(image, 100, 79).alpha() > 60);

        image = editor.render(shapeOf({{"Width", 40}, {"Height", 40}, {"Color", "#ff0000"}, {"Shape", 1},
                                       {"OutlineSize", 4}, {"OutlineColor", "#0000ff"}}),
                              20);
        COMPARE_COLOR(image, 200, 200, Red);
        // Zoom 2: the box runs from 160 to 239; the outline is 8 pixels.
        COMPARE_COLOR(image, 164, 200, Blue);
        COMPARE_COLOR(image, 200, 164, Blue);
        COMPARE_COLOR(image, 158, 200, Clear);
        COMPARE_COLOR(image, 163, 163, Clear);
    }

    // The edge cases: an outline thicker than half the shape leaves only the
    // outline; "Shape" 2 draws nothing and can still be selected; an outline
    // size the game gives at run time previews as none; the component's own
    // opacity dims both layers.
    void shapeEdgeCases()
    {
        Editor editor;
        QImage image = editor.render(shapeOf({{"Width", 30}, {"Height", 60}, {"Color", "#ff0000"},
                                              {"OutlineColor", "#0000ff"}, {"OutlineSize", 16}}),
                                     10);
        COMPARE_COLOR(image, 100, 100, Blue);
        COMPARE_COLOR(image, 100, 75, Blue);

        image = editor.render(shapeOf({{"Width", 60}, {"Height", 60}, {"Shape", 2}, {"OutlineSize", 5}}), 10);
        for (int y = 65; y < 135; y += 3)
            for (int x = 65; x < 135; x += 3)
                QVERIFY(at(image, x, y).alpha() == 0);
        UIComponentBase* nothing = editor.scene->components().value(0);
        editor.scene->select(nullptr);
        QTest::mouseClick(editor.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          editor.view->mapFromScene(QPointF(100, 100)));
        QCOMPARE(editor.scene->selectedComponent(), nothing);

        image = editor.render(shapeOf({{"Width", 40}, {"Height", 40}, {"Color", "#ff0000"},
                                       {"OutlineSize", QJsonObject{{"Code", "return 3;"}, {"Type", 2}}}}),
                              10);
        COMPARE_COLOR(image, 80, 100, Red);

        QJsonObject dimmed = shapeOf({{"Width", 40}, {"Height", 40}, {"Color", "#ff0000"},
                                      {"OutlineColor", "#0000ff"}, {"OutlineSize", 5}});
        dimmed.insert("Opacity", 0.5);
        image = editor.render(dimmed, 10);
        // Half a red over half a blue: three quarters covered, two parts red
        // to one part blue.
        COMPARE_COLOR(image, 100, 100, QColor(170, 0, 85, 191));
        COMPARE_COLOR(image, 81, 100, QColor(0, 0, 255, 128));
    }

    // A shape resized on the canvas keeps its size in its data object, next
    // to every key it came with.
    void shapeWritesItsSizeBack()
    {
        Editor editor;
        const QJsonObject data{{"Width", 40},        {"Height", 40},      {"Shape", 1},
                               {"OutlineSize", 3},   {"Color", "#202040"}, {"OutlineColor", "#c0c0ff"},
                               {"OutlineOpacity", 75.25}, {"Future", "kept"}};
        UIComponentBase* shape = editor.load(shapeOf(data));
        shape->setWidth(70);
        shape->setHeight(20);
        QJsonObject expected = data;
        expected.insert("Width", 70);
        expected.insert("Height", 20);
        QCOMPARE(shape->data().value("ShapeData").toObject(), expected);
    }

    // ---------------------------------------------------------------- shape dialog

    // A shape made from the selector and edited in its dialog gets the keys
    // of its kind, with the dialog's defaults for what the user left alone.
    void newShapeFromTheSelector()
    {
        Editor editor;
        const QPoint spot = editor.view->mapFromScene(QPointF(300, 200));
        answering([&]() { QTest::mouseDClick(editor.view->viewport(), Qt::LeftButton, Qt::NoModifier, spot); },
                  {press("shape"), Answer([](TrovDialog* dialog) {
                       QCOMPARE(dialog->findChild<MyLineEdit*>("Width")->text(), QStringLiteral("100"));
                       QCOMPARE(dialog->findChild<MyLineEdit*>("OutlineSize")->text(), QStringLiteral("0"));
                       QCOMPARE(dialog->findChild<MyLineEdit*>("OutlineOpacity")->text(), QStringLiteral("100"));
                       // No note of kept properties: the kind's box edits them.
                       QVERIFY(!dialog->findChild<QWidget*>("keptNote"));
                   }),
                   typing("Width", "60"), choosing("Shape_Type", 1), typing("OutlineSize", "6"),
                   typing("OutlineOpacity", "40"), press("confirmButton")});
        QCOMPARE(editor.scene->components().size(), 1);
        const QJsonObject made = editor.scene->components().at(0)->data();
        const QJsonObject expected{{"Width", 60},          {"Height", 100},          {"Shape", 1},
                                   {"OutlineSize", 6},     {"Color", "#ffffff"},     {"OutlineColor", "#000000"},
                                   {"OutlineOpacity", 40}};
        QCOMPARE(made.value("ShapeData").toObject(), expected);
        QCOMPARE(made.value("Name").toString(), QStringLiteral("Shape (ID 1)"));
        QCOMPARE(editor.scene->components().at(0)->width, 60);

        // Saved and loaded again, it is the same object.
        const QJsonArray saved = editor.scene->toJson();
        editor.scene->clear();
        editor.scene->loadFromJson(QJsonArray::fromVariantList(
            QJsonDocument::fromJson(QJsonDocument(saved).toJson()).array().toVariantList()));
        QCOMPARE(editor.scene->components().at(0)->data(), made);
    }

    // Keys the dialog doesn't show are dropped, but the add-ons and their
    // note pass through; a "Shape" value past the list stays unless chosen.
    void shapeDialogKeepsAddonsAndDropsTheRest()
    {
        Editor editor;
        const QJsonArray addons{QJsonObject{{"Type", 0}, {"Note", "A"}}};
        editor.load(shapeOf({{"Width", 40}, {"Height", 40}, {"Shape", 2}, {"Addons", addons}, {"Note", "A"},
                             {"Future", "dropped"}}));
        answering([&]() {
            QTest::mouseDClick(editor.list->tree()->viewport(), Qt::LeftButton, Qt::NoModifier,
                               editor.list->tree()->mapFromScene(
                                   QPointF(40, editor.list->tree()->row(0)->y() + 10)));
        },
                  {press("confirmButton")});
        const QJsonObject data = editor.scene->components().at(0)->data().value("ShapeData").toObject();
        QCOMPARE(data.value("Addons"), QJsonValue(addons));
        QCOMPARE(data.value("Note").toString(), QStringLiteral("A"));
        QCOMPARE(data.value("Shape").toInt(), 2);
        QVERIFY(!data.contains("Future"));
    }
};

VELMORA_TEST_MAIN(TestTextShape, QApplication)
#include "tst_textshape.moc"
