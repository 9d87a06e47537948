#include "MainWindowFixture.h"
#include "TestEnvironment.h"

#include "app/JsonFile.h"
#include "components/GameUIEditorSceneHelper.h"
#include "components/VelmoUISelector.h"
#include "logic/VelmoAnimationStyle.h"
#include "scene/UIComponentAnimationDialog.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/HaxeCodeEdit.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyTabSystem.h"
#include "widgets/MyTabSystemHeader.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QPushButton>

using TestEnvironment::Answer;
using TestEnvironment::answering;
using TestEnvironment::clickRow;
using TestEnvironment::field;
using TestEnvironment::press;
using TestEnvironment::rowTexts;

namespace {

// Compared as compact text, so that a failure shows both objects.
#define COMPARE_JSON(actual, expected) QCOMPARE(TestEnvironment::compact(actual), TestEnvironment::compact(expected))

const int EveryProperty = UIComponentAnimationDialog::HasOpenness | UIComponentAnimationDialog::HasRepeatOffset;

// Picks the row of a combo whose data is value, by the keyboard in its list.
void choose(QWidget* dialog, const char* comboName, int value)
{
    MyComboBox* combo = field<MyComboBox>(dialog, comboName);
    int row = 0;
    while (row < combo->count() && combo->getData(row).toInt() != value)
        ++row;
    QVERIFY2(row < combo->count(), "the combo doesn't offer the value");
    TestEnvironment::choose(combo, row);
}

bool confirmEnabled(QWidget* dialog)
{
    return field<QPushButton>(dialog, "confirmButton")->isEnabled();
}

void confirm(QWidget* dialog)
{
    QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
}

// Ctrl+key on a row of a list, as a user copies, cuts and pastes.
void keyOnRow(UltimateTreeWidget* list, int row, Qt::Key key)
{
    clickRow(list, row);
    QTest::keyClick(list->tree(), key, Qt::ControlModifier);
}

// answering(), where an answer whose check failed closes every dialog still
// open, so that the failure is reported instead of waiting for ever.
TestEnvironment::Seen answerAll(const std::function<void()>& trigger, const QList<Answer>& answers)
{
    QList<Answer> safe;
    for (const Answer& answer : answers) {
        safe.append([answer](TrovDialog* dialog) {
            answer(dialog);
            if (QTest::currentTestFailed()) {
                while (QDialog* open = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                    open->reject();
            }
        });
    }
    return answering(trigger, safe);
}

// The animation dialog on record with flags, answered by the script.
void runAnimation(QJsonObject* record, int flags, const std::function<void(TrovDialog*)>& script)
{
    answerAll([&]() { UIComponentAnimationDialog::edit(record, flags, nullptr); }, {script});
}

// The entry an untouched new animation of a property gets, with the pair.
QJsonObject freshEntry(int property, const QJsonObject& pair = {})
{
    QJsonObject entry{{"Property", property}, {"Type", 0},         {"Duration", 60},
                      {"EasingCurve", 0},     {"Reset", false},    {"ReturnEasing", 0},
                      {"ActivateType", QJsonObject{{"Type", 0}, {"RunType", 1}}}};
    for (auto key = pair.begin(); key != pair.end(); ++key)
        entry.insert(key.key(), key.value());
    return entry;
}

// The custom properties tab of a component's dialog, shown by its tab.
UltimateTreeWidget* propertiesOf(QWidget* dialog)
{
    MyTabSystemHeader* header = dialog->findChild<MyTabSystem*>()->header();
    QTest::mouseClick(header, Qt::LeftButton, Qt::NoModifier, header->tabRect(1).center());
    UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
    (void)QTest::qWaitFor([list]() { return list->isVisible(); });
    return list;
}

// A component's property dialog as the scene opens it, answered by the
// script and its nested answers; the object it gave back, or none when cancelled.
struct ComponentDialog {
    QJsonObject projectData;
    QJsonObject run(QJsonObject component, const std::function<void(TrovDialog*)>& script,
                    const QList<Answer>& nested = {})
    {
        bool accepted = false;
        answerAll(
            [&]() {
                const std::unique_ptr<UIComponentBaseDialog> dialog =
                    GameUIEditorSceneHelper<VelmoUISelector>::makeDialog(component, &accepted, true, nullptr,
                                                                         &projectData);
                dialog->exec();
            },
            QList<Answer>{script} + nested);
        return accepted ? component : QJsonObject();
    }
};

// A project with one Map HUD holding one icon with custom properties.
QString projectWithProperties(const QString& name, const QJsonObject& properties)
{
    const QJsonObject icon{{"ID", 1}, {"Type", 9}, {"Name", "Icon"}, {"X", 10}, {"Y", 10},
                           {"CustomProperties", properties}};
    const QString project = TestEnvironment::makeProjectWithHuds(
        name, {QJsonObject{{"HUD", QJsonArray{icon}}}, QJsonObject{{"HUD", QJsonArray()}}});
    QDir(project).mkpath("data/plugin");
    return project;
}

QString ordersPath(const QString& project) { return project + "/data/plugin/PropertyOrders.json"; }

// The icon's order in the project's file of orders.
QJsonValue storedOrder(const QString& project)
{
    return JsonFile::read(ordersPath(project)).object().value("UILoc1ID1");
}

}

class TestAnimProps : public QObject, public MainWindowFixture
{
    Q_OBJECT

    // Opens the icon's dialog in the window's component list by a
    // double-click and answers it.
    void editIcon(const QList<Answer>& answers)
    {
        UltimateTreeWidget* components = window->componentListWidget();
        answerAll([&]() { clickRow(components, 0, true); }, answers);
    }

private slots:
    void init()
    {
        TestEnvironment::quietDialogs();
        QApplication::clipboard()->clear();
    }

    void cleanup() { window.reset(); }

    // A realistic entry opened and confirmed as it is comes back identical.
    void realisticEntriesComeBackUnchanged_data()
    {
        QTest::addColumn<QJsonObject>("entry");
        QTest::newRow("opacity, custom return") << QJsonObject{
            {"Property", 7}, {"Type", 2}, {"Duration", 90}, {"EasingCurve", 5},
            {"ActivateType", QJsonObject{{"Type", 1}, {"ID", 4}}}, {"Reset", true}, {"ReturnEasing", 2},
            {"BackwardsEasingCurve", 9}, {"StartOpacity", 0.25}, {"EndOpacity", 1}};
        QTest::newRow("hue, inverted") << QJsonObject{
            {"Property", 12}, {"Type", 1}, {"Duration", 240}, {"EasingCurve", 30},
            {"ActivateType", QJsonObject{{"Type", 2}, {"Code", "return $gameSwitches.value(3);"}}},
            {"Reset", false}, {"ReturnEasing", 1}, {"StartHue", -45}, {"EndHue", 315}};
    }

    void realisticEntriesComeBackUnchanged()
    {
        QFETCH(QJsonObject, entry);
        QJsonObject record = entry;
        runAnimation(&record, EveryProperty, confirm);
        COMPARE_JSON(record, entry);
    }

    // An entry of a property the kind can't animate selects nothing and
    // can't be confirmed into something else by accident.
    void flagsLimitThePropertiesOffered()
    {
        const QJsonObject turning{{"Property", 6}, {"StartRotation", 10}, {"EndRotation", 20}};
        QJsonObject record = turning;
        runAnimation(&record, UIComponentAnimationDialog::NoRotation, [](TrovDialog* dialog) {
            QCOMPARE(field<MyComboBox>(dialog, "Property")->currentIndex(), -1);
            // Ctrl+Return doesn't get past the disabled button.
            QTest::keyClick(dialog, Qt::Key_Return, Qt::ControlModifier);
            QTest::mouseClick(field<QPushButton>(dialog, "cancelButton"), Qt::LeftButton);
        });
        COMPARE_JSON(record, turning);
    }

    // Another property moves the values to its own keys; the old pair goes.
    void changingThePropertyMovesTheKeys()
    {
        QJsonObject record{{"Property", 0}, {"StartX", 5}, {"EndX", 9}, {"StartScaleWidth", 2}};
        runAnimation(&record, 0, [](TrovDialog* dialog) {
            choose(dialog, "Property", 1);
            confirm(dialog);
        });
        COMPARE_JSON(record, freshEntry(1, {{"StartY", 5}, {"EndY", 9}}));
    }

    // Only a custom backwards curve is written: back to the forward one, the
    // stored custom curve goes.
    void returnEasingShowsAndWritesTheBackwardsCurve()
    {
        QJsonObject record{{"Property", 0}, {"EasingCurve", 4}, {"ReturnEasing", 2}, {"BackwardsEasingCurve", 7}};
        runAnimation(&record, 0, [](TrovDialog* dialog) {
            choose(dialog, "ReturnEasingType", 0);
            confirm(dialog);
        });
        QCOMPARE(record.value("ReturnEasing").toInt(), 0);
        QVERIFY(!record.contains("BackwardsEasingCurve"));
        QCOMPARE(record.value("EasingCurve").toInt(), 4);
    }

    // The easing picker and the run type dialog change what is written.
    void easingAndRunTypeComeFromTheirDialogs()
    {
        QJsonObject projectData;
        VelmoAnimationStyle::install(&projectData);
        QJsonObject record{{"Property", 0}, {"EasingCurve", 0}};
        auto open = [](const char* opener) {
            return Answer([opener](TrovDialog* dialog) {
                QTest::mouseClick(field<MyDialogOpener>(dialog, opener), Qt::LeftButton);
            });
        };
        answerAll([&]() { UIComponentAnimationDialog::edit(&record, 0, nullptr); },
                  {open("EasingCurve"),
                   // The easing picker: a kind and a direction, confirmed.
                   [](TrovDialog* picker) {
                       clickRow(field<UltimateTreeWidget>(picker, "myList"), 2);
                       choose(picker, "Easing", 1);
                       confirm(picker);
                   },
                   open("RunType"),
                   // The run type: the basic rule "Manual".
                   [](TrovDialog* runType) {
                       choose(runType, "Basic", VelmoAnimationStyle::Manual);
                       confirm(runType);
                   },
                   press("confirmButton")});
        VelmoAnimationStyle::install(nullptr);
        // Row 2 of the picker is the second kind after "Linear", cubic, eased out.
        QCOMPARE(record.value("EasingCurve").toInt(), 5);
        COMPARE_JSON(record.value("ActivateType").toObject(), (QJsonObject{{"Type", 0}, {"RunType", 0}}));
    }

    // A double-click on the "+" row makes an animation after the current
    // row; one on a row edits it; confirming keeps the list's order.
    void animationListMakesAndEditsThroughTheDialog()
    {
        ComponentDialog dialogs;
        const QJsonObject slide{{"Property", 0}, {"StartX", 0}, {"EndX", 50}};
        const QJsonObject fade{{"Property", 7}, {"StartOpacity", 0}, {"EndOpacity", 1}};
        const QJsonObject result = dialogs.run(
            QJsonObject{{"ID", 3}, {"Type", 1}, {"Animations", QJsonArray{slide, fade}}},
            [](TrovDialog* dialog) {
                UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "animations");
                clickRow(list, 0);
                clickRow(list, 2, true);
            },
            {[](TrovDialog* animation) {
                 choose(animation, "Property", 1);
                 TestEnvironment::typing("Start_Int", "-5")(animation);
                 TestEnvironment::typing("End_Int", "5")(animation);
                 confirm(animation);
             },
             [](TrovDialog* dialog) {
                 UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "animations");
                 QCOMPARE(rowTexts(list, 0), (QStringList{"X-Pos", "Opacity", "Y-Pos"}));
                 clickRow(list, 1, true);
             },
             TestEnvironment::typing("End_Opacity", "60"), press("confirmButton"), press("confirmButton")});
        const QJsonArray expected{slide, freshEntry(7, {{"StartOpacity", 0}, {"EndOpacity", 0.6}}),
                                  freshEntry(1, {{"StartY", -5}, {"EndY", 5}})};
        QCOMPARE(result.value("Animations"), QJsonValue(expected));
    }

    // What one kind's dialog copies pastes into another kind's, a property
    // under a free name; foreign or broken text never pastes.
    void clipboardCrossesKinds()
    {
        ComponentDialog dialogs;
        const QJsonObject turn{{"Property", 6}, {"StartRotation", 0}, {"EndRotation", 90}, {"Duration", 30}};
        const QJsonObject slide{{"Property", 0}, {"StartX", 0}, {"EndX", 50}};
        const QJsonObject target{{"ID", 2}, {"Type", 7}, {"Animations", QJsonArray{slide}},
                                 {"CustomProperties", QJsonObject{{"Speed", "1"}}}};
        // Ctrl+key on the first row of a list of the component's dialog; what
        // the list holds once confirmed.
        auto keyIn = [&dialogs](const QJsonObject& component, bool properties, Qt::Key key) {
            const QJsonObject result = dialogs.run(component, [=](TrovDialog* dialog) {
                keyOnRow(properties ? propertiesOf(dialog) : field<UltimateTreeWidget>(dialog, "animations"), 0, key);
                confirm(dialog);
            });
            return result.value(properties ? "CustomProperties" : "Animations");
        };
        keyIn(QJsonObject{{"ID", 1}, {"Type", 0}, {"Animations", QJsonArray{turn}}}, false, Qt::Key_C);
        QCOMPARE(keyIn(target, false, Qt::Key_V), QJsonValue(QJsonArray{slide, turn}));
        keyIn(QJsonObject{{"ID", 1}, {"Type", 0}, {"CustomProperties", QJsonObject{{"Speed", "4"}}}}, true, Qt::Key_C);
        QCOMPARE(keyIn(target, true, Qt::Key_V), QJsonValue(QJsonObject{{"Speed", "1"}, {"Speed (2)", "4"}}));

        // A property whose value breaks the record (another list's word is
        // refused by every list).
        QApplication::clipboard()->setText(QStringLiteral("CUSTOMPROPERTY{\"Name\":\"Zeta\",\"Prop\":\"say \"hi\"\"}"));
        QCOMPARE(keyIn(target, true, Qt::Key_V), target.value("CustomProperties"));
    }

    // The editor refuses an empty or a taken name; a value left alone keeps
    // its own line ends.
    void customPropertyEditorMakesAndRenames()
    {
        ComponentDialog dialogs;
        const QJsonObject properties{{"Speed", "4"}, {"Lines", "a\r\nb"}};
        dialogs.projectData.insert("PropertyOrders.json", QJsonObject{{"UILoc1ID5", QJsonArray{"Speed", "Lines"}}});
        const QJsonObject result = dialogs.run(
            QJsonObject{{"ID", 5}, {"Type", 9}, {"CustomProperties", properties}},
            [](TrovDialog* dialog) {
                UltimateTreeWidget* list = propertiesOf(dialog);
                clickRow(list, 0);
                clickRow(list, 2, true);
            },
            {[](TrovDialog* edit) {
                 QVERIFY(!confirmEnabled(edit));
                 TestEnvironment::typing("Property_Name", "Speed")(edit);
                 QVERIFY(!confirmEnabled(edit));
                 TestEnvironment::typing("Property_Name", "Jump")(edit);
                 HaxeCodeEdit* contents = field<HaxeCodeEdit>(edit, "contents");
                 QTest::mouseClick(contents->viewport(), Qt::LeftButton);
                 QTest::keyClicks(contents, "high");
                 QTest::keyClick(contents, Qt::Key_Return);
                 QTest::keyClicks(contents, "up");
                 confirm(edit);
             },
             // The "+" row took the selection: the pair went at the end. A
             // property confirmed under its own name is no clash.
             [](TrovDialog* dialog) { clickRow(field<UltimateTreeWidget>(dialog, "customProperties"), 1, true); },
             press("confirmButton"), press("confirmButton")});
        const QJsonObject expected{{"Speed", "4"}, {"Jump", "high\nup"}, {"Lines", "a\r\nb"}};
        COMPARE_JSON(result.value("CustomProperties").toObject(), expected);
        QCOMPARE(dialogs.projectData.value("PropertyOrders.json").toObject().value("UILoc1ID5"),
                 QJsonValue(QJsonArray{"Speed", "Lines", "Jump"}));
    }

    // A missing or damaged file of orders loses only the order: the
    // properties show by name. A new order is unsaved work even when no
    // component changed, and survives a save, a rename and a reopening.
    void orderSurvivesSaveAndReopen_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("missing") << QByteArray();
        QTest::newRow("damaged") << QByteArray("{\"UILoc1ID1\": [\"Gamma\", ");
        QTest::newRow("wrong shapes") << QByteArray("{\"UILoc1ID1\": \"Gamma\", \"UILoc1ID2\": 4}");
    }

    void orderSurvivesSaveAndReopen()
    {
        QFETCH(QByteArray, content);
        const QJsonObject properties{{"Gamma", "3"}, {"Alpha", "1"}, {"Beta", "2"}};
        const QString project = projectWithProperties("order", properties);
        if (!content.isNull())
            TestEnvironment::writeFile(ordersPath(project), content);
        VelmoMainWindow* main = openWindow(project);
        main->markChanged();
        key(Qt::Key_S);
        QCOMPARE(QFile::exists(ordersPath(project)), !content.isNull());

        // Gamma cut and pasted at the top.
        editIcon({[](TrovDialog* dialog) {
            UltimateTreeWidget* list = propertiesOf(dialog);
            QCOMPARE(rowTexts(list, 0), (QStringList{"Alpha", "Beta", "Gamma"}));
            keyOnRow(list, 2, Qt::Key_X);
            keyOnRow(list, 0, Qt::Key_V);
            confirm(dialog);
        }});
        QVERIFY(main->projectIsChanged());
        key(Qt::Key_S);
        QVERIFY(!main->projectIsChanged());
        QCOMPARE(storedOrder(project), QJsonValue(QJsonArray{"Alpha", "Gamma", "Beta"}));
        const QJsonObject icon = TestEnvironment::writtenDocument(project).value("Data").toArray().at(0).toObject()
                                     .value("HUD").toArray().at(0).toObject();
        COMPARE_JSON(icon.value("CustomProperties").toObject(), properties);

        // Beta renamed to Delta.
        editIcon({[](TrovDialog* dialog) { clickRow(propertiesOf(dialog), 2, true); },
                  TestEnvironment::typing("Property_Name", "Delta"), press("confirmButton"), press("confirmButton")});
        key(Qt::Key_S);
        window.reset();
        openWindow(project);
        editIcon({[](TrovDialog* dialog) {
            UltimateTreeWidget* list = propertiesOf(dialog);
            QCOMPARE(rowTexts(list, 0), (QStringList{"Alpha", "Gamma", "Delta"}));
            QCOMPARE(rowTexts(list, 1), (QStringList{"1", "3", "2"}));
            QTest::mouseClick(field<QPushButton>(dialog, "cancelButton"), Qt::LeftButton);
        }});
    }

    // Each file is written whatever becomes of the other; either failure is
    // told and leaves the project unsaved.
    void aFailedSaveOfOneFileKeepsTheOther()
    {
        const QJsonObject properties{{"Alpha", "1"}, {"Beta", "2"}};
        for (const bool documentFails : {true, false}) {
            const QString project = projectWithProperties("split-save", properties);
            TestEnvironment::writeFile(ordersPath(project), "{\"UILoc1ID1\":[\"Beta\",\"Alpha\"]}");
            VelmoMainWindow* main = openWindow(project);
            // The file that can't be written is a folder in its place.
            const QString blocked = documentFails ? TestEnvironment::documentPath(project) : ordersPath(project);
            QFile::remove(blocked);
            QVERIFY(QDir().mkpath(blocked + "/held"));
            main->markChanged();
            // A second alert would be answered too, and counted.
            const TestEnvironment::Seen seen =
                answerAll([&]() { key(Qt::Key_S); }, {press("okButton"), press("okButton")});
            QCOMPARE(seen.count, 1);
            QVERIFY(seen.text.contains(documentFails ? "VelmoraHUD.json" : "PropertyOrders.json"));
            QVERIFY(main->projectIsChanged());
            if (documentFails)
                QCOMPARE(storedOrder(project), QJsonValue(QJsonArray{"Beta", "Alpha"}));
            else
                QVERIFY(TestEnvironment::writtenDocument(project).contains("Data"));
            window.reset();
        }
    }
};

VELMORA_TEST_MAIN(TestAnimProps, QApplication)
#include "tst_animprops.moc"
