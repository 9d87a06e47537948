#include "widgets/CodeFont.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QPlainTextEdit>

namespace CodeFont {

QFont font()
{
    QFont code = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(code).fixedPitch()) {
        code.setFamily(QStringLiteral("monospace"));
        code.setStyleHint(QFont::TypeWriter);
    }
    code.setWeight(57);
    return code;
}

void setUp(QPlainTextEdit* edit)
{
    edit->setFont(font());
    edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    edit->setCursorWidth(2);
    edit->setTabStopDistance(25);
}

}
