#include "TestEnvironment.h"

#include "logic/GameDataLabel.h"
#include "app/JsonFile.h"
#include "app/JsonRecordNames.h"
#include "app/ProjectData.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>

#include <sys/stat.h>

class TestProjectData : public QObject
{
    Q_OBJECT

private:
    static QJsonObject untouchedMarker()
    {
        return QJsonObject{{QStringLiteral("Actors.json"), QJsonArray{QStringLiteral("previous")}}};
    }

private slots:

    void badFilesOpenNothing_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("problem");
        QTest::newRow("missing common events") << "CommonEvents.json" << QByteArray() << "\"CommonEvents.json\" is missing.";
        QTest::newRow("actors as object") << "Actors.json" << QByteArray("{\"1\":{\"name\":\"Reid\"}}")
                                          << "\"Actors.json\" doesn't hold an array.";
        QTest::newRow("malformed items") << "Items.json" << QByteArray("[null,{\"name\":\"Potion\"") << "\"Items.json\" can't be read: not valid JSON (";
    }

    void badFilesOpenNothing()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, content);
        QFETCH(QString, problem);
        const QString project = TestEnvironment::makeProject(QStringLiteral("bad"));
        const QString path = project + QStringLiteral("/data/") + file;
        if (content.isNull())
            QVERIFY(QFile::remove(path));
        else
            TestEnvironment::writeFile(path, content);

        QJsonObject data = untouchedMarker();
        ProjectData::ScreenSize screen{333, 222};
        QStringList problems;
        QVERIFY(!ProjectData::load(QDir(project), data, screen, &problems));
        QCOMPARE(problems.size(), 1);
        QVERIFY2(problems.first().startsWith(problem), qPrintable(problems.first()));
        // A failed load leaves the previous data and size in place.
        QCOMPARE(data, untouchedMarker());
        QCOMPARE(screen.width, 333);
    }

    // A big table is parsed in pieces side by side. The joined table must be
    // the file's, names full of brackets, commas and escaped quotes included,
    // and a text the parser refuses whole must be refused in pieces too.
    void bigTablesReadAsWhole()
    {
        QByteArray text = "[null";
        QJsonArray expected{QJsonValue()};
        for (int id = 1; text.size() < 9 * 1024 * 1024; ++id) {
            const QString name = QStringLiteral("Knight \"%1\", [of] {the} ,\\ \u00e9 %2").arg(id).arg(QString(40, QLatin1Char('x')));
            QJsonObject record{{QStringLiteral("id"), id}, {QStringLiteral("name"), name},
                               {QStringLiteral("params"), QJsonArray{id, 1.5, -id, QJsonArray{QStringLiteral("]"), QJsonObject{}}}}};
            expected.append(record);
            text += "," + QJsonDocument(QJsonArray{record}).toJson(QJsonDocument::Compact).mid(1).chopped(1);
        }
        text += "]\n";
        QVERIFY(JsonFile::arrayParts(text, 3).size() >= 2);

        const QString project = TestEnvironment::makeProject(QStringLiteral("big"));
        const QString classes = project + QStringLiteral("/data/Classes.json");
        TestEnvironment::writeFile(classes, text);
        QJsonObject data;
        ProjectData::ScreenSize screen;
        QVERIFY(ProjectData::load(QDir(project), data, screen));
        QCOMPARE(data.value(QStringLiteral("Classes.json")).toArray(), expected);

        const int middle = text.size() / 2;
        const int comma = text.indexOf(",{", middle);
        QVERIFY(comma > 0);
        // Blank enough to make a piece of its own before the stray comma.
        const QByteArray strayComma = "[" + QByteArray(5 * 1024 * 1024, ' ') + "," + text.mid(1);
        QByteArray missingComma = text;
        missingComma.remove(comma, 1);
        for (const QByteArray& bad : {strayComma, missingComma}) {
            QVERIFY(QJsonDocument::fromJson(bad).isNull());
            TestEnvironment::writeFile(classes, bad);
            QStringList problems;
            QVERIFY(!ProjectData::load(QDir(project), data, screen, &problems));
            QCOMPARE(problems.size(), 1);
            QVERIFY2(problems.first().startsWith(QStringLiteral("\"Classes.json\" can't be read: not valid JSON (")),
                     qPrintable(problems.first()));
        }
    }

    // The quick reading of names for the outline: a table it takes gives
    // each record's name exactly as the parser does, and a text the parser
    // refuses is never taken, so the project is judged the same either way.
    void namesOnlyReadingMatchesTheParser()
    {
        const QByteArray taken[] = {
            " \n[ null ]\t",
            "[null,{\"id\":1,\"name\":\"Knight \\\"A\\\", [of] {b}\",\"params\":[[0,1e3,-2.5E-2,{\"name\":\"inner\"}]],\"note\":\"x\"},"
            "{\"id\":2},{\"id\":3,\"name\":\"\"},{\"name\":null,\"id\":4},{\"id\":5,\"name\":7},5,\"text\",true,[1,{\"name\":\"n\"}]]",
            "[{\"name\":\"\\u00e9\\ud83d\\ude00 \xe2\x82\xac \\/\\b\\f\\n\\r\\t\"},{\"na\\u006de\":\"escaped key\"}]",
        };
        for (const QByteArray& text : taken) {
            QJsonArray records;
            QVERIFY2(JsonRecordNames::read(text, &records), text.constData());
            const QJsonArray whole = QJsonDocument::fromJson(text).array();
            QCOMPARE(records.size(), whole.size());
            for (int i = 0; i < whole.size(); ++i) {
                if (!whole.at(i).isObject()) {
                    QCOMPARE(records.at(i), whole.at(i));
                    continue;
                }
                const QJsonObject record = whole.at(i).toObject();
                QJsonObject expected;
                if (record.contains(QStringLiteral("name")))
                    expected.insert(QStringLiteral("name"), record.value(QStringLiteral("name")));
                QCOMPARE(records.at(i).toObject(), expected);
            }
        }
        const QByteArray refused[] = {
            "", "{}", "[null,]", "[{\"name\":\"a\"}] x", "[01]", "[1e400]", "[\"\\ud800\"]", "[\"\xc0\xaf\"]",
            "[{\"name\":\"a\"]", QByteArray(600, '[') + QByteArray(600, ']'),
        };
        for (const QByteArray& text : refused) {
            QJsonArray records{QStringLiteral("kept")};
            QVERIFY2(!JsonRecordNames::read(text, &records), text.left(40).constData());
            QCOMPARE(records, QJsonArray{QStringLiteral("kept")});
        }

        // Through the loader: names as the parser gives them.
        const QString project = TestEnvironment::makeProject(QStringLiteral("names"));
        TestEnvironment::writeFile(project + QStringLiteral("/data/Actors.json"), taken[1]);
        QJsonObject data;
        ProjectData::ScreenSize screen;
        QVERIFY(ProjectData::load(QDir(project), data, screen, nullptr, {}, ProjectData::Reading::Names));
        QCOMPARE(GameDataLabel::databaseEntry(&data, QStringLiteral("Actors.json"), 1),
                 QStringLiteral("[0001] Knight \"A\", [of] {b}"));
    }

    // A FIFO would block a read for ever and /dev/zero never ends: neither is
    // opened, and each is named with its cause.
    void filesThatArentRegularAreRefused()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("special"));
        const QString data = project + QStringLiteral("/data/");
        QVERIFY(QFile::remove(data + QStringLiteral("System.json")));
        QCOMPARE(::mkfifo(QFile::encodeName(data + QStringLiteral("System.json")).constData(), 0644), 0);
        QVERIFY(QFile::remove(data + QStringLiteral("Items.json")));
        QVERIFY(QFile::link(QStringLiteral("/dev/zero"), data + QStringLiteral("Items.json")));
        QVERIFY(QFile::remove(data + QStringLiteral("Skills.json")));
        QVERIFY(QDir().mkpath(data + QStringLiteral("Skills.json")));

        QJsonObject loaded;
        ProjectData::ScreenSize screen;
        QStringList problems;
        QVERIFY(!ProjectData::load(QDir(project), loaded, screen, &problems));
        QCOMPARE(problems, (QStringList{QStringLiteral("\"System.json\" can't be read: not a regular file."),
                                        QStringLiteral("\"Skills.json\" can't be read: it is a folder."),
                                        QStringLiteral("\"Items.json\" can't be read: not a regular file.")}));
    }

    void screenSizeFallsBack()
    {
        // A width that isn't a number keeps the default; "advanced" of the
        // wrong kind counts as absent.
        const ProjectData::ScreenSize size =
            ProjectData::screenSize(QJsonObject{{"advanced", QJsonObject{{"screenWidth", "1280"}, {"screenHeight", 720}}}});
        QCOMPARE(size.width, 816);
        QCOMPARE(size.height, 720);
        QCOMPARE(ProjectData::screenSize(QJsonObject{{"advanced", QJsonArray{1280, 720}}}).width, 816);

        // An older project with no "advanced" opens at the default size.
        const QString project = TestEnvironment::makeProject(QStringLiteral("old"));
        TestEnvironment::writeFile(project + QStringLiteral("/data/System.json"), "{\"gameTitle\":\"Old\"}");
        QJsonObject data;
        ProjectData::ScreenSize screen{1, 1};
        QVERIFY(ProjectData::load(QDir(project), data, screen));
        QCOMPARE(screen.height, 624);
    }

    void reloadSeesNewEntries()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("reload"), 1280, 720);
        QJsonObject data;
        data.insert(QStringLiteral("Unrelated"), 5);
        ProjectData::ScreenSize screen;
        QVERIFY(ProjectData::load(QDir(project), data, screen));

        const QJsonArray actors{QJsonValue(), QJsonObject{{QStringLiteral("name"), QStringLiteral("Reid")}},
                                QJsonObject{{QStringLiteral("name"), QStringLiteral("Priscilla")}}};
        TestEnvironment::writeFile(project + QStringLiteral("/data/Actors.json"), QJsonDocument(actors).toJson());
        QVERIFY(ProjectData::load(QDir(project), data, screen));
        QCOMPARE(data.value(QStringLiteral("Actors.json")).toArray(), actors);
        // Keys other than the eleven files are overlaid, not cleared.
        QCOMPARE(data.value(QStringLiteral("Unrelated")).toInt(), 5);
    }
};

VELMORA_TEST_MAIN(TestProjectData, QCoreApplication)
#include "tst_projectdata.moc"
