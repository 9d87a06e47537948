#include "TestEnvironment.h"

#include "app/SettingsStore.h"
#include "app/Startup.h"
#include "app/VelmoMainWindow.h"
#include "app/VelmoSettings.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "theme/MorvikCSVTranslator.h"
#include "theme/ProgramFolders.h"
#include "theme/ThemeBuilder.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"
#include "widgets/DialogFlags.h"
#include "widgets/MyCheckBox.h"
#include "widgets/MyColorPickerButton.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MySlider.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QTimer>

#include <memory>

using TestEnvironment::Answer;
using TestEnvironment::answering;
using TestEnvironment::press;
using TestEnvironment::Seen;

namespace {

void click(QWidget* widget)
{
    QVERIFY2(widget->isVisible() && widget->isEnabled(), qPrintable(widget->objectName()));
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, widget->rect().center());
}

// Opens a drop-down with the mouse and walks its list with the keys to row.
void chooseRow(MyComboBox* combo, int row)
{
    click(combo);
    MyPopup* popup = combo->popup();
    QVERIFY(popup);
    while (popup->highlighted() < row)
        QTest::keyClick(popup, Qt::Key_Down);
    while (popup->highlighted() > row)
        QTest::keyClick(popup, Qt::Key_Up);
    QTest::keyClick(popup, Qt::Key_Return);
}

int rowOf(MyComboBox* combo, const QString& text)
{
    for (int row = 0; row < combo->count(); ++row) {
        if (combo->itemText(row) == text)
            return row;
    }
    return -1;
}

// Answers the next file dialog with path, as a user who types it and
// presses Return.
struct FileAnswer {
    explicit FileAnswer(const QString& path)
    {
        timer.setInterval(5);
        QObject::connect(&timer, &QTimer::timeout, [this, path]() {
            if (QFileDialog* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
                dialog->selectFile(path);
                static_cast<QDialog*>(dialog)->accept();
                timer.stop();
            }
        });
        timer.start();
    }
    QTimer timer;
};

// A row of the theme builder's list, by its text, clicked with the mouse.
void clickListRow(UltimateTreeWidget* list, const QString& text)
{
    UltimateTree* tree = list->tree();
    for (UltimateTreeItem* row = tree->firstVisibleRow(); row; row = row->next()) {
        if (row->text(0) != text)
            continue;
        list->ensureRowVisible(row);
        const QPoint at = tree->mapFromScene(QPointF(40, row->y() + row->rowHeight() / 2.0));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
        return;
    }
    QFAIL(qPrintable(QStringLiteral("no row %1").arg(text)));
}

}

class TestSettingsDialog : public QObject
{
    Q_OBJECT

private:
    QString programFolder;
    QString project;
    std::unique_ptr<VelmoMainWindow> window;

    QString themeFile(const QString& name) const
    {
        return programFolder + QStringLiteral("/Themes/%1/Theme.json").arg(name);
    }

    // Runs the settings dialog through the window's command with the
    // answers given, in order, to the dialogs that come up.
    Seen openSettings(QList<Answer> answers)
    {
        QAction* settings = window->findChild<QAction*>(QStringLiteral("Action_Settings"));
        return answering([settings] { settings->trigger(); }, answers);
    }

private slots:
    void initTestCase()
    {
        QApplication::setStyle(new VelmoStyle());
        // The program's folder is a scratch copy, so that themes made here
        // land in it and nowhere else.
        programFolder = TestEnvironment::newFolder(QStringLiteral("program"));
        TestEnvironment::copyTree(QCoreApplication::applicationDirPath() + QStringLiteral("/Themes"),
                                  programFolder + QStringLiteral("/Themes"));
        PathManager::setExecutableFolder(programFolder);
        project = TestEnvironment::makeProject(QStringLiteral("game"));
    }

    void init()
    {
        SettingsStore().clear();
        dialogNativeTitleBar = false;
        dialogOpenAnimated = false;
        dialogDarkenLayers = false;
        dialogDarkenAnimated = false;
        Theme::installDefault();
        Theme::apply();
        window.reset(TestEnvironment::showMainWindow(project));
        QVERIFY(window->projectIsOpen());
    }

    void cleanup()
    {
        window.reset();
        MorvikCSVTranslator::removeLanguage();
    }

    // Every setting a user can change, changed with the mouse and the
    // keys: each lands where it belongs and, at exit, under its key.
    void everySettingLandsUnderItsKey()
    {
        const QString runtime = TestEnvironment::newFolder(QStringLiteral("RPG Maker MZ"));
        QDir(runtime).mkpath(QStringLiteral("nwjs-lin"));
        const QString german = QStringLiteral(VELMORA_EXAMPLES "/translations/German.csv");
        QAction* run = window->findChild<QAction*>(QStringLiteral("Action_Run"));
        QVERIFY(!run->isEnabled());
        bool restartShownBefore = true;

        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = qobject_cast<VelmoSettings*>(dialog);
            QVERIFY(settings);
            restartShownBefore = settings->restartRequired->isVisible();
            // The window was built Native; Frameless takes the native menu
            // bar's box out of reach.
            QCOMPARE(settings->MainWindowStyle->currentText(), QStringLiteral("Native"));
            chooseRow(settings->MainWindowStyle, rowOf(settings->MainWindowStyle, QStringLiteral("Frameless")));
            QVERIFY(!settings->mainWindowNativeTitle->isEnabled());
            QVERIFY(settings->restartRequired->isVisible());
            for (MyCheckBox* box : {settings->dialogNativeTitle, settings->dialogShowAnimation, settings->dialogDarken,
                                    settings->dialogDarkenAnimate})
                click(box);
            click(settings->EditorLocation);
            QTest::keyClick(settings->EditorLocation, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(settings->EditorLocation, runtime);
            settings->Background_Darken->setFocus();
            QTest::keyClick(settings->Background_Darken, Qt::Key_End);
            {
                FileAnswer file(german);
                click(settings->Language);
            }
            QCOMPARE(settings->Language->text(), QStringLiteral("German.csv"));
            press("confirmButton")(dialog);
        }});
        QVERIFY(!restartShownBefore);

        // The dialog flags and the location are in force at once...
        QVERIFY(dialogNativeTitleBar);
        QVERIFY(dialogOpenAnimated);
        QVERIFY(dialogDarkenLayers);
        QVERIFY(dialogDarkenAnimated);
        QCOMPARE(window->getEditorLocation(), runtime);
        QVERIFY(run->isEnabled());
        QCOMPARE(window->editorView()->editorScene()->darkness(), 1.0);
        QVERIFY(window->projectIsChanged());
        // ...and the language is translating already.
        QVERIFY(MorvikCSVTranslator::current());
        QCOMPARE(window->getLanguage(), german);
        QCOMPARE(window->getWindowStyle(), 0);
        QVERIFY(!window->getNativeMenuBar());

        Startup::saveOnExit(*window);
        {
            SettingsStore store;
            QCOMPARE(store.value(QStringLiteral("editor")).toInt(), 1 | 2 | 8 | 16);
            QCOMPARE(store.value(QStringLiteral("windowStyle")).toInt(), 0);
            QCOMPARE(store.value(QStringLiteral("language")).toString(), german);
            QCOMPARE(store.value(QStringLiteral("theme")).toString(), QString());
        }
        // The window-state keys are written when the window closes.
        window->markChanged();
        answering([&] { window->close(); }, {press("cancelButton")});
        SettingsStore store;
        QCOMPARE(store.value(QStringLiteral("EditorLocation")).toString(), runtime);
        QCOMPARE(store.value(QStringLiteral("BackgroundDarken")).toDouble(), 1.0);
    }

    // A location without the game runtime is emptied, and Run stays off;
    // cancelling keeps the dialog flags as they were.
    void badLocationAndCancel()
    {
        const QString notRuntime = TestEnvironment::newFolder(QStringLiteral("Documents"));
        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = qobject_cast<VelmoSettings*>(dialog);
            click(settings->EditorLocation);
            QTest::keyClicks(settings->EditorLocation, notRuntime);
            press("confirmButton")(dialog);
        }});
        QCOMPARE(window->getEditorLocation(), QString());
        QVERIFY(!window->findChild<QAction*>(QStringLiteral("Action_Run"))->isEnabled());

        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = qobject_cast<VelmoSettings*>(dialog);
            click(settings->dialogDarken);
            settings->Background_Darken->setFocus();
            QTest::keyClick(settings->Background_Darken, Qt::Key_End);
            press("cancelButton")(dialog);
        }});
        QVERIFY(!dialogDarkenLayers);
        QVERIFY(window->editorView()->editorScene()->darkness() < 1.0);
    }

    // The restart line follows what differs from the running window: the
    // native menu bar toggled twice, a cleared language.
    void restartLineFollowsTheChanges()
    {
        window->setLanguage(QStringLiteral(VELMORA_EXAMPLES "/translations/German.csv"));
        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = qobject_cast<VelmoSettings*>(dialog);
            QVERIFY(settings->mainWindowNativeTitle->isEnabled());
            QVERIFY(!settings->restartRequired->isVisible());
            click(settings->mainWindowNativeTitle);
            QVERIFY(settings->restartRequired->isVisible());
            click(settings->mainWindowNativeTitle);
            QVERIFY(!settings->restartRequired->isVisible());
            QCOMPARE(settings->Language->text(), QStringLiteral("German.csv"));
            click(settings->disableLang);
            QCOMPARE(settings->Language->text(), QStringLiteral("None"));
            QVERIFY(!settings->disableLang->isEnabled());
            QVERIFY(settings->restartRequired->isVisible());
            press("confirmButton")(dialog);
        }});
        QCOMPARE(window->getLanguage(), QString());
    }

    // A theme chosen applies at once, restyles the program and stays even
    // when the dialog is cancelled; the default comes back whole.
    void themeAppliesAtOnceAndSurvivesCancel()
    {
        const QColor redTintBackground(QJsonDocument::fromJson(TestEnvironment::readFile(themeFile(QStringLiteral("Red Tint"))))
                                           .object()
                                           .value(QStringLiteral("0"))
                                           .toString());
        QVERIFY(redTintBackground.isValid());
        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = qobject_cast<VelmoSettings*>(dialog);
            QCOMPARE(settings->Theme->currentIndex(), 0);
            QVERIFY(!settings->editTheme->isEnabled());
            chooseRow(settings->Theme, rowOf(settings->Theme, QStringLiteral("Red Tint")));
            QCOMPARE(themeColor(ThemeKey::WindowBackground), redTintBackground);
            QCOMPARE(QApplication::palette().color(QPalette::Window), redTintBackground);
            QVERIFY(settings->editTheme->isEnabled());
            press("cancelButton")(dialog);
        }});
        QCOMPARE(window->getTheme(), QStringLiteral("Red Tint"));
        QCOMPARE(themeColor(ThemeKey::WindowBackground), redTintBackground);

        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = qobject_cast<VelmoSettings*>(dialog);
            QCOMPARE(settings->Theme->currentText(), QStringLiteral("Red Tint"));
            chooseRow(settings->Theme, 0);
            press("confirmButton")(dialog);
        }});
        QCOMPARE(window->getTheme(), QString());
        QCOMPARE(Theme::table(), [] { Theme::installDefault(); return Theme::table(); }());
    }

    // The theme builder: the program follows each colour as it is edited,
    // a group row holds no colour, and the theme made is saved, listed and
    // in use; cancelling a second builder brings the theme back.
    void buildingAThemeShowsItLive()
    {
        const QColor before = themeColor(ThemeKey::WindowBackground);
        QColor during;
        bool sliderFollowed = false;
        bool groupRowDisabled = false;
        openSettings({[&](TrovDialog* dialog) { click(qobject_cast<VelmoSettings*>(dialog)->createCustomTheme);
                          press("confirmButton")(dialog); },
                      [&](TrovDialog* dialog) {
                          ThemeBuilder* builder = qobject_cast<ThemeBuilder*>(dialog);
                          QVERIFY(builder);
                          // An empty name can't be confirmed.
                          QVERIFY(!builder->confirmButton->isEnabled());
                          QCOMPARE(builder->currentKey(), int(ThemeKey::WindowBackground));
                          builder->Red->setFocus();
                          QTest::keyClick(builder->Red, Qt::Key_End);
                          during = themeColor(ThemeKey::WindowBackground);
                          const QColor expected(255, before.green(), before.blue());
                          sliderFollowed = builder->Lightness->value() == expected.lightness()
                              && builder->Hue->value() == qMax(0, expected.hslHue())
                              && builder->Color->color() == expected;
                          clickListRow(builder->colors, QStringLiteral("Window"));
                          groupRowDisabled = !builder->Red->isEnabled() && !builder->Color->isEnabled();
                          click(builder->ThemeName);
                          QTest::keyClicks(builder->ThemeName, QStringLiteral("Ember"));
                          press("confirmButton")(dialog);
                      }});
        QCOMPARE(during, QColor(255, before.green(), before.blue()));
        QVERIFY(sliderFollowed);
        QVERIFY(groupRowDisabled);
        QCOMPARE(window->getTheme(), QStringLiteral("Ember"));
        const QJsonObject saved = QJsonDocument::fromJson(TestEnvironment::readFile(themeFile(QStringLiteral("Ember")))).object();
        QCOMPARE(saved.size(), 148);
        QCOMPARE(saved.value(QStringLiteral("0")).toString(), QColor(255, before.green(), before.blue()).name());
        QCOMPARE(themeColor(ThemeKey::WindowBackground), QColor(255, before.green(), before.blue()));

        // A grey has no hue: the slider shows 0, and Saturation makes a red.
        openSettings({[&](TrovDialog* dialog) { click(qobject_cast<VelmoSettings*>(dialog)->editTheme);
                          press("cancelButton")(dialog); },
                      [&](TrovDialog* dialog) {
                          ThemeBuilder* builder = qobject_cast<ThemeBuilder*>(dialog);
                          QCOMPARE(builder->ThemeName->text(), QStringLiteral("Ember"));
                          builder->selectKey(ThemeKey::WindowText);
                          QCOMPARE(builder->Hue->value(), 0);
                          builder->Lightness->setFocus();
                          QTest::keyClick(builder->Lightness, Qt::Key_PageDown);
                          builder->Saturation->setFocus();
                          QTest::keyClick(builder->Saturation, Qt::Key_End);
                          const QColor made = themeColor(ThemeKey::WindowText);
                          QCOMPARE(made.hslHue(), 0);
                          QVERIFY(made.red() > made.green());
                          press("cancelButton")(dialog);
                      }});
        QCOMPARE(themeColor(ThemeKey::WindowText), QColor(Qt::white));
        QCOMPARE(window->getTheme(), QStringLiteral("Ember"));
    }

    // Renaming onto an existing theme asks first; "No" keeps the builder
    // open, "Yes" replaces it. Deleting the theme in use falls back to the
    // default.
    void renameOntoExistingAsksAndDeleteFallsBack()
    {
        ThemeTable first = Theme::builtInTable();
        first.insert(ThemeKey::WindowBackground, QColor(0x11, 0x22, 0x33));
        QVERIFY(Theme::save(first, QStringLiteral("First")));
        QVERIFY(Theme::save(Theme::builtInTable(), QStringLiteral("Second")));
        window->setTheme(QStringLiteral("First"));
        QVERIFY(Theme::load(QStringLiteral("First")));
        Seen question;
        openSettings({[&](TrovDialog* dialog) { click(qobject_cast<VelmoSettings*>(dialog)->editTheme);
                          press("confirmButton")(dialog); },
                      [&](TrovDialog* dialog) {
                          ThemeBuilder* builder = qobject_cast<ThemeBuilder*>(dialog);
                          click(builder->ThemeName);
                          QTest::keyClick(builder->ThemeName, Qt::Key_A, Qt::ControlModifier);
                          QTest::keyClicks(builder->ThemeName, QStringLiteral("Second"));
                          QCOMPARE(builder->ThemeName->warningText(), QStringLiteral("Theme already exists!"));
                          // First "No", then "Yes".
                          question = answering([&] { press("confirmButton")(dialog); }, {press("cancelButton")});
                          QVERIFY(dialog->isVisible());
                          answering([&] { press("confirmButton")(dialog); }, {press("confirmButton")});
                      }});
        QVERIFY2(question.text.contains(QStringLiteral("\"Second\" exists already")), qPrintable(question.text));
        QVERIFY(!QFileInfo::exists(themeFile(QStringLiteral("First"))));
        QCOMPARE(QJsonDocument::fromJson(TestEnvironment::readFile(themeFile(QStringLiteral("Second"))))
                     .object()
                     .value(QStringLiteral("0"))
                     .toString(),
                 QStringLiteral("#112233"));
        QCOMPARE(window->getTheme(), QStringLiteral("Second"));

        openSettings({[&](TrovDialog* dialog) { click(qobject_cast<VelmoSettings*>(dialog)->deleteTheme);
                          press("confirmButton")(dialog); },
                      press("confirmButton")});
        QVERIFY(!QFileInfo::exists(themeFile(QStringLiteral("Second"))));
        QCOMPARE(window->getTheme(), QString());
        QCOMPARE(themeColor(ThemeKey::WindowBackground), QColor(0x18, 0x18, 0x22));
    }

    // A theme file cut short while it was written: the colours before the
    // cut are used, and the user is told which file is damaged.
    void damagedThemeIsNamed()
    {
        TestEnvironment::writeFile(themeFile(QStringLiteral("Cut")), "{\"0\":\"#102030\",\"1\":\"#405060\",\"1000\":\"#7");
        QString alert;
        openSettings({[&](TrovDialog* dialog) {
                          VelmoSettings* settings = qobject_cast<VelmoSettings*>(dialog);
                          chooseRow(settings->Theme, rowOf(settings->Theme, QStringLiteral("Cut")));
                          press("confirmButton")(dialog);
                      },
                      [&](TrovDialog* dialog) {
                          alert = dialog->findChild<QLabel*>(QStringLiteral("label"))->text();
                          press("okButton")(dialog);
                      }});
        QVERIFY2(alert.contains(QStringLiteral("damaged")), qPrintable(alert));
        QVERIFY2(alert.contains(QStringLiteral("Cut")), qPrintable(alert));
        QCOMPARE(themeColor(0), QColor(0x10, 0x20, 0x30));
        QCOMPARE(themeColor(1), QColor(0x40, 0x50, 0x60));
        QCOMPARE(themeColor(1000), Theme::builtInTable().value(1000));
    }

    // What the dialog stores takes effect at the next start: an editor run
    // by the test changes the settings in its dialog and quits, a second
    // one comes up with them.
    void settingsTakeEffectAfterRestart()
    {
        window.reset();
        SettingsStore().setValue(QStringLiteral("windowStyle"), 2);
        const QString log = TestEnvironment::home() + QStringLiteral("/restart.log");
        auto editor = [&](const char* mode) {
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(QStringLiteral("VELMORA_TEST_USER"), QLatin1String(mode));
            environment.insert(QStringLiteral("VELMORA_TEST_USER_LOG"), log);
            QProcess process;
            process.setProcessEnvironment(environment);
            process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
            process.start(QStringLiteral(VELMORA_TEST_EDITOR), {project});
            QVERIFY2(process.waitForFinished(30000), TestEnvironment::readFile(log).constData());
            QCOMPARE(process.exitCode(), 0);
        };
        editor("settings");
        editor("report");
        const QStringList lines = QString::fromUtf8(TestEnvironment::readFile(log)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QVERIFY2(lines.contains(QStringLiteral("settings confirmed")), qPrintable(lines.join(QLatin1Char('|'))));
        QVERIFY2(lines.contains(QStringLiteral("style 0")), qPrintable(lines.join(QLatin1Char('|'))));
        QVERIFY2(lines.contains(QStringLiteral("frameless 1")), qPrintable(lines.join(QLatin1Char('|'))));
        QVERIFY2(lines.contains(QStringLiteral("theme Red Tint")), qPrintable(lines.join(QLatin1Char('|'))));
        QVERIFY2(lines.contains(QStringLiteral("opening animation 0")), qPrintable(lines.join(QLatin1Char('|'))));
    }
};

VELMORA_TEST_MAIN(TestSettingsDialog, QApplication)
#include "tst_settingsdialog.moc"
