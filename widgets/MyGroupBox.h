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

    // Height of the title strip; the layout starts below it.
    static const int TitleHeight = 24;

protected:
    void paintEvent(QPaintEvent* event) override;
};
