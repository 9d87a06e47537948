#include "TestEnvironment.h"

#include "theme/ThemeManager.h"
#include "widgets/AlertDialog.h"
#include "widgets/ConfirmationDialog.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/DialogFlags.h"
#include "widgets/DialogOverlay.h"
#include "widgets/TitleBarButtons.h"
#include "widgets/TrovDialog.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QSet>
#include <QPushButton>
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

// Runs answer on the modal dialog on top while trigger runs. The answer runs
// from the event loop rather than the timer, since a timer doesn't fire again
// while its own call runs, and an answer that opens a child dialog waits
// inside it while the child is answered. A dialog is answered again only
// after its last answer returned.
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

// Counts the overlays that a dialog lays over itself and that go again.
class OverlayCounter : public QObject
{
public:
    explicit OverlayCounter(QWidget* dialog) { dialog->installEventFilter(this); }
    int made = 0;
    int gone = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::ChildPolished) {
            if (DialogOverlay* overlay = qobject_cast<DialogOverlay*>(static_cast<QChildEvent*>(event)->child())) {
                ++made;
                connect(overlay, &QObject::destroyed, this, [this]() { ++gone; });
            }
        }
        return false;
    }
};

// A dialog that opens a child the way every dialog does: darken, run the
// child on the stack, undarken. It records the child's outcome.
class Layer : public TrovDialog
{
public:
    std::function<int(QWidget*)> runChild;
    int childOutcome = -1;
    bool opening = false;
    bool overlayStayedForFade = false;

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
            overlayStayedForFade = overlay() != nullptr;
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

    void alertShowsItsMessageAndClosesByItsButton()
    {
        QWidget owner;
        owner.resize(800, 600);
        owner.show();
        bool shownModal = false;
        const TestEnvironment::Seen seen = TestEnvironment::answering(
            [&] { AlertDialog::alert(QStringLiteral("Could not <b>save</b>!"), QStringLiteral("Save Error"), &owner); },
            {[&](TrovDialog* dialog) {
                shownModal = dialog->isModal() && dialog->parentWidget() == &owner;
                click(dialog, "okButton");
            }});
        QCOMPARE(seen.title, QStringLiteral("Save Error"));
        QCOMPARE(seen.text, QStringLiteral("Could not <b>save</b>!"));
        QVERIFY(shownModal);
        QVERIFY(!QApplication::activeModalWidget());
    }

    void confirmationOutcomes_data()
    {
        QTest::addColumn<bool>("nativeTitle");
        QTest::addColumn<QString>("how");
        QTest::addColumn<int>("expected");
        QTest::newRow("Yes") << true << "confirmButton" << 0;
        QTest::newRow("No") << true << "cancelButton" << 1;
        QTest::newRow("Cancel") << true << "endButton" << 2;
        QTest::newRow("frame's close") << true << "close" << 2;
        QTest::newRow("Escape") << true << "escape" << 2;
        QTest::newRow("Ctrl+Return") << true << "ctrl+return" << 0;
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
        // Nothing answered yet is a cancel.
        QCOMPARE(outcome, 2);
        whileModal([&] { dialog.exec(); }, [&](QDialog* shown) {
            if (how == QLatin1String("close")) {
                shown->close();
            } else if (how == QLatin1String("escape")) {
                QTest::keyClick(shown, Qt::Key_Escape);
            } else if (how == QLatin1String("ctrl+return")) {
                QTest::keyClick(shown, Qt::Key_Return, Qt::ControlModifier);
            } else if (how == QLatin1String("titleClose")) {
                CustomTitleBar* bar = shown->findChild<CustomTitleBar*>();
                QVERIFY(bar && bar->isVisible());
                QTest::mouseClick(bar->closeButton(), Qt::LeftButton);
            } else {
                click(shown, how.toLatin1().constData());
            }
        });
        QCOMPARE(outcome, expected);
        QVERIFY(!dialog.isVisible());
    }

    void confirmationForm()
    {
        int outcome = -1;
        ConfirmationDialog lines(QStringList{QStringLiteral("First"), QStringLiteral("Second"), QStringLiteral("Third")},
                                 QStringLiteral("Warning"), &outcome, nullptr, ConfirmationDialog::YesNo,
                                 Qt::AlignLeft);
        QCOMPARE(lines.label()->text(), QStringLiteral("First<br>Second<br>Third"));
        lines.show();
        // In the yes/no form the third button is gone.
        QVERIFY(!lines.findChild<QPushButton*>(QStringLiteral("endButton"))->isVisible());
        QVERIFY(lines.findChild<QPushButton*>(QStringLiteral("cancelButton"))->isVisible());

        // A dialog without a place for its answer still works.
        ConfirmationDialog nowhere(QStringLiteral("?"), QStringLiteral("t"), nullptr);
        whileModal([&] { nowhere.exec(); }, [](QDialog* shown) { click(shown, "confirmButton"); });
        QVERIFY(!nowhere.isVisible());
    }

    void ownTitleBarMovesTheDialog()
    {
        setPreferences({false, false, false});
        QWidget owner;
        owner.setGeometry(100, 100, 900, 700);
        owner.show();
        AlertDialog dialog(QStringLiteral("Text"), QStringLiteral("Moving"), &owner);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QVERIFY(dialog.titleBar()->isVisible());
        // Centred on the owner.
        QTRY_COMPARE(dialog.frameGeometry().center(), owner.geometry().center());

        // The pointer travels in screen coordinates while the window moves under it.
        QWindow* window = dialog.windowHandle();
        auto at = [window](const QPoint& global) { return global - window->position(); };
        const QPoint before = dialog.pos();
        const QPoint grab = before + QPoint(20, 10);
        QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, at(grab));
        QTest::mouseMove(window, at(grab + QPoint(20, 10)));
        QTest::mouseMove(window, at(grab + QPoint(60, 40)));
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, at(grab + QPoint(60, 40)));
        QCOMPARE(dialog.pos(), before + QPoint(60, 40));

        // Below the caption the dialog stays put.
        const QPoint moved = dialog.pos();
        QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, QPoint(20, 40));
        QTest::mouseMove(window, QPoint(60, 80));
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, QPoint(60, 80));
        QCOMPARE(dialog.pos(), moved);
    }

    void nativeTitleBarTakesTheFormsBarAway()
    {
        setPreferences({false, false, false});
        AlertDialog own(QStringLiteral("Same text"), QStringLiteral("Title"));
        const int formHeight = own.height() - 2;
        setPreferences({true, false, false});
        AlertDialog custom(QStringLiteral("Same text"), QStringLiteral("Title"));
        custom.show();
        own.show();
        // With the system's title the form's own bar goes: 30 pixels shorter
        // than the form, which keeps a frame line of its own without it.
        QTRY_COMPARE(custom.height(), formHeight - 30);
        QCOMPARE(own.height(), formHeight + 2);
    }

    // A dialog that isn't meant to be resized is held at its size, so that a
    // window manager offers neither resizing nor maximising; one minimised by
    // the window manager comes straight back instead of hiding the program.
    void dialogsHoldTheirSizeAndStayUp()
    {
        for (const bool native : {true, false}) {
            setPreferences({native, false, false});
            whileModal([&]() { AlertDialog::alert(QStringLiteral("Held"), QStringLiteral("Title")); },
                       [&](QDialog* dialog) {
                           QTRY_VERIFY(dialog->minimumSize() == dialog->maximumSize());
                           QCOMPARE(dialog->size(), dialog->minimumSize());
                           dialog->setWindowState(Qt::WindowMinimized);
                           QTRY_VERIFY(!(dialog->windowState() & Qt::WindowMinimized));
                           QVERIFY(dialog->isVisible());
                           click(dialog, "okButton");
                       });
        }
        TrovDialog free(nullptr, TrovDialog::dialogFlags(), true);
        free.resize(300, 200);
        free.show();
        QTest::qWait(30);
        QVERIFY(free.minimumSize() != free.maximumSize());
    }

    void darkenReplacesAnOverlayAndDims()
    {
        setPreferences({true, true, false});
        TrovDialog dialog;
        dialog.setStyleSheet(QStringLiteral("background: white;"));
        dialog.resize(200, 100);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        dialog.darken();
        dialog.darken();
        QCOMPARE(dialog.findChildren<DialogOverlay*>().size(), 1);

        // Full dimming is black at 120 of 255 over the dialog.
        const QImage dimmed = dialog.grab().toImage();
        const QColor pixel = dimmed.pixelColor(100, 50);
        QVERIFY2(qAbs(pixel.red() - 135) <= 2, qPrintable(pixel.name()));
        QCOMPARE(pixel.red(), pixel.blue());

        dialog.undarken();
        QVERIFY(dialog.findChildren<DialogOverlay*>().isEmpty());
        QCOMPARE(dialog.grab().toImage().pixelColor(100, 50), QColor(Qt::white));
    }

    void nestedDialogsDarkenOnceEach_data()
    {
        QTest::addColumn<bool>("darken");
        QTest::addColumn<bool>("animated");
        QTest::addColumn<bool>("nativeTitle");
        QTest::newRow("no darkening") << false << false << true;
        QTest::newRow("darkening") << true << false << true;
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
        OverlayCounter outerCount(&outer);
        OverlayCounter middleCount(&middle);
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
        whileModal([&] { outerResult = outer.exec(); }, [&](QDialog* shown) {
            if (Layer* layer = dynamic_cast<Layer*>(shown)) {
                // Open the child once; when it is answered, close.
                if (!layer->opening)
                    click(shown, layer->childOutcome == -1 ? "openButton" : "doneButton");
                return;
            }
            // The question is up: both parents are dimmed, fully once the fade ends.
            ++seenWhileAsked;
            for (Layer* layer : {&outer, &middle}) {
                if (darken) {
                    QVERIFY(layer->overlay());
                    QTRY_COMPARE(layer->overlay()->currState(), 100);
                } else {
                    QVERIFY(!layer->findChild<DialogOverlay*>());
                }
            }
            click(shown, "cancelButton");
        });
        QCOMPARE(seenWhileAsked, 1);
        // Every outcome reached its caller.
        QCOMPARE(middle.childOutcome, 1);
        QCOMPARE(outerResult, int(QDialog::Accepted));

        const int expected = darken ? 1 : 0;
        for (OverlayCounter* count : {&middleCount, &outerCount}) {
            QCOMPARE(count->made, expected);
            QTRY_COMPARE(count->gone, expected);
        }
        // Without a fade the overlay goes at once; with one it stays for it.
        QCOMPARE(middle.overlayStayedForFade, darken && animated);
        QVERIFY(!middle.overlay());
        QVERIFY(!outer.overlay());
    }
};

VELMORA_TEST_MAIN(TestDialogs, QApplication)
#include "tst_dialogs.moc"
