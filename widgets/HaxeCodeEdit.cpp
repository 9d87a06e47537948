#include "widgets/HaxeCodeEdit.h"

#include "widgets/BaseHighlighter.h"
#include "widgets/CodeFont.h"
#include "widgets/ErrorInfoPopup.h"
#include "widgets/JSHighlighter.h"
#include "widgets/LineNumberArea.h"

#include <QKeyEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>

namespace {

const int GutterPadding = 8;

// The text from start up to the end of block last, as plain lines.
QString linesText(QTextBlock first, const QTextBlock& last)
{
    QStringList lines;
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        lines.append(block.text());
        if (block == last)
            break;
    }
    return lines.join(QLatin1Char('\n'));
}

}

HaxeCodeEdit::HaxeCodeEdit(QWidget* parent)
    : QPlainTextEdit(parent), gutter(new LineNumberArea(this)), errors(new ErrorInfoPopup(this))
{
    CodeFont::setUp(this);

    connect(this, &QPlainTextEdit::textChanged, this, &HaxeCodeEdit::updateTextHasChanged);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &HaxeCodeEdit::updateLineNumberAreaWidth);
    connect(this, &QPlainTextEdit::updateRequest, this, &HaxeCodeEdit::updateLineNumberArea);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &HaxeCodeEdit::whenCursorPositionChanged);
    connect(this, &QPlainTextEdit::selectionChanged, this, &HaxeCodeEdit::whenSelectionChanged);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &HaxeCodeEdit::whenCodeIsScrolled);
    updateLineNumberAreaWidth();
}

void HaxeCodeEdit::setLanguageMode(LanguageMode newMode)
{
    if (newMode == mode)
        return;
    mode = newMode;
    delete highlighting;
    highlighting = nullptr;
    if (mode == JavaScript) {
        highlighting = new JSHighlighter(document());
        takeBackground();
    }
}

void HaxeCodeEdit::setFocusToEnd(bool toEnd)
{
    setFocus(Qt::OtherFocusReason);
    moveCursor(toEnd ? QTextCursor::End : QTextCursor::Start);
    ensureCursorVisible();
}

int HaxeCodeEdit::lineNumberAreaWidth() const
{
    const int digits = QString::number(qMax(1, blockCount())).size();
    // Room for two digits at least, so that the gutter doesn't widen at line 10.
    return GutterPadding + fontMetrics().horizontalAdvance(QLatin1Char('9')) * qMax(2, digits) + GutterPadding;
}

QVector<HaxeCodeEdit::VisibleLine> HaxeCodeEdit::visibleLines() const
{
    QVector<VisibleLine> lines;
    const int bottom = viewport()->height();
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const QRectF area = blockBoundingGeometry(block).translated(contentOffset());
        if (area.top() > bottom)
            break;
        if (block.isVisible())
            lines.append({block.blockNumber(), qRound(area.top()), qRound(area.height())});
    }
    return lines;
}

int HaxeCodeEdit::lineAt(int y) const
{
    const QVector<VisibleLine> lines = visibleLines();
    if (lines.isEmpty())
        return 0;
    if (y < lines.first().top)
        return lines.first().number;
    for (const VisibleLine& line : lines) {
        if (y < line.top + line.height)
            return line.number;
    }
    return lines.last().number;
}

void HaxeCodeEdit::selectLines(int anchorLine, int line)
{
    const QTextBlock anchorBlock = document()->findBlockByNumber(qBound(0, anchorLine, blockCount() - 1));
    const QTextBlock block = document()->findBlockByNumber(qBound(0, line, blockCount() - 1));
    // The end of a line with its break: the start of the next one, or the
    // end of the text after the last line.
    auto lineEnd = [this](const QTextBlock& b) {
        return qMin(b.position() + b.length(), document()->characterCount() - 1);
    };
    QTextCursor cursor(document());
    if (block.blockNumber() >= anchorBlock.blockNumber()) {
        cursor.setPosition(anchorBlock.position());
        cursor.setPosition(lineEnd(block), QTextCursor::KeepAnchor);
    } else {
        cursor.setPosition(lineEnd(anchorBlock));
        cursor.setPosition(block.position(), QTextCursor::KeepAnchor);
    }
    setTextCursor(cursor);
}

void HaxeCodeEdit::updateTextHasChanged()
{
    changed = true;
    errors->fadeOut();
}

void HaxeCodeEdit::updateLineNumberAreaWidth()
{
    setViewportMargins(lineNumberAreaWidth(), 0, 0, 0);
    placeGutter();
}

void HaxeCodeEdit::placeGutter()
{
    const QRect area = contentsRect();
    gutter->setGeometry(area.left(), area.top(), lineNumberAreaWidth(), area.height());
}

void HaxeCodeEdit::updateLineNumberArea(const QRect& rect, int dy)
{
    if (dy != 0)
        gutter->scroll(0, dy);
    else
        gutter->update(0, rect.y(), gutter->width(), rect.height());
}

void HaxeCodeEdit::whenCursorPositionChanged()
{
    // The gutter marks the cursor's line; repaint it only when that moved.
    const int line = textCursor().blockNumber();
    if (line != cursorLine) {
        cursorLine = line;
        gutter->update();
    }
}

void HaxeCodeEdit::whenSelectionChanged()
{
    gutter->update();
}

void HaxeCodeEdit::whenCodeIsScrolled(int)
{
    errors->fadeOut();
}

void HaxeCodeEdit::keyPressEvent(QKeyEvent* event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool plain = modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier;
    if (isReadOnly() || !plain) {
        // Ctrl+Return and its like belong to the dialog around the editor.
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        insertLineBreak();
        return;
    case Qt::Key_Tab:
        // Some platforms send Shift+Tab as itself rather than as Backtab.
        if (modifiers == Qt::ShiftModifier) {
            shiftLines(false);
            return;
        }
        if (textCursor().hasSelection()) {
            shiftLines(true);
            return;
        }
        break;
    case Qt::Key_Backtab:
        shiftLines(false);
        return;
    default:
        break;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void HaxeCodeEdit::insertLineBreak()
{
    static const QRegularExpression leadingWhitespace(QStringLiteral("^([\\t ]*)"));
    static const QRegularExpression opensBlock(QStringLiteral("^[\\t ]*[^\\n]*\\{[\\t ]*$"));
    static const QRegularExpression caseLine(QStringLiteral("^[\\t ]*[^\\n]*case[\\t ]+[^\\n]+[\\t ]*:[\\t ]*$"));
    static const QRegularExpression closesBlock(QStringLiteral("^[\\t ]*\\}"));
    static const QRegularExpression blankLine(QStringLiteral("^\\s+$"));

    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    const QString line = cursor.block().text();
    const QString before = line.left(cursor.positionInBlock());
    const QString after = line.mid(cursor.positionInBlock());
    QString indent;
    bool split = false;
    if (blankLine.match(line).hasMatch()) {
        // A line of nothing but whitespace counts as empty: it stays behind
        // empty, and its indentation goes on with the new line.
        indent = line;
        cursor.movePosition(QTextCursor::StartOfBlock);
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    } else {
        // The indentation of the part that stays on the line; Return inside
        // the indentation doesn't double it.
        const QString outer = leadingWhitespace.match(before).captured(1);
        indent = outer;
        const bool opens = opensBlock.match(before).hasMatch();
        if (opens || caseLine.match(before).hasMatch())
            indent += QLatin1Char('\t');
        split = opens && closesBlock.match(after).hasMatch();
        if (split) {
            // "{|}": the closing brace goes to a line of its own at the outer
            // indentation, and the cursor stays on the indented line between.
            const QRegularExpressionMatch space = leadingWhitespace.match(after);
            cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, space.capturedLength(1));
            cursor.removeSelectedText();
            cursor.insertText(QLatin1Char('\n') + indent);
            const int position = cursor.position();
            cursor.insertText(QLatin1Char('\n') + outer);
            cursor.setPosition(position);
        }
    }
    if (!split)
        cursor.insertText(QLatin1Char('\n') + indent);
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}

void HaxeCodeEdit::shiftLines(bool indent)
{
    QTextCursor cursor = textCursor();
    const bool upwards = cursor.position() < cursor.anchor();
    QTextBlock first = document()->findBlock(cursor.selectionStart());
    QTextBlock last = document()->findBlock(cursor.selectionEnd());
    // A selection that ends at the start of a line (whole lines selected)
    // doesn't touch that line.
    const bool endsAtLineStart = last != first && cursor.selectionEnd() == last.position();
    if (endsAtLineStart)
        last = last.previous();
    const int start = first.position();
    const int end = last.position() + last.length() - 1;

    static const QRegularExpression lineStart(QStringLiteral("\\n(\\t*)"));
    static const QRegularExpression tabbedLineStart(QStringLiteral("\\n\\t(\\t*)"));
    QString text = QLatin1Char('\n') + linesText(first, last);
    if (indent)
        text.replace(lineStart, QStringLiteral("\n\t\\1"));
    else
        text.replace(tabbedLineStart, QStringLiteral("\n\\1"));
    text.remove(0, 1);

    const bool hadSelection = cursor.hasSelection();
    const int column = cursor.positionInBlock();
    const int lengthBefore = end - start;
    QTextCursor edit(document());
    edit.beginEditBlock();
    edit.setPosition(start);
    edit.setPosition(end, QTextCursor::KeepAnchor);
    edit.insertText(text);
    edit.endEditBlock();

    if (!hadSelection) {
        // Shift+Tab on a line without selection: the cursor keeps its place
        // in the text that stays.
        const int removed = lengthBefore - text.size();
        cursor.setPosition(start + qMax(0, column - removed));
        setTextCursor(cursor);
        return;
    }
    // The selection stays, extended over the whole of the changed lines.
    const int newEnd = start + text.size() + (endsAtLineStart ? 1 : 0);
    cursor.setPosition(upwards ? newEnd : start);
    cursor.setPosition(upwards ? start : newEnd, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void HaxeCodeEdit::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    placeGutter();
}

void HaxeCodeEdit::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        takeBackground();
        updateLineNumberAreaWidth();
        gutter->update();
    }
}

void HaxeCodeEdit::takeBackground()
{
    if (highlighting)
        highlighting->setBackground(palette().color(QPalette::Base));
}
