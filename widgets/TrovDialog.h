#pragma once

#include "widgets/DialogOverlay.h"

#include <QDialog>
#include <QPointer>

class QLabel;
class QVBoxLayout;

class CustomTitleBar;
class QAbstractButton;
class QPropertyAnimation;
class QHBoxLayout;
class QPushButton;

// The base of every dialog of the program: the custom or the system's title
// bar by the user's choice, the dimming while a child dialog is open, centring
// on the parent, the opening fade and Ctrl+Return for the confirm button.
//
// A dialog is made on the caller's stack and run with exec(). A dialog that
// opens a child wraps the child's run in darken() and undarken().
class TrovDialog : public QDialog
{
    Q_OBJECT
public:
    // The flags every dialog passes.
    static Qt::WindowFlags dialogFlags();

    // A resizable dialog keeps its size free; others are fixed to their form.
    explicit TrovDialog(QWidget* parent = nullptr, Qt::WindowFlags flags = dialogFlags(), bool resizable = false);
    ~TrovDialog() override;

    // Centres at once; centerOn, if given, replaces the parent as reference.
    void setCenterWidget(QWidget* central, QWidget* centerOn = nullptr);
    void setTitleBar(CustomTitleBar* bar);
    void setConfirmButton(QAbstractButton* button);
    void setDialogTitle(const QString& text);
    // Settles the size the form asked for once the dialog is shown, less the
    // form's title bar when the system's title bar stands in for it.
    void fixSize();
    void darken();
    void undarken();
    // From now on the dialog centres on this widget.
    void attachTo(QWidget* widget);
    // Centres the dialog on its reference, kept on the reference's screen.
    void centerDialog();
    // The top left corner of a frame of this size centred on area and moved
    // inside available, if that isn't empty.
    static QPoint centredPosition(const QRect& area, const QSize& frame, const QRect& available);

    // Colours a confirm, cancel or other dialog button with a theme colour.
    static void colorButton(QPushButton* button, int themeKey);
    // The row at the foot of a dialog: "Confirm" (the default) and "Cancel"
    // on the right, in their theme colours, made in owner.
    static QHBoxLayout* confirmRow(QWidget* owner, QPushButton*& confirm, QPushButton*& cancel);

    // The top strip that drags a dialog with the custom title bar: 29 pixels
    // high, and left of the close button's 31.
    static bool isCaptionAt(const QSize& size, const QPointF& localPos);

    bool usesNativeTitleBar() const { return nativeTitle; }
    CustomTitleBar* titleBar() const { return bar; }
    DialogOverlay* overlay() const { return dimming; }
    QWidget* centerWidget() const { return central; }

protected:
    // The parts of a dialog's form: the title bar over a content area whose
    // vertical layout (margins 14, 14, 14, 12) the form fills.
    struct FormFrame {
        CustomTitleBar* titleBar;
        QWidget* content;
        QVBoxLayout* contentLayout;
    };
    FormFrame layOutForm(int spacing = 12);
    // A message dialog's form: the text in the content area; the caller adds
    // its buttons to contentLayout.
    struct MessageFrame : FormFrame {
        QLabel* label;
    };
    MessageFrame layOutMessage(const QString& text, Qt::Alignment alignment, int minimumWidth);

    // Called once, at the end of the first show.
    virtual void firstShown() {}

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setUpTitleBar();
    // The size of the dialog with the system's frame, if it has one.
    QSize outerSize() const;
    // Resizes to the size the form settled on and, unless the dialog is
    // resizable, holds it there: the window manager then offers neither
    // resizing nor maximising.
    void settleSize(const QSize& size);

    QWidget* central = nullptr;
    QPointer<QWidget> centerOn;
    QPointer<QWidget> attached;
    QPointer<DialogOverlay> dimming;
    QPointer<QPropertyAnimation> dimmingIn;
    CustomTitleBar* bar = nullptr;
    QPointer<QAbstractButton> confirmButton;
    int darkenMode;
    int activations = 0;
    bool nativeTitle;
    bool transitionsAllowed;
    bool animateDarken;
    bool resizable;
    bool wasShown = false;
    bool sizeFixPending = false;
};
