#pragma once

#include "widgets/FieldButton.h"

#include <QPointer>

#include <functional>

class TrovDialog;

// A field that opens a picker dialog when clicked: a caption, a press look
// that runs up with the press and eases out after the picker, and the dialog
// it belongs to, which dims while the picker runs.
class PickerField : public FieldButton
{
    Q_OBJECT
public:
    void setCaption(const QString& text);
    QString caption() const { return captionText; }
    // The dialog that dims while the picker runs; without one, the field's
    // own window when that is one of the program's dialogs.
    void setParentDialog(TrovDialog* dialog);

protected:
    PickerField(double hoverFull, QWidget* parent);

    // Runs a picker modally over the field's window.
    void runPicker(const std::function<void()>& picker);

    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    QString captionText;

private:
    QPointer<TrovDialog> parentDialog;
};
