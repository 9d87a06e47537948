#include "TestEnvironment.h"

#include "components/GameUIEditorSceneHelper.h"
#include "components/VelmoUISelector.h"
#include "scene/GameUIEditorScene.h"
#include "scene/SceneUndoRecorder.h"
#include "scene/UIComponentBase.h"
#include "widgets/DialogFlags.h"
#include "widgets/DialogOverlay.h"
#include "widgets/MyLineEdit.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QClipboard>

using TestEnvironment::Answer;
using TestEnvironment::clickRow;
using TestEnvironment::field;
using TestEnvironment::json;
using TestEnvironment::press;
using TestEnvironment::rowTexts;
using TestEnvironment::typing;

namespace {

using Editor = TestEnvironment::Workbench;

// Compared as compact text, so that a failure shows both objects.
#define COMPARE_JSON(actual, expected) QCOMPARE(TestEnvironment::compact(actual), TestEnvironment::compact(expected))

// Every component of a HUD array, children taken out and listed after
// their parent.
void flatten(const QJsonArray& components, QVector<QJsonObject>& out)
{
    for (const QJsonValue& value : components) {
        QJsonObject component = value.toObject();
        const QJsonArray children = component.take(QStringLiteral("Children")).toArray();
        out.append(component);
        flatten(children, out);
    }
}

// The keys a shape's dialog writes, here for a shape of 20 by 30 left at
// the dialog's defaults.
const char* const ConfirmedShapeData = R"({"Width": 20, "Height": 30, "Shape": 0, "OutlineSize": 0, )"
                                        R"("Color": "#ffffff", "OutlineColor": "#000000", "OutlineOpacity": 100, )"
                                        R"("Addons": [], "Note": ""})";

// Inserts the keys of extra into object.
QJsonObject merged(QJsonObject object, const QJsonObject& extra)
{
    for (auto key = extra.begin(); key != extra.end(); ++key)
        object.insert(key.key(), key.value());
    return object;
}

}

class TestComponentDialogs : public QObject
{
    Q_OBJECT

    std::size_t undoSteps(Editor& editor) const { return editor.scene->undoRecorder().undoStack().size(); }

private slots:
    void init()
    {
        dialogNativeTitleBar = false;
        dialogDarkenLayers = false;
        dialogDarkenAnimated = false;
        dialogOpenAnimated = false;
        QApplication::clipboard()->clear();
    }

    // Every component of the hand-made document, each kind with everything a
    // component holds, comes back from its dialog as it was but for the rules.
    void everyComponentOfTheDocumentSurvivesItsDialog()
    {
        const QJsonObject document =
            QJsonDocument::fromJson(TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json")))
                .object();
        QVector<QJsonObject> components;
        for (const QJsonValue& hud : document.value(QStringLiteral("Data")).toArray())
            flatten(hud.toObject().value(QStringLiteral("HUD")).toArray(), components);
        QSet<int> kinds;
        Editor editor;
        for (const QJsonObject& component : qAsConst(components)) {
            const int type = component.value(QStringLiteral("Type")).toInt(-1);
            if (type < 0 || type > 13)
                continue;
            kinds.insert(type);
            UIComponentBase* loaded = editor.load(component);
            const QJsonObject before = loaded->data();
            QCOMPARE(editor.editRow(0, {press("confirmButton")}).count, 1);
            // Keys a dialog doesn't know go (a gauge's has no shape); the
            // collections show their HUD's size, 300 by 300 with no HUD list.
            QJsonObject expected = before;
            for (auto key = before.begin(); key != before.end(); ++key) {
                if (!key.key().endsWith(QLatin1String("Data")))
                    continue;
                QJsonObject data = key.value().toObject();
                for (const char* dropped : {"FutureShapeKey", "FutureAnimationKey"})
                    data.remove(dropped);
                if (type == 4)
                    data.remove("Shape");
                if (type == 11 || type == 12)
                    data = merged(data, {{"Width", 300}, {"Height", 300}});
                expected.insert(key.key(), data);
            }
            COMPARE_JSON(loaded->data(), expected);
            // Confirming without a change leaves no undo step.
            QCOMPARE(undoSteps(editor) == 0, expected == before);
        }
        QCOMPARE(kinds.size(), 14);
    }

    void sparseComponentsChangeOnlyByTheConfirmRules_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("dataKey");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QJsonObject>("data");
        QTest::addColumn<QJsonObject>("extra");
        const QJsonObject addons{{"Addons", QJsonArray()}, {"Note", ""}};
        // A size kind: the canvas's 100 by 100 and the dialog's defaults.
        QTest::newRow("shape") << 1 << "ShapeData" << "Shape (ID 5)"
                               << json(R"({"Width": 100, "Height": 100, "Shape": 0, )"
                                       R"("OutlineSize": 0, "Color": "#ffffff", "OutlineColor": "#000000", )"
                                       R"("OutlineOpacity": 100, "Addons": [], "Note": ""})")
                               << QJsonObject();
        // A scale kind: scales of 1.
        QTest::newRow("picture") << 2 << "PictureData" << "Picture (ID 5)" << merged(addons, {{"Picture", ""}})
                                 << QJsonObject{{"ScaleX", 1}, {"ScaleY", 1}};
        // A group writes only the add-on keys and holds its children's array.
        QTest::newRow("group") << 6 << "GroupData" << "Group (ID 5)" << addons
                               << QJsonObject{{"Children", QJsonArray()}};
    }

    // An unchanged confirm of a sparse component gives its data object exactly
    // the dialog's keys, names it and drops an empty condition list, as one
    // undo step; nothing else moves.
    void sparseComponentsChangeOnlyByTheConfirmRules()
    {
        QFETCH(int, type);
        QFETCH(QString, dataKey);
        QFETCH(QString, name);
        QFETCH(QJsonObject, data);
        QFETCH(QJsonObject, extra);
        const QJsonObject input{{"ID", 5}, {"Type", type}, {"X", -12}, {"Y", 40}, {"Conditions", QJsonArray()},
                                {"Mystery", QJsonObject{{"Keep", true}}},
                                {dataKey, QJsonObject{{"Odd", QJsonObject{{"Type", 1}, {"ID", 3}}}, {"Later", 2}}}};
        QJsonObject expected = merged(input, extra);
        expected.remove("Conditions");
        expected = merged(expected, {{"Name", name}, {"Rotation", 0}, {"Opacity", 100}, {dataKey, data},
                                     {"CustomProperties", QJsonObject()}, {"Animations", QJsonArray()}});

        Editor editor;
        UIComponentBase* loaded = editor.load(input);
        editor.editRow(0, {press("confirmButton")});
        COMPARE_JSON(loaded->data(), expected);
        QCOMPARE(undoSteps(editor), std::size_t(1));
        editor.scene->undo();
        QVERIFY(!editor.scene->components().value(0)->data().contains("Name"));
    }

    // Numbers shown in percent come back exactly up to six significant digits
    // and are cut to six beyond; an empty name stays empty.
    void percentagesComeBackAsShown()
    {
        Editor editor;
        const QJsonObject input{{"ID", 8},        {"Type", 2},        {"Name", ""},
                                {"X", -99999},    {"Y", 99999},       {"Rotation", -45},
                                {"ScaleX", 0.123457}, {"ScaleY", 1.0098}, {"Opacity", 0.8333333333},
                                {"PictureData", QJsonObject{{"Picture", "Coin"}}}};
        UIComponentBase* loaded = editor.load(input);
        editor.editRow(0, {press("confirmButton")});
        const QJsonObject expected =
            merged(input, {{"Opacity", 0.833333}, {"CustomProperties", QJsonObject()}, {"Animations", QJsonArray()},
                           {"PictureData", json(R"({"Picture": "Coin", "Addons": [], "Note": ""})")}});
        COMPARE_JSON(loaded->data(), expected);
    }

    void validatorsAtTheirLimits_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("key");
        QTest::addColumn<double>("written");
        // The canvas keeps a rotation modulo 360, sign kept.
        QTest::newRow("rotation above") << 1 << "Rotation" << "361" << "361" << false << "Rotation" << 0.0;
        // One decimal: the validator refuses the second, as typed.
        QTest::newRow("scale decimals") << 0 << "Width_Scale" << "12.34" << "12.3" << true << "ScaleX" << 0.123;
        // A window is never lower than twice its padding of 12.
        QTest::newRow("height zero") << 7 << "Height" << "0" << "0" << true << "Height" << 24.0;
    }

    // Each field typed to its limits; leaving the field brings it into range
    // (the confirm button follows a field's validity as in every form).
    void validatorsAtTheirLimits()
    {
        QFETCH(int, type);
        QFETCH(QString, field);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QFETCH(bool, valid);
        QFETCH(QString, key);
        QFETCH(double, written);
        Editor editor;
        UIComponentBase* loaded =
            editor.load(QJsonObject{{"ID", 1}, {"Type", type}, {"X", 10}, {"Y", 10}, {"Name", "Field"}});
        const QByteArray name = field.toLatin1();
        editor.editRow(0, {typing(name.constData(), typed), Answer([&](TrovDialog* dialog) {
                               MyLineEdit* edit = TestEnvironment::field<MyLineEdit>(dialog, name.constData());
                               QCOMPARE(edit->text(), shown);
                               QCOMPARE(edit->isValid(), valid);
                               QTest::keyClick(edit, Qt::Key_Tab);
                               QVERIFY(edit->isValid());
                           }),
                           press("confirmButton")});
        // A size is written into the kind's data object.
        const QJsonObject data = key == "Height" ? loaded->data().value("WindowData").toObject() : loaded->data();
        QCOMPARE(data.value(key).toDouble(), written);
    }

    // Cancel writes nothing, whatever was typed, and leaves no undo step.
    void cancelKeepsTheComponent()
    {
        Editor editor;
        UIComponentBase* loaded = editor.load(TestEnvironment::shape(3, 50, 60));
        const QJsonObject before = loaded->data();
        editor.editRow(0, {typing("Name", "Other"), typing("Y_Position", "70"), typing("Rotation", "361"),
                           press("cancelButton")});
        COMPARE_JSON(loaded->data(), before);
        QCOMPARE(undoSteps(editor), std::size_t(0));
        QCOMPARE(rowTexts(editor.list), QStringList{"Shape 3"});
    }

    // What a user types lands in the component as one undo step, which undo
    // takes back and redo brings again; the name shows in the list at once.
    void typedValuesAreAppliedAsOneStep()
    {
        Editor editor;
        UIComponentBase* loaded = editor.load(TestEnvironment::shape(3, 50, 60, 20, 30));
        const QJsonObject before = loaded->data();
        editor.editRow(0, {typing("Name", "Health Bar"), typing("X_Position", "400"), typing("Opacity", "25"),
                           typing("Width", "320"), press("confirmButton")});
        QJsonObject shapeData = json(ConfirmedShapeData);
        shapeData.insert("Width", 320);
        const QJsonObject expected =
            merged(before, {{"Name", "Health Bar"}, {"X", 400}, {"Opacity", 0.25},
                            {"CustomProperties", QJsonObject()}, {"Animations", QJsonArray()}, {"ShapeData", shapeData}});
        COMPARE_JSON(loaded->data(), expected);
        QCOMPARE(rowTexts(editor.list), QStringList{"Health Bar"});
        editor.scene->undo();
        COMPARE_JSON(editor.scene->components().value(0)->data(), before);
        editor.scene->redo();
        COMPARE_JSON(editor.scene->components().value(0)->data(), expected);
    }

    // Custom properties: the stored order first (a gone name skipped), then by
    // name; line breaks show as " ↵ " but stay. Cancel keeps the old order.
    void customPropertiesKeepValuesAndOrder()
    {
        Editor editor;
        editor.projectData.insert(
            "PropertyOrders.json",
            QJsonObject{{"UILoc1ID9", QJsonArray{"Zeta", "Gone", "Alpha"}}, {"UILoc1ID8", QJsonArray{"Other"}}});
        const QJsonObject properties{{"Alpha", "1"}, {"Beta", "two\r\nlines"}, {"Zeta", "z"}, {"Speed", "4"}};
        editor.load(QJsonObject{{"ID", 9}, {"Type", 9}, {"Name", "Icon"}, {"CustomProperties", properties}});
        auto deleteFirst = [](TrovDialog* dialog) {
            UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
            clickRow(list, 0);
            QTest::keyClick(list->tree(), Qt::Key_Delete);
        };
        editor.editRow(0, {Answer([](TrovDialog* dialog) {
                               UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                               QCOMPARE(rowTexts(list, 0), (QStringList{"Zeta", "Alpha", "Beta", "Speed"}));
                               QCOMPARE(list->tree()->row(2)->text(1), QStringLiteral("two \u21B5 lines"));
                           }),
                           Answer(deleteFirst), press("confirmButton")});
        const QJsonObject expected{{"Alpha", "1"}, {"Beta", "two\r\nlines"}, {"Speed", "4"}};
        const QJsonValue order(QJsonArray{"Alpha", "Beta", "Speed"});
        QCOMPARE(editor.scene->components().value(0)->data().value("CustomProperties"), QJsonValue(expected));
        const QJsonObject orders = editor.projectData.value("PropertyOrders.json").toObject();
        QCOMPARE(orders.value("UILoc1ID9"), order);
        QCOMPARE(orders.value("UILoc1ID8"), QJsonValue(QJsonArray{"Other"}));

        editor.editRow(0, {Answer(deleteFirst), press("cancelButton")});
        QCOMPARE(editor.projectData.value("PropertyOrders.json").toObject().value("UILoc1ID9"), order);
        QCOMPARE(editor.scene->components().value(0)->data().value("CustomProperties"), QJsonValue(expected));
    }

    // A double-click on an empty spot opens the selector; closed, it makes
    // nothing; through a kind's confirmed dialog, it makes the next id.
    void selectorMakesTheNextId()
    {
        Editor editor;
        QCOMPARE(editor.create(QPointF(100, 100), {press("cancelButton")}).count, 1);
        QVERIFY(editor.scene->components().isEmpty());
        QCOMPARE(undoSteps(editor), std::size_t(0));

        editor.load(TestEnvironment::shape(41, 700, 500, 40, 40));
        editor.scene->select(nullptr);
        const TestEnvironment::Seen seen = editor.create(
            QPointF(200, 150),
            {press("gauge"), press("cancelButton"), press("window"), typing("Name", "Frame"), press("confirmButton")});
        QCOMPARE(seen.count, 5);
        QCOMPARE(editor.scene->components().size(), 2);
        const QJsonObject made = editor.scene->components().at(1)->data();
        COMPARE_JSON(made, merged(made, {{"ID", 42}, {"Type", 7}, {"Name", "Frame"}, {"X", 200}, {"Y", 150},
                                         {"Opacity", 1}}));
    }

    // The selector's buttons of the custom kinds make their kind with the
    // next id (their dialogs' keys are checked with those dialogs).
    void customKindButtonsMakeTheirKind()
    {
        GameUIEditorSceneHelper<VelmoUISelector> helper;
        for (const auto& [button, type] : {std::make_pair("custom", 10), std::make_pair("attachCollection", 12)}) {
            QJsonObject json{{"X", 3}, {"Y", 4}, {"ID", 6}};
            bool accepted = false;
            TestEnvironment::answering([&]() { helper.chooseNewComponent(json, &accepted, 6, true, nullptr, nullptr); },
                                       {press(button), press("confirmButton")});
            QVERIFY(accepted);
            QCOMPARE(json.value("Type").toInt(), type);
            QCOMPARE(json.value("ID").toInt(), 7);
        }
    }

    // A component of no known kind opens nothing, and the dimming of the
    // window under it goes away again.
    void unknownKindsOpenNothing_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("14") << 14;
        QTest::newRow("-1") << -1;
    }

    void unknownKindsOpenNothing()
    {
        QFETCH(int, type);
        dialogDarkenLayers = true;
        Editor editor;
        const QJsonObject component{{"ID", 1}, {"Type", type}, {"X", 300}, {"Y", 200}, {"Name", "Future"}};
        editor.load(component);
        QCOMPARE(editor.editRow(0, {press("cancelButton")}).count, 0);
        QVERIFY(!editor.window.findChild<DialogOverlay*>());
        QCOMPARE(editor.scene->components().value(0)->data().value("Name").toString(), QStringLiteral("Future"));
        QCOMPARE(undoSteps(editor), std::size_t(0));
    }

    // A document whose components lack keys: each change is one the confirm
    // rules make, counted per kind; components of no kind pass untouched.
    void resaveThroughDialogsReportsWhatTheRulesChanged()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("rules"));
        const QJsonObject base{{"Type", 1}, {"X", 5}, {"Y", 6}, {"Rotation", 0}, {"Opacity", 1}};
        const QJsonObject kept = merged(base, {{"ID", 1}, {"Name", "Kept"}, {"CustomProperties", QJsonObject()},
                                               {"Animations", QJsonArray()}, {"ShapeData", json(ConfirmedShapeData)}});
        const QJsonObject sparse = merged(base, {{"ID", 2}, {"Conditions", QJsonArray()},
                                                 {"ShapeData", QJsonObject{{"Width", 20}, {"Height", 30}}}});
        const QJsonObject unknown{{"ID", 3}, {"Type", 14}, {"X", 5}, {"Y", 6}, {"Rotation", 0}, {"Opacity", 1}};
        const QJsonObject document{
            {"Map", 0}, {"Battle", 1},
            {"Data", QJsonArray{QJsonObject{{"HUD", QJsonArray{kept, sparse, unknown}}}, QJsonObject{{"HUD", QJsonArray()}}}}};
        TestEnvironment::writeFile(TestEnvironment::documentPath(project),
                                   QJsonDocument(document).toJson(QJsonDocument::Compact));
        const TestEnvironment::CliResult result =
            TestEnvironment::runCli({QStringLiteral("resave"), project, QStringLiteral("--through-dialogs")});
        QVERIFY2(result.code == 0, qPrintable(result.err));
        // The hidden dialogs leave no notes of the offscreen platform behind.
        QVERIFY2(!result.err.contains(QStringLiteral("does not support")), qPrintable(result.err));
        QVERIFY2(result.out.contains(QStringLiteral("Property dialogs: 2 of 3 components opened and confirmed without "
                                                    "a change, 1 of them changed by the dialog's own rules\n")),
                 qPrintable(result.out));
        QVERIFY2(result.out.contains(QStringLiteral("  Shape: 2 through its own dialog (1 changed)\n")),
                 qPrintable(result.out));
        QVERIFY2(result.out.contains(QStringLiteral("  Unknown \"Type\" 14: 1 without a dialog\n")),
                 qPrintable(result.out));
        const QJsonArray written =
            TestEnvironment::writtenDocument(project).value("Data").toArray().at(0).toObject().value("HUD").toArray();
        COMPARE_JSON(written.at(0).toObject(), kept);
        COMPARE_JSON(written.at(1).toObject(), merged(kept, {{"ID", 2}, {"Name", "Shape (ID 2)"}}));
        COMPARE_JSON(written.at(2).toObject(), unknown);
    }
};

VELMORA_TEST_MAIN(TestComponentDialogs, QApplication)
#include "tst_componentdialogs.moc"
