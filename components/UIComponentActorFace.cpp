#include "components/UIComponentActorFace.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"

#include <QJsonArray>
#include <QPainter>

namespace {

constexpr int sheetColumns = 4;
// Far past any sheet: a larger index shows the same empty cell and keeps
// the cell's position inside int.
constexpr int farthestIndex = 1000000;

}

UIComponentActorFace::UIComponentActorFace(GameUIEditorScene* scene, QJsonObject* projectData, QGraphicsItem* parent)
    : UIComponentBase(scene, parent), projectData(projectData)
{
}

QString UIComponentActorFace::faceName(const QJsonObject& json, const QJsonObject* projectData, int* faceIndex)
{
    const QJsonObject face = json.value(QStringLiteral("ActorFaceData")).toObject();
    const QJsonObject actorId = face.value(QStringLiteral("ActorID")).toObject();
    // Only a database actor is known in the editor; any other way of naming
    // one shows the first actor.
    const int id = readInteger(actorId.value(QStringLiteral("Type")), 0) == 0
        ? readInteger(actorId.value(QStringLiteral("ID")), 1)
        : 1;
    // The array is indexed by id, as the game's data file is.
    const QJsonObject actor = projectData
        ? projectData->value(QStringLiteral("Actors.json")).toArray().at(id).toObject()
        : QJsonObject();
    if (faceIndex)
        *faceIndex = qBound(-farthestIndex, readInteger(actor.value(QStringLiteral("faceIndex")), 0), farthestIndex);
    return actor.value(QStringLiteral("faceName")).toString(QStringLiteral("Actor1"));
}

void UIComponentActorFace::setData(const QJsonObject& json)
{
    int faceIndex = 0;
    const QString sheetName = faceName(json, projectData, &faceIndex);
    const QPixmap sheet = ProjectImages::pixmap(ProjectImages::Faces, sheetName);
    if (sheet.isNull()) {
        pixmap = ComponentKinds::unavailableGraphics(QSize(faceSide, faceSide));
    } else {
        pixmap = QPixmap(faceSide, faceSide);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        // A cell past the sheet's end leaves the face transparent.
        painter.drawPixmap(-(faceIndex % sheetColumns) * faceSide, -(faceIndex / sheetColumns) * faceSide, sheet);
    }
    naturalWidth = pixmap.width();
    naturalHeight = pixmap.height();
    scale.apply(this, json, pixmap.size());
    UIComponentBase::setData(json);
}

void UIComponentActorFace::drawContents(QPainter* painter)
{
    drawn.draw(painter, drawnRect(), pixmap, zoomFactor(), QPainter::SmoothPixmapTransform);
}

int UIComponentActorFace::minimumWidth() const { return 25; }
int UIComponentActorFace::maximumWidth() const { return 5 * naturalWidth; }
int UIComponentActorFace::minimumHeight() const { return 25; }
int UIComponentActorFace::maximumHeight() const { return 5 * naturalHeight; }

void UIComponentActorFace::resized()
{
    scale.forget();
}

QJsonObject& UIComponentActorFace::data()
{
    QJsonObject& json = UIComponentBase::data();
    scale.write(json, QSize(width, height), QSize(naturalWidth, naturalHeight));
    return json;
}
