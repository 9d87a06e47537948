#include "TestEnvironment.h"

#include "components/ComponentKinds.h"
#include "components/GameUIEditorSceneHelper.h"
#include "components/ProjectImages.h"
#include "components/UIComponentAnimation.h"
#include "components/UIComponentGroup.h"
#include "components/UIComponentWindow.h"
#include "components/VelmoUISelector.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/ResizeComponentButtonSprite.h"
#include "scene/UIComponentBase.h"
#include "widgets/DialogFlags.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyImageSelector.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/TrovDialog.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QBuffer>
#include <QFontMetrics>
#include <QJsonDocument>
#include <QPainter>

using TestEnvironment::Answer;
using TestEnvironment::answering;
using TestEnvironment::choosing;
using TestEnvironment::press;
using TestEnvironment::typing;

namespace {

// The colours of the test skin, one per region of the 192 by 192 layout.
const QColor Background(255, 0, 0);
const QColor Pattern(0, 0, 255);
const QColor TopLeft(0, 255, 0);
const QColor TopRight(255, 255, 0);
const QColor BottomLeft(0, 255, 255);
const QColor BottomRight(255, 0, 255);
const QColor TopEdge(128, 0, 0);
const QColor BottomEdge(0, 128, 0);
const QColor LeftEdge(0, 0, 128);
const QColor RightEdge(128, 128, 0);
const QColor Clear(0, 0, 0, 0);
// The outer band of every frame piece is see-through, as in a real skin,
// so that what lies under the frame's outer pixels shows.
const int Band = 4;

// A skin whose background quarter is one colour, whose pattern quarter is
// opaque only in its top-left 48 by 48 (so the tiles show where they start
// and where they are cut), and whose frame pieces each have a colour.
QImage testSkin()
{
    QImage skin(192, 192, QImage::Format_ARGB32);
    skin.fill(QColor(60, 60, 60));
    QPainter painter(&skin);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(0, 0, 96, 96, Background);
    painter.fillRect(0, 96, 96, 96, Clear);
    painter.fillRect(0, 96, 48, 48, Pattern);
    struct Piece {
        QRect rect;
        QColor color;
        bool top, bottom, left, right;
    };
    const Piece pieces[] = {
        {QRect(96, 0, 24, 24), TopLeft, true, false, true, false},
        {QRect(168, 0, 24, 24), TopRight, true, false, false, true},
        {QRect(96, 72, 24, 24), BottomLeft, false, true, true, false},
        {QRect(168, 72, 24, 24), BottomRight, false, true, false, true},
        {QRect(120, 0, 48, 24), TopEdge, true, false, false, false},
        {QRect(120, 72, 48, 24), BottomEdge, false, true, false, false},
        {QRect(96, 24, 24, 48), LeftEdge, false, false, true, false},
        {QRect(168, 24, 24, 48), RightEdge, false, false, false, true},
    };
    for (const Piece& piece : pieces) {
        painter.fillRect(piece.rect, piece.color);
        const QRect r = piece.rect;
        if (piece.top)
            painter.fillRect(r.left(), r.top(), r.width(), Band, Clear);
        if (piece.bottom)
            painter.fillRect(r.left(), r.bottom() - Band + 1, r.width(), Band, Clear);
        if (piece.left)
            painter.fillRect(r.left(), r.top(), Band, r.height(), Clear);
        if (piece.right)
            painter.fillRect(r.right() - Band + 1, r.top(), Band, r.height(), Clear);
    }
    return skin;
}

#define COMPARE_JSON(actual, expected) QCOMPARE(TestEnvironment::compact(actual), TestEnvironment::compact(expected))

// The canvas with the real registry, its selector and dialogs, on a project
// whose system images are the test's own.
struct Editor : TestEnvironment::Canvas {
    Editor() : Canvas(new GameUIEditorSceneHelper<VelmoUISelector>())
    {
        scene->setProjectData(&projectData);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        scene->setZoom(10);
    }
    UIComponentBase* load(const QJsonArray& components)
    {
        scene->clear();
        scene->loadFromJson(components);
        return scene->components().value(0);
    }
    UIComponentBase* load(const QJsonObject& component) { return load(QJsonArray{component}); }
    QImage render(int zoom)
    {
        scene->setZoom(zoom);
        return scene->canvasImage(false).convertToFormat(QImage::Format_ARGB32);
    }
    QPoint viewPoint(const QPointF& scenePoint) const
    {
        view->centerOn(scenePoint);
        return view->mapFromScene(scenePoint);
    }
    // A user's drag of what lies under a canvas point, by default with Ctrl
    // held so that nothing snaps.
    void drag(const QPointF& from, const QPointF& to, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        QWidget* viewport = view->viewport();
        const QPoint start = viewPoint(from);
        const QPoint end = start + (to - from).toPoint();
        QTest::mousePress(viewport, Qt::LeftButton, modifiers, start);
        TestEnvironment::moveWithButtons(viewport, (start + end) / 2, Qt::LeftButton);
        TestEnvironment::moveWithButtons(viewport, end, Qt::LeftButton);
        QTest::mouseRelease(viewport, Qt::LeftButton, modifiers, end);
    }
    void clickRow(int index)
    {
        UltimateTree* tree = list->tree();
        UltimateTreeItem* row = tree->row(index);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0)));
    }
    // A user's double-click on a row of the list, which opens its dialog.
    void editRow(int index, const QList<Answer>& answers)
    {
        UltimateTree* tree = list->tree();
        UltimateTreeItem* row = tree->row(index);
        const QPoint point = tree->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0));
        answering([&]() { QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, point); }, answers);
    }
    // A new component from a double-click on an empty spot of the canvas.
    void create(const QPointF& spot, const QList<Answer>& answers)
    {
        const QPoint point = viewPoint(spot);
        answering([&]() { QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, point); }, answers);
    }
    // The HUD as written to the document and read back from its text.
    void saveAndReload()
    {
        const QByteArray saved = QJsonDocument(scene->toJson()).toJson();
        scene->clear();
        scene->loadFromJson(QJsonDocument::fromJson(saved).array());
    }
    QJsonObject projectData;
};

// Double-clicks the row of a list picker that shows text.
Answer pickingRow(const char* listName, const QString& text)
{
    return [listName, text](TrovDialog* dialog) {
        UltimateTreeWidget* list = dialog->findChild<UltimateTreeWidget*>(QLatin1String(listName));
        QVERIFY2(list, listName);
        UltimateTree* tree = list->tree();
        QTRY_VERIFY(tree->rowCount() > 0);
        for (int index = 0; index < tree->rowCount(); ++index) {
            UltimateTreeItem* row = tree->row(index);
            if (row->text(0) == text) {
                QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                                   tree->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0)));
                return;
            }
        }
        QFAIL(qPrintable(QStringLiteral("no row %1").arg(text)));
    };
}

Answer clicking(const char* field)
{
    return [field](TrovDialog* dialog) {
        QWidget* widget = dialog->findChild<QWidget*>(QLatin1String(field));
        QVERIFY2(widget, field);
        QTest::mouseClick(widget, Qt::LeftButton);
    };
}

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
    QJsonObject data = shape.value("ShapeData").toObject();
    data.insert("Color", color);
    shape.insert("ShapeData", data);
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
        QVERIFY(testSkin().scaled(96, 96).save(system + QStringLiteral("/Small.png")));
        QByteArray png;
        {
            QBuffer buffer(&png);
            buffer.open(QIODevice::WriteOnly);
            testSkin().save(&buffer, "PNG");
        }
        TestEnvironment::writeFile(system + QStringLiteral("/Broken.png"), png.left(png.size() / 3));
        const QString folder = system;
        ProjectImages::setPathHook([folder](int kind, const QString& name) {
            return kind == ProjectImages::System ? folder + QLatin1Char('/') + name + QStringLiteral(".png")
                                                 : QString();
        });
    }

    void init()
    {
        dialogNativeTitleBar = false;
        dialogDarkenLayers = false;
        dialogDarkenAnimated = false;
        dialogOpenAnimated = false;
    }

    // ---------------------------------------------------------------- window skin

    // At zoom 1: opaque corners at their natural size, stretched edges between
    // them, the see-through band of each frame piece showing nothing since
    // the background starts at the margin, the background under the pattern
    // tiles that start at the margin and step by half the skin, and a last
    // tile cut where the background ends.
    void windowFrameAndBackgroundAtZoomOne()
    {
        Editor editor;
        // 220 by 160 around (300, 200): the window's pixel (0, 0) is the
        // canvas pixel (190, 120).
        editor.load(windowOf(skinned(220, 160, 4)));
        const QImage image = editor.render(10);
        const int left = 190;
        const int top = 120;
        auto expect = [&](int x, int y, const QColor& color) { COMPARE_COLOR(image, left + x, top + y, color); };
        expect(10, 10, TopLeft);
        expect(23, 23, TopLeft);
        expect(205, 10, TopRight);
        expect(196, 23, TopRight);
        expect(10, 150, BottomLeft);
        expect(205, 150, BottomRight);
        // Edges stretch over the whole width between the corners.
        expect(24, 10, TopEdge);
        expect(110, 10, TopEdge);
        expect(195, 10, TopEdge);
        expect(110, 150, BottomEdge);
        expect(10, 24, LeftEdge);
        expect(10, 135, LeftEdge);
        expect(205, 80, RightEdge);
        // The outer band of the frame: nothing beneath it with a margin of 4.
        expect(1, 1, Clear);
        expect(110, 2, Clear);
        expect(2, 80, Clear);
        expect(218, 80, Clear);
        expect(110, 158, Clear);
        // Inside: tiles of 96 from (4, 4), opaque in their first 48 pixels.
        expect(30, 30, Pattern);
        expect(80, 30, Background);
        expect(126, 30, Pattern);
        expect(150, 80, Background);
        // The third column of tiles starts at 196 and is cut to 20 pixels at
        // the background's end (216): the frame's band beyond it stays clear.
        expect(200, 30, RightEdge);
        expect(217, 30, Clear);
        // The second row of tiles starts at 100.
        expect(30, 110, Pattern);
        expect(30, 150, BottomEdge);
        // Nothing outside the window.
        COMPARE_COLOR(image, left - 1, top + 80, Clear);
        COMPARE_COLOR(image, left + 220, top + 80, Clear);
        COMPARE_COLOR(image, left + 110, top + 160, Clear);
    }

    // At zoom 2 every pixel of the window covers two by two canvas pixels,
    // without smoothing: the corner ends exactly at 48 canvas pixels.
    void windowAtZoomTwo()
    {
        Editor editor;
        editor.load(windowOf(skinned(220, 160, 4)));
        const QImage image = editor.render(20);
        const int left = 2 * 190;
        const int top = 2 * 120;
        auto expect = [&](int x, int y, const QColor& color) { COMPARE_COLOR(image, left + x, top + y, color); };
        expect(20, 20, TopLeft);
        expect(47, 20, TopLeft);
        expect(48, 20, TopEdge);
        expect(2 * 196 - 1, 20, TopEdge);
        expect(2 * 196, 20, TopRight);
        expect(2 * 110, 2 * 150, BottomEdge);
        expect(2 * 205, 2 * 150 + 1, BottomRight);
        expect(7, 2 * 80, Clear);
        expect(8, 2 * 80, LeftEdge);
        expect(2 * 30 + 1, 2 * 30 + 1, Pattern);
        expect(2 * 80, 2 * 30, Background);
        expect(2 * 126, 2 * 30, Pattern);
        expect(2 * 217, 2 * 30, Clear);
    }

    // With no margin the background reaches the component's edges, under the
    // frame's see-through band; the frame is the same.
    void marginZeroDrawsToTheEdges()
    {
        Editor editor;
        editor.load(windowOf(skinned(220, 160, 0)));
        const QImage image = editor.render(10);
        const int left = 190;
        const int top = 120;
        auto expect = [&](int x, int y, const QColor& color) { COMPARE_COLOR(image, left + x, top + y, color); };
        // Tiles now start at (0, 0): (1, 1) lies in the first tile's opaque
        // part, (1, 80) below it on the plain background.
        expect(1, 1, Pattern);
        expect(1, 80, Background);
        expect(219, 80, Background);
        expect(110, 159, Background);
        expect(10, 10, TopLeft);
        expect(110, 10, TopEdge);
        // The third tile column starts at 192 and runs to the edge.
        expect(218, 1, Pattern);
    }

    // A margin of half the width or more leaves no background at all, only
    // the frame.
    void aLargeMarginLeavesOnlyTheFrame_data()
    {
        QTest::addColumn<int>("margin");
        QTest::newRow("half the width") << 50;
        QTest::newRow("beyond it") << 120;
    }

    void aLargeMarginLeavesOnlyTheFrame()
    {
        QFETCH(int, margin);
        Editor editor;
        editor.load(windowOf(skinned(100, 160, margin), 300, 200));
        const QImage image = editor.render(10);
        const int left = 250;
        const int top = 120;
        auto expect = [&](int x, int y, const QColor& color) { COMPARE_COLOR(image, left + x, top + y, color); };
        // The middle, free of the frame, is empty.
        expect(50, 80, Clear);
        expect(30, 40, Clear);
        expect(1, 80, Clear);
        expect(10, 10, TopLeft);
        expect(50, 10, TopEdge);
        expect(90, 80, RightEdge);
        expect(90, 150, BottomRight);
    }

    // Narrower or lower than two corners, the edges get a negative length
    // that the painter is left to deal with; the corners still stand at both
    // ends at their natural size, each over the ones drawn before it, and
    // nothing reaches outside the window.
    void aWindowBelowTwoCorners()
    {
        Editor editor;
        editor.load(windowOf(skinned(40, 30, 4), 300, 200));
        const QImage image = editor.render(10);
        const int left = 280;
        const int top = 185;
        auto expect = [&](int x, int y, const QColor& color) { COMPARE_COLOR(image, left + x, top + y, color); };
        // The right corners start at 40 - 24 = 16, the bottom ones at
        // 30 - 24 = 6; the edges start at 24 on either axis.
        expect(8, 4, TopLeft);
        expect(20, 4, TopRight);
        expect(8, 12, BottomLeft);
        expect(20, 12, BottomRight);
        for (int y = -2; y < 32; ++y) {
            COMPARE_COLOR(image, left - 1, top + y, Clear);
            COMPARE_COLOR(image, left + 40, top + y, Clear);
        }
        for (int x = 0; x < 40; ++x) {
            COMPARE_COLOR(image, left + x, top - 1, Clear);
            COMPARE_COLOR(image, left + x, top + 30, Clear);
        }
    }

    // The background opacity applies to the background and the pattern, not
    // to the frame.
    void backgroundOpacityLeavesTheFrameOpaque()
    {
        Editor editor;
        editor.load(windowOf(skinned(220, 160, 4, 50)));
        const QImage image = editor.render(10);
        const int left = 190;
        const int top = 120;
        auto expect = [&](int x, int y, const QColor& color) { COMPARE_COLOR(image, left + x, top + y, color); };
        // Background alone: red at half strength.
        expect(80, 30, QColor(255, 0, 0, 128));
        // Blue over it, both at half: alpha 0.5 + 0.5 x 0.5 = 0.75, colour
        // (0.5 blue + 0.25 red) / 0.75.
        expect(30, 30, QColor(85, 0, 170, 191));
        expect(10, 10, TopLeft);
        expect(110, 10, TopEdge);
    }

    // A skin that can't be had draws nothing, not the grey block of other
    // kinds; the window still holds its place and size.
    void aWindowWithoutItsSkinIsTransparent_data()
    {
        QTest::addColumn<QString>("skin");
        QTest::newRow("missing") << QStringLiteral("Nowhere");
        QTest::newRow("truncated") << QStringLiteral("Broken");
        QTest::newRow("none") << QString();
    }

    void aWindowWithoutItsSkinIsTransparent()
    {
        QFETCH(QString, skin);
        Editor editor;
        QJsonObject data = skinned(220, 160, 4);
        data.insert("WindowSkin", skin);
        UIComponentBase* window = editor.load(windowOf(data));
        QCOMPARE(window->width, 220);
        const QImage image = editor.render(10);
        for (const QPoint& point : {QPoint(200, 130), QPoint(300, 200), QPoint(400, 270), QPoint(250, 125)})
            COMPARE_COLOR(image, point.x(), point.y(), Clear);
    }

    // A skin of another size takes its pattern from its own lower-left
    // quarter (tiles of 48 here) but its frame from the 192-pixel layout:
    // the frame's source lies outside a 96-pixel skin and draws nothing.
    void aSkinOfAnotherSizeTilesItsOwnQuarter()
    {
        Editor editor;
        QJsonObject data = skinned(220, 160, 4);
        data.insert("WindowSkin", "Small");
        editor.load(windowOf(data));
        const QImage image = editor.render(10);
        const int left = 190;
        const int top = 120;
        auto expect = [&](int x, int y, const QColor& color) {
            QVERIFY2(TestEnvironment::nearColor(TestEnvironment::pixel(image, left + x, top + y), color, 12),
                     qPrintable(QStringLiteral("pixel %1,%2 is %3").arg(x).arg(y).arg(TestEnvironment::pixel(image, left + x, top + y).name())));
        };
        // The small skin's pattern is opaque in the first 24 of each 48.
        expect(10, 10, Pattern);
        expect(40, 10, Background);
        expect(60, 10, Pattern);
        expect(10, 40, Background);
    }

    // ---------------------------------------------------------------- window size

    // The padding plays no part in the look, only in the smallest size a
    // resize allows, and the window's size is stored in its data object.
    void paddingChangesOnlyTheMinimumSize()
    {
        Editor editor;
        QJsonObject data = skinned(100, 100, 4);
        data.insert("Padding", 12);
        UIComponentBase* window = editor.load(windowOf(data));
        QCOMPARE(window->minimumWidth(), 24);
        const QImage before = editor.render(10);
        editor.editRow(0, {typing("Padding", "40"), press("confirmButton")});
        window = editor.scene->components().value(0);
        QCOMPARE(window->minimumWidth(), 80);
        QCOMPARE(window->minimumHeight(), 80);
        QCOMPARE(window->width, 100);
        QCOMPARE(editor.render(10), before);
        // The bottom-right handle pulled far inwards stops at that size.
        editor.clickRow(0);
        const QPointF handle = window->handleAt(4)->mapToScene(3, 3);
        editor.drag(handle, handle - QPointF(90, 90), Qt::NoModifier);
        QCOMPARE(QSize(window->width, window->height), QSize(80, 80));
        QCOMPARE(window->data().value("WindowData").toObject().value("Width").toInt(), 80);

        // The margin counts the same way when it is the larger.
        editor.editRow(0, {typing("Padding", "10"), typing("Margin", "45"), press("confirmButton")});
        QCOMPARE(editor.scene->components().value(0)->minimumWidth(), 90);
    }

    // Confirm keeps the window at least twice the padding and the margin
    // wide and high; a padding the game gives counts as 12.
    void confirmKeepsTheWindowAboveItsPaddingAndMargin()
    {
        Editor editor;
        editor.load(windowOf(skinned(100, 100, 4)));
        editor.editRow(0, {typing("Width", "10"), typing("Height", "30"), typing("Padding", "12"),
                           typing("Margin", "20"), press("confirmButton")});
        QJsonObject data = editor.scene->components().value(0)->data().value("WindowData").toObject();
        QCOMPARE(data.value("Width").toInt(), 40);
        QCOMPARE(data.value("Height").toInt(), 40);
        QCOMPARE(editor.scene->components().value(0)->width, 40);

        editor.editRow(0, {typing("Width", "500"), typing("Height", "0"), typing("Margin", "3"),
                           typing("Padding", "15"), press("confirmButton")});
        data = editor.scene->components().value(0)->data().value("WindowData").toObject();
        QCOMPARE(data.value("Width").toInt(), 500);
        QCOMPARE(data.value("Height").toInt(), 30);

        // A padding given by the game at run time (an extension object this
        // editor can't show) stays as it came and counts as 12.
        const QJsonObject dynamic{{"Type", 0}, {"Code", "return 30;"}};
        QJsonObject extended = skinned(10, 10, 0);
        extended.insert("Padding", dynamic);
        editor.load(windowOf(extended));
        QCOMPARE(editor.scene->components().value(0)->minimumWidth(), 24);
        editor.editRow(0, {press("confirmButton")});
        data = editor.scene->components().value(0)->data().value("WindowData").toObject();
        QCOMPARE(data.value("Padding"), QJsonValue(dynamic));
        QCOMPARE(data.value("Width").toInt(), 24);
        QCOMPARE(data.value("Height").toInt(), 24);
    }

    // ---------------------------------------------------------------- group

    // A group is a grey marker of 50 by 50 that takes neither rotation nor
    // opacity from its object, and draws nothing inside an expanded custom
    // component.
    void groupMarker()
    {
        Editor editor;
        UIComponentBase* group =
            editor.load(QJsonObject{{"ID", 3}, {"Type", 6}, {"X", 100}, {"Y", 100}, {"Rotation", 45}, {"Opacity", 0.2}});
        QCOMPARE(group->width, 50);
        QCOMPARE(group->height, 50);
        const QImage image = editor.render(10);
        const QColor grey(125, 125, 125, 125);
        // Axis-aligned: its corners are grey, just outside is clear.
        COMPARE_COLOR(image, 76, 76, grey);
        COMPARE_COLOR(image, 124, 124, grey);
        COMPARE_COLOR(image, 100, 100, grey);
        COMPARE_COLOR(image, 74, 100, Clear);
        COMPARE_COLOR(image, 126, 100, Clear);
        const QJsonObject written = group->data();
        QCOMPARE(written.value("Rotation").toInt(), 0);
        QCOMPARE(written.value("Opacity").toDouble(), 0.2);
        // A group always holds its children's array.
        QCOMPARE(written.value("Children"), QJsonValue(QJsonArray()));

        UIComponentGroup inner(nullptr);
        inner.setData(QJsonObject{{"ID", 4}, {"Type", 6}});
        inner.hudLevel = false;
        QImage picture(60, 60, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.translate(30, 30);
        inner.drawContents(&painter);
        painter.end();
        COMPARE_COLOR(picture, 30, 30, Clear);
    }

    // Selected, a group has no handles at all and a window no rotation
    // handle; both move by a drag.
    void groupHasNoHandlesButMoves()
    {
        Editor editor;
        editor.load(QJsonArray{groupOf(1, 200, 200, QJsonArray()),
                               windowOf(skinned(120, 80, 4), 500, 300)});
        UIComponentBase* group = editor.scene->components().value(0);
        UIComponentBase* window = editor.scene->components().value(1);
        editor.clickRow(0);
        QCOMPARE(editor.scene->selectedComponent(), group);
        QCOMPARE(group->handles.size(), 0);
        editor.drag(QPointF(200, 200), QPointF(260, 230));
        QCOMPARE(group->absoluteXY(), QPoint(260, 230));

        editor.clickRow(1);
        QCOMPARE(editor.scene->selectedComponent(), window);
        QCOMPARE(window->handles.size(), 8);
        editor.drag(QPointF(500, 300), QPointF(450, 320));
        QCOMPARE(window->absoluteXY(), QPoint(450, 320));
    }

    // ---------------------------------------------------------------- children

    // Children of a group and of a turned window move with their parent,
    // turned with it, and keep their own place relative to it.
    void childrenMoveWithTheirParent()
    {
        Editor editor;
        QJsonObject turned = windowOf(skinned(200, 100, 4), 500, 300);
        turned.insert("ID", 3);
        turned.insert("Rotation", 90);
        turned.insert("Children", QJsonArray{coloured(4, 60, 0, 20, "#ff00ff")});
        editor.load(QJsonArray{groupOf(1, 200, 200, QJsonArray{coloured(2, 40, 0, 20, "#00ff00")}), turned});
        UIComponentBase* child = editor.scene->components().value(1);
        UIComponentBase* turnedChild = editor.scene->components().value(3);

        QImage image = editor.render(10);
        COMPARE_COLOR(image, 240, 200, QColor(0, 255, 0));
        // Turned a quarter clockwise, (60, 0) lies 60 below the centre.
        COMPARE_COLOR(image, 500, 360, QColor(255, 0, 255));
        COMPARE_COLOR(image, 560, 300, Clear);

        editor.drag(QPointF(200, 200), QPointF(250, 220));
        editor.drag(QPointF(500, 300), QPointF(460, 310));
        QCOMPARE(child->absoluteXY(), QPoint(290, 220));
        QCOMPARE(QPoint(child->x, child->y), QPoint(40, 0));
        QCOMPARE(QPoint(turnedChild->x, turnedChild->y), QPoint(60, 0));
        image = editor.render(10);
        COMPARE_COLOR(image, 290, 220, QColor(0, 255, 0));
        // Where the child stood before, clear of the moved group's marker.
        COMPARE_COLOR(image, 232, 191, Clear);
        COMPARE_COLOR(image, 460, 370, QColor(255, 0, 255));

        // Written back, each child stays inside its parent at its own place.
        const QJsonArray saved = editor.scene->toJson();
        const QJsonObject group = saved.at(0).toObject();
        QCOMPARE(group.value("X").toInt(), 250);
        QCOMPARE(group.value("Children").toArray().at(0).toObject().value("X").toInt(), 40);
        const QJsonObject window = saved.at(1).toObject();
        QCOMPARE(window.value("Rotation").toInt(), 90);
        QCOMPARE(window.value("Children").toArray().at(0).toObject().value("ID").toInt(), 4);
    }

    // Hiding a parent hides its children; showing it brings them back.
    void childrenHideWithTheirParent()
    {
        Editor editor;
        editor.load(QJsonArray{groupOf(1, 200, 200, QJsonArray{coloured(2, 40, 0, 20, "#00ff00")})});
        editor.clickRow(0);
        QTest::keyClick(editor.view->viewport(), Qt::Key_Q, Qt::ControlModifier);
        QImage image = editor.render(10);
        COMPARE_COLOR(image, 240, 200, Clear);
        COMPARE_COLOR(image, 200, 200, Clear);
        QTest::keyClick(editor.view->viewport(), Qt::Key_Q, Qt::ControlModifier);
        image = editor.render(10);
        COMPARE_COLOR(image, 240, 200, QColor(0, 255, 0));
    }

    // Deleting a parent takes its children along; undo brings the whole
    // branch back as it was, redo takes it again.
    void childrenAreDeletedAndRestoredWithTheirParent()
    {
        Editor editor;
        QJsonObject turned = windowOf(skinned(200, 100, 4), 500, 300);
        turned.insert("ID", 3);
        turned.insert("Rotation", 90);
        turned.insert("Children", QJsonArray{groupOf(4, 60, 0, QJsonArray{coloured(5, 10, 10, 20, "#ff00ff")})});
        editor.load(QJsonArray{coloured(1, 100, 100, 20, "#ffffff"), turned});
        const QJsonArray before = editor.scene->toJson();
        editor.clickRow(1);
        QTest::keyClick(editor.view->viewport(), Qt::Key_Delete);
        QCOMPARE(editor.scene->toJson().size(), 1);
        QCOMPARE(editor.scene->components().size(), 1);
        QImage image = editor.render(10);
        COMPARE_COLOR(image, 490, 370, Clear);

        QTest::keyClick(editor.view->viewport(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor.scene->toJson(), before);
        QCOMPARE(editor.scene->components().size(), 4);
        image = editor.render(10);
        // The grandchild at (10, 10) inside (60, 0), turned a quarter.
        COMPARE_COLOR(image, 490, 370, QColor(255, 0, 255));

        QTest::keyClick(editor.view->viewport(), Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(editor.scene->toJson().size(), 1);
    }

    // Nested containers, a closed row and the children's order come back
    // from the written document; a container without "Children" gets an
    // empty array.
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

        editor.saveAndReload();
        QCOMPARE(editor.scene->toJson(), first);
        QCOMPARE(editor.list->tree()->row(1)->isExpanded(), false);
    }

    // ---------------------------------------------------------------- from the selector

    // A group made from the selector: 50 by 50, no data of its own but the
    // add-on keys, an empty "Children" and an open row.
    void newGroupFromTheSelector()
    {
        Editor editor;
        editor.create(QPointF(300, 200), {press("container"), Answer([](TrovDialog* dialog) {
                                              MyLineEdit* width = dialog->findChild<MyLineEdit*>("Width");
                                              QCOMPARE(width->text(), QStringLiteral("50"));
                                              QVERIFY(!width->isEnabled());
                                              QVERIFY(!dialog->findChild<MyLineEdit*>("Rotation")->isEnabled());
                                          }),
                                          typing("Name", "Anchor"), press("confirmButton")});
        QCOMPARE(editor.scene->components().size(), 1);
        auto* group = qobject_cast<UIComponentGroup*>(editor.scene->components().at(0));
        QVERIFY(group);
        QCOMPARE(group->width, 50);
        const QJsonObject made = editor.scene->toJson().at(0).toObject();
        COMPARE_JSON(made.value("GroupData").toObject(), (QJsonObject{{"Addons", QJsonArray()}, {"Note", ""}}));
        QCOMPARE(made.value("Name").toString(), QStringLiteral("Anchor"));
        QCOMPARE(made.value("Children"), QJsonValue(QJsonArray()));
        QCOMPARE(made.value("Expanded"), QJsonValue(true));
        QCOMPARE(QPoint(made.value("X").toInt(), made.value("Y").toInt()), QPoint(300, 200));

        editor.saveAndReload();
        QCOMPARE(editor.scene->toJson().at(0).toObject(), made);
    }

    // A window made from the selector with a skin chosen in the picker and
    // typed values gets the keys of its kind.
    void newWindowFromTheSelector()
    {
        Editor editor;
        editor.create(QPointF(300, 200),
                      {press("window"), Answer([](TrovDialog* dialog) {
                           MyImageSelector* skin = dialog->findChild<MyImageSelector*>("windowSkin");
                           QCOMPARE(skin->image(), QStringLiteral("Window"));
                           QVERIFY(!dialog->findChild<MyLineEdit*>("Rotation")->isEnabled());
                           QVERIFY(!dialog->findChild<MyLineEdit*>("Opacity")->isEnabled());
                       }),
                       clicking("windowSkin"), pickingRow("fileList", "Skin"), typing("Width", "220"),
                       typing("Height", "160"), typing("Margin", "6"), typing("BackgroundOpacity", "60"),
                       press("confirmButton")});
        QCOMPARE(editor.scene->components().size(), 1);
        auto* window = qobject_cast<UIComponentWindow*>(editor.scene->components().at(0));
        QVERIFY(window);
        QCOMPARE(window->width, 220);
        QCOMPARE(window->minimumWidth(), 24);
        const QJsonObject made = editor.scene->toJson().at(0).toObject();
        COMPARE_JSON(made.value("WindowData").toObject(),
                     (QJsonObject{{"WindowSkin", "Skin"},
                                  {"Width", 220},
                                  {"Height", 160},
                                  {"Padding", 12},
                                  {"Margin", 6},
                                  {"BackgroundOpacity", 60},
                                  {"Addons", QJsonArray()},
                                  {"Note", ""}}));
        QCOMPARE(made.value("Children"), QJsonValue(QJsonArray()));
        QCOMPARE(made.value("Name").toString(), QStringLiteral("Window (ID 1)"));
        // Drawn from the chosen skin.
        COMPARE_COLOR(editor.render(10), 200, 130, TopLeft);

        editor.saveAndReload();
        QCOMPARE(editor.scene->toJson().at(0).toObject(), made);
    }

    // ---------------------------------------------------------------- animation

    // An animation made from the selector: the database picker sets the id
    // and the opener's text, the behaviour its index; a card of 144 pixels.
    void newAnimationFromTheSelector()
    {
        Editor editor;
        editor.projectData = animationsData({"Slash", "Fire Burst", "Heal"});
        editor.create(QPointF(300, 200),
                      {press("animation"), Answer([](TrovDialog* dialog) {
                           QCOMPARE(dialog->findChild<MyDialogOpener*>("AnimationID")->value(),
                                    QStringLiteral("[0001] Slash"));
                       }),
                       clicking("AnimationID"), pickingRow("dataList", "0002 Fire Burst"),
                       Answer([](TrovDialog* dialog) {
                           QCOMPARE(dialog->findChild<MyDialogOpener*>("AnimationID")->value(),
                                    QStringLiteral("[0002] Fire Burst"));
                       }),
                       choosing("AnimationType", 2), press("confirmButton")});
        QCOMPARE(editor.scene->components().size(), 1);
        auto* animation = qobject_cast<UIComponentAnimation*>(editor.scene->components().at(0));
        QVERIFY(animation);
        QCOMPARE(QSize(animation->width, animation->height), QSize(144, 144));
        const QJsonObject made = editor.scene->toJson().at(0).toObject();
        COMPARE_JSON(made.value("AnimationData").toObject(),
                     (QJsonObject{{"AnimationID", 2}, {"Behavior", 2}, {"Addons", QJsonArray()}, {"Note", ""}}));
        QCOMPARE(made.value("ScaleX").toDouble(), 1.0);
        QCOMPARE(made.value("ScaleY").toDouble(), 1.0);
        QCOMPARE(animation->pixmap.toImage(), UIComponentAnimation::card(2, "Fire Burst").toImage());

        editor.saveAndReload();
        QCOMPARE(editor.scene->toJson().at(0).toObject(), made);
    }

    // The card: a translucent brick fill, the id on top, the name below and
    // a dot at the centre. Without a name (none given, or an id past the
    // array) only the id and the dot are drawn.
    void animationCard()
    {
        const QImage named = cardImage(UIComponentAnimation::card(1, "Slash"));
        QCOMPARE(named.size(), QSize(144, 144));
        COMPARE_COLOR(named, 2, 70, QColor(180, 80, 60, 125));
        // The dot: white at half strength over the fill.
        const QColor fill(180, 80, 60, 125);
        const double alpha = 0.5 + fill.alphaF() * 0.5;
        const QColor dot(qRound((0.5 * 255 + fill.alphaF() * 0.5 * 180) / alpha),
                         qRound((0.5 * 255 + fill.alphaF() * 0.5 * 80) / alpha),
                         qRound((0.5 * 255 + fill.alphaF() * 0.5 * 60) / alpha), qRound(alpha * 255));
        COMPARE_COLOR(named, 72, 72, dot);
        QVERIFY(inkOf(named, 0, 60).isValid());
        QVERIFY(inkOf(named, 92, 144).isValid());

        Editor editor;
        editor.projectData = animationsData({"Slash", ""});
        for (int id : {2, 99}) {
            auto* animation = qobject_cast<UIComponentAnimation*>(editor.load(
                QJsonObject{{"ID", 1}, {"Type", 13}, {"AnimationData", QJsonObject{{"AnimationID", id}}}}));
            QVERIFY(animation);
            const QImage card = cardImage(animation->pixmap);
            QVERIFY(inkOf(card, 0, 60).isValid());
            QVERIFY2(!inkOf(card, 80, 144).isValid(), qPrintable(QString::number(id)));
        }
    }

    // A name too wide at 24 pixels is drawn smaller and whole when it fits
    // at some size down to 14; only what still doesn't fit is cut to 140.
    void longNamesShrinkBeforeTheyAreCut()
    {
        QFont font = QApplication::font();
        auto advanceAt = [&font](int size, const QString& text) {
            font.setPixelSize(size);
            return QFontMetrics(font).horizontalAdvance(text);
        };
        // A name that needs a smaller size but fits at 14.
        QString medium = QStringLiteral("Thunder");
        while (advanceAt(24, medium) < 170)
            medium += QStringLiteral(" x");
        QVERIFY(advanceAt(14, medium) < 140);
        int size = 24;
        while (advanceAt(size, medium) >= 145 && size >= 16)
            size -= 2;
        QVERIFY(size < 24);
        const QRect ink = inkOf(cardImage(UIComponentAnimation::card(1, medium)), 92, 144);
        // Whole and centred: as wide as its advance at that size, give or
        // take the glyphs' bearings and the 2-pixel shadow.
        QVERIFY2(qAbs(ink.width() - advanceAt(size, medium)) <= 5,
                 qPrintable(QStringLiteral("%1 against %2").arg(ink.width()).arg(advanceAt(size, medium))));

        // A name that doesn't fit even at 14 pixels is cut to 140.
        const QString longest = QString(QStringLiteral("Meteor Storm ")).repeated(6);
        QVERIFY(advanceAt(14, longest) > 144);
        const QRect cut = inkOf(cardImage(UIComponentAnimation::card(1, longest)), 92, 144);
        QVERIFY2(cut.width() <= 143 && cut.width() > 110, qPrintable(QString::number(cut.width())));
        QVERIFY(cut.left() >= 1);
        // Drawn at 14 pixels: no taller than a line of that size.
        font.setPixelSize(14);
        QVERIFY(cut.height() <= QFontMetrics(font).height() + 2);
    }

    // The behaviour has no say in the preview; the size is a scale of the
    // card, from 25 up to five times it.
    void animationBehaviorAndScale()
    {
        Editor editor;
        QJsonObject animation{{"ID", 1}, {"Type", 13}, {"ScaleX", 0.5}, {"ScaleY", 2.0},
                              {"AnimationData", QJsonObject{{"AnimationID", 1}, {"Behavior", 0}}}};
        auto* once = qobject_cast<UIComponentAnimation*>(editor.load(animation));
        QCOMPARE(QSize(once->width, once->height), QSize(72, 288));
        const QImage first = once->pixmap.toImage();
        animation.insert("AnimationData", QJsonObject{{"AnimationID", 1}, {"Behavior", 2}});
        auto* looping = qobject_cast<UIComponentAnimation*>(editor.load(animation));
        QCOMPARE(looping->pixmap.toImage(), first);
        QCOMPARE(looping->minimumWidth(), 25);
        QCOMPARE(looping->maximumWidth(), 720);
        QCOMPARE(looping->maximumHeight(), 720);

        // Resized on the canvas, the scale follows the new size.
        looping->setWidth(216);
        looping->resized();
        QCOMPARE(looping->data().value("ScaleX").toDouble(), 1.5);
        QCOMPARE(looping->data().value("ScaleY").toDouble(), 2.0);
    }
};

VELMORA_TEST_MAIN(TestContainers, QApplication)
#include "tst_containers.moc"
