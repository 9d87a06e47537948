#include "app/JsonFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace JsonFile {

namespace {

void setReason(QString* reason, const QString& text)
{
    if (reason)
        *reason = text;
}

}

QString systemReason(const QString& errorString)
{
    // Qt prefixes some messages with the operation ("Could not open file: ...");
    // the user wants the cause that follows.
    QString text = errorString;
    const int colon = text.lastIndexOf(QLatin1String(": "));
    if (colon >= 0)
        text = text.mid(colon + 2);
    text = text.trimmed();
    if (text.isEmpty())
        return QCoreApplication::translate("", "unknown error");
    if (text.size() > 1 && text.at(1).isLower())
        text[0] = text.at(0).toLower();
    return text;
}

QJsonDocument read(const QString& path, QString* reason)
{
    bool readable = false;
    const QByteArray bytes = readBytes(path, reason, &readable);
    return readable ? parse(bytes, reason) : QJsonDocument();
}

QByteArray readBytes(const QString& path, QString* reason, bool* readable)
{
    *readable = false;
    setReason(reason, QString());
    const QFileInfo info(path);
    if (!info.exists()) {
        setReason(reason, QCoreApplication::translate("", "no such file"));
        return QByteArray();
    }
    // A FIFO would block the read for ever and a device never ends; only a
    // regular file (or a link to one) is read.
    if (!info.isFile()) {
        setReason(reason, info.isDir() ? QCoreApplication::translate("", "it is a folder")
                                       : QCoreApplication::translate("", "not a regular file"));
        return QByteArray();
    }
    if (info.size() > MaxFileSize) {
        setReason(reason, QCoreApplication::translate("", "larger than %1 MB").arg(MaxFileSize / (1024 * 1024)));
        return QByteArray();
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        setReason(reason, systemReason(file.errorString()));
        return QByteArray();
    }
    // QIODevice::read(n) sets aside n bytes before it reads, so it is asked
    // for what the file holds rather than for the limit: 256 MB for every
    // file is real memory under a sanitizer or strict overcommit. The size
    // can grow between the check and the read; the rest is read on, but
    // never past the limit.
    QByteArray bytes = file.read(qMin(file.size(), MaxFileSize) + 1);
    while (bytes.size() <= MaxFileSize) {
        const QByteArray more = file.read(qMin<qint64>(1 << 20, MaxFileSize + 1 - bytes.size()));
        if (more.isEmpty())
            break;
        bytes += more;
    }
    if (bytes.size() > MaxFileSize) {
        setReason(reason, QCoreApplication::translate("", "larger than %1 MB").arg(MaxFileSize / (1024 * 1024)));
        return QByteArray();
    }
    *readable = true;
    return bytes;
}

QJsonDocument parse(const QByteArray& bytes, QString* reason)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (document.isNull()) {
        setReason(reason, QCoreApplication::translate("", "not valid JSON (%1 at byte %2)")
                              .arg(error.errorString())
                              .arg(error.offset));
    }
    return document;
}

QVector<QPair<int, int>> arrayParts(const QByteArray& bytes, int parts)
{
    QVector<QPair<int, int>> found;
    const char* const text = bytes.constData();
    const int size = bytes.size();
    const auto isSpace = [](char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; };
    int first = 0;
    while (first < size && isSpace(text[first]))
        ++first;
    int last = size - 1;
    while (last > first && isSpace(text[last]))
        --last;
    if (parts < 2 || first >= last || text[first] != '[' || text[last] != ']')
        return found;
    // Cut at the commas between top-level elements, each piece about an
    // equal share of the text. Strings are skipped as a whole, so brackets
    // and commas inside them don't count.
    const int share = (last - first) / parts + 1;
    int depth = 0;
    int pieceStart = first + 1;
    for (int i = first + 1; i < last; ++i) {
        const char c = text[i];
        if (c == '"') {
            for (++i; i < last && text[i] != '"'; ++i) {
                if (text[i] == '\\')
                    ++i;
            }
        } else if (c == '[' || c == '{') {
            ++depth;
        } else if (c == ']' || c == '}') {
            if (--depth < 0)
                return {};
        } else if (c == ',' && depth == 0 && i - pieceStart >= share) {
            found.append(qMakePair(pieceStart, i - pieceStart));
            pieceStart = i + 1;
        }
    }
    if (depth != 0 || found.isEmpty())
        return {};
    found.append(qMakePair(pieceStart, last - pieceStart));
    return found;
}

QString pluginPath(const QDir& projectDirectory, const QString& name)
{
    return projectDirectory.absoluteFilePath(QStringLiteral("data/plugin/%1").arg(name));
}

QJsonDocument readPlugin(const QDir& projectDirectory, const QString& name, QString* reason)
{
    return read(pluginPath(projectDirectory, name), reason);
}

bool write(const QString& path, const QJsonObject& object, QString* reason)
{
    setReason(reason, QString());
    QSaveFile file(path);
    // Unbuffered, so a full disk fails the write itself with the system's reason.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        setReason(reason, systemReason(file.errorString()));
        return false;
    }
    const QByteArray bytes = QJsonDocument(object).toJson(QJsonDocument::Compact);
    // A short write is retried: the next attempt reports why the disk took no more.
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 written = file.write(bytes.constData() + done, bytes.size() - done);
        if (written <= 0) {
            setReason(reason, systemReason(file.errorString()));
            file.cancelWriting();
            return false;
        }
        done += written;
    }
    if (!file.commit()) {
        setReason(reason, systemReason(file.errorString()));
        return false;
    }
    return true;
}

bool writePlugin(const QDir& projectDirectory, const QString& name, const QJsonObject& object, QString* reason)
{
    const QString path = pluginPath(projectDirectory, name);
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder)) {
        const QFileInfo blocker(folder);
        setReason(reason, blocker.exists() && !blocker.isDir()
                              ? QCoreApplication::translate("", "\"%1\" is a file, not a folder")
                                    .arg(QDir::toNativeSeparators(folder))
                              : QCoreApplication::translate("", "the folder \"%1\" can't be created")
                                    .arg(QDir::toNativeSeparators(folder)));
        return false;
    }
    return write(path, object, reason);
}

}
