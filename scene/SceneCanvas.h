#pragma once

#include <QImage>
#include <QPixmap>
#include <QRectF>
#include <QSize>

#include <functional>

class GameUIEditor;
class GameUIEditorScene;
class QGraphicsSceneWheelEvent;
class QPainter;

// The canvas of the scene: the game screen's size, the zoom in tenths with
// its commands and the wheel, the scene rectangle that follows from both,
// and what is drawn behind the components (tile, background picture,
// darkening, frame and shadow).
class SceneCanvas
{
public:
    SceneCanvas(GameUIEditorScene& owner, GameUIEditor* view);

    int zoom() const { return zoomTenths; }
    double zoomFactor() const { return zoomTenths / 10.0; }
    // -1 each until first set.
    QSize screenSize() const { return screen; }
    // (0, 0, screen width * zoom, screen height * zoom).
    QRectF rect() const { return canvas; }

    // Stores the zoom, rebuilds the canvas at that size and tells every
    // component; with keepCentre the view stays on the same spot.
    void setZoom(int value, bool keepCentre);
    void zoomIn();
    void zoomOut();
    // The largest zoom from 0.3 to 2.0 at which the canvas fits the view.
    void fitZoom();
    void refreshZoom(bool centre);
    void centerOnScene();
    void setZoomCallback(const std::function<void(int, int)>& callback) { zoomStateChanged = callback; }
    // (in, out): 1 for available, 2 for not.
    void reportZoomState();
    // Ctrl+wheel zooms, the wheel scrolls (sideways with Shift or a
    // sideways wheel); a dragged component stays under the cursor.
    void wheel(QGraphicsSceneWheelEvent* event);
    void updateSceneRect();
    // Stores a new size; false when it is the same.
    bool setScreenSize(const QSize& size);

    void setBackgroundImage(const QPixmap& pixmap);
    void setDarkness(double value);
    double darkness() const { return darkRatio; }
    void setTile(const QImage& image);
    void drawBackground(QPainter* painter, const QRectF& rect);
    // The components on the canvas at the present zoom; withBackground false
    // leaves the canvas transparent behind them. Null without an area.
    QImage render(bool withBackground);
    // The part of the scene the view shows now.
    QRectF visibleSceneRect() const;
    // Makes every view drop what it has painted, past its caches.
    void forceRepaint();

private:
    // Draws the canvas anew, past the view's cache of it.
    void repaint();

    GameUIEditorScene& scene;
    GameUIEditor* view;
    std::function<void(int, int)> zoomStateChanged;
    QImage tile;
    QPixmap backgroundImage;
    QRectF canvas;
    QSize screen{-1, -1};
    double darkRatio = 0.0;
    int zoomTenths = 10;
    // Set by a zoom with the wheel, cleared by a new screen size.
    bool userZoomed = false;
    // While an image is rendered, the area behind the components stays as it is.
    bool hidden = false;
};
