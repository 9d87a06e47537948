#include "TestEnvironment.h"

#include "components/ComponentKinds.h"
#include "components/ComponentScale.h"
#include "components/GameUIEditorSceneHelper.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UIComponentBase.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QSet>
#include <QTimer>

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
    void kindTable_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("dataKey");
        QTest::addColumn<QString>("title");
        QTest::newRow("Text") << 0 << "Text" << "text" << "TextData" << "Text (ID 7)";
        QTest::newRow("Shape") << 1 << "Shape" << "shape" << "ShapeData" << "Shape (ID 7)";
        QTest::newRow("Picture") << 2 << "Picture" << "picture" << "PictureData" << "Picture (ID 7)";
        QTest::newRow("Repeating Picture") << 3 << "Repeating Picture" << "repeatingPicture" << "RepeatData"
                                           << "Repeat Pic. (ID 7)";
        QTest::newRow("Gauge") << 4 << "Gauge" << "gauge" << "GaugeData" << "Gauge (ID 7)";
        QTest::newRow("Picture Gauge") << 5 << "Picture Gauge" << "pictureGauge" << "PictureGaugeData"
                                       << "Picture Gauge (ID 7)";
        QTest::newRow("Group") << 6 << "Group" << "container" << "GroupData" << "Group (ID 7)";
        QTest::newRow("Window") << 7 << "Window" << "window" << "WindowData" << "Window (ID 7)";
        QTest::newRow("Actor Face") << 8 << "Actor Face" << "actorFace" << "ActorFaceData" << "Actor Face (ID 7)";
        QTest::newRow("Icon") << 9 << "Icon" << "icon" << "IconData" << "Icon (ID 7)";
        QTest::newRow("Custom") << 10 << "Custom" << "custom" << "CustomData" << "Custom (ID 7)";
        QTest::newRow("Custom Collection") << 11 << "Custom Collection" << "customCollection"
                                           << "CustomCollectionData" << "Custom Collection (ID 7)";
        QTest::newRow("Attach Collection") << 12 << "Attach Collection" << "attachCollection"
                                           << "AttachCollectionData" << "Attach Collection (ID 7)";
        QTest::newRow("Animation") << 13 << "Animation" << "animation" << "AnimationData" << "Animation (ID 7)";
    }

    void kindTable()
    {
        QFETCH(int, type);
        QFETCH(QString, label);
        QFETCH(QString, button);
        QFETCH(QString, dataKey);
        QFETCH(QString, title);
        const ComponentKinds::Kind* kind = ComponentKinds::find(type);
        QVERIFY(kind);
        QCOMPARE(kind->type, type);
        QCOMPARE(ComponentKinds::label(type), label);
        QCOMPARE(QString::fromLatin1(kind->button), button);
        QCOMPARE(QString::fromLatin1(kind->dataKey), dataKey);
        QCOMPARE(ComponentKinds::dialogTitle(type, 7), title);
    }

    void kindTableHasFourteenKinds()
    {
        QCOMPARE(ComponentKinds::all().size(), 14);
        QVERIFY(!ComponentKinds::find(14));
        QVERIFY(!ComponentKinds::find(-1));
        QVERIFY(ComponentKinds::label(14).isEmpty());
    }

    // Capabilities and limits of each kind as a fresh component of it answers
    // them. Kinds whose limits follow their picture take the base rectangle's
    // 100 by 100 as natural size until they draw one.
    void capabilitiesAndLimits_data()
    {
        QTest::addColumn<QJsonObject>("json");
        QTest::addColumn<bool>("children");
        QTest::addColumn<bool>("resize");
        QTest::addColumn<bool>("rotate");
        QTest::addColumn<int>("minW");
        QTest::addColumn<int>("maxW");
        QTest::addColumn<int>("minH");
        QTest::addColumn<int>("maxH");
        const int natural = 100;
        auto kind = [](int type, const QJsonObject& extra = {}) {
            QJsonObject json = extra;
            json.insert("ID", 1);
            json.insert("Type", type);
            return json;
        };
        QTest::newRow("Text") << kind(0) << false << true << true << 25 << 5 * natural << 25 << 5 * natural;
        QTest::newRow("Shape") << kind(1) << false << true << true << 25 << 5000 << 25 << 5000;
        QTest::newRow("Picture") << kind(2) << false << true << true << 25 << 5 * natural << 25 << 5 * natural;
        QTest::newRow("Repeating Picture") << kind(3) << false << true << true << 25 << 5000 << 25 << 5000;
        QTest::newRow("Gauge") << kind(4) << false << true << true << 10 << 5000 << 10 << 5000;
        // Without a skin a picture gauge is 24 high; its width at least two caps.
        QTest::newRow("Picture Gauge") << kind(5) << false << true << true << 30 << 5000 << 24 << 24;
        QTest::newRow("Picture Gauge, margin 60")
            << kind(5, {{"PictureGaugeData", QJsonObject{{"EdgeMargin", 60}}}}) << false << true << true << 120
            << 5000 << 24 << 24;
        QTest::newRow("Group") << kind(6) << true << false << false << 50 << 50 << 50 << 50;
        QTest::newRow("Window") << kind(7) << true << true << false << 24 << 5000 << 24 << 5000;
        QTest::newRow("Window, margin 30")
            << kind(7, {{"WindowData", QJsonObject{{"Padding", 10}, {"Margin", 30}}}}) << true << true << false << 60
            << 5000 << 60 << 5000;
        QTest::newRow("Actor Face") << kind(8) << false << true << true << 25 << 5 * natural << 25 << 5 * natural;
        QTest::newRow("Icon") << kind(9) << false << true << true << 25 << 5 * natural << 25 << 5 * natural;
        // The custom kinds keep the size of their custom HUD: 100 by 100
        // without one.
        QTest::newRow("Custom") << kind(10) << false << false << false << 100 << 100 << 100 << 100;
        QTest::newRow("Custom Collection") << kind(11) << false << false << false << 100 << 100 << 100 << 100;
        QTest::newRow("Attach Collection") << kind(12) << false << false << false << 100 << 100 << 100 << 100;
        QTest::newRow("Animation") << kind(13) << false << true << true << 25 << 5 * natural << 25 << 5 * natural;
        QTest::newRow("unknown 14") << kind(14) << false << true << true << 25 << 400 << 25 << 400;
        QTest::newRow("negative") << kind(-1) << false << true << true << 25 << 400 << 25 << 400;
    }

    void capabilitiesAndLimits()
    {
        QFETCH(QJsonObject, json);
        QFETCH(bool, children);
        QFETCH(bool, resize);
        QFETCH(bool, rotate);
        QFETCH(int, minW);
        QFETCH(int, maxW);
        QFETCH(int, minH);
        QFETCH(int, maxH);
        GameUIEditorScene scene;
        const auto component = create(json, &scene);
        QVERIFY(component);
        QCOMPARE(component->canHaveChildren(), children);
        QCOMPARE(component->canResize(), resize);
        QCOMPARE(component->canRotate(), rotate);
        QCOMPARE(component->minimumWidth(), minW);
        QCOMPARE(component->maximumWidth(), maxW);
        QCOMPARE(component->minimumHeight(), minH);
        QCOMPARE(component->maximumHeight(), maxH);
        // The handles a selection builds follow the same answers.
        component->setSelected(true);
        QCOMPARE(component->handles.size(), (resize ? 8 : 0) + (rotate ? 1 : 0));
    }

    void unknownTypesLoadAsThePlainRectangle_data()
    {
        QTest::addColumn<QJsonValue>("type");
        QTest::newRow("14") << QJsonValue(14);
        QTest::newRow("-1") << QJsonValue(-1);
        QTest::newRow("missing") << QJsonValue(QJsonValue::Undefined);
        QTest::newRow("text") << QJsonValue("3");
        QTest::newRow("huge") << QJsonValue(1e12);
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
        QCOMPARE(component->width, 100);
        QCOMPARE(component->height, 100);
        QCOMPARE(component->pos(), QPointF(40, 30));
        QCOMPARE(component->rotation(), 15.0);
        QCOMPARE(component->opacity, 0.25);
        QCOMPARE(component->data(), json);
    }

    void flagBecomesHudLevel()
    {
        QVERIFY(create({{"Type", 1}}, nullptr, true)->hudLevel);
        QVERIFY(!create({{"Type", 1}}, nullptr, false)->hudLevel);
        QVERIFY(!create({{"Type", 40}}, nullptr, false)->hudLevel);
    }

    void newGroupIsAFiftyPixelMarker()
    {
        const auto group = create({{"ID", 3}, {"Type", 6}});
        QCOMPARE(group->width, 50);
        QCOMPARE(group->height, 50);
        QCOMPARE(group->boundingRect(), QRectF(-55, -55, 110, 110));
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

    void choosingANewComponentPicksItsKind()
    {
        Helper helper;
        QJsonObject json{{"X", 10}, {"Y", 20}};
        bool accepted = false;
        QTimer::singleShot(0, [] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu);
            QCOMPARE(menu->actions().size(), 14);
            QCOMPARE(menu->actions().at(4)->text(), QString("Gauge"));
            QAction* gauge = menu->actions().at(4);
            QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(gauge).center());
        });
        helper.chooseNewComponent(json, &accepted, 41, true, nullptr, nullptr);
        QVERIFY(accepted);
        QCOMPARE(json, (QJsonObject{{"X", 10}, {"Y", 20}, {"ID", 42}, {"Type", 4}}));

        // Dismissed: nothing chosen, nothing changed.
        json = QJsonObject{{"X", 1}};
        accepted = false;
        QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape); });
        helper.chooseNewComponent(json, &accepted, 41, true, nullptr, nullptr);
        QVERIFY(!accepted);
        QCOMPARE(json, (QJsonObject{{"X", 1}}));
    }

    void editingLeavesTheObjectAlone()
    {
        Helper helper;
        QJsonObject json{{"Type", 1}, {"ID", 2}};
        bool accepted = true;
        helper.editComponent(json, &accepted, nullptr, nullptr, true, nullptr);
        QVERIFY(!accepted);
        QCOMPARE(json, (QJsonObject{{"Type", 1}, {"ID", 2}}));
    }

    void scaleKindsKeepTheirScalesUntilResized()
    {
        ComponentScale scale;
        scale.read(QJsonObject{{"ScaleX", 0.833333}, {"ScaleY", 2}});
        QCOMPARE(scale.sizeFor(QSize(100, 30)), QSize(83, 60));
        QJsonObject json{{"ScaleX", 0.833333}, {"ScaleY", 2}};
        scale.write(json, QSize(83, 60), QSize(100, 30));
        QCOMPARE(json.value("ScaleX").toDouble(), 0.833333);
        QCOMPARE(json.value("ScaleY").toDouble(), 2.0);

        // After a resize the ratio of the new size is written; a side at its
        // natural size is exactly 1.0.
        scale.forget();
        scale.write(json, QSize(150, 30), QSize(100, 30));
        QCOMPARE(json.value("ScaleX").toDouble(), 1.5);
        QCOMPARE(json.value("ScaleY").toDouble(), 1.0);
        scale.write(json, QSize(64, 64), QSize(0, 0));
        QCOMPARE(json.value("ScaleX").toDouble(), 1.0);

        ComponentScale missing;
        missing.read(QJsonObject{{"ScaleX", "wide"}});
        QCOMPARE(missing.sizeFor(QSize(144, 144)), QSize(144, 144));
    }

    void sizeKindsStoreTheirSizeInTheirData()
    {
        QCOMPARE(ComponentKinds::storedSize(QJsonObject{{"Type", 1}}, "ShapeData"), QSize(100, 100));
        const QJsonObject json{{"Type", 4}, {"GaugeData", QJsonObject{{"Width", 250}, {"Height", 30}, {"Value", 7}}}};
        QCOMPARE(ComponentKinds::storedSize(json, "GaugeData"), QSize(250, 30));
        QJsonObject written = json;
        ComponentKinds::writeStoredSize(written, "GaugeData", QSize(300, 12));
        QCOMPARE(written.value("GaugeData").toObject(),
                 (QJsonObject{{"Width", 300}, {"Height", 12}, {"Value", 7}}));
        QCOMPARE(written.value("Type").toInt(), 4);
        QCOMPARE(ComponentKinds::unavailableGraphicsColor(), QColor(0, 0, 0, 90));
    }

    void picturesSmoothOnlyWhenShrunk()
    {
        QImage source(2, 1, QImage::Format_RGB32);
        source.setPixel(0, 0, qRgb(0, 0, 0));
        source.setPixel(1, 0, qRgb(255, 255, 255));
        const QPixmap pixmap = QPixmap::fromImage(source);
        bool hintsRestored = true;
        auto edge = [&](double zoom) {
            QImage target(10, 1, QImage::Format_RGB32);
            target.fill(Qt::red);
            QPainter painter(&target);
            ComponentKinds::drawPixmap(&painter, QRectF(0, 0, 10, 1), pixmap, zoom,
                                       QPainter::SmoothPixmapTransform);
            hintsRestored = hintsRestored && !painter.testRenderHint(QPainter::SmoothPixmapTransform);
            painter.end();
            return QColor(target.pixel(4, 0)).red() + QColor(target.pixel(5, 0)).red();
        };
        // Crisp pixels at 1.0 and above, a soft edge below.
        QCOMPARE(edge(1.0), 255);
        QCOMPARE(edge(2.0), 255);
        QVERIFY(edge(0.5) != 255);
        QVERIFY(hintsRestored);
    }
};

VELMORA_TEST_MAIN(TestComponentRegistry, QApplication)
#include "tst_componentregistry.moc"
