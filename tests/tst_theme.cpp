#include "TestEnvironment.h"

#include "theme/CachedColors.h"
#include "theme/ProgramFolders.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QRegularExpression>
#include <QStatusBar>

namespace {

QStringList& messages()
{
    static QStringList list;
    return list;
}

void record(QtMsgType, const QMessageLogContext&, const QString& message)
{
    messages().append(message);
}

}

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

    void partialMissingAndBrokenThemes()
    {
        writeTheme(QStringLiteral("Top Only"), "{\"1\":\"#102030\"}");
        QVERIFY(Theme::load(QStringLiteral("Top Only")));
        QCOMPARE(themeColor(1), QColor(0x10, 0x20, 0x30));

        // A second partial theme keeps what the first left in the keys it omits.
        writeTheme(QStringLiteral("Text Only"), "{\"1004\":\"#abcdef\"}");
        QVERIFY(Theme::load(QStringLiteral("Text Only")));
        QCOMPARE(themeColor(1), QColor(0x10, 0x20, 0x30));
        QCOMPARE(themeColor(1004), QColor(0xab, 0xcd, 0xef));

        // A non-numeric key lands on 0; a bad colour is stored as invalid.
        writeTheme(QStringLiteral("Odd"), "{\"Window\":\"#ff0000\",\"1000\":\"not a colour\",\"77777\":\"#010203\"}");
        QVERIFY(Theme::load(QStringLiteral("Odd")));
        QCOMPARE(themeColor(0), QColor(0xff, 0x00, 0x00));
        QVERIFY(!themeColor(1000).isValid());
        QCOMPARE(themeColor(77777), QColor(1, 2, 3));
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

        // A dot in a theme's name is part of it: listed whole, and loadable.
        QVERIFY(Theme::save(table, QStringLiteral("Dark.v2")));
        QVERIFY(Theme::names().contains(QStringLiteral("Dark.v2")));
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
        QVERIFY(QFileInfo::exists(PathManager::userDataFolder() + QStringLiteral("/Themes/Portable/Theme.json")));
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

    // The style sheet of each shipped theme: every placeholder filled, and
    // Qt takes it without a word; the menus, status bar and group boxes
    // wear the theme's colours.
    void styleSheetOfEveryShippedTheme_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("default") << QString();
        QTest::newRow("Light") << QStringLiteral("Light");
    }

    void styleSheetOfEveryShippedTheme()
    {
        QFETCH(QString, name);
        QVERIFY(Theme::load(name));
        messages().clear();
        const QtMessageHandler previous = qInstallMessageHandler(record);
        Theme::apply();
        // Widgets of the rules that are polished against the sheet.
        QMenu menu;
        menu.addAction(QStringLiteral("Copy"));
        QStatusBar status;
        QGroupBox group(QStringLiteral("HUD Editor"));
        for (QWidget* widget : {static_cast<QWidget*>(&menu), static_cast<QWidget*>(&status), static_cast<QWidget*>(&group)})
            widget->grab();
        qInstallMessageHandler(previous);
        QVERIFY2(messages().isEmpty(), qPrintable(messages().join(QLatin1Char('\n'))));

        const QString sheet = qApp->styleSheet();
        QVERIFY2(!sheet.contains(QRegularExpression(QStringLiteral("%[A-Za-z0-9]*%|%1|%2|\\[[A-Za-z]+\\]"))),
                 qPrintable(sheet));
        auto rgb = [](int key) {
            const QColor color = themeColor(key);
            return QStringLiteral("%1, %2, %3").arg(color.red()).arg(color.green()).arg(color.blue());
        };
        QVERIFY(sheet.contains(QStringLiteral("background-color: rgb(%1);").arg(rgb(ThemeKey::MenuBackgroundColor))));
        QVERIFY(sheet.contains(QStringLiteral("stop:0 rgba(%1,255)").arg(rgb(ThemeKey::StatusBarTop))));
        QVERIFY(sheet.contains(QStringLiteral("stop:0 %1, stop:1 %2").arg(themeColor(ThemeKey::WindowTop).name(),
                                                                        themeColor(ThemeKey::WindowBottom).name())));
    }

    // Theme files that are damaged, partial, huge or not files: what can be
    // read is used, and the problem names the file.
    void damagedThemeFilesAreNamed()
    {
        QString problem;
        // Cut short in the middle of an entry.
        writeTheme(QStringLiteral("Cut"), "{\"0\":\"#0a0b0c\",\"1004\":\"#ddeeff\",\"1005\":\"#12");
        QVERIFY(Theme::load(QStringLiteral("Cut"), &problem));
        QCOMPARE(themeColor(1004), QColor(0xdd, 0xee, 0xff));
        QCOMPARE(themeColor(1005), Theme::builtInTable().value(1005));
        QVERIFY2(problem.contains(QStringLiteral("damaged")) && problem.contains(QStringLiteral("Themes/Cut/Theme.json")),
                 qPrintable(problem));
        QVERIFY2(problem.contains(QStringLiteral("2 colour")), qPrintable(problem));

        // A partial theme written by hand is no problem.
        writeTheme(QStringLiteral("Partial"), "{\"1\":\"#203040\"}");
        QVERIFY(Theme::load(QStringLiteral("Partial"), &problem));
        QVERIFY(problem.isEmpty());

        // Far too large: not read at all.
        const ThemeTable before = Theme::table();
        QByteArray huge("{\"0\":\"#ffffff\"");
        huge.append(QByteArray(Theme::MaximumFileSize, ' '));
        huge.append('}');
        writeTheme(QStringLiteral("Huge"), huge);
        QVERIFY(!Theme::load(QStringLiteral("Huge"), &problem));
        QVERIFY2(problem.contains(QStringLiteral("too large")), qPrintable(problem));
        QCOMPARE(Theme::table(), before);

        // A folder where the file should be.
        QDir().mkpath(programFolder + QStringLiteral("/Themes/Folder/Theme.json"));
        QVERIFY(!Theme::load(QStringLiteral("Folder"), &problem));
        QVERIFY2(problem.contains(QStringLiteral("isn't a file")), qPrintable(problem));
        // Missing file: false and nothing changes.
        QVERIFY(!Theme::load(QStringLiteral("Nowhere"), &problem));
        QVERIFY2(problem.contains(QStringLiteral("has no file")), qPrintable(problem));
        QCOMPARE(Theme::table(), before);
    }

    void renameAndRemove()
    {
        QVERIFY(Theme::save(Theme::builtInTable(), QStringLiteral("Old Name")));
        QVERIFY(Theme::save(Theme::builtInTable(), QStringLiteral("Taken")));
        QString error;
        QVERIFY(!Theme::rename(QStringLiteral("Old Name"), QStringLiteral("Taken"), &error));
        QVERIFY(error.contains(QStringLiteral("exists already")));
        QVERIFY(Theme::rename(QStringLiteral("Old Name"), QStringLiteral("New Name"), &error));
        QVERIFY(!Theme::names().contains(QStringLiteral("Old Name")));
        QVERIFY(Theme::load(QStringLiteral("New Name")));
        QVERIFY(Theme::remove(QStringLiteral("New Name"), &error));
        QVERIFY(!Theme::names().contains(QStringLiteral("New Name")));
        QVERIFY(!Theme::remove(QStringLiteral("New Name"), &error));
    }

    void applyingReachesEveryWidget()
    {
        QLabel label(QStringLiteral("HUD List"));
        ThemeTable table = Theme::table();
        table.insert(ThemeKey::WindowBackground, QColor(0x20, 0x40, 0x60));
        table.insert(ThemeKey::ListItemHover, QColor(0x0a, 0x0b, 0x0c));
        Theme::replace(table);

        QCOMPARE(label.palette().color(QPalette::Window), QColor(0x20, 0x40, 0x60));
        // Lists paint from the cached copies: they follow too.
        QCOMPARE(CachedColor::ListItemHover, QColor(0x0a, 0x0b, 0x0c));
    }
};

VELMORA_TEST_MAIN(TestTheme, QApplication)
#include "tst_theme.moc"
