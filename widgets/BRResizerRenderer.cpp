#include "widgets/BRResizerRenderer.h"

#include "widgets/CFramelessWindow.h"

#include <QEvent>
#include <QPainter>

BRResizerRenderer::BRResizerRenderer(QWidget* parent) : QWidget(parent)
{
    setFixedSize(21, 21);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    if (parent)
        parent->window()->installEventFilter(this);
    follow();
}

void BRResizerRenderer::follow()
{
    const CFramelessWindow* frame = qobject_cast<const CFramelessWindow*>(window());
    const bool ownFrame = frame && frame->frameStyle() != CFramelessWindow::Native;
    setVisible(ownFrame && !window()->isMaximized() && !window()->isFullScreen());
}

bool BRResizerRenderer::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == window() && (event->type() == QEvent::WindowStateChange || event->type() == QEvent::Show))
        follow();
    return QWidget::eventFilter(watched, event);
}

void BRResizerRenderer::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    // Six dots in a triangle towards the corner.
    const int step = 5;
    const QPointF corner(width() - 4, height() - 4);
    for (int across = 0; across < 3; ++across) {
        for (int up = 0; across + up < 3; ++up) {
            const QPointF dot = corner - QPointF(across * step, up * step);
            painter.setBrush(QColor(0, 0, 0, 90));
            painter.drawEllipse(dot + QPointF(1, 1), 1.4, 1.4);
            painter.setBrush(QColor(0x9A, 0x9A, 0x9A));
            painter.drawEllipse(dot, 1.4, 1.4);
        }
    }
}
