#include "TestEnvironment.h"
#include "components/ComponentKinds.h"
#include "components/UIComponentCustomDialog.h"
#include "components/UIComponentWindowDialog.h"
#include "components/UIComponentShapeDialog.h"
#include "components/UIComponentTextDialog.h"
#include "logic/AddonOrNotebox.h"
#include "logic/OpenAddonDialog.h"
#include "logic/TypeTabDialog.h"
#include "logic/VelmoTextInputExtend.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPlainTextEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MyTabSystem.h"
#include "widgets/MyTabSystemHeader.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QJsonArray>
#include <QPlainTextEdit>
#include <QJsonDocument>
#include <QPushButton>

using TestEnvironment::Answer;
using TestEnvironment::answering;
using TestEnvironment::press;

// Compared as compact text, so that a failure shows both sides.
#define COMPARE_JSON(actual, expected) QCOMPARE(TestEnvironment::compact(actual), TestEnvironment::compact(expected))
#define COMPARE_ARRAY(actual, expected)                                                                          \
    QCOMPARE(QJsonDocument(QJsonArray(actual)).toJson(QJsonDocument::Compact),                                 \
             QJsonDocument(QJsonArray(expected)).toJson(QJsonDocument::Compact))

using TestEnvironment::clickRow;
using TestEnvironment::field;
using TestEnvironment::json;

Q_DECLARE_METATYPE(TestEnvironment::Answer)

namespace {

using TestEnvironment::retype;
using TestEnvironment::choose;

QJsonObject gameData()
{
    QJsonArray events{QJsonValue()};
    for (const char* name : {"Open Menu", "Play Chime", "Hide HUD"})
        events.append(QJsonObject{{"id", events.size()}, {"name", name}});
    return {{"CommonEvents.json", events},
            {"System.json", QJsonObject{{"switches", QJsonArray{QString(), "Hovered", "Boss Fight"}}}}};
}

void clickTab(QWidget* dialog, int index)
{
    MyTabSystem* tabs = qobject_cast<TypeTabDialog*>(dialog)->tabs();
    QTest::mouseClick(tabs->header(), Qt::LeftButton, Qt::NoModifier, tabs->header()->tabRect(index).center());
    QTRY_COMPARE(tabs->currentIndex(), index);
}

// A component of a kind with the given add-ons in its data object.
QJsonObject component(int type, const QJsonArray& addons, const QString& note = QString())
{
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);
    return {{"ID", 4},
            {"Type", type},
            {"Name", "Probe"},
            {kind->dataKey, QJsonObject{{"Addons", addons}, {"Note", note}}}};
}

QJsonObject dataOf(const QJsonObject& component)
{
    return component.value(ComponentKinds::find(component.value("Type").toInt())->dataKey).toObject();
}

}

class TestAddons : public QObject
{
    Q_OBJECT

    QJsonObject data = gameData();

    // Runs the dialog of the add-on's kind for a component of the given
    // capabilities; act does what the user does before confirm or cancel.
    bool runAddon(QJsonObject* addon, int capabilities, const Answer& act, bool confirm = true)
    {
        bool accepted = false;
        answering([&]() { openAddonDialog(addon, &accepted, &data, capabilities, nullptr); },
                  {[&](TrovDialog* dialog) {
                      act(dialog);
                      press(confirm ? "confirmButton" : "cancelButton")(dialog);
                  }});
        return accepted;
    }

    // Opens a component's property dialog, lets act work in it and confirms.
    template <class Dialog>
    QJsonObject confirmComponent(QJsonObject object, const std::function<void(Dialog&, AddonOrNotebox*)>& act)
    {
        bool accepted = false;
        Dialog dialog(&object, &accepted, false, nullptr, &data);
        dialog.show();
        (void)QTest::qWaitForWindowExposed(&dialog);
        act(dialog, dialog.template findChild<AddonOrNotebox*>(QStringLiteral("addonOrNote")));
        QTest::mouseClick(field<QPushButton>(&dialog, "confirmButton"), Qt::LeftButton);
        if (!accepted)
            qWarning("component dialog not confirmed");
        return object;
    }

private slots:
    void init()
    {
        TestEnvironment::quietDialogs();
        QApplication::clipboard()->clear();
        VelmoTextInputExtend::install(&data);
    }

    // A new add-on, worked as a user does, writes the keys of the tab it is
    // confirmed on, with the default event or code.
    void newAddonsWriteTheKeysOfTheirTab_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<Answer>("act");
        QTest::addColumn<QJsonObject>("expected");
        const auto row = [](const char* name, int type, Answer act, const char* expected) {
            QTest::newRow(name) << type << act << json(expected);
        };
        row("hue", 1, [](TrovDialog* d) { retype(field<MyLineEdit>(d, "Hue"), "200"); },
            R"({"Type":1,"FilterType":0,"Hue":200})");
        row("blend", 1, [](TrovDialog* d) {
                clickTab(d, 2);
                retype(field<MyLineEdit>(d, "BlendOpacity"), "75");
            }, "{\"Type\":1,\"FilterType\":2,\"Blend\":\"#000000\",\"Opacity\":75}");
        row("hover bind switch", 2, [](TrovDialog* d) { clickTab(d, 2); }, R"({"Type":2,"HoverType":2,"ID":1})");
        row("hover code", 2, [](TrovDialog* d) { clickTab(d, 3); },
            "{\"Type\":2,\"HoverType\":3,\"Code\":\"\\/\\/ Called on both hover and leave.\\n"
            "\\/\\/ Use \\\"isHovered\\\" to distinguish.\"}");
        row("click event", 3, [](TrovDialog*) {}, R"({"Type":3,"ClickType":0,"ID":1})");
        // The default code follows the property while it is unedited.
        row("code property", 4, [](TrovDialog* d) {
                choose(field<MyComboBox>(d, "PropertyType"), 2);
                QCOMPARE(field<MyDialogOpener>(d, "Code")->value(), QStringLiteral("return 100;"));
                choose(field<MyComboBox>(d, "PropertyType"), 7);
            }, "{\"Type\":4,\"Property\":7,\"Code\":\"return 1.0; // 1.0 = 100%\"}");
        row("code behavior", 5, [](TrovDialog* d) { choose(field<MyComboBox>(d, "BehaviorType"), 3); },
            "{\"Type\":5,\"Behavior\":3,\"Code\":\"// Insert code here.\"}");
    }

    void newAddonsWriteTheKeysOfTheirTab()
    {
        QFETCH(int, type);
        QFETCH(Answer, act);
        QFETCH(QJsonObject, expected);
        QJsonObject addon{{"Type", type}};
        QVERIFY(runAddon(&addon, 0, act));
        COMPARE_JSON(addon, expected);
    }

    // A hue out of range holds confirm; each tab keeps its own pick, only
    // the selected tab is written, and edited code stays when the property
    // changes.
    void editedAddons()
    {
        QJsonObject addon{{"Type", 1}};
        QVERIFY(!runAddon(&addon, 0, [](TrovDialog* dialog) {
            retype(field<MyLineEdit>(dialog, "Hue"), "999");
            QVERIFY(!field<QPushButton>(dialog, "confirmButton")->isEnabled());
        }, false));
        COMPARE_JSON(addon, (QJsonObject{{"Type", 1}}));

        addon = json(R"({"Type":2,"HoverType":1,"ID":3})");
        QVERIFY(runAddon(&addon, 0, [](TrovDialog* dialog) {
            clickTab(dialog, 2);
            clickTab(dialog, 1);
        }));
        COMPARE_JSON(addon, json(R"({"Type":2,"HoverType":1,"ID":3})"));

        addon = json(R"({"Type":4,"Property":0,"Code":"return $gameVariables.value(3);"})");
        QVERIFY(runAddon(&addon, 0, [](TrovDialog* dialog) { choose(field<MyComboBox>(dialog, "PropertyType"), 1); }));
        COMPARE_JSON(addon, json(R"({"Type":4,"Property":1,"Code":"return $gameVariables.value(3);"})"));
    }

    // Opened on a stored add-on and confirmed untouched, every dialog gives
    // it back, dynamic numbers and upper-case colours included.
    void storedAddonsComeBackUnchanged_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::newRow("note") << R"({"Type":0,"Note":"Line\n\nwith gaps\t"})";
        QTest::newRow("hue dynamic") << R"({"Type":1,"FilterType":0,"Hue":{"Type":1,"ID":4}})";
        QTest::newRow("tone") << R"({"Type":1,"FilterType":1,"Tone":"#FF8800","Grey":35})";
        QTest::newRow("blend") << R"({"Type":1,"FilterType":2,"Blend":"#102030","Opacity":{"Type":2,"Code":"return 5;"}})";
        QTest::newRow("hover code") << R"({"Type":2,"HoverType":3,"Code":"if (isHovered) a();"})";
        QTest::newRow("property") << R"({"Type":4,"Property":10,"Code":"return 4;"})";
        QTest::newRow("unknown behavior") << R"({"Type":5,"Behavior":9,"Code":"later();"})";
    }

    void storedAddonsComeBackUnchanged()
    {
        QFETCH(QString, stored);
        const QJsonObject before = json(stored.toUtf8().constData());
        QJsonObject addon = before;
        // A repeating picture offers every property the records use.
        QVERIFY(runAddon(&addon, ComponentKinds::capabilities(ComponentKinds::RepeatingPicture), [](TrovDialog*) {}));
        COMPARE_JSON(addon, before);
    }

    // "Note" is derived from the note add-ons at every confirm, an edit of
    // one included.
    void noteStaysDerived()
    {
        QJsonObject object = component(ComponentKinds::Text,
                                       QJsonArray{json(R"({"Type":0,"Note":"A"})"),
                                                  json(R"({"Type":3,"ClickType":0,"ID":1})"),
                                                  json(R"({"Type":0,"Note":"B"})")},
                                       "stale text");
        object = confirmComponent<UIComponentTextDialog>(object, [](auto&, AddonOrNotebox*) {});
        QCOMPARE(dataOf(object).value("Note").toString(), QStringLiteral("A\n\nB"));

        object = confirmComponent<UIComponentTextDialog>(object, [](auto&, AddonOrNotebox* box) {
            clickRow(box->list(), 2);
            answering([&]() { clickRow(box->list(), 2, true); },
                      {[](TrovDialog* dialog) {
                          MyPlainTextEdit* note = field<MyPlainTextEdit>(dialog, "Note");
                          QTest::mouseClick(note->viewport(), Qt::LeftButton);
                          QTest::keyClick(note, Qt::Key_End, Qt::ControlModifier);
                          QTest::keyClicks(note, "2");
                          press("confirmButton")(dialog);
                      }});
            // The box shows the note as it will be written, before the confirm.
            QCOMPARE(box->template findChild<QPlainTextEdit*>("note")->toPlainText(), QStringLiteral("A\n\nB2"));
        });
        QCOMPARE(dataOf(object).value("Note").toString(), QStringLiteral("A\n\nB2"));
    }

    // A double-click below the rows opens the chooser once: a kind whose
    // dialog is cancelled leaves the chooser open for another; a confirmed
    // one lands at the end.
    void doubleClickOnTheBlankAddsOne()
    {
        const QJsonObject written = confirmComponent<UIComponentTextDialog>(
            component(ComponentKinds::Text, QJsonArray{json(R"({"Type":0,"Note":"first"})")}),
            [](auto&, AddonOrNotebox* box) {
                QWidget* viewport = box->list()->tree()->viewport();
                const TestEnvironment::Seen seen = answering(
                    [&]() { QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(60, viewport->height() - 8)); },
                    {press("click"), press("cancelButton"), press("note"),
                     [](TrovDialog* dialog) {
                         QTest::keyClicks(field<MyPlainTextEdit>(dialog, "Note"), "second");
                         press("confirmButton")(dialog);
                     },
                     TestEnvironment::closeByFrame()});
                QCOMPARE(seen.count, 4);
            });
        QCOMPARE(dataOf(written).value("Note").toString(), QStringLiteral("first\n\nsecond"));
    }

    // What the program can't edit keeps its row and its place, opens
    // nothing and is written back as it came.
    void unknownAndBrokenAddonsAreKept()
    {
        // A filter of a tab the dialog doesn't have would come back as a hue
        // filter if its dialog opened; it opens nothing instead.
        const QJsonArray addons{json(R"({"Type":12,"Future":[1,2]})"), QJsonValue("just text"),
                                json(R"({"Type":0,"Note":"kept"})"),
                                json(R"({"Type":1,"FilterType":9,"Tone":"[0,0,0,0]","Hue":5})")};
        const QJsonObject written = confirmComponent<UIComponentTextDialog>(
            component(ComponentKinds::Text, addons), [](auto&, AddonOrNotebox* box) {
                QCOMPARE(TestEnvironment::rowTexts(box->list(), 1).mid(0, 3), (QStringList{"", "", "kept"}));
                for (int row : {0, 3}) {
                    const TestEnvironment::Seen seen = answering([&]() { clickRow(box->list(), row, true); }, {});
                    QCOMPARE(seen.count, 0);
                }
            });
        COMPARE_ARRAY(dataOf(written).value("Addons").toArray(), addons);
        QCOMPARE(dataOf(written).value("Note").toString(), QStringLiteral("kept"));
    }

    // A custom component's lone note of an older document becomes its note
    // add-on; keys its dialog doesn't know are gone.
    void customKindsKeepALegacyNote()
    {
        QJsonObject object{{"ID", 2}, {"Type", ComponentKinds::Custom}, {"Name", "Frame"},
                           {"CustomData", QJsonObject{{"Skin", "Window"}, {"Note", "legacy"}, {"Unknown", true}}}};
        const QJsonObject written = confirmComponent<UIComponentCustomDialog>(object, [](auto&, AddonOrNotebox*) {});
        COMPARE_JSON(dataOf(written), json(R"({"Width":300,"Height":300,"Params":{},"ID":"","Note":"legacy",
                                                "Addons":[{"Type":0,"Note":"legacy"}]})"));
    }

    // A code property for openness travels from a window to another window
    // but not to a text, which can't open.
    void clipboardFollowsTheCapabilities()
    {
        const QJsonObject openness = json(R"({"Type":4,"Property":8,"Code":"return 0.5;"})");
        QJsonObject window{{"ID", 3}, {"Type", ComponentKinds::Window},
                           {"WindowData", QJsonObject{{"Addons", QJsonArray{openness}}}}};
        confirmComponent<UIComponentWindowDialog>(window, [](auto&, AddonOrNotebox* box) {
            clickRow(box->list(), 0);
            QTest::keyClick(box->list()->tree(), Qt::Key_C, Qt::ControlModifier);
        });

        const QJsonObject text = confirmComponent<UIComponentTextDialog>(
            component(ComponentKinds::Text, QJsonArray()), [](auto&, AddonOrNotebox* box) {
                QTest::keyClick(box->list()->tree(), Qt::Key_V, Qt::ControlModifier);
            });
        QCOMPARE(dataOf(text).value("Addons").toArray().size(), 0);

        QJsonObject otherWindow{{"ID", 5}, {"Type", ComponentKinds::Window}, {"WindowData", QJsonObject()}};
        otherWindow = confirmComponent<UIComponentWindowDialog>(otherWindow, [](auto&, AddonOrNotebox* box) {
            QTest::keyClick(box->list()->tree(), Qt::Key_V, Qt::ControlModifier);
        });
        COMPARE_ARRAY(dataOf(otherWindow).value("Addons").toArray(), QJsonArray{openness});
    }
};

VELMORA_TEST_MAIN(TestAddons, QApplication)

#include "tst_addons.moc"
