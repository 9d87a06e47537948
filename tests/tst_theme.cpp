#include "TestEnvironment.h"

#include "app/PathManager.h"
#include "theme/CachedColors.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "theme/ThemeManager_Velmo.h"
#include "theme/VelmoStyle.h"

#include <QApplication>
#include <QJsonDocument>
#include <QLabel>

namespace {

// The default theme as the program must show it, key by key.
const QVector<QPair<int, const char*>> defaultTheme = {
        {0, "#181822"},
        {1, "#3c3c4b"},
        {2, "#232323"},
        {3, "#ffffff"},
        {4, "#7f7f7f"},
        {1000, "#2a2a2a"},
        {1001, "#424242"},
        {1002, "#ffffff"},
        {1003, "#ffffff"},
        {1004, "#ffffff"},
        {1005, "#7f7f7f"},
        {1006, "#232323"},
        {1007, "#141414"},
        {1008, "#353535"},
        {2000, "#ffffff"},
        {2001, "#7f7f7f"},
        {2002, "#ff0000"},
        {2003, "#2a82da"},
        {2004, "#2078d0"},
        {2005, "#505050"},
        {2006, "#ffffff"},
        {2007, "#7f7f7f"},
        {2008, "#000000"},
        {3000, "#7d7dff"},
        {3001, "#5050b4"},
        {4000, "#ffffff"},
        {4001, "#000000"},
        {5000, "#646464"},
        {5001, "#9c9c9c"},
        {5002, "#64ff64"},
        {5003, "#ff6464"},
        {5004, "#ffffff"},
        {5005, "#282828"},
        {6000, "#646464"},
        {6001, "#9c9c9c"},
        {6002, "#64ff64"},
        {6003, "#ffffff"},
        {6004, "#282828"},
        {6005, "#2d2d2d"},
        {6006, "#000000"},
        {6007, "#5a5a5a"},
        {7000, "#646464"},
        {7001, "#9c9c9c"},
        {7002, "#64ff64"},
        {7003, "#ff6464"},
        {7004, "#ffffff"},
        {7005, "#282828"},
        {8000, "#646464"},
        {8001, "#9c9c9c"},
        {8002, "#64ff64"},
        {8003, "#ffffff"},
        {8004, "#282828"},
        {9000, "#0f0f0f"},
        {9001, "#2d2d2d"},
        {9002, "#191919"},
        {9003, "#64ff64"},
        {10000, "#646464"},
        {10001, "#9c9c9c"},
        {10002, "#000000"},
        {10003, "#414141"},
        {10004, "#64c864"},
        {10005, "#000000"},
        {10006, "#646464"},
        {10007, "#4b4b4b"},
        {10008, "#2d2d2d"},
        {10009, "#282828"},
        {11000, "#646464"},
        {11001, "#9c9c9c"},
        {11002, "#1e1e1e"},
        {11003, "#aaaaaa"},
        {11004, "#64ff64"},
        {11005, "#282828"},
        {12000, "#7d7dff"},
        {12001, "#4141ff"},
        {13000, "#64ff64"},
        {13001, "#64ff64"},
        {14000, "#000000"},
        {14001, "#7db4ff"},
        {15000, "#282828"},
        {15001, "#646464"},
        {16000, "#3c3c3c"},
        {16001, "#000000"},
        {16002, "#326464"},
        {16003, "#643c3c"},
        {16004, "#64643c"},
        {16005, "#4b3c4b"},
        {16006, "#3c5096"},
        {16007, "#64503c"},
        {17000, "#2b2b2b"},
        {17001, "#222222"},
        {17002, "#353535"},
        {17003, "#191919"},
        {17004, "#000000"},
        {17005, "#4c4c4c"},
        {17006, "#4c4c4c"},
        {17007, "#ffffff"},
        {17008, "#17eeff"},
        {17009, "#009ef7"},
        {17010, "#0054b7"},
        {17011, "#003264"},
        {17012, "#0064c8"},
        {17013, "#7d7d7d"},
        {18000, "#3232c8"},
        {18001, "#000000"},
        {18002, "#000000"},
        {18003, "#ffffff"},
        {18004, "#ffffff"},
        {18005, "#000000"},
        {19000, "#353535"},
        {19001, "#1c1c1c"},
        {20000, "#181818"},
        {20001, "#1a1a1a"},
        {20002, "#262626"},
        {21000, "#505050"},
        {21001, "#262626"},
        {21002, "#1a1a1a"},
        {22000, "#2d2d2d"},
        {22001, "#004ea0"},
        {22002, "#2078d0"},
        {22003, "#0c64bc"},
        {23000, "#191919"},
        {23001, "#353535"},
        {24000, "#191919"},
        {24001, "#353535"},
        {25000, "#3c3c50"},
        {25001, "#6464c8"},
        {26000, "#191919"},
        {26001, "#353535"},
        {26002, "#191919"},
        {27000, "#303030"},
        {27001, "#424242"},
        {27002, "#282828"},
        {27003, "#303030"},
        {27004, "#646464"},
        {27005, "#303030"},
        {28000, "#171717"},
        {28001, "#121212"},
        {28002, "#171717"},
        {29000, "#303030"},
        {29001, "#424242"},
        {29002, "#646464"},
        {30000, "#2b2b2b"},
        {30001, "#000000"},
        {31000, "#121212"},
        {32000, "#2d2d2d"},
        {32001, "#191919"},
        {32002, "#000000"},
        {33000, "#b4b4b4"}
};

double luminance(const QColor& color)
{
    auto channel = [](int value) {
        const double c = value / 255.0;
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(color.red()) + 0.7152 * channel(color.green()) + 0.0722 * channel(color.blue());
}

double contrast(const QColor& a, const QColor& b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

class PaletteChangeCounter : public QObject
{
public:
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::ApplicationPaletteChange)
            ++count;
        return false;
    }
};

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

    void defaultTable()
    {
        QCOMPARE(defaultTheme.size(), 148);
        QCOMPARE(Theme::table().size(), 148);
        for (const auto& entry : defaultTheme)
            QVERIFY2(themeColor(entry.first) == QColor(QLatin1String(entry.second)),
                     qPrintable(QStringLiteral("key %1: %2").arg(entry.first).arg(themeColor(entry.first).name())));
        // The table itself holds #3c3c3c as "Window Top"; the default theme changes it.
        QCOMPARE(Theme::builtInTable().value(ThemeKey::WindowTop), QColor(0x3c, 0x3c, 0x3c));
        Theme::resetToBuiltIn();
        QCOMPARE(themeColor(1), QColor(0x3c, 0x3c, 0x3c));
        QVERIFY(!themeColor(99999).isValid());
        QVERIFY(!themeColor(-1).isValid());
    }

    void groupsForTheBuilder()
    {
        const QList<ThemeColorGroup> groups = ThemeManager_Velmo().colorGroups();
        QStringList names;
        int entries = 0;
        QList<int> keys;
        for (const ThemeColorGroup& group : groups) {
            names.append(group.name);
            entries += group.entries.size();
            for (const ThemeColorEntry& entry : group.entries)
                keys.append(entry.key);
        }
        QCOMPARE(names, QStringList({"Window", "Basic", "Text", "Button", "Text Input", "Drop Down", "Either Box",
                                     "Dialog Opener", "Check Box", "Slider", "Color Picker", "Horizontal Line",
                                     "Group Box UI", "List UI", "Menu Bar and Items", "Obscure Features",
                                     "Component Editor", "Other"}));
        QCOMPARE(entries, 146);
        QVERIFY(!keys.contains(5004));
        QVERIFY(!keys.contains(14001));
        QCOMPARE(groups.at(0).entries.at(1).name, QStringLiteral("Window Top"));
        QCOMPARE(groups.at(0).entries.at(1).key, 1);
        // The drop-down group lists "Base" (6001) before "Hover" (6000).
        QCOMPARE(groups.at(5).entries.at(0).key, 6001);
        int sliderBackgrounds = 0;
        for (const ThemeColorEntry& entry : groups.at(9).entries)
            sliderBackgrounds += entry.name == QLatin1String("Slider Background");
        QCOMPARE(sliderBackgrounds, 2);
    }

    void partialAndMalformedThemes()
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
        const QString path = programFolder + QStringLiteral("/Themes/Mine/Theme.json");
        const QByteArray bytes = TestEnvironment::readFile(path);
        QVERIFY(bytes.startsWith("{\"0\":\"#181822\",\"1\":\"#3c3c4b\",\"1000\":\"#2a2a2a\","));
        QVERIFY(bytes.contains("\"17013\":\"#123456\""));
        QVERIFY(!bytes.contains('\n'));
        QCOMPARE(QJsonDocument::fromJson(bytes).object().size(), 148);

        Theme::installDefault();
        QVERIFY(Theme::load(QStringLiteral("Mine")));
        QCOMPARE(Theme::table(), table);
        QVERIFY(Theme::names().contains(QStringLiteral("Mine")));
        QVERIFY(Theme::names().contains(QStringLiteral("Red Tint")));
        QVERIFY(Theme::names().contains(QStringLiteral("Light")));

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

    void shippedThemes()
    {
        for (const QString& name : {QStringLiteral("Red Tint"), QStringLiteral("Light")}) {
            Theme::installDefault();
            QVERIFY(Theme::load(name));
            int changed = 0;
            for (const auto& entry : defaultTheme) {
                QVERIFY2(themeColor(entry.first).isValid(), qPrintable(name));
                changed += themeColor(entry.first) != QColor(QLatin1String(entry.second));
            }
            QVERIFY2(changed > 60, qPrintable(QStringLiteral("%1: %2 colours differ").arg(name).arg(changed)));
            const QJsonObject file = QJsonDocument::fromJson(
                TestEnvironment::readFile(Theme::filePath(name))).object();
            QCOMPARE(file.size(), 148);
        }
        QCOMPARE(themeColor(ThemeKey::WindowTop).isValid(), true);

        // Every text of the light theme reads on its surface.
        Theme::installDefault();
        QVERIFY(Theme::load(QStringLiteral("Light")));
        const QPair<int, int> pairs[] = {{ThemeKey::Text, ThemeKey::Base},
                                         {ThemeKey::WindowText, ThemeKey::WindowBackground},
                                         {ThemeKey::ButtonText, ThemeKey::Button},
                                         {ThemeKey::ToolTipText, ThemeKey::ToolTipBase},
                                         {ThemeKey::HighlightedText, ThemeKey::Highlight}};
        for (const auto& pair : pairs) {
            const double ratio = contrast(themeColor(pair.first), themeColor(pair.second));
            QVERIFY2(ratio >= 4.5, qPrintable(QStringLiteral("%1 on %2: %3").arg(pair.first).arg(pair.second).arg(ratio)));
        }
        Theme::installDefault();
        QVERIFY(Theme::load(QStringLiteral("Red Tint")));
        QCOMPARE(themeColor(ThemeKey::WindowTop), QColor(0x4b, 0x3c, 0x3c));
    }

    void applyingReachesEveryWidget()
    {
        QLabel label(QStringLiteral("HUD List"));
        PaletteChangeCounter counter;
        label.installEventFilter(&counter);

        ThemeTable table = Theme::table();
        table.insert(ThemeKey::WindowBackground, QColor(0x20, 0x40, 0x60));
        table.insert(ThemeKey::DisabledText, QColor(0x11, 0x22, 0x33));
        table.insert(ThemeKey::ListItemHover, QColor(0x0a, 0x0b, 0x0c));
        Theme::replace(table);

        QCOMPARE(themeColor(ThemeKey::WindowBackground), QColor(0x20, 0x40, 0x60));
        QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(0x20, 0x40, 0x60));
        QCOMPARE(QApplication::palette().color(QPalette::Disabled, QPalette::Text), QColor(0x11, 0x22, 0x33));
        QCOMPARE(QApplication::palette().color(QPalette::Active, QPalette::Text), QColor(0xff, 0xff, 0xff));
        QCOMPARE(label.palette().color(QPalette::Window), QColor(0x20, 0x40, 0x60));
        QVERIFY(counter.count >= 1);
        QCOMPARE(CachedColor::ListItemHover, QColor(0x0a, 0x0b, 0x0c));

        // The cached copies follow every key they stand for.
        Theme::installDefault();
        Theme::refreshCachedColors();
        QCOMPARE(CachedColor::TileCursorBase, QColor(0xff, 0xff, 0xff));
        QCOMPARE(CachedColor::TextBoxUnnamed, QColor(0x7d, 0xb4, 0xff));
        QCOMPARE(CachedColor::PicChoiceListBorder, QColor(0x00, 0x00, 0x00));
        QCOMPARE(CachedColor::ListItemHover, QColor(0x7d, 0x7d, 0x7d));
        QCOMPARE(CachedColor::DropDownUIListScrollbar, QColor(0x5a, 0x5a, 0x5a));
    }
};

VELMORA_TEST_MAIN(TestTheme, QApplication)
#include "tst_theme.moc"
