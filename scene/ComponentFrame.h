#pragma once

class QPainter;
class QRect;
class UIComponentBase;

// The frame a component shows on the canvas: marching ants while it is
// selected, which leave the handles free when it can be resized, and an
// outline with a light tint while it is hovered. Components that only
// display inside another one never show a frame.
class ComponentFrame
{
public:
    static void paint(QPainter* painter, const UIComponentBase& component);

private:
    static void paintSelection(QPainter* painter, const UIComponentBase& component, const QRect& frame);
    static void paintHover(QPainter* painter, const QRect& frame);
};
