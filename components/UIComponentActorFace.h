#pragma once

#include "components/DrawnPixmap.h"
#include "components/ComponentScale.h"
#include "scene/UIComponentBase.h"

#include <QJsonObject>
#include <QPixmap>

// An actor's face from the database: the cell of the actor's face sheet
// that "faceIndex" names. An actor the game picks at run time previews as
// the first actor. Its size is a scale of the 144-pixel cell.
class UIComponentActorFace : public UIComponentBase
{
    Q_OBJECT
public:
    // projectData is the project's database, not owned; null shows the
    // first actor's default face.
    UIComponentActorFace(GameUIEditorScene* scene, QJsonObject* projectData, QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    void resized() override;
    QJsonObject& data() override;

    // The face sheet and the cell on it that a component's data shows: the
    // database actor's "faceName" and "faceIndex", the first actor for one
    // the game picks at run time.
    static QString faceName(const QJsonObject& json, const QJsonObject* projectData, int* faceIndex = nullptr);

    // The side of a face cell on RPG Maker's face sheets, four to a row.
    static constexpr int faceSide = 144;

    QPixmap pixmap;
    DrawnPixmap drawn;
    int naturalWidth = 0;
    int naturalHeight = 0;
    QJsonObject* projectData;

private:
    ComponentScale scale;
};
