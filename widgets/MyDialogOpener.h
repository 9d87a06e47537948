#pragma once

#include "widgets/FieldButton.h"

// A field that shows a value chosen in a dialog: a caption, the value's
// text and three dots that spread on hover. It opens nothing by itself; the
// form connects clicked to its dialog and calls confirm() after success.
class MyDialogOpener : public FieldButton
{
    Q_OBJECT
public:
    explicit MyDialogOpener(QWidget* parent = nullptr);

    void setTitle(const QString& text);
    QString title() const { return titleText; }
    void setValue(const QString& text);
    QString value() const { return valueText; }
    // Draws the value in italics, as for "(None)".
    void setItalic(bool italic);
    bool isItalic() const { return italicValue; }
    // The acknowledgment after a dialog was confirmed: the press look eases out.
    void confirm();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString titleText;
    QString valueText;
    bool italicValue = false;
};
