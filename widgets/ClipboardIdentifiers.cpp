#include "widgets/ClipboardIdentifiers.h"

namespace ClipboardIdentifiers {

const QString Component = QStringLiteral("VELMOCOMP");
const QString Condition = QStringLiteral("RMCONDITION");
const QString Hud = QStringLiteral("VELMORAHUD");
const QString Addon = QStringLiteral("VELMORAADDON");
const QString HudComponentParameter = QStringLiteral("HUDCOMPPARAM");
const QString PropertyAnimation = QStringLiteral("UIPROPANIMATION");
const QString CustomProperty = QStringLiteral("CUSTOMPROPERTY");

const QStringList& all()
{
    static const QStringList words{Component, Condition, Hud, Addon, HudComponentParameter, PropertyAnimation,
                                   CustomProperty};
    return words;
}

QString compose(const QString& identifier, const QJsonObject& object, QJsonDocument::JsonFormat format)
{
    return identifier + QString::fromUtf8(QJsonDocument(object).toJson(format));
}

bool readObject(const QString& text, const QString& identifier, QJsonObject* object)
{
    if (identifier.isEmpty() || !text.startsWith(identifier))
        return false;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text.midRef(identifier.size()).toUtf8(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return false;
    if (object)
        *object = document.object();
    return true;
}

}
