#pragma once

#include <QWidget>

class QPushButton;
class TitleBarButtons;

// The main window's own title bar: the window buttons and the system menu
// button on a gradient of the theme's window colours. A subclass lays them
// out with its menus and tools.
class BaseMainTitleBar : public QWidget
{
    Q_OBJECT
public:
    BaseMainTitleBar(int windowStyle, bool nativeMenuBar, QWidget* parent = nullptr);

    TitleBarButtons* minimizeButton() const { return minimize; }
    TitleBarButtons* maximizeButton() const { return maximize; }
    TitleBarButtons* closeButton() const { return close; }
    QPushButton* systemMenuButton() const { return systemMenu; }

    // Swaps the maximise symbol and its tool-tip.
    void setMaximizedState(bool maximized);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    int windowStyle;
    bool nativeMenuBar;

private:
    TitleBarButtons* minimize;
    TitleBarButtons* maximize;
    TitleBarButtons* close;
    QPushButton* systemMenu;
};
