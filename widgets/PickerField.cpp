#include "widgets/PickerField.h"

#include "widgets/AnimatedLook.h"
#include "widgets/TrovDialog.h"

#include <QMouseEvent>

// The press eases out in a fixed 500 ms after the picker, as a dialog
// opener's does.
PickerField::PickerField(double hoverFull, QWidget* parent) : FieldButton(240, 500, parent, hoverFull)
{
}

void PickerField::setCaption(const QString& text)
{
    captionText = text;
    update();
}

void PickerField::setParentDialog(TrovDialog* dialog)
{
    parentDialog = dialog;
}

void PickerField::runPicker(const std::function<void()>& picker)
{
    TrovDialog* dimmed = parentDialog ? parentDialog.data() : qobject_cast<TrovDialog*>(window());
    if (dimmed)
        dimmed->darken();
    picker();
    if (dimmed)
        dimmed->undarken();
    press->runFor(press->value(), 0, 500);
}

void PickerField::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        press->run(true);
    QPushButton::mousePressEvent(event);
}

void PickerField::mouseReleaseEvent(QMouseEvent* event)
{
    // A release beside the field clicks nothing; the press eases out anyway.
    QPushButton::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        press->runFor(press->value(), 0, 500);
}
