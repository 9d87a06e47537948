// The program's list: the chain of rows, the columns, the layout and the
// painting of the lines that join children. The pointer, the keys and the
// drag are in UltimateTreeInteraction.cpp.
#include "widgets/UltimateTree.h"

#include "theme/CachedColors.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeItemButton.h"
#include "widgets/UltimateTreeItemFiller.h"
#include "widgets/UltimateTreeScene.h"

#include <QCursor>
#include <QPainter>
#include <QPropertyAnimation>
#include <QTimer>

UltimateTree::UltimateTree(QWidget* parent) : QGraphicsView(parent)
{
    setStyleSheet(QStringLiteral("UltimateTree { border: 1px solid rgb(0, 0, 0); }"));
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setViewportUpdateMode(QGraphicsView::MinimalViewportUpdate);
    setAttribute(Qt::WA_MouseTracking);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    columnWidths = {100};
    columnOpacities = {255};
    columnAlignments = {Qt::AlignLeft};
    columnTitles = {QString()};
}

UltimateTree::~UltimateTree()
{
    if (clickAnimation)
        clickAnimation->stop();
    clear();
    for (const QPointer<UltimateTreeItem>& row : pendingDeletes)
        delete row.data();
    pendingDeletes.clear();
    delete filler;
    filler = nullptr;
}

void UltimateTree::startView()
{
    if (scene)
        return;
    scene = new UltimateTreeScene(this);
    setScene(scene);
    connect(scene, &QGraphicsScene::sceneRectChanged, this, &UltimateTree::whenSceneResized);
    computeViewWidth();
    if (hasFiller) {
        filler = new UltimateTreeItemFiller(this);
        filler->setCaption(fillerCaption);
        scene->addItem(filler);
    }
    updateScene();
}

UltimateTreeItem* UltimateTree::row(int index) const
{
    return index >= 0 && index < rows.size() ? rows.at(index) : nullptr;
}

int UltimateTree::indexOfRow(const UltimateTreeItem* row) const
{
    return rows.indexOf(const_cast<UltimateTreeItem*>(row));
}

void UltimateTree::linkTopLevel(UltimateTreeItem* row, int index)
{
    if (!scene) {
        qCritical("VIEW HAS NO STARTED!");
        // The row is dropped; its record goes through this list's deleter.
        if (row) {
            row->setTreeRecursive(this);
            delete row;
        }
        return;
    }
    if (!row || row->parentRow || row->topLevel)
        return;
    index = qBound(0, index, rows.size());
    UltimateTreeItem* before = index > 0 ? rows.at(index - 1)->lastVisibleDescendant() : nullptr;
    UltimateTreeItem* after = index < rows.size() ? rows.at(index) : nullptr;
    row->lastVisibleDescendant()->nextVisible = after;
    if (before)
        before->nextVisible = row;
    else
        firstRow = row;
    rows.insert(index, row);
    adoptTopLevel(row);
    addToContent(row->showInScene(true));
    relayoutAfter(before);
}

void UltimateTree::adoptTopLevel(UltimateTreeItem* row)
{
    row->topLevel = true;
    row->setTreeRecursive(this);
    row->setDepthRecursive(0);
    if (row->height < 0)
        row->setRowHeight(rowHeight);
    row->adoptRowHeight(rowHeight);
}

double UltimateTree::placeFrom(UltimateTreeItem* row, double y)
{
    UltimateTreeItem* last = row->lastVisibleDescendant();
    for (UltimateTreeItem* item = row;; item = item->nextVisible) {
        if (item->motion)
            item->motion->stop();
        item->setPos(0, y);
        item->homeY = y;
        y += item->height;
        if (item == last)
            return y;
    }
}

void UltimateTree::relayoutAfter(UltimateTreeItem* before)
{
    // In a drag the rows stay where they are, but the scene takes the new height.
    if (dragging) {
        updateScene();
    } else if (before) {
        layoutFrom(before);
    } else if (firstRow) {
        firstRow->setPos(0, 0);
        firstRow->homeY = 0;
        layoutFrom(firstRow);
    } else {
        updateScene();
    }
}

void UltimateTree::addRows(const QList<UltimateTreeItem*>& newRows)
{
    insertRows(rows.size(), newRows);
}

void UltimateTree::insertRows(int index, const QList<UltimateTreeItem*>& newRows)
{
    if (!scene) {
        for (UltimateTreeItem* row : newRows)
            linkTopLevel(row, index);
        return;
    }
    QList<UltimateTreeItem*> joining;
    joining.reserve(newRows.size());
    for (UltimateTreeItem* row : newRows) {
        // Marked as they join, so that a row given twice joins once.
        if (!row || row->parentRow || row->topLevel)
            continue;
        adoptTopLevel(row);
        joining.append(row);
    }
    if (joining.isEmpty())
        return;
    index = qBound(0, index, rows.size());
    UltimateTreeItem* before = index > 0 ? rows.at(index - 1)->lastVisibleDescendant() : nullptr;
    UltimateTreeItem* after = index < rows.size() ? rows.at(index) : nullptr;
    // Each row is placed before it enters the scene, where moving it would
    // cost more; in a drag the layout stays frozen, as for a single row.
    double y = before ? before->y() + before->height : 0;
    UltimateTreeItem* previous = before;
    int added = 0;
    for (UltimateTreeItem* row : joining) {
        if (previous)
            previous->nextVisible = row;
        else
            firstRow = row;
        if (!dragging)
            y = placeFrom(row, y);
        previous = row->lastVisibleDescendant();
        added += row->showInScene(true);
    }
    previous->nextVisible = after;
    if (index == rows.size()) {
        rows.append(joining);
    } else {
        QList<UltimateTreeItem*> merged;
        merged.reserve(rows.size() + joining.size());
        merged.append(rows.mid(0, index));
        merged.append(joining);
        merged.append(rows.mid(index));
        rows = merged;
    }
    contentHeight += added;
    // Rows below the new ones move down by all of them at once.
    if (after && !dragging)
        layoutFrom(previous);
    else
        updateScene();
}

void UltimateTree::addRow(UltimateTreeItem* row)
{
    linkTopLevel(row, rows.size());
}

void UltimateTree::prependRow(UltimateTreeItem* row)
{
    linkTopLevel(row, 0);
}

void UltimateTree::insertRow(UltimateTreeItem* row, int index)
{
    linkTopLevel(row, index);
}

void UltimateTree::insertRowAfter(UltimateTreeItem* row, UltimateTreeItem* after)
{
    const int index = rows.indexOf(after);
    linkTopLevel(row, index < 0 ? rows.size() : index + 1);
}

void UltimateTree::takeRow(UltimateTreeItem* row, bool keepLayout)
{
    const int index = row && row->topLevel ? rows.indexOf(row) : -1;
    if (index < 0)
        return;
    UltimateTreeItem* last = row->lastVisibleDescendant();
    UltimateTreeItem* after = last->nextVisible;
    UltimateTreeItem* before = index > 0 ? rows.at(index - 1)->lastVisibleDescendant() : nullptr;
    if (before)
        before->nextVisible = after;
    else
        firstRow = after;
    last->nextVisible = nullptr;
    rows.removeAt(index);
    row->topLevel = false;
    addToContent(-row->hideFromScene(true));
    if (!dragging)
        rowTaken(row);
    if (!keepLayout)
        relayoutAfter(before);
}

QList<UltimateTreeItem*> UltimateTree::takeRows(int index, int count)
{
    index = qBound(0, index, rows.size());
    count = qBound(0, count, rows.size() - index);
    if (count == 0)
        return {};
    const QList<UltimateTreeItem*> taken = rows.mid(index, count);
    UltimateTreeItem* before = index > 0 ? rows.at(index - 1)->lastVisibleDescendant() : nullptr;
    UltimateTreeItem* after = taken.last()->lastVisibleDescendant()->nextVisible;
    if (before)
        before->nextVisible = after;
    else
        firstRow = after;
    rows.erase(rows.begin() + index, rows.begin() + index + count);
    int removed = 0;
    for (UltimateTreeItem* row : taken) {
        row->lastVisibleDescendant()->nextVisible = nullptr;
        row->topLevel = false;
        removed += row->hideFromScene(true);
        if (!dragging)
            rowTaken(row);
    }
    contentHeight -= removed;
    relayoutAfter(before);
    return taken;
}

void UltimateTree::removeRow(UltimateTreeItem* row)
{
    if (!row)
        return;
    if (row->parentRow)
        row->parentRow->takeChild(row);
    else
        takeRow(row);
}

void UltimateTree::deleteRow(UltimateTreeItem* row)
{
    if (!row || (!row->parentRow && !(row->topLevel && row->treeView() == this)))
        return;
    removeRow(row);
    deleteLaterOwned(row);
}

void UltimateTree::deleteLaterOwned(UltimateTreeItem* row)
{
    pendingDeletes.removeAll(QPointer<UltimateTreeItem>());
    pendingDeletes.append(QPointer<UltimateTreeItem>(row));
    row->deleteLater();
}

void UltimateTree::clear()
{
    if (current && current != filler)
        current = nullptr;
    if (hoveredRow != filler)
        hoveredRow = nullptr;
    pressedItem = nullptr;
    hoveredButton = nullptr;
    dropAfter = nullptr;
    // A row floating in a drag belongs to the list until it is dropped.
    if (pickedRow) {
        UltimateTreeItem* floating = pickedRow;
        pickedRow = nullptr;
        dragging = false;
        if (floating->scene())
            floating->scene()->removeItem(floating);
        delete floating;
        if (filler)
            filler->setFillerVisible(true);
    }
    dragging = false;
    const QList<UltimateTreeItem*> old = rows;
    rows.clear();
    firstRow = nullptr;
    for (UltimateTreeItem* row : old) {
        row->hideFromScene(false);
        delete row;
    }
    contentHeight = 0;
    if (scene)
        updateScene();
}

void UltimateTree::rowVanished(UltimateTreeItem* row)
{
    if (hoveredRow == row) {
        hoveredRow = nullptr;
        row->setHovered(false, true);
        // The pointer stands still over whatever moved in under it.
        if (mouseInside && pressedButton == 0) {
            QTimer::singleShot(0, this, [this]() {
                if (mouseInside && pressedButton == 0)
                    updateHoverAt(viewport()->mapFromGlobal(QCursor::pos()) - QPoint(0, 1));
            });
        }
    }
    if (pressedItem == row || (pressedItem && pressedItem->parentItem() == row))
        pressedItem = nullptr;
    if (hoveredButton && hoveredButton->parentItem() == row)
        hoveredButton = nullptr;
    if (pickedRow == row && !dragging)
        pickedRow = nullptr;
    if (dropAfter == row)
        dropAfter = nullptr;
}

void UltimateTree::rowDestroyed(UltimateTreeItem* row)
{
    rowVanished(row);
    if (current == row)
        current = nullptr;
    if (pickedRow == row) {
        pickedRow = nullptr;
        dragging = false;
    }
}

void UltimateTree::buttonVanished(QGraphicsItem* button)
{
    if (pressedItem == button)
        pressedItem = nullptr;
    if (hoveredButton == button)
        hoveredButton = nullptr;
}

void UltimateTree::rowTaken(UltimateTreeItem* row)
{
    rowVanished(row);
    // A current row that leaves the list, alone or inside its parent, leaves no
    // current behind; the caller picks the next one if it wants one.
    for (UltimateTreeItem* up = qobject_cast<UltimateTreeItem*>(current); up; up = up->parentItem()) {
        if (up == row) {
            current->setSelected(false);
            current = nullptr;
            break;
        }
    }
    // The row is the caller's now; it keeps the list's deleter for its record.
    row->detachFromTree(rowDeleter);
}

UltimateTreeItem* UltimateTree::currentRow() const
{
    return qobject_cast<UltimateTreeItem*>(current);
}

void UltimateTree::setCurrentRow(UltimateTreeItemBase* row)
{
    if (row == current)
        return;
    UltimateTreeItemBase* previous = current;
    if (previous)
        previous->setSelected(false);
    current = row;
    if (row) {
        row->setSelected(true);
        if (row == filler)
            ensureVisible(QRectF(0, filler->y(), 1, rowHeight), 0, 0);
        else if (row->scene())
            ensureVisible(row, 0, 0);
    }
    emit currentItemChanged(qobject_cast<UltimateTreeItem*>(row), qobject_cast<UltimateTreeItem*>(previous));
}

void UltimateTree::whenItemSelected(UltimateTreeItemBase* item)
{
    setCurrentRow(item);
}

void UltimateTree::setColumnCount(int count)
{
    count = qMax(1, count);
    columnCount = count;
    columnTitles.resize(count);
    const int oldSize = columnWidths.size();
    columnWidths.resize(count);
    columnOpacities.resize(count);
    columnAlignments.resize(count);
    for (int i = oldSize; i < count; ++i) {
        columnWidths[i] = 100;
        columnOpacities[i] = 255;
        columnAlignments[i] = Qt::AlignLeft;
    }
    viewport()->update();
}

void UltimateTree::setColumnTitle(int column, const QString& title)
{
    if (column >= 0 && column < columnTitles.size())
        columnTitles[column] = title;
}

QString UltimateTree::columnTitle(int column) const
{
    return column >= 0 && column < columnTitles.size() ? columnTitles.at(column) : QString();
}

void UltimateTree::setColumnWidth(int column, int width, bool fit)
{
    if (column < 0 || column >= columnWidths.size())
        return;
    const int old = columnWidths.at(column);
    columnWidths[column] = width;
    if (fit && width > old && !fitColumns(column))
        columnWidths[column] = old;
    if (scene)
        scene->update(mapToScene(viewport()->rect()).boundingRect());
    viewport()->update();
}

int UltimateTree::columnWidth(int column) const
{
    return column >= 0 && column < columnWidths.size() ? columnWidths.at(column) : 0;
}

void UltimateTree::setColumnOpacity(int column, int opacity)
{
    if (column >= 0 && column < columnOpacities.size())
        columnOpacities[column] = opacity;
}

int UltimateTree::columnOpacity(int column) const
{
    return column >= 0 && column < columnOpacities.size() ? columnOpacities.at(column) : 255;
}

void UltimateTree::setColumnAlignment(int column, int alignment)
{
    if (column >= 0 && column < columnAlignments.size())
        columnAlignments[column] = alignment;
}

int UltimateTree::columnAlignment(int column) const
{
    return column >= 0 && column < columnAlignments.size() ? columnAlignments.at(column) : int(Qt::AlignLeft);
}

bool UltimateTree::fitColumns(int column)
{
    int total = 0;
    for (int width : columnWidths)
        total += width;
    int excess = total - (viewport()->width() - 1);
    for (int i = columnWidths.size() - 1; i > column && excess > 0; --i) {
        const int take = qMin(excess, columnWidths.at(i) - 25);
        if (take > 0) {
            columnWidths[i] -= take;
            excess -= take;
        }
    }
    return excess <= 0;
}

void UltimateTree::setRowHeight(int height)
{
    rowHeight = qMax(1, height);
}

void UltimateTree::setTextOffset(int offset)
{
    // Rows that hold children keep their text clear of the arrow.
    textOffsetPlain = offset;
}

int UltimateTree::plainTextOffset() const
{
    return textOffsetPlain < 0 ? rowHeight + 1 : textOffsetPlain;
}

int UltimateTree::textOffsetFor(const UltimateTreeItem* row) const
{
    const bool withChildren = row->canHaveChildren && row->expandButton;
    const int offset = withChildren ? textOffsetWithChildren : textOffsetPlain;
    return offset < 0 ? row->height + 1 : offset;
}

void UltimateTree::setFiller(bool on, const QString& caption)
{
    hasFiller = on;
    fillerCaption = caption;
    if (filler)
        filler->setCaption(caption);
    if (scene && on && !filler) {
        filler = new UltimateTreeItemFiller(this);
        filler->setCaption(caption);
        scene->addItem(filler);
        updateScene();
    } else if (scene && !on && filler) {
        if (current == filler)
            current = nullptr;
        if (hoveredRow == filler)
            hoveredRow = nullptr;
        delete filler;
        filler = nullptr;
        updateScene();
    }
}

void UltimateTree::layoutFrom(UltimateTreeItem* row)
{
    if (dragging)
        return;
    // The chain is walked iteratively: long lists must not run out of stack.
    for (UltimateTreeItem* item = row; item && item->nextVisible; item = item->nextVisible) {
        UltimateTreeItem* next = item->nextVisible;
        const double y = item->y() + item->height;
        if (next->motion)
            next->motion->stop();
        next->setPos(0, y);
        next->homeY = y;
    }
    updateScene();
}

void UltimateTree::addToContent(int height)
{
    contentHeight += height;
    updateScene();
}

void UltimateTree::recountContent()
{
    // Also the repair key: every row goes back to its place in the chain.
    if (firstRow && !dragging) {
        firstRow->setPos(0, 0);
        firstRow->homeY = 0;
        layoutFrom(firstRow);
    }
    int height = 0;
    for (UltimateTreeItem* row = firstRow; row; row = row->nextVisible)
        height += row->height;
    if (pickedRow)
        height += rowHeight;
    contentHeight = height;
    updateScene();
}

void UltimateTree::updateScene()
{
    if (!scene)
        return;
    double h = qMax(double(viewport()->height() - 2), double(contentHeight));
    if (filler)
        h += 3 * rowHeight;
    const QRectF wanted(0, 0, viewWidth, h);
    if (scene->sceneRect() != wanted)
        scene->setSceneRect(wanted);
    if (!dragging && firstRow && (firstRow->pos() != QPointF(0, 0))) {
        firstRow->setPos(0, 0);
        firstRow->homeY = 0;
        layoutFrom(firstRow);
        return;
    }
    if (filler) {
        filler->setHeight(h);
        filler->setPos(0, contentHeight);
    }
}

void UltimateTree::computeViewWidth()
{
    int width = viewport()->width();
    if (width <= 0)
        width = this->width() - 2;
    viewWidth = qMax(1, width);
}

void UltimateTree::whenSceneResized()
{
    viewport()->update();
}

void UltimateTree::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    const int old = viewWidth;
    computeViewWidth();
    if (old != viewWidth && scene) {
        // Rows are as wide as the view.
        for (UltimateTreeItem* row = firstRow; row; row = row->nextVisible)
            row->refresh();
        if (filler)
            filler->refresh();
    }
    updateScene();
}

void UltimateTree::showEvent(QShowEvent* event)
{
    QGraphicsView::showEvent(event);
    computeViewWidth();
    updateScene();
}

void UltimateTree::drawBackground(QPainter* painter, const QRectF& rect)
{
    QGraphicsView::drawBackground(painter, rect);
    paintChildLines(painter, rect);
}

void UltimateTree::paintChildLines(QPainter* painter, const QRectF& exposed)
{
    painter->save();
    painter->setCompositionMode(QPainter::CompositionMode_Source);
    for (UltimateTreeItem* row = firstRow; row; row = row->nextVisible) {
        if (row->y() > exposed.bottom())
            break;
        if (row->isExpanded() && row->scene()) {
            UltimateTreeItem* last = row->lastVisibleDescendant();
            if (last->y() + row->height < exposed.top())
                continue;
            const int r = rowHeight;
            const int x = int(r * row->depthValue + r / 2.0 - 1);
            const double y1 = row->y() + row->height;
            const double y2 = last->y() + r / 2.0;
            painter->fillRect(QRectF(x, y1, 2, y2 - y1), CachedColor::ListChildIndicator);
            painter->fillRect(QRectF(x, y2, int(r / 2), 2), CachedColor::ListChildIndicator);
        }
    }
    painter->restore();
}
