#include "components/ProjectFonts.h"

#include "widgets/BasicFontSelector.h"

#include <QDir>
#include <QJsonObject>

namespace ProjectFonts {

namespace {

FolderHook& folderHook()
{
    static FolderHook installed;
    return installed;
}

}

void setFolderHook(const FolderHook& hook)
{
    folderHook() = hook;
}

QString folder()
{
    return folderHook() ? folderHook()() : QString();
}

QString mainFontName(const QJsonObject* projectData)
{
    if (!projectData)
        return QString();
    return projectData->value(QStringLiteral("System.json"))
        .toObject()
        .value(QStringLiteral("advanced"))
        .toObject()
        .value(QStringLiteral("mainFontFilename"))
        .toString();
}

QFont font(const QString& fileName)
{
    const QString fonts = folder();
    if (fileName.isEmpty() || fonts.isEmpty())
        return QFont();
    const QString family = BasicFontSelector::loadFamily(fileName, QDir(fonts));
    return family.isEmpty() ? QFont() : QFont(family);
}

}
