#include "EditorFixture.h"

#include "scene/StillLayer.h"

using namespace TestEnvironment;

namespace {

UIComponentBase* byId(GameUIEditorScene* scene, int id)
{
    for (UIComponentBase* component : scene->components()) {
        if (component->data().value("ID").toInt() == id)
            return component;
    }
    return nullptr;
}

// The largest difference of a colour channel between two pictures of one size.
int largestDifference(const QImage& a, const QImage& b)
{
    const QImage x = a.convertToFormat(QImage::Format_ARGB32);
    const QImage y = b.convertToFormat(QImage::Format_ARGB32);
    if (x.size() != y.size())
        return 256;
    int largest = 0;
    for (int row = 0; row < x.height(); ++row) {
        const QRgb* p = reinterpret_cast<const QRgb*>(x.constScanLine(row));
        const QRgb* q = reinterpret_cast<const QRgb*>(y.constScanLine(row));
        for (int column = 0; column < x.width(); ++column) {
            largest = qMax(largest, qAbs(qRed(p[column]) - qRed(q[column])));
            largest = qMax(largest, qAbs(qGreen(p[column]) - qGreen(q[column])));
            largest = qMax(largest, qAbs(qBlue(p[column]) - qBlue(q[column])));
        }
    }
    return largest;
}

}

// While a component is dragged, the components below it are drawn from the
// view's cached background. What the user sees must be exactly what the
// components themselves would draw, also when one of them changes mid-drag.
class TestStillLayer : public QObject
{
    Q_OBJECT

private slots:
    void aDragShowsTheCanvasAsTheComponentsDrawIt()
    {
        Editor editor;
        auto colored = [](QJsonObject json, const char* color) {
            QJsonObject shape = json.value("ShapeData").toObject();
            shape.insert("Color", color);
            json.insert("ShapeData", shape);
            return json;
        };
        // A big red square at the bottom, a group holding a green square, and
        // a blue square above the group.
        const QJsonObject bottom = colored(shape(1, 150, 150, 200, 200), "#ff0000");
        editor.scene->loadFromJson(QJsonArray{
            bottom, group(2, 100, 100, QJsonArray{colored(shape(3, 0, 0, 60, 60), "#00ff00")}),
            colored(shape(4, 250, 100, 60, 60), "#0000ff")});
        editor.show();
        UIComponentBase* red = byId(editor.scene, 1);
        UIComponentBase* green = byId(editor.scene, 3);
        UIComponentBase* blue = byId(editor.scene, 4);
        QVERIFY(red && green && blue);
        QWidget* viewport = editor.view->viewport();
        const auto shot = [&]() { return viewport->grab().toImage(); };
        const auto colorAt = [&](const QImage& image, const QPointF& point) {
            const QPoint at = editor.at(point);
            return pixel(image, at.x(), at.y());
        };

        // The green square dragged under the blue one (Ctrl: without snapping).
        QTest::mousePress(viewport, Qt::LeftButton, Qt::ControlModifier, editor.at(QPointF(100, 100)));
        moveWithButtons(viewport, editor.at(QPointF(170, 100)), Qt::LeftButton);
        moveWithButtons(viewport, editor.at(QPointF(240, 100)), Qt::LeftButton);
        QVERIFY(editor.scene->stillLayer().isActive());
        QVERIFY(red->inStillLayer && blue->inStillLayer);
        QVERIFY(!green->inStillLayer);
        const QImage during = shot();
        QVERIFY(nearColor(colorAt(during, QPointF(215, 100)), Qt::green));
        QVERIFY(nearColor(colorAt(during, QPointF(250, 100)), Qt::blue));
        QVERIFY(nearColor(colorAt(during, QPointF(120, 200)), Qt::red));
        QVERIFY(nearColor(colorAt(during, QPointF(60, 240)), Qt::red));

        // A change to a component in the layer shows at once, and the next
        // move keeps showing it.
        red->setData(colored(bottom, "#ffff00"));
        QVERIFY(nearColor(colorAt(shot(), QPointF(60, 240)), Qt::yellow));
        moveWithButtons(viewport, editor.at(QPointF(238, 100)), Qt::LeftButton);
        QVERIFY(red->inStillLayer);
        QVERIFY(nearColor(colorAt(shot(), QPointF(60, 240)), Qt::yellow));
        red->setVisible(false);
        QVERIFY(!nearColor(colorAt(shot(), QPointF(60, 240)), Qt::yellow));
        red->setVisible(true);
        // The same for one above the moving component.
        const QJsonObject top = blue->data();
        blue->setData(colored(top, "#ff00ff"));
        moveWithButtons(viewport, editor.at(QPointF(240, 100)), Qt::LeftButton);
        QVERIFY(blue->inStillLayer);
        QVERIFY(nearColor(colorAt(shot(), QPointF(250, 100)), Qt::magenta));
        const QImage layered = shot();

        // Let go: the components draw themselves again, pixel for pixel the same.
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, editor.at(QPointF(240, 100)));
        QVERIFY(!editor.scene->stillLayer().isActive());
        QVERIFY(!red->inStillLayer);
        // (The components above were blended into a picture of their own
        // first, which may round a channel differently by a step.)
        QVERIFY(largestDifference(shot(), layered) <= 2);
        QCOMPARE(green->absoluteXY(), QPoint(240, 100));

        // The bottom component, once selected, lies over the others: they
        // all go below it.
        editor.scene->select(red);
        QTest::mousePress(viewport, Qt::LeftButton, Qt::ControlModifier, editor.at(QPointF(60, 240)));
        moveWithButtons(viewport, editor.at(QPointF(70, 240)), Qt::LeftButton);
        QVERIFY(green->inStillLayer && blue->inStillLayer && !red->inStillLayer);
        QVERIFY(nearColor(colorAt(shot(), QPointF(80, 240)), Qt::yellow));
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, editor.at(QPointF(70, 240)));
    }
};

QTEST_MAIN(TestStillLayer)
#include "tst_stilllayer.moc"
