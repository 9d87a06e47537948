#include "logic/AddonDisplay.h"

#include "logic/AddonTables.h"
#include "logic/GameDataLabel.h"
#include "logic/RMCodeInput.h"
#include "widgets/UltimateTreeItem.h"

#include <QCoreApplication>
#include <QJsonObject>

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("", text);
}

// A number of a filter, or "[DYNAMIC]" when the game gives it.
QString filterNumber(const QJsonValue& value)
{
    return value.isDouble() ? QString::number(value.toInt()) : translated(QT_TR_NOOP("[DYNAMIC]"));
}

QString code(const QJsonObject& addon)
{
    return RMCodeInput::singleLine(addon.value(QStringLiteral("Code")).toString());
}

QString commonEvent(const QJsonObject& addon, const QJsonObject* projectData)
{
    return GameDataLabel::databaseEntry(projectData, QStringLiteral("CommonEvents.json"),
                                        addon.value(QStringLiteral("ID")).toInt());
}

QString filterText(const QJsonObject& addon)
{
    switch (addon.value(QStringLiteral("FilterType")).toInt()) {
    case 1:
        return translated(QT_TR_NOOP("Tone: %1")).arg(addon.value(QStringLiteral("Tone")).toString());
    case 2:
        return translated(QT_TR_NOOP("Blend: %1")).arg(addon.value(QStringLiteral("Blend")).toString());
    case 3:
        return translated(QT_TR_NOOP("Brightness: %1%")).arg(filterNumber(addon.value(QStringLiteral("Brightness"))));
    default:
        return translated(QT_TR_NOOP("Hue: %1")).arg(filterNumber(addon.value(QStringLiteral("Hue"))));
    }
}

QString hoverText(const QJsonObject& addon, const QJsonObject* projectData)
{
    switch (addon.value(QStringLiteral("HoverType")).toInt()) {
    case 1:
        return translated(QT_TR_NOOP("On Leave %1")).arg(commonEvent(addon, projectData));
    case 2:
        return translated(QT_TR_NOOP("Bind to %1"))
            .arg(GameDataLabel::switchEntry(projectData, addon.value(QStringLiteral("ID")).toInt()));
    case 3:
        return code(addon);
    default:
        return translated(QT_TR_NOOP("On Hover %1")).arg(commonEvent(addon, projectData));
    }
}

}

QString addonTypeText(const QJsonObject& addon)
{
    const AddonTables::Kind* kind = AddonTables::kind(addon.value(QStringLiteral("Type")).toInt(-1));
    return kind ? translated(kind->listText) : QString();
}

QString addonDataText(const QJsonObject& addon, const QJsonObject* projectData)
{
    using namespace AddonTables;
    switch (addon.value(QStringLiteral("Type")).toInt(-1)) {
    case Note:
        return RMCodeInput::singleLine(addon.value(QStringLiteral("Note")).toString());
    case ColorFilter:
        return filterText(addon);
    case Hover:
        return hoverText(addon, projectData);
    case Click:
        if (addon.value(QStringLiteral("ClickType")).toInt() == 1)
            return code(addon);
        return translated(QT_TR_NOOP("On Click %1")).arg(commonEvent(addon, projectData));
    case CodeProperty: {
        const Property* entry = property(addon.value(QStringLiteral("Property")).toInt(-1));
        return QStringLiteral("%1: %2").arg(entry ? translated(entry->label) : QString(), code(addon));
    }
    case CodeBehavior: {
        const int behavior = addon.value(QStringLiteral("Behavior")).toInt(-1);
        const char* label = behaviors().value(behavior, nullptr);
        return QStringLiteral("%1: %2").arg(label ? translated(label) : QString(), code(addon));
    }
    default:
        return QString();
    }
}

void addonDisplay(UltimateTreeItem* item, const QJsonObject& addon, const QJsonObject* projectData)
{
    item->setText(0, addonTypeText(addon));
    item->setText(1, addonDataText(addon, projectData));
}
