#include "TestEnvironment.h"

#include "app/CommandLineTool.h"

#include <QCoreApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include <sys/stat.h>

class TestCommandLine : public QObject
{
    Q_OBJECT

private:
    using Result = TestEnvironment::CliResult;
    static Result run(const QStringList& arguments) { return TestEnvironment::runCli(arguments); }

private slots:
    void checkCountsWhatTheDocumentHolds()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("full"), 1280, 720);
        TestEnvironment::writeFile(TestEnvironment::documentPath(project),
                                   TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json")));
        // The marker file names the same project.
        const Result full = run({QStringLiteral("check"), project + QStringLiteral("/game.rmmzproject")});
        QCOMPARE(full.code, 0);
        QVERIFY(full.err.isEmpty());
        QVERIFY(full.out.contains(QStringLiteral("Valid: yes")));
        QVERIFY(full.out.contains(QStringLiteral("Screen: 1280 x 720")));
        QVERIFY(full.out.contains(QStringLiteral("HUDs: 5 (Map HUD: yes, Battle HUD: yes)")));
        // One "IsHUD" true, one false, one without the key (a HUD by the list's reading).
        QVERIFY2(full.out.contains(QStringLiteral("Custom HUD objects: 3 (2 extra HUDs, 1 custom components)")),
                 qPrintable(full.out));
    }

    // After the totals, one line per kind the document holds, in "Type"
    // order, children and custom HUD objects counted, and the number of
    // components drawn as the plain rectangle: unknown kinds only, never the
    // kinds that draw themselves.
    void checkCountsEachKindAndThePlaceholders()
    {
        // A window holding a text and a group that holds a shape, an
        // animation, two unknown kinds; a custom component object holding a shape.
        const QString project = TestEnvironment::makeProject(QStringLiteral("kinds"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), R"j({"Map":0,"Battle":1,"Data":[{"HUD":[
            {"Type":7,"ID":1,"X":0,"Y":0,"Children":[{"Type":0,"ID":2,"X":0,"Y":0},
              {"Type":6,"ID":3,"X":0,"Y":0,"Children":[{"Type":1,"ID":4,"X":0,"Y":0}]}]},
            {"Type":14,"ID":5,"X":0,"Y":0},{"Type":13,"ID":6,"X":0,"Y":0},{"Type":-1,"ID":7,"X":0,"Y":0}]},{"HUD":[]},
            {"ID":"456","Name":"Part","IsHUD":false,"Width":10,"Height":10,"HUD":[{"Type":1,"ID":1,"X":0,"Y":0}]}]})j");
        const Result result = run({QStringLiteral("check"), project});
        QCOMPARE(result.code, 0);
        const QString expected = QStringLiteral(
            "Components: 8\n"
            "Kind 0 Text: 1\n"
            "Kind 1 Shape: 2\n"
            "Kind 6 Group: 1\n"
            "Kind 7 Window: 1\n"
            "Kind 13 Animation: 1\n"
            "Placeholders: 2\n"
            "Missing images: 0\n"
            "Missing custom HUDs: 0\n"
            "Custom HUD cycles: 0\n");
        QVERIFY2(result.out.endsWith(expected), qPrintable(result.out));
    }

    // Every image a component shows that the project lacks, or can't read
    // (an empty or a cut-off file), is named with its HUD and component,
    // children included; an empty name and a name the game works out refer
    // to nothing. The document is still valid.
    void checkListsMissingImages()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("images"));
        TestEnvironment::writeFile(project + "/img/pictures/Empty.png", QByteArray());
        TestEnvironment::writeFile(project + "/img/system/Cut.png",
                                   TestEnvironment::readFile(project + "/img/system/Window.png").left(80));
        auto component = [](int id, const QString& name, int type, const char* dataKey, const QJsonObject& data) {
            return QJsonObject{{"ID", id}, {"Type", type}, {"Name", name}, {"X", 0}, {"Y", 0}, {dataKey, data}};
        };
        QJsonObject window = component(3, "Frame", 7, "WindowData", {{"WindowSkin", "Window"}});
        window.insert("Children", QJsonArray{component(4, "State", 9, "IconData", {{"IconSet", "Cut"}})});
        const QJsonArray map{component(1, "Coin", 2, "PictureData", {{"Picture", "Coin"}}),
                             component(2, "Lost", 2, "PictureData", {{"Picture", "Lost"}}), window,
                             component(6, "Nothing", 2, "PictureData", {{"Picture", ""}}),
                             component(7, "Run time", 7, "WindowData",
                                       {{"WindowSkin", QJsonObject{{"Type", 0}, {"Param", "Skin"}}}})};
        const QJsonArray status{component(8, "Clouds", 3, "RepeatData", {{"Picture", "Empty"}})};
        const QJsonObject document{
            {"Map", 0},
            {"Battle", 1},
            {"Data", QJsonArray{QJsonObject{{"HUD", map}}, QJsonObject{{"HUD", QJsonArray()}},
                                QJsonObject{{"HUD", status}, {"IsHUD", true}, {"ID", "123"}, {"Name", "Status"}}}}};
        TestEnvironment::writeFile(TestEnvironment::documentPath(project),
                                   QJsonDocument(document).toJson(QJsonDocument::Compact));
        const Result result = run({QStringLiteral("check"), project});
        QCOMPARE(result.code, 0);
        const QString expected = QStringLiteral(
            "Missing images: 3\n"
            "  img/pictures/Lost.png: HUD \"Map HUD\", component \"Lost\" (ID 2)\n"
            "  img/system/Cut.png: HUD \"Map HUD\", component \"State\" (ID 4)\n"
            "  img/pictures/Empty.png: HUD \"Status\", component \"Clouds\" (ID 8)\n"
            "Missing custom HUDs: 0\n"
            "Custom HUD cycles: 0\n");
        QVERIFY2(result.out.endsWith(expected), qPrintable(result.out));
    }

    // A script must be able to tell a damaged document from a good one: the
    // reason is named, nothing of the templates is counted, and the exit is
    // 1; resave leaves it as it is.
    void checkAndResaveRefuseADamagedDocument()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("damaged"));
        const QString document = TestEnvironment::documentPath(project);
        const QByteArray full = TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json"));
        for (const QByteArray& damaged : {full.left(full.size() / 2), QByteArray("{\"Data\":{\"Map\":1}}")}) {
            TestEnvironment::writeFile(document, damaged);
            const Result result = run({QStringLiteral("check"), project});
            QCOMPARE(result.code, 1);
            QVERIFY2(result.out.contains(QStringLiteral("VelmoraHUD.json is damaged: ")), qPrintable(result.out));
            QVERIFY2(!result.out.contains(QStringLiteral("Components:")), qPrintable(result.out));
            QCOMPARE(run({QStringLiteral("resave"), project}).code, 1);
            QCOMPARE(TestEnvironment::readFile(document), damaged);
        }

        // A document that can't be read at all (where the test isn't root).
        QVERIFY(QFile::setPermissions(document, QFileDevice::WriteOwner));
        if (!QFile(document).open(QIODevice::ReadOnly)) {
            const Result unreadable = run({QStringLiteral("check"), project});
            QCOMPARE(unreadable.code, 1);
            QVERIFY2(unreadable.out.contains(QStringLiteral("permission denied")), qPrintable(unreadable.out));
        }
        QFile::setPermissions(document, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }

    void checkInvalidProject()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("invalid"));
        QFile::remove(project + QStringLiteral("/data/CommonEvents.json"));
        TestEnvironment::writeFile(project + QStringLiteral("/data/Actors.json"), "{\"1\":{}}");
        const Result result = run({QStringLiteral("check"), project});
        QCOMPARE(result.code, 1);
        QVERIFY(result.out.contains(QStringLiteral("Valid: no")));
        QVERIFY(result.out.contains(QStringLiteral("\"Actors.json\" doesn't hold an array.")));
        QVERIFY(result.out.contains(QStringLiteral("\"CommonEvents.json\" is missing.")));
        QVERIFY(!result.out.contains(QStringLiteral("Screen:")));

    }

    void resaveIsByteIdentical()
    {
        const QByteArray original = TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json"));
        const QString project = TestEnvironment::makeProject(QStringLiteral("resave"));
        const QString path = TestEnvironment::documentPath(project);
        TestEnvironment::writeFile(path, original);

        const QString out = TestEnvironment::newFolder(QStringLiteral("out")) + QStringLiteral("/copy.json");
        QFile::setPermissions(path, QFileDevice::ReadOwner);
        const Result toFile = run({QStringLiteral("resave"), project, QStringLiteral("--out"), out});
        QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        QCOMPARE(toFile.code, 0);
        QCOMPARE(TestEnvironment::readFile(out), original);
        QCOMPARE(TestEnvironment::readFile(path), original);
        QVERIFY(!QFileInfo::exists(path + QStringLiteral(".bak")));

        // A hand-formatted document comes back in the compact sorted form.
        TestEnvironment::writeFile(path, QJsonDocument::fromJson(original).toJson(QJsonDocument::Indented));
        QCOMPARE(run({QStringLiteral("resave"), project}).code, 0);
        QCOMPARE(TestEnvironment::readFile(path), original);
    }

    void resaveRefusesWhatItCantDo()
    {
        const QString fresh = TestEnvironment::makeProject(QStringLiteral("fresh"));
        const Result none = run({QStringLiteral("resave"), fresh});
        QCOMPARE(none.code, 1);
        QVERIFY(none.err.contains(QStringLiteral("no HUD document")));
        QVERIFY(!QFileInfo::exists(TestEnvironment::documentPath(fresh)));

        const QString project = TestEnvironment::makeProject(QStringLiteral("unwritable"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), "{\"Data\":[]}");
        const QString target = TestEnvironment::newFolder(QStringLiteral("target"));
        const Result result = run({QStringLiteral("resave"), project, QStringLiteral("--out"), target});
        QCOMPARE(result.code, 1);
        QVERIFY(result.err.contains(QStringLiteral("could not write")));
    }

    // A FIFO once hung check and resave until killed: it isn't read, and is
    // named with the reason; nor is a document past the size limit.
    void filesThatArentRegularAreRefusedAtOnce()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("special"));
        const QString document = TestEnvironment::documentPath(project);
        QVERIFY(QDir().mkpath(QFileInfo(document).absolutePath()));
        QCOMPARE(::mkfifo(QFile::encodeName(document).constData(), 0644), 0);
        Result result = run({QStringLiteral("check"), project});
        QCOMPARE(result.code, 1);
        QVERIFY2(result.out.contains(QStringLiteral("not a regular file")), qPrintable(result.out));

        // Past the size limit (a sparse file, so the test writes nothing big).
        QVERIFY(QFile::remove(document));
        {
            QFile huge(document);
            QVERIFY(huge.open(QIODevice::WriteOnly));
            QVERIFY(huge.resize(qint64(300) * 1024 * 1024));
        }
        result = run({QStringLiteral("resave"), project});
        QCOMPARE(result.code, 1);
        QVERIFY2(result.err.contains(QStringLiteral("larger than 256 MB")), qPrintable(result.err));
        QCOMPARE(QFileInfo(document).size(), qint64(300) * 1024 * 1024);
    }

    // Every kind of value a component holds is shown under it, with names
    // from the project, and its add-ons after them, one line each as the
    // add-on list shows them; what isn't a value, an add-on or a component
    // the editor knows is said so.
    void outlineShowsEveryValue()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("outline"));
        const QByteArray document = R"j({"Map":0,"Battle":1,"Data":[{"HUD":[
            {"Type":6,"ID":1,"Name":"Box","X":10,"Y":20,"Children":[
              {"Type":0,"ID":2,"Name":"Label","X":1,"Y":2,"ScaleX":1.5,"TextData":{"Text":{"Type":2,"ID":1},
                "FontSize":{"Type":0,"Param":"Size"},"OutlineSize":{"Type":7},
                "Addons":[{"Type":0,"Note":"hi\nthere"},{"Type":42},7]}},
              {"Type":4,"ID":3,"X":0,"Y":0,"GaugeData":{"Width":250,"Height":30,
                "Value":{"Type":8,"Op":10,"FirstNum":{"Type":3,"ID":1},"SecondNum":{"Type":0,"Number":0}},
                "Maximum":{"Type":12},"Smoothness":{"Type":1,"ID":7}}}]},
            {"Type":1,"ID":4,"X":0,"Y":0,"ShapeData":{"Addons":{"Type":0}}},
            {"Type":42,"ID":7,"Name":"Future","X":3,"Y":4,"FutureData":{"Text":{"Type":0,"Text":"Hi"}}},
            "not a component"]},{"HUD":[]},
           {"ID":"ABCDE","Name":"Extra","IsHUD":true,"HUD":[]}]})j";
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), document);
        Result result = run({QStringLiteral("outline"), project, QStringLiteral("--hud"), QStringLiteral("Map HUD")});
        QCOMPARE(result.code, 0);
        QCOMPARE(result.out, QStringLiteral("HUD \"Map HUD\" (the Map HUD): 5 components\n"
                                            "  Group \"Box\" at 10, 20, 50 x 50\n"
                                            "    Text \"Label\" at 1, 2, scale 150% x 100%\n"
                                            "      - FontSize (dynamic input): Param: Size\n"
                                            "      - OutlineSize (dynamic input): (unknown value)\n"
                                            "      - Text (dynamic text, switch): [0001] Show HUD\n"
                                            "      - Add-on 1: Note: hi \u23ce there\n"
                                            "      - Add-on 2: (unknown add-on)\n"
                                            "      - Add-on 3: (not an add-on)\n"
                                            "    Gauge (no name) at 0, 0, 250 x 30\n"
                                            "      - Maximum (dynamic number): (unknown value)\n"
                                            "      - Smoothness (dynamic input): Variable: [0007]\n"
                                            "      - Value (dynamic number, math): (Abs.) [0001] Gold Goal\n"
                                            "  Shape (no name) at 0, 0, 100 x 100\n"
                                            "    - Add-ons: (not a list of add-ons)\n"
                                            "  Unknown kind (\"Type\" 42) \"Future\" at 3, 4\n"
                                            "    - Text (dynamic text, plain): Hi\n"
                                            "  (not a component: a JSON value)\n"));
        QVERIFY(result.err.isEmpty());

        // All HUDs without --hud; a name that isn't there is an error.
        result = run({QStringLiteral("outline"), project});
        QCOMPARE(result.code, 0);
        QVERIFY(result.out.endsWith(QStringLiteral("HUD \"Battle HUD\" (the Battle HUD): 0 components\n"
                                                   "HUD \"Extra\" (extra HUD, ID ABCDE): 0 components\n")));
        result = run({QStringLiteral("outline"), project, QStringLiteral("--hud"), QStringLiteral("Nope")});
        QCOMPARE(result.code, 1);
        QVERIFY2(result.err.contains(QStringLiteral("no HUD named \"Nope\"")), qPrintable(result.err));

        // A damaged document is named, and nothing is printed as if it were whole.
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), document.left(200));
        result = run({QStringLiteral("outline"), project});
        QCOMPARE(result.code, 1);
        QVERIFY(result.out.isEmpty());
        QVERIFY2(result.err.contains(QStringLiteral("VelmoraHUD.json can't be read as a HUD document (")),
                 qPrintable(result.err));
    }

    // A custom component's outline names the parameters it declares and the
    // kind of value each takes; each use of it names the HUD it shows and
    // every value it gives the parameters. A Map HUD holding parameter
    // definitions by hand shows none.
    void outlineNamesCustomHudAndParameters()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("outline-uses"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), R"j({"Map":0,"Battle":1,"Data":[
            {"Params":[{"Name":"Stray"}],"HUD":[
              {"Type":10,"ID":2,"Name":"Mage row","X":5,"Y":60,"CustomData":{"Width":90,"Height":30,"ID":"01234",
                "Params":{"Label":"Mage","Index":2.5,"Odd":false}}},
              {"Type":12,"ID":4,"Name":"Gone","X":0,"Y":0,"AttachCollectionData":{"Width":100,"Height":100,
                "ID":"66666","Params":{}}}]},
            {"HUD":[]},
            {"ID":"01234","Name":"Status Row","IsHUD":false,"Width":90,"Height":30,
             "Params":[{"Name":"Label","IsString":true},{"Name":"Index"},7],"HUD":[
              {"Type":0,"ID":1,"Name":"Label","X":50,"Y":10,
                "TextData":{"Text":{"Type":0,"Text":{"Type":0,"Param":"Label"}}}},
              {"Type":4,"ID":2,"Name":"Bar","X":50,"Y":20,"GaugeData":{"Width":80,"Height":8,
                "Value":{"Type":0,"Number":{"Type":0,"Param":"Index"}},"Maximum":{"Type":0,"Number":100}}}]}]})j");
        Result result =
            run({QStringLiteral("outline"), project, QStringLiteral("--hud"), QStringLiteral("Status Row")});
        QCOMPARE(result.code, 0);
        // The parts bound to the parameters say so.
        QCOMPARE(result.out, QStringLiteral("HUD \"Status Row\" (custom component, ID 01234): 2 components\n"
                                            "  Parameter \"Label\" (text)\n"
                                            "  Parameter \"Index\" (number)\n"
                                            "  Parameter (not a parameter definition)\n"
                                            "  Text \"Label\" at 50, 10, scale 100% x 100%\n"
                                            "    - Text (dynamic text, plain): Param: Label\n"
                                            "  Gauge \"Bar\" at 50, 20, 80 x 8\n"
                                            "    - Maximum (dynamic number, plain): 100\n"
                                            "    - Value (dynamic number, plain): Param: Index\n"));
        result = run({QStringLiteral("outline"), project, QStringLiteral("--hud"), QStringLiteral("Map HUD")});
        QCOMPARE(result.out, QStringLiteral("HUD \"Map HUD\" (the Map HUD): 2 components\n"
                                            "  Custom \"Mage row\" at 5, 60, 90 x 30\n"
                                            "    - Custom HUD: \"Status Row\" (ID 01234)\n"
                                            "    - Parameter \"Index\" (number): 2.5\n"
                                            "    - Parameter \"Label\" (text): Mage\n"
                                            "    - Parameter \"Odd\": (unknown value)\n"
                                            "  Attach Collection \"Gone\" at 0, 0, 100 x 100\n"
                                            "    - Custom HUD: (no HUD with ID \"66666\")\n"));
    }

    // A wrong command line gets one line on the error stream and the exit 2.
    void usage()
    {
        for (const QStringList& arguments : {QStringList(), QStringList{"check", "--fast", "."}}) {
            const Result result = run(arguments);
            QCOMPARE(result.code, 2);
            QVERIFY(result.out.isEmpty());
            QCOMPARE(result.err.count(QLatin1Char('\n')), 1);
            QVERIFY(result.err.startsWith(QStringLiteral("velmora-cli: ")));
        }
        QCOMPARE(run({QStringLiteral("--help")}).code, 0);
    }

    void programRunsWithoutDisplay()
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("DISPLAY"));
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        process.setProcessEnvironment(environment);
        // Without a display, drawing HUDs runs the canvas offscreen.
        const QString out = TestEnvironment::newFolder(QStringLiteral("render-process"));
        process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/velmora-cli"),
                      {QStringLiteral("render"), QStringLiteral(VELMORA_SAMPLE_PROJECT), QStringLiteral("--out"), out,
                       QStringLiteral("--zoom"), QStringLiteral("2")});
        QVERIFY(process.waitForFinished(60000));
        QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
        QCOMPARE(QImage(out + QStringLiteral("/Map HUD.png")).size(), QSize(1632, 1248));
    }
};

VELMORA_TEST_MAIN(TestCommandLine, QCoreApplication)
#include "tst_commandline.moc"
