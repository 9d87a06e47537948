#pragma once

#include <QProxyStyle>

// The look of the drop indicator in the few Qt item views the program keeps,
// matching the program's own lists.
class myViewStyle : public QProxyStyle
{
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
};
