#pragma once

#include <QGraphicsItem>
#include <QObject>

class QPropertyAnimation;
class UltimateTree;

// A row of an UltimateTree as the scene sees it: a data row or the "+" filler.
// Rows warm up under the pointer through the animated "hover" value.
class UltimateTreeItemBase : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_PROPERTY(float hover READ hover WRITE setHover)
    Q_PROPERTY(QPointF pos READ pos WRITE setPos)

public:
    explicit UltimateTreeItemBase(QGraphicsItem* parent = nullptr);
    ~UltimateTreeItemBase() override;

    virtual void setHovered(bool on, bool immediate);
    virtual void setSelected(bool on);
    virtual void refresh();
    virtual QRectF rowRect() const = 0;
    virtual void paintRow(QPainter* painter) = 0;

    QRectF boundingRect() const override { return rowRect(); }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    float hover() const { return hoverValue; }
    void setHover(float value);
    bool isHovered() const { return hoveredFlag; }

    UltimateTree* treeView() const { return tree; }
    void setTree(UltimateTree* owner) { tree = owner; }

protected:
    // Runs "hover" towards 1000 or 0; the durations are for the whole way and
    // are scaled by what is left of it.
    void animateHover(bool on, bool immediate, int upMs, int downMs);
    // The selected look: a framed vertical gradient, tinted while a button
    // holds the row (greener for the left button, redder for the right one).
    void paintSelection(QPainter* painter, const QRectF& area, bool rightTint) const;

    UltimateTree* tree = nullptr;
    float hoverValue = 0;
    bool hoveredFlag = false;
    QPropertyAnimation* hoverAnimation = nullptr;
};
