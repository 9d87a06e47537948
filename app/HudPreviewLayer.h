#pragma once

#include <QJsonArray>
#include <QPixmap>
#include <QWidget>

// The canvas of the HUD being edited.
//
// Layer until the editor view and scene land: it holds the current HUD's
// component array exactly as loaded and hands it back unchanged, and draws
// the game screen with an outline of every component so the user sees what
// the HUD holds. It edits nothing.
class HudPreviewLayer : public QWidget
{
    Q_OBJECT
public:
    explicit HudPreviewLayer(QWidget* parent = nullptr);

    QJsonArray toJson() const { return components; }
    void loadFromJson(const QJsonArray& array);
    void clear();
    void setScreenSize(int width, int height);
    QSize screenSize() const { return QSize(screenWidth, screenHeight); }
    void setBackground(const QPixmap& pixmap);
    // How much the background image is darkened, 0 (not) to 1 (black).
    void setDarkenRatio(double ratio);
    double darkenRatio() const { return darken; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    static void drawLabel(QPainter& painter, const QPointF& baseline, const QString& text);
    void drawComponents(QPainter& painter, const QJsonArray& array, const QPointF& origin, qreal scale,
                        int depth) const;

    QJsonArray components;
    QPixmap background;
    double darken = 0.0;
    int screenWidth = 816;
    int screenHeight = 624;
};
