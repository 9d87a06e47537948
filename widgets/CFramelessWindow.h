#pragma once

#include "widgets/WindowFrameGrip.h"

#include <QList>
#include <QMainWindow>
#include <QMargins>
#include <QPointer>

class QMenu;

// The base of the main window. In the styles Frameless and Hybrid the system's
// decorations give way to the program's own title bar, while moving, resizing
// from every edge and corner, maximising by double click and the window
// manager's snapping stay the system's. Native keeps the system's frame.
//
// Linux has no system frame without a caption, so in Hybrid the window draws
// a thin frame line of its own while it isn't maximised.
class CFramelessWindow : public QMainWindow
{
    Q_OBJECT
public:
    enum Style { Frameless = 0, Hybrid = 1, Native = 2 };

    // Grip width of the edges, in physical pixels.
    static const int BorderWidth = 8;

    explicit CFramelessWindow(int style, QWidget* parent = nullptr);
    ~CFramelessWindow() override;

    int frameStyle() const { return style; }

    // The bar whose empty places and caption widgets move the window.
    void setTitleBar(QWidget* titleBar);
    QWidget* titleBarWidget() const { return bar; }
    // A widget inside the title bar that moves the window rather than take
    // the click, such as a label.
    void addCaptionWidget(QWidget* widget);
    QList<QWidget*> captionWidgets() const { return captions; }

    // The user's margins; those added while maximised stay hidden.
    void setContentsMargins(const QMargins& margins);
    void setContentsMargins(int left, int top, int right, int bottom);
    QMargins getContentsMargins() const { return userMargins; }
    QRect contentsRect() const;
    // Margins added while maximised, for a window that reaches past the screen.
    QMargins maximizedMargins() const { return addedMargins; }

    void showFullScreen();
    // The window menu under the title bar's icon.
    void showSystemMenu();
    QMenu* systemMenu() const { return windowMenu; }
    // Appends a separator and an entry of the program's own to the window
    // menu, only while the menu holds exactly its seven standard entries;
    // choosing it sends systemActionCalled(id).
    bool addSystemMenuEntry(int id, const QString& text, const QIcon& icon);

signals:
    void systemActionCalled(int id);

public:

    // What lies under a point of the window: frame coordinates and the point
    // in logical global pixels, ratio the screen's device pixel ratio. The
    // edges are measured in physical pixels like the window system does, the
    // title bar in logical ones. Without resizing (maximised) there are no
    // edges.
    static FrameRegion hitTest(const QRect& frame, const QPointF& globalPos, qreal ratio, bool resizable,
                               const QWidget* titleBar, const QList<QWidget*>& captionWidgets);
    FrameRegion hitTest(const QPointF& globalPos) const;

    // How far a frame reaches past the available area on each side.
    static QMargins marginsOutside(const QRect& frame, const QRect& available);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private slots:
    void onTitleBarDestroyed();

private:
    void updateMaximizedMargins();
    // The user's margins, the maximised ones and the Hybrid frame line.
    void applyMargins();
    bool drawsFrameLine() const;

    int style;
    QPointer<QWidget> bar;
    QList<QWidget*> captions;
    QMargins userMargins;
    QMargins addedMargins;
    bool maximizedState = false;
    QMenu* windowMenu;
    QAction* restoreEntry;
    QAction* moveEntry;
    QAction* sizeEntry;
    QAction* maximizeEntry;
};
