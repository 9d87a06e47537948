#pragma once

#include <QJsonObject>
#include <QSize>

class UIComponentBase;

// The size of a kind that stores a scale against its picture's natural size
// (Text, Picture, Actor Face, Icon, Animation). The read scales stand until a
// resize; after one the document gets the ratio of the new size instead.
class ComponentScale
{
public:
    // "ScaleX" and "ScaleY" of the component object, 1.0 when missing.
    void read(const QJsonObject& json);
    // Natural size times the scales, truncated.
    QSize sizeFor(const QSize& natural) const;
    // Reads the scales of json and sizes the component by them.
    void apply(UIComponentBase* component, const QJsonObject& json, const QSize& natural);
    // After a resize: the scales are recomputed from the size on the next write.
    void forget();
    void write(QJsonObject& json, const QSize& size, const QSize& natural) const;

    double scaleX = 1.0;
    double scaleY = 1.0;
};
