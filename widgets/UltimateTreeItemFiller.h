#pragma once

#include "widgets/UltimateTreeItemBase.h"

#include <QString>

// The "+" row under all others. Double-clicking it asks the list's owner to
// create a record; it is never current for callers.
class UltimateTreeItemFiller : public UltimateTreeItemBase
{
    Q_OBJECT

public:
    explicit UltimateTreeItemFiller(UltimateTree* owner);

    void setHeight(double value);
    void setCaption(const QString& text) { caption = text; }
    QString getCaption() const { return caption; }
    void setFillerVisible(bool on);
    bool isFillerVisible() const { return visibleFlag; }
    bool isSelected() const { return selected; }

    void setHovered(bool on, bool immediate) override;
    void setSelected(bool on) override;
    void refresh() override;
    QRectF rowRect() const override;
    void paintRow(QPainter* painter) override;

private:
    QString caption;
    double height = 0;
    bool selected = false;
    bool visibleFlag = true;
};
