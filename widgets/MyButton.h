#pragma once

#include <QColor>
#include <QPushButton>

class QPropertyAnimation;

// A dialog button in a colour of the theme (confirm, cancel and the like),
// standing on a small shadow and brightening on hover. It never takes the
// focus, so Return stays with the form.
class MyButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(int fade READ fade WRITE setFade)
public:
    explicit MyButton(QWidget* parent = nullptr);
    explicit MyButton(const QString& text, QWidget* parent = nullptr);

    void setButtonColor(const QColor& color);
    QColor buttonColor() const { return color; }

    int fade() const { return hover; }
    void setFade(int value);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QColor color;
    int hover = 0;
    QPropertyAnimation* animation;
};
