#pragma once

#include <QLine>
#include <QVector>

class UIComponentBase;

// What a moving component snaps to. Only one component moves at a time, so
// the targets are global, collected at each press of a drag or a handle and
// cleared at its end: centre targets for a drag, edges for a resize.
class SnapTargets
{
public:
    // A centre coordinate in screen units at which the moving component
    // snaps, and the scene coordinate of its guide.
    struct Target {
        int value;
        int line;
    };
    static QVector<Target> snapX;
    static QVector<Target> snapY;
    // Edges in screen units that a resized edge snaps to.
    static QVector<int> edgeX;
    static QVector<int> edgeY;

    // The bits of a resize's mask: the edges of the upright box that may
    // snap, and the side that the handle leaves as it was.
    enum Mask : int {
        TopEdge = 1,
        BottomEdge = 2,
        LeftEdge = 4,
        RightEdge = 8,
        WidthFixed = 0x10,
        HeightFixed = 0x20,
    };

    // The canvas, the siblings and the parent of a component, as targets of
    // its drag or resize; hidden components are out of reach.
    static void collectSnapTargets(const UIComponentBase* component);
    static void clear();
    // The first target within reach of a centre coordinate, or null.
    static const Target* find(const QVector<Target>& targets, int value);
    // Edge snapping of a resize to a size of w by h screen units, for the
    // edges that the mask lets move. On a hit the size changes so
    // that the edge lies on the target while the other side stays where it
    // was at the press, and the guide joins guides.
    static void snapResize(const UIComponentBase* component, int mask, double& w, double& h,
                           QVector<QLine>& guides);
};
