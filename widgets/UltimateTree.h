#pragma once

#include <QGraphicsView>
#include <QList>
#include <QPointer>
#include <QVector>

#include <functional>

class QPropertyAnimation;
class UltimateTreeItem;
class UltimateTreeItemBase;
class UltimateTreeItemButton;
class UltimateTreeItemFiller;
class UltimateTreeScene;
class UltimateTreeWidget;

// The program's list: a graphics view whose rows are items of a private scene,
// chained in display order. Rows glide, fade, and are picked up with the right
// button and dropped elsewhere at any depth.
class UltimateTree : public QGraphicsView
{
    Q_OBJECT
    Q_PROPERTY(float click READ clickValue WRITE setClickValue)

public:
    using RowDeleter = std::function<void(UltimateTreeItem*)>;

    explicit UltimateTree(QWidget* parent = nullptr);
    ~UltimateTree() override;

    // Must run once before rows are added.
    void startView();
    bool isStarted() const { return scene != nullptr; }

    // Top-level rows.
    void addRow(UltimateTreeItem* row);
    void prependRow(UltimateTreeItem* row);
    void insertRow(UltimateTreeItem* row, int index);
    void insertRowAfter(UltimateTreeItem* row, UltimateTreeItem* after);
    // Many top-level rows at once, in their order, with one layout and one
    // resize of the scene at the end; the same as adding them one by one.
    void addRows(const QList<UltimateTreeItem*>& newRows);
    void insertRows(int index, const QList<UltimateTreeItem*>& newRows);
    // Takes a top-level row out; the caller owns it then.
    void takeRow(UltimateTreeItem* row, bool keepLayout = false);
    // Takes count top-level rows from index on, with one layout at the end;
    // the caller owns them then.
    QList<UltimateTreeItem*> takeRows(int index, int count);
    // Removes any row, top-level or child, and deletes it later.
    void deleteRow(UltimateTreeItem* row);
    // Removes any row, top-level or child; the caller owns it then.
    void removeRow(UltimateTreeItem* row);
    void clear();
    int rowCount() const { return rows.size(); }
    UltimateTreeItem* row(int index) const;
    int indexOfRow(const UltimateTreeItem* row) const;
    UltimateTreeItem* firstVisibleRow() const { return firstRow; }

    // The current data row; null when nothing or the filler is current.
    UltimateTreeItem* currentRow() const;
    UltimateTreeItemBase* currentItem() const { return current; }
    void setCurrentRow(UltimateTreeItemBase* row);
    UltimateTreeItemBase* hoveredItem() const { return hoveredRow; }
    UltimateTreeItemFiller* fillerItem() const { return filler; }

    void setColumnCount(int count);
    int getColumnCount() const { return columnCount; }
    void setColumnTitle(int column, const QString& title);
    QString columnTitle(int column) const;
    void setColumnWidth(int column, int width, bool fit = false);
    int columnWidth(int column) const;
    void setColumnOpacity(int column, int opacity);
    int columnOpacity(int column) const;
    void setColumnAlignment(int column, int alignment);
    int columnAlignment(int column) const;
    void setRowHeight(int height);
    int getRowHeight() const { return rowHeight; }
    void setTextOffset(int offset);
    int textOffsetFor(const UltimateTreeItem* row) const;
    int plainTextOffset() const;
    void setFiller(bool on, const QString& caption);
    void setRowDeleter(const RowDeleter& deleter) { rowDeleter = deleter; }
    const RowDeleter& getRowDeleter() const { return rowDeleter; }
    void setOwner(UltimateTreeWidget* widget) { owner = widget; }

    void setRelocationEnabled(bool on) { relocationEnabled = on; }
    bool isRelocationEnabled() const { return relocationEnabled; }
    void setKeepSelectionLook(bool on) { keepSelectionLook = on; }
    // Set by owners just before a menu shows, so the row keeps its look.
    void setPopupOpen(bool on) { popupOpen = on; }

    int getViewWidth() const { return viewWidth; }
    int getContentHeight() const { return contentHeight; }
    bool isDragging() const { return dragging; }
    UltimateTreeItem* pickedItem() const { return pickedRow; }
    UltimateTreeItem* dropTarget() const { return dropAfter; }

    // Recounts the content height from the chain and resizes the scene.
    void recountContent();
    // Fits the columns into the view, taking from the last one first; false
    // when they can't be made to fit.
    bool fitColumns(int column);

    float clickValue() const { return click; }
    // 0 with no button down, 1 for the left button, 2 for the right one.
    int pressedMouseButton() const { return pressedButton; }
    void setClickValue(float value);

    // Lays the chain out below a row. Does nothing during a drag.
    void layoutFrom(UltimateTreeItem* row);
    void updateScene();
    // The item under a viewport point, seeing through the floating row.
    QGraphicsItem* rowAt(const QPoint& point) const;
    void paintChildLines(QPainter* painter, const QRectF& exposed);

signals:
    void currentItemChanged(UltimateTreeItem* current, UltimateTreeItem* previous);
    void itemDoubleClicked(UltimateTreeItem* item, int column);
    void itemExpanded(UltimateTreeItem* item);
    void itemCollapsed(UltimateTreeItem* item);
    void itemRelocated(UltimateTreeItem* item);
    void contextMenuRequested(const QPoint& globalPosition);
    void emptySpaceDoubleClicked();
    void onDeleteKeyPress();
    void onCopyKeyPress();
    void onCutKeyPress();
    void onPasteKeyPress();

public slots:
    void whenItemSelected(UltimateTreeItemBase* item);
    void whenItemDoubleClicked(UltimateTreeItem* item);
    void whenEmptySpaceDoubleClicked();
    void whenFocusOut();
    void whenSceneResized();
    void pickupItem();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    friend class UltimateTreeItem;

    // The chain around a row about to be linked or unlinked.
    void linkTopLevel(UltimateTreeItem* row, int index);
    // Gives a row joining the top level this tree, depth 0 and its height.
    void adoptTopLevel(UltimateTreeItem* row);
    // Places a row and its visible descendants from y down; returns the y
    // below them.
    double placeFrom(UltimateTreeItem* row, double y);
    // Lays the chain out again after the top level changed below a row
    // (null: from the head).
    void relayoutAfter(UltimateTreeItem* before);
    void addToContent(int height);
    void computeViewWidth();
    UltimateTreeItemBase* selectAt(const QPoint& point, bool track, bool hover);
    void setHoveredRow(UltimateTreeItemBase* row, bool immediate);
    void updateHoverAt(const QPoint& point);
    void pickup();
    void drop();
    void moveFloatingRow(const QPoint& point, int screenY);
    // Scrolls while the pointer holds at an edge; screenY tells which way it moves.
    void autoScroll(const QPoint& point, int screenY);
    void runClick(bool up, bool slow);
    void makeWay(UltimateTreeItem* row, double pointerY);
    UltimateTreeItemBase* topItemAt(const QPoint& point) const;
    // Bookkeeping when rows leave: no pointer may outlive what it points at.
    void rowVanished(UltimateTreeItem* row);
    void rowDestroyed(UltimateTreeItem* row);
    void buttonVanished(QGraphicsItem* button);
    void rowTaken(UltimateTreeItem* row);
    void deleteLaterOwned(UltimateTreeItem* row);

    QVector<QString> columnTitles;
    QList<UltimateTreeItem*> rows;
    UltimateTreeScene* scene = nullptr;
    UltimateTreeItem* firstRow = nullptr;
    UltimateTreeItemBase* hoveredRow = nullptr;
    UltimateTreeItemBase* current = nullptr;
    UltimateTreeItemFiller* filler = nullptr;
    UltimateTreeItem* pickedRow = nullptr;
    UltimateTreeItem* dropAfter = nullptr;
    QGraphicsItem* pressedItem = nullptr;
    UltimateTreeItemButton* hoveredButton = nullptr;
    QString fillerCaption;
    UltimateTreeWidget* owner = nullptr;
    int viewWidth = 100;
    int rowHeight = 20;
    int contentHeight = 0;
    int columnCount = 1;
    double scrollAnchor = -1;
    int textOffsetPlain = -1;
    int textOffsetWithChildren = -1;
    QVector<int> columnWidths;
    QVector<int> columnOpacities;
    QVector<int> columnAlignments;
    int pressedButton = 0;
    float click = 0;
    QPropertyAnimation* clickAnimation = nullptr;
    QPoint pressPosition;
    QPointF pressScenePosition;
    QPointF pressOffset;
    QRectF pressRowRect;
    double pickupY = 0;
    int lastScreenY = 0;
    RowDeleter rowDeleter;
    // Rows removed and waiting for the event loop to delete them; the tree
    // deletes any still waiting when it goes, while their deleter still exists.
    QList<QPointer<UltimateTreeItem>> pendingDeletes;
    bool hasFiller = false;
    bool ignoreMoves = false;
    bool keepSelectionLook = false;
    bool scrollingUp = false;
    bool scrollingDown = false;
    bool dragging = false;
    bool relocationEnabled = false;
    bool mouseInside = false;
    bool popupOpen = false;
    bool pickupArmed = false;
};
