// Times keystrokes in the code input holding a 5,000-line plugin script:
// each key press and release with the re-highlighting it causes and the
// repaint of the editor, at several places of the script. Prints the median,
// the 99th percentile and the slowest keystroke in milliseconds, in all and
// by kind of key.
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"
#include "widgets/BaseHighlighter.h"
#include "widgets/HaxeCodeEdit.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMap>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <QTextStream>

#include <algorithm>
#include <vector>

namespace {

// One class of an RPG Maker MZ plugin, 40 lines, with strings, comments,
// a block comment and nested blocks.
const char* const Pattern[] = {
    "/*:",
    " * @target MZ",
    " * @plugindesc Gauge window %1 for the map HUD.",
    " */",
    "(() => {",
    "\t'use strict';",
    "\tconst pluginName = \"VelmoraGauge%1\";",
    "\tconst parameters = PluginManager.parameters(pluginName);",
    "\tconst maxWidth = Number(parameters['Width'] || 240); // pixels",
    "",
    "\tfunction Window_Gauge%1() {",
    "\t\tthis.initialize(...arguments);",
    "\t}",
    "",
    "\tWindow_Gauge%1.prototype = Object.create(Window_Base.prototype);",
    "\tWindow_Gauge%1.prototype.constructor = Window_Gauge%1;",
    "",
    "\tWindow_Gauge%1.prototype.initialize = function(rect, actor) {",
    "\t\tWindow_Base.prototype.initialize.call(this, rect);",
    "\t\tthis._actor = actor;",
    "\t\tthis._value = -1;",
    "\t\tthis.refresh();",
    "\t};",
    "",
    "\tWindow_Gauge%1.prototype.update = function() {",
    "\t\tWindow_Base.prototype.update.call(this);",
    "\t\tif (this._actor && this._value !== this._actor.hp) {",
    "\t\t\tthis._value = this._actor.hp;",
    "\t\t\tthis.refresh();",
    "\t\t}",
    "\t};",
    "",
    "\tWindow_Gauge%1.prototype.refresh = function() {",
    "\t\tconst rate = this._actor.hp / Math.max(1, this._actor.mhp);",
    "\t\tthis.contents.clear();",
    "\t\tthis.contents.fillRect(0, 0, maxWidth * rate, 12, \"#ff6464\");",
    "\t\tthis.drawText(`${this._actor.name()}: ${this._value}`, 0, 14, maxWidth, 'left');",
    "\t};",
    "})();",
    "",
};
const int PatternLines = sizeof(Pattern) / sizeof(Pattern[0]);

QString script(int lines)
{
    QStringList text;
    for (int i = 0; text.size() < lines; ++i) {
        const QString line = QString::fromLatin1(Pattern[i % PatternLines]);
        text.append(line.contains(QLatin1String("%1")) ? line.arg(i / PatternLines) : line);
    }
    return text.join(QLatin1Char('\n'));
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double percentile99(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, values.size() * 99 / 100)];
}

// Runs the event loop until the highlighter has caught up with the text.
void settle(HaxeCodeEdit& edit)
{
    while (edit.highlighter()->hasPendingLines())
        QApplication::processEvents();
}

struct Key {
    const char* kind;
    Qt::Key key;
    char character;
};

}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Theme::installDefault();
    QApplication::setStyle(new VelmoStyle());
    Theme::apply();

    HaxeCodeEdit edit;
    edit.resize(900, 700);
    edit.setLanguageMode(HaxeCodeEdit::JavaScript);
    QElapsedTimer timer;
    timer.start();
    edit.setPlainText(script(5000));
    const double load = timer.nsecsElapsed() / 1e6;
    settle(edit);
    const double loadAll = timer.nsecsElapsed() / 1e6;
    edit.show();
    QApplication::setActiveWindow(&edit);
    if (!QTest::qWaitForWindowExposed(&edit))
        qFatal("the editor didn't show");
    edit.setFocus();
    QApplication::processEvents();

    // What one types in a method: words, a call, a string opened and closed
    // (which turns every line below inside out and back), a block comment
    // opened and closed (which greys the lines below down to the next "*/"),
    // Return with its indentation, Backspace, and Tab over a selection.
    const Key keys[] = {
        {"letter", Qt::Key_L, 'l'},      {"letter", Qt::Key_E, 'e'},
        {"letter", Qt::Key_T, 't'},      {"letter", Qt::Key_Space, ' '},
        {"letter", Qt::Key_X, 'x'},      {"letter", Qt::Key_Space, ' '},
        {"letter", Qt::Key_Equal, '='},  {"letter", Qt::Key_Space, ' '},
        {"quote", Qt::Key_QuoteDbl, '"'}, {"letter", Qt::Key_A, 'a'},
        {"letter", Qt::Key_B, 'b'},      {"quote", Qt::Key_QuoteDbl, '"'},
        {"letter", Qt::Key_Semicolon, ';'}, {"return", Qt::Key_Return, 0},
        {"letter", Qt::Key_Slash, '/'},  {"comment", Qt::Key_Asterisk, '*'},
        {"letter", Qt::Key_Space, ' '},  {"letter", Qt::Key_N, 'n'},
        {"letter", Qt::Key_Space, ' '},  {"letter", Qt::Key_Asterisk, '*'},
        {"comment", Qt::Key_Slash, '/'}, {"return", Qt::Key_Return, 0},
        {"backspace", Qt::Key_Backspace, 0}, {"backspace", Qt::Key_Backspace, 0},
        {"letter", Qt::Key_Y, 'y'},      {"letter", Qt::Key_ParenLeft, '('},
        {"letter", Qt::Key_ParenRight, ')'}, {"letter", Qt::Key_Semicolon, ';'},
        {"backspace", Qt::Key_Backspace, 0}, {"letter", Qt::Key_Semicolon, ';'},
        {"return", Qt::Key_Return, 0},   {"letter", Qt::Key_Z, 'z'},
        {"tab", Qt::Key_Tab, 0},         {"backtab", Qt::Key_Backtab, 0},
        {"letter", Qt::Key_Semicolon, ';'}, {"return", Qt::Key_Return, 0},
        {"backspace", Qt::Key_Backspace, 0}, {"backspace", Qt::Key_Backspace, 0},
        {"letter", Qt::Key_K, 'k'},      {"letter", Qt::Key_Semicolon, ';'},
    };
    const int keyCount = sizeof(keys) / sizeof(keys[0]);
    // Five places from the top to the bottom, each inside a method body.
    const int places[] = {21, 1221, 2501, 3741, 4981};

    std::vector<double> all;
    std::vector<double> catchUp;
    QMap<QString, std::vector<double>> byKind;
    for (int place : places) {
        QTextCursor cursor(edit.document()->findBlockByNumber(place));
        cursor.movePosition(QTextCursor::EndOfBlock);
        edit.setTextCursor(cursor);
        edit.centerCursor();
        QApplication::processEvents();
        for (int i = 0; i < keyCount; ++i) {
            const Key& key = keys[i];
            if (key.key == Qt::Key_Tab || key.key == Qt::Key_Backtab) {
                // Tab and Shift+Tab over the two lines above the cursor.
                QTextCursor lines = edit.textCursor();
                lines.movePosition(QTextCursor::Up, QTextCursor::KeepAnchor, 2);
                edit.setTextCursor(lines);
            }
            timer.restart();
            if (key.character)
                QTest::keyClick(&edit, key.character);
            else
                QTest::keyClick(&edit, key.key, key.key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
            edit.viewport()->repaint();
            QApplication::processEvents();
            const double ms = timer.nsecsElapsed() / 1e6;
            all.push_back(ms);
            byKind[QLatin1String(key.kind)].push_back(ms);
            if (key.key == Qt::Key_Backtab)
                edit.moveCursor(QTextCursor::EndOfBlock);
            // Keystrokes come faster than the lines below a change catch up;
            // how long that takes is measured after the string's quotes.
            if (QLatin1String(key.kind) == QLatin1String("quote")) {
                settle(edit);
                catchUp.push_back(timer.nsecsElapsed() / 1e6);
            }
        }
    }
    settle(edit);

    // The script as the keystrokes left it must look as a fresh editor
    // shows the same text.
    HaxeCodeEdit fresh;
    fresh.setLanguageMode(HaxeCodeEdit::JavaScript);
    fresh.setPlainText(edit.toPlainText());
    settle(fresh);
    int differing = 0;
    for (QTextBlock a = edit.document()->firstBlock(), b = fresh.document()->firstBlock(); a.isValid() && b.isValid();
         a = a.next(), b = b.next()) {
        if (a.layout()->formats() != b.layout()->formats())
            ++differing;
    }

    QTextStream out(stdout);
    out << "code input holding " << edit.blockCount() << " lines, " << all.size() << " keystrokes (ms)\n";
    out << "load     " << QString::number(load, 'f', 1) << "  (set, the lines at the top highlighted)\n";
    out << "load all " << QString::number(loadAll, 'f', 1) << "  (every line highlighted)\n";
    out << "median   " << QString::number(median(all), 'f', 2) << "\n";
    out << "99%      " << QString::number(percentile99(all), 'f', 2) << "\n";
    out << "slowest  " << QString::number(*std::max_element(all.begin(), all.end()), 'f', 2) << "\n";
    for (auto it = byKind.constBegin(); it != byKind.constEnd(); ++it) {
        out << "  " << it.key().leftJustified(10) << " n=" << QString::number(it.value().size()).leftJustified(4)
            << " median " << QString::number(median(it.value()), 'f', 2) << "  slowest "
            << QString::number(*std::max_element(it.value().begin(), it.value().end()), 'f', 2) << "\n";
    }
    out << "catch-up after a quote, every line below highlighted: median "
        << QString::number(median(catchUp), 'f', 1) << ", slowest "
        << QString::number(*std::max_element(catchUp.begin(), catchUp.end()), 'f', 1) << "\n";
    out << "lines highlighted otherwise than in a fresh editor: " << differing << "\n";
    return differing == 0 ? 0 : 1;
}
