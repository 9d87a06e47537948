#include "widgets/MyComboBox.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/AnimatedLook.h"
#include "widgets/FormFieldPainter.h"
#include "widgets/MyPopup.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSet>

#include <stdexcept>

MyComboBox::MyComboBox(QWidget* parent) : FieldButton(250, 300, parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void MyComboBox::setCaption(const QString& text)
{
    captionText = text;
    update();
}

void MyComboBox::addItem(const QString& text, const QVariant& data)
{
    items.append({data, text});
    if (selected < 0)
        selected = 0;
    update();
}

void MyComboBox::removeItem(int index)
{
    if (index < 0 || index >= items.size())
        return;
    items.remove(index);
    if (selected >= items.size())
        selected = items.size() - 1;
    else if (index < selected)
        --selected;
    update();
}

void MyComboBox::setCurrentIndex(int index, bool emitSignal)
{
    if (index < -1 || index >= items.size())
        return;
    selected = index;
    update();
    if (emitSignal)
        emit whenChoiceChanges();
}

void MyComboBox::selectByData(int value)
{
    for (int i = 0; i < items.size(); ++i) {
        if (items.at(i).data.toInt() == value) {
            setCurrentIndex(i, false);
            return;
        }
    }
}

void MyComboBox::selectByText(const QString& text, bool emitSignal)
{
    for (int i = 0; i < items.size(); ++i) {
        if (items.at(i).text == text) {
            setCurrentIndex(i, emitSignal);
            return;
        }
    }
}

int MyComboBox::currentData() const
{
    if (selected < 0 || selected >= items.size())
        return -1;
    return items.at(selected).data.toInt();
}

QString MyComboBox::currentText() const
{
    return itemText(selected);
}

QString MyComboBox::itemText(int index) const
{
    return index >= 0 && index < items.size() ? items.at(index).text : QString();
}

QVariant MyComboBox::getData(int index) const
{
    if (index < 0 || index >= items.size()) {
        qWarning("Index out of bounds at MyComboBox::getData");
        throw std::out_of_range("MyComboBox::getData");
    }
    return items.at(index).data;
}

void MyComboBox::clearItems()
{
    items.clear();
    selected = -1;
    update();
}

void MyComboBox::setMaxVisibleRows(int rows)
{
    heightLimit = qMax(0, rows) * MyPopup::RowHeight;
}

void MyComboBox::showPopup()
{
    if (openList || items.isEmpty())
        return;
    QStringList texts;
    QSet<int> italicRows;
    for (int i = 0; i < items.size(); ++i) {
        texts.append(items.at(i).text);
        if (items.at(i).data.toInt() == ItalicData && items.at(i).data.isValid())
            italicRows.insert(i);
    }
    openList = new MyPopup(this, texts, selected, heightLimit, italicRows);
    MyPopup::setOpenPopup(openList, this);
    connect(openList, &MyPopup::itemSelected, this, &MyComboBox::popupClosed);
    const int fieldBottom = (height() - 46) / 2 + 46;
    openList->popUp(mapToGlobal(QPoint(0, fieldBottom)), width());
    press->run(true);
}

void MyComboBox::popupClosed(int index)
{
    // The popup deletes itself once it has folded up.
    if (MyPopup::openPopup() == openList)
        MyPopup::setOpenPopup(nullptr, nullptr);
    openList = nullptr;
    press->run(false);
    if (!rect().contains(mapFromGlobal(QCursor::pos())))
        hover->run(false);
    if (index >= 0)
        setCurrentIndex(index, true);
}

void MyComboBox::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && !openList)
        showPopup();
    event->accept();
}

void MyComboBox::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
}

void MyComboBox::keyPressEvent(QKeyEvent* event)
{
    const bool control = event->modifiers() & Qt::ControlModifier;
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!control) {
            showPopup();
            return;
        }
        break;
    case Qt::Key_Down:
    case Qt::Key_Up:
        if (event->modifiers() & Qt::AltModifier) {
            showPopup();
            return;
        }
        break;
    default:
        break;
    }
    event->ignore();
}

void MyComboBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // 6000 draws the outline and 6001 its hover, though the builder names
    // them the other way round.
    const int w = paintField(painter,
                             {themeColor(ThemeKey::DropDownUIHover), themeColor(ThemeKey::DropDownUIBase),
                              themeColor(ThemeKey::DropDownUIBackground)},
                             themeColor(ThemeKey::DropDownUIPrimary), captionText, 44);
    const double pressed = isEnabled() ? press->value() : 0.0;

    painter.save();
    painter.translate(5, -3);
    const bool italic = selected >= 0 && items.at(selected).data.isValid()
        && items.at(selected).data.toInt() == ItalicData;
    FormFieldPainter::setValueFont(painter, this, themeColor(ThemeKey::DropDownUIBackground), italic);
    const QRect valueArea(3, 24, w - 24, 19);
    painter.drawText(valueArea, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(currentText(), Qt::ElideRight, valueArea.width()));
    painter.restore();

    // The arrow points left at rest and turns down while the list is open.
    const double t = pressed / 300.0;
    const QPointF arrow[] = {{w - 3 - 6 * t, 25 + 3 * t}, {w - 3 + 2 * t, 33 - 5 * t}, {w - 7 + 2 * t, 29 + 3 * t}};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeColor(ThemeKey::DropDownUIArrow));
    painter.drawPolygon(arrow, 3);
}
