#pragma once

#include "components/DrawnPixmap.h"
#include "components/ComponentScale.h"
#include "scene/UIComponentBase.h"

#include <QFont>
#include <QPixmap>
#include <QString>

// One line of text with an optional round outline, in a font of the game.
// The game decides the real text; the canvas shows a sample of the same
// font and a likely length. Its size is a scale of the rendered text.
class UIComponentText : public UIComponentBase
{
    Q_OBJECT
public:
    explicit UIComponentText(GameUIEditorScene* scene, QGraphicsItem* parent = nullptr);

    void drawContents(QPainter* painter) override;
    int minimumWidth() const override;
    int maximumWidth() const override;
    int minimumHeight() const override;
    int maximumHeight() const override;
    void setData(const QJsonObject& json) override;
    void resized() override;
    void zoomChanged() override;
    QJsonObject& data() override;

    // The sample shown for a dynamic text: a fixed one for the kinds that
    // give a number, a time or a direction, else the value's own display
    // string; dynamic tells whether that string stands for a game value
    // and is drawn in italics.
    static QString previewText(const QJsonObject& text, const QJsonObject* projectData, bool* dynamic);

    QString displayText;
    QString fontFamily;
    QFont font;
    QPixmap pixmap;
    int fontSize = 30;
    int naturalWidth = 0;
    int naturalHeight = 0;
    bool dynamicLook = false;

private:
    void render(const QJsonObject& text);

    ComponentScale scale;
    DrawnPixmap drawn;
};
