#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>

// Every list of the program exchanges its records through the clipboard as
// plain text: an identifier word directly followed by the record's JSON. A
// list takes a paste only when the text starts with its own word, so the
// words must stay distinct and none may begin another.
namespace ClipboardIdentifiers {

// One component with its children.
extern const QString Component;
// One condition of a condition list.
extern const QString Condition;
// One HUD of the HUD list.
extern const QString Hud;
// One add-on.
extern const QString Addon;
// One custom parameter of the component parameter list.
extern const QString HudComponentParameter;
// One animation entry.
extern const QString PropertyAnimation;
// One custom property.
extern const QString CustomProperty;

// All of the above, in the order listed.
const QStringList& all();

// The text that carries object under identifier.
QString compose(const QString& identifier, const QJsonObject& object,
                QJsonDocument::JsonFormat format = QJsonDocument::Compact);
// True when text starts with identifier (case-sensitive) and the rest parses
// as one JSON object, which then goes to object if given.
bool readObject(const QString& text, const QString& identifier, QJsonObject* object = nullptr);

}
