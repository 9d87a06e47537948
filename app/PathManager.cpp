#include "app/PathManager.h"

#include "app/WoffConverter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHash>
#include <QSet>

namespace PathManager {

namespace {

// Process-wide state, GUI thread only.
struct State {
    const QDir* projectDirectory = nullptr;
    GraphicsFolderHook graphicsFolderHook;
    QHash<QString, QString> fontFamilies;   // font file name -> family
    QSet<QString> convertedFiles;           // full path of each converted web font
    unsigned conversionCounter = 0;
};

State& state()
{
    static State theState;
    return theState;
}

// Suffixes the font database can't load; they go through the converter.
bool isWebFont(const QFileInfo& file)
{
    const QString suffix = file.suffix();
    return suffix == QLatin1String("woff") || suffix == QLatin1String("woff2");
}

}

QString graphicsTypeName(GraphicsType type)
{
    static const char* const names[] = {
        "Animations", "AutoTiles", "Backgrounds", "Characters", "Collectables", "ConjoinedTiles", "Enemies",
        "Icons", "NPCs", "Objects", "Parallax", "Particles", "Pictures", "Placeholders", "Plugins",
        "Projectiles", "Sprites", "SuperTiles", "System", "Tiles", "Transitions"};
    const int index = static_cast<int>(type);
    if (index < 0 || index >= static_cast<int>(sizeof(names) / sizeof(names[0])))
        return QString();
    return QString::fromLatin1(names[index]);
}

void setProjectDirectory(const QDir* directory)
{
    state().projectDirectory = directory;
}

const QDir* projectDirectory()
{
    return state().projectDirectory;
}

void setGraphicsFolderHook(GraphicsFolderHook hook)
{
    state().graphicsFolderHook = std::move(hook);
}

QString graphicsFolder(GraphicsType type)
{
    if (state().graphicsFolderHook) {
        const QString folder = state().graphicsFolderHook(type);
        if (!folder.isEmpty())
            return folder;
    }
    return QStringLiteral("%1/%2").arg(QStringLiteral("Assets/Graphics"), graphicsTypeName(type));
}

QString graphicsFile(GraphicsType type, const QString& fileName, const QDir& base)
{
    return base.absoluteFilePath(QStringLiteral("%1/%2").arg(graphicsFolder(type), fileName));
}

QString fontCacheFile(unsigned number)
{
    const QString relative = QStringLiteral("FontCache/font%1.otf").arg(number);
    return writesBesideExecutable(QStringLiteral("FontCache")) ? besideExecutable(relative)
                                                              : QDir(userCacheFolder()).absoluteFilePath(relative);
}

QFont getFont(const QString& fileName, const QDir& fontsFolder, bool inAssetsFolder)
{
    if (fileName.isEmpty())
        return QFont();
    State& fonts = state();
    const auto known = fonts.fontFamilies.constFind(fileName);
    if (known != fonts.fontFamilies.constEnd())
        return QFont(known.value());

    const QString prefix = inAssetsFolder ? QStringLiteral("Assets/Fonts/") : QString();
    QString path = fontsFolder.absoluteFilePath(QStringLiteral("%1%2").arg(prefix, fileName));
    if (isWebFont(QFileInfo(path)) && !fonts.convertedFiles.contains(path)) {
        const QString cacheFile = fontCacheFile(fonts.conversionCounter++);
        // A cache file left by an earlier run must not stand in for a font
        // that fails to convert now.
        QFile::remove(cacheFile);
        QDir().mkpath(QFileInfo(cacheFile).absolutePath());
        convertWoffToOtf(path, cacheFile);
        fonts.convertedFiles.insert(path);
        path = cacheFile;
    }

    const int id = QFontDatabase::addApplicationFont(path);
    if (id == -1)
        return QFont();
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    if (families.isEmpty())
        return QFont();
    fonts.fontFamilies.insert(fileName, families.first());
    return QFont(families.first());
}

QString programFontFamily()
{
    static const QString family = [] {
        const int id = QFontDatabase::addApplicationFont(QStringLiteral(":/resources/Fonts/Pangolin-Regular.ttf"));
        const QStringList families = QFontDatabase::applicationFontFamilies(id);
        return families.isEmpty() ? QString() : families.first();
    }();
    return family;
}

QString loadedFontFamily(const QString& fileName)
{
    return state().fontFamilies.value(fileName);
}

QString fontFamilyOf(const QString& fileName, const QDir& fontsFolder)
{
    getFont(fileName, fontsFolder, false);
    return loadedFontFamily(fileName);
}

}
