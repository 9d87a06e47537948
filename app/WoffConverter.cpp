#include "app/WoffConverter.h"

#include <QFile>
#include <QSaveFile>
#include <QVector>
#include <QtEndian>

#include <algorithm>
#include <string>

#include <woff2/decode.h>
#include <woff2/output.h>
#include <zlib.h>

namespace WoffConverter {

namespace {

constexpr quint32 WoffSignature = 0x774F4646;  // "wOFF"
constexpr quint32 Woff2Signature = 0x774F4632; // "wOF2"
constexpr quint64 WoffHeaderSize = 44;
constexpr quint64 WoffEntrySize = 20;
constexpr quint64 SfntHeaderSize = 12;
constexpr quint64 SfntEntrySize = 16;

struct WoffTable {
    quint32 tag = 0;
    quint32 offset = 0;
    quint32 compressedLength = 0;
    quint32 length = 0;
    quint32 checksum = 0;
    quint32 sfntOffset = 0;
};

quint32 read32(const uchar* data, quint64 at)
{
    return qFromBigEndian<quint32>(data + at);
}

quint16 read16(const uchar* data, quint64 at)
{
    return qFromBigEndian<quint16>(data + at);
}

void write32(QByteArray& out, quint64 at, quint32 value)
{
    qToBigEndian<quint32>(value, out.data() + at);
}

void write16(QByteArray& out, quint64 at, quint16 value)
{
    qToBigEndian<quint16>(value, out.data() + at);
}

quint64 padded(quint64 length)
{
    return (length + 3) & ~quint64(3);
}

quint32 signatureOf(const QByteArray& bytes)
{
    if (bytes.size() < 4)
        return 0;
    return read32(reinterpret_cast<const uchar*>(bytes.constData()), 0);
}

// Writes the SFNT header of numTables tables; the binary-search fields are
// derived from the count as the format defines them.
void writeSfntHeader(QByteArray& out, quint32 flavor, quint16 numTables)
{
    quint16 entrySelector = 0;
    while ((2u << entrySelector) <= numTables)
        ++entrySelector;
    const quint16 searchRange = quint16((1u << entrySelector) * SfntEntrySize);
    write32(out, 0, flavor);
    write16(out, 4, numTables);
    write16(out, 6, searchRange);
    write16(out, 8, entrySelector);
    write16(out, 10, quint16(numTables * SfntEntrySize - searchRange));
}

// Whether every table of a decoded font lies inside it, past its directory.
// The WOFF 2.0 library accepts some files whose tables it then leaves
// outside the font it writes; such a font is not handed on.
bool tablesLieInside(const QByteArray& font)
{
    const auto* data = reinterpret_cast<const uchar*>(font.constData());
    const quint64 size = quint64(font.size());
    if (size >= 4 && read32(data, 0) == 0x74746366) // "ttcf": a collection, checked by the library
        return true;
    if (size < SfntHeaderSize)
        return false;
    const quint64 tables = read16(data, 4);
    const quint64 directoryEnd = SfntHeaderSize + SfntEntrySize * tables;
    if (directoryEnd > size)
        return false;
    for (quint64 i = 0; i < tables; ++i) {
        const quint64 entry = SfntHeaderSize + SfntEntrySize * i;
        const quint64 offset = read32(data, entry + 8);
        const quint64 length = read32(data, entry + 12);
        if (offset < directoryEnd || offset + length > size)
            return false;
    }
    return true;
}

}

QByteArray decodeWoff(const QByteArray& woff)
{
    const quint64 size = quint64(woff.size());
    if (size < WoffHeaderSize || signatureOf(woff) != WoffSignature)
        return QByteArray();
    const auto* data = reinterpret_cast<const uchar*>(woff.constData());
    const quint32 flavor = read32(data, 4);
    const quint32 declaredLength = read32(data, 8);
    const quint16 numTables = read16(data, 12);
    const quint16 reserved = read16(data, 14);
    const quint32 totalSfntSize = read32(data, 16);
    const quint32 metaOffset = read32(data, 24);
    const quint32 metaLength = read32(data, 28);
    const quint32 privateOffset = read32(data, 36);
    const quint32 privateLength = read32(data, 40);
    if (declaredLength != size || numTables == 0 || reserved != 0 || totalSfntSize > quint64(MaximumFontSize))
        return QByteArray();
    const quint64 directoryEnd = WoffHeaderSize + WoffEntrySize * numTables;
    if (directoryEnd > size)
        return QByteArray();
    // Every block lies after the directory and inside the file; 64-bit sums
    // so that offset plus length can't wrap around.
    const auto inFile = [&](quint64 offset, quint64 length) {
        return length == 0 || (offset >= directoryEnd && offset + length <= size);
    };
    if (!inFile(metaOffset, metaLength) || !inFile(privateOffset, privateLength))
        return QByteArray();

    QVector<WoffTable> tables;
    tables.reserve(numTables);
    quint64 sfntSize = SfntHeaderSize + SfntEntrySize * numTables;
    for (quint64 i = 0; i < numTables; ++i) {
        const quint64 entry = WoffHeaderSize + WoffEntrySize * i;
        WoffTable table;
        table.tag = read32(data, entry);
        table.offset = read32(data, entry + 4);
        table.compressedLength = read32(data, entry + 8);
        table.length = read32(data, entry + 12);
        table.checksum = read32(data, entry + 16);
        if (!inFile(table.offset, table.compressedLength) || table.compressedLength > table.length)
            return QByteArray();
        // Deflate can't pack better than about 1032 to 1: a table claiming
        // more is refused before any room is set aside for it.
        if (table.compressedLength < table.length && table.length > quint64(table.compressedLength) * 1032 + 64)
            return QByteArray();
        // The declared size bounds what the tables may unpack to, checked
        // before anything is inflated.
        sfntSize += padded(table.length);
        if (sfntSize > totalSfntSize)
            return QByteArray();
        tables.append(table);
    }
    std::sort(tables.begin(), tables.end(),
              [](const WoffTable& a, const WoffTable& b) { return a.tag < b.tag; });
    for (int i = 1; i < tables.size(); ++i) {
        if (tables[i].tag == tables[i - 1].tag)
            return QByteArray();
    }

    QByteArray sfnt(int(sfntSize), '\0');
    writeSfntHeader(sfnt, flavor, numTables);
    // The tables' data keeps the order it had in the original font, which the
    // order of their blocks in the WOFF file reflects.
    QVector<WoffTable*> inFileOrder;
    for (WoffTable& table : tables)
        inFileOrder.append(&table);
    std::stable_sort(inFileOrder.begin(), inFileOrder.end(),
                     [](const WoffTable* a, const WoffTable* b) { return a->offset < b->offset; });
    quint64 position = SfntHeaderSize + SfntEntrySize * numTables;
    for (WoffTable* table : inFileOrder) {
        table->sfntOffset = quint32(position);
        auto* target = reinterpret_cast<uchar*>(sfnt.data() + position);
        const uchar* source = data + table->offset;
        if (table->compressedLength == table->length) {
            std::copy(source, source + table->length, target);
        } else {
            // Inflating into exactly the declared room: a stream that wants
            // more, or ends short, is refused.
            uLongf inflated = table->length;
            if (uncompress(target, &inflated, source, table->compressedLength) != Z_OK
                || inflated != table->length)
                return QByteArray();
        }
        position += padded(table->length);
    }
    for (int i = 0; i < tables.size(); ++i) {
        const quint64 entry = SfntHeaderSize + SfntEntrySize * quint64(i);
        write32(sfnt, entry, tables[i].tag);
        write32(sfnt, entry + 4, tables[i].checksum);
        write32(sfnt, entry + 8, tables[i].sfntOffset);
        write32(sfnt, entry + 12, tables[i].length);
    }
    return sfnt;
}

QByteArray decodeWoff2(const QByteArray& woff2)
{
    if (signatureOf(woff2) != Woff2Signature)
        return QByteArray();
    const auto* data = reinterpret_cast<const uint8_t*>(woff2.constData());
    const size_t size = size_t(woff2.size());
    const size_t finalSize = woff2::ComputeWOFF2FinalSize(data, size);
    if (finalSize == 0)
        return QByteArray();
    std::string sfnt;
    sfnt.reserve(std::min<size_t>(finalSize, size_t(MaximumFontSize)));
    woff2::WOFF2StringOut out(&sfnt);
    out.SetMaxSize(size_t(MaximumFontSize));
    if (!woff2::ConvertWOFF2ToTTF(data, size, &out))
        return QByteArray();
    QByteArray font(sfnt.data(), int(out.Size()));
    if (!tablesLieInside(font))
        return QByteArray();
    return font;
}

}

bool convertWoffToOtf(const QString& source, const QString& destination)
{
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly) || file.size() > WoffConverter::MaximumFontSize)
        return false;
    const QByteArray bytes = file.readAll();
    const QByteArray font = WoffConverter::signatureOf(bytes) == WoffConverter::Woff2Signature
        ? WoffConverter::decodeWoff2(bytes)
        : WoffConverter::decodeWoff(bytes);
    if (font.isEmpty())
        return false;
    QSaveFile out(destination);
    return out.open(QIODevice::WriteOnly) && out.write(font) == font.size() && out.commit();
}
