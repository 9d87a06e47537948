#include "components/UIComponentCustomCollection.h"

#include <QJsonObject>

UIComponentCustomCollection::UIComponentCustomCollection(GameUIEditorScene* scene, QJsonObject* data, bool level,
                                                         QGraphicsItem* parent)
    : UIComponentBase(scene, parent), projectData(data), expansion(this, data, CustomExpansion::Stacking::BehindOwner)
{
    hudLevel = level;
}

void UIComponentCustomCollection::drawContents(QPainter* painter)
{
    if (!expanded)
        CustomExpansion::drawMissing(painter, *this);
}

int UIComponentCustomCollection::minimumWidth() const { return width; }
int UIComponentCustomCollection::maximumWidth() const { return width; }
int UIComponentCustomCollection::minimumHeight() const { return height; }
int UIComponentCustomCollection::maximumHeight() const { return height; }
bool UIComponentCustomCollection::canHaveChildren() const { return false; }
bool UIComponentCustomCollection::canResize() const { return false; }
bool UIComponentCustomCollection::canRotate() const { return false; }

void UIComponentCustomCollection::applyGridSize()
{
    setWidth((columns - 1) * horizontalSpacing + cellWidth * columns);
    setHeight((rows - 1) * verticalSpacing + rows * cellHeight);
}

void UIComponentCustomCollection::setData(const QJsonObject& json)
{
    const QJsonObject collection = json.value(QStringLiteral("CustomCollectionData")).toObject();
    cellWidth = readInteger(collection.value(QStringLiteral("Width")), 100);
    cellHeight = readInteger(collection.value(QStringLiteral("Height")), 100);
    // A value the game works out (an extension object) counts as one cell
    // and no spacing.
    rows = qBound(1, readInteger(collection.value(QStringLiteral("MaxRows")), 1), largestCount);
    columns = qBound(1, readInteger(collection.value(QStringLiteral("MaxColumns")), 1), largestCount);
    horizontalSpacing = qBound(0, readInteger(collection.value(QStringLiteral("HorizontalSpacing")), 0), largestSpacing);
    verticalSpacing = qBound(0, readInteger(collection.value(QStringLiteral("VerticalSpacing")), 0), largestSpacing);
    applyGridSize();
    UIComponentBase::setData(json);

    expanded = expansion.expand(collection.value(QStringLiteral("ID")).toString(),
                                [this](const CustomExpansion::Source& source) {
                                    cellWidth = source.size.width();
                                    cellHeight = source.size.height();
                                    applyGridSize();
                                    const QSize step(horizontalSpacing + cellWidth, verticalSpacing + cellHeight);
                                    bool room = !source.components.isEmpty();
                                    for (int column = 0; room && column < columns; ++column) {
                                        for (int row = 0; room && row < rows; ++row)
                                            room = expansion.buildCell(source.components, QPoint(column, row), step);
                                    }
                                });
    refresh();
}

void UIComponentCustomCollection::zoomChanged()
{
    UIComponentBase::zoomChanged();
    expansion.zoomChanged();
}
