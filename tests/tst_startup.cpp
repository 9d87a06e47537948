#include "TestEnvironment.h"

#include "app/SettingsStore.h"
#include "app/Startup.h"
#include "app/VelmoMainWindow.h"
#include "theme/MorvikCSVTranslator.h"
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"

#include <QAction>
#include <QApplication>
#include <QJsonDocument>

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void init() { SettingsStore().clear(); }
    void cleanup() { MorvikCSVTranslator::removeLanguage(); }

    void missingThemeAndLanguageAreDropped()
    {
        {
            SettingsStore store;
            store.setValue(QStringLiteral("theme"), QStringLiteral("Deleted Theme"));
            store.setValue(QStringLiteral("language"), TestEnvironment::home() + QStringLiteral("/gone/de.csv"));
            store.setValue(QStringLiteral("editor"), QStringLiteral("abc"));
            store.setValue(QStringLiteral("windowStyle"), 0);
        }
        const Startup::Settings settings = Startup::applySettings();
        QCOMPARE(settings.theme, QString());
        QCOMPARE(settings.language, QString());
        QCOMPARE(settings.windowStyle, 0);
        QVERIFY(!settings.nativeMenuBar);
        QVERIFY(!MorvikCSVTranslator::current());
        // The default theme is in force.
        QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(0x18, 0x18, 0x22));

        {
            VelmoMainWindow window(settings.windowStyle, settings.nativeMenuBar, settings.theme, settings.language);
            Startup::saveOnExit(window);
        }
        SettingsStore store;
        QCOMPARE(store.value(QStringLiteral("theme")).toString(), QString());
        QCOMPARE(store.value(QStringLiteral("language")).toString(), QString());
        // Unreadable mask: 17, and nothing of an older layout to migrate past it.
        QCOMPARE(store.value(QStringLiteral("editor")).toInt(), 17);
    }

    void shippedThemeAndLanguageComeUp()
    {
        const QString german = QStringLiteral(VELMORA_EXAMPLES "/translations/German.csv");
        {
            SettingsStore store;
            store.setValue(QStringLiteral("theme"), QStringLiteral("Red Tint"));
            store.setValue(QStringLiteral("language"), german);
            store.setValue(QStringLiteral("windowStyle"), 2);
            store.setValue(QStringLiteral("editor"), 4 | 2);
            store.setValue(QStringLiteral("settingsVersion"), 1);
        }
        const Startup::Settings settings = Startup::applySettings();
        QCOMPARE(settings.theme, QStringLiteral("Red Tint"));
        QCOMPARE(settings.language, german);
        QVERIFY(settings.nativeMenuBar);

        // The window's background is the theme file's key 0.
        const QJsonObject file = QJsonDocument::fromJson(TestEnvironment::readFile(
            QCoreApplication::applicationDirPath() + QStringLiteral("/Themes/Red Tint/Theme.json"))).object();
        QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(file.value(QStringLiteral("0")).toString()));

        {
            VelmoMainWindow window(settings.windowStyle, settings.nativeMenuBar, settings.theme, settings.language);
            QCOMPARE(window.findChild<QAction*>(QStringLiteral("Action_SaveProject"))->text(),
                     QStringLiteral("Projekt speichern"));
            Startup::saveOnExit(window);
        }
        QVERIFY(!MorvikCSVTranslator::current());
        QCOMPARE(QCoreApplication::translate("", "Save Project"), QStringLiteral("Save Project"));
        SettingsStore store;
        QCOMPARE(store.value(QStringLiteral("theme")).toString(), QStringLiteral("Red Tint"));
        QCOMPARE(store.value(QStringLiteral("language")).toString(), german);
        QCOMPARE(store.value(QStringLiteral("editor")).toInt(), 4 | 2);
    }
};

VELMORA_TEST_MAIN(TestStartup, QApplication)
#include "tst_startup.moc"
