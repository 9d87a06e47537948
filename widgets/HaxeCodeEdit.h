#pragma once

#include <QPlainTextEdit>
#include <QVector>

class BaseHighlighter;
class ErrorInfoPopup;
class LineNumberArea;

// The code input in which users write the JavaScript of dynamic values,
// conditions and add-ons: line numbers in a gutter, highlighting, automatic
// indentation on Return, and Tab / Shift+Tab over a selection of lines.
class HaxeCodeEdit : public QPlainTextEdit
{
    Q_OBJECT
public:
    enum LanguageMode { PlainText, JavaScript };

    // The place of one visible line in viewport coordinates.
    struct VisibleLine {
        int number;
        int top;
        int height;
    };

    explicit HaxeCodeEdit(QWidget* parent = nullptr);

    // JavaScript attaches a JSHighlighter; plain text shows no highlighting.
    void setLanguageMode(LanguageMode mode);
    LanguageMode languageMode() const { return mode; }
    BaseHighlighter* highlighter() const { return highlighting; }

    // Focuses the editor with the cursor at the end, or at the start.
    void setFocusToEnd(bool toEnd);
    // True once the text changed since it was last marked unchanged.
    bool textHasChanged() const { return changed; }
    void setTextHasChanged(bool value) { changed = value; }

    LineNumberArea* lineNumberArea() const { return gutter; }
    int lineNumberAreaWidth() const;
    // The lines that stand in the viewport, top to bottom.
    QVector<VisibleLine> visibleLines() const;
    // The line (from 0) at a height in the viewport; above the first line
    // the first, below the last the last.
    int lineAt(int y) const;
    // Selects whole lines from anchorLine to line, each with its line break,
    // so that the selection grows from the anchor in either direction.
    void selectLines(int anchorLine, int line);

    // The list of errors that a script check fills; it fades out when the
    // text changes or scrolls, since its lines no longer stand where they did.
    ErrorInfoPopup* errorPopup() const { return errors; }

public slots:
    void updateTextHasChanged();
    void updateLineNumberAreaWidth();
    void updateLineNumberArea(const QRect& rect, int dy);
    void whenCursorPositionChanged();
    void whenSelectionChanged();
    void whenCodeIsScrolled(int value);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // Return: a line break that keeps the indentation and opens blocks.
    void insertLineBreak();
    // Tab and Shift+Tab over the lines a selection touches.
    void shiftLines(bool indent);
    void placeGutter();
    // The highlighter darkens its colours on a light background.
    void takeBackground();

    LanguageMode mode = PlainText;
    BaseHighlighter* highlighting = nullptr;
    LineNumberArea* gutter;
    ErrorInfoPopup* errors;
    bool changed = false;
    int cursorLine = 0;
};
