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
// The texts' colour as it shows at strength (0 to 1) over the field's
// background, a disabled field being seen at half strength over the window.
// It is kept readable, 4.5:1 against the background, 3:1 while disabled,
// however the look fades it.
QColor ink(const QWidget* widget, const QColor& background, double strength);

// Centres the field in a taller widget, dims a disabled one and returns w,
// the widget's width minus 1.
int begin(QPainter& painter, const QWidget* widget);
// Background and outline; hover is 0 to 1 and shows only while the field
// isn't fully pressed. backgroundHeight is the height of the fill.
void frame(QPainter& painter, int w, const Colors& colors, double hover, int backgroundHeight = 44);
// The underline grown to state (0 to 300) out of the middle.
void underline(QPainter& painter, int w, double state, const QColor& color);
// The small caption at the top, left aligned, at strength (0 to 1).
void caption(QPainter& painter, const QWidget* widget, int w, const QString& text, const QColor& background,
             double strength);
// The value font, pixel size 15, and the value's ink at full strength.
void setValueFont(QPainter& painter, const QWidget* widget, const QColor& background, bool italic = false);

}
