#pragma once

#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItemBase.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QPixmap>
#include <QVector>

class QPropertyAnimation;
class UltimateTreeItemButton;

// A data row. Rows form a chain through nextVisible in display order; a row is
// expanded exactly when its next row is its first child. Rows own their
// children, and a row's record (userData) is freed through the tree's row
// deleter, or as a QJsonObject when the tree has none.
class UltimateTreeItem : public UltimateTreeItemBase
{
    Q_OBJECT

public:
    UltimateTreeItem();
    ~UltimateTreeItem() override;

    // Children.
    int childCount() const { return children.size(); }
    UltimateTreeItem* child(int index) const;
    void addChild(UltimateTreeItem* row);
    void insertChildAfter(UltimateTreeItem* row, UltimateTreeItem* after);
    void prependChild(UltimateTreeItem* row);
    // Removes the row from this row's children; the caller owns it then.
    void takeChild(UltimateTreeItem* row);
    // Removes the row and deletes it later.
    void deleteChild(UltimateTreeItem* row);
    int indexOfChild(const UltimateTreeItem* row) const { return children.indexOf(const_cast<UltimateTreeItem*>(row)); }
    bool isLastChild(const UltimateTreeItem* row) const { return !children.isEmpty() && children.last() == row; }
    UltimateTreeItem* parentItem() const { return parentRow; }

    // The chain.
    UltimateTreeItem* next() const { return nextVisible; }
    UltimateTreeItem* lastVisibleDescendant();
    UltimateTreeItem* previousVisible();

    void expand();
    void collapse(bool relayout = true);
    void toggle();
    void setExpanded(bool on);
    bool isExpanded() const { return firstChild && nextVisible == firstChild; }

    // Look.
    void setText(int column, const QString& text);
    QString text(int column) const;
    void setIcon(const QPixmap& pixmap);
    void setIconSize(int width, int height);
    void setIconSourceRect(const QRect& rect);
    void setBold(int column, bool on);
    void setItalic(int column, bool on);
    void setHalfOpacity(int column, bool on);
    void setBoldAll(bool on);
    void setItalicAll(bool on);
    void setHalfOpacityAll(bool on);
    bool isBold(int column) const { return column >= 0 && column < 32 && (boldColumns >> column) & 1; }
    bool isItalic(int column) const { return column >= 0 && column < 32 && (italicColumns >> column) & 1; }
    void setTextColor(const QColor& color);
    void clearTextColor();

    void setUserData(QJsonObject* record) { userDataRecord = record; }
    QJsonObject* userData() const { return userDataRecord; }
    // The plain record of a row in a list with two kinds of rows; the row
    // owns it, so nothing needs freeing by hand.
    void setUserBlock(const QByteArray& block) { plainBlock = block; }
    const QByteArray& userBlock() const { return plainBlock; }

    int id() const { return itemId; }
    void setId(int id) { itemId = id; }
    int depth() const { return depthValue; }
    int rowHeight() const { return height; }
    void setRowHeight(int value);
    bool isSelected() const { return selected; }
    bool isDragged() const { return dragged; }
    bool acceptsChildren() const { return canHaveChildren; }
    void setCanHaveChildren(bool on) { canHaveChildren = on; }
    double home() const { return homeY; }
    UltimateTreeItemButton* button() const { return expandButton; }

    void setHovered(bool on, bool immediate) override;
    void setSelected(bool on) override;
    void refresh() override;
    QRectF rowRect() const override;
    void paintRow(QPainter* painter) override;

public slots:
    void toggleChilds();
    void removeMotion();

private:
    friend class UltimateTree;

    void insertChildAt(UltimateTreeItem* row, int index);
    // Leaves the tree for the caller, keeping the tree's deleter for the record.
    void detachFromTree(const UltimateTree::RowDeleter& deleter);
    // Rows made before they were in a tree take the tree's row height.
    void adoptRowHeight(int value);
    void setDepthRecursive(int value);
    void setTreeRecursive(UltimateTree* owner);
    // Adds this row and its visible descendants to the tree's scene, or
    // removes them; returns the sum of their heights.
    int showInScene(bool relayout);
    int hideFromScene(bool relayout);
    // Moves the row towards a y in the drag's gap animation.
    void glideTo(double y);
    void placeButton();
    int indent() const { return depthValue * height; }

    UltimateTreeItem* nextVisible = nullptr;
    UltimateTreeItem* firstChild = nullptr;
    UltimateTreeItemButton* expandButton = nullptr;
    UltimateTreeItem* parentRow = nullptr;
    QPixmap icon;
    QList<UltimateTreeItem*> children;
    QVector<QString> texts;
    QPropertyAnimation* motion = nullptr;
    QByteArray plainBlock;
    QJsonObject* userDataRecord = nullptr;
    QRectF* iconSourceRect = nullptr;
    UltimateTree::RowDeleter detachedDeleter;
    double motionTargetX = -1;
    double motionTargetY = -1;
    double homeY = 0;
    int depthValue = 0;
    int height = -1;
    int itemId = 0;
    int iconWidth = -1;
    int iconHeight = -1;
    quint32 halfOpacityColumns = 0;
    quint32 italicColumns = 0;
    quint32 boldColumns = 0;
    int textColor = -1;
    bool selected = false;
    bool dragged = false;
    bool hasIcon = false;
    bool canHaveChildren = false;
    // In a tree's top-level list: the tree asks this rather than search the list.
    bool topLevel = false;
};

Q_DECLARE_METATYPE(UltimateTreeItem*)
