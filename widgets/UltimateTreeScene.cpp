#include "widgets/UltimateTreeScene.h"

#include "theme/CachedColors.h"
#include "widgets/UltimateTree.h"

#include <QPainter>

#include <cmath>

UltimateTreeScene::UltimateTreeScene(UltimateTree* tree) : QGraphicsScene(tree), tree(tree)
{
    // Rows move a lot and are few on screen; an index would cost more than it saves.
    setItemIndexMethod(QGraphicsScene::NoIndex);
}

void UltimateTreeScene::drawBackground(QPainter* painter, const QRectF& rect)
{
    const int row = qMax(1, tree->getRowHeight());
    const double band = 2.0 * row;
    const double start = std::floor(rect.top() / band) * band;
    const QRectF area = sceneRect();
    for (double y = start; y < rect.bottom(); y += band) {
        painter->fillRect(QRectF(area.left(), y, area.width(), row), CachedColor::ListBackgroundColor1);
        painter->fillRect(QRectF(area.left(), y + row, area.width(), row), CachedColor::ListBackgroundColor2);
    }
}
