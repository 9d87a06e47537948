#include "app/Startup.h"

#include "app/AppSettings.h"
#include "app/VelmoMainWindow.h"
#include "theme/MorvikCSVTranslator.h"
#include "theme/ThemeColors.h"
#include "theme/VelmoStyle.h"

#include <QApplication>
#include <QFileInfo>
#include <QPixmap>
#include <QSplashScreen>

namespace {

// The installed translator; owned here and removed at exit.
MorvikCSVTranslator* currentTranslator = nullptr;

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
    QApplication::setApplicationName(QStringLiteral("Velmora"));
    QApplication::setApplicationVersion(QStringLiteral(VELMORA_VERSION));

    QSplashScreen splash(QPixmap(QStringLiteral(":/SplashScreen.png")));
    splash.show();
    QCoreApplication::processEvents();

    int windowStyle = AppSettings::Native;
    bool nativeMenuBar = false;
    QString theme;
    QString language;
    AppSettings::load(windowStyle, nativeMenuBar, theme, language);

    ThemeColors::installDefaultTheme();
    // A theme that is gone or unreadable leaves the built-in table, and the
    // name is dropped from the settings at exit.
    if (!theme.isEmpty() && !ThemeColors::loadTheme(theme))
        theme.clear();

    if (!QFileInfo(language).isFile())
        language.clear();
    if (!language.isEmpty()) {
        currentTranslator = new MorvikCSVTranslator(language);
        QCoreApplication::installTranslator(currentTranslator);
    }

    ThemeColors::applyTheme();
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
        if (currentTranslator) {
            QCoreApplication::removeTranslator(currentTranslator);
            delete currentTranslator;
            currentTranslator = nullptr;
        }
        application.removeEventFilter(&mainWindow);
    }
    return result;
}

}
