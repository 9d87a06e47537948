#include "logic/RMNumberSelector.h"

RMNumberSelector::RMNumberSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent)
    : DynamicValueSelector(object, accepted, projectData, Numeric, parent)
{
    setObjectName(QStringLiteral("RMNumberSelector"));
}

bool RMNumberSelector::pick(MyDialogOpener* opener, QJsonObject* value, QJsonObject* projectData, QWidget* parent)
{
    return pickWith<RMNumberSelector>(opener, value, projectData, parent);
}
