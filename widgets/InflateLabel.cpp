#include "widgets/InflateLabel.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/FormFieldPainter.h"
#include "widgets/LookAnimation.h"

#include <QEvent>
#include <QPainter>
#include <QPropertyAnimation>

InflateLabel::InflateLabel(QWidget* parent)
    : QLabel(parent),
      growAnimation(new QPropertyAnimation(this, "transfer", this)),
      hoverAnimation(new QPropertyAnimation(this, "hover", this))
{
}

InflateLabel::InflateLabel(const QString& text, QWidget* parent) : InflateLabel(parent)
{
    setText(text);
    resting = text;
}

void InflateLabel::setAnimatedText(const QString& newText)
{
    if (newText == text() && growth >= 1000)
        return;
    setText(newText);
    LookAnimation::runFor(growAnimation, 0, 1000, 250, QEasingCurve::OutBack);
}

void InflateLabel::setRestingText(const QString& newText)
{
    resting = newText;
    setText(newText);
}

void InflateLabel::restore()
{
    setAnimatedText(resting);
}

void InflateLabel::setTransfer(int value)
{
    growth = value;
    update();
}

void InflateLabel::setHover(int value)
{
    hoverLook = value;
    update();
}

QSize InflateLabel::sizeHint() const
{
    QSize hint = QLabel::sizeHint();
    return QSize(hint.width() + 8, qMax(hint.height(), 20));
}

QSize InflateLabel::minimumSizeHint() const
{
    return QSize(20, 20);
}

bool InflateLabel::event(QEvent* event)
{
    if (const int change = LookAnimation::hoverChange(this, event))
        LookAnimation::run(hoverAnimation, hoverLook, change > 0 ? 1000 : 0, 1000, 100, QEasingCurve::Linear);
    return QLabel::event(event);
}

void InflateLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    if (!isEnabled())
        painter.setOpacity(0.5);
    // The text grows from 70 percent around the middle of the label and
    // fades in with it.
    const double grown = 0.7 + 0.3 * growth / 1000.0;
    painter.translate(width() / 2.0, height() / 2.0);
    painter.scale(grown, grown);
    painter.translate(-width() / 2.0, -height() / 2.0);
    painter.setOpacity(painter.opacity() * qBound(0.0, growth / 1000.0, 1.0));
    QColor color = FormFieldPainter::textColor();
    if (hoverLook > 0) {
        const QColor lit = themeColor(ThemeKey::MenuButtonUnderline);
        const double t = hoverLook / 1000.0 * 0.5;
        color = QColor::fromRgbF(color.redF() + (lit.redF() - color.redF()) * t,
                                 color.greenF() + (lit.greenF() - color.greenF()) * t,
                                 color.blueF() + (lit.blueF() - color.blueF()) * t);
    }
    painter.setPen(color);
    painter.setFont(font());
    const QRect area = contentsRect().adjusted(4, 0, -4, 0);
    painter.drawText(area, int(alignment()),
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
}
