#include "TestEnvironment.h"

#include "app/PathManager.h"
#include "app/VelmoMainTitleBar.h"
#include "widgets/TitleBarButtons.h"
#include "theme/CachedColors.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

class TestTheme : public QObject
{
    Q_OBJECT

private:
    QString programFolder;

    void writeTheme(const QString& name, const QByteArray& content)
    {
        TestEnvironment::writeFile(programFolder + QStringLiteral("/Themes/%1/Theme.json").arg(name), content);
    }

private slots:
    void initTestCase()
    {
        QApplication::setStyle(new VelmoStyle());
        // Themes are written beside the executable when it can be written to:
        // a scratch copy of the program folder stands in for it.
        programFolder = TestEnvironment::newFolder(QStringLiteral("program"));
        TestEnvironment::copyTree(QCoreApplication::applicationDirPath() + QStringLiteral("/Themes"),
                                  programFolder + QStringLiteral("/Themes"));
        PathManager::setExecutableFolder(programFolder);
    }
    void init() { Theme::installDefault(); }

    void defaultAndBuiltInTables()
    {
        // The default theme is the built-in table with its own "Window Top".
        QCOMPARE(Theme::table().size(), 148);
        QCOMPARE(themeColor(ThemeKey::WindowTop), QColor(0x3c, 0x3c, 0x4b));
        Theme::resetToBuiltIn();
        QCOMPARE(themeColor(ThemeKey::WindowTop), QColor(0x3c, 0x3c, 0x3c));
        QVERIFY(!themeColor(99999).isValid());
        QVERIFY(!themeColor(-1).isValid());
    }

    void partialMissingAndBrokenThemes()
    {
        writeTheme(QStringLiteral("Top Only"), "{\"1\":\"#102030\"}");
        QVERIFY(Theme::load(QStringLiteral("Top Only")));
        QCOMPARE(themeColor(1), QColor(0x10, 0x20, 0x30));
        QCOMPARE(themeColor(0), QColor(0x18, 0x18, 0x22));
        QCOMPARE(Theme::table().size(), 148);

        // A second partial theme keeps what the first left in the keys it omits.
        writeTheme(QStringLiteral("Text Only"), "{\"1004\":\"#abcdef\"}");
        QVERIFY(Theme::load(QStringLiteral("Text Only")));
        QCOMPARE(themeColor(1), QColor(0x10, 0x20, 0x30));
        QCOMPARE(themeColor(1004), QColor(0xab, 0xcd, 0xef));

        // Back to the default: installed whole.
        QVERIFY(Theme::load(QString()));
        QCOMPARE(themeColor(1), QColor(0x3c, 0x3c, 0x4b));
        QCOMPARE(themeColor(1004), QColor(0xff, 0xff, 0xff));

        // A non-numeric key lands on 0; a bad colour is stored as invalid.
        writeTheme(QStringLiteral("Odd"), "{\"Window\":\"#ff0000\",\"1000\":\"not a colour\",\"77777\":\"#010203\"}");
        QVERIFY(Theme::load(QStringLiteral("Odd")));
        QCOMPARE(themeColor(0), QColor(0xff, 0x00, 0x00));
        QVERIFY(!themeColor(1000).isValid());
        QCOMPARE(themeColor(77777), QColor(1, 2, 3));

        // Missing file: false and nothing changes.
        const ThemeTable before = Theme::table();
        QVERIFY(!Theme::load(QStringLiteral("Deleted Theme")));
        QCOMPARE(Theme::table(), before);
        // A file that isn't JSON still counts as loaded and changes nothing.
        writeTheme(QStringLiteral("Garbage"), "\x00\xff not json");
        QVERIFY(Theme::load(QStringLiteral("Garbage")));
        QCOMPARE(Theme::table(), before);
    }

    void savedThemeRoundTrips()
    {
        ThemeTable table = Theme::table();
        table.insert(ThemeKey::ListItemHover, QColor(0x12, 0x34, 0x56));
        QVERIFY(Theme::save(table, QStringLiteral("Mine")));
        // Compact, keys in textual order, lower-case colours.
        const QByteArray bytes = TestEnvironment::readFile(programFolder + QStringLiteral("/Themes/Mine/Theme.json"));
        QVERIFY(bytes.startsWith("{\"0\":\"#181822\",\"1\":\"#3c3c4b\",\"1000\":\"#2a2a2a\","));
        QVERIFY(!bytes.contains('\n'));

        Theme::installDefault();
        QVERIFY(Theme::load(QStringLiteral("Mine")));
        QCOMPARE(Theme::table(), table);
        QVERIFY(Theme::names().contains(QStringLiteral("Mine")));

        // A dot in a theme's name is part of it: listed whole, and loadable.
        QVERIFY(Theme::save(table, QStringLiteral("Dark.v2")));
        QVERIFY(Theme::names().contains(QStringLiteral("Dark.v2")));
        QVERIFY(!Theme::names().contains(QStringLiteral("Dark")));
        Theme::installDefault();
        QVERIFY(Theme::load(QStringLiteral("Dark.v2")));
        QCOMPARE(Theme::table(), table);
    }

    void userFolderWhenTheProgramsIsReadOnly()
    {
        // A program folder that can't be written: themes go to the user's folder.
        PathManager::setExecutableFolder(programFolder + QStringLiteral("/not-there"));
        ThemeTable table = Theme::builtInTable();
        table.insert(0, QColor(0x44, 0x55, 0x66));
        QVERIFY(Theme::save(table, QStringLiteral("Portable")));
        const QString userFile = PathManager::userDataFolder() + QStringLiteral("/Themes/Portable/Theme.json");
        QVERIFY(userFile.startsWith(TestEnvironment::home()));
        QVERIFY(QFileInfo::exists(userFile));
        QVERIFY(Theme::names().contains(QStringLiteral("Portable")));
        QVERIFY(Theme::load(QStringLiteral("Portable")));
        QCOMPARE(themeColor(0), QColor(0x44, 0x55, 0x66));
        PathManager::setExecutableFolder(programFolder);

        // Reading looks in the user's folder before the program's, and a theme
        // the user has there is saved there again, so an edit is never hidden.
        writeTheme(QStringLiteral("Portable"), "{\"0\":\"#000001\"}");
        QVERIFY(Theme::load(QStringLiteral("Portable")));
        QCOMPARE(themeColor(0), QColor(0x44, 0x55, 0x66));
        table.insert(0, QColor(0x01, 0x02, 0x03));
        QVERIFY(Theme::save(table, QStringLiteral("Portable")));
        Theme::installDefault();
        QVERIFY(Theme::load(QStringLiteral("Portable")));
        QCOMPARE(themeColor(0), QColor(0x01, 0x02, 0x03));
    }

    void lightThemeWindowButtonsStandOut()
    {
        // The window buttons' symbols stand out from the title bar (they were
        // once white on the light theme's pale grey).
        QVERIFY(Theme::load(QStringLiteral("Light")));
        Theme::apply();
        VelmoMainTitleBar bar(0, false);
        bar.resize(700, 29);
        bar.show();
        bar.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&bar));
        const QImage image = bar.grab().toImage();
        for (QPushButton* button : {bar.minimizeButton(), bar.maximizeButton(), bar.closeButton()}) {
            // The symbol sits in the middle of the button.
            const QRect area(button->geometry().center() - QPoint(7, 7), QSize(15, 15));
            const QColor background = image.pixelColor(button->geometry().left() + 2, button->geometry().center().y());
            double best = 1;
            for (int y = area.top(); y <= area.bottom(); ++y)
                for (int x = area.left(); x <= area.right(); ++x)
                    best = qMax(best, TestEnvironment::contrast(image.pixelColor(x, y), background));
            QVERIFY2(best >= 3, qPrintable(QStringLiteral("%1: %2").arg(button->objectName()).arg(best)));
        }
    }

    void applyingReachesEveryWidget()
    {
        QLabel label(QStringLiteral("HUD List"));
        ThemeTable table = Theme::table();
        table.insert(ThemeKey::WindowBackground, QColor(0x20, 0x40, 0x60));
        table.insert(ThemeKey::DisabledText, QColor(0x11, 0x22, 0x33));
        table.insert(ThemeKey::ListItemHover, QColor(0x0a, 0x0b, 0x0c));
        Theme::replace(table);

        QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(0x20, 0x40, 0x60));
        QCOMPARE(QApplication::palette().color(QPalette::Disabled, QPalette::Text), QColor(0x11, 0x22, 0x33));
        QCOMPARE(label.palette().color(QPalette::Window), QColor(0x20, 0x40, 0x60));
        // Lists paint from the cached copies: they follow too.
        QCOMPARE(CachedColor::ListItemHover, QColor(0x0a, 0x0b, 0x0c));
    }
};

VELMORA_TEST_MAIN(TestTheme, QApplication)
#include "tst_theme.moc"
