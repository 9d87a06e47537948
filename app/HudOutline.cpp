#include "app/HudOutline.h"

#include "app/HudDocument.h"
#include "components/ComponentKinds.h"
#include "logic/AddonDisplay.h"
#include "logic/ConditionDisplay.h"
#include "logic/DynamicValueDisplay.h"
#include "logic/HudCatalog.h"
#include "logic/RMActorSelector.h"
#include "logic/VelmoTextInputExtend.h"
#include "scene/PropertyAnimationText.h"
#include "scene/UsesCustomProperties.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QTextStream>

namespace HudOutline {

namespace {

// How a value of a data object is read, by the key it stands under in the
// kinds' data: the keys that hold a dynamic text, a dynamic number, a list
// or an actor. Any other object with a "Type" is the dynamic input of a
// field (a number or text that the game supplies).
enum class ValueKind { Text, Number, List, Actor, Input };

struct KindOfValue {
    const char* description;
    // The "Type" values this kind knows, from 0.
    int types;
};

KindOfValue kindOfValue(ValueKind kind)
{
    switch (kind) {
    case ValueKind::Text:
        return {"dynamic text", 10};
    case ValueKind::Number:
        return {"dynamic number", 10};
    case ValueKind::List:
        return {"list", 8};
    case ValueKind::Actor:
        return {"actor", 4};
    default:
        return {"dynamic input", 3};
    }
}

ValueKind valueKindOf(const QString& key)
{
    if (key == QLatin1String("Text"))
        return ValueKind::Text;
    if (key == QLatin1String("Value") || key == QLatin1String("Maximum") || key == QLatin1String("IconIndex"))
        return ValueKind::Number;
    if (key == QLatin1String("ListData"))
        return ValueKind::List;
    if (key == QLatin1String("ActorID"))
        return ValueKind::Actor;
    return ValueKind::Input;
}

bool hasIntegerType(const QJsonValue& value)
{
    const QJsonValue type = value.toObject().value(QStringLiteral("Type"));
    return value.isObject() && type.isDouble() && type.toDouble() == double(qint64(type.toDouble()));
}

QString valueText(ValueKind kind, const QJsonValue& value, const QJsonObject* projectData)
{
    const int type = hasIntegerType(value) ? value.toObject().value(QStringLiteral("Type")).toInt(-1) : -1;
    if (type < 0 || type >= kindOfValue(kind).types)
        return QStringLiteral("(unknown value)");
    const QJsonObject object = value.toObject();
    // A plain text or number whose literal was made dynamic (a custom
    // parameter, a variable, code) says which, where the editor's opener
    // only says "[DYNAMIC]".
    if ((kind == ValueKind::Text || kind == ValueKind::Number) && type == 0) {
        const QJsonValue literal =
            object.value(kind == ValueKind::Text ? QStringLiteral("Text") : QStringLiteral("Number"));
        if (hasIntegerType(literal))
            return valueText(ValueKind::Input, literal, projectData);
    }
    QString text;
    switch (kind) {
    case ValueKind::Text:
        text = dynamicTextDisplay(object, projectData);
        break;
    case ValueKind::Number:
        text = dynamicNumberDisplay(object, projectData);
        break;
    case ValueKind::List:
        text = dynamicListDisplay(object, projectData);
        break;
    case ValueKind::Actor:
        text = RMActorSelector::display(object, projectData);
        break;
    default:
        text = VelmoTextInputExtend::display(object);
        break;
    }
    return text.isEmpty() ? QStringLiteral("(empty)") : text;
}

// The kind of a dynamic text or number by its "Type", as its dialog's tabs
// name them: the display string alone reads the same for the label "Gold"
// and the party's gold.
const char* dynamicKindName(int type)
{
    static const char* const names[] = {"plain", "general", "switch", "variable", "actor data",
                                        "enemy data", "item count", "code", "math", "list"};
    return type >= 0 && type < int(sizeof(names) / sizeof(names[0])) ? names[type] : nullptr;
}

void writeValue(const QString& label, ValueKind kind, const QJsonValue& value, const QJsonObject* projectData,
                const QString& indent, QTextStream& out)
{
    out << indent << "- " << label << " (" << kindOfValue(kind).description;
    if ((kind == ValueKind::Text || kind == ValueKind::Number) && hasIntegerType(value)) {
        if (const char* name = dynamicKindName(value.toObject().value(QStringLiteral("Type")).toInt(-1)))
            out << ", " << name;
    }
    out << "): " << valueText(kind, value, projectData) << "\n";
}

// The custom HUD a Custom, Custom Collection or Attach Collection shows, as
// the HUD list names it; a reference no HUD answers to says so.
QString customHudText(const QJsonValue& reference)
{
    const QString identifier = reference.toString();
    if (identifier.isEmpty())
        return QStringLiteral("None");
    const QVector<HudCatalog::Row> rows = HudCatalog::rows();
    const HudCatalog::Row* row = HudCatalog::find(rows, identifier);
    if (!row)
        return QStringLiteral("(no HUD with ID \"%1\")").arg(identifier);
    if (row->type != HudCatalog::Custom)
        return HudCatalog::nameOf(*row);
    return QStringLiteral("\"%1\" (ID %2)").arg(HudCatalog::nameOf(*row), identifier);
}

// The values a use of a custom HUD gives its parameters: a text, a number,
// a dynamic number, or the cell's entry of the list (true).
void writeParameterValues(const QJsonObject& params, const QJsonObject* projectData, const QString& indent,
                          QTextStream& out)
{
    for (auto param = params.begin(); param != params.end(); ++param) {
        const QString label = QStringLiteral("Parameter \"%1\"").arg(param.key());
        const QJsonValue value = param.value();
        if (value.isObject()) {
            writeValue(label, ValueKind::Number, value, projectData, indent, out);
            continue;
        }
        out << indent << "- " << label;
        if (value.isString())
            out << " (text): " << value.toString() << "\n";
        else if (value.isDouble())
            out << " (number): " << QString::number(value.toDouble(), 'g', 6) << "\n";
        else if (value.isBool() && value.toBool())
            out << " (list data): [LIST DATA]\n";
        else
            out << ": (unknown value)\n";
    }
}

// The values of one data object in the order of their keys. A key the
// kinds name as a value is shown whatever it holds; elsewhere only what
// has the shape of a dynamic input. The data of the custom kinds first
// names the custom HUD it shows.
void writeData(const QJsonObject& data, const QJsonObject* projectData, bool customKind, const QString& indent,
               QTextStream& out)
{
    if (customKind)
        out << indent << "- Custom HUD: " << customHudText(data.value(HudDocument::KeyId)) << "\n";
    for (auto it = data.begin(); it != data.end(); ++it) {
        const QString key = it.key();
        // The add-ons have lines of their own.
        if (key == QLatin1String("Addons"))
            continue;
        if (customKind && key == HudDocument::KeyId)
            continue;
        if (key == QLatin1String("Params") && it.value().isObject()) {
            writeParameterValues(it.value().toObject(), projectData, indent, out);
            continue;
        }
        const ValueKind kind = valueKindOf(key);
        if (kind != ValueKind::Input || hasIntegerType(it.value()))
            writeValue(key, kind, it.value(), projectData, indent, out);
    }
}

// A component's display conditions, one line each with its one-line text.
void writeConditions(const QJsonObject& component, const QJsonObject* projectData, const QString& indent,
                     QTextStream& out)
{
    const QJsonValue conditions = component.value(QStringLiteral("Conditions"));
    if (conditions.isUndefined())
        return;
    if (!conditions.isArray()) {
        out << indent << "- Conditions: (not a list of conditions)\n";
        return;
    }
    int number = 0;
    for (const QJsonValue& condition : conditions.toArray())
        out << indent << "- Condition " << ++number << ": " << conditionEntryText(condition, projectData) << "\n";
}

// A component's property animations, one line each as its dialog's list
// reads them, and its custom properties in the user's order.
void writeExtras(const QJsonObject& component, const QJsonObject* projectData, const QString& indent,
                 QTextStream& out)
{
    for (const QJsonValue& value : component.value(QStringLiteral("Animations")).toArray()) {
        const QJsonObject animation = value.toObject();
        const QStringList texts = PropertyAnimationText::rowTexts(animation);
        out << indent << "- animation: ";
        if (texts.value(0).isEmpty())
            out << "(unknown property " << animation.value(QStringLiteral("Property")).toVariant().toString()
                << ")\n";
        else
            out << texts.value(0) << " from " << texts.value(1) << " to " << texts.value(2) << "\n";
    }
    const QJsonObject properties = component.value(QStringLiteral("CustomProperties")).toObject();
    if (properties.isEmpty())
        return;
    // The key the component's dialog keeps the order under on the canvas.
    const QString key = QStringLiteral("UILoc1ID%1").arg(component.value(QStringLiteral("ID")).toInt(0));
    const QJsonArray order = projectData ? projectData->value(UsesCustomProperties::OrdersFile)
                                               .toObject()
                                               .value(key)
                                               .toArray()
                                         : QJsonArray();
    for (const QString& name : UsesCustomProperties::orderedNames(properties, order))
        out << indent << "- property \"" << name
            << "\" = " << UsesCustomProperties::displayValue(properties.value(name).toString()) << "\n";
}

// A component's add-ons, one line each with their kind and one-line data.
void writeAddons(const QJsonObject& data, const QJsonObject* projectData, const QString& indent, QTextStream& out)
{
    const QJsonValue addons = data.value(QStringLiteral("Addons"));
    if (addons.isUndefined())
        return;
    if (!addons.isArray()) {
        out << indent << "- Add-ons: (not a list of add-ons)\n";
        return;
    }
    int number = 0;
    for (const QJsonValue& addon : addons.toArray()) {
        out << indent << "- Add-on " << ++number << ": ";
        const QString kind = addonTypeText(addon.toObject());
        if (!addon.isObject())
            out << "(not an add-on)\n";
        else if (kind.isEmpty())
            out << "(unknown add-on)\n";
        else
            out << kind << ": " << addonDataText(addon.toObject(), projectData) << "\n";
    }
}

QString sizeText(const QJsonObject& component, const ComponentKinds::Kind* kind)
{
    if (!kind)
        return QString();
    if (kind->size == ComponentKinds::SizeStorage::Fixed)
        return QStringLiteral(", 50 x 50");
    if (kind->size == ComponentKinds::SizeStorage::Scale)
        return QStringLiteral(", scale %1% x %2%")
            .arg(component.value(QStringLiteral("ScaleX")).toDouble(1.0) * 100, 0, 'g', 6)
            .arg(component.value(QStringLiteral("ScaleY")).toDouble(1.0) * 100, 0, 'g', 6);
    const QSize size = ComponentKinds::storedSize(component, kind->dataKey);
    return QStringLiteral(", %1 x %2").arg(size.width()).arg(size.height());
}

void writeComponents(const QJsonArray& components, const QJsonObject* projectData, const QString& indent,
                     QTextStream& out)
{
    for (const QJsonValue& value : components) {
        if (!value.isObject()) {
            out << indent << "(not a component: a JSON " << (value.isArray() ? "array" : "value") << ")\n";
            continue;
        }
        const QJsonObject component = value.toObject();
        const QJsonValue typeValue = component.value(QStringLiteral("Type"));
        const ComponentKinds::Kind* kind =
            typeValue.isDouble() ? ComponentKinds::find(typeValue.toInt(-1)) : nullptr;
        const QString name = component.value(QStringLiteral("Name")).toString();
        out << indent
            << (kind ? QString::fromLatin1(kind->label)
                     : QStringLiteral("Unknown kind (\"Type\" %1)")
                           .arg(typeValue.isDouble() ? QString::number(typeValue.toDouble())
                                                     : QStringLiteral("missing")))
            << (name.isEmpty() ? QStringLiteral(" (no name)") : QStringLiteral(" \"%1\"").arg(name)) << " at "
            << component.value(QStringLiteral("X")).toInt(0) << ", " << component.value(QStringLiteral("Y")).toInt(0)
            << sizeText(component, kind) << "\n";
        const QString inner = indent + QStringLiteral("  ");
        writeConditions(component, projectData, inner, out);
        // The kind's own data object first; a kind this program doesn't know
        // shows every data object it has.
        if (kind) {
            const QJsonObject data = component.value(QLatin1String(kind->dataKey)).toObject();
            writeData(data, projectData, kind->size == ComponentKinds::SizeStorage::FromCustom, inner, out);
            writeAddons(data, projectData, inner, out);
        } else {
            for (auto it = component.begin(); it != component.end(); ++it) {
                if (it.key().endsWith(QLatin1String("Data")) && it.value().isObject())
                    writeData(it.value().toObject(), projectData, false, inner, out);
            }
        }
        writeExtras(component, projectData, inner, out);
        writeComponents(component.value(HudDocument::KeyChildren).toArray(), projectData, indent + QStringLiteral("  "),
                        out);
    }
}

// The parameters a custom component declares, each with the kind of value
// it takes where the component is used.
void writeParameters(const QJsonObject& hud, QTextStream& out)
{
    for (const QJsonValue& definition : hud.value(QStringLiteral("Params")).toArray()) {
        if (!definition.isObject()) {
            out << "  Parameter (not a parameter definition)\n";
            continue;
        }
        const QJsonObject parameter = definition.toObject();
        out << "  Parameter \"" << parameter.value(QStringLiteral("Name")).toString() << "\" ("
            << (parameter.value(QStringLiteral("IsString")).toBool(false) ? "text" : "number") << ")\n";
    }
}

}

void write(const HudEntry& entry, const QJsonObject* projectData, QTextStream& out)
{
    const QJsonArray components = entry.object.value(HudDocument::KeyHud).toArray();
    const int count = HudDocument::componentCount(components);
    QString what;
    if (entry.type == HudEntry::Map)
        what = QStringLiteral("the Map HUD");
    else if (entry.type == HudEntry::Battle)
        what = QStringLiteral("the Battle HUD");
    else
        what = QStringLiteral("%1, ID %2")
                   .arg(entry.object.value(HudDocument::KeyIsHud).toBool(true) ? QStringLiteral("extra HUD")
                                                                             : QStringLiteral("custom component"),
                        entry.object.value(HudDocument::KeyId).toString());
    out << "HUD \"" << HudDocument::displayName(entry.type, entry.object) << "\" (" << what << "): " << count
        << (count == 1 ? " component\n" : " components\n");
    // The Map and Battle HUDs take no parameters: saving drops any they hold.
    if (entry.type == HudEntry::Custom)
        writeParameters(entry.object, out);
    writeComponents(components, projectData, QStringLiteral("  "), out);
}

}
