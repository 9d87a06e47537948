#include "components/ComponentImages.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"
#include "components/UIComponentActorFace.h"

namespace ComponentImages {

namespace {

// Where each kind that names an image keeps the name.
struct ImageField {
    int type;
    const char* dataKey;
    const char* key;
    int kind;
};

const ImageField Fields[] = {
    {ComponentKinds::Picture, "PictureData", "Picture", ProjectImages::Pictures},
    {ComponentKinds::RepeatingPicture, "RepeatData", "Picture", ProjectImages::Pictures},
    {ComponentKinds::PictureGauge, "PictureGaugeData", "GaugeSkin", ProjectImages::System},
    {ComponentKinds::Window, "WindowData", "WindowSkin", ProjectImages::System},
    {ComponentKinds::Icon, "IconData", "IconSet", ProjectImages::System},
};

}

QString Reference::file() const
{
    return ProjectImages::relativeFolder(kind) + QLatin1Char('/') + name + QStringLiteral(".png");
}

QVector<Reference> of(const QJsonObject& component, const QJsonObject* projectData)
{
    QVector<Reference> references;
    const int type = component.value(QStringLiteral("Type")).toInt(-1);
    if (type == ComponentKinds::ActorFace) {
        const QString face = UIComponentActorFace::faceName(component, projectData);
        if (!face.isEmpty())
            references.append({ProjectImages::Faces, face});
        return references;
    }
    for (const ImageField& field : Fields) {
        if (field.type != type)
            continue;
        const QJsonValue name =
            component.value(QLatin1String(field.dataKey)).toObject().value(QLatin1String(field.key));
        if (name.isString() && !name.toString().isEmpty())
            references.append({field.kind, name.toString()});
    }
    return references;
}

}
