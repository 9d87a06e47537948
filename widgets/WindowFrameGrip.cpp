#include "widgets/WindowFrameGrip.h"

#include <QEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace {

const int MoveThreshold = 3;

}

WindowFrameGrip::WindowFrameGrip(QWidget* window, HitTest hitTest, bool maximizeOnDoubleClick)
    : QObject(window), window(window), hitTest(std::move(hitTest)), maximizeOnDoubleClick(maximizeOnDoubleClick)
{
    window->installEventFilter(this);
    attach();
}

Qt::Edges WindowFrameGrip::edgesOf(FrameRegion region)
{
    switch (region) {
    case FrameRegion::Left: return Qt::LeftEdge;
    case FrameRegion::Right: return Qt::RightEdge;
    case FrameRegion::Top: return Qt::TopEdge;
    case FrameRegion::Bottom: return Qt::BottomEdge;
    case FrameRegion::TopLeft: return Qt::TopEdge | Qt::LeftEdge;
    case FrameRegion::TopRight: return Qt::TopEdge | Qt::RightEdge;
    case FrameRegion::BottomLeft: return Qt::BottomEdge | Qt::LeftEdge;
    case FrameRegion::BottomRight: return Qt::BottomEdge | Qt::RightEdge;
    default: return Qt::Edges();
    }
}

Qt::CursorShape WindowFrameGrip::cursorOf(FrameRegion region)
{
    switch (region) {
    case FrameRegion::Left:
    case FrameRegion::Right: return Qt::SizeHorCursor;
    case FrameRegion::Top:
    case FrameRegion::Bottom: return Qt::SizeVerCursor;
    case FrameRegion::TopLeft:
    case FrameRegion::BottomRight: return Qt::SizeFDiagCursor;
    case FrameRegion::TopRight:
    case FrameRegion::BottomLeft: return Qt::SizeBDiagCursor;
    default: return Qt::ArrowCursor;
    }
}

void WindowFrameGrip::toggleMaximized(QWidget* window)
{
    if (window->isFullScreen())
        return;
    if (window->isMaximized())
        window->showNormal();
    else
        window->showMaximized();
}

void WindowFrameGrip::attach()
{
    QWindow* current = window->windowHandle();
    if (current == handle)
        return;
    if (handle)
        handle->removeEventFilter(this);
    handle = current;
    if (handle)
        handle->installEventFilter(this);
}

bool WindowFrameGrip::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == window) {
        // The QWindow comes into being with the first show and is made anew
        // when the window flags change.
        if (event->type() == QEvent::Show || event->type() == QEvent::WinIdChange)
            attach();
        return false;
    }
    if (watched != handle)
        return false;

    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return mousePressed(static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
        return mouseMoved(static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && drag != Drag::None) {
            drag = Drag::None;
            return true;
        }
        return false;
    case QEvent::MouseButtonDblClick: {
        QMouseEvent* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::LeftButton || hitTest(mouse->screenPos()) != FrameRegion::Caption)
            return false;
        drag = Drag::None;
        if (maximizeOnDoubleClick)
            toggleMaximized(window);
        return true;
    }
    case QEvent::Leave:
        if (cursorShown) {
            handle->setCursor(window->cursor());
            cursorShown = false;
        }
        return false;
    default:
        return false;
    }
}

bool WindowFrameGrip::mousePressed(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    const FrameRegion region = hitTest(event->screenPos());
    if (isEdge(region)) {
        const Qt::Edges edges = edgesOf(region);
        if (!handle->startSystemResize(edges)) {
            drag = Drag::ManualResize;
            dragEdges = edges;
            pressGlobal = event->globalPos();
            startGeometry = window->geometry();
        }
        return true;
    }
    if (region == FrameRegion::Caption) {
        // The move starts once the pointer travels, so that a double click
        // reaches the caption instead of the window system's move.
        drag = Drag::PendingMove;
        pressGlobal = event->globalPos();
        startGeometry = window->geometry();
        return true;
    }
    return false;
}

bool WindowFrameGrip::mouseMoved(QMouseEvent* event)
{
    if (drag == Drag::None) {
        if (event->buttons() == Qt::NoButton)
            updateCursor(hitTest(event->screenPos()), event->localPos());
        return false;
    }
    if (!(event->buttons() & Qt::LeftButton)) {
        drag = Drag::None;
        return false;
    }
    if (drag == Drag::PendingMove) {
        // The window system moves the window from where the pointer is when
        // it takes over, so it does so at the first real step; a tremble
        // between the clicks of a double click stays below it.
        if ((event->globalPos() - pressGlobal).manhattanLength() < MoveThreshold)
            return true;
        if (handle->startSystemMove()) {
            drag = Drag::None;
            return true;
        }
        // A maximised window stays where it is without the window system.
        if (window->isMaximized() || window->isFullScreen()) {
            drag = Drag::None;
            return true;
        }
        drag = Drag::ManualMove;
    }
    dragTo(event->globalPos());
    return true;
}

void WindowFrameGrip::dragTo(const QPoint& globalPos)
{
    const QPoint delta = globalPos - pressGlobal;
    if (drag == Drag::ManualMove) {
        window->move(startGeometry.topLeft() + delta);
        return;
    }
    const QSize minimum = window->minimumSize().expandedTo(window->minimumSizeHint()).expandedTo(QSize(1, 1));
    const QSize maximum = window->maximumSize();
    QRect geometry = startGeometry;
    if (dragEdges & Qt::LeftEdge) {
        const int width = qBound(minimum.width(), startGeometry.width() - delta.x(), maximum.width());
        geometry.setLeft(startGeometry.right() - width + 1);
    } else if (dragEdges & Qt::RightEdge) {
        geometry.setWidth(qBound(minimum.width(), startGeometry.width() + delta.x(), maximum.width()));
    }
    if (dragEdges & Qt::TopEdge) {
        const int height = qBound(minimum.height(), startGeometry.height() - delta.y(), maximum.height());
        geometry.setTop(startGeometry.bottom() - height + 1);
    } else if (dragEdges & Qt::BottomEdge) {
        geometry.setHeight(qBound(minimum.height(), startGeometry.height() + delta.y(), maximum.height()));
    }
    window->setGeometry(geometry);
}

void WindowFrameGrip::updateCursor(FrameRegion region, const QPointF& localPos)
{
    lastRegion = region;
    if (isEdge(region)) {
        handle->setCursor(cursorOf(region));
        cursorShown = true;
        // Entering a widget on the way sets that widget's cursor after this
        // filter ran; the edge's cursor comes back once the move is handled.
        QMetaObject::invokeMethod(this, [this]() {
            if (handle && isEdge(lastRegion))
                handle->setCursor(cursorOf(lastRegion));
        }, Qt::QueuedConnection);
    } else if (cursorShown) {
        // Hand the pointer back to the widget below it.
        const QWidget* under = window->childAt(localPos.toPoint());
        handle->setCursor((under ? under : window)->cursor());
        cursorShown = false;
    }
}
