#include "widgets/MyColorPickerButton.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/MyColorPicker.h"

#include <QPainter>

// The hover runs to 100 rather than the fields' 300.
MyColorPickerButton::MyColorPickerButton(QWidget* parent) : PickerField(100, parent)
{
    connect(this, &QPushButton::clicked, this, &MyColorPickerButton::whenClicked);
}

void MyColorPickerButton::setColor(const QColor& color)
{
    if (!color.isValid())
        return;
    current = color.toRgb();
    current.setAlpha(255);
    update();
}

void MyColorPickerButton::whenClicked()
{
    QColor picked;
    runPicker([this, &picked]() { picked = MyColorPicker::pick(current, captionText, window(), nullptr); });
    if (!picked.isValid())
        return;
    setColor(picked);
    emit colorChanged(current);
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
