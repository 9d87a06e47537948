#include "widgets/MyCheckBox.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/AnimatedLook.h"
#include "widgets/FormFieldPainter.h"

#include <QAbstractButton>
#include <QPainter>
#include <QPainterPath>

MyCheckBox::MyCheckBox(QWidget* parent) : QCheckBox(parent), check(makeCheckLook(this)), hover(makeHoverLook(this))
{
    setCursor(Qt::PointingHandCursor);
    connect(this, &QCheckBox::stateChanged, this, &MyCheckBox::stateHasChanged);
}

MyCheckBox::MyCheckBox(const QString& text, QWidget* parent) : MyCheckBox(parent)
{
    setText(text);
}

void MyCheckBox::stateHasChanged(int checkState)
{
    const bool checked = checkState != Qt::Unchecked;
    if (noAnimation)
        check->jumpTo(checked ? check->fullValue() : 0);
    else
        check->run(checked);
}

AnimatedLook* MyCheckBox::makeCheckLook(QAbstractButton* button)
{
    return new AnimatedLook(button, "currState", 100, 150, 150);
}

AnimatedLook* MyCheckBox::makeHoverLook(QAbstractButton* button)
{
    AnimatedLook* look = new AnimatedLook(button, "currState2", 100, 150, 150);
    look->followPointer();
    return look;
}

bool MyCheckBox::hitButton(const QPoint& pos) const
{
    return rect().contains(pos);
}

QSize MyCheckBox::toggleSizeHint(const QAbstractButton* button)
{
    QFont font = button->font();
    const int textWidth = button->text().isEmpty() ? 0 : QFontMetrics(font).horizontalAdvance(button->text()) + 6;
    return QSize(20 + textWidth, qMax(20, QFontMetrics(font).height() + 2));
}

QSize MyCheckBox::sizeHint() const
{
    return toggleSizeHint(this);
}

QSize MyCheckBox::minimumSizeHint() const
{
    return QSize(18, 18);
}

void MyCheckBox::paintToggle(QPainter& painter, QAbstractButton* button, double checkedState, double hoverState, bool round)
{
    const bool enabled = button->isEnabled();
    painter.translate(0, (button->height() - 18) / 2);
    if (!enabled)
        painter.setOpacity(0.5);

    const QRectF box(1, 1, 16, 16);
    QPainterPath shape;
    if (round)
        shape.addEllipse(QRectF(2, 2, 14, 14));
    else
        shape.addRect(box);

    painter.setRenderHint(QPainter::Antialiasing, round);
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeColor(ThemeKey::CheckBoxBackground));
    painter.drawPath(shape);

    // A disabled box still shows its value, dimmed with the rest.
    if (checkedState > 0) {
        // The fill and the mark fade in together over the whole box, so that
        // the box is never seen half drawn while it changes.
        painter.save();
        painter.setClipPath(shape);
        painter.setOpacity(painter.opacity() * qMin(1.0, checkedState / 100.0));
        painter.fillRect(box, themeColor(ThemeKey::CheckBoxPrimary));
        if (round) {
            painter.setBrush(QColor(0, 0, 0, 150));
            painter.drawEllipse(QRectF(6, 6, 6, 6));
        } else {
            painter.drawPixmap(2, 2, QPixmap(QStringLiteral(":/resources/Decor/checkbox.png")));
        }
        painter.restore();
    }

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(themeColor(ThemeKey::CheckBoxBase), 1));
    if (round)
        painter.drawEllipse(QRectF(1.5, 1.5, 15, 15));
    else
        painter.drawRect(QRectF(1.5, 1.5, 15, 15));
    if (hoverState > 0 && enabled) {
        painter.save();
        painter.setOpacity(hoverState / 100.0);
        const QColor hover = themeColor(ThemeKey::CheckBoxHover);
        if (round) {
            painter.setPen(QPen(hover, 1.5));
            painter.drawEllipse(QRectF(1.5, 1.5, 15, 15));
        } else {
            // Two pixels at the top and the left, one at the other edges.
            painter.setPen(QPen(hover, 1));
            painter.drawRect(QRectF(1.5, 1.5, 15, 15));
            painter.fillRect(QRectF(1, 1, 16, 2), hover);
            painter.fillRect(QRectF(1, 1, 2, 16), hover);
        }
        painter.restore();
    }

    if (!button->text().isEmpty()) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(FormFieldPainter::textColor());
        painter.setFont(button->font());
        const QRect label(21, 0, button->width() - 21, 18);
        painter.drawText(label, Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(button->text(), Qt::ElideRight, button->width() - 20 - 1));
    }
}

void MyCheckBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintToggle(painter, this, check->value(), hover->value(), false);
}
