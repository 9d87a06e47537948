#include "EditorFixture.h"
#include "TestEnvironment.h"

#include "app/SettingsStore.h"
#include "app/VelmoMainWindow.h"
#include "components/ComponentKinds.h"
#include "scene/SceneUndoRecorder.h"
#include "widgets/ClipboardIdentifiers.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QSet>

#include <memory>

namespace {

// The Map HUD of the full test document (every kind, five levels of nesting,
// a collapsed group, unknown keys and odd values) with the components of
// unknown kinds from another HUD of it, renumbered so that ids stay unique.
QJsonArray realisticHud()
{
    const QJsonObject document =
        QJsonDocument::fromJson(TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json")))
            .object();
    const QJsonArray data = document.value("Data").toArray();
    QJsonArray hud = data.at(document.value("Map").toInt()).toObject().value("HUD").toArray();
    for (const QJsonValue& value : data.at(1).toObject().value("HUD").toArray()) {
        QJsonObject object = value.toObject();
        object.insert("ID", object.value("ID").toInt() + 1000);
        hud.append(object);
    }
    return hud;
}

// Every id of a document array, depth first.
void collectIds(const QJsonArray& array, QList<int>& ids)
{
    for (const QJsonValue& value : array) {
        ids.append(value.toObject().value("ID").toInt());
        collectIds(value.toObject().value("Children").toArray(), ids);
    }
}

UIComponentBase* componentById(GameUIEditorScene* scene, int id)
{
    for (UIComponentBase* component : qAsConst(scene->components())) {
        if (component->jsonData.value("ID").toInt() == id)
            return component;
    }
    return nullptr;
}

void pressCtrl(QWidget* widget, Qt::Key key)
{
    QTest::keyClick(widget, key, Qt::ControlModifier);
}

}

class TestUndo : public QObject
{
    Q_OBJECT

private slots:
    void init() { QApplication::clipboard()->clear(); }

    // Any mix of edits through the scene's own entry points unwinds to the
    // loaded document exactly, and winds up again to the last state exactly,
    // passing through every state on the way.
    void seededEditsUnwindAndRewindExactly()
    {
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        UltimateTree* tree = editor.list->tree();
        QRandomGenerator random(20261123u);
        scene->loadFromJson(realisticHud());

        // states[i] is the document with i steps on the undo stack; undone
        // holds what redo brings back, the next one last.
        QVector<QJsonArray> states{scene->toJson()};
        QVector<QJsonArray> undone;
        auto any = [&]() -> UIComponentBase* {
            const QList<UIComponentBase*>& all = scene->components();
            return all.isEmpty() ? nullptr : all.at(random.bounded(all.size()));
        };
        for (int edits = 0; edits < 300;) {
            const int action = random.bounded(9);
            UIComponentBase* picked = any();
            if (!picked && action > 0 && action < 7)
                continue;
            switch (action) {
            case 0: // create
                editor.helper->nextType = random.bounded(14);
                scene->setPastePosition(QPointF(random.bounded(816), random.bounded(624)));
                editor.view->createAComponent();
                break;
            case 1: // delete, from the list's Delete key
                tree->setCurrentRow(scene->rowOfComponent(picked));
                tree->setFocus();
                QTest::keyClick(tree, Qt::Key_Delete);
                break;
            case 2: { // a move in the list, at the same level or into another parent
                UltimateTreeItem* row = scene->rowOfComponent(picked);
                UIComponentBase* target = any();
                // A list drag closes the row it picks up before the gesture
                // starts; taking an open child row out here would close it
                // outside of one.
                if (!row->parentItem() || !row->isExpanded())
                    moveRowInList(tree, row, scene->rowOfComponent(target), target->canHaveChildren() && random.bounded(2));
                break;
            }
            case 3: { // a drag on the canvas with the mouse, sometimes back to where it began
                const QPointF centre = picked->sceneBoundingRect().center();
                if (!picked->isVisible() || !scene->sceneRect().contains(centre))
                    break;
                QTest::mousePress(editor.view->viewport(), Qt::LeftButton, Qt::NoModifier, editor.at(centre));
                if (UIComponentBase* dragged = scene->draggedComponent()) {
                    const QPoint before = dragged->absoluteXY();
                    dragged->setAbsoluteXY(random.bounded(-50, 850), random.bounded(-50, 650));
                    if (random.bounded(3) == 0)
                        dragged->setAbsoluteXY(before.x(), before.y());
                }
                QTest::mouseRelease(editor.view->viewport(), Qt::LeftButton, Qt::NoModifier, editor.at(centre));
                break;
            }
            case 4: { // resize within the kind's limits, as a handle does
                const ComponentKinds::Kind* kind = ComponentKinds::find(picked->jsonData.value("Type").toInt(-1));
                const QSize size(qBound(picked->minimumWidth(), int(random.bounded(25, 400)), picked->maximumWidth()),
                                 qBound(picked->minimumHeight(), int(random.bounded(25, 400)), picked->maximumHeight()));
                picked->beginChange();
                picked->setWidth(size.width());
                picked->setHeight(size.height());
                if (kind && kind->size == ComponentKinds::SizeStorage::Size)
                    ComponentKinds::writeStoredSize(picked->jsonData, kind->dataKey, size);
                picked->endChange();
                break;
            }
            case 5: // copy and paste beside the current row
                if (scene->components().size() > 300)
                    break;
                scene->select(picked);
                editor.view->copyAComponent();
                scene->setPastePosition(QPointF(random.bounded(-100, 900), random.bounded(-100, 700)));
                tree->setCurrentRow(scene->rowOfComponent(any()));
                editor.view->pasteAComponentFromList();
                break;
            case 6: // the property dialog, confirmed or cancelled
                scene->select(picked);
                editor.helper->acceptEdit = random.bounded(4) != 0;
                editor.helper->edit = [&](QJsonObject& json) { json.insert("UnknownKey", QJsonArray{edits, "x"}); };
                editor.view->editAComponent();
                break;
            case 7: // Ctrl+Z on the canvas
                pressCtrl(editor.view, Qt::Key_Z);
                if (states.size() > 1)
                    undone.append(states.takeLast());
                break;
            default: // Ctrl+Y on the canvas
                pressCtrl(editor.view, Qt::Key_Y);
                if (!undone.isEmpty())
                    states.append(undone.takeLast());
                break;
            }
            if (action < 7) {
                ++edits;
                // One new step and nothing left to redo, or no step and no
                // change that undo would miss.
                if (int(scene->undoRecorder().undoStack().size()) == states.size()) {
                    states.append(scene->toJson());
                    undone.clear();
                }
            }
            QVERIFY(scene->toJson() == states.last());
            QCOMPARE(int(scene->undoRecorder().undoStack().size()), states.size() - 1);
            QCOMPARE(int(scene->undoRecorder().redoStack().size()), undone.size());
            checkConsistent(scene);
            QCOMPARE(scene->order(), scene->orderFromList());
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QStringLiteral("after edit %1 (action %2)").arg(edits).arg(action)));
        }

        // Down to the loaded document, through every state, and up again.
        const QVector<QJsonArray> chain = states + QVector<QJsonArray>(undone.crbegin(), undone.crend());
        for (int i = states.size() - 1; i > 0; --i) {
            scene->undo();
            QVERIFY2(scene->toJson() == chain.at(i - 1), qPrintable(QStringLiteral("undo to %1").arg(i - 1)));
            checkConsistent(scene);
        }
        for (int i = 1; i < chain.size(); ++i) {
            scene->redo();
            QVERIFY2(scene->toJson() == chain.at(i), qPrintable(QStringLiteral("redo to %1").arg(i)));
        }
    }

    // A hand-made document may repeat an id or leave it out: undo must still
    // give every component its row, though it can't tell such twins apart.
    void repeatedIdsLoseNoRowOnUndo()
    {
        Editor editor;
        GameUIEditorScene* scene = editor.scene;
        QJsonObject twin = shape(1, 300, 300);
        twin.insert("Name", "Twin");
        QJsonObject anonymous = shape(0, 50, 50);
        anonymous.remove("ID");
        QJsonObject other = anonymous;
        other.insert("Name", "Other");
        scene->loadFromJson(QJsonArray{shape(1, 100, 100), twin, group(2, 400, 400, QJsonArray{anonymous, other})});
        const QJsonArray start = scene->toJson();
        auto names = [&]() {
            QStringList all;
            for (UIComponentBase* component : qAsConst(scene->components()))
                all.append(component->jsonData.value("Name").toString());
            all.sort();
            return all;
        };
        const QStringList before = names();

        // The twin of id 1, then the second of the two without an id.
        for (int index : {1, 3}) {
            scene->select(scene->components().at(index));
            editor.view->deleteAComponent();
            UltimateTree* tree = editor.list->tree();
            moveRowInList(tree, scene->rowOfComponent(scene->components().first()), tree->row(tree->rowCount() - 1), false);
            scene->undo();
            scene->undo();
            QCOMPARE(names(), before);
            QCOMPARE(scene->toJson().size(), start.size());
            checkConsistent(scene);
        }
    }

    void pasteTakesOnlyItsOwnWellFormedText()
    {
        Editor editor;
        GameUIEditorScene* scene = editor.scene;
        UltimateTree* tree = editor.list->tree();
        scene->loadFromJson(QJsonArray{shape(1, 100, 100), group(2, 300, 300, QJsonArray{shape(3, 0, 0)})});
        tree->setCurrentRow(scene->rowOfComponent(componentById(scene, 3)));
        const QJsonArray before = scene->toJson();
        const QString good = QStringLiteral("{\"Type\":1,\"Name\":\"Pasted\",\"X\":5,\"Y\":5}");
        const QStringList refused{QStringLiteral("VELMORAHUD") + good, QStringLiteral("VELMOCOMP{\"Type\":1,"),
                                  QStringLiteral("VELMOCOMP") + good + QStringLiteral("trailing")};
        for (const QString& text : refused) {
            QApplication::clipboard()->setText(text);
            tree->setFocus();
            QTest::keyClick(tree, Qt::Key_V, Qt::ControlModifier);
            editor.view->pasteAComponent();
            QVERIFY2(scene->toJson() == before, qPrintable(text));
            QVERIFY(scene->undoRecorder().undoStack().empty());
        }
        // The component's own text is taken, from the list's Ctrl+V beside the
        // current row, inside its parent.
        QApplication::clipboard()->setText(QStringLiteral("VELMOCOMP") + good);
        tree->setFocus();
        QTest::keyClick(tree, Qt::Key_V, Qt::ControlModifier);
        const QJsonArray children = scene->toJson().at(1).toObject().value("Children").toArray();
        QCOMPARE(children.at(1).toObject().value("Name").toString(), QStringLiteral("Pasted"));
        QCOMPARE(children.at(1).toObject().value("ID").toInt(), 4);
        QCOMPARE(scene->undoRecorder().undoStack().size(), std::size_t(1));
    }

    void pastedTreesGetFreshIdsAndComeBackWhole()
    {
        Editor editor;
        GameUIEditorScene* scene = editor.scene;
        UltimateTree* tree = editor.list->tree();
        scene->loadFromJson(QJsonArray{group(10, 200, 200, QJsonArray{shape(11, 10, 10), group(12, -20, 0, QJsonArray{shape(13, 0, 5)})}),
                                       shape(20, 50, 50)});
        const QJsonArray start = scene->toJson();

        // Copied, then deleted: its ids wait in removedComponents.
        tree->setCurrentRow(scene->rowOfComponent(componentById(scene, 10)));
        editor.view->copyAComponent();
        editor.view->deleteAComponent();
        QSet<int> used{20};
        for (UIComponentBase* gone : qAsConst(scene->removedComponents()))
            used.insert(gone->jsonData.value("ID").toInt());

        scene->setPastePosition(QPointF(400, 300));
        editor.view->pasteAComponent();
        QList<int> ids;
        collectIds(scene->toJson(), ids);
        QCOMPARE(ids.size(), 5);
        const QList<int> pastedIds = ids.mid(1);
        for (int id : pastedIds) {
            QVERIFY2(!used.contains(id) && id > 20, qPrintable(QString::number(id)));
            used.insert(id);
        }
        QCOMPARE(componentById(scene, pastedIds.first())->absoluteXY(), QPoint(400, 300));
        // Children keep their places relative to the pasted parent.
        QCOMPARE(componentById(scene, pastedIds.at(3))->absoluteXY(), QPoint(380, 305));

        // The whole pasted tree is one step; redo brings back the same objects.
        UIComponentBase* pastedChild = componentById(scene, pastedIds.at(3));
        scene->undo();
        scene->undo();
        QVERIFY(scene->toJson() == start);
        scene->redo();
        scene->redo();
        QCOMPARE(componentById(scene, pastedIds.at(3)), pastedChild);
        checkConsistent(scene);
    }

    void switchingHudsEmptiesTheStacksAndTheActionsFollow()
    {
        SettingsStore().clear();
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("undo"));
        std::unique_ptr<VelmoMainWindow> window(TestEnvironment::showMainWindow(project));
        QAction* undo = window->findChild<QAction*>(QStringLiteral("Action_Undo"));
        QAction* redo = window->findChild<QAction*>(QStringLiteral("Action_Redo"));

        GameUIEditor* view = window->editorView();
        GameUIEditorScene* scene = view->editorScene();
        UltimateTree* huds = window->hudListWidget()->tree();
        huds->setCurrentRow(huds->row(0));
        const int before = scene->components().size();
        QApplication::clipboard()->setText(
            ClipboardIdentifiers::compose(ClipboardIdentifiers::Component, shape(1, 40, 40)));
        view->pasteAComponent();
        view->pasteAComponent();
        undo->trigger();
        QCOMPARE(scene->components().size(), before + 1);

        // Another HUD: nothing to undo or redo there.
        huds->setCurrentRow(huds->row(1));
        QVERIFY(!undo->isEnabled() && !redo->isEnabled());

        // Back again: the HUD keeps its one paste, but not its history.
        huds->setCurrentRow(huds->row(0));
        QCOMPARE(scene->components().size(), before + 1);
        QVERIFY(!undo->isEnabled() && !redo->isEnabled());
    }

    // The unsaved mark tells the truth: undoing back to what was saved
    // clears it, redoing sets it again, and a change the history can't take
    // back (an arrow-key move) keeps it.
    void undoBackToTheSavedStateIsNoChange()
    {
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("saved-point"));
        SettingsStore().clear();
        std::unique_ptr<VelmoMainWindow> window(TestEnvironment::showMainWindow(project));
        GameUIEditor* view = window->editorView();
        auto unsaved = [&]() { return window->projectIsChanged() && window->isWindowModified(); };
        auto saved = [&]() { return !window->projectIsChanged() && !window->isWindowModified(); };
        QApplication::clipboard()->setText(
            ClipboardIdentifiers::compose(ClipboardIdentifiers::Component, shape(1, 40, 40)));
        view->setFocus();
        pressCtrl(view, Qt::Key_V);
        QVERIFY(unsaved());
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
        QVERIFY(saved());

        pressCtrl(view, Qt::Key_V);
        QVERIFY(unsaved());
        pressCtrl(view, Qt::Key_Z);
        QVERIFY(saved());
        // Past the saved state and back again.
        pressCtrl(view, Qt::Key_Z);
        QVERIFY(unsaved());
        pressCtrl(view, Qt::Key_Y);
        QVERIFY(saved());
        // A new edit after an undo is another state, even when it looks alike.
        pressCtrl(view, Qt::Key_Z);
        pressCtrl(view, Qt::Key_V);
        pressCtrl(view, Qt::Key_Z);
        pressCtrl(view, Qt::Key_Y);
        QVERIFY(unsaved());

        // Saved again; an arrow-key move leaves no step, so undo can't clear it.
        QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
        QVERIFY(saved());
        view->setFocus();
        QVERIFY(view->editorScene()->selectedComponent());
        QTest::keyClick(view, Qt::Key_Right);
        QVERIFY(unsaved());
        pressCtrl(view, Qt::Key_Z);
        QVERIFY(unsaved());
    }
};

VELMORA_TEST_MAIN(TestUndo, QApplication)
#include "tst_undo.moc"
