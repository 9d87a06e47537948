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
#include "widgets/DialogOverlay.h"
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

// The dim laid over the main window while a dialog of its own runs.
DialogOverlay* windowDim(QWidget* window)
{
    return window->findChild<DialogOverlay*>(QString(), Qt::FindDirectChildrenOnly);
}

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

    // F1 pressed on the active window, as a user asks for the about box.
    void pressF1()
    {
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), Qt::Key_F1);
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

    // Browse fills the location with the folder chosen, starting in the one
    // typed when it exists; cancelling the folder dialog changes nothing.
    void browseChoosesTheLocation()
    {
        const QString runtime = TestEnvironment::newFolder(QStringLiteral("MZ"));
        QDir(runtime).mkpath(QStringLiteral("nwjs-lin"));
        const QString typed = TestEnvironment::newFolder(QStringLiteral("Games"));
        QString cancelledText = QStringLiteral("unset");
        QString startedIn;
        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = qobject_cast<VelmoSettings*>(dialog);
            click(settings->EditorLocation);
            QTest::keyClicks(settings->EditorLocation, typed);
            {
                FileAnswer cancel{QString()};
                click(settings->pushButton);
                startedIn = cancel.openedIn;
            }
            cancelledText = settings->EditorLocation->text();
            {
                FileAnswer choose(runtime);
                click(settings->pushButton);
            }
            QCOMPARE(QDir::fromNativeSeparators(settings->EditorLocation->text()), runtime);
            press("confirmButton")(dialog);
        }});
        QCOMPARE(startedIn, typed);
        QCOMPARE(QDir::fromNativeSeparators(cancelledText), typed);
        QCOMPARE(window->getEditorLocation(), runtime);
        QVERIFY(window->findChild<QAction*>(QStringLiteral("Action_Run"))->isEnabled());
        Startup::saveOnExit(*window);
        window->markChanged();
        answering([&] { window->close(); }, {press("cancelButton")});
        QCOMPARE(SettingsStore().value(QStringLiteral("EditorLocation")).toString(), runtime);
    }

    // "Create Lang." writes the translation base where the user says, and
    // leaves the language as it was; cancelling writes nothing.
    void createdLanguageIsTheBase()
    {
        const QString folder = TestEnvironment::newFolder(QStringLiteral("translations"));
        const QString target = folder + QStringLiteral("/Mine.csv");
        QFile base(QStringLiteral(":/VelmoraTranslationBase.csv"));
        QVERIFY(base.open(QIODevice::ReadOnly));
        const QByteArray expected = base.readAll();
        QVERIFY(expected.startsWith('"'));
        bool nothingOnCancel = false;
        QString languageShown;
        bool restartShown = true;
        openSettings({[&](TrovDialog* dialog) {
            VelmoSettings* settings = qobject_cast<VelmoSettings*>(dialog);
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
            restartShown = settings->restartRequired->isVisible();
            press("confirmButton")(dialog);
        }});
        QVERIFY(nothingOnCancel);
        QCOMPARE(languageShown, QStringLiteral("None"));
        QVERIFY(!restartShown);
        QCOMPARE(TestEnvironment::readFile(target), expected);
        QCOMPARE(window->getLanguage(), QString());
        QVERIFY(!MorvikCSVTranslator::current());
    }

    // "Show Dialog Animation" alone decides whether the next dialog fades
    // in; the darkening goes its own way.
    void openingAnimationFollowsItsOwnBox()
    {
        double opacityAtShow = -1;
        bool dimmed = false;
        bool fadedIn = false;
        struct ShowWatch : QObject {
            double* opacity;
            explicit ShowWatch(double* opacity) : opacity(opacity) {}
            bool eventFilter(QObject* watched, QEvent* event) override
            {
                TrovDialog* dialog = qobject_cast<TrovDialog*>(watched);
                if (dialog && event->type() == QEvent::Show) {
                    // Read once the dialog's own show has run.
                    QTimer::singleShot(0, dialog, [dialog, this]() { *opacity = dialog->windowOpacity(); });
                }
                return false;
            }
        } watch(&opacityAtShow);
        qApp->installEventFilter(&watch);
        auto openAbout = [&]() {
            opacityAtShow = -1;
            answering([&] { pressF1(); },
                      {[&](TrovDialog* dialog) {
                          dimmed = windowDim(window.get()) != nullptr;
                          fadedIn = QTest::qWaitFor([dialog]() { return dialog->windowOpacity() == 1.0; });
                          press("cancelButton")(dialog);
                      }});
        };
        auto toggle = [&](std::initializer_list<const char*> boxes) {
            openSettings({[&](TrovDialog* dialog) {
                for (const char* box : boxes)
                    click(dialog->findChild<MyCheckBox*>(QLatin1String(box)));
                press("confirmButton")(dialog);
            }});
        };

        // Darkening on, animation off: the dialog stands at once.
        toggle({"dialogDarken"});
        QVERIFY(dialogDarkenLayers && !dialogOpenAnimated);
        openAbout();
        QCOMPARE(opacityAtShow, 1.0);
        QVERIFY(fadedIn);
        QVERIFY(dimmed);

        // The reverse: it fades in, over a window that stays clear.
        toggle({"dialogDarken", "dialogShowAnimation"});
        QVERIFY(!dialogDarkenLayers && dialogOpenAnimated);
        openAbout();
        QVERIFY2(opacityAtShow >= 0 && opacityAtShow < 1.0, qPrintable(QString::number(opacityAtShow)));
        QVERIFY(fadedIn);
        QVERIFY(!dimmed);
        qApp->removeEventFilter(&watch);
    }

    // With darkening on, the window dims under the settings, the about box
    // and the component list help, as under every dialog of the canvas, and
    // clears when they close.
    void commandDialogsDimTheWindow()
    {
        dialogDarkenLayers = true;
        bool settingsDimmed = false;
        openSettings({[&](TrovDialog* dialog) {
            const DialogOverlay* dim = windowDim(window.get());
            settingsDimmed = dim && dim->isVisible() && dim->currState() == 100;
            press("cancelButton")(dialog);
        }});
        QVERIFY(settingsDimmed);
        QVERIFY(!windowDim(window.get()));

        bool aboutDimmed = false;
        answering([&] { pressF1(); },
                  {[&](TrovDialog* dialog) {
                      aboutDimmed = windowDim(window.get()) && windowDim(window.get())->isVisible();
                      press("cancelButton")(dialog);
                  }});
        QVERIFY(aboutDimmed);
        QVERIFY(!windowDim(window.get()));

        bool helpDimmed = false;
        QPushButton* hint = window->findChild<QPushButton*>(QStringLiteral("hintComponentButton"));
        answering([&] { click(hint); },
                  {[&](TrovDialog* dialog) {
                      helpDimmed = windowDim(window.get()) && windowDim(window.get())->isVisible();
                      press("cancelButton")(dialog);
                  }});
        QVERIFY(helpDimmed);
        QVERIFY(!windowDim(window.get()));

        bool hudDimmed = false;
        auto* huds = window->findChild<UltimateTreeWidget*>(QStringLiteral("hudList"));
        const TestEnvironment::Seen seen = answering([&] { TestEnvironment::clickRow(huds, 0, true); },
                  {[&](TrovDialog* dialog) {
                      hudDimmed = windowDim(window.get()) && windowDim(window.get())->isVisible();
                      press("cancelButton")(dialog);
                  }});
        QCOMPARE(seen.count, 1);
        QVERIFY(hudDimmed);
        QVERIFY(!windowDim(window.get()));
    }

    // In German every colour name of the theme builder stands whole in its
    // list, none cut short.
    void colourNamesStandWholeInGerman()
    {
        MorvikCSVTranslator::installLanguage(QStringLiteral(VELMORA_EXAMPLES "/translations/German.csv"));
        QStringList cut;
        int names = 0;
        QString firstGroup;
        openSettings({[&](TrovDialog* dialog) { click(qobject_cast<VelmoSettings*>(dialog)->createCustomTheme);
                          press("cancelButton")(dialog); },
                      [&](TrovDialog* dialog) {
                          UltimateTree* tree = dialog->findChild<UltimateTreeWidget*>(QStringLiteral("colors"))->tree();
                          firstGroup = tree->row(0)->text(0);
                          const QFontMetrics metrics(tree->font());
                          for (int group = 0; group < tree->rowCount(); ++group) {
                              const UltimateTreeItem* top = tree->row(group);
                              for (int child = 0; child < top->childCount(); ++child) {
                                  const UltimateTreeItem* row = top->child(child);
                                  ++names;
                                  // What a row has for its name: the list's width less its
                                  // indent, the space before the text and the gap after it.
                                  const int room = tree->getViewWidth() - row->depth() * row->rowHeight()
                                      - tree->textOffsetFor(row) - 7;
                                  if (metrics.elidedText(row->text(0), Qt::ElideRight, room) != row->text(0))
                                      cut << row->text(0);
                              }
                          }
                          press("cancelButton")(dialog);
                      }});
        QCOMPARE(firstGroup, QStringLiteral("Fenster"));
        QVERIFY(names > 140);
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join(QStringLiteral(", "))));
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
