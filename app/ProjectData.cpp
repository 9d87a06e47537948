#include "app/ProjectData.h"

#include "app/JsonFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QVector>

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
    QVector<QJsonDocument> documents;
    QStringList reasons;
    documents.reserve(names.size());
    for (const QString& name : names) {
        QString reason;
        documents.append(JsonFile::read(projectDirectory.absoluteFilePath(QStringLiteral("data/%1").arg(name)), &reason));
        reasons.append(reason);
    }

    bool good = true;
    for (int i = 0; i < names.size(); ++i) {
        const bool wantObject = i == 0;
        const bool fits = wantObject ? documents[i].isObject() : documents[i].isArray();
        if (fits)
            continue;
        good = false;
        if (!problems)
            break;
        const QString path = projectDirectory.absoluteFilePath(QStringLiteral("data/%1").arg(names[i]));
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
