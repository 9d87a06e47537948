#pragma once

#include <QColor>
#include <QString>

class QPainter;
class QWidget;

// The 45-pixel field that the line edit, combo box, dialog opener, either box
// and framed slider share: a caption small at the top, the value below it,
// an outline that lights up on hover and an underline that grows from the
// middle on focus or press.
namespace FormFieldPainter {

struct Colors {
    QColor base;
    QColor hover;
    QColor background;
};

// The colour of the field's texts.
QColor textColor();

// Centres the field in a taller widget, dims a disabled one and returns w,
// the widget's width minus 1.
int begin(QPainter& painter, const QWidget* widget);
// Background and outline; hover is 0 to 1 and shows only while the field
// isn't fully pressed. backgroundHeight is the height of the fill.
void frame(QPainter& painter, int w, const Colors& colors, double hover, int backgroundHeight = 44);
// The underline grown to state (0 to 300) out of the middle.
void underline(QPainter& painter, int w, double state, const QColor& color);
// The small caption at the top, left aligned.
void caption(QPainter& painter, int w, const QString& text, double opacity);
// The value font: pixel size 15.
void setValueFont(QPainter& painter, const QWidget* widget, bool italic = false);

}
