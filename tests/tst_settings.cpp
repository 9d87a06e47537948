#include "TestEnvironment.h"

#include "app/AppSettings.h"
#include "app/SettingsStore.h"
#include "app/Startup.h"
#include "widgets/DialogFlags.h"

#include <QCoreApplication>
#include <QDir>

class TestSettings : public QObject
{
    Q_OBJECT

private:
    struct Loaded {
        int style = -1;
        bool nativeMenu = false;
        QString theme;
        QString language;
    };
    static Loaded load()
    {
        Loaded loaded;
        AppSettings::load(loaded.style, loaded.nativeMenu, loaded.theme, loaded.language);
        return loaded;
    }
    static void setDialogFlags(bool native, bool darken, bool animatedDarken, bool opening)
    {
        dialogNativeTitleBar = native;
        dialogDarkenLayers = darken;
        dialogDarkenAnimated = animatedDarken;
        dialogOpenAnimated = opening;
    }

private slots:
    void init()
    {
        SettingsStore().clear();
        setDialogFlags(false, false, false, false);
    }

    void storeIsIsolated()
    {
        SettingsStore store;
        QVERIFY(store.fileName().startsWith(TestEnvironment::home()));
        QVERIFY(store.fileName().contains(QStringLiteral("Ostrel Vane")));
    }

    void emptyStoreGivesDefaults()
    {
        const Loaded loaded = load();
        // No "editor": mask 17, native dialog title bars and the opening animation.
        QVERIFY(dialogNativeTitleBar);
        QVERIFY(!dialogDarkenLayers);
        QVERIFY(!dialogDarkenAnimated);
        QVERIFY(dialogOpenAnimated);
        QVERIFY(!loaded.nativeMenu);
        // Not Windows 10: the native frame.
        QCOMPARE(loaded.style, int(AppSettings::Native));
        QVERIFY(loaded.theme.isEmpty());
        QVERIFY(loaded.language.isEmpty());
    }

    void olderLayoutGetsOpeningAnimation()
    {
        {
            SettingsStore store;
            store.setValue(QStringLiteral("editor"), 0);
        }
        load();
        QVERIFY(!dialogNativeTitleBar);
        QVERIFY(!dialogDarkenLayers);
        QVERIFY(!dialogDarkenAnimated);
        QVERIFY(dialogOpenAnimated);

        // Bits already set stay as they were; only 16 is added.
        SettingsStore().setValue(QStringLiteral("editor"), 2 | 8);
        load();
        QVERIFY(dialogDarkenLayers);
        QVERIFY(dialogDarkenAnimated);
        QVERIFY(dialogOpenAnimated);
        QVERIFY(!dialogNativeTitleBar);
    }

    void currentLayoutIsNotMigrated()
    {
        {
            SettingsStore store;
            store.setValue(QStringLiteral("editor"), 2);
            store.setValue(QStringLiteral("settingsVersion"), 1);
        }
        load();
        QVERIFY(dialogDarkenLayers);
        QVERIFY(!dialogOpenAnimated);
        QVERIFY(!dialogNativeTitleBar);

        // "editor" absent with a version: the default mask 17.
        SettingsStore().remove(QStringLiteral("editor"));
        load();
        QVERIFY(dialogNativeTitleBar);
        QVERIFY(dialogOpenAnimated);
        QVERIFY(!dialogDarkenLayers);
    }

    void unreadableValuesFallBack()
    {
        {
            SettingsStore store;
            store.setValue(QStringLiteral("editor"), QStringLiteral("lots"));
            store.setValue(QStringLiteral("windowStyle"), QStringLiteral("wide"));
            store.setValue(QStringLiteral("settingsVersion"), 1);
        }
        const Loaded loaded = load();
        QVERIFY(dialogNativeTitleBar);
        QVERIFY(dialogOpenAnimated);
        QCOMPARE(loaded.style, int(AppSettings::Native));
    }

    void nativeMenuBarOnlyWithNativeStyle()
    {
        {
            SettingsStore store;
            store.setValue(QStringLiteral("editor"), 4 | 16);
            store.setValue(QStringLiteral("settingsVersion"), 1);
            store.setValue(QStringLiteral("windowStyle"), 2);
        }
        Loaded loaded = load();
        QCOMPARE(loaded.style, 2);
        QVERIFY(loaded.nativeMenu);

        for (int style : {0, 1}) {
            SettingsStore().setValue(QStringLiteral("windowStyle"), style);
            loaded = load();
            QCOMPARE(loaded.style, style);
            QVERIFY(!loaded.nativeMenu);
            // Written back from what the window holds, bit 4 is gone.
            AppSettings::save(loaded.style, loaded.nativeMenu, loaded.theme, loaded.language);
            QCOMPARE(SettingsStore().value(QStringLiteral("editor")).toInt() & 4, 0);
            SettingsStore().setValue(QStringLiteral("editor"), 4 | 16);
        }

        // No stored style on a system that isn't Windows 10: native frame, and
        // the decoded menu flag stays.
        SettingsStore().remove(QStringLiteral("windowStyle"));
        loaded = load();
        QCOMPARE(loaded.style, 2);
        QVERIFY(loaded.nativeMenu);
    }

    void saveWritesEveryKeyAndRoundTrips()
    {
        setDialogFlags(true, true, true, false);
        AppSettings::save(0, false, QStringLiteral("Red Tint"), QStringLiteral("/tmp/de.csv"));
        {
            SettingsStore store;
            QCOMPARE(store.value(QStringLiteral("editor")).toInt(), 1 | 2 | 8);
            QCOMPARE(store.value(QStringLiteral("windowStyle")).toInt(), 0);
            QCOMPARE(store.value(QStringLiteral("theme")).toString(), QStringLiteral("Red Tint"));
            QCOMPARE(store.value(QStringLiteral("language")).toString(), QStringLiteral("/tmp/de.csv"));
            QCOMPARE(store.value(QStringLiteral("settingsVersion")).toInt(), 1);
        }
        setDialogFlags(false, false, false, true);
        const Loaded loaded = load();
        // With a version present nothing is migrated: the opening animation stays off.
        QVERIFY(dialogNativeTitleBar);
        QVERIFY(dialogDarkenLayers);
        QVERIFY(dialogDarkenAnimated);
        QVERIFY(!dialogOpenAnimated);
        QCOMPARE(loaded.style, 0);
        QCOMPARE(loaded.theme, QStringLiteral("Red Tint"));
        QCOMPARE(loaded.language, QStringLiteral("/tmp/de.csv"));
    }

    void commandLineProject()
    {
        const QString folder = TestEnvironment::newFolder(QStringLiteral("args"));
        const QString file = folder + QStringLiteral("/Game.txt");
        TestEnvironment::writeFile(file, "not a project marker, but a file");
        const QString otherFolder = TestEnvironment::newFolder(QStringLiteral("other"));
        TestEnvironment::writeFile(otherFolder + QStringLiteral("/game.rmmzproject"), "RPGMZ");
        const QString twoMarkers = TestEnvironment::newFolder(QStringLiteral("two"));
        TestEnvironment::writeFile(twoMarkers + QStringLiteral("/a.rmmzproject"), "RPGMZ");
        TestEnvironment::writeFile(twoMarkers + QStringLiteral("/b.rmmzproject"), "RPGMZ");
        const QString missing = folder + QStringLiteral("/missing.rmmzproject");

        const QString program = QStringLiteral("velmora");
        QCOMPARE(Startup::projectFromArguments({program}).folder, QString());
        QVERIFY(Startup::projectFromArguments({program}).problems.isEmpty());
        // A folder without a marker and a missing file are skipped and named;
        // the suffix of a file is not looked at.
        Startup::CommandLineProject chosen = Startup::projectFromArguments({program, folder, missing, file});
        QCOMPARE(chosen.folder, QDir(folder).absolutePath());
        QCOMPARE(chosen.problems.size(), 2);
        QVERIFY(chosen.problems.at(0).contains(QDir::toNativeSeparators(folder)));
        QVERIFY(chosen.problems.at(1).contains(QStringLiteral("doesn't exist")));
        // A folder with one project file is that project; the first usable argument wins.
        chosen = Startup::projectFromArguments({program, otherFolder, file});
        QCOMPARE(chosen.folder, QDir(otherFolder).absolutePath());
        QVERIFY(chosen.problems.isEmpty());
        // Two markers leave the choice to the user.
        chosen = Startup::projectFromArguments({program, twoMarkers});
        QCOMPARE(chosen.folder, QString());
        QCOMPARE(chosen.problems.size(), 1);
        // The program name itself is never a project.
        QCOMPARE(Startup::projectFromArguments({file}).folder, QString());

        QVERIFY(Startup::commandLineAnswer({program, QStringLiteral("--help")}).startsWith(QStringLiteral("Usage: velmora")));
        QVERIFY(Startup::commandLineAnswer({program, file, QStringLiteral("--version")}).startsWith(QStringLiteral("velmora ")));
        QVERIFY(Startup::commandLineAnswer({program, file}).isEmpty());
    }
};

VELMORA_TEST_MAIN(TestSettings, QCoreApplication)
#include "tst_settings.moc"
