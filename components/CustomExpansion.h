#pragma once

#include <QHash>
#include <QJsonArray>
#include <QList>
#include <QPoint>
#include <QSize>
#include <QString>

#include <functional>

class QJsonObject;
class QPainter;
class UIComponentBase;

// What Custom, Custom Collection and Attach Collection share: a custom HUD
// drawn in place as live but passive components. The expansion belongs to
// one owning component; the components it builds are child items of the
// owner and nothing else knows them: they are not in the scene's component
// list, have no list row, are never saved, selected, hovered or dragged on
// their own, and are freed with the expansion.
class CustomExpansion
{
public:
    // The HUD a reference leads to: its components and its size.
    struct Source {
        QJsonArray components;
        QSize size;
    };

    // More nested expansions than this stop as a cycle does: a long chain of
    // custom HUDs inside each other would otherwise recurse the stack away.
    static constexpr int maximumDepth = 24;
    // One expansion from the canvas builds at most this many components;
    // what would come after them (further cells of a grid, nested custom
    // HUDs) stays unbuilt. A grid of 999 by 999 cells, or custom HUDs that
    // each hold several of the next, would otherwise build millions of
    // components and take the editor's memory and seconds of every load;
    // this is a dozen times a 16-cell collection of a 25-component HUD.
    static constexpr int componentBudget = 5000;

    // Where the built components stack against the owner's own drawing.
    enum class Stacking {
        BehindOwner, // the owner's hover and selection frames stay in sight above them
        AboveOwner   // they cover what the owner draws
    };

    CustomExpansion(UIComponentBase* owner, QJsonObject* projectData, Stacking stacking);
    ~CustomExpansion();
    CustomExpansion(const CustomExpansion&) = delete;
    CustomExpansion& operator=(const CustomExpansion&) = delete;

    // The first HUD of the project's list known by the reference ("M", "B"
    // or a custom HUD's "ID"), with 100 for a side it doesn't give.
    static bool lookUp(const QString& identifier, Source* source);

    // The whole expansion of a reference, inside the guard: the old
    // components go, and build runs with the HUD when there is one. A
    // reference that leads nowhere leaves the owner 100 by 100. True when
    // the owner counts as expanded: built, or stopped by the guard.
    bool expand(const QString& identifier, const std::function<void(const Source&)>& build);
    // The same for one copy of the HUD at the HUD's own size.
    bool expandCopy(const QString& identifier);

    // Builds the components of the array in one cell of the owner; the
    // direct ones are placed from the owner's top-left corner, step being
    // the distance from one cell to the next. False once the expansion has
    // built all it may: the cells after it would stay empty anyway.
    bool buildCell(const QJsonArray& components, const QPoint& cell, const QSize& step);
    // The components at the present zoom, the direct ones shifted again.
    void zoomChanged();

    const QList<UIComponentBase*>& subComponents() const { return built; }
    // The cell of a direct component; (0, 0) for any other.
    QPoint cellOf(UIComponentBase* component) const { return cells.value(component); }
    bool hasCell(UIComponentBase* component) const { return cells.contains(component); }

    // The translucent black block of a reference that leads nowhere.
    static void drawMissing(QPainter* painter, const UIComponentBase& owner);

private:
    bool enter(const QString& identifier);
    void leave();
    // Frees the built components, children before parents.
    void clear();
    void buildChildren(const QJsonArray& components, UIComponentBase* parent, const QPoint& cell);
    void place(UIComponentBase* component) const;

    UIComponentBase* owner;
    QJsonObject* projectData;
    Stacking stacking;
    QList<UIComponentBase*> built;
    QHash<UIComponentBase*, QPoint> cells;
    QSize cellStep;
};
