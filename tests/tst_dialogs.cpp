#include "TestEnvironment.h"

#include "theme/ThemeManager.h"
#include "widgets/CFramelessWindow.h"
#include "widgets/ConfirmationDialog.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/DialogFlags.h"
#include "widgets/DialogOverlay.h"
#include "widgets/TitleBarButtons.h"
#include "widgets/TrovDialog.h"

#include <QApplication>
#include <QPointer>
#include <QSet>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <functional>

namespace {

struct DialogPreferences {
    bool nativeTitle;
    bool darken;
    bool animated;
};

void setPreferences(const DialogPreferences& preferences)
{
    dialogNativeTitleBar = preferences.nativeTitle;
    dialogDarkenLayers = preferences.darken;
    dialogDarkenAnimated = preferences.animated;
    dialogOpenAnimated = false;
}

// Runs answer on the modal dialog on top while trigger runs, from the event
// loop rather than the timer, so that an answer that opens a child dialog
// waits inside it while the child is answered.
void whileModal(const std::function<void()>& trigger, const std::function<void(QDialog*)>& answer)
{
    QTimer timer;
    timer.setInterval(5);
    QSet<QDialog*> answering;
    QObject::connect(&timer, &QTimer::timeout, [&]() {
        QDialog* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || answering.contains(dialog))
            return;
        answering.insert(dialog);
        QPointer<QDialog> guarded(dialog);
        QMetaObject::invokeMethod(&timer, [&answer, &answering, guarded, dialog]() {
            if (guarded)
                answer(guarded);
            answering.remove(dialog);
        }, Qt::QueuedConnection);
    });
    timer.start();
    trigger();
    timer.stop();
    // Answers still queued belong to dialogs that are gone.
    QCoreApplication::removePostedEvents(&timer, QEvent::MetaCall);
}

void click(QDialog* dialog, const char* objectName)
{
    QPushButton* button = dialog->findChild<QPushButton*>(QLatin1String(objectName));
    QVERIFY2(button && button->isVisible(), objectName);
    QTest::mouseClick(button, Qt::LeftButton);
}

// A dialog that opens a child the way every dialog does: darken, run the
// child on the stack, undarken. It records the child's outcome.
class Layer : public TrovDialog
{
public:
    std::function<int(QWidget*)> runChild;
    int childOutcome = -1;
    bool opening = false;

    explicit Layer(QWidget* parent = nullptr) : TrovDialog(parent)
    {
        QVBoxLayout* layout = new QVBoxLayout(this);
        QPushButton* open = new QPushButton(QStringLiteral("Open"), this);
        open->setObjectName(QStringLiteral("openButton"));
        QPushButton* done = new QPushButton(QStringLiteral("Done"), this);
        done->setObjectName(QStringLiteral("doneButton"));
        layout->addWidget(open);
        layout->addWidget(done);
        resize(360, 240);
        connect(open, &QPushButton::clicked, this, [this]() {
            opening = true;
            darken();
            childOutcome = runChild(this);
            undarken();
            opening = false;
        });
        connect(done, &QPushButton::clicked, this, &QDialog::accept);
    }
};

}

class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Theme::installDefault(); }
    void init() { setPreferences({true, false, false}); }

    void confirmationOutcomes_data()
    {
        QTest::addColumn<bool>("nativeTitle");
        QTest::addColumn<QString>("how");
        QTest::addColumn<int>("expected");
        QTest::newRow("Yes") << true << "confirmButton" << 0;
        QTest::newRow("No") << true << "cancelButton" << 1;
        QTest::newRow("Escape") << true << "escape" << 2;
        QTest::newRow("own title bar's close button") << false << "titleClose" << 2;
    }

    void confirmationOutcomes()
    {
        QFETCH(bool, nativeTitle);
        QFETCH(QString, how);
        QFETCH(int, expected);
        setPreferences({nativeTitle, false, false});
        int outcome = -1;
        ConfirmationDialog dialog(QStringLiteral("Would you like to save before closing?"),
                                  QStringLiteral("Save Confirmation"), &outcome);
        whileModal([&] { dialog.exec(); }, [&](QDialog* shown) {
            if (how == QLatin1String("escape")) {
                QTest::keyClick(shown, Qt::Key_Escape);
            } else if (how == QLatin1String("titleClose")) {
                QTest::mouseClick(shown->findChild<CustomTitleBar*>()->closeButton(), Qt::LeftButton);
            } else {
                click(shown, how.toLatin1().constData());
            }
        });
        QCOMPARE(outcome, expected);
    }

    // Every dialog opens in the middle of its window, whether the dialog and
    // the window draw their own title bars or have the system's, and never
    // past the screen's edges.
    void dialogsOpenCentredAndOnScreen_data()
    {
        QTest::addColumn<bool>("nativeTitle");
        QTest::addColumn<int>("windowStyle");
        QTest::addColumn<QRect>("window");
        const QRect middle(80, 60, 640, 480);
        // Reaches past the right and the bottom of the 800 by 600 screen.
        const QRect pastTheEdge(420, 330, 640, 480);
        QTest::newRow("own title, frameless window") << false << int(CFramelessWindow::Frameless) << middle;
        QTest::newRow("system's title, window past the edge") << true << int(CFramelessWindow::Native) << pastTheEdge;
    }

    void dialogsOpenCentredAndOnScreen()
    {
        QFETCH(bool, nativeTitle);
        QFETCH(int, windowStyle);
        QFETCH(QRect, window);
        setPreferences({nativeTitle, false, false});
        CFramelessWindow owner(windowStyle);
        owner.setGeometry(window);
        owner.show();
        QVERIFY(QTest::qWaitForWindowExposed(&owner));
        const QRect screen = owner.screen()->availableGeometry();
        const QRect visiblePart = owner.geometry() & screen;

        int outcome = -1;
        ConfirmationDialog dialog(QStringLiteral("Would you like to save before closing?"),
                                  QStringLiteral("Save Confirmation"), &outcome, &owner);
        QRect frame;
        whileModal([&] { dialog.exec(); }, [&](QDialog* shown) {
            // Placed for good once its size settled and it was activated.
            QTest::qWait(100);
            frame = shown->frameGeometry();
            click(shown, "cancelButton");
        });
        QVERIFY(screen.contains(frame));
        if (window == visiblePart) {
            QVERIFY(qAbs(frame.center().x() - window.center().x()) <= 1);
            QVERIFY(qAbs(frame.center().y() - window.center().y()) <= 1);
        } else {
            // Pushed in from the edges only as far as needed: it still
            // covers the window's visible corner.
            QVERIFY(frame.intersects(visiblePart));
            QCOMPARE(frame.right(), screen.right());
            QCOMPARE(frame.bottom(), screen.bottom());
        }
    }

    void nestedDialogsDarkenOnceEach_data()
    {
        QTest::addColumn<bool>("darken");
        QTest::addColumn<bool>("animated");
        QTest::addColumn<bool>("nativeTitle");
        QTest::newRow("no darkening") << false << false << true;
        QTest::newRow("darkening, animated, own title bars") << true << true << false;
    }

    void nestedDialogsDarkenOnceEach()
    {
        QFETCH(bool, darken);
        QFETCH(bool, animated);
        QFETCH(bool, nativeTitle);
        setPreferences({nativeTitle, darken, animated});

        Layer outer;
        Layer middle(&outer);
        int questionOutcome = -1;
        outer.runChild = [&](QWidget*) { return middle.exec(); };
        middle.runChild = [&](QWidget* parent) {
            ConfirmationDialog question(QStringLiteral("Three deep?"), QStringLiteral("Question"), &questionOutcome,
                                        parent);
            question.exec();
            return questionOutcome;
        };

        int outerResult = -1;
        int seenWhileAsked = 0;
        QVector<int> overlays;
        whileModal([&] { outerResult = outer.exec(); }, [&](QDialog* shown) {
            if (Layer* layer = dynamic_cast<Layer*>(shown)) {
                // Open the child once; when it is answered, close.
                if (!layer->opening)
                    click(shown, layer->childOutcome == -1 ? "openButton" : "doneButton");
                return;
            }
            // The question is up: both parents are dimmed once each, fully
            // once the fade ends.
            ++seenWhileAsked;
            for (Layer* layer : {&outer, &middle}) {
                overlays.append(layer->findChildren<DialogOverlay*>(QString(), Qt::FindDirectChildrenOnly).size());
                if (darken && layer->overlay())
                    QTRY_COMPARE(layer->overlay()->currState(), 100);
            }
            click(shown, "cancelButton");
        });
        QCOMPARE(seenWhileAsked, 1);
        QCOMPARE(overlays, QVector<int>(2, darken ? 1 : 0));
        QCOMPARE(middle.childOutcome, 1);
        QCOMPARE(outerResult, int(QDialog::Accepted));

        // Every overlay goes again.
        QTRY_VERIFY(outer.findChildren<DialogOverlay*>().isEmpty() && middle.findChildren<DialogOverlay*>().isEmpty());
    }
};

VELMORA_TEST_MAIN(TestDialogs, QApplication)
#include "tst_dialogs.moc"
