#pragma once

#include <QGraphicsObject>
#include <QJsonObject>
#include <QList>
#include <QPoint>
#include <QRectF>
#include <QVector>

class GameUIEditorScene;
class QPropertyAnimation;
class ResizeComponentButtonSprite;

// One HUD component on the canvas: the graphics item that is hovered,
// selected and dragged, and the holder of the component's JSON object, which
// is its real state. The item's origin is the component's centre; X and Y are
// screen pixels relative to the parent component's centre, the item's
// position is those times the scene's zoom factor.
class UIComponentBase : public QGraphicsObject
{
    Q_OBJECT
    Q_PROPERTY(int aniTime READ aniTime WRITE setAniTime)
    Q_PROPERTY(int aniFrame READ aniFrame WRITE setAniFrame)
public:
    // The drawn size of a handle, in scene units at every zoom.
    static constexpr int handleSize = 7;

    explicit UIComponentBase(GameUIEditorScene* scene, QGraphicsItem* parent = nullptr);
    ~UIComponentBase() override;

    QRectF boundingRect() const override;
    // Paints nothing while the component is part of the view's still layer,
    // which has drawn it already.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    // The component's contents and frame, as paint draws them.
    void paintNow(QPainter* painter);

    virtual void drawContents(QPainter* painter);
    virtual int minimumWidth() const;
    virtual int maximumWidth() const;
    virtual int minimumHeight() const;
    virtual int maximumHeight() const;
    // Keeps the whole object and applies the keys every component shares; a
    // kind replaces this with its own reading of the object.
    virtual void setData(const QJsonObject& json);
    virtual void refresh();
    virtual void resized();
    virtual bool canHaveChildren() const;
    virtual bool canResize() const;
    virtual bool canRotate() const;
    virtual void zoomChanged();
    QPainterPath shape() const override;
    // The object as it will be saved: X, Y and Rotation from the live item,
    // "Opacity" filled in when missing.
    virtual QJsonObject& data();

    // A number of the document as an integer, whole and fractional numbers
    // alike (a hand-edited "X": 10.5 doesn't jump to the origin), clamped
    // into int; anything else, an extension object included, gives fallback.
    static int readInteger(const QJsonValue& value, int fallback = 0);

    int aniTime() const { return aniTimeValue; }
    void setAniTime(int value);
    int aniFrame() const { return aniFrameValue; }
    void setAniFrame(int value);

    void setXY(int newX, int newY);
    void moveX(int delta);
    void moveY(int delta);
    void setAbsoluteXY(int absoluteX, int absoluteY);
    QPoint absoluteXY() const;
    void setScenePosition(qreal sceneX, qreal sceneY);
    void setAbsoluteScenePosition(qreal sceneX, qreal sceneY);
    void setParentComponent(UIComponentBase* component);
    void setWidth(int value);
    void setHeight(int value);
    void setRotationDegrees(int degrees);
    void setOpacity(double value);
    void setSelected(bool value);
    void clearHover();
    void beginChange();
    void endChange();
    void startClock();
    void stopClock();
    bool isAnimating() const { return timeAnimation || frameAnimation; }

    // The scene's zoom as a factor; 1.0 without a scene.
    double zoomFactor() const;
    // The drawn rectangle (-w/2, -h/2, w, h) in item coordinates.
    QRectF drawnRect() const;
    void recomputeBounds(bool reset);
    void placeHandles();
    void updateHandleCursors();
    // The handle of an index, or null while unselected or without it.
    ResizeComponentButtonSprite* handleAt(int index) const;

    // The item's position plus its ancestors' item positions: where it stands
    // on the canvas in scene units, as setAbsoluteScenePosition() takes it.
    QPointF absoluteItemPosition() const;
    // The box of the pixel rectangle (0, 0, w - 1, h - 1) of a component of
    // this size in screen units, turned about its centre by the rotation.
    QRectF rotatedScreenBox(double w, double h) const;
    QRectF screenBox() const { return rotatedScreenBox(width, height); }
    // The rotated box on the canvas in screen units, kept at the start of an
    // interaction.
    void refreshResizeStartRect();
    // Dragging: freeDrag is Ctrl held at the press, which turns snapping off.
    void startDrag(const QPointF& mouseScenePos, bool freeDrag);
    void dragTo(const QPointF& mouseScenePos);
    void endDrag();
    // Handles: size in scene units; the mask of SnapTargets tells which edges
    // may snap and which side stays.
    void resizeTo(double sceneWidth, double sceneHeight, bool aspect, int mask);
    void rotateTo(bool snap, const QPointF& mouseScenePos);

    QJsonObject jsonData;
    QRectF resizeStartRect;
    QRectF bounds;
    QRectF dirtyBounds;
    QPointF dragMouseStart;
    QPointF dragItemStart;
    QList<UIComponentBase*>* removedChildren = nullptr;
    GameUIEditorScene* editorScene;
    QPropertyAnimation* timeAnimation = nullptr;
    QPropertyAnimation* frameAnimation = nullptr;
    ResizeComponentButtonSprite* activeHandle = nullptr;
    UIComponentBase* parentComponent = nullptr;
    double opacity = 1.0;
    int width = 100;
    int height = 100;
    int lastWidth = 100;
    int lastHeight = 100;
    int resizeStartWidth = 100;
    int resizeStartHeight = 100;
    int x = 0;
    int y = 0;
    int aniTimeValue = 0;
    int totalTime = 0;
    int aniFrameValue = 0;
    QVector<ResizeComponentButtonSprite*> handles;
    int interactionState = 0;
    bool selected = false;
    bool hovered = false;
    bool frameVisible = true;
    bool snapFlag = true;
    bool passive = false;
    // Drawn into the view's cached background while another component is
    // dragged (see StillLayer); any change to it ends that.
    bool inStillLayer = false;
    // False for the components a custom component builds while it expands.
    bool hudLevel = true;

public slots:
    void incrementTotalTime();

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

private:
    void placeItem();
    // A change to a component in the still layer shows at once.
    void leaveStillLayer();
};
