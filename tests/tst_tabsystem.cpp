#include "TestEnvironment.h"

#include "theme/ThemeManager.h"
#include "widgets/MyTabSystem.h"
#include "widgets/MyTabSystemHeader.h"
#include "widgets/MyTabSystemHelper.h"

#include <QApplication>
#include <QLabel>
#include <QSequentialAnimationGroup>

namespace {

struct Tabs {
    MyTabSystem system;
    QList<QLabel*> pages;

    explicit Tabs(int count, bool twoRows = false, bool vertical = false)
    {
        if (twoRows)
            system.enableTwoRows();
        system.setVertical(vertical);
        for (int i = 0; i < count; ++i) {
            QLabel* page = new QLabel(QStringLiteral("Page %1").arg(i));
            pages.append(page);
            system.addTab(QStringLiteral("Tab %1").arg(i), page);
        }
        system.resize(600, 300);
        system.show();
        QVERIFY(QTest::qWaitForWindowExposed(&system));
    }

    QList<QWidget*> visiblePages() const
    {
        QList<QWidget*> visible;
        for (QLabel* page : pages) {
            if (page->isVisible())
                visible.append(page);
        }
        return visible;
    }

    bool running() const
    {
        for (QSequentialAnimationGroup* group : system.findChildren<QSequentialAnimationGroup*>()) {
            if (group->state() == QAbstractAnimation::Running)
                return true;
        }
        return false;
    }

    // Clicks the tab that stands n-th on a header.
    void click(MyTabSystemHeader* header, int n)
    {
        QTest::mouseClick(header, Qt::LeftButton, Qt::NoModifier, header->tabRect(n).center());
    }
};

}

class TestTabSystem : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        Theme::installDefault();
        Theme::refreshCachedColors();
    }

    void settingWithoutAnimationIsQuiet()
    {
        Tabs tabs(3);
        QSignalSpy changed(&tabs.system, &MyTabSystem::currentChanged);
        tabs.system.setCurrentIndex(2, true, true);
        QCOMPARE(changed.count(), 0);
        QVERIFY(!tabs.running());
        QCOMPARE(tabs.visiblePages(), QList<QWidget*>{tabs.pages.at(2)});
        // The same index again changes nothing.
        tabs.system.setCurrentIndex(2);
        QCOMPARE(changed.count(), 0);

        tabs.system.skipNextAnimation();
        tabs.system.setCurrentIndex(1);
        QVERIFY(!tabs.running());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(tabs.visiblePages(), QList<QWidget*>{tabs.pages.at(1)});
    }

    // A click during a transition ends on the page last chosen, with nothing
    // of the discarded transition left standing.
    void switchingDuringATransition_data()
    {
        QTest::addColumn<int>("style");
        QTest::newRow("slide") << int(MyTabSystem::Slide);
        QTest::newRow("fade") << int(MyTabSystem::Fade);
    }

    void switchingDuringATransition()
    {
        QFETCH(int, style);
        Tabs tabs(4);
        tabs.system.setTransitionStyle(style);
        QSignalSpy changed(&tabs.system, &MyTabSystem::currentChanged);
        tabs.click(tabs.system.header(), 1);
        QCOMPARE(changed.count(), 1);
        // Somewhere along the way, wherever a loaded machine has got to.
        QTest::qWait(40);
        tabs.click(tabs.system.header(), 3);
        tabs.click(tabs.system.header(), 2);
        QVERIFY(tabs.running());
        QCOMPARE(tabs.system.currentIndex(), 2);
        QTRY_VERIFY(!tabs.running());
        QTRY_COMPARE(tabs.visiblePages(), QList<QWidget*>{tabs.pages.at(2)});
        QCOMPARE(tabs.pages.at(2)->geometry(), tabs.system.pageArea());
        // Only the header and the pages remain as widgets of the system.
        QTRY_COMPARE(tabs.system.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).size(), 1 + 4);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(tabs.system.tab(i)->isSelected(), i == 2);
    }

    void twoRowsCountTheTopRowFirst()
    {
        Tabs tabs(10, true);
        QCOMPARE(tabs.system.secondHeader()->count(), 5);
        // The second page added is the first tab of the bottom row: index 5.
        QCOMPARE(tabs.system.page(5), tabs.pages.at(1));
        tabs.click(tabs.system.secondHeader(), 0);
        QCOMPARE(tabs.system.currentIndex(), 5);
        QTRY_COMPARE(tabs.visiblePages(), QList<QWidget*>{tabs.pages.at(1)});

        // An odd count puts the extra tab in the top row.
        Tabs odd(7, true);
        for (int index = 0; index < 7; ++index)
            QCOMPARE(odd.system.indexOf(odd.system.positionOf(index)), index);
        QCOMPARE(odd.system.positionOf(3), 6);
        QCOMPARE(odd.system.positionOf(4), 1);
    }

    void aColumnHeaderHitsByRow()
    {
        Tabs column(5, false, true);
        MyTabSystemHeader* side = column.system.header();
        QCOMPARE(side->tabAt(QPoint(20, 5 * 30 + 2)), -1);
        QTest::mouseClick(side, Qt::LeftButton, Qt::NoModifier, QPoint(40, 4 * 30 + 10));
        QCOMPARE(column.system.currentIndex(), 4);
        QTRY_COMPARE(column.visiblePages(), QList<QWidget*>{column.pages.at(4)});
    }

};

VELMORA_TEST_MAIN(TestTabSystem, QApplication)
#include "tst_tabsystem.moc"
