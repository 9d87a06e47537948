#include "logic/GameDataLabel.h"

#include <QJsonObject>

namespace GameDataLabel {

QString paddedId(int id)
{
    return QString::asprintf("%04d", id);
}

QString entry(int id, const QString& name)
{
    return QStringLiteral("[%1] %2").arg(paddedId(id), name);
}

QString range(int first, int last)
{
    return QStringLiteral("[%1 - %2]").arg(paddedId(first), paddedId(last));
}

QJsonArray databaseArray(const QJsonObject* projectData, const QString& fileName)
{
    return projectData ? projectData->value(fileName).toArray() : QJsonArray();
}

QJsonArray systemArray(const QJsonObject* projectData, bool switches)
{
    if (!projectData)
        return QJsonArray();
    return projectData->value(QStringLiteral("System.json"))
        .toObject()
        .value(switches ? QStringLiteral("switches") : QStringLiteral("variables"))
        .toArray();
}

QString recordName(const QJsonArray& records, int id)
{
    if (id < 0 || id >= records.size())
        return QString();
    return records.at(id).toObject().value(QStringLiteral("name")).toString();
}

QString nameAt(const QJsonArray& names, int id)
{
    if (id < 0 || id >= names.size())
        return QString();
    return names.at(id).toString();
}

QString databaseName(const QJsonObject* projectData, const QString& fileName, int id)
{
    return recordName(databaseArray(projectData, fileName), id);
}

QString systemName(const QJsonObject* projectData, bool switches, int id)
{
    return nameAt(systemArray(projectData, switches), id);
}

QString databaseEntry(const QJsonObject* projectData, const QString& fileName, int id)
{
    return entry(id, databaseName(projectData, fileName, id));
}

QString switchEntry(const QJsonObject* projectData, int id)
{
    return entry(id, systemName(projectData, true, id));
}

QString variableEntry(const QJsonObject* projectData, int id)
{
    return entry(id, systemName(projectData, false, id));
}

}
