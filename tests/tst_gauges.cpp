#include "TestEnvironment.h"

#include "components/ProjectImages.h"
#include "components/UIComponentGauge.h"
#include "logic/DynamicValueSelector.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"
#include "widgets/MyLineEdit.h"
#include "widgets/TrovDialog.h"

#include <QApplication>
#include <QPainter>

using TestEnvironment::clicking;
using TestEnvironment::press;
using TestEnvironment::typing;

namespace {

using Editor = TestEnvironment::Workbench;

QJsonObject gaugeOf(const QJsonObject& gaugeData, int x = 100, int y = 100)
{
    return QJsonObject{{"ID", 1}, {"Type", 4}, {"Name", "Bar"}, {"X", x}, {"Y", y}, {"GaugeData", gaugeData}};
}

QJsonObject pictureGaugeOf(const QJsonObject& data, int x = 200, int y = 100)
{
    return QJsonObject{{"ID", 1}, {"Type", 5}, {"Name", "Skin Bar"}, {"X", x}, {"Y", y}, {"PictureGaugeData", data}};
}

QJsonObject plainNumber(double number)
{
    return QJsonObject{{"Type", 0}, {"Number", number}};
}

// Actor Data of the first party member: 3 is its HP, 8 its maximum HP.
QJsonObject firstMember(int info)
{
    return QJsonObject{{"Type", 4}, {"ActorType", false}, {"Index", 1}, {"Info", info}};
}

// Compared as compact text, so that a failure shows both objects.
#define COMPARE_JSON(actual, expected) QCOMPARE(TestEnvironment::compact(actual), TestEnvironment::compact(expected))

const QColor Red(255, 0, 0);
const QColor Green(0, 255, 0);
const QColor Blue(0, 0, 255);
const QColor Magenta(255, 0, 255);
const QColor Yellow(255, 255, 0);
const QColor Clear(0, 0, 0, 0);
// What stands in for a skin that can't be shown.
const QColor Unavailable(0, 0, 0, 90);

// The gradient from red at the inside's left edge to blue at its right,
// at the centre of pixel column x of an inside from left, width wide.
QColor gradientAt(int x, int left, int width)
{
    const double t = (x + 0.5 - left) / width;
    return QColor(qRound(255 * (1 - t)), 0, qRound(255 * t));
}

// A skin of 30 by 24, three bands of 8 rows, made for an edge margin of 5:
// the top band has only a red left cap; the middle band a green left cap
// and a middle green in its left half, magenta in its right; the bottom
// band is blue with a yellow last row. Everything else is transparent.
QImage testSkin()
{
    QImage skin(30, 24, QImage::Format_ARGB32);
    skin.fill(Qt::transparent);
    QPainter painter(&skin);
    painter.fillRect(0, 0, 5, 8, Red);
    painter.fillRect(0, 8, 5, 8, Green);
    painter.fillRect(5, 8, 10, 8, Green);
    painter.fillRect(15, 8, 10, 8, Magenta);
    painter.fillRect(0, 16, 30, 7, Blue);
    painter.fillRect(0, 23, 30, 1, Yellow);
    return skin;
}

QByteArray pngOf(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// In the number input: the plain number page, with number typed.
TestEnvironment::Answer plainNumberTyped(const QString& number)
{
    return [number](TrovDialog* dialog) {
        auto* selector = qobject_cast<DynamicValueSelector*>(dialog);
        QVERIFY(selector);
        TestEnvironment::clickTab(selector, 0);
        TestEnvironment::retype(TestEnvironment::field<MyLineEdit>(dialog, "Number"), number);
        press("confirmButton")(dialog);
    };
}

}

class TestGauges : public QObject
{
    Q_OBJECT

    // A project folder of the test's own, whose system images the picture
    // gauges draw.
    QString project;

    QString systemFile(const QString& name) const { return project + "/img/system/" + name + ".png"; }

private slots:
    void initTestCase()
    {
        project = TestEnvironment::newFolder(QStringLiteral("project"));
        QVERIFY(QDir().mkpath(project + "/img/system"));
        QVERIFY(testSkin().save(systemFile("Bands")));
        const QString folder = project;
        ProjectImages::setPathHook([folder](int kind, const QString& name) {
            return QStringLiteral("%1/%2/%3.png").arg(folder, ProjectImages::relativeFolder(kind), name);
        });
    }

    void cleanupTestCase()
    {
        ProjectImages::setPathHook(nullptr);
    }

    void init()
    {
        TestEnvironment::quietDialogs();
    }

    // The editor never evaluates the value: the bar shows full, red at its
    // left end to blue at its right.
    void gaugeShowsFullWhateverTheValue()
    {
        Editor editor;
        const QImage image = editor.render(
            gaugeOf({{"Width", 100}, {"Height", 20}, {"OutlineSize", 0}, {"Color1", "#ff0000"}, {"Color2", "#0000ff"},
                     {"BackgroundColor", "#00ff00"}, {"Value", plainNumber(0)}, {"Maximum", plainNumber(100)}}),
            10);
        // The bar runs from (50, 90) to (149, 109).
        COMPARE_COLOR(image, 50, 90, gradientAt(50, 50, 100));
        COMPARE_COLOR(image, 149, 109, gradientAt(149, 50, 100));
        COMPARE_COLOR(image, 150, 100, Clear);
    }

    // The outline lies inside the bar, its size times the zoom; a rounded
    // bar ("Shape" other than 0) keeps half of it.
    void gaugeOutline_data()
    {
        QTest::addColumn<QJsonObject>("extra");
        QTest::addColumn<int>("thickness"); // in canvas pixels at zoom 2
        QTest::newRow("square") << QJsonObject{{"OutlineSize", 3}} << 6;
        QTest::newRow("rounded") << QJsonObject{{"OutlineSize", 4}, {"Shape", 2}} << 4;
        // A size the game gives at run time previews as none.
        QTest::newRow("dynamic") << QJsonObject{{"OutlineSize", QJsonObject{{"Type", 1}, {"ID", 4}}}} << 0;
    }

    void gaugeOutline()
    {
        QFETCH(QJsonObject, extra);
        QFETCH(int, thickness);
        QJsonObject data{{"Width", 40}, {"Height", 20}, {"Color1", "#ff0000"}, {"Color2", "#ff0000"},
                         {"OutlineColor", "#0000ff"}};
        for (auto key = extra.begin(); key != extra.end(); ++key)
            data.insert(key.key(), key.value());
        Editor editor;
        const QImage image = editor.render(gaugeOf(data), 20);
        // Box (160, 180) to (239, 219) at zoom 2.
        if (thickness > 0)
            COMPARE_COLOR(image, 160 + thickness - 1, 200, Blue);
        COMPARE_COLOR(image, 160 + thickness, 200, Red);
        COMPARE_COLOR(image, 159, 200, Clear);
    }

    // A gauge from before the background colour existed draws white behind
    // a translucent fill; once confirmed in its dialog it takes the grey.
    void oldGaugeWithoutBackground()
    {
        Editor editor;
        const QJsonObject old = gaugeOf({{"Width", 40}, {"Height", 20}, {"OutlineSize", 2}, {"Color1", "#00000000"},
                                         {"Color2", "#00000000"}, {"OutlineColor", "#0000ff"}});
        COMPARE_COLOR(editor.render(old, 10), 100, 100, QColor(255, 255, 255));
        editor.editRow(0, {press("confirmButton")});
        auto* gauge = qobject_cast<UIComponentGauge*>(editor.scene->components().value(0));
        QCOMPARE(gauge->data().value("GaugeData").toObject().value("BackgroundColor"), QJsonValue("#333333"));
        QCOMPARE(gauge->backgroundColor, QColor("#333333"));
    }

    // A missing side reads as 100; a resize, kept within 10 and 5000, is
    // written beside every key the gauge came with.
    void gaugeSizeAndLimits()
    {
        Editor editor;
        const QJsonObject data{{"Color1", "#102030"}, {"Shape", 1}, {"Future", "kept"}};
        UIComponentBase* gauge = editor.load(gaugeOf(data));
        QCOMPARE(QSize(gauge->width, gauge->height), QSize(100, 100));
        gauge->resizeTo(4, 20000, false, 0);
        QJsonObject expected = data;
        expected.insert("Width", 10);
        expected.insert("Height", 5000);
        COMPARE_JSON(gauge->data().value("GaugeData").toObject(), expected);
    }

    // Each band's caps keep their width and its middle stretches to the
    // bar's; the bottom band lies behind, the top band in front. The bar is
    // a band's height, whatever the document says; at zoom 2 all doubles.
    void pictureGaugeFromItsSkin()
    {
        Editor editor;
        const QImage image = editor.render(
            pictureGaugeOf({{"GaugeSkin", "Bands"}, {"Width", 100}, {"Height", 50}, {"EdgeMargin", 5}}), 20);
        UIComponentBase* gauge = editor.scene->components().value(0);
        QCOMPARE(QSize(gauge->width, gauge->height), QSize(100, 8));
        // Box (150, 96) to (249, 103) at zoom 1; each probe is the middle of
        // the bar pixel it names.
        auto probe = [&image](int x, int y, const QColor& colour) { COMPARE_COLOR(image, 2 * x + 1, 2 * y + 1, colour); };
        // Left cap: the top band's red before the others.
        probe(154, 96, Red);
        // Middle: 20 skin pixels over 90 bar pixels, the middle band's
        // green then magenta before the bottom band's blue.
        probe(198, 103, Green);
        probe(201, 100, Magenta);
        // Right cap: only the bottom band has one, with its last row yellow.
        probe(245, 96, Blue);
        probe(249, 103, Yellow);
        probe(250, 100, Clear);
    }

    // Widened on the canvas, the caps stay 5 wide at both ends; the height
    // can't be changed by a handle, and the least width is two edge margins,
    // 15 each for a margin the game gives at run time.
    void pictureGaugeResized()
    {
        Editor editor;
        UIComponentBase* gauge =
            editor.load(pictureGaugeOf({{"GaugeSkin", "Bands"}, {"Width", 100}, {"EdgeMargin", 5}}, 200, 100));
        gauge->resizeTo(160, 40, false, 0);
        QCOMPARE(QSize(gauge->width, gauge->height), QSize(160, 8));
        const QImage image = editor.render();
        // Box (120, 96) to (279, 103).
        COMPARE_COLOR(image, 274, 100, Magenta);
        COMPARE_COLOR(image, 275, 100, Blue);
        QCOMPARE(gauge->data().value("PictureGaugeData").toObject().value("Width").toInt(), 160);
        gauge->resizeTo(4, 8, false, 0);
        QCOMPARE(gauge->width, 10);
        gauge = editor.load(pictureGaugeOf({{"GaugeSkin", "Bands"}, {"EdgeMargin", QJsonObject{{"Type", 1}, {"ID", 2}}}}));
        gauge->resizeTo(4, 8, false, 0);
        QCOMPARE(gauge->width, 30);
    }

    // A skin that can't be shown leaves a bar 24 high, of the translucent
    // black block across its whole width; nothing fails.
    void pictureGaugeWithoutUsableSkin_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes"); // written as the skin's file unless null
        QTest::addColumn<bool>("unreadable"); // listed among the images that couldn't be read
        const QByteArray png = pngOf(testSkin());
        QTest::newRow("missing") << QStringLiteral("Nowhere") << QByteArray() << true;
        QTest::newRow("truncated") << QStringLiteral("Truncated") << png.left(png.size() / 2) << true;
        QImage flat(30, 2, QImage::Format_ARGB32);
        flat.fill(Qt::red);
        QTest::newRow("lower than three rows") << QStringLiteral("Flat") << pngOf(flat) << false;
    }

    void pictureGaugeWithoutUsableSkin()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(bool, unreadable);
        if (!bytes.isNull())
            TestEnvironment::writeFile(systemFile(name), bytes);
        Editor editor;
        const QImage image = editor.render(pictureGaugeOf({{"GaugeSkin", name}, {"Width", 60}, {"Height", 40}}));
        UIComponentBase* gauge = editor.scene->components().value(0);
        QCOMPARE(QSize(gauge->width, gauge->height), QSize(60, 24));
        QCOMPARE(gauge->maximumHeight(), 24);
        // Box (170, 88) to (229, 111).
        COMPARE_COLOR(image, 229, 111, Unavailable);
        COMPARE_COLOR(image, 200, 112, Clear);
        QCOMPARE(ProjectImages::missing().contains("img/system/" + name), unreadable);
    }

    // A gauge made from the selector, drawn as confirmed.
    void newGaugeFromTheSelector()
    {
        Editor editor;
        const QJsonObject expected{
            {"Width", 180},          {"Height", 16},           {"OutlineSize", 2},        {"Smoothness", 45},
            {"SyncComponent", "HP Text"}, {"Color1", "#a87532"}, {"Color2", "#a83232"}, {"BackgroundColor", "#333333"},
            {"OutlineColor", "#000000"}, {"OutlineOpacity", 100}, {"Value", firstMember(3)},
            {"Maximum", plainNumber(250)}, {"Addons", QJsonArray()}, {"Note", ""}};
        QVERIFY(editor.createChecked(
            {press("gauge"), typing("Width", "180"), typing("Height", "16"), typing("OutlineSize", "2"),
             typing("ChangeDuration", "45"), typing("SyncTextComponent", "HP Text"), clicking("Gauge_Maximum"),
             plainNumberTyped("250"), press("confirmButton")},
            "GaugeData", expected));
        // The default colours inside a 2-pixel black outline; box (210, 192) to (389, 207).
        const QImage image = editor.render();
        COMPARE_COLOR(image, 211, 200, QColor(0, 0, 0));
        COMPARE_COLOR(image, 212, 200, QColor(0xa8, 0x75, 0x32));
    }

    // A picture gauge is a third of its skin high and at least two edge
    // margins wide.
    void newPictureGaugeFromTheSelector()
    {
        Editor editor;
        const QJsonObject expected{{"GaugeSkin", "Bands"},      {"Width", 120},
                                   {"Height", 8},               {"EdgeMargin", 60},
                                   {"Value", plainNumber(7)},   {"Maximum", firstMember(8)},
                                   {"Smoothness", 20},          {"SyncComponent", ""},
                                   {"Addons", QJsonArray()},    {"Note", ""}};
        QVERIFY(editor.createChecked(
            {press("pictureGauge"), clicking("gaugeSkin"), TestEnvironment::pickingRow("fileList", "Bands"),
             typing("Edge_Margin", "60"), typing("Width", "50"), clicking("Gauge_Value"), plainNumberTyped("7"),
             press("confirmButton")},
            "PictureGaugeData", expected));
    }
};

VELMORA_TEST_MAIN(TestGauges, QApplication)
#include "tst_gauges.moc"
