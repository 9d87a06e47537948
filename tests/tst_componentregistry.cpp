#include "TestEnvironment.h"

#include "components/ComponentKinds.h"
#include "components/ComponentScale.h"
#include "components/GameUIEditorSceneHelper.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <memory>

namespace {

using Helper = GameUIEditorSceneHelper<VelmoUISelector>;

std::unique_ptr<UIComponentBase> create(const QJsonObject& json, GameUIEditorScene* scene = nullptr,
                                        bool flag = true)
{
    Helper helper;
    QJsonObject projectData;
    return std::unique_ptr<UIComponentBase>(helper.createComponent(json, scene, &projectData, flag));
}

// Every component object of the document, children included, depth first.
void collect(const QJsonArray& components, QList<QJsonObject>& into)
{
    for (const QJsonValue& value : components) {
        into << value.toObject();
        collect(value.toObject().value("Children").toArray(), into);
    }
}

}

class TestComponentRegistry : public QObject
{
    Q_OBJECT

private slots:
    // Capabilities and limits of the kinds whose answers differ from the
    // plain picture kinds: limits that follow their data, containers, and the
    // custom kinds that keep the 100 by 100 they have without a custom HUD.
    void kinds_data()
    {
        QTest::addColumn<QJsonObject>("json");
        QTest::addColumn<bool>("children");
        QTest::addColumn<bool>("resize");
        QTest::addColumn<bool>("rotate");
        QTest::addColumn<QVector<int>>("limits"); // minimum and maximum width, then height
        auto kind = [](int type, const QJsonObject& extra = {}) {
            QJsonObject json = extra;
            json.insert("ID", 7);
            json.insert("Type", type);
            return json;
        };
        // Without a skin a picture gauge is 24 high; its width at least two caps.
        QTest::newRow("Picture Gauge, margin 60") << kind(5, {{"PictureGaugeData", QJsonObject{{"EdgeMargin", 60}}}})
                                                  << false << true << true << QVector<int>{120, 5000, 24, 24};
        QTest::newRow("Group") << kind(6) << true << false << false << QVector<int>{50, 50, 50, 50};
        QTest::newRow("Window, margin 30") << kind(7, {{"WindowData", QJsonObject{{"Padding", 10}, {"Margin", 30}}}})
                                           << true << true << false << QVector<int>{60, 5000, 60, 5000};
        QTest::newRow("Attach Collection") << kind(12) << false << false << false << QVector<int>{100, 100, 100, 100};
    }

    void kinds()
    {
        QFETCH(QJsonObject, json);
        QFETCH(bool, children);
        QFETCH(bool, resize);
        QFETCH(bool, rotate);
        QFETCH(QVector<int>, limits);
        GameUIEditorScene scene;
        const auto component = create(json, &scene);
        QCOMPARE(component->canHaveChildren(), children);
        QCOMPARE(component->canResize(), resize);
        QCOMPARE(component->canRotate(), rotate);
        QCOMPARE((QVector<int>{component->minimumWidth(), component->maximumWidth(), component->minimumHeight(),
                               component->maximumHeight()}),
                 limits);
    }

    void unknownTypesLoadAsThePlainRectangle_data()
    {
        QTest::addColumn<QJsonValue>("type");
        QTest::newRow("14") << QJsonValue(14);
        QTest::newRow("-1") << QJsonValue(-1);
        QTest::newRow("missing") << QJsonValue(QJsonValue::Undefined);
        QTest::newRow("text") << QJsonValue("3");
    }

    void unknownTypesLoadAsThePlainRectangle()
    {
        QFETCH(QJsonValue, type);
        QJsonObject json{{"ID", 9}, {"X", 40}, {"Y", 30}, {"Rotation", 15}, {"Opacity", 0.25},
                         {"FutureData", QJsonObject{{"Layers", QJsonArray{1, 2, 3}}}}};
        if (!type.isUndefined())
            json.insert("Type", type);
        const auto component = create(json);
        QCOMPARE(component->metaObject(), &UIComponentBase::staticMetaObject);
        QCOMPARE(QSize(component->width, component->height), QSize(100, 100));
        QCOMPARE(component->pos(), QPointF(40, 30));
        QCOMPARE(component->data(), json);
    }

    void flagBecomesHudLevel()
    {
        QVERIFY(create({{"Type", 1}}, nullptr, true)->hudLevel);
        QVERIFY(!create({{"Type", 1}}, nullptr, false)->hudLevel);
    }

    // Every component of a realistic document, of every kind and of unknown
    // ones, with nested data, conditions, add-ons, animations and unknown
    // keys, comes back from its live component exactly as it went in.
    void realisticComponentsComeBackWhole()
    {
        QFile file(QStringLiteral(VELMORA_TEST_DATA "/full_document.json"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QJsonObject document = QJsonDocument::fromJson(file.readAll()).object();
        QList<QJsonObject> objects;
        for (const QJsonValue& hud : document.value("Data").toArray())
            collect(hud.toObject().value("HUD").toArray(), objects);
        QSet<int> types;
        GameUIEditorScene scene;
        for (const QJsonObject& object : qAsConst(objects)) {
            types.insert(object.value("Type").toInt(-1));
            const auto component = create(object, &scene);
            QCOMPARE(component->data(), object);
            // After a move only X and Y differ.
            component->moveX(3);
            component->moveY(-2);
            QJsonObject moved = object;
            moved.insert("X", object.value("X").toInt() + 3);
            moved.insert("Y", object.value("Y").toInt() - 2);
            QCOMPARE(component->data(), moved);
        }
        for (int type = -1; type <= 14; ++type)
            QVERIFY2(types.contains(type), qPrintable(QString::number(type)));
    }

    void scaleKindsKeepTheirScalesUntilResized()
    {
        ComponentScale scale;
        scale.read(QJsonObject{{"ScaleX", 0.833333}, {"ScaleY", 2}});
        QCOMPARE(scale.sizeFor(QSize(100, 30)), QSize(83, 60));
        QJsonObject json{{"ScaleX", 0.833333}, {"ScaleY", 2}};
        scale.write(json, QSize(83, 60), QSize(100, 30));
        QCOMPARE(json.value("ScaleX").toDouble(), 0.833333);

        // After a resize the ratio of the new size is written; a side at its
        // natural size is exactly 1.0.
        scale.forget();
        scale.write(json, QSize(150, 30), QSize(100, 30));
        QCOMPARE(json.value("ScaleX").toDouble(), 1.5);
        QCOMPARE(json.value("ScaleY").toDouble(), 1.0);
    }

};

VELMORA_TEST_MAIN(TestComponentRegistry, QApplication)
#include "tst_componentregistry.moc"
