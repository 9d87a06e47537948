#include "TestEnvironment.h"

#include "logic/DynamicValueDisplay.h"
#include "logic/RMNumberSelector.h"
#include "logic/RMTextSelector.h"
#include "logic/VelmoTextInputExtend.h"
#include "theme/ThemeManager.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MyTabSystem.h"
#include "widgets/MyTabSystemHeader.h"

#include <QApplication>
#include <QJsonDocument>
#include <QPushButton>


using TestEnvironment::field;
using TestEnvironment::json;

namespace {

using TestEnvironment::retype;
using TestEnvironment::choose;
using TestEnvironment::clickTab;

// Switches 1 "Door" and 2 "" (empty name), variable 1 "Gold", item 1
// "Potion", item 2 a null record, weapon 1 "Sword", armor 1 "Cap".
QJsonObject projectData()
{
    const auto named = [](const char* name) { return QJsonArray{QJsonValue(), QJsonObject{{"name", name}}}; };
    QJsonArray items = named("Potion");
    items.append(QJsonValue());
    return QJsonObject{{"System.json", QJsonObject{{"switches", QJsonArray{"", "Door", ""}},
                                                   {"variables", QJsonArray{"", "Gold"}}}},
                       {"Items.json", items},
                       {"Weapons.json", named("Sword")},
                       {"Armors.json", named("Cap")}};
}

QJsonObject confirmed(DynamicValueSelector* dialog, QJsonObject* object)
{
    QTest::mouseClick(dialog->confirmButton(), Qt::LeftButton);
    return *object;
}

void show(QDialog* dialog)
{
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QTest::qWait(20);
}

}

class TestDynamicValues : public QObject
{
    Q_OBJECT

    QJsonObject data = projectData();

    // The number or the text input, shown on object.
    DynamicValueSelector* open(bool numeric, QJsonObject* object, bool* accepted)
    {
        DynamicValueSelector* dialog =
            numeric ? static_cast<DynamicValueSelector*>(new RMNumberSelector(object, accepted, &data, nullptr))
                    : new RMTextSelector(object, accepted, &data, nullptr);
        show(dialog);
        return dialog;
    }

private slots:
    void initTestCase()
    {
        Theme::installDefault();
        Theme::refreshCachedColors();
        // Extension objects in fields need the dynamic input's handler.
        VelmoTextInputExtend::install(nullptr);
    }

    // The one-line texts of values, odd ones included.
    void displayStrings()
    {
        QCOMPARE(dynamicTextDisplay(json(R"({"Type":0,"Text":{"Type":0,"Param":"P"}})"), &data), QStringLiteral("[DYNAMIC]"));
        QCOMPARE(dynamicTextDisplay(json(R"({"Type":1,"Info":300})"), &data), QString());
        QCOMPARE(dynamicTextDisplay(json(R"({"Type":6,"ItemType":0,"ID":2})"), &data), QStringLiteral("Count: [0002] "));
        QCOMPARE(dynamicTextDisplay(json(R"({"Type":10,"Text":"x"})"), &data), QString());
        QCOMPARE(dynamicNumberDisplay(json(R"({"Type":8,"Op":0,"FirstNum":{"Type":8,"Op":2,"FirstNum":{"Type":0,"Number":2},
                                               "SecondNum":{"Type":8,"Op":9,"FirstNum":{"Type":3,"ID":1}}},
                                               "SecondNum":{"Type":4,"Info":8}})"),
                                      &data),
                 QStringLiteral("2 (*) (Sqrt.) [0001] Gold (+) Actor Maximum HP"));
    }

    // Each tab's confirm writes its "Type" and that kind's keys, nothing of
    // the object it opened on.
    void confirmWritesOnlyItsTab_data()
    {
        QTest::addColumn<bool>("numeric");
        QTest::addColumn<int>("tab");
        QTest::addColumn<QByteArray>("expected");
        const char* const text[] = {
            R"({"Type":0,"Text":"Hi"})", R"({"Type":1,"Info":101})",
            R"({"Type":2,"ID":1,"OnText":"Hi","OffText":"OFF"})", R"({"Type":3,"ID":1})",
            R"({"Type":6,"ItemType":1,"ID":1})", R"({"Type":4,"ActorType":false,"Index":3,"Info":1})",
            R"({"Type":5,"EnemyType":true,"ID":1,"Info":0})",
            R"({"Type":8,"FirstNum":{"Type":0,"Number":0},"SecondNum":{"Type":0,"Number":0},"Op":0})",
            R"({"Type":9,"ListData":{"Type":0,"Start":0,"End":1},"Op":0})",
            "{\"Type\":7,\"Code\":\"return \\\"\\\";\",\"Display\":\"Hi\"}"};
        for (int tab = 0; tab < 10; ++tab) {
            QByteArray expected(text[tab]);
            QTest::newRow(qPrintable(QStringLiteral("text %1").arg(tab))) << false << tab << expected;
            expected.replace("\"Text\":\"Hi\"", "\"Number\":3").replace("\"OnText\":\"Hi\"", "\"OnNum\":3");
            expected.replace("\"OffText\":\"OFF\"", "\"OffNum\":0").replace("return \\\"\\\";", "return 0;");
            // Without "Name" the number's enemy info starts on "HP".
            expected.replace("\"ID\":1,\"Info\":0", "\"ID\":1,\"Info\":1");
            QTest::newRow(qPrintable(QStringLiteral("number %1").arg(tab))) << true << tab << expected;
        }
    }

    void confirmWritesOnlyItsTab()
    {
        QFETCH(bool, numeric);
        QFETCH(int, tab);
        QFETCH(QByteArray, expected);
        QJsonObject object{{"Type", 12}, {"Text", "x"}, {"Number", 4}, {"Info", 5}, {"Op", 3}, {"Junk", true}};
        bool accepted = false;
        QScopedPointer<DynamicValueSelector> dialog(open(numeric, &object, &accepted));
        if (tab != 0)
            clickTab(dialog.data(), tab);
        // One field of each page that has one is worked as a user would.
        const QString typed = numeric ? QStringLiteral("3") : QStringLiteral("Hi");
        if (tab == 0)
            retype(field<MyLineEdit>(dialog.data(), numeric ? "Number" : "Text"), typed);
        else if (tab == 1)
            choose(field<MyComboBox>(dialog.data(), "Section"), 1), choose(field<MyComboBox>(dialog.data(), "PlayerData"), 1);
        else if (tab == 2)
            retype(field<MyLineEdit>(dialog.data(), numeric ? "OnNum" : "OnText"), typed);
        else if (tab == 4)
            choose(field<MyComboBox>(dialog.data(), "Inventory"), 1);
        else if (tab == 5) {
            QTest::mouseClick(field<MyEitherBox>(dialog.data(), "ActorType"), Qt::LeftButton);
            retype(field<MyLineEdit>(dialog.data(), "PartyIndex"), QStringLiteral("3"));
            choose(field<MyComboBox>(dialog.data(), "ActorInfo"), numeric ? 0 : 1);
        } else if (tab == 9)
            retype(field<MyLineEdit>(dialog.data(), "Display"), QStringLiteral("Hi"));
        QCOMPARE(confirmed(dialog.data(), &object), json(expected.constData()));
        QVERIFY(accepted);
    }

    // A value opened and confirmed untouched comes back as it was.
    void unchangedConfirmKeepsTheValue_data()
    {
        QTest::addColumn<bool>("numeric");
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("extended text") << false << QByteArray(R"({"Type":0,"Text":{"Type":1,"ID":4}})");
        QTest::newRow("meta data") << true << QByteArray(R"({"Type":1,"Info":205})");
        QTest::newRow("switch") << true << QByteArray(R"({"Type":2,"ID":2,"OnNum":{"Type":2,"Code":"c"},"OffNum":-7})");
        QTest::newRow("map name") << false << QByteArray(R"({"Type":1,"Info":8})");
        QTest::newRow("party") << true << QByteArray(R"({"Type":4,"ActorType":false,"Index":{"Type":0,"Param":"i"},"Info":16})");
        QTest::newRow("any enemy") << false << QByteArray(R"({"Type":5,"EnemyType":true,"ID":9,"Info":0})");
        QTest::newRow("armor") << false << QByteArray(R"({"Type":6,"ItemType":2,"ID":4})");
        QTest::newRow("code") << true << QByteArray(R"j({"Type":7,"Code":"a\nb","Display":"(b)"})j");
        QTest::newRow("math") << true << QByteArray(R"({"Type":8,"Op":11,"FirstNum":{"Type":3,"ID":1},"SecondNum":{"Type":0,"Number":2}})");
        QTest::newRow("list") << false << QByteArray(R"({"Type":9,"Op":2,"ListData":{"Type":4,"Index":1,"Data":16},"Frequency":30})");
    }

    void unchangedConfirmKeepsTheValue()
    {
        QFETCH(bool, numeric);
        QFETCH(QByteArray, value);
        QJsonObject object = json(value.constData());
        bool accepted = false;
        QScopedPointer<DynamicValueSelector> dialog(open(numeric, &object, &accepted));
        QCOMPARE(confirmed(dialog.data(), &object), json(value.constData()));
        QVERIFY(accepted);
    }

    void sumHasNoFrequency()
    {
        QJsonObject object = json(R"({"Type":9,"Op":1,"ListData":{"Type":6},"Frequency":30})");
        bool accepted = false;
        RMNumberSelector dialog(&object, &accepted, &data, nullptr);
        show(&dialog);
        choose(field<MyComboBox>(&dialog, "ListOperator"), 0);
        QCOMPARE(confirmed(&dialog, &object), json(R"({"Type":9,"Op":0,"ListData":{"Type":6}})"));
    }
};

VELMORA_TEST_MAIN(TestDynamicValues, QApplication)
#include "tst_dynamicvalues.moc"
