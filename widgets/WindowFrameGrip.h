#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>

#include <functional>

class QMouseEvent;
class QWidget;
class QWindow;

// What a point of a frameless window stands for: a resizing edge or corner,
// the caption that moves the window, a control of the title bar, or ordinary
// client area that the window handles itself.
enum class FrameRegion {
    Client,
    Control,
    Caption,
    Left,
    Right,
    Top,
    Bottom,
    TopLeft,
    TopRight,
    BottomLeft,
    BottomRight,
};

// Gives a window without system decorations the behaviour of a frame: it asks
// a hit test what lies under the pointer, shows the matching cursor, and lets
// the window system move or resize the window from a press there. Where the
// window system can't (no window manager, the offscreen platform), the window
// is moved and resized by hand.
//
// It watches the window's QWindow, which sees every mouse event before any
// widget does, so the edges work over child widgets too.
class WindowFrameGrip : public QObject
{
    Q_OBJECT
public:
    using HitTest = std::function<FrameRegion(const QPointF& globalPos)>;

    WindowFrameGrip(QWidget* window, HitTest hitTest, bool maximizeOnDoubleClick);

    static Qt::Edges edgesOf(FrameRegion region);
    // The cursor of a resizing region; ArrowCursor for all others.
    static Qt::CursorShape cursorOf(FrameRegion region);
    static bool isEdge(FrameRegion region) { return edgesOf(region) != Qt::Edges(); }

    // Maximised and normal swap; full screen stays as it is.
    static void toggleMaximized(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Drag { None, PendingMove, ManualMove, ManualResize };

    void attach();
    bool mousePressed(QMouseEvent* event);
    bool mouseMoved(QMouseEvent* event);
    void updateCursor(FrameRegion region, const QPointF& localPos);
    void dragTo(const QPoint& globalPos);

    QWidget* window;
    QPointer<QWindow> handle;
    HitTest hitTest;
    bool maximizeOnDoubleClick;
    bool cursorShown = false;
    FrameRegion lastRegion = FrameRegion::Client;

    Drag drag = Drag::None;
    Qt::Edges dragEdges;
    QPoint pressGlobal;
    QRect startGeometry;
};
