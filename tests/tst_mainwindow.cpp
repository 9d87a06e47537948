#include "TestEnvironment.h"

#include "MainWindowFixture.h"
#include "app/SettingsStore.h"
#include "app/VelmoMainWindow.h"
#include "app/WindowPlacement.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "widgets/MyLineEdit.h"
#include "widgets/TrovDialog.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

namespace {

using TestEnvironment::answering;
using TestEnvironment::closeByFrame;
using TestEnvironment::press;
using TestEnvironment::Seen;
using TestEnvironment::templateArray;
using TestEnvironment::writtenDocument;

QSize sceneSize(VelmoMainWindow* window)
{
    const GameUIEditorScene* scene = window->editorView()->editorScene();
    return QSize(scene->screenWidth(), scene->screenHeight());
}

}

class TestMainWindow : public QObject, private MainWindowFixture
{
    Q_OBJECT

private:
    bool editorPageShown() const
    {
        return window->findChild<QWidget*>(QStringLiteral("mainWidget"))->isVisible()
            && !window->findChild<QWidget*>(QStringLiteral("NoProjectPage"))->isVisible();
    }
    QPoint rowPoint(int row) const
    {
        UltimateTreeItem* item = list()->row(row);
        return list()->mapFromScene(QPointF(60, item->y() + item->rowHeight() / 2.0));
    }
    void clickRow(int row, bool twice = false) { TestEnvironment::clickRow(window->hudListWidget(), row, twice); }
    void pressSave() { key(Qt::Key_S); }
    QString openFolder() const { return window->getProjectDirectory().absolutePath(); }
    // A file dropped on the HUD list, which the window sees as the
    // application's event filter.
    void dropFile(const QString& path)
    {
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(path)});
        QWidget* target = list()->viewport();
        const QPoint at(20, 20);
        qApp->installEventFilter(window.get());
        QDragEnterEvent enter(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        if (enter.isAccepted()) {
            QDropEvent drop(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(target, &drop);
        }
        qApp->removeEventFilter(window.get());
    }

private slots:
    void init() { SettingsStore().clear(); }
    void cleanup() { window.reset(); }

    void freshProjectOpensFromTemplates()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("sample"));
        openWindow(project);
        QCOMPARE(rowNames(), QStringList({"Map HUD", "Battle HUD"}));
        // Switching HUDs by mouse is no edit; opened and looked at: no file.
        clickRow(1);
        QCOMPARE(window->editorView()->editorScene()->toJson(), templateArray("VelmoraBattleHUD.json"));
        QVERIFY(!window->projectIsChanged());
        QVERIFY(!QFileInfo::exists(TestEnvironment::documentPath(project)));

        window->markChanged();
        pressSave();
        const QJsonObject written = writtenDocument(project);
        QCOMPARE(written.value(QStringLiteral("Battle")).toInt(), 1);
        QCOMPARE(written.value(QStringLiteral("Data")).toArray(),
                 QJsonArray({QJsonObject({{QStringLiteral("HUD"), templateArray("VelmoraMapHUD.json")}}),
                             QJsonObject({{QStringLiteral("HUD"), templateArray("VelmoraBattleHUD.json")}})}));
    }

    void notAProjectShowsTheOpenPage()
    {
        const QString folder = TestEnvironment::makeProject(QStringLiteral("broken"));
        QFile::remove(folder + QStringLiteral("/data/Armors.json"));
        openWindow(folder);
        QVERIFY(!window->projectIsOpen());
        // At start-up the status bar says why nothing opened; Save writes nothing.
        QVERIFY(status().contains(QStringLiteral("\"Armors.json\" is missing.")));
        pressSave();
        QVERIFY(!QFileInfo::exists(folder + QStringLiteral("/data/plugin")));

        // Asked for by a drop, a data file of the wrong shape gets an alert naming it.
        window.reset();
        openWindow(TestEnvironment::copySampleProject(QStringLiteral("good")));
        TestEnvironment::writeFile(folder + QStringLiteral("/data/Armors.json"), "[null]");
        TestEnvironment::writeFile(folder + QStringLiteral("/data/System.json"), "[\"not\", \"an object\"]");
        const Seen seen = answering([&] { dropFile(folder + QStringLiteral("/game.rmmzproject")); }, {press("okButton")});
        QCOMPARE(seen.title, QStringLiteral("Open Error"));
        QVERIFY2(seen.text.contains(QStringLiteral("System.json&quot; doesn't hold an object")), qPrintable(seen.text));
        QVERIFY(!window->projectIsOpen());
    }

    // A root that is an array (once opened as an empty list with no Map or
    // Battle HUD): the templates stand in, the window says so, and the
    // damaged file is kept once, at the first save.
    void damagedDocumentsOpenFromTheTemplatesAndSaySo()
    {
        const QByteArray content("[{\"HUD\":[]}]");
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("shape"));
        const QString document = TestEnvironment::documentPath(project);
        TestEnvironment::writeFile(document, content);
        openWindow(project);
        const QString notice = window->lastOpenReport().message;
        QVERIFY2(notice.contains(QStringLiteral("kept as a backup")), qPrintable(notice));
        QCOMPARE(window->editorView()->editorScene()->toJson(), templateArray("VelmoraMapHUD.json"));

        pressSave();
        pressSave();
        QCOMPARE(TestEnvironment::readFile(document + QStringLiteral(".bak")), content);
        QVERIFY(!QFileInfo::exists(document + QStringLiteral(".bak.1")));
        QCOMPARE(writtenDocument(project).value(QStringLiteral("Data")).toArray().size(), 2);
    }

    void sizedCustomComponentAndDeletion()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("full"), 1280, 720);
        const QByteArray original = TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), original);
        openWindow(project);
        QCOMPARE(sceneSize(window.get()), QSize(1280, 720));

        // A custom component takes its own size; a HUD without "IsHUD" too.
        clickRow(2);
        QCOMPARE(sceneSize(window.get()), QSize(240, 64));
        clickRow(4);
        QCOMPARE(sceneSize(window.get()), QSize(300, 300));
        clickRow(1);
        QVERIFY(!window->projectIsChanged());

        // Saving what was only looked at gives the file back unchanged.
        pressSave();
        QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project)), original);

        // Refusing the deletion keeps the row but still counts as a change.
        QPushButton* remove = window->findChild<QPushButton*>(QStringLiteral("removeHudButton"));
        const Seen seen = answering([&] { QTest::mouseClick(remove, Qt::LeftButton); }, {press("cancelButton")});
        QCOMPARE(seen.text, QStringLiteral("Are you sure you wish to delete \"Statusanzeige für Böse\"?"));
        QCOMPARE(list()->rowCount(), 5);
        QVERIFY(window->projectIsChanged());

        answering([&] { QTest::mouseClick(remove, Qt::LeftButton); }, {press("confirmButton")});
        pressSave();
        const QJsonObject written = writtenDocument(project);
        QCOMPARE(written.value(QStringLiteral("Map")).toInt(), 2);
        QCOMPARE(written.value(QStringLiteral("Battle")).toInt(), 0);
        QCOMPARE(written.value(QStringLiteral("EditorNote")), QJsonDocument::fromJson(original).object().value(QStringLiteral("EditorNote")));
        QVERIFY(!QJsonDocument(written).toJson().contains("Statusanzeige"));
    }

    void reorderingAndPastingHuds()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("reorder"));
        openWindow(project);

        // The Battle HUD dragged above the Map HUD with the right button.
        QWidget* viewport = list()->viewport();
        const QPoint start = rowPoint(1);
        QTest::mousePress(viewport, Qt::RightButton, Qt::NoModifier, start);
        for (int dy : {-8, -16, -22})
            TestEnvironment::moveWithButtons(viewport, start + QPoint(0, dy), Qt::RightButton);
        QTest::mouseRelease(viewport, Qt::RightButton, Qt::NoModifier, start + QPoint(0, -22));
        QCOMPARE(rowNames(), QStringList({"Battle HUD", "Map HUD"}));
        pressSave();
        const QJsonObject written = writtenDocument(project);
        QCOMPARE(written.value(QStringLiteral("Map")).toInt(), 1);
        QCOMPARE(written.value(QStringLiteral("Battle")).toInt(), 0);

        // A pasted record without name or identity becomes a new custom HUD
        // with a fresh identifier and the default name.
        clickRow(1);
        list()->setFocus();
        QApplication::clipboard()->setText(QStringLiteral("VELMORAHUD{\"HUD\":[{\"Type\":0,\"Name\":\"Label\"}]}"));
        QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(rowNames(), QStringList({"Battle HUD", "Map HUD", "New HUD"}));
        const QString id = list()->row(2)->userData()->value(QStringLiteral("ID")).toString();
        QVERIFY(!id.isEmpty());
        clickRow(1);
        // A named HUD keeps its name, and its identifier is replaced.
        QApplication::clipboard()->setText(QStringLiteral("VELMORAHUD{\"Name\":\"Boss Bar\",\"ID\":\"%1\",\"IsHUD\":false,\"HUD\":[]}").arg(id));
        QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(rowNames(), QStringList({"Battle HUD", "Map HUD", "Boss Bar", "New HUD"}));
        QVERIFY(list()->row(2)->userData()->value(QStringLiteral("ID")).toString() != id);
        // The Map HUD can't be cut.
        QTest::keyClick(list(), Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(list()->rowCount(), 4);
    }

    void creatingAndEditingHuds()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("create"), 1280, 720);
        openWindow(project);
        QPushButton* add = window->findChild<QPushButton*>(QStringLiteral("addHudButton"));

        // Cancelled: nothing is added and nothing changed.
        Seen seen = answering([&] { QTest::mouseClick(add, Qt::LeftButton); }, {press("cancelButton")});
        QCOMPARE(list()->rowCount(), 2);
        QVERIFY(!window->projectIsChanged());

        // A name typed and confirmed: a new HUD behind the current one.
        seen = answering([&] { QTest::mouseClick(add, Qt::LeftButton); },
                         {TestEnvironment::typing("Name", QStringLiteral("Boss Bar")), press("confirmButton")});
        QCOMPARE(rowNames(), QStringList({"Map HUD", "Boss Bar", "Battle HUD"}));
        const QString id = list()->row(1)->userData()->value(QStringLiteral("ID")).toString();
        QVERIFY2(QRegularExpression(QStringLiteral("^[0-6]{5}$")).match(id).hasMatch(), qPrintable(id));

        // A double click edits: the HUD becomes a custom component of its own size.
        seen = answering([&] { clickRow(1, true); },
                         {[](TrovDialog* dialog) {
                              QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("Type")), Qt::LeftButton);
                              TestEnvironment::retype(TestEnvironment::field<MyLineEdit>(dialog, "Width"), QStringLiteral("320"));
                              TestEnvironment::retype(TestEnvironment::field<MyLineEdit>(dialog, "Height"), QStringLiteral("96"));
                              press("confirmButton")(dialog);
                          }});
        QCOMPARE(seen.count, 1);
        QCOMPARE(sceneSize(window.get()), QSize(320, 96));
        pressSave();
        const QJsonObject written = writtenDocument(project);
        QCOMPARE(written.value(QStringLiteral("Battle")).toInt(), 2);
        QJsonObject entry = written.value(QStringLiteral("Data")).toArray().at(1).toObject();
        entry.remove(QStringLiteral("HUD"));
        QCOMPARE(entry, QJsonObject({{"ID", id}, {"Name", "Boss Bar"}, {"IsHUD", false}, {"Width", 320}, {"Height", 96},
                                    {"Params", QJsonArray()}}));

        // The first click after the dialog picks its row. The Map HUD can't
        // be deleted: the Delete key asks nothing.
        clickRow(0);
        QCOMPARE(list()->currentRow(), list()->row(0));
        seen = answering([&] { QTest::keyClick(list(), Qt::Key_Delete); }, {press("confirmButton")});
        QCOMPARE(seen.count, 0);
        QCOMPARE(list()->rowCount(), 3);
    }

    void failedSaveStaysUnsaved()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("blocked"));
        // The document's place is taken by a folder: every write fails.
        QDir().mkpath(TestEnvironment::documentPath(project));
        openWindow(project);
        window->markChanged();

        Seen seen = answering([&] { pressSave(); }, {press("okButton")});
        QCOMPARE(seen.title, QStringLiteral("Save Error"));
        // The message, then the file and the system's reason on a line of their own.
        const QString path = QDir::toNativeSeparators(QDir(project).absoluteFilePath(QStringLiteral("data/plugin/VelmoraHUD.json")));
        QVERIFY2(seen.text.startsWith(QStringLiteral("Could not save to \"VelmoraHUD.json\"!<br>") + path + QStringLiteral(": ")),
                 qPrintable(seen.text));
        QVERIFY(window->projectIsChanged());

        // Closing still asks; closing the question by its frame keeps the window.
        answering([&] { QVERIFY(!window->close()); }, {closeByFrame()});
        // Choosing to save, and failing again, keeps the window open too.
        seen = answering([&] { QVERIFY(!window->close()); }, {press("confirmButton"), press("okButton")});
        QCOMPARE(seen.count, 2);
        QVERIFY(window->isVisible());

        // Not saving closes, and the window state is stored.
        answering([&] { QVERIFY(window->close()); }, {press("cancelButton")});
        QVERIFY(SettingsStore().contains(QStringLiteral("Geometry")));
    }

    void closeProjectAndPrompts()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("close"));
        openWindow(project);
        window->markChanged();
        QAction* close = action("Action_CloseProject");

        const Seen seen = answering([&] { close->trigger(); }, {press("endButton")});
        QCOMPARE(seen.title, QStringLiteral("Save Confirmation"));
        QVERIFY(window->projectIsOpen() && window->projectIsChanged());

        answering([&] { close->trigger(); }, {press("confirmButton")});
        QVERIFY(!editorPageShown());
        QVERIFY(QFileInfo::exists(TestEnvironment::documentPath(project)));
        // The state was stored before closing, naming the closed project.
        QCOMPARE(SettingsStore().value(QStringLiteral("Project")).toString(), QDir(project).absolutePath());

        // Closing the application now stores no project.
        QVERIFY(window->close());
        QCOMPARE(SettingsStore().value(QStringLiteral("Project")).toString(), QString());
    }

    // Ctrl+O asks about unsaved work, then opens the file dialog in the open
    // project's folder with no file name filled in.
    void openingByDialogAsksFirst()
    {
        const QString first = TestEnvironment::copySampleProject(QStringLiteral("dialog-first"));
        const QString second = TestEnvironment::makeProject(QStringLiteral("dialog-second"), 1280, 720);
        openWindow(first);
        window->markChanged();

        QString folder;
        QString fileName = QStringLiteral("unseen");
        QTimer chooser;
        chooser.setInterval(5);
        connect(&chooser, &QTimer::timeout, [&]() {
            QFileDialog* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            folder = dialog->directory().absolutePath();
            fileName = TestEnvironment::field<QLineEdit>(dialog, "fileNameEdit")->text();
            dialog->selectFile(second + QStringLiteral("/game.rmmzproject"));
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        });
        chooser.start();
        answering([&] { key(Qt::Key_O); }, {press("confirmButton")});
        chooser.stop();
        QCOMPARE(folder, QDir(first).absolutePath());
        QCOMPARE(fileName, QString());
        // Saved first, then the other project opened.
        QVERIFY(QFileInfo::exists(TestEnvironment::documentPath(first)));
        QCOMPARE(openFolder(), QDir(second).absolutePath());
        QVERIFY(!window->projectIsChanged());
    }

    void droppingAProject()
    {
        const QString first = TestEnvironment::copySampleProject(QStringLiteral("first"));
        const QString second = TestEnvironment::makeProject(QStringLiteral("Zweites Projekt – Ärger mit Öl"), 1920, 1080);
        openWindow(first);

        // The suffix must match exactly.
        TestEnvironment::writeFile(second + QStringLiteral("/GAME.RMMZPROJECT"), "RPGMZ");
        dropFile(second + QStringLiteral("/GAME.RMMZPROJECT"));
        QCOMPARE(openFolder(), QDir(first).absolutePath());

        // With unsaved work the drop asks first; not saving opens the other.
        window->markChanged();
        answering([&] { dropFile(second + QStringLiteral("/game.rmmzproject")); }, {press("cancelButton")});
        QCOMPARE(openFolder(), QDir(second).absolutePath());
        QCOMPARE(window->screenSize(), QSize(1920, 1080));
        QVERIFY(!QFileInfo::exists(TestEnvironment::documentPath(first)));
    }

    void reloadKeepsDataOnFailure()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("reload"));
        openWindow(project);
        auto firstActor = [&] {
            return window->getProjectData()->value(QStringLiteral("Actors.json")).toArray().at(1).toObject()
                .value(QStringLiteral("name")).toString();
        };
        const QString before = firstActor();
        TestEnvironment::writeFile(project + QStringLiteral("/data/Actors.json"), "{\"not\":\"an array\"}");
        const Seen seen = answering([&] { window->ReloadProject(); }, {press("okButton")});
        QCOMPARE(seen.text, QStringLiteral("Could not reload data!<br>&quot;Actors.json&quot; doesn't hold an array."));
        QVERIFY(window->projectIsOpen());
        QCOMPARE(firstActor(), before);

        TestEnvironment::writeFile(project + QStringLiteral("/data/Actors.json"),
                                   "[null,{\"name\":\"Renamed\",\"faceName\":\"Actor1\",\"faceIndex\":0}]");
        window->ReloadProject();
        QCOMPARE(firstActor(), QStringLiteral("Renamed"));
        QVERIFY(!window->projectIsChanged());
    }

    void shortcutsReachTheirCommands()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("keys"));
        openWindow(project);
        Seen seen = answering([&] { key(Qt::Key_F1, Qt::NoModifier); }, {press("cancelButton")});
        QCOMPARE(seen.title, QStringLiteral("About Velmora"));

        // Ctrl+Q belongs to the canvas and the list (show or hide the
        // component): it never ends the program.
        key(Qt::Key_Q);
        QTest::qWait(50);
        QVERIFY(window->isVisible());

        // Quit asks the same question as the close button: saving writes the
        // document and ends.
        QAction* quit = action("Action_Quit");
        window->markChanged();
        seen = answering([&] { quit->trigger(); }, {press("confirmButton")});
        QCOMPARE(seen.title, QStringLiteral("Save Confirmation"));
        QVERIFY(!window->isVisible());
        QVERIFY(QFileInfo::exists(TestEnvironment::documentPath(project)));
    }

    void offScreenGeometryComesBack()
    {
        const QVector<QRect> screens{QRect(0, 0, 1920, 1050), QRect(1920, 0, 1280, 1000)};
        // On a screen, or across two: left alone.
        QCOMPARE(WindowPlacement::reachableGeometry(QRect(40, 50, 900, 640), screens), QRect(40, 50, 900, 640));
        // Stored on a monitor that is gone: whole on the nearest screen.
        const QRect back = WindowPlacement::reachableGeometry(QRect(5000, 4000, 900, 640), screens);
        QCOMPARE(back.size(), QSize(900, 640));
        QVERIFY(screens.at(1).contains(back));
    }

    // A stored RPG Maker location that lost its runtime is forgotten at start-up.
    void startUpForgetsALostLocation()
    {
        SettingsStore().setValue(QStringLiteral("EditorLocation"), TestEnvironment::newFolder(QStringLiteral("mz")));
        openWindow(TestEnvironment::copySampleProject(QStringLiteral("state")));
        QCOMPARE(window->getEditorLocation(), QString());
        QVERIFY(window->close());
        QCOMPARE(SettingsStore().value(QStringLiteral("EditorLocation")).toString(), QString());
    }
};

VELMORA_TEST_MAIN(TestMainWindow, QApplication)
#include "tst_mainwindow.moc"
