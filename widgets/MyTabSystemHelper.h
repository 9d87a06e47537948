#pragma once

#include <QObject>
#include <QString>

class QPropertyAnimation;
class QWidget;

// One tab of a tab system: its label and its two eased looks, hover
// (0 to 50) and selection (0 to 100). The header it stands on paints it.
class MyTabSystemHelper : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int hoverState READ hoverState WRITE setHoverState)
    Q_PROPERTY(int selectState READ selectState WRITE setSelectState)
public:
    MyTabSystemHelper(const QString& label, QWidget* header);

    QString label() const { return text; }
    void setLabel(const QString& label);

    void setHovered(bool hovered);
    void setSelected(bool selected, bool skipAnimation = false);
    bool isSelected() const { return selected; }

    int hoverState() const { return hover; }
    void setHoverState(int value);
    int selectState() const { return select; }
    void setSelectState(int value);

private:
    QWidget* header;
    QString text;
    bool selected = false;
    int hover = 0;
    int select = 0;
    QPropertyAnimation* hoverAnimation;
    QPropertyAnimation* selectAnimation;
};
