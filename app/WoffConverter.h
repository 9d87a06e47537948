#pragma once

#include <QByteArray>
#include <QString>

// Converts a web font (WOFF 1.0 or WOFF 2.0, told apart by its signature) at
// source into the plain font it wraps, written to destination, so that the
// font database can load it. A file that isn't a well-formed web font writes
// nothing and leaves destination as it was. Returns whether it wrote.
bool convertWoffToOtf(const QString& source, const QString& destination);

// The decoders behind it, on bytes in memory. Each gives the SFNT font file,
// or empty bytes for anything malformed.
namespace WoffConverter {

// Largest font either decoder will produce or read, against files that claim
// or inflate to absurd sizes. The largest fonts a game ships (whole CJK
// families) are about 20 MB; a small web font that inflates past this limit
// would take seconds to unpack into a file no font database takes.
constexpr qint64 MaximumFontSize = 32 * 1024 * 1024;

QByteArray decodeWoff(const QByteArray& woff);
QByteArray decodeWoff2(const QByteArray& woff2);

}
