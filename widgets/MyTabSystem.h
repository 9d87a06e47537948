#pragma once

#include <QPair>
#include <QPointer>
#include <QVector>
#include <QWidget>

class MyTabSystemHeader;
class MyTabSystemHelper;
class QSequentialAnimationGroup;
class QVBoxLayout;
class TabFadeOverlay;

// The tab widget of every dialog: a header of painted tabs over (or beside)
// a page area whose pages slide, shrink or fade when the tab changes. In the
// two-row form tabs alternate between two header rows.
class MyTabSystem : public QWidget
{
    Q_OBJECT
public:
    enum TransitionStyle { Slide = 0, Shrink = 1, Fade = 2 };

    explicit MyTabSystem(QWidget* parent = nullptr);

    void addTab(const QString& label, QWidget* page);
    // By public index, which counts the top row first.
    void setCurrentIndex(int index, bool skipAnimation = false, bool skipSignal = false);
    int currentIndex() const;
    int count() const { return tabs.size(); }
    QWidget* page(int index) const;
    QWidget* currentPage() const { return current; }
    MyTabSystemHelper* tab(int index) const;

    void setVertical(bool vertical);
    bool isVertical() const { return vertical; }
    void enableTwoRows();
    bool hasTwoRows() const { return twoRows; }
    void setTransitionStyle(int style);
    int transitionStyle() const { return style; }
    // The next change of tab swaps the pages at once.
    void skipNextAnimation() { skipNext = true; }
    bool isAnimating() const;

    // Position on the headers and public index, both ways.
    int positionOf(int index) const;
    int indexOf(int position) const;
    // The rectangle pages stand in.
    QRect pageArea() const;
    MyTabSystemHeader* header() const { return firstHeader; }
    MyTabSystemHeader* secondHeader() const { return secondRow; }

signals:
    void currentChanged(int index);

private slots:
    void leaverSlot();
    void joinerSlot();
    void sequenceSlot();
    void secAniChanged(const QVariant& value);
    void destroyOverlay();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void changePosition(int newPosition, bool skipAnimation, bool skipSignal);
    void placeHeaders();
    void discardTransition();
    void headerClicked(MyTabSystemHeader* header, int place);

    QVector<QPair<MyTabSystemHelper*, QWidget*>> tabs;
    MyTabSystemHeader* firstHeader;
    MyTabSystemHeader* secondRow = nullptr;
    QVBoxLayout* host;
    QPointer<QWidget> current;
    QPointer<QWidget> leaving;
    QPointer<QSequentialAnimationGroup> group;
    QPointer<TabFadeOverlay> overlay;
    int position = -1;
    int style = Slide;
    bool vertical = false;
    bool twoRows = false;
    bool skipNext = false;
    bool direction = false;
};
