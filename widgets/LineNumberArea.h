#pragma once

#include <QWidget>

class HaxeCodeEdit;

// The code input's gutter: the numbers of the visible lines, the cursor's
// and the selected ones brighter. A press selects a line, and a drag with
// the button down extends the selection line by line.
class LineNumberArea : public QWidget
{
    Q_OBJECT
public:
    explicit LineNumberArea(HaxeCodeEdit* editor);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    HaxeCodeEdit* editor;
    // The line a press began on, -1 while no button is down.
    int anchorLine = -1;
};
