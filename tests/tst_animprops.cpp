#include "MainWindowFixture.h"
#include "TestEnvironment.h"

#include "app/JsonFile.h"
#include "app/VelmoMainWindow.h"
#include "components/GameUIEditorSceneHelper.h"
#include "components/VelmoUISelector.h"
#include "logic/VelmoAnimationStyle.h"
#include "scene/CustomPropertyEdit.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentAnimationDialog.h"
#include "scene/UIComponentBase.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/DialogFlags.h"
#include "widgets/EasingCurveSelector.h"
#include "widgets/HaxeCodeEdit.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MyTabSystem.h"
#include "widgets/MyTabSystemHeader.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPointer>
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
    int target = -1;
    for (int i = 0; i < combo->count(); ++i) {
        if (combo->getData(i).toInt() == value)
            target = i;
    }
    QVERIFY2(target >= 0, "the combo doesn't offer the value");
    QTest::mouseClick(combo, Qt::LeftButton);
    QPointer<MyPopup> popup = combo->popup();
    QVERIFY(popup);
    while (popup->highlighted() < target)
        QTest::keyClick(popup, Qt::Key_Down);
    while (popup->highlighted() > target)
        QTest::keyClick(popup, Qt::Key_Up);
    QTest::keyClick(popup, Qt::Key_Return);
    QTRY_VERIFY(!popup);
}

bool confirmEnabled(QWidget* dialog)
{
    return field<QPushButton>(dialog, "confirmButton")->isEnabled();
}

QList<int> offered(QWidget* dialog)
{
    MyComboBox* combo = field<MyComboBox>(dialog, "Property");
    QList<int> values;
    for (int i = 0; i < combo->count(); ++i)
        values.append(combo->getData(i).toInt());
    return values;
}

// An answer that, when a check inside it failed, closes every dialog
// still open, so that the failure is reported instead of waiting for ever.
Answer guarded(const std::function<void(TrovDialog*)>& script)
{
    return [script](TrovDialog* dialog) {
        script(dialog);
        if (QTest::currentTestFailed()) {
            while (QDialog* open = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                open->reject();
        }
    };
}

// answering() with every answer guarded.
TestEnvironment::Seen answerAll(const std::function<void()>& trigger, const QList<Answer>& answers)
{
    QList<Answer> safe;
    for (const Answer& answer : answers)
        safe.append(guarded(answer));
    return answering(trigger, safe);
}

// The animation dialog on record with flags, answered by the script.
void runAnimation(QJsonObject* record, int flags, const std::function<void(TrovDialog*)>& script)
{
    answerAll([&]() { UIComponentAnimationDialog::edit(record, flags, nullptr); }, {script});
}

// The entry an untouched new animation of a property gets, without its pair.
QJsonObject freshEntry(int property)
{
    return QJsonObject{{"Property", property},   {"Type", 0},        {"Duration", 60},
                       {"EasingCurve", 0},       {"Reset", false},   {"ReturnEasing", 0},
                       {"ActivateType", QJsonObject{{"Type", 0}, {"RunType", 1}}}};
}

void showCustomProperties(QWidget* dialog)
{
    MyTabSystemHeader* header = dialog->findChild<MyTabSystem*>()->header();
    QTest::mouseClick(header, Qt::LeftButton, Qt::NoModifier, header->tabRect(1).center());
    QTRY_VERIFY(field<UltimateTreeWidget>(dialog, "customProperties")->isVisible());
}

// A component's property dialog as the scene opens it, answered by the
// script and its nested answers; the object it gave back, or none when cancelled.
struct ComponentDialog {
    QJsonObject projectData;
    QJsonObject run(QJsonObject component, const std::function<void(TrovDialog*)>& script,
                    const QList<Answer>& nested = {})
    {
        bool accepted = false;
        QList<Answer> answers{script};
        answers += nested;
        answerAll(
            [&]() {
                const std::unique_ptr<UIComponentBaseDialog> dialog =
                    GameUIEditorSceneHelper<VelmoUISelector>::makeDialog(component, &accepted, true, nullptr,
                                                                         &projectData);
                dialog->exec();
            },
            answers);
        return accepted ? component : QJsonObject();
    }
};

// A project with one Map HUD holding one icon with custom properties.
QString projectWithProperties(const QString& name, const QJsonObject& properties)
{
    const QString project = TestEnvironment::makeProject(name, 816, 624);
    const QJsonArray animations{QJsonObject{{"Property", 7}, {"StartOpacity", 0}, {"EndOpacity", 1}},
                                QJsonObject{{"Property", 42}}};
    const QJsonObject icon{{"ID", 1}, {"Type", 9}, {"Name", "Icon"}, {"X", 10}, {"Y", 10},
                           {"CustomProperties", properties}, {"Animations", animations}};
    const QJsonObject document{{"Map", 0}, {"Battle", 1},
                               {"Data", QJsonArray{QJsonObject{{"HUD", QJsonArray{icon}}},
                                                   QJsonObject{{"HUD", QJsonArray()}}}}};
    QDir(project).mkpath("data/plugin");
    TestEnvironment::writeFile(TestEnvironment::documentPath(project), QJsonDocument(document).toJson());
    return project;
}

QString ordersPath(const QString& project)
{
    return QDir(project).absoluteFilePath("data/plugin/PropertyOrders.json");
}

}

class TestAnimProps : public QObject, public MainWindowFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        TestEnvironment::quietDialogs();
        QApplication::clipboard()->clear();
    }

    void cleanup() { window.reset(); }

    // ---------------------------------------------------------------- the animation dialog

    void eachPropertyWritesExactlyItsKeys_data()
    {
        QTest::addColumn<int>("property");
        QTest::addColumn<QString>("startField");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QJsonObject>("pair");
        const auto row = [](int property, const char* field, const char* start, const char* end, QJsonObject pair) {
            QTest::addRow("%d", property) << property << QString::fromLatin1(field) << QString::fromLatin1(start)
                                          << QString::fromLatin1(end) << pair;
        };
        row(0, "Start_Int", "-25", "140", {{"StartX", -25}, {"EndX", 140}});
        row(1, "Start_Int", "7", "-99999", {{"StartY", 7}, {"EndY", -99999}});
        row(2, "Start_Scale", "50", "125.5", {{"StartScaleWidth", 0.5}, {"EndScaleWidth", 1.255}});
        row(3, "Start_Scale", "0", "500", {{"StartScaleHeight", 0}, {"EndScaleHeight", 5}});
        row(4, "Start_Int", "10", "300", {{"StartWidth", 10}, {"EndWidth", 300}});
        row(5, "Start_Int", "0", "48", {{"StartHeight", 0}, {"EndHeight", 48}});
        row(6, "Start_Rotation", "-90", "360", {{"StartRotation", -90}, {"EndRotation", 360}});
        row(7, "Start_Opacity", "25", "80", {{"StartOpacity", 0.25}, {"EndOpacity", 0.8}});
        row(8, "Start_Opacity", "0", "100", {{"StartOpenness", 0}, {"EndOpenness", 1}});
        row(9, "Start_Int", "8", "64", {{"StartOffset", 8}, {"EndOffset", 64}});
        row(10, "Start_Int", "-4", "4", {{"StartOffset", -4}, {"EndOffset", 4}});
        row(11, "Start_Opacity", "50", "100", {{"StartBrightness", 0.5}, {"EndBrightness", 1}});
        row(12, "Start_Rotation", "0", "-180", {{"StartHue", 0}, {"EndHue", -180}});
    }

    // A new animation of each property, its values typed, writes the common
    // keys and exactly the pair of its property.
    void eachPropertyWritesExactlyItsKeys()
    {
        QFETCH(int, property);
        QFETCH(QString, startField);
        QFETCH(QString, start);
        QFETCH(QString, end);
        QFETCH(QJsonObject, pair);
        QJsonObject record;
        runAnimation(&record, EveryProperty, [&](TrovDialog* dialog) {
            choose(dialog, "Property", property);
            const QByteArray startName = startField.toLatin1();
            const QByteArray endName = QByteArray("End_") + startName.mid(6);
            TestEnvironment::typing(startName.constData(), start)(dialog);
            TestEnvironment::typing(endName.constData(), end)(dialog);
            QVERIFY(confirmEnabled(dialog));
            QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
        });
        QJsonObject expected = freshEntry(property);
        for (auto it = pair.begin(); it != pair.end(); ++it)
            expected.insert(it.key(), it.value());
        COMPARE_JSON(record, expected);
    }

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
        QTest::newRow("repeat offset y") << QJsonObject{
            {"Property", 10}, {"Type", 0}, {"Duration", 1}, {"EasingCurve", 0},
            {"ActivateType", QJsonObject{{"Type", 0}, {"RunType", 4}}}, {"Reset", true}, {"ReturnEasing", 0},
            {"StartOffset", -12}, {"EndOffset", 12}};
        QTest::newRow("width scale, odd fraction") << QJsonObject{
            {"Property", 2}, {"Type", 0}, {"Duration", 60}, {"EasingCurve", 3},
            {"ActivateType", QJsonObject{{"Type", 0}, {"RunType", 1}}}, {"Reset", false}, {"ReturnEasing", 0},
            {"StartScaleWidth", 0.123}, {"EndScaleWidth", 2.5}};
    }

    void realisticEntriesComeBackUnchanged()
    {
        QFETCH(QJsonObject, entry);
        QJsonObject record = entry;
        runAnimation(&record, EveryProperty,
                     [](TrovDialog* dialog) { QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton); });
        COMPARE_JSON(record, entry);
    }

    // What a kind can't animate isn't offered; an entry of such a property
    // selects nothing and can't be confirmed into something else by accident.
    void flagsLimitThePropertiesOffered()
    {
        const QList<QPair<int, QList<int>>> cases{
            {0, {0, 1, 2, 3, 4, 5, 6, 7, 11, 12}},
            {UIComponentAnimationDialog::NoScaleOrSize, {0, 1, 6, 7, 11, 12}},
            {UIComponentAnimationDialog::HasOpenness, {0, 1, 2, 3, 4, 5, 6, 7, 8, 11, 12}},
            {UIComponentAnimationDialog::HasRepeatOffset | UIComponentAnimationDialog::NoScaleOrSize,
             {0, 1, 6, 7, 9, 10, 11, 12}},
        };
        for (const auto& c : cases) {
            QJsonObject record;
            QList<int> seen;
            runAnimation(&record, c.first, [&](TrovDialog* dialog) {
                seen = offered(dialog);
                QTest::mouseClick(field<QPushButton>(dialog, "cancelButton"), Qt::LeftButton);
            });
            QCOMPARE(seen, c.second);
            QVERIFY(record.isEmpty());
        }

        const QJsonObject turning{{"Property", 6}, {"StartRotation", 10}, {"EndRotation", 20}};
        QJsonObject record = turning;
        runAnimation(&record, UIComponentAnimationDialog::NoRotation, [](TrovDialog* dialog) {
            QCOMPARE(field<MyComboBox>(dialog, "Property")->currentIndex(), -1);
            QVERIFY(!confirmEnabled(dialog));
            // Ctrl+Return doesn't get past the disabled button either.
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
            QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
        });
        QJsonObject expected = freshEntry(1);
        expected.insert("StartY", 5);
        expected.insert("EndY", 9);
        COMPARE_JSON(record, expected);
    }

    // Out of range values keep the button disabled until they are fixed;
    // a field left out of range falls back into it.
    void valuesOutOfRangeCantBeConfirmed()
    {
        QJsonObject record{{"Property", 7}};
        runAnimation(&record, 0, [](TrovDialog* dialog) {
            TestEnvironment::typing("Start_Opacity", "150")(dialog);
            QVERIFY(!confirmEnabled(dialog));
            TestEnvironment::typing("Start_Opacity", "15")(dialog);
            QVERIFY(confirmEnabled(dialog));
            TestEnvironment::typing("End_Opacity", "100.5")(dialog);
            QVERIFY(!confirmEnabled(dialog));
            TestEnvironment::typing("Duration", "0")(dialog);
            QVERIFY(!confirmEnabled(dialog));
            choose(dialog, "Property", 6);
            QCOMPARE(field<MyLineEdit>(dialog, "Duration")->text(), QStringLiteral("1"));
            QVERIFY(confirmEnabled(dialog));
            QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
        });
        QCOMPARE(record.value("Duration").toInt(), 1);
        QCOMPARE(record.value("Property").toInt(), 6);
        QVERIFY(!record.contains("StartOpacity"));
    }

    // The backwards curve: the forward one, its inverse, or a custom one,
    // which alone is written.
    void returnEasingShowsAndWritesTheBackwardsCurve()
    {
        QJsonObject record{{"Property", 0}, {"EasingCurve", 4}, {"ReturnEasing", 2}, {"BackwardsEasingCurve", 7}};
        runAnimation(&record, 0, [](TrovDialog* dialog) {
            MyDialogOpener* custom = field<MyDialogOpener>(dialog, "CustomReturnEasing");
            QVERIFY(custom->isEnabled());
            QCOMPARE(custom->value(), EasingCurveSelector::display(7));
            choose(dialog, "ReturnEasingType", 1);
            QVERIFY(!custom->isEnabled());
            QCOMPARE(custom->value(), EasingCurveSelector::display(5));
            choose(dialog, "ReturnEasingType", 0);
            QCOMPARE(custom->value(), EasingCurveSelector::display(4));
            QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
        });
        QCOMPARE(record.value("ReturnEasing").toInt(), 0);
        QVERIFY(!record.contains("BackwardsEasingCurve"));
        QCOMPARE(record.value("EasingCurve").toInt(), 4);
    }

    // The easing picker and the run type dialog change what they show and
    // what is written; cancelled, they change nothing.
    void easingAndRunTypeComeFromTheirDialogs()
    {
        QJsonObject projectData;
        VelmoAnimationStyle::install(&projectData);
        QJsonObject record{{"Property", 0}, {"EasingCurve", 0}};
        bool accepted = false;
        answerAll([&]() { accepted = UIComponentAnimationDialog::edit(&record, 0, nullptr); },
                  {[](TrovDialog* dialog) {
                       QCOMPARE(field<MyDialogOpener>(dialog, "RunType")->value(), QStringLiteral("On Create"));
                       QTest::mouseClick(field<MyDialogOpener>(dialog, "EasingCurve"), Qt::LeftButton);
                   },
                   // The easing picker: a kind and a direction, confirmed.
                   [](TrovDialog* picker) {
                       UltimateTreeWidget* list = field<UltimateTreeWidget>(picker, "myList");
                       clickRow(list, 2);
                       choose(picker, "Easing", 1);
                       QTest::mouseClick(field<QPushButton>(picker, "confirmButton"), Qt::LeftButton);
                   },
                   [](TrovDialog* dialog) {
                       QVERIFY(!field<MyDialogOpener>(dialog, "EasingCurve")->value().isEmpty());
                       QTest::mouseClick(field<MyDialogOpener>(dialog, "RunType"), Qt::LeftButton);
                   },
                   // The run type: the basic rule "Manual".
                   [](TrovDialog* runType) {
                       choose(runType, "Basic", VelmoAnimationStyle::Manual);
                       QTest::mouseClick(field<QPushButton>(runType, "confirmButton"), Qt::LeftButton);
                   },
                   [](TrovDialog* dialog) {
                       QCOMPARE(field<MyDialogOpener>(dialog, "RunType")->value(), QStringLiteral("Manual"));
                       QTest::mouseClick(field<MyDialogOpener>(dialog, "RunType"), Qt::LeftButton);
                   },
                   // Opened again and cancelled: nothing changes.
                   [](TrovDialog* runType) {
                       choose(runType, "Basic", VelmoAnimationStyle::OnClickRelease);
                       QTest::mouseClick(field<QPushButton>(runType, "cancelButton"), Qt::LeftButton);
                   },
                   [](TrovDialog* dialog) {
                       QTest::mouseClick(field<MyEitherBox>(dialog, "ResetToStart"), Qt::LeftButton);
                       QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
                   }});
        VelmoAnimationStyle::install(nullptr);
        QVERIFY(accepted);
        // Row 2 of the picker is the second kind after "Linear", cubic, eased out.
        QCOMPARE(record.value("EasingCurve").toInt(), 5);
        COMPARE_JSON(record.value("ActivateType").toObject(), (QJsonObject{{"Type", 0}, {"RunType", 0}}));
        QCOMPARE(record.value("Reset").toBool(), true);
    }

    // Repeat offset X and Y share their keys.
    void repeatOffsetsShareTheirLabel()
    {
        QJsonObject record{{"Property", 9}, {"StartOffset", 3}, {"EndOffset", 6}};
        runAnimation(&record, UIComponentAnimationDialog::HasRepeatOffset, [](TrovDialog* dialog) {
            MyLineEdit* start = field<MyLineEdit>(dialog, "Start_Int");
            choose(dialog, "Property", 10);
            QCOMPARE(start->text(), QStringLiteral("3"));
            QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
        });
        QCOMPARE(record.value("Property").toInt(), 10);
        QCOMPARE(record.value("StartOffset").toInt(), 3);
        QCOMPARE(record.value("EndOffset").toInt(), 6);
    }

    // The advanced group folds by a click on its title and unfolds again;
    // the dialog shrinks and grows with it, and the values stay.
    void advancedGroupFolds()
    {
        QJsonObject record{{"Property", 0}, {"Reset", true}};
        runAnimation(&record, 0, [](TrovDialog* dialog) {
            QWidget* group = field<QWidget>(dialog, "advancedProperties");
            QWidget* runType = field<QWidget>(dialog, "RunType");
            QVERIFY(runType->isVisible());
            const int height = dialog->height();
            QTest::mouseClick(group, Qt::LeftButton, Qt::NoModifier, QPoint(60, 10));
            QVERIFY(!runType->isVisible());
            QVERIFY(dialog->height() < height);
            QTest::mouseClick(group, Qt::LeftButton, Qt::NoModifier, QPoint(60, 10));
            QVERIFY(runType->isVisible());
            QCOMPARE(dialog->height(), height);
            QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
        });
        QCOMPARE(record.value("Reset").toBool(), true);
    }

    // ---------------------------------------------------------------- the component's lists

    // A double-click on the "+" row makes an animation after the current
    // row; one on a row edits it; confirming keeps the list's order.
    void animationListMakesAndEditsThroughTheDialog()
    {
        ComponentDialog dialogs;
        const QJsonObject slide{{"Property", 0}, {"StartX", 0}, {"EndX", 50}};
        const QJsonObject fade{{"Property", 7}, {"StartOpacity", 0}, {"EndOpacity", 1}};
        const QJsonObject component{{"ID", 3}, {"Type", 1}, {"Animations", QJsonArray{slide, fade}}};
        const QJsonObject result = dialogs.run(
            component,
            [](TrovDialog* dialog) {
                UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "animations");
                clickRow(list, 0);
                clickRow(list, 2, true);
            },
            {[](TrovDialog* animation) {
                 choose(animation, "Property", 1);
                 TestEnvironment::typing("Start_Int", "-5")(animation);
                 TestEnvironment::typing("End_Int", "5")(animation);
                 QTest::mouseClick(field<QPushButton>(animation, "confirmButton"), Qt::LeftButton);
             },
             [](TrovDialog* dialog) {
                 UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "animations");
                 QCOMPARE(rowTexts(list, 0), (QStringList{"X-Pos", "Opacity", "Y-Pos"}));
                 QCOMPARE(rowTexts(list, 1), (QStringList{"0", "0%", "-5"}));
                 // The new row is current; a double-click on Opacity edits it.
                 QCOMPARE(list->tree()->currentRow(), list->tree()->row(2));
                 clickRow(list, 1, true);
             },
             [](TrovDialog* animation) {
                 TestEnvironment::typing("End_Opacity", "60")(animation);
                 QTest::mouseClick(field<QPushButton>(animation, "confirmButton"), Qt::LeftButton);
             },
             [](TrovDialog* dialog) {
                 UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "animations");
                 // Cancelling the dialog of a row leaves it alone.
                 clickRow(list, 0, true);
             },
             press("cancelButton"), press("confirmButton")});
        const QJsonArray animations = result.value("Animations").toArray();
        QCOMPARE(animations.size(), 3);
        COMPARE_JSON(animations.at(0).toObject(), slide);
        QJsonObject faded = freshEntry(7);
        faded.insert("StartOpacity", 0);
        faded.insert("EndOpacity", 0.6);
        COMPARE_JSON(animations.at(1).toObject(), faded);
        QJsonObject moved = freshEntry(1);
        moved.insert("StartY", -5);
        moved.insert("EndY", 5);
        COMPARE_JSON(animations.at(2).toObject(), moved);
    }

    // Animations copied in one kind's dialog paste into another kind's;
    // text of another list or broken text is never pasted.
    void animationClipboardCrossesKinds()
    {
        ComponentDialog dialogs;
        const QJsonObject turn{{"Property", 6}, {"StartRotation", 0}, {"EndRotation", 90}, {"Duration", 30}};
        dialogs.run(QJsonObject{{"ID", 1}, {"Type", 1}, {"Animations", QJsonArray{turn}}}, [](TrovDialog* dialog) {
            UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "animations");
            clickRow(list, 0);
            QTest::keyClick(list->tree(), Qt::Key_C, Qt::ControlModifier);
            QTest::mouseClick(field<QPushButton>(dialog, "cancelButton"), Qt::LeftButton);
        });
        const auto pasteInto = [&](const QString& clipboard) {
            QApplication::clipboard()->setText(clipboard);
            return dialogs.run(QJsonObject{{"ID", 2}, {"Type", 4}}, [](TrovDialog* dialog) {
                UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "animations");
                QTest::mouseClick(list->tree()->viewport(), Qt::LeftButton);
                QTest::keyClick(list->tree(), Qt::Key_V, Qt::ControlModifier);
                QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
            });
        };
        const QString copied = QApplication::clipboard()->text();
        COMPARE_JSON(pasteInto(copied).value("Animations").toArray().at(0).toObject(), turn);
        for (const QString& foreign :
             {QStringLiteral("UIPROPANIMATION{\"Property\":6,"), QStringLiteral("UIPROPANIMATION[1,2]"),
              QStringLiteral("CUSTOMPROPERTY{\"Name\":\"a\",\"Prop\":\"b\"}"),
              QStringLiteral("VELMOCOMP{\"Property\":0}"), QStringLiteral("{\"Property\":0}")}) {
            QCOMPARE(pasteInto(foreign).value("Animations"), QJsonValue(QJsonArray()));
        }
    }

    // ---------------------------------------------------------------- custom properties

    // The editor refuses an empty or a taken name; a rename keeps the place
    // and the value.
    void customPropertyEditorMakesAndRenames()
    {
        ComponentDialog dialogs;
        const QJsonObject properties{{"Speed", "4"}, {"Lines", "a\r\nb"}};
        dialogs.projectData.insert("PropertyOrders.json",
                                   QJsonObject{{"UILoc1ID5", QJsonArray{"Speed", "Lines"}}});
        const QJsonObject result = dialogs.run(
            QJsonObject{{"ID", 5}, {"Type", 9}, {"CustomProperties", properties}},
            [](TrovDialog* dialog) {
                showCustomProperties(dialog);
                UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                clickRow(list, 0);
                clickRow(list, 2, true);
            },
            {[](TrovDialog* edit) {
                 QVERIFY(!confirmEnabled(edit));
                 TestEnvironment::typing("Property_Name", "Speed")(edit);
                 QVERIFY(!confirmEnabled(edit));
                 QCOMPARE(field<MyLineEdit>(edit, "Property_Name")->warningText(),
                          QStringLiteral("Property already exists!"));
                 TestEnvironment::typing("Property_Name", "Jump")(edit);
                 QVERIFY(confirmEnabled(edit));
                 QVERIFY(field<MyLineEdit>(edit, "Property_Name")->warningText().isEmpty());
                 HaxeCodeEdit* contents = field<HaxeCodeEdit>(edit, "contents");
                 QTest::mouseClick(contents->viewport(), Qt::LeftButton);
                 QTest::keyClicks(contents, "high");
                 QTest::keyClick(contents, Qt::Key_Return);
                 QTest::keyClicks(contents, "up");
                 QTest::mouseClick(field<QPushButton>(edit, "confirmButton"), Qt::LeftButton);
             },
             [](TrovDialog* dialog) {
                 UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                 // The "+" row took the selection: the pair goes at the end.
                 QCOMPARE(rowTexts(list, 0), (QStringList{"Speed", "Lines", "Jump"}));
                 QCOMPARE(list->tree()->row(2)->text(1), QStringLiteral("high \u21B5 up"));
                 clickRow(list, 0, true);
             },
             [](TrovDialog* edit) {
                 // Its own name is no clash.
                 QVERIFY(confirmEnabled(edit));
                 TestEnvironment::typing("Property_Name", "Pace")(edit);
                 QTest::mouseClick(field<QPushButton>(edit, "confirmButton"), Qt::LeftButton);
             },
             [](TrovDialog* dialog) {
                 UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                 // A value left as it was keeps its own line ends.
                 clickRow(list, 1, true);
             },
             press("confirmButton"), press("confirmButton")});
        const QJsonObject expected{{"Pace", "4"}, {"Jump", "high\nup"}, {"Lines", "a\r\nb"}};
        COMPARE_JSON(result.value("CustomProperties").toObject(), expected);
        QCOMPARE(dialogs.projectData.value("PropertyOrders.json").toObject().value("UILoc1ID5"),
                 QJsonValue(QJsonArray{"Pace", "Lines", "Jump"}));
    }

    // A property copied in one kind's dialog pastes into another kind's
    // with a free name; foreign or broken text isn't pasted.
    void customPropertyClipboardCrossesKinds()
    {
        ComponentDialog dialogs;
        dialogs.run(QJsonObject{{"ID", 1}, {"Type", 0}, {"CustomProperties", QJsonObject{{"Speed", "4"}}}},
                    [](TrovDialog* dialog) {
                        showCustomProperties(dialog);
                        UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                        clickRow(list, 0);
                        QTest::keyClick(list->tree(), Qt::Key_C, Qt::ControlModifier);
                        QTest::mouseClick(field<QPushButton>(dialog, "cancelButton"), Qt::LeftButton);
                    });
        const QString copied = QApplication::clipboard()->text();
        const auto pasteInto = [&](const QString& clipboard) {
            QApplication::clipboard()->setText(clipboard);
            return dialogs
                .run(QJsonObject{{"ID", 2}, {"Type", 7}, {"CustomProperties", QJsonObject{{"Speed", "1"}}}},
                     [](TrovDialog* dialog) {
                         showCustomProperties(dialog);
                         UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                         clickRow(list, 0);
                         QTest::keyClick(list->tree(), Qt::Key_V, Qt::ControlModifier);
                         QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
                     })
                .value("CustomProperties")
                .toObject();
        };
        COMPARE_JSON(pasteInto(copied), (QJsonObject{{"Speed", "1"}, {"Speed (2)", "4"}}));
        for (const QString& foreign :
             {QStringLiteral("CUSTOMPROPERTY{\"Name\":\"Zeta\",\"Prop\":\"say \"hi\"\"}"),
              QStringLiteral("CUSTOMPROPERTY[\"Zeta\"]"), QStringLiteral("UIPROPANIMATION{\"Property\":0}"),
              QStringLiteral("Speed = 5")}) {
            COMPARE_JSON(pasteInto(foreign), (QJsonObject{{"Speed", "1"}}));
        }
    }

    // ---------------------------------------------------------------- the order on disk

    // The order a user gives survives a save and a reopening; a rename keeps
    // its place, and the file is only written where there is an order.
    void orderSurvivesSaveAndReopen()
    {
        const QString project =
            projectWithProperties("order", QJsonObject{{"Alpha", "1"}, {"Beta", "2"}, {"Gamma", "3"}});
        VelmoMainWindow* main = openWindow(project);
        QVERIFY(main->projectIsOpen());
        // Nothing ordered yet: a save writes no file of orders.
        main->markChanged();
        key(Qt::Key_S);
        QVERIFY(!QFile::exists(ordersPath(project)));

        // Gamma cut and pasted at the top, Beta renamed to Delta.
        UltimateTreeWidget* components = main->componentListWidget();
        answerAll([&]() { clickRow(components, 0, true); },
                  {[](TrovDialog* dialog) {
                       showCustomProperties(dialog);
                       UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                       QCOMPARE(rowTexts(list, 0), (QStringList{"Alpha", "Beta", "Gamma"}));
                       clickRow(list, 2);
                       QTest::keyClick(list->tree(), Qt::Key_X, Qt::ControlModifier);
                       clickRow(list, 0);
                       QTest::keyClick(list->tree(), Qt::Key_V, Qt::ControlModifier);
                       clickRow(list, 2, true);
                   },
                   [](TrovDialog* edit) {
                       TestEnvironment::typing("Property_Name", "Delta")(edit);
                       QTest::mouseClick(field<QPushButton>(edit, "confirmButton"), Qt::LeftButton);
                   },
                   press("confirmButton")});
        key(Qt::Key_S);
        QVERIFY(!main->projectIsChanged());
        const QJsonObject written = JsonFile::read(ordersPath(project)).object();
        QCOMPARE(written.value("UILoc1ID1"), QJsonValue(QJsonArray{"Alpha", "Gamma", "Delta"}));

        window.reset();
        main = openWindow(project);
        components = main->componentListWidget();
        answerAll([&]() { clickRow(components, 0, true); },
                  {[](TrovDialog* dialog) {
                      showCustomProperties(dialog);
                      UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                      QCOMPARE(rowTexts(list, 0), (QStringList{"Alpha", "Gamma", "Delta"}));
                      QCOMPARE(rowTexts(list, 1), (QStringList{"1", "3", "2"}));
                      QTest::mouseClick(field<QPushButton>(dialog, "cancelButton"), Qt::LeftButton);
                  }});
        // The outline lists them in the same order.
        const TestEnvironment::CliResult outline = TestEnvironment::runCli({"outline", project});
        QCOMPARE(outline.code, 0);
        const int alpha = outline.out.indexOf("property \"Alpha\" = 1");
        const int gamma = outline.out.indexOf("property \"Gamma\" = 3");
        const int delta = outline.out.indexOf("property \"Delta\" = 2");
        QVERIFY2(alpha >= 0 && alpha < gamma && gamma < delta, qPrintable(outline.out));
        // And the animations, one line each, an unknown property as such.
        QVERIFY2(outline.out.contains("    - animation: Opacity from 0% to 100%\n"), qPrintable(outline.out));
        QVERIFY2(outline.out.contains("    - animation: (unknown property 42)\n"), qPrintable(outline.out));
    }

    // A missing, empty or damaged file of orders loses only the order: the
    // properties show by name, and the next save writes a good file.
    void badOrderFilesFallBackToNames_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("present");
        QTest::newRow("missing") << QByteArray() << false;
        QTest::newRow("empty") << QByteArray() << true;
        QTest::newRow("damaged") << QByteArray("{\"UILoc1ID1\": [\"Gamma\", ") << true;
        QTest::newRow("not an object") << QByteArray("[\"Gamma\"]") << true;
        QTest::newRow("wrong shapes") << QByteArray("{\"UILoc1ID1\": \"Gamma\", \"UILoc1ID2\": 4}") << true;
    }

    void badOrderFilesFallBackToNames()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, present);
        const QJsonObject properties{{"Gamma", "3"}, {"Alpha", "1"}, {"Beta", "2"}};
        const QString project = projectWithProperties("bad-orders", properties);
        if (present)
            TestEnvironment::writeFile(ordersPath(project), content);
        VelmoMainWindow* main = openWindow(project);
        QVERIFY(main->projectIsOpen());
        UltimateTreeWidget* components = main->componentListWidget();
        answerAll([&]() { clickRow(components, 0, true); },
                  {[](TrovDialog* dialog) {
                      showCustomProperties(dialog);
                      UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                      QCOMPARE(rowTexts(list, 0), (QStringList{"Alpha", "Beta", "Gamma"}));
                      // Beta moved to the end by cut and paste.
                      clickRow(list, 1);
                      QTest::keyClick(list->tree(), Qt::Key_X, Qt::ControlModifier);
                      clickRow(list, 1);
                      QTest::keyClick(list->tree(), Qt::Key_V, Qt::ControlModifier);
                      QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
                  }});
        key(Qt::Key_S);
        QVERIFY(!main->projectIsChanged());
        const QJsonObject document = TestEnvironment::writtenDocument(project);
        const QJsonObject icon =
            document.value("Data").toArray().at(0).toObject().value("HUD").toArray().at(0).toObject();
        COMPARE_JSON(icon.value("CustomProperties").toObject(), properties);
        QCOMPARE(JsonFile::read(ordersPath(project)).object().value("UILoc1ID1"),
                 QJsonValue(QJsonArray{"Alpha", "Gamma", "Beta"}));

        // A reorder alone changes no component, and still counts as unsaved work.
        answerAll([&]() { clickRow(components, 0, true); },
                  {[](TrovDialog* dialog) {
                      showCustomProperties(dialog);
                      UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                      clickRow(list, 0);
                      QTest::keyClick(list->tree(), Qt::Key_X, Qt::ControlModifier);
                      clickRow(list, 1);
                      QTest::keyClick(list->tree(), Qt::Key_V, Qt::ControlModifier);
                      QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
                  }});
        QVERIFY(main->projectIsChanged());
        key(Qt::Key_S);
        QVERIFY(!main->projectIsChanged());
        QCOMPARE(JsonFile::read(ordersPath(project)).object().value("UILoc1ID1"),
                 QJsonValue(QJsonArray{"Gamma", "Beta", "Alpha"}));
    }

    // Each file is written whatever becomes of the other: a failed document
    // keeps the order, a failed order keeps the document, and either failure
    // is told and leaves the project unsaved.
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
            if (documentFails) {
                QCOMPARE(JsonFile::read(ordersPath(project)).object().value("UILoc1ID1"),
                         QJsonValue(QJsonArray{"Beta", "Alpha"}));
            } else {
                QVERIFY(TestEnvironment::writtenDocument(project).contains("Data"));
            }
            window.reset();
        }
    }
};

VELMORA_TEST_MAIN(TestAnimProps, QApplication)
#include "tst_animprops.moc"
