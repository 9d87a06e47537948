#include "widgets/MyComboInput.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/AnimatedLook.h"
#include "widgets/MyPopup.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

const int ArrowWidth = 20;

}

MyComboInput::MyComboInput(QWidget* parent) : MyLineEdit(parent)
{
    setInputType(Text);
    setMouseTracking(true);
}

void MyComboInput::setSuggestions(const QStringList& list)
{
    rows = list;
    update();
}

void MyComboInput::setMaxVisibleRows(int count)
{
    heightLimit = qMax(0, count) * MyPopup::RowHeight;
}

bool MyComboInput::onArrow(const QPoint& pos) const
{
    return !rows.isEmpty() && pos.x() >= width() - ArrowWidth;
}

void MyComboInput::showPopup()
{
    if (openList || rows.isEmpty() || isReadOnly())
        return;
    openList = new MyPopup(this, rows, rows.indexOf(text()), heightLimit);
    MyPopup::setOpenPopup(openList, this);
    connect(openList, &MyPopup::itemSelected, this, &MyComboInput::popupClosed);
    openList->popUp(mapToGlobal(QPoint(0, (height() - 46) / 2 + 46)), width());
}

void MyComboInput::popupClosed(int index)
{
    if (MyPopup::openPopup() == openList)
        MyPopup::setOpenPopup(nullptr, nullptr);
    openList = nullptr;
    if (!rect().contains(mapFromGlobal(QCursor::pos())))
        hoverLook()->run(false);
    if (index < 0 || index >= rows.size())
        return;
    setText(rows.at(index));
    textHasChanged(text());
    setFocus();
}

void MyComboInput::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && onArrow(event->pos())) {
        showPopup();
        return;
    }
    MyLineEdit::mousePressEvent(event);
}

void MyComboInput::mouseMoveEvent(QMouseEvent* event)
{
    setCursor(onArrow(event->pos()) ? Qt::PointingHandCursor : (isReadOnly() ? Qt::PointingHandCursor : Qt::IBeamCursor));
    MyLineEdit::mouseMoveEvent(event);
}

void MyComboInput::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier)) {
        showPopup();
        return;
    }
    MyLineEdit::keyPressEvent(event);
}

void MyComboInput::resizeEvent(QResizeEvent* event)
{
    MyLineEdit::resizeEvent(event);
    const QMargins margins = textMargins();
    setTextMargins(margins.left(), margins.top(), ArrowWidth + 2, margins.bottom());
}

void MyComboInput::paintEvent(QPaintEvent* event)
{
    MyLineEdit::paintEvent(event);
    if (rows.isEmpty())
        return;
    QPainter painter(this);
    painter.translate(0, (height() - 46) / 2);
    if (!isEnabled())
        painter.setOpacity(0.5);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeColor(ThemeKey::DropDownUIArrow));
    const double w = width() - 1;
    const double t = openList ? 1.0 : 0.0;
    const QPointF arrow[] = {{w - 3 - 6 * t, 25 + 3 * t}, {w - 3 + 2 * t, 33 - 5 * t}, {w - 7 + 2 * t, 29 + 3 * t}};
    painter.drawPolygon(arrow, 3);
}
