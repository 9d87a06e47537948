#include "TestEnvironment.h"

#include "app/VelmoMainWindow.h"
#include "components/GameUIEditorSceneHelper.h"
#include "components/VelmoUISelector.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/SceneUndoRecorder.h"
#include "scene/UIComponentBase.h"
#include "widgets/DialogFlags.h"
#include "widgets/DialogOverlay.h"
#include "widgets/MyButton.h"
#include "widgets/MyLineEdit.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPointer>
#include <QAbstractButton>

#include <memory>

using TestEnvironment::Answer;
using TestEnvironment::answering;
using TestEnvironment::field;
using TestEnvironment::press;
using TestEnvironment::typing;

namespace {

// The kind table: "Type", the selector button, the data key and the title
// pattern of the property dialog, which also names a component without a name.
struct KindRow {
    int type;
    const char* button;
    const char* dataKey;
    const char* title;
    enum { Scale, Size, Fixed, Custom } size;
};
const KindRow Kinds[] = {
    {0, "text", "TextData", "Text (ID %1)", KindRow::Scale},
    {1, "shape", "ShapeData", "Shape (ID %1)", KindRow::Size},
    {2, "picture", "PictureData", "Picture (ID %1)", KindRow::Scale},
    {3, "repeatingPicture", "RepeatData", "Repeat Pic. (ID %1)", KindRow::Size},
    {4, "gauge", "GaugeData", "Gauge (ID %1)", KindRow::Size},
    {5, "pictureGauge", "PictureGaugeData", "Picture Gauge (ID %1)", KindRow::Size},
    {6, "container", "GroupData", "Group (ID %1)", KindRow::Fixed},
    {7, "window", "WindowData", "Window (ID %1)", KindRow::Size},
    {8, "actorFace", "ActorFaceData", "Actor Face (ID %1)", KindRow::Scale},
    {9, "icon", "IconData", "Icon (ID %1)", KindRow::Scale},
    {10, "custom", "CustomData", "Custom (ID %1)", KindRow::Custom},
    {11, "customCollection", "CustomCollectionData", "Custom Collection (ID %1)", KindRow::Custom},
    {12, "attachCollection", "AttachCollectionData", "Attach Collection (ID %1)", KindRow::Custom},
    {13, "animation", "AnimationData", "Animation (ID %1)", KindRow::Scale},
};

// A row of a list, at its middle.
QPoint rowOf(UltimateTreeWidget* list, int index)
{
    UltimateTreeItem* row = list->tree()->row(index);
    return list->tree()->mapFromScene(QPointF(40, row->y() + row->rowHeight() / 2.0));
}

void clickRow(UltimateTreeWidget* list, int index)
{
    QTest::mouseClick(list->tree()->viewport(), Qt::LeftButton, Qt::NoModifier, rowOf(list, index));
}

QStringList columnTexts(UltimateTreeWidget* list, int column)
{
    QStringList texts;
    for (int i = 0; i < list->tree()->rowCount(); ++i)
        texts << list->tree()->row(i)->text(column);
    return texts;
}

// A field typed into: the kind, the field, what is typed and what it then
// shows, whether that is in range, and the key and value written on confirm.
struct FieldCase {
    int type;
    const char* field;
    const char* typed;
    const char* shown;
    bool valid;
    const char* key;
    double written;
};

// The canvas and its list with the real registry, its selector and dialogs.
struct Editor : TestEnvironment::Canvas {
    Editor() : Canvas(new GameUIEditorSceneHelper<VelmoUISelector>())
    {
        scene->setProjectData(&projectData);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        scene->setZoom(10);
        QApplication::processEvents();
    }
    UIComponentBase* load(const QJsonObject& component)
    {
        scene->clear();
        scene->loadFromJson(QJsonArray{component});
        return scene->components().value(0);
    }
    // Double-clicks the first row of the component list, as a user opens a
    // component's dialog, and answers the dialogs that come up.
    TestEnvironment::Seen editFirstRow(const QList<Answer>& answers)
    {
        return answering([this]() { QTest::mouseDClick(list->tree()->viewport(), Qt::LeftButton, Qt::NoModifier,
                                                        rowOf(list, 0)); },
                         answers);
    }
    // A user's double-click on the canvas; on a component the first click
    // selects it and the second opens it.
    TestEnvironment::Seen doubleClickCanvas(const QPointF& scenePoint, const QList<Answer>& answers, bool select)
    {
        const QPoint at = view->mapFromScene(scenePoint);
        return answering(
            [&]() {
                if (select)
                    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, at);
                QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, at);
                if (select)
                    QTest::mouseRelease(view->viewport(), Qt::LeftButton, Qt::NoModifier, at);
            },
            answers);
    }
    QString firstRowText() const { return list->tree()->row(0)->text(0); }
    std::size_t undoSteps() const { return scene->undoRecorder().undoStack().size(); }

    QJsonObject projectData;
};

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

// The confirm rules on an unchanged component: the custom properties are
// written from their list and the animations as an array, empty or not.
QJsonObject confirmed(QJsonObject component)
{
    component.insert("CustomProperties", QJsonObject());
    component.insert("Animations", QJsonArray());
    return component;
}

// The add-on keys every dialog writes into the data object at confirm: the
// add-ons in their order (a lone note of an older component becomes one
// note add-on) and "Note" rebuilt from the note add-ons, empty without any.
QJsonObject withAddonKeys(QJsonObject data)
{
    QJsonArray addons = data.value("Addons").toArray();
    const QString note = data.value("Note").toString();
    if (addons.isEmpty() && !note.isEmpty())
        addons = QJsonArray{QJsonObject{{"Type", 0}, {"Note", note}}};
    QStringList notes;
    for (const QJsonValue& addon : addons) {
        if (addon.toObject().value("Type") == QJsonValue(0))
            notes.append(addon.toObject().value("Note").toString());
    }
    data.insert("Addons", addons);
    data.insert("Note", notes.join("\n\n"));
    return data;
}

// The keys of a kind's dialog table with the default it shows for a
// missing one; empty for the kinds whose dialog keeps the data object.
QJsonObject dialogDefaults(int type, const QJsonObject& before)
{
    // Both gauges follow the first party member's HP against its maximum.
    const QJsonObject value{{"Type", 4}, {"ActorType", false}, {"Index", 1}, {"Info", 3}};
    const QJsonObject maximum{{"Type", 4}, {"ActorType", false}, {"Index", 1}, {"Info", 8}};
    switch (type) {
    case 0:
        return QJsonObject{{"Text", QJsonObject{{"Type", 0}, {"Text", "My Text"}}},
                           {"FontFamily", ""},
                           {"FontSize", 30},
                           {"OutlineSize", 4},
                           {"Alignment", 1},
                           {"MaxWidth", 200},
                           {"Color", "#ffffff"},
                           {"OutlineColor", "#000000"},
                           {"OutlineOpacity", 100}};
    case 1:
        return QJsonObject{{"Width", 100},     {"Height", 100},      {"Shape", 0},
                           {"OutlineSize", 0}, {"Color", "#ffffff"}, {"OutlineColor", "#000000"},
                           {"OutlineOpacity", 100}};
    case 4:
        return QJsonObject{{"Width", 250},
                           {"Height", 30},
                           {"OutlineSize", 1},
                           {"Smoothness", 20},
                           {"SyncComponent", ""},
                           {"Color1", "#a87532"},
                           {"Color2", "#a83232"},
                           {"BackgroundColor", "#333333"},
                           {"OutlineColor", "#000000"},
                           {"OutlineOpacity", 100},
                           {"Value", value},
                           {"Maximum", maximum}};
    case 5:
        return QJsonObject{{"GaugeSkin", "GaugeSkin"}, {"Width", 100}, {"Height", 100},
                           {"EdgeMargin", 15},        {"Value", value}, {"Maximum", maximum},
                           {"Smoothness", 20},        {"SyncComponent", ""}};
    case 2:
        return QJsonObject{{"Picture", ""}};
    case 3:
        return QJsonObject{{"Picture", ""}, {"Width", 100}, {"Height", 100}, {"OffsetX", 0}, {"OffsetY", 0}};
    case 8:
        return QJsonObject{{"ActorID", QJsonObject{{"Type", 0}, {"ID", 1}}}};
    case 9:
        // An icon set missing beside code stays empty.
        return QJsonObject{{"IconIndex", QJsonObject{{"Type", 0}, {"Number", 1}}},
                           {"IconSize", 32},
                           {"IconSet", before.contains("Code") ? "" : "IconSet"}};
    case 7:
        return QJsonObject{{"WindowSkin", "Window"}, {"Width", 100},  {"Height", 100},
                           {"Padding", 12},          {"Margin", 4},   {"BackgroundOpacity", 75}};
    case 13:
        return QJsonObject{{"AnimationID", 1}, {"Behavior", 0}};
    // Without a HUD list the custom HUD of a custom kind is never found: its
    // size shows as 300 by 300 whatever was stored.
    case 10:
        return QJsonObject{{"Width", 300}, {"Height", 300}, {"Params", QJsonObject()}, {"ID", ""}};
    case 11:
        return QJsonObject{{"Width", 300},
                           {"Height", 300},
                           {"Params", QJsonObject()},
                           {"ID", ""},
                           {"ListData", QJsonObject{{"Type", 2}, {"MembersType", 0}, {"Data", 0}}},
                           {"MaxRows", 1},
                           {"MaxColumns", 4},
                           {"HorizontalSpacing", 0},
                           {"VerticalSpacing", 0},
                           {"AlignLeft", true},
                           {"AlignUp", true}};
    case 12: {
        // The notetag only with the notetags as data, the code only with
        // custom code.
        QJsonObject keys{{"Width", 300}, {"Height", 300}, {"Params", QJsonObject()}, {"ID", ""},
                         {"Data", 0},    {"List", 0},     {"Position", 1}};
        const int data = before.value("Data").toInt(0);
        if (data == 3)
            keys.insert("Notetag", "");
        else if (data == 4)
            keys.insert("Code", "// Use \"entity\" to access list item.");
        return keys;
    }
    default:
        return QJsonObject();
    }
}

// What the dialogs write into their data object. The kinds with a dialog of
// their own: the keys of their table, the dialog's default for a missing one
// (a gauge's value and maximum are objects or nothing), and the add-on
// keys; every other key is gone. A picture gauge is at least two edge
// margins wide (15 each for a margin the game gives). A picture kind's
// "Code" stays exactly when it was there. A window is at least twice its
// padding and its margin wide and high (a padding or margin the game gives
// counts as 12 and 4). A group writes only the add-on keys. The custom kinds
// take their size from the custom HUD, never from what was stored. The
// other kinds keep their data object as it is, with the add-on keys
// rewritten.
QJsonObject ownDataObject(QJsonObject component)
{
    const int type = component.value("Type").toInt(-1);
    if (type < 0 || type > 13)
        return component;
    const char* dataKey = Kinds[type].dataKey;
    const QJsonObject before = component.value(dataKey).toObject();
    const QJsonObject defaults = dialogDefaults(type, before);
    if (defaults.isEmpty() && type != 6) {
        component.insert(dataKey, withAddonKeys(before));
        return component;
    }
    QJsonObject after;
    for (auto key = defaults.begin(); key != defaults.end(); ++key) {
        const bool dynamicNumber = (type == 4 || type == 5) && key.value().isObject();
        const bool hudSize = type >= 10 && type <= 12 && (key.key() == "Width" || key.key() == "Height");
        const bool usable = before.contains(key.key()) && !hudSize &&
                            (!dynamicNumber || before.value(key.key()).isObject());
        after.insert(key.key(), usable ? before.value(key.key()) : key.value());
    }
    // The dialog writes the custom HUD's size, 300 by 300 without one; back
    // on the canvas a Custom writes the size it takes from its HUD, and with
    // no HUD list here that is 100 by 100.
    if (type == 10) {
        after.insert("Width", 100);
        after.insert("Height", 100);
    }
    if (type == 5) {
        const QJsonValue margin = after.value("EdgeMargin");
        const int least = 2 * (margin.isDouble() ? margin.toInt() : 15);
        after.insert("Width", qMax(least, after.value("Width").toInt()));
    }
    if (type == 2 || type == 3 || type == 9) {
        if (before.contains("Code"))
            after.insert("Code", before.value("Code"));
    }
    for (const char* kept : {"Addons", "Note"}) {
        if (before.contains(kept))
            after.insert(kept, before.value(kept));
    }
    if (type == 7) {
        auto twice = [&after](const char* key, int fallback) {
            const QJsonValue value = after.value(key);
            return 2 * (value.isDouble() ? int(value.toDouble()) : fallback);
        };
        const int least = qMax(twice("Padding", 12), twice("Margin", 4));
        for (const char* side : {"Width", "Height"})
            after.insert(side, qMax(after.value(side).toInt(), least));
    }
    component.insert(dataKey, withAddonKeys(after));
    return component;
}

}

Q_DECLARE_METATYPE(FieldCase)

class TestComponentDialogs : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        dialogNativeTitleBar = false;
        dialogDarkenLayers = false;
        dialogDarkenAnimated = false;
        dialogOpenAnimated = false;
        QApplication::clipboard()->clear();
    }

    // ---------------------------------------------------------------- round trips

    // Every component of the hand-made document, each kind with nested data
    // objects, conditions, add-ons, animations, custom properties, extension
    // objects and unknown keys, comes back identical from its dialog.
    void everyComponentOfTheDocumentComesBackIdentical()
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
            // A container loaded without its children still holds their array.
            QJsonObject asLoaded = component;
            if (type == 6 || type == 7)
                asLoaded.insert(QStringLiteral("Children"), QJsonArray());
            COMPARE_JSON(before, asLoaded);
            const TestEnvironment::Seen seen = editor.editFirstRow({press("confirmButton")});
            QCOMPARE(seen.count, 1);
            QCOMPARE(seen.title,
                     QString::fromLatin1(Kinds[type].title).arg(component.value(QStringLiteral("ID")).toInt()));
            const QJsonObject expected = ownDataObject(before);
            COMPARE_JSON(loaded->data(), expected);
            // Confirming without a change leaves no undo step.
            QCOMPARE(editor.scene->undoRecorder().undoStack().empty(), expected == before);
        }
        QCOMPARE(kinds.size(), 14);
    }

    void sparseComponentsChangeOnlyByTheConfirmRules_data()
    {
        QTest::addColumn<int>("type");
        for (const KindRow& kind : Kinds)
            QTest::newRow(kind.dataKey) << kind.type;
    }

    // A component with little more than its kind: what the dialog writes
    // on an unchanged confirm follows the rules, and nothing else moves.
    void sparseComponentsChangeOnlyByTheConfirmRules()
    {
        QFETCH(int, type);
        const KindRow& kind = Kinds[type];
        const QJsonObject dataObject{{"Odd", QJsonObject{{"Type", 1}, {"ID", 3}}}, {"Later", QJsonArray{1, "two"}}};
        const QJsonObject input{{"ID", 5}, {"Type", type}, {"X", -12}, {"Y", 40}, {"Conditions", QJsonArray()},
                                {"Mystery", QJsonObject{{"Keep", true}}}, {kind.dataKey, dataObject}};
        QJsonObject expected = confirmed(input);
        // The canvas's own reading (what the scene hands the dialog): rotation
        // as it stands, "Opacity" 100.0 when absent, the size of the kind.
        expected.insert("Rotation", 0);
        expected.insert("Opacity", 100);
        if (kind.size == KindRow::Scale) {
            expected.insert("ScaleX", 1);
            expected.insert("ScaleY", 1);
        } else if (kind.size == KindRow::Size) {
            QJsonObject sized = dataObject;
            sized.insert("Width", 100);
            // A picture gauge without a skin is 24 high.
            sized.insert("Height", type == 5 ? 24 : 100);
            expected.insert(kind.dataKey, sized);
        }
        if (type == 6 || type == 7)
            expected.insert("Children", QJsonArray());
        // A missing name becomes the kind's default name, an empty condition
        // list removes the key.
        expected.insert("Name", QString::fromLatin1(kind.title).arg(5));
        expected.remove("Conditions");
        expected = ownDataObject(expected);

        Editor editor;
        UIComponentBase* loaded = editor.load(input);
        editor.editFirstRow({press("confirmButton")});
        COMPARE_JSON(loaded->data(), expected);
        // The change is one undo step, which brings the object back.
        QCOMPARE(editor.undoSteps(), std::size_t(1));
        editor.scene->undo();
        QVERIFY(!editor.scene->components().value(0)->data().contains("Name"));
    }

    // Numbers the fields show in percent: what has up to six significant
    // digits comes back exactly; more are cut to six, as the field shows.
    void percentagesComeBackAsShown()
    {
        Editor editor;
        const QJsonObject input{{"ID", 8},        {"Type", 2},        {"Name", ""},
                                {"X", -99999},    {"Y", 99999},       {"Rotation", -45},
                                {"ScaleX", 0.123457}, {"ScaleY", 1.0098}, {"Opacity", 0.8333333333},
                                {"PictureData", QJsonObject{{"Picture", "Coin"}}}};
        UIComponentBase* loaded = editor.load(input);
        QJsonObject expected = confirmed(loaded->data());
        editor.editFirstRow({Answer([](TrovDialog* dialog) {
                                 QCOMPARE(field<MyLineEdit>(dialog, "Width_Scale")->text(), QStringLiteral("12.3457"));
                                 QCOMPARE(field<MyLineEdit>(dialog, "Opacity")->text(), QStringLiteral("83.3333"));
                                 // An empty name is shown empty, not replaced.
                                 QCOMPARE(field<MyLineEdit>(dialog, "Name")->text(), QString());
                             }),
                             press("confirmButton")});
        expected.insert("Opacity", 0.833333);
        expected.insert("PictureData", withAddonKeys(expected.value("PictureData").toObject()));
        COMPARE_JSON(loaded->data(), expected);
        QCOMPARE(editor.firstRowText(), QString());
    }

    // ---------------------------------------------------------------- fields

    void validatorsAtTheirLimits_data()
    {
        QTest::addColumn<FieldCase>("c");
        QTest::newRow("X lowest") << FieldCase{1, "X_Position", "-99999", "-99999", true, "X", -99999};
        // A digit that can only lead out of the range is refused as typed.
        QTest::newRow("Y above") << FieldCase{1, "Y_Position", "100000", "10000", true, "Y", 10000};
        // The canvas keeps a rotation modulo 360, sign kept.
        QTest::newRow("rotation lowest") << FieldCase{1, "Rotation", "-360", "-360", true, "Rotation", 0};
        QTest::newRow("rotation above") << FieldCase{1, "Rotation", "361", "361", false, "Rotation", 0};
        QTest::newRow("rotation turned") << FieldCase{1, "Rotation", "-359", "-359", true, "Rotation", -359};
        QTest::newRow("scale lowest") << FieldCase{0, "Width_Scale", "1", "1", true, "ScaleX", 0.01};
        QTest::newRow("scale below") << FieldCase{0, "Height_Scale", "0.9", "0.9", false, "ScaleY", 0.01};
        QTest::newRow("scale above") << FieldCase{0, "Width_Scale", "500.1", "500.1", false, "ScaleX", 5};
        // One decimal: the validator refuses the second.
        QTest::newRow("scale decimals") << FieldCase{0, "Width_Scale", "12.34", "12.3", true, "ScaleX", 0.123};
        QTest::newRow("opacity above") << FieldCase{0, "Opacity", "100.1", "100.1", false, "Opacity", 1};
        // No sign in a field that starts at 0.
        QTest::newRow("opacity sign") << FieldCase{0, "Opacity", "-5", "5", true, "Opacity", 0.05};
        QTest::newRow("width above") << FieldCase{4, "Width", "100000", "100000", false, "Width", 99999};
        // A window is never lower than twice its padding of 12.
        QTest::newRow("height zero") << FieldCase{7, "Height", "0", "0", true, "Height", 24};
    }

    // Each field typed to its limits: the confirm button is off while the
    // value is out of range, and leaving the field brings it into range.
    void validatorsAtTheirLimits()
    {
        QFETCH(FieldCase, c);
        Editor editor;
        UIComponentBase* loaded =
            editor.load(QJsonObject{{"ID", 1}, {"Type", c.type}, {"X", 10}, {"Y", 10}, {"Name", "Field"}});
        editor.editFirstRow({typing(c.field, QLatin1String(c.typed)), Answer([&](TrovDialog* dialog) {
                                 MyLineEdit* edit = field<MyLineEdit>(dialog, c.field);
                                 QCOMPARE(edit->text(), QLatin1String(c.shown));
                                 QCOMPARE(edit->isValid(), c.valid);
                                 QCOMPARE(field<MyButton>(dialog, "confirmButton")->isEnabled(), c.valid);
                                 // Ctrl+Return does nothing while the button is off.
                                 QTest::keyClick(dialog, Qt::Key_Return, Qt::ControlModifier);
                                 QVERIFY(dialog->isVisible() || c.valid);
                                 if (dialog->isVisible()) {
                                     // Leaving the field brings the value into range.
                                     QTest::keyClick(edit, Qt::Key_Tab);
                                     QVERIFY(edit->isValid());
                                     QVERIFY(field<MyButton>(dialog, "confirmButton")->isEnabled());
                                 }
                             }),
                             press("confirmButton")});
        // A size is written into the kind's data object.
        const bool sized = c.field == QLatin1String("Width") || c.field == QLatin1String("Height");
        const QJsonObject data = sized ? loaded->data().value(Kinds[c.type].dataKey).toObject() : loaded->data();
        QCOMPARE(data.value(c.key).toDouble(), c.written);
    }

    // Cancel writes nothing, whatever was typed, and leaves no undo step.
    void cancelKeepsTheComponent()
    {
        Editor editor;
        UIComponentBase* loaded = editor.load(TestEnvironment::shape(3, 50, 60));
        const QJsonObject before = loaded->data();
        editor.editFirstRow({typing("Name", "Other"), typing("Y_Position", "70"), typing("Rotation", "361"),
                             press("cancelButton")});
        COMPARE_JSON(loaded->data(), before);
        QVERIFY(editor.scene->undoRecorder().undoStack().empty());
        QCOMPARE(editor.firstRowText(), QStringLiteral("Shape 3"));
    }

    // A click on the confirm button while the field being typed in is out
    // of range first takes the focus from it: the value comes into range,
    // and only that value is written.
    void anOutOfRangeValueIsNeverWritten()
    {
        Editor editor;
        UIComponentBase* loaded = editor.load(TestEnvironment::shape(3, 50, 60));
        editor.editFirstRow({typing("Width", "100000"), press("confirmButton")});
        QCOMPARE(loaded->data().value("ShapeData").toObject().value("Width").toInt(), 99999);
    }

    // What a user types lands in the component as one undo step; the name
    // shows in the list at once.
    void typedValuesAreAppliedAsOneStep()
    {
        Editor editor;
        UIComponentBase* loaded = editor.load(TestEnvironment::shape(3, 50, 60));
        const QJsonObject before = loaded->data();
        editor.editFirstRow({typing("Name", "Health Bar"), typing("X_Position", "400"), typing("Opacity", "25"),
                             typing("Width", "320"), press("confirmButton")});
        QJsonObject expected = confirmed(before);
        expected.insert("Name", "Health Bar");
        expected.insert("X", 400);
        expected.insert("Opacity", 0.25);
        expected.insert("ShapeData", QJsonObject{{"Width", 320}, {"Height", 100}});
        expected = ownDataObject(expected);
        COMPARE_JSON(loaded->data(), expected);
        QCOMPARE(loaded->width, 320);
        QCOMPARE(editor.firstRowText(), QStringLiteral("Health Bar"));
        QCOMPARE(editor.undoSteps(), std::size_t(1));
        editor.scene->undo();
        COMPARE_JSON(editor.scene->components().value(0)->data(), before);
    }

    // A name left empty stays empty; a group keeps its fixed size and the
    // kinds that never turn take no rotation or opacity from the dialog.
    void fieldsTheKindRefuses()
    {
        Editor editor;
        editor.load(QJsonObject{{"ID", 2}, {"Type", 6}, {"Name", "Box"}, {"Rotation", 0}, {"Opacity", 0.5}});
        editor.editFirstRow({Answer([](TrovDialog* dialog) {
                                 QVERIFY(!field<MyLineEdit>(dialog, "Width")->isEnabled());
                                 QVERIFY(!field<MyLineEdit>(dialog, "Rotation")->isEnabled());
                                 QVERIFY(!field<MyLineEdit>(dialog, "Opacity")->isEnabled());
                             }),
                             typing("Name", ""), press("confirmButton")});
        const QJsonObject data = editor.scene->components().value(0)->data();
        QCOMPARE(data.value("Name"), QJsonValue(QString()));
        QCOMPARE(data.value("Opacity").toDouble(), 0.5);
        QCOMPARE(data.value("GroupData"), QJsonValue(withAddonKeys(QJsonObject())));
        QCOMPARE(editor.firstRowText(), QString());
    }

    // ---------------------------------------------------------------- lists

    // The animations show in list order in the units of the dialog; moved,
    // copied, pasted and deleted entries are written back in list order,
    // each object whole.
    void animationListKeepsAndOrdersItsEntries()
    {
        const QJsonObject fade{{"Property", 7}, {"StartOpacity", 0}, {"EndOpacity", 1}, {"Duration", 30},
                               {"ActivateType", QJsonObject{{"Type", 0}, {"RunType", 1}}}, {"Future", "kept"}};
        const QJsonObject turn{{"Property", 6}, {"StartRotation", -90}, {"EndRotation", 45}, {"Type", 1}};
        const QJsonObject grow{{"Property", 2}, {"StartScaleWidth", 0.5}, {"EndScaleWidth", 1.25}};
        const QJsonObject slide{{"Property", 10}, {"StartOffset", -16}, {"EndOffset", 16}};
        Editor editor;
        editor.load(QJsonObject{{"ID", 4}, {"Type", 0}, {"Name", "Moving"},
                                {"Animations", QJsonArray{fade, turn, grow, slide}}});
        editor.editFirstRow({Answer([&](TrovDialog* dialog) {
                                 UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "animations");
                                 QCOMPARE(columnTexts(list, 1), (QStringList{"0%", "-90\u00B0", "50%", "-16"}));
                                 QCOMPARE(columnTexts(list, 2), (QStringList{"100%", "45\u00B0", "125%", "16"}));
                                 // Copy the first entry: its identifier and compact JSON.
                                 clickRow(list, 0);
                                 QTest::keyClick(list->tree(), Qt::Key_C, Qt::ControlModifier);
                                 QCOMPARE(QApplication::clipboard()->text(),
                                          QStringLiteral("UIPROPANIMATION")
                                              + QString::fromUtf8(QJsonDocument(fade).toJson(QJsonDocument::Compact)));
                                 // Paste it behind the third, then delete the second.
                                 clickRow(list, 2);
                                 QTest::keyClick(list->tree(), Qt::Key_V, Qt::ControlModifier);
                                 clickRow(list, 1);
                                 QTest::keyClick(list->tree(), Qt::Key_Delete);
                                 // The row at the deleted one's place is current.
                                 QCOMPARE(list->tree()->currentRow(), list->tree()->row(1));
                                 // Cut the last one: the one before it becomes current.
                                 clickRow(list, 3);
                                 QTest::keyClick(list->tree(), Qt::Key_X, Qt::ControlModifier);
                                 QCOMPARE(list->tree()->currentRow(), list->tree()->row(2));
                             }),
                             press("confirmButton")});
        QCOMPARE(editor.scene->components().value(0)->data().value("Animations"),
                 QJsonValue(QJsonArray{fade, grow, fade}));
    }

    // Removing every animation leaves an empty array; a list's own
    // identifier is all it pastes.
    void removingAllAnimationsLeavesAnEmptyArray()
    {
        Editor editor;
        editor.load(QJsonObject{{"ID", 4}, {"Type", 1}, {"Name", "Bar"},
                                {"Animations", QJsonArray{QJsonObject{{"Property", 0}, {"StartX", 1}, {"EndX", 2}}}}});
        editor.editFirstRow({Answer([](TrovDialog* dialog) {
                                 UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "animations");
                                 clickRow(list, 0);
                                 QTest::keyClick(list->tree(), Qt::Key_Delete);
                                 QApplication::clipboard()->setText(
                                     QStringLiteral("CUSTOMPROPERTY{\"Name\":\"Speed\",\"Prop\":\"4\"}"));
                                 QTest::keyClick(list->tree(), Qt::Key_V, Qt::ControlModifier);
                                 QCOMPARE(list->tree()->rowCount(), 0);
                             }),
                             press("confirmButton")});
        QCOMPARE(editor.scene->components().value(0)->data().value("Animations"), QJsonValue(QJsonArray()));
    }

    // Custom properties: the stored order first, then the rest by name;
    // pastes take free names; line breaks show as " ↵ " but stay in the value.
    void customPropertiesKeepValuesAndOrder()
    {
        Editor editor;
        editor.projectData.insert(
            "PropertyOrders.json",
            QJsonObject{{"UILoc1ID9", QJsonArray{"Zeta", "Gone", "Alpha"}}, {"UILoc1ID8", QJsonArray{"Other"}}});
        const QJsonObject properties{
            {"Alpha", "1"}, {"Beta", "two\r\nlines"}, {"Zeta", "say \"hi\""}, {"Speed", "4"}};
        editor.load(QJsonObject{{"ID", 9}, {"Type", 9}, {"Name", "Icon"}, {"CustomProperties", properties}});
        editor.editFirstRow({Answer([](TrovDialog* dialog) {
                                 UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                                 QCOMPARE(columnTexts(list, 0), (QStringList{"Zeta", "Alpha", "Beta", "Speed"}));
                                 QCOMPARE(columnTexts(list, 1),
                                          (QStringList{"say \"hi\"", "1", QStringLiteral("two \u21B5 lines"), "4"}));
                                 // Speed, copied and pasted twice beside itself.
                                 clickRow(list, 3);
                                 QTest::keyClick(list->tree(), Qt::Key_C, Qt::ControlModifier);
                                 QCOMPARE(QApplication::clipboard()->text(),
                                          QStringLiteral("CUSTOMPROPERTY{\"Name\":\"Speed\",\"Prop\":\"4\"}"));
                                 QTest::keyClick(list->tree(), Qt::Key_V, Qt::ControlModifier);
                                 QTest::keyClick(list->tree(), Qt::Key_V, Qt::ControlModifier);
                                 // Cut Alpha and paste it at the end.
                                 clickRow(list, 1);
                                 QTest::keyClick(list->tree(), Qt::Key_X, Qt::ControlModifier);
                                 clickRow(list, 4);
                                 QTest::keyClick(list->tree(), Qt::Key_V, Qt::ControlModifier);
                                 // A value with a quote is copied as it is and can't be pasted.
                                 clickRow(list, 0);
                                 QTest::keyClick(list->tree(), Qt::Key_C, Qt::ControlModifier);
                                 QCOMPARE(QApplication::clipboard()->text(),
                                          QStringLiteral("CUSTOMPROPERTY{\"Name\":\"Zeta\",\"Prop\":\"say \"hi\"\"}"));
                                 QTest::keyClick(list->tree(), Qt::Key_V, Qt::ControlModifier);
                                 // Delete Zeta.
                                 QTest::keyClick(list->tree(), Qt::Key_Delete);
                             }),
                             press("confirmButton")});
        const QJsonObject expected{{"Alpha", "1"}, {"Beta", "two\r\nlines"}, {"Speed", "4"}, {"Speed (2)", "4"},
                                   {"Speed (3)", "4"}};
        const QJsonValue order(QJsonArray{"Beta", "Speed", "Speed (2)", "Speed (3)", "Alpha"});
        QCOMPARE(editor.scene->components().value(0)->data().value("CustomProperties"), QJsonValue(expected));
        // The list's order is kept for the next opening; other keys stay.
        const QJsonObject orders = editor.projectData.value("PropertyOrders.json").toObject();
        QCOMPARE(orders.value("UILoc1ID9"), order);
        QCOMPARE(orders.value("UILoc1ID8"), QJsonValue(QJsonArray{"Other"}));

        // Cancel keeps the order as it was, whatever was deleted.
        editor.editFirstRow({Answer([](TrovDialog* dialog) {
                                 UltimateTreeWidget* list = field<UltimateTreeWidget>(dialog, "customProperties");
                                 clickRow(list, 0);
                                 QTest::keyClick(list->tree(), Qt::Key_Delete);
                             }),
                             press("cancelButton")});
        QCOMPARE(editor.projectData.value("PropertyOrders.json").toObject().value("UILoc1ID9"), order);
        QCOMPARE(editor.scene->components().value(0)->data().value("CustomProperties"), QJsonValue(expected));
    }

    // ---------------------------------------------------------------- selector

    // A double-click on an empty spot opens the selector; a cancelled
    // property dialog leaves it open and working, and the confirmed one
    // makes the component with the next id.
    void selectorMakesTheNextId()
    {
        Editor editor;
        editor.scene->loadFromJson(QJsonArray{TestEnvironment::shape(41, 700, 500, 40, 40)});
        editor.scene->select(nullptr);
        const TestEnvironment::Seen seen = editor.doubleClickCanvas(
            QPointF(200, 150),
            {press("gauge"), press("cancelButton"), press("window"), typing("Name", "Frame"), press("confirmButton")},
            false);
        QCOMPARE(seen.count, 5);
        QCOMPARE(editor.scene->components().size(), 2);
        const QJsonObject made = editor.scene->components().at(1)->data();
        QCOMPARE(made.value("ID").toInt(), 42);
        QCOMPARE(made.value("Type").toInt(), 7);
        QCOMPARE(made.value("Name").toString(), QStringLiteral("Frame"));
        QCOMPARE(made.value("X").toInt(), 200);
        QCOMPARE(made.value("Y").toInt(), 150);
        QCOMPARE(made.value("WindowData"),
                 QJsonValue(withAddonKeys(QJsonObject{{"WindowSkin", "Window"}, {"Width", 100}, {"Height", 100},
                                                      {"Padding", 12}, {"Margin", 4}, {"BackgroundOpacity", 75}})));
        QCOMPARE(made.value("Opacity").toDouble(), 1.0);
        QCOMPARE(editor.scene->idCounter(), 42);
    }

    void everyButtonMakesItsKind_data()
    {
        QTest::addColumn<int>("type");
        for (const KindRow& kind : Kinds)
            QTest::newRow(kind.button) << kind.type;
    }

    void everyButtonMakesItsKind()
    {
        QFETCH(int, type);
        const KindRow& kind = Kinds[type];
        QJsonObject json{{"X", 3}, {"Y", 4}, {"ID", 6}};
        bool accepted = false;
        GameUIEditorSceneHelper<VelmoUISelector> helper;
        answering([&]() { helper.chooseNewComponent(json, &accepted, 6, true, nullptr, nullptr); },
                  {press(kind.button), press("confirmButton")});
        QVERIFY(accepted);
        QCOMPARE(json.value("Type").toInt(), type);
        QCOMPARE(json.value("ID").toInt(), 7);
        QVERIFY(json.value(kind.dataKey).isObject());
    }

    // Close ends the selector with nothing made.
    void closingTheSelectorMakesNothing()
    {
        Editor editor;
        const TestEnvironment::Seen seen = editor.doubleClickCanvas(QPointF(100, 100), {press("cancelButton")}, false);
        QCOMPARE(seen.count, 1);
        QVERIFY(editor.scene->components().isEmpty());
        QCOMPARE(editor.scene->idCounter(), 0);
        QVERIFY(editor.scene->undoRecorder().undoStack().empty());
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
        const TestEnvironment::Seen seen = editor.doubleClickCanvas(QPointF(300, 200), {press("cancelButton")}, true);
        QCOMPARE(seen.count, 0);
        QVERIFY(!editor.window.findChild<DialogOverlay*>());
        QCOMPARE(editor.scene->components().value(0)->data().value("Name").toString(), QStringLiteral("Future"));
        QVERIFY(editor.scene->undoRecorder().undoStack().empty());

        // The same inside the selector: no overlay stays, and the flag handed
        // in stays as it was.
        bool accepted = true;
        QJsonObject json = component;
        GameUIEditorSceneHelper<VelmoUISelector> helper;
        VelmoUISelector selector(&json, nullptr, 0, true, nullptr, nullptr, &helper);
        helper.editComponent(json, &accepted, &selector, nullptr, true, nullptr);
        QVERIFY(!selector.overlay());
        QVERIFY(accepted);
        QCOMPARE(json, component);
    }

    // In the editor's window: a double-click on a component's row opens its
    // dialog over the dimmed window, and the confirmed change marks the
    // project as changed.
    void theMainWindowEditsThroughTheDialog()
    {
        dialogDarkenLayers = true;
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("window-dialogs"));
        std::unique_ptr<VelmoMainWindow> window(TestEnvironment::showMainWindow(project));
        UltimateTree* tree = window->componentListWidget()->tree();
        // The Map HUD's window holds the actor face as its first child.
        UltimateTreeItem* face = tree->row(0)->child(0);
        const QPoint point = tree->mapFromScene(QPointF(80, face->scenePos().y() + face->rowHeight() / 2.0));
        QVERIFY(!window->isWindowModified());
        const TestEnvironment::Seen seen = answering(
            [&]() { QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, point); },
            {Answer([&](TrovDialog* dialog) {
                 QVERIFY(window->findChild<DialogOverlay*>());
                 QCOMPARE(field<MyLineEdit>(dialog, "Name")->text(), QStringLiteral("Leader Face"));
             }),
             typing("Name", "Hero Face"), press("confirmButton")});
        QCOMPARE(seen.count, 3);
        QCOMPARE(seen.title, QStringLiteral("Actor Face (ID 2)"));
        QTRY_VERIFY(!window->findChild<DialogOverlay*>());
        QCOMPARE(face->text(0), QStringLiteral("Hero Face"));
        QVERIFY(window->isWindowModified());
    }

    // The display conditions open over the property dialog, which dims under
    // them as under every other field's dialog; closing the list lifts it.
    void theConditionListDimsThePropertyDialog()
    {
        dialogDarkenLayers = true;
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("window-conditions"));
        std::unique_ptr<VelmoMainWindow> window(TestEnvironment::showMainWindow(project));
        UltimateTree* tree = window->componentListWidget()->tree();
        UltimateTreeItem* face = tree->row(0)->child(0);
        const QPoint point = tree->mapFromScene(QPointF(80, face->scenePos().y() + face->rowHeight() / 2.0));
        QPointer<TrovDialog> properties;
        bool dimmedUnderList = false;
        bool litAgain = false;
        const TestEnvironment::Seen seen = answering(
            [&]() { QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, point); },
            {Answer([&](TrovDialog* dialog) {
                 properties = dialog;
                 QVERIFY(!dialog->overlay());
                 QWidget* conditions = dialog->findChild<QWidget*>(QStringLiteral("Conditions"));
                 QVERIFY(conditions);
                 QTest::mouseClick(conditions, Qt::LeftButton, Qt::NoModifier, QPoint(40, 20));
                 litAgain = true;
                 QTRY_VERIFY(!dialog->overlay());
             }),
             Answer([&](TrovDialog* list) {
                 QCOMPARE(list->windowTitle(), QStringLiteral("RPG Maker Condition List"));
                 dimmedUnderList = properties && properties->overlay() && properties->overlay()->isVisible();
                 QTest::mouseClick(list->findChild<QAbstractButton*>(QStringLiteral("cancelButton")),
                                   Qt::LeftButton);
             }),
             press("cancelButton")});
        QCOMPARE(seen.count, 3);
        QVERIFY(dimmedUnderList);
        QVERIFY(litAgain);
    }

    // ---------------------------------------------------------------- velmora-cli

    // A document whose components lack keys: each change is one the confirm
    // rules make, counted per kind; components of no kind pass untouched.
    void resaveThroughDialogsReportsWhatTheRulesChanged()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("rules"));
        const QJsonArray hud{
            ownDataObject(QJsonObject{{"ID", 1}, {"Type", 1}, {"Name", "Kept"}, {"X", 5}, {"Y", 6}, {"Rotation", 0},
                                      {"Opacity", 1}, {"CustomProperties", QJsonObject()},
                                      {"Animations", QJsonArray()},
                                      {"ShapeData", QJsonObject{{"Width", 20}, {"Height", 30}}}}),
            QJsonObject{{"ID", 2}, {"Type", 1}, {"X", 5}, {"Y", 6}, {"Rotation", 0}, {"Opacity", 1},
                        {"Conditions", QJsonArray()}, {"ShapeData", QJsonObject{{"Width", 20}, {"Height", 30}}}},
            QJsonObject{{"ID", 3}, {"Type", 14}, {"X", 5}, {"Y", 6}, {"Rotation", 0}, {"Opacity", 1}}};
        const QJsonObject document{{"Map", 0}, {"Battle", 1},
                                   {"Data", QJsonArray{QJsonObject{{"HUD", hud}}, QJsonObject{{"HUD", QJsonArray()}}}}};
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
        QCOMPARE(written.at(0), hud.at(0));
        QJsonObject second = confirmed(hud.at(1).toObject());
        second.insert("Name", "Shape (ID 2)");
        second.remove("Conditions");
        QCOMPARE(written.at(1), QJsonValue(ownDataObject(second)));
        QCOMPARE(written.at(2), hud.at(2));
    }
};

VELMORA_TEST_MAIN(TestComponentDialogs, QApplication)
#include "tst_componentdialogs.moc"
