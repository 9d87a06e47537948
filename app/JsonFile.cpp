#include "app/JsonFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace JsonFile {

QJsonDocument read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QJsonDocument();
    return QJsonDocument::fromJson(file.readAll());
}

QString pluginPath(const QDir& projectDirectory, const QString& name)
{
    return projectDirectory.absoluteFilePath(QStringLiteral("data/plugin/%1").arg(name));
}

QJsonDocument readPlugin(const QDir& projectDirectory, const QString& name)
{
    return read(pluginPath(projectDirectory, name));
}

bool write(const QString& path, const QJsonObject& object)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const QByteArray bytes = QJsonDocument(object).toJson(QJsonDocument::Compact);
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

bool writePlugin(const QDir& projectDirectory, const QString& name, const QJsonObject& object)
{
    const QString path = pluginPath(projectDirectory, name);
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder))
        return false;
    return write(path, object);
}

}
