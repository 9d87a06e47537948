#pragma once

#include <QPushButton>

class QPropertyAnimation;

// A field that shows a value chosen in a dialog: a caption, the value's
// text and three dots that spread on hover. It opens nothing by itself; the
// form connects clicked to its dialog and calls confirm() after success.
class MyDialogOpener : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(int currState READ currState WRITE setCurrState)
    Q_PROPERTY(int currState2 READ currState2 WRITE setCurrState2)
public:
    explicit MyDialogOpener(QWidget* parent = nullptr);

    void setTitle(const QString& text);
    QString title() const { return titleText; }
    void setValue(const QString& text);
    QString value() const { return valueText; }
    // Draws the value in italics, as for "(None)".
    void setItalic(bool italic);
    bool isItalic() const { return italicValue; }
    // The acknowledgment after a dialog was confirmed: the press look eases out.
    void confirm();

    int currState() const { return state; }
    void setCurrState(int value);
    int currState2() const { return state2; }
    void setCurrState2(int value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void hoverTo(bool inside);

    QString titleText;
    QString valueText;
    bool italicValue = false;
    int state = 0;
    int state2 = 0;
    QPropertyAnimation* pressAnimation;
    QPropertyAnimation* hoverAnimation;
};
