#pragma once

#include "components/CustomExpansion.h"
#include "scene/UIComponentBase.h"

// A custom HUD repeated over a grid, one cell for each entry of a list the
// game fills. The canvas shows the grid at its largest, MaxRows by
// MaxColumns, every cell expanded as a Custom component is.
class UIComponentCustomCollection : public UIComponentBase
{
    Q_OBJECT
public:
    UIComponentCustomCollection(GameUIEditorScene* scene, QJsonObject* projectData, bool hudLevel,
                                QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    bool canHaveChildren() const override;
    bool canResize() const override;
    bool canRotate() const override;
    void zoomChanged() override;

    const QList<UIComponentBase*>& subComponents() const { return expansion.subComponents(); }
    // The column and row of a direct component of a cell; (0, 0) for others.
    QPoint cellOf(UIComponentBase* component) const { return expansion.cellOf(component); }

    // The grid's bounds as the dialog allows them; a document beyond them
    // is held to them.
    static constexpr int largestCount = 999;
    static constexpr int largestSpacing = 9999;

    QJsonObject* projectData;
    int cellWidth = 100;
    int cellHeight = 100;
    int rows = 1;
    int columns = 1;
    int horizontalSpacing = 0;
    int verticalSpacing = 0;
    bool expanded = false;

private:
    // The whole grid's size from the cells.
    void applyGridSize();

    CustomExpansion expansion;
};
