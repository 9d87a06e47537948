#include "widgets/MyPopup.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/FormFieldPainter.h"
#include "widgets/LookAnimation.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPropertyAnimation>
#include <QWheelEvent>

namespace {

QPointer<MyPopup> currentPopup;
QPointer<QWidget> currentOwner;

const int ScrollBarWidth = 8;

}

MyPopup::MyPopup(QWidget* ownerWidget, const QStringList& rows, int selected, int heightLimit,
                 const QSet<int>& italicRows)
    : QWidget(ownerWidget, Qt::Popup | Qt::FramelessWindowHint),
      owner(ownerWidget),
      rowTexts(rows),
      italic(italicRows),
      highlight(selected >= 0 && selected < rows.size() ? selected : -1),
      highlightAnimation(new QPropertyAnimation(this, "highlightState", this))
{
    setAttribute(Qt::WA_DeleteOnClose, false);
    setMouseTracking(true);
    QFont rowFont = font();
    rowFont.setPixelSize(15);
    setFont(rowFont);
    const int full = fullHeight();
    // A limit that the list doesn't reach is no limit.
    viewHeight = (heightLimit > 0 && full > heightLimit) ? heightLimit : full;
    if (hasScrollBar() && highlight >= 0)
        offset = qBound(0, highlight * RowHeight - viewHeight / 2, full - viewHeight);
    highlightLook = 50;
}

MyPopup* MyPopup::openPopup()
{
    return currentPopup;
}

QWidget* MyPopup::openOwner()
{
    return currentOwner;
}

void MyPopup::setOpenPopup(MyPopup* popup, QWidget* popupOwner)
{
    currentPopup = popup;
    currentOwner = popupOwner;
}

void MyPopup::closeOnOutsidePress(QEvent* event)
{
    if (!currentPopup || currentPopup->isClosing() || event->type() != QEvent::MouseButtonPress)
        return;
    const QPoint global = static_cast<QMouseEvent*>(event)->globalPos();
    QWidget* under = QApplication::widgetAt(global);
    const bool onPopup = currentPopup->geometry().contains(global)
        || (under && (under == currentPopup || currentPopup->isAncestorOf(under)));
    const bool onOwner = currentOwner && under && (under == currentOwner || currentOwner->isAncestorOf(under));
    if (!onPopup && !onOwner)
        currentPopup->close();
}

void MyPopup::popUp(const QPoint& globalTopLeft, int width)
{
    fullGeometry = QRect(globalTopLeft, QSize(width, viewHeight));
    setGeometry(QRect(globalTopLeft, QSize(width, 0)));
    show();
    setFocus(Qt::PopupFocusReason);
    QPropertyAnimation* unfold = new QPropertyAnimation(this, "geometry", this);
    unfold->setStartValue(QRect(globalTopLeft, QSize(width, 0)));
    unfold->setEndValue(fullGeometry);
    unfold->setDuration(200);
    unfold->setEasingCurve(QEasingCurve::OutCubic);
    unfold->start(QAbstractAnimation::DeleteWhenStopped);
}

void MyPopup::setHighlightState(int value)
{
    highlightLook = value;
    update();
}

void MyPopup::setHighlight(int row)
{
    if (row == highlight)
        return;
    highlight = row;
    LookAnimation::runFor(highlightAnimation, 0, 50, 100, QEasingCurve::Linear);
}

bool MyPopup::hasScrollBar() const
{
    return viewHeight < fullHeight();
}

QRect MyPopup::thumbRect() const
{
    const int full = fullHeight();
    if (full <= 0 || !hasScrollBar())
        return QRect();
    const int thumbHeight = qMax(16, viewHeight * viewHeight / full);
    const int travel = viewHeight - thumbHeight;
    const int top = full > viewHeight ? travel * offset / (full - viewHeight) : 0;
    return QRect(width() - ScrollBarWidth - 1, top, ScrollBarWidth, thumbHeight);
}

void MyPopup::scrollTo(int newOffset)
{
    offset = qBound(0, newOffset, qMax(0, fullHeight() - viewHeight));
    update();
}

void MyPopup::scrollRowIntoView(int row)
{
    if (row < 0)
        return;
    if (row * RowHeight < offset)
        scrollTo(row * RowHeight);
    else if ((row + 1) * RowHeight > offset + viewHeight)
        scrollTo((row + 1) * RowHeight - viewHeight);
}

int MyPopup::rowAt(const QPoint& pos) const
{
    if (pos.y() < 0 || pos.y() >= height() || pos.x() < 0 || pos.x() >= width())
        return -1;
    const int row = (pos.y() + offset) / RowHeight;
    return row < rowTexts.size() ? row : -1;
}

void MyPopup::accept(int row)
{
    if (!reported) {
        reported = true;
        emit itemSelected(row);
    }
    close();
}

void MyPopup::keyPressEvent(QKeyEvent* event)
{
    const bool control = event->modifiers() & Qt::ControlModifier;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!control) {
            accept(highlight);
            return;
        }
        // Ctrl+Return belongs to the dialog: it confirms it.
        if (owner) {
            QWidget* window = owner->window();
            close();
            QKeyEvent forwarded(QEvent::KeyPress, event->key(), event->modifiers());
            QApplication::sendEvent(window, &forwarded);
        }
        return;
    case Qt::Key_Down:
        if (highlight < rowTexts.size() - 1)
            setHighlight(highlight + 1);
        scrollRowIntoView(highlight);
        return;
    case Qt::Key_Up:
        if (highlight > 0)
            setHighlight(highlight - 1);
        scrollRowIntoView(highlight);
        return;
    case Qt::Key_Escape:
        close();
        return;
    default:
        event->setAccepted(true);
        QWidget::keyPressEvent(event);
        return;
    }
}

void MyPopup::mousePressEvent(QMouseEvent* event)
{
    if (!rect().contains(event->pos())) {
        close();
        return;
    }
    if (hasScrollBar() && event->pos().x() >= width() - ScrollBarWidth - 2) {
        const QRect thumb = thumbRect();
        if (thumb.contains(event->pos())) {
            dragStart = event->pos().y();
            dragOffset = offset;
        } else {
            // A press on the track pages towards it.
            scrollTo(offset + (event->pos().y() < thumb.top() ? -viewHeight : viewHeight));
        }
        return;
    }
}

void MyPopup::mouseMoveEvent(QMouseEvent* event)
{
    if (dragStart >= 0) {
        const int travel = viewHeight - thumbRect().height();
        if (travel > 0)
            scrollTo(dragOffset + (event->pos().y() - dragStart) * (fullHeight() - viewHeight) / travel);
        return;
    }
    const int row = rowAt(event->pos());
    if (row >= 0 && !(hasScrollBar() && event->pos().x() >= width() - ScrollBarWidth - 2))
        setHighlight(row);
}

void MyPopup::mouseReleaseEvent(QMouseEvent* event)
{
    if (dragStart >= 0) {
        dragStart = -1;
        return;
    }
    if (event->button() != Qt::LeftButton || (hasScrollBar() && event->pos().x() >= width() - ScrollBarWidth - 2))
        return;
    const int row = rowAt(event->pos());
    if (row >= 0)
        accept(row);
}

void MyPopup::wheelEvent(QWheelEvent* event)
{
    const int steps = event->angleDelta().y() / 120;
    if (steps == 0)
        return;
    if (hasScrollBar()) {
        scrollTo(offset - steps * RowHeight);
        setHighlight(rowAt(event->position().toPoint()));
    } else {
        setHighlight(qBound(0, highlight - steps, rowTexts.size() - 1));
    }
    event->accept();
}

void MyPopup::closeEvent(QCloseEvent* event)
{
    if (!closing) {
        // The first close folds the list up; the close at its end goes through.
        closing = true;
        event->ignore();
        if (!reported) {
            reported = true;
            emit itemSelected(-1);
        }
        QPropertyAnimation* fold = new QPropertyAnimation(this, "geometry", this);
        fold->setStartValue(geometry());
        fold->setEndValue(QRect(geometry().topLeft(), QSize(width(), 0)));
        fold->setDuration(200);
        fold->setEasingCurve(QEasingCurve::InCubic);
        connect(fold, &QPropertyAnimation::finished, this, [this]() {
            close();
            deleteLater();
        });
        fold->start(QAbstractAnimation::DeleteWhenStopped);
        return;
    }
    if (currentPopup == this)
        setOpenPopup(nullptr, nullptr);
    QWidget::closeEvent(event);
}

void MyPopup::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ThemeKey::DropDownUIListBackground));
    const QColor text = FormFieldPainter::textColor();
    const int barSpace = hasScrollBar() ? ScrollBarWidth + 2 : 0;
    const int first = offset / RowHeight;
    for (int row = first; row < rowTexts.size(); ++row) {
        const QRect area(0, row * RowHeight - offset, width(), RowHeight);
        if (area.top() >= height())
            break;
        if (row == highlight) {
            painter.save();
            painter.setOpacity(0.5 + highlightLook / 100.0);
            painter.fillRect(area.adjusted(1, 0, -1 - barSpace, 0), themeColor(ThemeKey::DropDownUIHover));
            painter.fillRect(QRect(area.left() + 1, area.top(), 3, area.height()), themeColor(ThemeKey::DropDownUIPrimary));
            painter.restore();
        }
        QFont rowFont = font();
        rowFont.setItalic(italic.contains(row));
        painter.setFont(rowFont);
        painter.setPen(text);
        const QRect textArea = area.adjusted(9, 0, -6 - barSpace, 0);
        painter.drawText(textArea, Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(rowTexts.at(row), Qt::ElideRight, textArea.width()));
    }
    if (hasScrollBar()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(themeColor(ThemeKey::DropDownUIListScrollbar));
        painter.drawRoundedRect(thumbRect(), 3, 3);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    painter.setPen(themeColor(ThemeKey::DropDownUIListBorder));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
