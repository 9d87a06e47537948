#include "widgets/MySlider.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/FormFieldPainter.h"
#include "widgets/LookAnimation.h"

#include <QEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPropertyAnimation>
#include <QtMath>

namespace {

QColor lightened(const QColor& color, int by)
{
    return QColor(qMin(255, color.red() + by), qMin(255, color.green() + by), qMin(255, color.blue() + by));
}

}

MySlider::MySlider(QWidget* parent)
    : QSlider(Qt::Horizontal, parent),
      hoverAnimation(new QPropertyAnimation(this, "currState", this)),
      valueAnimation(new QPropertyAnimation(this, "value", this))
{
    setCursor(Qt::PointingHandCursor);
    setMinimumHeight(46);
    valueAnimation->setEasingCurve(QEasingCurve::Linear);
    connect(valueAnimation, &QVariantAnimation::valueChanged, this, &MySlider::sliderMovedAni);
}

void MySlider::setCaption(const QString& text)
{
    captionText = text;
    update();
}

void MySlider::setFramed(bool on)
{
    framed = on;
    setMinimumHeight(framed ? 46 : 20);
    updateGeometry();
    update();
}

void MySlider::setCurrState(double value)
{
    hoverLook = value;
    update();
}

QSize MySlider::sizeHint() const
{
    return framed ? QSize(160, 46) : QSize(120, 20);
}

QSize MySlider::minimumSizeHint() const
{
    return framed ? QSize(60, 46) : QSize(40, 20);
}

double MySlider::ratio() const
{
    const double span = maximum() - minimum();
    const double r = span > 0 ? (value() - minimum()) / span : 0.0;
    return framed ? qBound(0.0, r, 1.0) : qBound(0.02, r, 0.99);
}

int MySlider::valueAt(int x, Qt::KeyboardModifiers modifiers) const
{
    const double r = qBound(0.0, double(x + 1 - 8) / qMax(1, width() - 16), 1.0);
    int result = qRound(minimum() + (maximum() - minimum()) * r);
    const bool control = modifiers & Qt::ControlModifier;
    if (snapMode || control) {
        int step = qMax(1, singleStep());
        if (snapMode && control)
            step *= 2;
        result = minimum() + qRound(double(result - minimum()) / step) * step;
    }
    return qBound(minimum(), result, maximum());
}

void MySlider::sliderMovedAni(const QVariant& animated)
{
    setValue(animated.toInt());
    emit sliderMoved(value());
}

void MySlider::glideTo(int target)
{
    if (valueAnimation->state() != QAbstractAnimation::Stopped) {
        valueAnimation->setEndValue(target);
        return;
    }
    const int span = qMax(1, qAbs(maximum()));
    valueAnimation->setStartValue(value());
    valueAnimation->setEndValue(target);
    valueAnimation->setDuration(qAbs(value() - target) * 150 / span);
    valueAnimation->start();
}

void MySlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    dragging = true;
    setSliderDown(true);
    glideTo(valueAt(event->pos().x(), event->modifiers()));
    event->accept();
}

void MySlider::mouseMoveEvent(QMouseEvent* event)
{
    if (!dragging)
        return;
    const int target = valueAt(event->pos().x(), event->modifiers());
    if (valueAnimation->state() != QAbstractAnimation::Stopped) {
        valueAnimation->setEndValue(target);
    } else if (target != value()) {
        setValue(target);
        emit sliderMoved(value());
    }
}

void MySlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && dragging) {
        dragging = false;
        setSliderDown(false);
    }
}

bool MySlider::event(QEvent* event)
{
    if (const int change = LookAnimation::hoverChange(this, event))
        LookAnimation::run(hoverAnimation, hoverLook, change > 0 ? 8.0 : 0.0, 8, 150, QEasingCurve::Linear);
    return QSlider::event(event);
}

void MySlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const double s = isEnabled() ? hoverLook : 0.0;
    int w = width() - 1;
    int trackY;
    if (framed) {
        w = FormFieldPainter::begin(painter, this);
        const QColor background = themeColor(ThemeKey::SliderBackgroundAlt);
        FormFieldPainter::frame(painter, w, {themeColor(ThemeKey::SliderBase), themeColor(ThemeKey::SliderHover), background},
                                s / 8.0);
        FormFieldPainter::caption(painter, this, w, captionText, background, (s + 11) / 19.0);
        trackY = 3 + 20 + 10;
    } else {
        if (!isEnabled())
            painter.setOpacity(0.5);
        trackY = height() / 2;
    }

    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track(8.5, trackY - 2, w - 16, 4);
    painter.setPen(QPen(themeColor(ThemeKey::SliderOutline), 1));
    painter.setBrush(themeColor(ThemeKey::SliderBackground));
    painter.drawRoundedRect(track, 2, 2);
    const double r = ratio();
    const double handleX = (w - 17) * r + 9;
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeColor(ThemeKey::SliderPrimary));
    painter.drawRoundedRect(QRectF(track.left() + 1, track.top() + 1, qMax(0.0, handleX - track.left() - 1),
                                   track.height() - 2),
                            1.5, 1.5);

    // The handle grows with the hover look.
    const double side = s + 6;
    const QRectF handle(handleX - side / 2, trackY - side / 2, side, side);
    QLinearGradient gradient(handle.topLeft(), handle.bottomLeft());
    const int lift = int(10 * s / 8.0);
    gradient.setColorAt(0, lightened(themeColor(ThemeKey::SliderButtonTop), lift));
    gradient.setColorAt(1, lightened(themeColor(ThemeKey::SliderButtonBottom), lift));
    painter.setBrush(gradient);
    painter.setPen(QPen(themeColor(ThemeKey::SliderButtonOutline), 1));
    painter.drawRoundedRect(handle, 3, 3);
}
