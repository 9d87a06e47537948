// Times the program's list on a big nested list: filling 5,000 rows in three
// levels, expanding every parent, selecting the last row and scrolling to it.
// Prints the median of several runs of each phase in milliseconds.
#include "theme/ThemeManager.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTextStream>

#include <algorithm>
#include <vector>

namespace {

struct Times {
    std::vector<double> fill, expand, select, scroll, clear;
    // A flat list of 10,000 rows, as the game-data pickers fill it.
    std::vector<double> flatSingle, flatClear, flatBulk, flatTake, flatPaint;
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// 100 top rows, each with 7 children holding 6 rows each: 5,000 rows.
void runOnce(Times& times)
{
    UltimateTreeWidget list;
    list.resize(300, 600);
    list.tree()->setColumnCount(2);
    list.tree()->setColumnWidth(0, 180);
    list.tree()->setFiller(true, QString());
    UltimateTreeWidget::setupStandardDatabaseList(&list);
    list.show();
    QApplication::processEvents();

    QElapsedTimer timer;
    timer.start();
    std::vector<UltimateTreeItem*> parents;
    UltimateTreeItem* last = nullptr;
    int count = 0;
    for (int top = 0; top < 100; ++top) {
        UltimateTreeItem* row = new UltimateTreeItem();
        row->setText(0, QStringLiteral("Window %1").arg(top));
        row->setText(1, QStringLiteral("Window"));
        row->setCanHaveChildren(true);
        row->setUserData(new QJsonObject{{QStringLiteral("ID"), top}});
        list.tree()->addRow(row);
        parents.push_back(row);
        ++count;
        for (int middle = 0; middle < 7; ++middle) {
            UltimateTreeItem* group = new UltimateTreeItem();
            group->setText(0, QStringLiteral("Group %1.%2").arg(top).arg(middle));
            group->setCanHaveChildren(true);
            group->setUserData(new QJsonObject());
            row->addChild(group);
            parents.push_back(group);
            ++count;
            for (int leaf = 0; leaf < 6; ++leaf) {
                UltimateTreeItem* item = new UltimateTreeItem();
                item->setText(0, QStringLiteral("Gauge %1.%2.%3").arg(top).arg(middle).arg(leaf));
                item->setText(1, QStringLiteral("Gauge"));
                item->setUserData(new QJsonObject());
                group->addChild(item);
                last = item;
                ++count;
            }
        }
    }
    times.fill.push_back(timer.nsecsElapsed() / 1e6);
    if (count != 5000)
        qFatal("expected 5000 rows, made %d", count);

    timer.restart();
    for (UltimateTreeItem* row : parents)
        row->expand();
    QApplication::processEvents();
    times.expand.push_back(timer.nsecsElapsed() / 1e6);

    timer.restart();
    list.tree()->setCurrentRow(last);
    QApplication::processEvents();
    times.select.push_back(timer.nsecsElapsed() / 1e6);

    timer.restart();
    list.ensureRowVisible(last);
    list.scrollToBottom();
    list.tree()->viewport()->repaint();
    times.scroll.push_back(timer.nsecsElapsed() / 1e6);

    timer.restart();
    list.tree()->clear();
    times.clear.push_back(timer.nsecsElapsed() / 1e6);
}

std::vector<UltimateTreeItem*> flatRows()
{
    std::vector<UltimateTreeItem*> made;
    made.reserve(10000);
    for (int i = 1; i <= 10000; ++i) {
        UltimateTreeItem* row = new UltimateTreeItem();
        row->setId(i);
        row->setText(0, QStringLiteral("%1 Class %2").arg(i, 4, 10, QLatin1Char('0')).arg(i));
        made.push_back(row);
    }
    return made;
}

// 10,000 top-level rows: added one at a time, cleared, added at once, the
// first 6,500 taken out and freed (a filter that keeps 3,500), a repaint.
// Each step runs to the end of the event loop's pass after it, where the
// graphics scene finishes the rows that came or went.
void runFlat(Times& times)
{
    UltimateTreeWidget list;
    list.resize(300, 600);
    list.tree()->setFiller(true, QString());
    UltimateTreeWidget::setupStandardDatabaseList(&list);
    list.show();
    QApplication::processEvents();

    std::vector<UltimateTreeItem*> made = flatRows();
    QElapsedTimer timer;
    timer.start();
    for (UltimateTreeItem* row : made)
        list.tree()->addRow(row);
    QApplication::processEvents();
    times.flatSingle.push_back(timer.nsecsElapsed() / 1e6);

    timer.restart();
    list.tree()->clear();
    QApplication::processEvents();
    times.flatClear.push_back(timer.nsecsElapsed() / 1e6);

    made = flatRows();
    timer.restart();
    list.tree()->addRows(QList<UltimateTreeItem*>(made.begin(), made.end()));
    QApplication::processEvents();
    times.flatBulk.push_back(timer.nsecsElapsed() / 1e6);
    if (list.tree()->rowCount() != 10000 || list.tree()->row(9999)->y() != 9999 * 20)
        qFatal("the bulk fill lost its order");

    timer.restart();
    qDeleteAll(list.tree()->takeRows(0, 6500));
    QApplication::processEvents();
    times.flatTake.push_back(timer.nsecsElapsed() / 1e6);

    timer.restart();
    list.tree()->viewport()->repaint();
    times.flatPaint.push_back(timer.nsecsElapsed() / 1e6);
}

}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Theme::installDefault();
    Theme::refreshCachedColors();
    const int runs = argc > 1 ? qMax(1, QString::fromLocal8Bit(argv[1]).toInt()) : 7;
    Times times;
    for (int i = 0; i < runs; ++i) {
        runOnce(times);
        runFlat(times);
    }
    QTextStream out(stdout);
    out << "tree of 5000 rows, median of " << runs << " runs (ms)\n";
    out << "fill    " << QString::number(median(times.fill), 'f', 1) << "\n";
    out << "expand  " << QString::number(median(times.expand), 'f', 1) << "\n";
    out << "select  " << QString::number(median(times.select), 'f', 1) << "\n";
    out << "scroll  " << QString::number(median(times.scroll), 'f', 1) << "\n";
    out << "clear   " << QString::number(median(times.clear), 'f', 1) << "\n";
    out << "flat list of 10000 rows, median of " << runs << " runs (ms)\n";
    out << "add one by one  " << QString::number(median(times.flatSingle), 'f', 1) << "\n";
    out << "clear           " << QString::number(median(times.flatClear), 'f', 1) << "\n";
    out << "add at once     " << QString::number(median(times.flatBulk), 'f', 1) << "\n";
    out << "take first 6500 " << QString::number(median(times.flatTake), 'f', 1) << "\n";
    out << "repaint         " << QString::number(median(times.flatPaint), 'f', 1) << "\n";
    return 0;
}
