#include "app/JsonRecordNames.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <cstring>

namespace JsonRecordNames {

namespace {

// Deeper than any database record; Qt's parser gives up further down.
constexpr int MaxDepth = 512;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// The value of one JSON text slice, through Qt's parser, so that a kept
// value is exactly what the whole parse would have given.
bool decode(const char* begin, const char* end, QJsonValue* value)
{
    QByteArray text;
    text.reserve(int(end - begin) + 2);
    text.append('[').append(begin, int(end - begin)).append(']');
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isArray() || document.array().size() != 1)
        return false;
    *value = document.array().at(0);
    return true;
}

// Checks one value at a time and moves past it; a false answer means the
// text is not well-formed, or holds what this reader leaves to the parser.
class Scanner
{
public:
    Scanner(const char* begin, const char* end) : p(begin), end(end) {}

    const char* p;
    const char* const end;

    void skipSpace()
    {
        while (p < end && (*p == ' ' || *p == '\n' || *p == '\r' || *p == '\t'))
            ++p;
    }

    // At the opening quote; escaped tells whether the text held a backslash.
    bool string(bool* escaped = nullptr)
    {
        ++p;
        while (p < end) {
            const unsigned char c = static_cast<unsigned char>(*p);
            if (c == '"') {
                ++p;
                return true;
            }
            if (c == '\\') {
                if (escaped)
                    *escaped = true;
                if (!escape())
                    return false;
            } else if (c < 0x20) {
                return false;
            } else if (c < 0x80) {
                ++p;
            } else if (!utf8()) {
                return false;
            }
        }
        return false;
    }

    bool value(int depth)
    {
        if (p >= end)
            return false;
        switch (*p) {
        case '"':
            return string();
        case '{':
            return object(depth + 1, nullptr, nullptr);
        case '[':
            return array(depth + 1);
        case 't':
            return literal("true", 4);
        case 'f':
            return literal("false", 5);
        case 'n':
            return literal("null", 4);
        default:
            return number();
        }
    }

    // The text of the object's "name" value goes to name and nameEnd, which
    // start out null; an object with two "name" keys is declined.
    bool object(int depth, const char** name, const char** nameEnd)
    {
        if (depth > MaxDepth)
            return false;
        ++p;
        skipSpace();
        if (p < end && *p == '}') {
            ++p;
            return true;
        }
        for (;;) {
            if (p >= end || *p != '"')
                return false;
            const char* const key = p;
            bool escaped = false;
            if (!string(&escaped))
                return false;
            const bool isName = name && isNameKey(key, p, escaped);
            skipSpace();
            if (p >= end || *p != ':')
                return false;
            ++p;
            skipSpace();
            const char* const start = p;
            if (!value(depth))
                return false;
            if (isName) {
                // Of two "name" keys in one record the parser keeps either,
                // depending on the record's other keys: left to it.
                if (*name)
                    return false;
                *name = start;
                *nameEnd = p;
            }
            skipSpace();
            if (p >= end)
                return false;
            if (*p == ',') {
                ++p;
                skipSpace();
                continue;
            }
            if (*p != '}')
                return false;
            ++p;
            return true;
        }
    }

    bool array(int depth)
    {
        if (depth > MaxDepth)
            return false;
        ++p;
        skipSpace();
        if (p < end && *p == ']') {
            ++p;
            return true;
        }
        for (;;) {
            skipSpace();
            if (!value(depth))
                return false;
            skipSpace();
            if (p >= end)
                return false;
            if (*p == ',') {
                ++p;
                continue;
            }
            if (*p != ']')
                return false;
            ++p;
            return true;
        }
    }

private:
    bool literal(const char* word, int length)
    {
        if (end - p < length || std::memcmp(p, word, size_t(length)) != 0)
            return false;
        p += length;
        return true;
    }

    bool digits()
    {
        if (p >= end || !isDigit(*p))
            return false;
        while (p < end && isDigit(*p))
            ++p;
        return true;
    }

    bool number()
    {
        const char* const start = p;
        if (p < end && *p == '-')
            ++p;
        if (p < end && *p == '0')
            ++p;
        else if (!digits())
            return false;
        if (p < end && *p == '.') {
            ++p;
            if (!digits())
                return false;
        }
        bool exponent = false;
        if (p < end && (*p == 'e' || *p == 'E')) {
            ++p;
            if (p < end && (*p == '+' || *p == '-'))
                ++p;
            if (!digits())
                return false;
            exponent = true;
        }
        // Only an exponent or a very long number can leave the range of a
        // double, which the parser refuses.
        if (exponent || p - start > 300) {
            bool ok = false;
            const double number = QByteArray::fromRawData(start, int(p - start)).toDouble(&ok);
            if (!ok || !std::isfinite(number))
                return false;
        }
        return true;
    }

    // At the backslash.
    bool escape()
    {
        ++p;
        if (p >= end)
            return false;
        switch (*p) {
        case '"':
        case '\\':
        case '/':
        case 'b':
        case 'f':
        case 'n':
        case 'r':
        case 't':
            ++p;
            return true;
        case 'u':
            break;
        default:
            return false;
        }
        int unit = 0;
        if (!hex4(&unit))
            return false;
        if (unit >= 0xDC00 && unit <= 0xDFFF)
            return false;
        if (unit < 0xD800 || unit > 0xDBFF)
            return true;
        // A high surrogate stands only before a low one.
        if (end - p < 2 || p[0] != '\\' || p[1] != 'u')
            return false;
        ++p;
        int low = 0;
        return hex4(&low) && low >= 0xDC00 && low <= 0xDFFF;
    }

    // At the 'u' of an escape; moves past its four digits.
    bool hex4(int* unit)
    {
        if (end - p < 5)
            return false;
        int value = 0;
        for (int i = 1; i <= 4; ++i) {
            const int digit = hexValue(p[i]);
            if (digit < 0)
                return false;
            value = value * 16 + digit;
        }
        *unit = value;
        p += 5;
        return true;
    }

    // A sequence of two to four bytes, refusing overlong forms, surrogates,
    // code points past U+10FFFF and noncharacters.
    bool utf8()
    {
        const unsigned char lead = static_cast<unsigned char>(*p);
        int more = 0;
        unsigned point = 0;
        if (lead >= 0xC2 && lead <= 0xDF) {
            more = 1;
            point = lead & 0x1F;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            more = 2;
            point = lead & 0x0F;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            more = 3;
            point = lead & 0x07;
        } else {
            return false;
        }
        if (end - p <= more)
            return false;
        for (int i = 1; i <= more; ++i) {
            const unsigned char next = static_cast<unsigned char>(p[i]);
            if ((next & 0xC0) != 0x80)
                return false;
            point = (point << 6) | (next & 0x3F);
        }
        if (more == 2 && (point < 0x800 || (point >= 0xD800 && point <= 0xDFFF)))
            return false;
        if (more == 3 && (point < 0x10000 || point > 0x10FFFF))
            return false;
        if ((point >= 0xFDD0 && point <= 0xFDEF) || (point & 0xFFFE) == 0xFFFE)
            return false;
        p += more + 1;
        return true;
    }

    static bool isNameKey(const char* key, const char* keyEnd, bool escaped)
    {
        if (!escaped)
            return keyEnd - key == 6 && std::memcmp(key, "\"name\"", 6) == 0;
        QJsonValue decoded;
        return decode(key, keyEnd, &decoded) && decoded.toString() == QLatin1String("name");
    }
};

}

bool read(const QByteArray& text, QJsonArray* records)
{
    Scanner scanner(text.constData(), text.constData() + text.size());
    scanner.skipSpace();
    if (scanner.p >= scanner.end || *scanner.p != '[')
        return false;
    ++scanner.p;
    scanner.skipSpace();
    QJsonArray found;
    if (scanner.p < scanner.end && *scanner.p == ']') {
        ++scanner.p;
    } else {
        for (;;) {
            scanner.skipSpace();
            const char* const start = scanner.p;
            if (start < scanner.end && *start == '{') {
                const char* name = nullptr;
                const char* nameEnd = nullptr;
                if (!scanner.object(1, &name, &nameEnd))
                    return false;
                QJsonObject record;
                if (name) {
                    QJsonValue value;
                    if (!decode(name, nameEnd, &value))
                        return false;
                    record.insert(QStringLiteral("name"), value);
                }
                found.append(record);
            } else {
                if (!scanner.value(1))
                    return false;
                if (scanner.p - start == 4 && std::memcmp(start, "null", 4) == 0) {
                    found.append(QJsonValue());
                } else {
                    QJsonValue value;
                    if (!decode(start, scanner.p, &value))
                        return false;
                    found.append(value);
                }
            }
            scanner.skipSpace();
            if (scanner.p >= scanner.end)
                return false;
            if (*scanner.p == ',') {
                ++scanner.p;
                continue;
            }
            if (*scanner.p != ']')
                return false;
            ++scanner.p;
            break;
        }
    }
    scanner.skipSpace();
    if (scanner.p != scanner.end)
        return false;
    *records = found;
    return true;
}

}
