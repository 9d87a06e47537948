#include "scene/ComponentClipboard.h"

#include "scene/ComponentListSync.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/SceneUndoRecorder.h"
#include "scene/UIComponentBase.h"
#include "widgets/AlertDialog.h"
#include "widgets/ClipboardIdentifiers.h"
#include "widgets/UltimateTreeItem.h"

#include <QApplication>
#include <QClipboard>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

namespace {

const QString KeyChildren = QStringLiteral("Children");
const QString KeyName = QStringLiteral("Name");

int countObjects(const QJsonArray& array)
{
    int count = 0;
    for (const QJsonValue& value : array) {
        if (!value.isObject())
            continue;
        count += 1 + countObjects(value.toObject().value(KeyChildren).toArray());
    }
    return count;
}

}

ComponentClipboard::ComponentClipboard(GameUIEditorScene& owner) : scene(owner) {}

bool ComponentClipboard::admits(int count) const
{
    if (scene.components().size() + count <= GameUIEditorScene::componentLimit)
        return true;
    QApplication::restoreOverrideCursor();
    GameUIEditor* view = scene.editorView();
    AlertDialog::alert(GameUIEditorScene::tr("This HUD already holds %1 components, the most a HUD can hold. "
                                             "Delete a component before adding another.")
                           .arg(GameUIEditorScene::componentLimit),
                       GameUIEditorScene::tr("Component Limit"), view ? view->window() : nullptr);
    return false;
}

bool ComponentClipboard::offered(QJsonObject* object)
{
    return ClipboardIdentifiers::readObject(QApplication::clipboard()->text(), ClipboardIdentifiers::Component,
                                            object);
}

void ComponentClipboard::copy()
{
    UIComponentBase* selected = scene.selectedComponent();
    if (!selected)
        return;
    QJsonObject object = selected->data();
    UltimateTreeItem* row = scene.rowOfComponent(selected);
    if (row && row->childCount() > 0)
        object.insert(KeyChildren, scene.listSync->serialise(row));
    QApplication::clipboard()->setText(
        ClipboardIdentifiers::compose(ClipboardIdentifiers::Component, object, QJsonDocument::Indented));
}

void ComponentClipboard::cut()
{
    if (!scene.selectedComponent())
        return;
    copy();
    scene.deleteAComponent();
}

void ComponentClipboard::paste(UIComponentBase* parent)
{
    if (!admits(1))
        return;
    QJsonObject object;
    if (!offered(&object))
        return;
    // A pasted tree that would pass the limit is refused whole, never cut short.
    if (!admits(1 + countObjects(object.value(KeyChildren).toArray())))
        return;
    SceneUndoRecorder& recorder = *scene.recorder;
    const QJsonArray before = scene.order();
    const std::size_t mark = recorder.undoStack().size();
    QSet<QString> names;
    nextCopy.clear();
    for (UIComponentBase* existing : scene.components())
        names.insert(existing->jsonData.value(KeyName).toString());
    UIComponentBase* component = nullptr;
    {
        const ComponentListSync::StructureWork work(*scene.listSync);
        component = pasteObject(object, parent, names, true);
    }
    if (component) {
        // The copy comes back and goes again with everything below it as one
        // step: taking the top component out takes its children along.
        recorder.truncate(mark);
        recorder.pushStructure(UndoRecord::Created, component, before);
    }
    scene.refreshOrder();
    if (component)
        scene.select(component);
}

UIComponentBase* ComponentClipboard::pasteObject(QJsonObject object, UIComponentBase* parent, QSet<QString>& names,
                                                 bool top)
{
    if (object.isEmpty())
        return nullptr;
    const int id = scene.takeNextId();
    object.insert(QStringLiteral("ID"), id);
    const QString name = object.value(KeyName).toString();
    // A component without a name shows its kind's word and needs no copy's name.
    if (!name.isEmpty() && names.contains(name)) {
        static const QRegularExpression suffix(QStringLiteral(" - Copy \\d+$"));
        const QRegularExpressionMatch match = suffix.match(name);
        const QString base = match.hasMatch() && match.capturedStart() > 0 ? name.left(match.capturedStart()) : name;
        // Numbers below the last one given for this name are taken already.
        QString candidate;
        int n = nextCopy.value(base, 1);
        for (;; ++n) {
            candidate = GameUIEditorScene::tr("%1 - Copy %2").arg(base).arg(n);
            if (!names.contains(candidate))
                break;
        }
        nextCopy.insert(base, n + 1);
        object.insert(KeyName, candidate);
    }
    const QJsonArray children = object.value(KeyChildren).toArray();
    if (object.contains(KeyChildren))
        object.insert(KeyChildren, QJsonArray());
    names.insert(object.value(KeyName).toString());
    UIComponentBase* component = nullptr;
    if (top) {
        component = scene.createFromJson(object, parent);
    } else {
        component = scene.makeComponent(object, parent);
        if (component)
            scene.listSync->placeNewRow(scene.listSync->makeRow(object, component), parent);
    }
    if (!component)
        return nullptr;
    if (!parent) {
        const QRectF area = scene.sceneRect();
        const QPointF pastePosition = scene.pastePosition();
        if (area.contains(pastePosition)) {
            component->setAbsoluteScenePosition(pastePosition.x(), pastePosition.y());
        } else {
            const double factor = scene.zoomFactor();
            const QPointF at(component->x * factor, component->y * factor);
            if (at.x() < 0 || at.y() < 0 || at.x() > area.width() || at.y() > area.height())
                component->setAbsoluteScenePosition(area.center().x(), area.center().y());
        }
    }
    for (const QJsonValue& child : children)
        pasteObject(child.toObject(), component, names, false);
    return component;
}
