#pragma once

#include <QPushButton>

class QPropertyAnimation;

// A choice between two values in the 45-pixel field: a click swaps them,
// the labels cross-fade and slide, and two marks at the right show which
// one stands.
class MyEitherBox : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(double selection READ selection WRITE setSelection)
    Q_PROPERTY(double hover READ hover WRITE setHover)
public:
    explicit MyEitherBox(QWidget* parent = nullptr);

    // The caption above the value.
    void setPlaceholder(const QString& text);
    QString placeholder() const { return captionText; }
    void setChoices(const QString& first, const QString& second);
    QString firstChoice() const { return first; }
    QString secondChoice() const { return second; }
    // true is the first label.
    void setChoice(bool choice, bool skipAnimation = false);
    bool choice() const { return chosen; }

    double selection() const { return position; }
    void setSelection(double value);
    double hover() const { return hoverLook; }
    void setHover(double value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void whenChoiceChanges();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void toggle();
    void runSelection();

    QString captionText;
    QString first;
    QString second;
    bool chosen = true;
    double position = 0.0;
    double hoverLook = 0.0;
    QPropertyAnimation* selectionAnimation;
    QPropertyAnimation* hoverAnimation;
};
