#include "MainWindowFixture.h"
#include "TestEnvironment.h"

#include "app/VelmoMainWindow.h"
#include "components/GameUIEditorSceneHelper.h"
#include "components/VelmoUISelector.h"
#include "logic/HudCatalog.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/DialogFlags.h"
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
#include <QJsonDocument>
#include <QLabel>
#include <QPushButton>

#include <memory>

using TestEnvironment::Answer;
using TestEnvironment::answering;
using TestEnvironment::choosing;
using TestEnvironment::press;
using TestEnvironment::typing;

namespace {

QJsonObject json(const char* text)
{
    return QJsonDocument::fromJson(QByteArray(text)).object();
}

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

template <class T>
T* child(QWidget* dialog, const char* name)
{
    T* found = dialog->findChild<T*>(QLatin1String(name));
    if (!found)
        qWarning("no %s in the dialog", name);
    return found;
}

QPoint rowPoint(UltimateTreeWidget* list, int index)
{
    UltimateTreeItem* row = list->tree()->row(index);
    return list->tree()->mapFromScene(QPointF(40, row->y() + row->rowHeight() / 2.0));
}

// Picks the row of the HUD selector whose text is name, by a double-click.
Answer pickingHud(const QString& name)
{
    return [name](TrovDialog* selector) {
        UltimateTreeWidget* list = child<UltimateTreeWidget>(selector, "myList");
        for (int i = 0; i < list->tree()->rowCount(); ++i) {
            if (list->tree()->row(i)->text(0) == name) {
                QTest::mouseDClick(list->tree()->viewport(), Qt::LeftButton, Qt::NoModifier, rowPoint(list, i));
                return;
            }
        }
        QFAIL(qPrintable(QStringLiteral("no row %1 in the HUD selector").arg(name)));
    };
}

// Clicks a widget of the open dialog.
Answer clicking(const char* name)
{
    return [name](TrovDialog* dialog) { QTest::mouseClick(child<QWidget>(dialog, name), Qt::LeftButton); };
}

// Double-clicks the parameter row index.
Answer editingParam(int index)
{
    return [index](TrovDialog* dialog) {
        UltimateTreeWidget* table = child<UltimateTreeWidget>(dialog, "customParams");
        QTest::mouseDClick(table->tree()->viewport(), Qt::LeftButton, Qt::NoModifier, rowPoint(table, index));
    };
}

QStringList column(QWidget* dialog, int index)
{
    UltimateTree* tree = child<UltimateTreeWidget>(dialog, "customParams")->tree();
    QStringList texts;
    for (int i = 0; i < tree->rowCount(); ++i)
        texts << tree->row(i)->text(index);
    return texts;
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

// What the warning of a collection said: its title and text, empty when it
// didn't come up.
struct Warning {
    QString title;
    QString text;
};

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
const char* const FreezingText = "Bruh, your collection is unbelievably massive.<br>This may freeze your "
                                 "computer.<br><br>Are you SURE you want to make this happen?";

}

class TestCustomDialogs : public QObject, private MainWindowFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        dialogNativeTitleBar = false;
        dialogDarkenLayers = false;
        dialogDarkenAnimated = false;
        dialogOpenAnimated = false;
        const QVector<HudCatalog::Row> rows = projectHuds();
        HudCatalog::setSource([rows]() { return rows; });
    }
    void cleanup()
    {
        HudCatalog::setSource(nullptr);
        window.reset();
    }

    // ------------------------------------------------------------ new components

    // A new custom component on the "Bar" HUD, with one parameter set: the
    // HUD's size, its parameters (the untouched one empty), the reference,
    // and nothing else but the add-on keys.
    void newCustomComponentWritesItsKeys()
    {
        const QJsonObject written = runDialog(
            json(R"({"ID":1,"Type":10})"),
            {[](TrovDialog* dialog) {
                 // The reference and its parameters lead the form; the size
                 // belongs to the HUD.
                 QWidget* basic = child<QWidget>(dialog, "basicProperties");
                 QVERIFY(child<QWidget>(dialog, "projectileCreation")->y() < basic->y());
                 QVERIFY(child<QWidget>(dialog, "groupBox_5")->y() < basic->y());
                 for (const char* name : {"Width", "Height", "Rotation", "Opacity"})
                     QVERIFY2(!child<QWidget>(dialog, name)->isEnabled(), name);
                 QCOMPARE(child<MyDialogOpener>(dialog, "CustomComponent")->value(), QStringLiteral("None"));
                 QCOMPARE(child<MyLineEdit>(dialog, "Width")->text(), QStringLiteral("300"));
                 clicking("CustomComponent")(dialog);
             },
             [](TrovDialog* selector) {
                 // Only the custom HUD objects to use are offered.
                 QStringList names;
                 UltimateTree* tree = child<UltimateTreeWidget>(selector, "myList")->tree();
                 for (int i = 0; i < tree->rowCount(); ++i)
                     names << tree->row(i)->text(0);
                 QCOMPARE(names, QStringList({"None", "Bar", "Badge", "Dot"}));
                 pickingHud("Bar")(selector);
             },
             [](TrovDialog* dialog) {
                 QCOMPARE(child<MyLineEdit>(dialog, "Width")->text(), QStringLiteral("240"));
                 QCOMPARE(child<MyLineEdit>(dialog, "Height")->text(), QStringLiteral("64"));
                 QCOMPARE(column(dialog, 0), QStringList({"Label", "Value"}));
                 QCOMPARE(column(dialog, 1), QStringList({"", "0"}));
                 editingParam(1)(dialog);
             },
             [](TrovDialog* setter) {
                 // A plain custom component has no list to take a value from.
                 QVERIFY(!child<QWidget>(setter, "useListData")->isVisible());
                 typing("Number", "42")(setter);
                 press("confirmButton")(setter);
             },
             [](TrovDialog* dialog) {
                 QCOMPARE(column(dialog, 1), QStringList({"", "42"}));
                 press("confirmButton")(dialog);
             }});
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
                            {[](TrovDialog* dialog) {
                                 // The list's text is plain, never in italics.
                                 QVERIFY(!child<MyDialogOpener>(dialog, "ListData")->isItalic());
                                 QVERIFY(!child<MyDialogOpener>(dialog, "ListData")->value().isEmpty());
                                 clicking("HorizontalAlign")(dialog);
                                 clicking("VerticalAlign")(dialog);
                             },
                             typing("MaxRows", "2"), typing("VerticalSpacing", "6"), press("confirmButton")});
        const QJsonObject data = dataOf(written, "CustomCollectionData");
        QCOMPARE(data.value("AlignLeft"), QJsonValue(false));
        QCOMPARE(data.value("AlignUp"), QJsonValue(false));
        QCOMPARE(data.value("MaxRows"), QJsonValue(2));
        QCOMPARE(data.value("VerticalSpacing"), QJsonValue(6));
    }

    // A new attach collection: its three choices and neither the notetag
    // nor the code, since the data is the indexes.
    void newAttachCollectionWritesItsKeys()
    {
        const QJsonObject written = runDialog(
            json(R"({"ID":1,"Type":12})"),
            {[](TrovDialog* dialog) {
                 QVERIFY(child<QWidget>(dialog, "NotetagInput")->isVisible());
                 QVERIFY(!child<QWidget>(dialog, "NotetagInput")->isEnabled());
                 QVERIFY(!child<QWidget>(dialog, "CodeInput")->isVisible());
             },
             choosing("CollectionType", 3), choosing("PositionType", 8), press("confirmButton")});
        COMPARE_JSON(dataOf(written, "AttachCollectionData"),
                     json(R"({"Width":300,"Height":300,"Params":{},"ID":"","Data":0,"List":3,"Position":8,
                              "Addons":[],"Note":""})"));
    }

    // ------------------------------------------------------------ round trips

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

    // ------------------------------------------------------------ parameters

    // A parameter added to the HUD after the component was made shows with
    // its empty default and is written with it; the value shows as the
    // table shows values.
    void laterParameterShowsEmpty()
    {
        const QJsonObject written = runDialog(
            json(R"({"ID":1,"Type":10,"CustomData":{"ID":"11111","Params":{"Value":1234567}}})"),
            {[](TrovDialog* dialog) {
                 QCOMPARE(column(dialog, 0), QStringList({"Label", "Value"}));
                 QCOMPARE(column(dialog, 1), QStringList({"", "1.23457e+06"}));
             },
             press("confirmButton")});
        COMPARE_JSON(dataOf(written, "CustomData").value("Params").toObject(),
                     json(R"({"Label":"","Value":1234567})"));
    }

    // In a collection a parameter can take the cell's list entry, shown in
    // italics like a computed value; in a plain custom component the same
    // value counts as computed.
    void collectionValuesStandOut()
    {
        runDialog(json(R"({"ID":1,"Type":11,"CustomCollectionData":{"ID":"11111",
                            "Params":{"Label":true,"Value":{"Type":1,"Info":2}}}})"),
                  {[](TrovDialog* dialog) {
                       QCOMPARE(column(dialog, 1), QStringList({"[LIST DATA]", "[DYNAMIC]"}));
                       UltimateTree* tree = child<UltimateTreeWidget>(dialog, "customParams")->tree();
                       QVERIFY(tree->row(0)->isItalic(1));
                       QVERIFY(tree->row(1)->isItalic(1));
                       QVERIFY(!tree->row(0)->isItalic(0));
                       press("cancelButton")(dialog);
                   }});
        runDialog(json(R"({"ID":1,"Type":12,"AttachCollectionData":{"ID":"11111",
                            "Params":{"Label":false,"Value":7}}})"),
                  {[](TrovDialog* dialog) {
                       QCOMPARE(column(dialog, 1), QStringList({"[UNKNOWN]", "7"}));
                       UltimateTree* tree = child<UltimateTreeWidget>(dialog, "customParams")->tree();
                       QVERIFY(tree->row(0)->isItalic(1));
                       QVERIFY(!tree->row(1)->isItalic(1));
                       press("cancelButton")(dialog);
                   }});
        runDialog(json(R"({"ID":1,"Type":10,"CustomData":{"ID":"11111","Params":{"Label":true,"Value":2}}})"),
                  {[](TrovDialog* dialog) {
                       QCOMPARE(column(dialog, 1), QStringList({"[DYNAMIC]", "2"}));
                       press("cancelButton")(dialog);
                   }});
    }

    // The setter of a collection binds a parameter to the list entry.
    void collectionParameterTakesTheListEntry()
    {
        const QJsonObject written = runDialog(
            json(R"({"ID":1,"Type":11,"CustomCollectionData":{"ID":"11111","Params":{"Label":"HP","Value":3}}})"),
            {editingParam(1),
             [](TrovDialog* setter) {
                 QVERIFY(child<QWidget>(setter, "useListData")->isVisible());
                 clicking("useListData")(setter);
                 press("confirmButton")(setter);
             },
             [](TrovDialog* dialog) {
                 QCOMPARE(column(dialog, 1), QStringList({"HP", "[LIST DATA]"}));
                 press("confirmButton")(dialog);
             }});
        COMPARE_JSON(dataOf(written, "CustomCollectionData").value("Params").toObject(),
                     json(R"({"Label":"HP","Value":true})"));
    }

    // Choosing the same HUD again keeps the values; another HUD starts its
    // own parameters empty and brings its size.
    void anotherHudEmptiesTheParameters()
    {
        const QJsonObject written = runDialog(
            json(R"({"ID":1,"Type":10,"CustomData":{"ID":"11111","Params":{"Label":"HP","Value":5}}})"),
            {clicking("CustomComponent"), pickingHud("Bar"),
             [](TrovDialog* dialog) {
                 QCOMPARE(column(dialog, 1), QStringList({"HP", "5"}));
                 clicking("CustomComponent")(dialog);
             },
             pickingHud("Badge"),
             [](TrovDialog* dialog) {
                 QCOMPARE(child<MyDialogOpener>(dialog, "CustomComponent")->value(), QStringLiteral("Badge"));
                 QCOMPARE(column(dialog, 0), QStringList({"Icon"}));
                 QCOMPARE(column(dialog, 1), QStringList({"0"}));
                 press("confirmButton")(dialog);
             }});
        COMPARE_JSON(dataOf(written, "CustomData"),
                     json(R"({"Width":50,"Height":20,"Params":{"Icon":0},"ID":"22222","Addons":[],"Note":""})"));
        // Back to "None": no parameters, the size of no HUD.
        const QJsonObject none = runDialog(
            json(R"({"ID":1,"Type":11,"CustomCollectionData":{"ID":"22222","Params":{"Icon":1}}})"),
            {clicking("CustomComponent"), pickingHud("None"), press("confirmButton")});
        const QJsonObject data = dataOf(none, "CustomCollectionData");
        QCOMPARE(data.value("ID"), QJsonValue(""));
        QCOMPARE(data.value("Params"), QJsonValue(QJsonObject()));
        QCOMPARE(data.value("Width"), QJsonValue(300));
        QCOMPARE(data.value("Height"), QJsonValue(300));
    }

    // A reference to a HUD that was deleted shows "None" like an empty value
    // and the size of no HUD; the stale values stay until another HUD is
    // chosen.
    void deletedHudShowsNone()
    {
        for (const char* kind : {"10", "11", "12"}) {
            const QByteArray component =
                QByteArray(R"({"ID":1,"Type":)") + kind +
                R"(,"CustomData":{"ID":"99999","Width":100,"Height":100},
                    "CustomCollectionData":{"ID":"99999","Width":100,"Height":100},
                    "AttachCollectionData":{"ID":"99999","Width":100,"Height":100}})";
            runDialog(QJsonDocument::fromJson(component).object(),
                      {[](TrovDialog* dialog) {
                           MyDialogOpener* opener = child<MyDialogOpener>(dialog, "CustomComponent");
                           QCOMPARE(opener->value(), QStringLiteral("None"));
                           QVERIFY(opener->isItalic());
                           QCOMPARE(child<MyLineEdit>(dialog, "Width")->text(), QStringLiteral("300"));
                           QCOMPARE(child<MyLineEdit>(dialog, "Height")->text(), QStringLiteral("300"));
                           QCOMPARE(column(dialog, 0), QStringList());
                           press("cancelButton")(dialog);
                       }});
        }
    }

    // ------------------------------------------------------------ attach collection

    // Switching the data away from the notetags or the code drops that field
    // at confirm; the two share one place in the form.
    void attachDataDecidesNotetagAndCode()
    {
        const QJsonObject notetag = json(R"({"ID":1,"Type":12,"AttachCollectionData":{"ID":"","Data":3,
                                              "Notetag":"HudLabel","Code":"return 1;"}})");
        QJsonObject written =
            runDialog(notetag, {[](TrovDialog* dialog) {
                                    QVERIFY(child<QWidget>(dialog, "NotetagInput")->isEnabled());
                                    QVERIFY(child<QWidget>(dialog, "NotetagInput")->isVisible());
                                    QVERIFY(!child<QWidget>(dialog, "CodeInput")->isVisible());
                                    QCOMPARE(child<MyLineEdit>(dialog, "NotetagInput")->text(),
                                             QStringLiteral("HudLabel"));
                                },
                                choosing("ListData", 1), press("confirmButton")});
        QJsonObject data = dataOf(written, "AttachCollectionData");
        QCOMPARE(data.value("Data"), QJsonValue(1));
        QVERIFY(!data.contains("Notetag"));
        QVERIFY(!data.contains("Code"));

        const QJsonObject code = json(R"({"ID":1,"Type":12,"AttachCollectionData":{"ID":"","Data":4,
                                           "Notetag":"Old","Code":"const a = 1;\nreturn a;"}})");
        written = runDialog(code, {[](TrovDialog* dialog) {
                                       QVERIFY(!child<QWidget>(dialog, "NotetagInput")->isVisible());
                                       QVERIFY(child<QWidget>(dialog, "CodeInput")->isVisible());
                                       QCOMPARE(child<MyDialogOpener>(dialog, "CodeInput")->value(),
                                                QStringLiteral("const a = 1; \u23CE return a;"));
                                   },
                                   choosing("ListData", 3), typing("NotetagInput", "Aura"), press("confirmButton")});
        data = dataOf(written, "AttachCollectionData");
        QCOMPARE(data.value("Data"), QJsonValue(3));
        QCOMPARE(data.value("Notetag"), QJsonValue("Aura"));
        QVERIFY(!data.contains("Code"));

        // The code of a new one starts with the hint, and goes with "Custom Code".
        written = runDialog(json(R"({"ID":1,"Type":12})"), {choosing("ListData", 4), press("confirmButton")});
        data = dataOf(written, "AttachCollectionData");
        QCOMPARE(data.value("Code"), QJsonValue("// Use \"entity\" to access list item."));
        QVERIFY(!data.contains("Notetag"));
    }

    // A "List" past the five lists shows the last one.
    void listPastTheEndShowsTheLastEntry()
    {
        runDialog(json(R"({"ID":1,"Type":12,"AttachCollectionData":{"List":9,"Position":1}})"),
                  {[](TrovDialog* dialog) {
                       MyComboBox* list = child<MyComboBox>(dialog, "CollectionType");
                       QCOMPARE(list->currentIndex(), 4);
                       QCOMPARE(list->currentText(), QStringLiteral("All Battlers"));
                       press("cancelButton")(dialog);
                   }});
    }

    // ------------------------------------------------------------ massive collections

    void massiveCollectionWarns_data()
    {
        QTest::addColumn<QString>("hud");
        QTest::addColumn<QString>("rows");
        QTest::addColumn<QString>("columns");
        QTest::addColumn<QString>("horizontal");
        QTest::addColumn<QString>("vertical");
        QTest::addColumn<QString>("text");
        // "Bar" is 240 by 64, "Dot" 10 by 10. The rows count with the width,
        // the columns with the height.
        QTest::newRow("P exactly 5000") << "Bar" << "20" << "4" << "10" << "0" << QString();
        QTest::newRow("P 5001") << "Bar" << "1" << "4" << "4761" << "0" << MassiveText;
        QTest::newRow("P exactly 50000") << "Bar" << "200" << "1" << "10" << "0" << MassiveText;
        QTest::newRow("P 50001") << "Bar" << "7" << "1" << "6903" << "0" << FreezingText;
        QTest::newRow("Q 5056") << "Bar" << "1" << "79" << "0" << "0" << MassiveText;
        // 999 columns of a 10 pixel high cell: a grid 9990 wide and 10 high,
        // and still Q = 9990 warns.
        QTest::newRow("crosswise") << "Dot" << "1" << "999" << "0" << "0" << MassiveText;
    }

    // The warning comes before anything is written: refusing it returns to
    // the dialog with the component untouched, accepting saves.
    void massiveCollectionWarns()
    {
        QFETCH(QString, hud);
        QFETCH(QString, rows);
        QFETCH(QString, columns);
        QFETCH(QString, horizontal);
        QFETCH(QString, vertical);
        QFETCH(QString, text);
        const QString id = hud == "Bar" ? "11111" : "44444";
        const QJsonObject before{{"ID", 1},
                                 {"Type", 11},
                                 {"CustomCollectionData", QJsonObject{{"ID", id}, {"MaxRows", 1}, {"MaxColumns", 1}}}};
        const QList<Answer> fill{typing("MaxRows", rows), typing("MaxColumns", columns),
                                 typing("HorizontalSpacing", horizontal), typing("VerticalSpacing", vertical)};
        Warning warning;
        auto reading = [&warning](bool save) {
            return [&warning, save](TrovDialog* question) {
                warning.title = question->windowTitle();
                warning.text = child<QLabel>(question, "label")->text();
                press(save ? "confirmButton" : "cancelButton")(question);
            };
        };
        if (text.isEmpty()) {
            const QJsonObject written = runDialog(before, fill + QList<Answer>{press("confirmButton")});
            QCOMPARE(dataOf(written, "CustomCollectionData").value("MaxRows"), QJsonValue(rows.toInt()));
            return;
        }
        // Refused: the property dialog is still there, and cancelled.
        bool stillOpen = false;
        QJsonObject written = runDialog(before, fill + QList<Answer>{press("confirmButton"), reading(false),
                                                                     [&stillOpen](TrovDialog* dialog) {
                                                                         stillOpen = dialog->isVisible();
                                                                         press("cancelButton")(dialog);
                                                                     }});
        QVERIFY(written.isEmpty());
        QVERIFY(stillOpen);
        QCOMPARE(warning.title, QStringLiteral("Warning: Massive Collection"));
        QCOMPARE(warning.text, text);
        // Accepted: saved as typed.
        warning = Warning();
        written = runDialog(before, fill + QList<Answer>{press("confirmButton"), reading(true)});
        QCOMPARE(warning.text, text);
        const QJsonObject data = dataOf(written, "CustomCollectionData");
        QCOMPARE(data.value("MaxRows"), QJsonValue(rows.toInt()));
        QCOMPARE(data.value("MaxColumns"), QJsonValue(columns.toInt()));
        QCOMPARE(data.value("HorizontalSpacing"), QJsonValue(horizontal.toInt()));
    }

    // ------------------------------------------------------------ deleting a used HUD

    // Deleting a custom HUD that other HUDs use names them first, whether the
    // use is at the top or deep inside groups and windows; refusing keeps
    // it. An unused one asks the usual question.
    void deletingAUsedHudNamesItsUsers()
    {
        HudCatalog::setSource(nullptr);
        const QJsonObject nested = json(R"({"ID":1,"Type":6,"Name":"Outer","X":0,"Y":0,"Children":[
            {"ID":2,"Type":7,"Name":"Panel","X":0,"Y":0,"WindowData":{"Width":100,"Height":100},"Children":[
              {"ID":3,"Type":10,"Name":"Deep use","X":0,"Y":0,"CustomData":{"ID":"11111","Params":{}}}]}]})");
        const QJsonObject attached = json(R"({"ID":1,"Type":12,"Name":"Tags","X":0,"Y":0,
            "AttachCollectionData":{"ID":"11111","Data":0,"List":0,"Position":1}})");
        const QJsonObject selfUse = json(R"({"ID":1,"Type":11,"Name":"Self","X":0,"Y":0,
            "CustomCollectionData":{"ID":"11111"}})");
        const QJsonArray data{
            QJsonObject{{"HUD", QJsonArray{nested}}},
            QJsonObject{{"HUD", QJsonArray()}},
            QJsonObject{{"Name", "Bar"}, {"ID", "11111"}, {"IsHUD", false}, {"Width", 240}, {"Height", 64},
                        {"HUD", QJsonArray{selfUse}}},
            QJsonObject{{"Name", "Tag <b>Row</b>"}, {"ID", "22222"}, {"IsHUD", false}, {"Width", 50},
                        {"Height", 20}, {"HUD", QJsonArray{attached}}},
            QJsonObject{{"Name", "Free"}, {"ID", "33333"}, {"IsHUD", true}, {"HUD", QJsonArray()}}};
        const QString project = TestEnvironment::makeProject(QStringLiteral("inuse"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project),
                                   QJsonDocument(QJsonObject{{"Map", 0}, {"Battle", 1}, {"Data", data}}).toJson());
        openWindow(project);
        QCOMPARE(rowNames(), QStringList({"Map HUD", "Battle HUD", "Bar", "Tag <b>Row</b>", "Free"}));
        QPushButton* remove = window->findChild<QPushButton*>(QStringLiteral("removeHudButton"));
        auto select = [this](int row) {
            UltimateTreeItem* item = list()->row(row);
            QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier,
                              list()->mapFromScene(QPointF(60, item->y() + item->rowHeight() / 2.0)));
        };

        select(2);
        TestEnvironment::Seen seen =
            answering([&] { QTest::mouseClick(remove, Qt::LeftButton); }, {press("cancelButton")});
        QCOMPARE(seen.count, 1);
        QCOMPARE(seen.title, QStringLiteral("Custom HUD In Use"));
        QCOMPARE(seen.text, QStringLiteral("\"Bar\" is still used by these HUDs:<br>\u2022 Map HUD<br>\u2022 Tag "
                                           "&lt;b&gt;Row&lt;/b&gt;<br>Their components will show an empty box in "
                                           "its place. Delete it anyway?"));
        QCOMPARE(list()->rowCount(), 5);
        // Cutting it asks the same, and refusing keeps it off the clipboard.
        QApplication::clipboard()->clear();
        seen = answering([&] { window->hudListWidget()->cutCurrentItem(); }, {press("cancelButton")});
        QCOMPARE(seen.title, QStringLiteral("Custom HUD In Use"));
        QCOMPARE(list()->rowCount(), 5);
        QVERIFY(QApplication::clipboard()->text().isEmpty());

        seen = answering([&] { QTest::mouseClick(remove, Qt::LeftButton); }, {press("confirmButton")});
        QCOMPARE(seen.count, 1);
        QCOMPARE(rowNames(), QStringList({"Map HUD", "Battle HUD", "Tag <b>Row</b>", "Free"}));

        select(3);
        seen = answering([&] { QTest::mouseClick(remove, Qt::LeftButton); }, {press("cancelButton")});
        QCOMPARE(seen.title, QStringLiteral("HUD Delete Confirmation"));
        QCOMPARE(list()->rowCount(), 4);
    }
};

VELMORA_TEST_MAIN(TestCustomDialogs, QApplication)
#include "tst_customdialogs.moc"
