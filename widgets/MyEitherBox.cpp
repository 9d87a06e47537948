#include "widgets/MyEitherBox.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/AnimatedLook.h"
#include "widgets/FormFieldPainter.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

MyEitherBox::MyEitherBox(QWidget* parent)
    : QPushButton(parent),
      selection(new AnimatedLook(this, "selection", 1000, 250, 250, QEasingCurve::OutCubic)),
      hover(new AnimatedLook(this, "hover", 1000, 150, 150))
{
    hover->followPointer();
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumHeight(46);
    connect(this, &QAbstractButton::clicked, this, &MyEitherBox::toggle);
}

void MyEitherBox::setPlaceholder(const QString& text)
{
    captionText = text;
    update();
}

void MyEitherBox::setChoices(const QString& firstLabel, const QString& secondLabel)
{
    first = firstLabel;
    second = secondLabel;
    update();
}

void MyEitherBox::setChoice(bool choice, bool skipAnimation)
{
    chosen = choice;
    if (skipAnimation)
        selection->jumpTo(chosen ? 0.0 : selection->fullValue());
    else
        selection->run(!chosen);
}

void MyEitherBox::toggle()
{
    chosen = !chosen;
    emit whenChoiceChanges();
    update();
    selection->run(!chosen);
}

QSize MyEitherBox::sizeHint() const
{
    return QSize(160, 46);
}

QSize MyEitherBox::minimumSizeHint() const
{
    return QSize(60, 46);
}

void MyEitherBox::keyPressEvent(QKeyEvent* event)
{
    if ((event->key() == Qt::Key_Space) && event->modifiers() == Qt::NoModifier) {
        click();
        return;
    }
    event->ignore();
}

void MyEitherBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int w = FormFieldPainter::begin(painter, this);
    const double fieldOpacity = painter.opacity();
    const bool enabled = isEnabled();
    const double hovered = enabled ? hover->value() : 0.0;
    const QColor background = themeColor(ThemeKey::EitherUIBackground);
    FormFieldPainter::frame(painter, w, {themeColor(ThemeKey::EitherUIBase), themeColor(ThemeKey::EitherUIHover), background},
                            hovered / 1000.0);
    FormFieldPainter::caption(painter, this, w, captionText, background, (hovered + 1333) / 2333.0);

    const double p = qBound(0.0, selection->value() / 1000.0, 1.0);
    painter.save();
    FormFieldPainter::setValueFont(painter, this, background);
    const int h = painter.fontMetrics().height();
    const int labelWidth = w - 11 - 9 - 8;
    auto label = [&](const QString& text, double y, double opacity) {
        if (opacity <= 0)
            return;
        painter.setOpacity(opacity);
        painter.drawText(QRectF(9, y, labelWidth, 19), Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(text, Qt::ElideRight, labelWidth));
    };
    const bool moving = p > 0.0 && p < 1.0;
    if (moving) {
        // The labels turn like a drum: the one that goes leaves downwards and
        // the other follows from above, a band's height apart, so that they
        // never stand over each other. The band between the caption and the
        // underline shows them.
        const QRect band(1, 38 - h, w - 1, 6 + h);
        painter.setClipRect(band);
        label(first, 38 - h + band.height() * p, 1 - p);
        label(second, 38 - h - band.height() * (1 - p), p);
    } else {
        label(chosen ? first : second, 38 - h, 1.0);
    }
    painter.restore();

    // Two marks: the larger ring stands for the label that is shown.
    painter.save();
    painter.translate(-4, 1);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(fieldOpacity * (hovered + 1333) / 2333.0 * (enabled ? 1.0 : 0.2));
    const QColor mark = themeColor(ThemeKey::EitherUIDecorator);
    auto dot = [&](double y, double radius) {
        const QPointF centre(w - 5, y);
        if (radius <= 2.0) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(mark);
            painter.drawEllipse(centre, radius, radius);
        } else {
            QPainterPath ring;
            ring.addEllipse(centre, radius, radius);
            ring.addEllipse(centre, radius - 2, radius - 2);
            painter.fillPath(ring, mark);
        }
    };
    dot(33, 2 + 2 * p);
    dot(23, 2 + 2 * (1 - p));
    painter.restore();
}
