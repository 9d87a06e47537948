#include "widgets/TitleBarButtons.h"

#include "theme/Contrast.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPainter>
#include <QPropertyAnimation>
#include <QTimer>

TitleBarButtons::TitleBarButtons(int kind, bool compact, QWidget* parent)
    : QPushButton(parent), buttonKind(kind), animation(new QPropertyAnimation(this, "animator", this))
{
    setFixedSize(compact ? QSize(28, 18) : QSize(45, 29));
    setFocusPolicy(Qt::NoFocus);
    setFlat(true);
    animation->setEasingCurve(QEasingCurve::Linear);
}

void TitleBarButtons::setAnimator(int value)
{
    hover = value;
    update();
}

void TitleBarButtons::setMaximized(bool value)
{
    maximized = value;
    update();
}

void TitleBarButtons::hoverTo(bool inside)
{
    if (inside == hovered)
        return;
    hovered = inside;
    animation->stop();
    animation->setStartValue(hover);
    if (inside) {
        animation->setEndValue(10);
        // Only what is left of the way takes time.
        animation->setDuration(100 * (10 - hover) / 10);
    } else {
        animation->setEndValue(0);
        animation->setDuration(150);
    }
    animation->start();
}

bool TitleBarButtons::event(QEvent* event)
{
    if (event->type() == QEvent::Enter)
        hoverTo(true);
    else if (event->type() == QEvent::Leave)
        hoverTo(false);
    return QPushButton::event(event);
}

void TitleBarButtons::mouseMoveEvent(QMouseEvent* event)
{
    // While a press holds the pointer no enter or leave arrives.
    if (event->buttons() != Qt::NoButton)
        hoverTo(rect().contains(event->pos()));
    QPushButton::mouseMoveEvent(event);
}

void TitleBarButtons::mouseReleaseEvent(QMouseEvent* event)
{
    QPushButton::mouseReleaseEvent(event);
    if (buttonKind == Maximize && event->button() == Qt::LeftButton) {
        // The window changed under the pointer; a small nudge lets the hover
        // states catch up.
        const QPoint at = QCursor::pos();
        QCursor::setPos(at - QPoint(0, 1));
        QTimer::singleShot(100, this, [at]() { QCursor::setPos(at); });
    }
}

QColor TitleBarButtons::hoverFill(const QColor& symbol) const
{
    if (buttonKind >= Maximize) {
        // A grey as far from the symbol as 0x50 is from white: dark under a
        // light symbol, light under a dark one.
        const bool lightSymbol = Contrast::ratio(symbol, Qt::black) > Contrast::ratio(symbol, Qt::white);
        const int grey = lightSymbol ? 0x50 : 0xFF - 0x50;
        return QColor(grey, grey, grey);
    }
    QColor red(0xE8, 0x11, 0x23);
    if (isDown())
        return red;
    // The half-strength red until pressed, unless the white cross would
    // fade into it on a light title bar; the bars run between the window's
    // top and bottom colours.
    const double half = 0x7D / 255.0;
    for (const int key : {ThemeKey::WindowTop, ThemeKey::WindowBottom}) {
        const QColor bar = themeColor(key);
        if (bar.isValid() && Contrast::ratio(Qt::white, Contrast::over(red, bar, half)) < Contrast::Symbol)
            return red;
    }
    red.setAlpha(0x7D);
    return red;
}

void TitleBarButtons::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // The symbols take the window's text colour, so they read on a light
    // theme as on a dark one; over the red of a hovered close button they
    // turn white.
    const QColor text = palette().color(QPalette::WindowText);
    if (hover > 0) {
        painter.setOpacity(hover / 10.0);
        painter.fillRect(rect(), hoverFill(text));
    }
    painter.setOpacity(window()->isActiveWindow() ? 1.0 : 0.5);
    const QColor symbol = buttonKind < Maximize && hover > 5 ? QColor(Qt::white) : text;
    painter.setPen(QPen(symbol, 2));
    painter.setBrush(Qt::NoBrush);

    // The symbols stay 10 pixels wide, 8 in the compact form.
    const int size = height() < 29 ? 8 : 10;
    const QRectF box(QPointF((width() - size) / 2.0, (height() - size) / 2.0), QSizeF(size, size));
    switch (buttonKind < Maximize ? Close : buttonKind) {
    case Close:
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.topRight(), box.bottomLeft());
        break;
    case Maximize:
        if (maximized) {
            const QRectF front = box.adjusted(0, 3, -3, 0);
            painter.drawRect(front);
            painter.drawPolyline(QPolygonF({QPointF(box.left() + 3, front.top()), QPointF(box.left() + 3, box.top()),
                                            box.topRight(), QPointF(box.right(), front.bottom() - 3),
                                            QPointF(front.right(), front.bottom() - 3)}));
        } else {
            painter.drawRect(box);
        }
        break;
    default:
        painter.drawLine(QPointF(box.left(), box.center().y() + 0.5), QPointF(box.right(), box.center().y() + 0.5));
        break;
    }
}
