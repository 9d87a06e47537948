#include "TestEnvironment.h"

#include "app/PathManager.h"
#include "app/WoffConverter.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMap>
#include <QProcess>
#include <QtEndian>

namespace {

const char* const SampleFontFamily = "DejaVu Sans";

quint32 get32(const QByteArray& bytes, int at)
{
    return qFromBigEndian<quint32>(bytes.constData() + at);
}

quint16 get16(const QByteArray& bytes, int at)
{
    return qFromBigEndian<quint16>(bytes.constData() + at);
}

void put32(QByteArray& bytes, int at, quint32 value)
{
    qToBigEndian<quint32>(value, bytes.data() + at);
}

void put16(QByteArray& bytes, int at, quint16 value)
{
    qToBigEndian<quint16>(value, bytes.data() + at);
}

// An SFNT font file read back: its tables by tag, and what keeps it from
// being read (a directory or table outside the file).
struct Sfnt {
    quint32 version = 0;
    QMap<quint32, QByteArray> tables;
    QStringList faults;
};

Sfnt readSfnt(const QByteArray& bytes)
{
    Sfnt font;
    const int count = bytes.size() < 12 ? 0 : get16(bytes, 4);
    if (bytes.size() < 12 + 16 * count) {
        font.faults << QStringLiteral("header or directory cut short");
        return font;
    }
    font.version = get32(bytes, 0);
    for (int i = 0; i < count; ++i) {
        const quint32 tag = get32(bytes, 12 + 16 * i);
        const quint32 offset = get32(bytes, 12 + 16 * i + 8);
        const quint32 length = get32(bytes, 12 + 16 * i + 12);
        if (quint64(offset) + length > quint64(bytes.size()))
            font.faults << QStringLiteral("table %1 outside the file").arg(tag, 0, 16);
        else
            font.tables.insert(tag, bytes.mid(int(offset), int(length)));
    }
    return font;
}

// A WOFF 1.0 file of one table written by hand, for a case no encoder
// makes: the table holds the given stored bytes and declares the given
// unpacked length.
QByteArray handMadeWoff(quint32 tag, const QByteArray& stored, quint32 length)
{
    QByteArray entry(20, '\0');
    put32(entry, 0, tag);
    put32(entry, 4, 64);
    put32(entry, 8, quint32(stored.size()));
    put32(entry, 12, length);
    QByteArray body = stored;
    while (body.size() % 4)
        body += '\0';
    QByteArray header(44, '\0');
    put32(header, 0, 0x774F4646);
    put32(header, 4, 0x00010000);
    put32(header, 8, quint32(64 + body.size()));
    put16(header, 12, 1);
    put32(header, 16, 12 + 16 + length);
    put16(header, 20, 1);
    return header + entry + body;
}

QByteArray zlibStream(const QByteArray& data)
{
    return qCompress(data, 9).mid(4); // qCompress puts the length in front
}

// Offsets into a WOFF 1.0 file.
int woffEntry(int index)
{
    return 44 + 20 * index;
}

int firstCompressedTable(const QByteArray& woff)
{
    for (int i = 0; i < get16(woff, 12); ++i) {
        if (get32(woff, woffEntry(i) + 8) < get32(woff, woffEntry(i) + 12))
            return i;
    }
    return -1;
}

bool runTool(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        qWarning("%s failed: %s", qPrintable(program), process.readAllStandardError().constData());
        return false;
    }
    return true;
}

// Rows for a test run once per web font format, by file suffix.
void addWebFontRows()
{
    QTest::addColumn<QString>("suffix");
    QTest::newRow("WOFF") << QStringLiteral("woff");
    QTest::newRow("WOFF2") << QStringLiteral("woff2");
}

QStringList cacheFiles(const QString& folder)
{
    return QDir(folder + QStringLiteral("/FontCache")).entryList(QDir::Files, QDir::Name);
}

}

class TestFonts : public QObject {
    Q_OBJECT

    QString fixtures;
    QString programFolder;
    QByteArray original;
    QByteArray woff;
    QByteArray woff2;

    // Refused: nothing written, neither a new file nor over an existing one.
    bool refusedCleanly(const QByteArray& bytes, const QString& suffix)
    {
        const QString folder = TestEnvironment::newFolder(QStringLiteral("refuse"));
        const QString source = folder + QStringLiteral("/font.") + suffix;
        TestEnvironment::writeFile(source, bytes);
        const QString fresh = folder + QStringLiteral("/fresh.otf");
        const QString kept = folder + QStringLiteral("/kept.otf");
        TestEnvironment::writeFile(kept, "earlier content");
        const bool wroteFresh = convertWoffToOtf(source, fresh);
        const bool wroteKept = convertWoffToOtf(source, kept);
        return !wroteFresh && !wroteKept && !QFile::exists(fresh)
            && TestEnvironment::readFile(kept) == "earlier content"
            && QDir(folder).entryList(QDir::Files).size() == 2;
    }

private slots:
    void initTestCase()
    {
        fixtures = TestEnvironment::newFolder(QStringLiteral("fixtures"));
        const QString ttf = fixtures + QStringLiteral("/DejaVuSans.ttf");
        QVERIFY(QFile::copy(QStringLiteral(VELMORA_SAMPLE_PROJECT "/fonts/DejaVuSans.ttf"), ttf));
        original = TestEnvironment::readFile(ttf);
        // Made with the encoders the set-up installs (woff-tools, woff2).
        QVERIFY2(runTool(QStringLiteral("sfnt2woff"), {ttf}), "sfnt2woff (Debian woff-tools) is needed");
        QVERIFY2(runTool(QStringLiteral("woff2_compress"), {ttf}), "woff2_compress (Debian woff2) is needed");
        woff = TestEnvironment::readFile(fixtures + QStringLiteral("/DejaVuSans.woff"));
        woff2 = TestEnvironment::readFile(fixtures + QStringLiteral("/DejaVuSans.woff2"));

        // Cache files go to a folder of the test's own, not beside the test program.
        programFolder = TestEnvironment::newFolder(QStringLiteral("program"));
        PathManager::setExecutableFolder(programFolder);
    }

    // A font made by the common encoders decodes to one that loads under the
    // original's family and holds the original's tables.
    void convertedFontsMatchTheOriginal_data()
    {
        addWebFontRows();
    }

    void convertedFontsMatchTheOriginal()
    {
        QFETCH(QString, suffix);
        const bool second = suffix == QLatin1String("woff2");
        const QString destination = TestEnvironment::newFolder(QStringLiteral("loaded")) + QStringLiteral("/font.otf");
        QVERIFY(convertWoffToOtf(fixtures + QStringLiteral("/DejaVuSans.") + suffix, destination));
        const int id = QFontDatabase::addApplicationFont(destination);
        QVERIFY(id != -1);
        QCOMPARE(QFontDatabase::applicationFontFamilies(id), QStringList{QString::fromLatin1(SampleFontFamily)});

        const Sfnt before = readSfnt(original);
        const Sfnt after = readSfnt(TestEnvironment::readFile(destination));
        QVERIFY2(after.faults.isEmpty(), qPrintable(after.faults.join(QStringLiteral(", "))));
        QCOMPARE(after.version, before.version);
        QCOMPARE(after.tables.keys(), before.tables.keys());
        // WOFF2 rebuilds the glyph outlines and their index from a transformed
        // form, so those two may differ in layout; "head" differs only in the
        // whole-font checksum and the flag that marks a transformed font.
        // Every other table comes back byte for byte, and with WOFF all do.
        const quint32 glyf = 0x676C7966, loca = 0x6C6F6361, head = 0x68656164;
        for (auto table = before.tables.cbegin(); table != before.tables.cend(); ++table) {
            if (second && (table.key() == glyf || table.key() == loca || table.key() == head))
                continue;
            QVERIFY2(after.tables.value(table.key()) == table.value(), qPrintable(QString::number(table.key(), 16)));
        }
        if (!second)
            return;
        QByteArray headBefore = before.tables.value(head);
        QByteArray headAfter = after.tables.value(head);
        put32(headBefore, 8, 0); // checkSumAdjustment
        put32(headAfter, 8, 0);
        put16(headAfter, 16, get16(headAfter, 16) & ~0x0800); // flags, bit 11
        QCOMPARE(headAfter, headBefore);
        // The glyph count stays, and so does every glyph's place in the index.
        QVERIFY(!after.tables.value(glyf).isEmpty());
        QCOMPARE(after.tables.value(loca).size(), before.tables.value(loca).size());
    }

    // Damaged files of both formats: nothing is decoded and nothing written.
    void malformedFontsWriteNothing_data()
    {
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("WOFF cut inside the table data") << "woff" << woff.left(woff.size() - 64);
        QByteArray wrapping = woff;
        put32(wrapping, woffEntry(firstCompressedTable(woff)) + 4, 0xFFFFFFF0u);
        QTest::newRow("WOFF table offset and length wrap around") << "woff" << wrapping;
        // A small stream that unpacks to a great deal.
        QTest::newRow("WOFF table inflating far past its declared length")
            << "woff" << handMadeWoff(0x7A7A7A7A, zlibStream(QByteArray(32 * 1024 * 1024, '\0')), 1000);
        QTest::newRow("WOFF2 cut in half") << "woff2" << woff2.left(woff2.size() / 2);
        QByteArray damaged = woff2;
        damaged.replace(woff2.size() / 2, 64, QByteArray(64, char(0x5A)));
        QTest::newRow("WOFF2 damaged compressed data") << "woff2" << damaged;
    }

    void malformedFontsWriteNothing()
    {
        QFETCH(QString, suffix);
        QFETCH(QByteArray, bytes);
        QVERIFY((suffix == QLatin1String("woff") ? WoffConverter::decodeWoff(bytes) : WoffConverter::decodeWoff2(bytes)).isEmpty());
        QVERIFY(refusedCleanly(bytes, suffix));
    }

    void refusedFontsAreTriedAgain()
    {
        // A refused file is tried again once the user puts the real one in place.
        const QString first = TestEnvironment::newFolder(QStringLiteral("fonts"));
        const QString later = first + QStringLiteral("/Later.ttf");
        TestEnvironment::writeFile(later, "not a font");
        QCOMPARE(PathManager::getFont(QStringLiteral("Later.ttf"), QDir(first), false), QFont());
        TestEnvironment::writeFile(later, original);
        QCOMPARE(PathManager::getFont(QStringLiteral("Later.ttf"), QDir(first), false).family(), QString::fromLatin1(SampleFontFamily));
    }

    void webFontsLoadThroughTheCache_data()
    {
        addWebFontRows();
    }

    void webFontsLoadThroughTheCache()
    {
        QFETCH(QString, suffix);
        const QString folder = TestEnvironment::newFolder(QStringLiteral("fonts"));
        const QString name = QStringLiteral("Web.") + suffix;
        QVERIFY(QFile::copy(fixtures + QStringLiteral("/DejaVuSans.") + suffix, folder + QLatin1Char('/') + name));
        const QStringList before = cacheFiles(programFolder);
        QCOMPARE(PathManager::getFont(name, QDir(folder), false).family(), QString::fromLatin1(SampleFontFamily));

        // Loaded once, into one new file in "FontCache" beside the executable.
        // A capital suffix is no web font and is never converted either.
        PathManager::getFont(name, QDir(folder), false);
        const QString loud = QStringLiteral("Loud.") + suffix.toUpper();
        QVERIFY(QFile::copy(fixtures + QStringLiteral("/DejaVuSans.") + suffix, folder + QLatin1Char('/') + loud));
        PathManager::getFont(loud, QDir(folder), false);
        QCOMPARE(cacheFiles(programFolder).size(), before.size() + 1);
    }

    void failedConversionNeverLoadsAnOldCacheFile()
    {
        // An earlier run left fonts in every cache slot this run may use.
        const QString program = TestEnvironment::newFolder(QStringLiteral("program"));
        PathManager::setExecutableFolder(program);
        for (unsigned i = 0; i < 100; ++i)
            TestEnvironment::writeFile(PathManager::fontCacheFile(i), original);
        const QString folder = TestEnvironment::newFolder(QStringLiteral("fonts"));
        QByteArray broken = woff;
        broken[3] = 'X';
        TestEnvironment::writeFile(folder + QStringLiteral("/Broken.woff"), broken);
        QCOMPARE(PathManager::getFont(QStringLiteral("Broken.woff"), QDir(folder), false), QFont());
        PathManager::setExecutableFolder(programFolder);
    }
};

VELMORA_TEST_MAIN(TestFonts, QGuiApplication)

#include "tst_fonts.moc"
