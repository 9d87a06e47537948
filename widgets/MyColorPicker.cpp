#include "widgets/MyColorPicker.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QColorDialog>
#include <QFrame>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Qt's colour dialog asks the program's translator for its own texts; they
// stand here so that they are in the translation base with the program's.
[[maybe_unused]] const char* const QtDialogTexts[] = {
    QT_TRANSLATE_NOOP("QColorDialog", "&Basic colors"),
    QT_TRANSLATE_NOOP("QColorDialog", "&Custom colors"),
    QT_TRANSLATE_NOOP("QColorDialog", "&Add to Custom Colors"),
    QT_TRANSLATE_NOOP("QColorDialog", "&Pick Screen Color"),
    QT_TRANSLATE_NOOP("QColorDialog", "Hu&e:"),
    QT_TRANSLATE_NOOP("QColorDialog", "&Sat:"),
    QT_TRANSLATE_NOOP("QColorDialog", "&Val:"),
    QT_TRANSLATE_NOOP("QColorDialog", "&Red:"),
    QT_TRANSLATE_NOOP("QColorDialog", "&Green:"),
    QT_TRANSLATE_NOOP("QColorDialog", "Bl&ue:"),
    QT_TRANSLATE_NOOP("QColorDialog", "&HTML:"),
};

}

MyColorPicker::MyColorPicker(QColor* color, bool* accepted, QWidget* parent, QWidget* attachTo)
    : PickerDialog(accepted, parent), color(color)
{
    setObjectName(QStringLiteral("MyColorPicker"));
    holder = new QWidget(content);
    holder->setObjectName(QStringLiteral("holder"));
    QVBoxLayout* holderLayout = new QVBoxLayout(holder);
    holderLayout->setContentsMargins(0, 0, 0, 0);
    insertFrame = new QFrame(holder);
    insertFrame->setObjectName(QStringLiteral("insertFrame"));
    insertFrame->setStyleSheet(QStringLiteral("#insertFrame { background-color: qlineargradient(x1:0, y1:0, x2:0, "
                                              "y2:1, stop:0 %1, stop:1 %2); border: 1px solid %3; }")
                                   .arg(themeColor(ThemeKey::InsertFrameBackgroundTop).name(),
                                        themeColor(ThemeKey::InsertFrameBackgroundBottom).name(),
                                        themeColor(ThemeKey::InsertFrameBorder).name()));
    QVBoxLayout* frameLayout = new QVBoxLayout(insertFrame);
    frameLayout->setContentsMargins(6, 6, 6, 6);
    holderLayout->addWidget(insertFrame);

    // Qt's dialog becomes a plain child of the frame. Its own buttons go, so
    // that only the frame's two decide.
    picker = new QColorDialog(color->isValid() ? *color : QColor(Qt::white), insertFrame);
    picker->setObjectName(QStringLiteral("colorDialog"));
    picker->setOptions(QColorDialog::DontUseNativeDialog | QColorDialog::NoButtons);
    picker->setWindowFlags(Qt::FramelessWindowHint);
    for (QLineEdit* edit : picker->findChildren<QLineEdit*>())
        edit->setStyleSheet(QStringLiteral("QLineEdit {} \nQLineEdit:focus {}"));
    picker->installEventFilter(this);
    frameLayout->addWidget(picker);
    picker->show();
    contentLayout->addWidget(holder, 1);
    addButtons(contentLayout);

    QMetaObject::connectSlotsByName(this);
    finish(tr("Select Color"));
    if (attachTo)
        this->attachTo(attachTo);
}

QColor MyColorPicker::pick(const QColor& initial, const QString& title, QWidget* parent, TrovDialog* dimmed,
                           QWidget* attachTo)
{
    QColor chosen = initial;
    bool accepted = false;
    if (dimmed)
        dimmed->darken();
    {
        MyColorPicker picker(&chosen, &accepted, parent, attachTo);
        if (!title.isEmpty())
            picker.setDialogTitle(title);
        picker.exec();
    }
    if (dimmed)
        dimmed->undarken();
    return accepted ? chosen : QColor();
}

bool MyColorPicker::eventFilter(QObject* watched, QEvent* event)
{
    // Qt's dialog would close itself on Escape or Return and leave an empty
    // frame; the keys belong to the frame.
    if (watched == picker && event->type() == QEvent::KeyPress) {
        const QKeyEvent* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Cancel)) {
            reject();
            return true;
        }
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
            && !(key->modifiers() & ~Qt::KeypadModifier)) {
            on_confirmButton_clicked();
            return true;
        }
    }
    return PickerDialog::eventFilter(watched, event);
}

void MyColorPicker::on_confirmButton_clicked()
{
    *color = picker->currentColor();
    acceptChoice();
}
