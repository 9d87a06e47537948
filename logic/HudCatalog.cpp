#include "logic/HudCatalog.h"

#include "widgets/MyDialogOpener.h"

#include <QCoreApplication>

namespace HudCatalog {

namespace {

Source& installed()
{
    static Source source;
    return source;
}

}

void setSource(const Source& source)
{
    installed() = source;
}

QVector<Row> rows()
{
    return installed() ? installed()() : QVector<Row>();
}

QString identifierOf(const Row& row)
{
    if (row.type == Map)
        return QStringLiteral("M");
    if (row.type == Battle)
        return QStringLiteral("B");
    return row.object.value(QStringLiteral("ID")).toString();
}

const Row* find(const QVector<Row>& rows, const QString& identifier)
{
    for (const Row& row : rows) {
        if (identifierOf(row) == identifier)
            return &row;
    }
    return nullptr;
}

QString nameOf(const Row& row)
{
    if (row.type == Map)
        return QCoreApplication::translate("", "Map HUD");
    if (row.type == Battle)
        return QCoreApplication::translate("", "Battle HUD");
    return row.object.value(QStringLiteral("Name")).toString();
}

QString displayName(const QString& identifier)
{
    const QVector<Row> all = rows();
    const Row* row = identifier.isEmpty() ? nullptr : find(all, identifier);
    return row ? nameOf(*row) : QCoreApplication::translate("", "None");
}

void showIdentifier(MyDialogOpener* opener, const QString& identifier)
{
    const QVector<Row> all = rows();
    const Row* row = identifier.isEmpty() ? nullptr : find(all, identifier);
    opener->setValue(row ? nameOf(*row) : QCoreApplication::translate("", "None"));
    opener->setItalic(!row);
}

}
