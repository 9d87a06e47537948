#include "widgets/MyPlainTextEdit.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/CodeFont.h"
#include "widgets/MyLineEdit.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QRegularExpression>

MyPlainTextEdit::MyPlainTextEdit(QWidget* parent) : QPlainTextEdit(parent)
{
    connect(this, &QPlainTextEdit::textChanged, this, &MyPlainTextEdit::restrictLineSize);
}

void MyPlainTextEdit::setLineLimit(int lines)
{
    maxLines = qMax(0, lines);
    restrictLineSize();
}

void MyPlainTextEdit::setCodeBox()
{
    CodeFont::setUp(this);
    setCenterOnScroll(true);
}

void MyPlainTextEdit::restrictLineSize()
{
    if (maxLines <= 0)
        return;
    QString content = toPlainText();
    static const QRegularExpression lineBreak(QStringLiteral("[\n\r]"));
    static const QRegularExpression lastLine(QStringLiteral("[\n\r][^\n\r]*$"));
    bool changed = false;
    // A line break beyond the limit takes its line with it, from the end.
    while (content.count(lineBreak) > maxLines) {
        content.remove(lastLine);
        changed = true;
    }
    if (!changed)
        return;
    const QSignalBlocker blocker(this);
    setPlainText(content);
    moveCursor(QTextCursor::End);
}

void MyPlainTextEdit::openColorPicker()
{
    const QColor color = MyLineEdit::colorPicker()(window(), Qt::white);
    if (color.isValid())
        insertPlainText(color.name());
}

void MyPlainTextEdit::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu(event->pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    MyLineEdit::decorateStandardMenu(menu);
    if (colorInsertion && !isReadOnly()) {
        menu->addSeparator();
        menu->addAction(tr("Insert Color"), this, &MyPlainTextEdit::openColorPicker);
    }
    menu->popup(event->globalPos());
}
