#pragma once

#include "theme/ProgramFolders.h"

#include <QDir>
#include <QFont>
#include <QString>
#include <QStringList>

#include <functional>

// Where the program finds the game's images and the game's fonts; its own
// folders are in theme/ProgramFolders.h.
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

// A font for a font file of the game, loaded into the font database once per
// name and run. The file is fileName below fontsFolder, or below
// "Assets/Fonts" in it when inAssetsFolder. WOFF and WOFF2 files are first
// converted into the font cache. A file that can't be loaded gives a default
// QFont, and is tried again on the next call.
QFont getFont(const QString& fileName, const QDir& fontsFolder, bool inAssetsFolder);
// The family a font file name was loaded under; empty when it wasn't.
QString loadedFontFamily(const QString& fileName);
// The program's own face, "resources/Fonts/Pangolin-Regular.ttf", loaded on
// first use; empty when it can't be loaded.
QString programFontFamily();
// Loads the font file below the folder as getFont() does and gives the
// family it was loaded under; empty when it can't be loaded.
QString fontFamilyOf(const QString& fileName, const QDir& fontsFolder);

// Where the n-th converted font of this run is written: "FontCache/font<n>.otf"
// beside the executable when the program may write there (never when
// installed), else in the user's cache folder.
QString fontCacheFile(unsigned number);

}
