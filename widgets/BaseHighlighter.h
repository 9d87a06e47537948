#pragma once

#include <QColor>
#include <QElapsedTimer>
#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <QSyntaxHighlighter>
#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QVector>

class QJsonObject;
class QTimer;

// The rule engine of the code input's highlighters, and the process-wide
// format table that names each kind of token ("keyword", "string", ...).
// A rule is a pattern with the name of its format; rules apply to each block
// in the order they were added, a later rule painting over an earlier one.
//
// A change whose effect runs on through the lines below (an opened string or
// comment) is highlighted for a few milliseconds at once, which covers the
// lines in view; the rest follows in slices between the user's keystrokes,
// each line keeping its old look until its turn comes.
class BaseHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT
public:
    explicit BaseHighlighter(QTextDocument* document);
    ~BaseHighlighter() override;

    // The format table. Its built-in entries are the program's own scheme;
    // applySyntaxColors puts a syntax export over them.
    static const QHash<QString, QTextCharFormat>& formatTable();
    // The built-in names in the order of their definition.
    static QStringList builtInNames();
    // Resets the table to the built-ins, then gives every key whose value
    // isn't an array that colour, plain. An empty object restores the
    // built-ins. Every living highlighter repaints its document.
    static void applySyntaxColors(const QJsonObject& object);

    // The background the text stands on. The built-in scheme is made for a
    // dark editor; on a light one each colour is darkened, keeping its hue,
    // until it reads at 4.5:1.
    void setBackground(const QColor& color);
    // The format a name is painted with on this highlighter's background.
    QTextCharFormat shownFormat(const QString& name) const;
    // Highlights everything now, with nothing left for later.
    void rehighlightAll();
    // True while lines wait for their turn.
    bool hasPendingLines() const { return !pendingStart.isNull(); }

protected:
    struct Rule {
        QRegularExpression pattern;
        QString format;
        // 0 for the whole match, 1 for the first capture group only.
        int group;
    };
    // A piece of a block that a later pass paints whole (a string, a
    // comment); rule matches that begin inside one are left out.
    struct Span {
        int start;
        int length;
        QString format;
    };

    void addRule(const QString& pattern, const QString& format, int group = 0);
    // One rule for a list of words, each standing alone (\bword\b).
    void addWords(const QStringList& words, const QString& format);
    // One rule for a list of patterns that share a format.
    void addPatterns(const QStringList& patterns, const QString& format);

    // Highlights one line; the state it leaves goes to setCurrentBlockState.
    virtual void highlightLine(const QString& text);
    // Paints the rules over text, leaving out matches that begin in a span.
    void applyRules(const QString& text, const QVector<Span>& spans);
    void paint(int start, int length, const QString& format);
    static bool inSpans(int position, const QVector<Span>& spans);

private:
    void highlightBlock(const QString& text) final;
    void refreshFormats();
    // A new change of the text: a fresh time budget.
    void startPass();
    // Keeps the current line as it looks and remembers it for later.
    void postpone();
    void remember(int from, int to);
    void highlightPendingLines();

    QVector<Rule> rules;
    QColor background;
    QHash<QString, QTextCharFormat> shown;
    QElapsedTimer passClock;
    bool postponing = false;
    int linesThisPass = 0;
    bool unlimited = false;
    // The first and the last line that wait, kept as cursors so that they
    // move with the text when the user types above them.
    QTextCursor pendingStart;
    QTextCursor pendingEnd;
    QTextBlock lastHighlighted;
    QTimer* continuation;
};
