#include "widgets/LineNumberArea.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/HaxeCodeEdit.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTextBlock>

namespace {

const int RightPadding = 8;

QColor blend(const QColor& top, const QColor& bottom, double amount)
{
    return QColor::fromRgbF(top.redF() * amount + bottom.redF() * (1 - amount),
                            top.greenF() * amount + bottom.greenF() * (1 - amount),
                            top.blueF() * amount + bottom.blueF() * (1 - amount));
}

}

LineNumberArea::LineNumberArea(HaxeCodeEdit* owner) : QWidget(owner), editor(owner)
{
    setCursor(Qt::PointingHandCursor);
}

QSize LineNumberArea::sizeHint() const
{
    return QSize(editor->lineNumberAreaWidth(), 0);
}

void LineNumberArea::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    // The gutter stands on the window's colour, so that the text area
    // beside it reads as the field; the numbers are the text colour,
    // dimmed but for the lines the cursor and the selection touch.
    const QColor background = themeColor(ThemeKey::WindowBackground);
    const QColor text = themeColor(ThemeKey::Text);
    const QColor dimmed = blend(text, background, 0.62);
    painter.fillRect(event->rect(), background);
    painter.setFont(editor->font());

    const QTextCursor cursor = editor->textCursor();
    const int firstMarked = editor->document()->findBlock(cursor.selectionStart()).blockNumber();
    int lastMarked = editor->document()->findBlock(cursor.selectionEnd()).blockNumber();
    // Whole lines selected end at the start of the next line, which isn't marked.
    if (cursor.hasSelection() && lastMarked > firstMarked
        && editor->document()->findBlockByNumber(lastMarked).position() == cursor.selectionEnd())
        --lastMarked;

    const int numberWidth = width() - RightPadding;
    for (const HaxeCodeEdit::VisibleLine& line : editor->visibleLines()) {
        if (line.top > event->rect().bottom() || line.top + line.height < event->rect().top())
            continue;
        painter.setPen(line.number >= firstMarked && line.number <= lastMarked ? text : dimmed);
        painter.drawText(QRect(0, line.top, numberWidth, line.height), Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(line.number + 1));
    }
}

void LineNumberArea::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    anchorLine = editor->lineAt(event->pos().y());
    editor->setFocus(Qt::MouseFocusReason);
    editor->selectLines(anchorLine, anchorLine);
    update();
}

void LineNumberArea::mouseMoveEvent(QMouseEvent* event)
{
    if (anchorLine < 0 || !(event->buttons() & Qt::LeftButton))
        return;
    editor->selectLines(anchorLine, editor->lineAt(event->pos().y()));
}

void LineNumberArea::mouseReleaseEvent(QMouseEvent*)
{
    anchorLine = -1;
}
