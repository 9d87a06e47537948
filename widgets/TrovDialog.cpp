#include "widgets/TrovDialog.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/ButtonColors.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/DialogFlags.h"
#include "widgets/DialogOverlay.h"
#include "widgets/MyPopup.h"
#include "widgets/WindowFrameGrip.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <QPainter>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

namespace {

// Height of the form's own title bar, which the system's title replaces.
const int FormTitleHeight = 30;

// What a system frame takes beside its title: the icon, the buttons and the
// margins, generously, as the window manager's own sizes aren't known.
const int SystemFrameRoom = 110;

// The width at which a system frame shows the whole title: the title in the
// bold program font, which is at least as wide as the usual frame fonts.
int systemTitleWidth(const QString& title)
{
    QFont font = QApplication::font();
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(title) + SystemFrameRoom;
}

}

Qt::WindowFlags TrovDialog::dialogFlags()
{
    return Qt::Dialog | Qt::WindowTitleHint | Qt::CustomizeWindowHint | Qt::WindowCloseButtonHint;
}

TrovDialog::TrovDialog(QWidget* parent, Qt::WindowFlags flags, bool resizable)
    : QDialog(parent),
      // The preferences are taken once: a change applies from the next dialog on.
      darkenMode(dialogDarkenLayers ? DialogOverlay::Fill : 0),
      nativeTitle(dialogNativeTitleBar),
      transitionsAllowed(dialogOpenAnimated),
      animateDarken(dialogDarkenAnimated),
      resizable(resizable)
{
    if (!nativeTitle) {
        // Qt gives up the frameless hint beside hints of a caption.
        flags &= ~(Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint
                   | Qt::WindowMinMaxButtonsHint | Qt::WindowContextHelpButtonHint | Qt::CustomizeWindowHint);
        flags |= Qt::FramelessWindowHint;
    }
    if (!nativeTitle && !resizable)
        flags |= Qt::MSWindowsFixedSizeDialogHint;
    setWindowFlags(flags);
    // Without the system's frame the dialog draws a line of its own around it.
    if (!nativeTitle)
        setContentsMargins(1, 1, 1, 1);
    setFocusPolicy(Qt::ClickFocus);
    setFocus();
    if (!nativeTitle) {
        new WindowFrameGrip(this, [this](const QPointF& globalPos) {
            const QPointF local = globalPos - QPointF(mapToGlobal(QPoint(0, 0)));
            return isCaptionAt(size(), local) ? FrameRegion::Caption : FrameRegion::Client;
        }, false);
    }
}

TrovDialog::~TrovDialog() = default;

bool TrovDialog::isCaptionAt(const QSize& size, const QPointF& localPos)
{
    return localPos.x() >= 0 && localPos.y() >= 0 && localPos.x() < size.width() - 31 && localPos.y() <= 29;
}

void TrovDialog::setCenterWidget(QWidget* centralWidget, QWidget* reference)
{
    central = centralWidget;
    centerOn = reference;
    centerDialog();
}

void TrovDialog::setTitleBar(CustomTitleBar* titleBar)
{
    bar = titleBar;
}

void TrovDialog::setConfirmButton(QAbstractButton* button)
{
    confirmButton = button;
}

void TrovDialog::setDialogTitle(const QString& text)
{
    if (bar)
        bar->setTitle(text);
    setWindowTitle(text);
}

void TrovDialog::fixSize()
{
    sizeFixPending = true;
    // The system's title is cut off where the form is narrower than it.
    const int wide = nativeTitle ? qMax(width(), systemTitleWidth(windowTitle())) : width();
    const QSize target(wide, height() - (nativeTitle ? FormTitleHeight : 0));
    // Held before the window is mapped, so that the window manager builds its
    // frame without resize handles or a maximise button.
    if (!resizable)
        setFixedSize(target);
    QTimer::singleShot(1, this, [this, target]() {
        settleSize(target);
        centerDialog();
    });
}

void TrovDialog::attachTo(QWidget* widget)
{
    attached = widget;
    centerDialog();
}

QPoint TrovDialog::centredPosition(const QRect& area, const QSize& frame, const QRect& available)
{
    QRect placed(QPoint(0, 0), frame);
    placed.moveCenter(area.center());
    if (available.isEmpty())
        return placed.topLeft();
    // Kept on the screen; a frame larger than the screen keeps its top left
    // corner, and with it the title bar, on the screen.
    placed.moveRight(qMin(placed.right(), available.right()));
    placed.moveBottom(qMin(placed.bottom(), available.bottom()));
    placed.moveLeft(qMax(placed.left(), available.left()));
    placed.moveTop(qMax(placed.top(), available.top()));
    return placed.topLeft();
}

QSize TrovDialog::outerSize() const
{
    // Without the system's frame the dialog is its own frame. With it, Qt
    // reads the frame off the window manager, whose frame may not have its
    // size yet just after the window is mapped: then the frame comes out
    // smaller than the dialog, and only the dialog's own size is sure.
    const QRect inner = geometry();
    const QRect outer = frameGeometry();
    if (nativeTitle && outer.contains(inner))
        return outer.size();
    return inner.size();
}

void TrovDialog::centerDialog()
{
    QRect area;
    if (attached) {
        area = QRect(attached->mapToGlobal(QPoint(0, 0)), attached->size());
    } else {
        const QWidget* reference = centerOn ? centerOn.data() : parentWidget();
        if (!reference)
            return;
        area = reference->isWindow() ? reference->geometry()
                                     : QRect(reference->mapToGlobal(QPoint(0, 0)), reference->size());
    }
    const QScreen* target = QGuiApplication::screenAt(area.center());
    if (!target)
        target = screen();
    const QPoint corner = centredPosition(area, outerSize(), target ? target->availableGeometry() : QRect());
    if (nativeTitle || !isVisible()) {
        // The frame, with the system's title if there is one, is what
        // stands in the middle.
        move(corner);
        return;
    }
    // A frameless dialog is placed by its own geometry, which leaves out
    // the frame margins Qt reckons for the window.
    setGeometry(QRect(corner, size()));
}

void TrovDialog::darken()
{
    if (darkenMode == 0)
        return;
    delete dimming;
    dimming = new DialogOverlay(this, darkenMode, size());
    dimming->show();
    dimming->raise();
    if (!animateDarken) {
        dimming->setCurrState(100);
        return;
    }
    dimmingIn = dimming->fade(0, 100, 150);
    // Give the fade its time before the child's modal loop takes over. The
    // count sets the feel of the fade; it is meant to be this crude.
    for (int round = 0; round < 18000; ++round)
        QCoreApplication::processEvents();
}

void TrovDialog::undarken()
{
    if (!dimming)
        return;
    if (dimmingIn)
        dimmingIn->stop();
    if (!animateDarken) {
        delete dimming;
        return;
    }
    QPointer<DialogOverlay> fading = dimming;
    connect(fading->fade(100, 0, 200), &QPropertyAnimation::finished, fading, [this, fading]() {
        if (dimming == fading)
            dimming = nullptr;
        fading->deleteLater();
    });
}

void TrovDialog::colorButton(QPushButton* button, int themeKey)
{
    const QColor color = themeColor(themeKey);
    if (!color.isValid())
        return;
    button->setStyleSheet(ButtonColors::styleSheet(button->objectName(), color, color.lighter(125)));
}

QHBoxLayout* TrovDialog::confirmRow(QWidget* owner, QPushButton*& confirm, QPushButton*& cancel)
{
    QHBoxLayout* buttons = new QHBoxLayout();
    buttons->setSpacing(8);
    buttons->addStretch();
    confirm = new QPushButton(tr("Confirm"), owner);
    confirm->setObjectName(QStringLiteral("confirmButton"));
    cancel = new QPushButton(tr("Cancel"), owner);
    cancel->setObjectName(QStringLiteral("cancelButton"));
    for (QPushButton* button : {confirm, cancel}) {
        button->setMinimumWidth(96);
        buttons->addWidget(button);
    }
    confirm->setDefault(true);
    colorButton(confirm, ThemeKey::ConfirmButton);
    colorButton(cancel, ThemeKey::CancelButton);
    return buttons;
}

void TrovDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (wasShown)
        return;
    wasShown = true;
    if (transitionsAllowed) {
        // Windows plays its own opening transition; elsewhere the dialog
        // fades in by itself.
        setWindowOpacity(0.0);
        QPropertyAnimation* fadeIn = new QPropertyAnimation(this, "windowOpacity", this);
        fadeIn->setStartValue(0.0);
        fadeIn->setEndValue(1.0);
        fadeIn->setDuration(120);
        fadeIn->start(QAbstractAnimation::DeleteWhenStopped);
    }
    setUpTitleBar();
    setFocus();
    centerDialog();
    // A dialog whose size nothing settles later is held at its first size.
    if (!sizeFixPending && !(bar && nativeTitle))
        settleSize(size());
    firstShown();
}

void TrovDialog::settleSize(const QSize& target)
{
    if (resizable) {
        resize(target);
        return;
    }
    // One step from one fixed size to the next: a window that was resizable
    // for a moment would keep the maximise button some window managers gave
    // it meanwhile.
    setFixedSize(target);
}

void TrovDialog::changeEvent(QEvent* event)
{
    // Some window managers give every dialog a minimise button; a modal
    // dialog minimised would take the main window along and leave the
    // program stuck behind an invisible question, so it comes straight back.
    if (event->type() == QEvent::WindowStateChange && (windowState() & Qt::WindowMinimized)) {
        QTimer::singleShot(0, this, [this]() {
            setWindowState(windowState() & ~Qt::WindowMinimized);
            show();
            raise();
            activateWindow();
        });
    }
    QDialog::changeEvent(event);
}

void TrovDialog::setUpTitleBar()
{
    if (!bar)
        return;
    if (nativeTitle) {
        bar->collapse();
        if (!sizeFixPending) {
            // A nudge of the height makes the form lay out without its bar.
            QTimer::singleShot(10, this, [this]() {
                settleSize(QSize(width(), height() - 2));
                centerDialog();
            });
        }
    } else {
        bar->setDialog(this);
        bar->setTitle(windowTitle());
    }
}

bool TrovDialog::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::WindowActivate:
        // The frame's final size is known only after the first activations.
        if (activations < 2) {
            ++activations;
            centerDialog();
        }
        if (bar)
            bar->setActive(true);
        update();
        break;
    case QEvent::MouseButtonPress:
        // A press on the frame ends an open drop-down of the form.
        if (MyPopup* popup = MyPopup::openPopup(); popup && !popup->isClosing())
            popup->close();
        break;
    case QEvent::WindowDeactivate:
        if (bar)
            bar->setActive(false);
        update();
        break;
    case QEvent::ScreenChangeInternal:
        // One pixel taller and back redraws the dialog at the new scale.
        QTimer::singleShot(1, this, [this]() {
            const QSize settled = size();
            setMinimumSize(0, 0);
            setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
            resize(settled.width(), settled.height() + 1);
            settleSize(settled);
        });
        break;
    default:
        break;
    }
    return QDialog::event(event);
}

void TrovDialog::paintEvent(QPaintEvent* event)
{
    QDialog::paintEvent(event);
    if (nativeTitle)
        return;
    QPainter painter(this);
    painter.setPen(isActiveWindow() ? QColor(0x3C, 0x3C, 0x3C) : QColor(0x2E, 0x2E, 0x2E));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void TrovDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return && (event->modifiers() & Qt::ControlModifier) && confirmButton) {
        confirmButton->click();
        event->accept();
    }
    QDialog::keyPressEvent(event);
}

TrovDialog::FormFrame TrovDialog::layOutForm(int spacing)
{
    QVBoxLayout* verticalLayout = new QVBoxLayout(this);
    verticalLayout->setContentsMargins(0, 0, 0, 0);
    verticalLayout->setSpacing(0);
    FormFrame frame;
    frame.titleBar = new CustomTitleBar(this);
    verticalLayout->addWidget(frame.titleBar);
    frame.content = new QWidget(this);
    frame.content->setObjectName(QStringLiteral("content"));
    verticalLayout->addWidget(frame.content, 1);
    frame.contentLayout = new QVBoxLayout(frame.content);
    frame.contentLayout->setContentsMargins(14, 14, 14, 12);
    frame.contentLayout->setSpacing(spacing);
    return frame;
}

TrovDialog::MessageFrame TrovDialog::layOutMessage(const QString& text, Qt::Alignment alignment, int minimumWidth)
{
    MessageFrame frame;
    static_cast<FormFrame&>(frame) = layOutForm(14);
    frame.label = new QLabel(frame.content);
    frame.label->setObjectName(QStringLiteral("label"));
    frame.label->setTextFormat(Qt::RichText);
    frame.label->setWordWrap(true);
    frame.label->setAlignment(alignment);
    frame.label->setMinimumWidth(minimumWidth);
    frame.label->setText(text);
    frame.contentLayout->addWidget(frame.label, 1);
    return frame;
}
