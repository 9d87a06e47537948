#include "components/UIComponentIcon.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"

#include <QPainter>

namespace {

constexpr int sheetColumns = 16;
// The dialog takes sizes up to 99999; a document may hold any. The cell's
// picture is made at most this large and stretched to the cell's size, so a
// huge cell costs no more than a big one.
constexpr int largestCell = 100000;
constexpr int largestPicture = 2048;
// Far past any sheet: a larger index shows the same empty cell and keeps
// the cell's position inside int.
constexpr int farthestIndex = 100000;

}

UIComponentIcon::UIComponentIcon(GameUIEditorScene* scene, QGraphicsItem* parent) : UIComponentBase(scene, parent)
{
}

void UIComponentIcon::setData(const QJsonObject& json)
{
    const QJsonObject icon = json.value(QStringLiteral("IconData")).toObject();
    const QPixmap sheet = ProjectImages::pixmap(ProjectImages::System, icon.value(QStringLiteral("IconSet")).toString());
    // A size the game gives at run time previews as 32.
    const int side = qBound(0, readInteger(icon.value(QStringLiteral("IconSize")), 32), largestCell);
    naturalWidth = side;
    naturalHeight = side;
    const int made = qMin(side, largestPicture);
    if (sheet.isNull()) {
        pixmap = ComponentKinds::unavailableGraphics(QSize(made, made));
    } else if (made > 0) {
        const QJsonObject iconIndex = icon.value(QStringLiteral("IconIndex")).toObject();
        const int index = readInteger(iconIndex.value(QStringLiteral("Type")), 0) == 0
            ? qBound(-farthestIndex, readInteger(iconIndex.value(QStringLiteral("Number")), 1), farthestIndex)
            : 1;
        pixmap = QPixmap(made, made);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.scale(double(made) / side, double(made) / side);
        painter.drawPixmap(-(index % sheetColumns) * side, -(index / sheetColumns) * side, sheet);
    } else {
        pixmap = QPixmap();
    }
    scale.apply(this, json, QSize(naturalWidth, naturalHeight));
    UIComponentBase::setData(json);
}

void UIComponentIcon::drawContents(QPainter* painter)
{
    if (!pixmap.isNull())
        drawn.draw(painter, drawnRect(), pixmap, zoomFactor(), QPainter::SmoothPixmapTransform);
}

int UIComponentIcon::minimumWidth() const { return 25; }
int UIComponentIcon::maximumWidth() const { return 5 * naturalWidth; }
int UIComponentIcon::minimumHeight() const { return 25; }
int UIComponentIcon::maximumHeight() const { return 5 * naturalHeight; }

void UIComponentIcon::resized()
{
    scale.forget();
}

QJsonObject& UIComponentIcon::data()
{
    QJsonObject& json = UIComponentBase::data();
    scale.write(json, QSize(width, height), QSize(naturalWidth, naturalHeight));
    return json;
}
