#pragma once

#include <QPushButton>

class QPropertyAnimation;

// A window button of a custom title bar: close, maximise or restore, minimise.
// It draws its own symbol and fades its hover colour in and out.
class TitleBarButtons : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(int animator READ animator WRITE setAnimator)
public:
    // Kinds below Maximize are close buttons.
    enum Kind { Close = 0, Maximize = 1, Minimize = 2 };

    explicit TitleBarButtons(int kind, bool compact = false, QWidget* parent = nullptr);

    int kind() const { return buttonKind; }
    int animator() const { return hover; }
    void setAnimator(int value);
    // The maximise button shows the restore symbol while the window is maximised.
    void setMaximized(bool maximized);
    bool showsRestore() const { return maximized; }

protected:
    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void hoverTo(bool inside);
    // What the hover fades in under a symbol of that colour.
    QColor hoverFill(const QColor& symbol) const;

    int buttonKind;
    int hover = 0;
    bool hovered = false;
    bool maximized = false;
    QPropertyAnimation* animation;
};
