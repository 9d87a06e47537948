#include "app/Startup.h"

#include "app/AppSettings.h"
#include "app/SettingsStore.h"
#include "app/VelmoMainWindow.h"
#include "theme/MorvikCSVTranslator.h"
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPixmap>
#include <QSplashScreen>

#include <cstdio>

void initVelmoraResources()
{
    Q_INIT_RESOURCE(velmora);
}

namespace Startup {

CommandLineProject projectFromArguments(const QStringList& arguments)
{
    CommandLineProject result;
    for (int i = 1; i < arguments.size() && result.folder.isEmpty(); ++i) {
        const QString& argument = arguments.at(i);
        const QFileInfo info(argument);
        const QString shown = QDir::toNativeSeparators(argument);
        if (info.isFile()) {
            result.folder = info.absolutePath();
        } else if (info.isDir()) {
            const QStringList markers =
                QDir(argument).entryList({QStringLiteral("*.rmmzproject")}, QDir::Files | QDir::Hidden);
            if (markers.size() == 1)
                result.folder = info.absoluteFilePath();
            else if (markers.isEmpty())
                result.problems.append(QCoreApplication::translate("", "The folder \"%1\" holds no RPG Maker MZ "
                                                                       "project file (.rmmzproject).").arg(shown));
            else
                result.problems.append(QCoreApplication::translate("", "The folder \"%1\" holds several "
                                                                       "project files; open one of them.").arg(shown));
        } else {
            result.problems.append(QCoreApplication::translate("", "The path \"%1\" given on the command line doesn't exist.").arg(shown));
        }
    }
    return result;
}

QString commandLineAnswer(const QStringList& arguments)
{
    for (int i = 1; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--help") || argument == QLatin1String("-h")) {
            return QStringLiteral(
                "Usage: velmora [PROJECT]\n"
                "\n"
                "Velmora, the HUD editor for RPG Maker MZ games.\n"
                "\n"
                "PROJECT is an RPG Maker MZ project: its .rmmzproject file, or the folder\n"
                "that holds it. Without one, the project that was open last is opened.\n"
                "\n"
                "Options:\n"
                "  --help     Shows this text.\n"
                "  --version  Shows the version.\n"
                "\n"
                "velmora-cli checks and resaves projects without a window.\n");
        }
        if (argument == QLatin1String("--version"))
            return QStringLiteral("velmora %1\n").arg(QStringLiteral(VELMORA_VERSION));
    }
    return QString();
}

namespace {

QStringList& notices()
{
    static QStringList list;
    return list;
}

}

void addNotice(const QString& text)
{
    notices().append(text);
}

QStringList takeNotices()
{
    QStringList taken;
    taken.swap(notices());
    return taken;
}

Settings applySettings()
{
    Settings settings;
    AppSettings::load(settings.windowStyle, settings.nativeMenuBar, settings.theme, settings.language);

    Theme::installDefault();
    // A theme that is gone or unreadable leaves the default table, and the
    // name is dropped from the settings at exit.
    if (!settings.theme.isEmpty()) {
        QString problem;
        if (Theme::load(settings.theme, &problem))
            Theme::apply();
        else
            settings.theme.clear();
        if (!problem.isEmpty())
            addNotice(problem);
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
    // Answered before any window system is needed, so it works on a console.
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const QString answer = commandLineAnswer(arguments);
    if (!answer.isEmpty()) {
        std::fputs(answer.toLocal8Bit().constData(), stdout);
        return 0;
    }

    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication application(argc, argv);
    initVelmoraResources();
    // The names of the settings store, so that the user's data folders match it.
    QApplication::setOrganizationName(SettingsStore::organization());
    QApplication::setApplicationName(SettingsStore::application());
    QApplication::setApplicationVersion(QStringLiteral(VELMORA_VERSION));
    // Docks and task bars match the window to its desktop entry by this name.
    QGuiApplication::setDesktopFileName(QStringLiteral("io.github.ostrel_vane.velmora"));

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

        // A window closed while start-up still waited for it (a user who
        // closes at once, before the splash screen has gone) ended before the
        // event loop ran, and the loop would never hear of it: there is
        // nothing left to run then.
        if (mainWindow.isVisible())
            result = application.exec();

        saveOnExit(mainWindow);
        application.removeEventFilter(&mainWindow);
    }
    return result;
}

}
