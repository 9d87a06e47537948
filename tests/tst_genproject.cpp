#include "TestEnvironment.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
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

    static QStringList projectArguments(const QString& project, int seed, int entries = 30, int huds = 2,
                                        int components = 80, int depth = 4)
    {
        return {"--out", project, "--seed", QString::number(seed), "--entries", QString::number(entries),
                "--huds", QString::number(huds), "--components", QString::number(components),
                "--depth", QString::number(depth)};
    }

private slots:
    void projectHoldsWhatWasAsked()
    {
        const int entries = 12, huds = 2, components = 40, depth = 3;
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

    // One large project: the editor saves it back byte for byte, and its
    // seed alone decides its bytes.
    void largeProjectResavesAndRepeats()
    {
        // Run by its own first line, as a user types it.
        const QString project = TestEnvironment::newFolder(QStringLiteral("mix"));
        const Result made = runProcess(generator(), projectArguments(project, 11));
        QVERIFY2(made.code == 0, qPrintable(made.err));
        const QString path = TestEnvironment::documentPath(project);
        const QByteArray original = TestEnvironment::readFile(path);
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
