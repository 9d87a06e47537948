#pragma once

#include <QProxyStyle>

// The application style: "Fusion" underneath, with the palette filled from
// the theme table.
//
// The application style sheet built from the theme is not part of it yet; until
// it lands, the palette alone carries the theme.
class VelmoStyle : public QProxyStyle
{
    Q_OBJECT
public:
    VelmoStyle();

    void polish(QPalette& palette) override;
    using QProxyStyle::polish;
};
