#include "components/CustomExpansion.h"

#include "components/ComponentKinds.h"
#include "logic/HudCatalog.h"
#include "scene/GameUIEditorScene.h"
#include "scene/GameUIEditorSceneHelperBase.h"
#include "scene/UIComponentBase.h"

#include <QJsonObject>
#include <QPainter>

namespace {

// Components built since the expansion from the canvas began.
int builtSinceTopLevel = 0;

}

CustomExpansion::CustomExpansion(UIComponentBase* expansionOwner, QJsonObject* data, Stacking order)
    : owner(expansionOwner), projectData(data), stacking(order)
{
}

CustomExpansion::~CustomExpansion()
{
    clear();
}

bool CustomExpansion::lookUp(const QString& identifier, Source* source)
{
    // An empty reference is no reference, even to a HUD without an "ID".
    if (identifier.isEmpty())
        return false;
    const QVector<HudCatalog::Row> rows = HudCatalog::rows();
    const HudCatalog::Row* row = HudCatalog::find(rows, identifier);
    if (!row)
        return false;
    source->components = row->object.value(QStringLiteral("HUD")).toArray();
    source->size = QSize(UIComponentBase::readInteger(row->object.value(QStringLiteral("Width")), 100),
                         UIComponentBase::readInteger(row->object.value(QStringLiteral("Height")), 100));
    return true;
}

bool CustomExpansion::enter(const QString& identifier)
{
    if (!owner->hudLevel) {
        if (customExpansionStack.contains(identifier) || customExpansionStack.size() >= maximumDepth
            || builtSinceTopLevel >= componentBudget)
            return false;
    } else {
        customExpansionStack.clear();
        builtSinceTopLevel = 0;
    }
    customExpansionStack.append(identifier);
    return true;
}

void CustomExpansion::leave()
{
    if (owner->hudLevel)
        customExpansionStack.clear();
    else if (!customExpansionStack.isEmpty())
        customExpansionStack.removeLast();
}

bool CustomExpansion::expand(const QString& identifier, const std::function<void(const Source&)>& build)
{
    // A HUD already being expanded further out stays an empty box of the
    // size it was given.
    if (!enter(identifier))
        return true;
    clear();
    Source source;
    const bool found = lookUp(identifier, &source);
    if (found) {
        build(source);
    } else {
        owner->setWidth(100);
        owner->setHeight(100);
    }
    leave();
    return found;
}

bool CustomExpansion::expandCopy(const QString& identifier)
{
    return expand(identifier, [this](const Source& source) {
        owner->setWidth(source.size.width());
        owner->setHeight(source.size.height());
        buildCell(source.components, QPoint(), QSize());
    });
}

void CustomExpansion::clear()
{
    cells.clear();
    // Built in order, each parent before its children: freed backwards, each
    // child leaves before its parent. None of them is known to the scene,
    // its undo or its clipboard, so nothing is left pointing at them.
    const QList<UIComponentBase*> going = built;
    built.clear();
    for (auto it = going.crbegin(); it != going.crend(); ++it)
        delete *it;
}

bool CustomExpansion::buildCell(const QJsonArray& components, const QPoint& cell, const QSize& step)
{
    cellStep = step;
    buildChildren(components, owner, cell);
    return builtSinceTopLevel < componentBudget;
}

void CustomExpansion::buildChildren(const QJsonArray& components, UIComponentBase* parent, const QPoint& cell)
{
    GameUIEditorScene* scene = owner->editorScene;
    GameUIEditorSceneHelperBase* helper = scene ? scene->helper() : nullptr;
    if (!helper)
        return;
    for (const QJsonValue& value : components) {
        if (builtSinceTopLevel >= componentBudget)
            return;
        const QJsonObject json = value.toObject();
        // The helper applies the object; a nested custom kind expands in it,
        // inside this one's guard.
        UIComponentBase* component = helper->createComponent(json, scene, projectData, false);
        if (!component)
            continue;
        ++builtSinceTopLevel;
        component->passive = true;
        component->setAcceptHoverEvents(false);
        component->setAcceptedMouseButtons(Qt::NoButton);
        component->setParentComponent(parent);
        built.append(component);
        if (parent == owner) {
            component->setFlag(QGraphicsItem::ItemStacksBehindParent, stacking == Stacking::BehindOwner);
            cells.insert(component, cell);
            place(component);
        }
        const QJsonArray children = json.value(QStringLiteral("Children")).toArray();
        if (!children.isEmpty())
            buildChildren(children, component, cell);
    }
}

void CustomExpansion::place(UIComponentBase* component) const
{
    // A HUD's coordinates count from its top-left corner, the owner's from
    // its centre; a cell lies a whole number of steps further on.
    const double zoom = owner->zoomFactor();
    const QPoint cell = cells.value(component);
    const double shiftX = -owner->width / 2.0 + double(cellStep.width()) * cell.x();
    const double shiftY = -owner->height / 2.0 + double(cellStep.height()) * cell.y();
    component->setPos((component->x + shiftX) * zoom, (component->y + shiftY) * zoom);
}

void CustomExpansion::zoomChanged()
{
    for (UIComponentBase* component : qAsConst(built)) {
        component->zoomChanged();
        if (component->parentComponent == owner)
            place(component);
    }
}

void CustomExpansion::drawMissing(QPainter* painter, const UIComponentBase& owner)
{
    const double zoom = owner.zoomFactor();
    painter->fillRect(QRect(int(-50 * zoom), int(-50 * zoom), int(owner.width * zoom), int(owner.height * zoom)),
                      QColor(0, 0, 0, 125));
}
