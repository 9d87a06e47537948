#include "widgets/JSHighlighter.h"

namespace {

const QString Comment = QStringLiteral("comment");
const QString String = QStringLiteral("string");

// The index of the quote that closes a string whose text starts at from;
// a backslash escapes the character behind it. -1 when the line ends first.
int closingQuote(const QString& text, int from, QChar quote)
{
    for (int i = from; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('\\'))
            ++i;
        else if (text.at(i) == quote)
            return i;
    }
    return -1;
}

bool isWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

bool isOpening(QChar c)
{
    return c == QLatin1Char('{') || c == QLatin1Char('(') || c == QLatin1Char('[') || c == QLatin1Char('<');
}

bool isClosing(QChar c)
{
    return c == QLatin1Char('}') || c == QLatin1Char(')') || c == QLatin1Char(']') || c == QLatin1Char('>');
}

// The brackets of an expression; "<" and ">" compare there.
bool opensValue(QChar c)
{
    return c != QLatin1Char('<') && isOpening(c);
}

bool closesValue(QChar c)
{
    return c != QLatin1Char('>') && isClosing(c);
}

}

JSHighlighter::JSHighlighter(QTextDocument* document) : BaseHighlighter(document)
{
    const QString function = QStringLiteral("function");
    const QString thisSuper = QStringLiteral("thissuper");
    const QString numbers = QStringLiteral("numbers");
    addRule(QStringLiteral("(\\w+)\\([^\\)]*\\)(?!\\:)"), function, 1);
    addRule(QStringLiteral("(\\w+)\\([^\\)]*,"), function, 1);
    addWords({QStringLiteral("arguments"), QStringLiteral("await"), QStringLiteral("break"), QStringLiteral("case"),
              QStringLiteral("catch"), QStringLiteral("continue"), QStringLiteral("default"),
              QStringLiteral("delete"), QStringLiteral("do"), QStringLiteral("else"), QStringLiteral("eval"),
              QStringLiteral("export"), QStringLiteral("finally"), QStringLiteral("for"), QStringLiteral("if"),
              QStringLiteral("implements"), QStringLiteral("in"), QStringLiteral("instanceof"),
              QStringLiteral("new"), QStringLiteral("private"), QStringLiteral("protected"),
              QStringLiteral("public"), QStringLiteral("return"), QStringLiteral("static"),
              QStringLiteral("switch"), QStringLiteral("throw"), QStringLiteral("try"), QStringLiteral("typeof"),
              QStringLiteral("void"), QStringLiteral("while"), QStringLiteral("with"), QStringLiteral("yield")},
             QStringLiteral("keyword"));
    addWords({QStringLiteral("class"), QStringLiteral("enum"), QStringLiteral("function"),
              QStringLiteral("interface"), QStringLiteral("var"), QStringLiteral("let"), QStringLiteral("const"),
              QStringLiteral("import"), QStringLiteral("extends"), QStringLiteral("implements"),
              QStringLiteral("package")},
             QStringLiteral("super_keyword"));
    addWords({QStringLiteral("null"), QStringLiteral("true"), QStringLiteral("false"), QStringLiteral("undefined"),
              QStringLiteral("Infinity"), QStringLiteral("NaN")},
             numbers);
    addPatterns({QStringLiteral("="), QStringLiteral("=="), QStringLiteral("!="), QStringLiteral("<"),
                 QStringLiteral("<="), QStringLiteral(">"), QStringLiteral(">="), QStringLiteral("\\+"),
                 QStringLiteral("-"), QStringLiteral("\\*"), QStringLiteral("/"), QStringLiteral("//"),
                 QStringLiteral("\\%"), QStringLiteral("\\*\\*"), QStringLiteral("\\+="), QStringLiteral("-="),
                 QStringLiteral("\\*="), QStringLiteral("/="), QStringLiteral("\\%="), QStringLiteral("\\^"),
                 QStringLiteral("\\|"), QStringLiteral("\\&"), QStringLiteral("\\~"), QStringLiteral(">>"),
                 QStringLiteral("<<")},
                QStringLiteral("operator"));
    addPatterns({QStringLiteral("\\{"), QStringLiteral("\\}"), QStringLiteral("\\("), QStringLiteral("\\)"),
                 QStringLiteral("\\["), QStringLiteral("\\]")},
                QStringLiteral("brace"));
    addPatterns({QStringLiteral("\\bthis\\b"), QStringLiteral("\\bsuper\\b")}, thisSuper);
    // The globals a plugin's script calls and names most, beyond the
    // language's own words.
    addWords({QStringLiteral("parseInt"), QStringLiteral("parseFloat"), QStringLiteral("isNaN"),
              QStringLiteral("isFinite"), QStringLiteral("require"), QStringLiteral("setTimeout"),
              QStringLiteral("setInterval"), QStringLiteral("clearTimeout"), QStringLiteral("clearInterval"),
              QStringLiteral("encodeURIComponent"), QStringLiteral("decodeURIComponent")},
             function);
    addWords({QStringLiteral("window"), QStringLiteral("document"), QStringLiteral("console"),
              QStringLiteral("globalThis")},
             thisSuper);
    addRule(QStringLiteral("(@:?\\w+)"), QStringLiteral("metadata"), 1);
    addRule(QStringLiteral("(@:?\\w+)\\([^\\)]*\\)"), QStringLiteral("metadata"), 1);
    addRule(QStringLiteral("\\bfunction\\b\\s*(\\w+)"), QStringLiteral("classmethods"), 1);
    addRule(QStringLiteral("\\b(?:class|abstract|interface)\\b\\s*(\\w+)"), QStringLiteral("classmethods"), 1);
    addRule(QStringLiteral("\\b[+-]?[0-9]+[lL]?\\b"), numbers);
    addRule(QStringLiteral("\\b[+-]?0[xX][0-9A-Fa-f]+[lL]?\\b"), numbers);
    addRule(QStringLiteral("\\b[+-]?[0-9]+(?:\\.[0-9]+)?(?:[eE][+-]?[0-9]+)?\\b"), numbers);
    addRule(QStringLiteral("var\\s*[a-zA-Z0-9_]+(?:\\(\\s*(?:default|null|get|set|dynamic|never)\\s*,\\s*"
                           "(?:default|null|get|set|dynamic|never)\\s*\\))?\\s*:\\s*([a-zA-Z0-9_]*)\\s*"),
            QStringLiteral("typehint"), 1);
    addRule(QStringLiteral("\\bfunction\\b\\s*\\w+\\([^\\)]*\\)[ \\t]*:[ \\t]*([a-zA-Z0-9_]+)"),
            QStringLiteral("typehint"), 1);
    addWords({QStringLiteral("Array"), QStringLiteral("Date"), QStringLiteral("Math"), QStringLiteral("Number"),
              QStringLiteral("Object"), QStringLiteral("String")},
             QStringLiteral("primitive_types"));
    addRule(QStringLiteral("\\(\\s*(?:[a-zA-Z0-9_]*)\\s*,\\s*(default|null|get|set|dynamic|never)\\s*\\)\\s*"),
            QStringLiteral("accessors"), 1);
    addRule(QStringLiteral("\\(\\s*(default|null|get|set|dynamic|never)\\s*,\\s*(?:[a-zA-Z0-9_]*)\\s*\\)\\s*"),
            QStringLiteral("accessors"), 1);
    addRule(QStringLiteral("^[ \\t]*(#(?:if|elseif|else|end))"), QStringLiteral("compile_conditionals"), 1);
    addRule(QStringLiteral("//[^\\n]*"), Comment);
}

void JSHighlighter::highlightLine(const QString& text)
{
    const int previous = qMax(0, previousBlockState());
    QVector<Span> spans;
    const int open = scan(text, previous & (InBlockComment | InString | SingleQuoted), spans);
    int depth = 0;
    // A line that lies wholly inside a comment or a string needs no rules:
    // the span paints all of it.
    const bool whole = spans.size() == 1 && spans.first().start == 0 && spans.first().length == text.size();
    if (!whole) {
        // Rule matches that begin inside a string or comment are left out,
        // so "//" in a string doesn't turn the rest of the line grey.
        applyRules(text, spans);
        if (previous >> DepthShift > 0)
            depth = paintParameters(text, 0, previous >> DepthShift);
        static const QRegularExpression parameters(QStringLiteral("\\bfunction\\b\\s*(?:\\w+)?\\(([^\\)]+)"));
        QRegularExpressionMatchIterator matches = parameters.globalMatch(text);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            if (!inSpans(match.capturedStart(), spans))
                depth = paintParameters(text, match.capturedStart(1), 0);
        }
    }
    for (const Span& span : spans)
        paint(span.start, span.length, span.format);
    setCurrentBlockState(open | (depth << DepthShift));
}

int JSHighlighter::scan(const QString& text, int state, QVector<Span>& spans)
{
    const int size = text.size();
    int i = 0;
    if (state & InBlockComment) {
        const int close = text.indexOf(QLatin1String("*/"));
        if (close < 0) {
            spans.append({0, size, Comment});
            return InBlockComment;
        }
        spans.append({0, close + 2, Comment});
        i = close + 2;
    } else if (state & InString) {
        const int close = closingQuote(text, 0, QLatin1Char(state & SingleQuoted ? '\'' : '"'));
        if (close < 0) {
            spans.append({0, size, String});
            return state & (InString | SingleQuoted);
        }
        spans.append({0, close + 1, String});
        i = close + 1;
    }
    while (i < size) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            const int close = closingQuote(text, i + 1, c);
            if (close < 0) {
                spans.append({i, size - i, String});
                return InString | (c == QLatin1Char('\'') ? SingleQuoted : 0);
            }
            spans.append({i, close + 1 - i, String});
            i = close + 1;
            continue;
        }
        if (c == QLatin1Char('/') && i + 1 < size) {
            if (text.at(i + 1) == QLatin1Char('/')) {
                spans.append({i, size - i, Comment});
                return 0;
            }
            if (text.at(i + 1) == QLatin1Char('*')) {
                const int close = text.indexOf(QLatin1String("*/"), i + 2);
                if (close < 0) {
                    spans.append({i, size - i, Comment});
                    return InBlockComment;
                }
                spans.append({i, close + 2 - i, Comment});
                i = close + 2;
                continue;
            }
        }
        ++i;
    }
    return 0;
}

int JSHighlighter::paintParameters(const QString& text, int position, int depth)
{
    const QString typeHint = QStringLiteral("typehint");
    const QString typeHintBraces = QStringLiteral("typehint_braces");
    const int size = text.size();
    bool inHint = depth > 0;
    bool expectName = !inHint;
    // Brackets of a default value, whose commas don't start a parameter.
    int valueDepth = 0;
    int i = position;
    while (i < size) {
        const QChar c = text.at(i);
        if (inHint) {
            if (depth == 0 && (c == QLatin1Char(',') || c == QLatin1Char('=') || c == QLatin1Char(')'))) {
                inHint = false;
                continue;
            }
            if (isOpening(c)) {
                ++depth;
                paint(i, 1, typeHintBraces);
            } else if (isClosing(c)) {
                depth = qMax(0, depth - 1);
                paint(i, 1, typeHintBraces);
            } else if (!c.isSpace()) {
                paint(i, 1, typeHint);
            }
            ++i;
            continue;
        }
        if (valueDepth > 0) {
            if (opensValue(c))
                ++valueDepth;
            else if (closesValue(c))
                --valueDepth;
            ++i;
            continue;
        }
        if (c == QLatin1Char(')'))
            return 0;
        if (c == QLatin1Char(',')) {
            expectName = true;
        } else if (c == QLatin1Char(':')) {
            inHint = true;
        } else if (c == QLatin1Char('=')) {
            expectName = false;
        } else if (opensValue(c) && !expectName) {
            ++valueDepth;
        } else if (expectName && isWordCharacter(c)) {
            int end = i;
            while (end < size && isWordCharacter(text.at(end)))
                ++end;
            paint(i, end - i, QStringLiteral("parameters"));
            expectName = false;
            i = end;
            continue;
        }
        ++i;
    }
    return inHint ? depth : 0;
}
