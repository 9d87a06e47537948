#pragma once

#include <QWidget>

// The grip drawn in the lower right corner of the main window. It only paints:
// the frame's hit test does the resizing there. It hides while the window is
// maximised, and with the system's frame, which resizes by itself.
class BRResizerRenderer : public QWidget
{
    Q_OBJECT
public:
    explicit BRResizerRenderer(QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void follow();
};
