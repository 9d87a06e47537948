#include "widgets/BaseHighlighter.h"

#include "theme/Contrast.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QTextLayout>
#include <QTimer>

#include <algorithm>

namespace {

struct BuiltInFormat {
    const char* name;
    QRgb color;
    // Bit 1: weight 81; bit 2: italics.
    int style;
};

const BuiltInFormat BuiltInFormats[] = {
    {"keyword", 0xef4e4e, 0},
    {"super_keyword", 0x1fcdef, 2},
    {"operator", 0xef4e4e, 0},
    {"brace", 0xf0f0f0, 0},
    {"classmethods", 0x2fef7f, 0},
    {"string", 0xf0ff46, 0},
    {"accessors", 0xe65a7c, 2},
    {"comment", 0x9e9e9e, 0},
    {"thissuper", 0xeeb74f, 2},
    {"numbers", 0xdc4df0, 0},
    {"parameters", 0xeeb74f, 2},
    {"typehint", 0x4fb7ee, 2},
    {"function", 0x2fef7f, 0},
    {"built_function", 0xff8c00, 0},
    {"metadata", 0xe65a7c, 0},
    {"typehint_braces", 0xffffff, 2},
    {"primitive_types", 0xa38af5, 2},
    {"highlevel_types", 0xa38af5, 2},
    {"compile_conditionals", 0xef4e4e, 0},
};

QTextCharFormat makeFormat(const QColor& color, int style)
{
    QTextCharFormat format;
    format.setForeground(color);
    if (style & 1)
        format.setFontWeight(81);
    if (style & 2)
        format.setFontItalic(true);
    return format;
}

QHash<QString, QTextCharFormat> builtInTable()
{
    QHash<QString, QTextCharFormat> table;
    for (const BuiltInFormat& entry : BuiltInFormats)
        table.insert(QLatin1String(entry.name), makeFormat(QColor(entry.color), entry.style));
    return table;
}

QHash<QString, QTextCharFormat>& table()
{
    static QHash<QString, QTextCharFormat> formats = builtInTable();
    return formats;
}

// The highlighters that live, so that a new scheme reaches open editors.
QList<BaseHighlighter*>& living()
{
    static QList<BaseHighlighter*> highlighters;
    return highlighters;
}

// Black reads better than white on this background.
bool isLight(const QColor& background)
{
    return background.isValid() && Contrast::ratio(background, Qt::black) > Contrast::ratio(background, Qt::white);
}

// The time a change may spend highlighting at once, and each slice of what
// it left for later: well within one frame, with the keystroke's own work.
const int BudgetMs = 4;
// The lines a change highlights whatever the clock says: about a screenful
// below the edit, so that what the user sees turns at once even when the
// machine is busy.
const int LeastLinesAtOnce = 60;

QColor readableOn(const QColor& color, const QColor& background)
{
    if (!isLight(background) || Contrast::ratio(color, background) >= Contrast::Text)
        return color;
    QColor darker = color.toHsl();
    const int hue = darker.hslHue();
    const int saturation = darker.hslSaturation();
    for (int lightness = darker.lightness(); lightness >= 0; lightness -= 4) {
        darker.setHsl(hue, saturation, lightness);
        if (Contrast::ratio(darker, background) >= Contrast::Text)
            break;
    }
    return darker.toRgb();
}

}

BaseHighlighter::BaseHighlighter(QTextDocument* document)
    : QSyntaxHighlighter(static_cast<QObject*>(document)), continuation(new QTimer(this))
{
    living().append(this);
    refreshFormats();
    continuation->setSingleShot(true);
    continuation->setInterval(0);
    connect(continuation, &QTimer::timeout, this, &BaseHighlighter::highlightPendingLines);
    // Connected before the highlighter's own handler, so that each change
    // of the text starts its pass with a fresh budget.
    connect(document, &QTextDocument::contentsChange, this, &BaseHighlighter::startPass);
    setDocument(document);
}

BaseHighlighter::~BaseHighlighter()
{
    living().removeOne(this);
    // QSyntaxHighlighter's destructor clears the document's formats, which
    // signals a change; by then this part of the object is gone.
    if (QTextDocument* text = document())
        disconnect(text, nullptr, this, nullptr);
    continuation->stop();
}

const QHash<QString, QTextCharFormat>& BaseHighlighter::formatTable()
{
    return table();
}

QStringList BaseHighlighter::builtInNames()
{
    QStringList names;
    for (const BuiltInFormat& entry : BuiltInFormats)
        names.append(QLatin1String(entry.name));
    return names;
}

void BaseHighlighter::applySyntaxColors(const QJsonObject& object)
{
    QHash<QString, QTextCharFormat> formats = builtInTable();
    for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
        if (it.value().isArray())
            continue;
        const QColor color(it.value().toString());
        // A colour name that means nothing would paint black on the dark
        // editor; the entry keeps its colour instead.
        if (color.isValid())
            formats.insert(it.key(), makeFormat(color, 0));
    }
    table() = formats;
    for (BaseHighlighter* highlighter : living()) {
        highlighter->refreshFormats();
        highlighter->rehighlightAll();
    }
}

void BaseHighlighter::setBackground(const QColor& color)
{
    if (color == background)
        return;
    background = color;
    refreshFormats();
    rehighlightAll();
}

void BaseHighlighter::rehighlightAll()
{
    const QScopedValueRollback<bool> everything(unlimited, true);
    startPass();
    pendingStart = QTextCursor();
    pendingEnd = QTextCursor();
    rehighlight();
}

QTextCharFormat BaseHighlighter::shownFormat(const QString& name) const
{
    return shown.value(name);
}

void BaseHighlighter::refreshFormats()
{
    shown = table();
    for (QTextCharFormat& format : shown)
        format.setForeground(readableOn(format.foreground().color(), background));
}

void BaseHighlighter::addRule(const QString& pattern, const QString& format, int group)
{
    QRegularExpression expression(pattern);
    expression.optimize();
    rules.append({expression, format, group});
}

void BaseHighlighter::addWords(const QStringList& words, const QString& format)
{
    QStringList patterns;
    for (const QString& word : words)
        patterns.append(QStringLiteral("\\b%1\\b").arg(word));
    addPatterns(patterns, format);
}

void BaseHighlighter::addPatterns(const QStringList& patterns, const QString& format)
{
    // One pass instead of one per pattern. Callers give lists whose union
    // of matches an alternation finds whole: words that stand alone, and
    // operators made of characters that are operators themselves.
    addRule(QStringLiteral("(?:%1)").arg(patterns.join(QLatin1Char('|'))), format);
}

void BaseHighlighter::startPass()
{
    passClock.start();
    postponing = false;
    linesThisPass = 0;
}

void BaseHighlighter::highlightBlock(const QString& text)
{
    if (!postponing && !unlimited && passClock.isValid() && linesThisPass >= LeastLinesAtOnce
        && passClock.elapsed() >= BudgetMs)
        postponing = true;
    ++linesThisPass;
    // Once a pass postpones a line, every later line of it waits too: what
    // they start from isn't known yet.
    if (postponing) {
        postpone();
        return;
    }
    lastHighlighted = currentBlock();
    highlightLine(text);
}

void BaseHighlighter::highlightLine(const QString& text)
{
    applyRules(text, {});
}

void BaseHighlighter::postpone()
{
    const QTextBlock block = currentBlock();
    // The highlighter starts each line blank; giving it back its formats and
    // leaving its state alone keeps the line as it was, and ends the run
    // through the lines below.
    for (const QTextLayout::FormatRange& range : block.layout()->formats())
        setFormat(range.start, range.length, range.format);
    remember(block.position(), block.position());
}

void BaseHighlighter::remember(int from, int to)
{
    if (pendingStart.isNull()) {
        pendingStart = QTextCursor(document());
        pendingStart.setPosition(from);
        pendingEnd = QTextCursor(document());
        pendingEnd.setPosition(to);
    } else {
        pendingStart.setPosition(qMin(from, pendingStart.position()));
        pendingEnd.setPosition(qMax(to, pendingEnd.position()));
    }
    continuation->start();
}

void BaseHighlighter::highlightPendingLines()
{
    if (pendingStart.isNull() || !document())
        return;
    QTextBlock block = document()->findBlock(pendingStart.position());
    const int end = pendingEnd.position();
    pendingStart = QTextCursor();
    pendingEnd = QTextCursor();
    startPass();
    // Every waiting line is highlighted again; past the last one the
    // highlighter goes on by itself while the states keep changing.
    while (block.isValid() && block.position() <= end) {
        if (passClock.elapsed() >= BudgetMs) {
            remember(block.position(), end);
            return;
        }
        lastHighlighted = QTextBlock();
        rehighlightBlock(block);
        block = lastHighlighted.isValid() && lastHighlighted.position() >= block.position() ? lastHighlighted.next()
                                                                                            : block.next();
    }
}

void BaseHighlighter::applyRules(const QString& text, const QVector<Span>& spans)
{
    for (const Rule& rule : rules) {
        QRegularExpressionMatchIterator matches = rule.pattern.globalMatch(text);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            const int start = match.capturedStart(rule.group);
            const int length = match.capturedLength(rule.group);
            if (start < 0 || length <= 0 || inSpans(start, spans))
                continue;
            paint(start, length, rule.format);
        }
    }
}

void BaseHighlighter::paint(int start, int length, const QString& format)
{
    setFormat(start, length, shown.value(format));
}

bool BaseHighlighter::inSpans(int position, const QVector<Span>& spans)
{
    for (const Span& span : spans) {
        if (position >= span.start && position < span.start + span.length)
            return true;
    }
    return false;
}
