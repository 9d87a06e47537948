#include "TestEnvironment.h"

#include "theme/ThemeManager.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeItemButton.h"
#include "widgets/UltimateTreeItemFiller.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QJsonArray>
#include <QJsonDocument>
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
    }

    void clickingSelectsAndToggles()
    {
        buildList();
        QSignalSpy doubled(list.get(), &UltimateTreeWidget::itemDoubleClicked);
        UltimateTreeItem* b = tree()->row(1);
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(tree()->row(3)));
        QCOMPARE(tree()->currentRow(), tree()->row(3));

        // The arrow opens the row and leaves the selection where it was.
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(b, 10));
        QVERIFY(b->isExpanded());
        QCOMPARE(tree()->currentRow(), tree()->row(3));

        // The "+" row reports a null item and is never current for callers.
        const QPoint plus = tree()->mapFromScene(QPointF(60, tree()->fillerItem()->y() + 10));
        QTest::mouseDClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, plus);
        QCOMPARE(doubled.at(0).at(0).value<UltimateTreeItem*>(), nullptr);
        QCOMPARE(tree()->currentRow(), nullptr);

        // A double click that opens a dialog: its release goes to the dialog.
        // The next single click on the list still picks its row.
        QWidget* viewport = tree()->viewport();
        QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, pointOf(tree()->row(0)));
        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, pointOf(tree()->row(0)));
        QMouseEvent second(QEvent::MouseButtonDblClick, pointOf(tree()->row(0)), Qt::LeftButton, Qt::LeftButton,
                           Qt::NoModifier);
        QApplication::sendEvent(viewport, &second);
        QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, pointOf(tree()->row(3)), 500);
        QCOMPARE(tree()->currentRow(), tree()->row(3));
    }

    void dragMovesIntoAndOutOfParents()
    {
        buildList();
        UltimateTreeItem* b = tree()->row(1);
        UltimateTreeItem* e = tree()->row(4);
        QSignalSpy relocated(list.get(), &UltimateTreeWidget::itemRelocated);
        QSignalSpy menus(list.get(), &QWidget::customContextMenuRequested);
        tree()->setCurrentRow(e);
        QSignalSpy changed(list.get(), &UltimateTreeWidget::currentItemChanged);

        // Right of a closed row that takes children: its first child, opened.
        // E was current before and stays so: no change of the current row
        // is told, and the right button opens no menu.
        rightDrag(e, {QPoint(40, -10), QPoint(40, -28)});
        QCOMPARE(chain(tree()), QStringList({"A", "B", "C", "  E", "D"}));
        QCOMPARE(relocated.at(0).at(0).value<UltimateTreeItem*>(), e);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(menus.count(), 0);

        // Out of a parent: a sideways pull to the left picks E up; dropped
        // behind C with the pointer left of C's text, it lands at the top level.
        rightDrag(e, {QPoint(-30, 2)});
        QCOMPARE(TestEnvironment::rowTexts(list.get()), QStringList({"A", "B", "C", "E", "D"}));

        // Into an open parent: C (80..100 once B is open) pulled up over
        // B's lower half becomes its first child.
        b->expand();
        UltimateTreeItem* c = tree()->row(2);
        rightDrag(c, {QPoint(0, -30), QPoint(0, -62)});
        QCOMPARE(chain(tree()), QStringList({"A", "B", "  C", "  B1", "  B2", "  B3", "E", "D"}));

        // A row that can't take children never gets one: D dropped far right
        // behind E (which can't) lands as E's sibling.
        UltimateTreeItem* d = tree()->row(3);
        rightDrag(d, {QPoint(200, -5), QPoint(200, -8)});
        QCOMPARE(TestEnvironment::rowTexts(list.get()), QStringList({"A", "B", "E", "D"}));
        QCOMPARE(e->childCount(), 0);
    }

    void keysAndClearingDuringADrag()
    {
        buildList();
        // Keys do nothing while a row floats.
        QSignalSpy deletes(list.get(), &UltimateTreeWidget::onDeleteKeyPress);
        UltimateTreeItem* d = tree()->row(3);
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
        for (auto it = log.freed.begin(); it != log.freed.end(); ++it)
            QVERIFY2(it.value() == 1, qPrintable(it.key()));
        QCOMPARE(log.freed.size(), 8);
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

        // X2 comes with an open child; B1 is a child elsewhere and D is in
        // the list already, so neither moves, and X1 given twice joins once.
        UltimateTreeItem* x1 = makeRow(QStringLiteral("X1"));
        UltimateTreeItem* x2 = makeRow(QStringLiteral("X2"), true);
        x2->addChild(makeRow(QStringLiteral("X2a")));
        x2->expand();
        tree()->insertRows(2, {x1, x2, b->child(0), nullptr, d, x1, makeRow(QStringLiteral("X3"))});
        QCOMPARE(chain(tree()),
                 QStringList({"A", "B", "  B1", "  B2", "  B3", "X1", "X2", "  X2a", "X3", "C", "D", "E"}));
        QCOMPARE(tree()->currentRow(), c);

        // Taking B, X1 and X2 closes the gap; the rows are the caller's,
        // records and all.
        const QList<UltimateTreeItem*> taken = tree()->takeRows(1, 3);
        QCOMPARE(taken, QList<UltimateTreeItem*>({b, x1, x2}));
        QCOMPARE(chain(tree()), QStringList({"A", "X3", "C", "D", "E"}));
        qDeleteAll(taken);
        QCOMPARE(log.freed.size(), 7);
        tree()->clear();
        QCOMPARE(tree()->firstVisibleRow(), nullptr);
        QCOMPARE(log.freed.size(), 12);
        for (auto it = log.freed.begin(); it != log.freed.end(); ++it)
            QVERIFY2(it.value() == 1, qPrintable(it.key()));
    }

    void clipboardCopyAndPaste()
    {
        UltimateTreeWidget::setupStandardDatabaseList(list.get());
        list->setClipboardId(QStringLiteral("VELMORAHUD"));
        tree()->setFiller(true, QString());
        list->connectClipboardKeys();
        list->setListFunctions([](QJsonObject* record) { return record->value(QStringLiteral("Name")).toString(); },
                               [](UltimateTreeItem* row, QJsonObject* record) {
                                   row->setText(0, record->value(QStringLiteral("Name")).toString());
                               });
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

        // Paste goes behind the current row, with the whole record.
        QTest::keyClick(tree(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(tree()->rowCount(), 3);
        QCOMPARE(*tree()->row(1)->userData(), nested);
        QCOMPARE(tree()->currentRow(), row);

        // Another list's word, or text that isn't an object: refused.
        for (const QString& foreign : {QStringLiteral("UIPROPANIMATION{\"Name\":\"x\"}"), QStringLiteral("VELMORAHUD{broken")}) {
            QApplication::clipboard()->setText(foreign);
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
        // A row its check refuses stays.
        list->setDeleteCheck([](UltimateTreeItem* row) { return row->text(0) != QLatin1String("Three"); });
        list->cutCurrentItem(tree()->row(2));
        QCOMPARE(tree()->rowCount(), 3);

        tree()->setCurrentRow(two);
        list->cutCurrentItem();
        QCOMPARE(tree()->currentRow()->text(0), QStringLiteral("Three"));
        QVERIFY(QApplication::clipboard()->text().startsWith(QStringLiteral("VELMOCOMP{\"Name\":\"Two\"}")));

        // The last row gone: the "+" row is current, and no row is.
        list->setDeleteCheck(nullptr);
        list->cutCurrentItem();
        list->cutCurrentItem();
        QCOMPARE(tree()->rowCount(), 0);
        QCOMPARE(tree()->currentRow(), nullptr);

        // Rows still waiting for deletion are freed with the list, once.
        tree()->addRow(makeRow(QStringLiteral("Last")));
        tree()->deleteRow(tree()->row(0));
        list.reset();
        QCOMPARE(log.freed, (QMap<QString, int>{{"One", 1}, {"Two", 1}, {"Two child", 1}, {"Three", 1}, {"Last", 1}}));
    }

    // A child of the current row deleted with its parent used to leave the
    // list pointing at the freed row; keys then find none and do nothing.
    void deletingTheCurrentRowLeavesNoCurrent()
    {
        UltimateTreeWidget::setupStandardDatabaseList(list.get());
        tree()->addRow(makeRow(QStringLiteral("One"), true));
        tree()->row(0)->addChild(makeRow(QStringLiteral("Inner")));
        tree()->row(0)->expand();
        tree()->setCurrentRow(tree()->row(0)->child(0));
        tree()->deleteRow(tree()->row(0));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(tree()->currentRow(), nullptr);
        QTest::keyClick(tree()->viewport(), Qt::Key_Down);
        QCOMPARE(tree()->currentRow(), nullptr);
    }
};

VELMORA_TEST_MAIN(TestUltimateTree, QApplication)
#include "tst_ultimatetree.moc"
