#pragma once

#include <QProxyStyle>

// The application style: "Fusion" underneath, coloured from the theme table.
//
// Start-up layer until the style sheet lands: it gives the palette; the
// program's style sheet is not built yet.
class VelmoStyle : public QProxyStyle
{
    Q_OBJECT
public:
    VelmoStyle();

    QPalette standardPalette() const override;
    void polish(QPalette& palette) override;
    using QProxyStyle::polish;
};
