#pragma once

#include <QGraphicsScene>
#include <QList>

class UIComponentBase;

// The canvas of the HUD being edited.
//
// Layer until the editor scene exists: it holds only what a component calls
// on its scene (zoom, hover bookkeeping, the press list, the undo bracket).
class GameUIEditorScene : public QGraphicsScene
{
    Q_OBJECT
public:
    explicit GameUIEditorScene(QObject* parent = nullptr);

    double zoomFactor() const { return zoom / 10.0; }
    // Stores the zoom in tenths and tells every component.
    void setZoom(int value);

    void hoverEnter(UIComponentBase* component);
    void hoverLeave();

    // The undo bracket around a change of one component; without undo
    // records yet, the bracket records nothing.
    void beginChange(UIComponentBase* component);
    void finishChange(UIComponentBase* component);

    QList<UIComponentBase*> pressedComponents;
    UIComponentBase* hoveredComponent = nullptr;
    int zoom = 10;
    int hoverCount = 0;
    bool pendingChange = false;
};
