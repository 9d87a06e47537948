#include "app/HudListItem.h"

HudListItem::HudListItem(int type, const QJsonObject& object)
    : type(type), data(new QJsonObject(object))
{
    updateColumns();
}

HudListItem::~HudListItem()
{
    delete data;
}

void HudListItem::updateColumns()
{
    setText(0, HudDocument::marker(*data));
    setText(1, HudDocument::displayName(type, *data));
    setTextAlignment(0, Qt::AlignCenter);
    if (type != HudEntry::Custom) {
        QFont italic = font(1);
        italic.setItalic(true);
        setFont(1, italic);
    }
}
