#include "widgets/MyGroupBox.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/FormFieldPainter.h"

#include <QEvent>
#include <QLinearGradient>
#include <QPainter>

MyGroupBox::MyGroupBox(QWidget* parent) : QGroupBox(parent)
{
    setContentsMargins(QMargins());
}

MyGroupBox::MyGroupBox(const QString& title, QWidget* parent) : MyGroupBox(parent)
{
    setTitle(title);
}

bool MyGroupBox::event(QEvent* event)
{
    // QGroupBox sets its margins from the style's frame and title (and from a
    // style sheet's group box rules) whenever the title, font or style
    // changes. This box draws its own frame and title, so it takes them back.
    if (event->type() == QEvent::ContentsRectChange && contentsMargins() != QMargins())
        setContentsMargins(QMargins());
    return QGroupBox::event(event);
}

void MyGroupBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // The panel leaves room for its shadow at the right and the bottom.
    const QRect panel = rect().adjusted(0, 0, -3, -3);
    for (int i = 3; i >= 1; --i) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, 40 - i * 10));
        painter.drawRect(panel.translated(i, i));
    }

    QLinearGradient body(0, panel.top(), 0, panel.bottom());
    body.setColorAt(0, themeColor(ThemeKey::GroupBoxBackgroundTop));
    body.setColorAt(1, themeColor(ThemeKey::GroupBoxBackgroundBottom));
    painter.fillRect(panel, body);

    const QRect titleStrip(panel.left(), panel.top(), panel.width(), TitleHeight);
    QLinearGradient strip(0, titleStrip.top(), 0, titleStrip.bottom());
    strip.setColorAt(0, themeColor(ThemeKey::GroupBoxTitleBackgroundTop));
    strip.setColorAt(1, themeColor(ThemeKey::GroupBoxTitleBackgroundBottom));
    painter.fillRect(titleStrip, strip);
    painter.setPen(themeColor(ThemeKey::GroupBoxTitleBorderBottom));
    painter.drawLine(titleStrip.bottomLeft(), titleStrip.bottomRight());
    painter.setPen(themeColor(ThemeKey::GroupBoxTitleBorder));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(panel.adjusted(0, 0, -1, -1));

    if (!isEnabled())
        painter.setOpacity(0.5);
    QFont titleFont = font();
    titleFont.setBold(true);
    painter.setFont(titleFont);
    painter.setPen(FormFieldPainter::textColor());
    const QRect titleArea = titleStrip.adjusted(8, 0, -8, 0);
    painter.drawText(titleArea, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(title(), Qt::ElideRight, titleArea.width()));
}
