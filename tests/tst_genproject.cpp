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

    using Result = TestEnvironment::CliResult;

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

    // What is found anywhere below a value: kinds of components, conditions
    // and add-ons, keys the editor doesn't know, and custom HUDs referred to.
    struct Census {
        QSet<int> componentKinds;
        QSet<int> conditionKinds;
        QSet<int> addonKinds;
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
                survey(item, key, census);
            }
            return;
        }
        const QJsonObject object = value.toObject();
        if (key == QLatin1String("HUD") || key == QLatin1String("Children")) {
            census.componentKinds.insert(object.value(QStringLiteral("Type")).toInt(-1));
            static const QSet<QString> known{
                "Type", "ID", "Name", "X", "Y", "Rotation", "Opacity", "ScaleX", "ScaleY", "Conditions",
                "CustomProperties", "Animations", "Children", "Expanded", "TextData", "ShapeData", "PictureData",
                "RepeatData", "GaugeData", "PictureGaugeData", "GroupData", "WindowData", "ActorFaceData",
                "IconData", "CustomData", "CustomCollectionData", "AttachCollectionData", "AnimationData"};
            for (auto it = object.begin(); it != object.end(); ++it)
                census.unknownComponentKeys += known.contains(it.key()) ? 0 : 1;
        }
        for (const char* dataKey : {"CustomData", "CustomCollectionData", "AttachCollectionData"})
            if (key == QLatin1String(dataKey))
                census.referencedHuds.insert(object.value(QStringLiteral("ID")).toString());
        for (auto it = object.begin(); it != object.end(); ++it)
            survey(it.value(), it.key(), census);
    }

    static QStringList projectArguments(const QString& project, int seed, int entries = 30, int huds = 2,
                                        int components = 80, int depth = 4)
    {
        return {"--out", project, "--seed", QString::number(seed), "--entries", QString::number(entries),
                "--huds", QString::number(huds), "--components", QString::number(components),
                "--depth", QString::number(depth)};
    }

private slots:
    void projectHoldsWhatWasAsked_data()
    {
        QTest::addColumn<int>("entries");
        QTest::addColumn<int>("huds");
        QTest::addColumn<int>("components");
        QTest::addColumn<int>("depth");
        QTest::newRow("small") << 12 << 2 << 40 << 3;
        QTest::newRow("deeper than wide") << 5 << 1 << 4 << 6;
    }

    void projectHoldsWhatWasAsked()
    {
        QFETCH(int, entries);
        QFETCH(int, huds);
        QFETCH(int, components);
        QFETCH(int, depth);
        const QString project = TestEnvironment::newFolder(QStringLiteral("asked"));
        const Result made = generate(projectArguments(project, 5, entries, huds, components, depth));
        QVERIFY2(made.code == 0, qPrintable(made.err));

        // The editor's own reading: a valid project with every count as asked.
        const Result checked = cli({QStringLiteral("check"), project});
        QVERIFY2(checked.code == 0, qPrintable(checked.out + checked.err));
        const int total = (2 + huds) * components + CustomComponents * CustomComponentSize;
        for (const QString& line :
             {QStringLiteral("Valid: yes"), QStringLiteral("HUD document: data/plugin/VelmoraHUD.json\n"),
              QStringLiteral("HUDs: %1 (Map HUD: yes, Battle HUD: yes)").arg(2 + huds + CustomComponents),
              QStringLiteral("Custom HUD objects: %1 (%2 extra HUDs, %3 custom components)")
                  .arg(huds + CustomComponents)
                  .arg(huds)
                  .arg(CustomComponents),
              QStringLiteral("Components: %1\n").arg(total)})
            QVERIFY2(checked.out.contains(line), qPrintable(line + QStringLiteral(" in:\n") + checked.out));

        // Every HUD but the custom components holds exactly the asked number,
        // nested as deep as asked (or as deep as that number allows).
        const QJsonObject root = readJson(TestEnvironment::documentPath(project)).object();
        const QJsonArray data = root.value(QStringLiteral("Data")).toArray();
        QSet<QString> customIds;
        for (const QJsonValue& value : data) {
            const QJsonObject hud = value.toObject();
            int deepest = 0;
            const int held = count(hud.value(QStringLiteral("HUD")).toArray(), 1, deepest);
            if (hud.contains(QStringLiteral("Width"))) { // a custom component
                customIds.insert(hud.value(QStringLiteral("ID")).toString());
                QCOMPARE(held, CustomComponentSize);
            } else {
                QCOMPARE(held, components);
                QCOMPARE(deepest, qMin(depth, components));
            }
        }
        QCOMPARE(customIds.size(), CustomComponents);

        // The custom kinds refer only to custom components that exist.
        Census census;
        survey(root, QString(), census);
        for (const QString& id : census.referencedHuds)
            QVERIFY2(customIds.contains(id), qPrintable(id));

        // The database: RPG Maker's arrays, entry 0 null, then N entries by id.
        for (const char* file : {"Actors", "Enemies", "Classes", "Skills", "Items", "Weapons", "Armors", "States",
                                 "Animations", "CommonEvents", "Troops"}) {
            const QJsonArray rows = readJson(project + QStringLiteral("/data/%1.json").arg(QLatin1String(file))).array();
            QCOMPARE(rows.size(), entries + 1);
            QVERIFY(rows.at(0).isNull());
            for (int id = 1; id <= entries; ++id)
                QCOMPARE(rows.at(id).toObject().value(QStringLiteral("id")).toInt(), id);
        }
        const QJsonObject system = readJson(project + QStringLiteral("/data/System.json")).object();
        QCOMPARE(system.value(QStringLiteral("switches")).toArray().size(), entries + 1);
        QCOMPARE(system.value(QStringLiteral("variables")).toArray().size(), entries + 1);
    }

    // One large project: it mixes every kind, the editor saves it back byte
    // for byte, and its seed alone decides its bytes.
    void largeProjectMixesResavesAndRepeats()
    {
        // Run by its own first line, as a user types it.
        const QString project = TestEnvironment::newFolder(QStringLiteral("mix"));
        const Result made = runProcess(generator(), projectArguments(project, 11));
        QVERIFY2(made.code == 0, qPrintable(made.err));
        const QString path = TestEnvironment::documentPath(project);
        const QByteArray original = TestEnvironment::readFile(path);
        Census census;
        survey(QJsonDocument::fromJson(original).object(), QString(), census);
        for (int kind = 0; kind <= 13; ++kind) {
            QVERIFY2(census.componentKinds.contains(kind), qPrintable(QStringLiteral("component %1").arg(kind)));
            QVERIFY2(census.conditionKinds.contains(kind), qPrintable(QStringLiteral("condition %1").arg(kind)));
        }
        for (int kind = 0; kind <= 5; ++kind)
            QVERIFY2(census.addonKinds.contains(kind), qPrintable(QStringLiteral("add-on %1").arg(kind)));
        QVERIFY(census.unknownComponentKeys > 0);

        const QString copy = TestEnvironment::newFolder(QStringLiteral("resaved")) + QStringLiteral("/VelmoraHUD.json");
        const Result resaved = cli({QStringLiteral("resave"), project, QStringLiteral("--out"), copy});
        QVERIFY2(resaved.code == 0, qPrintable(resaved.err));
        QCOMPARE(TestEnvironment::readFile(copy), original);
        QCOMPARE(TestEnvironment::readFile(path), original);

        QStringList again;
        for (const int seed : {11, 12}) {
            again << TestEnvironment::newFolder(QStringLiteral("seed"));
            const Result repeated = generate(projectArguments(again.last(), seed));
            QVERIFY2(repeated.code == 0, qPrintable(repeated.err));
        }
        for (const QString& file : {QStringLiteral("data/plugin/VelmoraHUD.json"), QStringLiteral("data/Actors.json"),
                                    QStringLiteral("data/System.json")})
            QCOMPARE(TestEnvironment::readFile(again.at(0) + QLatin1Char('/') + file),
                     TestEnvironment::readFile(project + QLatin1Char('/') + file));
        QVERIFY(TestEnvironment::readFile(TestEnvironment::documentPath(again.at(1))) != original);
    }

    void badArgumentsWriteNothing_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("no entries") << QStringList{QStringLiteral("--entries"), QStringLiteral("0")};
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
