#include "widgets/MyDialogOpener.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/AnimatedLook.h"
#include "widgets/FormFieldPainter.h"

#include <QMouseEvent>
#include <QPainter>

// The press eases out in a fixed 500 ms (confirm), whatever is left of it.
MyDialogOpener::MyDialogOpener(QWidget* parent) : FieldButton(240, 500, parent)
{
}

void MyDialogOpener::setTitle(const QString& text)
{
    titleText = text;
    update();
}

void MyDialogOpener::setValue(const QString& text)
{
    valueText = text;
    update();
}

void MyDialogOpener::setItalic(bool italic)
{
    italicValue = italic;
    update();
}

void MyDialogOpener::confirm()
{
    press->runFor(press->value(), 0, 500);
}

void MyDialogOpener::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        press->run(true);
    QPushButton::mousePressEvent(event);
}

void MyDialogOpener::mouseReleaseEvent(QMouseEvent* event)
{
    // The click may run a whole dialog; the look eases out after it either way.
    QPushButton::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        confirm();
}

void MyDialogOpener::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int w = paintField(painter,
                             {themeColor(ThemeKey::DialogOpenerUIBase), themeColor(ThemeKey::DialogOpenerUIHover),
                              themeColor(ThemeKey::DialogOpenerUIBackground)},
                             themeColor(ThemeKey::DialogOpenerUIPrimary), titleText, 44);
    const bool enabled = isEnabled();
    const double hovered = enabled ? hover->value() : 0.0;
    const double pressed = enabled ? press->value() : 0.0;

    painter.save();
    painter.translate(5, -3);
    FormFieldPainter::setValueFont(painter, this, themeColor(ThemeKey::DialogOpenerUIBackground), italicValue);
    const QRect valueArea(2, 24, w - 24, 19);
    painter.drawText(valueArea, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(valueText, Qt::ElideRight, valueArea.width()));
    painter.restore();

    // Three dots that spread with the hover and stand apart while pressed.
    painter.save();
    painter.translate(-4, 1);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(painter.opacity() * (enabled ? (hovered + 400) / 700.0 : 0.2));
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeColor(ThemeKey::DialogOpenerUIDots));
    const double spread = pressed > 0 ? qMax(5.0 * hovered / 300.0, 5.0 * pressed / 300.0) : 5.0 * hovered / 300.0;
    for (int i = -1; i <= 1; ++i)
        painter.drawEllipse(QPointF(w - 5, 26 + i * spread), 1.5, 1.5);
    painter.restore();
}
