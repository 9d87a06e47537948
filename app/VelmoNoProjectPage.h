#pragma once

#include <QWidget>

// The page shown while no project is open: it draws the page's background,
// a soft glow of the theme behind the opening frame; the frame and its
// button belong to the main window's form.
class VelmoNoProjectPage : public QWidget
{
    Q_OBJECT
public:
    explicit VelmoNoProjectPage(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
