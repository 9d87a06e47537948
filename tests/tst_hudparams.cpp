#include "TestEnvironment.h"

#include "app/HudDocument.h"
#include "app/VelmoHUDDialog.h"
#include "app/VelmoHUDDialogParamInput.h"
#include "app/VelmoMainWindow.h"
#include "logic/HudCatalog.h"
#include "logic/HudParameters.h"
#include "logic/VelmoHUDDialogParamSetter.h"
#include "logic/VelmoHUDSelector.h"
#include "logic/VelmoTextInputExtend.h"
#include "theme/ThemeManager.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPushButton>

using TestEnvironment::Answer;
using TestEnvironment::answering;
using TestEnvironment::clickRow;
using TestEnvironment::field;
using TestEnvironment::json;
using TestEnvironment::press;
using TestEnvironment::retype;
using TestEnvironment::rowTexts;

namespace {

void show(QWidget* dialog)
{
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QTest::qWait(20);
}

// The parameter dialog's answer: a name typed, the kind set, confirmed.
Answer parameter(const QString& name, bool text)
{
    return [name, text](TrovDialog* dialog) {
        retype(field<MyLineEdit>(dialog, "ParamName"), name);
        MyEitherBox* kind = field<MyEitherBox>(dialog, "NumOrString");
        if (kind->choice() != text)
            QTest::mouseClick(kind, Qt::LeftButton);
        QTest::mouseClick(field<QPushButton>(dialog, "confirmButton"), Qt::LeftButton);
    };
}

// The HUD list of a project as the main window would hand it out.
void installHuds(const QVector<HudCatalog::Row>& rows)
{
    HudCatalog::setSource([rows]() { return rows; });
}

}

class TestHudParams : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        Theme::installDefault();
        Theme::refreshCachedColors();
        VelmoTextInputExtend::install(nullptr);
    }

    void cleanup()
    {
        HudCatalog::setSource(nullptr);
    }

    // A user builds a component's parameter list: adds, edits and deletes,
    // and the confirmed object holds the new list. At the use sites the
    // values of renamed or deleted parameters stay, and the new one starts
    // on its default.
    void parameterListIsEditedInTheDialog()
    {
        QJsonObject object = json(R"({"Name":"Party Row","IsHUD":false,"ID":"12345","Width":240,"Height":64,
            "HUD":[{"Type":0,"ID":1}],"Params":[{"Name":"Index","IsString":false},{"Name":"Title","IsString":true}]})");
        bool confirmed = false;
        VelmoHUDDialog dialog(&object, &confirmed, HudEntry::Custom);
        show(&dialog);
        UltimateTreeWidget* list = dialog.Params;
        QWidget* viewport = list->tree()->viewport();

        // The Delete key removes the current row.
        clickRow(list, 0);
        QTest::keyClick(viewport, Qt::Key_Delete);
        QTRY_COMPARE(rowTexts(list), QStringList({"Title"}));

        // A double click below the rows adds one at the end.
        answering([&] { clickRow(list, list->tree()->rowCount(), true); },
                  {parameter(QStringLiteral("Level"), false)});

        // A double click on a row edits it: "Title" becomes "Caption".
        answering([&] { clickRow(list, 0, true); },
                  {[](TrovDialog* input) {
                      QCOMPARE(field<MyLineEdit>(input, "ParamName")->text(), QStringLiteral("Title"));
                      parameter(QStringLiteral("Caption"), true)(input);
                  }});
        QTest::mouseClick(dialog.confirmButton, Qt::LeftButton);
        QVERIFY(confirmed);
        QCOMPARE(object.value(QStringLiteral("Params")).toArray(),
                 QJsonArray({QJsonObject{{"Name", "Caption"}, {"IsString", true}},
                             QJsonObject{{"Name", "Level"}, {"IsString", false}}}));

        installHuds({{HudCatalog::Map, QJsonObject(), false}, {HudCatalog::Custom, object, false}});
        const QJsonArray definitions = HudParameters::definitionsOf(QStringLiteral("12345"));
        QCOMPARE(HudParameters::withDefaults(definitions, json(R"({"Index":{"Type":3,"ID":2},"Title":"Hero"})")),
                 json(R"({"Index":{"Type":3,"ID":2},"Title":"Hero","Caption":"","Level":0})"));
        // A value already there is never replaced by a default.
        QCOMPARE(HudParameters::withDefaults(definitions, json(R"({"Level":true})")),
                 json(R"({"Level":true,"Caption":""})"));
        QVERIFY(HudParameters::definitionsOf(QStringLiteral("99999")).isEmpty());
    }

    // Two parameters of one HUD can't share a name through the dialog; an
    // empty name is repaired to a free one.
    void duplicateAndEmptyNamesAreRefused()
    {
        QJsonObject edited{{"Name", "Title"}, {"IsString", true}};
        QStringList used{QStringLiteral("Index"), QStringLiteral("Title"), QStringLiteral("Index (2)")};
        bool confirmed = false;
        VelmoHUDDialogParamInput dialog(&edited, &confirmed, &used, nullptr);
        show(&dialog);
        MyLineEdit* name = dialog.nameField();
        QPushButton* confirm = dialog.confirmButton();
        // Its own name is no clash.
        QVERIFY(confirm->isEnabled());
        retype(name, QStringLiteral("Index"));
        QTest::mouseClick(confirm, Qt::LeftButton);
        QVERIFY(!confirmed);

        retype(name, QString());
        QVERIFY(!confirm->isEnabled());
        // A name left empty is repaired when the field loses the focus.
        QTest::mouseClick(field<MyEitherBox>(&dialog, "NumOrString"), Qt::LeftButton);
        QCOMPARE(name->text(), QStringLiteral(" (2)"));
        QTest::mouseClick(confirm, Qt::LeftButton);
        QVERIFY(confirmed);
        // The kind was switched from "Text" to "Number" by the click.
        QCOMPARE(edited, (QJsonObject{{"Name", " (2)"}, {"IsString", false}}));
        QCOMPARE(dialog.repairedName(QStringLiteral("Index")), QStringLiteral("Index (3)"));
    }

    // The clipboard carries parameters between HUDs; a paste may repeat a name.
    void parametersTravelThroughTheClipboard()
    {
        QJsonObject object = json(R"({"Name":"Row","IsHUD":false,"ID":"11111","Params":[{"Name":"Hp","IsString":false}]})");
        bool confirmed = false;
        VelmoHUDDialog dialog(&object, &confirmed, HudEntry::Custom);
        show(&dialog);
        QWidget* viewport = dialog.Params->tree()->viewport();
        clickRow(dialog.Params, 0);
        QTest::keyClick(viewport, Qt::Key_C, Qt::ControlModifier);
        const QString copied = QApplication::clipboard()->text();
        const QJsonObject hp{{"Name", "Hp"}, {"IsString", false}};
        QVERIFY2(copied.startsWith(QStringLiteral("HUDCOMPPARAM{")), qPrintable(copied));
        QCOMPARE(QJsonDocument::fromJson(copied.mid(12).toUtf8()).object(), hp);
        QTest::keyClick(viewport, Qt::Key_V, Qt::ControlModifier);
        QTest::mouseClick(dialog.confirmButton, Qt::LeftButton);
        QCOMPARE(object.value(QStringLiteral("Params")).toArray(), QJsonArray({hp, hp}));
    }

    // What a confirmed HUD dialog writes, for each kind of HUD object.
    void confirmBuildsANewObject()
    {
        // A component becomes a HUD: its size goes, its parameters stay.
        QJsonObject object = json(R"({"Name":"Row","IsHUD":false,"ID":"22222","Width":120,"Height":40,
            "HUD":[],"Params":[{"Name":"Hp"}],"Background":"/tmp/x.png","Stray":1})");
        bool confirmed = false;
        {
            VelmoHUDDialog dialog(&object, &confirmed, HudEntry::Custom);
            show(&dialog);
            QTest::mouseClick(dialog.Type, Qt::LeftButton);
            QTest::mouseClick(dialog.confirmButton, Qt::LeftButton);
        }
        QVERIFY(confirmed);
        QCOMPARE(object, json(R"({"Name":"Row","IsHUD":true,"ID":"22222","HUD":[],"Params":[{"Name":"Hp"}],
                                  "Background":"/tmp/x.png"})"));

        // The Map HUD: name and kind fixed.
        QJsonObject map = json(R"({"HUD":[{"Type":1}],"Background":""})");
        {
            VelmoHUDDialog dialog(&map, &confirmed, HudEntry::Map);
            show(&dialog);
            QTest::mouseClick(dialog.confirmButton, Qt::LeftButton);
        }
        QCOMPARE(map, json(R"({"Name":"Map HUD","IsHUD":true,"HUD":[{"Type":1}],"Params":[],"Background":""})"));
    }

    // The placeholder picture is chosen in a file dialog and cleared again.
    void backgroundIsChosenAndCleared()
    {
        const QString folder = TestEnvironment::newFolder(QStringLiteral("backgrounds"));
        const QString picture = folder + QStringLiteral("/party-row.png");
        QImage(8, 8, QImage::Format_ARGB32).save(picture);
        QJsonObject object = json(R"({"Name":"Row","IsHUD":false,"ID":"33333","HUD":[]})");
        bool confirmed = false;
        VelmoHUDDialog dialog(&object, &confirmed, HudEntry::Custom);
        show(&dialog);

        QTimer answer;
        answer.setInterval(5);
        QObject::connect(&answer, &QTimer::timeout, [&]() {
            if (QFileDialog* files = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
                files->selectFile(picture);
                static_cast<QDialog*>(files)->accept();
                answer.stop();
            }
        });
        answer.start();
        QTest::mouseClick(dialog.Background, Qt::LeftButton);
        QCOMPARE(dialog.Background->value(), QStringLiteral("party-row.png"));
        QCOMPARE(dialog.backgroundPath(), picture);

        QTest::mouseClick(dialog.Clear, Qt::LeftButton);
        QTest::mouseClick(dialog.confirmButton, Qt::LeftButton);
        QCOMPARE(object.value(QStringLiteral("Background")), QJsonValue(QString()));
    }

    // The setter at a use site, for each kind of value a parameter takes.
    // Inside a collection a parameter can take the cell's entry of the list
    // (the value true); off, the number field starts on its default.
    void setterGivesEachKindOfValue()
    {
        QJsonValue value;
        bool confirmed = false;
        const auto set = [&](QJsonValue start, bool text, bool inCollection, const std::function<void(VelmoHUDDialogParamSetter&)>& act) {
            value = start;
            confirmed = false;
            VelmoHUDDialogParamSetter setter(&value, text, inCollection, &confirmed, QStringLiteral("P"), nullptr);
            show(&setter);
            act(setter);
        };
        set(QStringLiteral("Hero"), true, false, [](VelmoHUDDialogParamSetter& setter) {
            retype(setter.input(), QStringLiteral("Villain"));
            QTest::mouseClick(setter.confirmButton(), Qt::LeftButton);
        });
        QVERIFY(confirmed);
        QCOMPARE(value, QJsonValue(QStringLiteral("Villain")));

        // A number out of range can't be confirmed.
        set(4, false, false, [](VelmoHUDDialogParamSetter& setter) {
            retype(setter.input(), QStringLiteral("12345678"));
            QVERIFY(!setter.confirmButton()->isEnabled());
            retype(setter.input(), QStringLiteral("-12"));
            QTest::mouseClick(setter.confirmButton(), Qt::LeftButton);
        });
        QCOMPARE(value, QJsonValue(-12));

        // A number the game computes (an extension) comes back as it was.
        const QJsonObject extension{{"Type", 1}, {"ID", 2}};
        set(extension, false, true, [](VelmoHUDDialogParamSetter& s) { QTest::mouseClick(s.confirmButton(), Qt::LeftButton); });
        QCOMPARE(value, QJsonValue(extension));

        set(true, false, true, [](VelmoHUDDialogParamSetter& setter) {
            QTest::mouseClick(setter.listToggle(), Qt::LeftButton);
            QCOMPARE(setter.input()->text(), QStringLiteral("0"));
            retype(setter.input(), QStringLiteral("3"));
            QTest::mouseClick(setter.confirmButton(), Qt::LeftButton);
        });
        QCOMPARE(value, QJsonValue(3));
        set(QStringLiteral("Hero"), true, true, [](VelmoHUDDialogParamSetter& setter) {
            QTest::mouseClick(setter.listToggle(), Qt::LeftButton);
            QTest::mouseClick(setter.confirmButton(), Qt::LeftButton);
        });
        QCOMPARE(value, QJsonValue(true));
        // false is not the list's value.
        set(false, false, true, [](VelmoHUDDialogParamSetter& setter) { QVERIFY(!setter.usesListData()); });
    }

    // The selector lists what may be referenced from where it is opened.
    void selectorListsHudsOrComponents()
    {
        // "Party Row" is the component being edited; "Coin" has no "IsHUD"
        // and counts as a component.
        installHuds({{HudCatalog::Map, QJsonObject(), false},
                     {HudCatalog::Custom, json(R"({"Name":"Quest Log","ID":"01234","IsHUD":true})"), false},
                     {HudCatalog::Custom, json(R"({"Name":"Party Row","ID":"12345","IsHUD":false})"), true},
                     {HudCatalog::Battle, QJsonObject(), false},
                     {HudCatalog::Custom, json(R"({"Name":"Coin","ID":"23456"})"), false}});
        QString identifier = QStringLiteral("23456");
        bool confirmed = false;
        {
            VelmoHUDSelector selector(&identifier, &confirmed, VelmoHUDSelector::CustomComponents, nullptr);
            show(&selector);
            // Not the component being edited, nor the HUDs.
            QCOMPARE(rowTexts(selector.list()), QStringList({"None", "Coin"}));
            QCOMPARE(selector.list()->tree()->currentRow()->text(0), QStringLiteral("Coin"));
            clickRow(selector.list(), 0);
            QTest::mouseClick(selector.confirmButton(), Qt::LeftButton);
        }
        QVERIFY(confirmed);
        QCOMPARE(identifier, QString());

        // All HUDs, with the reserved references of the Map and Battle HUDs.
        identifier = QStringLiteral("M");
        {
            VelmoHUDSelector selector(&identifier, &confirmed, VelmoHUDSelector::Huds, nullptr);
            show(&selector);
            QCOMPARE(rowTexts(selector.list()),
                     QStringList({"None", "Map HUD", "Quest Log", "Party Row", "Battle HUD", "Coin"}));
            QCOMPARE(selector.list()->tree()->currentRow()->text(0), QStringLiteral("Map HUD"));
            clickRow(selector.list(), 4, true);
        }
        QCOMPARE(identifier, QStringLiteral("B"));

        // A reference to a deleted HUD opens on "None".
        identifier = QStringLiteral("66666");
        VelmoHUDSelector selector(&identifier, &confirmed, VelmoHUDSelector::Huds, nullptr);
        QCOMPARE(selector.list()->tree()->currentRow()->text(0), QStringLiteral("None"));
        QCOMPARE(HudCatalog::displayName(QStringLiteral("66666")), QStringLiteral("None"));
        QCOMPARE(HudCatalog::displayName(QStringLiteral("B")), QStringLiteral("Battle HUD"));
    }

    // In the editor the selectors see the main window's HUD list as it
    // stands, with the HUD being edited marked.
    void editorHandsItsHudsToTheSelectors()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("params"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project),
                                   R"({"Map":0,"Battle":1,"Data":[{"HUD":[]},{"HUD":[]},
                                      {"Name":"Row","ID":"12345","IsHUD":false,"Width":100,"Height":40,"HUD":[],
                                       "Params":[{"Name":"Hp","IsString":false}]}]})");
        QScopedPointer<VelmoMainWindow> window(TestEnvironment::showMainWindow(project));
        QVERIFY(HudCatalog::rows().at(0).current);
        QString identifier;
        bool confirmed = false;
        VelmoHUDSelector selector(&identifier, &confirmed, VelmoHUDSelector::CustomComponents, nullptr);
        QCOMPARE(rowTexts(selector.list()), QStringList({"None", "Row"}));
        window->close();
    }
};

VELMORA_TEST_MAIN(TestHudParams, QApplication)
#include "tst_hudparams.moc"
