#pragma once

#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QWidget>

class QPropertyAnimation;

// The drop-down list of a combo box: a popup window below its owner that
// unfolds, scrolls when it holds more rows than its height limit, and
// folds up again before it closes. One is open at a time in the program.
class MyPopup : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int highlightState READ highlightState WRITE setHighlightState)
public:
    static const int RowHeight = 24;

    // heightLimit 0 means no limit. Rows in italicRows show in italics.
    MyPopup(QWidget* owner, const QStringList& rows, int selected, int heightLimit,
            const QSet<int>& italicRows = QSet<int>());

    // The one open popup and the widget it belongs to.
    static MyPopup* openPopup();
    static QWidget* openOwner();
    static void setOpenPopup(MyPopup* popup, QWidget* owner);
    // The application's drop-down rule: a press anywhere but on the open
    // popup and its owner closes the popup. Event filters call this.
    static void closeOnOutsidePress(QEvent* event);

    // Shows at a global position, unfolding.
    void popUp(const QPoint& globalTopLeft, int width);
    int highlighted() const { return highlight; }
    int scrollOffset() const { return offset; }
    int visibleHeight() const { return viewHeight; }
    int fullHeight() const { return rowTexts.size() * RowHeight; }
    bool isClosing() const { return closing; }

    int highlightState() const { return highlightLook; }
    void setHighlightState(int value);

signals:
    // The chosen row, or -1 when the popup closed without a choice.
    void itemSelected(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void accept(int row);
    void setHighlight(int row);
    void scrollTo(int newOffset);
    void scrollRowIntoView(int row);
    int rowAt(const QPoint& pos) const;
    bool hasScrollBar() const;
    QRect thumbRect() const;

    QPointer<QWidget> owner;
    QStringList rowTexts;
    QSet<int> italic;
    int highlight;
    int highlightLook = 0;
    int offset = 0;
    int viewHeight;
    bool closing = false;
    bool reported = false;
    int dragStart = -1;
    int dragOffset = 0;
    QRect fullGeometry;
    QPropertyAnimation* highlightAnimation;
};
