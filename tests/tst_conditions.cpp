#include "TestEnvironment.h"
#include "logic/ConditionDisplay.h"
#include "logic/OpenConditionDialog.h"
#include "logic/RMCondition.h"
#include "logic/RMConditionList.h"
#include "logic/VelmoTextInputExtend.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/HaxeCodeEdit.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QJsonArray>
#include <QPushButton>

using TestEnvironment::Answer;
using TestEnvironment::answering;
using TestEnvironment::press;

using TestEnvironment::clickRow;
using TestEnvironment::field;
using TestEnvironment::rowTexts;
using TestEnvironment::json;

Q_DECLARE_METATYPE(TestEnvironment::Answer)

namespace {

using TestEnvironment::retype;
using TestEnvironment::choose;

QJsonArray records(const QString& prefix, int count)
{
    QJsonArray all{QJsonValue()};
    for (int i = 1; i <= count; ++i)
        all.append(QJsonObject{{"id", i}, {"name", QStringLiteral("%1 %2").arg(prefix).arg(i)}});
    return all;
}

QJsonObject gameData()
{
    return {{"System.json", QJsonObject{{"switches", QJsonArray{QString(), "Show HUD", "Boss Fight"}},
                                        {"variables", QJsonArray{QString(), "Gold Goal", "Steps"}}}},
            {"Actors.json", records("Hero", 3)},     {"Classes.json", records("Class", 3)},
            {"Skills.json", records("Skill", 3)},    {"Weapons.json", records("Sword", 3)},
            {"Armors.json", records("Cap", 3)},      {"States.json", records("State", 3)},
            {"Enemies.json", records("Slime", 3)},   {"Items.json", records("Potion", 3)}};
}

void showDialog(QDialog* dialog)
{
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QTest::qWait(20);
}

}

class TestConditions : public QObject
{
    Q_OBJECT

    QJsonObject data = gameData();

    // Runs a kind's dialog on object: act does what the user does in it,
    // then confirm is clicked. Returns whether it was confirmed.
    bool runKind(QJsonObject* object, const Answer& act)
    {
        bool accepted = false;
        answering([&]() { openConditionDialog(object, &accepted, nullptr, &data); },
                  {[&](TrovDialog* dialog) {
                       act(dialog);
                       press("confirmButton")(dialog);
                   }});
        return accepted;
    }

private slots:
    void initTestCase()
    {
        // Extendable fields keep their extension objects only with the
        // dynamic input registered, as the running program has it.
        VelmoTextInputExtend::install(&data);
    }

    void cleanup()
    {
        RMConditionList::install(nullptr);
        QApplication::clipboard()->clear();
    }

    void conditionTexts_data()
    {
        QTest::addColumn<QJsonObject>("condition");
        QTest::addColumn<QString>("text");
        QTest::newRow("switch not in the data") << json(R"({"Type":0,"ID":40})") << "[0040]  is OFF";
        QTest::newRow("gold bad operator") << json(R"({"Type":5,"Op":9,"Value":3})") << "Gold  3";
    }

    void conditionTexts()
    {
        QFETCH(QJsonObject, condition);
        QFETCH(QString, text);
        QCOMPARE(conditionText(condition, &data), text);
        QCOMPARE(conditionEntryText(condition, &data), text);
    }

    // A new record of each kind, worked as a user does, writes the keys of
    // its kind and nothing more.
    void kindDialogsWriteTheirKeys_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<Answer>("act");
        QTest::addColumn<QJsonObject>("expected");
        const auto row = [](const char* name, int type, Answer act, const char* expected) {
            QTest::newRow(name) << type << act << json(expected);
        };
        const Answer nothing = [](TrovDialog*) {};
        row("switch", 0, [](TrovDialog* d) { QTest::mouseClick(field<MyEitherBox>(d, "SwitchValue"), Qt::LeftButton); },
            R"({"Type":0,"ID":1,"Value":true})");
        row("variable", 1, [](TrovDialog* d) {
                choose(field<MyComboBox>(d, "Operator"), 5);
                retype(field<MyLineEdit>(d, "Value"), QStringLiteral("-12"));
            }, R"({"Type":1,"ID":1,"Op":5,"Value":-12})");
        // A position past the field's range holds the confirm button.
        row("party position", 2, [](TrovDialog* d) {
                QTest::mouseClick(field<MyEitherBox>(d, "ActorType"), Qt::LeftButton);
                retype(field<MyLineEdit>(d, "PartyIndex"), QStringLiteral("600"));
                QVERIFY(!field<QPushButton>(d, "confirmButton")->isEnabled());
                retype(field<MyLineEdit>(d, "PartyIndex"), QStringLiteral("4"));
            }, R"({"Type":2,"ActorType":false,"Actor":4,"Check":0})");
        row("actor named", 2, [](TrovDialog* d) {
                choose(field<MyComboBox>(d, "DataToCheck"), 1);
                QTest::keyClicks(field<MyLineEdit>(d, "Name"), QStringLiteral("Zed"));
            }, R"({"Type":2,"ActorType":true,"Actor":1,"Check":1,"Name":"Zed"})");
        row("troop member", 3, [](TrovDialog* d) {
                QTest::mouseClick(field<MyEitherBox>(d, "EnemyType"), Qt::LeftButton);
                retype(field<MyLineEdit>(d, "TroopIndex"), QStringLiteral("2"));
                choose(field<MyComboBox>(d, "DataToCheck"), 1);
            }, R"({"Type":3,"EnemyType":false,"Enemy":2,"Check":1,"ID":1})");
        row("player", 4, [](TrovDialog* d) { choose(field<MyComboBox>(d, "PlayerState"), 3); }, R"({"Type":4,"State":8})");
        row("button", 6, [](TrovDialog* d) { choose(field<MyComboBox>(d, "Button"), 6); },
            R"({"Type":6,"Key":6,"State":0})");
        row("inventory", 7, [](TrovDialog* d) { choose(field<MyComboBox>(d, "DataToCheck"), 2); },
            R"({"Type":7,"Check":2,"ID":1})");
        row("code", 9, [](TrovDialog* d) {
                HaxeCodeEdit* code = field<HaxeCodeEdit>(d, "code");
                code->selectAll();
                QTest::keyClicks(code, "return false;");
            }, R"({"Type":9,"Code":"return false;"})");
        row("text parameter", 11, [](TrovDialog* d) {
                QTest::keyClicks(field<MyLineEdit>(d, "ParamName"), "Mood");
                QTest::mouseClick(field<MyEitherBox>(d, "NumOrString"), Qt::LeftButton);
                choose(field<MyComboBox>(d, "StrOperator"), 1);
                QTest::keyClicks(field<MyLineEdit>(d, "StringValue"), "sad");
            }, R"({"Type":11,"Param":"Mood","IsString":true,"Op":1,"Value":"sad"})");
        row("numbers", 12, nothing, R"({"Type":12,"Number1":{"ActorType":false,"Index":1,"Info":3,"Type":4},"Op":2,
                                        "Number2":{"Number":100,"Type":0}})");
        row("texts", 13, nothing, R"({"Type":13,"Text1":{"Info":8,"Type":1},"Op":0,"Text2":{"Text":"My Map","Type":0}})");
    }

    void kindDialogsWriteTheirKeys()
    {
        QFETCH(int, type);
        QFETCH(Answer, act);
        QFETCH(QJsonObject, expected);
        QJsonObject object{{"Type", type}};
        QVERIFY(runKind(&object, act));
        QCOMPARE(object, expected);
    }

    // A realistic record opened and confirmed unchanged comes back as it was.
    void unchangedRecordsRoundTrip_data()
    {
        QTest::addColumn<QJsonObject>("record");
        const char* const all[] = {
            R"({"Type":0,"ID":2,"Value":true})",
            R"({"Type":1,"ID":2,"Op":4,"Value":120})",
            R"({"Type":1,"ID":1,"Op":0,"Value":{"Type":1,"ID":2}})",
            R"({"Type":2,"ActorType":true,"Actor":3,"Check":5,"ID":2})",
            R"({"Type":2,"ActorType":false,"Actor":2,"Check":1,"Name":"Ann"})",
            R"({"Type":3,"EnemyType":false,"Enemy":3,"Check":1,"ID":2})",
            R"({"Type":4,"State":6})",
            R"({"Type":5,"Op":3,"Value":{"Type":0,"Param":"Price"}})",
            R"({"Type":6,"Key":6,"State":3})",
            R"({"Type":7,"Check":2,"ID":3})",
            R"({"Type":8,"Check":2})",
            R"({"Type":9,"Code":"return $gameMap.mapId() === 3;"})",
            R"({"Type":10,"Param":"Speed"})",
            R"({"Type":11,"Param":"Hp","IsString":false,"Op":5,"Value":-40})",
            R"({"Type":12,"Number1":{"Type":3,"ID":2},"Op":1,"Number2":{"Type":8,"Op":0,"FirstNum":{"Type":3,"ID":1},"SecondNum":{"Type":0,"Number":5}}})",
            R"({"Type":13,"Text1":{"Type":2,"ID":1,"OnText":"A","OffText":"B"},"Op":1,"Text2":{"Type":0,"Text":"A"}})",
        };
        for (const char* record : all) {
            const QJsonObject object = json(record);
            QTest::newRow(qPrintable(conditionText(object, &data))) << object;
        }
    }

    void unchangedRecordsRoundTrip()
    {
        QFETCH(QJsonObject, record);
        QJsonObject object = record;
        QVERIFY(runKind(&object, [](TrovDialog*) {}));
        QCOMPARE(object, record);
    }

    void chooserAddsAndEditsConditions()
    {
        QJsonArray array{json(R"({"Type":8,"Check":1})")};
        bool accepted = false;
        RMConditionList list(&array, &accepted, &data, nullptr);
        showDialog(&list);
        UltimateTreeWidget* rows = list.list();
        // A kind's dialog cancelled keeps the chooser open for another choice.
        QWidget* viewport = rows->tree()->viewport();
        answering([&]() { QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(60, viewport->height() - 8)); },
                  {press("gold"), press("cancelButton"), press("player"),
                   [](TrovDialog* d) { choose(field<MyComboBox>(d, "PlayerState"), 3); }, press("confirmButton")});
        // Edited by a double click on its row.
        answering([&]() { clickRow(rows, 0, true); },
                  {[](TrovDialog* d) { choose(field<MyComboBox>(d, "OtherConditions"), 0); }, press("confirmButton")});
        // Nothing reaches the array before the list is confirmed.
        QCOMPARE(array, QJsonArray{json(R"({"Type":8,"Check":1})")});
        QTest::mouseClick(list.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QCOMPARE(array, (QJsonArray{json(R"({"Type":8,"Check":0})"), json(R"({"Type":4,"State":8})")}));
    }

    void cancelKeepsTheArray()
    {
        const QJsonArray before{json(R"({"Type":10,"Param":"A"})"), json(R"({"Type":10,"Param":"B"})")};
        QJsonArray array = before;
        bool accepted = false;
        RMConditionList list(&array, &accepted, &data, nullptr);
        showDialog(&list);
        clickRow(list.list(), 0);
        QTest::keyClick(list.list()->tree(), Qt::Key_Delete);
        QCOMPARE(rowTexts(list.list()), QStringList{"B Exists?"});
        answering([&]() { list.createNewCondition(); }, {press("customExists"), press("confirmButton")});
        QCOMPARE(list.list()->tree()->rowCount(), 2);
        QTest::mouseClick(list.cancelButton(), Qt::LeftButton);
        QVERIFY(!accepted);
        QCOMPARE(array, before);
    }

    // Entries the program can't edit keep their place and come back as they were.
    void foreignEntriesSurvive()
    {
        const QJsonArray before{QJsonValue(7), json(R"({"Type":42,"Future":true})"), json(R"({"Type":5,"Op":1})"),
                                QJsonValue(QStringLiteral("text"))};
        QJsonArray array = before;
        bool accepted = false;
        RMConditionList list(&array, &accepted, &data, nullptr);
        showDialog(&list);
        QCOMPARE(rowTexts(list.list()), (QStringList{"(not a condition)", "(unknown condition)", "Gold \u2260 0",
                                                    "(not a condition)"}));
        // Double clicks on them open nothing; a cut of one that isn't an
        // object neither copies nor removes it.
        clickRow(list.list(), 1, true);
        clickRow(list.list(), 0, true);
        QTest::keyClick(list.list()->tree(), Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(list.list()->tree()->rowCount(), 4);
        QVERIFY(QApplication::clipboard()->text().isEmpty());
        QTest::mouseClick(list.confirmButton(), Qt::LeftButton);
        QCOMPARE(array, before);
    }
};

VELMORA_TEST_MAIN(TestConditions, QApplication)
#include "tst_conditions.moc"
