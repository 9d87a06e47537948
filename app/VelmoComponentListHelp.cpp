#include "app/VelmoComponentListHelp.h"

#include <QLabel>
#include <QList>
#include <QPair>
#include <QStringList>

VelmoComponentListHelp::VelmoComponentListHelp(QWidget* parent)
    : AlertDialog(keyTable(), tr("Component List Help"), parent)
{
    label()->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QString VelmoComponentListHelp::keyTable()
{
    const QList<QPair<const char*, const char*>> lines{
        {QT_TR_NOOP("Move Items in List"), "RIGHT-CLICK + DRAG"}, {QT_TR_NOOP("Refresh List"), "SHIFT + R"},
        {QT_TR_NOOP("Show/Hide Component"), "CTRL + Q"},         {nullptr, nullptr},
        {QT_TR_NOOP("Copy Component"), "CTRL + C"},              {QT_TR_NOOP("Cut Component"), "CTRL + X"},
        {QT_TR_NOOP("Paste Component"), "CTRL + V"},             {QT_TR_NOOP("Delete Component"), "DEL"}};
    // Names padded with blanks so the keys stand in one column of the fixed font.
    int width = 0;
    for (const auto& line : lines)
        width = qMax(width, line.first ? tr(line.first).size() : 0);
    QStringList rows;
    for (const auto& line : lines) {
        const QString name = line.first ? tr(line.first) : QString();
        rows.append(line.first ? QStringLiteral("\u2022 %1%2<b>%3</b>")
                                     .arg(name.toHtmlEscaped(), QString(width - name.size() + 2, QLatin1Char(' ')),
                                          QLatin1String(line.second))
                               : QString());
    }
    return QStringLiteral("<pre style=\"font-family: monospace; font-weight: 600;\">%1</pre>")
        .arg(rows.join(QLatin1Char('\n')));
}
