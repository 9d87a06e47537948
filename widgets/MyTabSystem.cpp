#include "widgets/MyTabSystem.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/MyTabSystemHeader.h"
#include "widgets/MyTabSystemHelper.h"

#include <QPainter>
#include <QPropertyAnimation>
#include <QSequentialAnimationGroup>
#include <QVBoxLayout>

// The cover that the fade transition lays over the page area: it fades in
// over the page being left (hideState) and out over the new one (currState).
class TabFadeOverlay : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int hideState READ level WRITE setLevel)
    Q_PROPERTY(int currState READ level WRITE setLevel)
public:
    explicit TabFadeOverlay(QWidget* parent) : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    int level() const { return value; }
    void setLevel(int newValue)
    {
        value = newValue;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setOpacity(value / 100.0);
        painter.fillRect(rect(), themeColor(ThemeKey::GroupBoxBackgroundBottom));
    }

private:
    int value = 0;
};

namespace {

const int HeaderStrip = 33;
const int TwoRowStrip = 59;
const int ColumnStrip = 153;

}

MyTabSystem::MyTabSystem(QWidget* parent)
    : QWidget(parent), firstHeader(new MyTabSystemHeader(this)), host(new QVBoxLayout(this))
{
    host->setSpacing(0);
    connect(firstHeader, &MyTabSystemHeader::tabClicked, this,
            [this](int place) { headerClicked(firstHeader, place); });
    placeHeaders();
}

QRect MyTabSystem::pageArea() const
{
    if (vertical)
        return QRect(ColumnStrip + 4, 4, width() - ColumnStrip - 8, height() - 8);
    const int top = (twoRows ? TwoRowStrip : HeaderStrip) + 1;
    return QRect(4, top, width() - 8, height() - top - 4);
}

void MyTabSystem::placeHeaders()
{
    const QRect area = pageArea();
    host->setContentsMargins(area.left(), area.top(), width() - area.right() - 1, height() - area.bottom() - 1);
    if (vertical) {
        firstHeader->setGeometry(0, 0, ColumnStrip, height());
    } else if (twoRows) {
        firstHeader->setGeometry(0, 0, width(), 30);
        secondRow->setGeometry(0, 29, width(), 30);
    } else {
        firstHeader->setGeometry(0, 0, width(), HeaderStrip);
    }
    firstHeader->raise();
    if (secondRow)
        secondRow->raise();
}

void MyTabSystem::setVertical(bool on)
{
    vertical = on;
    firstHeader->setVertical(on);
    placeHeaders();
}

void MyTabSystem::enableTwoRows()
{
    if (twoRows)
        return;
    twoRows = true;
    secondRow = new MyTabSystemHeader(this);
    connect(secondRow, &MyTabSystemHeader::tabClicked, this, [this](int place) { headerClicked(secondRow, place); });
    secondRow->show();
    placeHeaders();
}

void MyTabSystem::setTransitionStyle(int newStyle)
{
    style = (newStyle == Shrink || newStyle == Fade) ? newStyle : Slide;
}

int MyTabSystem::positionOf(int index) const
{
    if (!twoRows)
        return index;
    // The top row holds the first half, rounded up for an odd count.
    const int half = (tabs.size() + 1) / 2;
    return index < half ? 2 * index : 2 * (index - half) + 1;
}

int MyTabSystem::indexOf(int place) const
{
    if (!twoRows || place < 0)
        return place;
    const int half = (tabs.size() + 1) / 2;
    return place % 2 == 0 ? place / 2 : half + (place - 1) / 2;
}

void MyTabSystem::headerClicked(MyTabSystemHeader* header, int place)
{
    const int newPosition = twoRows ? 2 * place + (header == secondRow ? 1 : 0) : place;
    if (newPosition >= 0 && newPosition < tabs.size())
        changePosition(newPosition, false, false);
}

void MyTabSystem::addTab(const QString& label, QWidget* newPage)
{
    const int newPosition = tabs.size();
    MyTabSystemHeader* header = (twoRows && newPosition % 2 == 1) ? secondRow : firstHeader;
    MyTabSystemHelper* helper = header->addTab(label);
    newPage->setParent(this);
    newPage->setGeometry(pageArea());
    tabs.append(qMakePair(helper, newPage));
    if (newPosition == 0) {
        position = 0;
        current = newPage;
        host->addWidget(newPage);
        newPage->show();
        helper->setSelected(true, true);
    } else {
        newPage->hide();
    }
    placeHeaders();
}

QWidget* MyTabSystem::page(int index) const
{
    const int place = positionOf(index);
    return place >= 0 && place < tabs.size() ? tabs.at(place).second : nullptr;
}

MyTabSystemHelper* MyTabSystem::tab(int index) const
{
    const int place = positionOf(index);
    return place >= 0 && place < tabs.size() ? tabs.at(place).first : nullptr;
}

int MyTabSystem::currentIndex() const
{
    return indexOf(position);
}

bool MyTabSystem::isAnimating() const
{
    return group && group->state() == QAbstractAnimation::Running;
}

void MyTabSystem::setCurrentIndex(int index, bool skipAnimation, bool skipSignal)
{
    const int place = positionOf(index);
    if (place < 0 || place >= tabs.size())
        return;
    changePosition(place, skipAnimation, skipSignal);
}

void MyTabSystem::discardTransition()
{
    if (group) {
        group->stop();
        delete group;
    }
    if (leaving) {
        leaving->hide();
        leaving = nullptr;
    }
    destroyOverlay();
}

void MyTabSystem::changePosition(int newPosition, bool skipAnimation, bool skipSignal)
{
    if (newPosition == position || newPosition < 0 || newPosition >= tabs.size())
        return;
    const bool instant = skipAnimation || skipNext;
    skipNext = false;
    direction = newPosition > position;
    if (position >= 0)
        tabs.at(position).first->setSelected(false, instant);
    tabs.at(newPosition).first->setSelected(true, instant);
    position = newPosition;

    discardTransition();
    QWidget* entering = tabs.at(newPosition).second;
    leaving = current;
    current = entering;
    if (leaving) {
        host->removeWidget(leaving);
        leaving->setGeometry(pageArea());
    }
    host->removeWidget(entering);

    if (instant || !leaving) {
        if (leaving)
            leaving->hide();
        leaving = nullptr;
        joinerSlot();
    } else {
        const QRect area = pageArea();
        group = new QSequentialAnimationGroup(this);
        entering->hide();
        entering->setGeometry(area);
        if (style == Fade) {
            overlay = new TabFadeOverlay(this);
            overlay->setGeometry(area);
            overlay->show();
            overlay->raise();
            QPropertyAnimation* cover = new QPropertyAnimation(overlay, "hideState", group);
            cover->setStartValue(0);
            cover->setEndValue(100);
            cover->setDuration(150);
            connect(cover, &QAbstractAnimation::finished, this, &MyTabSystem::leaverSlot);
            connect(cover, &QAbstractAnimation::finished, this, &MyTabSystem::joinerSlot);
            group->addAnimation(cover);
            QPropertyAnimation* uncover = new QPropertyAnimation(overlay, "currState", group);
            uncover->setStartValue(100);
            uncover->setEndValue(0);
            uncover->setDuration(200);
            connect(uncover, &QAbstractAnimation::finished, this, &MyTabSystem::destroyOverlay);
            group->addAnimation(uncover);
        } else {
            QPropertyAnimation* out = new QPropertyAnimation(leaving, "geometry", group);
            QPropertyAnimation* in = new QPropertyAnimation(entering, "geometry", group);
            out->setStartValue(area);
            if (style == Shrink) {
                const QRect centre(area.center(), QSize(0, 0));
                out->setEndValue(centre);
                out->setDuration(250);
                out->setEasingCurve(QEasingCurve::Linear);
                in->setStartValue(centre);
                in->setDuration(300);
                in->setEasingCurve(QEasingCurve::OutQuart);
            } else {
                // The old page leaves towards the side of the change, and the
                // new one comes in from the other side.
                const int sign = direction ? -1 : 1;
                const QPoint shift = vertical ? QPoint(0, sign * (area.height() - 7)) : QPoint(sign * (area.width() - 7), 0);
                out->setEndValue(area.translated(shift));
                out->setDuration(250);
                out->setEasingCurve(QEasingCurve::InBack);
                in->setStartValue(area.translated(-shift));
                in->setDuration(250);
                in->setEasingCurve(QEasingCurve::OutBack);
            }
            in->setEndValue(area);
            connect(out, &QAbstractAnimation::finished, this, &MyTabSystem::leaverSlot);
            connect(in, &QVariantAnimation::valueChanged, this, &MyTabSystem::secAniChanged);
            connect(in, &QAbstractAnimation::finished, this, &MyTabSystem::joinerSlot);
            group->addAnimation(out);
            group->addAnimation(in);
        }
        connect(group, &QAbstractAnimation::finished, this, &MyTabSystem::sequenceSlot);
        group->start();
    }
    firstHeader->raise();
    if (secondRow)
        secondRow->raise();
    if (!skipSignal)
        emit currentChanged(currentIndex());
}

void MyTabSystem::leaverSlot()
{
    if (leaving)
        leaving->hide();
}

void MyTabSystem::secAniChanged(const QVariant&)
{
    // The new page appears with the first step of its way in.
    if (current && current->isHidden()) {
        current->show();
        current->raise();
        if (overlay)
            overlay->raise();
    }
}

void MyTabSystem::joinerSlot()
{
    if (!current)
        return;
    host->addWidget(current);
    current->show();
    if (overlay)
        overlay->raise();
}

void MyTabSystem::sequenceSlot()
{
    leaving = nullptr;
    destroyOverlay();
    if (group)
        group->deleteLater();
    group = nullptr;
}

void MyTabSystem::destroyOverlay()
{
    if (overlay)
        overlay->deleteLater();
    overlay = nullptr;
}

void MyTabSystem::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeHeaders();
    for (const auto& pair : tabs) {
        if (pair.second != current || !group)
            pair.second->setGeometry(pageArea());
    }
}

void MyTabSystem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect area = pageArea().adjusted(-1, -1, 0, 0);
    painter.fillRect(area, themeColor(ThemeKey::GroupBoxBackgroundBottom));
    painter.setPen(themeColor(ThemeKey::GroupBoxTitleBorder));
    painter.drawRect(area);
}

#include "MyTabSystem.moc"
