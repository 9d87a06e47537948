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
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QMenu>
#include <QRandomGenerator>
#include <QSet>
#include <QtTest>

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
    void seededEditsUnwindAndRewindExactly_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed : {1u, 4242u, 20261123u})
            QTest::addRow("seed %u", seed) << seed;
    }

    void seededEditsUnwindAndRewindExactly()
    {
        QFETCH(quint32, seed);
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        UltimateTree* tree = editor.list->tree();
        QRandomGenerator random(seed);
        scene->loadFromJson(realisticHud());
        const QJsonArray start = scene->toJson();
        QVERIFY(scene->components().size() > 40);

        // states[i] is the document with i steps on the undo stack; undone
        // holds what redo brings back, the next one last.
        QVector<QJsonArray> states{start};
        QVector<QJsonArray> undone;
        auto settle = [&]() {
            const int depth = int(scene->undoRecorder().undoStack().size());
            const QJsonArray now = scene->toJson();
            if (depth == states.size()) {
                // One new step, and nothing left to redo.
                states.append(now);
                undone.clear();
                QVERIFY(scene->undoRecorder().redoStack().empty());
            } else {
                // No step, and then no change that undo would miss.
                QCOMPARE(depth, states.size() - 1);
                QVERIFY(now == states.last());
            }
        };
        auto any = [&]() -> UIComponentBase* {
            const QList<UIComponentBase*>& all = scene->components();
            return all.isEmpty() ? nullptr : all.at(random.bounded(all.size()));
        };
        auto anyContainer = [&]() -> UIComponentBase* {
            QList<UIComponentBase*> containers;
            for (UIComponentBase* component : qAsConst(scene->components())) {
                if (component->canHaveChildren())
                    containers.append(component);
            }
            return containers.isEmpty() ? nullptr : containers.at(random.bounded(containers.size()));
        };

        int edits = 0;
        int steps = 0;
        int undos = 0;
        while (edits < 300) {
            const int action = random.bounded(14);
            UIComponentBase* picked = any();
            const bool edit = action < 12;
            switch (action) {
            case 0: // create at top level
                editor.helper->nextType = random.bounded(14);
                scene->setPastePosition(QPointF(random.bounded(816), random.bounded(624)));
                editor.view->createAComponent();
                break;
            case 1: // create inside a container
                if (UIComponentBase* container = anyContainer()) {
                    editor.helper->nextType = random.bounded(3) ? random.bounded(14) : 6;
                    scene->select(container);
                    scene->setPastePosition(QPointF(random.bounded(816), random.bounded(624)));
                    editor.view->createAComponentChild();
                }
                break;
            case 2: // delete, from the list's Delete key or the menu's slot
                if (!picked)
                    break;
                tree->setCurrentRow(scene->rowOfComponent(picked));
                if (random.bounded(2)) {
                    tree->setFocus();
                    QTest::keyClick(tree, Qt::Key_Delete);
                } else {
                    editor.view->deleteAComponent();
                }
                break;
            case 3: { // a move in the list, at the same level or into another parent
                if (!picked)
                    break;
                UltimateTreeItem* row = scene->rowOfComponent(picked);
                UIComponentBase* target = any();
                // A list drag closes the row it picks up before the gesture
                // starts; taking an open child row out here would close it
                // outside of one. The real drag has a test of its own below.
                if (row->parentItem() && row->isExpanded())
                    break;
                moveRowInList(tree, row, scene->rowOfComponent(target), target->canHaveChildren() && random.bounded(2));
                break;
            }
            case 4: { // a drag on the canvas with the mouse, sometimes back to where it began
                if (!picked || !picked->isVisible())
                    break;
                const QPointF centre = picked->sceneBoundingRect().center();
                if (!scene->sceneRect().contains(centre))
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
            case 5: // a drag through the bracket, as the drag code runs it
                if (!picked)
                    break;
                picked->beginChange();
                picked->setAbsoluteScenePosition(random.bounded(816), random.bounded(624));
                picked->endChange();
                break;
            case 6: { // resize within the kind's limits, as a handle does; the kinds that keep a free
                      // size write it into their data object
                if (!picked)
                    break;
                const ComponentKinds::Kind* kind = ComponentKinds::find(picked->jsonData.value("Type").toInt(-1));
                const int w = random.bounded(25, 400);
                const int h = random.bounded(25, 400);
                const QSize size(qBound(picked->minimumWidth(), w, picked->maximumWidth()),
                                 qBound(picked->minimumHeight(), h, picked->maximumHeight()));
                picked->beginChange();
                picked->setWidth(size.width());
                picked->setHeight(size.height());
                if (kind && kind->size == ComponentKinds::SizeStorage::Size)
                    ComponentKinds::writeStoredSize(picked->jsonData, kind->dataKey, size);
                picked->endChange();
                break;
            }
            case 7: // rotate, as the rotation handle does on the kinds that have one
                if (!picked || !picked->canRotate())
                    break;
                picked->beginChange();
                picked->setRotationDegrees(random.bounded(-180, 360));
                picked->endChange();
                break;
            case 8: // hide or show: a view aid, never a step
                if (!picked)
                    break;
                tree->setCurrentRow(scene->rowOfComponent(picked));
                editor.view->hideAComponent();
                break;
            case 9: // copy and paste, at top level or beside the current row
                if (!picked || scene->components().size() > 300)
                    break;
                scene->select(picked);
                editor.view->copyAComponent();
                scene->setPastePosition(QPointF(random.bounded(-100, 900), random.bounded(-100, 700)));
                if (UIComponentBase* beside = any())
                    tree->setCurrentRow(scene->rowOfComponent(beside));
                if (random.bounded(2))
                    editor.view->pasteAComponent();
                else
                    editor.view->pasteAComponentFromList();
                break;
            case 10: // the property dialog, confirmed or cancelled
                if (!picked)
                    break;
                scene->select(picked);
                editor.helper->acceptEdit = random.bounded(4) != 0;
                editor.helper->edit = [&](QJsonObject& json) {
                    json.insert("Name", QStringLiteral("Edited %1").arg(edits));
                    json.insert("UnknownKey", QJsonArray{edits, "x"});
                };
                editor.view->editAComponent();
                break;
            case 11: // select from the canvas or the list
                if (random.bounded(2))
                    tree->setCurrentRow(picked ? scene->rowOfComponent(picked) : nullptr);
                else if (picked && picked->isVisible())
                    editor.click(picked->sceneBoundingRect().center());
                break;
            case 12: // Ctrl+Z on the canvas
                pressCtrl(editor.view, Qt::Key_Z);
                if (states.size() > 1) {
                    undone.append(states.takeLast());
                    ++undos;
                }
                QVERIFY(scene->toJson() == states.last());
                break;
            default: // Ctrl+Y on the canvas
                pressCtrl(editor.view, Qt::Key_Y);
                if (!undone.isEmpty())
                    states.append(undone.takeLast());
                QVERIFY(scene->toJson() == states.last());
                break;
            }
            if (edit) {
                ++edits;
                settle();
            }
            QCOMPARE(int(scene->undoRecorder().redoStack().size()), undone.size());
            checkConsistent(scene);
            QCOMPARE(scene->order(), scene->orderFromList());
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QStringLiteral("after edit %1 (action %2)").arg(edits).arg(action)));
            steps = states.size() - 1;
        }
        QVERIFY2(steps > 50 && undos > 5, "the sequence must leave a real history");

        // Down to the loaded document, through every state.
        const QVector<QJsonArray> chain = states + QVector<QJsonArray>(undone.crbegin(), undone.crend());
        for (int i = states.size() - 1; i > 0; --i) {
            scene->undo();
            QVERIFY2(scene->toJson() == chain.at(i - 1), qPrintable(QStringLiteral("undo to %1").arg(i - 1)));
            checkConsistent(scene);
        }
        QVERIFY(scene->undoRecorder().undoStack().empty());
        QVERIFY(scene->toJson() == start);
        scene->undo();
        QVERIFY(scene->toJson() == start);

        // And up again to the top.
        for (int i = 1; i < chain.size(); ++i) {
            scene->redo();
            QVERIFY2(scene->toJson() == chain.at(i), qPrintable(QStringLiteral("redo to %1").arg(i)));
            checkConsistent(scene);
        }
        QVERIFY(scene->undoRecorder().redoStack().empty());
        QVERIFY(scene->toJson() == chain.last());
        scene->redo();
        QVERIFY(scene->toJson() == chain.last());
        QCOMPARE(scene->order(), scene->orderFromList());
    }

    // A click, a drag that comes back to where it began and arrow-key moves
    // leave nothing to undo; a drag that ends elsewhere is one step.
    void onlyRealMovesAreSteps()
    {
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        scene->loadFromJson(QJsonArray{shape(1, 200, 200, 60, 60)});
        UIComponentBase* box = scene->components().first();
        QWidget* viewport = editor.view->viewport();

        editor.list->tree()->setCurrentRow(editor.list->tree()->row(0));
        editor.view->setFocus();
        for (Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down})
            QTest::keyClick(editor.view, key);
        QCOMPARE(box->absoluteXY(), QPoint(202, 201));
        editor.click(QPointF(202, 201));
        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, editor.at(QPointF(202, 201)));
        box->setAbsoluteXY(300, 260);
        box->setAbsoluteXY(202, 201);
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, editor.at(QPointF(202, 201)));
        QVERIFY(scene->undoRecorder().undoStack().empty());

        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, editor.at(QPointF(202, 201)));
        box->setAbsoluteXY(260, 220);
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, editor.at(QPointF(260, 220)));
        QCOMPARE(scene->undoRecorder().undoStack().size(), std::size_t(1));
    }

    void deletionsComeBackWhole()
    {
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        UltimateTree* tree = editor.list->tree();
        QJsonObject closed = group(3, 20, 20, QJsonArray{shape(4, 5, 5, 30, 30)});
        closed.insert("Expanded", false);
        scene->loadFromJson(QJsonArray{group(1, 300, 200, QJsonArray{shape(2, -40, 0, 40, 40), closed}),
                                       shape(5, 600, 400, 50, 50), group(6, 100, 500, QJsonArray{shape(7, 0, 0)})});
        scene->rowOfComponent(componentById(scene, 6))->collapse(false);
        const QJsonArray start = scene->toJson();
        QCOMPARE(start.at(2).toObject().value("Expanded").toBool(), false);

        // The list's Delete key takes the group and all below it; Ctrl+Z on the
        // canvas brings every one back with its id, place and open state.
        UIComponentBase* top = componentById(scene, 1);
        tree->setCurrentRow(scene->rowOfComponent(top));
        tree->setFocus();
        QTest::keyClick(tree, Qt::Key_Delete);
        QCOMPARE(scene->removedComponents().size(), 4);
        pressCtrl(editor.view, Qt::Key_Z);
        QVERIFY(scene->toJson() == start);
        QVERIFY(scene->removedComponents().isEmpty());
        QCOMPARE(scene->selectedComponent(), top);
        QCOMPARE(tree->currentRow(), scene->rowOfComponent(top));
        QVERIFY(!scene->rowOfComponent(componentById(scene, 3))->isExpanded());
        QCOMPARE(componentById(scene, 4)->absoluteXY(), QPoint(325, 225));
        pressCtrl(editor.view, Qt::Key_Y);
        QCOMPARE(scene->toJson().size(), 2);
        QCOMPARE(scene->selectedComponent(), nullptr);
        pressCtrl(editor.view, Qt::Key_Z);
        QVERIFY(scene->toJson() == start);

        checkConsistent(scene);
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

        for (int round = 0; round < 2; ++round) {
            scene->select(scene->components().at(round == 0 ? 1 : 3));
            editor.view->deleteAComponent();
            UltimateTreeItem* row = scene->rowOfComponent(scene->components().first());
            UltimateTree* tree = editor.list->tree();
            moveRowInList(tree, row, tree->row(tree->rowCount() - 1), false);
            scene->undo();
            scene->undo();
            QCOMPARE(scene->components().size(), 5);
            QCOMPARE(names(), before);
            QCOMPARE(scene->toJson().size(), start.size());
            checkConsistent(scene);
            scene->redo();
            scene->redo();
            QCOMPARE(scene->components().size(), 4);
            checkConsistent(scene);
            scene->undo();
            scene->undo();
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
        QAction* pasteAction = editor.view->contextMenu->actions().at(7);
        const QString good = QStringLiteral("{\"Type\":1,\"Name\":\"Pasted\",\"X\":5,\"Y\":5}");
        const QStringList refused{QString(),
                                  QStringLiteral("VELMOCOMP"),
                                  QStringLiteral("velmocomp") + good,
                                  QStringLiteral("VELMORAHUD") + good,
                                  QStringLiteral("VELMOCOMP[") + good + QStringLiteral("]"),
                                  QStringLiteral("VELMOCOMP{\"Type\":1,"),
                                  QStringLiteral("VELMOCOMP\"Pasted\""),
                                  QStringLiteral("VELMOCOMP") + good + QStringLiteral("trailing")};
        for (const QString& text : refused) {
            QApplication::clipboard()->setText(text);
            scene->prepareMenu(editor.view->contextMenu);
            QVERIFY2(!pasteAction->isVisible(), qPrintable(text));
            tree->setFocus();
            QTest::keyClick(tree, Qt::Key_V, Qt::ControlModifier);
            editor.view->pasteAComponent();
            QVERIFY2(scene->toJson() == before, qPrintable(text));
            QCOMPARE(scene->idCounter(), 3);
            QVERIFY(scene->undoRecorder().undoStack().empty());
        }
        // The component's own text is taken, from the list's Ctrl+V beside the
        // current row, inside its parent.
        QApplication::clipboard()->setText(QStringLiteral("VELMOCOMP") + good);
        scene->prepareMenu(editor.view->contextMenu);
        QCOMPARE(pasteAction->text(), QStringLiteral("Paste \"Pasted\""));
        tree->setCurrentRow(scene->rowOfComponent(componentById(scene, 3)));
        tree->setFocus();
        QTest::keyClick(tree, Qt::Key_V, Qt::ControlModifier);
        const QJsonArray children = scene->toJson().at(1).toObject().value("Children").toArray();
        QCOMPARE(children.at(1).toObject().value("Name").toString(), QStringLiteral("Pasted"));
        QCOMPARE(children.at(1).toObject().value("ID").toInt(), 4);
        QCOMPARE(scene->undoRecorder().undoStack().size(), std::size_t(1));
    }

    void pasteStopsAtTheComponentLimit()
    {
        Editor editor;
        editor.show();
        GameUIEditorScene* scene = editor.scene;
        scene->loadFromJson(manyShapes(500));
        QApplication::clipboard()->setText(
            ClipboardIdentifiers::compose(ClipboardIdentifiers::Component, shape(900, 10, 10)));
        editor.view->pasteAComponent();
        QCOMPARE(scene->components().size(), 501);

        // At 501 a paste is refused, and the menu still offers it.
        const QJsonArray full = scene->toJson();
        const TestEnvironment::Seen seen =
            TestEnvironment::answering([&]() { editor.view->pasteAComponent(); }, {TestEnvironment::closeByFrame()});
        QCOMPARE(seen.count, 1);
        QCOMPARE(scene->components().size(), 501);
        QVERIFY(scene->toJson() == full);
        QCOMPARE(scene->undoRecorder().undoStack().size(), std::size_t(1));
        scene->prepareMenu(editor.view->contextMenu);
        QVERIFY(editor.view->contextMenu->actions().at(7)->isVisible());

        // A group of two doesn't fit into one free place: refused whole.
        scene->undo();
        QApplication::clipboard()->setText(ClipboardIdentifiers::compose(
            ClipboardIdentifiers::Component, group(901, 0, 0, QJsonArray{shape(902, 0, 0)})));
        TestEnvironment::answering([&]() { editor.view->pasteAComponent(); }, {TestEnvironment::closeByFrame()});
        QCOMPARE(scene->components().size(), 500);
        scene->select(scene->components().first());
        editor.view->deleteAComponent();
        editor.view->pasteAComponent();
        QCOMPARE(scene->components().size(), 501);
    }

    void pastedTreesGetFreshIdsAndComeBackWhole()
    {
        Editor editor;
        GameUIEditorScene* scene = editor.scene;
        UltimateTree* tree = editor.list->tree();
        QJsonObject panel = group(10, 200, 200, QJsonArray{shape(11, 10, 10), group(12, -20, 0, QJsonArray{shape(13, 0, 5)})});
        panel.insert("Name", "Panel");
        scene->loadFromJson(QJsonArray{panel, shape(20, 50, 50)});
        const QJsonArray start = scene->toJson();
        QCOMPARE(scene->idCounter(), 20);

        // Copied, then deleted: its ids wait in removedComponents.
        tree->setCurrentRow(scene->rowOfComponent(componentById(scene, 10)));
        editor.view->copyAComponent();
        editor.view->deleteAComponent();
        QCOMPARE(scene->removedComponents().size(), 4);
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
        const QJsonObject pasted = scene->toJson().at(1).toObject();
        QCOMPARE(pasted.value("Name").toString(), QStringLiteral("Panel"));
        QCOMPARE(componentById(scene, pastedIds.first())->absoluteXY(), QPoint(400, 300));
        // Children keep their places relative to the pasted parent.
        QCOMPARE(componentById(scene, pastedIds.at(3))->absoluteXY(), QPoint(380, 305));

        // The whole pasted tree is one step; redo brings back the same objects.
        QList<UIComponentBase*> objects;
        for (int id : pastedIds)
            objects.append(componentById(scene, id));
        QCOMPARE(scene->undoRecorder().undoStack().size(), std::size_t(2));
        scene->undo();
        QCOMPARE(scene->components().size(), 1);
        scene->undo();
        QVERIFY(scene->toJson() == start);
        scene->redo();
        scene->redo();
        for (int i = 0; i < pastedIds.size(); ++i)
            QCOMPARE(componentById(scene, pastedIds.at(i)), objects.at(i));
        checkConsistent(scene);
    }

    void switchingHudsEmptiesTheStacksAndTheActionsFollow()
    {
        SettingsStore().clear();
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("undo"));
        std::unique_ptr<VelmoMainWindow> window(TestEnvironment::showMainWindow(project));
        QAction* undo = window->findChild<QAction*>(QStringLiteral("Action_Undo"));
        QAction* redo = window->findChild<QAction*>(QStringLiteral("Action_Redo"));
        QVERIFY(undo && redo);

        GameUIEditor* view = window->editorView();
        GameUIEditorScene* scene = view->editorScene();
        UltimateTree* huds = window->hudListWidget()->tree();
        QCOMPARE(huds->rowCount(), 2);
        huds->setCurrentRow(huds->row(0));
        const int before = scene->components().size();
        QApplication::clipboard()->setText(
            ClipboardIdentifiers::compose(ClipboardIdentifiers::Component, shape(1, 40, 40)));
        view->pasteAComponent();
        view->pasteAComponent();
        QCOMPARE(scene->components().size(), before + 2);
        QVERIFY(undo->isEnabled() && !redo->isEnabled());
        undo->trigger();
        QCOMPARE(scene->components().size(), before + 1);

        // Another HUD: nothing to undo or redo there.
        huds->setCurrentRow(huds->row(1));
        QVERIFY(scene->undoRecorder().undoStack().empty() && scene->undoRecorder().redoStack().empty());
        QVERIFY(!undo->isEnabled() && !redo->isEnabled());
        QVERIFY(window->projectIsChanged());

        // Back again: the HUD keeps its one paste, but not its history.
        huds->setCurrentRow(huds->row(0));
        QCOMPARE(scene->components().size(), before + 1);
        QVERIFY(scene->undoRecorder().undoStack().empty() && scene->undoRecorder().redoStack().empty());
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
        QLabel* status = window->findChild<QLabel*>(QStringLiteral("statusText"));
        auto unsaved = [&]() {
            const bool marked = window->isWindowModified();
            if (marked != status->text().contains(QStringLiteral("Unsaved changes")))
                qWarning("title and status line disagree");
            return window->projectIsChanged() && marked;
        };
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
        pressCtrl(view, Qt::Key_Y);
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
        QVERIFY(unsaved());
        pressCtrl(view, Qt::Key_Z);
        QVERIFY(unsaved());
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
        window->SaveProject();
        QVERIFY(saved());
        QVERIFY(window->close());
    }
};

VELMORA_TEST_MAIN(TestUndo, QApplication)
#include "tst_undo.moc"
