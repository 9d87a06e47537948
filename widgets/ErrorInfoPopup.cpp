#include "widgets/ErrorInfoPopup.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QPainter>
#include <QPropertyAnimation>

namespace {

const int FadeMs = 150;
const int Margin = 8;
const int RowGap = 2;

}

ErrorInfoPopup::ErrorInfoPopup(QWidget* parent)
    : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      owner(parent),
      fade(new QPropertyAnimation(this, "windowOpacity", this))
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    fade->setEasingCurve(QEasingCurve::Linear);
    connect(fade, &QPropertyAnimation::finished, this, [this]() {
        if (fade->endValue().toDouble() <= 0.0)
            whenFadeOutComplete();
    });
}

void ErrorInfoPopup::showErrors(const QList<Error>& errors)
{
    list = errors;
    if (list.isEmpty()) {
        fadeOut();
        return;
    }
    ensurePolished();
    const QSize size = sizeHint().boundedTo(QSize(owner->width(), owner->height()));
    resize(size);
    move(owner->mapToGlobal(QPoint(0, owner->height() - size.height())));
    update();
    fadeIn();
}

void ErrorInfoPopup::fadeIn()
{
    if (!isVisible()) {
        setWindowOpacity(0.0);
        show();
    }
    fadeTo(1.0);
}

void ErrorInfoPopup::fadeOut()
{
    if (isVisible())
        fadeTo(0.0);
}

void ErrorInfoPopup::fadeTo(double opacity)
{
    const double current = windowOpacity();
    if (fade->state() == QAbstractAnimation::Running && fade->endValue().toDouble() == opacity)
        return;
    fade->stop();
    // A fade that turns back takes only the time of the way that is left.
    fade->setStartValue(current);
    fade->setEndValue(opacity);
    fade->setDuration(qMax(1, qRound(qAbs(opacity - current) * FadeMs)));
    fade->start();
}

void ErrorInfoPopup::whenFadeOutComplete()
{
    hide();
}

QString ErrorInfoPopup::lineText(const Error& error) const
{
    return tr("Line %1").arg(error.line);
}

int ErrorInfoPopup::lineColumnWidth(const QFontMetrics& metrics) const
{
    int width = 0;
    for (const Error& error : list)
        width = qMax(width, metrics.horizontalAdvance(lineText(error)));
    return width;
}

QSize ErrorInfoPopup::sizeHint() const
{
    const QFontMetrics metrics(font());
    const int lineWidth = lineColumnWidth(metrics);
    int textWidth = 0;
    for (const Error& error : list)
        textWidth = qMax(textWidth, metrics.horizontalAdvance(error.text));
    const int rows = qMax(1, list.size());
    // A pixel more than the text's advance, which is rounded and would
    // otherwise elide the longest text.
    return QSize(Margin + lineWidth + Margin + textWidth + 1 + Margin,
                 Margin + rows * (metrics.height() + RowGap) - RowGap + Margin);
}

void ErrorInfoPopup::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // The field's own colours, so that it reads in every theme, outlined
    // and numbered in the colour of an invalid field.
    const QColor negative = themeColor(ThemeKey::InputUINegative);
    painter.fillRect(rect(), themeColor(ThemeKey::Base));
    painter.setPen(negative);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const QFontMetrics metrics(font());
    const int lineWidth = lineColumnWidth(metrics);
    int y = Margin;
    for (const Error& error : list) {
        painter.setPen(negative);
        painter.drawText(QRect(Margin, y, lineWidth, metrics.height()), Qt::AlignLeft | Qt::AlignVCenter,
                         lineText(error));
        painter.setPen(themeColor(ThemeKey::Text));
        const int left = Margin + lineWidth + Margin;
        painter.drawText(QRect(left, y, width() - left - Margin, metrics.height()), Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(error.text, Qt::ElideRight, width() - left - Margin));
        y += metrics.height() + RowGap;
    }
}
