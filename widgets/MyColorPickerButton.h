#pragma once

#include "widgets/FieldButton.h"

#include <QPointer>

class TrovDialog;

// The field of a colour: a caption, a swatch of the colour and its name. A
// click opens the colour picker over the field's dialog, which dims meanwhile.
// Colours are kept opaque; their JSON form is color().name(), "#rrggbb".
class MyColorPickerButton : public FieldButton
{
    Q_OBJECT
public:
    explicit MyColorPickerButton(QWidget* parent = nullptr);

    void setCaption(const QString& text);
    QString caption() const { return captionText; }
    void setColor(const QColor& color);
    QColor color() const { return current; }
    // The dialog that dims while the picker runs; without one, the field's
    // own window when that is one of the program's dialogs.
    void setParentDialog(TrovDialog* dialog);

signals:
    // A colour was picked and confirmed.
    void colorChanged(const QColor& color);

public slots:
    void whenClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString captionText;
    QColor current = Qt::white;
    QPointer<TrovDialog> parentDialog;
};
