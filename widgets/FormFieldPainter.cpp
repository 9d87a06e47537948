#include "widgets/FormFieldPainter.h"

#include "theme/Contrast.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QPainter>
#include <QWidget>

namespace FormFieldPainter {

QColor textColor()
{
    const QColor color = themeColor(ThemeKey::Text);
    return color.isValid() ? color : QColor(Qt::white);
}

QColor ink(const QWidget* widget, const QColor& background, double strength)
{
    const QColor text = Contrast::over(textColor(), background, strength);
    if (widget->isEnabled())
        return Contrast::readable(text, background, Contrast::Text);
    // The style sheet makes the fields' own background transparent; what
    // shows through is the dialog's window colour.
    QColor window = widget->palette().color(QPalette::Window);
    if (window.alpha() == 0)
        window = themeColor(ThemeKey::WindowBackground);
    return Contrast::readable(Contrast::over(text, window, 0.5), Contrast::over(background, window, 0.5),
                              Contrast::DisabledText);
}

int begin(QPainter& painter, const QWidget* widget)
{
    painter.translate(0, (widget->height() - 46) / 2);
    if (!widget->isEnabled())
        painter.setOpacity(0.5);
    return widget->width() - 1;
}

namespace {

void outline(QPainter& painter, int w, const QColor& color)
{
    painter.setPen(QPen(color, 1));
    painter.drawLine(0, 0, w, 0);
    painter.drawLine(0, 0, 0, 45);
    painter.drawLine(w, 0, w, 45);
    painter.drawLine(0, 45, w, 45);
}

}

void frame(QPainter& painter, int w, const Colors& colors, double hover, int backgroundHeight)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.background);
    painter.drawRect(QRect(1, 1, w - 1, backgroundHeight));
    painter.restore();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    outline(painter, w, colors.base);
    if (hover > 0) {
        painter.setOpacity(painter.opacity() * qMin(1.0, hover));
        outline(painter, w, colors.hover);
    }
    painter.restore();
}

void underline(QPainter& painter, int w, double state, const QColor& color)
{
    if (state <= 0)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    const double c = (w + 1) * 0.5;
    const double h = state / 300.0 * c;
    const double base = painter.opacity();
    painter.fillRect(QRectF(c - h, 44, 2 * h, 2), color);
    // The broken ends on both sides make the line look like it is growing.
    painter.setOpacity(base * state / 500.0);
    painter.fillRect(QRectF(c - h - 5, 44, 5, 2), color);
    painter.fillRect(QRectF(c + h, 44, 5, 2), color);
    painter.setOpacity(base * state / 700.0);
    painter.fillRect(QRectF(c - h - 10, 44, 5, 2), color);
    painter.fillRect(QRectF(c + h + 5, 44, 5, 2), color);
    painter.restore();
}

void caption(QPainter& painter, const QWidget* widget, int w, const QString& text, const QColor& background,
             double strength)
{
    if (text.isEmpty())
        return;
    painter.save();
    painter.translate(0, 3);
    QFont font = painter.font();
    font.setPointSize(10);
    font.setItalic(false);
    painter.setFont(font);
    // The ink already holds the fading and the dimming of a disabled field.
    painter.setOpacity(1.0);
    painter.setPen(ink(widget, background, strength));
    const QRect area(8, 0, w - 8, 45);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignTop,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, area.width() - 14));
    painter.restore();
}

void setValueFont(QPainter& painter, const QWidget* widget, const QColor& background, bool italic)
{
    QFont font = widget->font();
    font.setPixelSize(15);
    font.setItalic(italic);
    painter.setFont(font);
    painter.setOpacity(1.0);
    painter.setPen(ink(widget, background, 1.0));
}

}
