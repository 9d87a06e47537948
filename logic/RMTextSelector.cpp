#include "logic/RMTextSelector.h"

RMTextSelector::RMTextSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent)
    : DynamicValueSelector(object, accepted, projectData, Numeric, parent)
{
    setObjectName(QStringLiteral("RMTextSelector"));
}

bool RMTextSelector::pick(MyDialogOpener* opener, QJsonObject* value, QJsonObject* projectData, QWidget* parent)
{
    return pickWith<RMTextSelector>(opener, value, projectData, parent);
}
