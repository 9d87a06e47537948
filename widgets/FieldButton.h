#pragma once

#include "widgets/FormFieldPainter.h"

#include <QPushButton>

class AnimatedLook;

// The clickable 45-pixel fields, the combo box, the dialog opener and the
// pickers' fields: a press look (currState), 0 to 300, and a hover look
// (currState2), 0 to 300 unless the field says otherwise.
class FieldButton : public QPushButton
{
    Q_OBJECT
public:
    // pressOnMs and pressOffMs: the times of the whole press look, in and out.
    FieldButton(int pressOnMs, int pressOffMs, QWidget* parent = nullptr, double hoverFull = 300);

    AnimatedLook* pressLook() const { return press; }
    AnimatedLook* hoverLook() const { return hover; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    // Paints the frame, the underline of the press and the caption, which
    // stands at full strength while the field is fully pressed; returns w.
    int paintField(QPainter& painter, const FormFieldPainter::Colors& colors, const QColor& primary,
                   const QString& caption, int backgroundHeight);
    // How strongly the caption shows: whole while the field is fully
    // pressed, else rising with the hover.
    double captionStrength() const;
    // While true the hover look stays when the pointer leaves.
    virtual bool holdsHover() const { return false; }

    AnimatedLook* press;
    AnimatedLook* hover;
};
