#include "app/CommandLineTool.h"

#include "app/HudDocument.h"
#include "app/JsonFile.h"
#include "app/ProjectData.h"
#include "app/Startup.h"
#include "components/GameUIEditorSceneHelper.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QTextStream>

#include <cstdio>

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
    "                              HUD document holds. Exit 0 when valid, 1 when not.\n"
    "  resave PROJECT [--visit-all] [--out FILE]\n"
    "                              Loads the HUD document and writes it back through\n"
    "                              the editor's save path; with --out the result goes\n"
    "                              to FILE and the project is left untouched. With\n"
    "                              --visit-all every HUD of the list is made current in\n"
    "                              turn and passes through the editor's canvas before\n"
    "                              the save, as when a user clicks through every HUD\n"
    "                              and saves (no window is shown).\n"
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

int check(const QDir& folder, QTextStream& out)
{
    QJsonObject projectData;
    ProjectData::ScreenSize screen;
    QStringList problems;
    const bool valid = ProjectData::load(folder, projectData, screen, &problems);

    out << "Project: " << QDir::toNativeSeparators(folder.absolutePath()) << "\n";
    if (!valid) {
        out << "Valid: no\n";
        for (const QString& problem : problems)
            out << "  " << problem << "\n";
        return Failure;
    }
    out << "Valid: yes\n";
    out << "Screen: " << screen.width << " x " << screen.height << "\n";

    const HudDocument document = HudDocument::load(folder);
    const QString documentPath = QStringLiteral("data/plugin/") + HudDocument::FileName;
    if (!document.fromTemplates && !document.damagedFile)
        out << "HUD document: " << documentPath << "\n";
    else if (!document.damagedFile)
        out << "HUD document: none yet, the project starts from the templates\n";
    else
        out << "HUD document: " << documentPath << ": " << document.damageNotice() << "\n";

    int extraHuds = 0;
    int customComponents = 0;
    int components = 0;
    bool hasMap = false;
    bool hasBattle = false;
    for (const HudEntry& entry : document.entries) {
        components += HudDocument::componentCount(entry.object.value(HudDocument::KeyHud).toArray());
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
    return Success;
}

// Makes every HUD current in list order, through the canvas, as the editor
// does on a change of HUD and on saving.
void visitAll(const QDir& folder, QVector<HudEntry>& entries)
{
    QJsonObject projectData;
    ProjectData::ScreenSize screen;
    ProjectData::load(folder, projectData, screen);
    UltimateTreeWidget list;
    list.tree()->startView();
    GameUIEditor editor;
    editor.setup(new GameUIEditorSceneHelper<VelmoUISelector>(), &projectData);
    editor.bindList(&list, nullptr, nullptr);
    const QSize size(screen.width, screen.height);
    QJsonObject* previous = nullptr;
    for (HudEntry& entry : entries) {
        HudDocument::switchScene(editor.editorScene(), previous, entry.type, &entry.object, size);
        previous = &entry.object;
    }
    if (previous)
        HudDocument::switchScene(editor.editorScene(), previous, 0, nullptr, size);
}

int resave(const QDir& folder, const QString& output, bool visit, QTextStream& out, QTextStream& err)
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
    if (visit)
        visitAll(folder, document.entries);
    const QJsonObject assembled = HudDocument::assemble(document.root, document.entries);
    const QString target = output.isEmpty() ? source : QFileInfo(output).absoluteFilePath();
    QString reason;
    if (!HudDocument::save(folder, assembled, false, output.isEmpty() ? QString() : target, &reason)) {
        err << "velmora-cli: could not write " << QDir::toNativeSeparators(target) << ": " << reason << "\n";
        return Failure;
    }
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
    if (command != QLatin1String("check") && command != QLatin1String("resave"))
        return usageError(err, QStringLiteral("unknown command '%1'").arg(command));

    QString project;
    QString output;
    bool outputGiven = false;
    bool visit = false;
    for (int i = 1; i < args.size(); ++i) {
        const QString& arg = args.at(i);
        if (command == QLatin1String("resave") && arg == QLatin1String("--out")) {
            if (i + 1 >= args.size() || outputGiven)
                return usageError(err, QStringLiteral("--out takes one file"));
            output = args.at(++i);
            outputGiven = true;
            if (output.isEmpty())
                return usageError(err, QStringLiteral("--out takes one file"));
        } else if (command == QLatin1String("resave") && arg == QLatin1String("--visit-all")) {
            visit = true;
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

    QDir folder;
    if (!projectFolder(project, folder)) {
        err << "velmora-cli: no such file or folder: " << project << "\n";
        return Failure;
    }
    if (command == QLatin1String("check"))
        return check(folder, out);
    if (visit && !qobject_cast<QApplication*>(QCoreApplication::instance())) {
        err << "velmora-cli: --visit-all needs the widget application\n";
        return Failure;
    }
    return resave(folder, output, visit, out, err);
}

int run(int argc, char** argv)
{
    // Visiting the HUDs runs the editor's canvas, which needs widgets; it
    // never shows one, so no display is needed either.
    bool visit = false;
    for (int i = 1; i < argc; ++i)
        visit = visit || qstrcmp(argv[i], "--visit-all") == 0;
    if (visit && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QScopedPointer<QCoreApplication> application(visit ? new QApplication(argc, argv)
                                                       : new QCoreApplication(argc, argv));
    initVelmoraResources();
    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setCodec("UTF-8");
    err.setCodec("UTF-8");
    return execute(QCoreApplication::arguments(), out, err);
}

}
