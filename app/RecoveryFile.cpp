#include "app/RecoveryFile.h"

#include "app/HudDocument.h"
#include "app/JsonFile.h"
#include "app/PathManager.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

namespace RecoveryFile {

namespace {

const QString KeyProject = QStringLiteral("Project");
const QString KeyDocument = QStringLiteral("Document");
const QString KeyBackgrounds = QStringLiteral("Backgrounds");
const QString KeyPropertyOrders = QStringLiteral("PropertyOrders");

QString projectKey(const QDir& project)
{
    return project.absolutePath();
}

}

QString path(const QDir& project)
{
    // A hash of the path keeps the name short and free of separators.
    const QByteArray hash = QCryptographicHash::hash(projectKey(project).toUtf8(), QCryptographicHash::Sha1).toHex();
    return QDir(PathManager::userCacheFolder())
        .absoluteFilePath(QStringLiteral("Recovery/%1.json").arg(QString::fromLatin1(hash)));
}

bool write(const QDir& project, const Content& kept)
{
    const QString file = path(project);
    if (!QDir().mkpath(QFileInfo(file).absolutePath()))
        return false;
    const QJsonObject content{{KeyProject, projectKey(project)},
                              {KeyDocument, kept.document},
                              {KeyBackgrounds, QJsonArray::fromStringList(kept.backgrounds)},
                              {KeyPropertyOrders, kept.propertyOrders}};
    return JsonFile::write(file, content);
}

void remove(const QDir& project)
{
    QFile::remove(path(project));
}

bool isNewerThanDocument(const QDir& project)
{
    const QFileInfo recovery(path(project));
    if (!recovery.isFile())
        return false;
    const QFileInfo document(JsonFile::pluginPath(project, HudDocument::FileName));
    return !document.exists() || recovery.lastModified() > document.lastModified();
}

bool read(const QDir& project, Content* content)
{
    const QJsonObject root = JsonFile::read(path(project)).object();
    if (root.value(KeyProject).toString() != projectKey(project) || !root.value(KeyDocument).isObject())
        return false;
    content->document = root.value(KeyDocument).toObject();
    content->backgrounds.clear();
    for (const QJsonValue& background : root.value(KeyBackgrounds).toArray())
        content->backgrounds.append(background.toString());
    content->propertyOrders = root.value(KeyPropertyOrders).toObject();
    content->written = QFileInfo(path(project)).lastModified();
    return true;
}

}
