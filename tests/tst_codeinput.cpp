#include "TestEnvironment.h"

#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"
#include "widgets/BaseHighlighter.h"
#include "widgets/ErrorInfoPopup.h"
#include "widgets/HaxeCodeEdit.h"
#include "widgets/LineNumberArea.h"

#include <QApplication>
#include <QFontInfo>
#include <QJsonArray>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QVBoxLayout>


namespace {

// The colours of the program's syntax scheme.
const QColor Keyword(0xef, 0x4e, 0x4e);
const QColor SuperKeyword(0x1f, 0xcd, 0xef);
const QColor Operator(0xef, 0x4e, 0x4e);
const QColor Brace(0xf0, 0xf0, 0xf0);
const QColor String(0xf0, 0xff, 0x46);
const QColor Comment(0x9e, 0x9e, 0x9e);
const QColor ThisSuper(0xee, 0xb7, 0x4f);
const QColor Numbers(0xdc, 0x4d, 0xf0);
const QColor Parameters(0xee, 0xb7, 0x4f);
const QColor TypeHint(0x4f, 0xb7, 0xee);
const QColor TypeHintBraces(0xff, 0xff, 0xff);
const QColor Function(0x2f, 0xef, 0x7f);
const QColor PrimitiveTypes(0xa3, 0x8a, 0xf5);

const QString Separator = QString(QChar::ParagraphSeparator);

// The editor in a shown, active window, in JavaScript mode.
struct Editor {
    QWidget window;
    HaxeCodeEdit* edit;

    explicit Editor(const QString& text = QString())
    {
        QVBoxLayout* layout = new QVBoxLayout(&window);
        edit = new HaxeCodeEdit(&window);
        layout->addWidget(edit);
        edit->setLanguageMode(HaxeCodeEdit::JavaScript);
        edit->setPlainText(text);
        window.resize(640, 360);
        window.show();
        QApplication::setActiveWindow(&window);
        if (!QTest::qWaitForWindowActive(&window))
            qWarning("the editor's window didn't become active");
        edit->setFocus();
        settle();
    }

    // Waits until the lines that a change left for later are highlighted.
    void settle() const
    {
        QTRY_VERIFY(!edit->highlighter() || !edit->highlighter()->hasPendingLines());
    }

    QString text() const { return edit->toPlainText(); }
    QString line(int number) const { return edit->document()->findBlockByNumber(number).text(); }
    // The cursor as line and column.
    QPoint cursor() const
    {
        const QTextCursor c = edit->textCursor();
        return QPoint(c.positionInBlock(), c.blockNumber());
    }
    void placeCursor(int line, int column)
    {
        QTextCursor c(edit->document()->findBlockByNumber(line));
        c.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column);
        edit->setTextCursor(c);
    }
    void type(const QString& keys) { QTest::keyClicks(edit, keys); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(edit, key, modifiers);
    }

    // The format the highlighter gave a character; plain text has none.
    QTextCharFormat formatAt(int line, int column) const
    {
        const QTextBlock block = edit->document()->findBlockByNumber(line);
        QTextCharFormat found;
        for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
            if (column >= range.start && column < range.start + range.length)
                found = range.format;
        }
        return found;
    }
    QColor colorAt(int line, int column) const
    {
        const QTextCharFormat format = formatAt(line, column);
        return format.hasProperty(QTextFormat::ForegroundBrush) ? format.foreground().color() : QColor();
    }
    // The colour of a word's every character on a line, or an invalid colour
    // when they differ.
    QColor colorOf(int line, const QString& word, int from = 0) const
    {
        const int start = this->line(line).indexOf(word, from);
        if (start < 0)
            return QColor(Qt::transparent);
        const QColor first = colorAt(line, start);
        for (int i = 1; i < word.size(); ++i) {
            if (colorAt(line, start + i) != first)
                return QColor();
        }
        return first;
    }
    bool italicAt(int line, int column) const { return formatAt(line, column).fontItalic(); }

    // The centre of a line in the gutter, as Qt places the line.
    QPoint gutterPoint(int line) const
    {
        QTextCursor c(edit->document()->findBlockByNumber(line));
        return QPoint(edit->lineNumberArea()->width() / 2, edit->cursorRect(c).center().y());
    }
};

// A realistic script of about lines lines, each a few statements of a plugin.
QString longScript(int lines)
{
    const QStringList pattern = {
        QStringLiteral("function Window_Gauge%1(x, y) {"),
        QStringLiteral("\tconst label = \"HP %1\"; // the caption"),
        QStringLiteral("\tif (this._value > %1) {"),
        QStringLiteral("\t\treturn Math.min(x, %1);"),
        QStringLiteral("\t}"),
        QStringLiteral("\t/* kept for the old save files */"),
        QStringLiteral("\treturn null;"),
        QStringLiteral("}"),
    };
    QStringList script;
    for (int i = 0; script.size() < lines; ++i) {
        const QString& line = pattern.at(i % pattern.size());
        script.append(line.contains(QLatin1String("%1")) ? line.arg(i) : line);
    }
    return script.join(QLatin1Char('\n'));
}

}

class TestCodeInput : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The style fills the palette from the theme, as in the program.
        QApplication::setStyle(new VelmoStyle());
    }

    void init()
    {
        Theme::installDefault();
        Theme::apply();
        BaseHighlighter::applySyntaxColors(QJsonObject());
    }

    // Return: what the next line starts with.
    void returnAfterOpeningBraceIndentsOneTabMore()
    {
        Editor editor;
        editor.type(QStringLiteral("function () {"));
        editor.press(Qt::Key_Return);
        QCOMPARE(editor.text(), QStringLiteral("function () {\n\t"));
        editor.type(QStringLiteral("if (x) {"));
        editor.press(Qt::Key_Return);
        editor.type(QStringLiteral("x();"));
        editor.press(Qt::Key_Return);
        // A plain line keeps the indentation it has.
        editor.type(QStringLiteral("y();"));
        QCOMPARE(editor.text(), QStringLiteral("function () {\n\tif (x) {\n\t\tx();\n\t\ty();"));
        // Spaces and tabs behind the brace still open the block.
        Editor spaced(QStringLiteral("    if (a) { \t"));
        spaced.edit->moveCursor(QTextCursor::End);
        spaced.press(Qt::Key_Return);
        QCOMPARE(spaced.line(1), QStringLiteral("    \t"));
    }

    void returnBetweenBracesPutsTheClosingBraceOnItsOwnLine()
    {
        Editor editor(QStringLiteral("\tif (x) {}"));
        editor.edit->moveCursor(QTextCursor::End);
        editor.press(Qt::Key_Left);
        editor.press(Qt::Key_Return);
        QCOMPARE(editor.text(), QStringLiteral("\tif (x) {\n\t\t\n\t}"));
        QCOMPARE(editor.cursor(), QPoint(2, 1));
        editor.type(QStringLiteral("go();"));
        QCOMPARE(editor.text(), QStringLiteral("\tif (x) {\n\t\tgo();\n\t}"));

        // Typed the way one writes it: both braces, then Return between them.
        Editor typed;
        typed.type(QStringLiteral("const f = function () {}"));
        typed.press(Qt::Key_Left);
        typed.press(Qt::Key_Return);
        QCOMPARE(typed.text(), QStringLiteral("const f = function () {\n\t\n}"));
        QCOMPARE(typed.cursor(), QPoint(1, 1));

        // The whole split is one step to undo.
        typed.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(typed.text(), QStringLiteral("const f = function () {}"));
    }

    void returnAfterACaseLineIndents()
    {
        Editor editor(QStringLiteral("switch (kind) {\n\tcase 1:"));
        editor.edit->moveCursor(QTextCursor::End);
        editor.press(Qt::Key_Return);
        editor.type(QStringLiteral("break;"));
        editor.press(Qt::Key_Return);
        editor.press(Qt::Key_Backspace);
        editor.type(QStringLiteral("case \"two\" :"));
        editor.press(Qt::Key_Return);
        QCOMPARE(editor.text(), QStringLiteral("switch (kind) {\n\tcase 1:\n\t\tbreak;\n\tcase \"two\" :\n\t\t"));
        // A colon elsewhere on a line opens nothing.
        Editor other(QStringLiteral("\tconst v = a ? b : c;"));
        other.edit->moveCursor(QTextCursor::End);
        other.press(Qt::Key_Return);
        QCOMPARE(other.line(1), QStringLiteral("\t"));
    }

    void aLineOfWhitespaceCountsAsEmpty()
    {
        Editor editor;
        editor.type(QStringLiteral("function () {"));
        editor.press(Qt::Key_Return);
        editor.press(Qt::Key_Return);
        editor.press(Qt::Key_Return);
        editor.type(QStringLiteral("x();"));
        // The blank lines left behind hold no stray tabs; the indentation
        // went on with the cursor.
        QCOMPARE(editor.text(), QStringLiteral("function () {\n\n\n\tx();"));
        // Return at the start of an indented line doesn't double its indentation.
        Editor start(QStringLiteral("\t\tfoo();"));
        start.placeCursor(0, 0);
        start.press(Qt::Key_Return);
        QCOMPARE(start.text(), QStringLiteral("\n\t\tfoo();"));
        QCOMPARE(start.cursor(), QPoint(0, 1));
    }

    void ctrlReturnIsLeftToTheDialog()
    {
        Editor editor(QStringLiteral("x {"));
        editor.edit->moveCursor(QTextCursor::End);
        editor.press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(editor.text(), QStringLiteral("x {"));
    }

    // Tab and Shift+Tab.
    void tabIndentsAndShiftTabUnindentsTheSelectedLines()
    {
        Editor editor(QStringLiteral("a();\n\tb();\nc();\nd();"));
        editor.placeCursor(0, 2);
        editor.press(Qt::Key_Down, Qt::ShiftModifier);
        editor.press(Qt::Key_Down, Qt::ShiftModifier);
        editor.press(Qt::Key_Tab);
        QCOMPARE(editor.text(), QStringLiteral("\ta();\n\t\tb();\n\tc();\nd();"));
        // The selection stays, over the whole of the lines it touched.
        QCOMPARE(editor.edit->textCursor().selectedText(),
                 QStringLiteral("\ta();") + Separator + QStringLiteral("\t\tb();") + Separator + QStringLiteral("\tc();"));
        editor.press(Qt::Key_Tab);
        QCOMPARE(editor.text(), QStringLiteral("\t\ta();\n\t\t\tb();\n\t\tc();\nd();"));
        editor.press(Qt::Key_Backtab, Qt::ShiftModifier);
        // Shift+Tab as some platforms send it, without turning it into Backtab.
        editor.press(Qt::Key_Tab, Qt::ShiftModifier);
        QCOMPARE(editor.text(), QStringLiteral("a();\n\tb();\nc();\nd();"));
        // Lines without a tab stay as they are while the others lose one.
        editor.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(editor.text(), QStringLiteral("a();\nb();\nc();\nd();"));
        QCOMPARE(editor.edit->textCursor().selectedText(),
                 QStringLiteral("a();") + Separator + QStringLiteral("b();") + Separator + QStringLiteral("c();"));
        // One step to undo.
        editor.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor.text(), QStringLiteral("a();\n\tb();\nc();\nd();"));
    }

    void tabOverAnUpwardSelectionKeepsItsDirection()
    {
        Editor editor(QStringLiteral("one\ntwo\nthree"));
        editor.placeCursor(2, 3);
        editor.press(Qt::Key_Up, Qt::ShiftModifier);
        editor.press(Qt::Key_Tab);
        QCOMPARE(editor.text(), QStringLiteral("one\n\ttwo\n\tthree"));
        // Shift+Up goes on from the top of the selection.
        editor.press(Qt::Key_Up, Qt::ShiftModifier);
        editor.press(Qt::Key_Tab);
        QCOMPARE(editor.text(), QStringLiteral("\tone\n\t\ttwo\n\t\tthree"));
    }

    void tabWithoutSelectionInsertsATab()
    {
        Editor editor(QStringLiteral("ab"));
        editor.placeCursor(0, 1);
        editor.press(Qt::Key_Tab);
        QCOMPARE(editor.text(), QStringLiteral("a\tb"));
        editor.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(editor.text(), QStringLiteral("a\tb"));
        Editor indented(QStringLiteral("\t\tx"));
        indented.placeCursor(0, 3);
        indented.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(indented.text(), QStringLiteral("\tx"));
        QCOMPARE(indented.cursor(), QPoint(2, 0));
    }

    // Highlighting.
    void aStringHoldingAKeywordStaysAString()
    {
        Editor editor(QStringLiteral("var s = \"return\";\nlet t = 'if x';\nvar u = \"say \\\"return\\\" now\";"));
        QCOMPARE(editor.colorOf(0, QStringLiteral("\"return\"")), String);
        QCOMPARE(editor.colorOf(0, QStringLiteral("var")), SuperKeyword);
        QVERIFY(editor.italicAt(0, 0));
        QCOMPARE(editor.colorOf(0, QStringLiteral("=")), Operator);
        QCOMPARE(editor.colorOf(1, QStringLiteral("'if x'")), String);
        // An escaped quote doesn't end the string.
        QCOMPARE(editor.colorOf(2, QStringLiteral("\"say \\\"return\\\" now\"")), String);
    }

    void slashesInAStringDontStartAComment()
    {
        Editor editor(QStringLiteral("var u = \"http://x\"; return 1;\nx = 2; // return 3"));
        QCOMPARE(editor.colorOf(0, QStringLiteral("\"http://x\"")), String);
        QCOMPARE(editor.colorOf(0, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(0, QStringLiteral("1")), Numbers);
        QCOMPARE(editor.colorOf(1, QStringLiteral("// return 3")), Comment);
        QCOMPARE(editor.colorOf(1, QStringLiteral("2")), Numbers);
    }

    void aBlockCommentColoursTheLinesUntilItsEnd()
    {
        Editor editor(QStringLiteral("x = 1; /* begins\nreturn 1;\n\"quoted\" still */ return 2;\nreturn 3;"));
        QCOMPARE(editor.colorOf(0, QStringLiteral("/* begins")), Comment);
        QCOMPARE(editor.colorOf(0, QStringLiteral("1")), Numbers);
        QCOMPARE(editor.colorOf(1, QStringLiteral("return 1;")), Comment);
        QCOMPARE(editor.colorOf(2, QStringLiteral("\"quoted\" still */")), Comment);
        QCOMPARE(editor.colorOf(2, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(3, QStringLiteral("return")), Keyword);

        // Typing the end earlier gives the lines below their own colours back.
        editor.placeCursor(0, editor.line(0).size());
        editor.type(QStringLiteral(" */"));
        QCOMPARE(editor.colorOf(1, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(1, QStringLiteral("1")), Numbers);
        QCOMPARE(editor.colorOf(2, QStringLiteral("\"quoted\"")), String);
        // The old end now stands outside a comment: a plain word.
        QCOMPARE(editor.colorOf(2, QStringLiteral("still")), QColor());
    }

    void wordsAndNumbersTakeTheirFormats()
    {
        Editor editor(QStringLiteral("function gauge(actor, rate) {\n"
                                     "\tif (this.value >= 10 && rate != null) { return Math.max(0x1F, 2.5e3); }\n"
                                     "\tconst returned = format(actor);\n"
                                     "\tconsole.log(true instanceof Object);\n"
                                     "}"));
        QCOMPARE(editor.colorOf(0, QStringLiteral("function")), SuperKeyword);
        QCOMPARE(editor.colorOf(0, QStringLiteral("gauge")), Function);
        QCOMPARE(editor.colorOf(0, QStringLiteral("actor")), Parameters);
        QVERIFY(editor.italicAt(0, editor.line(0).indexOf(QStringLiteral("actor"))));
        QCOMPARE(editor.colorOf(0, QStringLiteral("rate")), Parameters);
        QCOMPARE(editor.colorOf(0, QStringLiteral("{")), Brace);
        QCOMPARE(editor.colorOf(1, QStringLiteral("if")), Keyword);
        QCOMPARE(editor.colorOf(1, QStringLiteral("this")), ThisSuper);
        QCOMPARE(editor.colorOf(1, QStringLiteral(">=")), Operator);
        QCOMPARE(editor.colorOf(1, QStringLiteral("10")), Numbers);
        QCOMPARE(editor.colorOf(1, QStringLiteral("null")), Numbers);
        QCOMPARE(editor.colorOf(1, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(1, QStringLiteral("Math")), PrimitiveTypes);
        QCOMPARE(editor.colorOf(1, QStringLiteral("max")), Function);
        QCOMPARE(editor.colorOf(1, QStringLiteral("0x1F")), Numbers);
        QCOMPARE(editor.colorOf(1, QStringLiteral("2.5e3")), Numbers);
        // Keywords stand alone: inside a longer name they are plain.
        QCOMPARE(editor.colorOf(2, QStringLiteral("returned")), QColor());
        QCOMPARE(editor.colorOf(2, QStringLiteral("format")), Function);
        QCOMPARE(editor.colorOf(3, QStringLiteral("instanceof")), Keyword);
        QCOMPARE(editor.colorOf(3, QStringLiteral("true")), Numbers);
        QCOMPARE(editor.colorOf(3, QStringLiteral("console")), ThisSuper);
    }

    void typeHintsOfParameters()
    {
        Editor editor(QStringLiteral("function move(x:Int, pos:{left:Int,\ntop:Int}, y) {}"));
        QCOMPARE(editor.colorOf(0, QStringLiteral("x")), Parameters);
        QCOMPARE(editor.colorOf(0, QStringLiteral("Int")), TypeHint);
        QCOMPARE(editor.colorOf(0, QStringLiteral("pos")), Parameters);
        QCOMPARE(editor.colorOf(0, QStringLiteral("{")), TypeHintBraces);
        // The hint's braces stay open over the line break.
        QCOMPARE(editor.colorOf(1, QStringLiteral("top")), TypeHint);
        QCOMPARE(editor.colorOf(1, QStringLiteral("}")), TypeHintBraces);
    }

    void aSyntaxExportRecoloursAndAnEmptyOneRestores()
    {
        Editor editor(QStringLiteral("var s = \"text\"; return 1;"));
        QJsonObject scheme;
        scheme.insert(QStringLiteral("keyword"), QStringLiteral("#123456"));
        scheme.insert(QStringLiteral("super_keyword"), QStringLiteral("#00ff00"));
        scheme.insert(QStringLiteral("string"), QJsonArray{QStringLiteral("#000000")});
        BaseHighlighter::applySyntaxColors(scheme);
        // The open editor shows the new scheme at once.
        QCOMPARE(editor.colorOf(0, QStringLiteral("return")), QColor(0x12, 0x34, 0x56));
        // A custom colour is plain, even where the built-in one is italic.
        QCOMPARE(editor.colorOf(0, QStringLiteral("var")), QColor(0, 0xff, 0));
        QVERIFY(!editor.italicAt(0, 0));
        // Arrays are no colours: the string keeps the built-in one.
        QCOMPARE(editor.colorOf(0, QStringLiteral("\"text\"")), String);
        QCOMPARE(BaseHighlighter::formatTable().value(QStringLiteral("keyword")).foreground().color(),
                 QColor(0x12, 0x34, 0x56));

        // A second export starts again from the built-ins.
        BaseHighlighter::applySyntaxColors(QJsonObject{{QStringLiteral("numbers"), QStringLiteral("red")}});
        QCOMPARE(editor.colorOf(0, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(0, QStringLiteral("1")), QColor(Qt::red));

        BaseHighlighter::applySyntaxColors(QJsonObject());
        QCOMPARE(editor.colorOf(0, QStringLiteral("1")), Numbers);
        QCOMPARE(editor.colorOf(0, QStringLiteral("var")), SuperKeyword);
        QVERIFY(editor.italicAt(0, 0));
        // An editor opened later starts with the built-ins too.
        Editor later(QStringLiteral("return"));
        QCOMPARE(later.colorOf(0, QStringLiteral("return")), Keyword);
    }

    void theBuiltInTableHoldsEveryName()
    {
        const QStringList names = BaseHighlighter::builtInNames();
        QCOMPARE(names.size(), 19);
        QCOMPARE(names.first(), QStringLiteral("keyword"));
        QCOMPARE(names.last(), QStringLiteral("compile_conditionals"));
        const QHash<QString, QTextCharFormat>& table = BaseHighlighter::formatTable();
        QCOMPARE(table.value(QStringLiteral("built_function")).foreground().color(), QColor(0xff, 0x8c, 0x00));
        QCOMPARE(table.value(QStringLiteral("highlevel_types")).foreground().color(), QColor(0xa3, 0x8a, 0xf5));
        QVERIFY(table.value(QStringLiteral("highlevel_types")).fontItalic());
        QVERIFY(!table.value(QStringLiteral("metadata")).fontItalic());
    }

    void aLongScriptKeepsItsHighlightingAfterEdits()
    {
        Editor editor(longScript(4000));
        // Line 3995 is "\t\treturn Math.min(x, 3995);".
        QCOMPARE(editor.colorOf(3995, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(3995, QStringLiteral("Math")), PrimitiveTypes);

        // Edits in the middle: a new line, a word, a removal.
        editor.placeCursor(2002, editor.line(2002).size());
        editor.press(Qt::Key_Return);
        editor.type(QStringLiteral("let extra = 5;"));
        editor.press(Qt::Key_Backspace);
        editor.type(QStringLiteral(";"));
        QCOMPARE(editor.line(2003), QStringLiteral("\t\tlet extra = 5;"));
        QCOMPARE(editor.colorOf(2003, QStringLiteral("let")), SuperKeyword);
        QCOMPARE(editor.colorOf(2003, QStringLiteral("5")), Numbers);
        editor.settle();
        // Far below (a line further down now) and far above, the lines keep
        // their colours.
        QCOMPARE(editor.line(3996), QStringLiteral("\t\treturn Math.min(x, 3995);"));
        QCOMPARE(editor.colorOf(3996, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(3996, QStringLiteral("Math")), PrimitiveTypes);
        QCOMPARE(editor.colorOf(3996, QStringLiteral("3995")), Numbers);
        QCOMPARE(editor.colorOf(3986, QStringLiteral("\"HP 3985\"")), String);
        QCOMPARE(editor.colorOf(3986, QStringLiteral("// the caption")), Comment);
        QCOMPARE(editor.colorOf(6, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(1, QStringLiteral("\"HP 1\"")), String);

        // A block comment opened at line 1000 runs to the next "*/", five
        // lines on; taking it back returns those lines to their colours.
        editor.placeCursor(1000, 0);
        editor.type(QStringLiteral("/*"));
        editor.settle();
        QCOMPARE(editor.colorOf(1003, QStringLiteral("return")), Comment);
        QCOMPARE(editor.colorOf(1005, QStringLiteral("/* kept for the old save files */")), Comment);
        QCOMPARE(editor.colorOf(1006, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(998, QStringLiteral("return")), Keyword);
        editor.press(Qt::Key_Backspace);
        editor.press(Qt::Key_Backspace);
        editor.settle();
        QCOMPARE(editor.colorOf(1003, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(1003, QStringLiteral("Math")), PrimitiveTypes);

        // An unfinished string turns the rest of the script inside out, and
        // taking it back restores every line down to the last.
        editor.placeCursor(1500, 0);
        editor.type(QStringLiteral("\""));
        // The lines in view turn at once; the rest follows between keystrokes.
        QCOMPARE(editor.colorOf(1502, QStringLiteral("return")), String);
        editor.settle();
        QCOMPARE(editor.colorOf(3996, QStringLiteral("return")), String);
        editor.press(Qt::Key_Backspace);
        QCOMPARE(editor.colorOf(1502, QStringLiteral("return")), Keyword);
        editor.settle();
        QCOMPARE(editor.colorOf(3996, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(3986, QStringLiteral("\"HP 3985\"")), String);
    }

    void editsWhileLinesWaitEndAsAFreshHighlight()
    {
        Editor editor(longScript(3000));
        // Keys in quick succession, each change opening or closing strings
        // and comments while the lines below still wait for the last one.
        editor.placeCursor(100, 0);
        editor.type(QStringLiteral("\""));
        editor.placeCursor(2500, 0);
        editor.type(QStringLiteral("/* x"));
        editor.press(Qt::Key_Return);
        editor.placeCursor(50, 0);
        editor.type(QStringLiteral("'"));
        editor.placeCursor(2800, 1);
        editor.type(QStringLiteral("\"a"));
        editor.placeCursor(100, 1);
        editor.press(Qt::Key_Backspace);
        editor.placeCursor(10, 0);
        editor.press(Qt::Key_Return);
        editor.settle();

        Editor fresh(editor.text());
        const QTextDocument* edited = editor.edit->document();
        const QTextDocument* expected = fresh.edit->document();
        QCOMPARE(edited->blockCount(), expected->blockCount());
        for (int line = 0; line < expected->blockCount(); ++line) {
            const QVector<QTextLayout::FormatRange> want = expected->findBlockByNumber(line).layout()->formats();
            const QVector<QTextLayout::FormatRange> got = edited->findBlockByNumber(line).layout()->formats();
            QVERIFY2(got == want, qPrintable(QStringLiteral("line %1: %2").arg(line).arg(editor.line(line))));
        }
    }

    void plainTextModeShowsNoColours()
    {
        Editor editor(QStringLiteral("return \"x\";"));
        QCOMPARE(editor.colorOf(0, QStringLiteral("return")), Keyword);
        editor.edit->setLanguageMode(HaxeCodeEdit::PlainText);
        QVERIFY(!editor.edit->highlighter());
        QCOMPARE(editor.colorOf(0, QStringLiteral("return")), QColor());
    }

    void aLightThemeKeepsTheColoursReadable()
    {
        QVERIFY(Theme::load(QStringLiteral("Light")));
        Theme::apply();
        Editor editor(QStringLiteral("var s = \"yellow\"; // grey"));
        const QColor background = editor.edit->palette().color(QPalette::Base);
        QVERIFY(TestEnvironment::luminance(background) > 0.5);
        for (const QString& word : {QStringLiteral("var"), QStringLiteral("\"yellow\""), QStringLiteral("// grey")}) {
            const QColor shown = editor.colorOf(0, word);
            QVERIFY2(TestEnvironment::contrast(shown, background) >= 4.5, qPrintable(word + QLatin1Char(' ') + shown.name()));
        }
        // Darker, but still the string's hue.
        const QColor string = editor.colorOf(0, QStringLiteral("\"yellow\""));
        QVERIFY(qAbs(string.hslHue() - String.hslHue()) <= 4);
        // Back on the dark theme the scheme's own colours return.
        Theme::installDefault();
        Theme::apply();
        QCOMPARE(editor.colorOf(0, QStringLiteral("\"yellow\"")), String);
    }

    // The gutter.
    void pressingALineNumberSelectsThatLine()
    {
        Editor editor(QStringLiteral("zero\none\ntwo\nthree\nfour"));
        LineNumberArea* gutter = editor.edit->lineNumberArea();
        QTest::mouseClick(gutter, Qt::LeftButton, Qt::NoModifier, editor.gutterPoint(2));
        QCOMPARE(editor.edit->textCursor().selectedText(), QStringLiteral("two") + Separator);
        QVERIFY(editor.edit->hasFocus());

        // A drag down and a drag up from the same line.
        QTest::mousePress(gutter, Qt::LeftButton, Qt::NoModifier, editor.gutterPoint(1));
        TestEnvironment::moveWithButtons(gutter, editor.gutterPoint(3), Qt::LeftButton);
        QTest::mouseRelease(gutter, Qt::LeftButton, Qt::NoModifier, editor.gutterPoint(3));
        QCOMPARE(editor.edit->textCursor().selectedText(),
                 QStringLiteral("one") + Separator + QStringLiteral("two") + Separator + QStringLiteral("three") + Separator);
        QTest::mousePress(gutter, Qt::LeftButton, Qt::NoModifier, editor.gutterPoint(3));
        TestEnvironment::moveWithButtons(gutter, editor.gutterPoint(2), Qt::LeftButton);
        QTest::mouseRelease(gutter, Qt::LeftButton, Qt::NoModifier, editor.gutterPoint(2));
        QCOMPARE(editor.edit->textCursor().selectedText(),
                 QStringLiteral("two") + Separator + QStringLiteral("three") + Separator);
        // Moving without the button selects nothing more.
        QTest::mouseMove(gutter, editor.gutterPoint(0));
        QCOMPARE(editor.edit->textCursor().selectedText(),
                 QStringLiteral("two") + Separator + QStringLiteral("three") + Separator);

        // The last line has no break to take along.
        QTest::mouseClick(gutter, Qt::LeftButton, Qt::NoModifier, editor.gutterPoint(4));
        QCOMPARE(editor.edit->textCursor().selectedText(), QStringLiteral("four"));
    }

    void theGutterCountsFromTheScrolledLine()
    {
        Editor editor(longScript(300));
        editor.edit->verticalScrollBar()->setValue(200);
        QTest::qWait(20);
        const int first = editor.edit->cursorForPosition(QPoint(4, 4)).blockNumber();
        QVERIFY(first >= 150);
        QTest::mouseClick(editor.edit->lineNumberArea(), Qt::LeftButton, Qt::NoModifier, editor.gutterPoint(first + 1));
        QCOMPARE(editor.edit->textCursor().selectedText(), editor.line(first + 1) + Separator);
    }

    void gutterLinesThenTabIndentOnlyThoseLines()
    {
        Editor editor(QStringLiteral("a\nb\nc\nd"));
        LineNumberArea* gutter = editor.edit->lineNumberArea();
        QTest::mousePress(gutter, Qt::LeftButton, Qt::NoModifier, editor.gutterPoint(1));
        TestEnvironment::moveWithButtons(gutter, editor.gutterPoint(2), Qt::LeftButton);
        QTest::mouseRelease(gutter, Qt::LeftButton, Qt::NoModifier, editor.gutterPoint(2));
        editor.press(Qt::Key_Tab);
        QCOMPARE(editor.text(), QStringLiteral("a\n\tb\n\tc\nd"));
        editor.press(Qt::Key_Tab);
        QCOMPARE(editor.text(), QStringLiteral("a\n\t\tb\n\t\tc\nd"));
    }

    void theGutterWidensForMoreDigits()
    {
        Editor editor(longScript(99));
        const int narrow = editor.edit->lineNumberArea()->width();
        editor.edit->moveCursor(QTextCursor::End);
        editor.press(Qt::Key_Return);
        QVERIFY(editor.edit->lineNumberArea()->width() > narrow);
        // The text starts right of the gutter.
        QVERIFY(editor.edit->viewport()->geometry().left() >= editor.edit->lineNumberArea()->geometry().right());
    }

    void theTextStandsInAFixedFont()
    {
        Editor editor(QStringLiteral("iiii\nWWWW"));
        // The offscreen platform names no fixed font of its own: the columns
        // must line up all the same.
        QVERIFY(QFontInfo(editor.edit->font()).fixedPitch());
        QCOMPARE(editor.edit->font().weight(), 57);
        QCOMPARE(editor.edit->lineWrapMode(), QPlainTextEdit::NoWrap);
        QTextCursor narrow(editor.edit->document()->findBlockByNumber(0));
        narrow.movePosition(QTextCursor::EndOfBlock);
        QTextCursor wide(editor.edit->document()->findBlockByNumber(1));
        wide.movePosition(QTextCursor::EndOfBlock);
        QCOMPARE(editor.edit->cursorRect(narrow).x(), editor.edit->cursorRect(wide).x());
    }

    // Focus and the error list.
    void setFocusToEndPlacesTheCursor()
    {
        Editor editor(QStringLiteral("one\ntwo"));
        QWidget other(&editor.window);
        other.setFocusPolicy(Qt::StrongFocus);
        other.setFocus();
        editor.edit->setFocusToEnd(true);
        QVERIFY(editor.edit->hasFocus());
        QCOMPARE(editor.cursor(), QPoint(3, 1));
        editor.edit->setFocusToEnd(false);
        QCOMPARE(editor.cursor(), QPoint(0, 0));
    }

    void theErrorListFadesInAndOutWhenTheTextChanges()
    {
        Editor editor(QStringLiteral("x = ;"));
        ErrorInfoPopup* popup = editor.edit->errorPopup();
        QVERIFY(!popup->isVisible());
        popup->showErrors({{1, QStringLiteral("Unexpected token ';'")}, {3, QStringLiteral("Missing }")}});
        QVERIFY(popup->isVisible());
        QTRY_COMPARE(popup->windowOpacity(), 1.0);
        QCOMPARE(popup->errors().size(), 2);
        editor.type(QStringLiteral("1"));
        QTRY_VERIFY(!popup->isVisible());
    }
};

VELMORA_TEST_MAIN(TestCodeInput, QApplication)
#include "tst_codeinput.moc"
