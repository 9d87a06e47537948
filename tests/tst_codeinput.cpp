#include "TestEnvironment.h"

#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"
#include "widgets/BaseHighlighter.h"
#include "widgets/HaxeCodeEdit.h"
#include "widgets/LineNumberArea.h"

#include <QApplication>
#include <QTextBlock>
#include <QTextLayout>


namespace {

// The colours of the program's syntax scheme.
const QColor Keyword(0xef, 0x4e, 0x4e);
const QColor SuperKeyword(0x1f, 0xcd, 0xef);
const QColor String(0xf0, 0xff, 0x46);
const QColor Comment(0x9e, 0x9e, 0x9e);
const QColor Numbers(0xdc, 0x4d, 0xf0);
const QColor Parameters(0xee, 0xb7, 0x4f);
const QColor TypeHint(0x4f, 0xb7, 0xee);

// Lines as a selection holds them, each ended by a paragraph separator.
QString selectedLines(const QStringList& lines)
{
    return lines.join(QChar(QChar::ParagraphSeparator)) + QChar(QChar::ParagraphSeparator);
}

// The editor in a shown, active window, in JavaScript mode. A '|' in the
// text stands for the cursor.
struct Editor {
    QWidget window;
    HaxeCodeEdit* edit;

    explicit Editor(const QString& text = QString())
    {
        edit = new HaxeCodeEdit(&window);
        edit->setLanguageMode(HaxeCodeEdit::JavaScript);
        edit->setPlainText(QString(text).remove(QLatin1Char('|')));
        QTextCursor start(edit->document());
        start.setPosition(qMax(0, text.indexOf(QLatin1Char('|'))));
        edit->setTextCursor(start);
        window.resize(640, 360);
        edit->resize(window.size());
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
    QString marked() const { return text().insert(edit->textCursor().position(), QLatin1Char('|')); }
    QString line(int number) const { return edit->document()->findBlockByNumber(number).text(); }
    QString selected() const { return edit->textCursor().selectedText(); }
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
        QTextCharFormat found;
        for (const QTextLayout::FormatRange& range : edit->document()->findBlockByNumber(line).layout()->formats()) {
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
    QColor colorOf(int line, const QString& word) const
    {
        const int start = this->line(line).indexOf(word);
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
    void dragGutter(int from, int to)
    {
        LineNumberArea* gutter = edit->lineNumberArea();
        QTest::mousePress(gutter, Qt::LeftButton, Qt::NoModifier, gutterPoint(from));
        TestEnvironment::moveWithButtons(gutter, gutterPoint(to), Qt::LeftButton);
        QTest::mouseRelease(gutter, Qt::LeftButton, Qt::NoModifier, gutterPoint(to));
    }
};

// A script of the given number of lines, each a plain statement.
QString longScript(int lines)
{
    QStringList script;
    for (int i = 0; i < lines; ++i)
        script.append(QStringLiteral("\treturn Math.min(x, %1); // line %1").arg(i));
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

    // Return, Tab and Shift+Tab without a selection.
    void aKeyAtTheCursor_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("expected");
        const int none = Qt::NoModifier;
        QTest::newRow("return between braces") << "\tif (x) {|}" << int(Qt::Key_Return) << none << "\tif (x) {\n\t\t|\n\t}";
        QTest::newRow("return behind a case") << "\tcase \"two\" :|" << int(Qt::Key_Return) << none << "\tcase \"two\" :\n\t\t|";
        // The indentation isn't doubled.
        QTest::newRow("return before an indented line") << "|\t\tfoo();" << int(Qt::Key_Return) << none << "\n|\t\tfoo();";
        QTest::newRow("shift+tab in the indentation") << "\t\t|x" << int(Qt::Key_Backtab) << int(Qt::ShiftModifier) << "\t|x";
    }

    void aKeyAtTheCursor()
    {
        QFETCH(QString, text);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        Editor editor(text);
        editor.press(Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QTEST(editor.marked(), "expected");
    }

    // Typed the way one writes it, both braces and then Return between them,
    // the split is one step to undo.
    void splittingBracesIsOneStepToUndo()
    {
        Editor typed;
        typed.type(QStringLiteral("const f = function () {}"));
        typed.press(Qt::Key_Left);
        typed.press(Qt::Key_Return);
        typed.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(typed.text(), QStringLiteral("const f = function () {}"));
    }

    // Tab and Shift+Tab.
    void tabIndentsAndShiftTabUnindentsTheSelectedLines()
    {
        Editor editor(QStringLiteral("a();\n\tb();\nc();\nd();"));
        editor.placeCursor(0, 2);
        editor.press(Qt::Key_Down, Qt::ShiftModifier);
        editor.press(Qt::Key_Down, Qt::ShiftModifier);
        editor.press(Qt::Key_Tab);
        editor.press(Qt::Key_Tab);
        QCOMPARE(editor.text(), QStringLiteral("\t\ta();\n\t\t\tb();\n\t\tc();\nd();"));
        editor.press(Qt::Key_Backtab, Qt::ShiftModifier);
        // Shift+Tab as some platforms send it, without turning it into Backtab.
        editor.press(Qt::Key_Tab, Qt::ShiftModifier);
        // Lines without a tab stay as they are while the others lose one; the
        // selection stays, over the whole of the lines it touched.
        editor.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(editor.text(), QStringLiteral("a();\nb();\nc();\nd();"));
        QCOMPARE(editor.selected(), selectedLines({"a();", "b();"}) + QStringLiteral("c();"));
        // One step to undo.
        editor.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor.text(), QStringLiteral("a();\n\tb();\nc();\nd();"));
    }

    // Highlighting.
    void eachWordTakesTheFormatOfItsKind()
    {
        Editor editor(QStringLiteral("function gauge(actor, pos:{left:Int,\n"
                                     "top:Int}) { if (this.value >= 0x1F) return Math.max(2.5e3); }\n"
                                     "var s = \"return\"; let t = 'if x'; var u = \"say \\\"return\\\" now\";\n"
                                     "var u = \"http://x\"; const returned = true instanceof Object; // return 3"));
        QCOMPARE(editor.colorOf(0, QStringLiteral("function")), SuperKeyword);
        QCOMPARE(editor.colorOf(0, QStringLiteral("actor")), Parameters);
        QVERIFY(editor.italicAt(0, editor.line(0).indexOf(QStringLiteral("actor"))));
        // A type hint's braces stay open over the line break.
        QCOMPARE(editor.colorOf(1, QStringLiteral("top")), TypeHint);
        QCOMPARE(editor.colorOf(1, QStringLiteral("0x1F")), Numbers);
        QCOMPARE(editor.colorOf(1, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(1, QStringLiteral("2.5e3")), Numbers);
        // Quotes hide what they hold, an escaped quote ends no string and
        // slashes in a string start no comment.
        QCOMPARE(editor.colorOf(2, QStringLiteral("\"say \\\"return\\\" now\"")), String);
        QCOMPARE(editor.colorOf(3, QStringLiteral("\"http://x\"")), String);
        // Keywords stand alone: inside a longer name they are plain.
        QCOMPARE(editor.colorOf(3, QStringLiteral("returned")), QColor());
        QCOMPARE(editor.colorOf(3, QStringLiteral("// return 3")), Comment);
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

        // A second export starts again from the built-ins.
        BaseHighlighter::applySyntaxColors(QJsonObject{{QStringLiteral("numbers"), QStringLiteral("red")}});
        QCOMPARE(editor.colorOf(0, QStringLiteral("return")), Keyword);
        QCOMPARE(editor.colorOf(0, QStringLiteral("1")), QColor(Qt::red));
    }

    void anUnfinishedStringRecoloursTheRestAndTakingItBackRestores()
    {
        Editor editor(longScript(4000));
        // An unfinished string turns the rest of the script inside out, and
        // taking it back restores every line down to the last.
        editor.placeCursor(1500, 0);
        editor.type(QStringLiteral("\""));
        // The lines in view turn at once; the rest follows between keystrokes.
        QCOMPARE(editor.colorOf(1502, QStringLiteral("return")), String);
        editor.settle();
        QCOMPARE(editor.colorOf(3995, QStringLiteral("return")), String);
        editor.press(Qt::Key_Backspace);
        QCOMPARE(editor.colorOf(1502, QStringLiteral("return")), Keyword);
        editor.settle();
        QCOMPARE(editor.colorOf(3995, QStringLiteral("return")), Keyword);
    }

    // The gutter.
    void pressingALineNumberSelectsThatLine()
    {
        Editor editor(QStringLiteral("zero\none\ntwo\nthree\nfour"));
        LineNumberArea* gutter = editor.edit->lineNumberArea();
        QTest::mouseClick(gutter, Qt::LeftButton, Qt::NoModifier, editor.gutterPoint(2));
        QCOMPARE(editor.selected(), selectedLines({"two"}));

        // A drag down and a drag up from the same line.
        editor.dragGutter(1, 3);
        QCOMPARE(editor.selected(), selectedLines({"one", "two", "three"}));
        editor.dragGutter(3, 2);
        QCOMPARE(editor.selected(), selectedLines({"two", "three"}));
        // Tab indents those lines only.
        editor.press(Qt::Key_Tab);
        QCOMPARE(editor.text(), QStringLiteral("zero\none\n\ttwo\n\tthree\nfour"));

        // The last line has no break to take along.
        QTest::mouseClick(gutter, Qt::LeftButton, Qt::NoModifier, editor.gutterPoint(4));
        QCOMPARE(editor.selected(), QStringLiteral("four"));
    }
};

VELMORA_TEST_MAIN(TestCodeInput, QApplication)
#include "tst_codeinput.moc"
