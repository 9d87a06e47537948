#pragma once

#include <QLabel>

class QPropertyAnimation;

// A caption that inflates a new text into place, such as a tool row's label
// that shows the hovered button's name, and lightens under the pointer.
class InflateLabel : public QLabel
{
    Q_OBJECT
    Q_PROPERTY(int transfer READ transfer WRITE setTransfer)
    Q_PROPERTY(int hover READ hover WRITE setHover)
public:
    explicit InflateLabel(QWidget* parent = nullptr);
    explicit InflateLabel(const QString& text, QWidget* parent = nullptr);

    // Shows a new text, growing it in from a smaller size.
    void setAnimatedText(const QString& text);
    // The text the label returns to with restore().
    void setRestingText(const QString& text);
    QString restingText() const { return resting; }
    void restore();

    int transfer() const { return growth; }
    void setTransfer(int value);
    int hover() const { return hoverLook; }
    void setHover(int value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString resting;
    int growth = 1000;
    int hoverLook = 0;
    QPropertyAnimation* growAnimation;
    QPropertyAnimation* hoverAnimation;
};
