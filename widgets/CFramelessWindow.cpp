#include "widgets/CFramelessWindow.h"

#include <QMenu>
#include <QWindow>
#include <QMoveEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScreen>
#include <QtMath>

CFramelessWindow::CFramelessWindow(int style, QWidget* parent) : QMainWindow(parent), style(style)
{
    // The entries of the system's window menu, in its order.
    windowMenu = new QMenu(this);
    windowMenu->setObjectName(QStringLiteral("systemMenu"));
    restoreEntry = windowMenu->addAction(tr("Restore"), this, &QWidget::showNormal);
    moveEntry = windowMenu->addAction(tr("Move"), this, [this]() {
        if (windowHandle())
            windowHandle()->startSystemMove();
    });
    sizeEntry = windowMenu->addAction(tr("Size"), this, [this]() {
        if (windowHandle())
            windowHandle()->startSystemResize(Qt::BottomEdge | Qt::RightEdge);
    });
    windowMenu->addAction(tr("Minimize"), this, &QWidget::showMinimized);
    maximizeEntry = windowMenu->addAction(tr("Maximize"), this, &QWidget::showMaximized);
    windowMenu->addSeparator();
    QAction* close = windowMenu->addAction(tr("Close"), this, &QWidget::close);
    close->setShortcut(QKeySequence(QStringLiteral("Alt+F4")));
    close->setShortcutContext(Qt::WidgetShortcut);
    if (style == Native)
        return;
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::WindowSystemMenuHint
                   | Qt::WindowMinMaxButtonsHint);
    new WindowFrameGrip(this, [this](const QPointF& globalPos) { return hitTest(globalPos); }, true);
    applyMargins();
}

CFramelessWindow::~CFramelessWindow()
{
    // The children outlive this part of the window; their ends must not
    // reach the lists any more.
    for (QWidget* widget : qAsConst(captions))
        disconnect(widget, nullptr, this, nullptr);
    if (bar)
        disconnect(bar, nullptr, this, nullptr);
}

void CFramelessWindow::setTitleBar(QWidget* titleBar)
{
    if (bar)
        disconnect(bar, &QObject::destroyed, this, &CFramelessWindow::onTitleBarDestroyed);
    bar = titleBar;
    if (bar)
        connect(bar, &QObject::destroyed, this, &CFramelessWindow::onTitleBarDestroyed);
}

void CFramelessWindow::onTitleBarDestroyed()
{
    bar = nullptr;
}

void CFramelessWindow::addCaptionWidget(QWidget* widget)
{
    if (!widget || captions.contains(widget))
        return;
    captions.append(widget);
    connect(widget, &QObject::destroyed, this, [this, widget]() { captions.removeAll(widget); });
}

void CFramelessWindow::setContentsMargins(const QMargins& margins)
{
    userMargins = margins;
    applyMargins();
}

void CFramelessWindow::setContentsMargins(int left, int top, int right, int bottom)
{
    setContentsMargins(QMargins(left, top, right, bottom));
}

QRect CFramelessWindow::contentsRect() const
{
    return rect().marginsRemoved(userMargins);
}

void CFramelessWindow::showFullScreen()
{
    if (style != Native && maximizedState) {
        addedMargins = QMargins();
        maximizedState = false;
        applyMargins();
    }
    QMainWindow::showFullScreen();
}

FrameRegion CFramelessWindow::hitTest(const QRect& frame, const QPointF& globalPos, qreal ratio, bool resizable,
                                      const QWidget* titleBar, const QList<QWidget*>& captionWidgets)
{
    if (resizable) {
        const int left = qRound(frame.x() * ratio);
        const int top = qRound(frame.y() * ratio);
        const int right = qRound((frame.x() + frame.width()) * ratio);
        const int bottom = qRound((frame.y() + frame.height()) * ratio);
        const int x = qFloor(globalPos.x() * ratio);
        const int y = qFloor(globalPos.y() * ratio);
        if (x >= left && x < right && y >= top && y < bottom) {
            const bool inLeft = x < left + BorderWidth;
            const bool inRight = x >= right - BorderWidth;
            const bool inTop = y < top + BorderWidth;
            const bool inBottom = y >= bottom - BorderWidth;
            // The lower right corner grips from further in, like a size grip.
            if (x >= right - 2 * BorderWidth && y >= bottom - 2 * BorderWidth)
                return FrameRegion::BottomRight;
            if (inLeft && inBottom)
                return FrameRegion::BottomLeft;
            if (inLeft && inTop)
                return FrameRegion::TopLeft;
            if (inRight && inTop)
                return FrameRegion::TopRight;
            if (inLeft)
                return FrameRegion::Left;
            // Beside the close button only the outermost pixel resizes.
            if (inRight && (x == right - 1 || y > top + 29))
                return FrameRegion::Right;
            if (inBottom)
                return FrameRegion::Bottom;
            // Over the window buttons only the topmost line resizes.
            if (inTop && (y == top || x < right - 134))
                return FrameRegion::Top;
        }
    }
    if (!titleBar || !titleBar->isVisible())
        return FrameRegion::Client;
    const QPoint local = titleBar->mapFromGlobal(QPoint(qFloor(globalPos.x()), qFloor(globalPos.y())));
    if (!titleBar->rect().contains(local))
        return FrameRegion::Client;
    QWidget* child = titleBar->childAt(local);
    if (!child || captionWidgets.contains(child))
        return FrameRegion::Caption;
    return FrameRegion::Control;
}

FrameRegion CFramelessWindow::hitTest(const QPointF& globalPos) const
{
    const bool resizable = !isMaximized() && !isFullScreen() && minimumSize() != maximumSize();
    return hitTest(frameGeometry(), globalPos, devicePixelRatioF(), resizable, bar, captions);
}

QMargins CFramelessWindow::marginsOutside(const QRect& frame, const QRect& available)
{
    return QMargins(qMax(0, available.left() - frame.left()), qMax(0, available.top() - frame.top()),
                    qMax(0, frame.right() - available.right()), qMax(0, frame.bottom() - available.bottom()));
}

void CFramelessWindow::updateMaximizedMargins()
{
    if (style == Native)
        return;
    if (isMaximized()) {
        // A window manager that maximises past the screen's edges would hide
        // the content there; margins keep it on the screen.
        const QScreen* current = screen();
        addedMargins = current ? marginsOutside(frameGeometry(), current->availableGeometry()) : QMargins();
        maximizedState = true;
    } else if (maximizedState) {
        addedMargins = QMargins();
        maximizedState = false;
        update();
    }
    applyMargins();
}

bool CFramelessWindow::drawsFrameLine() const
{
    return style == Hybrid && !isMaximized() && !isFullScreen();
}

void CFramelessWindow::applyMargins()
{
    const int line = drawsFrameLine() ? 1 : 0;
    QMainWindow::setContentsMargins(userMargins + addedMargins + QMargins(line, line, line, line));
}

void CFramelessWindow::paintEvent(QPaintEvent* event)
{
    QMainWindow::paintEvent(event);
    if (!drawsFrameLine())
        return;
    QPainter painter(this);
    painter.setPen(isActiveWindow() ? QColor(0x3C, 0x3C, 0x3C) : QColor(0x2E, 0x2E, 0x2E));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void CFramelessWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::WindowStateChange)
        updateMaximizedMargins();
    else if (event->type() == QEvent::ActivationChange)
        update();
    QMainWindow::changeEvent(event);
}

void CFramelessWindow::resizeEvent(QResizeEvent* event)
{
    if (isMaximized() || maximizedState)
        updateMaximizedMargins();
    QMainWindow::resizeEvent(event);
}

void CFramelessWindow::moveEvent(QMoveEvent* event)
{
    // The state changes before the window reaches its maximised place.
    if (isMaximized() || maximizedState)
        updateMaximizedMargins();
    QMainWindow::moveEvent(event);
}

void CFramelessWindow::showSystemMenu()
{
    const bool maximized = isMaximized();
    restoreEntry->setEnabled(maximized || isMinimized());
    moveEntry->setEnabled(!maximized);
    sizeEntry->setEnabled(!maximized && minimumSize() != maximumSize());
    maximizeEntry->setEnabled(!maximized);
    // Under the window's icon, or on the work area's corner when maximised.
    QPoint corner = frameGeometry().topLeft();
    if (maximized && screen())
        corner = screen()->availableGeometry().topLeft();
    windowMenu->exec(corner + QPoint(8, 30));
}

bool CFramelessWindow::addSystemMenuEntry(int id, const QString& text, const QIcon& icon)
{
    if (windowMenu->actions().size() != 7)
        return false;
    windowMenu->addSeparator();
    windowMenu->addAction(icon, text, this, [this, id]() { emit systemActionCalled(id); });
    return true;
}
