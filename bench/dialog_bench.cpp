// Times the opening of a component's property dialog: a double-click on the
// component's row in the component list until the dialog is shown and until
// it has painted itself, for a component with 200 property animations and
// 200 custom properties (the project's stored order for them included).
// Prints the median of the runs in milliseconds.
#include "BenchHud.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QMouseEvent>
#include <QTextStream>
#include <QTimer>

#include <vector>

namespace {

QJsonObject heavyComponent()
{
    QJsonArray animations;
    QJsonObject properties;
    QJsonArray order;
    for (int i = 0; i < 200; ++i) {
        const int property = i % 13;
        animations.append(QJsonObject{{"Property", property},
                                      {"Duration", 30 + i},
                                      {"StartX", i},
                                      {"EndX", -i},
                                      {"StartOpacity", 0.25},
                                      {"EndOpacity", 1},
                                      {"ActivateType", QJsonObject{{"Type", 0}, {"RunType", 1}}}});
        const QString name = QStringLiteral("Property %1").arg(i, 3, 10, QLatin1Char('0'));
        properties.insert(name, QStringLiteral("value %1\nsecond line").arg(i));
        order.prepend(name);
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
// has come round after the dialog and its widgets painted; then closes it.
class Stopwatch : public QObject
{
public:
    QElapsedTimer clock;
    double shown = -1;
    double painted = -1;

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
            dialog->reject();
        });
    }

    int paints = 0;
};

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int runs = argc > 1 ? qMax(1, QString::fromLocal8Bit(argv[1]).toInt()) : 5;
    QTextStream out(stdout);
    QJsonObject projectData;
    QJsonObject orders;
    const QJsonObject component = heavyComponent();
    QJsonArray order;
    for (auto it = component.value("CustomProperties").toObject().constBegin();
         it != component.value("CustomProperties").toObject().constEnd(); ++it)
        order.prepend(it.key());
    orders.insert(QStringLiteral("UILoc1ID1"), order);
    projectData.insert(QStringLiteral("PropertyOrders.json"), orders);

    BenchHud::Editor editor;
    editor.scene()->setProjectData(&projectData);
    editor.scene()->loadFromJson(QJsonArray{component});
    UltimateTree* tree = editor.list.tree();
    UltimateTreeItem* row = tree->row(0);
    const QPoint point = tree->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0));

    std::vector<double> shown;
    std::vector<double> painted;
    for (int run = 0; run < runs; ++run) {
        Stopwatch watch;
        qApp->installEventFilter(&watch);
        QMouseEvent doubleClick(QEvent::MouseButtonDblClick, point, tree->viewport()->mapToGlobal(point),
                                Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        watch.clock.start();
        QApplication::sendEvent(tree->viewport(), &doubleClick);
        qApp->removeEventFilter(&watch);
        shown.push_back(watch.shown);
        painted.push_back(watch.painted);
        QApplication::processEvents();
    }
    out << "double-click to shown: " << BenchHud::median(shown) << "\n";
    out << "double-click to painted: " << BenchHud::median(painted) << "\n";
    return 0;
}
