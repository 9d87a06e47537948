#include "components/UIComponentCustom.h"

#include "components/ComponentKinds.h"

#include <QJsonObject>

UIComponentCustom::UIComponentCustom(GameUIEditorScene* scene, QJsonObject* data, bool level, QGraphicsItem* parent)
    : UIComponentBase(scene, parent), projectData(data), expansion(this, data, CustomExpansion::Stacking::BehindOwner)
{
    hudLevel = level;
}

void UIComponentCustom::drawContents(QPainter* painter)
{
    if (!expanded)
        CustomExpansion::drawMissing(painter, *this);
}

int UIComponentCustom::minimumWidth() const { return width; }
int UIComponentCustom::maximumWidth() const { return width; }
int UIComponentCustom::minimumHeight() const { return height; }
int UIComponentCustom::maximumHeight() const { return height; }
bool UIComponentCustom::canHaveChildren() const { return false; }
bool UIComponentCustom::canResize() const { return false; }
bool UIComponentCustom::canRotate() const { return false; }

void UIComponentCustom::setData(const QJsonObject& json)
{
    const QSize size = ComponentKinds::storedSize(json, "CustomData");
    setWidth(size.width());
    setHeight(size.height());
    UIComponentBase::setData(json);
    const QJsonObject custom = json.value(QStringLiteral("CustomData")).toObject();
    expanded = expansion.expandCopy(custom.value(QStringLiteral("ID")).toString());
    refresh();
}

void UIComponentCustom::zoomChanged()
{
    UIComponentBase::zoomChanged();
    expansion.zoomChanged();
}

QJsonObject& UIComponentCustom::data()
{
    QJsonObject& json = UIComponentBase::data();
    ComponentKinds::writeStoredSize(json, "CustomData", QSize(width, height));
    return json;
}
