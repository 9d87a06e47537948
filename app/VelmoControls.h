#pragma once

#include <QWidget>

class QLabel;

// The "Controls" tab beside the component list: the canvas's mouse and
// keyboard controls at a glance.
class VelmoControls : public QWidget
{
    Q_OBJECT
public:
    explicit VelmoControls(QWidget* parent = nullptr);

    QLabel* label;
};
