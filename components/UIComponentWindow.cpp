#include "components/UIComponentWindow.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"

#include <QJsonArray>
#include <QPainter>

namespace {

constexpr int largestSide = 5000;
// A document may hold any size; beyond this the window isn't drawn rather
// than asking for a picture no machine holds.
constexpr int largestPictureSide = 16384;
constexpr qint64 largestPictureArea = qint64(8192) * 4096;

// The frame's layout in the standard 192 by 192 skin: corners of 24 pixels
// around edges of 48, in the skin's right half.
constexpr int corner = 24;
constexpr int edge = 48;

QJsonObject windowData(const QJsonObject& json)
{
    return json.value(QStringLiteral("WindowData")).toObject();
}

// "Padding" and "Margin" that the game gives at run time count as their defaults.
int padding(const QJsonObject& window)
{
    return UIComponentBase::readInteger(window.value(QStringLiteral("Padding")), 12);
}

int margin(const QJsonObject& window)
{
    return UIComponentBase::readInteger(window.value(QStringLiteral("Margin")), 4);
}

}

UIComponentWindow::UIComponentWindow(GameUIEditorScene* scene, QGraphicsItem* parent) : UIComponentBase(scene, parent)
{
}

void UIComponentWindow::drawContents(QPainter* painter)
{
    if (pixmap.isNull())
        return;
    drawn.draw(painter, drawnRect(), pixmap, zoomFactor(),
                               QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

int UIComponentWindow::minimumWidth() const { return minimumSide; }
int UIComponentWindow::maximumWidth() const { return largestSide; }
int UIComponentWindow::minimumHeight() const { return minimumSideHeight; }
int UIComponentWindow::maximumHeight() const { return largestSide; }

void UIComponentWindow::setData(const QJsonObject& json)
{
    QJsonObject object = json;
    if (!object.contains(QStringLiteral("Children")))
        object.insert(QStringLiteral("Children"), QJsonArray());
    const QJsonObject window = windowData(object);
    const QSize size = ComponentKinds::storedSize(object, "WindowData");
    setWidth(size.width());
    setHeight(size.height());
    // A document may hold any number; the smallest side stays within the
    // sizes a window can have.
    minimumSide = minimumSideHeight =
        int(qBound(qint64(0), 2 * qint64(qMax(padding(window), margin(window))), qint64(largestSide)));
    skin = ProjectImages::pixmap(ProjectImages::System, window.value(QStringLiteral("WindowSkin")).toString());
    // Position, rotation and opacity as every component reads them; the
    // window is drawn once the object is stored.
    jsonData = object;
    renderWindow();
    UIComponentBase::setData(object);
}

void UIComponentWindow::resized()
{
    renderWindow();
}

void UIComponentWindow::renderWindow()
{
    const QJsonObject window = windowData(jsonData);
    // Kept within the picture's largest size, so that the sizes below stay
    // in int whatever a document holds.
    const int m = qBound(-largestPictureSide, margin(window), largestPictureSide);
    const double backgroundOpacity = window.value(QStringLiteral("BackgroundOpacity")).toDouble(75.0);
    const int w = width;
    const int h = height;
    pixmap = QPixmap();
    if (w <= 0 || h <= 0 || w > largestPictureSide || h > largestPictureSide
        || qint64(w) * h > largestPictureArea)
        return;
    pixmap = QPixmap(w, h);
    pixmap.fill(Qt::transparent);
    // A window without a skin is invisible, not a grey block.
    if (skin.width() < 1)
        return;
    QPainter painter(&pixmap);

    painter.save();
    painter.setOpacity(backgroundOpacity / 100.0);
    const int innerWidth = qMax(w - 2 * m, 0);
    const int innerHeight = qMax(h - 2 * m, 0);
    painter.drawPixmap(QRect(m, m, innerWidth, innerHeight), skin, QRect(0, 0, 96, 96));
    // The pattern comes from the skin's own lower-left quarter, whatever its
    // size, unlike the frame below.
    const int tileWidth = skin.width() / 2;
    const int tileHeight = skin.height() / 2;
    // Tiled from the background's corner and cut where it ends, in one
    // call however small the skin.
    if (w - 2 * m > 0 && h - 2 * m > 0 && tileWidth > 0 && tileHeight > 0)
        painter.drawTiledPixmap(QRect(m, m, innerWidth, innerHeight), skin.copy(0, tileHeight, tileWidth, tileHeight));
    painter.restore();

    // The frame is opaque and always read from the 192-pixel layout.
    const int edgeWidth = int(((w - edge) / double(edge)) * double(edge));
    const int edgeHeight = int(((h - edge) / double(edge)) * double(edge));
    const int right = w - corner;
    const int bottom = h - corner;
    painter.drawPixmap(QPoint(0, 0), skin, QRect(96, 0, corner, corner));
    painter.drawPixmap(QPoint(right, 0), skin, QRect(168, 0, corner, corner));
    painter.drawPixmap(QPoint(0, bottom), skin, QRect(96, 72, corner, corner));
    painter.drawPixmap(QPoint(right, bottom), skin, QRect(168, 72, corner, corner));
    // A window narrower than two corners gets a negative edge, handed to the
    // painter as it is.
    painter.drawPixmap(QRectF(corner, 0, edgeWidth, corner), skin, QRectF(120, 0, edge, corner));
    painter.drawPixmap(QRectF(corner, bottom, edgeWidth, corner), skin, QRectF(120, 72, edge, corner));
    painter.drawPixmap(QRectF(0, corner, corner, edgeHeight), skin, QRectF(96, 24, corner, edge));
    painter.drawPixmap(QRectF(right, corner, corner, edgeHeight), skin, QRectF(168, 24, corner, edge));
}

bool UIComponentWindow::canHaveChildren() const { return true; }
bool UIComponentWindow::canRotate() const { return false; }

QJsonObject& UIComponentWindow::data()
{
    QJsonObject& json = UIComponentBase::data();
    ComponentKinds::writeStoredSize(json, "WindowData", QSize(width, height));
    return json;
}
