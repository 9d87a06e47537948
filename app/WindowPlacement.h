#pragma once

#include <QRect>
#include <QVector>

class QWidget;

// Where the main window comes back at start-up.
namespace WindowPlacement {

// Puts the stored window rectangle ("Geometry", "IsMaximized") back, moved
// onto a screen that is there, or gives a first start a comfortable size in
// the middle of the primary screen.
void restore(QWidget* window);

// A stored window rectangle moved whole onto the nearest screen when too
// little of its top strip lies on any of the screens (a monitor that is gone).
QRect reachableGeometry(const QRect& stored, const QVector<QRect>& screens);

}
