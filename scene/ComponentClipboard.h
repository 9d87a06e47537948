#pragma once

#include <QJsonObject>
#include <QHash>
#include <QSet>
#include <QString>

class GameUIEditorScene;
class UIComponentBase;

// Copy, cut and paste of one component with everything below it, through
// the system clipboard's text: "VELMOCOMP" directly followed by the JSON.
// A pasted copy gets fresh ids and, where its name is taken, a " - Copy N"
// name; nothing passes the HUD's component limit.
class ComponentClipboard
{
public:
    explicit ComponentClipboard(GameUIEditorScene& owner);

    void copy();
    // Copy, then the deletion.
    void cut();
    // The clipboard's component under parent (null for top level), as one undo step.
    void paste(UIComponentBase* parent);
    // The component on the clipboard, when the text holds one.
    static bool offered(QJsonObject* object);
    // True when the HUD has room for count more components; otherwise tells
    // the user that it is full, and the action that hit the limit stops.
    bool admits(int count) const;

private:
    // Builds an object and its "Children" with fresh ids and free names; names
    // holds those taken and gains the new ones. Only the top component goes
    // through the scene's creation with its undo step and selection; the
    // ones below are placed directly, so a deep or wide tree is built in
    // time proportional to its size.
    UIComponentBase* pasteObject(QJsonObject object, UIComponentBase* parent, QSet<QString>& names, bool top);

    GameUIEditorScene& scene;
    // During a paste: the next copy number to try for a name.
    QHash<QString, int> nextCopy;
};
