#include "widgets/MyTabSystemHeader.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/FormFieldPainter.h"
#include "widgets/MyTabSystemHelper.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

MyTabSystemHeader::MyTabSystemHeader(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);
}

MyTabSystemHelper* MyTabSystemHeader::addTab(const QString& label)
{
    MyTabSystemHelper* helper = new MyTabSystemHelper(label, this);
    tabs.append(helper);
    update();
    return helper;
}

void MyTabSystemHeader::setVertical(bool on)
{
    vertical = on;
    update();
}

QVector<int> MyTabSystemHeader::naturalWidths() const
{
    QVector<int> widths;
    // Measured in bold, as a selected tab draws its label.
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    for (MyTabSystemHelper* helper : tabs)
        widths.append(qMax(60, metrics.horizontalAdvance(helper->label()) + 28));
    return widths;
}

int MyTabSystemHeader::naturalWidth() const
{
    int total = 0;
    for (int w : naturalWidths())
        total += w;
    return total;
}

QVector<int> MyTabSystemHeader::tabWidths() const
{
    QVector<int> widths = naturalWidths();
    int total = 0;
    for (int w : widths)
        total += w;
    // Tabs that don't fit share the strip evenly and elide their labels.
    if (!widths.isEmpty() && total > width()) {
        const int share = width() / widths.size();
        for (int& w : widths)
            w = share;
    }
    return widths;
}

QRect MyTabSystemHeader::tabRect(int index) const
{
    if (index < 0 || index >= tabs.size())
        return QRect();
    if (vertical)
        return QRect(0, index * ColumnRowHeight, ColumnWidth, ColumnRowHeight);
    const QVector<int> widths = tabWidths();
    int left = 0;
    for (int i = 0; i < index; ++i)
        left += widths.at(i);
    return QRect(left, 0, widths.at(index), RowHeight);
}

int MyTabSystemHeader::tabAt(const QPoint& pos) const
{
    if (tabs.isEmpty() || pos.x() < 0 || pos.y() < 0)
        return -1;
    if (vertical) {
        if (pos.x() >= ColumnWidth)
            return -1;
        const int index = pos.y() / ColumnRowHeight;
        return index < tabs.size() ? index : -1;
    }
    if (pos.y() >= 31)
        return -1;
    // A first guess by the average width, then a walk to the side that the
    // tab's limits point to.
    int index = qBound(0, pos.x() * tabs.size() / qMax(1, width()), tabs.size() - 1);
    while (index > 0 && pos.x() < tabRect(index).left())
        --index;
    while (index < tabs.size() && pos.x() > tabRect(index).right())
        ++index;
    return index < tabs.size() ? index : -1;
}

void MyTabSystemHeader::setHovered(int index)
{
    if (index == hovered)
        return;
    if (MyTabSystemHelper* old = tab(hovered))
        old->setHovered(false);
    hovered = index;
    if (MyTabSystemHelper* now = tab(hovered))
        now->setHovered(true);
}

void MyTabSystemHeader::mouseMoveEvent(QMouseEvent* event)
{
    setHovered(isEnabled() ? tabAt(event->pos()) : -1);
}

void MyTabSystemHeader::leaveEvent(QEvent*)
{
    setHovered(-1);
}

void MyTabSystemHeader::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int index = tabAt(event->pos());
    if (index >= 0)
        emit tabClicked(index);
}

void MyTabSystemHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.5);
    const QColor frame = themeColor(ThemeKey::GroupBoxTitleBorder);
    const QColor fill = themeColor(ThemeKey::GroupBoxBackgroundBottom);
    const QColor selectedTop = themeColor(ThemeKey::GroupBoxBackgroundTop);
    const QColor line = themeColor(ThemeKey::MenuButtonSelectLine);
    const QColor text = FormFieldPainter::textColor();

    for (int i = 0; i < tabs.size(); ++i) {
        MyTabSystemHelper* helper = tabs.at(i);
        const QRect area = tabRect(i).adjusted(0, 0, -1, -1);
        const double selected = helper->selectState() / 100.0;

        painter.fillRect(area, fill);
        if (selected > 0) {
            painter.save();
            painter.setOpacity(painter.opacity() * selected);
            QLinearGradient raised(area.topLeft(), vertical ? area.topRight() : area.bottomLeft());
            raised.setColorAt(0, selectedTop);
            raised.setColorAt(1, fill.lighter(115));
            painter.fillRect(area, raised);
            painter.restore();
        }
        if (helper->hoverState() > 0) {
            painter.save();
            painter.setOpacity(painter.opacity() * helper->hoverState() / 50.0 * 0.12);
            painter.fillRect(area, text);
            painter.restore();
        }
        painter.setPen(frame);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(area);

        // The selection line grows from the middle of the tab's edge.
        if (selected > 0) {
            if (vertical) {
                const int half = qRound(area.height() / 2.0 * selected);
                painter.fillRect(QRect(area.left() + 1, area.center().y() - half + 1, 3, 2 * half - 1), line);
            } else {
                const int half = qRound(area.width() / 2.0 * selected);
                painter.fillRect(QRect(area.center().x() - half + 1, area.bottom() - 2, 2 * half - 1, 2), line);
            }
        }

        QFont labelFont = font();
        labelFont.setBold(helper->isSelected());
        painter.setFont(labelFont);
        painter.setPen(text);
        const QRect labelArea = vertical ? area.adjusted(12, 0, -6, 0) : area.adjusted(8, 0, -8, -2);
        painter.drawText(labelArea, (vertical ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(helper->label(), Qt::ElideRight, labelArea.width()));
    }
}
