#include "scene/PropertyAnimationText.h"

#include <QCoreApplication>

namespace PropertyAnimationText {

namespace {

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

QString valueText(const QJsonObject& animation, const Property& shown, const char* key)
{
    const double value = animation.value(QLatin1String(key)).toDouble(shown.fallback);
    switch (shown.unit) {
    case Unit::Fraction:
        return QString::number(value * 100, 'g', 6) + QLatin1Char('%');
    case Unit::Degrees:
        return QString::number(qint64(value)) + QChar(0x00B0);
    default:
        return QString::number(qint64(value));
    }
}

}

int propertyCount()
{
    return int(sizeof(properties) / sizeof(properties[0]));
}

const Property* property(int number)
{
    return number >= 0 && number < propertyCount() ? &properties[number] : nullptr;
}

QString propertyName(int number)
{
    const Property* found = property(number);
    return found ? QCoreApplication::translate("", found->name) : QString();
}

QStringList rowTexts(const QJsonObject& animation)
{
    const Property* shown = property(animation.value(QStringLiteral("Property")).toInt(0));
    if (!shown)
        return {QString(), QString(), QString()};
    return {QCoreApplication::translate("", shown->name), valueText(animation, *shown, shown->startKey),
            valueText(animation, *shown, shown->endKey)};
}

}
