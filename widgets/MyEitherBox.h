#pragma once

#include <QPushButton>

class AnimatedLook;

// A choice between two values in the 45-pixel field: a click swaps them,
// the labels cross-fade and slide, and two marks at the right show which
// one stands.
class MyEitherBox : public QPushButton
{
    Q_OBJECT
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

    // The selection runs from 0 (the first label) to 1000 (the second); the
    // hover from 0 to 1000.
    AnimatedLook* selectionLook() const { return selection; }
    AnimatedLook* hoverLook() const { return hover; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void whenChoiceChanges();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void toggle();

    QString captionText;
    QString first;
    QString second;
    bool chosen = true;
    AnimatedLook* selection;
    AnimatedLook* hover;
};
