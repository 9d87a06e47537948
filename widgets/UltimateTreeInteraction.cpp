// The pointer, the keys and the focus of the program's list: selecting,
// opening rows, hover, and the right-button drag that picks a row up and
// drops it elsewhere. The chain, the columns and the layout are in
// UltimateTree.cpp.
#include "widgets/UltimateTree.h"

#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeItemButton.h"
#include "widgets/UltimateTreeItemFiller.h"
#include "widgets/UltimateTreeScene.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPropertyAnimation>
#include <QTimer>

void UltimateTree::setClickValue(float value)
{
    click = value;
    if (UltimateTreeItemBase* item = current)
        item->update();
}

void UltimateTree::runClick(bool up, bool slow)
{
    if (!clickAnimation) {
        clickAnimation = new QPropertyAnimation(this, "click", this);
        clickAnimation->setEasingCurve(QEasingCurve::Linear);
        connect(clickAnimation, &QPropertyAnimation::finished, this, [this]() {
            if (click >= 1000 && pressedButton == 2)
                pickupItem();
        });
    }
    clickAnimation->stop();
    if (pressedButton != 2)
        return;
    const float target = up ? 1000.0f : 0.0f;
    const float remaining = up ? (1000.0f - click) / 1000.0f : click / 1000.0f;
    clickAnimation->setDuration(qMax(1, int(remaining * (slow ? 250 : 100))));
    clickAnimation->setStartValue(click);
    clickAnimation->setEndValue(target);
    clickAnimation->start();
}

QGraphicsItem* UltimateTree::rowAt(const QPoint& point) const
{
    if (!scene)
        return nullptr;
    const QList<QGraphicsItem*> found = scene->items(mapToScene(point), Qt::IntersectsItemShape,
                                                     Qt::DescendingOrder, viewportTransform());
    for (QGraphicsItem* item : found) {
        if (item == pickedRow || !item->isVisible())
            continue;
        return item;
    }
    return nullptr;
}

UltimateTreeItemBase* UltimateTree::topItemAt(const QPoint& point) const
{
    QGraphicsItem* item = rowAt(point);
    while (item && item->parentItem())
        item = item->parentItem();
    return dynamic_cast<UltimateTreeItemBase*>(item);
}

UltimateTreeItemBase* UltimateTree::selectAt(const QPoint& point, bool track, bool hover)
{
    QGraphicsItem* item = rowAt(point);
    if (!track && item && item->parentItem())
        return nullptr;
    if (track && pressedItem) {
        if (rowAt(point) == pressedItem)
            return current;
        if (UltimateTreeItemButton* button = dynamic_cast<UltimateTreeItemButton*>(pressedItem))
            button->setHovered(false);
        pressedItem = nullptr;
        if (clickAnimation)
            clickAnimation->stop();
    }
    while (item && item->parentItem())
        item = item->parentItem();
    UltimateTreeItemBase* row = dynamic_cast<UltimateTreeItemBase*>(item);
    if (!row)
        return nullptr;
    setCurrentRow(row);
    if (hover)
        setHoveredRow(row, true);
    return row;
}

void UltimateTree::setHoveredRow(UltimateTreeItemBase* row, bool immediate)
{
    if (row == hoveredRow)
        return;
    if (hoveredRow)
        hoveredRow->setHovered(false, false);
    hoveredRow = row;
    if (row)
        row->setHovered(true, immediate);
}

void UltimateTree::updateHoverAt(const QPoint& point)
{
    QGraphicsItem* item = rowAt(point);
    UltimateTreeItemButton* button = dynamic_cast<UltimateTreeItemButton*>(item);
    if (button != hoveredButton) {
        if (hoveredButton)
            hoveredButton->setHovered(false);
        hoveredButton = button;
        if (button)
            button->setHovered(true);
    }
    setHoveredRow(topItemAt(point), false);
}

void UltimateTree::mousePressEvent(QMouseEvent* event)
{
    // A release that went to a dialog opened meanwhile (a double click that
    // edits a row) never reached the list: a press whose button isn't held
    // any more, or is pressed again now, is over.
    const Qt::MouseButton held = pressedButton == 1 ? Qt::LeftButton : Qt::RightButton;
    if (pressedButton != 0 && (event->button() == held || !(event->buttons() & held))) {
        pressedButton = 0;
        pressedItem = nullptr;
        pickupArmed = false;
    }
    if (pressedButton != 0 || !scene)
        return;
    setFocus(Qt::MouseFocusReason);
    if (event->button() == Qt::LeftButton) {
        pressedButton = 1;
        pressPosition = event->pos();
        if (selectAt(event->pos(), false, true)) {
            if (clickAnimation)
                clickAnimation->stop();
        } else {
            pressedItem = rowAt(event->pos());
            if (UltimateTreeItemButton* button = dynamic_cast<UltimateTreeItemButton*>(pressedItem))
                button->press();
        }
    } else if (event->button() == Qt::RightButton) {
        pressedButton = 2;
        pressPosition = event->pos();
        UltimateTreeItemBase* row = selectAt(event->pos(), false, false);
        if (!relocationEnabled)
            return;
        UltimateTreeItem* dataRow = qobject_cast<UltimateTreeItem*>(row);
        pickupArmed = dataRow != nullptr;
        if (dataRow) {
            pressRowRect = dataRow->sceneBoundingRect();
            pressScenePosition = mapToScene(event->pos());
            pressOffset = pressScenePosition - dataRow->pos();
            pressOffset.rx() -= dataRow->indent();
            lastScreenY = event->globalPos().y();
            runClick(true, true);
        }
    }
}

void UltimateTree::mouseMoveEvent(QMouseEvent* event)
{
    if (!scene)
        return;
    if (ignoreMoves) {
        updateHoverAt(event->pos());
        return;
    }
    switch (pressedButton) {
    case 0:
        updateHoverAt(event->pos());
        break;
    case 1:
        selectAt(event->pos(), true, true);
        autoScroll(event->pos(), event->globalPos().y());
        break;
    case 2:
        if (pickedRow) {
            moveFloatingRow(event->pos(), event->globalPos().y());
        } else if (pickupArmed) {
            const QPointF scenePoint = mapToScene(event->pos());
            if (pressRowRect.contains(scenePoint) && qAbs(scenePoint.x() - pressScenePosition.x()) <= 10) {
                viewport()->update();
                break;
            }
            if (clickAnimation)
                clickAnimation->stop();
            click = 1000;
            pickupArmed = false;
            pickup();
            moveFloatingRow(event->pos(), event->globalPos().y());
        } else {
            viewport()->update();
        }
        break;
    default:
        break;
    }
    lastScreenY = event->globalPos().y();
}

void UltimateTree::mouseReleaseEvent(QMouseEvent* event)
{
    const int released = event->button() == Qt::LeftButton ? 1 : event->button() == Qt::RightButton ? 2 : 3;
    if (released != pressedButton) {
        ignoreMoves = false;
        return;
    }
    if (pressedButton == 2) {
        if (pickedRow) {
            drop();
        } else {
            emit contextMenuRequested(event->globalPos());
            if (pickupArmed)
                runClick(false, true);
        }
        pickupArmed = false;
        pressedButton = 0;
        if (click > 0 && !(clickAnimation && clickAnimation->state() == QAbstractAnimation::Running))
            setClickValue(0);
        return;
    }
    if (pressedItem && rowAt(event->pos()) == pressedItem) {
        if (UltimateTreeItemButton* button = dynamic_cast<UltimateTreeItemButton*>(pressedItem))
            button->setHovered(true);
    }
    runClick(false, false);
    pressedButton = 0;
    pressedItem = nullptr;
    scrollingUp = scrollingDown = false;
}

void UltimateTree::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !scene)
        return;
    pressedButton = 1;
    QGraphicsItem* item = rowAt(event->pos());
    if (UltimateTreeItemButton* button = dynamic_cast<UltimateTreeItemButton*>(item)) {
        // A quick second press on the arrow is another toggle.
        pressedItem = button;
        button->press();
        return;
    }
    UltimateTreeItemBase* row = topItemAt(event->pos());
    const bool keepLook = keepSelectionLook;
    keepSelectionLook = false;
    if (UltimateTreeItem* dataRow = qobject_cast<UltimateTreeItem*>(row)) {
        setCurrentRow(dataRow);
        QPointer<UltimateTreeItem> guard(dataRow);
        whenItemDoubleClicked(dataRow);
        if (guard) {
            guard->toggle();
            ignoreMoves = true;
            QTimer::singleShot(1, this, [this]() { ignoreMoves = false; });
        }
    } else if (row && row == filler) {
        setCurrentRow(filler);
        emit itemDoubleClicked(nullptr, 0);
    } else {
        whenEmptySpaceDoubleClicked();
    }
    keepSelectionLook = keepLook;
}

void UltimateTree::whenItemDoubleClicked(UltimateTreeItem* item)
{
    emit itemDoubleClicked(item, 0);
}

void UltimateTree::whenEmptySpaceDoubleClicked()
{
    emit emptySpaceDoubleClicked();
}

void UltimateTree::keyPressEvent(QKeyEvent* event)
{
    // While a row floats, keys would act on a row that isn't in the list.
    if (pickedRow) {
        event->accept();
        return;
    }
    const int key = event->key();
    const Qt::KeyboardModifiers modifiers = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    if ((key == Qt::Key_Up || key == Qt::Key_Down) && modifiers == Qt::NoModifier) {
        UltimateTreeItem* row = currentRow();
        if (!row)
            return;
        // Only the top level is walked; a child counts as index -1.
        const int index = rows.indexOf(row);
        const int target = key == Qt::Key_Up ? index - 1 : index + 1;
        if (target >= 0 && target < rows.size())
            setCurrentRow(rows.at(target));
        return;
    }
    if (key == Qt::Key_Delete && modifiers == Qt::NoModifier) {
        QGraphicsView::keyPressEvent(event);
        emit onDeleteKeyPress();
        return;
    }
    if (key == Qt::Key_R && modifiers == Qt::ShiftModifier) {
        recountContent();
        return;
    }
    if (modifiers == Qt::ControlModifier && (key == Qt::Key_C || key == Qt::Key_X || key == Qt::Key_V)) {
        QGraphicsView::keyPressEvent(event);
        if (key == Qt::Key_C)
            emit onCopyKeyPress();
        else if (key == Qt::Key_X)
            emit onCutKeyPress();
        else
            emit onPasteKeyPress();
        return;
    }
    QGraphicsView::keyPressEvent(event);
}

void UltimateTree::focusInEvent(QFocusEvent* event)
{
    QGraphicsView::focusInEvent(event);
    if (!keepSelectionLook && current)
        current->setSelected(true);
    popupOpen = false;
}

void UltimateTree::focusOutEvent(QFocusEvent* event)
{
    QGraphicsView::focusOutEvent(event);
    if (keepSelectionLook) {
        popupOpen = false;
        return;
    }
    if (!popupOpen) {
        if (current)
            current->setSelected(false);
        whenFocusOut();
        pressedButton = 0;
        setHoveredRow(nullptr, true);
    }
    popupOpen = false;
}

void UltimateTree::whenFocusOut()
{
    if (clickAnimation)
        clickAnimation->stop();
}

bool UltimateTree::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Enter) {
        mouseInside = true;
        if (!popupOpen)
            updateHoverAt(viewport()->mapFromGlobal(QCursor::pos()));
    } else if (event->type() == QEvent::Leave) {
        mouseInside = false;
        if (!popupOpen) {
            setHoveredRow(nullptr, false);
            if (hoveredButton) {
                hoveredButton->setHovered(false);
                hoveredButton = nullptr;
            }
        }
    }
    return QGraphicsView::viewportEvent(event);
}

void UltimateTree::wheelEvent(QWheelEvent* event)
{
    QGraphicsView::wheelEvent(event);
    if (pressedButton == 0 && mouseInside)
        updateHoverAt(viewport()->mapFromGlobal(QCursor::pos()));
}

void UltimateTree::pickupItem()
{
    if (!pickupArmed || pickedRow || pressedButton != 2)
        return;
    pickupArmed = false;
    pickup();
    if (pickedRow)
        moveFloatingRow(viewport()->mapFromGlobal(QCursor::pos()), QCursor::pos().y());
}

void UltimateTree::pickup()
{
    UltimateTreeItem* row = currentRow();
    if (!row || !scene)
        return;
    row->collapse(false);
    pickupY = row->y();
    pressRowRect = row->sceneBoundingRect();
    UltimateTreeItem* previous = row->previousVisible();
    dragging = true;
    contentHeight += row->height;
    removeRow(row);
    dropAfter = previous;
    pickedRow = row;
    if (filler)
        filler->setFillerVisible(false);
    scene->addItem(row);
    row->setOpacity(0.5);
    row->dragged = true;
    row->setZValue(10);
    row->show();
    setHoveredRow(nullptr, true);
}

void UltimateTree::moveFloatingRow(const QPoint& point, int screenY)
{
    if (!pickedRow)
        return;
    const QPointF scenePoint = mapToScene(point);
    pickedRow->setPos(scenePoint - pressOffset);
    autoScroll(point, screenY);
    const QRectF visible = mapToScene(viewport()->rect()).boundingRect();
    for (QGraphicsItem* item : scene->items(visible)) {
        if (item->parentItem() || item == pickedRow || item == filler)
            continue;
        if (UltimateTreeItem* row = qobject_cast<UltimateTreeItem*>(dynamic_cast<QObject*>(item)))
            makeWay(row, scenePoint.y());
    }
    viewport()->update();
}

void UltimateTree::makeWay(UltimateTreeItem* row, double pointerY)
{
    const double h = row->homeY;
    const double height = row->height;
    double target = h;
    if (pickupY > h) {
        if (pointerY > h + height) {
            target = h;
            if (pointerY <= h + 2 * height)
                dropAfter = row;
        } else if (pointerY < h + height) {
            target = h + height;
            if (row == firstRow)
                dropAfter = nullptr;
        }
    } else {
        if (pointerY > h) {
            target = h - height;
            if (pointerY <= h + height)
                dropAfter = row;
        } else if (pointerY < h) {
            target = h;
            if (row == firstRow)
                dropAfter = nullptr;
        }
    }
    row->glideTo(target);
}

void UltimateTree::autoScroll(const QPoint& point, int screenY)
{
    const int y = point.y();
    const int quarter = qMax(1, rowHeight / 4);
    if (y < 2) {
        if (!scrollingUp) {
            scrollingUp = true;
            scrollingDown = false;
            scrollAnchor = mapToScene(QPoint(0, 0)).y();
        }
        const int n = (y / -quarter) * rowHeight;
        if (screenY < lastScreenY) {
            const double target = scrollAnchor - n;
            if (target >= 0)
                ensureVisible(QRectF(0, target, 1, 1), 50, 50);
        } else {
            scrollAnchor = mapToScene(QPoint(0, 0)).y();
        }
    } else if (y >= viewport()->height() - 1) {
        if (!scrollingDown) {
            scrollingDown = true;
            scrollingUp = false;
            scrollAnchor = mapToScene(QPoint(0, viewport()->height())).y();
        }
        const int n = ((y - viewport()->height()) / quarter) * rowHeight;
        if (screenY > lastScreenY) {
            const double target = scrollAnchor + n;
            if (target <= sceneRect().height())
                ensureVisible(QRectF(0, target, 1, 1), 50, 50);
        } else {
            scrollAnchor = mapToScene(QPoint(0, viewport()->height())).y();
        }
    } else {
        scrollingUp = scrollingDown = false;
        scrollAnchor = -1;
    }
}

void UltimateTree::drop()
{
    UltimateTreeItem* row = pickedRow;
    const double x = row->x();
    UltimateTreeItem* after = dropAfter;

    if (filler)
        filler->setFillerVisible(true);
    scene->removeItem(row);
    row->setOpacity(1);
    row->setZValue(0);
    row->dragged = false;
    dragging = false;
    pickedRow = nullptr;
    contentHeight -= row->height;
    for (UltimateTreeItem* item = firstRow; item; item = item->nextVisible) {
        if (item->motion)
            item->motion->stop();
        item->motionTargetX = item->motionTargetY = -1;
    }

    if (!after) {
        prependRow(row);
    } else if (after->isExpanded()) {
        after->prependChild(row);
        after->expand();
    } else if (after->canHaveChildren && x > after->indent() + after->height) {
        after->prependChild(row);
        after->expand();
    } else if (after->parentRow) {
        // The row climbs out one level for every parent whose last child it
        // follows while the pointer stands left of that parent's text.
        UltimateTreeItem* anchor = after;
        while (anchor->parentRow && x <= anchor->parentRow->indent() + anchor->parentRow->height
               && anchor->parentRow->isLastChild(anchor))
            anchor = anchor->parentRow;
        if (anchor->parentRow)
            anchor->parentRow->insertChildAfter(row, anchor);
        else
            insertRowAfter(row, anchor);
    } else {
        insertRowAfter(row, after);
    }

    emit itemRelocated(row);
    setHoveredRow(row, true);
    setCurrentRow(row);
    dropAfter = nullptr;
    if (firstRow) {
        firstRow->setPos(0, 0);
        firstRow->homeY = 0;
        layoutFrom(firstRow);
    }
    recountContent();
    viewport()->update();
    if (pickupArmed)
        runClick(false, true);
    pressedButton = 0;
}
