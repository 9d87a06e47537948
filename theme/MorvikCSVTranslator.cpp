#include "theme/MorvikCSVTranslator.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>

namespace {

MorvikCSVTranslator* installedTranslator = nullptr;

}

MorvikCSVTranslator::MorvikCSVTranslator(const QString& path, QObject* parent) : QTranslator(parent)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        translations = parse(file.readAll());
}

QString MorvikCSVTranslator::translate(const char*, const char* sourceText, const char*, int) const
{
    const QString source = QString::fromUtf8(sourceText);
    return translations.value(source, source);
}

QStringList MorvikCSVTranslator::parseLine(const QString& line)
{
    enum State { Outside, Quoted, AfterQuote };
    State state = Outside;
    QStringList fields{QString()};
    for (QChar c : line) {
        // Beyond Latin-1 a character matches no delimiter and is kept as NUL.
        const bool wide = c.unicode() > 255;
        if (wide)
            c = QChar(0);
        switch (state) {
        case Outside:
            if (!wide && c == QLatin1Char('"'))
                state = Quoted;
            else if (!wide && c == QLatin1Char(','))
                fields.append(QString());
            else
                fields.last().append(c);
            break;
        case Quoted:
            if (!wide && c == QLatin1Char('"'))
                state = AfterQuote;
            else
                fields.last().append(c);
            break;
        case AfterQuote:
            if (!wide && c == QLatin1Char('"')) {
                fields.last().append(c);
                state = Quoted;
            } else if (!wide && c == QLatin1Char(',')) {
                fields.append(QString());
                state = Outside;
            } else {
                state = Outside;
            }
            break;
        }
    }
    return fields;
}

QMap<QString, QString> MorvikCSVTranslator::parse(const QByteArray& bytes)
{
    const int nul = bytes.indexOf('\0');
    const QString text = QString::fromUtf8(nul < 0 ? bytes : bytes.left(nul));
    QMap<QString, QString> table;
    static const QRegularExpression lineBreaks(QStringLiteral("[\\n\\r]+"));
    for (const QString& line : text.split(lineBreaks)) {
        const QStringList fields = parseLine(line);
        if (fields.size() >= 2)
            table.insert(fields.at(0), fields.at(1));
    }
    return table;
}

void MorvikCSVTranslator::installLanguage(const QString& path)
{
    removeLanguage();
    if (path.isEmpty())
        return;
    installedTranslator = new MorvikCSVTranslator(path);
    QCoreApplication::installTranslator(installedTranslator);
}

void MorvikCSVTranslator::removeLanguage()
{
    if (!installedTranslator)
        return;
    QCoreApplication::removeTranslator(installedTranslator);
    delete installedTranslator;
    installedTranslator = nullptr;
}

MorvikCSVTranslator* MorvikCSVTranslator::current()
{
    return installedTranslator;
}
