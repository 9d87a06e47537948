#include "components/UIComponentAttachCollection.h"

#include "components/ComponentKinds.h"

#include <QJsonObject>
#include <QPainter>

#include <cmath>

UIComponentAttachCollection::UIComponentAttachCollection(GameUIEditorScene* scene, QJsonObject* data, bool level,
                                                         QGraphicsItem* parent)
    // The copy's components paint over the frame.
    : UIComponentBase(scene, parent), projectData(data), expansion(this, data, CustomExpansion::Stacking::AboveOwner)
{
    hudLevel = level;
}

QVector<QRect> UIComponentAttachCollection::frameBars() const
{
    const double zoom = zoomFactor();
    const double w = width * zoom;
    const double h = height * zoom;
    const int t = qRound(8 * zoom);
    const int wholeW = int(std::ceil(w));
    const int wholeH = int(std::ceil(h));
    const int left = int(-w / 2);
    const int top = int(-h / 2);
    const int sideTop = int(-h / 2 + t);
    return {QRect(left, top, wholeW, t), QRect(left, int(wholeH - h / 2 - t), wholeW, t),
            QRect(left, sideTop, t, wholeH - 2 * t), QRect(int(wholeW - w / 2 - t), sideTop, t, wholeH - 2 * t)};
}

void UIComponentAttachCollection::drawContents(QPainter* painter)
{
    if (!expanded) {
        CustomExpansion::drawMissing(painter, *this);
        return;
    }
    // The copy's components are child items and paint over the frame.
    for (const QRect& bar : frameBars())
        painter->fillRect(bar, QColor(125, 125, 255, 125));
}

int UIComponentAttachCollection::minimumWidth() const { return width; }
int UIComponentAttachCollection::maximumWidth() const { return width; }
int UIComponentAttachCollection::minimumHeight() const { return height; }
int UIComponentAttachCollection::maximumHeight() const { return height; }
bool UIComponentAttachCollection::canHaveChildren() const { return false; }
bool UIComponentAttachCollection::canResize() const { return false; }
bool UIComponentAttachCollection::canRotate() const { return false; }

void UIComponentAttachCollection::setData(const QJsonObject& json)
{
    const QSize size = ComponentKinds::storedSize(json, "AttachCollectionData");
    setWidth(size.width());
    setHeight(size.height());
    UIComponentBase::setData(json);
    const QJsonObject attach = json.value(QStringLiteral("AttachCollectionData")).toObject();
    expanded = expansion.expandCopy(attach.value(QStringLiteral("ID")).toString());
    refresh();
}

void UIComponentAttachCollection::zoomChanged()
{
    UIComponentBase::zoomChanged();
    expansion.zoomChanged();
}
