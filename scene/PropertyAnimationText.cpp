#include "scene/PropertyAnimationText.h"

#include <QCoreApplication>

namespace PropertyAnimationText {

namespace {

enum class Unit { Integer, Fraction, Degrees };

struct Property {
    const char* name;
    const char* startKey;
    const char* endKey;
    Unit unit;
    double fallback;
};

// By "Property". Repeat offset X and Y share their keys; "Property" tells them apart.
const Property properties[] = {
    {QT_TR_NOOP("X-Pos"), "StartX", "EndX", Unit::Integer, 0},
    {QT_TR_NOOP("Y-Pos"), "StartY", "EndY", Unit::Integer, 0},
    {QT_TR_NOOP("Width Scale"), "StartScaleWidth", "EndScaleWidth", Unit::Fraction, 1.0},
    {QT_TR_NOOP("Height Scale"), "StartScaleHeight", "EndScaleHeight", Unit::Fraction, 1.0},
    {QT_TR_NOOP("Width"), "StartWidth", "EndWidth", Unit::Integer, 0},
    {QT_TR_NOOP("Height"), "StartHeight", "EndHeight", Unit::Integer, 0},
    {QT_TR_NOOP("Rotation"), "StartRotation", "EndRotation", Unit::Degrees, 0},
    {QT_TR_NOOP("Opacity"), "StartOpacity", "EndOpacity", Unit::Fraction, 1.0},
    {QT_TR_NOOP("Openness"), "StartOpenness", "EndOpenness", Unit::Fraction, 1.0},
    {QT_TR_NOOP("Repeat Offset X"), "StartOffset", "EndOffset", Unit::Integer, 0},
    {QT_TR_NOOP("Repeat Offset Y"), "StartOffset", "EndOffset", Unit::Integer, 0},
    {QT_TR_NOOP("Brightness"), "StartBrightness", "EndBrightness", Unit::Fraction, 1.0},
    {QT_TR_NOOP("Hue"), "StartHue", "EndHue", Unit::Degrees, 0},
};

const Property* find(int property)
{
    const int count = int(sizeof(properties) / sizeof(properties[0]));
    return property >= 0 && property < count ? &properties[property] : nullptr;
}

QString valueText(const QJsonObject& animation, const Property& property, const char* key)
{
    const double value = animation.value(QLatin1String(key)).toDouble(property.fallback);
    switch (property.unit) {
    case Unit::Fraction:
        return QString::number(value * 100, 'g', 6) + QLatin1Char('%');
    case Unit::Degrees:
        return QString::number(qint64(value)) + QChar(0x00B0);
    default:
        return QString::number(qint64(value));
    }
}

}

QString propertyName(int property)
{
    const Property* found = find(property);
    return found ? QCoreApplication::translate("", found->name) : QString();
}

QStringList rowTexts(const QJsonObject& animation)
{
    const Property* property = find(animation.value(QStringLiteral("Property")).toInt(0));
    if (!property)
        return {QString(), QString(), QString()};
    return {QCoreApplication::translate("", property->name), valueText(animation, *property, property->startKey),
            valueText(animation, *property, property->endKey)};
}

}
