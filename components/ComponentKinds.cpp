#include "components/ComponentKinds.h"

#include <QCoreApplication>
#include <QPixmap>

QStringList customExpansionStack;

namespace ComponentKinds {

const QVector<Kind>& all()
{
    using S = SizeStorage;
    static const QVector<Kind> kinds = {
        {Text, QT_TR_NOOP("Text"), "text", "TextData", QT_TR_NOOP("Text (ID %1)"), false, true, true, S::Scale, 0},
        {Shape, QT_TR_NOOP("Shape"), "shape", "ShapeData", QT_TR_NOOP("Shape (ID %1)"), false, true, true, S::Size, 1},
        {Picture, QT_TR_NOOP("Picture"), "picture", "PictureData", QT_TR_NOOP("Picture (ID %1)"), false, true, true,
         S::Scale, 0},
        {RepeatingPicture, QT_TR_NOOP("Repeating Picture"), "repeatingPicture", "RepeatData",
         QT_TR_NOOP("Repeat Pic. (ID %1)"), false, true, true, S::Size, 17},
        {Gauge, QT_TR_NOOP("Gauge"), "gauge", "GaugeData", QT_TR_NOOP("Gauge (ID %1)"), false, true, true, S::Size, 1},
        {PictureGauge, QT_TR_NOOP("Picture Gauge"), "pictureGauge", "PictureGaugeData",
         QT_TR_NOOP("Picture Gauge (ID %1)"), false, true, true, S::Size, 1},
        {Group, QT_TR_NOOP("Group"), "container", "GroupData", QT_TR_NOOP("Group (ID %1)"), true, false, false,
         S::Fixed, 0},
        {Window, QT_TR_NOOP("Window"), "window", "WindowData", QT_TR_NOOP("Window (ID %1)"), true, true, false,
         S::Size, 9},
        {ActorFace, QT_TR_NOOP("Actor Face"), "actorFace", "ActorFaceData", QT_TR_NOOP("Actor Face (ID %1)"), false,
         true, true, S::Scale, 0},
        {Icon, QT_TR_NOOP("Icon"), "icon", "IconData", QT_TR_NOOP("Icon (ID %1)"), false, true, true, S::Scale, 0},
        {Custom, QT_TR_NOOP("Custom"), "custom", "CustomData", QT_TR_NOOP("Custom (ID %1)"), false, false, false,
         S::FromCustom, 1},
        {CustomCollection, QT_TR_NOOP("Custom Collection"), "customCollection", "CustomCollectionData",
         QT_TR_NOOP("Custom Collection (ID %1)"), false, false, false, S::FromCustom, 1},
        {AttachCollection, QT_TR_NOOP("Attach Collection"), "attachCollection", "AttachCollectionData",
         QT_TR_NOOP("Attach Collection (ID %1)"), false, false, false, S::FromCustom, 1},
        {Animation, QT_TR_NOOP("Animation"), "animation", "AnimationData", QT_TR_NOOP("Animation (ID %1)"), false,
         true, true, S::Scale, 0},
    };
    return kinds;
}

const Kind* find(int type)
{
    const QVector<Kind>& kinds = all();
    return type >= 0 && type < kinds.size() ? &kinds[type] : nullptr;
}

QString label(int type)
{
    const Kind* kind = find(type);
    return kind ? QCoreApplication::translate("", kind->label) : QString();
}

int capabilities(int type)
{
    const Kind* kind = find(type);
    return kind ? kind->capabilities : 0;
}

QString dialogTitle(int type, int id)
{
    const Kind* kind = find(type);
    return kind ? QCoreApplication::translate("", kind->title).arg(id) : QString();
}

QSize storedSize(const QJsonObject& json, const char* dataKey)
{
    const QJsonObject data = json.value(QLatin1String(dataKey)).toObject();
    return QSize(data.value(QStringLiteral("Width")).toInt(100), data.value(QStringLiteral("Height")).toInt(100));
}

void writeStoredSize(QJsonObject& json, const char* dataKey, const QSize& size)
{
    QJsonObject data = json.value(QLatin1String(dataKey)).toObject();
    data.insert(QStringLiteral("Width"), size.width());
    data.insert(QStringLiteral("Height"), size.height());
    json.insert(QLatin1String(dataKey), data);
}

QColor unavailableGraphicsColor()
{
    return QColor(0, 0, 0, 90);
}

QPixmap unavailableGraphics(const QSize& size)
{
    if (size.isEmpty())
        return QPixmap();
    QPixmap block(size);
    block.fill(unavailableGraphicsColor());
    return block;
}

}
