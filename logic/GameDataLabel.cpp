#include "logic/GameDataLabel.h"

namespace GameDataLabel {

static QString paddedId(int id)
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

}
