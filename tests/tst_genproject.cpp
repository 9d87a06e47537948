#include "TestEnvironment.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>

// The project generator of tools/gen-project, checked through velmora-cli:
// what it writes must open as a project, hold what was asked for, and come
// back byte for byte from the editor's save path.
class TestGenProject : public QObject
{
    Q_OBJECT

private:
    // The generator adds three custom components of four components each.
    static constexpr int CustomComponents = 3;
    static constexpr int CustomComponentSize = 4;

    struct Result {
        int code = -1;
        QString out;
        QString err;
    };

    static QString generator() { return QStringLiteral(VELMORA_SOURCE_ROOT "/tools/gen-project"); }

    static Result runProcess(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        // The generator imports a module beside it; no byte-code lands in the sources.
        environment.insert(QStringLiteral("PYTHONDONTWRITEBYTECODE"), QStringLiteral("1"));
        environment.remove(QStringLiteral("DISPLAY"));
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        Result result;
        if (!process.waitForStarted(30000) || !process.waitForFinished(300000))
            return result;
        result.code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        result.out = QString::fromUtf8(process.readAllStandardOutput());
        result.err = QString::fromUtf8(process.readAllStandardError());
        return result;
    }

    static Result generate(const QStringList& arguments)
    {
        const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
        if (python.isEmpty())
            return Result{-1, QString(), QStringLiteral("python3 is not installed")};
        return runProcess(python, QStringList{generator()} + arguments);
    }

    static Result cli(const QStringList& arguments)
    {
        return runProcess(QCoreApplication::applicationDirPath() + QStringLiteral("/velmora-cli"), arguments);
    }

    static QJsonDocument readJson(const QString& path)
    {
        return QJsonDocument::fromJson(TestEnvironment::readFile(path));
    }

    // Components of an array, all levels, and the deepest level reached.
    static int count(const QJsonArray& components, int level, int& deepest)
    {
        int total = 0;
        for (const QJsonValue& value : components) {
            const QJsonObject component = value.toObject();
            deepest = qMax(deepest, level);
            total += 1 + count(component.value(QStringLiteral("Children")).toArray(), level + 1, deepest);
        }
        return total;
    }

    // Everything found anywhere below a value, by the kind of thing it is.
    struct Census {
        QSet<int> componentKinds;
        QSet<int> conditionKinds;
        QSet<int> addonKinds;
        QSet<int> animatedProperties;
        QSet<int> listKinds;
        QSet<int> dynamicKinds;
        int extensions = 0;
        int customProperties = 0;
        int unknownComponentKeys = 0;
        QSet<QString> referencedHuds;
    };

    static void survey(const QJsonValue& value, const QString& key, Census& census)
    {
        if (value.isArray()) {
            for (const QJsonValue& item : value.toArray()) {
                const int type = item.toObject().value(QStringLiteral("Type")).toInt(-1);
                if (key == QLatin1String("Conditions"))
                    census.conditionKinds.insert(type);
                else if (key == QLatin1String("Addons"))
                    census.addonKinds.insert(type);
                else if (key == QLatin1String("Animations"))
                    census.animatedProperties.insert(item.toObject().value(QStringLiteral("Property")).toInt(-1));
                survey(item, key, census);
            }
            return;
        }
        if (!value.isObject())
            return;
        const QJsonObject object = value.toObject();
        const int type = object.value(QStringLiteral("Type")).toInt(-1);
        if (key == QLatin1String("HUD") || key == QLatin1String("Children")) {
            census.componentKinds.insert(type);
            static const QSet<QString> known{
                "Type", "ID", "Name", "X", "Y", "Rotation", "Opacity", "ScaleX", "ScaleY", "Conditions",
                "CustomProperties", "Animations", "Children", "Expanded", "TextData", "ShapeData", "PictureData",
                "RepeatData", "GaugeData", "PictureGaugeData", "GroupData", "WindowData", "ActorFaceData",
                "IconData", "CustomData", "CustomCollectionData", "AttachCollectionData", "AnimationData"};
            for (auto it = object.begin(); it != object.end(); ++it)
                if (!known.contains(it.key()))
                    ++census.unknownComponentKeys;
            census.customProperties += object.value(QStringLiteral("CustomProperties")).toObject().size();
        }
        // An extension object stands in for a plain value; a run type can look alike.
        const bool extension = object.size() == 2 && key != QLatin1String("ActivateType")
                               && ((type == 0 && object.contains(QStringLiteral("Param")))
                                   || (type == 1 && object.contains(QStringLiteral("ID")))
                                   || (type == 2 && object.contains(QStringLiteral("Code"))));
        if (extension)
            ++census.extensions;
        if (key == QLatin1String("ListData") || key == QLatin1String("List1") || key == QLatin1String("List2"))
            census.listKinds.insert(type);
        static const QSet<QString> dynamicKeys{"Text", "Maximum", "FirstNum", "SecondNum", "Number1", "Number2",
                                               "Text1", "Text2", "IconIndex"};
        if (!extension && dynamicKeys.contains(key))
            census.dynamicKinds.insert(type);
        for (const char* dataKey : {"CustomData", "CustomCollectionData", "AttachCollectionData"})
            if (key == QLatin1String(dataKey))
                census.referencedHuds.insert(object.value(QStringLiteral("ID")).toString());
        for (auto it = object.begin(); it != object.end(); ++it)
            survey(it.value(), it.key(), census);
    }

private slots:
    void generatorIsAScript()
    {
        QVERIFY(QFileInfo(generator()).isExecutable());
        // Run by its own first line, as a user types it.
        const QString project = TestEnvironment::newFolder(QStringLiteral("direct"));
        const Result result = runProcess(generator(), {QStringLiteral("--out"), project, QStringLiteral("--entries"),
                                                       QStringLiteral("3"), QStringLiteral("--huds"), QStringLiteral("0"),
                                                       QStringLiteral("--components"), QStringLiteral("2")});
        QVERIFY2(result.code == 0, qPrintable(result.err));
        QVERIFY(QFileInfo::exists(TestEnvironment::documentPath(project)));
    }

    void projectHoldsWhatWasAsked_data()
    {
        QTest::addColumn<int>("entries");
        QTest::addColumn<int>("huds");
        QTest::addColumn<int>("components");
        QTest::addColumn<int>("depth");
        QTest::newRow("small") << 12 << 2 << 40 << 3;
        QTest::newRow("flat") << 1 << 0 << 15 << 1;
        QTest::newRow("deeper than wide") << 5 << 1 << 4 << 6;
        QTest::newRow("empty HUDs") << 2 << 3 << 0 << 2;
    }

    void projectHoldsWhatWasAsked()
    {
        QFETCH(int, entries);
        QFETCH(int, huds);
        QFETCH(int, components);
        QFETCH(int, depth);
        const QString project = TestEnvironment::newFolder(QStringLiteral("asked"));
        const Result made = generate({QStringLiteral("--out"), project, QStringLiteral("--seed"), QStringLiteral("5"),
                                      QStringLiteral("--entries"), QString::number(entries), QStringLiteral("--huds"),
                                      QString::number(huds), QStringLiteral("--components"),
                                      QString::number(components), QStringLiteral("--depth"), QString::number(depth)});
        QVERIFY2(made.code == 0, qPrintable(made.err));
        QVERIFY(QFileInfo::exists(project + QStringLiteral("/game.rmmzproject")));

        // The editor's own reading: a valid project with every count as asked.
        const Result checked = cli({QStringLiteral("check"), project});
        QVERIFY2(checked.code == 0, qPrintable(checked.out + checked.err));
        QVERIFY(checked.out.contains(QStringLiteral("Valid: yes")));
        QVERIFY(checked.out.contains(QStringLiteral("Screen: 816 x 624")));
        QVERIFY2(checked.out.contains(QStringLiteral("HUD document: data/plugin/VelmoraHUD.json\n")), qPrintable(checked.out));
        QVERIFY2(checked.out.contains(QStringLiteral("HUDs: %1 (Map HUD: yes, Battle HUD: yes)")
                                          .arg(2 + huds + CustomComponents)),
                 qPrintable(checked.out));
        QVERIFY2(checked.out.contains(QStringLiteral("Custom HUD objects: %1 (%2 extra HUDs, %3 custom components)")
                                          .arg(huds + CustomComponents)
                                          .arg(huds)
                                          .arg(CustomComponents)),
                 qPrintable(checked.out));
        const int total = (2 + huds) * components + CustomComponents * CustomComponentSize;
        QVERIFY2(checked.out.contains(QStringLiteral("Components: %1\n").arg(total)), qPrintable(checked.out));

        // Every HUD but the custom components holds exactly the asked number,
        // nested as deep as asked (or as deep as that number allows).
        const QJsonObject root = readJson(TestEnvironment::documentPath(project)).object();
        const QJsonArray data = root.value(QStringLiteral("Data")).toArray();
        QCOMPARE(data.size(), 2 + huds + CustomComponents);
        const int mapIndex = root.value(QStringLiteral("Map")).toInt(-1);
        const int battleIndex = root.value(QStringLiteral("Battle")).toInt(-1);
        QVERIFY(mapIndex >= 0 && mapIndex < data.size());
        QVERIFY(battleIndex >= 0 && battleIndex < data.size() && battleIndex != mapIndex);
        QSet<QString> customIds;
        int extra = 0;
        for (int i = 0; i < data.size(); ++i) {
            const QJsonObject hud = data.at(i).toObject();
            int deepest = 0;
            const int held = count(hud.value(QStringLiteral("HUD")).toArray(), 1, deepest);
            if (i == mapIndex || i == battleIndex) {
                // The Map and Battle HUDs are written with their components only.
                QCOMPARE(hud.keys(), QStringList{QStringLiteral("HUD")});
            } else if (hud.value(QStringLiteral("IsHUD")).toBool()) {
                ++extra;
                QCOMPARE(hud.value(QStringLiteral("ID")).toString().size(), 5);
                QVERIFY(!hud.contains(QStringLiteral("Width")));
            } else {
                customIds.insert(hud.value(QStringLiteral("ID")).toString());
                QVERIFY(hud.value(QStringLiteral("Width")).toInt() > 0);
                QVERIFY(!hud.value(QStringLiteral("Params")).toArray().isEmpty());
                QCOMPARE(held, CustomComponentSize);
                continue;
            }
            QCOMPARE(held, components);
            QCOMPARE(deepest, qMin(depth, components));
        }
        QCOMPARE(extra, huds);
        QCOMPARE(customIds.size(), CustomComponents);

        // The custom kinds refer only to custom components that exist.
        Census census;
        survey(root, QString(), census);
        for (const QString& id : census.referencedHuds)
            QVERIFY2(customIds.contains(id), qPrintable(id));

        // The database: RPG Maker's arrays, entry 0 null, then N entries by id.
        for (const char* file : {"Actors", "Enemies", "Classes", "Skills", "Items", "Weapons", "Armors", "States",
                                 "Animations", "CommonEvents", "Troops"}) {
            const QJsonDocument table = readJson(project + QStringLiteral("/data/%1.json").arg(QLatin1String(file)));
            QVERIFY2(table.isArray(), file);
            const QJsonArray rows = table.array();
            QCOMPARE(rows.size(), entries + 1);
            QVERIFY(rows.at(0).isNull());
            for (int id = 1; id <= entries; ++id) {
                QCOMPARE(rows.at(id).toObject().value(QStringLiteral("id")).toInt(), id);
                QVERIFY(!rows.at(id).toObject().value(QStringLiteral("name")).toString().isEmpty());
            }
        }
        const QJsonObject system = readJson(project + QStringLiteral("/data/System.json")).object();
        QCOMPARE(system.value(QStringLiteral("switches")).toArray().size(), entries + 1);
        QCOMPARE(system.value(QStringLiteral("variables")).toArray().size(), entries + 1);
    }

    void documentMixesEverything()
    {
        const QString project = TestEnvironment::newFolder(QStringLiteral("mix"));
        const Result made = generate({QStringLiteral("--out"), project, QStringLiteral("--entries"), QStringLiteral("30"),
                                      QStringLiteral("--huds"), QStringLiteral("2"), QStringLiteral("--components"),
                                      QStringLiteral("80"), QStringLiteral("--depth"), QStringLiteral("4")});
        QVERIFY2(made.code == 0, qPrintable(made.err));
        Census census;
        survey(readJson(TestEnvironment::documentPath(project)).object(), QString(), census);

        for (int kind = 0; kind <= 13; ++kind)
            QVERIFY2(census.componentKinds.contains(kind), qPrintable(QString::number(kind)));
        QCOMPARE(census.componentKinds.size(), 14);
        for (int kind = 0; kind <= 13; ++kind)
            QVERIFY2(census.conditionKinds.contains(kind), qPrintable(QStringLiteral("condition %1").arg(kind)));
        for (int kind = 0; kind <= 5; ++kind)
            QVERIFY2(census.addonKinds.contains(kind), qPrintable(QStringLiteral("add-on %1").arg(kind)));
        for (int kind = 0; kind <= 7; ++kind)
            QVERIFY2(census.listKinds.contains(kind), qPrintable(QStringLiteral("list %1").arg(kind)));
        for (int kind = 0; kind <= 9; ++kind)
            QVERIFY2(census.dynamicKinds.contains(kind), qPrintable(QStringLiteral("dynamic value %1").arg(kind)));
        QVERIFY(census.animatedProperties.size() >= 10);
        QVERIFY(census.extensions > 0);
        QVERIFY(census.customProperties > 0);
        QVERIFY(census.unknownComponentKeys > 0);
    }

    void resaveKeepsTheDocumentByteForByte()
    {
        const QString project = TestEnvironment::newFolder(QStringLiteral("resave"));
        const Result made = generate({QStringLiteral("--out"), project, QStringLiteral("--seed"), QStringLiteral("11"),
                                      QStringLiteral("--entries"), QStringLiteral("8"), QStringLiteral("--huds"),
                                      QStringLiteral("3"), QStringLiteral("--components"), QStringLiteral("60"),
                                      QStringLiteral("--depth"), QStringLiteral("5")});
        QVERIFY2(made.code == 0, qPrintable(made.err));
        const QString path = TestEnvironment::documentPath(project);
        const QByteArray original = TestEnvironment::readFile(path);
        QVERIFY(original.size() > 10000);
        QVERIFY(!original.endsWith('\n'));

        const QString copy = TestEnvironment::newFolder(QStringLiteral("resaved")) + QStringLiteral("/VelmoraHUD.json");
        const Result resaved = cli({QStringLiteral("resave"), project, QStringLiteral("--out"), copy});
        QVERIFY2(resaved.code == 0, qPrintable(resaved.err));
        QCOMPARE(TestEnvironment::readFile(copy), original);
        QCOMPARE(TestEnvironment::readFile(path), original);
    }

    void sameSeedSameBytes()
    {
        const QStringList size{QStringLiteral("--entries"), QStringLiteral("6"), QStringLiteral("--huds"),
                               QStringLiteral("1"), QStringLiteral("--components"), QStringLiteral("30")};
        QStringList projects;
        for (const QString& seed : {QStringLiteral("3"), QStringLiteral("3"), QStringLiteral("4")}) {
            projects << TestEnvironment::newFolder(QStringLiteral("seed"));
            const Result made = generate(QStringList{QStringLiteral("--out"), projects.last(), QStringLiteral("--seed"), seed} + size);
            QVERIFY2(made.code == 0, qPrintable(made.err));
        }
        for (const QString& file : {QStringLiteral("data/plugin/VelmoraHUD.json"), QStringLiteral("data/Actors.json"),
                                    QStringLiteral("data/Classes.json"), QStringLiteral("data/System.json")}) {
            const QByteArray first = TestEnvironment::readFile(projects.at(0) + QLatin1Char('/') + file);
            QVERIFY(!first.isEmpty());
            QCOMPARE(TestEnvironment::readFile(projects.at(1) + QLatin1Char('/') + file), first);
        }
        QVERIFY(TestEnvironment::readFile(TestEnvironment::documentPath(projects.at(2)))
                != TestEnvironment::readFile(TestEnvironment::documentPath(projects.at(0))));
    }

    void badArgumentsWriteNothing_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("no entries") << QStringList{QStringLiteral("--entries"), QStringLiteral("0")};
        QTest::newRow("negative components") << QStringList{QStringLiteral("--components"), QStringLiteral("-1")};
        QTest::newRow("depth zero") << QStringList{QStringLiteral("--depth"), QStringLiteral("0")};
        QTest::newRow("not a number") << QStringList{QStringLiteral("--huds"), QStringLiteral("many")};
        // Without a folder to write to there is nothing to do.
        QTest::newRow("no folder") << QStringList{QStringLiteral("--seed"), QStringLiteral("1")};
    }

    void badArgumentsWriteNothing()
    {
        QFETCH(QStringList, arguments);
        const QString project = TestEnvironment::newFolder(QStringLiteral("bad")) + QStringLiteral("/Project");
        const bool withFolder = QTest::currentDataTag() != QByteArray("no folder");
        const Result result = generate((withFolder ? QStringList{QStringLiteral("--out"), project} : QStringList())
                                       + arguments);
        QCOMPARE(result.code, 2);
        QVERIFY(!result.err.isEmpty());
        QVERIFY(!QFileInfo::exists(project));
    }
};

VELMORA_TEST_MAIN(TestGenProject, QCoreApplication)
#include "tst_genproject.moc"
