#include "MainWindowFixture.h"
#include "TestEnvironment.h"

#include "app/VelmoMainWindow.h"
#include "components/GameUIEditorSceneHelper.h"
#include "components/VelmoUISelector.h"
#include "logic/HudCatalog.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QPushButton>

#include <memory>

using TestEnvironment::Answer;
using TestEnvironment::answering;
using TestEnvironment::choosing;
using TestEnvironment::clicking;
using TestEnvironment::field;
using TestEnvironment::json;
using TestEnvironment::press;
using TestEnvironment::typing;

namespace {

#define COMPARE_JSON(actual, expected) QCOMPARE(TestEnvironment::compact(actual), TestEnvironment::compact(expected))

// The HUD list the dialogs see: the Map and Battle HUDs, three custom HUD
// objects to use and one that is a HUD of its own.
QVector<HudCatalog::Row> projectHuds()
{
    return {
        {HudCatalog::Map, json(R"({"HUD":[]})"), true},
        {HudCatalog::Battle, json(R"({"HUD":[]})"), false},
        {HudCatalog::Custom,
         json(R"({"Name":"Bar","ID":"11111","IsHUD":false,"Width":240,"Height":64,"HUD":[],
                  "Params":[{"Name":"Label","IsString":true},{"Name":"Value","IsString":false}]})"),
         false},
        {HudCatalog::Custom,
         json(R"({"Name":"Badge","ID":"22222","IsHUD":false,"Width":50,"Height":20,"HUD":[],
                  "Params":[{"Name":"Icon"}]})"),
         false},
        {HudCatalog::Custom, json(R"({"Name":"Dot","ID":"44444","IsHUD":false,"Width":10,"Height":10,"HUD":[]})"),
         false},
        {HudCatalog::Custom, json(R"({"Name":"Screen","ID":"33333","IsHUD":true,"HUD":[]})"), false},
    };
}

// Opens the HUD selector of the dialog and double-clicks the HUD's row.
QList<Answer> pickingHud(const QString& name)
{
    return {clicking("CustomComponent"), TestEnvironment::pickingRow("myList", name)};
}

// Double-clicks the parameter row index.
Answer editingParam(int index)
{
    return [index](TrovDialog* dialog) {
        TestEnvironment::clickRow(field<UltimateTreeWidget>(dialog, "customParams"), index, true);
    };
}

QStringList paramTexts(QWidget* dialog, int column)
{
    return TestEnvironment::rowTexts(field<UltimateTreeWidget>(dialog, "customParams"), column);
}

// The dialog of component's kind as the editor opens it, answered in order;
// the object it gave back, or an empty one when it wasn't confirmed.
QJsonObject runDialog(QJsonObject component, const QList<Answer>& answers)
{
    bool accepted = false;
    QJsonObject projectData;
    answering(
        [&]() {
            const std::unique_ptr<UIComponentBaseDialog> dialog = GameUIEditorSceneHelper<VelmoUISelector>::makeDialog(
                component, &accepted, false, nullptr, &projectData);
            dialog->exec();
        },
        answers);
    return accepted ? component : QJsonObject();
}

// The data object a confirmed dialog wrote.
QJsonObject dataOf(const QJsonObject& component, const char* key)
{
    return component.value(QLatin1String(key)).toObject();
}

// Components with all their keys, as their dialogs write them.
const char* const CompleteComponents[][2] = {
    {"custom",
     R"({"ID":3,"Type":10,"Name":"Bar use","X":10,"Y":20,"Rotation":0,"Opacity":1,"Animations":[],
                "CustomProperties":{},"CustomData":{"Width":240,"Height":64,"ID":"11111","Addons":[],"Note":"",
                "Params":{"Label":{"Type":1,"Info":8},"Value":12.5}}})"},
    {"collection",
     R"({"ID":4,"Type":11,"Name":"Rows","X":0,"Y":0,"Rotation":0,"Opacity":1,"Animations":[],
                "CustomProperties":{},"CustomCollectionData":{"Width":50,"Height":20,"ID":"22222","Addons":[],
                "Note":"","Params":{"Icon":true},"ListData":{"Type":0,"Start":1,"End":5},"MaxRows":3,
                "MaxColumns":{"Type":0,"Param":"Columns"},"HorizontalSpacing":4,"VerticalSpacing":2,
                "AlignLeft":false,"AlignUp":true}})"},
    {"attach notetag",
     R"({"ID":5,"Type":12,"Name":"Labels","X":0,"Y":0,"Rotation":0,"Opacity":1,"Animations":[],
                "CustomProperties":{},"AttachCollectionData":{"Width":240,"Height":64,"ID":"11111","Addons":[],
                "Note":"","Params":{"Label":true,"Value":3},"Data":3,"List":1,"Position":7,
                "Notetag":"HudLabel"}})"},
    {"attach code",
     R"({"ID":6,"Type":12,"Name":"Markers","X":0,"Y":0,"Rotation":0,"Opacity":1,"Animations":[],
                "CustomProperties":{},"AttachCollectionData":{"Width":10,"Height":10,"ID":"44444","Addons":[],
                "Note":"","Params":{},"Data":4,"List":4,"Position":4,
                "Code":"// The HP of the entity.\nreturn entity.hp;"}})"},
};

const char* const MassiveText =
    "The total size of this collection is massive<br>While you won't be prevented from doing so, creating something "
    "too massive may lag or crash the editor.<br><br>Are you sure you wish to save this?";

}

class TestCustomDialogs : public QObject, private MainWindowFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        TestEnvironment::quietDialogs();
        const QVector<HudCatalog::Row> rows = projectHuds();
        HudCatalog::setSource([rows]() { return rows; });
    }
    void cleanup()
    {
        HudCatalog::setSource(nullptr);
        window.reset();
    }

    // A new custom component on the "Bar" HUD, with one parameter set: the
    // HUD's size, its parameters (the untouched one empty), the reference,
    // and nothing else but the add-on keys. Only the custom HUD objects to
    // use are offered, and a plain custom component has no list to take a
    // value from.
    void newCustomComponentWritesItsKeys()
    {
        const QJsonObject written = runDialog(
            json(R"({"ID":1,"Type":10})"),
            {clicking("CustomComponent"),
             [](TrovDialog* selector) {
                 QCOMPARE(TestEnvironment::rowTexts(field<UltimateTreeWidget>(selector, "myList")),
                          QStringList({"None", "Bar", "Badge", "Dot"}));
                 TestEnvironment::pickingRow("myList", "Bar")(selector);
             },
             editingParam(1),
             [](TrovDialog* setter) {
                 QVERIFY(!field<QWidget>(setter, "useListData")->isVisible());
                 typing("Number", "42")(setter);
                 press("confirmButton")(setter);
             },
             press("confirmButton")});
        COMPARE_JSON(dataOf(written, "CustomData"),
                     json(R"({"Width":240,"Height":64,"Params":{"Label":"","Value":42},"ID":"11111",
                              "Addons":[],"Note":""})"));
    }

    // A new collection with nothing changed has the defaults of a new
    // collection; the alignments write their second choice as false.
    void newCollectionWritesItsKeys()
    {
        QJsonObject written = runDialog(json(R"({"ID":1,"Type":11})"), {press("confirmButton")});
        COMPARE_JSON(dataOf(written, "CustomCollectionData"),
                     json(R"({"Width":300,"Height":300,"Params":{},"ID":"",
                              "ListData":{"Type":2,"MembersType":0,"Data":0},"MaxRows":1,"MaxColumns":4,
                              "HorizontalSpacing":0,"VerticalSpacing":0,"AlignLeft":true,"AlignUp":true,
                              "Addons":[],"Note":""})"));
        written = runDialog(json(R"({"ID":1,"Type":11})"),
                            {clicking("HorizontalAlign"), clicking("VerticalAlign"), typing("MaxRows", "2"),
                             typing("VerticalSpacing", "6"), press("confirmButton")});
        const QJsonObject data = dataOf(written, "CustomCollectionData");
        QCOMPARE(QJsonArray({data["AlignLeft"], data["AlignUp"], data["MaxRows"], data["VerticalSpacing"]}),
                 QJsonArray({false, false, 2, 6}));
    }

    // A new attach collection: its three choices and neither the notetag
    // nor the code, since the data is the indexes.
    void newAttachCollectionWritesItsKeys()
    {
        const QJsonObject written = runDialog(
            json(R"({"ID":1,"Type":12})"), {choosing("CollectionType", 3), choosing("PositionType", 8), press("confirmButton")});
        COMPARE_JSON(dataOf(written, "AttachCollectionData"),
                     json(R"({"Width":300,"Height":300,"Params":{},"ID":"","Data":0,"List":3,"Position":8,
                              "Addons":[],"Note":""})"));
    }

    void unchangedComponentsComeBackIdentical_data()
    {
        QTest::addColumn<QByteArray>("component");
        for (const auto& row : CompleteComponents)
            QTest::newRow(row[0]) << QByteArray(row[1]);
    }

    // A component whose keys are all there, opened and confirmed without a
    // change, comes back as it was.
    void unchangedComponentsComeBackIdentical()
    {
        QFETCH(QByteArray, component);
        const QJsonObject before = QJsonDocument::fromJson(component).object();
        QVERIFY(!before.isEmpty());
        COMPARE_JSON(runDialog(before, {press("confirmButton")}), before);
    }

    // Choosing the same HUD again keeps the values; another HUD starts its
    // own parameters empty and brings its size.
    void anotherHudEmptiesTheParameters()
    {
        const QJsonObject written = runDialog(
            json(R"({"ID":1,"Type":10,"CustomData":{"ID":"11111","Params":{"Label":"HP","Value":5}}})"),
            pickingHud("Bar") + QList<Answer>{[](TrovDialog* dialog) {
                QCOMPARE(paramTexts(dialog, 1), QStringList({"HP", "5"}));
            }} + pickingHud("Badge") + QList<Answer>{press("confirmButton")});
        COMPARE_JSON(dataOf(written, "CustomData"),
                     json(R"({"Width":50,"Height":20,"Params":{"Icon":0},"ID":"22222","Addons":[],"Note":""})"));
    }

    // Switching the data away from the notetags or the code drops that field
    // at confirm; the code of a new one starts with the hint.
    void attachDataDecidesNotetagAndCode()
    {
        QJsonObject written = runDialog(json(R"({"ID":1,"Type":12,"AttachCollectionData":{"ID":"","Data":3,
                                              "Notetag":"HudLabel","Code":"return 1;"}})"),
                                        {choosing("ListData", 1), press("confirmButton")});
        QJsonObject data = dataOf(written, "AttachCollectionData");
        QCOMPARE(data.value("Data"), QJsonValue(1));
        QVERIFY(!data.contains("Notetag") && !data.contains("Code"));

        written = runDialog(json(R"({"ID":1,"Type":12})"), {choosing("ListData", 4), press("confirmButton")});
        data = dataOf(written, "AttachCollectionData");
        QCOMPARE(data.value("Code"), QJsonValue("// Use \"entity\" to access list item."));
        QVERIFY(!data.contains("Notetag"));
    }

    // The warning comes before anything is written: refusing it returns to
    // the dialog with the component untouched, accepting saves. "Bar" is 240
    // by 64: 20 rows of 4 with a spacing of 10 are exactly 5000 and save at
    // once. 999 columns of "Dot", 10 pixels high, make a grid 9990 wide and
    // 10 high, and still warn.
    void massiveCollectionWarns()
    {
        const auto collection = [](const char* hud) {
            return QJsonObject{{"ID", 1}, {"Type", 11}, {"CustomCollectionData", QJsonObject{{"ID", hud}}}};
        };
        const auto fill = [](const char* rows, const char* columns, const char* horizontal) {
            return QList<Answer>{typing("MaxRows", rows), typing("MaxColumns", columns),
                                 typing("HorizontalSpacing", horizontal), press("confirmButton")};
        };
        QString shown;
        bool stillOpen = false;
        const QList<Answer> refusing{[&](TrovDialog* question) {
                                         shown = field<QLabel>(question, "label")->text();
                                         press("cancelButton")(question);
                                     },
                                     [&](TrovDialog* dialog) {
                                         stillOpen = dialog->isVisible();
                                         press("cancelButton")(dialog);
                                     }};
        const QJsonObject exact = runDialog(collection("11111"), fill("20", "4", "10") + refusing);
        QVERIFY2(shown.isEmpty(), qPrintable(shown));
        QCOMPARE(dataOf(exact, "CustomCollectionData").value("MaxRows"), QJsonValue(20));

        QVERIFY(runDialog(collection("44444"), fill("1", "999", "0") + refusing).isEmpty());
        QVERIFY(stillOpen);
        QCOMPARE(shown, QString::fromLatin1(MassiveText));
        const QJsonObject data =
            dataOf(runDialog(collection("44444"), fill("1", "999", "0") + QList<Answer>{press("confirmButton")}), "CustomCollectionData");
        QCOMPARE(data.value("MaxColumns"), QJsonValue(999));
    }

    // Deleting a custom HUD that other HUDs use names them first, whether the
    // use is at the top or deep inside groups and windows; refusing keeps
    // it, as does refusing to cut it. An unused one asks the usual question.
    void deletingAUsedHudNamesItsUsers()
    {
        HudCatalog::setSource(nullptr);
        const QJsonObject nested = json(R"({"ID":1,"Type":6,"Name":"Outer","X":0,"Y":0,"Children":[
            {"ID":2,"Type":7,"Name":"Panel","X":0,"Y":0,"WindowData":{"Width":100,"Height":100},"Children":[
              {"ID":3,"Type":10,"Name":"Deep use","X":0,"Y":0,"CustomData":{"ID":"11111","Params":{}}}]}]})");
        const QJsonObject bar = json(R"({"Name":"Bar","ID":"11111","IsHUD":false,"Width":240,"Height":64,"HUD":[
            {"ID":1,"Type":11,"Name":"Self","X":0,"Y":0,"CustomCollectionData":{"ID":"11111"}}]})");
        const QJsonObject tagRow = json(R"({"Name":"Tag <b>Row</b>","ID":"22222","IsHUD":false,"Width":50,"Height":20,
            "HUD":[{"ID":1,"Type":12,"Name":"Tags","X":0,"Y":0,
                    "AttachCollectionData":{"ID":"11111","Data":0,"List":0,"Position":1}}]})");
        const QString project = TestEnvironment::makeProjectWithHuds(
            QStringLiteral("inuse"), {QJsonObject{{"HUD", QJsonArray{nested}}}, QJsonObject{{"HUD", QJsonArray()}}, bar,
                                      tagRow, json(R"({"Name":"Free","ID":"33333","IsHUD":true,"HUD":[]})")});
        openWindow(project);
        QPushButton* remove = window->findChild<QPushButton*>(QStringLiteral("removeHudButton"));
        auto removing = [&](const char* answer) {
            return answering([&] { QTest::mouseClick(remove, Qt::LeftButton); }, {press(answer)});
        };

        TestEnvironment::clickRow(window->hudListWidget(), 2);
        TestEnvironment::Seen seen = removing("cancelButton");
        QCOMPARE(seen.text, QStringLiteral("\"Bar\" is still used by these HUDs:<br>\u2022 Map HUD<br>\u2022 Tag "
                                           "&lt;b&gt;Row&lt;/b&gt;<br>Their components will show an empty box in "
                                           "its place. Delete it anyway?"));
        // A cut asks the same.
        QCOMPARE(answering([&] { window->hudListWidget()->cutCurrentItem(); }, {press("cancelButton")}).text, seen.text);
        QCOMPARE(list()->rowCount(), 5);

        QCOMPARE(removing("confirmButton").count, 1);
        QCOMPARE(rowNames(), QStringList({"Map HUD", "Battle HUD", "Tag <b>Row</b>", "Free"}));

        TestEnvironment::clickRow(window->hudListWidget(), 3);
        QCOMPARE(removing("cancelButton").title, QStringLiteral("HUD Delete Confirmation"));
        QCOMPARE(list()->rowCount(), 4);
    }
};

VELMORA_TEST_MAIN(TestCustomDialogs, QApplication)
#include "tst_customdialogs.moc"
