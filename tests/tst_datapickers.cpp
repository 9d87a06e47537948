#include "TestEnvironment.h"

#include "logic/GameDataLabel.h"
#include "logic/GameDataList.h"
#include "logic/RMActorSelector.h"
#include "logic/RMCodeInput.h"
#include "logic/RMConditionList.h"
#include "logic/RMDatabaseItemSelector.h"
#include "logic/SwitchSelector.h"
#include "logic/VelmoAnimationStyle.h"
#include "logic/VelmoTextInputExtend.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/HaxeCodeEdit.h"
#include "widgets/MyButton.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyPopup.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyTabSystem.h"
#include "widgets/MyTabSystemHeader.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

using TestEnvironment::answering;
using TestEnvironment::press;

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

QStringList texts(UltimateTreeWidget* list)
{
    QStringList all;
    for (int i = 0; i < list->tree()->rowCount(); ++i)
        all.append(list->tree()->row(i)->text(0));
    return all;
}

QString currentText(UltimateTreeWidget* list)
{
    const UltimateTreeItem* row = list->tree()->currentRow();
    return row ? row->text(0) : QString();
}

UltimateTreeItem* rowNamed(UltimateTreeWidget* list, const QString& text)
{
    for (int i = 0; i < list->tree()->rowCount(); ++i) {
        if (list->tree()->row(i)->text(0) == text)
            return list->tree()->row(i);
    }
    return nullptr;
}

// Clicks (or double-clicks) the middle of a row's text.
void clickRow(UltimateTreeWidget* list, const QString& text, bool twice = false)
{
    UltimateTreeItem* row = rowNamed(list, text);
    QVERIFY2(row, qPrintable(text));
    list->ensureRowVisible(row);
    const QPoint at = list->tree()->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0));
    if (twice)
        QTest::mouseDClick(list->tree()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    else
        QTest::mouseClick(list->tree()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
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

// Runs the code input, for the class whose size it remembers, and returns
// the size it opened with; sizeClicks clicks the size button first.
QSize openCodeInput(int* sizeIndex, int sizeClicks, int screenHeight = 0)
{
    QString code = QStringLiteral("return 1;");
    bool accepted = false;
    RMCodeInput dialog(&code, &accepted, sizeIndex, nullptr);
    if (screenHeight > 0)
        dialog.setScreenFit(true, screenHeight);
    showDialog(&dialog);
    const QSize opened = dialog.size();
    for (int i = 0; i < sizeClicks; ++i)
        QTest::mouseClick(dialog.sizeToggle(), Qt::LeftButton);
    dialog.reject();
    return opened;
}

// The size a dialog of the code input has for an index: the system's title
// bar, where it is used, stands in for the form's.
QSize shownSize(int index, const RMCodeInput& dialog)
{
    return RMCodeInput::sizeAt(index) - QSize(0, dialog.usesNativeTitleBar() ? 30 : 0);
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

    // The groups of twenty: how many an array gives, which one opens, and
    // what its rows read.
    void switchGroups_data()
    {
        QTest::addColumn<int>("arraySize");
        QTest::addColumn<int>("id");
        QTest::addColumn<QStringList>("groups");
        QTest::addColumn<QString>("openGroup");
        QTest::addColumn<QString>("openEntry");
        QTest::newRow("21 entries, one group") << 21 << 5 << QStringList{"[0001 - 0020]"} << "[0001 - 0020]"
                                               << "[0005] Switch 5";
        QTest::newRow("41 entries, id 21") << 41 << 21 << QStringList{"[0001 - 0020]", "[0021 - 0040]"}
                                           << "[0021 - 0040]" << "[0021] Switch 21";
        QTest::newRow("50 entries, the rest left out")
            << 50 << 40 << QStringList{"[0001 - 0020]", "[0021 - 0040]"} << "[0021 - 0040]" << "[0040] Switch 40";
        QTest::newRow("id 20 ends the first group") << 41 << 20 << QStringList{"[0001 - 0020]", "[0021 - 0040]"}
                                                    << "[0001 - 0020]" << "[0020] Switch 20";
    }

    void switchGroups()
    {
        QFETCH(int, arraySize);
        QFETCH(int, id);
        QFETCH(QStringList, groups);
        QFETCH(QString, openGroup);
        QFETCH(QString, openEntry);
        QJsonObject projectData{{"System.json", systemWith(arraySize, 21)}};
        bool accepted = true;
        SwitchSelector dialog(&id, &accepted, &projectData, true, nullptr);
        QVERIFY(!accepted);
        QCOMPARE(texts(dialog.groupList()), groups);
        QCOMPARE(currentText(dialog.groupList()), openGroup);
        QCOMPARE(currentText(dialog.entryList()), openEntry);
        QCOMPARE(dialog.entryList()->tree()->rowCount(), 20);
    }

    void switchSelectorWithoutSystemData()
    {
        for (QJsonObject projectData : {QJsonObject(), QJsonObject{{"System.json", QJsonArray{1, 2}}},
                                        QJsonObject{{"System.json", QJsonObject{{"variables", "none"}}}}}) {
            int id = 7;
            bool accepted = false;
            SwitchSelector dialog(&id, &accepted, &projectData, false, nullptr);
            QCOMPARE(dialog.groupList()->tree()->rowCount(), 0);
            QCOMPARE(dialog.entryList()->tree()->rowCount(), 0);
            showDialog(&dialog);
            QTest::keyClicks(dialog.filterField(), QStringLiteral("1"));
            QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
            QVERIFY(accepted);
            QCOMPARE(id, 7);
        }
        int id = 3;
        bool accepted = false;
        SwitchSelector nothing(&id, &accepted, nullptr, true, nullptr);
        QCOMPARE(nothing.groupList()->tree()->rowCount(), 0);
    }

    // Another group by a click, an entry by a double click: the id is
    // stored and the dialog closes.
    void switchChosenWithTheMouse()
    {
        QJsonObject projectData{{"System.json", systemWith(61, 61)}};
        int id = 3;
        bool accepted = false;
        SwitchSelector dialog(&id, &accepted, &projectData, false, nullptr);
        showDialog(&dialog);
        clickRow(dialog.groupList(), QStringLiteral("[0041 - 0060]"));
        QCOMPARE(dialog.entryList()->tree()->currentRow(), nullptr);
        clickRow(dialog.entryList(), QStringLiteral("[0057] Var 57"), true);
        QVERIFY(accepted);
        QCOMPARE(id, 57);
        QVERIFY(!dialog.isVisible());

        // Cancel keeps the id.
        accepted = false;
        SwitchSelector again(&id, &accepted, &projectData, false, nullptr);
        showDialog(&again);
        clickRow(again.entryList(), QStringLiteral("[0044] Var 44"));
        QTest::mouseClick(again.cancelButton(), Qt::LeftButton);
        QVERIFY(!accepted);
        QCOMPARE(id, 57);
    }

    // The filter finds entries of every group; clearing it returns to the
    // groups, on the group of the entry chosen meanwhile.
    void switchFilterAcrossGroups()
    {
        QJsonObject system = systemWith(101, 101);
        QJsonArray switches = system.value("switches").toArray();
        switches[12] = QStringLiteral("Door Open");
        switches[77] = QStringLiteral("Back door OPEN");
        system.insert("switches", switches);
        QJsonObject projectData{{"System.json", system}};
        int id = 5;
        bool accepted = false;
        SwitchSelector dialog(&id, &accepted, &projectData, true, nullptr);
        showDialog(&dialog);

        QTest::keyClicks(dialog.filterField(), QStringLiteral("door"));
        QCOMPARE(texts(dialog.entryList()), (QStringList{"[0012] Door Open", "[0077] Back door OPEN"}));
        QCOMPARE(dialog.groupList()->tree()->currentRow(), nullptr);
        clickRow(dialog.entryList(), QStringLiteral("[0077] Back door OPEN"));

        eraseFilter(dialog.filterField());
        QCOMPARE(currentText(dialog.groupList()), QStringLiteral("[0061 - 0080]"));
        QCOMPARE(dialog.entryList()->tree()->rowCount(), 20);
        QCOMPARE(currentText(dialog.entryList()), QStringLiteral("[0077] Back door OPEN"));

        // By id: the number as the rows show it.
        QTest::keyClicks(dialog.filterField(), QStringLiteral("009"));
        const QStringList byId = texts(dialog.entryList());
        QCOMPARE(byId.size(), 11);
        QCOMPARE(byId.first(), QStringLiteral("[0009] Switch 9"));
        QCOMPARE(byId.last(), QStringLiteral("[0099] Switch 99"));
        clickRow(dialog.entryList(), QStringLiteral("[0093] Switch 93"));
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QCOMPARE(id, 93);
    }

    void databaseSelector()
    {
        QJsonObject projectData{{"Items.json", records(30, QStringLiteral("Potion"))}};
        int id = 12;
        bool accepted = false;
        RMDatabaseItemSelector dialog(&id, &accepted, &projectData, "Items.json", "Item", nullptr);
        QCOMPARE(dialog.list()->tree()->rowCount(), 29);
        QCOMPARE(texts(dialog.list()).first(), QStringLiteral("0001 Potion 1"));
        QCOMPARE(currentText(dialog.list()), QStringLiteral("0012 Potion 12"));
        showDialog(&dialog);
        clickRow(dialog.list(), QStringLiteral("0025 Potion 25"), true);
        QVERIFY(accepted);
        QCOMPARE(id, 25);

        // An id past the end selects nothing, and confirming gives the first.
        id = 400;
        accepted = false;
        RMDatabaseItemSelector beyond(&id, &accepted, &projectData, "Items.json", "Item", nullptr);
        QCOMPARE(beyond.list()->tree()->currentRow(), nullptr);
        showDialog(&beyond);
        QTest::mouseClick(beyond.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QCOMPARE(id, 1);
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
        QCOMPARE(texts(dialog.list()),
                 (QStringList{"0001 Harold", "0002 ", "0003 ", "0004 ", "0005 "}));
        QCOMPARE(currentText(dialog.list()), QStringLiteral("0003 "));

        for (const char* file : {"Items.json", "Weapons.json"}) {
            RMDatabaseItemSelector empty(&id, &accepted, &projectData, file, "Thing", nullptr);
            QCOMPARE(empty.list()->tree()->rowCount(), 0);
        }
        QCOMPARE(GameDataLabel::databaseEntry(&projectData, "Actors.json", 1), QStringLiteral("[0001] Harold"));
        QCOMPARE(GameDataLabel::databaseEntry(&projectData, "Actors.json", 99), QStringLiteral("[0099] "));
        QCOMPARE(GameDataLabel::databaseEntry(&projectData, "Items.json", 1), QStringLiteral("[0001] "));
        QCOMPARE(GameDataLabel::databaseEntry(nullptr, "Actors.json", 1), QStringLiteral("[0001] "));
        QCOMPARE(GameDataLabel::switchEntry(&projectData, 1), QStringLiteral("[0001] "));
        QCOMPARE(GameDataLabel::variableEntry(&projectData, 1), QStringLiteral("[0001] "));
    }

    void databaseFilter()
    {
        QJsonArray actors = records(60, QStringLiteral("Guard"));
        actors[7] = QJsonObject{{"name", "Harold"}};
        actors[44] = QJsonObject{{"name", "Old Harold"}};
        QJsonObject projectData{{"Actors.json", actors}};
        int id = 7;
        bool accepted = false;
        RMDatabaseItemSelector dialog(&id, &accepted, &projectData, "Actors.json", "Actor", nullptr);
        showDialog(&dialog);
        QTest::keyClicks(dialog.filterField(), QStringLiteral("HAR"));
        QCOMPARE(texts(dialog.list()), (QStringList{"0007 Harold", "0044 Old Harold"}));
        QCOMPARE(currentText(dialog.list()), QStringLiteral("0007 Harold"));
        eraseFilter(dialog.filterField());
        QTest::keyClicks(dialog.filterField(), QStringLiteral("0044"));
        QCOMPARE(texts(dialog.list()), QStringList{"0044 Old Harold"});
        // The chosen row was filtered away: nothing is chosen, confirm gives 1.
        QCOMPARE(dialog.list()->tree()->currentRow(), nullptr);
        QTest::keyClicks(dialog.filterField(), QStringLiteral("x"));
        QCOMPARE(dialog.list()->tree()->rowCount(), 0);
        eraseFilter(dialog.filterField());
        QCOMPARE(dialog.list()->tree()->rowCount(), 59);
        QCOMPARE(currentText(dialog.list()), QStringLiteral("0007 Harold"));
        clickRow(dialog.list(), QStringLiteral("0050 Guard 50"));
        QTest::keyClicks(dialog.filterField(), QStringLiteral("5"));
        QCOMPARE(currentText(dialog.list()), QStringLiteral("0050 Guard 50"));
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QCOMPARE(id, 50);
    }

    // Ten thousand entries: the pickers open on the current one in view, and
    // the list is whole and in order as soon as each key of a filter is in.
    void largeProject()
    {
        QJsonObject projectData{{"Classes.json", records(10001, QStringLiteral("Class"))},
                                {"System.json", systemWith(10001, 10001)}};
        int id = 9876;
        bool accepted = false;
        RMDatabaseItemSelector classes(&id, &accepted, &projectData, "Classes.json", "Class", nullptr);
        QCOMPARE(classes.list()->tree()->rowCount(), 10000);
        showDialog(&classes);
        QCOMPARE(currentText(classes.list()), QStringLiteral("9876 Class 9876"));
        QVERIFY(rowVisible(classes.list(), classes.list()->tree()->currentRow()));

        QTest::keyClicks(classes.filterField(), QStringLiteral("class 999"));
        QCOMPARE(texts(classes.list()),
                 (QStringList{"0999 Class 999", "9990 Class 9990", "9991 Class 9991", "9992 Class 9992",
                              "9993 Class 9993", "9994 Class 9994", "9995 Class 9995", "9996 Class 9996",
                              "9997 Class 9997", "9998 Class 9998", "9999 Class 9999"}));
        // Back to all, a key at a time: "class 99" matches 99, 990 to 999
        // and 9900 to 9999, "class 9" a tenth and a bit, "class " all.
        const int expected[] = {111, 1111, 10000, 10000, 10000, 10000, 10000, 10000, 10000};
        for (int i = 0; i < 9; ++i) {
            QTest::keyClick(classes.filterField(), Qt::Key_Backspace);
            QCOMPARE(classes.list()->tree()->rowCount(), expected[i]);
        }
        const QStringList all = texts(classes.list());
        QCOMPARE(all.at(4999), QStringLiteral("5000 Class 5000"));
        QCOMPARE(all.last(), QStringLiteral("10000 Class 10000"));
        QCOMPARE(currentText(classes.list()), QStringLiteral("9876 Class 9876"));
        QVERIFY(rowVisible(classes.list(), classes.list()->tree()->currentRow()));

        SwitchSelector variables(&id, &accepted, &projectData, false, nullptr);
        showDialog(&variables);
        QCOMPARE(currentText(variables.groupList()), QStringLiteral("[9861 - 9880]"));
        QVERIFY(rowVisible(variables.groupList(), variables.groupList()->tree()->currentRow()));
        QCOMPARE(currentText(variables.entryList()), QStringLiteral("[9876] Var 9876"));
        QVERIFY(rowVisible(variables.entryList(), variables.entryList()->tree()->currentRow()));
    }

    void codeInput()
    {
        QString code = QStringLiteral("const a = 1;\nreturn a;");
        bool accepted = false;
        int sizeIndex = 0;
        RMCodeInput dialog(&code, &accepted, &sizeIndex, nullptr);
        QCOMPARE(dialog.editor()->toPlainText(), code);
        showDialog(&dialog);
        QTest::keyClicks(dialog.editor(), QStringLiteral(" // two"));
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QCOMPARE(code, QStringLiteral("const a = 1;\nreturn a; // two"));
        QCOMPARE(RMCodeInput::singleLine(code), QStringLiteral("const a = 1; \u23CE return a; // two"));
        QCOMPARE(RMCodeInput::singleLine(QStringLiteral("a\r\nb")), QStringLiteral("a \u23CE b"));
    }

    // The size button runs through the four sizes; the next opening from
    // the same class starts at the last one, another class at its own.
    void codeInputSizes()
    {
        QString code;
        bool accepted = false;
        int* first = RMCodeInput::sizeIndexOf(&VelmoTextInputExtend::staticMetaObject);
        int* second = RMCodeInput::sizeIndexOf(&VelmoAnimationStyle::staticMetaObject);
        QCOMPARE(*first, 0);
        QCOMPARE(*second, 0);
        {
            RMCodeInput dialog(&code, &accepted, first, nullptr);
            showDialog(&dialog);
            QCOMPARE(dialog.size(), shownSize(0, dialog));
            const char* names[] = {"Medium", "Large", "Massive", "Small", "Medium"};
            for (int i = 0; i < 5; ++i) {
                QTest::mouseClick(dialog.sizeToggle(), Qt::LeftButton);
                QCOMPARE(dialog.sizeToggle()->text(), QLatin1String(names[i]));
                QCOMPARE(dialog.size(), shownSize((i + 1) % 4, dialog));
            }
            QCOMPARE(*first, 1);
            dialog.reject();
        }
        RMCodeInput reopened(&code, &accepted, first, nullptr);
        showDialog(&reopened);
        QCOMPARE(reopened.size(), shownSize(1, reopened));
        reopened.reject();
        QCOMPARE(openCodeInput(second, 0), RMCodeInput::sizeAt(0) - QSize(0, reopened.usesNativeTitleBar() ? 30 : 0));
    }

    // A condition's code dialog on a screen 768 pixels high leaves out
    // "Massive"; on a high screen it offers it.
    void codeInputOnLowScreen()
    {
        QCOMPARE(RMCodeInput::nextSizeIndex(2, true, 800), 3);
        QCOMPARE(RMCodeInput::nextSizeIndex(2, false, 768), 3);

        QString code;
        bool accepted = false;
        int sizeIndex = 0;
        RMCodeInput dialog(&code, &accepted, &sizeIndex, nullptr);
        dialog.setScreenFit(true, 768);
        showDialog(&dialog);
        QStringList seen{dialog.sizeToggle()->text()};
        for (int i = 0; i < 3; ++i) {
            QTest::mouseClick(dialog.sizeToggle(), Qt::LeftButton);
            seen.append(dialog.sizeToggle()->text());
        }
        QCOMPARE(seen, (QStringList{"Small", "Medium", "Large", "Small"}));
        dialog.reject();

        // A remembered "Massive" gives way to "Large" on the low screen.
        sizeIndex = 3;
        RMCodeInput low(&code, &accepted, &sizeIndex, nullptr);
        low.setScreenFit(true, 768);
        QCOMPARE(sizeIndex, 2);
        QCOMPARE(low.sizeToggle()->text(), QStringLiteral("Large"));
    }

    // A field made dynamic through its menu entry: the dialog starts with
    // the default code of the field's kind, and the field shows the value.
    void extensionDefaultCode_data()
    {
        QTest::addColumn<int>("inputType");
        QTest::addColumn<QString>("code");
        QTest::newRow("number") << int(MyLineEdit::Integer) << "return 0;";
        QTest::newRow("text") << int(MyLineEdit::Text) << "return \"\";";
    }

    void extensionDefaultCode()
    {
        QFETCH(int, inputType);
        QFETCH(QString, code);
        QWidget window;
        QVBoxLayout layout(&window);
        MyLineEdit* field = new MyLineEdit(&window);
        layout.addWidget(field);
        field->setInputType(inputType);
        field->setExtendable(QStringLiteral("1"), 0, &window);
        field->setValue(QStringLiteral("12"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        answering([&] { field->openExtendDialog(); },
                  {[&](TrovDialog* dialog) {
                       auto* extend = qobject_cast<VelmoTextInputExtend*>(dialog);
                       QVERIFY(extend);
                       QVERIFY(QTest::qWaitForWindowExposed(extend));
                       QCOMPARE(extend->currentType(), 0);
                       clickTab(extend, 2);
                       QCOMPARE(extend->code()->value(), code);
                       QTest::mouseClick(extend->confirmButton(), Qt::LeftButton);
                   }});
        QVERIFY(field->isExtended());
        QCOMPARE(field->toJson().toObject(), (QJsonObject{{"Type", 2}, {"Code", code}}));
        // The object goes back in: its own code, not the default.
        answering([&] { field->openExtendDialog(); },
                  {[&](TrovDialog* dialog) {
                       auto* extend = qobject_cast<VelmoTextInputExtend*>(dialog);
                       QCOMPARE(extend->currentType(), 2);
                       QCOMPARE(extend->code()->value(), code);
                       dialog->reject();
                   }});
        QVERIFY(field->isExtended());
    }

    // "Normalize" takes the dynamic value away: the field shows what it
    // showed before, or its default when it was empty.
    void extensionNormalize()
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
        for (MyLineEdit* field : {named, empty}) {
            answering([&] { field->openExtendDialog(); },
                      {[&](TrovDialog* dialog) {
                           auto* extend = qobject_cast<VelmoTextInputExtend*>(dialog);
                           QTest::keyClicks(extend->paramName(), QStringLiteral("Speed"));
                           QTest::mouseClick(extend->confirmButton(), Qt::LeftButton);
                       }});
            QVERIFY(field->isExtended());
            QCOMPARE(field->toJson().toObject(), (QJsonObject{{"Type", 0}, {"Param", "Speed"}}));
            answering([&] { field->openExtendDialog(); }, {press("normalizeButton")});
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
        QVERIFY(!removed);
        QCOMPARE(dialog.currentType(), 1);
        QCOMPARE(dialog.variable()->value(), QStringLiteral("[0033] Var 33"));
        showDialog(&dialog);
        answering([&] { QTest::mouseClick(dialog.variable(), Qt::LeftButton); },
                  {[&](TrovDialog* selector) {
                       auto* variables = qobject_cast<SwitchSelector*>(selector);
                       QVERIFY(variables);
                       QCOMPARE(currentText(variables->entryList()), QStringLiteral("[0033] Var 33"));
                       clickRow(variables->entryList(), QStringLiteral("[0038] Var 38"), true);
                   }});
        QCOMPARE(dialog.variable()->value(), QStringLiteral("[0038] Var 38"));
        QVERIFY(!accepted);
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QCOMPARE(object, (QJsonObject{{"Type", 1}, {"ID", 38}}));
    }

    // Whatever keys the object brings, confirming writes the type of the
    // tab and that tab's key, nothing else.
    void runTypeConfirmWritesItsTab_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QJsonObject>("expected");
        const QJsonArray conditions{QJsonObject{{"Type", 5}, {"Value", 100}}};
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

    void runTypeReadsItsObject()
    {
        QJsonObject switchObject{{"Type", 1}, {"ID", 4}};
        QJsonObject projectData{{"System.json", systemWith(21, 21)}};
        bool accepted = false;
        VelmoAnimationStyle onSwitch(&switchObject, &accepted, &projectData, nullptr);
        QCOMPARE(onSwitch.currentType(), 1);
        QCOMPARE(onSwitch.switchOpener()->value(), QStringLiteral("[0004] Switch 4"));
        QCOMPARE(onSwitch.basic()->currentData(), int(VelmoAnimationStyle::OnCreate));
        QCOMPARE(onSwitch.code()->value(), QStringLiteral("return false;"));

        QJsonObject basic{{"Type", 0}, {"RunType", 3}};
        VelmoAnimationStyle onHover(&basic, &accepted, &projectData, nullptr);
        QCOMPARE(onHover.basic()->currentData(), 3);
        showDialog(&onHover);
        QTest::mouseClick(onHover.confirmButton(), Qt::LeftButton);
        QCOMPARE(basic, (QJsonObject{{"Type", 0}, {"RunType", 3}}));
    }

    // Without the condition hooks the "Other" opener shows the count and
    // leaves the list alone; with them, the hook edits the list.
    void runTypeOtherConditions()
    {
        const QJsonArray three{QJsonObject{{"Type", 0}}, QJsonObject{{"Type", 5}}, QJsonObject{{"Type", 9}}};
        QJsonObject object{{"Type", 3}, {"Conditions", three}};
        bool accepted = false;
        {
            VelmoAnimationStyle dialog(&object, &accepted, nullptr, nullptr);
            QCOMPARE(dialog.other()->value(), QStringLiteral("3 Other Conditions"));
            showDialog(&dialog);
            QTest::mouseClick(dialog.other(), Qt::LeftButton);
            QCOMPARE(dialog.conditions(), three);
            QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
            QCOMPARE(object, (QJsonObject{{"Type", 3}, {"Conditions", three}}));
        }
        QJsonObject noData;
        RMConditionList::install(&noData);
        UIComponentBaseDialog::openConditions = [](UIComponentBaseDialog*, MyDialogOpener* opener,
                                                   QJsonArray* conditions, QWidget*) {
            conditions->removeLast();
            UIComponentBaseDialog::showConditions(opener, *conditions);
        };
        VelmoAnimationStyle dialog(&object, &accepted, nullptr, nullptr);
        showDialog(&dialog);
        QTest::mouseClick(dialog.other(), Qt::LeftButton);
        QCOMPARE(dialog.other()->value(), QStringLiteral("2 Conditions"));
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QCOMPARE(object.value("Conditions").toArray().size(), 2);
        RMConditionList::install(nullptr);
    }

    // The actor by the database picker, by a party position typed in, by a
    // variable; each confirm writes its tab's key only.
    void actorSelector()
    {
        QJsonObject projectData{{"Actors.json", records(9, QStringLiteral("Hero"))},
                                {"System.json", systemWith(21, 21)}};
        QJsonObject object{{"Type", 0}, {"ID", 2}, {"Index", 3}};
        bool accepted = false;
        RMActorSelector dialog(&object, &accepted, &projectData, nullptr);
        QCOMPARE(dialog.databaseActors()->value(), QStringLiteral("[0002] Hero 2"));
        QCOMPARE(dialog.partyIndex()->text(), QStringLiteral("1"));
        QCOMPARE(dialog.code()->value(), QStringLiteral("return 1;"));
        showDialog(&dialog);
        answering([&] { QTest::mouseClick(dialog.databaseActors(), Qt::LeftButton); },
                  {[&](TrovDialog* selector) {
                       auto* actors = qobject_cast<RMDatabaseItemSelector*>(selector);
                       QVERIFY(actors);
                       clickRow(actors->list(), QStringLiteral("0006 Hero 6"), true);
                   }});
        QCOMPARE(dialog.databaseActors()->value(), QStringLiteral("[0006] Hero 6"));
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        QCOMPARE(object, (QJsonObject{{"Type", 0}, {"ID", 6}}));

        // A party position above 500 greys the confirm button.
        RMActorSelector party(&object, &accepted, &projectData, nullptr);
        showDialog(&party);
        clickTab(&party, 1);
        party.partyIndex()->setFocus();
        party.partyIndex()->selectAll();
        QTest::keyClicks(party.partyIndex(), QStringLiteral("501"));
        QVERIFY(!party.confirmButton()->isEnabled());
        QTest::keyClick(party.partyIndex(), Qt::Key_Backspace);
        QVERIFY(party.confirmButton()->isEnabled());
        accepted = false;
        QTest::mouseClick(party.confirmButton(), Qt::LeftButton);
        QVERIFY(accepted);
        QCOMPARE(object, (QJsonObject{{"Type", 1}, {"Index", 50}}));
    }
};

VELMORA_TEST_MAIN(TestDataPickers, QApplication)
#include "tst_datapickers.moc"
