#pragma once

#include <QWidget>

// A strip that continues the title bar's gradient with a dividing line: along
// its side, or along its top when it stands at the window's left edge.
class MainWindowTitleBarShadow : public QWidget
{
    Q_OBJECT
public:
    explicit MainWindowTitleBarShadow(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
