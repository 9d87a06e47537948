#pragma once

#include "widgets/PickerField.h"

// The field of a colour: a caption, a swatch of the colour and its name. A
// click opens the colour picker over the field's dialog, which dims meanwhile.
// Colours are kept opaque; their JSON form is color().name(), "#rrggbb".
class MyColorPickerButton : public PickerField
{
    Q_OBJECT
public:
    explicit MyColorPickerButton(QWidget* parent = nullptr);

    void setColor(const QColor& color);
    QColor color() const { return current; }

signals:
    // A colour was picked and confirmed.
    void colorChanged(const QColor& color);

public slots:
    void whenClicked();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor current = Qt::white;
};
