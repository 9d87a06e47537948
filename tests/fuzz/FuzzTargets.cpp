#include "FuzzTargets.h"

#include "TestEnvironment.h"

#include "app/HudDocument.h"
#include "app/HudListController.h"
#include "app/VelmoHUDDialog.h"
#include "app/PathManager.h"
#include "app/ProjectData.h"
#include "logic/GameDataLabel.h"
#include "app/WoffConverter.h"
#include "components/CustomExpansion.h"
#include "components/GameUIEditorSceneHelper.h"
#include "logic/ConditionDisplay.h"
#include "logic/HudCatalog.h"
#include "logic/RMConditionList.h"
#include "scene/UIComponentBaseDialog.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"
#include "theme/MorvikCSVTranslator.h"
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"
#include "widgets/ClipboardIdentifiers.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QPainter>
#include <QPushButton>
#include <QSet>
#include <QTimer>
#include <QtEndian>

#include <memory>
#include <tuple>

#include <sys/stat.h>
#include <zlib.h>

namespace FuzzTargets {

namespace {

using Helper = GameUIEditorSceneHelper<VelmoUISelector>;

// A broken promise: the message goes to Qt's output and the process aborts,
// which libFuzzer keeps as a crash and the replay test reports as a failure.
[[noreturn]] void broken(const char* target, const QString& what)
{
    qFatal("%s: %s", target, qPrintable(what));
    std::abort();
}

// A value for a message, cut short.
QString shown(const QJsonValue& value)
{
    QString text;
    if (value.isObject())
        text = QString::fromUtf8(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact));
    else if (value.isArray())
        text = QString::fromUtf8(QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact));
    else
        text = QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    return text.size() > 400 ? text.left(400) + QStringLiteral("...") : text;
}

// Where two JSON values first differ, as a path and the two values there.
QString difference(const QJsonValue& a, const QJsonValue& b, const QString& path = QStringLiteral("$"))
{
    if (a.isObject() && b.isObject()) {
        const QJsonObject x = a.toObject();
        const QJsonObject y = b.toObject();
        QStringList keys = x.keys() + y.keys();
        keys.removeDuplicates();
        for (const QString& key : qAsConst(keys)) {
            if (x.value(key) != y.value(key))
                return difference(x.value(key), y.value(key), path + QLatin1Char('.') + key);
        }
    } else if (a.isArray() && b.isArray() && a.toArray().size() == b.toArray().size()) {
        const QJsonArray x = a.toArray();
        const QJsonArray y = b.toArray();
        for (int i = 0; i < x.size(); ++i) {
            if (x.at(i) != y.at(i))
                return difference(x.at(i), y.at(i), QStringLiteral("%1[%2]").arg(path).arg(i));
        }
    }
    if (a.isArray() && b.isArray())
        return QStringLiteral("%1: %2 entries against %3").arg(path).arg(a.toArray().size()).arg(b.toArray().size());
    return QStringLiteral("%1: %2 against %3").arg(path, shown(a), shown(b));
}

// Whether JSON comparisons of the value mean anything. Qt 5.15 can't find a
// key that holds a NUL character (contains() misses a key its own keys()
// lists), so objects with such keys compare at random; they still go
// through everything, only the comparisons are left out.
bool comparable(const QJsonValue& value)
{
    if (value.isArray()) {
        for (const QJsonValue& inner : value.toArray()) {
            if (!comparable(inner))
                return false;
        }
    } else if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it) {
            if (it.key().contains(QChar(0)) || !comparable(it.value()))
                return false;
        }
    }
    return true;
}

// Posted events (deferred deletes, repaints, language changes) would pile up
// between inputs, since nothing else runs an event loop here.
void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

// A sample-project copy the component kinds draw from: the database for
// names and faces, "img" for pictures, "fonts" for text.
struct Project {
    Project() : folder(TestEnvironment::copySampleProject(QStringLiteral("fuzz-project"))), directory(folder)
    {
        ProjectData::ScreenSize screen;
        if (!ProjectData::load(directory, data, screen))
            broken("setup", QStringLiteral("the sample project doesn't load"));
        PathManager::setProjectDirectory(&directory);
        PathManager::setGraphicsFolderHook(&ProjectData::graphicsFolder);
    }
    QString folder;
    QDir directory;
    QJsonObject data;
};

Project& project()
{
    static Project sample;
    return sample;
}

// Draws the scene's area into a small picture, as a view would show it
// scaled down; selection frames and handles included.
void paintScene(QGraphicsScene* scene, const QRectF& area)
{
    QImage image(128, 96, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    scene->render(&painter, QRectF(image.rect()), area);
}

// Every component object of an array, children included.
void collectComponents(const QJsonArray& components, QList<QJsonObject>& into)
{
    for (const QJsonValue& value : components) {
        if (!value.isObject())
            continue;
        into.append(value.toObject());
        collectComponents(value.toObject().value(HudDocument::KeyChildren).toArray(), into);
    }
}

bool sameEntries(const QVector<HudEntry>& a, const QVector<HudEntry>& b)
{
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < a.size(); ++i) {
        if (a[i].type != b[i].type || a[i].object != b[i].object)
            return false;
    }
    return true;
}

}

const QVector<Target>& all()
{
    static const QVector<Target> targets = {
        {"huddocument", &hudDocument}, {"projectdata", &projectData}, {"component", &component},
        {"clipboard", &clipboard},     {"theme", &theme},             {"translator", &translator},
        {"woff", &woff},               {"woff2", &woff2},
    };
    return targets;
}

const Target* find(const QString& name)
{
    for (const Target& target : all()) {
        if (name == QLatin1String(target.name))
            return &target;
    }
    return nullptr;
}

// ---------------------------------------------------------------- seeds

namespace {

QByteArray compactJson(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray fileBytes(const QString& path)
{
    return TestEnvironment::readFile(path);
}

// The files of a folder whose names match the filter, in name order.
QStringList filesIn(const QString& folder, const QStringList& filters)
{
    QStringList paths;
    const QDir directory(folder);
    for (const QString& name : directory.entryList(filters, QDir::Files, QDir::Name))
        paths.append(directory.filePath(name));
    return paths;
}

// The HUD documents of the source tree and the projects.
QVector<QByteArray> documents(const QStringList& projects)
{
    QVector<QByteArray> found{fileBytes(QStringLiteral(VELMORA_SOURCE_ROOT "/tests/data/full_document.json"))};
    for (const QString& folder : projects) {
        const QByteArray bytes = fileBytes(folder + QStringLiteral("/data/plugin/VelmoraHUD.json"));
        if (!bytes.isEmpty())
            found.append(bytes);
    }
    return found;
}

QList<QJsonObject> hudsOf(const QVector<QByteArray>& documents)
{
    QList<QJsonObject> huds;
    for (const QByteArray& bytes : documents) {
        for (const QJsonValue& hud : QJsonDocument::fromJson(bytes).object().value(HudDocument::KeyData).toArray())
            huds.append(hud.toObject());
    }
    return huds;
}

// A WOFF 1.0 file of two small tables, one stored and one deflated: a start
// the fuzzer can change byte by byte, unlike a whole font.
QByteArray smallWoff()
{
    const QByteArray stored(54, '\x11');
    const QByteArray plain = QByteArray("Velmora ").repeated(8);
    uLongf packedSize = compressBound(uLong(plain.size()));
    QByteArray packed(int(packedSize), '\0');
    compress(reinterpret_cast<Bytef*>(packed.data()), &packedSize, reinterpret_cast<const Bytef*>(plain.constData()),
             uLong(plain.size()));
    packed.resize(int(packedSize));

    const auto be32 = [](QByteArray& out, quint32 value) {
        char bytes[4];
        qToBigEndian(value, bytes);
        out.append(bytes, 4);
    };
    const quint32 directoryEnd = 44 + 2 * 20;
    const quint32 packedAt = directoryEnd + ((stored.size() + 3) & ~3);
    const quint32 total = packedAt + packed.size();
    QByteArray woff;
    be32(woff, 0x774F4646); // "wOFF"
    be32(woff, 0x00010000);
    be32(woff, total);
    be32(woff, 2 << 16); // two tables, nothing reserved
    be32(woff, 12 + 2 * 16 + ((stored.size() + 3) & ~3) + ((plain.size() + 3) & ~3));
    for (int i = 0; i < 6; ++i)
        be32(woff, 0); // versions, metadata, private data
    for (const auto& table : {std::make_tuple(0x68656164u, directoryEnd, stored.size(), stored.size()),
                              std::make_tuple(0x6E616D65u, packedAt, packed.size(), plain.size())}) {
        be32(woff, std::get<0>(table));
        be32(woff, std::get<1>(table));
        be32(woff, quint32(std::get<2>(table)));
        be32(woff, quint32(std::get<3>(table)));
        be32(woff, 0);
    }
    woff.append(stored);
    woff.append(QByteArray((4 - stored.size() % 4) % 4, '\0'));
    woff.append(packed);
    return woff;
}

}

QVector<QByteArray> seeds(const QString& target, const QStringList& projects)
{
    QVector<QByteArray> inputs;
    const QString root = QStringLiteral(VELMORA_SOURCE_ROOT);
    if (target == QLatin1String("huddocument")) {
        inputs = documents(projects);
        for (const char* name : {"VelmoraMapHUD.json", "VelmoraBattleHUD.json"}) {
            const QJsonArray components =
                QJsonDocument::fromJson(fileBytes(root + QStringLiteral("/Default/") + QLatin1String(name))).array();
            inputs.append(compactJson(QJsonObject{{"Data", QJsonArray{QJsonObject{{"HUD", components}}}}}));
        }
    } else if (target == QLatin1String("projectdata")) {
        const QStringList& names = ProjectData::fileNames();
        for (const QString& folder : projects) {
            for (int i = 0; i < names.size(); ++i)
                inputs.append(char(i) + fileBytes(folder + QStringLiteral("/data/") + names.at(i)));
        }
    } else if (target == QLatin1String("component")) {
        for (const QJsonObject& hud : hudsOf(documents(projects))) {
            QList<QJsonObject> components;
            collectComponents(hud.value(HudDocument::KeyHud).toArray(), components);
            for (QJsonObject object : qAsConst(components)) {
                object.remove(HudDocument::KeyChildren);
                // 14: the object keeps its own "Type".
                inputs.append(char(14) + compactJson(object));
            }
        }
    } else if (target == QLatin1String("clipboard")) {
        const QStringList& words = ClipboardIdentifiers::all();
        const char component = char(words.indexOf(ClipboardIdentifiers::Component));
        const char hudWord = char(words.indexOf(ClipboardIdentifiers::Hud));
        for (const QJsonObject& hud : hudsOf(documents(projects))) {
            inputs.append(hudWord + compactJson(hud));
            for (const QJsonValue& value : hud.value(HudDocument::KeyHud).toArray())
                inputs.append(component + compactJson(value.toObject()));
        }
    } else if (target == QLatin1String("theme")) {
        for (const QString& folder : QDir(root + QStringLiteral("/Themes")).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            inputs.append(fileBytes(root + QStringLiteral("/Themes/") + folder + QStringLiteral("/Theme.json")));
    } else if (target == QLatin1String("translator")) {
        for (const QString& path : filesIn(root + QStringLiteral("/examples/translations"), {QStringLiteral("*.csv")}))
            inputs.append(fileBytes(path));
        inputs.append(fileBytes(root + QStringLiteral("/resources/VelmoraTranslationBase.csv")));
    } else if (target == QLatin1String("woff") || target == QLatin1String("woff2")) {
        if (target == QLatin1String("woff"))
            inputs.append(smallWoff());
        const QStringList filter{QStringLiteral("*.") + target};
        for (const QString& folder : projects) {
            for (const QString& path : filesIn(folder + QStringLiteral("/fonts"), filter))
                inputs.append(fileBytes(path));
        }
    }
    return inputs;
}

void ensureApplication()
{
    if (QCoreApplication::instance())
        return;
    TestEnvironment::isolate();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "velmora-fuzz";
    static char* argv[] = {name, nullptr};
    // Lives until the process ends, as the editor's own does.
    static QApplication* application = new QApplication(argc, argv);
    Q_UNUSED(application);
    initVelmoraResources();
}

// ---------------------------------------------------------------- HUD document

void hudDocument(const QByteArray& bytes)
{
    static const QString folder = TestEnvironment::makeProject(QStringLiteral("fuzz-hud"));
    const QDir directory(folder);
    const QString plugin = folder + QStringLiteral("/data/plugin");
    QDir(plugin).removeRecursively();
    TestEnvironment::writeFile(plugin + QStringLiteral("/VelmoraHUD.json"), bytes);

    const HudDocument loaded = HudDocument::load(directory);
    if (loaded.fromTemplates && !loaded.damagedFile)
        broken("huddocument", QStringLiteral("a file that is there opened from the templates without a word"));
    QStringList backgrounds;
    const QJsonObject written = HudDocument::assemble(loaded.root, loaded.entries, &backgrounds);

    // What the editor can read it writes back: keys it doesn't know and the
    // custom HUDs unchanged, the Map and Battle HUDs with their components.
    const QJsonObject original = QJsonDocument::fromJson(bytes).object();
    const bool compare = comparable(original);
    if (!loaded.damagedFile && compare) {
        for (auto it = original.begin(); it != original.end(); ++it) {
            if (it.key() == HudDocument::KeyMap || it.key() == HudDocument::KeyBattle
                || it.key() == HudDocument::KeyData)
                continue;
            if (written.value(it.key()) != it.value())
                broken("huddocument", QStringLiteral("the root key \"%1\" was not written back").arg(it.key()));
        }
        const QJsonArray data = original.value(HudDocument::KeyData).toArray();
        const QJsonArray out = written.value(HudDocument::KeyData).toArray();
        if (out.size() != data.size())
            broken("huddocument", QStringLiteral("%1 HUDs read, %2 written").arg(data.size()).arg(out.size()));
        for (int i = 0; i < data.size(); ++i) {
            const QJsonObject hud = data.at(i).toObject();
            const QJsonObject saved = out.at(i).toObject();
            if (loaded.entries.at(i).type == HudEntry::Custom) {
                QJsonObject expected = hud;
                expected.remove(HudDocument::KeyBackground);
                if (saved != expected)
                    broken("huddocument", QStringLiteral("HUD %1 was written as %2").arg(i).arg(shown(saved)));
            } else if (saved.value(HudDocument::KeyHud) != hud.value(HudDocument::KeyHud)) {
                broken("huddocument", QStringLiteral("the components of HUD %1 were not written back").arg(i));
            }
        }
    }

    QString reason;
    if (!HudDocument::save(directory, written, loaded.damagedFile, QString(), &reason))
        broken("huddocument", QStringLiteral("the save failed: %1").arg(reason));
    if (loaded.damagedFile
        && TestEnvironment::readFile(plugin + QStringLiteral("/VelmoraHUD.json.bak")) != bytes)
        broken("huddocument", QStringLiteral("the backup of a damaged file isn't its bytes"));

    const HudDocument again = HudDocument::load(directory, backgrounds);
    if (again.damagedFile)
        broken("huddocument", QStringLiteral("the written document reads as damaged: %1").arg(again.damage));
    QStringList backgroundsAgain;
    const QJsonObject rewritten = HudDocument::assemble(again.root, again.entries, &backgroundsAgain);
    if (compare && rewritten != written)
        broken("huddocument", QStringLiteral("saved and read back differ at %1").arg(difference(written, rewritten)));
    if (backgroundsAgain != backgrounds)
        broken("huddocument", QStringLiteral("the background paths changed on the way"));
    if (again.currentIndex >= 0 && again.entries.at(again.currentIndex).type != HudEntry::Map)
        broken("huddocument", QStringLiteral("the HUD opened first isn't the Map HUD"));
}

// ---------------------------------------------------------------- project data

void projectData(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    static const QString folder = TestEnvironment::copySampleProject(QStringLiteral("fuzz-data"));
    static QHash<QString, QByteArray> originals;
    const QStringList& names = ProjectData::fileNames();
    const QString name = names.at(uchar(bytes.at(0)) % names.size());
    const QString path = folder + QStringLiteral("/data/") + name;
    if (!originals.contains(name))
        originals.insert(name, TestEnvironment::readFile(path));
    const QByteArray content = bytes.mid(1);
    TestEnvironment::writeFile(path, content);

    const QJsonObject before{{QStringLiteral("Earlier"), true}};
    QJsonObject data = before;
    ProjectData::ScreenSize screen{1, 2};
    QStringList problems;
    const bool loaded = ProjectData::load(QDir(folder), data, screen, &problems);
    const QJsonDocument parsed = QJsonDocument::fromJson(content);
    const bool system = name == QLatin1String("System.json");
    if (loaded != (system ? parsed.isObject() : parsed.isArray()))
        broken("projectdata", QStringLiteral("%1 judged wrongly").arg(name));
    if (loaded) {
        const QJsonValue held = system ? QJsonValue(parsed.object()) : QJsonValue(parsed.array());
        if (data.value(name) != held || data.size() != names.size() + 1 || !problems.isEmpty())
            broken("projectdata", QStringLiteral("%1 is not held as the file has it").arg(name));
        // Every reader walks the arrays itself; a label for each entry, null
        // ones and ones without a name included.
        const QJsonArray entries = data.value(name).toArray();
        for (int id = 0; id < entries.size(); ++id)
            GameDataLabel::entry(id, entries.at(id).toObject().value(QStringLiteral("name")).toString());
        const QJsonObject advanced = data.value(names.first()).toObject().value(QStringLiteral("advanced")).toObject();
        const QJsonValue width = advanced.value(QStringLiteral("screenWidth"));
        if (width.isDouble() && width.toDouble() == double(width.toInt()) && screen.width != width.toInt())
            broken("projectdata", QStringLiteral("the screen width isn't the project's"));
    } else {
        if (data != before || screen.width != 1 || screen.height != 2)
            broken("projectdata", QStringLiteral("a project that didn't open changed the data held"));
        if (problems.size() != 1 || !problems.first().contains(name))
            broken("projectdata", QStringLiteral("the problem named isn't %1: %2").arg(name, problems.join(' ')));
    }
    // The names-only reading of the outline judges the file the same and
    // gives every record the name the whole parse gives it.
    QJsonObject named;
    QStringList namesProblems;
    if (ProjectData::load(QDir(folder), named, screen, &namesProblems, {}, ProjectData::Reading::Names) != loaded
        || namesProblems != problems)
        broken("projectdata", QStringLiteral("%1 judged differently when only names are read").arg(name));
    if (loaded && !system) {
        const QJsonArray whole = data.value(name).toArray();
        const QJsonArray records = named.value(name).toArray();
        bool same = whole.size() == records.size();
        for (int id = 0; same && id < whole.size(); ++id) {
            same = whole.at(id).isObject()
                ? whole.at(id).toObject().value(QStringLiteral("name")) == records.at(id).toObject().value(QStringLiteral("name"))
                : whole.at(id) == records.at(id);
        }
        if (!same)
            broken("projectdata", QStringLiteral("%1 gives other names when only names are read").arg(name));
    }
    TestEnvironment::writeFile(path, originals.value(name));
}

// ---------------------------------------------------------------- components

void component(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    const QJsonDocument document = QJsonDocument::fromJson(bytes.mid(1));
    if (!document.isObject())
        return;
    static GameUIEditorScene* scene = [] {
        auto* made = new GameUIEditorScene();
        made->setHelper(new Helper);
        made->setProjectData(&project().data);
        made->setScreenSize(816, 624);
        return made;
    }();
    // Custom HUDs the custom kinds can name: "A" holds "B", which repeats
    // "A" in a grid (a cycle through a collection), "S" holds itself, and
    // "G" is a one-dot cell for big grids.
    static const QVector<HudCatalog::Row> rows = [] {
        const auto custom = [](const char* id, const QJsonArray& components) {
            return HudCatalog::Row{HudCatalog::Custom,
                                   QJsonObject{{"ID", id}, {"Name", id}, {"IsHUD", false}, {"Width", 40},
                                               {"Height", 30}, {"Params", QJsonArray()}, {"HUD", components}},
                                   false};
        };
        const QJsonObject dot = TestEnvironment::shape(1, 5, 5, 4, 4);
        return QVector<HudCatalog::Row>{
            {HudCatalog::Map, QJsonObject{{"HUD", QJsonArray{dot}}}, false},
            {HudCatalog::Battle, QJsonObject{{"HUD", QJsonArray()}}, false},
            custom("A", {dot, QJsonObject{{"ID", 2}, {"Type", 10}, {"X", 20}, {"Y", 15}, {"CustomData", QJsonObject{{"ID", "B"}}}}}),
            custom("B", {QJsonObject{{"ID", 1}, {"Type", 11}, {"X", 20}, {"Y", 15},
                                     {"CustomCollectionData", QJsonObject{{"ID", "A"}, {"MaxRows", 3}, {"MaxColumns", 3}}}}}),
            custom("S", {dot, QJsonObject{{"ID", 2}, {"Type", 12}, {"X", 0}, {"Y", 0},
                                          {"AttachCollectionData", QJsonObject{{"ID", "S"}}}}}),
            custom("G", {dot}),
        };
    }();
    // Set on every run: the clipboard target's HUD list installs its own.
    HudCatalog::setSource([] { return rows; });
    const uchar pick = uchar(bytes.at(0));
    QJsonObject json = document.object();
    if (pick % 16 < 14)
        json.insert(QStringLiteral("Type"), pick % 16);
    static const int zooms[] = {10, 5, 20, 1};
    scene->setZoom(zooms[(pick / 16) % 4]);

    std::unique_ptr<UIComponentBase> item(
        scene->helper()->createComponent(json, scene, &project().data, true));
    if (!item)
        broken("component", QStringLiteral("no component for %1").arg(shown(json)));
    scene->addItem(item.get());
    // A custom kind builds a bounded number of components whatever its grid
    // or nesting says (beside the handles and frames of the owner).
    int built = 0;
    for (QList<QGraphicsItem*> level = item->childItems(); !level.isEmpty();) {
        QList<QGraphicsItem*> next;
        for (QGraphicsItem* child : qAsConst(level)) {
            built += dynamic_cast<UIComponentBase*>(child) ? 1 : 0;
            next += child->childItems();
        }
        level = next;
    }
    if (built > CustomExpansion::componentBudget)
        broken("component", QStringLiteral("%1 components were built for %2").arg(built).arg(shown(json)));
    paintScene(scene, item->sceneBoundingRect());

    const QJsonObject first = item->data();
    const bool compare = comparable(json);
    for (auto it = json.begin(); compare && it != json.end(); ++it) {
        if (!first.contains(it.key()))
            broken("component", QStringLiteral("data() lost \"%1\" of %2").arg(it.key(), shown(json)));
    }
    item->setData(first);
    const QJsonObject second = item->data();
    if (compare && second != first)
        broken("component", QStringLiteral("setData(data()) changed %1").arg(difference(first, second)));
    std::unique_ptr<UIComponentBase> copy(scene->helper()->createComponent(first, scene, &project().data, true));
    if (compare && copy->data() != first)
        broken("component", QStringLiteral("a component made from data() differs at %1").arg(difference(first, copy->data())));
    item.reset();
    copy.reset();
    settle();
}

// ---------------------------------------------------------------- clipboard

namespace {

// The HUD list and the canvas with its component list, as the main window
// has them; a modal alert (a paste past the component limit) is closed as
// soon as it shows.
struct Lists {
    Lists()
        : canvas(new Helper), hudView(new GameUIEditor(&hudWindow)), hudList(new UltimateTreeWidget(&hudWindow)),
          removeButton(new QPushButton(&hudWindow)),
          controller(hudList, removeButton, hudView, &hudWindow)
    {
        canvas.scene->setProjectData(&project().data);
        hudView->setup(new Helper, &project().data);
        // The HUD being edited shows in its own component list, as beside the main window's canvas.
        auto* componentList = new UltimateTreeWidget(&hudWindow);
        componentList->tree()->setRowHeight(20);
        componentList->tree()->startView();
        hudView->bindList(componentList, nullptr, nullptr);
        controller.setup();
        controller.setScreenSize(QSize(816, 624));
        QObject::connect(hudList, &UltimateTreeWidget::currentItemChanged, &controller,
                         &HudListController::switchHud);
        QObject::connect(&closer, &QTimer::timeout, [] {
            if (QWidget* modal = QApplication::activeModalWidget())
                modal->close();
        });
        closer.start(0);

        const QJsonObject shape = TestEnvironment::shape(3, 40, 40);
        QJsonObject panel{{"ID", 1}, {"Type", 6}, {"Name", "Panel"}, {"X", 300}, {"Y", 200},
                          {"Children", QJsonArray{TestEnvironment::shape(2, 10, 10)}}};
        components = QJsonArray{panel, shape};
        QJsonObject custom{{"ID", "12345"}, {"Name", "Status"}, {"IsHUD", true}, {"HUD", components}};
        document.setDocument(QJsonObject{{"Map", 0}, {"Battle", 1},
                                         {"Data", QJsonArray{QJsonObject{{"HUD", components}},
                                                             QJsonObject{{"HUD", QJsonArray()}}, custom}}},
                             {});
    }

    QWidget hudWindow;
    TestEnvironment::Canvas canvas;
    GameUIEditor* hudView;
    UltimateTreeWidget* hudList;
    QPushButton* removeButton;
    HudListController controller;
    QTimer closer;
    QJsonArray components;
    HudDocument document;
};

void checkIdsUnique(const QJsonArray& components)
{
    QList<QJsonObject> all;
    collectComponents(components, all);
    QSet<int> ids;
    for (const QJsonObject& object : qAsConst(all)) {
        const int id = object.value(QStringLiteral("ID")).toInt(-1);
        if (ids.contains(id))
            broken("clipboard", QStringLiteral("two components hold the id %1").arg(id));
        ids.insert(id);
    }
}

void pasteComponent(Lists& lists, bool intoGroup, const QString& text)
{
    GameUIEditorScene* scene = lists.canvas.scene;
    scene->clear();
    scene->loadFromJson(lists.components);
    UltimateTree* rows = lists.canvas.list->tree();
    // Beside the group's child, the paste goes into the group.
    rows->setCurrentRow(intoGroup ? rows->row(0)->child(0) : rows->row(1));
    const QJsonArray before = scene->toJson();
    if (intoGroup)
        lists.canvas.view->pasteAComponentFromList();
    else
        lists.canvas.view->pasteAComponent();
    const QJsonArray after = scene->toJson();
    // The pasted component is selected: its frame, ants and handles show.
    paintScene(scene, scene->sceneRect());

    if (HudDocument::componentCount(after) != scene->components().size())
        broken("clipboard", QStringLiteral("the list and the canvas hold different components"));
    if (scene->components().size() > GameUIEditorScene::componentLimit)
        broken("clipboard", QStringLiteral("a paste passed the component limit"));
    QJsonObject offered;
    if (!ClipboardIdentifiers::readObject(text, ClipboardIdentifiers::Component, &offered) && after != before)
        broken("clipboard", QStringLiteral("text that holds no component changed the HUD"));
    checkIdsUnique(after);
    if (after == before)
        return;
    const bool compare = comparable(offered);
    scene->undo();
    if (compare && scene->toJson() != before)
        broken("clipboard", QStringLiteral("undoing the paste differs at %1").arg(difference(before, scene->toJson())));
    scene->redo();
    if (compare && scene->toJson() != after)
        broken("clipboard", QStringLiteral("redoing the paste differs at %1").arg(difference(after, scene->toJson())));
    // The HUD as it would be saved opens again the same.
    scene->clear();
    scene->loadFromJson(after);
    if (compare && scene->toJson() != after)
        broken("clipboard", QStringLiteral("the HUD saved and read back differ at %1").arg(difference(after, scene->toJson())));
}

void pasteHud(Lists& lists, bool onCustom, const QString& text)
{
    lists.controller.show(lists.document);
    UltimateTree* rows = lists.hudList->tree();
    if (onCustom)
        rows->setCurrentRow(rows->row(2));
    const QVector<HudEntry> before = lists.controller.entries();
    lists.hudList->pasteCurrentItem();
    const QVector<HudEntry> after = lists.controller.entries();

    QJsonObject record;
    if (!ClipboardIdentifiers::readObject(text, ClipboardIdentifiers::Hud, &record)) {
        if (!sameEntries(before, after))
            broken("clipboard", QStringLiteral("text that holds no HUD changed the HUD list"));
        return;
    }
    const bool compare = comparable(record);
    if (after.size() != before.size() + 1)
        broken("clipboard", QStringLiteral("a HUD was offered and %1 rows came of it").arg(after.size() - before.size()));
    // It lands behind the current row, a fresh custom HUD.
    const int at = onCustom ? 3 : 1;
    const HudEntry& pasted = after.at(at);
    const QString id = pasted.object.value(HudDocument::KeyId).toString();
    if (pasted.type != HudEntry::Custom || id.size() != 5 || HudDocument::identifiers(before).contains(id))
        broken("clipboard", QStringLiteral("the pasted HUD is %1").arg(shown(pasted.object)));
    for (auto it = record.begin(); compare && it != record.end(); ++it) {
        if (it.key() != HudDocument::KeyId && pasted.object.value(it.key()) != it.value())
            broken("clipboard", QStringLiteral("the pasted HUD lost \"%1\"").arg(it.key()));
    }
    if (!pasted.object.contains(HudDocument::KeyName) || !pasted.object.contains(HudDocument::KeyIsHud))
        broken("clipboard", QStringLiteral("the pasted HUD has no name or no kind"));

    // The user opens it on the canvas and goes back to the Map HUD; the list
    // then saves and reads back the same.
    rows->setCurrentRow(rows->row(at));
    paintScene(lists.hudView->editorScene(), lists.hudView->editorScene()->sceneRect());
    if (HudDocument::componentCount(record.value(HudDocument::KeyHud).toArray()) > 0
        && lists.hudView->editorScene()->components().isEmpty())
        broken("clipboard", QStringLiteral("the pasted HUD's components didn't open"));
    rows->setCurrentRow(rows->row(0));
    const QVector<HudEntry> visited = lists.controller.entries();
    const QJsonObject written = HudDocument::assemble(QJsonObject(), visited);
    HudDocument reread;
    reread.setDocument(written, {});
    if (compare && HudDocument::assemble(QJsonObject(), reread.entries) != written)
        broken("clipboard", QStringLiteral("the HUD list with the pasted HUD doesn't read back"));
}


// A paste into the list of a dialog that takes the identifier, its first
// row current so that the paste lands between rows. The custom property list
// pastes through its owner, as Ctrl+V on it does.
void pasteInto(QWidget* dialog, const QString& word)
{
    const QList<UltimateTreeWidget*> lists = dialog->findChildren<UltimateTreeWidget*>();
    for (UltimateTreeWidget* list : lists) {
        const bool properties = list->objectName() == QLatin1String("customProperties");
        if (properties ? word != ClipboardIdentifiers::CustomProperty : list->getClipboardId() != word)
            continue;
        if (UltimateTreeItem* first = list->tree()->row(0))
            list->tree()->setCurrentRow(first);
        if (properties)
            emit list->onPasteKeyPress();
        else
            list->pasteCurrentItem();
        settle();
        return;
    }
    broken("clipboard", QStringLiteral("no list of the dialog takes %1").arg(word));
}

void confirm(QWidget* dialog)
{
    auto* button = dialog->findChild<QAbstractButton*>(QStringLiteral("confirmButton"));
    if (!button)
        broken("clipboard", QStringLiteral("the dialog has no confirm button"));
    button->click();
    settle();
}

// What a paste into a list may do to its records: add one, or nothing when
// the text holds none the list takes; the records it had stay, in order.
void checkOneAdded(const QJsonArray& before, const QJsonArray& after, bool offered, const QString& what)
{
    if (after == before)
        return;
    if (!offered)
        broken("clipboard", QStringLiteral("text that holds no %1 changed the list").arg(what));
    if (after.size() != before.size() + 1)
        broken("clipboard", QStringLiteral("one %1 was offered and %2 came of it").arg(what).arg(after.size() - before.size()));
    int kept = 0;
    for (const QJsonValue& record : after) {
        if (kept < before.size() && record == before.at(kept))
            ++kept;
    }
    if (kept != before.size())
        broken("clipboard", QStringLiteral("a paste of a %1 changed the others").arg(what));
}

// A component's property dialog, a paste into one of its lists and Confirm;
// the dialog opened again on the result and confirmed unchanged gives it back.
QJsonObject pasteInComponentDialog(const QJsonObject& component, const QString& word)
{
    QJsonObject json = component;
    bool accepted = false;
    {
        std::unique_ptr<UIComponentBaseDialog> dialog = Helper::makeDialog(json, &accepted, true, nullptr, &project().data);
        pasteInto(dialog.get(), word);
        confirm(dialog.get());
    }
    if (!accepted)
        broken("clipboard", QStringLiteral("the property dialog wasn't confirmed"));
    QJsonObject again = json;
    {
        std::unique_ptr<UIComponentBaseDialog> dialog = Helper::makeDialog(again, &accepted, true, nullptr, &project().data);
        confirm(dialog.get());
    }
    if (comparable(json) && again != json)
        broken("clipboard", QStringLiteral("the pasted component doesn't keep through its dialog: %1").arg(difference(json, again)));
    return json;
}

void pasteInLists(const QString& word, const QString& text)
{
    QJsonObject offered;
    const bool offers = ClipboardIdentifiers::readObject(text, word, &offered);
    static const QJsonObject text0{
        {"ID", 5}, {"Type", 0}, {"Name", "Gold"}, {"X", 100}, {"Y", 50},
        {"Conditions", QJsonArray{QJsonObject{{"Type", 5}, {"Op", 3}, {"Value", 0}}}},
        {"Animations", QJsonArray{QJsonObject{{"ActivateType", QJsonObject{{"RunType", 1}, {"Type", 0}}},
                                              {"Duration", 30}, {"EasingCurve", 2}, {"Property", 7}, {"Reset", false},
                                              {"ReturnEasing", 0}, {"StartOpacity", 0}, {"EndOpacity", 1}, {"Type", 0}}}},
        {"CustomProperties", QJsonObject{{"Speed", "4"}, {"Mid", "x"}}},
        {"TextData", QJsonObject{{"Text", QJsonObject{{"Type", 0}, {"Text", "Gold"}}},
                                 {"Addons", QJsonArray{QJsonObject{{"Type", 0}, {"Note", "first"}},
                                                       QJsonObject{{"Type", 1}, {"FilterType", 3}, {"Brightness", 80}}}},
                                 {"Note", "first"}}}};
    if (word == ClipboardIdentifiers::Condition) {
        const QJsonArray before = text0.value("Conditions").toArray();
        QJsonArray conditions = before;
        bool accepted = false;
        RMConditionList dialog(&conditions, &accepted, &project().data, nullptr);
        pasteInto(&dialog, word);
        confirm(&dialog);
        checkOneAdded(before, conditions, offers, QStringLiteral("condition"));
        for (const QJsonValue& condition : qAsConst(conditions))
            conditionEntryText(condition.toObject(), &project().data);
    } else if (word == ClipboardIdentifiers::Addon) {
        const QJsonObject json = pasteInComponentDialog(text0, word);
        const QJsonObject data = json.value("TextData").toObject();
        checkOneAdded(text0.value("TextData").toObject().value("Addons").toArray(), data.value("Addons").toArray(),
                      offers, QStringLiteral("add-on"));
    } else if (word == ClipboardIdentifiers::PropertyAnimation) {
        const QJsonObject json = pasteInComponentDialog(text0, word);
        checkOneAdded(text0.value("Animations").toArray(), json.value("Animations").toArray(), offers,
                      QStringLiteral("animation"));
    } else if (word == ClipboardIdentifiers::CustomProperty) {
        const QJsonObject before = text0.value("CustomProperties").toObject();
        const QJsonObject after = pasteInComponentDialog(text0, word).value("CustomProperties").toObject();
        if (after != before && !offers)
            broken("clipboard", QStringLiteral("text that holds no custom property changed the list"));
        if (after.size() > before.size() + 1)
            broken("clipboard", QStringLiteral("one custom property was offered and more came of it"));
        for (auto it = before.begin(); it != before.end(); ++it) {
            if (after.value(it.key()) != it.value())
                broken("clipboard", QStringLiteral("a paste changed the custom property \"%1\"").arg(it.key()));
        }
        for (auto it = after.begin(); it != after.end(); ++it) {
            if (!it.value().isString())
                broken("clipboard", QStringLiteral("the custom property \"%1\" isn't text").arg(it.key()));
        }
    } else if (word == ClipboardIdentifiers::HudComponentParameter) {
        const QJsonArray before{QJsonObject{{"Name", "Label"}, {"IsString", true}},
                                QJsonObject{{"Name", "Count"}, {"IsString", false}}};
        QJsonObject hud{{"ID", "12345"}, {"Name", "Status"}, {"IsHUD", false}, {"Width", 240}, {"Height", 64},
                        {"HUD", QJsonArray()}, {"Params", before}};
        bool confirmed = false;
        {
            VelmoHUDDialog dialog(&hud, &confirmed, HudCatalog::Custom, nullptr);
            pasteInto(&dialog, word);
            confirm(&dialog);
        }
        if (!confirmed)
            broken("clipboard", QStringLiteral("the HUD dialog wasn't confirmed"));
        // Pasted parameters keep their names as they come, clashes included.
        checkOneAdded(before, hud.value("Params").toArray(), offers, QStringLiteral("parameter"));
    }
}
}

void clipboard(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    // Made once and kept to the end of the process, like the main window's.
    static Lists& lists = *new Lists;
    const QStringList& words = ClipboardIdentifiers::all();
    const uchar pick = uchar(bytes.at(0));
    const QString& word = words.at(pick % words.size());
    const bool withWord = (pick / words.size()) % 2 == 0;
    const bool alternative = (pick / words.size() / 2) % 2 == 1;
    // "@FIFO@" stands for a FIFO in the temporary home, so that a kept input
    // can name one (a HUD's background) without a fixed place on the disk.
    static const QString fifo = [] {
        const QString path = TestEnvironment::home() + QStringLiteral("/fuzz-fifo");
        ::mkfifo(QFile::encodeName(path).constData(), 0600);
        return path;
    }();
    QString text = (withWord ? word : QString()) + QString::fromUtf8(bytes.mid(1));
    text.replace(QLatin1String("@FIFO@"), fifo);
    QApplication::clipboard()->setText(text);

    if (word == ClipboardIdentifiers::Component)
        pasteComponent(lists, alternative, text);
    else if (word == ClipboardIdentifiers::Hud)
        pasteHud(lists, alternative, text);
    else
        pasteInLists(word, text);
    settle();
}

// ---------------------------------------------------------------- theme

void theme(const QByteArray& bytes)
{
    static const bool styled = [] {
        QApplication::setStyle(new VelmoStyle());
        // The copy is saved where the user's themes are, never into the build tree.
        TestEnvironment::writeFile(PathManager::inUserFolder(QStringLiteral("Themes/Fuzzed Copy/Theme.json")), "{}");
        return true;
    }();
    Q_UNUSED(styled);
    const QString path = PathManager::inUserFolder(QStringLiteral("Themes/Fuzzed/Theme.json"));
    TestEnvironment::writeFile(path, bytes);
    if (Theme::filePath(QStringLiteral("Fuzzed")) != path)
        broken("theme", QStringLiteral("the user's theme isn't the one read"));

    Theme::installDefault();
    const ThemeTable defaults = Theme::table();
    if (!Theme::load(QStringLiteral("Fuzzed")))
        broken("theme", QStringLiteral("a theme file that is there didn't load"));
    const ThemeTable loaded = Theme::table();
    // A theme is merged over the table: what it doesn't name stays.
    QSet<int> named;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    const QJsonObject object = document.object();
    for (auto it = object.begin(); it != object.end(); ++it)
        named.insert(it.key().toInt());
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        // A damaged file gives what can be rescued from it: at most the
        // colours of keys written in it as quoted numbers.
        static const QRegularExpression quotedNumber(QStringLiteral("\"(-?\\d+)(?=\")"));
        auto match = quotedNumber.globalMatch(QString::fromUtf8(bytes));
        while (match.hasNext())
            named.insert(match.next().captured(1).toInt());
    }
    for (auto it = defaults.begin(); it != defaults.end(); ++it) {
        if (!named.contains(it.key()) && loaded.value(it.key()) != it.value())
            broken("theme", QStringLiteral("key %1, not in the file, changed").arg(it.key()));
    }
    Theme::apply();

    // Saved and loaded again, every colour comes back.
    if (!Theme::save(loaded, QStringLiteral("Fuzzed Copy")))
        broken("theme", QStringLiteral("the theme couldn't be saved"));
    Theme::resetToBuiltIn();
    if (!Theme::load(QStringLiteral("Fuzzed Copy")))
        broken("theme", QStringLiteral("the saved theme didn't load"));
    const ThemeTable reread = Theme::table();
    for (auto it = loaded.begin(); it != loaded.end(); ++it) {
        const QColor again = reread.value(it.key());
        if (it.value().isValid()
            && (again.red() != it.value().red() || again.green() != it.value().green()
                || again.blue() != it.value().blue()))
            broken("theme", QStringLiteral("key %1 was saved as %2 and read as %3")
                                .arg(it.key())
                                .arg(it.value().name(), again.name()));
    }
    Theme::installDefault();
    Theme::refreshCachedColors();
    settle();
}

// ---------------------------------------------------------------- translator

void translator(const QByteArray& bytes)
{
    const QMap<QString, QString> table = MorvikCSVTranslator::parse(bytes);
    const QString path = TestEnvironment::home() + QStringLiteral("/fuzzed-language.csv");
    TestEnvironment::writeFile(path, bytes);
    MorvikCSVTranslator::installLanguage(path);
    const MorvikCSVTranslator* installed = MorvikCSVTranslator::current();
    if (!installed || installed->table() != table)
        broken("translator", QStringLiteral("the file reads other than its bytes"));

    const auto quoted = [](QString field) {
        return QLatin1Char('"') + field.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
    };
    for (auto it = table.begin(); it != table.end(); ++it) {
        const QString& source = it.key();
        // The program asks with C strings, which end at a NUL; an empty
        // translation leaves the English text.
        if (!source.contains(QChar(0))) {
            const QString expected = it.value().isEmpty() ? source : it.value();
            const QByteArray key = source.toUtf8();
            if (QCoreApplication::translate("", key.constData()) != expected)
                broken("translator", QStringLiteral("\"%1\" isn't translated as the file says").arg(source.left(80)));
        }
        // A record written by the grammar, quotes doubled, reads back whole.
        const QString line = quoted(source) + QLatin1Char(',') + quoted(it.value());
        if (!line.contains(QLatin1Char('\n')) && !line.contains(QLatin1Char('\r'))) {
            const QStringList fields = MorvikCSVTranslator::parseLine(line);
            if (fields.size() != 2 || fields.at(0) != source || fields.at(1) != it.value())
                broken("translator", QStringLiteral("the record %1 reads back as %2").arg(line.left(80), fields.join('|').left(80)));
        }
    }
    MorvikCSVTranslator::removeLanguage();
    settle();
}

// ---------------------------------------------------------------- fonts

namespace {

// A decoded font must be a font file whose tables all lie inside it.
void checkFont(const char* target, const QByteArray& font)
{
    const quint64 size = quint64(font.size());
    if (font.size() > WoffConverter::MaximumFontSize)
        broken(target, QStringLiteral("a font of %1 bytes").arg(font.size()));
    const auto* data = reinterpret_cast<const uchar*>(font.constData());
    if (size >= 4 && qFromBigEndian<quint32>(data) == 0x74746366) // "ttcf": a collection
        return;
    if (size < 12)
        broken(target, QStringLiteral("a font without a header"));
    const quint64 tables = qFromBigEndian<quint16>(data + 4);
    if (12 + 16 * tables > size)
        broken(target, QStringLiteral("a font whose table directory runs past its end"));
    for (quint64 i = 0; i < tables; ++i) {
        const quint64 offset = qFromBigEndian<quint32>(data + 12 + 16 * i + 8);
        const quint64 length = qFromBigEndian<quint32>(data + 12 + 16 * i + 12);
        if (offset < 12 + 16 * tables || offset + length > size)
            broken(target, QStringLiteral("table %1 lies outside the font").arg(i));
    }
}

// The converter on files gives what the decoder gives, or writes nothing.
void checkConversion(const char* target, const QByteArray& bytes, const QByteArray& font)
{
    const QString source = TestEnvironment::home() + QStringLiteral("/fuzzed.woff");
    const QString destination = TestEnvironment::home() + QStringLiteral("/fuzzed.otf");
    TestEnvironment::writeFile(source, bytes);
    QFile::remove(destination);
    const bool converted = convertWoffToOtf(source, destination);
    if (converted != !font.isEmpty() || QFile::exists(destination) != converted)
        broken(target, QStringLiteral("the converter and the decoder disagree"));
    if (converted && TestEnvironment::readFile(destination) != font)
        broken(target, QStringLiteral("the converter wrote other bytes than the decoder gave"));
}

}

void woff(const QByteArray& bytes)
{
    // Files with the WOFF 2.0 signature go to the other decoder.
    if (bytes.startsWith("wOF2"))
        return;
    const QByteArray font = WoffConverter::decodeWoff(bytes);
    if (!font.isEmpty())
        checkFont("woff", font);
    checkConversion("woff", bytes, font);
}

void woff2(const QByteArray& bytes)
{
    const QByteArray font = WoffConverter::decodeWoff2(bytes);
    if (!font.isEmpty())
        checkFont("woff2", font);
    checkConversion("woff2", bytes, font);
}

}
