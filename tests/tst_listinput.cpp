#include "TestEnvironment.h"

#include "logic/DynamicValueDisplay.h"
#include "logic/RMListSelector.h"
#include "logic/VelmoTextInputExtend.h"
#include "theme/ThemeManager.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MyTabSystem.h"
#include "widgets/MyTabSystemHeader.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPushButton>

using TestEnvironment::answering;

using TestEnvironment::field;
using TestEnvironment::json;

namespace {

using TestEnvironment::retype;
using TestEnvironment::choose;
using TestEnvironment::clickTab;

// Variables 1 "Gold" and 2 "Steps"; nothing beyond.
QJsonObject projectData()
{
    return QJsonObject{{"System.json", QJsonObject{{"variables", QJsonArray{"", "Gold", "Steps"}}}}};
}

void show(QWidget* dialog)
{
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QTest::qWait(20);
}

// Every key any kind of list writes, so that a confirmed list shows what
// it dropped.
const char* const Leftovers = R"({"Type":12,"Start":8,"End":9,"MembersType":2,"Data":4,"Position":5,
    "Notetag":"old","ItemType":3,"Index":4,"List1":{"Type":7},"List2":{"Type":7},"Code":"x","Junk":1})";

}

class TestListInput : public QObject
{
    Q_OBJECT

    QJsonObject data = projectData();

private slots:
    void initTestCase()
    {
        Theme::installDefault();
        Theme::refreshCachedColors();
        // Extension objects in fields need the dynamic input's handler.
        VelmoTextInputExtend::install(nullptr);
    }

    // The one-line text of a list value, as openers and summaries show it.
    void displayStrings()
    {
        QCOMPARE(dynamicListDisplay(json(R"({"Type":1,"Start":2,"End":99})"), &data), QStringLiteral("[0002] Steps ~ [0099] "));
        QCOMPARE(dynamicListDisplay(json(R"({"Type":1,"Start":1,"End":2})"), nullptr), QString());
        QCOMPARE(dynamicListDisplay(json(R"({"Type":2,"MembersType":3})"), &data), QStringLiteral(" List"));
        QCOMPARE(dynamicListDisplay(json(R"({"Type":9,"Start":1})"), &data), QStringLiteral("Type: 9"));
    }

    // Each tab confirmed writes its "Type" and exactly its kind's keys,
    // nothing of what the value held before.
    void confirmWritesOnlyItsKind_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("variant");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("numbers") << 0 << 0 << QByteArray(R"({"Type":0,"Start":-4,"End":9})");
        QTest::newRow("variables") << 1 << 0 << QByteArray(R"({"Type":1,"Start":1,"End":2})");
        QTest::newRow("positions") << 2 << 0 << QByteArray(R"({"Type":2,"MembersType":2,"Data":3,"Position":4})");
        QTest::newRow("member names") << 2 << 2 << QByteArray(R"({"Type":2,"MembersType":0,"Data":2})");
        QTest::newRow("item prices") << 3 << 1 << QByteArray(R"({"Type":3,"ItemType":0,"Data":4})");
        QTest::newRow("actor state turns") << 4 << 0 << QByteArray(R"({"Type":4,"Index":3,"Data":16})");
        QTest::newRow("enemy notetags") << 5 << 0 << QByteArray(R"({"Type":5,"Index":2,"Data":15,"Notetag":"Drop"})");
        QTest::newRow("combined") << 6 << 0
                                  << QByteArray(R"({"Type":6,"List1":{"Type":0,"Start":0,"End":1},
                                                    "List2":{"Type":0,"Start":2,"End":3}})");
        QTest::newRow("code") << 7 << 0 << QByteArray(R"({"Type":7,"Code":"return [];"})");
    }

    void confirmWritesOnlyItsKind()
    {
        QFETCH(int, type);
        QFETCH(int, variant);
        QFETCH(QByteArray, expected);
        QJsonObject value = json(Leftovers);
        bool accepted = false;
        RMListSelector dialog(&value, &accepted, &data, nullptr);
        show(&dialog);
        // An unknown "Type" opens on the first tab.
        QCOMPARE(dialog.tabs()->currentIndex(), 0);
        if (type != 0)
            clickTab(&dialog, type);
        switch (type * 10 + variant) {
        case 0:
            retype(field<MyLineEdit>(&dialog, "MinNumber"), QStringLiteral("-4"));
            retype(field<MyLineEdit>(&dialog, "MaxNumber"), QStringLiteral("9"));
            break;
        case 20:
            choose(field<MyComboBox>(&dialog, "MemberType"), 2);
            choose(field<MyComboBox>(&dialog, "BasicData"), 3);
            choose(field<MyComboBox>(&dialog, "PositionType"), 4);
            break;
        case 22:
            // A position chosen, then the data changed: no "Position" left.
            choose(field<MyComboBox>(&dialog, "BasicData"), 3);
            choose(field<MyComboBox>(&dialog, "PositionType"), 2);
            choose(field<MyComboBox>(&dialog, "BasicData"), 2);
            break;
        case 31:
            choose(field<MyComboBox>(&dialog, "ItemData"), 5);
            retype(field<MyLineEdit>(&dialog, "ItemNote"), QStringLiteral("Lost"));
            choose(field<MyComboBox>(&dialog, "ItemData"), 4);
            break;
        case 40:
            retype(field<MyLineEdit>(&dialog, "PartyIndex"), QStringLiteral("3"));
            choose(field<MyComboBox>(&dialog, "ActorData1"), 2);
            choose(field<MyComboBox>(&dialog, "ActorStateData"), 3);
            break;
        case 50:
            retype(field<MyLineEdit>(&dialog, "TroopIndex"), QStringLiteral("2"));
            choose(field<MyComboBox>(&dialog, "EnemyData1"), 5);
            retype(field<MyLineEdit>(&dialog, "EnemyNote"), QStringLiteral("Drop"));
            break;
        default:
            break;
        }
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QCOMPARE(value, json(expected.constData()));
    }

    // A list opened and confirmed untouched comes back as it was.
    void unchangedConfirmKeepsTheValue_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("extended bounds") << QByteArray(R"({"Type":0,"Start":{"Type":1,"ID":3},"End":{"Type":0,"Param":"Last"}})");
        QTest::newRow("variables") << QByteArray(R"({"Type":1,"Start":2,"End":7})");
        QTest::newRow("event positions") << QByteArray(R"({"Type":2,"MembersType":2,"Data":3,"Position":5})");
        QTest::newRow("member notetags") << QByteArray(R"({"Type":2,"MembersType":1,"Data":4,"Notetag":"Job Title"})");
        QTest::newRow("item notetags") << QByteArray(R"({"Type":3,"ItemType":1,"Data":5,"Notetag":"Rarity"})");
        QTest::newRow("actor buff turns") << QByteArray(R"({"Type":4,"Index":1,"Data":17})");
        QTest::newRow("dynamic party position") << QByteArray(R"({"Type":4,"Index":{"Type":1,"ID":5},"Data":6})");
        QTest::newRow("enemy notetags") << QByteArray(R"({"Type":5,"Index":3,"Data":15,"Notetag":"Weak"})");
        QTest::newRow("combined") << QByteArray(R"({"Type":6,"List1":{"Type":2,"MembersType":0,"Data":2},
                                                   "List2":{"Type":6,"List1":{"Type":7,"Code":"return [1];"},
                                                            "List2":{"Type":0,"Start":1,"End":3}}})");
        QTest::newRow("code") << QByteArray(R"j({"Type":7,"Code":"const ids = [];\nreturn ids;"})j");
    }

    void unchangedConfirmKeepsTheValue()
    {
        QFETCH(QByteArray, value);
        QJsonObject object = json(value.constData());
        bool accepted = false;
        RMListSelector dialog(&object, &accepted, &data, nullptr);
        show(&dialog);
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QCOMPARE(object, json(value.constData()));
    }

    // A buff list reopens with the visible combo on its first row, so an
    // untouched confirmation writes the buffs' IDs.
    void buffListReopensOnItsFirstRow()
    {
        QJsonObject object = json(R"({"Type":4,"Index":1,"Data":10})");
        bool accepted = false;
        RMListSelector dialog(&object, &accepted, &data, nullptr);
        show(&dialog);
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QCOMPARE(object, json(R"({"Type":4,"Index":1,"Data":9})"));
    }

    // The opener a collection's dialog uses: it changes only on confirmation.
    void pickReplacesOnlyOnConfirmation()
    {
        QWidget owner;
        owner.resize(400, 200);
        show(&owner);
        MyDialogOpener opener(&owner);
        QJsonObject value = json(R"({"Type":2,"MembersType":0,"Data":0})");
        answering([&] { RMListSelector::pick(&opener, &value, &data, &owner); },
                  {[](TrovDialog* list) {
                      choose(field<MyComboBox>(list, "MemberType"), 2);
                      QTest::mouseClick(field<QPushButton>(list, "cancelButton"), Qt::LeftButton);
                  }});
        QCOMPARE(value, json(R"({"Type":2,"MembersType":0,"Data":0})"));
        bool picked = false;
        answering([&] { picked = RMListSelector::pick(&opener, &value, &data, &owner); },
                  {[](TrovDialog* list) {
                      clickTab(qobject_cast<RMListSelector*>(list), 1);
                      QTest::mouseClick(field<QPushButton>(list, "confirmButton"), Qt::LeftButton);
                  }});
        QVERIFY(picked);
        QCOMPARE(value, json(R"({"Type":1,"Start":1,"End":2})"));
        QCOMPARE(opener.value(), QStringLiteral("[0001] Gold ~ [0002] Steps"));
    }
};

VELMORA_TEST_MAIN(TestListInput, QApplication)
#include "tst_listinput.moc"
