#include "components/UIComponentText.h"

#include "components/ProjectFonts.h"
#include "logic/DynamicValueDisplay.h"
#include "scene/GameUIEditorScene.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStaticText>
#include <QtMath>

#include <cmath>

namespace {

// The dynamic text's kinds (its "Type") that have a sample of their own.
enum DynamicType { Plain = 0, General = 1, Switch = 2, Variable = 3, ActorData = 4, EnemyData = 5, ItemCount = 6,
                   Code = 7 };

// The sample of a general game value ("Info" of "Type" 1); empty for the
// values shown by their description.
QString generalSample(int info)
{
    switch (info) {
    case 0: case 2: case 3: case 102: case 103: case 202: case 203: case 204: case 205: case 206:
        return QStringLiteral("123");
    case 4: case 5: case 6: case 7: case 105: case 106: case 200:
        return QStringLiteral("12345");
    case 100:
        return QStringLiteral("4");
    case 101:
        return QStringLiteral("123456");
    case 104:
        return QStringLiteral("Down");
    case 201:
        return QStringLiteral("00:00:00");
    default:
        return QString();
    }
}

// Beyond these the text can't be drawn into a picture a machine holds: a
// document's "FontSize": 1e9 draws at the largest size instead of failing.
constexpr int largestFontSize = 1000;
constexpr int largestOutline = 1000;
constexpr int largestPictureSide = 16384;
// The most pixels a picture of the text may hold (128 MB): a side of 16384
// is fine for a long line, not for a square.
constexpr qint64 largestPictureArea = qint64(8192) * 4096;
constexpr int largestNaturalWidth = 100000000;

}

UIComponentText::UIComponentText(GameUIEditorScene* scene, QGraphicsItem* parent) : UIComponentBase(scene, parent)
{
}

QString UIComponentText::previewText(const QJsonObject& text, const QJsonObject* projectData, bool* dynamic)
{
    *dynamic = false;
    const int type = readInteger(text.value(QStringLiteral("Type")), Plain);
    const int info = readInteger(text.value(QStringLiteral("Info")), 0);
    switch (type) {
    case General: {
        const QString sample = generalSample(info);
        if (!sample.isEmpty())
            return sample;
        break;
    }
    case Switch: {
        const QJsonValue off = text.value(QStringLiteral("OffText"));
        if (off.isObject())
            return tr("[DYNAMIC]");
        return off.toVariant().toString();
    }
    case Variable:
    case ItemCount:
        return QStringLiteral("123");
    case ActorData:
    case EnemyData:
        if (info != 0)
            return QStringLiteral("123");
        break;
    case Code:
        return text.value(QStringLiteral("Display")).toVariant().toString();
    default:
        break;
    }
    *dynamic = type != Plain;
    return dynamicTextDisplay(text, projectData);
}

void UIComponentText::setData(const QJsonObject& json)
{
    const QJsonObject text = json.value(QStringLiteral("TextData")).toObject();
    const QJsonObject* projectData = editorScene ? editorScene->projectDataObject() : nullptr;
    displayText = previewText(text.value(QStringLiteral("Text")).toObject(), projectData, &dynamicLook);
    fontFamily = text.value(QStringLiteral("FontFamily")).toString();
    if (fontFamily.isEmpty())
        fontFamily = ProjectFonts::mainFontName(projectData);
    font = ProjectFonts::font(fontFamily);
    fontSize = readInteger(text.value(QStringLiteral("FontSize")), 30);
    font.setPixelSize(qBound(1, fontSize, largestFontSize));
    font.setItalic(dynamicLook);
    render(text);

    scale.read(json);
    const QSize size = scale.sizeFor(QSize(naturalWidth, naturalHeight));
    setWidth(size.width());
    setHeight(size.height());
    UIComponentBase::setData(json);
}

void UIComponentText::render(const QJsonObject& text)
{
    const QFontMetricsF metrics(font);
    const double advance = metrics.horizontalAdvance(displayText);
    const double lineHeight = metrics.height();
    const int outline = qBound(0, readInteger(text.value(QStringLiteral("OutlineSize")), 0), largestOutline);
    const double radius = outline * 0.5;
    const int alignment = readInteger(text.value(QStringLiteral("Alignment")), 1);

    // Kept well inside int, so that the outline and the size limits of five
    // times this width can be added and multiplied.
    const int boxWidth =
        qBound(-largestPictureSide, readInteger(text.value(QStringLiteral("MaxWidth")), int(advance + 50)),
               largestNaturalWidth);
    naturalWidth = boxWidth + outline;
    naturalHeight = int(lineHeight + outline);
    drawn.forget();
    const int pictureWidth = int(std::ceil(double(boxWidth) + outline));
    const int pictureHeight = int(std::ceil(lineHeight + outline));
    if (pictureWidth <= 0 || pictureHeight <= 0 || pictureWidth > largestPictureSide
        || pictureHeight > largestPictureSide || qint64(pictureWidth) * pictureHeight > largestPictureArea) {
        pixmap = QPixmap();
        return;
    }
    pixmap = QPixmap(pictureWidth, pictureHeight);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    if (naturalWidth < advance) {
        // Text wider than its box is squeezed into it, not cut off. The box
        // is compared with the text alone, without its outline.
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.scale(naturalWidth / std::ceil(outline + advance), naturalHeight / std::ceil(lineHeight + outline));
    } else {
        // The text's own width within the box, placed by the alignment.
        const int free = naturalWidth - int(advance);
        painter.translate(alignment == 0 ? 0 : alignment == 1 ? free / 2 : free, 0);
    }
    painter.setFont(font);
    // Laid out once, drawn seventeen times. The line is exactly as wide and
    // high as the rectangle it is drawn in, so its top-left corner is the
    // rectangle's whatever the alignment.
    QStaticText line(displayText);
    line.setTextFormat(Qt::PlainText);
    line.prepare(painter.transform(), font);
    if (radius > 0) {
        // Sixteen copies around a circle make the outline round.
        const double outlineOpacity = text.value(QStringLiteral("OutlineOpacity")).toDouble(100.0);
        const bool translucent = outlineOpacity < 100;
        if (translucent) {
            // Overlapping copies replace each other instead of building up,
            // so that the outline stays even.
            painter.save();
            painter.setOpacity(outlineOpacity / 100);
            painter.setCompositionMode(QPainter::CompositionMode_Source);
        }
        painter.setPen(QColor(text.value(QStringLiteral("OutlineColor")).toString(QStringLiteral("#000000"))));
        for (int k = 0; k < 16; ++k) {
            const double angle = k * M_PI / 8;
            painter.drawStaticText(QPointF(std::cos(angle) * radius + radius, std::sin(angle) * radius + radius), line);
        }
        if (translucent)
            painter.restore();
    }
    painter.setPen(QColor(text.value(QStringLiteral("Color")).toString(QStringLiteral("#ffffff"))));
    painter.drawStaticText(QPointF(radius, radius), line);
}

void UIComponentText::drawContents(QPainter* painter)
{
    drawn.draw(painter, drawnRect(), pixmap, zoomFactor(), QPainter::SmoothPixmapTransform);
}

int UIComponentText::minimumWidth() const { return 25; }
int UIComponentText::maximumWidth() const { return 5 * naturalWidth; }
int UIComponentText::minimumHeight() const { return 25; }
int UIComponentText::maximumHeight() const { return 5 * naturalHeight; }

void UIComponentText::resized()
{
    scale.forget();
}

void UIComponentText::zoomChanged()
{
    drawn.forget();
    UIComponentBase::zoomChanged();
}

QJsonObject& UIComponentText::data()
{
    QJsonObject& json = UIComponentBase::data();
    scale.write(json, QSize(width, height), QSize(naturalWidth, naturalHeight));
    return json;
}
