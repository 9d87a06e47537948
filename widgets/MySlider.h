#pragma once

#include <QSlider>

class QPropertyAnimation;

// The program's horizontal slider. A press jumps the handle to the pointer
// with a short glide; Ctrl rounds to the step (snap mode always rounds, and
// Ctrl doubles the step). In its framed form it stands in the 45-pixel field
// with a caption; the compact form is the bare track.
class MySlider : public QSlider
{
    Q_OBJECT
    Q_PROPERTY(double currState READ currState WRITE setCurrState)
public:
    explicit MySlider(QWidget* parent = nullptr);

    void setCaption(const QString& text);
    QString caption() const { return captionText; }
    void setFramed(bool framed);
    bool isFramed() const { return framed; }
    void setSnap(bool snap) { snapMode = snap; }
    bool snap() const { return snapMode; }
    // The value a press at x asks for.
    int valueAt(int x, Qt::KeyboardModifiers modifiers) const;
    // The ratio of the value that the track shows.
    double ratio() const;

    double currState() const { return hoverLook; }
    void setCurrState(double value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    void sliderMovedAni(const QVariant& value);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void glideTo(int target);

    QString captionText;
    bool framed = true;
    bool snapMode = false;
    bool dragging = false;
    double hoverLook = 0.0;
    QPropertyAnimation* hoverAnimation;
    QPropertyAnimation* valueAnimation;
};
