#include "TestEnvironment.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRawFont>
#include <QRegularExpression>

#include <cmath>

namespace {

// Relative luminance and contrast ratio as WCAG defines them.
double luminance(QRgb colour)
{
    auto channel = [](int value) {
        const double c = value / 255.0;
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(qRed(colour)) + 0.7152 * channel(qGreen(colour)) + 0.0722 * channel(qBlue(colour));
}

double contrast(QRgb a, QRgb b)
{
    const double la = luminance(a), lb = luminance(b);
    return (qMax(la, lb) + 0.05) / (qMin(la, lb) + 0.05);
}

// Share of the icon's pixels that, laid over the background, stand out from
// it by at least the contrast the guide asks of icons.
double visibleShare(const QImage& icon, QRgb background)
{
    QImage over(icon.size(), QImage::Format_RGB32);
    over.fill(background);
    QPainter painter(&over);
    painter.drawImage(0, 0, icon);
    painter.end();
    int visible = 0;
    for (int y = 0; y < over.height(); ++y)
        for (int x = 0; x < over.width(); ++x)
            visible += contrast(over.pixel(x, y), background) >= 3.0;
    return double(visible) / (over.width() * over.height());
}

}

class ResourcesTest : public QObject
{
    Q_OBJECT
private slots:
    void everyNamedResourceIsCompiledIn();
    void menuBarIcons_data();
    void menuBarIcons();
    void canvasTile();
    void titleFontLoads();
};

// Every compiled-in path the program names, as ":/..." or as the
// "resources/..." path it resolves below ":/", is there at run time.
void ResourcesTest::everyNamedResourceIsCompiledIn()
{
    const QRegularExpression literal(QStringLiteral("\"(:/[^\"%]+|resources/[^\"%]+\\.\\w+)\""));
    QStringList named;
    for (const char* folder : {"app", "scene", "components", "logic", "widgets", "theme"}) {
        QDirIterator files(QStringLiteral(VELMORA_SOURCE_ROOT "/") + QLatin1String(folder),
                           {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            auto matches = literal.globalMatch(QString::fromUtf8(file.readAll()));
            while (matches.hasNext()) {
                QString resource = matches.next().captured(1);
                if (!resource.startsWith(QLatin1Char(':')))
                    resource.prepend(QStringLiteral(":/"));
                QVERIFY2(QFileInfo(resource).isFile(),
                         qPrintable(QStringLiteral("%1 names %2").arg(QFileInfo(path).fileName(), resource)));
                named << resource;
            }
        }
    }
    // The scan must see the paths the window is known to use.
    QVERIFY(named.contains(QStringLiteral(":/Icon.png")));
    QVERIFY(named.contains(QStringLiteral(":/resources/Fonts/Pangolin-Regular.ttf")));
}

void ResourcesTest::menuBarIcons_data()
{
    QTest::addColumn<QString>("file");
    // The tool buttons of the title bar, and the Help menu's entries.
    for (const char* file : {"OpenProject", "ReloadProject", "SaveProject", "CloseProject", "Undo", "Redo",
                             "RunGame", "StopGame", "OpenExplorer", "Settings", "ZoomIn", "ZoomOut", "FitZoom",
                             "About", "Tutorial", "Update"})
        QTest::newRow(file) << QStringLiteral(":/resources/MenuBarIcons/%1.png").arg(QLatin1String(file));
}

void ResourcesTest::menuBarIcons()
{
    QFETCH(QString, file);
    const QImage icon = QImage(file).convertToFormat(QImage::Format_ARGB32);
    QVERIFY2(!icon.isNull(), qPrintable(file));
    // Twice the tool buttons' 24-pixel icons, so the hover growth stays sharp.
    QCOMPARE(icon.size(), QSize(48, 48));
    // Readable on the dark default title bar (its lighter end) and on the
    // Light theme's (its darker end): a glyph's shape at 3:1 covers at least a
    // twentieth of the square even for the small play and stop marks.
    const double onDark = visibleShare(icon, qRgb(0x3c, 0x3c, 0x4b));
    const double onLight = visibleShare(icon, qRgb(0xd5, 0xd9, 0xe3));
    QVERIFY2(onDark > 0.05, qPrintable(QStringLiteral("%1 on dark: %2").arg(file).arg(onDark)));
    QVERIFY2(onLight > 0.05, qPrintable(QStringLiteral("%1 on light: %2").arg(file).arg(onLight)));
    // Transparent around the glyph, so the title bar shows through.
    QCOMPARE(qAlpha(icon.pixel(0, 0)), 0);
}

// The checkerboard repeats seamlessly and is opaque, since the canvas beyond
// the HUD is drawn from it alone.
void ResourcesTest::canvasTile()
{
    const QImage tile = QImage(QStringLiteral(":/resources/Editor/Tile.png")).convertToFormat(QImage::Format_ARGB32);
    QVERIFY(!tile.isNull());
    QVERIFY(tile.width() % 2 == 0 && tile.height() % 2 == 0);
    const int w = tile.width() / 2, h = tile.height() / 2;
    QCOMPARE(tile.pixel(0, 0), tile.pixel(w, h));
    QCOMPARE(tile.pixel(w, 0), tile.pixel(0, h));
    QVERIFY(tile.pixel(0, 0) != tile.pixel(w, 0));
    for (int y = 0; y < tile.height(); ++y)
        for (int x = 0; x < tile.width(); ++x)
            QCOMPARE(qAlpha(tile.pixel(x, y)), 255);
}

void ResourcesTest::titleFontLoads()
{
    const int id = QFontDatabase::addApplicationFont(QStringLiteral(":/resources/Fonts/Pangolin-Regular.ttf"));
    QVERIFY(id >= 0);
    QCOMPARE(QFontDatabase::applicationFontFamilies(id), QStringList{QStringLiteral("Pangolin")});
    QFile file(QStringLiteral(":/resources/Fonts/Pangolin-Regular.ttf"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    // A TrueType file, not the web font it came from.
    const QByteArray bytes = file.readAll();
    QCOMPARE(bytes.left(4), QByteArray("\x00\x01\x00\x00", 4));
    const QRawFont raw(bytes, 16);
    QVERIFY(raw.isValid());
    // The title and its translations into Latin-script languages.
    for (const QChar c : QStringLiteral("Velmora*ÄÖÜäöüßéèçñ"))
        QVERIFY2(raw.supportsCharacter(c), qPrintable(QString(c)));
}

VELMORA_TEST_MAIN(ResourcesTest, QGuiApplication)

#include "tst_resources.moc"
