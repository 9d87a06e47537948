#pragma once

#include <QPushButton>

class QPropertyAnimation;

// An icon button of the tool rows: the icon grows with a small overshoot
// while the pointer is over it and settles back when it leaves. A checked
// button stands raised on a shadow.
class InflateButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(int transfer READ transfer WRITE setTransfer)
    Q_PROPERTY(int hover READ hover WRITE setHover)
public:
    explicit InflateButton(QWidget* parent = nullptr);
    InflateButton(const QIcon& icon, const QString& name, const QString& description, QWidget* parent = nullptr);

    // The name and description that a group label shows while hovered.
    void setInfo(const QString& name, const QString& description);
    QString name() const { return buttonName; }
    QString description() const { return buttonDescription; }

    int transfer() const { return growth; }
    void setTransfer(int value);
    int hover() const { return hoverLook; }
    void setHover(int value);
    // 1000 while enabled, 500 while disabled: the strength of the icon.
    int scale() const { return isEnabled() ? 1000 : 500; }

    QSize sizeHint() const override;

signals:
    void hoverEntered();
    void hoverLeft();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void hoverTo(bool inside);
    void updateShadow();

    QString buttonName;
    QString buttonDescription;
    int growth = 0;
    int hoverLook = 0;
    bool hovered = false;
    QPropertyAnimation* growAnimation;
    QPropertyAnimation* hoverAnimation;
};
