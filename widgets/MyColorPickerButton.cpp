#include "widgets/MyColorPickerButton.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/AnimatedLook.h"
#include "widgets/MyColorPicker.h"

#include <QMouseEvent>
#include <QPainter>

// The press eases out in a fixed 500 ms after the picker; the hover runs to 100.
MyColorPickerButton::MyColorPickerButton(QWidget* parent) : FieldButton(240, 500, parent, 100)
{
    connect(this, &QPushButton::clicked, this, &MyColorPickerButton::whenClicked);
}

void MyColorPickerButton::setCaption(const QString& text)
{
    captionText = text;
    update();
}

void MyColorPickerButton::setColor(const QColor& color)
{
    if (!color.isValid())
        return;
    current = color.toRgb();
    current.setAlpha(255);
    update();
}

void MyColorPickerButton::setParentDialog(TrovDialog* dialog)
{
    parentDialog = dialog;
}

void MyColorPickerButton::whenClicked()
{
    TrovDialog* dimmed = parentDialog ? parentDialog.data() : qobject_cast<TrovDialog*>(window());
    const QColor picked = MyColorPicker::pick(current, captionText, window(), dimmed);
    press->runFor(press->value(), 0, 500);
    if (!picked.isValid())
        return;
    setColor(picked);
    emit colorChanged(current);
}

void MyColorPickerButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        press->run(true);
    QPushButton::mousePressEvent(event);
}

void MyColorPickerButton::mouseReleaseEvent(QMouseEvent* event)
{
    // A release beside the field clicks nothing; the press eases out anyway.
    QPushButton::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        press->runFor(press->value(), 0, 500);
}

void MyColorPickerButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor background = themeColor(ThemeKey::ColorPickerButtonBackground);
    const int w = paintField(painter,
                             {themeColor(ThemeKey::ColorPickerBase), themeColor(ThemeKey::ColorPickerHover), background},
                             themeColor(ThemeKey::ColorPickerSelectOutline), captionText, 44);

    // The swatch in two rims, dark outside and light inside, so that it
    // stands out from the field whatever its colour.
    const QRect swatch(8, 23, 30, 15);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(themeColor(ThemeKey::ColorPickerOutline1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(swatch.adjusted(0, 0, -1, -1));
    painter.setPen(themeColor(ThemeKey::ColorPickerOutline2));
    painter.drawRect(swatch.adjusted(1, 1, -2, -2));
    painter.fillRect(swatch.adjusted(2, 2, -2, -2), current);
    painter.restore();

    FormFieldPainter::setValueFont(painter, this, background);
    const QRect valueArea(swatch.right() + 8, 21, w - swatch.right() - 16, 19);
    painter.drawText(valueArea, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(current.name(), Qt::ElideRight, valueArea.width()));
}
