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
#include "widgets/MyComboBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MySlider.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <memory>

using TestEnvironment::Answer;
using TestEnvironment::answering;
using TestEnvironment::press;
using TestEnvironment::retype;
using TestEnvironment::Seen;

namespace {

void click(QWidget* widget)
{
    QVERIFY2(widget->isVisible() && widget->isEnabled(), qPrintable(widget->objectName()));
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, widget->rect().center());
}

// Picks the row showing text of a drop-down, as a user does.
void chooseText(MyComboBox* combo, const QString& text)
{
    for (int row = 0; row < combo->count(); ++row) {
        if (combo->itemText(row) == text)
            return TestEnvironment::choose(combo, row);
    }
    QFAIL(qPrintable(text));
}

// Answers the next file dialog with path, as a user who types it and
// presses Return; with no path, as one who cancels. It notes the folder the
// dialog opened in.
struct FileAnswer {
    explicit FileAnswer(const QString& path)
    {
        timer.setInterval(5);
        QObject::connect(&timer, &QTimer::timeout, [this, path]() {
            if (QFileDialog* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
                openedIn = dialog->directory().absolutePath();
                if (path.isEmpty()) {
                    static_cast<QDialog*>(dialog)->reject();
                } else {
                    dialog->selectFile(path);
                    static_cast<QDialog*>(dialog)->accept();
                }
                timer.stop();
            }
        });
        timer.start();
    }
    QTimer timer;
    QString openedIn;
};

VelmoSettings* settingsOf(TrovDialog* dialog)
{
    return qobject_cast<VelmoSettings*>(dialog);
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
    QColor storedBackground(const QString& theme) const
    {
        return QColor(QJsonDocument::fromJson(TestEnvironment::readFile(themeFile(theme))).object()
                          .value(QStringLiteral("0")).toString());
    }

    // Runs the settings dialog through the window's command with the
    // answers given, in order, to the dialogs that come up.
    Seen openSettings(QList<Answer> answers)
    {
        QAction* settings = window->findChild<QAction*>(QStringLiteral("Action_Settings"));
        return answering([settings] { settings->trigger(); }, answers);
    }
    bool runEnabled() const { return window->findChild<QAction*>(QStringLiteral("Action_Run"))->isEnabled(); }

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
        QVERIFY(!runEnabled());

        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = settingsOf(dialog);
            // The window was built Native.
            chooseText(settings->MainWindowStyle, QStringLiteral("Frameless"));
            for (MyCheckBox* box : {settings->dialogNativeTitle, settings->dialogShowAnimation, settings->dialogDarken,
                                    settings->dialogDarkenAnimate})
                click(box);
            retype(settings->EditorLocation, runtime);
            settings->Background_Darken->setFocus();
            QTest::keyClick(settings->Background_Darken, Qt::Key_End);
            {
                FileAnswer file(german);
                click(settings->Language);
            }
            press("confirmButton")(dialog);
        }});

        // The dialog flags, the location and the language are in force at once.
        QVERIFY(dialogNativeTitleBar && dialogOpenAnimated && dialogDarkenLayers && dialogDarkenAnimated);
        QCOMPARE(window->getEditorLocation(), runtime);
        QVERIFY(runEnabled());
        QCOMPARE(window->editorView()->editorScene()->darkness(), 1.0);
        QVERIFY(window->projectIsChanged());
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
            retype(settingsOf(dialog)->EditorLocation, notRuntime);
            press("confirmButton")(dialog);
        }});
        QCOMPARE(window->getEditorLocation(), QString());
        QVERIFY(!runEnabled());

        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = settingsOf(dialog);
            click(settings->dialogDarken);
            settings->Background_Darken->setFocus();
            QTest::keyClick(settings->Background_Darken, Qt::Key_End);
            press("cancelButton")(dialog);
        }});
        QVERIFY(!dialogDarkenLayers);
        QVERIFY(window->editorView()->editorScene()->darkness() < 1.0);
    }

    // A theme chosen applies at once, restyles the program and stays even
    // when the dialog is cancelled.
    void themeAppliesAtOnceAndSurvivesCancel()
    {
        const QColor redTintBackground = storedBackground(QStringLiteral("Red Tint"));
        QVERIFY(redTintBackground.isValid());
        openSettings({[&](TrovDialog* dialog) {
            chooseText(settingsOf(dialog)->Theme, QStringLiteral("Red Tint"));
            QCOMPARE(QApplication::palette().color(QPalette::Window), redTintBackground);
            press("cancelButton")(dialog);
        }});
        QCOMPARE(window->getTheme(), QStringLiteral("Red Tint"));
        QCOMPARE(themeColor(ThemeKey::WindowBackground), redTintBackground);
    }

    // The theme builder: the program follows each colour as it is edited,
    // and the theme made is saved whole and in use; cancelling a second
    // builder brings the theme back.
    void buildingAThemeShowsItLive()
    {
        const QColor before = themeColor(ThemeKey::WindowBackground);
        const QColor edited(255, before.green(), before.blue());
        QColor during;
        openSettings({[&](TrovDialog* dialog) { click(settingsOf(dialog)->createCustomTheme);
                          press("confirmButton")(dialog); },
                      [&](TrovDialog* dialog) {
                          ThemeBuilder* builder = qobject_cast<ThemeBuilder*>(dialog);
                          QCOMPARE(builder->currentKey(), int(ThemeKey::WindowBackground));
                          builder->Red->setFocus();
                          QTest::keyClick(builder->Red, Qt::Key_End);
                          during = themeColor(ThemeKey::WindowBackground);
                          retype(builder->ThemeName, QStringLiteral("Ember"));
                          press("confirmButton")(dialog);
                      }});
        QCOMPARE(during, edited);
        QCOMPARE(window->getTheme(), QStringLiteral("Ember"));
        const QJsonObject saved = QJsonDocument::fromJson(TestEnvironment::readFile(themeFile(QStringLiteral("Ember")))).object();
        QCOMPARE(saved.size(), 148);
        QCOMPARE(saved.value(QStringLiteral("0")).toString(), edited.name());

        openSettings({[&](TrovDialog* dialog) { click(settingsOf(dialog)->editTheme);
                          press("cancelButton")(dialog); },
                      [&](TrovDialog* dialog) {
                          ThemeBuilder* builder = qobject_cast<ThemeBuilder*>(dialog);
                          builder->selectKey(ThemeKey::WindowText);
                          builder->Lightness->setFocus();
                          QTest::keyClick(builder->Lightness, Qt::Key_PageDown);
                          QVERIFY(themeColor(ThemeKey::WindowText) != QColor(Qt::white));
                          press("cancelButton")(dialog);
                      }});
        QCOMPARE(themeColor(ThemeKey::WindowText), QColor(Qt::white));
        QCOMPARE(themeColor(ThemeKey::WindowBackground), edited);
    }

    // Browse starts in the folder typed when it exists, and fills the
    // location with the folder chosen.
    void browseChoosesTheLocation()
    {
        const QString runtime = TestEnvironment::newFolder(QStringLiteral("MZ"));
        QDir(runtime).mkpath(QStringLiteral("nwjs-lin"));
        const QString typed = TestEnvironment::newFolder(QStringLiteral("Games"));
        QString startedIn;
        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = settingsOf(dialog);
            retype(settings->EditorLocation, typed);
            FileAnswer choose(runtime);
            click(settings->pushButton);
            startedIn = choose.openedIn;
            press("confirmButton")(dialog);
        }});
        QCOMPARE(startedIn, typed);
        QCOMPARE(window->getEditorLocation(), runtime);
    }

    // "Create Lang." writes the translation base where the user says, and
    // leaves the language as it was (here cleared by "Disable" just before);
    // cancelling writes nothing.
    void createdLanguageIsTheBase()
    {
        window->setLanguage(QStringLiteral(VELMORA_EXAMPLES "/translations/German.csv"));
        const QString folder = TestEnvironment::newFolder(QStringLiteral("translations"));
        const QString target = folder + QStringLiteral("/Mine.csv");
        QFile base(QStringLiteral(":/VelmoraTranslationBase.csv"));
        QVERIFY(base.open(QIODevice::ReadOnly));
        const QByteArray expected = base.readAll();
        bool nothingOnCancel = false;
        QString languageShown;
        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = settingsOf(dialog);
            click(settings->disableLang);
            {
                FileAnswer cancel{QString()};
                click(settings->createCustomLang);
            }
            nothingOnCancel = QDir(folder).isEmpty();
            {
                FileAnswer save(target);
                click(settings->createCustomLang);
            }
            languageShown = settings->Language->text();
            press("confirmButton")(dialog);
        }});
        QVERIFY(nothingOnCancel);
        QCOMPARE(languageShown, QStringLiteral("None"));
        QCOMPARE(TestEnvironment::readFile(target), expected);
        QCOMPARE(window->getLanguage(), QString());
        QVERIFY(!MorvikCSVTranslator::current());
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
        openSettings({[&](TrovDialog* dialog) { click(settingsOf(dialog)->editTheme);
                          press("confirmButton")(dialog); },
                      [&](TrovDialog* dialog) {
                          ThemeBuilder* builder = qobject_cast<ThemeBuilder*>(dialog);
                          retype(builder->ThemeName, QStringLiteral("Second"));
                          QCOMPARE(builder->ThemeName->warningText(), QStringLiteral("Theme already exists!"));
                          // First "No", then "Yes".
                          question = answering([&] { press("confirmButton")(dialog); }, {press("cancelButton")});
                          QVERIFY(dialog->isVisible());
                          answering([&] { press("confirmButton")(dialog); }, {press("confirmButton")});
                      }});
        QVERIFY2(question.text.contains(QStringLiteral("\"Second\" exists already")), qPrintable(question.text));
        QVERIFY(!QFileInfo::exists(themeFile(QStringLiteral("First"))));
        QCOMPARE(storedBackground(QStringLiteral("Second")), QColor(0x11, 0x22, 0x33));
        QCOMPARE(window->getTheme(), QStringLiteral("Second"));

        openSettings({[&](TrovDialog* dialog) { click(settingsOf(dialog)->deleteTheme);
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
                          chooseText(settingsOf(dialog)->Theme, QStringLiteral("Cut"));
                          press("confirmButton")(dialog);
                      },
                      [&](TrovDialog* dialog) {
                          alert = dialog->findChild<QLabel*>(QStringLiteral("label"))->text();
                          press("okButton")(dialog);
                      }});
        QVERIFY2(alert.contains(QStringLiteral("damaged")) && alert.contains(QStringLiteral("Cut")), qPrintable(alert));
        QCOMPARE(themeColor(0), QColor(0x10, 0x20, 0x30));
        QCOMPARE(themeColor(1), QColor(0x40, 0x50, 0x60));
        QCOMPARE(themeColor(1000), Theme::builtInTable().value(1000));
    }
};

VELMORA_TEST_MAIN(TestSettingsDialog, QApplication)
#include "tst_settingsdialog.moc"
