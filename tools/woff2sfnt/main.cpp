// Unpacks a WOFF or WOFF2 web font into the plain TrueType/OpenType file it
// wraps, through the editor's own decoder, so that bundled fonts are made the
// same way the editor's font cache is.
// Usage: velmora-woff2sfnt SOURCE.woff DESTINATION.ttf
#include "app/WoffConverter.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: velmora-woff2sfnt SOURCE.woff DESTINATION.ttf\n");
        return 2;
    }
    if (!convertWoffToOtf(arguments.at(1), arguments.at(2))) {
        std::fprintf(stderr, "%s is not a well-formed WOFF or WOFF2 font, or %s can't be written\n",
                     qPrintable(arguments.at(1)), qPrintable(arguments.at(2)));
        return 1;
    }
    return 0;
}
