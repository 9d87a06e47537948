#pragma once

#include "app/HudDocument.h"

#include <QTreeWidgetItem>

// A row of the HUD list: owns the heap object of one HUD and knows its type.
//
// Plain-list layer until the program's own tree widget lands.
class HudListItem : public QTreeWidgetItem
{
public:
    HudListItem(int type, const QJsonObject& object);
    ~HudListItem() override;

    int hudType() const { return type; }
    QJsonObject* object() const { return data; }
    HudEntry entry() const { return HudEntry{type, *data}; }

    // Sets the marker and name columns from the object.
    void updateColumns();

private:
    int type;
    QJsonObject* data;
};
