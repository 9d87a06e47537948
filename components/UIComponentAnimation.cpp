#include "components/UIComponentAnimation.h"

#include "components/ComponentKinds.h"
#include "logic/GameDataLabel.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

// Draws a line of the card black and moved by two pixels, then white in
// place: a text with a dark shadow.
void shadowedText(QPainter& painter, const QRect& box, int flags, const QString& text)
{
    painter.save();
    painter.translate(2, 2);
    painter.setPen(Qt::black);
    painter.drawText(box, flags, text);
    painter.restore();
    painter.setPen(Qt::white);
    painter.drawText(box, flags, text);
}

}

UIComponentAnimation::UIComponentAnimation(GameUIEditorScene* scene, QJsonObject* projectData, QGraphicsItem* parent)
    : UIComponentBase(scene, parent), projectData(projectData)
{
}

QPixmap UIComponentAnimation::card(int id, const QString& name)
{
    QPixmap picture(cell, cell);
    picture.fill(QColor(180, 80, 60, 125));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = painter.font();
    font.setPixelSize(24);
    painter.setFont(font);
    shadowedText(painter, QRect(0, 0, cell, 52), Qt::AlignHCenter | Qt::AlignBottom,
                 QStringLiteral("[%1]").arg(GameDataLabel::paddedId(id)));

    // A long name shrinks in steps down to 14 pixels before it is cut.
    int size = 24;
    double advance = QFontMetrics(font).horizontalAdvance(name);
    while (advance >= cell + 1 && size >= 16) {
        size -= 2;
        font.setPixelSize(size);
        advance = QFontMetrics(font).horizontalAdvance(name);
    }
    painter.setFont(font);
    QString shown = name;
    if (advance > cell)
        shown = QFontMetrics(font).elidedText(name, Qt::ElideRight, 140);
    shadowedText(painter, QRect(0, 92, cell, 52), Qt::AlignHCenter | Qt::AlignTop, shown);

    // The point the game centres the animation on.
    painter.setOpacity(0.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRect(69, 69, 6, 6));
    return picture;
}

void UIComponentAnimation::drawContents(QPainter* painter)
{
    // The card's text stays crisp: never smoothed, at any zoom.
    drawn.draw(painter, drawnRect(), pixmap, zoomFactor(), QPainter::RenderHints());
}

int UIComponentAnimation::minimumWidth() const { return 25; }
int UIComponentAnimation::maximumWidth() const { return 5 * naturalWidth; }
int UIComponentAnimation::minimumHeight() const { return 25; }
int UIComponentAnimation::maximumHeight() const { return 5 * naturalHeight; }

void UIComponentAnimation::setData(const QJsonObject& json)
{
    const QJsonObject animation = json.value(QStringLiteral("AnimationData")).toObject();
    const int id = readInteger(animation.value(QStringLiteral("AnimationID")), 1);
    pixmap = card(id, GameDataLabel::databaseName(projectData, QStringLiteral("Animations.json"), id));
    naturalWidth = naturalHeight = cell;
    scale.read(json);
    const QSize size = scale.sizeFor(QSize(naturalWidth, naturalHeight));
    setWidth(size.width());
    setHeight(size.height());
    UIComponentBase::setData(json);
}

void UIComponentAnimation::resized()
{
    scale.forget();
}

QJsonObject& UIComponentAnimation::data()
{
    QJsonObject& json = UIComponentBase::data();
    scale.write(json, QSize(width, height), QSize(naturalWidth, naturalHeight));
    return json;
}
