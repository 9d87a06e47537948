#include "EditorFixture.h"
#include "TestEnvironment.h"

#include "scene/SceneUndoRecorder.h"

#include <QJsonDocument>

namespace {

// What every component rewrites when it is read back: X, Y and Rotation from
// the live item, "Opacity" 100.0 when missing, "Expanded" on the kinds that
// hold children (true unless the document said otherwise), the scales of the
// kinds that store a scale (1.0 when missing), and what the containers
// add of their own.
QJsonArray expectedBack(const QJsonArray& array)
{
    QJsonArray out;
    for (const QJsonValue& value : array) {
        QJsonObject object = value.toObject();
        object.insert("X", int(object.value("X").toDouble()));
        object.insert("Y", int(object.value("Y").toDouble()));
        object.insert("Rotation", int(object.value("Rotation").toDouble()) % 360);
        if (!object.contains("Opacity"))
            object.insert("Opacity", 100.0);
        const int type = object.value("Type").toInt(-1);
        if (type == 0 || type == 2 || type == 8 || type == 9 || type == 13) {
            object.insert("ScaleX", object.value("ScaleX").toDouble(1.0));
            object.insert("ScaleY", object.value("ScaleY").toDouble(1.0));
        }
        // A group takes no rotation; both containers always hold their
        // children's array.
        if (type == 6)
            object.insert("Rotation", 0);
        if (type == 6 || type == 7) {
            object.insert("Expanded", object.value("Expanded").toBool(true));
            if (!object.contains("Children"))
                object.insert("Children", QJsonArray());
        }
        if (object.contains("Children"))
            object.insert("Children", expectedBack(object.value("Children").toArray()));
        out.append(object);
    }
    return out;
}

}

class TestEditorScene : public QObject
{
    Q_OBJECT

private slots:
    void clicksTargetThroughOverlapsAndIntoChildren()
    {
        Editor editor;
        // Three overlapping shapes, the lowest first in the list; a group
        // holding a child that lies over a bigger parent window.
        const QJsonObject window{{"ID", 5}, {"Type", 7}, {"X", 600}, {"Y", 300},
                                 {"WindowData", QJsonObject{{"Width", 200}, {"Height", 200}}},
                                 {"Children", QJsonArray{shape(6, 40, 40)}}};
        editor.scene->loadFromJson(QJsonArray{shape(1, 200, 200), shape(2, 220, 200), shape(3, 240, 200), window});
        editor.show();
        UIComponentBase* low = editor.scene->components().at(0);
        UIComponentBase* top = editor.scene->components().at(2);

        // An unselected overlap: the topmost one.
        editor.click(QPointF(225, 200));
        QCOMPARE(editor.list->tree()->currentRow(), editor.scene->rowOfComponent(top));

        // The lowest selected from the list; a click where all three overlap keeps it.
        editor.list->tree()->setCurrentRow(editor.scene->rowOfComponent(low));
        editor.click(QPointF(225, 200));
        QCOMPARE(editor.scene->selectedComponent(), low);

        // The parent selected, a click on its child goes down into the child,
        // and the next click on the same point keeps the child.
        UIComponentBase* parent = editor.scene->components().at(3);
        UIComponentBase* child = editor.scene->components().at(4);
        editor.click(QPointF(560, 260));
        QCOMPARE(editor.scene->selectedComponent(), parent);
        editor.click(QPointF(620, 320));
        editor.click(QPointF(620, 320));
        QCOMPARE(editor.scene->selectedComponent(), child);
    }

    // The full document goes through the canvas in the last test; these are
    // the odd shapes a hand-edited one may hold.
    void loadAndSaveKeepsTheDocument()
    {
        // Seven levels of groups and windows, a collapsed group, containers
        // without "Expanded", unknown keys and kinds, odd values.
        QJsonArray deepest{shape(20, 5, 5), QJsonObject{{"ID", 21}, {"Type", 99}, {"Mystery", "kept"}}};
        QJsonObject level = group(19, 1, 1, deepest);
        for (int depth = 0; depth < 6; ++depth) {
            level = QJsonObject{{"ID", 18 - depth},
                                {"Type", depth % 2 ? 6 : 7},
                                {"X", 10 * depth},
                                {"Y", -5},
                                {"Rotation", 370},
                                {"WindowData", QJsonObject{{"Width", 300}, {"Height", 200}, {"Skin", "Window"}}},
                                {"Children", QJsonArray{level, shape(30 + depth, depth, 2)}}};
            if (depth == 2)
                level.insert("Expanded", false);
        }
        QJsonObject collapsed = group(40, 100, 100, QJsonArray{shape(41, 3, 3)});
        collapsed.insert("Expanded", false);
        QJsonObject emptyOpen = group(42, 0, 0, QJsonArray());
        emptyOpen.insert("Expanded", false);
        QJsonObject unknown{{"ID", 43}, {"Type", -4}, {"X", 10.5}, {"Opacity", 0.25},
                            {"Conditions", QJsonArray{QJsonObject{{"Type", 3}}}}, {"Future", QJsonObject{{"a", 1}}}};
        QJsonObject textWithChildren{{"ID", 44}, {"Type", 0}, {"TextData", QJsonObject{{"Text", "x"}}},
                                     {"Children", QJsonArray{shape(45, 1, 1)}}};
        const QJsonArray hud{level, collapsed, emptyOpen, unknown, textWithChildren, group(46, 7, 7, QJsonArray())};
        Editor editor;
        editor.scene->loadFromJson(hud);
        QCOMPARE(editor.scene->toJson(), expectedBack(hud));
        // A load has nothing to undo.
        QVERIFY(editor.scene->undoRecorder().undoStack().empty());
        checkConsistent(editor.scene);
    }

    void creatingAndDeletingFromCanvasAndList()
    {
        Editor editor;
        editor.show();
        editor.helper->nextType = 6;
        // A double-click on the empty canvas creates where it was clicked.
        QTest::mouseDClick(editor.view->viewport(), Qt::LeftButton, Qt::NoModifier, editor.at(QPointF(300, 200)));
        QCOMPARE(editor.scene->components().size(), 1);
        UIComponentBase* created = editor.scene->components().first();
        QCOMPARE(created->absoluteXY(), QPoint(300, 200));
        QCOMPARE(editor.list->tree()->currentRow()->text(0), QStringLiteral("C1"));

        // A child of the group lands in the group's row, opened.
        editor.helper->nextType = 1;
        editor.scene->setPastePosition(QPointF(320, 210));
        editor.view->createAComponentChild();
        UIComponentBase* child = editor.scene->components().at(1);
        QCOMPARE(child->parentComponent, created);
        QCOMPARE(child->absoluteXY(), QPoint(320, 210));
        QVERIFY(editor.scene->rowOfComponent(created)->isExpanded());

        // Deleting from the list's Delete key takes the row and its children.
        editor.list->tree()->setCurrentRow(editor.scene->rowOfComponent(created));
        editor.list->tree()->setFocus();
        QTest::keyClick(editor.list->tree(), Qt::Key_Delete);
        QVERIFY(editor.scene->components().isEmpty());
        checkConsistent(editor.scene);
    }

    void theComponentLimitRefusesWholeAndSays()
    {
        Editor editor;
        editor.show();
        QJsonArray many = manyShapes(500);
        many.append(group(501, 0, 0, QJsonArray()));
        editor.scene->loadFromJson(many);
        editor.scene->select(editor.scene->components().last());
        const QJsonArray before = editor.scene->toJson();
        const TestEnvironment::Seen seen = TestEnvironment::answering(
            [&]() { editor.view->createACenteredComponent(); }, {TestEnvironment::closeByFrame()});
        QCOMPARE(seen.title, QStringLiteral("Component Limit"));
        // The selector never ran, and nothing was made, numbered or recorded.
        QCOMPARE(editor.helper->asked, 0);
        QCOMPARE(editor.scene->idCounter(), 501);
        QVERIFY(editor.scene->undoRecorder().undoStack().empty());
        QCOMPARE(editor.scene->toJson(), before);

        // A paste into a container is refused the same way.
        editor.view->copyAComponent();
        QCOMPARE(TestEnvironment::answering([&]() { editor.view->pasteAComponentFromList(); }, {TestEnvironment::closeByFrame()}).count, 1);
        QCOMPARE(editor.scene->toJson(), before);
    }

    void pastingATreeNamesEveryCopyAndIsOneStep()
    {
        Editor editor;
        editor.show();
        const auto named = [](QJsonObject json, const char* name) {
            json.insert("Name", name);
            return json;
        };
        // A group "G" holding "A" and a group "B" that holds another "A", and
        // a first copy of "A" already on the canvas.
        editor.scene->loadFromJson(QJsonArray{
            named(group(1, 100, 100,
                        QJsonArray{named(shape(2, 0, 0), "A"),
                                   named(group(3, 10, 10, QJsonArray{named(shape(4, 0, 0), "A")}), "B")}),
                  "G"),
            named(shape(5, 300, 300), "A - Copy 1")});
        editor.scene->select(editor.scene->components().first());
        editor.view->copyAComponent();
        const QJsonArray before = editor.scene->toJson();
        editor.scene->paste(nullptr);
        const QJsonArray after = editor.scene->toJson();
        QCOMPARE(after.size(), 3);
        // The copy lands right after the selected component.
        const QJsonObject copy = after.at(1).toObject();
        QCOMPARE(copy.value("Name").toString(), QStringLiteral("G - Copy 1"));
        QCOMPARE(copy.value("ID").toInt(), 6);
        const QJsonArray children = copy.value("Children").toArray();
        QCOMPARE(children.size(), 2);
        QCOMPARE(children.at(0).toObject().value("Name").toString(), QStringLiteral("A - Copy 2"));
        const QJsonObject inner = children.at(1).toObject();
        QCOMPARE(inner.value("Name").toString(), QStringLiteral("B - Copy 1"));
        QCOMPARE(inner.value("Children").toArray().at(0).toObject().value("Name").toString(),
                 QStringLiteral("A - Copy 3"));
        QCOMPARE(editor.scene->selectedComponent()->jsonData.value("ID").toInt(), 6);
        checkConsistent(editor.scene);

        // One step takes the whole copy away and brings it back.
        editor.scene->undo();
        QCOMPARE(editor.scene->toJson(), before);
        editor.scene->redo();
        QCOMPARE(editor.scene->toJson(), after);

        // A chain 200 groups deep pastes whole.
        QJsonObject chain = named(group(1000, 0, 0, QJsonArray()), "Deep");
        for (int depth = 1; depth < 200; ++depth)
            chain = named(group(1000 + depth, 0, 0, QJsonArray{chain}), "Deep");
        editor.scene->clear();
        editor.scene->loadFromJson(QJsonArray{chain});
        editor.scene->select(editor.scene->components().first());
        editor.view->copyAComponent();
        editor.scene->paste(nullptr);
        QCOMPARE(editor.scene->components().size(), 400);
        QCOMPARE(editor.scene->components().last()->jsonData.value("Name").toString(), QStringLiteral("Deep - Copy 200"));
    }

    void resaveVisitingAllHudsKeepsTheDocument()
    {
        const QByteArray original = TestEnvironment::readFile(QStringLiteral(VELMORA_TEST_DATA "/full_document.json"));
        const QString project = TestEnvironment::makeProject(QStringLiteral("visit"));
        TestEnvironment::writeFile(TestEnvironment::documentPath(project), original);
        const QString target = TestEnvironment::newFolder(QStringLiteral("visited")) + QStringLiteral("/out.json");
        const TestEnvironment::CliResult result = TestEnvironment::runCli(
            {QStringLiteral("resave"), project, QStringLiteral("--visit-all"), QStringLiteral("--out"), target});
        QVERIFY2(result.code == 0, qPrintable(result.err));
        const QJsonObject before = QJsonDocument::fromJson(original).object();
        const QJsonObject after = QJsonDocument::fromJson(TestEnvironment::readFile(target)).object();
        // Every HUD went through the canvas: only what components rewrite changed.
        auto visited = [](QJsonObject hud) {
            hud.insert("HUD", expectedBack(hud.value("HUD").toArray()));
            return hud;
        };
        QJsonObject expected = before;
        QJsonArray data;
        for (const QJsonValue& hud : before.value("Data").toArray())
            data.append(visited(hud.toObject()));
        expected.insert("Data", data);
        QCOMPARE(after, expected);
        // The project's own file is untouched.
        QCOMPARE(TestEnvironment::readFile(TestEnvironment::documentPath(project)), original);
    }
};

VELMORA_TEST_MAIN(TestEditorScene, QApplication)
#include "tst_editorscene.moc"
