#pragma once

#include "app/PathManager.h"

#include <QDir>
#include <QJsonObject>
#include <QStringList>

#include <functional>

// The RPG Maker database of a project: eleven files below "data", read whole
// and kept as parsed JSON under their file names. Readers walk the JSON
// themselves; a wrong id simply yields an undefined value.
namespace ProjectData {

// The data files in the order they are read and judged; "System.json" first.
const QStringList& fileNames();

// Game screen size used before any project and when a project doesn't say.
constexpr int DefaultScreenWidth = 816;
constexpr int DefaultScreenHeight = 624;

struct ScreenSize {
    int width = DefaultScreenWidth;
    int height = DefaultScreenHeight;
};

// The screen size a system object asks for; "advanced" missing or holding
// something other than integers gives the defaults.
ScreenSize screenSize(const QJsonObject& system);

// Reads all eleven files, then judges them: "System.json" must hold an object,
// every other file an array. Only when all pass are the values inserted into
// projectData (replacing what was there) and the screen size taken; otherwise
// nothing is touched and false is returned. Each problem found is appended to
// problems, when given, as a sentence naming the file. alongside, when
// given, runs on one of the reading threads beside the parsing (the HUD
// document is read so while the database parses); it must not touch
// projectData.
// With Reading::Names the tables keep of each record only its "name", all a
// display string needs of them (velmora-cli outline); "System.json" and
// anything that isn't a record stay whole, and a file is judged the same.
enum class Reading { Whole, Names };
bool load(const QDir& projectDirectory, QJsonObject& projectData, ScreenSize& screen,
          QStringList* problems = nullptr, const std::function<void()>& alongside = {},
          Reading reading = Reading::Whole);

// Where an RPG Maker MZ project keeps each kind of image: "img/pictures",
// "img/system" and "img/faces"; empty for the kinds it has no folder for.
// The main window installs this as the path manager's graphics folder hook.
QString graphicsFolder(PathManager::GraphicsType type);

}
