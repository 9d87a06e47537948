#pragma once

#include "widgets/FormFieldPainter.h"

#include <QPushButton>

class QPropertyAnimation;

// The clickable 45-pixel fields, the combo box and the dialog opener: a
// press look (currState) and a hover look (currState2), both 0 to 300.
class FieldButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(int currState READ currState WRITE setCurrState)
    Q_PROPERTY(int currState2 READ currState2 WRITE setCurrState2)
public:
    explicit FieldButton(QWidget* parent = nullptr);

    int currState() const { return state; }
    void setCurrState(int value);
    int currState2() const { return state2; }
    void setCurrState2(int value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hoverTo(bool inside);
    // Paints the frame, the underline of the press and the caption, which
    // stands at full strength while the field is fully pressed; returns w.
    int paintField(QPainter& painter, const FormFieldPainter::Colors& colors, const QColor& primary,
                   const QString& caption, int backgroundHeight);
    // While true the hover look stays when the pointer leaves.
    virtual bool holdsHover() const { return false; }

    int state = 0;
    int state2 = 0;
    QPropertyAnimation* pressAnimation;
    QPropertyAnimation* hoverAnimation;
};
