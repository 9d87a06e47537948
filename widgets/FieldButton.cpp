#include "widgets/FieldButton.h"

#include "widgets/AnimatedLook.h"

#include <QPainter>

FieldButton::FieldButton(int pressOnMs, int pressOffMs, QWidget* parent, double hoverFull)
    : QPushButton(parent),
      press(new AnimatedLook(this, "currState", 300, pressOnMs, pressOffMs, QEasingCurve::OutCubic)),
      hover(new AnimatedLook(this, "currState2", hoverFull, 150, 150))
{
    hover->followPointer([this]() { return holdsHover(); });
    setCursor(Qt::PointingHandCursor);
    setMinimumHeight(46);
}

QSize FieldButton::sizeHint() const
{
    return QSize(160, 46);
}

QSize FieldButton::minimumSizeHint() const
{
    return QSize(60, 46);
}

double FieldButton::captionStrength() const
{
    const bool enabled = isEnabled();
    const double hovered = enabled ? hover->value() / hover->fullValue() * 300.0 : 0.0;
    const double pressed = enabled ? press->value() : 0.0;
    return pressed >= 300 ? 1.0 : (hovered + 400) / 700.0;
}

int FieldButton::paintField(QPainter& painter, const FormFieldPainter::Colors& colors, const QColor& primary,
                            const QString& caption, int backgroundHeight)
{
    const int w = FormFieldPainter::begin(painter, this);
    const bool enabled = isEnabled();
    const double hovered = enabled ? hover->value() / hover->fullValue() : 0.0;
    const double pressed = enabled ? press->value() : 0.0;
    FormFieldPainter::frame(painter, w, colors, pressed > 300 ? 0.0 : hovered, backgroundHeight);
    FormFieldPainter::underline(painter, w, pressed, primary);
    FormFieldPainter::caption(painter, this, w, caption, colors.background, captionStrength());
    return w;
}
