#pragma once

// The editor scene as the main window has it, for the tests that drive it:
// the canvas view and its component list side by side, with the real
// component factory whose selector and dialogs the test scripts.
#include "ListMove.h"
#include "TestEnvironment.h"
#include "components/GameUIEditorSceneHelper.h"
#include "scene/ComponentListSync.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QGraphicsItem>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QJsonObject>
#include <QWidget>
#include <QtTest>

#include <functional>

// The real factory, with the kind of each new component chosen by the test
// instead of the selector.
class ScriptedHelper : public GameUIEditorSceneHelper<VelmoUISelector>
{
public:
    void chooseNewComponent(QJsonObject& json, bool* accepted, int id, bool, QJsonObject*, TrovDialog*) override
    {
        ++asked;
        json.insert(QStringLiteral("ID"), id + 1);
        json.insert(QStringLiteral("Type"), nextType);
        json.insert(QStringLiteral("Name"), QStringLiteral("C%1").arg(id + 1));
        *accepted = true;
    }
    // The property dialog: edit changes the copy, accept says how it closed.
    void editComponent(QJsonObject& json, bool* accepted, TrovDialog*, QWidget*, bool, QJsonObject*) override
    {
        ++edited;
        if (edit)
            edit(json);
        *accepted = acceptEdit;
    }
    int nextType = 1;
    int asked = 0;
    std::function<void(QJsonObject&)> edit;
    bool acceptEdit = true;
    int edited = 0;
};

using TestEnvironment::shape;

// A group holding children, as documents have them.
inline QJsonObject group(int id, int x, int y, const QJsonArray& children)
{
    return QJsonObject{{"ID", id}, {"Type", 6}, {"X", x}, {"Y", y}, {"Children", children}};
}

// Shapes with the ids 1..count, as many as the component limit allows.
inline QJsonArray manyShapes(int count)
{
    QJsonArray many;
    for (int id = 1; id <= count; ++id)
        many.append(shape(id, id, id));
    return many;
}

// The canvas and its component list side by side, as the main window has
// them, with the scripted factory.
struct Editor : TestEnvironment::Canvas {
    Editor() : Canvas(new ScriptedHelper), helper(static_cast<ScriptedHelper*>(scene->helper()))
    {
        list->tree()->setKeepSelectionLook(true);
    }
    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        // The first show fits the canvas; these cases work at zoom 1.0, with
        // the view settled on its new scene rectangle.
        scene->setZoom(10);
        QApplication::processEvents();
    }
    QPoint at(const QPointF& scenePoint) const { return view->mapFromScene(scenePoint); }
    void click(const QPointF& scenePoint)
    {
        QTest::mousePress(view->viewport(), Qt::LeftButton, Qt::NoModifier, at(scenePoint));
        QTest::mouseRelease(view->viewport(), Qt::LeftButton, Qt::NoModifier, at(scenePoint));
    }

    ScriptedHelper* helper;
};

inline int rowCount(UltimateTreeItem* parent, const UltimateTree* tree)
{
    int count = 0;
    const int n = parent ? parent->childCount() : tree->rowCount();
    for (int i = 0; i < n; ++i) {
        UltimateTreeItem* row = parent ? parent->child(i) : tree->row(i);
        count += 1 + rowCount(row, tree);
    }
    return count;
}

// The paint order the list prescribes: depth first, children above their
// parent, later siblings above earlier ones, the selected one above its siblings.
inline void expectedStacking(GameUIEditorScene* scene, UltimateTreeItem* parent, QList<UIComponentBase*>& out)
{
    const UltimateTree* tree = scene->list()->tree();
    QList<UltimateTreeItem*> rows;
    const int n = parent ? parent->childCount() : tree->rowCount();
    for (int i = 0; i < n; ++i)
        rows.append(parent ? parent->child(i) : tree->row(i));
    for (int i = 0; i < rows.size(); ++i) {
        if (scene->componentOfRow(rows[i]) == scene->selectedComponent()) {
            rows.append(rows.takeAt(i));
            break;
        }
    }
    for (UltimateTreeItem* row : rows) {
        out.append(scene->componentOfRow(row));
        expectedStacking(scene, row, out);
    }
}

// Every row has its component and the component its row, parents agree, and
// the canvas stacks as the list says.
inline void checkConsistent(GameUIEditorScene* scene)
{
    const UltimateTree* tree = scene->list()->tree();
    QCOMPARE(rowCount(nullptr, tree), scene->components().size());
    QCOMPARE(scene->componentListSync().mappedRows(), scene->components().size());
    for (UIComponentBase* component : qAsConst(scene->components())) {
        UltimateTreeItem* row = scene->rowOfComponent(component);
        QVERIFY(row);
        QCOMPARE(scene->componentOfRow(row), component);
        UIComponentBase* parentOfRow = row->parentItem() ? scene->componentOfRow(row->parentItem()) : nullptr;
        QCOMPARE(component->parentComponent, parentOfRow);
        QCOMPARE(component->parentItem(), static_cast<QGraphicsItem*>(parentOfRow));
        QCOMPARE(component->scene(), scene);
    }
    QList<UIComponentBase*> expected;
    expectedStacking(scene, nullptr, expected);
    QList<UIComponentBase*> painted;
    // The scene keeps no spatial index, and without one its list of all
    // items, hidden ones included, isn't sorted by stacking; an index sorts it.
    scene->setItemIndexMethod(QGraphicsScene::BspTreeIndex);
    for (QGraphicsItem* item : scene->items(Qt::AscendingOrder)) {
        if (auto* component = dynamic_cast<UIComponentBase*>(item))
            painted.append(component);
    }
    scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    QCOMPARE(painted, expected);
}
