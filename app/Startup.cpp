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

    int windowStyle = AppSettings::Native;
    bool nativeMenuBar = false;
    QString theme;
    QString language;
    AppSettings::load(windowStyle, nativeMenuBar, theme, language);

    Theme::installDefault();
    // A theme that is gone or unreadable leaves the default table, and the
    // name is dropped from the settings at exit.
    if (!theme.isEmpty()) {
        if (Theme::load(theme))
            Theme::apply();
        else
            theme.clear();
    }
    Theme::refreshCachedColors();

    if (!QFileInfo(language).isFile())
        language.clear();
    MorvikCSVTranslator::installLanguage(language);

    QApplication::setStyle(new VelmoStyle());

    int result = 0;
    {
        VelmoMainWindow mainWindow(windowStyle, nativeMenuBar, theme, language);
        mainWindow.show();
        splash.finish(&mainWindow);
        application.installEventFilter(&mainWindow);

        result = application.exec();

        AppSettings::save(mainWindow.getWindowStyle(), mainWindow.getNativeMenuBar(), mainWindow.getTheme(),
                          mainWindow.getLanguage());
        MorvikCSVTranslator::removeLanguage();
        application.removeEventFilter(&mainWindow);
    }
    return result;
}

}
