#include "TestEnvironment.h"

#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "app/SettingsStore.h"
#include "app/PathManager.h"
#include "app/VelmoMainTitleBar.h"
#include "app/VelmoMainWindow.h"
#include "widgets/InflateButton.h"
#include "widgets/MyLineEdit.h"
#include "widgets/TitleBarButtons.h"
#include "widgets/UltimateToolTip.h"
#include "theme/MorvikCSVTranslator.h"
#include "widgets/TrovDialog.h"

#include <QAction>
#include <QApplication>
#include <QJsonArray>
#include <QFileDialog>
#include <QJsonDocument>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QStackedLayout>
#include <QTimer>
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QClipboard>

#include <functional>

namespace {

using TestEnvironment::Answer;
using TestEnvironment::Seen;
using TestEnvironment::templateArray;
using TestEnvironment::writtenDocument;
using TestEnvironment::answering;
using TestEnvironment::closeByFrame;
using TestEnvironment::press;


QSize sceneSize(VelmoMainWindow* window)
{
    const GameUIEditorScene* scene = window->editorView()->editorScene();
    return QSize(scene->screenWidth, scene->screenHeight);
}

}

class TestMainWindow : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<VelmoMainWindow> window;

    VelmoMainWindow* openWindow(const QString& project)
    {
        window.reset(TestEnvironment::showMainWindow(project));
        return window.get();
    }
    UltimateTree* list() const { return window->hudListWidget()->tree(); }
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
    QStringList rowNames() const
    {
        QStringList names;
        for (int i = 0; i < list()->rowCount(); ++i)
            names.append(list()->row(i)->text(1));
        return names;
    }
    void pressSave()
    {
        // A message box that just closed may have taken the activation along.
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
    }
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
        QVERIFY(editorPageShown());
        // The title names the project and marks unsaved work.
        QCOMPARE(window->windowTitle(), QStringLiteral("sample-1[*] \u2014 Velmora"));
        QVERIFY(!window->isWindowModified());
        QCOMPARE(rowNames(), QStringList({"Map HUD", "Battle HUD"}));
        QCOMPARE(list()->row(0)->text(0), QStringLiteral("✦"));
        QVERIFY(list()->row(0)->isItalic(1) && list()->row(1)->isItalic(1));
        QCOMPARE(list()->currentRow(), list()->row(0));
        QCOMPARE(window->editorView()->editorScene()->toJson(), templateArray("VelmoraMapHUD.json"));
        QCOMPARE(sceneSize(window.get()), QSize(816, 624));
        QVERIFY(!window->projectIsChanged());
        // Neither the Map nor the Battle HUD can be deleted.
        QVERIFY(!window->findChild<QPushButton*>(QStringLiteral("removeHudButton"))->isEnabled());

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
        QCOMPARE(written.value(QStringLiteral("Map")).toInt(), 0);
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
        QVERIFY(!editorPageShown());
        QCOMPARE(window->windowTitle(), QStringLiteral("Velmora"));
        QVERIFY(window->findChild<QPushButton*>(QStringLiteral("openRMProject"))->isVisible());
        // At start-up the status bar says why nothing opened.
        const QString status = window->findChild<QLabel*>(QStringLiteral("statusText"))->text();
        QVERIFY2(status.contains(QStringLiteral("\"Armors.json\" is missing.")), qPrintable(status));
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
        QVERIFY(seen.text.contains(QStringLiteral("... and 8 more.")));
        QVERIFY(!window->projectIsOpen());

        TestEnvironment::writeFile(folder + QStringLiteral("/data/Armors.json"), "[null]");
        TestEnvironment::writeFile(folder + QStringLiteral("/data/System.json"), "[\"not\", \"an object\"]");
        seen = answering([&] { dropFile(folder + QStringLiteral("/game.rmmzproject")); }, {press("okButton")});
        QCOMPARE(seen.count, 1);
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
            QVERIFY(window->projectIsOpen());
            QCOMPARE(rowNames(), QStringList({QStringLiteral("Map HUD"), QStringLiteral("Battle HUD")}));
            const QString status = window->findChild<QLabel*>(QStringLiteral("statusText"))->text();
            QVERIFY2(status.contains(QStringLiteral("kept as a backup")), qPrintable(status));

            pressSave();
            QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project) + QStringLiteral(".bak")), content);
            const QJsonObject written = writtenDocument(project);
            QCOMPARE(written.value(QStringLiteral("Data")).toArray().size(), 2);
            QVERIFY(!window->projectIsChanged());
        }
    }

    void graphicsFoldersWhileTheWindowLives()
    {
        QCOMPARE(PathManager::graphicsFolder(PathManager::Pictures), QStringLiteral("Assets/Graphics/Pictures"));
        const QString folder = TestEnvironment::copySampleProject(QStringLiteral("graphics"));
        openWindow(folder);
        QCOMPARE(PathManager::graphicsFolder(PathManager::Pictures), QStringLiteral("img/pictures"));
        QCOMPARE(PathManager::graphicsFolder(PathManager::System), QStringLiteral("img/system"));
        QCOMPARE(PathManager::graphicsFolder(PathManager::Characters), QStringLiteral("img/faces"));
        QVERIFY(PathManager::projectDirectory());
        // The sample project's own pictures are where the paths lead.
        const QDir pictures(PathManager::graphicsFile(PathManager::Pictures, QString(), *PathManager::projectDirectory()));
        QVERIFY(!pictures.entryList({QStringLiteral("*.png")}, QDir::Files).isEmpty());
        window.reset();
        QVERIFY(!PathManager::projectDirectory());
        QCOMPARE(PathManager::graphicsFolder(PathManager::Pictures), QStringLiteral("Assets/Graphics/Pictures"));
    }

    void sizedCustomComponentAndDeletion()
    {
        const QString project = TestEnvironment::makeProject(QStringLiteral("full"), 1280, 720);
        const QByteArray original = TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), original);
        openWindow(project);
        QCOMPARE(list()->rowCount(), 5);
        // "Map" is 3: that row is current and shows the screen size.
        QCOMPARE(list()->currentRow(), list()->row(3));
        QCOMPARE(list()->row(3)->text(1), QStringLiteral("Map HUD"));
        QCOMPARE(sceneSize(window.get()), QSize(1280, 720));

        // A custom component takes its own size; a HUD without "IsHUD" too.
        clickRow(2);
        QCOMPARE(list()->row(2)->text(0), QStringLiteral(" •"));
        QCOMPARE(sceneSize(window.get()), QSize(240, 64));
        clickRow(4);
        QCOMPARE(list()->row(4)->text(0), QStringLiteral("✦"));
        QCOMPARE(sceneSize(window.get()), QSize(300, 300));
        clickRow(1);
        QCOMPARE(sceneSize(window.get()), QSize(1280, 720));
        QVERIFY(!window->projectIsChanged());

        // Saving what was only looked at gives the file back unchanged.
        pressSave();
        QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project)), original);

        // Refusing the deletion keeps the row but still counts as a change.
        QPushButton* remove = window->findChild<QPushButton*>(QStringLiteral("removeHudButton"));
        QVERIFY(remove->isEnabled());
        Seen seen = answering([&] { QTest::mouseClick(remove, Qt::LeftButton); }, {press("cancelButton")});
        QCOMPARE(seen.title, QStringLiteral("HUD Delete Confirmation"));
        QCOMPARE(seen.text, QStringLiteral("Are you sure you wish to delete \"Statusanzeige für Böse\"?"));
        QCOMPARE(list()->rowCount(), 5);
        QVERIFY(window->projectIsChanged());

        seen = answering([&] { QTest::mouseClick(remove, Qt::LeftButton); }, {press("confirmButton")});
        QCOMPARE(seen.count, 1);
        QCOMPARE(list()->rowCount(), 4);
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
        QVERIFY(window->projectIsChanged());
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
        QCOMPARE(pasted->id(), 0);
        QCOMPARE(pasted->text(0), QStringLiteral("✦"));
        const QString id = pasted->userData()->value(QStringLiteral("ID")).toString();
        QCOMPARE(id.size(), 5);
        QVERIFY(!pasted->userData()->contains(QStringLiteral("Background")));
        // A copy of it pasted again gets another identifier.
        clickRow(2);
        QTest::keyClick(list(), Qt::Key_C, Qt::ControlModifier);
        QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(rowNames(), QStringList({"Battle HUD", "Map HUD", "New HUD", "New HUD"}));
        QVERIFY(list()->row(3)->userData()->value(QStringLiteral("ID")).toString() != id);
        QCOMPARE(list()->row(3)->userData()->value(QStringLiteral("HUD")), pasted->userData()->value(QStringLiteral("HUD")));
        clickRow(3);
        QTest::keyClick(list(), Qt::Key_X, Qt::ControlModifier);
        clickRow(1);
        // A named HUD keeps its name, and its identifier is replaced.
        QApplication::clipboard()->setText(QStringLiteral("VELMORAHUD{\"Name\":\"Boss Bar\",\"ID\":\"%1\",\"IsHUD\":false,\"HUD\":[]}").arg(id));
        QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(rowNames(), QStringList({"Battle HUD", "Map HUD", "Boss Bar", "New HUD"}));
        QVERIFY(list()->row(2)->userData()->value(QStringLiteral("ID")).toString() != id);
        QCOMPARE(list()->row(2)->text(0), QStringLiteral(" •"));
        // Foreign clipboard text is refused.
        QApplication::clipboard()->setText(QStringLiteral("VELMOCOMP{\"Type\":0}"));
        QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(list()->rowCount(), 4);

        // The Map HUD can't be cut; a custom HUD can.
        QTest::keyClick(list(), Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(list()->rowCount(), 4);
        clickRow(3);
        QTest::keyClick(list(), Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(rowNames(), QStringList({"Battle HUD", "Map HUD", "Boss Bar"}));
        QCOMPARE(list()->currentRow(), list()->row(2));
        QCOMPARE(sceneSize(window.get()), QSize(300, 300));

        pressSave();
        written = writtenDocument(project);
        const QJsonArray data = written.value(QStringLiteral("Data")).toArray();
        QCOMPARE(data.size(), 3);
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
        auto visibleTexts = [&]() {
            QStringList texts;
            for (QAction* action : menu->actions()) {
                if (action->isVisible() && !action->isSeparator())
                    texts.append(action->text());
            }
            menu->close();
            return texts;
        };
        QApplication::clipboard()->setText(QStringLiteral("nothing to paste"));
        // The Map HUD can be edited, never deleted, copied or cut.
        openMenuOn(3);
        QCOMPARE(visibleTexts(), QStringList({"Add New HUD", "Edit HUD"}));
        openMenuOn(1);
        QCOMPARE(visibleTexts(), QStringList({"Add New HUD", "Edit HUD", "Delete HUD",
                                              "Copy \"Statusanzeige für Böse\"", "Cut \"Statusanzeige für Böse\""}));
        QApplication::clipboard()->setText(QStringLiteral("VELMORAHUD{\"HUD\":[]}"));
        openMenuOn(0);
        QCOMPARE(visibleTexts(), QStringList({"Add New HUD", "Edit HUD", "Paste \"New HUD\""}));

        // "Edit HUD" counts as a change even when the dialog is cancelled.
        QVERIFY(!window->projectIsChanged());
        openMenuOn(3);
        QAction* edit = menu->actions().at(1);
        menu->close();
        const Seen seen = answering([&] { edit->trigger(); }, {press("cancelButton")});
        QCOMPARE(seen.title, QStringLiteral("HUD Dialog"));
        QVERIFY(window->projectIsChanged());
        QCOMPARE(list()->rowCount(), 5);
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
                              QVERIFY(name->isEnabled());
                              QCOMPARE(name->text(), QString());
                              // An empty name can't be confirmed.
                              QVERIFY(!confirm->isEnabled());
                              QTest::keyClicks(name, QStringLiteral("Boss Bar"));
                              QVERIFY(!dialog->findChild<MyLineEdit*>(QStringLiteral("Width"))->isEnabled());
                              QTest::mouseClick(confirm, Qt::LeftButton);
                          }});
        QCOMPARE(seen.count, 1);
        QCOMPARE(rowNames(), QStringList({"Map HUD", "Boss Bar", "Battle HUD"}));
        QCOMPARE(list()->currentRow(), list()->row(1));
        QCOMPARE(list()->row(1)->text(0), QStringLiteral("✦"));
        const QString id = list()->row(1)->userData()->value(QStringLiteral("ID")).toString();
        QVERIFY2(QRegularExpression(QStringLiteral("^[0-6]{5}$")).match(id).hasMatch(), qPrintable(id));
        QCOMPARE(sceneSize(window.get()), QSize(1280, 720));
        QVERIFY(window->projectIsChanged());
        pressSave();

        // A double click edits: the HUD becomes a custom component of its own size.
        seen = answering([&] { QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, rowPoint(1)); },
                         {[](TrovDialog* dialog) {
                              MyLineEdit* name = dialog->findChild<MyLineEdit*>(QStringLiteral("Name"));
                              QCOMPARE(name->text(), QStringLiteral("Boss Bar"));
                              QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("Type")), Qt::LeftButton);
                              MyLineEdit* width = dialog->findChild<MyLineEdit*>(QStringLiteral("Width"));
                              QVERIFY(width->isEnabled());
                              QCOMPARE(width->text(), QStringLiteral("300"));
                              width->selectAll();
                              QTest::keyClicks(width, QStringLiteral("320"));
                              MyLineEdit* height = dialog->findChild<MyLineEdit*>(QStringLiteral("Height"));
                              height->selectAll();
                              QTest::keyClicks(height, QStringLiteral("96"));
                              QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("confirmButton")),
                                                Qt::LeftButton);
                          }});
        QCOMPARE(seen.count, 1);
        QCOMPARE(list()->row(1)->text(0), QStringLiteral(" •"));
        QCOMPARE(sceneSize(window.get()), QSize(320, 96));
        QVERIFY(window->projectIsChanged());
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
        QCOMPARE(sceneSize(window.get()), QSize(1280, 720));

        // The Map HUD can't be deleted: its button is off and the Delete key asks nothing.
        QVERIFY(!window->findChild<QPushButton*>(QStringLiteral("removeHudButton"))->isEnabled());
        seen = answering([&] { QTest::keyClick(list(), Qt::Key_Delete); }, {press("confirmButton")});
        QCOMPARE(seen.count, 0);
        QCOMPARE(list()->rowCount(), 3);

        // Switching HUDs keeps an unsaved change unsaved.
        window->markChanged();
        clickRow(2);
        clickRow(1);
        QVERIFY(window->projectIsChanged());
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
        QVERIFY(seen.text.size() > QStringLiteral("Could not save to \"VelmoraHUD.json\"!<br>").size() + path.size() + 3);
        QVERIFY(window->projectIsChanged());

        // Closing still asks; cancelling keeps the window and the work.
        seen = answering([&] { QVERIFY(!window->close()); }, {press("endButton")});
        QCOMPARE(seen.title, QStringLiteral("Save Confirmation"));
        QCOMPARE(seen.text, QStringLiteral("Would you like to save before closing?"));
        QVERIFY(window->isVisible());
        QVERIFY(!SettingsStore().contains(QStringLiteral("Geometry")));

        // Choosing to save, and failing again, keeps the window open too.
        seen = answering([&] { QVERIFY(!window->close()); }, {press("confirmButton"), press("okButton")});
        QCOMPARE(seen.count, 2);
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
        QVERIFY(close->isEnabled());

        Seen seen = answering([&] { close->trigger(); }, {press("endButton")});
        QCOMPARE(seen.title, QStringLiteral("Save Confirmation"));
        QVERIFY(window->projectIsOpen() && window->projectIsChanged());
        QVERIFY(!SettingsStore().contains(QStringLiteral("Geometry")));

        seen = answering([&] { close->trigger(); }, {press("confirmButton")});
        QCOMPARE(seen.count, 1);
        QVERIFY(!editorPageShown());
        QVERIFY(!close->isEnabled());
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
        QStringList filters;
        QTimer chooser;
        chooser.setInterval(5);
        connect(&chooser, &QTimer::timeout, [&]() {
            QFileDialog* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            title = dialog->windowTitle();
            filters = dialog->nameFilters();
            dialog->selectFile(second + QStringLiteral("/game.rmmzproject"));
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        });
        chooser.start();
        Seen seen = answering([&] { open->trigger(); }, {press("endButton")});
        QCOMPARE(title, QStringLiteral("RPG Maker MZ Project"));
        QCOMPARE(filters, QStringList{QStringLiteral("RPG Maker Project (*.rmmzproject)")});
        QCOMPARE(seen.title, QStringLiteral("Save Confirmation"));
        // Cancelled: the open project and its changes stay.
        QCOMPARE(window->getProjectDirectory().absolutePath(), QDir(first).absolutePath());
        QVERIFY(window->projectIsChanged());

        seen = answering([&] { open->trigger(); }, {press("confirmButton")});
        chooser.stop();
        QCOMPARE(seen.count, 1);
        // Saved first, then the other project opened.
        QVERIFY(QFileInfo::exists(TestEnvironment::documentPath(first)));
        QCOMPARE(window->getProjectDirectory().absolutePath(), QDir(second).absolutePath());
        QCOMPARE(window->screenSize(), QSize(1280, 720));
        QVERIFY(!window->projectIsChanged());
    }

    void droppingAProject()
    {
        const QString first = TestEnvironment::copySampleProject(QStringLiteral("first"));
        const QString second = TestEnvironment::makeProject(QStringLiteral("Zweites Projekt – Ärger mit Öl"), 1920, 1080);
        openWindow(first);
        QVERIFY(VelmoMainWindow::acceptsProjectDrop(nullptr) == false);

        // The suffix must match exactly.
        TestEnvironment::writeFile(second + QStringLiteral("/GAME.RMMZPROJECT"), "RPGMZ");
        dropFile(second + QStringLiteral("/GAME.RMMZPROJECT"));
        QCOMPARE(window->getProjectDirectory().absolutePath(), QDir(first).absolutePath());

        // With unsaved work the drop asks first; cancel keeps everything.
        window->markChanged();
        Seen seen = answering([&] { dropFile(second + QStringLiteral("/game.rmmzproject")); }, {press("endButton")});
        QCOMPARE(seen.title, QStringLiteral("Save Confirmation"));
        QCOMPARE(window->getProjectDirectory().absolutePath(), QDir(first).absolutePath());
        QVERIFY(window->projectIsChanged());

        seen = answering([&] { dropFile(second + QStringLiteral("/game.rmmzproject")); }, {press("cancelButton")});
        QCOMPARE(seen.count, 1);
        QCOMPARE(window->getProjectDirectory().absolutePath(), QDir(second).absolutePath());
        QCOMPARE(window->screenSize(), QSize(1920, 1080));
        QVERIFY(!window->projectIsChanged());
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

        // Unreadable: the templates stand in, and the status bar says so.
        QVERIFY(window->findChild<QLabel*>(QStringLiteral("statusText"))->text().contains(QStringLiteral("not valid JSON")));
        QCOMPARE(list()->rowCount(), 2);
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

    void windowBuiltAfterALanguageIsTranslated()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("german"));
        MorvikCSVTranslator::installLanguage(QStringLiteral(VELMORA_EXAMPLES "/translations/German.csv"));
        openWindow(project);
        MorvikCSVTranslator::removeLanguage();
        QCOMPARE(rowNames(), QStringList({"Karten-HUD", "Kampf-HUD"}));
        QCOMPARE(window->findChild<QAction*>(QStringLiteral("Action_CloseProject"))->text(),
                 QStringLiteral("Projekt schließen"));
        QCOMPARE(window->findChild<QPushButton*>(QStringLiteral("openRMProject"))->text(),
                 QStringLiteral("RPG-Maker-MZ-Projekt öffnen"));
        QCOMPARE(window->findChild<QMenu*>(QStringLiteral("Menu_File"))->title(), QStringLiteral("Datei"));
        // Texts already built stay; a window built now is English again.
        window.reset();
        openWindow(project);
        QCOMPARE(list()->row(0)->text(1), QStringLiteral("Map HUD"));
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
        QCOMPARE(menuBar->focusPolicy(), Qt::NoFocus);
        QVERIFY(menuBar->contextMenuPolicy() != Qt::DefaultContextMenu);
        QStringList menus;
        for (QAction* entry : menuBar->actions())
            menus << entry->menu()->objectName() + QLatin1Char(' ') + entry->text();
        QCOMPARE(menus, QStringList({"Menu_File File", "Menu_Edit Edit", "Menu_Project Project", "Menu_View View",
                                     "Menu_Help Help"}));

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
        QStringList inMenus;
        for (QAction* entry : menuBar->actions()) {
            for (QAction* action : entry->menu()->actions())
                inMenus << (action->isSeparator() ? QStringLiteral("-") : action->objectName());
        }
        QStringList expected;
        for (const Row& row : rows) {
            if (qstrcmp(row.name, "Action_Tutorial") == 0)
                expected << QStringLiteral("-");
            expected << QLatin1String(row.name);
        }
        QCOMPARE(inMenus, expected);
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

        // The tool rows: each button triggers its command, shows its name and
        // description in its group's label and in its tool-tip.
        struct Tool {
            const char* button;
            const char* label;
            const char* name;
            const char* description;
            const char* icon;
            const char* action;
        };
        const QList<Tool> tools{
            {"openProject", "projectManagementLabel", "Open Project", "Opens an existing project.", "OpenProject.png",
             "Action_OpenProject"},
            {"reloadProject", "projectManagementLabel", "Reload Project", "Reloads RPG Maker project data.",
             "ReloadProject.png", "Action_ReloadProject"},
            {"saveProject", "projectManagementLabel", "Save Project", "Saves the current project.", "SaveProject.png",
             "Action_SaveProject"},
            {"closeProject", "projectManagementLabel", "Close Project", "Closes the current project.",
             "CloseProject.png", "Action_CloseProject"},
            {"undo", "doLabel", "Undo", "Undoes last change.", "Undo.png", "Action_Undo"},
            {"redo", "doLabel", "Redo", "Redoes last change.", "Redo.png", "Action_Redo"},
            {"run", "gameRunnerLabel", "Run Game", "Runs the game.", "RunGame.png", "Action_Run"},
            {"stop", "gameRunnerLabel", "Stop Game", "Stops the currently running game.", "StopGame.png",
             "Action_Stop"},
            {"projectExplorer", "gameRunnerLabel", "Explore Project", "Opens the file explorer on the project.",
             "OpenExplorer.png", "Action_ProjectExplorer"},
            {"settings", "gameRunnerLabel", "Settings", "Opens the editor settings.", "Settings.png",
             "Action_Settings"},
            {"zoomIn", "viewLabel", "Zoom In", "Zooms the screen in.", "ZoomIn.png", "Action_ZoomIn"},
            {"zoomOut", "viewLabel", "Zoom Out", "Zooms the screen out.", "ZoomOut.png", "Action_ZoomOut"},
            {"fitZoom", "viewLabel", "Fit in View", "Fits the screen to the viewport.", "FitZoom.png",
             "Action_FitZoom"}};
        // Undo and redo start off; everything else is on with a project open.
        window->editorView()->editorScene()->setUndoEnabled(true);
        window->editorView()->editorScene()->setRedoEnabled(true);
        for (const Tool& tool : tools) {
            InflateButton* button = window->findChild<InflateButton*>(QLatin1String(tool.button));
            QVERIFY2(button, tool.button);
            QLabel* label = window->findChild<QLabel*>(QLatin1String(tool.label));
            QVERIFY2(label && label->parentWidget() == button->parentWidget(), tool.label);
            QCOMPARE(button->name(), QLatin1String(tool.name));
            QCOMPARE(button->description(), QLatin1String(tool.description));
            QCOMPARE(button->property("mtt_title").toString(), QLatin1String(tool.name));
            QCOMPARE(button->property("mtt_desc").toString(), QLatin1String(tool.description));
            const QImage icon = QIcon(QStringLiteral(":/resources/MenuBarIcons/") + QLatin1String(tool.icon))
                                    .pixmap(48, 48).toImage();
            QVERIFY2(!icon.isNull() && button->icon().pixmap(48, 48).toImage() == icon, tool.icon);

            QAction* action = window->findChild<QAction*>(QLatin1String(tool.action));
            QCOMPARE(button->isEnabled(), action->isEnabled());
            // Without a runtime the game can neither run nor stop.
            if (!action->isEnabled()) {
                QVERIFY2(QByteArray(tool.button) == "run" || QByteArray(tool.button) == "stop", tool.button);
                continue;
            }
            QEvent enter(QEvent::Enter);
            QApplication::sendEvent(button, &enter);
            QVERIFY2(label->text().contains(QLatin1String(tool.name)) && label->text().contains(QLatin1String(tool.description)),
                     qPrintable(label->text()));
            QEvent leave(QEvent::Leave);
            QApplication::sendEvent(button, &leave);
            QVERIFY(!label->text().contains(QLatin1String(tool.description)));

            QSignalSpy triggered(action, &QAction::triggered);
            QTest::mouseClick(button, Qt::LeftButton);
            QCOMPARE(triggered.count(), 1);
        }
        // A command switched off takes its button along.
        QAction* save = window->findChild<QAction*>(QStringLiteral("Action_SaveProject"));
        save->setEnabled(false);
        QVERIFY(!window->findChild<InflateButton*>(QStringLiteral("saveProject"))->isEnabled());

        // The window buttons and the window menu with the program's own entry.
        VelmoMainTitleBar* bar = window->mainTitleBar();
        QCOMPARE(bar->minimizeButton()->toolTip(), QStringLiteral("Minimize"));
        QCOMPARE(bar->maximizeButton()->toolTip(), QStringLiteral("Maximize"));
        QCOMPARE(bar->closeButton()->toolTip(), QStringLiteral("Close"));
        const QList<QAction*> entries = window->systemMenu()->actions();
        QCOMPARE(entries.size(), 9);
        QVERIFY(entries.at(7)->isSeparator());
        QCOMPARE(entries.at(8)->text(), QStringLiteral("OSV was here ;)"));
        QSignalSpy called(window.get(), &CFramelessWindow::systemActionCalled);
        entries.at(8)->trigger();
        QCOMPARE(called.count(), 1);
        QCOMPARE(called.first().first().toInt(), 9);
        // A menu that isn't the standard one gets nothing more.
        QVERIFY(!window->addSystemMenuEntry(10, QStringLiteral("Again"), QIcon()));
        QCOMPARE(window->systemMenu()->actions().size(), 9);
    }

    void shortcutsReachTheirCommands()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("shortcuts"));
        openWindow(project);

        // F1 shows what the program is.
        Seen seen = answering([&] { QTest::keyClick(window.get(), Qt::Key_F1); }, {press("okButton")});
        QCOMPARE(seen.title, QStringLiteral("About Velmora"));
        QVERIFY(seen.text.contains(QStringLiteral("1.1.0")));

        // Ctrl+O asks for a project.
        QString title;
        QTimer chooser;
        chooser.setInterval(5);
        connect(&chooser, &QTimer::timeout, [&]() {
            if (QFileDialog* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
                title = dialog->windowTitle();
                QMetaObject::invokeMethod(dialog, "reject", Qt::QueuedConnection);
            }
        });
        chooser.start();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), Qt::Key_O, Qt::ControlModifier);
        chooser.stop();
        QCOMPARE(title, QStringLiteral("RPG Maker MZ Project"));
        QCOMPARE(window->getProjectDirectory().absolutePath(), QDir(project).absolutePath());

        // Ctrl+R and Ctrl+T reach the game commands (the game itself is the
        // lifecycle's test): here without a runtime they are off and do nothing.
        QSignalSpy run(window->findChild<QAction*>(QStringLiteral("Action_Run")), &QAction::triggered);
        QTest::keyClick(window.get(), Qt::Key_R, Qt::ControlModifier);
        QCOMPARE(run.count(), 0);
        QVERIFY(!window->runningGame());

        // The tool-tips of the tool buttons come through the application's filter.
        qApp->installEventFilter(window.get());
        QWidget* saveButton = window->findChild<QWidget*>(QStringLiteral("saveProject"));
        QHelpEvent help(QEvent::ToolTip, QPoint(4, 4), saveButton->mapToGlobal(QPoint(4, 4)));
        QApplication::sendEvent(saveButton, &help);
        QVERIFY(UltimateToolTip::current());
        UltimateToolTip::current()->close();

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
        QCOMPARE(VelmoMainWindow::reachableGeometry(QRect(40, 50, 900, 640), screens), QRect(40, 50, 900, 640));
        QCOMPARE(VelmoMainWindow::reachableGeometry(QRect(1500, 100, 900, 640), screens), QRect(1500, 100, 900, 640));
        // Stored on a monitor that is gone: whole on the nearest screen.
        const QRect back = VelmoMainWindow::reachableGeometry(QRect(5000, 4000, 900, 640), screens);
        QCOMPARE(back.size(), QSize(900, 640));
        QVERIFY(screens.at(1).contains(back));
        // Only a corner showing, as the window came back before.
        const QRect corner = VelmoMainWindow::reachableGeometry(QRect(1840, 990, 900, 640), {QRect(0, 0, 1920, 1050)});
        QVERIFY(QRect(0, 0, 1920, 1050).contains(corner));
        // Larger than the screen: shrunk to it.
        QCOMPARE(VelmoMainWindow::reachableGeometry(QRect(-3000, 0, 2500, 1400), {QRect(0, 0, 1920, 1050)}),
                 QRect(0, 0, 1920, 1050));
        // Above the screen, title bar out of reach.
        QVERIFY(VelmoMainWindow::reachableGeometry(QRect(100, -600, 900, 640), {QRect(0, 0, 1920, 1050)}).top() >= 0);
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
