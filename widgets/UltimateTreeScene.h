#pragma once

#include <QGraphicsScene>

class UltimateTree;

// The private scene of an UltimateTree. Its background is the list's stripes,
// fixed to the scene in bands of one row height.
class UltimateTreeScene : public QGraphicsScene
{
    Q_OBJECT

public:
    explicit UltimateTreeScene(UltimateTree* tree);

protected:
    void drawBackground(QPainter* painter, const QRectF& rect) override;

private:
    UltimateTree* tree;
};
