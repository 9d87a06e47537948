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
    // The dialog flags as a mask: 1 native dialog title bars, 2 darken
    // layered dialogs, 8 animate the darkening, 16 opening animation.
    static int dialogFlags()
    {
        return (dialogNativeTitleBar ? 1 : 0) | (dialogDarkenLayers ? 2 : 0) | (dialogDarkenAnimated ? 8 : 0)
            | (dialogOpenAnimated ? 16 : 0);
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

    void loading_data()
    {
        // Stored values (an invalid variant: not stored), then what the
        // program must make of them. Without a stored style this system (not
        // Windows 10) takes the native frame, 2.
        QTest::addColumn<QVariant>("editor");
        QTest::addColumn<bool>("versioned");
        QTest::addColumn<QVariant>("windowStyle");
        QTest::addColumn<int>("mask");
        QTest::addColumn<int>("style");
        QTest::addColumn<bool>("nativeMenu");
        const QVariant none;
        QTest::newRow("empty store") << none << false << none << 17 << 2 << false;
        // Settings of an older layout get the opening animation, and nothing else changes.
        QTest::newRow("older layout keeps its bits") << QVariant(2 | 8) << false << none << (2 | 8 | 16) << 2 << false;
        QTest::newRow("current layout isn't migrated") << QVariant(2) << true << none << 2 << 2 << false;
        QTest::newRow("unreadable values") << QVariant("lots") << true << QVariant("wide") << 17 << 2 << false;
        // The native menu bar only comes with the native frame.
        QTest::newRow("native menu, native frame") << QVariant(4 | 16) << true << QVariant(2) << 16 << 2 << true;
        QTest::newRow("native menu, frameless") << QVariant(4 | 16) << true << QVariant(0) << 16 << 0 << false;
    }

    void loading()
    {
        QFETCH(QVariant, editor);
        QFETCH(bool, versioned);
        QFETCH(QVariant, windowStyle);
        QFETCH(int, mask);
        {
            SettingsStore store;
            if (editor.isValid())
                store.setValue(QStringLiteral("editor"), editor);
            if (versioned)
                store.setValue(QStringLiteral("settingsVersion"), 1);
            if (windowStyle.isValid())
                store.setValue(QStringLiteral("windowStyle"), windowStyle);
        }
        const Loaded loaded = load();
        QCOMPARE(dialogFlags(), mask);
        QTEST(loaded.style, "style");
        QTEST(loaded.nativeMenu, "nativeMenu");
        QVERIFY(loaded.theme.isEmpty() && loaded.language.isEmpty());
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
        QCOMPARE(dialogFlags(), 1 | 2 | 8);
        QCOMPARE(loaded.style, 0);
        QCOMPARE(loaded.theme, QStringLiteral("Red Tint"));
        QCOMPARE(loaded.language, QStringLiteral("/tmp/de.csv"));

        // A native menu wanted without the native frame isn't kept at the next exit.
        SettingsStore().setValue(QStringLiteral("editor"), 4 | 16);
        Loaded frameless = load();
        AppSettings::save(frameless.style, frameless.nativeMenu, frameless.theme, frameless.language);
        QCOMPARE(SettingsStore().value(QStringLiteral("editor")).toInt() & 4, 0);
    }

    void commandLineProject()
    {
        const QString folder = TestEnvironment::newFolder(QStringLiteral("args"));
        const QString file = folder + QStringLiteral("/Game.txt");
        TestEnvironment::writeFile(file, "not a project marker, but a file");
        const QString twoMarkers = TestEnvironment::newFolder(QStringLiteral("two"));
        TestEnvironment::writeFile(twoMarkers + QStringLiteral("/a.rmmzproject"), "RPGMZ");
        TestEnvironment::writeFile(twoMarkers + QStringLiteral("/b.rmmzproject"), "RPGMZ");
        const QString program = QStringLiteral("velmora");
        // A folder without a marker and a missing file are skipped and named;
        // the suffix of a file is not looked at.
        Startup::CommandLineProject chosen =
            Startup::projectFromArguments({program, folder, folder + QStringLiteral("/missing.rmmzproject"), file});
        QCOMPARE(chosen.folder, QDir(folder).absolutePath());
        QCOMPARE(chosen.problems.size(), 2);
        QVERIFY(chosen.problems.at(0).contains(QDir::toNativeSeparators(folder)));
        QVERIFY(chosen.problems.at(1).contains(QStringLiteral("given on the command line doesn't exist")));
        // Two markers leave the choice to the user.
        chosen = Startup::projectFromArguments({program, twoMarkers});
        QCOMPARE(chosen.folder, QString());
        QCOMPARE(chosen.problems.size(), 1);
        // The program name itself is never a project.
        QCOMPARE(Startup::projectFromArguments({file}).folder, QString());
    }
};

VELMORA_TEST_MAIN(TestSettings, QCoreApplication)
#include "tst_settings.moc"
