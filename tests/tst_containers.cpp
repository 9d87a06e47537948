#include "TestEnvironment.h"

#include "components/ProjectImages.h"
#include "components/UIComponentAnimation.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/ResizeComponentButtonSprite.h"
#include "scene/UIComponentBase.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QPainter>

using TestEnvironment::clicking;
using TestEnvironment::pickingRow;
using TestEnvironment::press;
using TestEnvironment::typing;

namespace {

// A pixel the window must show, and its colour.
struct Probe {
    int x;
    int y;
    QColor color;
};
using Probes = QVector<Probe>;

// The colours of the test skin, one per region of the 192 by 192 layout.
const QColor Background(255, 0, 0);
const QColor Pattern(0, 0, 255);
const QColor TopLeft(0, 255, 0);
const QColor BottomRight(255, 0, 255);
const QColor TopEdge(128, 0, 0);
const QColor RightEdge(128, 128, 0);
const QColor Clear(0, 0, 0, 0);

// A skin whose pattern is opaque only in its top-left 48 by 48, so the tiles
// show where they start and are cut; the frame's outer band of 4 is
// see-through, as in a real skin.
QImage testSkin()
{
    QImage skin(192, 192, QImage::Format_ARGB32);
    skin.fill(QColor(60, 60, 60));
    QPainter painter(&skin);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(0, 0, 96, 96, Background);
    painter.fillRect(0, 96, 96, 96, Clear);
    painter.fillRect(0, 96, 48, 48, Pattern);
    painter.fillRect(96, 0, 24, 24, TopLeft);
    painter.fillRect(168, 72, 24, 24, BottomRight);
    painter.fillRect(120, 0, 48, 24, TopEdge);
    painter.fillRect(168, 24, 24, 48, RightEdge);
    for (const QRect& band : {QRect(96, 0, 96, 4), QRect(96, 92, 96, 4), QRect(96, 0, 4, 96), QRect(188, 0, 4, 96)})
        painter.fillRect(band, Clear);
    return skin;
}

// The shared canvas, with a user's drags and clicks in the list.
struct Editor : TestEnvironment::Workbench {
    // A user's drag on the canvas, by default with Ctrl held so nothing snaps.
    void drag(const QPointF& from, const QPointF& to, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        QWidget* viewport = view->viewport();
        view->centerOn(from);
        const QPoint start = view->mapFromScene(from);
        const QPoint end = start + (to - from).toPoint();
        QTest::mousePress(viewport, Qt::LeftButton, modifiers, start);
        TestEnvironment::moveWithButtons(viewport, (start + end) / 2, Qt::LeftButton);
        TestEnvironment::moveWithButtons(viewport, end, Qt::LeftButton);
        QTest::mouseRelease(viewport, Qt::LeftButton, modifiers, end);
    }
    void clickRow(UltimateTreeItem* row)
    {
        UltimateTree* tree = list->tree();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0)));
    }
};

QJsonObject windowOf(const QJsonObject& windowData, int x = 300, int y = 200)
{
    return QJsonObject{{"ID", 1}, {"Type", 7}, {"Name", "Window"}, {"X", x}, {"Y", y}, {"WindowData", windowData}};
}

QJsonObject skinned(int width, int height, int margin, double backgroundOpacity = 100)
{
    return QJsonObject{{"WindowSkin", "Skin"}, {"Width", width},   {"Height", height},
                       {"Padding", 0},         {"Margin", margin}, {"BackgroundOpacity", backgroundOpacity}};
}

QJsonObject groupOf(int id, int x, int y, const QJsonArray& children)
{
    return QJsonObject{{"ID", id}, {"Type", 6}, {"Name", "Group"}, {"X", x}, {"Y", y}, {"Children", children}};
}

QJsonObject coloured(int id, int x, int y, int side, const QString& color)
{
    QJsonObject shape = TestEnvironment::shape(id, x, y, side, side);
    shape.insert("ShapeData", QJsonObject{{"Width", side}, {"Height", side}, {"Color", color}});
    return shape;
}

// The pixels of a card's rows that aren't its fill: where text was drawn.
QRect inkOf(const QImage& card, int top, int bottom)
{
    const QColor fill(180, 80, 60, 125);
    QRect ink;
    for (int y = top; y < bottom; ++y) {
        for (int x = 0; x < card.width(); ++x) {
            if (!TestEnvironment::nearColor(TestEnvironment::pixel(card, x, y), fill, 2))
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

// A card as plain (not premultiplied) pixels, as the colours are given.
QImage cardImage(const QPixmap& card)
{
    return card.toImage().convertToFormat(QImage::Format_ARGB32);
}

QJsonObject animationsData(const QStringList& names)
{
    QJsonArray animations{QJsonValue()};
    for (int id = 1; id <= names.size(); ++id)
        animations.append(QJsonObject{{"id", id}, {"name", names.at(id - 1)}});
    return QJsonObject{{"Animations.json", animations}};
}

}

Q_DECLARE_METATYPE(Probes)

class TestContainers : public QObject
{
    Q_OBJECT

    QString system;

private slots:
    void initTestCase()
    {
        const QString project = TestEnvironment::newFolder(QStringLiteral("project"));
        system = project + QStringLiteral("/img/system");
        QVERIFY(QDir().mkpath(system));
        QVERIFY(testSkin().save(system + QStringLiteral("/Skin.png")));
        const QByteArray png = TestEnvironment::readFile(system + QStringLiteral("/Skin.png"));
        TestEnvironment::writeFile(system + QStringLiteral("/Broken.png"), png.left(png.size() / 3));
        const QString folder = system;
        ProjectImages::setPathHook([folder](int kind, const QString& name) {
            return kind == ProjectImages::System ? folder + QLatin1Char('/') + name + QStringLiteral(".png")
                                                 : QString();
        });
    }

    void init()
    {
        TestEnvironment::quietDialogs();
    }

    // The window from the test skin: frame pieces, the pattern tiled from the
    // margin and cut, the background opacity; probes from its top-left corner.
    void windowPixels_data()
    {
        QTest::addColumn<QJsonObject>("data");
        QTest::addColumn<Probes>("probes");
        const QJsonObject wide = skinned(220, 160, 4);
        QTest::newRow("frame and tiles") << wide
            << Probes{{23, 23, TopLeft}, {205, 150, BottomRight}, {24, 10, TopEdge},
                      // The frame's outer band: nothing beneath it with a margin of 4.
                      {1, 1, Clear},
                      // Tiles of 96 from (4, 4), opaque in their first 48 pixels.
                      {30, 30, Pattern}, {80, 30, Background}, {126, 30, Pattern},
                      // The third column starts at 196, cut at 216 where the band stays clear.
                      {217, 30, Clear}};
        // Red at half strength; blue over it, both at half: alpha 0.75,
        // colour (0.5 blue + 0.25 red) / 0.75. The frame stays opaque.
        QTest::newRow("background opacity") << skinned(220, 160, 4, 50)
            << Probes{{80, 30, QColor(255, 0, 0, 128)}, {30, 30, QColor(85, 0, 170, 191)}, {10, 10, TopLeft}};
        // A skin that can't be had draws nothing, not the grey block of other kinds.
        for (const char* skin : {"Nowhere", "Broken"}) {
            QJsonObject data = wide;
            data.insert("WindowSkin", skin);
            QTest::addRow("skin \"%s\"", skin) << data << Probes{{10, 10, Clear}, {110, 80, Clear}};
        }
    }

    void windowPixels()
    {
        QFETCH(QJsonObject, data);
        QFETCH(Probes, probes);
        Editor editor;
        editor.load(windowOf(data));
        const QImage image = editor.render();
        const QPoint corner = QPoint(300 - data.value("Width").toInt() / 2, 200 - data.value("Height").toInt() / 2);
        for (const Probe& probe : probes)
            COMPARE_COLOR(image, corner.x() + probe.x, corner.y() + probe.y, probe.color);
        COMPARE_COLOR(image, corner.x() - 1, corner.y() + 20, Clear);
        COMPARE_COLOR(image, corner.x() + 20, corner.y() + data.value("Height").toInt(), Clear);
    }

    // The padding plays no part in the look, only in the smallest size a
    // resize allows, and the window's size is stored in its data object.
    void paddingChangesOnlyTheMinimumSize()
    {
        Editor editor;
        QJsonObject data = skinned(100, 100, 4);
        data.insert("Padding", 12);
        editor.load(windowOf(data));
        const QImage before = editor.render(10);
        editor.editRow(0, {typing("Padding", "40"), press("confirmButton")});
        UIComponentBase* window = editor.scene->components().value(0);
        QCOMPARE(editor.render(10), before);
        // The bottom-right handle pulled far inwards stops at that size.
        TestEnvironment::clickRow(editor.list, 0);
        const QPointF handle = window->handleAt(4)->mapToScene(3, 3);
        editor.drag(handle, handle - QPointF(90, 90), Qt::NoModifier);
        QCOMPARE(QSize(window->width, window->height), QSize(80, 80));
        QCOMPARE(window->data().value("WindowData").toObject().value("Width").toInt(), 80);
    }

    // Confirm keeps the window at least twice its padding and margin; a
    // padding the game gives stays as it came and counts as 12.
    void confirmKeepsTheWindowAboveItsPaddingAndMargin()
    {
        Editor editor;
        editor.load(windowOf(skinned(100, 100, 4)));
        editor.editRow(0, {typing("Width", "10"), typing("Height", "30"), typing("Padding", "12"),
                           typing("Margin", "20"), press("confirmButton")});
        QJsonObject data = editor.scene->components().value(0)->data().value("WindowData").toObject();
        QCOMPARE(QSize(data.value("Width").toInt(), data.value("Height").toInt()), QSize(40, 40));

        const QJsonObject dynamic{{"Type", 0}, {"Code", "return 30;"}};
        QJsonObject extended = skinned(10, 10, 0);
        extended.insert("Padding", dynamic);
        editor.load(windowOf(extended));
        editor.editRow(0, {press("confirmButton")});
        data = editor.scene->components().value(0)->data().value("WindowData").toObject();
        QCOMPARE(data.value("Padding"), QJsonValue(dynamic));
        QCOMPARE(QSize(data.value("Width").toInt(), data.value("Height").toInt()), QSize(24, 24));
    }

    // Numbers no dialog writes keep the least size within bounds; a margin
    // far below zero draws the background over the whole window.
    void extremeNumbersStayInBounds()
    {
        Editor editor;
        QJsonObject data = skinned(220, 160, 0);
        data.insert("Padding", 1e12);
        data.insert("Margin", -1e12);
        QCOMPARE(editor.load(windowOf(data))->minimumHeight(), 5000);
        data.insert("Padding", -1e12);
        QCOMPARE(editor.load(windowOf(data))->minimumWidth(), 0);
        const QImage image = editor.render(10);
        COMPARE_COLOR(image, 190 + 1, 120 + 80, Background);
        COMPARE_COLOR(image, 190 + 10, 120 + 10, TopLeft);
    }

    // A group is a grey marker of 50 by 50 that takes neither rotation nor
    // opacity from its object.
    void groupMarker()
    {
        Editor editor;
        UIComponentBase* group =
            editor.load(QJsonObject{{"ID", 3}, {"Type", 6}, {"X", 100}, {"Y", 100}, {"Rotation", 45}, {"Opacity", 0.2}});
        // Axis-aligned: its corner is grey.
        COMPARE_COLOR(editor.render(10), 124, 124, QColor(125, 125, 125, 125));
        const QJsonObject written = group->data();
        QCOMPARE(written.value("Rotation").toInt(), 0);
        QCOMPARE(written.value("Opacity").toDouble(), 0.2);
    }

    // Children move and turn with their parent and keep their own place in
    // it; a selected group has no handles.
    void childrenMoveWithTheirParent()
    {
        Editor editor;
        QJsonObject turned = windowOf(skinned(200, 100, 4), 500, 300);
        turned.insert("ID", 3);
        turned.insert("Rotation", 90);
        turned.insert("Children", QJsonArray{coloured(4, 60, 0, 20, "#ff00ff")});
        editor.load(QJsonArray{groupOf(1, 200, 200, QJsonArray{coloured(2, 40, 0, 20, "#00ff00")}), turned});
        UIComponentBase* child = editor.scene->components().value(1);
        // Turned a quarter clockwise, (60, 0) lies 60 below the centre.
        COMPARE_COLOR(editor.render(10), 500, 360, QColor(255, 0, 255));

        TestEnvironment::clickRow(editor.list, 0);
        QCOMPARE(editor.scene->selectedComponent()->handles.size(), 0);
        editor.drag(QPointF(200, 200), QPointF(250, 220));
        editor.clickRow(editor.scene->rowOfComponent(editor.scene->components().value(2)));
        editor.drag(QPointF(500, 300), QPointF(460, 310));
        QCOMPARE(child->absoluteXY(), QPoint(290, 220));
        COMPARE_COLOR(editor.render(10), 460, 370, QColor(255, 0, 255));

        // Written back, each child stays inside its parent at its own place.
        const QJsonArray saved = editor.scene->toJson();
        QCOMPARE(saved.at(0).toObject().value("X").toInt(), 250);
        QCOMPARE(saved.at(0).toObject().value("Children").toArray().at(0).toObject().value("X").toInt(), 40);
        QCOMPARE(saved.at(1).toObject().value("Children").toArray().at(0).toObject().value("X").toInt(), 60);
    }

    // Hiding a parent hides its children; showing it brings them back.
    void childrenHideWithTheirParent()
    {
        Editor editor;
        editor.load(QJsonArray{groupOf(1, 200, 200, QJsonArray{coloured(2, 40, 0, 20, "#00ff00")})});
        TestEnvironment::clickRow(editor.list, 0);
        QTest::keyClick(editor.view->viewport(), Qt::Key_Q, Qt::ControlModifier);
        COMPARE_COLOR(editor.render(10), 240, 200, Clear);
        QTest::keyClick(editor.view->viewport(), Qt::Key_Q, Qt::ControlModifier);
        COMPARE_COLOR(editor.render(10), 240, 200, QColor(0, 255, 0));
    }

    // Nested containers, a closed row and the children's order come back from
    // the written document; a container without "Children" gets an empty one.
    void childrenRoundTripThroughTheDocument()
    {
        Editor editor;
        QJsonObject closed = groupOf(2, 10, 10, QJsonArray{coloured(3, 1, 1, 20, "#ff0000"),
                                                          coloured(4, 2, 2, 20, "#00ff00")});
        closed.insert("Expanded", false);
        QJsonObject outer = windowOf(skinned(300, 200, 4), 400, 300);
        outer.insert("Children", QJsonArray{closed, coloured(5, -20, 30, 20, "#0000ff")});
        const QJsonObject bare{{"ID", 6}, {"Type", 6}, {"X", 50}, {"Y", 60}};
        editor.load(QJsonArray{outer, bare});
        const QJsonArray first = editor.scene->toJson();
        const QJsonObject window = first.at(0).toObject();
        QCOMPARE(window.value("Expanded"), QJsonValue(true));
        const QJsonArray children = window.value("Children").toArray();
        QCOMPARE(children.size(), 2);
        QCOMPARE(children.at(0).toObject().value("Expanded"), QJsonValue(false));
        QCOMPARE(children.at(0).toObject().value("Children").toArray().at(1).toObject().value("ID").toInt(), 4);
        QCOMPARE(first.at(1).toObject().value("Children"), QJsonValue(QJsonArray()));
        // The closed group's row shows no children in the list.
        QCOMPARE(editor.list->tree()->row(1)->isExpanded(), false);

        editor.reloaded();
        QCOMPARE(editor.scene->toJson(), first);
        QCOMPARE(editor.list->tree()->row(1)->isExpanded(), false);
    }

    // A group made from the selector: no data of its own but the add-on
    // keys, an empty "Children" and an open row.
    void newGroupFromTheSelector()
    {
        Editor editor;
        QVERIFY(editor.createChecked({press("container"), typing("Name", "Anchor"), press("confirmButton")},
                                     "GroupData", QJsonObject{{"Addons", QJsonArray()}, {"Note", ""}}));
        const QJsonObject made = editor.scene->toJson().at(0).toObject();
        QCOMPARE(made.value("Children"), QJsonValue(QJsonArray()));
        QCOMPARE(made.value("Expanded"), QJsonValue(true));
    }

    // A window made from the selector with a skin chosen in the picker and
    // typed values gets the keys of its kind, and is drawn from that skin.
    void newWindowFromTheSelector()
    {
        Editor editor;
        QVERIFY(editor.createChecked(
            {press("window"), clicking("windowSkin"), pickingRow("fileList", "Skin"), typing("Width", "220"),
             typing("Height", "160"), typing("Margin", "6"), typing("BackgroundOpacity", "60"), press("confirmButton")},
            "WindowData",
            QJsonObject{{"WindowSkin", "Skin"}, {"Width", 220}, {"Height", 160}, {"Padding", 12}, {"Margin", 6},
                        {"BackgroundOpacity", 60}, {"Addons", QJsonArray()}, {"Note", ""}}));
        QCOMPARE(editor.scene->toJson().at(0).toObject().value("Children"), QJsonValue(QJsonArray()));
        COMPARE_COLOR(editor.render(10), 200, 130, TopLeft);
    }

    // An animation made from the selector: the database picker sets the id,
    // the behaviour its index; the card names the animation.
    void newAnimationFromTheSelector()
    {
        Editor editor;
        editor.projectData = animationsData({"Slash", "Fire Burst", "Heal"});
        auto* animation = qobject_cast<UIComponentAnimation*>(editor.createChecked(
            {press("animation"), clicking("AnimationID"), pickingRow("dataList", "0002 Fire Burst"),
             TestEnvironment::choosing("AnimationType", 2), press("confirmButton")},
            "AnimationData", QJsonObject{{"AnimationID", 2}, {"Behavior", 2}, {"Addons", QJsonArray()}, {"Note", ""}}));
        QVERIFY(animation);
        QCOMPARE(animation->pixmap.toImage(), UIComponentAnimation::card(2, "Fire Burst").toImage());
    }

    // The card: the id on top, the name below, none for an id past the
    // database; a name too long even at 14 pixels is cut to the card.
    void animationCard()
    {
        QVERIFY(inkOf(cardImage(UIComponentAnimation::card(1, "Slash")), 92, 144).isValid());

        Editor editor;
        editor.projectData = animationsData({"Slash", ""});
        for (int id : {2, 99}) {
            auto* animation = qobject_cast<UIComponentAnimation*>(editor.load(
                QJsonObject{{"ID", 1}, {"Type", 13}, {"AnimationData", QJsonObject{{"AnimationID", id}}}}));
            const QImage card = cardImage(animation->pixmap);
            QVERIFY(inkOf(card, 0, 60).isValid());
            QVERIFY2(!inkOf(card, 80, 144).isValid(), qPrintable(QString::number(id)));
        }

        const QRect cut = inkOf(cardImage(UIComponentAnimation::card(1, QString("Meteor Storm ").repeated(6))), 92, 144);
        QVERIFY2(cut.width() <= 143 && cut.width() > 110 && cut.left() >= 1, qPrintable(QString::number(cut.width())));
    }

};

VELMORA_TEST_MAIN(TestContainers, QApplication)
#include "tst_containers.moc"
