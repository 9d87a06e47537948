#pragma once

#include <QJsonObject>
#include <QString>
#include <QVector>

// The project images a component shows, read from its JSON the way the
// canvas reads them: pictures, tiled pictures, icon sets, gauge and window
// skins, and the face sheet of an actor from the database. So a game maker
// can learn which images a document needs before the game does.
namespace ComponentImages {

struct Reference {
    // The graphics kind (ProjectImages::Kind) and the name without extension.
    int kind;
    QString name;
    // "img/pictures/Foo.png", as the project holds it.
    QString file() const;
};

// The references of the component itself, not of its children. An empty
// name and a value that isn't a name (one the game works out at run time)
// refer to nothing.
QVector<Reference> of(const QJsonObject& component, const QJsonObject* projectData);

}
