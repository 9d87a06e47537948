#include "TestEnvironment.h"

#include "components/ComponentImages.h"
#include "components/ProjectImages.h"
#include "components/UIComponentActorFace.h"
#include "components/UIComponentIcon.h"
#include "components/UIComponentRepeat.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"

#include <QApplication>
#include <QPainter>

using TestEnvironment::clicking;
using TestEnvironment::press;
using TestEnvironment::typing;

namespace {

// A colour of its own for every cell of a sheet, far enough apart that no
// two cells are mistaken for each other.
QColor cellColor(int cell)
{
    return QColor::fromHsv((cell * 23) % 360, 200 + (cell % 3) * 20, 255 - (cell % 5) * 30);
}

// A sheet of columns x rows cells of side pixels, each cell filled with its colour.
QImage sheet(int columns, int rows, int side)
{
    QImage image(columns * side, rows * side, QImage::Format_ARGB32);
    QPainter painter(&image);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            painter.fillRect(column * side, row * side, side, side, cellColor(row * columns + column));
    return image;
}

QColor at(const QImage& image, int x, int y)
{
    return TestEnvironment::pixel(image, x, y);
}

QColor at(const QPixmap& pixmap, int x, int y)
{
    return at(pixmap.toImage().convertToFormat(QImage::Format_ARGB32), x, y);
}

QString describe(const QColor& color)
{
    return QStringLiteral("%1 alpha %2").arg(color.name()).arg(color.alpha());
}

#define COMPARE_SHADE(actual, expected)                                                                           \
    QVERIFY2(TestEnvironment::nearColor(actual, expected, 2),                                                     \
             qPrintable(QStringLiteral("%1, not %2").arg(describe(actual), describe(expected))))

// The translucent black block of a graphic that isn't there.
const QColor Unavailable(0, 0, 0, 90);
const QColor Clear(0, 0, 0, 0);
const QColor Red(255, 0, 0);
const QColor Blue(0, 0, 255);

using Editor = TestEnvironment::Workbench;

QJsonObject component(int type, const char* dataKey, const QJsonObject& data, int x = 200, int y = 150)
{
    return QJsonObject{{"ID", 1}, {"Type", type}, {"Name", "Item"}, {"X", x}, {"Y", y}, {dataKey, data}};
}

QJsonObject picture(const QString& name) { return component(2, "PictureData", {{"Picture", name}}); }
QJsonObject repeat(const QJsonObject& data) { return component(3, "RepeatData", data); }
QJsonObject face(const QJsonObject& actorId) { return component(8, "ActorFaceData", {{"ActorID", actorId}}); }
QJsonObject icon(const QJsonObject& data) { return component(9, "IconData", data); }
QJsonObject number(int value) { return QJsonObject{{"Type", 0}, {"Number", value}}; }

// A database of actors, indexed by id as the game's file is.
QJsonObject actors(const QJsonArray& list)
{
    QJsonArray indexed{QJsonValue()};
    for (const QJsonValue& actor : list)
        indexed.append(actor);
    return QJsonObject{{"Actors.json", indexed}};
}

QJsonObject actor(const QString& faceName, int faceIndex)
{
    return QJsonObject{{"name", "Hero"}, {"faceName", faceName}, {"faceIndex", faceIndex}};
}

TestEnvironment::Answer choosingImage(const QString& name) { return TestEnvironment::pickingRow("fileList", name); }

// The add-on keys of a component that has none.
QJsonObject withoutAddons(QJsonObject data)
{
    data.insert("Addons", QJsonArray());
    data.insert("Note", "");
    return data;
}

const QString PictureCode = QStringLiteral("return \"img/pictures/MyPicture.png\";");

}

class TestPictures : public QObject
{
    Q_OBJECT

    QString project;

    QString file(const QString& folder, const QString& name) const
    {
        return project + "/img/" + folder + "/" + name + ".png";
    }

private slots:
    // The test's own images: a face sheet and an icon set with a colour per
    // cell, a 10 by 8 tile with a red corner on blue, a plain 50 by 30
    // picture, a sheet named as the default face, and a truncated file.
    void initTestCase()
    {
        project = TestEnvironment::newFolder(QStringLiteral("pictures"));
        for (const char* folder : {"pictures", "faces", "system"})
            QVERIFY(QDir().mkpath(project + "/img/" + folder));
        QVERIFY(sheet(4, 2, 144).save(file("faces", "Faces")));
        QImage actor1(576, 288, QImage::Format_ARGB32);
        actor1.fill(Qt::green);
        QVERIFY(actor1.save(file("faces", "Actor1")));
        QVERIFY(sheet(16, 2, 32).save(file("system", "Icons")));
        QImage tile(10, 8, QImage::Format_ARGB32);
        tile.fill(Blue);
        tile.setPixel(0, 0, Red.rgba());
        QVERIFY(tile.save(file("pictures", "Tile")));
        QImage plain(50, 30, QImage::Format_ARGB32);
        plain.fill(Qt::yellow);
        QVERIFY(plain.save(file("pictures", "Plain")));
        QFile whole(file("pictures", "Plain"));
        QVERIFY(whole.open(QIODevice::ReadOnly));
        TestEnvironment::writeFile(file("pictures", "Cut"), whole.read(60));
        ProjectImages::setPathHook([this](int kind, const QString& name) {
            return project + QLatin1Char('/') + ProjectImages::relativeFolder(kind) + QLatin1Char('/') + name
                + QStringLiteral(".png");
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

    // The face is the cell "faceIndex" names, four to a row; a cell past the
    // sheet is empty, an actor named at run time is the first, one past the
    // database the default sheet, a missing sheet the translucent block.
    void facesFromTheirCellOrTheBlock()
    {
        Editor editor;
        editor.projectData = actors({actor("Faces", 5), actor("Faces", 9)});
        auto* shown = qobject_cast<UIComponentActorFace*>(editor.load(face({{"Type", 0}, {"ID", 1}})));
        QCOMPARE(QSize(shown->width, shown->height), QSize(144, 144));
        COMPARE_SHADE(at(shown->pixmap, 143, 143), cellColor(5));
        shown = qobject_cast<UIComponentActorFace*>(editor.load(face({{"Type", 0}, {"ID", 2}})));
        COMPARE_SHADE(at(shown->pixmap, 72, 72), Clear);

        shown = qobject_cast<UIComponentActorFace*>(editor.load(face({{"Type", 1}, {"Index", 2}})));
        COMPARE_SHADE(at(shown->pixmap, 72, 72), cellColor(5));
        shown = qobject_cast<UIComponentActorFace*>(editor.load(face({{"Type", 0}, {"ID", 40}})));
        COMPARE_SHADE(at(shown->pixmap, 72, 72), QColor(Qt::green));

        editor.projectData = actors({actor("Nowhere", 0)});
        const QImage image = editor.render(face({{"Type", 0}, {"ID", 1}}));
        // Centred on (200, 150): the block covers 128 to 271 by 78 to 221.
        COMPARE_SHADE(at(image, 271, 221), Unavailable);
        COMPARE_SHADE(at(image, 272, 150), Clear);
    }

    // Sixteen icons to a row; an index the game works out shows icon 1; one
    // past the set shows nothing.
    void iconComesFromItsCell_data()
    {
        QTest::addColumn<QJsonObject>("data");
        QTest::addColumn<int>("cell");
        QTest::newRow("17") << QJsonObject{{"IconIndex", number(17)}, {"IconSet", "Icons"}} << 17;
        QTest::newRow("dynamic index") << QJsonObject{{"IconIndex", QJsonObject{{"Type", 3}, {"ID", 5}}},
                                                      {"IconSet", "Icons"}}
                                       << 1;
        QTest::newRow("past the set") << QJsonObject{{"IconIndex", number(40)}, {"IconSet", "Icons"}} << -1;
    }

    void iconComesFromItsCell()
    {
        QFETCH(QJsonObject, data);
        QFETCH(int, cell);
        Editor editor;
        auto* shown = qobject_cast<UIComponentIcon*>(editor.load(icon(data)));
        QCOMPARE(shown->pixmap.size(), QSize(32, 32));
        const QColor expected = cell < 0 ? Clear : cellColor(cell);
        COMPARE_SHADE(at(shown->pixmap, 0, 0), expected);
        COMPARE_SHADE(at(shown->pixmap, 31, 31), expected);
    }

    // The picture at its own size, and as the block, 64 square, for one that
    // is missing or cut short, which is noted as missing.
    void pictureOrTheBlock_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("found");
        QTest::newRow("plain") << "Plain" << true;
        QTest::newRow("truncated") << "Cut" << false;
        QTest::newRow("no name") << "" << false;
    }

    void pictureOrTheBlock()
    {
        QFETCH(QString, name);
        QFETCH(bool, found);
        Editor editor;
        ProjectImages::clearMissing();
        const QImage image = editor.render(picture(name));
        UIComponentBase* shown = editor.scene->components().value(0);
        QCOMPARE(QSize(shown->width, shown->height), found ? QSize(50, 30) : QSize(64, 64));
        const QRect box(200 - shown->width / 2, 150 - shown->height / 2, shown->width, shown->height);
        COMPARE_SHADE(at(image, box.right(), box.bottom()), found ? QColor(Qt::yellow) : Unavailable);
        COMPARE_SHADE(at(image, box.right() + 1, box.center().y()), Clear);
        // An empty name refers to nothing, so nothing is missing.
        QCOMPARE(ProjectImages::missing().contains("img/pictures/" + name), !found && !name.isEmpty());
    }

    // The size is the picture's own size times the scales, up to five times
    // it (what the scales write is checked with the scale kinds).
    void scalesAgainstTheNaturalSize()
    {
        Editor editor;
        QJsonObject scaled = picture("Plain");
        scaled.insert("ScaleX", 2.5);
        scaled.insert("ScaleY", 0.55);
        UIComponentBase* shown = editor.load(scaled);
        QCOMPARE(QSize(shown->width, shown->height), QSize(125, 16));
        QCOMPARE(shown->maximumWidth(), 250);
    }

    // Where the red corner of each 10 by 8 tile lands in a 35 by 20 box.
    void repeatTilesTheRightNumberOfTimes_data()
    {
        QTest::addColumn<QJsonValue>("offsetX");
        QTest::addColumn<QJsonValue>("offsetY");
        QTest::addColumn<QList<int>>("columns");
        QTest::addColumn<QList<int>>("rows");
        // A positive offset moves the pattern left and up: x0 = -3, y0 = -2.
        QTest::newRow("positive") << QJsonValue(3) << QJsonValue(2) << QList<int>{7, 17, 27} << QList<int>{6, 14};
        // A negative one right and down: x0 = -(10 - 3) = -7, y0 = -(8 - 5) = -3.
        QTest::newRow("negative") << QJsonValue(-3) << QJsonValue(-5) << QList<int>{3, 13, 23, 33}
                                  << QList<int>{5, 13};
        QTest::newRow("extended") << QJsonValue(QJsonObject{{"Type", 2}, {"Code", "return 4;"}}) << QJsonValue(0)
                                  << QList<int>{0, 10, 20, 30} << QList<int>{0, 8, 16};
    }

    void repeatTilesTheRightNumberOfTimes()
    {
        QFETCH(QJsonValue, offsetX);
        QFETCH(QJsonValue, offsetY);
        QFETCH(QList<int>, columns);
        QFETCH(QList<int>, rows);
        Editor editor;
        auto* shown = qobject_cast<UIComponentRepeat*>(editor.load(
            repeat({{"Picture", "Tile"}, {"Width", 35}, {"Height", 20}, {"OffsetX", offsetX}, {"OffsetY", offsetY}})));
        const QImage pattern = shown->pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(pattern.size(), QSize(35, 20));
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 35; ++x) {
                const bool corner = columns.contains(x) && rows.contains(y);
                if (!TestEnvironment::nearColor(at(pattern, x, y), corner ? Red : Blue, 2))
                    QFAIL(qPrintable(QStringLiteral("pixel %1,%2 is %3").arg(x).arg(y).arg(describe(at(pattern, x, y)))));
            }
        }
    }

    // A resize on the canvas tiles the new size at once and writes it back.
    void repeatFollowsItsSize()
    {
        Editor editor;
        auto* shown = qobject_cast<UIComponentRepeat*>(
            editor.load(repeat({{"Picture", "Tile"}, {"Width", 35}, {"Height", 20}})));
        shown->setWidth(45);
        shown->setHeight(9);
        shown->resized();
        COMPARE_SHADE(at(shown->pixmap, 40, 8), Red);
        const QJsonObject data = shown->data().value("RepeatData").toObject();
        QCOMPARE(QSize(data.value("Width").toInt(), data.value("Height").toInt()), QSize(45, 9));
    }

    // Sizes from a document far beyond what the dialogs take keep the
    // component's size but not a picture of it.
    void hugeSizesStayBounded()
    {
        Editor editor;
        auto* tiled = qobject_cast<UIComponentRepeat*>(
            editor.load(repeat({{"Picture", "Tile"}, {"Width", 99999}, {"Height", 99999}})));
        QCOMPARE(QSize(tiled->width, tiled->height), QSize(99999, 99999));
        QVERIFY(!tiled->pixmap.isNull());
        QVERIFY(tiled->pixmap.width() <= 5000 && tiled->pixmap.height() <= 5000);

        editor.projectData = actors({QJsonObject{{"faceName", "Faces"}, {"faceIndex", 2147483647}}});
        auto* far = qobject_cast<UIComponentActorFace*>(editor.load(face({{"Type", 0}, {"ID", 1}})));
        COMPARE_SHADE(at(far->pixmap, 72, 72), Clear);
    }

    // What a face and a repeating picture with code name for the
    // missing-image report (the other kinds are in the command line's check).
    void imageReferencesOfEveryKind()
    {
        const QJsonObject database = actors({actor("Faces", 2)});
        auto files = [&database](const QJsonObject& component) {
            QStringList names;
            for (const ComponentImages::Reference& reference : ComponentImages::of(component, &database))
                names << reference.file();
            return names;
        };
        QCOMPARE(files(repeat({{"Picture", "Clouds"}, {"Code", "return 'x';"}})), QStringList{"img/pictures/Clouds.png"});
        QCOMPARE(files(face({{"Type", 0}, {"ID", 1}})), QStringList{"img/faces/Faces.png"});
    }

    // A picture made from the selector in code mode gets the default code,
    // which goes when it is switched back.
    void newPictureFromTheSelector()
    {
        Editor editor;
        UIComponentBase* made = editor.createChecked({press("picture"), clicking("picture"), choosingImage("Plain"),
                                                      clicking("PictureType"), press("confirmButton")},
                                                     "PictureData", withoutAddons({{"Picture", "Plain"}, {"Code", PictureCode}}));
        QVERIFY(made);
        QCOMPARE(QSize(made->width, made->height), QSize(50, 30));
        editor.editRow(0, {clicking("PictureType"), press("confirmButton")});
        QCOMPARE(editor.scene->components().at(0)->data().value("PictureData").toObject(),
                 withoutAddons({{"Picture", "Plain"}}));
    }

    // A repeating picture takes the size of the first picture chosen; a later
    // choice keeps it.
    void newRepeatTakesItsFirstPicturesSize()
    {
        Editor editor;
        QVERIFY(editor.createChecked(
            {press("repeatingPicture"), clicking("picture"), choosingImage("Plain"), clicking("picture"),
             choosingImage("Tile"), typing("X_Offset", "4"), press("confirmButton")},
            "RepeatData", withoutAddons({{"Picture", "Tile"}, {"Width", 50}, {"Height", 30}, {"OffsetX", 4}, {"OffsetY", 0}})));
        editor.editRow(0, {clicking("picture"), choosingImage("Plain"), typing("Width", "70"), press("confirmButton")});
        const QJsonObject changed = editor.scene->components().at(0)->data().value("RepeatData").toObject();
        QCOMPARE(changed.value("Picture").toString(), QStringLiteral("Plain"));
        QCOMPARE(QSize(changed.value("Width").toInt(), changed.value("Height").toInt()), QSize(70, 30));
    }

    // An actor face made from the selector names the first database actor
    // until the actor input is confirmed with another.
    void newActorFaceFromTheSelector()
    {
        Editor editor;
        editor.projectData = actors({actor("Faces", 1), actor("Faces", 4)});
        auto* made = qobject_cast<UIComponentActorFace*>(editor.createChecked(
            {press("actorFace"), clicking("ActorID"), press("confirmButton"), press("confirmButton")},
            "ActorFaceData", withoutAddons({{"ActorID", QJsonObject{{"Type", 0}, {"ID", 1}}}})));
        QVERIFY(made);
        COMPARE_SHADE(at(made->pixmap, 72, 72), cellColor(1));
    }

    // An icon made from the selector; cells of 24 on a 32-pixel set are cut
    // at multiples of 24.
    void newIconFromTheSelector()
    {
        Editor editor;
        auto* made = qobject_cast<UIComponentIcon*>(editor.createChecked(
            {press("icon"), clicking("IconIndex"), typing("Number", "17"), press("confirmButton"),
             typing("IconSize", "24"), clicking("iconSet"), choosingImage("Icons"), press("confirmButton")},
            "IconData", withoutAddons({{"IconIndex", number(17)}, {"IconSize", 24}, {"IconSet", "Icons"}})));
        QVERIFY(made);
        QCOMPARE(QSize(made->width, made->height), QSize(24, 24));
        // Cell 17 at 24 pixels: x 24 to 47 of row 1 (y 24 to 47), the end of
        // icon 16 and the start of icon 17.
        COMPARE_SHADE(at(made->pixmap, 0, 12), cellColor(16));
        COMPARE_SHADE(at(made->pixmap, 20, 12), cellColor(17));

        // The set from code: the default code is written beside the set.
        editor.editRow(0, {clicking("IconSetType"), press("confirmButton")});
        QCOMPARE(editor.scene->components().at(0)->data().value("IconData").toObject().value("Code").toString(),
                 QStringLiteral("return \"img/system/IconSet.png\";"));
    }
};

VELMORA_TEST_MAIN(TestPictures, QApplication)
#include "tst_pictures.moc"
