#include "app/HudDocument.h"

#include "components/ComponentKinds.h"
#include "logic/HudCatalog.h"

#include "scene/GameUIEditorScene.h"

#include "app/JsonFile.h"
#include "app/PathManager.h"
#include "app/SettingsStore.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPixmap>
#include <QSaveFile>

#include <cstdlib>

const QString HudDocument::FileName = QStringLiteral("VelmoraHUD.json");
const QString HudDocument::KeyMap = QStringLiteral("Map");
const QString HudDocument::KeyBattle = QStringLiteral("Battle");
const QString HudDocument::KeyData = QStringLiteral("Data");
const QString HudDocument::KeyHud = QStringLiteral("HUD");
const QString HudDocument::KeyBackground = QStringLiteral("Background");
const QString HudDocument::KeyIsHud = QStringLiteral("IsHUD");
const QString HudDocument::KeyId = QStringLiteral("ID");
const QString HudDocument::KeyName = QStringLiteral("Name");
const QString HudDocument::KeyWidth = QStringLiteral("Width");
const QString HudDocument::KeyHeight = QStringLiteral("Height");
const QString HudDocument::KeyChildren = QStringLiteral("Children");

namespace {

constexpr int DefaultOwnSize = 300;

// Whether every HUD of a "Data" array can be taken as it stands, so that
// saving over the file loses nothing it held.
bool entriesWellFormed(const QJsonArray& data)
{
    for (const QJsonValue& entry : data) {
        if (!entry.isObject())
            return false;
        const QJsonValue components = entry.toObject().value(HudDocument::KeyHud);
        if (!components.isUndefined() && !components.isArray())
            return false;
    }
    return true;
}

}

QJsonArray HudDocument::templateArray(const QString& fileName)
{
    return JsonFile::read(PathManager::shippedPath(QStringLiteral("Default/%1").arg(fileName))).array();
}

HudDocument HudDocument::load(const QDir& projectDirectory, const QStringList& backgrounds)
{
    HudDocument document;
    const QString path = JsonFile::pluginPath(projectDirectory, FileName);
    const QJsonDocument file = JsonFile::read(path, &document.damage);

    // A file that is there but can't be used is not a fresh project's: it is
    // damaged, and the project starts from the templates.
    if (file.isNull()) {
        document.damagedFile = QFileInfo::exists(path) || QFileInfo(path).isSymLink();
        if (!document.damagedFile)
            document.damage.clear();
    } else if (!file.isObject()) {
        document.damagedFile = true;
        document.damage = QCoreApplication::translate("", "it holds no document object");
    } else if (file.object().contains(KeyData) && !file.object().value(KeyData).isArray()) {
        document.damagedFile = true;
        document.damage = QCoreApplication::translate("", "its \"Data\" is not a list of HUDs");
    } else {
        const QJsonObject root = file.object();
        if (!entriesWellFormed(root.value(KeyData).toArray())) {
            // Most of it is usable: open what can be read, and keep the file.
            document.damagedFile = true;
            document.damage = QCoreApplication::translate("", "some of its HUDs can't be read");
        }
        document.setDocument(root, backgrounds);
        return document;
    }

    document.fromTemplates = true;
    QJsonArray data;
    data.append(QJsonObject{{KeyHud, templateArray(QStringLiteral("VelmoraMapHUD.json"))}});
    data.append(QJsonObject{{KeyHud, templateArray(QStringLiteral("VelmoraBattleHUD.json"))}});
    // Keys of a root object beside a broken "Data" still belong to the user.
    QJsonObject fresh = file.object();
    fresh.insert(KeyMap, 0);
    fresh.insert(KeyBattle, 1);
    fresh.insert(KeyData, data);
    document.setDocument(fresh, backgrounds);
    return document;
}

QString HudDocument::damageNotice() const
{
    if (!damagedFile)
        return QString();
    if (fromTemplates)
        return QCoreApplication::translate("", "\"%1\" can't be used: %2. The project opened with a fresh Map HUD "
                                               "and Battle HUD; the file is kept as a backup before the first save.")
            .arg(FileName, damage);
    return QCoreApplication::translate("", "\"%1\" is damaged: %2. What could be read is open; the file is kept as "
                                           "a backup before the first save.")
        .arg(FileName, damage);
}

void HudDocument::setDocument(const QJsonObject& document, const QStringList& backgrounds)
{
    root = document;
    root.remove(KeyData);
    entries.clear();
    currentIndex = -1;

    const int mapIndex = document.value(KeyMap).toInt(0);
    const int battleIndex = document.value(KeyBattle).toInt(1);
    const QJsonArray data = document.value(KeyData).toArray();
    entries.reserve(data.size());
    for (int i = 0; i < data.size(); ++i) {
        HudEntry entry;
        entry.type = i == mapIndex ? HudEntry::Map : i == battleIndex ? HudEntry::Battle : HudEntry::Custom;
        entry.object = data.at(i).toObject();
        // Components that can't be read open as none. Kept as they were, they
        // would be written back, and the saved document would read as
        // damaged again on every opening, each save leaving one more backup;
        // the damaged file's backup still holds them.
        const QJsonValue components = entry.object.value(KeyHud);
        if (!components.isUndefined() && !components.isArray())
            entry.object.insert(KeyHud, QJsonArray());
        entry.object.insert(KeyBackground, i < backgrounds.size() ? backgrounds.at(i) : QString());
        entries.append(entry);
    }
    if (mapIndex >= 0 && mapIndex < entries.size())
        currentIndex = mapIndex;
}

QJsonObject HudDocument::assemble(QJsonObject root, const QVector<HudEntry>& entries, QStringList* backgrounds)
{
    // A list without a Map or Battle HUD must not keep a number that could
    // name a custom HUD on the next load, which would then lose all but its
    // components: such a number becomes -1, which names no entry.
    bool hasMap = false;
    bool hasBattle = false;
    for (const HudEntry& entry : entries) {
        hasMap = hasMap || entry.type == HudEntry::Map;
        hasBattle = hasBattle || entry.type == HudEntry::Battle;
    }
    if (!hasMap && root.contains(KeyMap))
        root.insert(KeyMap, -1);
    if (!hasBattle && root.contains(KeyBattle))
        root.insert(KeyBattle, -1);
    QJsonArray data;
    if (backgrounds)
        backgrounds->clear();
    for (int i = 0; i < entries.size(); ++i) {
        QJsonObject object = entries.at(i).object;
        if (backgrounds)
            backgrounds->append(object.value(KeyBackground).toString());
        object.remove(KeyBackground);
        switch (entries.at(i).type) {
        case HudEntry::Map:
            root.insert(KeyMap, i);
            data.append(QJsonObject{{KeyHud, object.value(KeyHud)}});
            break;
        case HudEntry::Battle:
            root.insert(KeyBattle, i);
            data.append(QJsonObject{{KeyHud, object.value(KeyHud)}});
            break;
        default:
            data.append(object);
            break;
        }
    }
    root.insert(KeyData, data);
    return root;
}

bool HudDocument::keepDamagedCopy(const QDir& projectDirectory, QString* reason)
{
    const QString path = JsonFile::pluginPath(projectDirectory, FileName);
    // Only a regular file holds anything to keep; a FIFO or a device is
    // never read.
    if (!QFileInfo(path).isFile())
        return true;
    QString backup = path + QStringLiteral(".bak");
    for (int n = 1; QFileInfo::exists(backup); ++n)
        backup = path + QStringLiteral(".bak.%1").arg(n);
    // Copied by hand so that a failure can name the system's reason.
    QFile original(path);
    QSaveFile copy(backup);
    QString failure;
    if (!original.open(QIODevice::ReadOnly)) {
        failure = JsonFile::systemReason(original.errorString());
    } else if (!copy.open(QIODevice::WriteOnly)) {
        failure = JsonFile::systemReason(copy.errorString());
    } else {
        QByteArray chunk;
        while (failure.isEmpty() && !(chunk = original.read(1 << 20)).isEmpty()) {
            if (copy.write(chunk) != chunk.size())
                failure = JsonFile::systemReason(copy.errorString());
        }
        if (failure.isEmpty() && original.error() != QFileDevice::NoError)
            failure = JsonFile::systemReason(original.errorString());
        if (failure.isEmpty() && !copy.commit())
            failure = JsonFile::systemReason(copy.errorString());
    }
    if (failure.isEmpty())
        return true;
    if (reason) {
        *reason = QCoreApplication::translate("", "the damaged file couldn't be kept as \"%1\" (%2)")
                      .arg(QFileInfo(backup).fileName(), failure);
    }
    return false;
}

bool HudDocument::save(const QDir& projectDirectory, const QJsonObject& document, bool keepDamagedFile,
                       const QString& outputPath, QString* reason)
{
    if (!outputPath.isEmpty())
        return JsonFile::write(outputPath, document, reason);
    // Without a copy of the damaged file nothing is written over it.
    if (keepDamagedFile && !keepDamagedCopy(projectDirectory, reason))
        return false;
    return JsonFile::writePlugin(projectDirectory, FileName, document, reason);
}

QString HudDocument::newIdentifier(const QStringList& taken)
{
    static const char table[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    // The index is taken modulo 7, so identifiers are made of the digits 0 to 6
    // only; documents and the game plugin have always seen that alphabet.
    QString candidate;
    for (int attempt = 0; attempt < 1000000; ++attempt) {
        candidate.clear();
        for (int i = 0; i < 5; ++i)
            candidate.append(QLatin1Char(table[std::rand() % 7]));
        if (!taken.contains(candidate))
            break;
    }
    return candidate;
}

QStringList HudDocument::identifiers(const QVector<HudEntry>& entries)
{
    QStringList ids;
    for (const HudEntry& entry : entries) {
        if (entry.object.contains(KeyId))
            ids.append(entry.object.value(KeyId).toString());
    }
    return ids;
}

QString HudDocument::marker(const QJsonObject& object)
{
    return object.value(KeyIsHud).toBool(true) ? QStringLiteral("\u2726") : QStringLiteral(" \u2022");
}

QString HudDocument::displayName(int type, const QJsonObject& object)
{
    // The list item types are the catalog's.
    return HudCatalog::nameOf(HudCatalog::Row{type, object, false});
}

QPixmap HudDocument::backgroundImage(const QString& path)
{
    if (path.isEmpty() || !QFileInfo(path).isFile())
        return QPixmap();
    return QPixmap(path);
}

bool HudDocument::hasOwnSize(int type, const QJsonObject& object)
{
    return type == HudEntry::Custom && !object.value(KeyIsHud).toBool(false);
}

int HudDocument::ownWidth(const QJsonObject& object)
{
    return object.value(KeyWidth).toInt(DefaultOwnSize);
}

int HudDocument::ownHeight(const QJsonObject& object)
{
    return object.value(KeyHeight).toInt(DefaultOwnSize);
}

namespace {

bool usesCustomHud(const QJsonArray& components, const QString& identifier)
{
    for (const QJsonValue& value : components) {
        const QJsonObject component = value.toObject();
        const ComponentKinds::Kind* kind = ComponentKinds::find(component.value(QStringLiteral("Type")).toInt(-1));
        if (kind && kind->size == ComponentKinds::SizeStorage::FromCustom &&
            component.value(QLatin1String(kind->dataKey)).toObject().value(HudDocument::KeyId).toString() == identifier)
            return true;
        if (usesCustomHud(component.value(HudDocument::KeyChildren).toArray(), identifier))
            return true;
    }
    return false;
}

}

QStringList HudDocument::usersOf(const QVector<HudEntry>& entries, const QString& identifier)
{
    QStringList names;
    if (identifier.isEmpty())
        return names;
    for (const HudEntry& entry : entries) {
        const bool itself = entry.type == HudEntry::Custom && entry.object.value(KeyId).toString() == identifier;
        if (!itself && usesCustomHud(entry.object.value(KeyHud).toArray(), identifier))
            names.append(displayName(entry.type, entry.object));
    }
    return names;
}

int HudDocument::componentCount(const QJsonArray& components)
{
    int count = 0;
    for (const QJsonValue& value : components) {
        if (!value.isObject())
            continue;
        ++count;
        count += componentCount(value.toObject().value(KeyChildren).toArray());
    }
    return count;
}

bool HudDocument::switchScene(GameUIEditorScene* scene, QJsonObject* previous, int type, const QJsonObject* current,
                              const QSize& screen)
{
    if (previous)
        previous->insert(KeyHud, scene->toJson());
    scene->clear();
    if (!current)
        return false;
    const bool sized = hasOwnSize(type, *current);
    if (sized)
        scene->setScreenSize(ownWidth(*current), ownHeight(*current));
    else
        scene->setScreenSize(screen.width(), screen.height());
    scene->loadFromJson(current->value(KeyHud).toArray());
    return sized;
}

QStringList HudDocument::storedBackgrounds(const QDir& projectDirectory)
{
    SettingsStore store;
    return store.value(QStringLiteral("Backgrounds")).toMap().value(projectDirectory.absolutePath()).toStringList();
}
