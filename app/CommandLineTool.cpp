#include "app/CommandLineTool.h"

#include "app/HudDocument.h"
#include "app/HudOutline.h"
#include "app/JsonFile.h"
#include "app/PathManager.h"
#include "app/ProjectData.h"
#include "app/SettingsStore.h"
#include "app/Startup.h"
#include "components/ComponentImages.h"
#include "components/ComponentKinds.h"
#include "components/CustomReferences.h"
#include "components/GameUIEditorSceneHelper.h"
#include "components/ProjectFonts.h"
#include "components/ProjectImages.h"
#include "logic/HudCatalog.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/SceneUndoRecorder.h"
#include "scene/UIComponentBase.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/BasicFontSelector.h"
#include "widgets/ConfirmationDialog.h"
#include "scene/UsesCustomProperties.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCoreApplication>
#include <QFileInfo>
#include <QImageWriter>
#include <QJsonArray>
#include <QMap>
#include <QPixmap>
#include <QPointer>
#include <QTimer>
#include <QRegularExpression>
#include <QSet>
#include <QTextStream>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <utility>

namespace CommandLineTool {

namespace {

const char* const Usage =
    "Usage: velmora-cli COMMAND PROJECT [options]\n"
    "\n"
    "PROJECT is an RPG Maker MZ project folder or its .rmmzproject file.\n"
    "\n"
    "Commands:\n"
    "  check PROJECT               Opens the project as the editor does and reports\n"
    "                              whether it is valid, its screen size and what its\n"
    "                              HUD document holds: per kind present a line\n"
    "                              \"Kind <Type> <name>: <count>\" in \"Type\" order, then\n"
    "                              \"Placeholders: <n>\", the components the canvas\n"
    "                              draws as a plain rectangle (an unknown \"Type\"), then\n"
    "                              \"Missing images: <n>\" and one line per image a\n"
    "                              component shows that the project lacks or can't\n"
    "                              read: the file, the HUD and the component; then\n"
    "                              \"Missing custom HUDs: <n>\" and one line per Custom,\n"
    "                              Custom Collection or Attach Collection whose custom\n"
    "                              HUD no longer exists, and \"Custom HUD cycles: <n>\"\n"
    "                              and one line per such component whose custom HUD\n"
    "                              leads back, at any depth, to the HUD that holds it,\n"
    "                              with the way round. Exit 0\n"
    "                              when valid, 1 when the project is not, or its HUD\n"
    "                              document is damaged; missing images, missing custom\n"
    "                              HUDs and cycles don't change it.\n"
    "  resave PROJECT [--visit-all | --through-dialogs] [--out FILE]\n"
    "                              Loads the HUD document and writes it back through\n"
    "                              the editor's save path; with --out the result goes\n"
    "                              to FILE and the project is left untouched. With\n"
    "                              --visit-all every HUD of the list is made current in\n"
    "                              turn and passes through the editor's canvas before\n"
    "                              the save, as when a user clicks through every HUD\n"
    "                              and saves (no window is shown). --through-dialogs\n"
    "                              does the same and also opens every component in its\n"
    "                              property dialog and confirms it without a change,\n"
    "                              as a user's OK does; it prints per kind how many\n"
    "                              went through the kind's own dialog and how many\n"
    "                              through the dialog of the shared fields.\n"
    "  render PROJECT --out DIR [--hud NAME] [--zoom Z] [--background]\n"
    "                              Draws every HUD of the project as the editor's\n"
    "                              canvas shows it, without selection frames or\n"
    "                              handles, into DIR/<HUD name>.png. --hud draws only\n"
    "                              the HUD of that name (or ID); --zoom takes a factor\n"
    "                              from 0.1 to 5.9 in steps of 0.1 (default 1); with\n"
    "                              --background the canvas is drawn behind the\n"
    "                              components (the HUD's background image set in the\n"
    "                              editor, darkened as the editor shows it, or the\n"
    "                              canvas tile), otherwise it stays transparent.\n"
    "                              Exit 0 when every HUD was written, 1 otherwise.\n"
    "  outline PROJECT [--hud NAME]\n"
    "                              Prints every HUD of the project (or only the one\n"
    "                              of that name or ID) as an indented tree of its\n"
    "                              components: kind, name, position and size, and\n"
    "                              under each, as the editor shows them, the values\n"
    "                              the game works out while it runs: dynamic texts\n"
    "                              and numbers, lists, actors, and fields that take a\n"
    "                              dynamic input; a Custom or collection names its\n"
    "                              custom HUD and the value of each parameter; then\n"
    "                              the component's add-ons, one line each. A value\n"
    "                              the editor can't read is shown as \"(unknown\n"
    "                              value)\". Exit 1 when the HUD document is damaged\n"
    "                              or has no HUD of that name.\n"
    "\n"
    "Options:\n"
    "  --help     Shows this text.\n"
    "  --version  Shows the version.\n";

// The project folder for a path as the editor takes it: a folder is the
// project, a file stands for its folder. False when nothing is there.
bool projectFolder(const QString& path, QDir& folder)
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        return false;
    folder = QDir(info.isDir() ? info.absoluteFilePath() : info.absolutePath());
    return true;
}

int usageError(QTextStream& err, const QString& message)
{
    err << "velmora-cli: " << message << " (see velmora-cli --help)\n";
    return UsageError;
}

// How many components of each "Type" the array holds, children included.
void countKinds(const QJsonArray& components, QMap<int, int>& counts)
{
    for (const QJsonValue& value : components) {
        if (!value.isObject())
            continue;
        const QJsonObject component = value.toObject();
        ++counts[component.value(QStringLiteral("Type")).toInt(-1)];
        countKinds(component.value(HudDocument::KeyChildren).toArray(), counts);
    }
}

// Images are looked up in the project's graphics folders, as in the editor.
void lookUpImagesIn(const QDir& folder)
{
    PathManager::setGraphicsFolderHook(ProjectData::graphicsFolder);
    ProjectImages::setPathHook([folder](int kind, const QString& name) {
        return PathManager::graphicsFile(PathManager::GraphicsType(kind), name + QStringLiteral(".png"), folder);
    });
}

// One line per image that a component of the array or its children shows
// and the project lacks (or can't read).
void listMissingImages(const QJsonArray& components, const QString& hud, const QJsonObject& projectData,
                       QStringList& lines)
{
    for (const QJsonValue& value : components) {
        const QJsonObject component = value.toObject();
        for (const ComponentImages::Reference& image : ComponentImages::of(component, &projectData)) {
            if (!ProjectImages::image(image.kind, image.name).isNull())
                continue;
            lines << QStringLiteral("%1: HUD \"%2\", component \"%3\" (ID %4)")
                         .arg(image.file(), hud, component.value(QStringLiteral("Name")).toString())
                         .arg(component.value(QStringLiteral("ID")).toVariant().toString());
        }
        listMissingImages(component.value(HudDocument::KeyChildren).toArray(), hud, projectData, lines);
    }
}

// The document's HUDs as the custom kinds look them up, in list order.
QVector<HudCatalog::Row> catalogRows(const QVector<HudEntry>& entries)
{
    QVector<HudCatalog::Row> rows;
    rows.reserve(entries.size());
    for (const HudEntry& entry : entries)
        rows.append(HudCatalog::Row{entry.type, entry.object, false});
    return rows;
}

// While it lives, the custom kinds on the canvas expand the HUDs of these
// entries, as they stand at the moment of the lookup.
class DocumentCatalog
{
public:
    explicit DocumentCatalog(const QVector<HudEntry>* entries)
    {
        HudCatalog::setSource([entries]() { return catalogRows(*entries); });
    }
    ~DocumentCatalog() { HudCatalog::setSource(nullptr); }
    DocumentCatalog(const DocumentCatalog&) = delete;
    DocumentCatalog& operator=(const DocumentCatalog&) = delete;
};

int check(const QDir& folder, QTextStream& out)
{
    QJsonObject projectData;
    ProjectData::ScreenSize screen;
    QStringList problems;
    // The HUD document is read while the database parses.
    HudDocument document;
    const bool valid = ProjectData::load(folder, projectData, screen, &problems,
                                         [&document, &folder]() { document = HudDocument::load(folder); });

    out << "Project: " << QDir::toNativeSeparators(folder.absolutePath()) << "\n";
    if (!valid) {
        out << "Valid: no\n";
        for (const QString& problem : problems)
            out << "  " << problem << "\n";
        return Failure;
    }
    out << "Valid: yes\n";
    out << "Screen: " << screen.width << " x " << screen.height << "\n";

    const QString documentPath = QStringLiteral("data/plugin/") + HudDocument::FileName;
    if (!document.fromTemplates && !document.damagedFile)
        out << "HUD document: " << documentPath << "\n";
    else if (!document.damagedFile)
        out << "HUD document: none yet, the project starts from the templates\n";
    else
        out << "HUD document: " << documentPath << " is damaged: " << document.damage << "\n";
    // What the templates hold says nothing about the project's own document.
    if (document.damagedFile && document.fromTemplates)
        return Failure;

    int extraHuds = 0;
    int customComponents = 0;
    int components = 0;
    QMap<int, int> kinds;
    bool hasMap = false;
    bool hasBattle = false;
    for (const HudEntry& entry : document.entries) {
        components += HudDocument::componentCount(entry.object.value(HudDocument::KeyHud).toArray());
        countKinds(entry.object.value(HudDocument::KeyHud).toArray(), kinds);
        if (entry.type == HudEntry::Map)
            hasMap = true;
        else if (entry.type == HudEntry::Battle)
            hasBattle = true;
        else if (entry.object.value(HudDocument::KeyIsHud).toBool(true))
            ++extraHuds;
        else
            ++customComponents;
    }
    out << "HUDs: " << document.entries.size() << " (Map HUD: " << (hasMap ? "yes" : "no")
        << ", Battle HUD: " << (hasBattle ? "yes" : "no") << ")\n";
    out << "Custom HUD objects: " << extraHuds + customComponents << " (" << extraHuds << " extra HUDs, "
        << customComponents << " custom components)\n";
    out << "Components: " << components << "\n";
    // What the canvas draws as the plain rectangle: a "Type" of no kind.
    int placeholders = 0;
    for (auto kind = kinds.constBegin(); kind != kinds.constEnd(); ++kind) {
        if (const ComponentKinds::Kind* known = ComponentKinds::find(kind.key()))
            out << "Kind " << kind.key() << " " << known->label << ": " << kind.value() << "\n";
        else
            placeholders += kind.value();
    }
    out << "Placeholders: " << placeholders << "\n";

    const bool ownLookup = !PathManager::projectDirectory();
    lookUpImagesIn(folder);
    QStringList missing;
    for (const HudEntry& entry : document.entries)
        listMissingImages(entry.object.value(HudDocument::KeyHud).toArray(),
                          HudDocument::displayName(entry.type, entry.object), projectData, missing);
    if (ownLookup) {
        PathManager::setGraphicsFolderHook(nullptr);
        ProjectImages::setPathHook(nullptr);
    }
    out << "Missing images: " << missing.size() << "\n";
    for (const QString& line : qAsConst(missing))
        out << "  " << line << "\n";
    // The canvas draws these as the black block or stops the expansion;
    // like a missing image, they leave the document valid.
    const QVector<HudCatalog::Row> rows = catalogRows(document.entries);
    for (const auto& section : {std::make_pair("Missing custom HUDs: ", CustomReferences::missing(rows)),
                                std::make_pair("Custom HUD cycles: ", CustomReferences::cycles(rows))}) {
        out << section.first << section.second.size() << "\n";
        for (const CustomReferences::Problem& problem : section.second)
            out << "  " << CustomReferences::describe(problem) << "\n";
    }
    // A missing image damages nothing: the game and the editor show it as
    // a blank, so the outcome stays that of the document.
    return document.damagedFile ? Failure : Success;
}

// The editor's canvas with its component list, as the main window builds
// them, never shown.
struct OffscreenEditor {
    explicit OffscreenEditor(QJsonObject* projectData)
    {
        list.tree()->startView();
        editor.setup(new GameUIEditorSceneHelper<VelmoUISelector>(), projectData);
        editor.bindList(&list, nullptr, nullptr);
    }
    GameUIEditorScene* scene() { return editor.editorScene(); }

    UltimateTreeWidget list;
    GameUIEditor editor;
};

// What went through the property dialogs, by "Type".
struct DialogTally {
    struct Kind {
        int ownDialog = 0;
        int noDialog = 0;
        int unconfirmed = 0;
        int changed = 0;
    };
    QMap<int, Kind> kinds;
};

// Stands in for the user at every property dialog that opens: once it is
// shown, its confirm button is clicked, as a user's OK does. A dialog whose
// confirm button refuses is cancelled instead, so the run never waits.
class DialogConfirmer : public QObject
{
public:
    DialogConfirmer() { qApp->installEventFilter(this); }
    ~DialogConfirmer() override { qApp->removeEventFilter(this); }

    // Whether a property dialog was shown, and whether it couldn't be
    // confirmed.
    bool shown = false;
    bool refused = false;

    void reset()
    {
        shown = false;
        refused = false;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // A question at confirm (the size warning of a collection) is
        // answered yes: the component stays as the document has it.
        if (ConfirmationDialog* question =
                event->type() == QEvent::Show ? qobject_cast<ConfirmationDialog*>(watched) : nullptr) {
            QPointer<ConfirmationDialog> open = question;
            QTimer::singleShot(0, this, [open]() {
                if (open)
                    open->on_confirmButton_clicked();
            });
            return false;
        }
        UIComponentBaseDialog* dialog = event->type() == QEvent::Show ? qobject_cast<UIComponentBaseDialog*>(watched)
                                                                      : nullptr;
        if (!dialog || shown)
            return false;
        shown = true;
        QPointer<UIComponentBaseDialog> open = dialog;
        QTimer::singleShot(0, this, [this, open]() {
            if (!open)
                return;
            QAbstractButton* confirm = open->findChild<QAbstractButton*>(QStringLiteral("confirmButton"));
            if (confirm && confirm->isEnabled()) {
                confirm->click();
            } else {
                refused = true;
                open->reject();
            }
        });
        return false;
    }
};

// Opens every component of the HUD on the canvas in its property dialog, in
// list order, through the editor's own edit (the undo bracket included).
void editEveryComponent(GameUIEditorScene* scene, DialogTally& tally)
{
    DialogConfirmer confirmer;
    QVector<UIComponentBase*> inOrder;
    std::function<void(UltimateTreeItem*)> walk = [&](UltimateTreeItem* row) {
        if (UIComponentBase* component = scene->componentOfRow(row))
            inOrder.append(component);
        for (int i = 0; i < row->childCount(); ++i)
            walk(row->child(i));
    };
    const UltimateTree* tree = scene->list()->tree();
    for (int i = 0; i < tree->rowCount(); ++i)
        walk(tree->row(i));
    for (UIComponentBase* component : qAsConst(inOrder)) {
        const int type = component->data().value(QStringLiteral("Type")).toInt(-1);
        DialogTally::Kind& kind = tally.kinds[type];
        scene->select(component);
        const std::size_t steps = scene->undoRecorder().undoStack().size();
        confirmer.reset();
        scene->editAComponent();
        if (!confirmer.shown)
            ++kind.noDialog;
        else if (confirmer.refused)
            ++kind.unconfirmed;
        else
            ++kind.ownDialog;
        if (scene->undoRecorder().undoStack().size() > steps)
            ++kind.changed;
    }
    scene->select(nullptr);
}

void printTally(const DialogTally& tally, QTextStream& out)
{
    int total = 0;
    int opened = 0;
    int changed = 0;
    for (const DialogTally::Kind& kind : tally.kinds) {
        total += kind.ownDialog + kind.noDialog + kind.unconfirmed;
        opened += kind.ownDialog + kind.unconfirmed;
        changed += kind.changed;
    }
    out << "Property dialogs: " << opened << " of " << total << " components opened and confirmed without a change, "
        << changed << " of them changed by the dialog's own rules\n";
    // The kinds in the order of their "Type", then what no kind knows.
    QList<int> types = tally.kinds.keys();
    std::stable_partition(types.begin(), types.end(), [](int type) { return ComponentKinds::find(type); });
    for (const int type : qAsConst(types)) {
        const DialogTally::Kind& kind = tally.kinds.value(type);
        const ComponentKinds::Kind* known = ComponentKinds::find(type);
        out << "  " << (known ? QString::fromLatin1(known->label) : QStringLiteral("Unknown \"Type\" %1").arg(type))
            << ": ";
        if (kind.noDialog > 0) {
            out << kind.noDialog << " without a dialog\n";
            continue;
        }
        out << kind.ownDialog << " through its own dialog";
        if (kind.unconfirmed > 0)
            out << ", " << kind.unconfirmed << " could not be confirmed";
        if (kind.changed > 0)
            out << " (" << kind.changed << " changed)";
        out << "\n";
    }
}

// Makes every HUD current in list order, through the canvas, as the editor
// does on a change of HUD and on saving; with a tally, every component also
// passes through its property dialog while its HUD is current.
void visitAll(const QDir& folder, QVector<HudEntry>& entries, DialogTally* tally = nullptr)
{
    QJsonObject projectData;
    ProjectData::ScreenSize screen;
    ProjectData::load(folder, projectData, screen);
    const DocumentCatalog catalog(&entries);
    OffscreenEditor offscreen(&projectData);
    const QSize size(screen.width, screen.height);
    QJsonObject* previous = nullptr;
    // The custom kinds and their dialogs find the HUDs they refer to as in
    // the editor's HUD list.
    const QJsonObject* current = nullptr;
    HudCatalog::setSource([&entries, &current]() {
        QVector<HudCatalog::Row> rows;
        for (const HudEntry& entry : entries)
            rows.append(HudCatalog::Row{entry.type, entry.object, &entry.object == current});
        return rows;
    });
    for (HudEntry& entry : entries) {
        current = &entry.object;
        HudDocument::switchScene(offscreen.scene(), previous, entry.type, &entry.object, size);
        if (tally)
            editEveryComponent(offscreen.scene(), *tally);
        previous = &entry.object;
    }
    if (previous)
        HudDocument::switchScene(offscreen.scene(), previous, 0, nullptr, size);
    HudCatalog::setSource(HudCatalog::Source());
}

struct RenderOptions {
    QString outputFolder;
    QString hud;
    int zoom = 10;
    bool background = false;
};

// A HUD name as a file name that every common file system takes: no path
// separators, reserved or control characters, no leading dot, no trailing
// dot or blank, no device name of Windows, and not overly long.
QString safeFileName(const QString& name)
{
    static const QString reserved = QStringLiteral("/\\:*?\"<>|");
    QString safe;
    for (const QChar c : name)
        safe += c.unicode() < 0x20 || c.unicode() == 0x7f || reserved.contains(c) ? QLatin1Char('_') : c;
    safe = safe.trimmed();
    if (safe.size() > 120)
        safe = safe.left(120).trimmed();
    while (safe.endsWith(QLatin1Char('.')) || safe.endsWith(QLatin1Char(' ')))
        safe.chop(1);
    if (safe.startsWith(QLatin1Char('.')))
        safe[0] = QLatin1Char('_');
    if (safe.isEmpty())
        return QStringLiteral("HUD");
    static const QRegularExpression device(QStringLiteral("^(con|prn|aux|nul|com[1-9]|lpt[1-9])$"),
                                           QRegularExpression::CaseInsensitiveOption);
    if (device.match(safe.section(QLatin1Char('.'), 0, 0)).hasMatch())
        safe += QLatin1Char('_');
    return safe;
}

// The first of "name", "name (2)", "name (3)" ... not yet taken, compared
// without case so that case-blind file systems keep every picture.
QString numberedFileName(const QString& name, QSet<QString>& taken)
{
    QString candidate = name;
    for (int n = 2; taken.contains(candidate.toLower()); ++n)
        candidate = QStringLiteral("%1 (%2)").arg(name).arg(n);
    taken.insert(candidate.toLower());
    return candidate + QStringLiteral(".png");
}

// Loads the project's game fonts as the text components ask for them, and
// says which can't be loaded: their text shows in the default font.
void loadProjectFonts(const QDir& folder, const QJsonObject& system, GameUIEditorScene* scene, QTextStream& out)
{
    const QJsonObject advanced = system.value(QStringLiteral("advanced")).toObject();
    const QString main = advanced.value(QStringLiteral("mainFontFilename")).toString();
    const QString number = advanced.value(QStringLiteral("numberFontFilename")).toString();
    const QString fallback = advanced.value(QStringLiteral("fallbackFonts")).toString();
    const QDir fonts(folder.absoluteFilePath(QStringLiteral("fonts")));
    for (const QString& name : {main, number}) {
        if (name.isEmpty())
            continue;
        PathManager::getFont(name, fonts, false);
        if (PathManager::loadedFontFamily(name).isEmpty())
            out << "Font \"" << name << "\" could not be loaded; its text is drawn in the default font\n";
    }
    scene->setFontNames(main, number, fallback);
}

// The HUDs of a document that a command works on: all of them, or those
// whose name or ID is hud. Says so when there is none.
QVector<const HudEntry*> chosenHuds(const HudDocument& document, const QString& hud, const char* verb,
                                    QTextStream& err)
{
    QVector<const HudEntry*> chosen;
    QStringList names;
    for (const HudEntry& entry : document.entries) {
        const QString name = HudDocument::displayName(entry.type, entry.object);
        names.append(name);
        if (hud.isEmpty() || hud == name || hud == entry.object.value(HudDocument::KeyId).toString())
            chosen.append(&entry);
    }
    if (chosen.isEmpty() && hud.isEmpty())
        err << "velmora-cli: the project has no HUD to " << verb << "\n";
    else if (chosen.isEmpty())
        err << "velmora-cli: the project has no HUD named \"" << hud << "\"; its HUDs are: \""
            << names.join(QStringLiteral("\", \"")) << "\"\n";
    return chosen;
}

int render(const QDir& folder, const RenderOptions& options, QTextStream& out, QTextStream& err)
{
    QJsonObject projectData;
    ProjectData::ScreenSize screen;
    QStringList problems;
    if (!ProjectData::load(folder, projectData, screen, &problems)) {
        err << "velmora-cli: " << QDir::toNativeSeparators(folder.absolutePath())
            << " is not a usable RPG Maker MZ project\n";
        for (const QString& problem : qAsConst(problems))
            err << "  " << problem << "\n";
        return Failure;
    }
    const QStringList backgrounds = options.background ? HudDocument::storedBackgrounds(folder) : QStringList();
    const HudDocument document = HudDocument::load(folder, backgrounds);
    const QString documentPath = JsonFile::pluginPath(folder, HudDocument::FileName);
    if (document.damagedFile && document.fromTemplates) {
        err << "velmora-cli: " << QDir::toNativeSeparators(documentPath) << " can't be used as a HUD document ("
            << document.damage << ")\n";
        return Failure;
    }
    if (document.damagedFile)
        out << document.damageNotice() << "\n";
    else if (document.fromTemplates)
        out << "The project has no HUD document yet; its HUDs are those a new project starts with\n";

    const QVector<const HudEntry*> chosen = chosenHuds(document, options.hud, "draw", err);
    if (chosen.isEmpty())
        return Failure;

    const QString outputPath = QFileInfo(options.outputFolder).absoluteFilePath();
    const QFileInfo outputInfo(outputPath);
    if (outputInfo.exists() && !outputInfo.isDir()) {
        err << "velmora-cli: " << QDir::toNativeSeparators(outputPath) << " is a file, not a folder\n";
        return Failure;
    }
    if (!QDir().mkpath(outputPath) || !QFileInfo(outputPath).isWritable()) {
        err << "velmora-cli: can't write into the folder " << QDir::toNativeSeparators(outputPath) << "\n";
        return Failure;
    }
    const QDir output(outputPath);

    // Pictures and fonts are looked up in the project, as in the editor.
    const QDir* previousProject = PathManager::projectDirectory();
    PathManager::setProjectDirectory(&folder);
    lookUpImagesIn(folder);
    const QString fontsFolder = folder.absoluteFilePath(QStringLiteral("fonts"));
    ProjectFonts::setFolderHook([fontsFolder]() { return fontsFolder; });
    BasicFontSelector::setFontLoader(PathManager::fontFamilyOf);
    int failures = 0;
    {
        const DocumentCatalog catalog(&document.entries);
        OffscreenEditor offscreen(&projectData);
        GameUIEditorScene* scene = offscreen.scene();
        scene->setTile(QImage(PathManager::resourcePath("resources/Editor/Tile.png")));
        if (options.background)
            scene->setDarkness(SettingsStore().value(QStringLiteral("BackgroundDarken"), 0.0).toDouble());
        loadProjectFonts(folder, projectData.value(QStringLiteral("System.json")).toObject(), scene, out);
        scene->setZoom(options.zoom);

        QSet<QString> taken;
        for (const HudEntry* entry : qAsConst(chosen)) {
            const QString name = HudDocument::displayName(entry->type, entry->object);
            const QString file = output.absoluteFilePath(numberedFileName(safeFileName(name), taken));
            HudDocument::switchScene(scene, nullptr, entry->type, &entry->object, QSize(screen.width, screen.height));
            QPixmap background;
            const QString backgroundPath = entry->object.value(HudDocument::KeyBackground).toString();
            if (options.background && !backgroundPath.isEmpty()) {
                background = HudDocument::backgroundImage(backgroundPath);
                if (background.isNull())
                    out << "HUD \"" << name << "\": its background image " << QDir::toNativeSeparators(backgroundPath)
                        << " can't be read; the canvas tile stands in\n";
            }
            scene->setBackgroundImage(background);
            const int width = int(scene->canvasRect().width());
            const int height = int(scene->canvasRect().height());
            // Beyond this a picture is no use as a preview and may not fit in memory.
            const bool drawable = width > 0 && height > 0 && width <= 32768 && height <= 32768;
            const QImage image = drawable ? scene->canvasImage(options.background) : QImage();
            if (image.isNull()) {
                err << "velmora-cli: HUD \"" << name << "\" could not be drawn: a canvas of " << width << " x "
                    << height << " pixels is " << (drawable ? "too large for memory" : "not drawable") << "\n";
                ++failures;
                continue;
            }
            QImageWriter writer(file, "png");
            // zlib's fastest level: a picture full of outlined text otherwise
            // spends most of its time in compression, for files a fifth smaller.
            writer.setQuality(80);
            if (!writer.write(image)) {
                err << "velmora-cli: HUD \"" << name << "\" could not be written to "
                    << QDir::toNativeSeparators(file) << ": " << writer.errorString() << "\n";
                ++failures;
                continue;
            }
            out << "Wrote " << QDir::toNativeSeparators(file) << " (" << image.width() << " x " << image.height()
                << ")\n";
        }
        scene->clear();
    }
    PathManager::setProjectDirectory(previousProject);
    if (!previousProject) {
        PathManager::setGraphicsFolderHook(nullptr);
        ProjectFonts::setFolderHook(nullptr);
        ProjectImages::setPathHook(nullptr);
    }
    return failures == 0 ? Success : Failure;
}

int outline(const QDir& folder, const QString& hud, QTextStream& out, QTextStream& err)
{
    QJsonObject projectData;
    ProjectData::ScreenSize screen;
    QStringList problems;
    // The HUD document is read while the database parses.
    HudDocument document;
    if (!ProjectData::load(folder, projectData, screen, &problems,
                           [&document, &folder]() { document = HudDocument::load(folder); },
                           ProjectData::Reading::Names)) {
        err << "velmora-cli: " << QDir::toNativeSeparators(folder.absolutePath())
            << " is not a usable RPG Maker MZ project\n";
        for (const QString& problem : qAsConst(problems))
            err << "  " << problem << "\n";
        return Failure;
    }
    if (document.damagedFile) {
        // An outline of what could be read would pass for the whole document.
        err << "velmora-cli: " << QDir::toNativeSeparators(JsonFile::pluginPath(folder, HudDocument::FileName))
            << " can't be read as a HUD document (" << document.damage << ")\n";
        return Failure;
    }
    if (document.fromTemplates)
        out << "The project has no HUD document yet; its HUDs are those a new project starts with\n";
    const QVector<const HudEntry*> chosen = chosenHuds(document, hud, "outline", err);
    // The user's order of custom properties; without a usable file they go by name.
    projectData.insert(UsesCustomProperties::OrdersFile,
                       JsonFile::readPlugin(folder, UsesCustomProperties::OrdersFile).object());
    // The custom kinds name the HUD they show from the document's entries.
    const DocumentCatalog catalog(&document.entries);
    for (const HudEntry* entry : chosen)
        HudOutline::write(*entry, &projectData, out);
    return chosen.isEmpty() ? Failure : Success;
}

int resave(const QDir& folder, const QString& output, bool visit, bool throughDialogs, QTextStream& out,
           QTextStream& err)
{
    HudDocument document = HudDocument::load(folder);
    const QString source = JsonFile::pluginPath(folder, HudDocument::FileName);
    if (document.fromTemplates && !document.damagedFile) {
        err << "velmora-cli: there is no HUD document at " << QDir::toNativeSeparators(source) << "\n";
        return Failure;
    }
    if (document.damagedFile) {
        // Rewriting would keep only what could be read: leave the file alone.
        err << "velmora-cli: " << QDir::toNativeSeparators(source) << " can't be used as a HUD document ("
            << document.damage << "); nothing was written\n";
        return Failure;
    }
    DialogTally tally;
    if (visit || throughDialogs)
        visitAll(folder, document.entries, throughDialogs ? &tally : nullptr);
    const QJsonObject assembled = HudDocument::assemble(document.root, document.entries);
    const QString target = output.isEmpty() ? source : QFileInfo(output).absoluteFilePath();
    QString reason;
    if (!HudDocument::save(folder, assembled, false, output.isEmpty() ? QString() : target, &reason)) {
        err << "velmora-cli: could not write " << QDir::toNativeSeparators(target) << ": " << reason << "\n";
        return Failure;
    }
    if (throughDialogs)
        printTally(tally, out);
    out << "Wrote " << QDir::toNativeSeparators(target) << "\n";
    return Success;
}

}

int execute(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    const QStringList args = arguments.mid(1);
    if (args.isEmpty())
        return usageError(err, QStringLiteral("a command is needed"));
    if (args.contains(QStringLiteral("--help")) || args.contains(QStringLiteral("-h"))) {
        out << Usage;
        return Success;
    }
    if (args.contains(QStringLiteral("--version"))) {
        out << "velmora-cli " << VELMORA_VERSION << "\n";
        return Success;
    }

    const QString command = args.first();
    const bool isResave = command == QLatin1String("resave");
    const bool isRender = command == QLatin1String("render");
    const bool isOutline = command == QLatin1String("outline");
    if (command != QLatin1String("check") && !isResave && !isRender && !isOutline)
        return usageError(err, QStringLiteral("unknown command '%1'").arg(command));

    QString project;
    QString output;
    bool outputGiven = false;
    bool visit = false;
    bool throughDialogs = false;
    bool hudGiven = false;
    bool zoomGiven = false;
    RenderOptions renderOptions;
    for (int i = 1; i < args.size(); ++i) {
        const QString& arg = args.at(i);
        if ((isResave || isRender) && arg == QLatin1String("--out")) {
            const QString what = isRender ? QStringLiteral("--out takes one folder") : QStringLiteral("--out takes one file");
            if (i + 1 >= args.size() || outputGiven)
                return usageError(err, what);
            output = args.at(++i);
            outputGiven = true;
            if (output.isEmpty())
                return usageError(err, what);
        } else if (isResave && arg == QLatin1String("--visit-all")) {
            visit = true;
        } else if (isResave && arg == QLatin1String("--through-dialogs")) {
            throughDialogs = true;
        } else if ((isRender || isOutline) && arg == QLatin1String("--hud")) {
            if (i + 1 >= args.size() || hudGiven || args.at(i + 1).isEmpty())
                return usageError(err, QStringLiteral("--hud takes one HUD name"));
            renderOptions.hud = args.at(++i);
            hudGiven = true;
        } else if (isRender && arg == QLatin1String("--zoom")) {
            bool ok = false;
            const double factor = i + 1 < args.size() && !zoomGiven ? args.at(i + 1).toDouble(&ok) : 0.0;
            const int tenths = qRound(factor * 10);
            if (!ok || tenths < 1 || tenths > 59 || qAbs(factor * 10 - tenths) > 1e-6)
                return usageError(err, QStringLiteral("--zoom takes a factor from 0.1 to 5.9 in steps of 0.1"));
            renderOptions.zoom = tenths;
            zoomGiven = true;
            ++i;
        } else if (isRender && arg == QLatin1String("--background")) {
            renderOptions.background = true;
        } else if (arg.startsWith(QLatin1String("--"))) {
            return usageError(err, QStringLiteral("unknown option '%1'").arg(arg));
        } else if (project.isNull()) {
            project = arg;
        } else {
            return usageError(err, QStringLiteral("too many arguments"));
        }
    }
    if (project.isNull())
        return usageError(err, QStringLiteral("%1 needs a project").arg(command));
    if (isRender && !outputGiven)
        return usageError(err, QStringLiteral("render needs --out DIR"));

    QDir folder;
    if (!projectFolder(project, folder)) {
        err << "velmora-cli: no such file or folder: " << project << "\n";
        return Failure;
    }
    if (command == QLatin1String("check"))
        return check(folder, out);
    if (isOutline)
        return outline(folder, renderOptions.hud, out, err);
    if (isRender) {
        if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
            err << "velmora-cli: render needs the widget application\n";
            return Failure;
        }
        renderOptions.outputFolder = output;
        return render(folder, renderOptions, out, err);
    }
    if ((visit || throughDialogs) && !qobject_cast<QApplication*>(QCoreApplication::instance())) {
        err << "velmora-cli: " << (throughDialogs ? "--through-dialogs" : "--visit-all")
            << " needs the widget application\n";
        return Failure;
    }
    return resave(folder, output, visit, throughDialogs, out, err);
}

namespace {

QtMessageHandler passOn = nullptr;

// The commands' windows are never shown, so what the offscreen platform says
// it can't do for them (window opacity, size hints) is of no use to the
// reader of the output; everything else goes on as before.
void dropOffscreenNotes(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtWarningMsg && message.startsWith(QLatin1String("This plugin does not support")))
        return;
    if (passOn)
        passOn(type, context, message);
}

}

int run(int argc, char** argv)
{
    // Visiting and drawing the HUDs run the editor's canvas, which needs
    // widgets; it never shows one, so no display is needed either.
    bool canvas = argc > 1 && qstrcmp(argv[1], "render") == 0;
    for (int i = 1; i < argc; ++i)
        canvas = canvas || qstrcmp(argv[i], "--visit-all") == 0 || qstrcmp(argv[i], "--through-dialogs") == 0;
    if (canvas && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (canvas)
        passOn = qInstallMessageHandler(dropOffscreenNotes);
    QScopedPointer<QCoreApplication> application(canvas ? new QApplication(argc, argv)
                                                        : new QCoreApplication(argc, argv));
    initVelmoraResources();
    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setCodec("UTF-8");
    err.setCodec("UTF-8");
    return execute(QCoreApplication::arguments(), out, err);
}

}
