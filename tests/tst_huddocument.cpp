#include "TestEnvironment.h"

#include "app/HudDocument.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>


#include <random>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

class TestHudDocument : public QObject
{
    Q_OBJECT

private:
    static QByteArray fullDocument()
    {
        return TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json"));
    }
    static QString projectWith(const QByteArray& document)
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("doc"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), document);
        return project;
    }
    static QByteArray resave(const QString& project)
    {
        const HudDocument document = HudDocument::load(QDir(project));
        const QString out = TestEnvironment::newFolder(QStringLiteral("out")) + QStringLiteral("/out.json");
        if (!HudDocument::save(QDir(project), HudDocument::assemble(document.root, document.entries), false, out))
            return QByteArray();
        return TestEnvironment::readFile(out);
    }
    // Over 20 MB: 48 HUDs of 1,000 components with nested children; seed
    // changes the content so that two documents can be told apart.
    static QJsonObject bigDocument(int seed)
    {
        QJsonArray data;
        for (int h = 0; h < 48; ++h) {
            QJsonArray components;
            for (int c = 0; c < 1000; ++c) {
                const QJsonObject text{{"FontSize", 22}, {"Text", QJsonObject{{"Type", 0}, {"Text", QString(180, 'x')}}}};
                const QJsonObject child{{"Type", 0}, {"ID", 100000 + c}, {"X", c % 50}, {"Y", -(c % 30)},
                                        {"Name", QStringLiteral("Child label %1 – ünïcödé").arg(c)},
                                        {"Opacity", 0.833333}, {"Rotation", 0}, {"TextData", text}};
                components.append(QJsonObject{{"Type", 5}, {"ID", c}, {"Name", QStringLiteral("Group %1").arg(c)},
                                              {"X", c + seed}, {"Y", c * 2}, {"Opacity", 1.0098}, {"Rotation", 0},
                                              {"Children", QJsonArray{child}}});
            }
            data.append(h > 1 ? hud(QStringLiteral("HUD %1").arg(h), QStringLiteral("%1").arg(h, 5, 10, QLatin1Char('0')),
                                    components)
                              : QJsonObject{{"HUD", components}});
        }
        return QJsonObject{{"Map", 0}, {"Battle", 1}, {"Data", data}};
    }

    static QJsonObject hud(const QString& name, const QString& id,
                           const QJsonArray& components = QJsonArray{QJsonObject{{"Type", 0}}})
    {
        return QJsonObject{{"Name", name}, {"ID", id}, {"IsHUD", true}, {"Params", QJsonArray()}, {"HUD", components}};
    }

private slots:
    void realisticDocumentRoundTripsByteForByte()
    {
        const QByteArray original = fullDocument();
        const QString project = projectWith(original);
        const HudDocument document = HudDocument::load(QDir(project));
        // "Map" 3 and "Battle" 0: the special items stay where they stand.
        QCOMPARE(document.entries.at(0).type, int(HudEntry::Battle));
        QCOMPARE(document.entries.at(3).type, int(HudEntry::Map));
        QVERIFY(HudDocument::save(QDir(project), HudDocument::assemble(document.root, document.entries), false));
        QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project)), original);
    }

    void reorderedListRecomputesMapAndBattle()
    {
        const QJsonObject source{{"Map", 0}, {"Battle", 1}, {"Extra", "kept"},
                                 {"Data", QJsonArray{QJsonObject{{"HUD", QJsonArray{1}}}, QJsonObject{{"HUD", QJsonArray{2}}},
                                                     hud("A", "01234"), hud("B", "56012")}}};
        HudDocument document;
        document.setDocument(source, {"/img/map.png", QString(), "/img/a.png"});
        // The user moves the Map HUD to the end and B to the front.
        const QVector<HudEntry> moved{document.entries.at(3), document.entries.at(1), document.entries.at(2),
                                      document.entries.at(0)};
        QStringList backgrounds;
        const QJsonObject saved = HudDocument::assemble(document.root, moved, &backgrounds);
        QCOMPARE(saved.value("Map").toInt(), 3);
        QCOMPARE(saved.value("Battle").toInt(), 1);
        QCOMPARE(saved.value("Extra").toString(), QStringLiteral("kept"));
        const QJsonArray data = saved.value("Data").toArray();
        QCOMPARE(data.at(3).toObject(), QJsonObject({{"HUD", QJsonArray{1}}}));
        // A list shorter than "Data": the rest get empty strings.
        QCOMPARE(backgrounds, QStringList({QString(), QString(), "/img/a.png", "/img/map.png"}));
        // "Background" never reaches the file.
        QVERIFY(!QJsonDocument(saved).toJson().contains("Background"));
    }

    void specialHudsKeepOnlyTheirComponents()
    {
        const QJsonArray components{QJsonObject{{"Type", 3}}};
        HudDocument document;
        document.setDocument(
            QJsonObject{{"Map", 0}, {"Battle", 1},
                        {"Data", QJsonArray{QJsonObject{{"Name", "Hand edited"}, {"Params", QJsonArray{QJsonObject()}},
                                                        {"HUD", components}},
                                            QJsonObject{{"IsHUD", false}}}}},
            {});
        const QJsonArray data = HudDocument::assemble(document.root, document.entries).value("Data").toArray();
        QCOMPARE(data.at(0).toObject(), QJsonObject({{"HUD", components}}));
        // Everything else goes, also from a Battle HUD that held no "HUD" at all.
        QCOMPARE(data.at(1).toObject(), QJsonObject());
    }

    void oddMapAndBattleIndexes()
    {
        // "Data" shorter than "Map": no Map HUD and nothing current. Saved,
        // the number names no entry, so that a HUD pasted later can't become
        // a Map HUD by accident.
        HudDocument shortData;
        shortData.setDocument(QJsonObject{{"Map", 7}, {"Data", QJsonArray{QJsonObject(), hud("X", "00000")}}}, {});
        QCOMPARE(shortData.currentIndex, -1);
        QCOMPARE(HudDocument::assemble(shortData.root, shortData.entries).value("Map").toInt(), -1);

        // Both naming one index: that entry is the Map HUD and no Battle HUD exists.
        HudDocument same;
        same.setDocument(QJsonObject{{"Map", 1}, {"Battle", 1}, {"Data", QJsonArray{QJsonObject(), QJsonObject()}}}, {});
        QCOMPARE(same.entries.at(0).type, int(HudEntry::Custom));
        // The custom entry moved behind the Map HUD must not become the Battle
        // HUD on the next load.
        QVector<HudEntry> reordered{same.entries.at(1), same.entries.at(0)};
        reordered[1].object.insert("Name", "Kept");
        const QJsonObject saved = HudDocument::assemble(same.root, reordered);
        QCOMPARE(saved.value("Battle").toInt(), -1);
        HudDocument reloaded;
        reloaded.setDocument(saved, {});
        QCOMPARE(reloaded.entries.at(1).type, int(HudEntry::Custom));
        const QJsonArray data = HudDocument::assemble(reloaded.root, reloaded.entries).value("Data").toArray();
        QCOMPARE(data.at(1).toObject().value("Name").toString(), QStringLiteral("Kept"));

        // Absent numbers read as 0 and 1.
        HudDocument absent;
        absent.setDocument(QJsonObject{{"Data", QJsonArray{QJsonObject(), QJsonObject(), QJsonObject()}}}, {});
        QCOMPARE(absent.entries.at(0).type, int(HudEntry::Map));
        QCOMPARE(absent.entries.at(1).type, int(HudEntry::Battle));
    }

    void badDocumentsFallBack_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("fromTemplates");
        QTest::addColumn<int>("entries");
        QTest::newRow("malformed") << QByteArray("{\"Map\":0,\"Data\":[{\"HUD\":[]}") << true << 2;
        // A shape that is wrong at the root leaves nothing to open but the templates.
        QTest::newRow("data a string") << QByteArray("{\"Data\":\"oops\",\"Note\":{\"k\":[1,2]}}") << true << 2;
        QTest::newRow("data entry not object") << QByteArray("{\"Data\":[{\"HUD\":[]},5,{\"HUD\":[]}]}") << false << 3;
        QTest::newRow("components not an array") << QByteArray("{\"Data\":[{\"HUD\":{\"0\":{\"Type\":1}}},{\"HUD\":[]}]}") << false << 2;
        QByteArray deep;
        for (int i = 0; i < 5000; ++i)
            deep += "{\"a\":[";
        deep += "1";
        for (int i = 0; i < 5000; ++i)
            deep += "]}";
        QTest::newRow("deeper than the reader allows") << deep << true << 2;
    }

    void badDocumentsFallBack()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, fromTemplates);
        QFETCH(int, entries);
        const QString project = projectWith(content);
        const HudDocument document = HudDocument::load(QDir(project));
        QCOMPARE(document.fromTemplates, fromTemplates);
        QCOMPARE(document.entries.size(), entries);
        QVERIFY(!document.damageNotice().isEmpty());
        if (fromTemplates) {
            // A Map and a Battle HUD to work on, never an empty list.
            QCOMPARE(document.entries.at(0).type, int(HudEntry::Map));
            QCOMPARE(document.entries.at(1).type, int(HudEntry::Battle));
        }

        // The first save keeps the damaged bytes beside the new file.
        QVERIFY(HudDocument::save(QDir(project), HudDocument::assemble(document.root, document.entries), true));
        const QString path = TestEnvironment::documentPath(project);
        QCOMPARE(TestEnvironment::readFile(path + QStringLiteral(".bak")), content);
        const QJsonDocument written = QJsonDocument::fromJson(TestEnvironment::readFile(path));
        QCOMPARE(written.object().value("Data").toArray().size(), entries);
        // Root keys this program doesn't know survive a wrong "Data".
        QCOMPARE(written.object().value("Note"), QJsonDocument::fromJson(content).object().value("Note"));
        // An earlier backup is never overwritten.
        TestEnvironment::writeFile(path, content);
        QVERIFY(HudDocument::save(QDir(project), HudDocument::assemble(document.root, document.entries), true));
        QCOMPARE(TestEnvironment::readFile(path + QStringLiteral(".bak")), content);
        QCOMPARE(TestEnvironment::readFile(path + QStringLiteral(".bak.1")), content);
    }

    void failedWritesKeepThePreviousFile()
    {
        const QByteArray original = fullDocument();
        const QString project = projectWith(original);
        const HudDocument document = HudDocument::load(QDir(project));
        const QJsonObject assembled = HudDocument::assemble(document.root, document.entries);

        // The document's place is taken by a folder.
        const QString blocked = TestEnvironment::makeProject(QStringLiteral("blocked"));
        QDir().mkpath(TestEnvironment::documentPath(blocked));
        QVERIFY(!HudDocument::save(QDir(blocked), assembled, false));
        QVERIFY(QFileInfo(TestEnvironment::documentPath(blocked)).isDir());


        // A damaged file that can't be copied is not written over.
        const QString damaged = projectWith("{broken");
        QDir().mkpath(TestEnvironment::documentPath(damaged) + QStringLiteral(".bak"));
        for (int n = 1; n < 3; ++n)
            QDir().mkpath(TestEnvironment::documentPath(damaged) + QStringLiteral(".bak.%1").arg(n));
        QFile::setPermissions(damaged + QStringLiteral("/data/plugin"), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const bool overwritten = HudDocument::save(QDir(damaged), assembled, true);
        QFile::setPermissions(damaged + QStringLiteral("/data/plugin"),
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        if (geteuid() != 0) {
            QVERIFY(!overwritten);
            QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(damaged)), QByteArray("{broken"));
        }
    }

    // Run as root, as CI does, permissions prove nothing about the save: these
    // children are stopped in ways root can't get around, and each time the
    // previous document must still be whole.
    void killedSavesLeaveThePreviousFileWhole()
    {
        const QJsonObject first = bigDocument(1);
        const QJsonObject second = bigDocument(2);
        const QByteArray firstBytes = TestEnvironment::compact(first);
        const QByteArray secondBytes = TestEnvironment::compact(second);
        QVERIFY(firstBytes.size() > 20 * 1024 * 1024);
        const QString project = projectWith(firstBytes);
        const QString path = TestEnvironment::documentPath(project);

        std::mt19937 random(20261123);
        std::uniform_int_distribution<int> delay(0, 600000);
        for (int round = 0; round < 20; ++round) {
            const pid_t child = ::fork();
            QVERIFY(child >= 0);
            if (child == 0) {
                // Saves the two documents in turn until killed.
                for (int i = 0;; ++i)
                    HudDocument::save(QDir(project), i % 2 ? first : second, false);
            }
            ::usleep(useconds_t(delay(random)));
            ::kill(child, SIGKILL);
            int status = 0;
            ::waitpid(child, &status, 0);
            QVERIFY(WIFSIGNALED(status));
            const QByteArray now = TestEnvironment::readFile(path);
            QVERIFY2(now == firstBytes || now == secondBytes,
                     qPrintable(QStringLiteral("round %1: %2 bytes").arg(round).arg(now.size())));
        }
    }

    void identifiers()
    {
        QStringList taken;
        for (int i = 0; i < 3000; ++i)
            taken.append(HudDocument::newIdentifier(taken));
        const QSet<QString> unique(taken.begin(), taken.end());
        QCOMPARE(unique.size(), taken.size());
        for (const QString& id : taken)
            QVERIFY2(QRegularExpression(QStringLiteral("^[0-6]{5}$")).match(id).hasMatch(), qPrintable(id));

        QVector<HudEntry> entries{{HudEntry::Map, QJsonObject()},
                                  {HudEntry::Custom, QJsonObject{{"ID", QStringLiteral("01234")}}},
                                  {HudEntry::Custom, QJsonObject{{"Name", QStringLiteral("no id")}}}};
        QCOMPARE(HudDocument::identifiers(entries), QStringList{QStringLiteral("01234")});
    }
};

VELMORA_TEST_MAIN(TestHudDocument, QCoreApplication)
#include "tst_huddocument.moc"
