#include "TestEnvironment.h"

#include "components/ProjectFonts.h"
#include "components/UIComponentText.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"
#include "logic/DynamicValueDisplay.h"
#include "widgets/BasicFontSelector.h"
#include "widgets/TrovDialog.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>

using TestEnvironment::choosing;
using TestEnvironment::press;
using TestEnvironment::typing;

namespace {

using Editor = TestEnvironment::Workbench;

QJsonObject shapeOf(const QJsonObject& shapeData)
{
    return QJsonObject{{"ID", 1}, {"Type", 1}, {"Name", "Shape"}, {"X", 100}, {"Y", 100}, {"ShapeData", shapeData}};
}

QJsonObject textOf(const QJsonObject& textData)
{
    return QJsonObject{{"ID", 1}, {"Type", 0}, {"Name", "Text"}, {"X", 300}, {"Y", 200}, {"TextData", textData}};
}

QJsonObject plain(const QString& text) { return QJsonObject{{"Type", 0}, {"Text", text}}; }

// Which pixels of a box are mostly red (text), and which blue with no red
// at all (outline clear of the text's edges); the most covering blue one.
struct Census {
    int red = 0;
    int blue = 0;
    int firstRedX = INT_MAX;
    int darkestBlue = 0;
};

Census census(const QImage& image, const QRect& box)
{
    Census seen;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x) {
            const QColor pixel = TestEnvironment::pixel(image, x, y);
            if (pixel.alpha() > 100 && pixel.red() > 200 && pixel.blue() < 60) {
                ++seen.red;
                seen.firstRedX = qMin(seen.firstRedX, x);
            } else if (pixel.alpha() > 20 && pixel.blue() > 200 && pixel.red() == 0) {
                ++seen.blue;
                seen.darkestBlue = qMax(seen.darkestBlue, pixel.alpha());
            }
        }
    }
    return seen;
}

// The box a component covers on the canvas at zoom 1.
QRect boxOf(const UIComponentBase* component)
{
    return QRect(component->x - component->width / 2, component->y - component->height / 2, component->width,
                 component->height);
}

const QColor Red(255, 0, 0);
const QColor Blue(0, 0, 255);
const QColor Clear(0, 0, 0, 0);

}

class TestTextShape : public QObject
{
    Q_OBJECT

    QString fonts;
    QFont hand;
    QJsonObject withMainFont;

private slots:
    void init()
    {
        TestEnvironment::quietDialogs();
    }

    // The project's fonts: a hand-drawn face as the main font, loaded from
    // the project's fonts folder as the editor loads it.
    void initTestCase()
    {
        fonts = TestEnvironment::newFolder(QStringLiteral("fonts"));
        QVERIFY(QFile::copy(QStringLiteral(":/resources/Fonts/Pangolin-Regular.ttf"), fonts + "/Hand.ttf"));
        QFile::setPermissions(fonts + "/Hand.ttf", QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        ProjectFonts::setFolderHook([this]() { return fonts; });
        BasicFontSelector::setFontLoader([](const QString& fileName, const QDir& folder) {
            const int id = QFontDatabase::addApplicationFont(folder.absoluteFilePath(fileName));
            return id < 0 ? QString() : QFontDatabase::applicationFontFamilies(id).value(0);
        });
        QVERIFY(QFile::copy(QStringLiteral(VELMORA_SAMPLE_PROJECT "/fonts/DejaVuSans.ttf"), fonts + "/Plain.ttf"));
        hand = QFont(BasicFontSelector::loadFamily(QStringLiteral("Hand.ttf"), QDir(fonts)));
        QVERIFY(!hand.family().isEmpty());
        withMainFont = QJsonObject{
            {"System.json", QJsonObject{{"advanced", QJsonObject{{"mainFontFilename", "Hand.ttf"}}}}}};
    }

    // The box is "MaxWidth", or the text's advance + 50, plus the outline;
    // the height the font's line height plus the outline.
    void textSizes_data()
    {
        QTest::addColumn<QJsonObject>("textData");
        QTest::addColumn<QString>("sample");
        QTest::addColumn<int>("pixelSize");
        QTest::addColumn<int>("outline");
        QTest::addColumn<int>("maxWidth");
        const QJsonObject dynamic{{"Type", 1}, {"ID", 4}};
        QTest::newRow("plain") << QJsonObject{{"Text", plain("Gold")}, {"FontSize", 24}, {"OutlineSize", 4}}
                               << "Gold" << 24 << 4 << -1;
        QTest::newRow("max width") << QJsonObject{{"Text", plain("Gold")}, {"FontSize", 24}, {"OutlineSize", 3},
                                                  {"MaxWidth", 120}}
                                   << "Gold" << 24 << 3 << 120;
        // No "Text" at all is a plain text without its string.
        QTest::newRow("no text at all") << QJsonObject{} << "[DYNAMIC]" << 30 << 0 << -1;
        // Values the game gives at run time preview with the load defaults.
        QTest::newRow("extension objects")
            << QJsonObject{{"Text", plain("Gold")}, {"FontSize", dynamic}, {"OutlineSize", dynamic},
                           {"MaxWidth", dynamic}, {"OutlineOpacity", dynamic}}
            << "Gold" << 30 << 0 << -1;
    }

    void textSizes()
    {
        QFETCH(QJsonObject, textData);
        QFETCH(QString, sample);
        QFETCH(int, pixelSize);
        QFETCH(int, outline);
        QFETCH(int, maxWidth);
        Editor editor;
        editor.projectData = withMainFont;
        QFont font = hand;
        font.setPixelSize(pixelSize);
        const QFontMetricsF metrics(font);
        auto* text = qobject_cast<UIComponentText*>(editor.load(textOf(textData)));
        QCOMPARE(text->displayText, sample);
        QCOMPARE(text->width, int((maxWidth < 0 ? metrics.horizontalAdvance(sample) + 50 : maxWidth) + outline));
        QCOMPARE(text->height, int(metrics.height() + outline));
    }

    // A dynamic text the game works out shows a sample in italics; a switch
    // text the game gives at run time shows the placeholder.
    void previewTexts()
    {
        Editor editor;
        const QJsonObject actorName{{"Type", 4}, {"ActorType", true}, {"ID", 1}, {"Info", 0}};
        auto* text = qobject_cast<UIComponentText*>(editor.load(textOf({{"Text", actorName}})));
        QCOMPARE(text->displayText, dynamicTextDisplay(actorName, nullptr));
        QVERIFY(text->font.italic() && !text->displayText.isEmpty());
        text = qobject_cast<UIComponentText*>(
            editor.load(textOf({{"Text", QJsonObject{{"Type", 2}, {"OffText", QJsonObject{{"Type", 0}, {"Param", "P"}}}}}})));
        QCOMPARE(text->displayText, QStringLiteral("[DYNAMIC]"));
        QVERIFY(!text->font.italic());
    }

    // Text in "Color" with "OutlineColor" around it; at half opacity the
    // outline is even, never darker where the sixteen copies overlap.
    void textAndOutlinePixels()
    {
        Editor editor;
        editor.projectData = withMainFont;
        QJsonObject data{{"Text", plain("HOH")}, {"FontSize", 60}, {"Color", "#ff0000"},
                         {"OutlineColor", "#0000ff"}, {"MaxWidth", 200}, {"OutlineSize", 8}};
        QImage image = editor.render(textOf(data), 10);
        Census seen = census(image, boxOf(editor.scene->components().value(0)));
        QVERIFY2(seen.red > 300, qPrintable(QString::number(seen.red)));
        QVERIFY2(seen.blue > 300, qPrintable(QString::number(seen.blue)));
        QVERIFY(seen.darkestBlue > 240);

        data.insert("OutlineOpacity", 50);
        image = editor.render(textOf(data), 10);
        seen = census(image, boxOf(editor.scene->components().value(0)));
        QVERIFY(seen.blue > 300);
        QVERIFY2(seen.darkestBlue <= 130 && seen.darkestBlue >= 120, qPrintable(QString::number(seen.darkestBlue)));
    }

    // A text wider than "MaxWidth" is squeezed into the box, not cut off:
    // the letter at its end still shows.
    void squeezedNotCut()
    {
        Editor editor;
        editor.projectData = withMainFont;
        const QJsonObject squeezed{{"Text", plain("          H")}, {"FontSize", 40}, {"Color", "#ff0000"},
                                   {"OutlineSize", 0}, {"MaxWidth", 10}};
        const QImage image = editor.render(textOf(squeezed), 10);
        UIComponentBase* text = editor.scene->components().value(0);
        const Census seen = census(image, boxOf(text));
        QVERIFY2(seen.red > 5, qPrintable(QString::number(seen.red)));
        QVERIFY(seen.firstRedX >= boxOf(text).center().x());
    }

    // A text made from the selector, its value typed in the dynamic text input.
    void newTextFromTheSelector()
    {
        Editor editor;
        editor.projectData = withMainFont;
        const QJsonObject expected{{"Text", plain("Gold:")}, {"FontFamily", ""},     {"FontSize", 24},
                                   {"OutlineSize", 4},       {"Alignment", 0},       {"MaxWidth", 200},
                                   {"Color", "#ffffff"},     {"OutlineColor", "#000000"}, {"OutlineOpacity", 50},
                                   {"Addons", QJsonArray()}, {"Note", ""}};
        QVERIFY(editor.createChecked(
            {press("text"), TestEnvironment::clicking("Text"), typing("Text", "Gold:"), press("confirmButton"),
             typing("FontSize", "24"), choosing("Alignment", 0), typing("OutlineOpacity", "50"), press("confirmButton")},
            "TextData", expected));
    }

    // The chosen font file goes into "FontFamily" and draws the text; back to
    // "(Default)", the key is empty and the main font draws it.
    void fontFamilyFromThePicker()
    {
        Editor editor;
        editor.projectData = withMainFont;
        editor.load(textOf({{"Text", plain("Gold")}, {"FontSize", 30}, {"OutlineSize", 0}}));
        // Rows: "(Default)", Hand.ttf, Plain.ttf.
        auto pick = [&editor](int row) {
            editor.editRow(0, {TestEnvironment::clicking("FontFamily"), TestEnvironment::Answer([row](TrovDialog* dialog) {
                                   UltimateTreeWidget* files = TestEnvironment::field<UltimateTreeWidget>(dialog, "fileList");
                                   QTRY_VERIFY(files->tree()->rowCount() > row);
                                   TestEnvironment::clickRow(files, row, true);
                               }),
                               press("confirmButton")});
            return qobject_cast<UIComponentText*>(editor.scene->components().value(0));
        };
        UIComponentText* text = pick(2);
        QCOMPARE(text->data().value("TextData").toObject().value("FontFamily").toString(), QStringLiteral("Plain.ttf"));
        QCOMPARE(text->font.family(), QStringLiteral("DejaVu Sans"));
        text = pick(0);
        QCOMPARE(text->data().value("TextData").toObject().value("FontFamily").toString(), QString());
        QCOMPARE(text->font.family(), hand.family());
    }

    // The outline lies inside the edge, as thick as "OutlineSize" times the
    // zoom, at its opacity; the fill takes the rest.
    void rectangleOutlineLiesInside()
    {
        Editor editor;
        QJsonObject data{{"Width", 40}, {"Height", 40}, {"Color", "#ff0000"}, {"OutlineColor", "#0000ff"},
                         {"OutlineSize", 5}};
        QImage image = editor.render(shapeOf(data), 20);
        // Box (160, 160) to (239, 239) at zoom 2: the outline is x 160 to 169.
        COMPARE_COLOR(image, 169, 200, Blue);
        COMPARE_COLOR(image, 170, 200, Red);
        COMPARE_COLOR(image, 239, 239, Blue);
        COMPARE_COLOR(image, 159, 200, Clear);

        // At half opacity the outline is half covering; the fill stays whole.
        data.insert("OutlineOpacity", 50);
        image = editor.render(shapeOf(data), 10);
        COMPARE_COLOR(image, 82, 100, QColor(0, 0, 255, 128));
        COMPARE_COLOR(image, 100, 100, Red);
    }

    // The edge cases: "Shape" 2 draws nothing and can still be selected; an
    // outline size the game gives at run time previews as none; the
    // component's own opacity dims both layers.
    void shapeEdgeCases()
    {
        Editor editor;
        QImage image = editor.render(shapeOf({{"Width", 60}, {"Height", 60}, {"Shape", 2}, {"OutlineSize", 5}}), 10);
        COMPARE_COLOR(image, 100, 100, Clear);
        COMPARE_COLOR(image, 71, 71, Clear);
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
    }

    // A shape made from the selector and edited in its dialog gets the keys
    // of its kind, with the dialog's defaults for what the user left alone.
    void newShapeFromTheSelector()
    {
        Editor editor;
        const QJsonObject expected{{"Width", 60},          {"Height", 100},          {"Shape", 1},
                                   {"OutlineSize", 6},     {"Color", "#ffffff"},     {"OutlineColor", "#000000"},
                                   {"OutlineOpacity", 40}, {"Addons", QJsonArray()}, {"Note", ""}};
        QVERIFY(editor.createChecked({press("shape"), typing("Width", "60"), choosing("Shape_Type", 1),
                                      typing("OutlineSize", "6"), typing("OutlineOpacity", "40"),
                                      press("confirmButton")},
                                     "ShapeData", expected));
    }

    // Keys the dialog doesn't show are dropped, but the add-ons and their
    // note pass through; a "Shape" value past the list stays unless chosen.
    void shapeDialogKeepsAddonsAndDropsTheRest()
    {
        Editor editor;
        const QJsonArray addons{QJsonObject{{"Type", 0}, {"Note", "A"}}};
        editor.load(shapeOf({{"Width", 40}, {"Height", 40}, {"Shape", 2}, {"Addons", addons}, {"Note", "A"},
                             {"Future", "dropped"}}));
        editor.editRow(0, {press("confirmButton")});
        const QJsonObject data = editor.scene->components().at(0)->data().value("ShapeData").toObject();
        QCOMPARE(data.value("Addons"), QJsonValue(addons));
        QCOMPARE(data.value("Note").toString(), QStringLiteral("A"));
        QCOMPARE(data.value("Shape").toInt(), 2);
        QVERIFY(!data.contains("Future"));
    }
};

VELMORA_TEST_MAIN(TestTextShape, QApplication)
#include "tst_textshape.moc"
