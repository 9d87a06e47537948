#pragma once

#include "widgets/PickerDialog.h"

#include <QColor>

class QColorDialog;
class QFrame;

// Picks a colour in Qt's colour dialog, set into the program's own frame: the
// Qt dialog keeps its wheel, fields and swatches, and the frame's confirm and
// cancel buttons stand in for its own.
class MyColorPicker : public PickerDialog
{
    Q_OBJECT
public:
    // color is the colour to start from and is changed only when the dialog
    // is confirmed. The caller gives the title; attachTo, if given, is the
    // widget the dialog centres on.
    MyColorPicker(QColor* color, bool* accepted, QWidget* parent = nullptr, QWidget* attachTo = nullptr);

    // Runs a picker titled title over parent, with dimmed (if any) darkened
    // meanwhile; an invalid colour when it was cancelled.
    static QColor pick(const QColor& initial, const QString& title, QWidget* parent, TrovDialog* dimmed,
                       QWidget* attachTo = nullptr);

    QColorDialog* colorDialog() const { return picker; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void on_confirmButton_clicked();

private:
    QColor* color;
    QWidget* holder;
    QFrame* insertFrame;
    QColorDialog* picker;
};
