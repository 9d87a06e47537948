#include "components/UIComponentPendingKind.h"

#include "components/ComponentKinds.h"

namespace {

// The largest size of the kinds that store a free size.
constexpr int largestSide = 5000;
constexpr int groupSide = 50;

}

UIComponentPendingKind::UIComponentPendingKind(int kindType, GameUIEditorScene* scene, QGraphicsItem* parent)
    : UIComponentBase(scene, parent), type(kindType)
{
}

void UIComponentPendingKind::setData(const QJsonObject& json)
{
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);
    QSize size;
    switch (kind->size) {
    case ComponentKinds::SizeStorage::Fixed:
        size = QSize(groupSide, groupSide);
        break;
    case ComponentKinds::SizeStorage::Size:
        size = ComponentKinds::storedSize(json, kind->dataKey);
        break;
    case ComponentKinds::SizeStorage::Scale:
        scale.read(json);
        size = scale.sizeFor(QSize(naturalSide, naturalSide));
        break;
    case ComponentKinds::SizeStorage::FromCustom:
        break;
    }
    if (size.isValid()) {
        setWidth(size.width());
        setHeight(size.height());
    }
    UIComponentBase::setData(json);
}

QJsonObject& UIComponentPendingKind::data()
{
    QJsonObject& json = UIComponentBase::data();
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);
    if (kind->size == ComponentKinds::SizeStorage::Size)
        ComponentKinds::writeStoredSize(json, kind->dataKey, QSize(width, height));
    else if (kind->size == ComponentKinds::SizeStorage::Scale)
        scale.write(json, QSize(width, height), QSize(naturalSide, naturalSide));
    return json;
}

void UIComponentPendingKind::resized()
{
    scale.forget();
}

int UIComponentPendingKind::dataInteger(const char* key, int fallback) const
{
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);
    const QJsonObject object = jsonData.value(QLatin1String(kind->dataKey)).toObject();
    return object.value(QLatin1String(key)).toInt(fallback);
}

int UIComponentPendingKind::minimumWidth() const
{
    switch (type) {
    case ComponentKinds::Group:
        return groupSide;
    case ComponentKinds::Window:
        return 2 * qMax(dataInteger("Padding", 12), dataInteger("Margin", 4));
    case ComponentKinds::Custom:
    case ComponentKinds::CustomCollection:
    case ComponentKinds::AttachCollection:
        return width;
    default:
        return 25;
    }
}

int UIComponentPendingKind::maximumWidth() const
{
    switch (ComponentKinds::find(type)->size) {
    case ComponentKinds::SizeStorage::Scale:
        return 5 * naturalSide;
    case ComponentKinds::SizeStorage::Size:
        return largestSide;
    case ComponentKinds::SizeStorage::Fixed:
        return groupSide;
    case ComponentKinds::SizeStorage::FromCustom:
        break;
    }
    return width;
}

int UIComponentPendingKind::minimumHeight() const
{
    switch (type) {
    case ComponentKinds::Window:
        return minimumWidth();
    case ComponentKinds::Custom:
    case ComponentKinds::CustomCollection:
    case ComponentKinds::AttachCollection:
        return height;
    default:
        return type == ComponentKinds::Group ? minimumWidth() : 25;
    }
}

int UIComponentPendingKind::maximumHeight() const
{
    switch (type) {
    case ComponentKinds::Custom:
    case ComponentKinds::CustomCollection:
    case ComponentKinds::AttachCollection:
        return height;
    default:
        return maximumWidth();
    }
}

bool UIComponentPendingKind::canHaveChildren() const
{
    return ComponentKinds::find(type)->canHaveChildren;
}

bool UIComponentPendingKind::canResize() const
{
    return ComponentKinds::find(type)->canResize;
}

bool UIComponentPendingKind::canRotate() const
{
    return ComponentKinds::find(type)->canRotate;
}
