#include "TestEnvironment.h"

#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"
#include "app/SettingsStore.h"
#include "app/VelmoMainTitleBar.h"
#include "MainWindowFixture.h"
#include "app/VelmoMainWindow.h"
#include "app/WindowPlacement.h"
#include "widgets/InflateButton.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyTabSystem.h"
#include "widgets/MyTabSystemHeader.h"
#include "widgets/TrovDialog.h"

#include <QAction>
#include <QApplication>
#include <QJsonArray>
#include <QLineEdit>
#include <QFileDialog>
#include <QJsonDocument>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QClipboard>

#include <functional>

namespace {

using TestEnvironment::Seen;
using TestEnvironment::templateArray;
using TestEnvironment::writtenDocument;
using TestEnvironment::answering;
using TestEnvironment::closeByFrame;
using TestEnvironment::press;


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
    QPoint rowPoint(int row, int dy = 0) const
    {
        UltimateTreeItem* item = list()->row(row);
        return list()->mapFromScene(QPointF(60, item->y() + item->rowHeight() / 2.0 + dy));
    }
    void clickRow(int row)
    {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, rowPoint(row));
    }
    void pressSave() { key(Qt::Key_S); }
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

    // A game without a title (or with one of blanks) is named by its folder.
    void titleFallsBackToTheFolderName()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("untitled"));
        const QString system = project + QStringLiteral("/data/System.json");
        QJsonObject data = QJsonDocument::fromJson(TestEnvironment::readFile(system)).object();
        data.insert(QStringLiteral("gameTitle"), QStringLiteral("  "));
        TestEnvironment::writeFile(system, QJsonDocument(data).toJson());
        openWindow(project);
        QCOMPARE(window->windowTitle(), QStringLiteral("%1[*] \u2014 Velmora").arg(QDir(project).dirName()));
    }

    void freshProjectOpensFromTemplates()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("sample"));
        openWindow(project);
        QVERIFY(editorPageShown());
        // The title names the project by its game title and marks unsaved work.
        QCOMPARE(window->windowTitle(), QStringLiteral("Velmora Sample[*] \u2014 Velmora"));
        QVERIFY(!window->isWindowModified());
        QCOMPARE(rowNames(), QStringList({"Map HUD", "Battle HUD"}));
        QCOMPARE(window->editorView()->editorScene()->toJson(), templateArray("VelmoraMapHUD.json"));
        QCOMPARE(sceneSize(window.get()), QSize(816, 624));

        // Switching HUDs by mouse is no edit.
        clickRow(1);
        QCOMPARE(window->editorView()->editorScene()->toJson(), templateArray("VelmoraBattleHUD.json"));
        QVERIFY(!window->projectIsChanged());
        // Opened and looked at: no file.
        QVERIFY(!QFileInfo::exists(TestEnvironment::documentPath(project)));

        window->markChanged();
        QVERIFY(window->isWindowModified());
        pressSave();
        QVERIFY(!window->isWindowModified());
        const QJsonObject written = writtenDocument(project);
        QCOMPARE(written.value(QStringLiteral("Battle")).toInt(), 1);
        QCOMPARE(written.value(QStringLiteral("Data")).toArray(),
                 QJsonArray({QJsonObject({{QStringLiteral("HUD"), templateArray("VelmoraMapHUD.json")}}),
                             QJsonObject({{QStringLiteral("HUD"), templateArray("VelmoraBattleHUD.json")}})}));
    }

    // A canvas without a background picture shows the editor's tile, which
    // the window hands to the scene it builds.
    void theCanvasIsTiledWithTheEditorTile()
    {
        openWindow(TestEnvironment::makeProject(QStringLiteral("tiled")));
        GameUIEditorScene* scene = window->editorView()->editorScene();
        for (UIComponentBase* component : scene->components())
            component->setVisible(false);
        const QImage tile = QImage(QStringLiteral(":/resources/Editor/Tile.png")).convertToFormat(QImage::Format_ARGB32);
        QVERIFY(!tile.isNull());
        QImage shot(40, 40, QImage::Format_ARGB32);
        shot.fill(Qt::magenta);
        {
            QPainter painter(&shot);
            scene->render(&painter, QRectF(0, 0, 40, 40), QRectF(0, 0, 40, 40));
        }
        for (const QPoint& at : {QPoint(0, 0), QPoint(5, 11), QPoint(17, 3), QPoint(39, 39)})
            QCOMPARE(QColor(shot.pixel(at)), QColor(tile.pixel(at.x() % tile.width(), at.y() % tile.height())));
    }

    // The side panel keeps its width and place when its tabs are switched,
    // so the canvas beside it doesn't jump.
    void sidePanelKeepsItsWidthAcrossTabs()
    {
        openWindow(TestEnvironment::makeProject(QStringLiteral("panel")));
        MyTabSystem* tabs = window->findChild<MyTabSystem*>(QStringLiteral("tabs"));
        QVERIFY(tabs);
        QWidget* canvas = window->findChild<QWidget*>(QStringLiteral("hudEditor"));
        const QRect panel = tabs->geometry();
        const int canvasWidth = canvas->width();
        for (int tab : {1, 0, 1}) {
            QTest::mouseClick(tabs->header(), Qt::LeftButton, Qt::NoModifier, tabs->header()->tabRect(tab).center());
            QTRY_COMPARE(tabs->currentIndex(), tab);
            QTRY_VERIFY(!tabs->isAnimating());
            QCoreApplication::processEvents();
            QCOMPARE(tabs->geometry(), panel);
            QCOMPARE(canvas->width(), canvasWidth);
        }
        // The controls' text stands whole in the panel, none of it scrolled away sideways.
        QScrollArea* controls = tabs->currentPage()->findChild<QScrollArea*>(QStringLiteral("mainFrame"));
        QVERIFY(controls);
        QVERIFY(!controls->horizontalScrollBar()->isVisible());
    }

    void notAProjectShowsTheOpenPage()
    {
        const QString folder = TestEnvironment::makeProject(QStringLiteral("broken"));
        QFile::remove(folder + QStringLiteral("/data/Armors.json"));
        openWindow(folder);
        QVERIFY(!window->projectIsOpen());
        // At start-up the status bar says why nothing opened.
        QVERIFY(window->findChild<QLabel*>(QStringLiteral("statusText"))->text().contains(QStringLiteral("\"Armors.json\" is missing.")));
        // Save with no project does nothing and writes nothing.
        pressSave();
        QVERIFY(!QFileInfo::exists(folder + QStringLiteral("/data/plugin")));

        window.reset();
        openWindow(folder + QStringLiteral("/gone"));
        QVERIFY(!window->projectIsOpen());
        QVERIFY(window->findChild<QLabel*>(QStringLiteral("statusText"))->text().contains(QStringLiteral("no longer there")));

        // Asked for by a drop, a folder that isn't a project, or a stray file
        // in its data folder, gets an alert naming what is wrong.
        const QString good = TestEnvironment::copySampleProject(QStringLiteral("good"));
        window.reset();
        openWindow(good);
        const QString stray = TestEnvironment::newFolder(QStringLiteral("stray"));
        TestEnvironment::writeFile(stray + QStringLiteral("/game.rmmzproject"), "RPGMZ");
        Seen seen = answering([&] { dropFile(stray + QStringLiteral("/game.rmmzproject")); }, {press("okButton")});
        QCOMPARE(seen.title, QStringLiteral("Open Error"));
        QVERIFY2(seen.text.contains(QStringLiteral("System.json")), qPrintable(seen.text));
        QVERIFY(!window->projectIsOpen());

        TestEnvironment::writeFile(folder + QStringLiteral("/data/Armors.json"), "[null]");
        TestEnvironment::writeFile(folder + QStringLiteral("/data/System.json"), "[\"not\", \"an object\"]");
        seen = answering([&] { dropFile(folder + QStringLiteral("/game.rmmzproject")); }, {press("okButton")});
        QVERIFY2(seen.text.contains(QStringLiteral("System.json")), qPrintable(seen.text));
        QVERIFY(seen.text.contains(QStringLiteral("doesn't hold an object")));
    }

    void damagedDocumentsOpenFromTheTemplatesAndSaySo()
    {
        // A root that is an array, a "Data" that is a string: both were once
        // opened as an empty list with no Map or Battle HUD.
        for (const QByteArray& content : {QByteArray("[{\"HUD\":[]}]"), QByteArray("{\"Data\":\"x\",\"Note\":7}")}) {
            const QString project = TestEnvironment::copySampleProject(QStringLiteral("shape"));
            TestEnvironment::writeFile(TestEnvironment::documentPath(project), content);
            window.reset();
            openWindow(project);
            const QString status = window->findChild<QLabel*>(QStringLiteral("statusText"))->text();
            QVERIFY2(status.contains(QStringLiteral("kept as a backup")), qPrintable(status));

            pressSave();
            QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project) + QStringLiteral(".bak")), content);
            QCOMPARE(writtenDocument(project).value(QStringLiteral("Data")).toArray().size(), 2);
        }
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
        QCOMPARE(sceneSize(window.get()), QSize(1280, 720));
        QVERIFY(!window->projectIsChanged());

        // Saving what was only looked at gives the file back unchanged.
        pressSave();
        QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project)), original);

        // Refusing the deletion keeps the row but still counts as a change.
        QPushButton* remove = window->findChild<QPushButton*>(QStringLiteral("removeHudButton"));
        Seen seen = answering([&] { QTest::mouseClick(remove, Qt::LeftButton); }, {press("cancelButton")});
        QCOMPARE(seen.title, QStringLiteral("HUD Delete Confirmation"));
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
        for (int dy : {-8, -16, -22}) {
            TestEnvironment::moveWithButtons(viewport, start + QPoint(0, dy), Qt::RightButton);
        }
        QTest::mouseRelease(viewport, Qt::RightButton, Qt::NoModifier, start + QPoint(0, -22));
        QCOMPARE(rowNames(), QStringList({"Battle HUD", "Map HUD"}));
        pressSave();
        QJsonObject written = writtenDocument(project);
        QCOMPARE(written.value(QStringLiteral("Map")).toInt(), 1);
        QCOMPARE(written.value(QStringLiteral("Battle")).toInt(), 0);
        QCOMPARE(written.value(QStringLiteral("Data")).toArray().at(0).toObject().value(QStringLiteral("HUD")).toArray(),
                 templateArray("VelmoraBattleHUD.json"));

        // The Map HUD can't be copied; a pasted record without name or
        // identity becomes a new custom HUD with a fresh identifier and the
        // default name.
        clickRow(1);
        list()->setFocus();
        QApplication::clipboard()->setText(QStringLiteral("VELMORAHUD{\"HUD\":[{\"Type\":0,\"Name\":\"Label\"}]}"));
        QTest::keyClick(list(), Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QApplication::clipboard()->text().endsWith(QStringLiteral("\"Label\"}]}")));
        QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(rowNames(), QStringList({"Battle HUD", "Map HUD", "New HUD"}));
        UltimateTreeItem* pasted = list()->row(2);
        const QString id = pasted->userData()->value(QStringLiteral("ID")).toString();
        QCOMPARE(id.size(), 5);
        QVERIFY(!pasted->userData()->contains(QStringLiteral("Background")));
        clickRow(1);
        // A named HUD keeps its name, and its identifier is replaced.
        QApplication::clipboard()->setText(QStringLiteral("VELMORAHUD{\"Name\":\"Boss Bar\",\"ID\":\"%1\",\"IsHUD\":false,\"HUD\":[]}").arg(id));
        QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(rowNames(), QStringList({"Battle HUD", "Map HUD", "Boss Bar", "New HUD"}));
        QVERIFY(list()->row(2)->userData()->value(QStringLiteral("ID")).toString() != id);
        // Foreign clipboard text is refused.
        QApplication::clipboard()->setText(QStringLiteral("VELMOCOMP{\"Type\":0}"));
        QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(list()->rowCount(), 4);

        // The Map HUD can't be cut.
        QTest::keyClick(list(), Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(list()->rowCount(), 4);

        pressSave();
        written = writtenDocument(project);
        const QJsonArray data = written.value(QStringLiteral("Data")).toArray();
        QCOMPARE(data.size(), 4);
        QCOMPARE(data.at(2).toObject().value(QStringLiteral("Name")).toString(), QStringLiteral("Boss Bar"));
        QVERIFY(!data.at(2).toObject().contains(QStringLiteral("Background")));
    }

    void hudContextMenu()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("menu"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project),
                                   TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json")));
        openWindow(project);
        QMenu* menu = nullptr;
        auto openMenuOn = [&](int row) {
            QTest::mouseClick(list()->viewport(), Qt::RightButton, Qt::NoModifier, rowPoint(row));
            menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu);
        };
        // "Edit HUD" counts as a change even when the dialog is cancelled.
        openMenuOn(3);
        QAction* edit = menu->actions().at(1);
        menu->close();
        const Seen seen = answering([&] { edit->trigger(); }, {press("cancelButton")});
        QCOMPARE(seen.title, QStringLiteral("HUD Dialog"));
        QVERIFY(window->projectIsChanged());
    }

    void creatingAndEditingHuds()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("create"), 1280, 720);
        openWindow(project);
        QPushButton* add = window->findChild<QPushButton*>(QStringLiteral("addHudButton"));

        // Cancelled: nothing is added and nothing changed.
        Seen seen = answering([&] { QTest::mouseClick(add, Qt::LeftButton); }, {press("cancelButton")});
        QCOMPARE(seen.title, QStringLiteral("HUD Dialog"));
        QCOMPARE(list()->rowCount(), 2);
        QVERIFY(!window->projectIsChanged());

        // A name typed and confirmed: a new HUD behind the current one, which
        // becomes current and gets the screen's size.
        seen = answering([&] { QTest::mouseClick(add, Qt::LeftButton); },
                         {[](TrovDialog* dialog) {
                              MyLineEdit* name = dialog->findChild<MyLineEdit*>(QStringLiteral("Name"));
                              QPushButton* confirm = dialog->findChild<QPushButton*>(QStringLiteral("confirmButton"));
                              // An empty name can't be confirmed.
                              QVERIFY(!confirm->isEnabled());
                              QTest::keyClicks(name, QStringLiteral("Boss Bar"));
                              QTest::mouseClick(confirm, Qt::LeftButton);
                          }});
        QCOMPARE(seen.count, 1);
        QCOMPARE(rowNames(), QStringList({"Map HUD", "Boss Bar", "Battle HUD"}));
        const QString id = list()->row(1)->userData()->value(QStringLiteral("ID")).toString();
        QVERIFY2(QRegularExpression(QStringLiteral("^[0-6]{5}$")).match(id).hasMatch(), qPrintable(id));
        pressSave();

        // A double click edits: the HUD becomes a custom component of its own size.
        seen = answering([&] { QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, rowPoint(1)); },
                         {[](TrovDialog* dialog) {
                              MyLineEdit* name = dialog->findChild<MyLineEdit*>(QStringLiteral("Name"));
                              QCOMPARE(name->text(), QStringLiteral("Boss Bar"));
                              QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("Type")), Qt::LeftButton);
                              MyLineEdit* width = dialog->findChild<MyLineEdit*>(QStringLiteral("Width"));
                              width->selectAll();
                              QTest::keyClicks(width, QStringLiteral("320"));
                              MyLineEdit* height = dialog->findChild<MyLineEdit*>(QStringLiteral("Height"));
                              height->selectAll();
                              QTest::keyClicks(height, QStringLiteral("96"));
                              QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("confirmButton")),
                                                Qt::LeftButton);
                          }});
        QCOMPARE(seen.count, 1);
        QCOMPARE(sceneSize(window.get()), QSize(320, 96));
        pressSave();
        const QJsonObject entry = writtenDocument(project).value(QStringLiteral("Data")).toArray().at(1).toObject();
        QCOMPARE(entry.value(QStringLiteral("IsHUD")).toBool(true), false);
        QCOMPARE(entry.value(QStringLiteral("Width")).toInt(), 320);
        QCOMPARE(entry.value(QStringLiteral("Height")).toInt(), 96);
        QCOMPARE(entry.value(QStringLiteral("ID")).toString(), id);
        QCOMPARE(writtenDocument(project).value(QStringLiteral("Battle")).toInt(), 2);

        // The Map HUD's name and kind are fixed; cancelling its dialog changes nothing.
        seen = answering([&] { QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, rowPoint(0)); },
                         {[](TrovDialog* dialog) {
                              MyLineEdit* name = dialog->findChild<MyLineEdit*>(QStringLiteral("Name"));
                              QCOMPARE(name->text(), QStringLiteral("Map HUD"));
                              QVERIFY(!name->isEnabled());
                              QVERIFY(!dialog->findChild<QWidget*>(QStringLiteral("Type"))->isEnabled());
                              press("cancelButton")(dialog);
                          }});
        QCOMPARE(seen.count, 1);
        QVERIFY(!window->projectIsChanged());

        // The Map HUD can't be deleted: the Delete key asks nothing.
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

        // Closing still asks; cancelling keeps the window and the work.
        seen = answering([&] { QVERIFY(!window->close()); }, {press("endButton")});
        QCOMPARE(seen.text, QStringLiteral("Would you like to save before closing?"));
        QVERIFY(window->isVisible());

        // Choosing to save, and failing again, keeps the window open too.
        seen = answering([&] { QVERIFY(!window->close()); }, {press("confirmButton"), press("okButton")});
        QCOMPARE(seen.title, QStringLiteral("Save Error"));
        QVERIFY(window->isVisible());

        // Closing the question by its frame is a cancel.
        seen = answering([&] { QVERIFY(!window->close()); }, {closeByFrame()});
        QCOMPARE(seen.count, 1);
        QVERIFY(window->isVisible());

        // Not saving closes, and the window state is stored.
        seen = answering([&] { QVERIFY(window->close()); }, {press("cancelButton")});
        QCOMPARE(seen.count, 1);
        SettingsStore store;
        QCOMPARE(store.value(QStringLiteral("Project")).toString(), QDir(project).absolutePath());
        QVERIFY(store.contains(QStringLiteral("Geometry")));
        QVERIFY(QFileInfo(TestEnvironment::documentPath(project)).isDir());
    }

    void closeProjectAndPrompts()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("close"));
        openWindow(project);
        window->markChanged();
        QAction* close = window->findChild<QAction*>(QStringLiteral("Action_CloseProject"));

        Seen seen = answering([&] { close->trigger(); }, {press("endButton")});
        QCOMPARE(seen.title, QStringLiteral("Save Confirmation"));
        QVERIFY(window->projectIsOpen() && window->projectIsChanged());

        seen = answering([&] { close->trigger(); }, {press("confirmButton")});
        QVERIFY(!editorPageShown());
        QVERIFY(QFileInfo::exists(TestEnvironment::documentPath(project)));
        // The state was stored before closing, naming the closed project.
        QCOMPARE(SettingsStore().value(QStringLiteral("Project")).toString(), QDir(project).absolutePath());

        // Closing the application now stores no project.
        QVERIFY(window->close());
        QCOMPARE(SettingsStore().value(QStringLiteral("Project")).toString(), QString());
    }

    void openingByDialogAsksFirst()
    {
        const QString first = TestEnvironment::copySampleProject(QStringLiteral("dialog-first"));
        const QString second = TestEnvironment::makeProject(QStringLiteral("dialog-second"), 1280, 720);
        openWindow(first);
        window->markChanged();
        QAction* open = window->findChild<QAction*>(QStringLiteral("Action_OpenProject"));

        // The file dialog chooses the other project's marker file.
        QString title;
        QTimer chooser;
        chooser.setInterval(5);
        connect(&chooser, &QTimer::timeout, [&]() {
            QFileDialog* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            title = dialog->windowTitle();
            dialog->selectFile(second + QStringLiteral("/game.rmmzproject"));
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        });
        chooser.start();
        Seen seen = answering([&] { open->trigger(); }, {press("endButton")});
        QCOMPARE(title, QStringLiteral("RPG Maker MZ Project"));
        // Cancelled: the open project and its changes stay.
        QCOMPARE(window->getProjectDirectory().absolutePath(), QDir(first).absolutePath());
        QVERIFY(window->projectIsChanged());

        seen = answering([&] { open->trigger(); }, {press("confirmButton")});
        chooser.stop();
        // Saved first, then the other project opened.
        QVERIFY(QFileInfo::exists(TestEnvironment::documentPath(first)));
        QCOMPARE(window->getProjectDirectory().absolutePath(), QDir(second).absolutePath());
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
        QCOMPARE(window->getProjectDirectory().absolutePath(), QDir(first).absolutePath());

        // With unsaved work the drop asks first; not saving opens the other.
        window->markChanged();
        Seen seen = answering([&] { dropFile(second + QStringLiteral("/game.rmmzproject")); }, {press("cancelButton")});
        QCOMPARE(window->getProjectDirectory().absolutePath(), QDir(second).absolutePath());
        QCOMPARE(window->screenSize(), QSize(1920, 1080));
        QVERIFY(!QFileInfo::exists(TestEnvironment::documentPath(first)));

        // Without changes no question comes.
        seen = answering([&] { dropFile(first + QStringLiteral("/game.rmmzproject")); }, {press("endButton")});
        QCOMPARE(seen.count, 0);
        QCOMPARE(window->getProjectDirectory().absolutePath(), QDir(first).absolutePath());
    }

    void backgroundsAndDamagedDocument()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("damaged"));
        const QByteArray damaged("{\"Map\":0,\"Data\":[{\"HUD\":[{\"Type\":0,\"Name\":\"half a HUD\"");
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), damaged);
        QVariantMap backgrounds;
        backgrounds.insert(QDir(project).absolutePath(), QStringList{QStringLiteral("/pictures/map-shot.png")});
        SettingsStore().setValue(QStringLiteral("Backgrounds"), backgrounds);
        SettingsStore().setValue(QStringLiteral("Project"), project);
        window.reset(new VelmoMainWindow(2, false, QString(), QString()));
        window->show();

        // Unreadable: the templates stand in, and the status bar says so. The
        // notice runs past the end of a 1280-pixel window's strip; a click on
        // it shows all of it.
        window->resize(1280, 800);
        QLabel* status = window->findChild<QLabel*>(QStringLiteral("statusText"));
        QVERIFY(status->text().contains(QStringLiteral("not valid JSON")));
        const QString notice = window->lastOpenReport().message;
        QVERIFY(status->property("mtt_desc").toString().contains(notice));
        Seen seen = answering([&] { QTest::mouseClick(status, Qt::LeftButton, Qt::NoModifier, QPoint(10, 8)); },
                              {press("okButton")});
        QVERIFY2(seen.text.contains(notice.toHtmlEscaped()), qPrintable(seen.text));
        QVERIFY(seen.text.contains(QStringLiteral("kept as a backup before the first save")));
        QCOMPARE(window->editorView()->editorScene()->toJson(), templateArray("VelmoraMapHUD.json"));

        window->SaveProject();
        QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project) + QStringLiteral(".bak")), damaged);
        QCOMPARE(writtenDocument(project).value(QStringLiteral("Data")).toArray().size(), 2);
        QCOMPARE(writtenDocument(project).value(QStringLiteral("Battle")).toInt(), 1);
        const QStringList stored = SettingsStore().value(QStringLiteral("Backgrounds")).toMap()
                                       .value(QDir(project).absolutePath()).toStringList();
        QCOMPARE(stored, QStringList({QStringLiteral("/pictures/map-shot.png"), QString()}));
        // The next save has nothing left to keep.
        window->SaveProject();
        QVERIFY(!QFileInfo::exists(TestEnvironment::documentPath(project) + QStringLiteral(".bak.1")));
    }

    void reloadKeepsDataOnFailure()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("reload"));
        openWindow(project);
        const QString firstActor = window->getProjectData()->value(QStringLiteral("Actors.json")).toArray()
                                       .at(1).toObject().value(QStringLiteral("name")).toString();
        TestEnvironment::writeFile(project + QStringLiteral("/data/Actors.json"), "{\"not\":\"an array\"}");
        const Seen seen = answering([&] { window->ReloadProject(); }, {press("okButton")});
        QCOMPARE(seen.title, QStringLiteral("Reload Error"));
        QCOMPARE(seen.text, QStringLiteral("Could not reload data!<br>&quot;Actors.json&quot; doesn't hold an array."));
        QVERIFY(window->projectIsOpen());
        QCOMPARE(window->getProjectData()->value(QStringLiteral("Actors.json")).toArray().at(1).toObject()
                     .value(QStringLiteral("name")).toString(), firstActor);

        TestEnvironment::writeFile(project + QStringLiteral("/data/Actors.json"),
                                   "[null,{\"name\":\"Renamed\",\"faceName\":\"Actor1\",\"faceIndex\":0}]");
        window->ReloadProject();
        QCOMPARE(window->getProjectData()->value(QStringLiteral("Actors.json")).toArray().at(1).toObject()
                     .value(QStringLiteral("name")).toString(), QStringLiteral("Renamed"));
        QVERIFY(!window->projectIsChanged());
    }

    void titleBarCommands()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("commands"));
        SettingsStore().setValue(QStringLiteral("Project"), project);
        window.reset(new VelmoMainWindow(CFramelessWindow::Frameless, false, QString(), QString()));
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));

        QMenuBar* menuBar = window->findChild<QMenuBar*>(QStringLiteral("menuBar"));
        QVERIFY(menuBar && menuBar->isVisible());

        using Slot = void (VelmoMainWindow::*)();
        struct Row {
            const char* name;
            const char* menu;
            const char* text;
            const char* iconText;
            const char* shortcut;
            Slot slot;
        };
        const QList<Row> rows{
            {"Action_OpenProject", "Menu_File", "Open Project", "Open", "Ctrl+O", &VelmoMainWindow::OpenProject},
            {"Action_ReloadProject", "Menu_File", "Reload Project", "Reload", "", &VelmoMainWindow::ReloadProject},
            {"Action_SaveProject", "Menu_File", "Save Project", "Save", "Ctrl+S", &VelmoMainWindow::SaveProject},
            {"Action_CloseProject", "Menu_File", "Close Project", "Close", "", &VelmoMainWindow::CloseProject},
            {"Action_Undo", "Menu_Edit", "Undo Action", "Undo", "", &VelmoMainWindow::Undo},
            {"Action_Redo", "Menu_Edit", "Redo Action", "Redo", "", &VelmoMainWindow::Redo},
            {"Action_Run", "Menu_Project", "Run Project", "Run", "Ctrl+R", &VelmoMainWindow::RunGame},
            {"Action_Stop", "Menu_Project", "Stop Project", "Stop", "Ctrl+T", &VelmoMainWindow::StopGame},
            {"Action_ProjectExplorer", "Menu_Project", "Show Project in Explorer", "Show Project", "",
             &VelmoMainWindow::OpenProjectDirectory},
            {"Action_Settings", "Menu_Project", "Change Settings", "Settings", "", &VelmoMainWindow::OpenSettings},
            {"Action_ZoomIn", "Menu_View", "Zoom In", "Zoom In", "", &VelmoMainWindow::ZoomIn},
            {"Action_ZoomOut", "Menu_View", "Zoom Out", "Zoom Out", "", &VelmoMainWindow::ZoomOut},
            {"Action_FitZoom", "Menu_View", "Fit to View", "Fit to View", "", &VelmoMainWindow::FitToView},
            {"Action_About", "Menu_Help", "About", "About", "F1", &VelmoMainWindow::About},
            {"Action_Tutorial", "Menu_Help", "Watch Tutorials", "Tutorial", "", &VelmoMainWindow::OpenTutorials},
            {"Action_Update", "Menu_Help", "Open Download Page", "Update", "", &VelmoMainWindow::OpenDownloads}};
        for (const Row& row : rows) {
            QAction* action = window->findChild<QAction*>(QLatin1String(row.name));
            QVERIFY2(action, row.name);
            QVERIFY2(window->findChild<QMenu*>(QLatin1String(row.menu))->actions().contains(action), row.name);
            QCOMPARE(action->text(), QLatin1String(row.text));
            QCOMPARE(action->iconText(), QLatin1String(row.iconText));
            QCOMPARE(action->shortcut(), QKeySequence(QLatin1String(row.shortcut)));
            // triggered reaches exactly this slot: only an existing connection can be taken away.
            QVERIFY2(QObject::disconnect(action, &QAction::triggered, window.get(), row.slot), row.name);
        }

        // Each tool button follows its command and triggers it; without a
        // runtime the game can neither run nor stop.
        window->editorView()->editorScene()->setUndoEnabled(true);
        window->editorView()->editorScene()->setRedoEnabled(true);
        const QList<QPair<const char*, const char*>> tools{
            {"openProject", "Action_OpenProject"}, {"reloadProject", "Action_ReloadProject"},
            {"saveProject", "Action_SaveProject"}, {"closeProject", "Action_CloseProject"},
            {"undo", "Action_Undo"},               {"redo", "Action_Redo"},
            {"run", "Action_Run"},                 {"stop", "Action_Stop"},
            {"projectExplorer", "Action_ProjectExplorer"}, {"settings", "Action_Settings"},
            {"zoomIn", "Action_ZoomIn"},           {"zoomOut", "Action_ZoomOut"},
            {"fitZoom", "Action_FitZoom"}};
        for (const auto& tool : tools) {
            InflateButton* button = window->findChild<InflateButton*>(QLatin1String(tool.first));
            QAction* action = window->findChild<QAction*>(QLatin1String(tool.second));
            QVERIFY2(button && action, tool.first);
            QCOMPARE(button->isEnabled(), action->isEnabled());
            if (!action->isEnabled()) {
                QVERIFY2(QByteArray(tool.first) == "run" || QByteArray(tool.first) == "stop", tool.first);
                continue;
            }
            QSignalSpy triggered(action, &QAction::triggered);
            QTest::mouseClick(button, Qt::LeftButton);
            QCOMPARE(triggered.count(), 1);
        }
        // A command switched off takes its button along.
        QAction* save = window->findChild<QAction*>(QStringLiteral("Action_SaveProject"));
        save->setEnabled(false);
        QVERIFY(!window->findChild<InflateButton*>(QStringLiteral("saveProject"))->isEnabled());
    }

    // F1, Ctrl+O and Ctrl+S pressed on the window reach their commands
    // (Ctrl+R and Ctrl+T: the lifecycle test, with a runtime).
    void shortcutsReachTheirCommands()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("keys"));
        openWindow(project);

        QString shownVersion;
        Seen seen = answering([&] { QTest::keyClick(window.get(), Qt::Key_F1); }, {[&](TrovDialog* dialog) {
                                  if (const QLabel* label = dialog->findChild<QLabel*>(QStringLiteral("version")))
                                      shownVersion = label->text();
                                  press("cancelButton")(dialog);
                              }});
        QCOMPARE(seen.title, QStringLiteral("About Velmora"));
        // The About box and the command line name one and the same version.
        QProcess cli;
        cli.start(QCoreApplication::applicationDirPath() + QStringLiteral("/velmora-cli"), {QStringLiteral("--version")});
        QVERIFY(cli.waitForFinished(10000));
        const QString printed = QString::fromUtf8(cli.readAllStandardOutput()).trimmed();
        const QString version = printed.section(QLatin1Char(' '), -1);
        QVERIFY2(version.count(QLatin1Char('.')) == 2, qPrintable(printed));
        QVERIFY2(shownVersion.contains(QStringLiteral("Version %1").arg(version)), qPrintable(shownVersion));

        // The file dialog opens in the open project's folder with no file
        // name filled in.
        QString title;
        QString folder;
        QString fileName = QStringLiteral("unseen");
        QTimer chooser;
        chooser.setInterval(5);
        connect(&chooser, &QTimer::timeout, [&]() {
            if (QFileDialog* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
                title = dialog->windowTitle();
                folder = dialog->directory().absolutePath();
                if (QLineEdit* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
                    fileName = name->text();
                QMetaObject::invokeMethod(dialog, "reject", Qt::QueuedConnection);
            }
        });
        chooser.start();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), Qt::Key_O, Qt::ControlModifier);
        chooser.stop();
        QCOMPARE(title, QStringLiteral("RPG Maker MZ Project"));
        QCOMPARE(folder, QDir(project).absolutePath());
        QCOMPARE(fileName, QString());

        QVERIFY(!QFileInfo::exists(TestEnvironment::documentPath(project)));
        pressSave();
        QVERIFY(QFileInfo::exists(TestEnvironment::documentPath(project)));

        // Ctrl+Q belongs to the canvas and the list (show or hide the
        // component): it never ends the program.
        key(Qt::Key_Q);
        QTest::qWait(50);
        QVERIFY(window->isVisible());

        // Quit asks the same question as the close button: cancel keeps the
        // window and the work, saving writes the document and ends.
        QAction* quit = window->findChild<QAction*>(QStringLiteral("Action_Quit"));
        QVERIFY(quit);
        window->markChanged();
        seen = answering([&] { quit->trigger(); }, {press("endButton")});
        QCOMPARE(seen.title, QStringLiteral("Save Confirmation"));
        QVERIFY(window->isVisible() && window->projectIsChanged());
        QFile::remove(TestEnvironment::documentPath(project));
        seen = answering([&] { quit->trigger(); }, {press("confirmButton")});
        QCOMPARE(seen.title, QStringLiteral("Save Confirmation"));
        QVERIFY(!window->isVisible());
        QVERIFY(QFileInfo::exists(TestEnvironment::documentPath(project)));
    }

    void everyMenuShowsInTheBar()
    {
        // A larger font than the designed one (the style sheet's, the
        // desktop's, a longer language) must not push a menu into the bar's
        // overflow button.
        const QFont before = QApplication::font();
        QFont big = before;
        big.setPointSizeF(before.pointSizeF() + 4);
        QApplication::setFont(big);
        openWindow(TestEnvironment::copySampleProject(QStringLiteral("menus")));
        QMenuBar* bar = window->findChild<QMenuBar*>(QStringLiteral("menuBar"));
        QVERIFY(bar && !bar->isNativeMenuBar());
        QCOMPARE(bar->actions().size(), 5);
        for (QAction* menu : bar->actions())
            QVERIFY2(bar->actionGeometry(menu).right() < bar->width(), qPrintable(menu->text()));
        window.reset();
        QApplication::setFont(before);
    }

    void aLeftOverBlankCursorComesBack()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("shortcuts"));
        openWindow(project);

        qApp->installEventFilter(window.get());
        // A blank cursor left over from a canvas drag comes back with the
        // next cursor change.
        QApplication::setOverrideCursor(Qt::BlankCursor);
        QEvent change(QEvent::CursorChange);
        QApplication::sendEvent(window->editorView()->viewport(), &change);
        qApp->removeEventFilter(window.get());
        QVERIFY(!QApplication::overrideCursor());
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
        // Only a corner showing, as the window came back before.
        const QRect corner = WindowPlacement::reachableGeometry(QRect(1840, 990, 900, 640), {QRect(0, 0, 1920, 1050)});
        QVERIFY(QRect(0, 0, 1920, 1050).contains(corner));
        // Larger than the screen: shrunk to it.
        QCOMPARE(WindowPlacement::reachableGeometry(QRect(-3000, 0, 2500, 1400), {QRect(0, 0, 1920, 1050)}),
                 QRect(0, 0, 1920, 1050));
        // Above the screen, title bar out of reach.
        QVERIFY(WindowPlacement::reachableGeometry(QRect(100, -600, 900, 640), {QRect(0, 0, 1920, 1050)}).top() >= 0);
    }

    void startUpRestoresWindowState()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("state"));
        const QString runtime = TestEnvironment::newFolder(QStringLiteral("mz"));
        QDir().mkpath(runtime + QStringLiteral("/nwjs-lin"));
        {
            SettingsStore store;
            store.setValue(QStringLiteral("Geometry"), QRect(40, 50, 900, 640));
            store.setValue(QStringLiteral("EditorLocation"), runtime);
            store.setValue(QStringLiteral("BackgroundDarken"), 0.25);
        }
        openWindow(project);
        QCOMPARE(window->getEditorLocation(), runtime);
        QVERIFY(window->close());
        SettingsStore store;
        QCOMPARE(store.value(QStringLiteral("EditorLocation")).toString(), runtime);
        QCOMPARE(store.value(QStringLiteral("BackgroundDarken")).toDouble(), 0.25);

        // A location that lost its runtime is forgotten.
        QDir(runtime + QStringLiteral("/nwjs-lin")).removeRecursively();
        openWindow(project);
        QCOMPARE(window->getEditorLocation(), QString());
        QVERIFY(window->close());
        QCOMPARE(SettingsStore().value(QStringLiteral("EditorLocation")).toString(), QString());
    }
};

VELMORA_TEST_MAIN(TestMainWindow, QApplication)
#include "tst_mainwindow.moc"
