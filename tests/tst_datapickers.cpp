#include "TestEnvironment.h"

#include "logic/GameDataLabel.h"
#include "logic/GameDataList.h"
#include "logic/RMActorSelector.h"
#include "logic/RMCodeInput.h"
#include "logic/RMDatabaseItemSelector.h"
#include "logic/SwitchSelector.h"
#include "logic/VelmoAnimationStyle.h"
#include "logic/VelmoTextInputExtend.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/HaxeCodeEdit.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyTabSystem.h"
#include "widgets/MyTabSystemHeader.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QVBoxLayout>

using TestEnvironment::answering;
using TestEnvironment::press;
using TestEnvironment::rowTexts;

namespace {

// A names array as "System.json" holds them: index 0 empty, then the names.
QJsonArray systemNames(int size, const QString& prefix)
{
    QJsonArray names{QString()};
    for (int i = 1; i < size; ++i)
        names.append(QStringLiteral("%1 %2").arg(prefix).arg(i));
    return names;
}

QJsonObject systemWith(int switchArraySize, int variableArraySize)
{
    return QJsonObject{{"switches", systemNames(switchArraySize, QStringLiteral("Switch"))},
                       {"variables", systemNames(variableArraySize, QStringLiteral("Var"))}};
}

// A database file of records "prefix 1" and so on, entry 0 null.
QJsonArray records(int size, const QString& prefix)
{
    QJsonArray all{QJsonValue()};
    for (int i = 1; i < size; ++i)
        all.append(QJsonObject{{"id", i}, {"name", QStringLiteral("%1 %2").arg(prefix).arg(i)}});
    return all;
}

QString currentText(UltimateTreeWidget* list)
{
    const UltimateTreeItem* row = list->tree()->currentRow();
    return row ? row->text(0) : QString();
}

// Clicks (or double-clicks) the row showing text.
void clickRow(UltimateTreeWidget* list, const QString& text, bool twice = false)
{
    const int index = rowTexts(list).indexOf(text);
    QVERIFY2(index >= 0, qPrintable(text));
    TestEnvironment::clickRow(list, index, twice);
}

// Whether the row stands whole in the list's viewport.
bool rowVisible(UltimateTreeWidget* list, const UltimateTreeItem* row)
{
    const UltimateTree* tree = list->tree();
    const QRectF shown = tree->mapToScene(tree->viewport()->rect()).boundingRect();
    return row && shown.contains(row->sceneBoundingRect());
}

void showDialog(QDialog* dialog)
{
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    // The size fix settles a millisecond after the show.
    QTest::qWait(20);
}

// Clicks the tab of a type on a dialog's one-row tab header.
void clickTab(TypeTabDialog* dialog, int index)
{
    MyTabSystemHeader* header = dialog->tabs()->header();
    QTest::mouseClick(header, Qt::LeftButton, Qt::NoModifier, header->tabRect(index).center());
    QTRY_COMPARE(dialog->currentType(), index);
}

void eraseFilter(MyLineEdit* field)
{
    while (!field->text().isEmpty())
        QTest::keyClick(field, Qt::Key_Backspace);
}

}

class TestDataPickers : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        UIComponentBaseDialog::openConditions = nullptr;
        VelmoTextInputExtend::install(nullptr);
    }

    // Groups of twenty: 50 entries give two, the rest left out; id 20 ends
    // the first. Another group by a click, an entry by a double click: the
    // id is stored.
    void switchChosenWithTheMouse()
    {
        QJsonObject projectData{{"System.json", systemWith(50, 50)}};
        int id = 20;
        bool accepted = true;
        SwitchSelector dialog(&id, &accepted, &projectData, false, nullptr);
        QVERIFY(!accepted);
        QCOMPARE(rowTexts(dialog.groupList()), (QStringList{"[0001 - 0020]", "[0021 - 0040]"}));
        QCOMPARE(currentText(dialog.entryList()), QStringLiteral("[0020] Var 20"));
        showDialog(&dialog);
        clickRow(dialog.groupList(), QStringLiteral("[0021 - 0040]"));
        QCOMPARE(dialog.entryList()->tree()->rowCount(), 20);
        clickRow(dialog.entryList(), QStringLiteral("[0037] Var 37"), true);
        QVERIFY(accepted);
        QCOMPARE(id, 37);
    }

    // The filter finds entries of every group; clearing it returns to the
    // groups, on the group of the entry chosen meanwhile.
    void switchFilterAcrossGroups()
    {
        QJsonObject projectData{{"System.json", systemWith(101, 101)}};
        int id = 5;
        bool accepted = false;
        SwitchSelector dialog(&id, &accepted, &projectData, true, nullptr);
        showDialog(&dialog);
        // Names in any case: 7 and 70 to 79.
        QTest::keyClicks(dialog.filterField(), QStringLiteral("SWITCH 7"));
        QCOMPARE(dialog.entryList()->tree()->rowCount(), 11);
        clickRow(dialog.entryList(), QStringLiteral("[0077] Switch 77"));
        eraseFilter(dialog.filterField());
        QCOMPARE(currentText(dialog.groupList()), QStringLiteral("[0061 - 0080]"));
        QCOMPARE(currentText(dialog.entryList()), QStringLiteral("[0077] Switch 77"));
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QCOMPARE(id, 77);
    }

    // Opens on the current record, a double click picks one.
    void databaseSelector()
    {
        QJsonObject projectData{{"Items.json", records(30, QStringLiteral("Potion"))}};
        int id = 12;
        bool accepted = false;
        RMDatabaseItemSelector dialog(&id, &accepted, &projectData, "Items.json", "Item", nullptr);
        QCOMPARE(currentText(dialog.list()), QStringLiteral("0012 Potion 12"));
        showDialog(&dialog);
        clickRow(dialog.list(), QStringLiteral("0025 Potion 25"), true);
        QVERIFY(accepted);
        QCOMPARE(id, 25);
    }

    // Null entries, entries without a name or with a name of the wrong
    // kind, a file that isn't an array, a file that isn't there: names are
    // empty, the ids still show.
    void damagedDatabase()
    {
        QJsonArray actors{QJsonValue(), QJsonObject{{"name", "Harold"}}, QJsonValue(),
                          QJsonObject{{"nickname", "no name"}}, QJsonObject{{"name", 42}}, QStringLiteral("text")};
        QJsonObject projectData{{"Actors.json", actors},
                                {"Items.json", QJsonObject{{"name", "not an array"}}},
                                {"System.json", QJsonObject{{"switches", QJsonArray{QJsonValue(), 5, QJsonValue()}}}}};
        int id = 3;
        bool accepted = false;
        RMDatabaseItemSelector dialog(&id, &accepted, &projectData, "Actors.json", "Actor", nullptr);
        QCOMPARE(rowTexts(dialog.list()), (QStringList{"0001 Harold", "0002 ", "0003 ", "0004 ", "0005 "}));
        QCOMPARE(currentText(dialog.list()), QStringLiteral("0003 "));
        for (const char* file : {"Items.json", "Weapons.json"}) {
            RMDatabaseItemSelector empty(&id, &accepted, &projectData, file, "Thing", nullptr);
            QCOMPARE(empty.list()->tree()->rowCount(), 0);
        }
        QCOMPARE(GameDataLabel::databaseEntry(&projectData, "Actors.json", 99), QStringLiteral("[0099] "));
        QCOMPARE(GameDataLabel::databaseEntry(nullptr, "Actors.json", 1), QStringLiteral("[0001] "));
        QCOMPARE(GameDataLabel::switchEntry(&projectData, 1), QStringLiteral("[0001] "));
    }

    // Ten thousand entries: the picker opens on the current one in view; the
    // filter matches ids as the rows show them, and the list is whole and in
    // order again as each key of it goes, the chosen row chosen again.
    void databaseFilterOnALargeProject()
    {
        QJsonObject projectData{{"Classes.json", records(10001, QStringLiteral("Class"))}};
        int id = 9876;
        bool accepted = false;
        RMDatabaseItemSelector classes(&id, &accepted, &projectData, "Classes.json", "Class", nullptr);
        showDialog(&classes);
        QVERIFY(rowVisible(classes.list(), classes.list()->tree()->currentRow()));
        QTest::keyClicks(classes.filterField(), QStringLiteral("class 999"));
        QCOMPARE(classes.list()->tree()->rowCount(), 11);
        QCOMPARE(classes.list()->tree()->currentRow(), nullptr);
        // "class 99" matches 99, 990 to 999 and 9900 to 9999.
        QTest::keyClick(classes.filterField(), Qt::Key_Backspace);
        QCOMPARE(classes.list()->tree()->rowCount(), 111);
        eraseFilter(classes.filterField());
        const QStringList all = rowTexts(classes.list());
        QCOMPARE(all.at(4999), QStringLiteral("5000 Class 5000"));
        QCOMPARE(all.last(), QStringLiteral("10000 Class 10000"));
        QCOMPARE(currentText(classes.list()), QStringLiteral("9876 Class 9876"));
        QVERIFY(rowVisible(classes.list(), classes.list()->tree()->currentRow()));
        QTest::keyClicks(classes.filterField(), QStringLiteral("0044"));
        clickRow(classes.list(), QStringLiteral("0044 Class 44"));
        QTest::mouseClick(classes.confirmButton(), Qt::LeftButton);
        QCOMPARE(id, 44);
    }

    void codeInput()
    {
        QString code = QStringLiteral("const a = 1;\nreturn a;");
        bool accepted = false;
        int sizeIndex = 0;
        RMCodeInput dialog(&code, &accepted, &sizeIndex, nullptr);
        showDialog(&dialog);
        QTest::keyClicks(dialog.editor(), QStringLiteral(" // two"));
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QCOMPARE(code, QStringLiteral("const a = 1;\nreturn a; // two"));
        QCOMPARE(RMCodeInput::singleLine(code), QStringLiteral("const a = 1; \u23CE return a; // two"));
        QCOMPARE(RMCodeInput::singleLine(QStringLiteral("a\r\nb")), QStringLiteral("a \u23CE b"));
    }

    // A field made dynamic through its menu entry: the code tab starts on a
    // text's default code and the object goes back in when reopened.
    // "Normalize" takes the value away: the field shows what it showed
    // before, or its default when it was empty.
    void extensionMadeAndNormalized()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        MyLineEdit* named = new MyLineEdit(&window);
        MyLineEdit* empty = new MyLineEdit(&window);
        for (MyLineEdit* field : {named, empty}) {
            layout.addWidget(field);
            field->setInputType(MyLineEdit::Text);
            field->setExtendable(QStringLiteral("Hero"), 0, &window);
        }
        named->setValue(QStringLiteral("Gold"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QString code = QStringLiteral("return \"\";");
        for (MyLineEdit* field : {named, empty}) {
            answering([&] { field->openExtendDialog(); },
                      {[&](TrovDialog* dialog) {
                           auto* extend = qobject_cast<VelmoTextInputExtend*>(dialog);
                           clickTab(extend, 2);
                           QCOMPARE(extend->code()->value(), code);
                           QTest::mouseClick(extend->confirmButton(), Qt::LeftButton);
                       }});
            QCOMPARE(field->toJson().toObject(), (QJsonObject{{"Type", 2}, {"Code", code}}));
            answering([&] { field->openExtendDialog(); },
                      {[&](TrovDialog* dialog) {
                           QCOMPARE(qobject_cast<VelmoTextInputExtend*>(dialog)->currentType(), 2);
                           press("normalizeButton")(dialog);
                       }});
            QVERIFY(!field->isExtended());
        }
        QCOMPARE(named->toJson(), QJsonValue("Gold"));
        QCOMPARE(empty->toJson(), QJsonValue("Hero"));
    }

    // The variable of a dynamic value comes from the variable selector.
    void extensionVariable()
    {
        QJsonObject projectData{{"System.json", systemWith(41, 41)}};
        QJsonObject object{{"Type", 1}, {"ID", 33}};
        bool accepted = false;
        bool removed = true;
        VelmoTextInputExtend dialog(&object, &accepted, &removed, &projectData, true, nullptr);
        showDialog(&dialog);
        answering([&] { QTest::mouseClick(dialog.variable(), Qt::LeftButton); },
                  {[&](TrovDialog* selector) {
                       auto* variables = qobject_cast<SwitchSelector*>(selector);
                       QCOMPARE(currentText(variables->entryList()), QStringLiteral("[0033] Var 33"));
                       clickRow(variables->entryList(), QStringLiteral("[0038] Var 38"), true);
                   }});
        QVERIFY(!accepted);
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QVERIFY(!removed);
        QCOMPARE(object, (QJsonObject{{"Type", 1}, {"ID", 38}}));
    }

    // Whatever keys the object brings, confirming writes the type of the
    // tab and that tab's key, nothing else.
    void runTypeConfirmWritesItsTab_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QJsonObject>("expected");
        QTest::newRow("Basic") << 0 << QJsonObject{{"Type", 0}, {"RunType", 1}};
        QTest::newRow("Switch") << 1 << QJsonObject{{"Type", 1}, {"ID", 1}};
        QTest::newRow("Code") << 2 << QJsonObject{{"Type", 2}, {"Code", "return false;"}};
        QTest::newRow("Other") << 3 << QJsonObject{{"Type", 3}, {"Conditions", QJsonArray()}};
    }

    void runTypeConfirmWritesItsTab()
    {
        QFETCH(int, tab);
        QFETCH(QJsonObject, expected);
        // The object is of another kind, so each tab starts with its default.
        QJsonObject object{{"Type", 9}, {"RunType", 3}, {"ID", 40}, {"Code", "x"}, {"Extra", true}};
        bool accepted = false;
        VelmoAnimationStyle dialog(&object, &accepted, nullptr, nullptr);
        showDialog(&dialog);
        if (tab != 0)
            clickTab(&dialog, tab);
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QCOMPARE(object, expected);
    }

    // Stored styles open on their tab and come back unchanged; without the
    // condition hooks the "Other" opener leaves the list alone.
    void runTypeRoundTrip()
    {
        QJsonObject projectData{{"System.json", systemWith(21, 21)}};
        const QJsonArray three{QJsonObject{{"Type", 0}}, QJsonObject{{"Type", 5}}, QJsonObject{{"Type", 9}}};
        for (const QJsonObject& stored : {QJsonObject{{"Type", 0}, {"RunType", 3}}, QJsonObject{{"Type", 1}, {"ID", 4}},
                                          QJsonObject{{"Type", 3}, {"Conditions", three}}}) {
            QJsonObject object = stored;
            bool accepted = false;
            VelmoAnimationStyle dialog(&object, &accepted, &projectData, nullptr);
            QCOMPARE(dialog.currentType(), stored.value("Type").toInt());
            showDialog(&dialog);
            if (dialog.currentType() == 3)
                QTest::mouseClick(dialog.other(), Qt::LeftButton);
            QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
            QCOMPARE(object, stored);
        }
    }

    // The actor by the database picker, by a party position typed in; each
    // confirm writes its tab's key only.
    void actorSelector()
    {
        QJsonObject projectData{{"Actors.json", records(9, QStringLiteral("Hero"))},
                                {"System.json", systemWith(21, 21)}};
        QJsonObject object{{"Type", 0}, {"ID", 2}, {"Index", 3}};
        bool accepted = false;
        RMActorSelector dialog(&object, &accepted, &projectData, nullptr);
        showDialog(&dialog);
        answering([&] { QTest::mouseClick(dialog.databaseActors(), Qt::LeftButton); },
                  {[&](TrovDialog* selector) {
                       auto* actors = qobject_cast<RMDatabaseItemSelector*>(selector);
                       QCOMPARE(currentText(actors->list()), QStringLiteral("0002 Hero 2"));
                       clickRow(actors->list(), QStringLiteral("0006 Hero 6"), true);
                   }});
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QCOMPARE(object, (QJsonObject{{"Type", 0}, {"ID", 6}}));

        RMActorSelector party(&object, &accepted, &projectData, nullptr);
        showDialog(&party);
        clickTab(&party, 1);
        party.partyIndex()->setFocus();
        party.partyIndex()->selectAll();
        QTest::keyClicks(party.partyIndex(), QStringLiteral("50"));
        accepted = false;
        QTest::mouseClick(party.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QCOMPARE(object, (QJsonObject{{"Type", 1}, {"Index", 50}}));
    }
};

VELMORA_TEST_MAIN(TestDataPickers, QApplication)
#include "tst_datapickers.moc"
