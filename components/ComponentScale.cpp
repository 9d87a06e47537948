#include "components/ComponentScale.h"

#include "scene/UIComponentBase.h"

#include <QtGlobal>

#include <cmath>
#include <limits>

namespace {

// A document can hold any scale ("ScaleX": 1e308): the side it gives is
// clamped into int, since converting a double beyond it is undefined, and a
// product that is no number at all gives no side.
int scaledSide(int natural, double scale)
{
    const double side = std::trunc(natural * scale);
    if (std::isnan(side))
        return 0;
    return int(qBound(double(std::numeric_limits<int>::min()), side, double(std::numeric_limits<int>::max())));
}

double ratio(int size, int natural)
{
    // A picture with no pixels can't give a ratio; 1.0 keeps the document sane.
    if (size == natural || natural <= 0)
        return 1.0;
    return double(size) / natural;
}

}

void ComponentScale::read(const QJsonObject& json)
{
    scaleX = json.value(QStringLiteral("ScaleX")).toDouble(1.0);
    scaleY = json.value(QStringLiteral("ScaleY")).toDouble(1.0);
}

QSize ComponentScale::sizeFor(const QSize& natural) const
{
    return QSize(scaledSide(natural.width(), scaleX), scaledSide(natural.height(), scaleY));
}

void ComponentScale::apply(UIComponentBase* component, const QJsonObject& json, const QSize& natural)
{
    read(json);
    const QSize size = sizeFor(natural);
    component->setWidth(size.width());
    component->setHeight(size.height());
}

void ComponentScale::forget()
{
    scaleX = -1.0;
    scaleY = -1.0;
}

void ComponentScale::write(QJsonObject& json, const QSize& size, const QSize& natural) const
{
    if (scaleX >= 0 && scaleY >= 0) {
        json.insert(QStringLiteral("ScaleX"), scaleX);
        json.insert(QStringLiteral("ScaleY"), scaleY);
        return;
    }
    json.insert(QStringLiteral("ScaleX"), ratio(size.width(), natural.width()));
    json.insert(QStringLiteral("ScaleY"), ratio(size.height(), natural.height()));
}
