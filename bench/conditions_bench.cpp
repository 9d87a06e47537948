// Times the condition list on 500 conditions of every kind: opening it until
// it is shown and painted, dragging a row through the list (per mouse move,
// with the repaint), and confirming it back into the array. Prints medians
// in milliseconds over the runs.
#include "logic/RMConditionList.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>
#include <QMouseEvent>
#include <QPushButton>
#include <QTextStream>

#include <algorithm>
#include <vector>

namespace {

QJsonArray names(const char* prefix, int count)
{
    QJsonArray all{QString()};
    for (int i = 1; i <= count; ++i)
        all.append(QStringLiteral("%1 %2").arg(QLatin1String(prefix)).arg(i));
    return all;
}

QJsonArray records(const char* prefix, int count)
{
    QJsonArray all{QJsonValue()};
    for (int i = 1; i <= count; ++i)
        all.append(QJsonObject{{"id", i}, {"name", QStringLiteral("%1 %2").arg(QLatin1String(prefix)).arg(i)}});
    return all;
}

QJsonArray conditions(int count)
{
    const QJsonObject kinds[] = {
        {{"Type", 0}, {"ID", 3}, {"Value", true}},
        {{"Type", 1}, {"ID", 7}, {"Op", 3}, {"Value", 120}},
        {{"Type", 2}, {"ActorType", true}, {"Actor", 2}, {"Check", 3}, {"ID", 40}},
        {{"Type", 3}, {"EnemyType", false}, {"Enemy", 2}, {"Check", 1}, {"ID", 4}},
        {{"Type", 4}, {"State", 6}},
        {{"Type", 5}, {"Op", 2}, {"Value", QJsonObject{{"Type", 1}, {"ID", 5}}}},
        {{"Type", 6}, {"Key", 2}, {"State", 1}},
        {{"Type", 7}, {"Check", 1}, {"ID", 9}},
        {{"Type", 8}, {"Check", 2}},
        {{"Type", 9}, {"Code", "return $gameParty.size() > 1;"}},
        {{"Type", 10}, {"Param", "Speed"}},
        {{"Type", 11}, {"Param", "Mood"}, {"IsString", true}, {"Op", 1}, {"Value", "sad"}},
        {{"Type", 12}, {"Number1", QJsonObject{{"Type", 3}, {"ID", 2}}}, {"Op", 4},
         {"Number2", QJsonObject{{"Type", 0}, {"Number", 5}}}},
        {{"Type", 13}, {"Text1", QJsonObject{{"Type", 1}, {"Info", 8}}}, {"Op", 0},
         {"Text2", QJsonObject{{"Type", 0}, {"Text", "Town"}}}},
    };
    QJsonArray all;
    for (int i = 0; i < count; ++i)
        all.append(kinds[i % 14]);
    return all;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

// Rows are carried with the right button held.
void mouse(QWidget* viewport, QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, at, viewport->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::RightButton,
                      buttons, Qt::NoModifier);
    QApplication::sendEvent(viewport, &event);
}

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int runs = argc > 1 ? qMax(1, QString::fromLocal8Bit(argv[1]).toInt()) : 5;
    QTextStream out(stdout);
    QJsonObject projectData{
        {"System.json", QJsonObject{{"switches", names("Switch", 1000)}, {"variables", names("Var", 1000)}}},
        {"Actors.json", records("Actor", 1000)},   {"Skills.json", records("Skill", 1000)},
        {"States.json", records("State", 1000)},   {"Weapons.json", records("Weapon", 1000)},
        {"Enemies.json", records("Enemy", 1000)},
    };
    const QJsonArray source = conditions(500);

    std::vector<double> opened, painted, moves, slowest, confirmed;
    for (int run = 0; run < runs; ++run) {
        QJsonArray array = source;
        bool accepted = false;
        QElapsedTimer clock;
        clock.start();
        RMConditionList* list = new RMConditionList(&array, &accepted, &projectData, nullptr);
        list->show();
        opened.push_back(clock.nsecsElapsed() / 1e6);
        list->repaint();
        QApplication::processEvents();
        painted.push_back(clock.nsecsElapsed() / 1e6);

        // A row picked up near the top and carried down the visible rows.
        UltimateTree* tree = list->list()->tree();
        QWidget* viewport = tree->viewport();
        UltimateTreeItem* row = tree->row(1);
        const QPoint start = tree->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0));
        mouse(viewport, QEvent::MouseButtonPress, start, Qt::RightButton);
        mouse(viewport, QEvent::MouseMove, start + QPoint(0, 3), Qt::RightButton);
        std::vector<double> perMove;
        for (int step = 1; step <= 60; ++step) {
            const QPoint at(start.x(), start.y() + step * 3);
            clock.restart();
            mouse(viewport, QEvent::MouseMove, at, Qt::RightButton);
            viewport->repaint();
            perMove.push_back(clock.nsecsElapsed() / 1e6);
        }
        mouse(viewport, QEvent::MouseButtonRelease, QPoint(start.x(), start.y() + 180), Qt::NoButton);
        QApplication::processEvents();
        if (tree->row(1) == row)
            out << "the row didn't move\n";
        moves.push_back(median(perMove));
        slowest.push_back(*std::max_element(perMove.begin(), perMove.end()));

        clock.restart();
        list->confirmButton()->click();
        confirmed.push_back(clock.nsecsElapsed() / 1e6);
        if (!accepted || array.size() != source.size())
            out << "confirm lost conditions: " << array.size() << "\n";
        delete list;
        QApplication::processEvents();
    }
    out << "open 500 conditions, shown:   " << median(opened) << "\n";
    out << "open 500 conditions, painted: " << median(painted) << "\n";
    out << "drag, per mouse move (median): " << median(moves) << "\n";
    out << "drag, per mouse move (slowest): " << median(slowest) << "\n";
    out << "confirm:                       " << median(confirmed) << "\n";
    return 0;
}
