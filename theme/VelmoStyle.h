#pragma once

#include <QProxyStyle>

// The application style: "Fusion" underneath, with the palette filled from
// the theme table and the application style sheet built from the template
// ":/style/darkstyle.qss" with the theme's colours.
class VelmoStyle : public QProxyStyle
{
    Q_OBJECT
public:
    VelmoStyle();

    // Raises the font once, then sets the style sheet of the current theme.
    void polish(QApplication* application) override;
    void polish(QPalette& palette) override;
    using QProxyStyle::polish;

    // The template filled from the current theme table; empty when the
    // template can't be read.
    static QString styleSheet();
    // The named placeholders of the template with their colour keys, in the
    // order they are filled.
    static const QVector<QPair<const char*, int>>& placeholders();
};
