#include "TestEnvironment.h"

#include "app/VelmoMainTitleBar.h"
#include "app/VelmoMainWindow.h"
#include "theme/ThemeManager.h"
#include "widgets/CFramelessWindow.h"
#include "widgets/TitleBarButtons.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QWindow>

Q_DECLARE_METATYPE(FrameRegion)

namespace {

// A frameless window at a known place with a title bar of 29 pixels: a
// caption label, a label that isn't one, and three 45-pixel buttons at the
// right end, like the window buttons.
struct Frame {
    CFramelessWindow window{CFramelessWindow::Frameless};
    QWidget* bar = new QWidget(&window);

    Frame()
    {
        bar->setFixedHeight(29);
        QHBoxLayout* row = new QHBoxLayout(bar);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(0);
        for (const char* text : {"Caption", "Other"}) {
            row->addWidget(new QLabel(QLatin1String(text), bar));
            row->itemAt(row->count() - 1)->widget()->setFixedWidth(100);
        }
        row->addStretch();
        for (int i = 0; i < 3; ++i) {
            row->addWidget(new QPushButton(bar));
            row->itemAt(row->count() - 1)->widget()->setFixedSize(45, 29);
        }
        window.setMenuWidget(bar);
        window.setTitleBar(bar);
        window.addCaptionWidget(row->itemAt(0)->widget());
        window.setCentralWidget(new QWidget(&window));
        window.setMinimumSize(400, 200);
        window.setGeometry(100, 50, 800, 600);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }

    QWindow* handle() const { return window.windowHandle(); }
    // Local coordinates of a point on the screen, for the window as it stands.
    QPoint at(const QPoint& global) const { return global - handle()->position(); }
};

}

class TestFramelessWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Theme::installDefault(); }

    void hitTest_data()
    {
        QTest::addColumn<qreal>("ratio");
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<FrameRegion>("expected");

        // Frame (100, 50) 800 by 600: right edge 900, bottom edge 650, both outside.
        // The strips are 8 wide, the lower right corner 16; the top strip
        // leaves the window buttons (the right 134) their upper edge.
        QTest::newRow("1: left strip, inner") << 1.0 << QPointF(107, 300) << FrameRegion::Left;
        QTest::newRow("1: past the left strip") << 1.0 << QPointF(108, 300) << FrameRegion::Client;
        QTest::newRow("1: top strip left of the buttons") << 1.0 << QPointF(765, 55) << FrameRegion::Top;
        QTest::newRow("1: top strip over the buttons") << 1.0 << QPointF(766, 55) << FrameRegion::Control;
        QTest::newRow("1: bottom right, 16 in") << 1.0 << QPointF(884, 634) << FrameRegion::BottomRight;
        QTest::newRow("1: caption widget") << 1.0 << QPointF(150, 65) << FrameRegion::Caption;
        QTest::newRow("1: label that is no caption") << 1.0 << QPointF(250, 65) << FrameRegion::Control;
        // At ratio 2 the edges count physical pixels, 8 of them being 4
        // logical; the title bar still counts logical ones.
        QTest::newRow("2: past the left strip") << 2.0 << QPointF(104, 300) << FrameRegion::Client;
    }

    void hitTest()
    {
        QFETCH(qreal, ratio);
        QFETCH(QPointF, point);
        QFETCH(FrameRegion, expected);
        Frame frame;
        const FrameRegion region = CFramelessWindow::hitTest(frame.window.frameGeometry(), point, ratio, true,
                                                             frame.bar, frame.window.captionWidgets());
        QCOMPARE(int(region), int(expected));
    }

    void dragsMoveAndResize_data()
    {
        QTest::addColumn<QPoint>("grab");
        QTest::addColumn<QPoint>("by");
        QTest::addColumn<QRect>("expected");
        // The window starts at (100, 50), 800 by 600, at least 400 by 200.
        QTest::newRow("caption moves") << QPoint(500, 60) << QPoint(60, 40) << QRect(160, 90, 800, 600);
        QTest::newRow("bottom right, 12 in") << QPoint(888, 638) << QPoint(-100, -80) << QRect(100, 50, 700, 520);
        QTest::newRow("no smaller than the minimum") << QPoint(102, 300) << QPoint(700, 0) << QRect(500, 50, 400, 600);
        QTest::newRow("client area stays") << QPoint(400, 300) << QPoint(60, 40) << QRect(100, 50, 800, 600);
    }

    void dragsMoveAndResize()
    {
        QFETCH(QPoint, grab);
        QFETCH(QPoint, by);
        QFETCH(QRect, expected);
        Frame frame;
        // Without a window manager the window moves and resizes itself.
        QTest::mousePress(frame.handle(), Qt::LeftButton, Qt::NoModifier, frame.at(grab));
        for (int step = 1; step <= 4; ++step)
            QTest::mouseMove(frame.handle(), frame.at(grab + by * step / 4));
        QTest::mouseRelease(frame.handle(), Qt::LeftButton, Qt::NoModifier, frame.at(grab + by));
        QCOMPARE(frame.window.geometry(), expected);
    }

    void doubleClickOnTheCaptionMaximisesAndRestores()
    {
        Frame frame;
        QTest::mouseDClick(frame.handle(), Qt::LeftButton, Qt::NoModifier, QPoint(400, 10));
        QTRY_VERIFY(frame.window.isMaximized());
        // Maximised, the edges don't resize and the caption doesn't move.
        const QRect maximized = frame.window.geometry();
        QTest::mousePress(frame.handle(), Qt::LeftButton, Qt::NoModifier, QPoint(2, 300));
        QTest::mouseMove(frame.handle(), QPoint(60, 300));
        QTest::mouseRelease(frame.handle(), Qt::LeftButton, Qt::NoModifier, QPoint(60, 300));
        QCOMPARE(frame.window.geometry(), maximized);
        QTest::mouseDClick(frame.handle(), Qt::LeftButton, Qt::NoModifier, QPoint(400, 10));
        QTRY_VERIFY(!frame.window.isMaximized());
        QTRY_COMPARE(frame.window.geometry(), QRect(100, 50, 800, 600));
    }

    void mainWindowFrameAndTitleBar()
    {
        VelmoMainWindow window(CFramelessWindow::Frameless, false, QString(), QString());
        window.setGeometry(100, 50, 1000, 700);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        VelmoMainTitleBar* bar = window.findChild<VelmoMainTitleBar*>();
        TitleBarButtons* maximize = bar->maximizeButton();

        // The maximise button maximises and restores.
        QTest::mouseClick(maximize, Qt::LeftButton);
        QTRY_VERIFY(window.isMaximized());
        QTest::mouseClick(maximize, Qt::LeftButton);
        QTRY_VERIFY(!window.isMaximized());

        // The close button closes the window.
        QTest::mouseClick(bar->closeButton(), Qt::LeftButton);
        QTRY_VERIFY(!window.isVisible());
    }
};

VELMORA_TEST_MAIN(TestFramelessWindow, QApplication)
#include "tst_framelesswindow.moc"
