#include "components/UIComponentPicture.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"

namespace {

// The block that stands in for a picture that isn't there.
constexpr int missingSide = 64;

}

UIComponentPicture::UIComponentPicture(GameUIEditorScene* scene, QGraphicsItem* parent)
    : UIComponentBase(scene, parent)
{
}

void UIComponentPicture::setData(const QJsonObject& json)
{
    const QJsonObject picture = json.value(QStringLiteral("PictureData")).toObject();
    pixmap = ProjectImages::pixmap(ProjectImages::Pictures, picture.value(QStringLiteral("Picture")).toString());
    if (pixmap.isNull())
        pixmap = ComponentKinds::unavailableGraphics(QSize(missingSide, missingSide));
    naturalWidth = pixmap.width();
    naturalHeight = pixmap.height();
    scale.apply(this, json, pixmap.size());
    UIComponentBase::setData(json);
}

void UIComponentPicture::drawContents(QPainter* painter)
{
    drawn.draw(painter, drawnRect(), pixmap, zoomFactor(), QPainter::SmoothPixmapTransform);
}

int UIComponentPicture::minimumWidth() const { return 25; }
int UIComponentPicture::maximumWidth() const { return 5 * naturalWidth; }
int UIComponentPicture::minimumHeight() const { return 25; }
int UIComponentPicture::maximumHeight() const { return 5 * naturalHeight; }

void UIComponentPicture::resized()
{
    scale.forget();
}

QJsonObject& UIComponentPicture::data()
{
    QJsonObject& json = UIComponentBase::data();
    scale.write(json, QSize(width, height), QSize(naturalWidth, naturalHeight));
    return json;
}
