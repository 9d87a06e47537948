// Times the opening of a component's property dialog: a double-click on the
// component's row in the component list until the dialog is shown and until
// it has painted itself, for a component with 200 property animations and
// 200 custom properties (the project's stored order for them included).
// Then a component with 500 animations: the opening, each move of a row
// dragged through the animation list, and the confirmation until the scene
// has taken the new object. Prints the medians of the runs in milliseconds.
#include "BenchHud.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QMouseEvent>
#include <QPushButton>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

QJsonObject heavyComponent(int animationCount, int propertyCount)
{
    QJsonArray animations;
    QJsonObject properties;
    for (int i = 0; i < animationCount; ++i) {
        const int property = i % 13;
        animations.append(QJsonObject{{"Property", property},
                                      {"Duration", 30 + i},
                                      {"StartX", i},
                                      {"EndX", -i},
                                      {"StartOpacity", 0.25},
                                      {"EndOpacity", 1},
                                      {"ActivateType", QJsonObject{{"Type", 0}, {"RunType", 1}}}});
    }
    for (int i = 0; i < propertyCount; ++i) {
        const QString name = QStringLiteral("Property %1").arg(i, 3, 10, QLatin1Char('0'));
        properties.insert(name, QStringLiteral("value %1\nsecond line").arg(i));
    }
    return QJsonObject{{"ID", 1},
                       {"Type", 0},
                       {"Name", "Heavy"},
                       {"X", 300},
                       {"Y", 200},
                       {"Animations", animations},
                       {"CustomProperties", properties},
                       {"TextData", QJsonObject{{"Text", QJsonObject{{"Type", 0}, {"Text", "Heavy"}}}}}};
}

// Notes when the first property dialog is shown, and when the event loop
// has come round after the dialog and its widgets painted; then hands the
// dialog to whatever the run does with it, which closes it.
class Stopwatch : public QObject
{
public:
    QElapsedTimer clock;
    double shown = -1;
    double painted = -1;
    std::function<void(UIComponentBaseDialog*)> afterPaint = [](UIComponentBaseDialog* dialog) { dialog->reject(); };

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        QWidget* widget = qobject_cast<QWidget*>(watched);
        UIComponentBaseDialog* dialog = widget ? qobject_cast<UIComponentBaseDialog*>(widget->window()) : nullptr;
        if (!dialog)
            return false;
        if (event->type() == QEvent::Paint)
            ++paints;
        if (event->type() == QEvent::Show && watched == dialog && shown < 0) {
            shown = clock.nsecsElapsed() / 1e6;
            waitForPaint(dialog);
        }
        return false;
    }

private:
    void waitForPaint(UIComponentBaseDialog* dialog)
    {
        QTimer::singleShot(0, dialog, [this, dialog]() {
            if (paints == 0) {
                waitForPaint(dialog);
                return;
            }
            painted = clock.nsecsElapsed() / 1e6;
            afterPaint(dialog);
        });
    }

    int paints = 0;
};

void mouse(QWidget* widget, QEvent::Type type, const QPoint& point, Qt::MouseButton button,
           Qt::MouseButtons buttons)
{
    QMouseEvent event(type, point, widget->mapToGlobal(point), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

// Drags rows of the animation list with the right button, as a user
// reorders them, and times each move with the repaint that follows it.
void dragRows(UltimateTreeWidget* list, std::vector<double>& moves)
{
    UltimateTree* tree = list->tree();
    QWidget* viewport = tree->viewport();
    QElapsedTimer clock;
    for (int drag = 0; drag < 4; ++drag) {
        UltimateTreeItem* row = tree->row(drag);
        const QPoint start = tree->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0));
        mouse(viewport, QEvent::MouseButtonPress, start, Qt::RightButton, Qt::RightButton);
        QPoint at = start;
        for (int step = 1; step <= 12; ++step) {
            at = start + QPoint(0, step * 9);
            clock.start();
            mouse(viewport, QEvent::MouseMove, at, Qt::NoButton, Qt::RightButton);
            QApplication::processEvents();
            moves.push_back(clock.nsecsElapsed() / 1e6);
        }
        clock.start();
        mouse(viewport, QEvent::MouseButtonRelease, at, Qt::RightButton, Qt::NoButton);
        QApplication::processEvents();
        moves.push_back(clock.nsecsElapsed() / 1e6);
    }
}

struct Opened {
    // The component's animations after the last run.
    QJsonArray animations;
    std::vector<double> shown;
    std::vector<double> painted;
    std::vector<double> moves;
    std::vector<double> confirmed;
};

// Opens the component's dialog by a double-click on its row, runs times over.
Opened open(const QJsonObject& component, QJsonObject* projectData, int runs, bool dragAndConfirm)
{
    BenchHud::Editor editor;
    editor.scene()->setProjectData(projectData);
    editor.scene()->loadFromJson(QJsonArray{component});
    UltimateTree* tree = editor.list.tree();
    UltimateTreeItem* row = tree->row(0);
    const QPoint point = tree->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0));

    Opened opened;
    for (int run = 0; run < runs; ++run) {
        Stopwatch watch;
        QElapsedTimer confirmClock;
        if (dragAndConfirm) {
            watch.afterPaint = [&](UIComponentBaseDialog* dialog) {
                dragRows(dialog->findChild<UltimateTreeWidget*>(QStringLiteral("animations")), opened.moves);
                confirmClock.start();
                dialog->findChild<QPushButton*>(QStringLiteral("confirmButton"))->click();
            };
        }
        qApp->installEventFilter(&watch);
        QMouseEvent doubleClick(QEvent::MouseButtonDblClick, point, tree->viewport()->mapToGlobal(point),
                                Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        watch.clock.start();
        QApplication::sendEvent(tree->viewport(), &doubleClick);
        // The double-click returns once the scene has applied the dialog's object.
        if (dragAndConfirm)
            opened.confirmed.push_back(confirmClock.nsecsElapsed() / 1e6);
        qApp->removeEventFilter(&watch);
        opened.shown.push_back(watch.shown);
        opened.painted.push_back(watch.painted);
        QApplication::processEvents();
    }
    opened.animations = editor.scene()->components().value(0)->data().value(QStringLiteral("Animations")).toArray();
    return opened;
}

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int runs = argc > 1 ? qMax(1, QString::fromLocal8Bit(argv[1]).toInt()) : 5;
    QTextStream out(stdout);
    QJsonObject projectData;
    QJsonObject orders;
    const QJsonObject component = heavyComponent(200, 200);
    QJsonArray order;
    for (auto it = component.value("CustomProperties").toObject().constBegin();
         it != component.value("CustomProperties").toObject().constEnd(); ++it)
        order.prepend(it.key());
    orders.insert(QStringLiteral("UILoc1ID1"), order);
    projectData.insert(QStringLiteral("PropertyOrders.json"), orders);

    const Opened heavy = open(component, &projectData, runs, false);
    out << "double-click to shown: " << BenchHud::median(heavy.shown) << "\n";
    out << "double-click to painted: " << BenchHud::median(heavy.painted) << "\n";

    const Opened animated = open(heavyComponent(500, 0), &projectData, runs, true);
    out << "500 animations, double-click to shown: " << BenchHud::median(animated.shown) << "\n";
    out << "500 animations, double-click to painted: " << BenchHud::median(animated.painted) << "\n";
    out << "500 animations, drag move: median " << BenchHud::median(animated.moves) << ", slowest "
        << *std::max_element(animated.moves.begin(), animated.moves.end()) << "\n";
    out << "500 animations, confirm to applied: " << BenchHud::median(animated.confirmed) << "\n";
    // The drags did reorder: the entry that stood first (duration 30) moved down.
    out << "500 animations kept: " << animated.animations.size() << ", first entry's duration now "
        << animated.animations.at(0).toObject().value(QStringLiteral("Duration")).toInt() << "\n";
    return 0;
}
