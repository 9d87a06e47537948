#pragma once

#include "widgets/BaseHighlighter.h"

// JavaScript highlighting for the code input: the word and pattern rules,
// then strings and comments, which may run on over the following lines, and
// the parameters of function definitions with their type hints.
class JSHighlighter : public BaseHighlighter
{
    Q_OBJECT
public:
    // The block state: what the end of a line leaves open for the next one.
    enum StateBits {
        InBlockComment = 1,
        InString = 2,
        SingleQuoted = 4,
        // The brace depth of an unfinished type hint stands above these bits.
        DepthShift = 3
    };

    explicit JSHighlighter(QTextDocument* document);

protected:
    void highlightLine(const QString& text) override;

private:
    // Finds the strings and comments of a line that begins in state and
    // returns the state its end leaves open.
    static int scan(const QString& text, int state, QVector<Span>& spans);
    // Paints a parameter list from position on, up to its ")". A type hint
    // whose braces are still open at the end of the line returns their depth.
    int paintParameters(const QString& text, int position, int depth);
};
