#include "scene/ResizeComponentButtonSprite.h"

#include "scene/UIComponentBase.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"

#include <QCursor>
#include <QPainter>
#include <QPixmap>

namespace {

QCursor rotationCursor(bool pressed)
{
    const QPixmap source(pressed ? QStringLiteral(":/resources/Editor/Cursor_Rotate.png")
                                 : QStringLiteral(":/resources/Editor/Cursor_Rotate_Open.png"));
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRect(0, 0, 24, 24), source);
    painter.end();
    return QCursor(pixmap, 12, 12);
}

}

ResizeComponentButtonSprite::ResizeComponentButtonSprite(UIComponentBase* owner, int handleIndex)
    : QGraphicsItem(owner),
      size(UIComponentBase::handleSize, UIComponentBase::handleSize),
      component(owner),
      index(handleIndex)
{
    setZValue(3.0);
}

QRectF ResizeComponentButtonSprite::boundingRect() const
{
    // The pen of width 2 reaches one unit beyond the ellipse.
    return QRectF(QPointF(0, 0), size).adjusted(-1, -1, 1, 1);
}

void ResizeComponentButtonSprite::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(themeColor(ThemeKey::ComponentSelectButtonOutline), 2));
    painter->setBrush(themeColor(ThemeKey::ComponentSelectButtonBase));
    painter->drawEllipse(QRectF(QPointF(0, 0), size));
    painter->restore();
}

Qt::CursorShape ResizeComponentButtonSprite::resizeCursorShape(int handleIndex, double rotation)
{
    static const Qt::CursorShape cycle[4] = {Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor,
                                             Qt::SizeHorCursor};
    int degrees = int(rotation) % 360;
    if (degrees < 0)
        degrees += 360;
    return cycle[((degrees + 23) / 45 + handleIndex) % 8 % 4];
}

int ResizeComponentButtonSprite::oppositeIndex(int handleIndex)
{
    return handleIndex < 4 ? handleIndex + 4 : handleIndex - 4;
}

void ResizeComponentButtonSprite::updateCursor()
{
    if (index == rotationIndex) {
        setCursor(rotationCursor(pressed));
        return;
    }
    int degrees = int(component->rotation()) % 360;
    if (degrees < 0)
        degrees += 360;
    rotationOctant = (degrees / 45) % 8;
    setCursor(resizeCursorShape(index, component->rotation()));
}
