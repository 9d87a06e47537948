#pragma once

#include <QDir>
#include <QSize>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QVector>

// One HUD of the document as the HUD list holds it: its type and its object.
struct HudEntry {
    enum Type { Custom = 0, Map = 1, Battle = 2 };
    int type = Custom;
    QJsonObject object;
};

// The HUD document "data/plugin/VelmoraHUD.json". In memory it exists only as
// the HUD list; this class explodes a file into entries on loading and puts
// the document together again from the entries on saving.
class GameUIEditorScene;
class QPixmap;

class HudDocument
{
public:
    static const QString FileName;

    // The document's keys that the editor itself reads and writes.
    static const QString KeyMap;
    static const QString KeyBattle;
    static const QString KeyData;
    static const QString KeyHud;
    static const QString KeyBackground;
    static const QString KeyIsHud;
    static const QString KeyId;
    static const QString KeyName;
    static const QString KeyWidth;
    static const QString KeyHeight;
    static const QString KeyChildren;

    // The root object as it was read, less "Data". Keys that the program
    // doesn't know live on here and are written back unchanged.
    QJsonObject root;
    QVector<HudEntry> entries;
    // The entry that becomes current after loading (the Map HUD), or -1.
    int currentIndex = -1;
    // No usable file: the entries come from the two templates.
    bool fromTemplates = false;
    // A file exists but couldn't be taken as a document as it stands
    // (unreadable, not JSON, not an object, a "Data" that isn't an array of
    // objects). Its bytes are kept in a backup before the first save writes
    // over it. When it couldn't be used at all the entries come from the
    // templates (fromTemplates); otherwise what could be read is used.
    bool damagedFile = false;
    // Why the file counts as damaged, as a phrase ("permission denied").
    QString damage;

    // What a user is told about a damaged file, in a sentence or two; empty
    // when the document was fine or missing.
    QString damageNotice() const;

    // Reads the document of a project, or builds a fresh one from the
    // templates. backgrounds are the editor-only background paths of the
    // project, one per entry.
    static HudDocument load(const QDir& projectDirectory, const QStringList& backgrounds = {});

    // The editor-only background paths the settings store keeps for a
    // project, one per entry of its document.
    static QStringList storedBackgrounds(const QDir& projectDirectory);

    // Entries from a document root; backgrounds as for load().
    void setDocument(const QJsonObject& document, const QStringList& backgrounds);

    // The document to write: root with "Map" and "Battle" recomputed from where
    // the special entries stand and "Data" rebuilt from the entries. Map and
    // Battle HUDs keep only "HUD"; "Background" never reaches the file but is
    // collected into backgrounds, one string per entry.
    static QJsonObject assemble(QJsonObject root, const QVector<HudEntry>& entries,
                                QStringList* backgrounds = nullptr);

    // Writes an assembled document to the project (or to outputPath when
    // given). When the project's file was damaged, its bytes are first kept as
    // "VelmoraHUD.json.bak" (or the next free ".bak.N"). False when the
    // document couldn't be written; the previous file then stays as it was.
    // reason, when given, receives the cause of a failure.
    static bool save(const QDir& projectDirectory, const QJsonObject& document, bool keepDamagedFile,
                     const QString& outputPath = QString(), QString* reason = nullptr);

    // Copies a damaged "VelmoraHUD.json" to "VelmoraHUD.json.bak" (or the next
    // free ".bak.N"); true when there was nothing to copy or the copy is made.
    // reason, when given, receives the cause of a failure.
    static bool keepDamagedCopy(const QDir& projectDirectory, QString* reason = nullptr);

    // A fresh five-character identifier not in taken.
    static QString newIdentifier(const QStringList& taken);
    // The identifiers held by the entries.
    static QStringList identifiers(const QVector<HudEntry>& entries);

    // The list's marker column and name column for an entry.
    static QString marker(const QJsonObject& object);
    static QString displayName(int type, const QJsonObject& object);
    // Whether the scene takes the entry's own size instead of the screen size.
    static bool hasOwnSize(int type, const QJsonObject& object);
    static int ownWidth(const QJsonObject& object);
    static int ownHeight(const QJsonObject& object);

    // The editor-only background picture at path; null when the path is
    // empty or isn't a regular file holding an image. A pasted HUD can name
    // any path, and reading a FIFO would block for ever.
    static QPixmap backgroundImage(const QString& path);

    // The array of a template file among the shipped files (beside the
    // executable, or in the install's share folder); empty when missing.
    static QJsonArray templateArray(const QString& fileName);

    // The names of the HUDs whose components use the custom HUD object
    // identifier (a custom component or a collection of it, inside groups
    // and windows too), in list order; the HUD itself doesn't count.
    static QStringList usersOf(const QVector<HudEntry>& entries, const QString& identifier);

    // Number of component objects in a "HUD" array, children included.
    static int componentCount(const QJsonArray& components);

    // The change of the HUD being edited, as the editor does it: the scene's
    // components go back into the previous HUD's object (when given), then the
    // scene is cleared, takes the new HUD's size and loads its components.
    // Returns whether the new HUD has a size of its own.
    static bool switchScene(GameUIEditorScene* scene, QJsonObject* previous, int type, const QJsonObject* current,
                            const QSize& screen);
};
