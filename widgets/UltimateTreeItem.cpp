#include "widgets/UltimateTreeItem.h"

#include "theme/CachedColors.h"
#include "theme/Contrast.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItemButton.h"
#include "widgets/UltimateTreeScene.h"

#include <QFontMetrics>
#include <QGraphicsScene>
#include <QLinearGradient>
#include <QPainter>
#include <QPropertyAnimation>

UltimateTreeItem::UltimateTreeItem() = default;

UltimateTreeItem::~UltimateTreeItem()
{
    // Children first, while this row still links them.
    const QList<UltimateTreeItem*> owned = children;
    children.clear();
    firstChild = nullptr;
    for (UltimateTreeItem* row : owned) {
        row->parentRow = nullptr;
        delete row;
    }
    if (tree)
        tree->rowDestroyed(this);
    const UltimateTree::RowDeleter& deleter = tree ? tree->getRowDeleter() : detachedDeleter;
    if (deleter) {
        deleter(this);
        userDataRecord = nullptr;
    }
    delete userDataRecord;
    delete iconSourceRect;
}

UltimateTreeItem* UltimateTreeItem::child(int index) const
{
    return index >= 0 && index < children.size() ? children.at(index) : nullptr;
}

UltimateTreeItem* UltimateTreeItem::lastVisibleDescendant()
{
    UltimateTreeItem* row = this;
    while (row->isExpanded() && !row->children.isEmpty())
        row = row->children.last();
    return row;
}

UltimateTreeItem* UltimateTreeItem::previousVisible()
{
    UltimateTreeItem* start = nullptr;
    if (parentRow) {
        const int index = parentRow->children.indexOf(this);
        if (index <= 0)
            return parentRow;
        start = parentRow->children.at(index - 1);
    } else {
        if (!tree)
            return nullptr;
        const int index = tree->rows.indexOf(this);
        if (index <= 0)
            return nullptr;
        start = tree->rows.at(index - 1);
    }
    UltimateTreeItem* row = start;
    while (row && row->nextVisible != this)
        row = row->nextVisible;
    return row ? row : start->lastVisibleDescendant();
}

void UltimateTreeItem::setTreeRecursive(UltimateTree* owner)
{
    tree = owner;
    detachedDeleter = nullptr;
    for (UltimateTreeItem* row : children)
        row->setTreeRecursive(owner);
}

void UltimateTreeItem::detachFromTree(const UltimateTree::RowDeleter& deleter)
{
    tree = nullptr;
    detachedDeleter = deleter;
    for (UltimateTreeItem* row : children)
        row->detachFromTree(deleter);
}

void UltimateTreeItem::adoptRowHeight(int value)
{
    if (height < 0)
        setRowHeight(value);
    for (UltimateTreeItem* row : children)
        row->adoptRowHeight(value);
}

void UltimateTreeItem::setDepthRecursive(int value)
{
    if (depthValue != value) {
        prepareGeometryChange();
        depthValue = value;
        placeButton();
    }
    for (UltimateTreeItem* row : children)
        row->setDepthRecursive(value + 1);
}

void UltimateTreeItem::placeButton()
{
    if (!expandButton)
        return;
    expandButton->setSize(height);
    expandButton->setPos(depthValue * height, 0);
}

int UltimateTreeItem::showInScene(bool relayout)
{
    if (!tree || !tree->scene)
        return 0;
    int added = 0;
    if (!scene()) {
        tree->scene->addItem(this);
        added += height;
    }
    if (isExpanded()) {
        for (UltimateTreeItem* row : children)
            added += row->showInScene(relayout);
    }
    return added;
}

int UltimateTreeItem::hideFromScene(bool relayout)
{
    int removed = 0;
    for (UltimateTreeItem* row : children)
        removed += row->hideFromScene(relayout);
    if (scene()) {
        if (motion)
            motion->stop();
        scene()->removeItem(this);
        removed += height;
        if (tree)
            tree->rowVanished(this);
    }
    return removed;
}

void UltimateTreeItem::insertChildAt(UltimateTreeItem* row, int index)
{
    if (!row || row == this || row->parentRow)
        return;
    if (!expandButton) {
        expandButton = new UltimateTreeItemButton(this);
        connect(expandButton, &UltimateTreeItemButton::pressed, this, &UltimateTreeItem::toggleChilds);
        placeButton();
    }
    index = qBound(0, index, children.size());
    const bool expanded = isExpanded();
    UltimateTreeItem* before = nullptr;
    UltimateTreeItem* last = row->lastVisibleDescendant();
    if (index == 0) {
        last->nextVisible = firstChild;
        if (expanded) {
            nextVisible = row;
            before = this;
        }
        firstChild = row;
    } else {
        before = children.at(index - 1)->lastVisibleDescendant();
        last->nextVisible = before->nextVisible;
        before->nextVisible = row;
    }
    children.insert(index, row);
    row->parentRow = this;
    row->setTreeRecursive(tree);
    row->setDepthRecursive(depthValue + 1);
    if (tree)
        row->adoptRowHeight(tree->getRowHeight());
    if (expanded && scene()) {
        tree->addToContent(row->showInScene(true));
        tree->layoutFrom(before);
    }
    update();
}

void UltimateTreeItem::addChild(UltimateTreeItem* row)
{
    insertChildAt(row, children.size());
}

void UltimateTreeItem::insertChildAfter(UltimateTreeItem* row, UltimateTreeItem* after)
{
    const int index = children.indexOf(after);
    insertChildAt(row, index < 0 ? children.size() : index + 1);
}

void UltimateTreeItem::prependChild(UltimateTreeItem* row)
{
    insertChildAt(row, 0);
}

void UltimateTreeItem::takeChild(UltimateTreeItem* row)
{
    const int index = children.indexOf(row);
    if (index < 0)
        return;
    const bool wasVisible = row->scene() != nullptr;
    const bool wasExpanded = isExpanded();
    row->collapse(true);
    UltimateTreeItem* before = nullptr;
    if (index == 0)
        before = isExpanded() ? this : nullptr;
    else
        before = children.at(index - 1)->lastVisibleDescendant();
    if (before)
        before->nextVisible = row->nextVisible;
    if (index == 0)
        firstChild = children.size() > 1 ? children.at(1) : nullptr;
    children.removeAt(index);
    if (children.isEmpty()) {
        firstChild = nullptr;
        if (expandButton) {
            if (tree)
                tree->buttonVanished(expandButton);
            expandButton->hide();
            expandButton->deleteLater();
            expandButton = nullptr;
        }
    }
    if (wasVisible && tree) {
        tree->addToContent(-row->hideFromScene(true));
        tree->layoutFrom(before ? before : this);
    }
    UltimateTree* owner = tree;
    if (tree && !tree->isDragging())
        tree->rowTaken(row);
    row->parentRow = nullptr;
    row->nextVisible = nullptr;
    row->setDepthRecursive(0);
    row->setHovered(false, true);
    // A row that lost its last child is closed.
    if (wasExpanded && children.isEmpty() && owner)
        emit owner->itemCollapsed(this);
    update();
}

void UltimateTreeItem::deleteChild(UltimateTreeItem* row)
{
    if (!children.contains(row))
        return;
    UltimateTree* owner = tree;
    takeChild(row);
    if (owner)
        owner->deleteLaterOwned(row);
    else
        row->deleteLater();
}

void UltimateTreeItem::expand()
{
    if (!firstChild || isExpanded()) {
        if (tree)
            emit tree->itemExpanded(this);
        return;
    }
    int added = 0;
    UltimateTreeItem* last = nullptr;
    for (UltimateTreeItem* row = firstChild; row; row = row->nextVisible) {
        if (tree && tree->scene && scene() && !row->scene()) {
            tree->scene->addItem(row);
            added += row->height;
        }
        last = row;
    }
    last->nextVisible = nextVisible;
    nextVisible = firstChild;
    if (tree) {
        tree->addToContent(added);
        tree->layoutFrom(this);
    }
    if (expandButton)
        expandButton->setOpen(true);
    if (tree)
        emit tree->itemExpanded(this);
}

void UltimateTreeItem::collapse(bool relayout)
{
    if (!isExpanded())
        return;
    int removed = 0;
    UltimateTreeItem* row = firstChild;
    UltimateTreeItem* previous = nullptr;
    while (row && row->depthValue > depthValue) {
        row->collapse(relayout);
        if (row->scene()) {
            if (row->motion)
                row->motion->stop();
            row->scene()->removeItem(row);
            removed += row->height;
            if (tree)
                tree->rowVanished(row);
        }
        previous = row;
        row = row->nextVisible;
    }
    // The children stay chained among themselves, ending nowhere.
    if (previous)
        previous->nextVisible = nullptr;
    nextVisible = row;
    if (tree) {
        tree->addToContent(-removed);
        tree->layoutFrom(this);
    }
    if (expandButton)
        expandButton->setOpen(false);
    if (tree)
        emit tree->itemCollapsed(this);
}

void UltimateTreeItem::toggle()
{
    if (isExpanded())
        collapse(true);
    else
        expand();
}

void UltimateTreeItem::toggleChilds()
{
    toggle();
}

void UltimateTreeItem::setExpanded(bool on)
{
    if (on)
        expand();
    else
        collapse(true);
}

void UltimateTreeItem::setText(int column, const QString& text)
{
    if (column < 0 || column > 63)
        return;
    if (texts.size() <= column)
        texts.resize(column + 1);
    texts[column] = text;
    update();
}

QString UltimateTreeItem::text(int column) const
{
    return column >= 0 && column < texts.size() ? texts.at(column) : QString();
}

void UltimateTreeItem::setIcon(const QPixmap& pixmap)
{
    icon = pixmap;
    hasIcon = !pixmap.isNull();
    update();
}

void UltimateTreeItem::setIconSize(int width, int height)
{
    iconWidth = width;
    iconHeight = height;
    update();
}

void UltimateTreeItem::setIconSourceRect(const QRect& rect)
{
    delete iconSourceRect;
    iconSourceRect = new QRectF(rect);
    update();
}

static void setBit(quint32& mask, int column, bool on)
{
    if (column < 0 || column > 31)
        return;
    if (on)
        mask |= (1u << column);
    else
        mask &= ~(1u << column);
}

void UltimateTreeItem::setBold(int column, bool on)
{
    setBit(boldColumns, column, on);
    update();
}

void UltimateTreeItem::setItalic(int column, bool on)
{
    setBit(italicColumns, column, on);
    update();
}

void UltimateTreeItem::setHalfOpacity(int column, bool on)
{
    setBit(halfOpacityColumns, column, on);
    update();
}

void UltimateTreeItem::setBoldAll(bool on)
{
    boldColumns = on ? ~0u : 0u;
    update();
}

void UltimateTreeItem::setItalicAll(bool on)
{
    italicColumns = on ? ~0u : 0u;
    update();
}

void UltimateTreeItem::setHalfOpacityAll(bool on)
{
    halfOpacityColumns = on ? ~0u : 0u;
    update();
}

void UltimateTreeItem::setTextColor(const QColor& color)
{
    textColor = int(color.rgb() & 0xffffff);
    update();
}

void UltimateTreeItem::clearTextColor()
{
    textColor = -1;
    update();
}

void UltimateTreeItem::setRowHeight(int value)
{
    if (value == height)
        return;
    const bool visible = scene() != nullptr;
    prepareGeometryChange();
    const int change = value - qMax(0, height);
    height = value;
    placeButton();
    if (visible && tree) {
        tree->addToContent(change);
        tree->layoutFrom(this);
    }
}

void UltimateTreeItem::setHovered(bool on, bool immediate)
{
    animateHover(on, immediate, 50, 100);
}

void UltimateTreeItem::setSelected(bool on)
{
    if (selected == on)
        return;
    selected = on;
    update();
}

void UltimateTreeItem::refresh()
{
    prepareGeometryChange();
    placeButton();
    update();
}

QRectF UltimateTreeItem::rowRect() const
{
    const int width = tree ? tree->getViewWidth() : 100;
    return QRectF(0, 0, width, qMax(0, height));
}

void UltimateTreeItem::glideTo(double targetY)
{
    if (motionTargetY >= 0 && qAbs(motionTargetY - targetY) <= 1e-12)
        return;
    motionTargetY = targetY;
    motionTargetX = x();
    if (motion)
        motion->stop();
    else {
        motion = new QPropertyAnimation(this, "pos", this);
        motion->setEasingCurve(QEasingCurve::Linear);
        connect(motion, &QPropertyAnimation::finished, this, &UltimateTreeItem::removeMotion);
    }
    motion->setDuration(100);
    motion->setStartValue(pos());
    motion->setEndValue(QPointF(x(), targetY));
    motion->start();
}

void UltimateTreeItem::removeMotion()
{
    if (motion && motion->state() == QAbstractAnimation::Stopped && pos().y() == motionTargetY) {
        motion->deleteLater();
        motion = nullptr;
    }
    motionTargetX = -1;
    motionTargetY = -1;
}

void UltimateTreeItem::paintRow(QPainter* painter)
{
    const int width = tree ? tree->getViewWidth() : 100;
    const int indentX = indent();
    painter->save();
    if (selected || dragged)
        paintSelection(painter, QRectF(indentX, 0, width - indentX, height), true);

    if (hoverValue > 0) {
        painter->save();
        painter->setOpacity(hoverValue / 1000.0);
        const qreal inset = (1000.0 - hoverValue) / 1000.0 * 7;
        painter->setPen(QPen(CachedColor::ListItemHover, 1));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(QRectF(indentX + inset + 0.5, inset + 0.5, width - indentX - 2 * inset - 1,
                                 height - 2 * inset - 1));
        painter->restore();
    }

    int x = indentX + (tree ? tree->textOffsetFor(this) : height + 1);
    if (hasIcon) {
        painter->setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
        const QRectF source = iconSourceRect ? *iconSourceRect : QRectF(icon.rect());
        const int drawnWidth = iconWidth < 0 ? int(source.width()) : iconWidth;
        const int drawnHeight = iconWidth < 0 ? int(source.height()) : iconHeight;
        painter->drawPixmap(QRectF(x, (height - drawnHeight) / 2, drawnWidth, drawnHeight), icon, source);
        x += drawnWidth + 4;
    }

    const int columns = tree ? tree->getColumnCount() : 1;
    const QFont baseFont = painter->font();
    QColor ink = textColor != -1 ? QColor(QRgb(textColor)) : tree ? tree->palette().color(QPalette::Text) : QColor();
    if (selected && ink.isValid()) {
        // On the selection's gradient the text holds against both its ends.
        ink = Contrast::readable(Contrast::readable(ink, CachedColor::ListItemTop, Contrast::Text),
                                 CachedColor::ListItemBottom, Contrast::Text);
    }
    for (int column = 0; column < columns; ++column) {
        int w = tree ? tree->columnWidth(column) : width;
        if (column == columns - 1)
            w = width - x;
        else if (columns > 1 && column == 0)
            w -= x - 7;
        painter->save();
        qreal opacity = 1.0;
        const int columnOpacity = tree ? tree->columnOpacity(column) : 255;
        if (columnOpacity != 255)
            opacity = columnOpacity / 255.0;
        QFont font = baseFont;
        font.setItalic((italicColumns >> column) & 1);
        if ((boldColumns >> column) & 1)
            font.setWeight(75);
        painter->setFont(font);
        if (ink.isValid())
            painter->setPen(ink);
        if ((halfOpacityColumns >> column) & 1)
            opacity *= 0.5;
        painter->setOpacity(opacity);
        const int alignment = tree ? tree->columnAlignment(column) : Qt::AlignLeft;
        const QString shown = QFontMetrics(font).elidedText(text(column), Qt::ElideRight, qMax(0, w - 7));
        painter->drawText(QRect(x, 0, qMax(0, w - 7), height), alignment | Qt::AlignVCenter, shown);
        painter->restore();
        x += w;
    }
    painter->restore();
}
