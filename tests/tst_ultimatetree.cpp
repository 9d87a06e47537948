#include "TestEnvironment.h"

#include "theme/ThemeManager.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeItemButton.h"
#include "widgets/UltimateTreeItemFiller.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMenu>
#include <QSignalSpy>

namespace {

// Counts how often the deleter sees each record, so that a record freed twice
// or never shows.
struct DeleteLog {
    QMap<QString, int> freed;
};

UltimateTreeItem* makeRow(const QString& name, bool canHaveChildren = false)
{
    UltimateTreeItem* row = new UltimateTreeItem();
    row->setText(0, name);
    row->setCanHaveChildren(canHaveChildren);
    row->setUserData(new QJsonObject{{QStringLiteral("Name"), name}});
    return row;
}

QStringList childNames(UltimateTreeItem* row)
{
    QStringList names;
    for (int i = 0; i < row->childCount(); ++i)
        names.append(row->child(i)->text(0));
    return names;
}

// The rows on screen, top to bottom, as the chain gives them, with depth.
QStringList chain(UltimateTree* tree)
{
    QStringList names;
    for (UltimateTreeItem* row = tree->firstVisibleRow(); row; row = row->next())
        names.append(QString(row->depth() * 2, QLatin1Char(' ')) + row->text(0));
    return names;
}

}

class TestUltimateTree : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<UltimateTreeWidget> list;
    DeleteLog log;

    UltimateTree* tree() { return list->tree(); }
    QPoint pointOf(UltimateTreeItem* row, int x = 60) const
    {
        return list->tree()->mapFromScene(QPointF(x, row->y() + row->rowHeight() / 2.0));
    }
    // A right-button drag with real events: press on the row, move through
    // the given offsets, release at the last one.
    void rightDrag(UltimateTreeItem* row, const QList<QPoint>& offsets, int pressX = 60)
    {
        QWidget* viewport = tree()->viewport();
        const QPoint start = pointOf(row, pressX);
        QTest::mousePress(viewport, Qt::RightButton, Qt::NoModifier, start);
        QPoint at = start;
        for (const QPoint& offset : offsets) {
            at = start + offset;
            TestEnvironment::moveWithButtons(viewport, at, Qt::RightButton);
        }
        QTest::mouseRelease(viewport, Qt::RightButton, Qt::NoModifier, at);
    }
    void logDeletes()
    {
        tree()->setRowDeleter([this](UltimateTreeItem* row) {
            if (row->userData())
                log.freed[row->userData()->value("Name").toString()] += 1;
            delete row->userData();
        });
    }
    // Rows: A, B (children B1, B2, B3), C (can take children), D, E; 20 high.
    void buildList()
    {
        tree()->setRelocationEnabled(true);
        tree()->setRowHeight(20);
        tree()->setFiller(true, QString());
        logDeletes();
        tree()->startView();
        tree()->addRow(makeRow(QStringLiteral("A")));
        UltimateTreeItem* b = makeRow(QStringLiteral("B"), true);
        tree()->addRow(b);
        for (const char* name : {"B1", "B2", "B3"})
            b->addChild(makeRow(QString::fromLatin1(name), true));
        tree()->addRow(makeRow(QStringLiteral("C"), true));
        tree()->addRow(makeRow(QStringLiteral("D")));
        tree()->addRow(makeRow(QStringLiteral("E")));
    }

private slots:
    void initTestCase()
    {
        Theme::installDefault();
        Theme::refreshCachedColors();
    }
    void init()
    {
        log.freed.clear();
        list.reset(new UltimateTreeWidget());
        list->resize(300, 400);
        list->show();
        QVERIFY(QTest::qWaitForWindowExposed(list.get()));
    }
    void cleanup() { list.reset(); }

    void rowsNeedAStartedView()
    {
        QTest::ignoreMessage(QtCriticalMsg, "VIEW HAS NO STARTED!");
        int freed = 0;
        tree()->setRowDeleter([&freed](UltimateTreeItem* row) {
            ++freed;
            delete row->userData();
        });
        tree()->addRow(makeRow(QStringLiteral("too early")));
        QCOMPARE(tree()->rowCount(), 0);
        QCOMPARE(freed, 1);
        // Rows given at once are dropped and freed each.
        QTest::ignoreMessage(QtCriticalMsg, "VIEW HAS NO STARTED!");
        QTest::ignoreMessage(QtCriticalMsg, "VIEW HAS NO STARTED!");
        tree()->addRows({makeRow(QStringLiteral("early 1")), makeRow(QStringLiteral("early 2"))});
        QCOMPARE(tree()->rowCount(), 0);
        QCOMPARE(freed, 3);
    }

    void clickingSelectsAndToggles()
    {
        buildList();
        QSignalSpy changed(list.get(), &UltimateTreeWidget::currentItemChanged);
        QSignalSpy doubled(list.get(), &UltimateTreeWidget::itemDoubleClicked);
        UltimateTreeItem* b = tree()->row(1);
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(tree()->row(3)));
        QCOMPARE(tree()->currentRow(), tree()->row(3));
        QCOMPARE(changed.count(), 1);

        // The arrow opens the row and leaves the selection where it was.
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(b, 10));
        QVERIFY(b->isExpanded());
        QCOMPARE(tree()->currentRow(), tree()->row(3));

        // The "+" row reports a null item and is never current for callers.
        const QPoint plus = tree()->mapFromScene(QPointF(60, tree()->fillerItem()->y() + 10));
        QTest::mouseDClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, plus);
        QCOMPARE(doubled.at(0).at(0).value<UltimateTreeItem*>(), nullptr);
        QCOMPARE(tree()->currentRow(), nullptr);
    }

    void dragReordersTopLevelRows()
    {
        buildList();
        QSignalSpy relocated(list.get(), &UltimateTreeWidget::itemRelocated);
        QSignalSpy menus(list.get(), &QWidget::customContextMenuRequested);
        UltimateTreeItem* a = tree()->row(0);

        // Down: A over the lower half of C's place lands behind C. It was
        // current before and stays so: no change of the current row is told.
        tree()->setCurrentRow(a);
        QSignalSpy changed(list.get(), &UltimateTreeWidget::currentItemChanged);
        rightDrag(a, {QPoint(0, 12), QPoint(0, 30), QPoint(0, 35)});
        QCOMPARE(changed.count(), 0);
        QCOMPARE(TestEnvironment::rowTexts(list.get()), QStringList({"B", "C", "A", "D", "E"}));
        QCOMPARE(relocated.at(0).at(0).value<UltimateTreeItem*>(), a);
        QCOMPARE(menus.count(), 0);

        // Up to the very top.
        UltimateTreeItem* e = tree()->row(4);
        rightDrag(e, {QPoint(0, -20), QPoint(0, -60), QPoint(0, -85)});
        QCOMPARE(TestEnvironment::rowTexts(list.get()), QStringList({"E", "B", "C", "A", "D"}));
        QCOMPARE(relocated.count(), 2);
    }

    void dragMovesIntoAndOutOfParents()
    {
        buildList();
        UltimateTreeItem* b = tree()->row(1);
        UltimateTreeItem* c = tree()->row(2);
        UltimateTreeItem* e = tree()->row(4);

        // Right of a closed row that takes children: its first child, opened.
        rightDrag(e, {QPoint(40, -10), QPoint(40, -28)});
        QCOMPARE(chain(tree()), QStringList({"A", "B", "C", "  E", "D"}));

        // Out of a parent: E is picked up with a sideways pull to the left and
        // dropped where it was. Behind C with the pointer left of C's text, it
        // lands behind C at the top level.
        rightDrag(e, {QPoint(-30, 2)});
        QVERIFY(!c->button());
        QCOMPARE(TestEnvironment::rowTexts(list.get()), QStringList({"A", "B", "C", "E", "D"}));

        // Into an open parent: B2 stands at 60..80; A (from 0..20) over its
        // lower half lands behind it, among B's children.
        b->expand();
        UltimateTreeItem* a = tree()->row(0);
        rightDrag(a, {QPoint(0, 30), QPoint(0, 62)});
        QCOMPARE(chain(tree()), QStringList({"B", "  B1", "  B2", "  A", "  B3", "C", "E", "D"}));

        // The last child pulled left climbs out behind its parent.
        UltimateTreeItem* b3 = b->child(3);
        rightDrag(b3, {QPoint(-30, 2)});
        QCOMPARE(childNames(b), QStringList({"B1", "B2", "A"}));
        QCOMPARE(TestEnvironment::rowTexts(list.get()), QStringList({"B", "B3", "C", "E", "D"}));

        // A row that can't take children never gets one: D dropped far right
        // behind E (which can't) lands as E's sibling.
        UltimateTreeItem* d = tree()->row(4);
        rightDrag(d, {QPoint(200, -5), QPoint(200, -8)});
        QCOMPARE(TestEnvironment::rowTexts(list.get()), QStringList({"B", "B3", "C", "E", "D"}));
        QCOMPARE(e->childCount(), 0);
    }

    void dropIntoAnOpenParentAndEdgeCases()
    {
        buildList();
        UltimateTreeItem* b = tree()->row(1);
        b->expand();
        QSignalSpy collapsed(list.get(), &UltimateTreeWidget::itemCollapsed);
        // C (80..100) pulled up over the lower half of B: B is open, so C
        // becomes its first child.
        UltimateTreeItem* c = tree()->row(2);
        rightDrag(c, {QPoint(0, -30), QPoint(0, -62)});
        QCOMPARE(chain(tree()), QStringList({"A", "B", "  C", "  B1", "  B2", "  B3", "D", "E"}));

        // A parent that loses its last child closes and says so.
        UltimateTreeItem* b1 = b->child(1);
        b1->addChild(makeRow(QStringLiteral("B1a")));
        b1->expand();
        UltimateTreeItem* only = b1->child(0);
        b1->deleteChild(only);
        QCOMPARE(collapsed.count(), 1);
        QCOMPARE(collapsed.at(0).at(0).value<UltimateTreeItem*>(), b1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(log.freed.value(QStringLiteral("B1a")), 1);

        // Keys do nothing while a row floats.
        QSignalSpy deletes(list.get(), &UltimateTreeWidget::onDeleteKeyPress);
        UltimateTreeItem* d = tree()->row(2);
        const QPoint start = pointOf(d);
        QTest::mousePress(tree()->viewport(), Qt::RightButton, Qt::NoModifier, start);
        TestEnvironment::moveWithButtons(tree()->viewport(), start + QPoint(0, 25), Qt::RightButton);
        QVERIFY(tree()->isDragging());
        QTest::keyClick(tree(), Qt::Key_Delete);
        QTest::keyClick(tree(), Qt::Key_Up);
        QCOMPARE(deletes.count(), 0);
        QCOMPARE(tree()->currentRow(), d);

        // Clearing the list mid-drag frees the floating row too, once.
        tree()->clear();
        QVERIFY(!tree()->isDragging());
        QTest::mouseRelease(tree()->viewport(), Qt::RightButton, Qt::NoModifier, start);
        QCOMPARE(tree()->rowCount(), 0);
        for (auto it = log.freed.begin(); it != log.freed.end(); ++it)
            QVERIFY2(it.value() == 1, qPrintable(it.key()));
        QCOMPARE(log.freed.size(), 9);
    }

    void rowsOutsideAndAcrossTrees()
    {
        buildList();
        // Children made before their parent joins a list are freed with it.
        UltimateTreeItem* p = makeRow(QStringLiteral("P"), true);
        p->addChild(makeRow(QStringLiteral("P2")));
        tree()->addRow(p);
        // A row taken out keeps the list's deleter after the list is gone.
        UltimateTreeItem* a = tree()->row(0);
        tree()->removeRow(a);
        QCOMPARE(chain(tree()).first(), QStringLiteral("B"));
        list.reset();
        QCOMPARE(log.freed.value(QStringLiteral("A")), 0);
        delete a;
        QCOMPARE(log.freed.value(QStringLiteral("A")), 1);
        QCOMPARE(log.freed.value(QStringLiteral("P2")), 1);
    }

    // Rows given at once stand where single ones would, on screen as in the
    // list; rows that can't join are left out, and every record is freed
    // once whether its row was taken out or cleared.
    void bulkFillKeepsOrderParentsAndRecords()
    {
        buildList();
        UltimateTreeItem* b = tree()->row(1);
        UltimateTreeItem* c = tree()->row(2);
        UltimateTreeItem* d = tree()->row(3);
        b->expand();
        tree()->setCurrentRow(c);
        QSignalSpy changed(list.get(), &UltimateTreeWidget::currentItemChanged);

        // X2 comes with an open child; B1 is a child elsewhere and D is in
        // the list already, so neither moves, and X1 given twice joins once.
        UltimateTreeItem* x1 = makeRow(QStringLiteral("X1"));
        UltimateTreeItem* x2 = makeRow(QStringLiteral("X2"), true);
        UltimateTreeItem* x2a = makeRow(QStringLiteral("X2a"));
        x2->addChild(x2a);
        x2->expand();
        UltimateTreeItem* x3 = makeRow(QStringLiteral("X3"));
        tree()->insertRows(2, {x1, x2, b->child(0), nullptr, d, x1, x3});
        QCOMPARE(TestEnvironment::rowTexts(list.get()), QStringList({"A", "B", "X1", "X2", "X3", "C", "D", "E"}));
        QCOMPARE(chain(tree()),
                 QStringList({"A", "B", "  B1", "  B2", "  B3", "X1", "X2", "  X2a", "X3", "C", "D", "E"}));
        QCOMPARE(childNames(b), QStringList({"B1", "B2", "B3"}));
        QCOMPARE(x2a->parentItem(), x2);
        QCOMPARE(x2a->depth(), 1);
        QCOMPARE(x1->parentItem(), nullptr);
        QCOMPARE(tree()->currentRow(), c);
        QCOMPARE(changed.count(), 0);

        tree()->addRows({makeRow(QStringLiteral("Y1")), makeRow(QStringLiteral("Y2"))});
        QCOMPARE(TestEnvironment::rowTexts(list.get()).mid(6), QStringList({"D", "E", "Y1", "Y2"}));
        // Every row on screen stands one row below the one before, and the
        // "+" row below the last.
        int y = 0;
        for (UltimateTreeItem* row = tree()->firstVisibleRow(); row; row = row->next(), y += 20) {
            QVERIFY2(row->scene() && row->y() == y, qPrintable(row->text(0)));
            QCOMPARE(row->home(), double(y));
        }
        QCOMPARE(y, 14 * 20);
        QCOMPARE(tree()->fillerItem()->y(), double(y));
        QVERIFY(tree()->sceneRect().height() >= y + 20);

        // The pointer and the keys find the new rows where they show.
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(x1));
        QCOMPARE(tree()->currentRow(), x1);
        QTest::keyClick(tree()->viewport(), Qt::Key_Down);
        QCOMPARE(tree()->currentRow(), x2);
        QTest::keyClick(tree()->viewport(), Qt::Key_Down);
        QTest::keyClick(tree()->viewport(), Qt::Key_Down);
        QCOMPARE(tree()->currentRow(), c);
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(x2a));
        QCOMPARE(tree()->currentRow(), x2a);

        // Taking B, X1 and X2 closes the gap and leaves no current row, as
        // X2a went with its parent; the rows are the caller's, records and all.
        const QList<UltimateTreeItem*> taken = tree()->takeRows(1, 3);
        QCOMPARE(taken, QList<UltimateTreeItem*>({b, x1, x2}));
        QCOMPARE(chain(tree()), QStringList({"A", "X3", "C", "D", "E", "Y1", "Y2"}));
        QCOMPARE(tree()->row(1)->y(), 20.0);
        QCOMPARE(tree()->currentRow(), nullptr);
        QVERIFY(!x2a->scene());
        QCOMPARE(childNames(x2), QStringList({"X2a"}));
        QCOMPARE(log.freed.size(), 0);
        qDeleteAll(taken);
        QCOMPARE(log.freed.size(), 7);

        // Taken rows can join again, and clearing frees each record once.
        UltimateTreeItem* z = makeRow(QStringLiteral("Z"));
        tree()->addRows({z});
        QList<UltimateTreeItem*> back = tree()->takeRows(tree()->rowCount() - 1, 5);
        QCOMPARE(back, QList<UltimateTreeItem*>({z}));
        tree()->insertRows(0, back);
        QCOMPARE(TestEnvironment::rowTexts(list.get()).first(), QStringLiteral("Z"));
        tree()->clear();
        QCOMPARE(tree()->rowCount(), 0);
        QCOMPARE(tree()->firstVisibleRow(), nullptr);
        const QStringList all{"A", "B", "B1", "B2", "B3", "C", "D", "E", "X1", "X2", "X2a", "X3", "Y1", "Y2", "Z"};
        QCOMPARE(QStringList(log.freed.keys()), all);
        for (auto it = log.freed.begin(); it != log.freed.end(); ++it)
            QVERIFY2(it.value() == 1, qPrintable(it.key()));
    }

    // Rows that come while one floats leave the others where they stand,
    // so the gap stays, but the scene grows at once; the drop lays all out.
    void bulkFillDuringADrag()
    {
        list->resize(300, 80);
        buildList();
        QApplication::processEvents();
        UltimateTreeItem* d = tree()->row(3);
        const QPoint start = pointOf(d);
        QTest::mousePress(tree()->viewport(), Qt::RightButton, Qt::NoModifier, start);
        TestEnvironment::moveWithButtons(tree()->viewport(), start + QPoint(0, 25), Qt::RightButton);
        QVERIFY(tree()->isDragging());
        const double height = tree()->sceneRect().height();
        QList<double> ys;
        for (int i = 0; i < tree()->rowCount(); ++i)
            ys.append(tree()->row(i)->y());

        tree()->insertRows(1, {makeRow(QStringLiteral("F")), makeRow(QStringLiteral("G"))});
        QCOMPARE(tree()->sceneRect().height(), height + 40);
        QCOMPARE(tree()->row(0)->y(), ys.at(0));
        for (int i = 1; i < ys.size(); ++i)
            QCOMPARE(tree()->row(i + 2)->y(), ys.at(i));

        QTest::mouseRelease(tree()->viewport(), Qt::RightButton, Qt::NoModifier, start + QPoint(0, 25));
        QVERIFY(!tree()->isDragging());
        QCOMPARE(TestEnvironment::rowTexts(list.get()), QStringList({"A", "F", "G", "B", "C", "E", "D"}));
        int y = 0;
        for (UltimateTreeItem* row = tree()->firstVisibleRow(); row; row = row->next(), y += 20)
            QVERIFY2(row->y() == y, qPrintable(row->text(0)));
        QCOMPARE(y, 7 * 20);
    }

    void clipboardCopyCutPaste()
    {
        UltimateTreeWidget::setupStandardDatabaseList(list.get());
        list->setClipboardId(QStringLiteral("VELMORAHUD"));
        tree()->setFiller(true, QString());
        list->connectClipboardKeys();
        int filled = 0;
        list->setListFunctions(
            [](QJsonObject* record) { return record->value(QStringLiteral("Name")).toString(); },
            [&filled](UltimateTreeItem* row, QJsonObject* record) {
                ++filled;
                row->setText(0, record->value(QStringLiteral("Name")).toString());
            });
        QApplication::clipboard()->setText(QStringLiteral("untouched"));

        // Nothing current: nothing copied.
        list->copyCurrentItem();
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("untouched"));

        const QJsonObject nested{{"Name", "Status"}, {"ID", "01234"},
                                 {"HUD", QJsonArray{QJsonObject{{"Type", 5}, {"Children", QJsonArray{QJsonObject{{"Type", 0}}}}}}}};
        UltimateTreeItem* row = new UltimateTreeItem();
        row->setText(0, QStringLiteral("Status"));
        row->setUserData(new QJsonObject(nested));
        tree()->addRow(row);
        tree()->addRow(makeRow(QStringLiteral("Other")));
        tree()->setCurrentRow(row);
        tree()->setFocus();
        QTest::keyClick(tree(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(),
                 QStringLiteral("VELMORAHUD") + QString::fromUtf8(QJsonDocument(nested).toJson(QJsonDocument::Compact)));

        // The menu offers the paste with the record's name.
        QMenu menu;
        list->setupContextActions(&menu, nullptr, nullptr, nullptr);
        QList<QAction*> actions = menu.actions();
        list->updateContextActions(actions, row, QStringLiteral("Status"), 1, 2, 3);
        QVERIFY(actions.at(3)->isVisible());

        // Paste goes behind the current row, with the whole record.
        QTest::keyClick(tree(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(tree()->rowCount(), 3);
        QCOMPARE(filled, 1);
        QCOMPARE(*tree()->row(1)->userData(), nested);
        QCOMPARE(tree()->currentRow(), row);

        // Another list's word, or text that isn't an object: refused.
        for (const QString& foreign : {QStringLiteral("UIPROPANIMATION{\"Name\":\"x\"}"),
                                       QStringLiteral("VELMORAHUD[1,2]"), QStringLiteral("VELMORAHUD{broken"),
                                       QStringLiteral("{\"Name\":\"no word\"}")}) {
            QApplication::clipboard()->setText(foreign);
            list->updateContextActions(actions, row, QStringLiteral("Status"), 1, 2, 3);
            QVERIFY2(!actions.at(3)->isVisible(), qPrintable(foreign));
            list->pasteCurrentItem();
            QCOMPARE(tree()->rowCount(), 3);
        }
    }

    void cutSelectsTheNeighbourAndFreesOnce()
    {
        UltimateTreeWidget::setupStandardDatabaseList(list.get());
        tree()->setFiller(true, QString());
        list->setClipboardId(QStringLiteral("VELMOCOMP"));
        logDeletes();
        for (const char* name : {"One", "Two", "Three"})
            tree()->addRow(makeRow(QString::fromLatin1(name)));
        UltimateTreeItem* two = tree()->row(1);
        two->addChild(makeRow(QStringLiteral("Two child")));
        int checked = 0;
        list->setDeleteCheck([&checked](UltimateTreeItem* row) {
            ++checked;
            return row->text(0) != QLatin1String("Three");
        });

        list->cutCurrentItem(tree()->row(2));
        QCOMPARE(checked, 1);
        QCOMPARE(tree()->rowCount(), 3);

        tree()->setCurrentRow(two);
        list->cutCurrentItem();
        QCOMPARE(tree()->currentRow()->text(0), QStringLiteral("Three"));
        QVERIFY(QApplication::clipboard()->text().startsWith(QStringLiteral("VELMOCOMP{\"Name\":\"Two\"}")));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(log.freed.value(QStringLiteral("Two")), 1);
        QCOMPARE(log.freed.value(QStringLiteral("Two child")), 1);

        list->setDeleteCheck(nullptr);
        list->cutCurrentItem();
        list->cutCurrentItem();
        // The last row gone: the "+" row is current, and no row is.
        QCOMPARE(tree()->rowCount(), 0);
        QCOMPARE(tree()->currentRow(), nullptr);

        // Rows still waiting for deletion are freed with the list, once.
        tree()->addRow(makeRow(QStringLiteral("Last")));
        tree()->deleteRow(tree()->row(0));
        list.reset();
        QCOMPARE(log.freed, (QMap<QString, int>{{"One", 1}, {"Two", 1}, {"Two child", 1}, {"Three", 1}, {"Last", 1}}));
    }

    // The current row, or a child of it, deleted without a new choice used to
    // leave the list pointing at the freed row.
    void deletingTheCurrentRowLeavesNoCurrent()
    {
        UltimateTreeWidget::setupStandardDatabaseList(list.get());
        for (const char* name : {"One", "Two"})
            tree()->addRow(makeRow(QString::fromLatin1(name), true));
        tree()->row(1)->addChild(makeRow(QStringLiteral("Inner")));
        tree()->row(1)->expand();

        tree()->setCurrentRow(tree()->row(0));
        tree()->deleteRow(tree()->row(0));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(tree()->currentRow(), nullptr);

        tree()->setCurrentRow(tree()->row(0)->child(0));
        tree()->deleteRow(tree()->row(0));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(tree()->rowCount(), 0);
        QCOMPARE(tree()->currentRow(), nullptr);
        // Keys that act on the current row find none and do nothing.
        QTest::keyClick(tree()->viewport(), Qt::Key_Down);
        QTest::keyClick(tree()->viewport(), Qt::Key_Up);
        QCOMPARE(tree()->currentRow(), nullptr);
    }

};

VELMORA_TEST_MAIN(TestUltimateTree, QApplication)
#include "tst_ultimatetree.moc"
