#include "TestEnvironment.h"

#include "app/PathManager.h"
#include "app/ProjectData.h"
#include "app/WoffConverter.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMap>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
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

QByteArray tagName(quint32 tag)
{
    QByteArray name(4, ' ');
    qToBigEndian<quint32>(tag, name.data());
    return name;
}

// An SFNT font file read back: its tables by tag, and whether its header and
// directory follow the format (binary-search fields, sorted tags, 4-byte
// aligned tables inside the file, zero padding).
struct Sfnt {
    quint32 version = 0;
    QMap<quint32, QByteArray> tables;
    QStringList faults;
};

Sfnt readSfnt(const QByteArray& bytes)
{
    Sfnt font;
    if (bytes.size() < 12) {
        font.faults << QStringLiteral("shorter than a header");
        return font;
    }
    font.version = get32(bytes, 0);
    const int count = get16(bytes, 4);
    int power = 1;
    int log = 0;
    while (power * 2 <= count) {
        power *= 2;
        ++log;
    }
    if (get16(bytes, 6) != power * 16 || get16(bytes, 8) != log || get16(bytes, 10) != count * 16 - power * 16)
        font.faults << QStringLiteral("binary-search fields");
    if (bytes.size() % 4 != 0)
        font.faults << QStringLiteral("file length not a multiple of 4");
    quint32 previousTag = 0;
    for (int i = 0; i < count; ++i) {
        const int entry = 12 + 16 * i;
        if (entry + 16 > bytes.size()) {
            font.faults << QStringLiteral("directory cut short");
            return font;
        }
        const quint32 tag = get32(bytes, entry);
        const quint32 offset = get32(bytes, entry + 8);
        const quint32 length = get32(bytes, entry + 12);
        if (i > 0 && tag <= previousTag)
            font.faults << QStringLiteral("tags not sorted");
        previousTag = tag;
        if (offset % 4 != 0)
            font.faults << QStringLiteral("table %1 not aligned").arg(QString::fromLatin1(tagName(tag)));
        if (quint64(offset) + length > quint64(bytes.size())) {
            font.faults << QStringLiteral("table %1 outside the file").arg(QString::fromLatin1(tagName(tag)));
            continue;
        }
        font.tables.insert(tag, bytes.mid(int(offset), int(length)));
        const quint64 paddedEnd = qMin<quint64>((quint64(offset) + length + 3) & ~quint64(3), bytes.size());
        for (quint64 at = quint64(offset) + length; at < paddedEnd; ++at) {
            if (bytes.at(int(at)) != 0)
                font.faults << QStringLiteral("padding of %1 not zero").arg(QString::fromLatin1(tagName(tag)));
        }
    }
    return font;
}

// A WOFF 1.0 file written by hand, for cases no encoder makes: each table
// holds the given stored bytes and declares the given unpacked length.
struct HandTable {
    quint32 tag;
    QByteArray stored;
    quint32 length;
};

QByteArray handMadeWoff(const QVector<HandTable>& tables, quint32 totalSfntSize)
{
    const int directoryEnd = 44 + 20 * tables.size();
    QByteArray body;
    QByteArray directory;
    for (const HandTable& table : tables) {
        QByteArray entry(20, '\0');
        put32(entry, 0, table.tag);
        put32(entry, 4, quint32(directoryEnd + body.size()));
        put32(entry, 8, quint32(table.stored.size()));
        put32(entry, 12, table.length);
        directory += entry;
        body += table.stored;
        while (body.size() % 4)
            body += '\0';
    }
    QByteArray header(44, '\0');
    put32(header, 0, 0x774F4646);
    put32(header, 4, 0x00010000);
    put32(header, 8, quint32(44 + directory.size() + body.size()));
    put16(header, 12, quint16(tables.size()));
    put32(header, 16, totalSfntSize);
    put16(header, 20, 1);
    return header + directory + body;
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

    // The converter's output for bytes written to a file; empty when it wrote nothing.
    QByteArray convertBytes(const QByteArray& bytes, const QString& suffix)
    {
        const QString folder = TestEnvironment::newFolder(QStringLiteral("convert"));
        const QString source = folder + QStringLiteral("/font.") + suffix;
        const QString destination = folder + QStringLiteral("/font.otf");
        TestEnvironment::writeFile(source, bytes);
        if (!convertWoffToOtf(source, destination))
            return QByteArray();
        return TestEnvironment::readFile(destination);
    }

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
        QCOMPARE(get32(woff, 0), quint32(0x774F4646));
        QCOMPARE(get32(woff2, 0), quint32(0x774F4632));
        QVERIFY(firstCompressedTable(woff) >= 0);

        // Cache files go to a folder of the test's own, not beside the test program.
        programFolder = TestEnvironment::newFolder(QStringLiteral("program"));
        PathManager::setExecutableFolder(programFolder);
    }

    void convertedFontsHoldTheOriginalTables_data()
    {
        addWebFontRows();
    }

    void convertedFontsHoldTheOriginalTables()
    {
        QFETCH(QString, suffix);
        const bool second = suffix == QLatin1String("woff2");
        const Sfnt before = readSfnt(original);
        const Sfnt after = readSfnt(convertBytes(second ? woff2 : woff, suffix));
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
            QVERIFY2(after.tables.value(table.key()) == table.value(), tagName(table.key()).constData());
        }
        if (!second)
            return;
        QByteArray headBefore = before.tables.value(head);
        QByteArray headAfter = after.tables.value(head);
        QCOMPARE(headAfter.size(), headBefore.size());
        put32(headBefore, 8, 0); // checkSumAdjustment
        put32(headAfter, 8, 0);
        QVERIFY(get16(headAfter, 16) & 0x0800);
        put16(headAfter, 16, get16(headAfter, 16) & ~0x0800); // flags, bit 11
        QCOMPARE(headAfter, headBefore);
        QVERIFY(!after.tables.value(glyf).isEmpty());
        // The glyph count stays, and so does every glyph's place in the index.
        QCOMPARE(after.tables.value(loca).size(), before.tables.value(loca).size());
    }

    void convertedFontsLoadUnderTheOriginalFamily_data()
    {
        addWebFontRows();
    }

    void convertedFontsLoadUnderTheOriginalFamily()
    {
        QFETCH(QString, suffix);
        const QString source = fixtures + QStringLiteral("/DejaVuSans.") + suffix;
        const QString destination = TestEnvironment::newFolder(QStringLiteral("loaded")) + QStringLiteral("/font.otf");
        QVERIFY(convertWoffToOtf(source, destination));
        const int id = QFontDatabase::addApplicationFont(destination);
        QVERIFY(id != -1);
        QCOMPARE(QFontDatabase::applicationFontFamilies(id), QStringList{QString::fromLatin1(SampleFontFamily)});
    }

    void malformedWoffWritesNothing_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const int compressed = firstCompressedTable(woff);
        const int entry = woffEntry(compressed);
        const quint32 length = get32(woff, entry + 12);
        const auto changed = [this](const std::function<void(QByteArray&)>& change) {
            QByteArray bytes = woff;
            change(bytes);
            return bytes;
        };

        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("cut inside the header") << woff.left(30);
        QTest::newRow("cut inside the table directory") << woff.left(woffEntry(3) + 7);
        QTest::newRow("cut inside the table data") << woff.left(woff.size() - 64);
        QTest::newRow("cut, with the length field made to fit") << changed([](QByteArray& b) {
            b.chop(64);
            put32(b, 8, quint32(b.size()));
        });
        QTest::newRow("wrong signature") << changed([](QByteArray& b) { b[3] = 'X'; });
        QTest::newRow("a plain TrueType font") << original;
        QTest::newRow("WOFF 2.0 signature on WOFF 1.0 data") << changed([](QByteArray& b) { b[3] = '2'; });
        QTest::newRow("no tables") << changed([](QByteArray& b) { put16(b, 12, 0); });
        QTest::newRow("reserved field set") << changed([](QByteArray& b) { put16(b, 14, 1); });
        QTest::newRow("more tables than the directory holds") << changed([](QByteArray& b) { put16(b, 12, 0xFFFF); });
        QTest::newRow("table inflates to less than declared") << changed([&](QByteArray& b) {
            put32(b, entry + 12, length + 4);
            put32(b, 16, get32(b, 16) + 4);
        });
        QTest::newRow("table inflates to more than declared") << changed([&](QByteArray& b) {
            put32(b, entry + 12, length - 4);
        });
        QTest::newRow("compressed longer than unpacked") << changed([&](QByteArray& b) {
            put32(b, entry + 8, length + 1);
        });
        QTest::newRow("damaged compressed data") << changed([&](QByteArray& b) {
            const int at = int(get32(b, entry + 4));
            for (int i = 2; i < 40; ++i)
                b[at + i] = char(0xA5);
        });
        QTest::newRow("table offset past the end") << changed([&](QByteArray& b) {
            put32(b, entry + 4, quint32(b.size()) + 100);
        });
        QTest::newRow("table offset and length wrap around") << changed([&](QByteArray& b) {
            put32(b, entry + 4, 0xFFFFFFF0u);
        });
        QTest::newRow("table inside the header") << changed([&](QByteArray& b) { put32(b, entry + 4, 8); });
        QTest::newRow("table running past the end") << changed([&](QByteArray& b) {
            put32(b, entry + 4, quint32(b.size()) - 8);
        });
        QTest::newRow("metadata outside the file") << changed([](QByteArray& b) {
            put32(b, 24, quint32(b.size()) - 4);
            put32(b, 28, 64);
        });
        QTest::newRow("private data outside the file") << changed([](QByteArray& b) {
            put32(b, 36, 0xFFFFFFFFu);
            put32(b, 40, 2);
        });
        QTest::newRow("two tables of one tag") << changed([](QByteArray& b) {
            put32(b, woffEntry(1), get32(b, woffEntry(0)));
        });
        QTest::newRow("declared font size too small") << changed([](QByteArray& b) {
            put32(b, 16, get32(b, 16) / 2);
        });
        QTest::newRow("declared font size absurd") << changed([](QByteArray& b) { put32(b, 16, 0xFFFFFFFFu); });

        // Small streams that unpack to a great deal.
        const QByteArray zeros(32 * 1024 * 1024, '\0');
        const QByteArray bomb = zlibStream(zeros);
        QTest::newRow("table inflating far past its declared length")
            << handMadeWoff({{0x7A7A7A7A, bomb, 1000}}, 12 + 16 + 1000);
        QTest::newRow("table declaring far more than the font's declared size")
            << handMadeWoff({{0x7A7A7A7A, bomb, quint32(zeros.size())}}, 12 + 16 + 1000);
        QTest::newRow("table declaring more than its compressed size can hold")
            << handMadeWoff({{0x7A7A7A7A, zlibStream(QByteArray(100, 'z')), 1000000}}, 12 + 16 + 1000000);
        QTest::newRow("tables adding up past the font's declared size")
            << handMadeWoff({{0x61616161, zlibStream(QByteArray(600, 'a')), 600},
                             {0x62626262, zlibStream(QByteArray(600, 'b')), 600}},
                            12 + 32 + 1000);
    }

    void malformedWoffWritesNothing()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(WoffConverter::decodeWoff(bytes).isEmpty());
        QVERIFY(refusedCleanly(bytes, QStringLiteral("woff")));
    }

    void handMadeWoffIsDecoded()
    {
        // The hand-made encoder above is right: a well-formed file of its
        // making decodes, so the refusals above come from the faults alone.
        const QByteArray a(600, 'a');
        const QByteArray b = "bbbbb";
        const QByteArray font = WoffConverter::decodeWoff(
            handMadeWoff({{0x61616161, zlibStream(a), 600}, {0x62626262, b, 5}}, 12 + 32 + 600 + 8));
        const Sfnt sfnt = readSfnt(font);
        QVERIFY2(sfnt.faults.isEmpty(), qPrintable(sfnt.faults.join(QStringLiteral(", "))));
        QCOMPARE(sfnt.tables.value(0x61616161), a);
        QCOMPARE(sfnt.tables.value(0x62626262), b);
        QCOMPARE(font.size(), 12 + 32 + 600 + 8);
    }

    void malformedWoff2WritesNothing_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QByteArray bytes;
        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("cut inside the header") << woff2.left(30);
        QTest::newRow("cut in half") << woff2.left(woff2.size() / 2);
        bytes = woff2;
        bytes[3] = 'X';
        QTest::newRow("wrong signature") << bytes;
        bytes = woff2;
        for (int i = woff2.size() / 2; i < woff2.size() / 2 + 64; ++i)
            bytes[i] = char(0x5A);
        QTest::newRow("damaged compressed data") << bytes;
        bytes = woff2;
        put16(bytes, 12, 0xFFFF); // numTables
        QTest::newRow("more tables than the file holds") << bytes;
        bytes = woff2;
        put32(bytes, 8, quint32(woff2.size() + 100)); // length
        QTest::newRow("length field past the end") << bytes;
        bytes = woff2;
        put16(bytes, 12, 0); // numTables
        QTest::newRow("no tables") << bytes;
    }

    void malformedWoff2WritesNothing()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(WoffConverter::decodeWoff2(bytes).isEmpty());
        QVERIFY(refusedCleanly(bytes, QStringLiteral("woff2")));
    }

    void damagedFontsNeverCrash()
    {
        // Many small random damages of both formats: each is either refused
        // with nothing written or gives a font file; none crashes.
        QRandomGenerator random(12);
        int refused = 0;
        for (int round = 0; round < 300; ++round) {
            const bool second = round % 2;
            QByteArray bytes = second ? woff2 : woff;
            const int changes = 1 + int(random.bounded(8));
            for (int i = 0; i < changes; ++i) {
                // Half the damage lands in the header and directory, where it matters most.
                const int limit = random.bounded(2) ? qMin(bytes.size(), 400) : bytes.size();
                bytes[int(random.bounded(limit))] = char(random.bounded(256));
            }
            const QByteArray font = second ? WoffConverter::decodeWoff2(bytes) : WoffConverter::decodeWoff(bytes);
            if (font.isEmpty())
                ++refused;
            else
                QVERIFY(font.size() >= 12);
        }
        QVERIFY(refused > 0);
    }

    void graphicsTypesHaveFixedFolderNames()
    {
        const QStringList names = {
            "Animations", "AutoTiles", "Backgrounds", "Characters", "Collectables", "ConjoinedTiles", "Enemies",
            "Icons", "NPCs", "Objects", "Parallax", "Particles", "Pictures", "Placeholders", "Plugins",
            "Projectiles", "Sprites", "SuperTiles", "System", "Tiles", "Transitions"};
        for (int i = 0; i < names.size(); ++i)
            QCOMPARE(PathManager::graphicsTypeName(PathManager::GraphicsType(i)), names[i]);
        QCOMPARE(PathManager::Pictures, 12);
        QCOMPARE(PathManager::Transitions, 20);
        QVERIFY(PathManager::graphicsTypeName(PathManager::GraphicsType(21)).isEmpty());
        QVERIFY(PathManager::graphicsTypeName(PathManager::GraphicsType(-1)).isEmpty());
    }

    void graphicsFoldersFollowTheHook()
    {
        PathManager::setGraphicsFolderHook(nullptr);
        QCOMPARE(PathManager::graphicsFolder(PathManager::Pictures), QStringLiteral("Assets/Graphics/Pictures"));
        QCOMPARE(PathManager::graphicsFolder(PathManager::Tiles), QStringLiteral("Assets/Graphics/Tiles"));

        PathManager::setGraphicsFolderHook(ProjectData::graphicsFolder);
        QCOMPARE(PathManager::graphicsFolder(PathManager::Pictures), QStringLiteral("img/pictures"));
        QCOMPARE(PathManager::graphicsFolder(PathManager::System), QStringLiteral("img/system"));
        QCOMPARE(PathManager::graphicsFolder(PathManager::Characters), QStringLiteral("img/faces"));
        // The project has no folder for these: the hook's empty answer falls back.
        QCOMPARE(PathManager::graphicsFolder(PathManager::Icons), QStringLiteral("Assets/Graphics/Icons"));
        QCOMPARE(PathManager::graphicsFolder(PathManager::Animations), QStringLiteral("Assets/Graphics/Animations"));

        const QDir project(QStringLiteral("/games/My Game"));
        QCOMPARE(PathManager::graphicsFile(PathManager::Pictures, QStringLiteral("Hero.png"), project),
                 QStringLiteral("/games/My Game/img/pictures/Hero.png"));
        QCOMPARE(PathManager::graphicsFile(PathManager::Characters, QStringLiteral("Actor1.png"), project),
                 QStringLiteral("/games/My Game/img/faces/Actor1.png"));
        QCOMPARE(PathManager::graphicsFile(PathManager::Parallax, QStringLiteral("Sky.png"), project),
                 QStringLiteral("/games/My Game/Assets/Graphics/Parallax/Sky.png"));

        PathManager::setGraphicsFolderHook([](PathManager::GraphicsType type) {
            return type == PathManager::Tiles ? QStringLiteral("art/tiles") : QString();
        });
        QCOMPARE(PathManager::graphicsFolder(PathManager::Tiles), QStringLiteral("art/tiles"));
        QCOMPARE(PathManager::graphicsFolder(PathManager::Pictures), QStringLiteral("Assets/Graphics/Pictures"));
        PathManager::setGraphicsFolderHook(nullptr);
    }

    void resourcePathsAndTheApplicationFolder()
    {
        QCOMPARE(PathManager::applicationFolder().absolutePath(), QDir(programFolder).absolutePath());
        QCOMPARE(PathManager::resourcePath("resources/ContextIcons/Add.png"),
                 QStringLiteral(":/resources/ContextIcons/Add.png"));
        QVERIFY(QFile::exists(PathManager::resourcePath("resources/ContextIcons/Add.png")));

        // A file in the override folder wins; one it doesn't have still comes
        // from the compiled-in resources.
        const QString replaced = programFolder + QStringLiteral("/Skin/resources/ContextIcons/Add.png");
        TestEnvironment::writeFile(replaced, "png");
        PathManager::setResourceOverrideFolder(QStringLiteral("Skin"));
        QCOMPARE(PathManager::resourcePath("resources/ContextIcons/Add.png"), replaced);
        QCOMPARE(PathManager::resourcePath("resources/ContextIcons/Cut.png"),
                 QStringLiteral(":/resources/ContextIcons/Cut.png"));
        PathManager::setResourceOverrideFolder(QString());
        QCOMPARE(PathManager::resourcePath("resources/ContextIcons/Add.png"),
                 QStringLiteral(":/resources/ContextIcons/Add.png"));
    }

    void fontsLoadOncePerName()
    {
        QCOMPARE(PathManager::getFont(QString(), QDir(fixtures), false), QFont());

        const QString first = TestEnvironment::newFolder(QStringLiteral("fonts"));
        QVERIFY(QFile::copy(fixtures + QStringLiteral("/DejaVuSans.ttf"), first + QStringLiteral("/Once.ttf")));
        QCOMPARE(PathManager::getFont(QStringLiteral("Once.ttf"), QDir(first), false).family(),
                 QString::fromLatin1(SampleFontFamily));
        QCOMPARE(PathManager::loadedFontFamily(QStringLiteral("Once.ttf")), QString::fromLatin1(SampleFontFamily));

        // Asked again from a folder where that name is no font at all: the
        // first call's family, without loading anything.
        const QString second = TestEnvironment::newFolder(QStringLiteral("fonts"));
        TestEnvironment::writeFile(second + QStringLiteral("/Once.ttf"), "not a font");
        QCOMPARE(PathManager::getFont(QStringLiteral("Once.ttf"), QDir(second), false).family(),
                 QString::fromLatin1(SampleFontFamily));

        // The assets layout looks below "Assets/Fonts".
        const QString assets = TestEnvironment::newFolder(QStringLiteral("assets"));
        QDir().mkpath(assets + QStringLiteral("/Assets/Fonts"));
        QVERIFY(QFile::copy(fixtures + QStringLiteral("/DejaVuSans.ttf"),
                            assets + QStringLiteral("/Assets/Fonts/InAssets.ttf")));
        QCOMPARE(PathManager::getFont(QStringLiteral("InAssets.ttf"), QDir(assets), false), QFont());
        QCOMPARE(PathManager::getFont(QStringLiteral("InAssets.ttf"), QDir(assets), true).family(),
                 QString::fromLatin1(SampleFontFamily));
    }

    void refusedFontsAreTriedAgain()
    {
        const QString folder = TestEnvironment::newFolder(QStringLiteral("fonts"));
        const QString path = folder + QStringLiteral("/Later.ttf");
        TestEnvironment::writeFile(path, "not a font");
        QCOMPARE(PathManager::getFont(QStringLiteral("Later.ttf"), QDir(folder), false), QFont());
        QCOMPARE(PathManager::getFont(QStringLiteral("Later.ttf"), QDir(folder), false), QFont());
        QVERIFY(PathManager::loadedFontFamily(QStringLiteral("Later.ttf")).isEmpty());
        // The user puts the real file in place: the next call loads it.
        TestEnvironment::writeFile(path, original);
        QCOMPARE(PathManager::getFont(QStringLiteral("Later.ttf"), QDir(folder), false).family(),
                 QString::fromLatin1(SampleFontFamily));
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
        QCOMPARE(PathManager::loadedFontFamily(name), QString::fromLatin1(SampleFontFamily));

        // One new file in "FontCache" beside the executable, named by number,
        // holding the decoded font.
        QStringList added = cacheFiles(programFolder);
        for (const QString& file : before)
            added.removeOne(file);
        QCOMPARE(added.size(), 1);
        QVERIFY2(QRegularExpression(QStringLiteral("^font\\d+\\.otf$")).match(added.first()).hasMatch(),
                 qPrintable(added.first()));
        const QByteArray source = TestEnvironment::readFile(folder + QLatin1Char('/') + name);
        const QByteArray decoded = suffix == QLatin1String("woff") ? WoffConverter::decodeWoff(source)
                                                                   : WoffConverter::decodeWoff2(source);
        QCOMPARE(TestEnvironment::readFile(programFolder + QStringLiteral("/FontCache/") + added.first()), decoded);

        // Loaded once: no further conversion.
        QCOMPARE(PathManager::getFont(name, QDir(folder), false).family(), QString::fromLatin1(SampleFontFamily));
        QCOMPARE(cacheFiles(programFolder).size(), before.size() + 1);
    }

    void sampleProjectWebFontsLoad()
    {
        // The sample project's fonts folder, as a text component asks for it.
        const QDir fonts(TestEnvironment::copySampleProject(QStringLiteral("sample")) + QStringLiteral("/fonts"));
        QCOMPARE(PathManager::getFont(QStringLiteral("DejaVuSerif-Latin.woff"), fonts, false).family(),
                 QStringLiteral("DejaVu Serif"));
        QCOMPARE(PathManager::getFont(QStringLiteral("DejaVuSansMono-Latin.woff2"), fonts, false).family(),
                 QStringLiteral("DejaVu Sans Mono"));
        QCOMPARE(PathManager::loadedFontFamily(QStringLiteral("DejaVuSerif-Latin.woff")), QStringLiteral("DejaVu Serif"));
        QCOMPARE(PathManager::loadedFontFamily(QStringLiteral("DejaVuSansMono-Latin.woff2")),
                 QStringLiteral("DejaVu Sans Mono"));
    }

    void capitalSuffixIsNotConverted()
    {
        const QString folder = TestEnvironment::newFolder(QStringLiteral("fonts"));
        QVERIFY(QFile::copy(fixtures + QStringLiteral("/DejaVuSans.woff"), folder + QStringLiteral("/Loud.WOFF")));
        const int before = cacheFiles(programFolder).size();
        PathManager::getFont(QStringLiteral("Loud.WOFF"), QDir(folder), false);
        QCOMPARE(cacheFiles(programFolder).size(), before);
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
        QVERIFY(PathManager::loadedFontFamily(QStringLiteral("Broken.woff")).isEmpty());
        PathManager::setExecutableFolder(programFolder);
    }

    void cacheGoesToTheUserFolderWhenTheProgramFolderIsReadOnly()
    {
        // A program folder that can't be written (here: one that isn't there).
        PathManager::setExecutableFolder(programFolder + QStringLiteral("/not-there"));
        const QString expected = PathManager::userCacheFolder() + QStringLiteral("/FontCache/font7.otf");
        QCOMPARE(PathManager::fontCacheFile(7), expected);
        QVERIFY(expected.startsWith(TestEnvironment::home()));

        const QString folder = TestEnvironment::newFolder(QStringLiteral("fonts"));
        QVERIFY(QFile::copy(fixtures + QStringLiteral("/DejaVuSans.woff"), folder + QStringLiteral("/Elsewhere.woff")));
        QCOMPARE(PathManager::getFont(QStringLiteral("Elsewhere.woff"), QDir(folder), false).family(),
                 QString::fromLatin1(SampleFontFamily));
        QCOMPARE(cacheFiles(PathManager::userCacheFolder()).size(), 1);
        QVERIFY(!QFileInfo::exists(programFolder + QStringLiteral("/not-there")));
        PathManager::setExecutableFolder(programFolder);
        QCOMPARE(PathManager::fontCacheFile(7), programFolder + QStringLiteral("/FontCache/font7.otf"));
    }
};

VELMORA_TEST_MAIN(TestFonts, QGuiApplication)

#include "tst_fonts.moc"
