#include "app/PathManager.h"

#include <QCoreApplication>
#include <QDir>

namespace PathManager {

QString executableFolder()
{
    return QCoreApplication::applicationDirPath();
}

QString besideExecutable(const QString& relativePath)
{
    return QDir(executableFolder()).absoluteFilePath(relativePath);
}

}
