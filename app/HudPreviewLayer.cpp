#include "app/HudPreviewLayer.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QJsonObject>
#include <QFontMetricsF>
#include <QPainter>

namespace {

// Component kinds that store a size keep it in their own data object
// ("GaugeData", "WindowData", ...). Kinds that size themselves from their
// content (texts, faces) give an invalid size.
QSize componentSize(const QJsonObject& component)
{
    for (auto it = component.begin(); it != component.end(); ++it) {
        if (!it.key().endsWith(QLatin1String("Data")) || !it.value().isObject())
            continue;
        const QJsonObject kindData = it.value().toObject();
        if (kindData.contains(QStringLiteral("Width")) || kindData.contains(QStringLiteral("Height")))
            return QSize(kindData.value(QStringLiteral("Width")).toInt(100),
                         kindData.value(QStringLiteral("Height")).toInt(100));
    }
    return QSize();
}

}

HudPreviewLayer::HudPreviewLayer(QWidget* parent) : QWidget(parent)
{
    setMinimumSize(200, 160);
}

void HudPreviewLayer::loadFromJson(const QJsonArray& array)
{
    components = array;
    update();
}

void HudPreviewLayer::clear()
{
    components = QJsonArray();
    update();
}

void HudPreviewLayer::setScreenSize(int width, int height)
{
    screenWidth = qMax(1, width);
    screenHeight = qMax(1, height);
    update();
}

void HudPreviewLayer::setBackground(const QPixmap& pixmap)
{
    background = pixmap;
    update();
}

void HudPreviewLayer::setDarkenRatio(double ratio)
{
    darken = qBound(0.0, ratio, 1.0);
    update();
}

void HudPreviewLayer::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ThemeKey::MainFrameBackgroundColor));

    const qreal margin = 16;
    const qreal scale = qMin((width() - 2 * margin) / screenWidth, (height() - 2 * margin) / screenHeight);
    if (scale <= 0)
        return;
    const QSizeF size(screenWidth * scale, screenHeight * scale);
    const QRectF screen(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);

    // A checker board marks the transparent game screen.
    const int cell = 16;
    painter.save();
    painter.setClipRect(screen);
    for (int y = 0; y * cell < screen.height(); ++y) {
        for (int x = 0; x * cell < screen.width(); ++x) {
            const QColor shade = (x + y) % 2 ? QColor(0x6e, 0x6e, 0x78) : QColor(0x5a, 0x5a, 0x64);
            painter.fillRect(QRectF(screen.left() + x * cell, screen.top() + y * cell, cell, cell), shade);
        }
    }
    if (!background.isNull()) {
        painter.drawPixmap(screen, background, background.rect());
        painter.fillRect(screen, QColor(0, 0, 0, int(darken * 255)));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    drawComponents(painter, components, screen.topLeft(), scale, 0);
    painter.restore();

    painter.setPen(QPen(QColor(0, 0, 0), 1));
    painter.drawRect(screen.adjusted(-0.5, -0.5, 0.5, 0.5));
}

// Labels sit on the game screen, whatever the editor's theme: light text with
// a dark shadow reads on any HUD.
void HudPreviewLayer::drawLabel(QPainter& painter, const QPointF& baseline, const QString& text)
{
    painter.setPen(QColor(0, 0, 0, 200));
    painter.drawText(baseline + QPointF(1, 1), text);
    painter.setPen(QColor(0xf4, 0xf4, 0xf8));
    painter.drawText(baseline, text);
}

void HudPreviewLayer::drawComponents(QPainter& painter, const QJsonArray& array, const QPointF& origin,
                                     qreal scale, int depth) const
{
    static const QColor outlines[] = {QColor(0x64, 0xc8, 0xff), QColor(0x9c, 0xff, 0x9c),
                                      QColor(0xff, 0xc8, 0x64), QColor(0xff, 0x9c, 0xd2)};
    for (const QJsonValue& value : array) {
        const QJsonObject component = value.toObject();
        const QSize size = componentSize(component);
        const QPointF centre = origin + QPointF(component.value(QStringLiteral("X")).toDouble(),
                                                component.value(QStringLiteral("Y")).toDouble()) * scale;
        const QColor outline = outlines[depth % 4];
        if (!size.isValid()) {
            // Content-sized: a marker at its centre with the name beside it.
            painter.setPen(QPen(outline, 1));
            painter.setBrush(outline);
            painter.drawEllipse(centre, 2.5, 2.5);
            drawLabel(painter, centre + QPointF(5, 4), component.value(QStringLiteral("Name")).toString());
            drawComponents(painter, component.value(QStringLiteral("Children")).toArray(), centre, scale, depth + 1);
            continue;
        }
        const QRectF box(centre.x() - size.width() * scale / 2, centre.y() - size.height() * scale / 2,
                         size.width() * scale, size.height() * scale);
        painter.save();
        painter.translate(centre);
        painter.rotate(component.value(QStringLiteral("Rotation")).toDouble());
        painter.translate(-centre);
        QColor fill = outline;
        fill.setAlpha(40);
        painter.setPen(QPen(outline, 1));
        painter.setBrush(fill);
        painter.drawRect(box);
        // Names go only where they fit, so nested boxes don't smear into each other.
        const QRectF label = box.adjusted(3, 1, -3, -1);
        const QFontMetricsF metrics(painter.font());
        if (label.height() >= metrics.height() * 2 && label.width() >= metrics.averageCharWidth() * 4) {
            drawLabel(painter, label.topLeft() + QPointF(0, metrics.ascent()),
                      metrics.elidedText(component.value(QStringLiteral("Name")).toString(), Qt::ElideRight,
                                         label.width()));
        }
        painter.restore();
        // Children are placed relative to their parent's centre.
        drawComponents(painter, component.value(QStringLiteral("Children")).toArray(), centre, scale, depth + 1);
    }
}
