#include "TestEnvironment.h"

#include "app/GameRunner.h"
#include "app/SettingsStore.h"
#include "MainWindowFixture.h"
#include "app/VelmoMainWindow.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "widgets/TrovDialog.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>

#include <csignal>
#include <sys/types.h>

using TestEnvironment::Answer;
using TestEnvironment::Seen;
using TestEnvironment::templateArray;
using TestEnvironment::writtenDocument;
using TestEnvironment::answering;
using TestEnvironment::press;

namespace {

// A stand-in for RPG Maker's game runtime: it notes each start, its working
// folder, its arguments and whether the project's document was there, then
// waits (or ends at once).
QString makeRuntime(bool waits, bool executable = true)
{
    const QString location = TestEnvironment::newFolder(QStringLiteral("mz"));
    const QString script = location + QStringLiteral("/nwjs-lin/nw");
    const QByteArray body = "#!/bin/sh\n"
                            "here=\"$(dirname \"$0\")\"\n"
                            "echo start >> \"$here/starts\"\n"
                            "pwd -P > \"$here/folder\"\n"
                            "printf '%s\\n' \"$@\" > \"$here/arguments\"\n"
                            "if [ -f data/plugin/VelmoraHUD.json ]; then echo yes > \"$here/document\"; fi\n"
                            "echo $$ > \"$here/pid\"\n"
                            // A helper of the runtime's own, as NW.js and wine start them.
                            "sleep 600 &\n"
                            "echo $! > \"$here/helper\"\n"
                            + QByteArray(waits ? "exec sleep 600\n" : "exit 3\n");
    TestEnvironment::writeFile(script, body);
    QFile::setPermissions(script, executable ? QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner
                                             : QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return location;
}

QString runtimeFile(const QString& location, const char* name)
{
    return location + QStringLiteral("/nwjs-lin/") + QLatin1String(name);
}

bool processAlive(const QString& pidFile)
{
    const qint64 pid = TestEnvironment::readFile(pidFile).trimmed().toLongLong();
    if (pid <= 0 || ::kill(pid_t(pid), 0) != 0)
        return false;
    // A process that ended but wasn't reaped yet (its parent is gone) is no game.
    const QByteArray stat = TestEnvironment::readFile(QStringLiteral("/proc/%1/stat").arg(pid));
    const int close = stat.lastIndexOf(')');
    return close < 0 || stat.mid(close + 2, 1) != "Z";
}

// Records the messages Qt prints while it lives.
struct MessageLog {
    MessageLog() { previous = qInstallMessageHandler(&MessageLog::record); }
    ~MessageLog() { qInstallMessageHandler(previous); }
    static void record(QtMsgType, const QMessageLogContext&, const QString& message) { lines().append(message); }
    static QStringList& lines()
    {
        static QStringList all;
        return all;
    }
    QtMessageHandler previous;
};

// The recovery files in the cache folder of an isolated home.
QStringList recoveryFiles(const QString& home = TestEnvironment::home())
{
    QStringList files;
    QDirIterator it(home + QStringLiteral("/cache"), {QStringLiteral("*.json")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(it.next());
    return files;
}

// An editor process of its own (velmora-test-editor) on the project, with a
// home of its own and the user of tests/EditorUser.cpp acting in the given
// mode; what that user saw goes to user.log in the home.
QProcess* startEditor(QObject* owner, const QString& project, const QString& childHome, const char* mode,
                      const QString& hud = QString())
{
    QDir().mkpath(childHome + QStringLiteral("/runtime"));
    QFile::setPermissions(childHome + QStringLiteral("/runtime"),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), childHome);
    for (const char* folder : {"CONFIG_HOME=/config", "DATA_HOME=/data", "CACHE_HOME=/cache", "RUNTIME_DIR=/runtime"}) {
        const QStringList pair = QString::fromLatin1(folder).split(QLatin1Char('='));
        environment.insert(QStringLiteral("XDG_") + pair.at(0), childHome + pair.at(1));
    }
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("VELMORA_TEST_USER"), QLatin1String(mode));
    environment.insert(QStringLiteral("VELMORA_TEST_USER_LOG"), childHome + QStringLiteral("/user.log"));
    environment.insert(QStringLiteral("VELMORA_TEST_USER_HUD"), hud);
    auto* process = new QProcess(owner);
    process->setProcessEnvironment(environment);
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->start(QStringLiteral(VELMORA_TEST_EDITOR), {project});
    return process;
}


QByteArray documentWithHuds(const QStringList& names)
{
    QJsonArray data{QJsonObject{{"HUD", QJsonArray()}}, QJsonObject{{"HUD", QJsonArray()}}};
    int id = 10000;
    for (const QString& name : names)
        data.append(QJsonObject{{"ID", QString::number(++id)}, {"Name", name}, {"IsHUD", true}, {"HUD", QJsonArray()}});
    return QJsonDocument(QJsonObject{{"Map", 0}, {"Battle", 1}, {"Data", data}}).toJson();
}

}

class TestProjectLifecycle : public QObject, private MainWindowFixture
{
    Q_OBJECT

private:
    // A copy of the sample project opened with the stand-in runtime as the
    // RPG Maker location; returns the runtime's location.
    QString openWithRuntime(const QString& name, bool waits, QString* project = nullptr)
    {
        const QString copy = TestEnvironment::copySampleProject(name);
        const QString runtime = makeRuntime(waits);
        SettingsStore().setValue(QStringLiteral("EditorLocation"), runtime);
        openWindow(copy);
        if (project)
            *project = copy;
        return runtime;
    }
    static QStringList sorted(QStringList names)
    {
        names.sort();
        return names;
    }
    // The commands that are on, by the object name of their action.
    QStringList enabledCommands() const
    {
        QStringList on;
        for (const char* name : {"Action_OpenProject", "Action_ReloadProject", "Action_SaveProject",
                                 "Action_CloseProject", "Action_Undo", "Action_Redo", "Action_Run", "Action_Stop",
                                 "Action_ProjectExplorer", "Action_Settings", "Action_ZoomIn", "Action_ZoomOut",
                                 "Action_FitZoom"}) {
            if (action(name)->isEnabled())
                on.append(QLatin1String(name));
        }
        return sorted(on);
    }
    // A HUD pasted into the list, as a user does with Ctrl+V.
    void pasteHud(const QString& name)
    {
        QApplication::clipboard()->setText(
            QStringLiteral("VELMORAHUD{\"Name\":\"%1\",\"IsHUD\":true,\"HUD\":[{\"Type\":0,\"X\":5,\"Y\":7}]}").arg(name));
        list()->setFocus();
        QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
    }

    const QStringList openCommands{"Action_OpenProject", "Action_ReloadProject", "Action_SaveProject",
                                   "Action_CloseProject",  "Action_Run",          "Action_ProjectExplorer",
                                   "Action_Settings",      "Action_ZoomIn",       "Action_ZoomOut",
                                   "Action_FitZoom"};

private slots:
    void init() { SettingsStore().clear(); }
    void cleanup()
    {
        window.reset();
        for (const QString& file : recoveryFiles())
            QFile::remove(file);
    }

    void runStartsOneGameAndStopKillsIt()
    {
        QString project;
        const QString runtime = openWithRuntime(QStringLiteral("run"), true, &project);
        key(Qt::Key_R);
        QTRY_VERIFY(QFileInfo::exists(runtimeFile(runtime, "pid")));
        QCOMPARE(TestEnvironment::readFile(runtimeFile(runtime, "folder")).trimmed(),
                 QFileInfo(project).canonicalFilePath().toUtf8());
        QCOMPARE(TestEnvironment::readFile(runtimeFile(runtime, "arguments")), QByteArray(".\n"));

        // Stop ends the runtime and what it started, without a word on the
        // message output.
        MessageLog::lines().clear();
        MessageLog log;
        QTRY_VERIFY(processAlive(runtimeFile(runtime, "helper")));
        key(Qt::Key_T);
        QVERIFY(!window->runningGame());
        QTRY_VERIFY(!processAlive(runtimeFile(runtime, "pid")));
        QTRY_VERIFY(!processAlive(runtimeFile(runtime, "helper")));

        // Closing the editor ends a game that still runs, helpers included.
        QFile::remove(runtimeFile(runtime, "pid"));
        QFile::remove(runtimeFile(runtime, "helper"));
        key(Qt::Key_R);
        QTRY_VERIFY(processAlive(runtimeFile(runtime, "pid")));
        QTRY_VERIFY(processAlive(runtimeFile(runtime, "helper")));
        QVERIFY(window->close());
        window.reset();
        QVERIFY(!processAlive(runtimeFile(runtime, "pid")));
        QTRY_VERIFY(!processAlive(runtimeFile(runtime, "helper")));
        QCoreApplication::processEvents();
        QVERIFY2(MessageLog::lines().filter(QStringLiteral("QProcess")).isEmpty(),
                 qPrintable(MessageLog::lines().join(QLatin1Char('\n'))));
    }

    void gameEndingByItselfOrNotStartingFreesRun()
    {
        QString project;
        openWithRuntime(QStringLiteral("ends"), false, &project);
        key(Qt::Key_R);
        QTRY_VERIFY(!window->runningGame());

        // A runtime that can't be executed: Run comes back, the status bar
        // says why, and the editor goes on working.
        const QString broken = makeRuntime(true, false);
        window.reset();
        SettingsStore().setValue(QStringLiteral("EditorLocation"), broken);
        openWindow(project);
        key(Qt::Key_R);
        QTRY_VERIFY(!window->runningGame());
        QVERIFY2(status().contains(QStringLiteral("The game couldn't be started")), qPrintable(status()));
        QVERIFY(action("Action_Run")->isEnabled());
        pasteHud(QStringLiteral("After the failure"));
        key(Qt::Key_S);
        QVERIFY(!window->projectIsChanged());
        QVERIFY(TestEnvironment::readFile(TestEnvironment::documentPath(project)).contains("After the failure"));
    }

    void runAsksToSaveFirst()
    {
        const QString runtime = openWithRuntime(QStringLiteral("ask"), true);
        pasteHud(QStringLiteral("Before playing"));

        // Cancel: nothing starts.
        Seen seen = answering([&] { action("Action_Run")->trigger(); }, {press("endButton")});
        QCOMPARE(seen.text, QStringLiteral("Would you like to save before playing the game?"));
        QVERIFY(!window->runningGame());

        // Not saving: the game runs on the file as it was (here: none).
        seen = answering([&] { action("Action_Run")->trigger(); }, {press("cancelButton")});
        QCOMPARE(seen.count, 1);
        QTRY_VERIFY(QFileInfo::exists(runtimeFile(runtime, "pid")));
        QVERIFY(!QFileInfo::exists(runtimeFile(runtime, "document")));
        window->StopGame();

        // Saving: the document is written before the game starts.
        QFile::remove(runtimeFile(runtime, "pid"));
        seen = answering([&] { action("Action_Run")->trigger(); }, {press("confirmButton")});
        QCOMPARE(seen.count, 1);
        QTRY_VERIFY(QFileInfo::exists(runtimeFile(runtime, "pid")));
        QVERIFY(QFileInfo::exists(runtimeFile(runtime, "document")));
        QVERIFY(!window->projectIsChanged());
        window->StopGame();
    }

    void runtimeOfALocation()
    {
        // The Windows runtime goes through wine when it is installed, with
        // the arguments the Linux one gets.
        const QString windows = TestEnvironment::newFolder(QStringLiteral("windows"));
        const QString exe = windows + QStringLiteral("/nwjs-win/nw.exe");
        TestEnvironment::writeFile(exe, "MZ");
        QVERIFY(GameRunner::isValidLocation(windows));
        const QByteArray path = qgetenv("PATH");
        const QString bin = TestEnvironment::newFolder(QStringLiteral("bin"));
        qputenv("PATH", bin.toLocal8Bit());
        QCOMPARE(GameRunner::command(windows).program, QDir(windows).absoluteFilePath(QStringLiteral("nwjs-win/nw.exe")));
        TestEnvironment::writeFile(bin + QStringLiteral("/wine"), "#!/bin/sh\n");
        QFile::setPermissions(bin + QStringLiteral("/wine"), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const GameRunner::Command wine = GameRunner::command(windows);
        qputenv("PATH", path);
        QCOMPARE(wine.program, bin + QStringLiteral("/wine"));
        QCOMPARE(wine.arguments, QStringList({QDir(windows).absoluteFilePath(QStringLiteral("nwjs-win/nw.exe")),
                                              QStringLiteral(".")}));

        // A folder without a runtime, or none at all, is no location.
        QVERIFY(!GameRunner::isValidLocation(TestEnvironment::newFolder(QStringLiteral("empty"))));
        QVERIFY(!GameRunner::isValidLocation(QString()));
    }

    void commandStatesFollowTheProject()
    {
        QString project;
        openWithRuntime(QStringLiteral("states"), true, &project);
        QCOMPARE(enabledCommands(), sorted(openCommands));

        // The project folder goes to the desktop's launcher; one that finds
        // no file manager (xdg-open's answer 3) has the user told, with the path.
        const QString bin = TestEnvironment::newFolder(QStringLiteral("launchers"));
        const QString shown = bin + QStringLiteral("/shown");
        auto launcher = [&](int answer) {
            TestEnvironment::writeFile(bin + QStringLiteral("/xdg-open"),
                                       QStringLiteral("#!/bin/sh\nprintf '%s' \"$1\" > '%1'\nexit %2\n")
                                           .arg(shown).arg(answer).toUtf8());
            QFile::setPermissions(bin + QStringLiteral("/xdg-open"),
                                  QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
            QFile::remove(shown);
        };
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", bin.toUtf8() + ":/usr/bin:/bin");
        launcher(0);
        Seen seen = answering([&] {
            action("Action_ProjectExplorer")->trigger();
            QTRY_VERIFY(QFileInfo::exists(shown));
            QTest::qWait(100);
        }, {press("okButton")});
        QCOMPARE(seen.count, 0);
        QCOMPARE(QString::fromUtf8(TestEnvironment::readFile(shown)), QDir(project).absolutePath());
        launcher(3);
        bool alerted = false;
        seen = answering([&] {
            action("Action_ProjectExplorer")->trigger();
            QTRY_VERIFY(alerted);
        }, {[&](TrovDialog* dialog) {
            alerted = true;
            press("okButton")(dialog);
        }});
        qputenv("PATH", path);
        QCOMPARE(seen.title, QStringLiteral("Show Project in Explorer"));
        QVERIFY2(seen.text.contains(QDir::toNativeSeparators(QDir(project).absolutePath())), qPrintable(seen.text));

        // A game outlives its project, but Stop needs an open project.
        key(Qt::Key_R);
        QVERIFY(window->runningGame());
        action("Action_CloseProject")->trigger();
        QCOMPARE(enabledCommands(), sorted(QStringList{"Action_OpenProject"}));
        // A closed project offers no undo, whatever the scene still holds.
        window->editorView()->editorScene()->setUndoEnabled(true);
        QCOMPARE(enabledCommands(), sorted(QStringList{"Action_OpenProject"}));
        QVERIFY(window->runningGame());
        window->StopGame();

        // Without an RPG Maker location the game commands stay off.
        window.reset();
        SettingsStore().remove(QStringLiteral("EditorLocation"));
        openWindow(project);
        QStringList noRuntime = openCommands;
        noRuntime.removeOne(QStringLiteral("Action_Run"));
        QCOMPARE(enabledCommands(), sorted(noRuntime));
        // Run says what it lacks when its key is pressed.
        key(Qt::Key_R);
        QVERIFY2(status().contains(QStringLiteral("No RPG Maker MZ location is set")), qPrintable(status()));
        QVERIFY(!window->runningGame());

        // A location that holds no runtime is named.
        window.reset();
        const QString empty = TestEnvironment::newFolder(QStringLiteral("not-mz"));
        SettingsStore().setValue(QStringLiteral("EditorLocation"), empty);
        openWindow(project);
        key(Qt::Key_R);
        QVERIFY2(status().contains(QStringLiteral("No game runtime")) && status().contains(empty), qPrintable(status()));
        QVERIFY(action("Action_Run")->toolTip().contains(empty));
    }

    void saveOnAFullDiskKeepsTheDocument()
    {
        // A small file system of its own, where the machine lets the test mount one.
        const QString mountPoint = TestEnvironment::newFolder(QStringLiteral("small-disk"));
        QProcess mount;
        mount.start(QStringLiteral("mount"), {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                                              QStringLiteral("size=512k"), QStringLiteral("tmpfs"), mountPoint});
        if (!mount.waitForFinished(10000) || mount.exitStatus() != QProcess::NormalExit || mount.exitCode() != 0)
            QSKIP("This machine doesn't let the test mount a small tmpfs (it needs root): "
                  "the save onto a full disk isn't checked here.");
        struct Unmount {
            QString at;
            ~Unmount() { QProcess::execute(QStringLiteral("umount"), {QStringLiteral("-l"), at}); }
        } unmount{mountPoint};

        const QString project = mountPoint + QStringLiteral("/Full Disk");
        TestEnvironment::copyTree(TestEnvironment::makeProject(QStringLiteral("full-disk-source")), project);
        const QByteArray previous("{\"Battle\":1,\"Data\":[{\"HUD\":[]},{\"HUD\":[]}],\"Map\":0}");
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), previous);
        openWindow(project);

        // A HUD larger than what the disk holds.
        QApplication::clipboard()->setText(
            QStringLiteral("VELMORAHUD{\"Name\":\"Huge\",\"IsHUD\":true,\"Params\":[\"%1\"],\"HUD\":[]}")
                .arg(QString(700 * 1024, QLatin1Char('x'))));
        list()->setFocus();
        QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);

        const Seen seen = answering([&] { key(Qt::Key_S); }, {press("okButton")});
        QCOMPARE(seen.title, QStringLiteral("Save Error"));
        QVERIFY2(seen.text.contains(QStringLiteral("No space left on device"), Qt::CaseInsensitive), qPrintable(seen.text));
        QVERIFY(window->projectIsChanged());
        // The previous document is whole, and nothing half-written lies beside it.
        QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project)), previous);
        QCOMPARE(QDir(project + QStringLiteral("/data/plugin")).entryList(QDir::Files | QDir::Hidden),
                 QStringList{QStringLiteral("VelmoraHUD.json")});
    }

    void documentChangedByAnotherProgram()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("disk"));
        const QString document = TestEnvironment::documentPath(project);
        TestEnvironment::writeFile(document, documentWithHuds({QStringLiteral("Mine")}));
        openWindow(project);

        // Unchanged: it reloads by itself and says so.
        TestEnvironment::writeFile(document, documentWithHuds({QStringLiteral("From Git"), QStringLiteral("Also")}));
        QTRY_COMPARE(rowNames().mid(2), QStringList({QStringLiteral("From Git"), QStringLiteral("Also")}));
        QVERIFY(!window->projectIsChanged());

        // Our own saves are no news.
        pasteHud(QStringLiteral("Saved here"));
        Seen seen = answering([&] {
            key(Qt::Key_S);
            QTest::qWait(800);
        }, {press("confirmButton")});
        QCOMPARE(seen.count, 0);

        // Changed: it asks; "No" keeps the user's work.
        pasteHud(QStringLiteral("Unsaved work"));
        bool answered = false;
        auto noting = [&answered](Answer answer) {
            return [&answered, answer](TrovDialog* dialog) {
                answered = true;
                answer(dialog);
            };
        };
        seen = answering([&] {
            TestEnvironment::writeFile(document, documentWithHuds({QStringLiteral("Theirs")}));
            QTRY_VERIFY(answered);
        }, {noting(press("cancelButton"))});
        QCOMPARE(seen.title, QStringLiteral("Document Changed on Disk"));
        QVERIFY(window->projectIsChanged());
        key(Qt::Key_S);
        QVERIFY(TestEnvironment::readFile(document).contains("Unsaved work"));

        // "Yes" takes the other program's version.
        pasteHud(QStringLiteral("Thrown away"));
        answered = false;
        seen = answering([&] {
            TestEnvironment::writeFile(document, documentWithHuds({QStringLiteral("Theirs again")}));
            QTRY_VERIFY(answered);
        }, {noting(press("confirmButton"))});
        QTRY_COMPARE(rowNames().mid(2), QStringList{QStringLiteral("Theirs again")});
        QVERIFY(!window->projectIsChanged());

        // Removed: the editor still holds it and will write it again.
        QFile::remove(document);
        QTRY_VERIFY(window->projectIsChanged());
        key(Qt::Key_S);
        QVERIFY(TestEnvironment::readFile(document).contains("Theirs again"));
    }

    void recoveryAfterTheEditorWentAway()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("recover"));
        openWindow(project);
        pasteHud(QStringLiteral("Not yet saved"));
        // A property dialog ordered a component's custom properties; the
        // order lives beside the document and must come back with it.
        const QJsonObject orders{{QStringLiteral("UILoc0ID3"), QJsonArray{QStringLiteral("zeta"), QStringLiteral("alpha")}}};
        const_cast<QJsonObject*>(window->getProjectData())->insert(QStringLiteral("PropertyOrders.json"), orders);
        // A switch of HUD keeps the work aside, never in the project's file.
        list()->setFocus();
        QTest::keyClick(list(), Qt::Key_Down);
        QTRY_COMPARE(recoveryFiles().size(), 1);
        QVERIFY(!QFileInfo::exists(TestEnvironment::documentPath(project)));
        const QStringList edited = rowNames();

        // The window goes without closing, as a killed editor does.
        window.reset();

        // Declined: the document as saved, and the file stays for now.
        Seen seen = answering([&] { openWindow(project); }, {press("cancelButton")});
        QCOMPARE(seen.title, QStringLiteral("Recover Unsaved Changes"));
        QCOMPARE(rowNames().size(), 2);
        QCOMPARE(recoveryFiles().size(), 1);

        // Restored: the edited list, unsaved until the user saves.
        window.reset();
        answering([&] { openWindow(project); }, {press("confirmButton")});
        QCOMPARE(rowNames(), edited);
        QVERIFY(window->projectIsChanged());
        key(Qt::Key_S);
        QVERIFY(recoveryFiles().isEmpty());
        QCOMPARE(writtenDocument(project).value(QStringLiteral("Data")).toArray().size(), 3);
        QCOMPARE(QJsonDocument::fromJson(TestEnvironment::readFile(project + QStringLiteral("/data/plugin/PropertyOrders.json")))
                     .object(),
                 orders);

        // A recovery file older than the document isn't offered.
        pasteHud(QStringLiteral("Older"));
        QTest::keyClick(list(), Qt::Key_Down);
        window.reset();
        QTest::qWait(20);
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), documentWithHuds({QStringLiteral("Newer")}));
        seen = answering([&] { openWindow(project); }, {press("confirmButton")});
        QCOMPARE(seen.count, 0);
        QCOMPARE(rowNames().last(), QStringLiteral("Newer"));
    }

    void recoveryAfterTheEditorWasKilled()
    {
        // A real editor process with a home of its own, edited by a user
        // inside it, then killed outright a few seconds after the edit: work
        // is kept within seconds, not minutes.
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("killed"));
        const QString childHome = TestEnvironment::newFolder(QStringLiteral("child-home"));
        const QString log = childHome + QStringLiteral("/user.log");
        // A component in the form the canvas writes it back.
        const QJsonObject pasted{{"Name", "Survives the kill"}, {"IsHUD", true},
                                 {"HUD", QJsonArray{QJsonObject{{"Type", 0}, {"X", 12}, {"Y", 34}, {"Rotation", 0},
                                                                {"Opacity", 100}, {"ScaleX", 1.0}, {"ScaleY", 1.0}}}}};
        auto editor = [&](const char* mode) {
            return startEditor(this, project, childHome, mode, QString::fromUtf8(TestEnvironment::compact(pasted)));
        };
        auto recoveries = [&]() { return recoveryFiles(childHome); };

        QProcess* first = editor("edit");
        QVERIFY(first->waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(TestEnvironment::readFile(log).contains("edited"), 30000);
        QVERIFY(recoveries().isEmpty());
        QTest::qWait(6000);
        ::kill(pid_t(first->processId()), SIGKILL);
        QVERIFY(first->waitForFinished());

        QProcess* second = editor("restore");
        QVERIFY(second->waitForFinished(60000));
        QCOMPARE(second->exitCode(), 0);
        const QByteArray seen = TestEnvironment::readFile(log);
        QVERIFY2(seen.contains("asked: Recover Unsaved Changes: "), seen.constData());
        QVERIFY(recoveries().isEmpty());

        // The saved document is the edited one: the two HUDs of a fresh
        // project and the pasted HUD with an identifier of its own.
        const QJsonObject written = writtenDocument(project);
        const QJsonArray data = written.value(QStringLiteral("Data")).toArray();
        QCOMPARE(data.size(), 3);
        QCOMPARE(data.at(written.value(QStringLiteral("Map")).toInt()).toObject(),
                 QJsonObject({{QStringLiteral("HUD"), templateArray("VelmoraMapHUD.json")}}));
        QCOMPARE(data.at(written.value(QStringLiteral("Battle")).toInt()).toObject(),
                 QJsonObject({{QStringLiteral("HUD"), templateArray("VelmoraBattleHUD.json")}}));
        int custom = -1;
        for (int i = 0; i < data.size(); ++i) {
            if (data.at(i).toObject().value(QStringLiteral("Name")).toString() == QStringLiteral("Survives the kill"))
                custom = i;
        }
        QVERIFY(custom >= 0);
        QJsonObject restored = data.at(custom).toObject();
        const QString id = restored.take(QStringLiteral("ID")).toString();
        QVERIFY2(QRegularExpression(QStringLiteral("^[0-6]{5}$")).match(id).hasMatch(), qPrintable(id));
        QCOMPARE(restored, pasted);
    }

    // A real editor process, closed by its user: it must end, whatever the
    // answer and however early the window is closed.
    void editorProcessEndsWhenClosed()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("closed"));
        const QByteArray before = TestEnvironment::readFile(TestEnvironment::documentPath(project));
        const QJsonObject pasted{{"Name", "Thrown away"}, {"IsHUD", true}, {"HUD", QJsonArray()}};

        // Edited, closed, and "No" to saving: the process ends, nothing written.
        const QString discardHome = TestEnvironment::newFolder(QStringLiteral("discard-home"));
        QProcess* discard = startEditor(this, project, discardHome, "discard",
                                        QString::fromUtf8(TestEnvironment::compact(pasted)));
        const bool discardEnded = discard->waitForFinished(30000);
        const QByteArray discardSeen = TestEnvironment::readFile(discardHome + QStringLiteral("/user.log"));
        if (!discardEnded)
            discard->kill();
        QVERIFY2(discardEnded, discardSeen.constData());
        QCOMPARE(discard->exitStatus(), QProcess::NormalExit);
        QCOMPARE(discard->exitCode(), 0);
        QVERIFY2(discardSeen.contains("asked: Save Confirmation\nanswered No"), discardSeen.constData());
        QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project)), before);
        QVERIFY(recoveryFiles(discardHome).isEmpty());

        // Closed in the very moment the window shows, in each window style.
        for (const int style : {0, 2}) {
            const QString home = TestEnvironment::newFolder(QStringLiteral("at-once-%1").arg(style));
            QDir().mkpath(home + QStringLiteral("/config/Ostrel Vane"));
            TestEnvironment::writeFile(home + QStringLiteral("/config/Ostrel Vane/Velmora 2.conf"),
                                       QStringLiteral("[General]\nwindowStyle=%1\nsettingsVersion=1\n").arg(style).toUtf8());
            QProcess* atOnce = startEditor(this, project, home, "closeatonce");
            const bool ended = atOnce->waitForFinished(20000);
            if (!ended)
                atOnce->kill();
            QVERIFY2(ended, qPrintable(QStringLiteral("window style %1").arg(style)));
            QCOMPARE(atOnce->exitCode(), 0);
            QVERIFY(TestEnvironment::readFile(home + QStringLiteral("/user.log")).contains("closing at once"));
        }
    }
};

VELMORA_TEST_MAIN(TestProjectLifecycle, QApplication)
#include "tst_projectlifecycle.moc"
