#include "components/UIComponentGroup.h"

#include <QJsonArray>
#include <QPainter>

UIComponentGroup::UIComponentGroup(GameUIEditorScene* scene, QGraphicsItem* parent) : UIComponentBase(scene, parent)
{
}

void UIComponentGroup::drawContents(QPainter* painter)
{
    // Inside an expanded custom component a group is only structure.
    if (hudLevel)
        painter->fillRect(drawnRect(), QColor(125, 125, 125, 125));
}

int UIComponentGroup::minimumWidth() const { return side; }
int UIComponentGroup::maximumWidth() const { return side; }
int UIComponentGroup::minimumHeight() const { return side; }
int UIComponentGroup::maximumHeight() const { return side; }

void UIComponentGroup::setData(const QJsonObject& json)
{
    // A group takes its place and nothing else: no rotation and no opacity
    // reach it, whatever the object holds.
    jsonData = json;
    if (!jsonData.contains(QStringLiteral("Children")))
        jsonData.insert(QStringLiteral("Children"), QJsonArray());
    setXY(readInteger(json.value(QStringLiteral("X"))), readInteger(json.value(QStringLiteral("Y"))));
    setWidth(side);
    setHeight(side);
    refresh();
}

bool UIComponentGroup::canHaveChildren() const { return true; }
bool UIComponentGroup::canResize() const { return false; }
bool UIComponentGroup::canRotate() const { return false; }
