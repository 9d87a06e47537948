#include "widgets/UltimateTreeHeader.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/UltimateTree.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

UltimateTreeHeader::UltimateTreeHeader(UltimateTree* tree, QWidget* parent) : QWidget(parent), tree(tree)
{
    setFixedHeight(20);
    setMouseTracking(true);
}

UltimateTreeHeader::~UltimateTreeHeader()
{
    setGripCursor(false);
}

int UltimateTreeHeader::gripAt(int x) const
{
    int border = 0;
    for (int column = 0; column < tree->getColumnCount() - 1; ++column) {
        border += tree->columnWidth(column);
        if (x > border - 4 && x <= border + 4)
            return column;
    }
    return -1;
}

void UltimateTreeHeader::setGripCursor(bool on)
{
    if (on == cursorSet)
        return;
    cursorSet = on;
    if (on)
        QGuiApplication::setOverrideCursor(Qt::SizeHorCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void UltimateTreeHeader::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int column = gripAt(event->pos().x());
    if (column < 0)
        return;
    pressed = true;
    resizingColumn = column;
    pressX = event->pos().x();
    startWidth = tree->columnWidth(column);
    setGripCursor(true);
}

void UltimateTreeHeader::mouseMoveEvent(QMouseEvent* event)
{
    if (pressed && resizingColumn >= 0) {
        tree->setColumnWidth(resizingColumn, qMax(25, startWidth + event->pos().x() - pressX), true);
        repaint();
        return;
    }
    setGripCursor(gripAt(event->pos().x()) >= 0);
}

void UltimateTreeHeader::mouseReleaseEvent(QMouseEvent* event)
{
    pressed = false;
    resizingColumn = -1;
    setGripCursor(gripAt(event->pos().x()) >= 0);
}

void UltimateTreeHeader::leaveEvent(QEvent*)
{
    if (!pressed)
        setGripCursor(false);
}

void UltimateTreeHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int right = width() - 1;
    const int h = height();
    painter.fillRect(0, 0, width(), 1, themeColor(ThemeKey::ListHeaderBorder));
    painter.fillRect(1, 1, qMax(0, right - 1), 1, themeColor(ThemeKey::ListHeaderBorderBottom));
    painter.fillRect(0, 1, 1, h - 1, themeColor(ThemeKey::ListHeaderBorder));
    painter.fillRect(right, 1, 1, h - 1, themeColor(ThemeKey::ListHeaderBorder));
    QLinearGradient gradient(0, 2, 0, h);
    gradient.setColorAt(0, themeColor(ThemeKey::ListHeaderTop));
    gradient.setColorAt(1, themeColor(ThemeKey::ListHeaderBottom));
    painter.fillRect(QRect(1, 2, qMax(0, right - 1), h - 2), gradient);

    painter.setPen(palette().color(QPalette::WindowText));
    const QFontMetrics metrics(font());
    int x = 0;
    const int columns = tree->getColumnCount();
    for (int column = 0; column < columns; ++column) {
        const bool last = column == columns - 1;
        const int w = last ? width() - x : tree->columnWidth(column);
        const QString title = metrics.elidedText(tree->columnTitle(column), Qt::ElideRight, qMax(0, w - 8));
        painter.drawText(QRect(x + 8, 0, qMax(0, w - 8), h), Qt::AlignLeft | Qt::AlignVCenter, title);
        x += w;
        if (!last) {
            painter.fillRect(x, 1, 1, h - 1, themeColor(ThemeKey::ListHeaderBorderBottom));
            painter.fillRect(x + 1, 1, 1, h - 1, themeColor(ThemeKey::ListHeaderBorder));
        }
    }
}
