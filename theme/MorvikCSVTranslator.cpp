#include "theme/MorvikCSVTranslator.h"

MorvikCSVTranslator::MorvikCSVTranslator(const QString& path, QObject* parent)
    : QTranslator(parent), filePath(path)
{
}

QString MorvikCSVTranslator::translate(const char*, const char*, const char*, int) const
{
    return QString();
}
