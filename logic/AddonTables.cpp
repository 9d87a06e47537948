#include "logic/AddonTables.h"

#include <QCoreApplication>

namespace AddonTables {

const Kind* kind(int type)
{
    static const Kind kinds[TypeCount] = {
        {Note, QT_TR_NOOP("Note"), "note", QT_TR_NOOP("Note")},
        {ColorFilter, QT_TR_NOOP("Color Filter"), "filter", QT_TR_NOOP("Color Filter")},
        {Hover, QT_TR_NOOP("On Hover"), "hover", QT_TR_NOOP("Hover")},
        {Click, QT_TR_NOOP("On Click"), "click", QT_TR_NOOP("Click")},
        {CodeProperty, QT_TR_NOOP("Code Property"), "codeProperty",
         QT_TR_NOOP("Code Property")},
        {CodeBehavior, QT_TR_NOOP("Code Behavior"), "codeBehavior",
         QT_TR_NOOP("Code Behavior")},
    };
    return type >= 0 && type < TypeCount ? &kinds[type] : nullptr;
}

bool editable(const QJsonObject& addon)
{
    const int type = addon.value(QStringLiteral("Type")).toInt(-1);
    if (!kind(type))
        return false;
    const char* tabKey = type == ColorFilter ? "FilterType"
                         : type == Hover     ? "HoverType"
                         : type == Click     ? "ClickType"
                                             : nullptr;
    if (!tabKey || !addon.contains(QLatin1String(tabKey)))
        return true;
    const int tabs = type == Click ? 2 : 4;
    const QJsonValue tab = addon.value(QLatin1String(tabKey));
    return tab.isDouble() && tab.toDouble() == double(tab.toInt()) && tab.toInt() >= 0 && tab.toInt() < tabs;
}

const QVector<Property>& properties()
{
    static const char* const zero = "return 0;";
    static const char* const hundred = "return 100;";
    static const char* const ratio = "return 1.0; // 1.0 = 100%";
    static const QVector<Property> table = {
        {0, QT_TR_NOOP("X Position"), zero},      {1, QT_TR_NOOP("Y Position"), zero},
        {4, QT_TR_NOOP("Width"), hundred},        {5, QT_TR_NOOP("Height"), hundred},
        {2, QT_TR_NOOP("Width Scale"), ratio},    {3, QT_TR_NOOP("Height Scale"), ratio},
        {6, QT_TR_NOOP("Rotation"), zero},        {7, QT_TR_NOOP("Opacity"), ratio},
        {8, QT_TR_NOOP("Openness"), ratio},       {9, QT_TR_NOOP("Repeat Offset X"), zero},
        {10, QT_TR_NOOP("Repeat Offset Y"), zero},
    };
    return table;
}

const Property* property(int value)
{
    for (const Property& entry : properties()) {
        if (entry.value == value)
            return &entry;
    }
    return nullptr;
}

namespace {

bool offered(int value, int capabilities)
{
    switch (value) {
    case 2:
    case 3:
    case 4:
    case 5:
        return !(capabilities & NoSize);
    case 6:
        return !(capabilities & NoRotation);
    case 7:
        return !(capabilities & NoOpacity);
    case 8:
        return capabilities & Openness;
    case 9:
    case 10:
        return capabilities & RepeatOffset;
    default:
        return value == 0 || value == 1;
    }
}

}

QVector<Property> offeredProperties(int capabilities)
{
    QVector<Property> result;
    for (const Property& entry : properties()) {
        if (offered(entry.value, capabilities))
            result.append(entry);
    }
    return result;
}

const QVector<const char*>& behaviors()
{
    static const QVector<const char*> labels = {
        QT_TR_NOOP("On Create"), QT_TR_NOOP("On Child Create"),
        QT_TR_NOOP("On Update"), QT_TR_NOOP("On Destroy")};
    return labels;
}

bool accepts(int capabilities, const QJsonObject& addon)
{
    const QJsonValue type = addon.value(QStringLiteral("Type"));
    if (!type.isDouble() || !kind(type.toInt(-1)) || type.toDouble() != type.toInt())
        return false;
    if (type.toInt() != CodeProperty)
        return true;
    const QJsonValue value = addon.value(QStringLiteral("Property"));
    return value.isDouble() && offered(value.toInt(-1), capabilities);
}

QString hoverDefaultCode()
{
    return QStringLiteral("// Called on both hover and leave.\n// Use \"isHovered\" to distinguish.");
}

QString clickDefaultCode()
{
    return QStringLiteral("// Called on click.");
}

QString behaviorDefaultCode()
{
    return QStringLiteral("// Insert code here.");
}

}
