#include "TestEnvironment.h"

#include "app/CommandLineTool.h"

#include <QCoreApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTextStream>

#include <sys/stat.h>

class TestCommandLine : public QObject
{
    Q_OBJECT

private:
    using Result = TestEnvironment::CliResult;
    static Result run(const QStringList& arguments) { return TestEnvironment::runCli(arguments); }

private slots:
    void checkSampleProject()
    {
        const Result result = run({QStringLiteral("check"), QStringLiteral(VELMORA_SAMPLE_PROJECT)});
        QCOMPARE(result.code, 0);
        QVERIFY(result.out.contains(QStringLiteral("Valid: yes")));
        QVERIFY(result.out.contains(QStringLiteral("Screen: 816 x 624")));
        QVERIFY(result.out.contains(QStringLiteral("templates")));
        QVERIFY(result.out.contains(QStringLiteral("HUDs: 2 (Map HUD: yes, Battle HUD: yes)")));
        QVERIFY(result.out.contains(QStringLiteral("Custom HUD objects: 0")));
        QVERIFY(result.err.isEmpty());

        // The marker file names the same project.
        const Result viaFile = run({QStringLiteral("check"),
                                    QStringLiteral(VELMORA_SAMPLE_PROJECT "/game.rmmzproject")});
        QCOMPARE(viaFile.code, 0);
        QCOMPARE(viaFile.out, result.out);
    }

    void checkCountsWhatTheDocumentHolds()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("full"), 1280, 720);
        TestEnvironment::writeFile(TestEnvironment::documentPath(project),
                                   TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json")));
        const Result result = run({QStringLiteral("check"), project});
        QCOMPARE(result.code, 0);
        QVERIFY(result.out.contains(QStringLiteral("Screen: 1280 x 720")));
        QVERIFY(result.out.contains(QStringLiteral("HUD document: data/plugin/VelmoraHUD.json\n")));
        QVERIFY(result.out.contains(QStringLiteral("HUDs: 5 (Map HUD: yes, Battle HUD: yes)")));
        // One "IsHUD" true, one false, one without the key (a HUD by the list's reading).
        QVERIFY2(result.out.contains(QStringLiteral("Custom HUD objects: 3 (2 extra HUDs, 1 custom components)")),
                 qPrintable(result.out));
        QVERIFY(result.out.contains(QStringLiteral("Components: 56")));
    }

    // After the totals, one line per kind the document holds, in "Type"
    // order, children and custom HUD objects counted, and the number of
    // components drawn as the plain rectangle: unknown kinds only, never the
    // kinds that draw themselves.
    void checkCountsEachKindAndThePlaceholders()
    {
        auto component = [](int type, const QJsonArray& children = QJsonArray()) {
            QJsonObject made{{"ID", 1}, {"Type", type}, {"X", 0}, {"Y", 0}};
            if (!children.isEmpty())
                made.insert("Children", children);
            return made;
        };
        // Map HUD: every kind once, a window holding a text and a group that
        // holds a shape; the extra HUD two texts and two unknown kinds; a
        // custom component object one shape.
        QJsonArray map;
        for (int type = 0; type <= 13; ++type) {
            if (type == 7)
                map.append(component(7, QJsonArray{component(0), component(6, QJsonArray{component(1)})}));
            else
                map.append(component(type));
        }
        const QJsonArray extra{component(0), component(14), component(-1), component(0)};
        const QJsonObject document{
            {"Map", 0},
            {"Battle", 1},
            {"Data", QJsonArray{QJsonObject{{"HUD", map}}, QJsonObject{{"HUD", QJsonArray()}},
                                QJsonObject{{"HUD", extra}, {"IsHUD", true}, {"ID", "123"}, {"Name", "Extra"}},
                                QJsonObject{{"HUD", QJsonArray{component(1)}}, {"IsHUD", false}, {"ID", "456"},
                                            {"Name", "Part"}, {"Width", 10}, {"Height", 10}}}}};
        const QString project = TestEnvironment::makeProject(QStringLiteral("kinds"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project),
                                   QJsonDocument(document).toJson(QJsonDocument::Compact));
        const Result result = run({QStringLiteral("check"), project});
        QCOMPARE(result.code, 0);
        const QString expected = QStringLiteral(
            "Components: 22\n"
            "Kind 0 Text: 4\n"
            "Kind 1 Shape: 3\n"
            "Kind 2 Picture: 1\n"
            "Kind 3 Repeating Picture: 1\n"
            "Kind 4 Gauge: 1\n"
            "Kind 5 Picture Gauge: 1\n"
            "Kind 6 Group: 2\n"
            "Kind 7 Window: 1\n"
            "Kind 8 Actor Face: 1\n"
            "Kind 9 Icon: 1\n"
            "Kind 10 Custom: 1\n"
            "Kind 11 Custom Collection: 1\n"
            "Kind 12 Attach Collection: 1\n"
            "Kind 13 Animation: 1\n"
            "Placeholders: 2\n"
            // The face of actor 1, who has no "faceName": the default sheet,
            // which this project lacks.
            "Missing images: 1\n"
            "  img/faces/Actor1.png: HUD \"Map HUD\", component \"\" (ID 1)\n"
            // The custom kinds refer to no custom HUD.
            "Missing custom HUDs: 3\n"
            "  \"\": HUD \"Map HUD\", component \"\" (ID 1)\n"
            "  \"\": HUD \"Map HUD\", component \"\" (ID 1)\n"
            "  \"\": HUD \"Map HUD\", component \"\" (ID 1)\n"
            "Custom HUD cycles: 0\n");
        QVERIFY2(result.out.endsWith(expected), qPrintable(result.out));

        // Kinds the document lacks get no line.
        TestEnvironment::writeFile(
            TestEnvironment::documentPath(project),
            QJsonDocument(QJsonObject{{"Data", QJsonArray{QJsonObject{{"HUD", QJsonArray{component(1), component(99)}}}}}})
                .toJson(QJsonDocument::Compact));
        const Result sparse = run({QStringLiteral("check"), project});
        QVERIFY2(sparse.out.endsWith(QStringLiteral("Components: 2\nKind 1 Shape: 1\nPlaceholders: 1\nMissing images: 0\n"
                                                        "Missing custom HUDs: 0\nCustom HUD cycles: 0\n")),
                 qPrintable(sparse.out));
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
        window.insert("Children", QJsonArray{component(4, "State", 9, "IconData", {{"IconSet", "Cut"}}),
                                             component(5, "Bar", 5, "PictureGaugeData", {{"GaugeSkin", "Gone"}})});
        const QJsonArray map{component(1, "Coin", 2, "PictureData", {{"Picture", "Coin"}}),
                             component(2, "Lost", 2, "PictureData", {{"Picture", "Lost"}}), window,
                             component(6, "Nothing", 2, "PictureData", {{"Picture", ""}}),
                             component(7, "Run time", 7, "WindowData",
                                       {{"WindowSkin", QJsonObject{{"Type", 0}, {"Param", "Skin"}}}})};
        const QJsonArray status{component(8, "Clouds", 3, "RepeatData", {{"Picture", "Empty"}}),
                                component(9, "Leader", 8, "ActorFaceData", {{"ActorID", QJsonObject{{"Type", 0}, {"ID", 2}}}})};
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
            "Missing images: 4\n"
            "  img/pictures/Lost.png: HUD \"Map HUD\", component \"Lost\" (ID 2)\n"
            "  img/system/Cut.png: HUD \"Map HUD\", component \"State\" (ID 4)\n"
            "  img/system/Gone.png: HUD \"Map HUD\", component \"Bar\" (ID 5)\n"
            "  img/pictures/Empty.png: HUD \"Status\", component \"Clouds\" (ID 8)\n"
            "Missing custom HUDs: 0\n"
            "Custom HUD cycles: 0\n");
        QVERIFY2(result.out.endsWith(expected), qPrintable(result.out));
    }

    // A script must be able to tell a damaged document from a good one: the
    // reason is named, nothing of the templates is counted, and the exit is 1.
    void checkReportsADamagedDocument()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("damaged"));
        const QString document = TestEnvironment::documentPath(project);
        const QByteArray full = TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json"));
        struct Case {
            const char* name;
            QByteArray bytes;
        };
        for (const Case& damaged : {Case{"truncated", full.left(full.size() / 2)},
                                    Case{"root not an object", QByteArray("[1,2,3]")},
                                    Case{"Data not a list", QByteArray("{\"Data\":{\"Map\":1}}")}}) {
            TestEnvironment::writeFile(document, damaged.bytes);
            const Result result = run({QStringLiteral("check"), project});
            QVERIFY2(result.code == 1, damaged.name);
            QVERIFY2(result.out.contains(QStringLiteral("VelmoraHUD.json is damaged: ")), qPrintable(result.out));
            QVERIFY2(!result.out.contains(QStringLiteral("Components:")), qPrintable(result.out));
            QVERIFY2(!result.out.contains(QStringLiteral("HUDs:")), qPrintable(result.out));
        }

        // A document that can't be read at all.
        TestEnvironment::writeFile(document, full);
        QVERIFY(QFile::setPermissions(document, QFileDevice::WriteOwner));
        if (!QFile(document).open(QIODevice::ReadOnly)) {
            const Result unreadable = run({QStringLiteral("check"), project});
            QCOMPARE(unreadable.code, 1);
            QVERIFY2(unreadable.out.contains(QStringLiteral("permission denied")), qPrintable(unreadable.out));
            QVERIFY(!unreadable.out.contains(QStringLiteral("Components:")));
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

        const Result missing = run({QStringLiteral("check"), project + QStringLiteral("/nowhere")});
        QCOMPARE(missing.code, 1);
        QVERIFY(missing.err.contains(QStringLiteral("no such file or folder")));
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

    void resaveRefusesWhatItCantRead()
    {
        const QString fresh = TestEnvironment::makeProject(QStringLiteral("fresh"));
        const Result none = run({QStringLiteral("resave"), fresh});
        QCOMPARE(none.code, 1);
        QVERIFY(none.err.contains(QStringLiteral("no HUD document")));
        QVERIFY(!QFileInfo::exists(TestEnvironment::documentPath(fresh)));

        for (const QByteArray& bad : {QByteArray("{\"Data\":[{\"HUD\":[]"), QByteArray("[1,2,3]"),
                                      QByteArray("{\"Data\":7}")}) {
            const QString project = TestEnvironment::makeProject(QStringLiteral("broken"));
            TestEnvironment::writeFile(TestEnvironment::documentPath(project), bad);
            const Result result = run({QStringLiteral("resave"), project});
            QCOMPARE(result.code, 1);
            QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project)), bad);
        }

        const QString project = TestEnvironment::makeProject(QStringLiteral("unwritable"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), "{\"Data\":[]}");
        const QString target = TestEnvironment::newFolder(QStringLiteral("target"));
        const Result result = run({QStringLiteral("resave"), project, QStringLiteral("--out"), target});
        QCOMPARE(result.code, 1);
        QVERIFY(result.err.contains(QStringLiteral("could not write")));
    }

    // A FIFO once hung check and resave until killed, and a link to /dev/zero
    // ate gigabytes: neither is read, and both are named with the reason.
    void filesThatArentRegularAreRefusedAtOnce()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("special"));
        const QString document = TestEnvironment::documentPath(project);
        QVERIFY(QDir().mkpath(QFileInfo(document).absolutePath()));
        QCOMPARE(::mkfifo(QFile::encodeName(document).constData(), 0644), 0);
        Result result = run({QStringLiteral("check"), project});
        QCOMPARE(result.code, 1);
        QVERIFY2(result.out.contains(QStringLiteral("not a regular file")), qPrintable(result.out));
        result = run({QStringLiteral("resave"), project});
        QCOMPARE(result.code, 1);
        QVERIFY(result.err.contains(QStringLiteral("not a regular file")));
        QVERIFY(QFileInfo(document).exists() && !QFileInfo(document).isFile());

        QVERIFY(QFile::remove(document));
        QVERIFY(QFile::link(QStringLiteral("/dev/zero"), document));
        result = run({QStringLiteral("resave"), project});
        QCOMPARE(result.code, 1);
        QVERIFY(result.err.contains(QStringLiteral("not a regular file")));
        QCOMPARE(QFileInfo(document).symLinkTarget(), QStringLiteral("/dev/zero"));

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
    // from the project; what isn't a value the editor knows is said so.
    // A component's add-ons follow its values, one line each as the add-on
    // list shows them; what isn't an add-on says so.
    void outlineShowsAddons()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("outline-addons"));
        const QByteArray document = R"j({"Map":0,"Battle":1,"Data":[{"HUD":[
            {"Type":0,"ID":1,"Name":"Label","X":1,"Y":2,"TextData":{"Note":"hi\nthere","Addons":[
              {"Type":0,"Note":"hi\nthere"},{"Type":2,"HoverType":2,"ID":1},
              {"Type":4,"Property":7,"Code":"return 1;"},{"Type":42},7]}},
            {"Type":1,"ID":2,"X":0,"Y":0,"ShapeData":{"Addons":{"Type":0}}}]},{"HUD":[]}]})j";
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), document);
        const Result result =
            run({QStringLiteral("outline"), project, QStringLiteral("--hud"), QStringLiteral("Map HUD")});
        QCOMPARE(result.code, 0);
        QCOMPARE(result.out, QStringLiteral("HUD \"Map HUD\" (the Map HUD): 2 components\n"
                                            "  Text \"Label\" at 1, 2, scale 100% x 100%\n"
                                            "    - Add-on 1: Note: hi \u23ce there\n"
                                            "    - Add-on 2: Hover: Bind to [0001] Show HUD\n"
                                            "    - Add-on 3: Code Property: Opacity: return 1;\n"
                                            "    - Add-on 4: (unknown add-on)\n"
                                            "    - Add-on 5: (not an add-on)\n"
                                            "  Shape (no name) at 0, 0, 100 x 100\n"
                                            "    - Add-ons: (not a list of add-ons)\n"));
    }

    // A custom component's outline names the parameters it declares and
    // the kind of value each takes; a Map HUD holding some by hand shows none.
    void outlineShowsParameterDefinitions()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("outline-params"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), R"j({"Map":0,"Battle":1,"Data":[
            {"HUD":[],"Params":[{"Name":"Stray"}]},{"HUD":[]},
            {"ID":"12345","Name":"Row","IsHUD":false,"Width":90,"Height":30,
             "Params":[{"Name":"Hp","IsString":false},{"Name":"Title","IsString":true},{"Name":"Slot"},7],
             "HUD":[{"Type":11,"ID":1,"Name":"Cells","X":0,"Y":0,"CustomCollectionData":{"Width":40,"Height":20,
               "ListData":{"Type":0,"Start":{"Type":1,"ID":2},"End":5}}}]}]})j");
        Result result = run({QStringLiteral("outline"), project, QStringLiteral("--hud"), QStringLiteral("Row")});
        QCOMPARE(result.code, 0);
        QCOMPARE(result.out, QStringLiteral("HUD \"Row\" (custom component, ID 12345): 1 component\n"
                                            "  Parameter \"Hp\" (number)\n"
                                            "  Parameter \"Title\" (text)\n"
                                            "  Parameter \"Slot\" (number)\n"
                                            "  Parameter (not a parameter definition)\n"
                                            "  Custom Collection \"Cells\" at 0, 0, 40 x 20\n"
                                            "    - Custom HUD: None\n"
                                            "    - ListData (list): [DYNAMIC] ~ 5\n"));
        result = run({QStringLiteral("outline"), project, QStringLiteral("--hud"), QStringLiteral("Map HUD")});
        QCOMPARE(result.out, QStringLiteral("HUD \"Map HUD\" (the Map HUD): 0 components\n"));
    }

    // Each use of a custom HUD names the HUD it shows and every value it
    // gives the parameters, plain ones included: two uses of one row differ
    // only there.
    void outlineNamesCustomHudAndParameterValues()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("outline-uses"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), R"j({"Map":0,"Battle":1,"Data":[
            {"HUD":[
              {"Type":10,"ID":1,"Name":"Hero row","X":5,"Y":6,"CustomData":{"Width":90,"Height":30,"ID":"01234",
                "Params":{"Label":"Hero","Index":1}}},
              {"Type":10,"ID":2,"Name":"Mage row","X":5,"Y":60,"CustomData":{"Width":90,"Height":30,"ID":"01234",
                "Params":{"Label":"Mage","Index":2.5,"Odd":false}}},
              {"Type":11,"ID":3,"Name":"Party","X":0,"Y":0,"CustomCollectionData":{"Width":90,"Height":30,
                "ID":"01234","Params":{"Label":"Party","Index":true}}},
              {"Type":12,"ID":4,"Name":"Gone","X":0,"Y":0,"AttachCollectionData":{"Width":100,"Height":100,
                "ID":"66666","Params":{}}},
              {"Type":10,"ID":5,"Name":"Battle","X":0,"Y":0,"CustomData":{"Width":100,"Height":100,"ID":"B"}}]},
            {"HUD":[]},
            {"ID":"01234","Name":"Status Row","IsHUD":false,"Width":90,"Height":30,
             "Params":[{"Name":"Label","IsString":true},{"Name":"Index"}],"HUD":[
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
                                            "  Text \"Label\" at 50, 10, scale 100% x 100%\n"
                                            "    - Text (dynamic text, plain): Param: Label\n"
                                            "  Gauge \"Bar\" at 50, 20, 80 x 8\n"
                                            "    - Maximum (dynamic number, plain): 100\n"
                                            "    - Value (dynamic number, plain): Param: Index\n"));
        result = run({QStringLiteral("outline"), project, QStringLiteral("--hud"), QStringLiteral("Map HUD")});
        QCOMPARE(result.code, 0);
        QCOMPARE(result.out, QStringLiteral("HUD \"Map HUD\" (the Map HUD): 5 components\n"
                                            "  Custom \"Hero row\" at 5, 6, 90 x 30\n"
                                            "    - Custom HUD: \"Status Row\" (ID 01234)\n"
                                            "    - Parameter \"Index\" (number): 1\n"
                                            "    - Parameter \"Label\" (text): Hero\n"
                                            "  Custom \"Mage row\" at 5, 60, 90 x 30\n"
                                            "    - Custom HUD: \"Status Row\" (ID 01234)\n"
                                            "    - Parameter \"Index\" (number): 2.5\n"
                                            "    - Parameter \"Label\" (text): Mage\n"
                                            "    - Parameter \"Odd\": (unknown value)\n"
                                            "  Custom Collection \"Party\" at 0, 0, 90 x 30\n"
                                            "    - Custom HUD: \"Status Row\" (ID 01234)\n"
                                            "    - Parameter \"Index\" (list data): [LIST DATA]\n"
                                            "    - Parameter \"Label\" (text): Party\n"
                                            "  Attach Collection \"Gone\" at 0, 0, 100 x 100\n"
                                            "    - Custom HUD: (no HUD with ID \"66666\")\n"
                                            "  Custom \"Battle\" at 0, 0, 100 x 100\n"
                                            "    - Custom HUD: Battle HUD\n"));
        QVERIFY(result.err.isEmpty());
    }

    void outlineShowsEveryValue()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("outline"));
        const QByteArray document = R"j({"Map":0,"Battle":1,"Data":[{"HUD":[
            {"Type":6,"ID":1,"Name":"Box","X":10,"Y":20,"Children":[
              {"Type":0,"ID":2,"Name":"Label","X":1,"Y":2,"ScaleX":1.5,"TextData":{"Text":{"Type":2,"ID":1},
                "FontSize":{"Type":0,"Param":"Size"},"OutlineSize":{"Type":7}}},
              {"Type":4,"ID":3,"X":0,"Y":0,"GaugeData":{"Width":250,"Height":30,
                "Value":{"Type":8,"Op":10,"FirstNum":{"Type":3,"ID":1},"SecondNum":{"Type":0,"Number":0}},
                "Maximum":{"Type":12},"Smoothness":{"Type":1,"ID":7}}}]},
            {"Type":9,"ID":4,"Name":"Coin","X":5,"Y":5,"IconData":{"IconIndex":"oops"}},
            {"Type":8,"ID":5,"Name":"Face","X":0,"Y":0,"ActorFaceData":{"ActorID":{"Type":0,"ID":1}}},
            {"Type":11,"ID":6,"Name":"Rows","X":0,"Y":0,"CustomCollectionData":{"Width":40,"Height":20,
              "ListData":{"Type":4,"Data":16},"Params":{"Hp":{"Type":6,"ItemType":1,"ID":1},"Tag":"x","All":true}}},
            {"Type":42,"ID":7,"Name":"Future","X":3,"Y":4,"FutureData":{"Text":{"Type":0,"Text":"Hi"}}},
            "not a component"]},{"HUD":[]},
           {"ID":"ABCDE","Name":"Extra","IsHUD":true,"HUD":[]}]})j";
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), document);
        Result result = run({QStringLiteral("outline"), project, QStringLiteral("--hud"), QStringLiteral("Map HUD")});
        QCOMPARE(result.code, 0);
        const QString expected = QStringLiteral(
            "HUD \"Map HUD\" (the Map HUD): 7 components\n"
            "  Group \"Box\" at 10, 20, 50 x 50\n"
            "    Text \"Label\" at 1, 2, scale 150% x 100%\n"
            "      - FontSize (dynamic input): Param: Size\n"
            "      - OutlineSize (dynamic input): (unknown value)\n"
            "      - Text (dynamic text, switch): [0001] Show HUD\n"
            "    Gauge (no name) at 0, 0, 250 x 30\n"
            "      - Maximum (dynamic number): (unknown value)\n"
            "      - Smoothness (dynamic input): Variable: [0007]\n"
            "      - Value (dynamic number, math): (Abs.) [0001] Gold Goal\n"
            "  Icon \"Coin\" at 5, 5, scale 100% x 100%\n"
            "    - IconIndex (dynamic number): (unknown value)\n"
            "  Actor Face \"Face\" at 0, 0, scale 100% x 100%\n"
            "    - ActorID (actor): [0001] First Actors\n"
            "  Custom Collection \"Rows\" at 0, 0, 40 x 20\n"
            "    - Custom HUD: None\n"
            "    - ListData (list): Actor's State Turns \n"
            "    - Parameter \"All\" (list data): [LIST DATA]\n"
            "    - Parameter \"Hp\" (dynamic number, item count): Count: [0001] First Weapons\n"
            "    - Parameter \"Tag\" (text): x\n"
            "  Unknown kind (\"Type\" 42) \"Future\" at 3, 4\n"
            "    - Text (dynamic text, plain): Hi\n"
            "  (not a component: a JSON value)\n");
        QCOMPARE(result.out, expected);
        QVERIFY(result.err.isEmpty());

        // All HUDs without --hud; a name that isn't there is an error.
        result = run({QStringLiteral("outline"), project});
        QCOMPARE(result.code, 0);
        QVERIFY(result.out.endsWith(QStringLiteral("HUD \"Battle HUD\" (the Battle HUD): 0 components\n"
                                                   "HUD \"Extra\" (extra HUD, ID ABCDE): 0 components\n")));
        result = run({QStringLiteral("outline"), project, QStringLiteral("--hud"), QStringLiteral("Nope")});
        QCOMPARE(result.code, 1);
        QVERIFY(result.out.isEmpty());
        QVERIFY2(result.err.contains(QStringLiteral("no HUD named \"Nope\"")), qPrintable(result.err));

        // A damaged document is named, and nothing is printed as if it were whole.
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), document.left(200));
        result = run({QStringLiteral("outline"), project});
        QCOMPARE(result.code, 1);
        QVERIFY(result.out.isEmpty());
        QVERIFY2(result.err.contains(QStringLiteral("VelmoraHUD.json can't be read as a HUD document (")),
                 qPrintable(result.err));
    }

    void usage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("code");
        QTest::newRow("nothing") << QStringList() << 2;
        QTest::newRow("unknown command") << QStringList{QStringLiteral("open"), QStringLiteral(".")} << 2;
        QTest::newRow("check without project") << QStringList{QStringLiteral("check")} << 2;
        QTest::newRow("out without file") << QStringList{QStringLiteral("resave"), QStringLiteral("."), QStringLiteral("--out")} << 2;
        QTest::newRow("unknown option") << QStringList{QStringLiteral("check"), QStringLiteral("--fast"), QStringLiteral(".")} << 2;
        // Only a resave goes through the dialogs.
        QTest::newRow("dialogs on check") << QStringList{QStringLiteral("check"), QStringLiteral("."),
                                                         QStringLiteral("--through-dialogs")} << 2;
        QTest::newRow("hud without name") << QStringList{QStringLiteral("outline"), QStringLiteral("."),
                                                         QStringLiteral("--hud")} << 2;
        QTest::newRow("help") << QStringList{QStringLiteral("--help")} << 0;
    }

    void usage()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, code);
        const Result result = run(arguments);
        QCOMPARE(result.code, code);
        if (code == 2) {
            // One line, on the error stream.
            QVERIFY(result.out.isEmpty());
            QCOMPARE(result.err.count(QLatin1Char('\n')), 1);
            QVERIFY(result.err.startsWith(QStringLiteral("velmora-cli: ")));
        } else {
            QVERIFY(!result.out.isEmpty());
        }
    }

    void programRunsWithoutDisplay()
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("DISPLAY"));
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        process.setProcessEnvironment(environment);
        process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/velmora-cli"),
                      {QStringLiteral("check"), QStringLiteral(VELMORA_SAMPLE_PROJECT)});
        QVERIFY(process.waitForFinished(30000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(process.readAllStandardOutput().contains("Valid: yes"));

        // Drawing HUDs runs the canvas offscreen.
        const QString out = TestEnvironment::newFolder(QStringLiteral("render-process"));
        process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/velmora-cli"),
                      {QStringLiteral("render"), QStringLiteral(VELMORA_SAMPLE_PROJECT), QStringLiteral("--out"), out,
                       QStringLiteral("--zoom"), QStringLiteral("2")});
        QVERIFY(process.waitForFinished(60000));
        QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
        QCOMPARE(QImage(out + QStringLiteral("/Map HUD.png")).size(), QSize(1632, 1248));

        process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/velmora-cli"), {QStringLiteral("frobnicate")});
        QVERIFY(process.waitForFinished(30000));
        QCOMPARE(process.exitCode(), 2);
    }
};

VELMORA_TEST_MAIN(TestCommandLine, QCoreApplication)
#include "tst_commandline.moc"
