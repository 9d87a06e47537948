#pragma once

#include "widgets/BaseMainTitleBar.h"

class QMenuBar;

// The main window's title bar: the menus, the title and the window buttons.
// The tool buttons of the project, edit, game and view commands come with
// their own work.
class VelmoMainTitleBar : public BaseMainTitleBar
{
    Q_OBJECT
public:
    VelmoMainTitleBar(int windowStyle, bool nativeMenuBar, QWidget* parent = nullptr);

    QMenuBar* menuBar() const { return menus; }
    // The strip between the menus and the title; it moves the window.
    QWidget* captionStrip() const { return shadow; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QMenuBar* menus;
    QWidget* shadow;
};
