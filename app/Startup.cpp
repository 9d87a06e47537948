#include "app/Startup.h"

#include "app/AppSettings.h"
#include "app/VelmoMainWindow.h"
#include "theme/MorvikCSVTranslator.h"
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"

#include <QApplication>
#include <QFileInfo>
#include <QPixmap>
#include <QSplashScreen>

void initVelmoraResources()
{
    Q_INIT_RESOURCE(velmora);
}

namespace Startup {

QString projectFromArguments(const QStringList& arguments)
{
    for (int i = 1; i < arguments.size(); ++i) {
        const QFileInfo info(arguments.at(i));
        if (info.exists() && info.isFile())
            return info.absolutePath();
    }
    return QString();
}

Settings applySettings()
{
    Settings settings;
    AppSettings::load(settings.windowStyle, settings.nativeMenuBar, settings.theme, settings.language);

    Theme::installDefault();
    // A theme that is gone or unreadable leaves the default table, and the
    // name is dropped from the settings at exit.
    if (!settings.theme.isEmpty()) {
        if (Theme::load(settings.theme))
            Theme::apply();
        else
            settings.theme.clear();
    }
    Theme::refreshCachedColors();

    // Likewise a language file that is gone.
    if (!QFileInfo(settings.language).isFile())
        settings.language.clear();
    MorvikCSVTranslator::installLanguage(settings.language);

    QApplication::setStyle(new VelmoStyle());
    return settings;
}

void saveOnExit(const VelmoMainWindow& mainWindow)
{
    AppSettings::save(mainWindow.getWindowStyle(), mainWindow.getNativeMenuBar(), mainWindow.getTheme(),
                      mainWindow.getLanguage());
    MorvikCSVTranslator::removeLanguage();
}

int run(int argc, char** argv)
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication application(argc, argv);
    initVelmoraResources();
    // The names of the settings store, so that the user's data folders match it.
    QApplication::setOrganizationName(QStringLiteral("Ostrel Vane"));
    QApplication::setApplicationName(QStringLiteral("Velmora 2"));
    QApplication::setApplicationVersion(QStringLiteral(VELMORA_VERSION));

    QSplashScreen splash(QPixmap(QStringLiteral(":/SplashScreen.png")));
    splash.show();
    QCoreApplication::processEvents();

    const Settings settings = applySettings();

    int result = 0;
    {
        VelmoMainWindow mainWindow(settings.windowStyle, settings.nativeMenuBar, settings.theme, settings.language);
        mainWindow.show();
        splash.finish(&mainWindow);
        application.installEventFilter(&mainWindow);

        result = application.exec();

        saveOnExit(mainWindow);
        application.removeEventFilter(&mainWindow);
    }
    return result;
}

}
