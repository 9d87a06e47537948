#include "TestEnvironment.h"

#include "MainWindowFixture.h"
#include "app/GameRunner.h"
#include "app/SettingsStore.h"
#include "app/VelmoMainWindow.h"
#include "widgets/TrovDialog.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>

#include <csignal>
#include <sys/types.h>

using TestEnvironment::answering;
using TestEnvironment::press;
using TestEnvironment::Seen;
using TestEnvironment::writtenDocument;

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
// mode; what that user saw goes to user.log in the home. True when it ended
// well in time, or, killed killAfter ms after the user's edit, left its work aside.
bool runEditor(const QString& project, const QString& childHome, const char* mode, const QString& hud = QString(),
               qint64 killAfter = -1)
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
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(VELMORA_TEST_EDITOR), {project});
    if (killAfter >= 0) {
        // Killed outright a while after the user's edit.
        if (!QTest::qWaitFor([&] { return TestEnvironment::readFile(childHome + QStringLiteral("/user.log")).contains("edited"); },
                             30000))
            return false;
        QTest::qWait(int(killAfter));
        ::kill(pid_t(process.processId()), SIGKILL);
        return process.waitForFinished() && recoveryFiles(childHome).size() == 1;
    }
    const bool ended = process.waitForFinished(60000);
    if (!ended)
        process.kill();
    return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
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
    // A HUD pasted into the list, as a user does with Ctrl+V.
    void pasteHud(const QString& name)
    {
        QApplication::clipboard()->setText(
            QStringLiteral("VELMORAHUD{\"Name\":\"%1\",\"IsHUD\":true,\"HUD\":[{\"Type\":0,\"X\":5,\"Y\":7}]}").arg(name));
        list()->setFocus();
        QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
    }

private slots:
    void init() { SettingsStore().clear(); }
    void cleanup()
    {
        window.reset();
        for (const QString& file : recoveryFiles())
            QFile::remove(file);
    }

    // Run asks about unsaved work first, then starts the game in the project
    // folder; Stop ends it and what it started, and so does closing the editor.
    void runAsksFirstAndStopKillsTheGame()
    {
        QString project;
        const QString runtime = openWithRuntime(QStringLiteral("run"), true, &project);
        pasteHud(QStringLiteral("Before playing"));
        // Cancel: nothing starts.
        const Seen seen = answering([&] { key(Qt::Key_R); }, {press("endButton")});
        QCOMPARE(seen.text, QStringLiteral("Would you like to save before playing the game?"));
        QVERIFY(!window->runningGame());

        // Not saving: the game runs on the file as it was (here: none).
        answering([&] { key(Qt::Key_R); }, {press("cancelButton")});
        QTRY_VERIFY(processAlive(runtimeFile(runtime, "helper")));
        QVERIFY(!QFileInfo::exists(runtimeFile(runtime, "document")));
        QCOMPARE(TestEnvironment::readFile(runtimeFile(runtime, "folder")).trimmed(),
                 QFileInfo(project).canonicalFilePath().toUtf8());
        QCOMPARE(TestEnvironment::readFile(runtimeFile(runtime, "arguments")), QByteArray(".\n"));
        key(Qt::Key_T);
        QVERIFY(!window->runningGame());
        QTRY_VERIFY(!processAlive(runtimeFile(runtime, "pid")));
        QTRY_VERIFY(!processAlive(runtimeFile(runtime, "helper")));

        // Saving: the document is written before the game starts.
        QFile::remove(runtimeFile(runtime, "helper"));
        answering([&] { key(Qt::Key_R); }, {press("confirmButton")});
        QTRY_VERIFY(processAlive(runtimeFile(runtime, "helper")));
        QVERIFY(QFileInfo::exists(runtimeFile(runtime, "document")));
        QVERIFY(!window->projectIsChanged());
        QVERIFY(window->close());
        window.reset();
        QVERIFY(!processAlive(runtimeFile(runtime, "pid")));
        QTRY_VERIFY(!processAlive(runtimeFile(runtime, "helper")));
    }

    void windowsRuntimeGoesThroughWine()
    {
        // The Windows runtime goes through wine when it is installed, with
        // the arguments the Linux one gets.
        const QString windows = TestEnvironment::newFolder(QStringLiteral("windows"));
        const QString exe = QDir(windows).absoluteFilePath(QStringLiteral("nwjs-win/nw.exe"));
        TestEnvironment::writeFile(exe, "MZ");
        QVERIFY(GameRunner::isValidLocation(windows));
        const QByteArray path = qgetenv("PATH");
        const QString bin = TestEnvironment::newFolder(QStringLiteral("bin"));
        qputenv("PATH", bin.toLocal8Bit());
        QCOMPARE(GameRunner::command(windows).program, exe);
        TestEnvironment::writeFile(bin + QStringLiteral("/wine"), "#!/bin/sh\n");
        QFile::setPermissions(bin + QStringLiteral("/wine"), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const GameRunner::Command wine = GameRunner::command(windows);
        qputenv("PATH", path);
        QCOMPARE(wine.program, bin + QStringLiteral("/wine"));
        QCOMPARE(wine.arguments, QStringList({exe, QStringLiteral(".")}));
    }

    void explorerAndMissingRuntimeAreReported()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("explorer"));
        openWindow(project);
        // The project folder goes to the desktop's launcher; one that finds
        // no file manager (xdg-open's answer 3) has the user told, with the path.
        const QString bin = TestEnvironment::newFolder(QStringLiteral("launchers"));
        const QString shown = bin + QStringLiteral("/shown");
        TestEnvironment::writeFile(bin + QStringLiteral("/xdg-open"),
                                   QStringLiteral("#!/bin/sh\nprintf '%s' \"$1\" > '%1'\nexit 3\n").arg(shown).toUtf8());
        QFile::setPermissions(bin + QStringLiteral("/xdg-open"), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", bin.toUtf8() + ":/usr/bin:/bin");
        bool alerted = false;
        const Seen seen = answering([&] {
            action("Action_ProjectExplorer")->trigger();
            QTRY_VERIFY(alerted);
        }, {[&](TrovDialog* dialog) { alerted = true; press("okButton")(dialog); }});
        qputenv("PATH", path);
        QCOMPARE(QString::fromUtf8(TestEnvironment::readFile(shown)), QDir(project).absolutePath());
        QVERIFY2(seen.text.contains(QDir::toNativeSeparators(QDir(project).absolutePath())), qPrintable(seen.text));

        // Run says what it lacks when its key is pressed: no location, one
        // that holds no runtime, a runtime that can't be executed; a game
        // that ends by itself frees Run too.
        key(Qt::Key_R);
        QVERIFY2(status().contains(QStringLiteral("No RPG Maker MZ location is set")), qPrintable(status()));
        const QString empty = TestEnvironment::newFolder(QStringLiteral("not-mz"));
        const QList<QPair<QString, QStringList>> cases{{empty, {"No game runtime", empty}},
                                                       {makeRuntime(true, false), {"The game couldn't be started"}},
                                                       {makeRuntime(false), {}}};
        for (const auto& [location, reasons] : cases) {
            window.reset();
            SettingsStore().setValue(QStringLiteral("EditorLocation"), location);
            openWindow(project);
            key(Qt::Key_R);
            QTRY_VERIFY(!window->runningGame());
            for (const QString& reason : reasons)
                QVERIFY2(status().contains(reason), qPrintable(status()));
            // Only a location without a runtime takes Run away.
            QCOMPARE(action("Action_Run")->isEnabled(), location != empty);
        }
    }

    void saveOnAFullDiskKeepsTheDocument()
    {
        // A small file system of its own, where the machine lets the test mount one.
        const QString mountPoint = TestEnvironment::newFolder(QStringLiteral("small-disk"));
        if (QProcess::execute(QStringLiteral("mount"), {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                                                        QStringLiteral("size=512k"), QStringLiteral("tmpfs"), mountPoint}) != 0)
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
        pasteHud(QString(700 * 1024, QLatin1Char('x')));

        const Seen seen = answering([&] { key(Qt::Key_S); }, {press("okButton")});
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

        // Unchanged: it reloads by itself.
        TestEnvironment::writeFile(document, documentWithHuds({QStringLiteral("From Git"), QStringLiteral("Also")}));
        QTRY_COMPARE(rowNames().mid(2), QStringList({QStringLiteral("From Git"), QStringLiteral("Also")}));
        QVERIFY(!window->projectIsChanged());

        // The editor's own saves are no news.
        pasteHud(QStringLiteral("Saved here"));
        const Seen own = answering([&] {
            key(Qt::Key_S);
            QTest::qWait(800);
        }, {press("confirmButton")});
        QCOMPARE(own.count, 0);

        // Changed: it asks; "No" keeps the user's work, "Yes" takes the other program's version.
        auto changedOnDisk = [&](const QString& theirs, const char* answer) {
            pasteHud(QStringLiteral("Unsaved work"));
            bool answered = false;
            return answering([&] {
                TestEnvironment::writeFile(document, documentWithHuds({theirs}));
                QTRY_VERIFY(answered);
            }, {[&](TrovDialog* dialog) { answered = true; press(answer)(dialog); }});
        };
        changedOnDisk(QStringLiteral("Theirs"), "cancelButton");
        QVERIFY(window->projectIsChanged());
        key(Qt::Key_S);
        QVERIFY(TestEnvironment::readFile(document).contains("Unsaved work"));
        changedOnDisk(QStringLiteral("Theirs again"), "confirmButton");
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
        // A component in the form the canvas writes it back.
        const QJsonObject pasted{{"Name", "Survives the kill"}, {"IsHUD", true},
                                 {"HUD", QJsonArray{QJsonObject{{"Type", 0}, {"X", 12}, {"Y", 34}, {"Rotation", 0},
                                                                {"Opacity", 100}, {"ScaleX", 1.0}, {"ScaleY", 1.0}}}}};
        const QString hud = QString::fromUtf8(TestEnvironment::compact(pasted));
        QVERIFY(runEditor(project, childHome, "edit", hud, 6000));
        QVERIFY(runEditor(project, childHome, "restore", hud));
        const QByteArray seen = TestEnvironment::readFile(childHome + QStringLiteral("/user.log"));
        QVERIFY2(seen.contains("asked: Recover Unsaved Changes: "), seen.constData());
        QVERIFY(recoveryFiles(childHome).isEmpty());

        // The saved document is the edited one: the pasted HUD, with an
        // identifier of its own, behind the Map HUD of a fresh project.
        const QJsonArray data = writtenDocument(project).value(QStringLiteral("Data")).toArray();
        QCOMPARE(data.size(), 3);
        QJsonObject restored = data.at(1).toObject();
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

        // Edited, closed, and "No" to saving: the process ends, nothing written.
        const QString discardHome = TestEnvironment::newFolder(QStringLiteral("discard-home"));
        const bool ended = runEditor(project, discardHome, "discard",
                                     QStringLiteral("{\"Name\":\"Thrown away\",\"IsHUD\":true,\"HUD\":[]}"));
        const QByteArray seen = TestEnvironment::readFile(discardHome + QStringLiteral("/user.log"));
        QVERIFY2(ended && seen.contains("asked: Save Confirmation\nanswered No"), seen.constData());
        QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project)), before);
        QVERIFY(recoveryFiles(discardHome).isEmpty());

        // Closed in the very moment the window shows, in each window style.
        for (const int style : {0, 2}) {
            const QString home = TestEnvironment::newFolder(QStringLiteral("at-once-%1").arg(style));
            TestEnvironment::writeFile(home + QStringLiteral("/config/Ostrel Vane/Velmora 2.conf"),
                                       QStringLiteral("[General]\nwindowStyle=%1\nsettingsVersion=1\n").arg(style).toUtf8());
            QVERIFY2(runEditor(project, home, "closeatonce"), qPrintable(QStringLiteral("window style %1").arg(style)));
            QVERIFY(TestEnvironment::readFile(home + QStringLiteral("/user.log")).contains("closing at once"));
        }
    }
};

VELMORA_TEST_MAIN(TestProjectLifecycle, QApplication)
#include "tst_projectlifecycle.moc"
