#include "TestEnvironment.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QRawFont>
#include <QRegularExpression>

class ResourcesTest : public QObject
{
    Q_OBJECT
private slots:
    void everyNamedResourceIsCompiledIn();
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
