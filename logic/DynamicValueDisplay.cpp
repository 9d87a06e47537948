#include "logic/DynamicValueDisplay.h"

#include "logic/DynamicValueTables.h"
#include "logic/GameDataLabel.h"
#include "logic/RMCodeInput.h"
#include "widgets/MyDialogOpener.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QPair>

namespace {

QString dynamicMark()
{
    return QCoreApplication::translate("", "[DYNAMIC]");
}

// A number as the fields hold it: a stored fraction counts by its whole part.
QString wholeNumber(const QJsonValue& value)
{
    return QString::number(qint64(value.toDouble()));
}

// A switch or variable with its name, or the id alone without project data.
QString systemEntry(const QJsonObject& object, const QJsonObject* projectData, bool switches)
{
    const int id = object.value(QStringLiteral("ID")).toInt(1);
    if (!projectData)
        return QStringLiteral("[%1]").arg(GameDataLabel::paddedId(id));
    return switches ? GameDataLabel::switchEntry(projectData, id) : GameDataLabel::variableEntry(projectData, id);
}

QString itemCount(const QJsonObject& object, const QJsonObject* projectData)
{
    const int id = object.value(QStringLiteral("ID")).toInt(1);
    if (!projectData)
        return QCoreApplication::translate("", "Count: [%1]").arg(GameDataLabel::paddedId(id));
    const int itemType = object.value(QStringLiteral("ItemType")).toInt(0);
    const QString file = itemType == 0   ? QStringLiteral("Items.json")
                         : itemType == 1 ? QStringLiteral("Weapons.json")
                                         : QStringLiteral("Armors.json");
    return QCoreApplication::translate("", "Count: [%1] %2")
        .arg(GameDataLabel::paddedId(id), GameDataLabel::databaseName(projectData, file, id));
}

QString mathDisplay(const QJsonObject& object, const QJsonObject* projectData)
{
    const int op = object.value(QStringLiteral("Op")).toInt(0);
    const QString first = dynamicNumberDisplay(object.value(QStringLiteral("FirstNum")).toObject(), projectData);
    if (op >= DynamicValueTables::SqrtOperator)
        return QStringLiteral("(%1) %2").arg(DynamicValueTables::mathOperator(op), first);
    return QStringLiteral("%1 (%2) %3")
        .arg(first, DynamicValueTables::mathOperator(op),
             dynamicNumberDisplay(object.value(QStringLiteral("SecondNum")).toObject(), projectData));
}

// The text and the number differ only in the plain value and in the rows
// of the info tables that only a text has.
QString display(const QJsonObject& object, const QJsonObject* projectData, bool text)
{
    switch (object.value(QStringLiteral("Type")).toInt(0)) {
    case 0: {
        const QJsonValue plain = object.value(text ? QStringLiteral("Text") : QStringLiteral("Number"));
        if (text)
            return plain.isString() ? plain.toString() : dynamicMark();
        return plain.isObject() ? dynamicMark() : wholeNumber(plain);
    }
    case 1:
        return DynamicValueTables::infoLabel(DynamicValueTables::generalInfo(),
                                             object.value(QStringLiteral("Info")).toInt(0), text);
    case 2:
        return systemEntry(object, projectData, true);
    case 3:
        return systemEntry(object, projectData, false);
    case 4:
        return QCoreApplication::translate("", "Actor %1")
            .arg(DynamicValueTables::infoLabel(DynamicValueTables::actorInfo(),
                                               object.value(QStringLiteral("Info")).toInt(0), text));
    case 5:
        return QCoreApplication::translate("", "Enemy %1")
            .arg(DynamicValueTables::infoLabel(DynamicValueTables::enemyInfo(),
                                               object.value(QStringLiteral("Info")).toInt(0), text));
    case 6:
        return itemCount(object, projectData);
    case 7:
        return RMCodeInput::singleLine(object.value(QStringLiteral("Code")).toString());
    case 8:
        return mathDisplay(object, projectData);
    case 9:
        return QStringLiteral("(%1) %2")
            .arg(DynamicValueTables::listOperator(object.value(QStringLiteral("Op")).toInt(0)),
                 dynamicListDisplay(object.value(QStringLiteral("ListData")).toObject(), projectData));
    default:
        return QString();
    }
}

// The bound of a number list: the number, or the mark for a dynamic one.
QString listBound(const QJsonValue& value)
{
    return value.isDouble() ? wholeNumber(value) : dynamicMark();
}

QString label(const char* const* labels, int count, int index)
{
    return index >= 0 && index < count ? QCoreApplication::translate("", labels[index]) : QString();
}

// What a list of an actor's or an enemy's data holds, by its "Data", in two
// words: "Skill" and "IDs", "State Turns" and nothing.
QPair<QString, QString> battlerData(int data)
{
    static const char* const kinds[] = {QT_TR_NOOP("Skill"), QT_TR_NOOP("Equip"), QT_TR_NOOP("State"),
                                        QT_TR_NOOP("Buff")};
    static const char* const parts[] = {QT_TR_NOOP("IDs"), QT_TR_NOOP("Names"), QT_TR_NOOP("Icon Indexes")};
    static const char* const others[] = {QT_TR_NOOP("Params"), QT_TR_NOOP("EX-Params"), QT_TR_NOOP("SP-Params"),
                                         QT_TR_NOOP("Notetags"), QT_TR_NOOP("State Turns"),
                                         QT_TR_NOOP("Buff Turns")};
    if (data >= 0 && data < 12)
        return {label(kinds, 4, data / 3), label(parts, 3, data % 3)};
    return {label(others, 6, data - 12), QString()};
}

}

QString dynamicTextDisplay(const QJsonObject& object, const QJsonObject* projectData)
{
    return display(object, projectData, true);
}

QString dynamicNumberDisplay(const QJsonObject& object, const QJsonObject* projectData)
{
    return display(object, projectData, false);
}

QString dynamicListDisplay(const QJsonObject& object, const QJsonObject* projectData)
{
    const int type = object.value(QStringLiteral("Type")).toInt(0);
    switch (type) {
    case 0:
        return QStringLiteral("%1 ~ %2")
            .arg(listBound(object.value(QStringLiteral("Start"))), listBound(object.value(QStringLiteral("End"))));
    case 1:
        if (!projectData)
            return QString();
        return QStringLiteral("%1 ~ %2")
            .arg(GameDataLabel::variableEntry(projectData, object.value(QStringLiteral("Start")).toInt(1)),
                 GameDataLabel::variableEntry(projectData, object.value(QStringLiteral("End")).toInt(1)));
    case 2:
        return QCoreApplication::translate("", "%1 List")
            .arg(DynamicValueTables::translatedLabel(DynamicValueTables::listMembers(),
                                                     object.value(QStringLiteral("MembersType")).toInt(0)));
    case 3:
        return QCoreApplication::translate("", "%1 List")
            .arg(DynamicValueTables::translatedLabel(DynamicValueTables::listItemTypes(),
                                                     object.value(QStringLiteral("ItemType")).toInt(0)));
    case 4:
    case 5: {
        // The text keeps its blank where there is no second word.
        const QPair<QString, QString> data = battlerData(object.value(QStringLiteral("Data")).toInt(0));
        return (type == 4 ? QCoreApplication::translate("", "Actor's %1 %2")
                          : QCoreApplication::translate("", "Enemy's %1 %2"))
            .arg(data.first, data.second);
    }
    case 6:
        return QCoreApplication::translate("", "Combination");
    case 7:
        return RMCodeInput::singleLine(object.value(QStringLiteral("Code")).toString());
    default:
        return QStringLiteral("Type: %1").arg(type);
    }
}

namespace {

void show(MyDialogOpener* opener, const QJsonObject& object, const QString& text)
{
    opener->setValue(text);
    opener->setItalic(object.value(QStringLiteral("Type")).toInt(0) != 0);
}

}

void showDynamicText(MyDialogOpener* opener, const QJsonObject& object, const QJsonObject* projectData)
{
    show(opener, object, dynamicTextDisplay(object, projectData));
}

void showDynamicNumber(MyDialogOpener* opener, const QJsonObject& object, const QJsonObject* projectData)
{
    show(opener, object, dynamicNumberDisplay(object, projectData));
}
