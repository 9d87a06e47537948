#include "app/ProjectData.h"

#include "app/JsonFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>
#include <QVector>

#include <atomic>
#include <thread>
#include <vector>

namespace ProjectData {

const QStringList& fileNames()
{
    static const QStringList names = {
        QStringLiteral("System.json"), QStringLiteral("Actors.json"),
        QStringLiteral("Enemies.json"), QStringLiteral("Classes.json"),
        QStringLiteral("Skills.json"), QStringLiteral("Items.json"),
        QStringLiteral("Weapons.json"), QStringLiteral("Armors.json"),
        QStringLiteral("States.json"), QStringLiteral("Animations.json"),
        QStringLiteral("CommonEvents.json"),
    };
    return names;
}

ScreenSize screenSize(const QJsonObject& system)
{
    const QJsonObject advanced = system.value(QStringLiteral("advanced")).toObject();
    ScreenSize size;
    size.width = advanced.value(QStringLiteral("screenWidth")).toInt(DefaultScreenWidth);
    size.height = advanced.value(QStringLiteral("screenHeight")).toInt(DefaultScreenHeight);
    return size;
}

static QString problemOf(const QString& name, const QJsonDocument& document, const QString& reason,
                         bool missing, bool wantObject)
{
    if (document.isNull()) {
        if (missing)
            return QCoreApplication::translate("", "\"%1\" is missing.").arg(name);
        return QCoreApplication::translate("", "\"%1\" can't be read: %2.").arg(name, reason);
    }
    return wantObject ? QCoreApplication::translate("", "\"%1\" doesn't hold an object.").arg(name)
                      : QCoreApplication::translate("", "\"%1\" doesn't hold an array.").arg(name);
}

bool load(const QDir& projectDirectory, QJsonObject& projectData, ScreenSize& screen,
          QStringList* problems)
{
    const QStringList& names = fileNames();
    const int count = names.size();
    QStringList paths;
    for (const QString& name : names)
        paths.append(projectDirectory.absoluteFilePath(QStringLiteral("data/%1").arg(name)));
    QVector<QJsonDocument> documents(count);
    QVector<QString> reasons(count);
    // The database of a big project is tens of megabytes of JSON in files
    // that don't depend on each other, so they are parsed side by side; the
    // caller waits for all of them and sees nothing of the threads.
    std::atomic<int> next{0};
    const auto readFiles = [&]() {
        for (int i = next++; i < count; i = next++)
            documents[i] = JsonFile::read(paths.at(i), &reasons[i]);
    };
    std::vector<std::thread> helpers;
    const int helperCount = qBound(0, QThread::idealThreadCount() - 1, count - 1);
    for (int i = 0; i < helperCount; ++i)
        helpers.emplace_back(readFiles);
    readFiles();
    for (std::thread& helper : helpers)
        helper.join();

    bool good = true;
    for (int i = 0; i < names.size(); ++i) {
        const bool wantObject = i == 0;
        const bool fits = wantObject ? documents[i].isObject() : documents[i].isArray();
        if (fits)
            continue;
        good = false;
        if (!problems)
            break;
        const QString& path = paths.at(i);
        const bool missing = !QFileInfo::exists(path) && !QFileInfo(path).isSymLink();
        problems->append(problemOf(names[i], documents[i], reasons[i], missing, wantObject));
    }
    if (!good)
        return false;

    projectData.insert(names[0], documents[0].object());
    for (int i = 1; i < names.size(); ++i)
        projectData.insert(names[i], documents[i].array());
    screen = screenSize(documents[0].object());
    return true;
}

QString graphicsFolder(PathManager::GraphicsType type)
{
    switch (type) {
    case PathManager::Pictures:
        return QStringLiteral("img/pictures");
    case PathManager::System:
        return QStringLiteral("img/system");
    case PathManager::Characters:
        return QStringLiteral("img/faces");
    default:
        return QString();
    }
}

}
