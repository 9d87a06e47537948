#pragma once

#include <QWidget>

// A two-pixel separator: a dark row over a light one, from the theme.
class MyHorizontalLine : public QWidget
{
    Q_OBJECT
public:
    explicit MyHorizontalLine(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
