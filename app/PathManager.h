#pragma once

#include <QDir>
#include <QFont>
#include <QString>
#include <QStringList>

#include <functional>

// Where the program finds its own files, the game's images and the game's
// fonts.
namespace PathManager {

// Kinds of game image, each with a fixed folder name of the same spelling.
enum GraphicsType {
    Animations,
    AutoTiles,
    Backgrounds,
    Characters,
    Collectables,
    ConjoinedTiles,
    Enemies,
    Icons,
    NPCs,
    Objects,
    Parallax,
    Particles,
    Pictures,
    Placeholders,
    Plugins,
    Projectiles,
    Sprites,
    SuperTiles,
    System,
    Tiles,
    Transitions
};

// The fixed folder name of a kind; empty for a value outside the enumeration.
QString graphicsTypeName(GraphicsType type);

// The project folder, owned by the main window; null until it sets it.
void setProjectDirectory(const QDir* directory);
const QDir* projectDirectory();

// Maps a kind to its folder below the project; an empty answer means the
// project has no folder of its own for that kind.
using GraphicsFolderHook = std::function<QString(GraphicsType)>;
void setGraphicsFolderHook(GraphicsFolderHook hook);

// The folder of a kind relative to the project: the hook's answer, else
// "Assets/Graphics/<name>".
QString graphicsFolder(GraphicsType type);
// The absolute path of an image file of that kind below base.
QString graphicsFile(GraphicsType type, const QString& fileName, const QDir& base);

// The folder that holds the executable.
QDir applicationFolder();

// The path to open for a compiled-in file, e.g. "resources/ContextIcons/Add.png"
// gives ":/resources/ContextIcons/Add.png". A file of the same relative path in
// the override folder (relative to the executable's folder) wins over it.
QString resourcePath(const char* relativePath);
// The override folder; empty (the default) turns overrides off.
void setResourceOverrideFolder(const QString& relativeFolder);

// A font for a font file of the game, loaded into the font database once per
// name and run. The file is fileName below fontsFolder, or below
// "Assets/Fonts" in it when inAssetsFolder. WOFF and WOFF2 files are first
// converted into the font cache. A file that can't be loaded gives a default
// QFont, and is tried again on the next call.
QFont getFont(const QString& fileName, const QDir& fontsFolder, bool inAssetsFolder);
// The family a font file name was loaded under; empty when it wasn't.
QString loadedFontFamily(const QString& fileName);

// Where the n-th converted font of this run is written: "FontCache/font<n>.otf"
// beside the executable when that can be written, else in the user's cache
// folder.
QString fontCacheFile(unsigned number);

// The user's own folder for files the program can always make again.
QString userCacheFolder();

// The folder of the running executable; shipped files ("Default/", the
// shipped themes) are read from here.
QString executableFolder();
// Stands another folder in for the executable's, as for a portable copy
// elsewhere; an empty path goes back to the real one.
void setExecutableFolder(const QString& folder);

// A path relative to the executable's folder.
QString besideExecutable(const QString& relativePath);

// The user's own folder for files the program writes, used when the
// executable's folder can't be written.
QString userDataFolder();

// A path relative to the user's folder.
QString inUserFolder(const QString& relativePath);

// Where a file the program writes goes: where the user's own copy already is,
// else beside the executable when that folder is writable (a build tree, a
// portable copy), else the user's folder.
QString writablePath(const QString& relativePath);
// Where such a file is read: the user's folder first, then beside the
// executable. The first existing one wins; the executable's when neither exists.
QString readablePath(const QString& relativePath);
// The existing folders of that name, the user's first.
QStringList readableFolders(const QString& relativePath);

}
