#include "widgets/UltimateToolTip.h"

#include "theme/Contrast.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QGraphicsDropShadowEffect>
#include <QHelpEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>

namespace {

QPointer<UltimateToolTip> shownTip;

// Room around the body for the drop shadow.
const int ShadowMargin = 6;
const int ShadowExtra = 14;
// Descriptions wrap rather than run across the screen.
const int MaximumLineWidth = 420;
const int TitleBarHeightExtra = 12;

QFont titleFont(const QFont& base)
{
    QFont font = base;
    font.setWeight(75);
    return font;
}

// Each line of the description with its height; an empty line is a smaller gap.
int descriptionHeight(const QString& description, const QFontMetrics& metrics, int width)
{
    if (description.isEmpty())
        return 0;
    int height = 0;
    for (const QString& line : description.split(QLatin1Char('\n'))) {
        if (line.trimmed().isEmpty())
            height += metrics.height() / 2;
        else
            height += metrics.boundingRect(QRect(0, 0, width, 100000), Qt::TextWordWrap, line).height();
    }
    return height;
}

}

UltimateToolTip* UltimateToolTip::current()
{
    return shownTip;
}

QSize UltimateToolTip::measure(const QString& title, const QString& description, const QFont& font)
{
    const QFontMetrics titleMetrics(titleFont(font));
    const QFontMetrics metrics(font);
    int longest = 0;
    for (const QString& line : description.split(QLatin1Char('\n')))
        longest = qMax(longest, qMin(MaximumLineWidth, metrics.horizontalAdvance(line)));
    const int width = qMax(titleMetrics.horizontalAdvance(title) + 4, longest + 4) + 16;
    const int height = titleMetrics.height() + TitleBarHeightExtra + descriptionHeight(description, metrics, width - 16)
        + 10;
    return QSize(width, height);
}

UltimateToolTip::UltimateToolTip(QWidget* owner, const QString& title, const QString& description)
    : QWidget(owner, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      ownerWidget(owner),
      titleText(title),
      descriptionText(description)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont tipFont = QApplication::font();
    setFont(tipFont);
    body = measure(title, description, tipFont);
    resize(body + QSize(ShadowMargin + ShadowExtra, ShadowMargin + ShadowExtra));
    QGraphicsDropShadowEffect* shadow = new QGraphicsDropShadowEffect(this);
    shadow->setBlurRadius(10);
    shadow->setOffset(4, 4);
    shadow->setColor(QColor(0, 0, 0, 180));
    setGraphicsEffect(shadow);
    qApp->installEventFilter(this);
}

UltimateToolTip* UltimateToolTip::showFor(QWidget* owner, const QString& title, const QString& description,
                                          const QPoint& globalPos)
{
    if (shownTip)
        shownTip->deleteLater();
    UltimateToolTip* tip = new UltimateToolTip(owner, title, description);
    shownTip = tip;
    const QPoint target = globalPos + QPoint(0, 21) - QPoint(ShadowMargin, ShadowMargin);
    tip->setWindowOpacity(0.0);
    tip->move(target + QPoint(0, 20));
    tip->show();
    QParallelAnimationGroup* group = new QParallelAnimationGroup(tip);
    QPropertyAnimation* fade = new QPropertyAnimation(tip, "windowOpacity", group);
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    fade->setDuration(100);
    QPropertyAnimation* rise = new QPropertyAnimation(tip, "pos", group);
    rise->setStartValue(target + QPoint(0, 20));
    rise->setEndValue(target);
    rise->setDuration(100);
    group->addAnimation(fade);
    group->addAnimation(rise);
    tip->showing = group;
    group->start(QAbstractAnimation::DeleteWhenStopped);
    return tip;
}

bool UltimateToolTip::filterEvent(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return false;
    // A disabled control shows its tip too: it tells why the control is off.
    QWidget* widget = qobject_cast<QWidget*>(watched);
    if (!widget)
        return false;
    const QVariant title = widget->property("mtt_title");
    if (!title.isValid() || title.toString().isEmpty())
        return false;
    if (!shownTip)
        showFor(widget, title.toString(), widget->property("mtt_desc").toString(),
                static_cast<QHelpEvent*>(event)->globalPos());
    return true;
}

void UltimateToolTip::moveTo(const QPoint& globalPos)
{
    if (showing)
        showing->stop();
    setWindowOpacity(1.0);
    move(globalPos + QPoint(0, 21) - QPoint(ShadowMargin, ShadowMargin));
}

void UltimateToolTip::end()
{
    if (ending)
        return;
    ending = true;
    qApp->removeEventFilter(this);
    if (shownTip == this)
        shownTip = nullptr;
    if (showing)
        showing->stop();
    QParallelAnimationGroup* group = new QParallelAnimationGroup(this);
    QPropertyAnimation* fade = new QPropertyAnimation(this, "windowOpacity", group);
    fade->setStartValue(windowOpacity());
    fade->setEndValue(0.0);
    fade->setDuration(100);
    QPropertyAnimation* sink = new QPropertyAnimation(this, "pos", group);
    sink->setStartValue(pos());
    sink->setEndValue(pos() + QPoint(0, 20));
    sink->setDuration(100);
    group->addAnimation(fade);
    group->addAnimation(sink);
    connect(group, &QAbstractAnimation::finished, this, &QObject::deleteLater);
    group->start(QAbstractAnimation::DeleteWhenStopped);
}

bool UltimateToolTip::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
        moveTo(QCursor::pos());
        break;
    case QEvent::Leave:
    case QEvent::Hide:
        if (watched == ownerWidget)
            end();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::WindowDeactivate:
        end();
        break;
    default:
        break;
    }
    return false;
}

void UltimateToolTip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect frame(ShadowMargin, ShadowMargin, body.width(), body.height());
    const QFontMetrics titleMetrics(titleFont(font()));
    const int titleBar = titleMetrics.height() + TitleBarHeightExtra - 4;

    // The theme's tool-tip pair: the body in its base, the title bar shading
    // from it, and the text held readable on every part of both.
    const QColor ground = themeColor(ThemeKey::ToolTipBase);
    const QColor barEnd = ground.darker(ground.lightness() < 128 ? 160 : 118);
    const QColor ink = Contrast::readable(Contrast::readable(themeColor(ThemeKey::ToolTipText), ground, Contrast::Text),
                                          barEnd, Contrast::Text);
    const QColor outline = Contrast::over(ink, ground, 0.3);

    painter.fillRect(frame, ground);
    QLinearGradient bar(0, frame.top(), 0, frame.top() + titleBar);
    bar.setColorAt(0, ground);
    bar.setColorAt(1, barEnd);
    painter.fillRect(QRect(frame.left(), frame.top(), frame.width(), titleBar), bar);
    painter.setPen(outline);
    painter.drawRect(frame.adjusted(1, 1, -2, -2));
    painter.drawLine(frame.left() + 1, frame.top() + titleBar, frame.right() - 1, frame.top() + titleBar);
    painter.setPen(Contrast::over(Qt::black, ground, 0.7));
    painter.drawRect(frame.adjusted(0, 0, -1, -1));

    painter.setPen(ink);
    painter.setFont(titleFont(font()));
    painter.drawText(QRect(frame.left(), frame.top(), frame.width(), titleBar), Qt::AlignCenter, titleText);

    painter.setFont(font());
    const QFontMetrics metrics(font());
    int y = frame.top() + titleBar + 6;
    const int textWidth = frame.width() - 16;
    for (const QString& line : descriptionText.split(QLatin1Char('\n'))) {
        if (line.trimmed().isEmpty()) {
            y += metrics.height() / 2;
            continue;
        }
        const QRect lineArea = metrics.boundingRect(QRect(0, 0, textWidth, 100000), Qt::TextWordWrap, line);
        painter.drawText(QRect(frame.left() + 8, y, textWidth, lineArea.height()), Qt::AlignLeft | Qt::TextWordWrap,
                         line);
        y += lineArea.height();
    }
}
