#include "components/UIComponentPictureGauge.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"

#include <QPainter>

namespace {

constexpr int largestWidth = 5000;
// The height of a bar whose skin is missing or can't be read.
constexpr int skinlessHeight = 24;
constexpr int defaultMargin = 15;

}

UIComponentPictureGauge::UIComponentPictureGauge(GameUIEditorScene* scene, QGraphicsItem* parent)
    : UIComponentBase(scene, parent)
{
}

int UIComponentPictureGauge::barHeight(const QPixmap& skin)
{
    // A skin lower than three pixels has no band to show; it counts as none
    // rather than making a bar no one can see or grab.
    return skin.height() < 3 ? skinlessHeight : skin.height() / 3;
}

void UIComponentPictureGauge::drawContents(QPainter* painter)
{
    drawn.draw(painter, drawnRect(), pixmap, zoomFactor(),
                               QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

int UIComponentPictureGauge::minimumWidth() const { return minimumBarWidth; }
int UIComponentPictureGauge::maximumWidth() const { return largestWidth; }
int UIComponentPictureGauge::minimumHeight() const { return fixedHeight; }
int UIComponentPictureGauge::maximumHeight() const { return fixedHeight; }

void UIComponentPictureGauge::setData(const QJsonObject& json)
{
    const QJsonObject gauge = json.value(QStringLiteral("PictureGaugeData")).toObject();
    setWidth(gauge.value(QStringLiteral("Width")).toInt(100));
    // A margin the game gives at run time previews as the default. Kept
    // within half the widest bar, so that the least width never passes the
    // greatest.
    edgeMargin = qBound(0, readInteger(gauge.value(QStringLiteral("EdgeMargin")), defaultMargin), largestWidth / 2);
    minimumBarWidth = 2 * edgeMargin;
    skin = ProjectImages::pixmap(ProjectImages::System, gauge.value(QStringLiteral("GaugeSkin")).toString());
    fixedHeight = barHeight(skin);
    setHeight(fixedHeight);
    renderBar();
    UIComponentBase::setData(json);
}

void UIComponentPictureGauge::resized()
{
    // A handle rounds the height to an even number, which a band of odd
    // height doesn't allow.
    if (height != fixedHeight)
        setHeight(fixedHeight);
    renderBar();
}

void UIComponentPictureGauge::renderBar()
{
    // A width far beyond the canvas (a hand-edited document) is drawn from
    // a bar of the greatest width, stretched.
    const int barWidth = qBound(0, width, largestWidth);
    pixmap = QPixmap(barWidth, height);
    pixmap.fill(Qt::transparent);
    if (pixmap.isNull())
        return;
    if (skin.height() < 3 || skin.width() < 1) {
        pixmap.fill(ComponentKinds::unavailableGraphicsColor());
        return;
    }
    const int skinWidth = skin.width();
    const int band = skin.height() / 3;
    const int margin = edgeMargin;
    QPainter painter(&pixmap);
    // The bottom band first, so that the top one lies in front.
    for (const int offset : {2 * band, band, 0}) {
        painter.drawPixmap(QRect(0, 0, margin, band), skin, QRect(0, offset, margin, band));
        painter.drawPixmap(QRect(barWidth - margin, 0, margin, band), skin,
                           QRect(skinWidth - margin, offset, margin, band));
        if (barWidth > 2 * margin && skinWidth > 2 * margin)
            painter.drawPixmap(QRect(margin, 0, barWidth - 2 * margin, band), skin,
                               QRect(margin, offset, skinWidth - 2 * margin, band));
    }
}

QJsonObject& UIComponentPictureGauge::data()
{
    QJsonObject& json = UIComponentBase::data();
    ComponentKinds::writeStoredSize(json, "PictureGaugeData", QSize(width, height));
    return json;
}
