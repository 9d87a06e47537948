// A user inside an editor process that a test started (velmora-test-editor,
// the editor's own start-up with this file beside it): it acts only through
// the editor's own widgets, as a person at the keyboard would, and writes
// what it saw to a log file.
//
// VELMORA_TEST_USER=edit     pastes the HUD in VELMORA_TEST_USER_HUD into the
//                            HUD list (Ctrl+V) and does nothing more.
// VELMORA_TEST_USER=restore  answers the first question with "Yes", saves with
//                            the menu's save command and closes the window.
// VELMORA_TEST_USER=save     pastes that HUD, saves with the menu's save
//                            command, writes the current colours as the user
//                            theme "Mine" and closes the window.
// VELMORA_TEST_USER=settings opens the settings, picks the "Frameless" window
//                            and the "Red Tint" theme with the keys, switches
//                            the dialogs' opening animation off, confirms and
//                            quits without saving the project.
// VELMORA_TEST_USER=discard  pastes that HUD, closes the window and answers
//                            "No" to the question whether to save.
// VELMORA_TEST_USER=closeatonce closes the window the moment it is shown,
//                            before start-up has finished with it.
// VELMORA_TEST_USER=report   writes the window style, frame, theme and the
//                            opening animation the editor started with, and
//                            quits.

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QGraphicsView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include "app/VelmoMainWindow.h"
#include "theme/ThemeManager.h"

namespace {

void note(const QString& line)
{
    QFile log(qEnvironmentVariable("VELMORA_TEST_USER_LOG"));
    if (log.open(QIODevice::Append))
        log.write(line.toUtf8() + '\n');
}

QWidget* editorWindow()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("VelmoMainWindow") && widget->isVisible())
            return widget;
    }
    return nullptr;
}

void typeKey(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers);
    QApplication::sendEvent(widget, &release);
}

// Pastes the HUD in VELMORA_TEST_USER_HUD into the HUD list once it shows;
// false while it doesn't.
bool pasteHud(QWidget* window)
{
    QWidget* list = window->findChild<QWidget*>(QStringLiteral("hudList"));
    QGraphicsView* tree = list ? list->findChild<QGraphicsView*>() : nullptr;
    if (!tree || !tree->isVisible())
        return false;
    QApplication::clipboard()->setText(QStringLiteral("VELMORAHUD") + qEnvironmentVariable("VELMORA_TEST_USER_HUD"));
    tree->setFocus();
    typeKey(tree, Qt::Key_V, Qt::ControlModifier);
    note(QStringLiteral("edited"));
    return true;
}

// One step of the user each time the timer ticks; true when done.
bool act()
{
    QWidget* window = editorWindow();
    if (!window)
        return false;
    const QString mode = qEnvironmentVariable("VELMORA_TEST_USER");
    if (mode == QLatin1String("edit"))
        return pasteHud(window);
    if (mode == QLatin1String("discard")) {
        static bool closing = false;
        if (!closing) {
            if (!pasteHud(window))
                return false;
            closing = true;
            QTimer::singleShot(50, window, [window]() { window->close(); });
            return false;
        }
        QWidget* question = QApplication::activeModalWidget();
        QPushButton* no = question ? question->findChild<QPushButton*>(QStringLiteral("cancelButton")) : nullptr;
        if (!no || !no->isVisible())
            return false;
        note(QStringLiteral("asked: %1").arg(question->windowTitle()));
        no->click();
        note(QStringLiteral("answered No"));
        return true;
    }
    if (mode == QLatin1String("save")) {
        if (!pasteHud(window))
            return false;
        QTimer::singleShot(50, window, [window]() {
            if (QAction* save = window->findChild<QAction*>(QStringLiteral("Action_SaveProject")))
                save->trigger();
            note(QStringLiteral("saved"));
            if (Theme::save(Theme::table(), QStringLiteral("Mine")))
                note(QStringLiteral("theme written"));
            window->close();
        });
        return true;
    }
    if (mode == QLatin1String("restore")) {
        QWidget* question = QApplication::activeModalWidget();
        if (!question)
            return false;
        const QLabel* label = question->findChild<QLabel*>(QStringLiteral("label"));
        note(QStringLiteral("asked: %1: %2").arg(question->windowTitle(), label ? label->text() : QString()));
        QPushButton* yes = question->findChild<QPushButton*>(QStringLiteral("confirmButton"));
        if (yes)
            yes->click();
        QTimer::singleShot(50, window, [window]() {
            if (QAction* save = window->findChild<QAction*>(QStringLiteral("Action_SaveProject")))
                save->trigger();
            note(QStringLiteral("saved"));
            window->close();
        });
        return true;
    }
    return true;
}

// Closes the editor's window in the middle of its being shown, as a user does
// who closes at once.
class CloseAtOnce : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show && watched->inherits("VelmoMainWindow")) {
            note(QStringLiteral("closing at once"));
            static_cast<QWidget*>(watched)->close();
        }
        return false;
    }
};

void startUser()
{
    if (qEnvironmentVariableIsEmpty("VELMORA_TEST_USER"))
        return;
    if (qEnvironmentVariable("VELMORA_TEST_USER") == QLatin1String("closeatonce")) {
        QCoreApplication::instance()->installEventFilter(new CloseAtOnce(QCoreApplication::instance()));
        return;
    }
    QTimer* timer = new QTimer(QCoreApplication::instance());
    timer->setInterval(50);
    QObject::connect(timer, &QTimer::timeout, [timer]() {
        if (act())
            timer->stop();
    });
    timer->start();
}

}

Q_COREAPP_STARTUP_FUNCTION(startUser)
