#include "TranslationBaseCollector.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

namespace TranslationBaseCollector {

namespace {

// A C++ string literal's body, escapes included.
const QString Literal = QStringLiteral(R"re("((?:[^"\\\n]|\\.)*)")re");

QString unescape(const QString& body)
{
    QString text;
    for (int i = 0; i < body.size(); ++i) {
        const QChar c = body.at(i);
        if (c != QLatin1Char('\\') || i + 1 >= body.size()) {
            text.append(c);
            continue;
        }
        const QChar next = body.at(++i);
        switch (next.unicode()) {
        case 'n': text.append(QLatin1Char('\n')); break;
        case 't': text.append(QLatin1Char('\t')); break;
        case 'r': text.append(QLatin1Char('\r')); break;
        case 'u':
            text.append(QChar(body.mid(i + 1, 4).toUShort(nullptr, 16)));
            i += 4;
            break;
        default: text.append(next); break;
        }
    }
    return text;
}

}

QStringList textsOf(const QString& source)
{
    // Adjacent literals ("a" "b") are one text, as the compiler sees them.
    static const QRegularExpression oneArgument(
        QStringLiteral(R"re(\b(?:tr|QT_TR_NOOP)\s*\(\s*(?<texts>(?:%1\s*)+))re").arg(Literal));
    static const QRegularExpression withContext(
        QStringLiteral(R"re(\b(?:QCoreApplication::translate|QT_TRANSLATE_NOOP)\s*\(\s*%1\s*,\s*(?<texts>(?:%1\s*)+))re")
            .arg(Literal));
    static const QRegularExpression literal(Literal);

    QMap<int, QString> found;
    for (const QRegularExpression* call : {&oneArgument, &withContext}) {
        QRegularExpressionMatchIterator it = call->globalMatch(source);
        while (it.hasNext()) {
            const QRegularExpressionMatch match = it.next();
            QString joined;
            QRegularExpressionMatchIterator parts = literal.globalMatch(match.captured(QStringLiteral("texts")));
            while (parts.hasNext())
                joined += unescape(parts.next().captured(1));
            found.insert(match.capturedStart(), joined);
        }
    }
    return found.values();
}

QStringList collect(const QString& sourceRoot)
{
    static const QStringList folders = {QStringLiteral("app"), QStringLiteral("scene"),
                                        QStringLiteral("components"), QStringLiteral("logic"),
                                        QStringLiteral("widgets"), QStringLiteral("theme")};
    QStringList files;
    for (const QString& folder : folders) {
        QDirIterator it(QDir(sourceRoot).absoluteFilePath(folder), {QStringLiteral("*.cpp"), QStringLiteral("*.h")},
                        QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            files.append(it.next());
    }
    files.sort();

    QStringList texts;
    QSet<QString> seen;
    for (const QString& path : files) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        for (const QString& text : textsOf(QString::fromUtf8(file.readAll()))) {
            if (text.isEmpty() || seen.contains(text))
                continue;
            seen.insert(text);
            texts.append(text);
        }
    }
    return texts;
}

QByteArray baseFile(const QStringList& texts)
{
    QByteArray bytes;
    for (QString text : texts) {
        // The file is read line by line: a text that spans lines can't be
        // carried, and written anyway it would stand as broken lines.
        if (text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r')))
            continue;
        text.replace(QLatin1Char('"'), QStringLiteral("\"\""));
        const QByteArray field = "\"" + text.toUtf8() + "\"";
        bytes += field + ',' + field + '\n';
    }
    return bytes;
}

}
