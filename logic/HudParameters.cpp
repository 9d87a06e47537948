#include "logic/HudParameters.h"

#include "logic/HudCatalog.h"

namespace HudParameters {

QJsonArray definitionsOf(const QString& identifier)
{
    for (const HudCatalog::Row& row : HudCatalog::rows()) {
        if (row.object.contains(QStringLiteral("ID")) && row.object.value(QStringLiteral("ID")).toString() == identifier)
            return row.object.value(QStringLiteral("Params")).toArray();
    }
    return QJsonArray();
}

QJsonObject withDefaults(const QJsonArray& definitions, QJsonObject values)
{
    for (const QJsonValue& entry : definitions) {
        if (!entry.isObject())
            continue;
        const QJsonObject definition = entry.toObject();
        const QString name = definition.value(QStringLiteral("Name")).toString();
        if (values.contains(name))
            continue;
        if (definition.value(QStringLiteral("IsString")).toBool(false))
            values.insert(name, QString());
        else
            values.insert(name, 0);
    }
    return values;
}

}
