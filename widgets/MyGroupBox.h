#pragma once

#include <QGroupBox>

// A titled panel of a form: a soft shadow, a gradient body and a title strip,
// all in the theme's group box colours.
class MyGroupBox : public QGroupBox
{
    Q_OBJECT
public:
    explicit MyGroupBox(QWidget* parent = nullptr);
    explicit MyGroupBox(const QString& title, QWidget* parent = nullptr);

    // Height of the title strip. The box keeps no margins of its own: the
    // layout's margins place the contents, below the strip as the owner says.
    static const int TitleHeight = 24;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
